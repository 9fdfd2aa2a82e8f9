// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_TREELAYOUT_H
#define SIGNALTREELIST_TREELAYOUT_H

// Internal: not installed, not part of the library's interface.

#include "LayoutSlots.h"

#include <QHash>
#include <QVector>

#include <memory>

/**
 * Where every drawer and row of the list is, worked out by Qt's own box
 * layouts over slots that stand for the widgets (LayoutSlots): the frame's
 * column of drawers, each drawer's root row above its container, and each
 * container's spacings and rows, with the margins and spacings the widgets'
 * layouts have. Rectangles are kept per slot, in the coordinates of the
 * slot's parent, from one layout to the next (a hidden widget keeps its
 * place).
 */
class TreeLayout
{
public:
    /// A root or child row: its key and what a layout asks of it.
    struct Row
    {
        quint64 key = 0;
        SlotMetrics metrics;
        bool empty = false;
        /// Where a widget that was never laid out sits.
        QRect initial;
    };
    /// An item of the frame's column: a drawer (spacings and rows in its
    /// container, in that order).
    struct Drawer
    {
        quint64 key = 0;
        bool empty = false;
        BoxSlot::Frame frame;
        QRect initial;
        Row root;
        bool containerEmpty = true;
        BoxSlot::Frame containerFrame;
        QRect containerInitial;
        int spacings = 0;
        QVector<Row> rows;
    };

    TreeLayout();
    ~TreeLayout();

    /// Brings the slots in line with @p drawers, the frame's column in
    /// order; slots of drawers and rows no longer there go.
    void sync(const QVector<Drawer> &drawers);
    /// The frame's container: its margins, explicit bounds and policy.
    void setContainerFrame(const BoxSlot::Frame &frame);
    /// The container's size in a scroll area (widget resizable) whose
    /// viewport is @p viewport and can be at most @p maximumViewport.
    QSize containerSize(const QSize &viewport, const QSize &maximumViewport) const;
    /// Lays the column out in a container of @p size.
    void layout(const QSize &size);
    /// The container's minimum size and size hint, as its layout gives them.
    QSize minimumSize() const;
    QSize sizeHint() const;

    /// Rectangles in the parent's coordinates: a drawer in the frame's
    /// container, a root row and a row container in the drawer, a child
    /// row in the row container. Null when there is no such slot.
    QRect drawerRect(quint64 drawer) const;
    QRect rootRect(quint64 drawer) const;
    QRect rowContainerRect(quint64 drawer) const;
    QRect rowRect(quint64 drawer, quint64 row) const;

    // The widgets' layouts: margins and spacings.
    static constexpr int kDrawerSpacing = 16;
    static constexpr int kRowSpacing = 8;

private:
    struct Ghost;

    /// Takes the drawers' slots out of the column, deleting its stretch.
    void clearColumn();

    QVBoxLayout m_column;
    BoxSlot::Frame m_containerFrame;
    QHash<quint64, Ghost *> m_ghosts;
};

#endif // SIGNALTREELIST_TREELAYOUT_H
