// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "DemoRows.h"

#include <QFrame>
#include <QWidget>

#include <algorithm>

namespace {

bool above(const QWidget *a, const QWidget *b)
{
    return a->y() < b->y();
}

} // namespace

QList<QWidget *> DemoRows::drawers(QFrame *listFrame)
{
    QList<QWidget *> result;
    if (!listFrame)
        return result;
    const QList<QWidget *> all = listFrame->findChildren<QWidget *>();
    for (QWidget *widget : all) {
        if (widget->objectName() == QLatin1String("RootItem") && widget->parentWidget()
            && widget->parentWidget()->isVisibleTo(listFrame))
            result << widget->parentWidget();
    }
    // Drawers are stacked in one column: their vertical order is the order
    // of the root rows.
    std::stable_sort(result.begin(), result.end(), above);
    return result;
}

QWidget *DemoRows::rootRow(QFrame *listFrame, int root)
{
    const QList<QWidget *> all = drawers(listFrame);
    if (root < 0 || root >= all.size())
        return nullptr;
    return all.at(root)->findChild<QWidget *>(QStringLiteral("RootItem"),
                                              Qt::FindDirectChildrenOnly);
}

QWidget *DemoRows::childRow(QFrame *listFrame, int root, int child)
{
    const QList<QWidget *> all = drawers(listFrame);
    if (root < 0 || root >= all.size() || child < 0)
        return nullptr;
    QList<QWidget *> rows = all.at(root)->findChildren<QWidget *>(QStringLiteral("SignalSecondItem"));
    std::stable_sort(rows.begin(), rows.end(), above);
    return child < rows.size() ? rows.at(child) : nullptr;
}
