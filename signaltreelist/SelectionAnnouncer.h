// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_SELECTIONANNOUNCER_H
#define SIGNALTREELIST_SELECTIONANNOUNCER_H

// Internal: not installed, not part of the library's interface.

#include "ShownRows.h"

#include <QHash>
#include <QVector>

/**
 * Tells assistive technology about every change of a shown row's selected
 * state, and about nothing else.
 *
 * Rows change their selection in many ways (clicks, keys, buttons, the
 * host's calls, rows added after them); rather than each of those raising
 * events, the announcer compares the rows' states with what it saw last
 * time. A row that has just come into view is new to assistive technology,
 * not changed. It keeps one entry per shown row, and none while
 * accessibility is off.
 */
class SelectionAnnouncer
{
public:
    struct Row
    {
        RowRef row;
        bool selected;
    };

    /// @p rows are the shown rows now. Raises a state change (selected) and
    /// SelectionAdd or SelectionRemove for each row that was shown last time
    /// too and whose state differs.
    void update(const QVector<Row> &rows);

    /// Number of rows remembered (for tests).
    int size() const { return m_known.size(); }

private:
    static void announce(const RowRef &row, bool selected);

    // By row key: a key names one row for good.
    QHash<quint64, bool> m_known;
};

#endif // SIGNALTREELIST_SELECTIONANNOUNCER_H
