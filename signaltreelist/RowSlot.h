// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_ROWSLOT_H
#define SIGNALTREELIST_ROWSLOT_H

// Internal: not installed, not part of the library's interface.

#include "ChildRowState.h"
#include "LayoutSlots.h"
#include "RowMetrics.h"

#include <QPointer>
#include <QtGlobal>

#include <functional>
#include <memory>

class SecondItem;
class QWidget;

/**
 * A child row in its drawer's layout: sized by the metrics of its look
 * (RowMetrics), not by asking the widget, and placing the widget where the
 * layout puts it, as QWidgetItem would.
 *
 * A row that is not a widget keeps its slot: it is parked there as its
 * state (ChildRowState), takes the same room and, when the layout gives it
 * another size, fits its name lines again as the widget would have on its
 * resize.
 */
class RowSlot : public LeafSlot
{
public:
    RowSlot(SecondItem *row, RowMetrics *metrics);
    ~RowSlot() override;

    /// The row's widget, or null while it is parked.
    SecondItem *row() const;
    /// The row as its state while it is parked, or null.
    ChildRowState *parked() const;
    /// Takes the row's widget out of the slot and keeps @p state instead;
    /// the widget may go (it is no longer this slot's). @p size is the
    /// widget's size then.
    void park(std::unique_ptr<ChildRowState> state, const QSize &size);
    /// Puts @p row, made again from the parked state, back in the slot.
    void unpark(SecondItem *row);
    /// A new style: the parked row takes the new look's fonts and fits its
    /// names to them afresh, once the style has reached everything
    /// (applyRestyle()).
    void restyle();
    /// Does what restyle() left to do; true when it did something.
    bool applyRestyle();
    /// The parked row's size: its widget's when it was parked, then what
    /// resizes it since.
    QSize parkedSize() const { return m_parkedSize; }
    /// The parked row gets @p size (not from the layout): it fits its lines
    /// as the widget does on a resize.
    void resizeParked(const QSize &size);
    /// Whether a layout has placed the row since it got its slot.
    bool laidOut() const { return m_laidOut; }
    /// Called whenever the layout moves or resizes the row.
    void setPlacedHandler(std::function<void()> handler);

    QSize sizeHint() const override;
    QSize minimumSize() const override;
    QSize maximumSize() const override;
    Qt::Orientations expandingDirections() const override;
    bool isEmpty() const override;
    void setGeometry(const QRect &rect) override;
    /// The row, so that Qt's layout drops the slot when the row leaves.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QWidget *widget() const override;
#else
    QWidget *widget() override; // not const before Qt 6
#endif

    /// Puts @p row, just added to @p layout's widget, on screen the way a
    /// layout does for a widget it is given (in the next turn of the event
    /// loop, when the parent is on screen).
    static void showLater(QWidget *row);

private:
    /// The metrics of the row's look of the moment.
    void refresh() const;

    QPointer<SecondItem> m_row;
    // The same, for Qt's layout to find it even while the row is being
    // deleted (when guarded pointers to it already read null).
    QWidget *m_widget;
    std::unique_ptr<ChildRowState> m_parked;
    QSize m_parkedSize;
    bool m_restyled = false;
    // The list's: a drawer that outlives its list keeps the last metrics.
    QPointer<RowMetrics> m_metrics;
    std::function<void()> m_placed;
    bool m_laidOut = false;
};

#endif // SIGNALTREELIST_ROWSLOT_H
