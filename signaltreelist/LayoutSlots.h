// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_LAYOUTSLOTS_H
#define SIGNALTREELIST_LAYOUTSLOTS_H

// Internal: not installed, not part of the library's interface.

#include <QLayoutItem>
#include <QMargins>
#include <QSizePolicy>
#include <QVBoxLayout>
#include <QWidget>

/**
 * Layout items that stand for widgets: Qt's own box layouts place them as
 * they would place the widgets, so a row's place is known whether or not
 * the row is a widget.
 *
 * A slot keeps the rectangle it was last given, in its parent's
 * coordinates, and keeps it while it is empty: a hidden widget keeps
 * whatever geometry it last had, and one that was never laid out keeps the
 * one it was made with.
 */

/// QWidgetItem's rules: what a layout may shrink a widget to, and grow it
/// to, from its hints, its own bounds and its size policy.
namespace SlotRules {
QSize smartMinimum(const QSize &hint, const QSize &minimumHint, const QSize &minimum, const QSize &maximum,
                   const QSizePolicy &policy);
QSize smartMaximum(const QSize &hint, const QSize &minimum, const QSize &maximum, const QSizePolicy &policy);
} // namespace SlotRules

/// What a layout asks of a widget, as QWidgetItem reports it.
struct SlotMetrics
{
    QSize minimum;
    QSize hint;
    QSize maximum{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
    Qt::Orientations expanding;
    /// The widget's own minimum and maximum, which bound any geometry set.
    QSize widgetMinimum{0, 0};
    QSize widgetMaximum{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
};

/// A widget without a layout of its own that matters here: a root or a
/// child row, answered from metrics measured on a prototype.
class LeafSlot : public QLayoutItem
{
public:
    explicit LeafSlot(const QRect &initial = QRect());

    void setMetrics(const SlotMetrics &metrics);
    const SlotMetrics &metrics() const { return m_metrics; }
    void setEmpty(bool empty);
    /// The rectangle last given, in the parent's coordinates.
    QRect rect() const { return m_rect; }

    QSize sizeHint() const override;
    QSize minimumSize() const override;
    QSize maximumSize() const override;
    Qt::Orientations expandingDirections() const override;
    void setGeometry(const QRect &rect) override;
    QRect geometry() const override;
    bool isEmpty() const override;

private:
    SlotMetrics m_metrics;
    QRect m_rect;
    bool m_empty = false;
};

/// A widget laid out by a vertical box of its own (a drawer, the container
/// of a drawer's rows): the box holds slots, and this answers as
/// QWidgetItem answers for such a widget.
class BoxSlot : public QLayoutItem
{
public:
    /// The widget's frame and contents margins, explicit minimum and
    /// maximum sizes and size policy, as they are after its polish.
    struct Frame
    {
        QMargins margins;
        QSize minimum{0, 0};
        QSize maximum{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
        QSizePolicy policy{QSizePolicy::Preferred, QSizePolicy::Preferred};
    };

    explicit BoxSlot(const QRect &initial = QRect());
    ~BoxSlot() override;

    /// The box: its margins, spacing and items are the widget layout's.
    QVBoxLayout *box() { return &m_box; }
    void setFrame(const Frame &frame);
    void setEmpty(bool empty);
    QRect rect() const { return m_rect; }

    QSize sizeHint() const override;
    QSize minimumSize() const override;
    QSize maximumSize() const override;
    Qt::Orientations expandingDirections() const override;
    void setGeometry(const QRect &rect) override;
    QRect geometry() const override;
    bool isEmpty() const override;
    void invalidate() override;

private:
    QSize widgetHint() const;
    QSize widgetMinimumHint() const;

    QVBoxLayout m_box;
    Frame m_frame;
    QRect m_rect;
    bool m_empty = false;
};

#endif // SIGNALTREELIST_LAYOUTSLOTS_H
