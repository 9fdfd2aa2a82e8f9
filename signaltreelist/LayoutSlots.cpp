// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "LayoutSlots.h"

namespace SlotRules {

// As qSmartMinSize() and qSmartMaxSize() in Qt's layout engine.
QSize smartMinimum(const QSize &hint, const QSize &minimumHint, const QSize &minimum, const QSize &maximum,
                   const QSizePolicy &policy)
{
    QSize s(0, 0);
    if (policy.horizontalPolicy() != QSizePolicy::Ignored) {
        s.setWidth(policy.horizontalPolicy() & QSizePolicy::ShrinkFlag ? minimumHint.width()
                                                                       : qMax(hint.width(), minimumHint.width()));
    }
    if (policy.verticalPolicy() != QSizePolicy::Ignored) {
        s.setHeight(policy.verticalPolicy() & QSizePolicy::ShrinkFlag ? minimumHint.height()
                                                                      : qMax(hint.height(), minimumHint.height()));
    }
    s = s.boundedTo(maximum);
    if (minimum.width() > 0)
        s.setWidth(minimum.width());
    if (minimum.height() > 0)
        s.setHeight(minimum.height());
    return s.expandedTo(QSize(0, 0));
}

QSize smartMaximum(const QSize &hint, const QSize &minimum, const QSize &maximum, const QSizePolicy &policy)
{
    QSize s = maximum;
    const QSize bounded = hint.expandedTo(minimum);
    if (s.width() == QWIDGETSIZE_MAX && !(policy.horizontalPolicy() & QSizePolicy::GrowFlag))
        s.setWidth(bounded.width());
    if (s.height() == QWIDGETSIZE_MAX && !(policy.verticalPolicy() & QSizePolicy::GrowFlag))
        s.setHeight(bounded.height());
    return s;
}

} // namespace SlotRules

namespace {

using SlotRules::smartMaximum;
using SlotRules::smartMinimum;

// What QWidget::setGeometry makes of a size: within the widget's own bounds.
QSize withinBounds(const QSize &size, const QSize &minimum, const QSize &maximum)
{
    return size.boundedTo(maximum).expandedTo(minimum);
}

} // namespace

LeafSlot::LeafSlot(const QRect &initial)
    : m_rect(initial)
{
}

void LeafSlot::setMetrics(const SlotMetrics &metrics)
{
    m_metrics = metrics;
}

void LeafSlot::setEmpty(bool empty)
{
    m_empty = empty;
}

QSize LeafSlot::sizeHint() const
{
    return isEmpty() ? QSize(0, 0) : m_metrics.hint;
}

QSize LeafSlot::minimumSize() const
{
    return isEmpty() ? QSize(0, 0) : m_metrics.minimum;
}

QSize LeafSlot::maximumSize() const
{
    return isEmpty() ? QSize(0, 0) : m_metrics.maximum;
}

Qt::Orientations LeafSlot::expandingDirections() const
{
    return isEmpty() ? Qt::Orientations() : m_metrics.expanding;
}

void LeafSlot::setGeometry(const QRect &rect)
{
    // As QWidgetItem: an empty item leaves its widget where it was.
    if (isEmpty())
        return;
    const QSize size = rect.size().boundedTo(m_metrics.maximum);
    m_rect = QRect(rect.topLeft(), withinBounds(size, m_metrics.widgetMinimum, m_metrics.widgetMaximum));
}

QRect LeafSlot::geometry() const
{
    return m_rect;
}

bool LeafSlot::isEmpty() const
{
    return m_empty;
}

BoxSlot::BoxSlot(const QRect &initial)
    : m_rect(initial)
{
}

BoxSlot::~BoxSlot()
{
    // The box owns the slots in it.
    while (QLayoutItem *item = m_box.takeAt(0))
        delete item;
}

void BoxSlot::setFrame(const Frame &frame)
{
    m_frame = frame;
}

void BoxSlot::setEmpty(bool empty)
{
    m_empty = empty;
}

QSize BoxSlot::widgetHint() const
{
    // QWidget::sizeHint() of a widget with a layout: the layout's hint and
    // the widget's margins.
    const QMargins &m = m_frame.margins;
    return const_cast<QVBoxLayout &>(m_box).sizeHint() + QSize(m.left() + m.right(), m.top() + m.bottom());
}

QSize BoxSlot::widgetMinimumHint() const
{
    const QMargins &m = m_frame.margins;
    return const_cast<QVBoxLayout &>(m_box).minimumSize() + QSize(m.left() + m.right(), m.top() + m.bottom());
}

QSize BoxSlot::sizeHint() const
{
    if (m_empty)
        return QSize(0, 0);
    QSize s = widgetHint().expandedTo(widgetMinimumHint());
    s = s.boundedTo(m_frame.maximum).expandedTo(m_frame.minimum);
    if (m_frame.policy.horizontalPolicy() == QSizePolicy::Ignored)
        s.setWidth(0);
    if (m_frame.policy.verticalPolicy() == QSizePolicy::Ignored)
        s.setHeight(0);
    return s;
}

QSize BoxSlot::minimumSize() const
{
    if (m_empty)
        return QSize(0, 0);
    return smartMinimum(widgetHint(), widgetMinimumHint(), m_frame.minimum, m_frame.maximum, m_frame.policy);
}

QSize BoxSlot::maximumSize() const
{
    if (m_empty)
        return QSize(0, 0);
    return smartMaximum(widgetHint().expandedTo(widgetMinimumHint()), m_frame.minimum, m_frame.maximum,
                        m_frame.policy);
}

Qt::Orientations BoxSlot::expandingDirections() const
{
    if (m_empty)
        return {};
    // A widget whose layout expands expands as far as its policy lets it.
    Qt::Orientations e = m_frame.policy.expandingDirections();
    const Qt::Orientations inner = const_cast<QVBoxLayout &>(m_box).expandingDirections();
    if ((m_frame.policy.horizontalPolicy() & QSizePolicy::GrowFlag) && (inner & Qt::Horizontal))
        e |= Qt::Horizontal;
    if ((m_frame.policy.verticalPolicy() & QSizePolicy::GrowFlag) && (inner & Qt::Vertical))
        e |= Qt::Vertical;
    return e;
}

void BoxSlot::setGeometry(const QRect &rect)
{
    if (m_empty)
        return;
    const QSize size = withinBounds(rect.size().boundedTo(maximumSize()), m_frame.minimum, m_frame.maximum);
    m_rect = QRect(rect.topLeft(), size);
    // The widget lays out its contents rectangle, in its own coordinates.
    const QMargins &m = m_frame.margins;
    m_box.setGeometry(QRect(m.left(), m.top(), size.width() - m.left() - m.right(),
                            size.height() - m.top() - m.bottom()));
}

QRect BoxSlot::geometry() const
{
    return m_rect;
}

bool BoxSlot::isEmpty() const
{
    return m_empty;
}

void BoxSlot::invalidate()
{
    m_box.invalidate();
}
