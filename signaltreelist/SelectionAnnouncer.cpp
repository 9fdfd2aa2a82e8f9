// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "SelectionAnnouncer.h"

#include "AccessibleRows.h"

#include <QAccessible>

void SelectionAnnouncer::update(const QVector<Row> &rows)
{
    if (!QAccessible::isActive()) {
        m_known.clear();
        return;
    }
    QHash<quint64, bool> now;
    now.reserve(rows.size());
    for (const Row &row : rows) {
        const auto seen = m_known.constFind(row.row.key);
        if (seen != m_known.constEnd() && *seen != row.selected)
            announce(row.row, row.selected);
        now.insert(row.row.key, row.selected);
    }
    m_known.swap(now);
}

void SelectionAnnouncer::announce(const RowRef &row, bool selected)
{
    QAccessibleInterface *iface = AccessibleRows::interfaceFor(row);
    if (!iface)
        return;
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent state(iface, changed);
    QAccessible::updateAccessibility(&state);
    // As Qt's own item views report a row joining or leaving the selection.
    QAccessibleEvent selection(iface, selected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    QAccessible::updateAccessibility(&selection);
}
