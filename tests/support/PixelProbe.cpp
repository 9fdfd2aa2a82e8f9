// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "PixelProbe.h"

#include <QImage>
#include <QPixmap>

PixelProbe::PixelProbe(QWidget *widget, const QPoint &spot)
    : m_widget(widget)
    , m_spot(spot)
{
}

QColor PixelProbe::colour() const
{
    if (!m_widget)
        return QColor();
    return m_widget->grab().toImage().pixelColor(m_spot);
}
