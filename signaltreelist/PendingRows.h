// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_PENDINGROWS_H
#define SIGNALTREELIST_PENDINGROWS_H

// Internal: not installed, not part of the library's interface.

#include "st_NodeInfoSignal.h"

#include <QList>

/**
 * The child rows of a drawer that has never been expanded, kept as what is
 * needed to build them later exactly as they would have been built at once.
 *
 * A group of a large installation is usually never opened, yet each of its
 * child rows is a dozen widgets that a style sheet polishes at the first
 * show. Until the drawer is first expanded it keeps, instead of widgets:
 *  - the record each row would report, in row order (records()), which
 *    answers every question about the rows (count, getSecondNodeInfo);
 *  - the widget work of every call that touched the rows, in call order
 *    (steps()), with the values that call read at the time (root index
 *    text, root record, selection lock). Replaying the steps in order on
 *    real rows gives the same widgets, properties, tool tips and layout
 *    history (the half-cleared layout, the accumulated spacings) as the
 *    calls would have given.
 *
 * Consecutive selection looks and renumberings replace each other: only the
 * last of a run can be seen, so the list of steps stays as long as the
 * list of structural changes. The moment the drawer was polished is kept
 * too: from then on the calls fit texts with the style sheet's fonts.
 */
class PendingRows
{
public:
    struct Step
    {
        enum Kind {
            Batch,    ///< addSecondItems: rows for nodes, first child index index
            Single,   ///< addSecondItem: one row for node at (rootIndex, index)
            Delete,   ///< deleteSecondItem(index)
            Modify,   ///< modifySecondItemData(index, node)
            Press,    ///< selected look on row index, normal on the others
            Renumber, ///< setRootIndex: every row gets its position as child index
            Polish,   ///< the drawer was polished: so were the rows it had then
        };
        Kind kind = Batch;
        QList<st_NodeInfoSignal> nodes;
        st_NodeInfoSignal node;
        int index = -1;
        int rootIndex = 0;
        /// The root row's record when the call ran (tool tips, tip rule).
        st_NodeInfoSignal root;
        /// The drawer's selection lock when the call ran.
        bool locked = false;
    };

    const QList<Step> &steps() const { return m_steps; }
    const QList<st_NodeInfoSignal> &records() const { return m_records; }
    int rowCount() const { return m_records.size(); }

    void addBatch(const QList<st_NodeInfoSignal> &nodes, int firstChild, int rootIndex,
                  const st_NodeInfoSignal &root, bool locked);
    void addSingle(const st_NodeInfoSignal &node, int rootIndex, int childIndex, bool locked);
    /// Row @p index must exist.
    void remove(int index);
    /// Row @p index must exist.
    void modify(int index, const st_NodeInfoSignal &node, const st_NodeInfoSignal &root);
    void press(int index);
    void renumber();
    /// The drawer was polished (Qt polishes the rows it holds with it); rows
    /// built later are polished only when they are first shown. The fits of
    /// later calls use the polished fonts.
    void polish();

private:
    void append(Step step);

    QList<Step> m_steps;
    QList<st_NodeInfoSignal> m_records;
};

#endif // SIGNALTREELIST_PENDINGROWS_H
