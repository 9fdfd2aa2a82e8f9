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

SecondItem *RowSlot::row() const
{
    return m_row;
}

void RowSlot::refresh() const
{
    if (m_row && m_metrics)
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
    // As QWidgetItem: a hidden row takes no room.
    return !m_row || m_row->isHidden();
}

void RowSlot::setGeometry(const QRect &rect)
{
    if (isEmpty())
        return;
    refresh();
    LeafSlot::setGeometry(rect);
    m_row->setGeometry(LeafSlot::geometry());
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
