// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_KEYBOARDNAVIGATOR_H
#define SIGNALTREELIST_KEYBOARDNAVIGATOR_H

// Internal: not installed, not part of the library's interface.

#include <QList>
#include <QObject>
#include <QPointer>

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

    /// What a click on @p row does. The host may change or delete the list
    /// from the signals this raises.
    static void activate(QWidget *row);
    /// What a click on @p root's expand box does, when it would change the
    /// expanded state to @p expand. Returns whether it clicked.
    static bool setExpanded(QWidget *root, bool expand);
    /// Whether @p root (a root row) shows its children.
    static bool isExpanded(const QWidget *root);
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
    void placeInTabOrder();
    bool handleKey(QKeyEvent *event);
    void onFocusIn(int reason);
    QWidget *rowAt(QObject *object) const;
    QWidget *pageStep(QWidget *from, int direction) const;
    void publish(QWidget *row, bool focused);
    /// Tells assistive technology, once the press is handled, that @p row
    /// was selected.
    void notifySelectionLater(QWidget *row);

    TreeListFrame *m_pFrame;
    QPointer<QScrollArea> m_pScrollArea;
    QPointer<QWidget> m_pFocusRow;
    // The row the user pressed or activated last: where Tab lands.
    QPointer<QWidget> m_pLastSelected;
};

#endif // SIGNALTREELIST_KEYBOARDNAVIGATOR_H
