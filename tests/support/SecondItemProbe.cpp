// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "SecondItemProbe.h"

#include "SecondItem.h"

#include <QFrame>
#include <QLabel>
#include <QLayout>
#include <QToolButton>
#include <QtTest>

namespace SecondItemProbe {

SecondParts partsOf(SecondItem *item)
{
    SecondParts p;
    p.upper = item->findChild<QLabel *>(QStringLiteral("m_qlUpper"));
    p.down = item->findChild<QLabel *>(QStringLiteral("m_qlDown"));
    const auto labels = item->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        if (label->objectName().isEmpty())
            p.icon = label;
    }
    p.frame = item->findChild<QFrame *>(QStringLiteral("m_qfBtns"));
    if (p.frame && p.frame->layout() && p.frame->layout()->count() == 4) {
        QLayout *l = p.frame->layout();
        p.capture = qobject_cast<QToolButton *>(l->itemAt(0)->widget());
        p.edit = qobject_cast<QToolButton *>(l->itemAt(1)->widget());
        p.del = qobject_cast<QToolButton *>(l->itemAt(2)->widget());
        p.fourth = qobject_cast<QToolButton *>(l->itemAt(3)->widget());
    }
    return p;
}

void Recorder::attach(SecondItem *item)
{
    QObject::connect(item, &SecondItem::signal_OnItemClicked, [this] { events << QStringLiteral("item"); });
    QObject::connect(item, &SecondItem::signal_OnEditBtnClicked, [this] { events << QStringLiteral("edit"); });
    QObject::connect(item, &SecondItem::signal_OnDeleteBtnClicked, [this] { events << QStringLiteral("delete"); });
    QObject::connect(item, &SecondItem::signal_OnCaptureBtnClicked,
                     [this] { events << QStringLiteral("capture"); });
}

QString prop(QObject *o, const char *name)
{
    return o->property(name).toString();
}

std::unique_ptr<SecondItem> makeShownItem(int width)
{
    std::unique_ptr<SecondItem> item(new SecondItem(nullptr));
    item->initItem(1, 2);
    item->resize(width, 40);
    item->show();
    if (!QTest::qWaitForWindowExposed(item.get()))
        return nullptr;
    return item;
}

} // namespace SecondItemProbe
