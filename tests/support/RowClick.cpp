// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RowClick.h"

#include "RootItem.h"

#include <QTest>

namespace RowClick {

void click(QWidget *row, bool twice)
{
    const QPoint at = qobject_cast<RootItem *>(row) ? QPoint(row->width() - 60, 3) : QPoint(5, row->height() / 2);
    if (twice)
        QTest::mouseDClick(row, Qt::LeftButton, Qt::NoModifier, at);
    else
        QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, at);
}

} // namespace RowClick
