// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QColor>
#include <QPoint>
#include <QPointer>
#include <QWidget>

// Reads back the colour a widget paints at one spot (in its own
// coordinates), from a fresh QWidget::grab() at every read.
class PixelProbe
{
public:
    PixelProbe(QWidget *widget, const QPoint &spot);

    QPoint spot() const { return m_spot; }
    QColor colour() const;

private:
    QPointer<QWidget> m_widget;
    QPoint m_spot;
};
