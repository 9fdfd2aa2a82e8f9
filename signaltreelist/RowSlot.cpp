// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RowSlot.h"

#include "RowMetrics.h"
#include "SecondItem.h"

#include <QMetaObject>

RowSlot::RowSlot(SecondItem *row, RowMetrics *metrics)
    : m_row(row)
    , m_widget(row)
    , m_metrics(metrics)
{
}

RowSlot::~RowSlot() = default;

SecondItem *RowSlot::row() const
{
    return m_row;
}

ChildRowState *RowSlot::parked() const
{
    return m_parked.get();
}

void RowSlot::park(std::unique_ptr<ChildRowState> state, const QSize &size)
{
    m_parked = std::move(state);
    m_parkedSize = size;
    m_row = nullptr;
    m_widget = nullptr;
}

void RowSlot::unpark(SecondItem *row)
{
    m_parked.reset();
    m_restyled = false;
    m_row = row;
    m_widget = row;
}

void RowSlot::restyle()
{
    if (!m_parked)
        return;
    m_parked->history.restyled();
    m_restyled = true;
}

bool RowSlot::applyRestyle()
{
    if (!m_restyled || !m_parked || !m_metrics)
        return false;
    m_restyled = false;
    const QPair<QFont, QFont> fonts = m_metrics->childFonts(m_parked->history.events());
    SecondItem::refitState(*m_parked, fonts.first, fonts.second);
    return true;
}

void RowSlot::resizeParked(const QSize &size)
{
    if (!m_parked || !m_metrics || size == m_parkedSize)
        return;
    // Resizing fits the lines with the fonts the row has then.
    const QPair<QFont, QFont> fonts = m_metrics->childFonts(m_parked->history.events());
    SecondItem::fitState(*m_parked, fonts.first, fonts.second);
    m_parkedSize = size;
}

void RowSlot::setPlacedHandler(std::function<void()> handler)
{
    m_placed = std::move(handler);
}

void RowSlot::refresh() const
{
    if (!m_metrics)
        return;
    if (m_parked)
        const_cast<RowSlot *>(this)->setMetrics(m_metrics->child(RowMetrics::lookOf(*m_parked)));
    else if (m_row)
        const_cast<RowSlot *>(this)->setMetrics(m_metrics->child(RowMetrics::lookOf(m_row)));
}

QSize RowSlot::sizeHint() const
{
    refresh();
    return LeafSlot::sizeHint();
}

QSize RowSlot::minimumSize() const
{
    refresh();
    return LeafSlot::minimumSize();
}

QSize RowSlot::maximumSize() const
{
    refresh();
    return LeafSlot::maximumSize();
}

Qt::Orientations RowSlot::expandingDirections() const
{
    refresh();
    return LeafSlot::expandingDirections();
}

bool RowSlot::isEmpty() const
{
    // As QWidgetItem: a hidden row takes no room. Only rows on screen are
    // parked, and a parked row stays as it was.
    if (m_parked)
        return false;
    return !m_row || m_row->isHidden();
}

void RowSlot::setGeometry(const QRect &rect)
{
    if (isEmpty())
        return;
    refresh();
    const QRect before = LeafSlot::geometry();
    LeafSlot::setGeometry(rect);
    const QRect now = LeafSlot::geometry();
    if (m_row) {
        m_row->setGeometry(now);
    } else {
        // The widget would have been resized. (Its size is its own: a look
        // with other bounds resizes it at once, before the layout runs.)
        resizeParked(now.size());
    }
    const bool first = !m_laidOut;
    m_laidOut = true;
    if ((first || now != before) && m_placed)
        m_placed();
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
QWidget *RowSlot::widget() const
#else
QWidget *RowSlot::widget()
#endif
{
    return m_widget;
}

void RowSlot::showLater(QWidget *row)
{
    // What QLayout::addChildWidget() does for a widget added to a layout.
    QWidget *parent = row->parentWidget();
    const bool needShow = parent && parent->isVisible()
        && !(row->isHidden() && row->testAttribute(Qt::WA_WState_ExplicitShowHide));
    row->setAttribute(Qt::WA_LaidOut);
    if (needShow)
        QMetaObject::invokeMethod(row, "_q_showIfNotHidden", Qt::QueuedConnection);
}
