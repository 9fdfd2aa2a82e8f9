// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_KEYBOARDNAVIGATOR_H
#define SIGNALTREELIST_KEYBOARDNAVIGATOR_H

// Internal: not installed, not part of the library's interface.

#include <QList>
#include <QObject>
#include <QPointer>

#include "SelectionAnnouncer.h"

class DrawerControl;
class QKeyEvent;
class QScrollArea;
class QToolButton;
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
class KeyboardNavigator : public QObject
{
    Q_OBJECT
public:
    KeyboardNavigator(TreeListFrame *frame, QScrollArea *scrollArea);
    ~KeyboardNavigator() override;

    /// The navigator of @p frame, or null.
    static KeyboardNavigator *of(const QWidget *frame);

    /// Root rows and the child rows shown under them, top to bottom.
    QList<QWidget *> visibleRows() const;
    /// The row with keyboard focus; null when none is (or it went away).
    QWidget *focusRow() const;
    /// Moves the keyboard focus to @p row (a visible row): look, scrolling
    /// (unless @p scroll is false: a click never scrolls) and the
    /// accessibility focus event; nothing else.
    void setFocusRow(QWidget *row, bool scroll = true);
    /// The row selected most recently by click, key, accessibility action or
    /// setCurSelItem, if it still exists as a widget; null otherwise.
    QWidget *lastSelectedRow() const;

    /// The host selected @p child of @p drawer (-1: its root row) with
    /// setCurSelItem.
    void noteHostSelection(DrawerControl *drawer, int child);
    /// A click, key or accessibility action is about to act on @p row: if it
    /// is selected once that is handled, it is the row selected most recently.
    void noteActedOn(QWidget *row);
    /// Rows were added, removed, shown, hidden or (de)selected: the focus row
    /// and the accessibility events catch up once the event loop runs.
    void scheduleSync();
    /// The same for the list that holds @p widget.
    static void rowsChanged(const QWidget *widget);
    /// Catches up now: notes a row that a click or key selected, hands the
    /// focus on from a row that went away, announces selection changes.
    void sync();

    /// What a click on @p row does. The host may change or delete the list
    /// from the signals this raises.
    static void activate(QWidget *row);
    /// What a click on @p root's expand box does, when it would change the
    /// expanded state to @p expand. Returns whether it clicked.
    static bool setExpanded(QWidget *root, bool expand);
    /// Whether @p root (a root row) shows its children.
    static bool isExpanded(const QWidget *root);
    /// Whether @p row is selected: a child row in its selected look; a root
    /// row that is its drawer's selection and was selected, by a press or by
    /// code, since it was last deselected by code (an expanded root looks
    /// pressed without being selected).
    static bool isSelected(const QWidget *row);
    /// The edit (@p edit true) or delete button of @p row when the row
    /// offers it (its flags show it on hover); null otherwise.
    static QToolButton *offeredButton(const QWidget *row, bool edit);

    /// The drawer that holds @p row, and the list frame that holds @p widget;
    /// null when there is none.
    static DrawerControl *drawerOf(const QWidget *row);
    static TreeListFrame *frameOf(const QWidget *widget);
    /// The root rows of @p frame's drawers on screen, top to bottom.
    static QList<QWidget *> rootRows(const TreeListFrame *frame);

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
    // A row by its drawer and position, so that a row not yet built (in a
    // group never opened) can be named too; stamped to tell which of two
    // marks is the more recent.
    struct Mark
    {
        QPointer<DrawerControl> drawer;
        QPointer<QWidget> row;
        int child = -1; // -1: the root row
        bool built = false; // a widget when marked: once gone, gone
        quint64 stamp = 0;
    };

    bool handleKey(QKeyEvent *event);
    void onFocusIn(int reason);
    QWidget *rowAt(QObject *object) const;
    QWidget *pageStep(QWidget *from, int direction) const;
    void publish(QWidget *row, bool focused);
    Place placeOf(QWidget *row) const;
    QWidget *nearest(const Place &place, const QList<QWidget *> &rows) const;
    Mark markOf(QWidget *row);
    QWidget *resolve(const Mark &mark) const;
    /// Where Tab, or the first key when no shown row has the focus, lands.
    QWidget *entryRow(const QList<QWidget *> &rows) const;

    TreeListFrame *m_pFrame;
    QPointer<QScrollArea> m_pScrollArea;
    QPointer<QWidget> m_pFocusRow;
    Place m_focusPlace;
    // The row assistive technology last heard has the focus.
    QPointer<QWidget> m_pAnnouncedFocus;
    // The row selected most recently, and where Tab is to land: the more
    // recent of the last focus row and the last selection.
    Mark m_lastSelected;
    Mark m_tabTarget;
    quint64 m_clock = 0;
    // A row a click, key or action acted on, and when: selected most
    // recently if, once the event is handled, it is selected.
    QPointer<QWidget> m_pActedOn;
    quint64 m_actedStamp = 0;
    bool m_bSyncPending = false;
    SelectionAnnouncer m_announcer;
};

#endif // SIGNALTREELIST_KEYBOARDNAVIGATOR_H
