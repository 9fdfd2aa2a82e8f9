// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RowButtons.h"

#include "RootItem.h"
#include "SecondItem.h"

#include <QFrame>
#include <QLayout>
#include <QToolButton>

namespace RowButtons {

QList<QToolButton *> rowButtons(SecondItem *row)
{
    QList<QToolButton *> buttons;
    QFrame *frame = row->findChild<QFrame *>(QStringLiteral("m_qfBtns"));
    if (!frame || !frame->layout())
        return buttons;
    for (int i = 0; i < frame->layout()->count(); ++i)
        buttons << qobject_cast<QToolButton *>(frame->layout()->itemAt(i)->widget());
    return buttons;
}

QToolButton *rowButton(SecondItem *row, int index)
{
    return rowButtons(row).value(index);
}

QToolButton *rootButton(RootItem *root, const char *property)
{
    for (QToolButton *button : root->findChildren<QToolButton *>()) {
        if (button->property(property).toBool())
            return button;
    }
    return nullptr;
}

} // namespace RowButtons
