// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "SelectionAnnouncer.h"

#include <QAccessible>

void SelectionAnnouncer::update(const QVector<Row> &rows)
{
    if (!QAccessible::isActive()) {
        m_known.clear();
        return;
    }
    QHash<const QWidget *, Known> now;
    now.reserve(rows.size());
    for (const Row &row : rows) {
        const auto seen = m_known.constFind(row.widget);
        if (seen != m_known.constEnd() && seen->widget == row.widget && seen->selected != row.selected)
            announce(row.widget, row.selected);
        now.insert(row.widget, Known{row.widget, row.selected});
    }
    m_known.swap(now);
}

void SelectionAnnouncer::announce(QWidget *row, bool selected)
{
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent state(row, changed);
    QAccessible::updateAccessibility(&state);
    // As Qt's own item views report a row joining or leaving the selection.
    QAccessibleEvent selection(row, selected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    QAccessible::updateAccessibility(&selection);
}
