// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RowRealiser.h"

#include "DrawerControl.h"

#include <QEvent>
#include <QFrame>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimerEvent>

bool RowRealiser::s_bParking = true;

void RowRealiser::setParking(bool on)
{
    s_bParking = on;
}

bool RowRealiser::parking()
{
    return s_bParking;
}

RowRealiser::RowRealiser(QScrollArea *area, std::function<QList<DrawerControl *>()> drawers)
    : QObject(area)
    , m_pViewport(area->viewport())
    , m_pContent(area->widget())
    , m_drawers(std::move(drawers))
{
    // Rows that scroll in are made at once, before the viewport is painted;
    // rows that scrolled out go in the next turn, never under the feet of
    // whoever scrolled (ensureWidgetVisible() scrolls one way, then the
    // other, and the widget it was given must live through both).
    const auto scrolled = [this] {
        pass(Scrolled);
        schedule();
    };
    connect(area->verticalScrollBar(), &QScrollBar::valueChanged, this, scrolled);
    connect(area->horizontalScrollBar(), &QScrollBar::valueChanged, this, scrolled);
    m_pViewport->installEventFilter(this);
    if (m_pContent)
        m_pContent->installEventFilter(this);
}

void RowRealiser::schedule()
{
    if (m_iTimer == 0)
        m_iTimer = startTimer(0);
    // The pass comes after the next paint: until then the window's paint
    // asks for the rows in view first.
    QWidget *window = m_pViewport ? m_pViewport->window() : nullptr;
    if (window != m_pWindow) {
        if (m_pWindow)
            m_pWindow->removeEventFilter(this);
        m_pWindow = window;
        if (window)
            window->installEventFilter(this);
    }
}

void RowRealiser::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_iTimer)
        return QObject::timerEvent(event);
    killTimer(m_iTimer);
    m_iTimer = 0;
    pass(Settled);
}

bool RowRealiser::eventFilter(QObject *watched, QEvent *event)
{
    // Qt paints a window's widgets on this event: rows that came into view
    // since the last pass are made first.
    if (watched == m_pWindow && event->type() == QEvent::UpdateRequest && m_iTimer != 0)
        pass(Scrolled);

    if (m_pContent && watched == m_pContent) {
        // A new style reaches every widget of the list: the parked rows
        // take it where they are kept.
        // The drawers are placed anew.
        if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize)
            schedule();
        if (event->type() == QEvent::StyleChange) {
            for (DrawerControl *drawer : m_drawers()) {
                if (drawer)
                    drawer->restyleParkedRows();
            }
            schedule();
        }
        return QObject::eventFilter(watched, event);
    }
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        schedule();
    return QObject::eventFilter(watched, event);
}

void RowRealiser::pass(Moment moment, DrawerControl *only)
{
    QWidget *content = m_pContent;
    const QWidget *viewport = m_pViewport;
    // Realising a row may place rows anew, which asks for another pass:
    // that one comes in the next turn.
    if (!content || !viewport || m_bPassing || !s_bParking)
        return;
    m_bPassing = true;
    // The viewport in the content's coordinates. While scrolling only what
    // is about to be painted is made; once the list is idle, a page above
    // and below it too, so that the next page finds its rows there, and
    // rows are parked only beyond two pages, so that scrolling to and fro
    // does not make the same rows again and again.
    const QRect viewed(content->mapFrom(viewport, QPoint(0, 0)), viewport->size());
    const int page = viewed.height();
    const QRect realise = moment == Scrolled ? viewed : viewed.adjusted(0, -page, 0, page);
    const QRect keep = viewed.adjusted(0, -2 * page, 0, 2 * page);
    const bool listShown = content->isVisible();
    bool stale = false;
    const QList<DrawerControl *> drawers = only ? QList<DrawerControl *>{only} : m_drawers();
    for (DrawerControl *drawer : drawers) {
        QFrame *container = drawer ? drawer->childContainer() : nullptr;
        if (!container || drawer->rowsDeferred() || !content->isAncestorOf(container))
            continue;
        const bool shown = listShown && !drawer->isHidden() && drawer->showsChildren();
        // Where rows are is known once the drawer has the height its rows
        // ask for: until the layouts catch up, a pass leaves its rows as
        // they are (drawers whose rows were just built, still squeezed
        // together at the height they had closed, would all look near).
        if (shown && moment == Settled && drawer->height() != drawer->sizeHint().height()) {
            stale = true;
            continue;
        }
        const QPoint origin = container->mapTo(content, QPoint(0, 0));
        drawer->placeRows(realise.translated(-origin), keep.translated(-origin), shown, moment != Scrolled);
    }
    m_bPassing = false;
    // The layouts run in the next turns; a few more passes wait for them
    // (most are seen through the content's layout request anyway).
    if (moment == Settled)
        m_iWaits = stale ? m_iWaits + 1 : 0;
    if (stale && m_iWaits <= kMostWaits)
        schedule();
}

