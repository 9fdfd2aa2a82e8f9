// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "CLanguageTranslateFrame.h"

#include <QEvent>
#include <QPointer>
#include <QScreen>
#include <QWindow>

class CLanguageTranslateFramePrivate
{
public:
    // The window whose screenChanged we listen to; it changes when the
    // frame is re-parented into another top-level window.
    QPointer<QWindow> watchedWindow;
    QMetaObject::Connection screenConnection;
};

CLanguageTranslateFrame::CLanguageTranslateFrame(QWidget *parent)
    : QFrame(parent)
    , d(new CLanguageTranslateFramePrivate)
{
}

CLanguageTranslateFrame::~CLanguageTranslateFrame()
{
    QObject::disconnect(d->screenConnection);
}

void CLanguageTranslateFrame::reTranslateUI()
{
}

void CLanguageTranslateFrame::screenChangedEvent(QScreen *)
{
}

void CLanguageTranslateFrame::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        reTranslateUI();
    QFrame::changeEvent(event);
}

bool CLanguageTranslateFrame::event(QEvent *event)
{
    // The native window of the top level exists only once it is shown, and
    // a re-parented frame may now live in another window: look again then.
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::ParentChange:
    case QEvent::WinIdChange:
        watchTopLevelWindow();
        break;
    default:
        break;
    }
    return QFrame::event(event);
}

void CLanguageTranslateFrame::watchTopLevelWindow()
{
    QWindow *handle = window()->windowHandle();
    if (handle == d->watchedWindow)
        return;
    QObject::disconnect(d->screenConnection);
    d->watchedWindow = handle;
    if (handle) {
        d->screenConnection = connect(handle, &QWindow::screenChanged, this,
                                      [this](QScreen *screen) { screenChangedEvent(screen); });
    }
}
