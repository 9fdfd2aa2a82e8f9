// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class QWidget;

// Hover events sent straight to a widget, as the window system would send
// them when the pointer enters or leaves it.
namespace EventSender {

void sendEnter(QWidget *widget);
void sendLeave(QWidget *widget);

// Moves the platform's pointer far from every window. Qt 6's offscreen
// platform starts it at (10, 10) and sends a real enter event to the window
// shown beneath it; the tests send their hover events themselves.
void parkPointer();

// Runs the deferred deletions now (also those that a deletion posts), as
// the event loop would next.
void flushDeferredDeletes();

// Lets the event loop settle: @p turns turns, each followed by the deferred
// deletions. A layout change can post a chain of layout requests up through
// the frame and the scroll area, one level a turn.
void settle(int turns = 10);

} // namespace EventSender
