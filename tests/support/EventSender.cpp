// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "EventSender.h"

#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QWidget>

namespace EventSender {

void sendEnter(QWidget *widget)
{
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(widget, &enter);
}

void sendLeave(QWidget *widget)
{
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(widget, &leave);
}

void parkPointer()
{
    QCursor::setPos(QPoint(30000, 30000));
}

void flushDeferredDeletes()
{
    for (int i = 0; i < 4; ++i)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void settle(int turns)
{
    for (int i = 0; i < turns; ++i) {
        QCoreApplication::processEvents();
        flushDeferredDeletes();
    }
}

} // namespace EventSender
