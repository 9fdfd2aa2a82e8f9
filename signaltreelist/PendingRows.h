// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_PENDINGROWS_H
#define SIGNALTREELIST_PENDINGROWS_H

// Internal: not installed, not part of the library's interface.

#include "ButtonFlags.h"
#include "st_NodeInfoSignal.h"

#include <QList>
#include <QString>
#include <QVector>

/**
 * The child rows of a drawer that has never been expanded, kept as the state
 * their widgets would have, so that they can be built later exactly as they
 * would have been built at once.
 *
 * A group of a large installation is usually never opened, yet each of its
 * child rows is a dozen widgets that a style sheet polishes at the first
 * show. Until the drawer is first expanded it keeps, instead of widgets:
 *  - per row, its record, indices, tool tip, hover-button flags, its
 *    selected look while it is not polished, and the few events of its past
 *    that still decide how its name lines are elided (Row::events);
 *  - the number of spacings in the child layout, which is always those
 *    spacings followed by the rows.
 *
 * Why any past at all: a row fits its name lines to a width budget with the
 * fonts it has at that moment (a style sheet may give a selected or
 * polished row other fonts), and a fit that finds both lines fitting leaves
 * an earlier elision in place: a lower line elided under a larger font stays
 * elided. So the last record that set both lines, the one-line records after
 * it (one per stretch of unchanged fonts), and the selection and polish
 * events between them decide the picture; everything before that record
 * does not. Every call folds into that short list, so what is kept grows
 * with the rows, not with the calls. A host that keeps changing one-line
 * names between selections on a closed group can outgrow it: wantsWidgets()
 * then says the rows should be built (as they would have been all along).
 */
class PendingRows
{
public:
    struct Event
    {
        enum Kind {
            Texts,  ///< setNodeInfo(node)
            Press,  ///< setPressed(pressed)
            Polish, ///< ensurePolished(): Qt polished the row with its drawer
        };
        Kind kind = Texts;
        bool pressed = false;
        st_NodeInfoSignal node;
    };

    struct Row
    {
        /// What getSecondNodeInfo() answers.
        st_NodeInfoSignal record;
        int rootIndex = 0;
        int childIndex = 0;
        ButtonFlags buttons;
        QString toolTip;
        bool hasToolTip = false;
        /// Replayed on the new widget, in order, after initItem().
        QVector<Event> events;
        /// The selected look of a row not yet polished (-1: never set),
        /// set after the events: until its polish the look does not change
        /// its fonts, so where it fell among the records does not matter.
        qint8 unpolishedPress = -1;
        /// The selected look it shows now.
        bool pressed = false;

        // The row's full upper line and polish, as its widget would have them.
        QString upperText;
        bool polished = false;
    };

    /// Past this many events in one row, building its widgets is cheaper
    /// than keeping them.
    static constexpr int kMostEvents = 12;

    const QList<Row> &rows() const { return m_rows; }
    const st_NodeInfoSignal &record(int index) const { return m_rows.at(index).record; }
    int rowCount() const { return m_rows.size(); }
    /// Spacings at the top of the child layout.
    int spacings() const { return m_iSpacings; }
    /// A row's events no longer fold into a few: the drawer should build.
    bool wantsWidgets() const { return m_bWantsWidgets; }
    /// Events kept over all rows: a few per row, however many calls.
    int eventCount() const;

    void addBatch(const QList<st_NodeInfoSignal> &nodes, int firstChild, int rootIndex,
                  const st_NodeInfoSignal &root, bool locked);
    void addSingle(const st_NodeInfoSignal &node, int rootIndex, int childIndex, bool locked);
    /// Row @p index must exist.
    void remove(int index);
    /// Row @p index must exist.
    void modify(int index, const st_NodeInfoSignal &node, const st_NodeInfoSignal &root);
    /// Selected look on row @p index, the normal one on every other row.
    void press(int index);
    /// Every row gets its position as child index.
    void renumber();
    /// The drawer was polished (Qt polishes the rows it holds with it); rows
    /// added later are polished only when they are first shown.
    void polish();

private:
    static void setTexts(Row &row, const st_NodeInfoSignal &node);
    static void setPressed(Row &row, bool pressed);
    static void appendPress(Row &row, bool pressed);
    void noteSize(const Row &row);

    QList<Row> m_rows;
    int m_iSpacings = 0;
    bool m_bWantsWidgets = false;
};

#endif // SIGNALTREELIST_PENDINGROWS_H
