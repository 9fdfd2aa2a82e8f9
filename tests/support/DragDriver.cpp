// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "DragDriver.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace DragDriver {

namespace {

void sendMouse(QWindow *window, QEvent::Type type, const QPoint &global, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    const QPointF local = window->mapFromGlobal(global);
    QMouseEvent event(type, local, local, QPointF(global), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}

} // namespace

void move(QWindow *window, const QPoint &global)
{
    sendMouse(window, QEvent::MouseMove, global, Qt::NoButton, Qt::LeftButton);
}

void release(QWindow *window, const QPoint &global)
{
    sendMouse(window, QEvent::MouseButtonRelease, global, Qt::LeftButton, Qt::NoButton);
}

void moveAndRelease(QWindow *window, const QPoint &global)
{
    move(window, global);
    move(window, global);
    release(window, global);
}

void escape(QWindow *window)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &press);
}

QPoint globalCenter(QWidget *widget)
{
    return widget->mapToGlobal(widget->rect().center());
}

} // namespace DragDriver
