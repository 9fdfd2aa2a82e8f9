// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_CHILDROWSTATE_H
#define SIGNALTREELIST_CHILDROWSTATE_H

// Internal: not installed, not part of the library's interface.

#include "ButtonFlags.h"
#include "LookHistory.h"
#include "TextFit.h"
#include "st_NodeInfoSignal.h"

#include <QRect>
#include <QString>

/**
 * Everything a child row shows and keeps, apart from its widget: a row can
 * be put away as this and made again from it, the same in every respect a
 * host or a user can see.
 */
struct ChildRowState
{
    st_NodeInfoSignal record;
    int rootIndex = 0;
    int childIndex = 0;
    /// The full name lines (a record without one or two names keeps them).
    QString fullText[2];
    /// What the name labels show, and their fixed widths.
    TextFit::Lines lines;
    bool lineShown[2] = {false, false};
    ButtonFlags buttons;
    bool pressed = false;
    /// The changes of look and polish that decide the fonts.
    LookHistory history;
    /// The look properties as they are now (most follow from the history;
    /// the upper line's is set on its own when the row is made).
    QString look = QStringLiteral("normal");
    bool upperOnline = true;
    /// The connector picture, and the pixel ratio it was picked for.
    QString iconPath;
    qreal iconRatio = 1.0;
    QString toolTip;
    /// The hover buttons as the last hover left them (capture, edit,
    /// delete, fourth), and their frame's place while shown.
    bool buttonShown[4] = {false, false, false, false};
    bool buttonFrameShown = false;
    QRect buttonFrame;
};

#endif // SIGNALTREELIST_CHILDROWSTATE_H
