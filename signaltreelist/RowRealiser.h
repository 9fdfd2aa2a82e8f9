// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_ROWREALISER_H
#define SIGNALTREELIST_ROWREALISER_H

// Internal: not installed, not part of the library's interface.

#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

class DrawerControl;
class QScrollArea;

/**
 * Keeps the child rows of a list widgets while they are in or near the
 * viewport, and parks the others (DrawerControl::placeRows()).
 *
 * A pass runs at once when the list scrolls, so that the rows in view are
 * there before the viewport is painted, and in the next turn of the event
 * loop (after the paint) when the list scrolled, rows were placed anew,
 * shown or hidden, or the viewport changed size; a paint of the window
 * before that turn makes the rows in view first.
 */
class RowRealiser : public QObject
{
public:
    RowRealiser(QScrollArea *area, std::function<QList<DrawerControl *>()> drawers);

    /// A pass in the next turn of the event loop (once, however often asked).
    void schedule();
    /// When a pass runs: as the list scrolls, it makes the rows about to be
    /// painted and parks none; once things settled, it makes the rows near
    /// the viewport and parks those far from it.
    enum Moment { Scrolled, Settled };
    /// A pass now, over every drawer or only over @p only.
    void pass(Moment moment = Settled, DrawerControl *only = nullptr);

    /// Whether rows off screen are parked at all (on; tests of the list of
    /// widgets it replaces turn it off).
    static void setParking(bool on);
    static bool parking();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    // The area's viewport and content, as plain widgets: they outlive the
    // area's own destructor, in which events still reach this filter.
    QPointer<QWidget> m_pViewport;
    QPointer<QWidget> m_pContent;
    // The window whose paint waits for the rows in view (see schedule()).
    QPointer<QWidget> m_pWindow;
    std::function<QList<DrawerControl *>()> m_drawers;
    int m_iTimer = 0;
    // Passes in a row that waited for the layouts, and how many may.
    int m_iWaits = 0;
    static constexpr int kMostWaits = 4;
    bool m_bPassing = false;
    static bool s_bParking;
};

#endif // SIGNALTREELIST_ROWREALISER_H
