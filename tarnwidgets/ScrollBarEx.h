// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TARNWIDGETS_SCROLLBAREX_H
#define TARNWIDGETS_SCROLLBAREX_H

#include "tarnwidgets_export.h"

#include <QString>

class QScrollBar;

/**
 * Gives a QScrollBar the slim dark look of the tarn widget family.
 *
 * The look is stored on the scroll bar itself, so a ScrollBarEx may be a
 * temporary: the bar keeps its look after the ScrollBarEx is destroyed.
 * The arrow buttons use the pictures under ":/scrollbar/resource/scrollbar/",
 * which the signaltreelist icon bundle provides.
 */
class TARNWIDGETS_EXPORT ScrollBarEx
{
public:
    /// @p bShowArrows: true keeps the two arrow buttons, false leaves a bare
    /// track with its handle. A null @p pScrollBar makes every call a no-op.
    ScrollBarEx(QScrollBar *pScrollBar, bool bShowArrows);
    /// Leaves the scroll bar and its look as they are.
    virtual ~ScrollBarEx();

    ScrollBarEx(const ScrollBarEx &) = delete;
    ScrollBarEx &operator=(const ScrollBarEx &) = delete;

    /// Applies the look of a vertical bar (up and down arrows).
    void setTreeVerticalStyle();
    /// Applies the look of a horizontal bar (left and right arrows).
    void setTreeHorizontalStyle();

    /// The style text setTreeVerticalStyle() applies, for hosts that restyle.
    QString treeVerticalStyleSheet() const;
    /// The style text setTreeHorizontalStyle() applies.
    QString treeHorizontalStyleSheet() const;

private:
    QScrollBar *m_pScrollBar;
    bool m_bShowArrows;
};

#endif // TARNWIDGETS_SCROLLBAREX_H
