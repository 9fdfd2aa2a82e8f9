// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_KEYBOARDNAVIGATOR_H
#define SIGNALTREELIST_KEYBOARDNAVIGATOR_H

// Internal: not installed, not part of the library's interface.

#include <QList>
#include <QObject>
#include <QPointer>

#include "SelectionAnnouncer.h"
#include "ShownRows.h"
#include "TreeListObserver.h"

class DrawerControl;
class QKeyEvent;
class QScrollArea;
class QWidget;
class TreeListFrame;

/**
 * Keyboard use of the list: one tab stop, a keyboard focus row, and keys
 * that do exactly what the mouse does.
 *
 * The frame takes the focus; the focus row is one of the visible rows (root
 * rows, and the child rows of roots whose children show), in display order.
 * It publishes "isKeyFocus" = true while the frame has the focus (false
 * once it loses it) and is scrolled into view. Moving the focus selects
 * nothing and emits nothing. Space or Enter does what a click on the row
 * does, Right and Left (or + and -) click the root row's expand box, F2 and
 * Delete click the row's edit and delete buttons when their flags show them
 * on hover. Other keys go on to the parent widget.
 *
 * When the focus row is removed or hidden while the list has the focus,
 * the focus goes to the nearest shown row. Tab into the list lands on the
 * more recent of the row the focus was last on and the row selected last
 * (by click, key, accessibility action or setCurSelItem), if it is still
 * shown; else on the row selected most recently (its group's row while the
 * group is closed); else on the first row.
 */
class KeyboardNavigator : public QObject, public TreeListObserver
{
    Q_OBJECT
public:
    KeyboardNavigator(TreeListFrame *frame, QScrollArea *scrollArea);
    ~KeyboardNavigator() override;

    /// The navigator of @p frame, or null.
    static KeyboardNavigator *of(const QWidget *frame);

    /// The row with keyboard focus; a null row when none is (or it went away).
    RowRef focusRow() const;
    /// Moves the keyboard focus to @p row (a shown row): look, scrolling
    /// (unless @p scroll is false: a click never scrolls) and the
    /// accessibility focus event; nothing else.
    void setFocusRow(const RowRef &row, bool scroll = true);
    /// The row selected most recently by click, key, accessibility action or
    /// setCurSelItem, if it still exists; a null row otherwise.
    RowRef lastSelectedRow() const;

    // The frame's news.
    void rowsChanged() override;
    void hostSelected(DrawerControl *drawer, int child) override;
    /// A click, key or accessibility action is about to act on @p row: if it
    /// is selected once that is handled, it is the row selected most recently.
    void noteActedOn(const RowRef &row);
    /// Rows were added, removed, shown, hidden or (de)selected: the focus row
    /// and the accessibility events catch up once the event loop runs.
    void scheduleSync();
    /// The same for the list that holds @p widget.
    static void rowsChanged(const QWidget *widget);
    /// Catches up now: notes a row that a click or key selected, hands the
    /// focus on from a row that went away, announces selection changes.
    void sync();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Where a row stood, to find its neighbours once it is gone.
    struct Place
    {
        QPointer<DrawerControl> drawer;
        int rootPos = -1;
        int childPos = -1; // -1: the root row
    };
    // A row, stamped to tell which of two marks is the more recent.
    struct Mark
    {
        RowRef row;
        quint64 stamp = 0;
    };

    bool handleKey(QKeyEvent *event);
    void onFocusIn(int reason);
    RowRef rowAt(QObject *object) const;
    RowRef pageStep(const RowRef &from, int direction) const;
    void publish(const RowRef &row, bool focused);
    Place placeOf(const RowRef &row) const;
    RowRef nearest(const Place &place, const QList<RowRef> &rows) const;
    Mark markOf(const RowRef &row);
    /// Where Tab, or the first key when no shown row has the focus, lands.
    RowRef entryRow(const QList<RowRef> &rows) const;

    TreeListFrame *m_pFrame;
    QPointer<QScrollArea> m_pScrollArea;
    RowRef m_focus;
    Place m_focusPlace;
    // The row assistive technology last heard has the focus.
    RowRef m_announcedFocus;
    // The row selected most recently, and where Tab is to land: the more
    // recent of the last focus row and the last selection.
    Mark m_lastSelected;
    Mark m_tabTarget;
    quint64 m_clock = 0;
    // A row a click, key or action acted on, and when: selected most
    // recently if, once the event is handled, it is selected.
    RowRef m_actedOn;
    quint64 m_actedStamp = 0;
    bool m_bSyncPending = false;
    SelectionAnnouncer m_announcer;
};

#endif // SIGNALTREELIST_KEYBOARDNAVIGATOR_H
