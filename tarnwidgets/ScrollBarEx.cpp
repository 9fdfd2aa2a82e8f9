// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "ScrollBarEx.h"

#include <QScrollBar>

namespace {

// Colours of the library's dark palette: panel background for the track,
// the raised-row grey for the handle and the grey dot for its hover.
const char kTrack[] = "rgb(48,50,56)";
const char kHandle[] = "rgb(79,84,92)";
const char kHandleHover[] = "rgb(102,102,102)";
const int kThickness = 12;

// One orientation's sheet. Qt names the two ends "sub-line" (up/left) and
// "add-line" (down/right); the extent property is height for a vertical bar
// and width for a horizontal one.
QString barStyleSheet(const QString &orientation, const QString &thicknessProperty,
                      const QString &extentProperty, const QString &subPicture,
                      const QString &addPicture, bool showArrows)
{
    const int arrow = showArrows ? kThickness : 0;
    const QString picture = QStringLiteral(":/scrollbar/resource/scrollbar/%1_%2.png");
    const QString margin = orientation == QLatin1String("vertical")
        ? QStringLiteral("%1px 0px %1px 0px").arg(arrow)
        : QStringLiteral("0px %1px 0px %1px").arg(arrow);

    QString sheet;
    sheet += QStringLiteral("QScrollBar:%1{background:%2;%3:%4px;margin:%5;border:none;}")
                 .arg(orientation, QLatin1String(kTrack), thicknessProperty)
                 .arg(kThickness)
                 .arg(margin);
    sheet += QStringLiteral("QScrollBar::handle:%1{background:%2;min-%3:24px;border-radius:%4px;}")
                 .arg(orientation, QLatin1String(kHandle), extentProperty)
                 .arg(kThickness / 2 - 2);
    sheet += QStringLiteral("QScrollBar::handle:%1:hover{background:%2;}")
                 .arg(orientation, QLatin1String(kHandleHover));
    const QString ends[2][3] = {
        { QStringLiteral("sub-line"), subPicture, orientation == QLatin1String("vertical") ? QStringLiteral("top") : QStringLiteral("left") },
        { QStringLiteral("add-line"), addPicture, orientation == QLatin1String("vertical") ? QStringLiteral("bottom") : QStringLiteral("right") },
    };
    for (const auto &end : ends) {
        sheet += QStringLiteral("QScrollBar::%1:%2{%3:%4px;subcontrol-position:%5;subcontrol-origin:margin;"
                                "border:none;border-image:url(%6);}")
                     .arg(end[0], orientation, extentProperty)
                     .arg(arrow)
                     .arg(end[2], picture.arg(end[1], QStringLiteral("normal")));
        sheet += QStringLiteral("QScrollBar::%1:%2:pressed{border-image:url(%3);}")
                     .arg(end[0], orientation, picture.arg(end[1], QStringLiteral("pressed")));
    }
    sheet += QStringLiteral("QScrollBar::up-arrow:%1,QScrollBar::down-arrow:%1,"
                            "QScrollBar::left-arrow:%1,QScrollBar::right-arrow:%1{background:none;}")
                 .arg(orientation);
    sheet += QStringLiteral("QScrollBar::add-page:%1,QScrollBar::sub-page:%1{background:none;}")
                 .arg(orientation);
    return sheet;
}

} // namespace

ScrollBarEx::ScrollBarEx(QScrollBar *pScrollBar, bool bShowArrows)
    : m_pScrollBar(pScrollBar)
    , m_bShowArrows(bShowArrows)
{
}

ScrollBarEx::~ScrollBarEx() = default;

QString ScrollBarEx::treeVerticalStyleSheet() const
{
    return barStyleSheet(QStringLiteral("vertical"), QStringLiteral("width"),
                         QStringLiteral("height"), QStringLiteral("up"),
                         QStringLiteral("down"), m_bShowArrows);
}

QString ScrollBarEx::treeHorizontalStyleSheet() const
{
    return barStyleSheet(QStringLiteral("horizontal"), QStringLiteral("height"),
                         QStringLiteral("width"), QStringLiteral("left"),
                         QStringLiteral("right"), m_bShowArrows);
}

void ScrollBarEx::setTreeVerticalStyle()
{
    if (m_pScrollBar)
        m_pScrollBar->setStyleSheet(treeVerticalStyleSheet());
}

void ScrollBarEx::setTreeHorizontalStyle()
{
    if (m_pScrollBar)
        m_pScrollBar->setStyleSheet(treeHorizontalStyleSheet());
}
