// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QPoint>

class QWidget;
class QWindow;

// Plays the user's part in a drag that QDrag::exec is running under the
// "minimal" platform: mouse events sent to a top-level QWindow with the
// global position set, which the drag's application event filter takes and
// turns into drag-enter, drag-move and drop events.
namespace DragDriver {

// A move to @p global with the left button held.
void move(QWindow *window, const QPoint &global);
// The release of the left button at @p global: drops there, or ends the
// drag without a drop where nothing takes it.
void release(QWindow *window, const QPoint &global);
// Two moves to @p global (enter, then move) and the release there.
void moveAndRelease(QWindow *window, const QPoint &global);
// The Escape key: cancels the drag.
void escape(QWindow *window);

// The centre of @p widget in global coordinates.
QPoint globalCenter(QWidget *widget);

} // namespace DragDriver
