// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_SHOWNROWS_H
#define SIGNALTREELIST_SHOWNROWS_H

// Internal: not installed, not part of the library's interface.

#include "st_NodeInfoSignal.h"

#include <QList>
#include <QPointer>
#include <QRect>

class DrawerControl;
class QToolButton;
class QWidget;
class TreeListFrame;

/**
 * A row of the list named by its drawer and its key: the same row for as
 * long as it exists, whether or not it is a widget at the moment, and
 * nothing once it is gone (its key is never given to another row).
 */
struct RowRef
{
    QPointer<DrawerControl> drawer;
    quint64 key = 0;

    /// The root row of @p drawer, and its child row at @p index.
    static RowRef root(DrawerControl *drawer);
    static RowRef child(DrawerControl *drawer, int index);

    bool isRoot() const;
    /// The row still exists in its drawer.
    bool exists() const;
    /// Its position under its root (-1 for the root row or a row gone).
    int childIndex() const;
    bool operator==(const RowRef &other) const;
    bool operator!=(const RowRef &other) const { return !(*this == other); }
};

/**
 * The rows as the keyboard and assistive technology see them: the root rows
 * of the drawers on screen, each followed by its child rows while they show,
 * with what those readers ask of a row. Nothing here needs a row to be a
 * widget, except the acts, which do what the mouse does to the widget.
 */
namespace ShownRows {

/// Root rows, each followed by its shown child rows, top to bottom.
QList<RowRef> rows(const TreeListFrame *frame);
/// The root rows of the drawers on screen, top to bottom.
QList<RowRef> roots(const TreeListFrame *frame);
/// The child rows shown under @p root (none when it is closed).
QList<RowRef> children(const RowRef &root);
/// Whether @p row is one of rows(frame).
bool isShown(const TreeListFrame *frame, const RowRef &row);

/// The row that @p widget (a root or child row widget) is.
RowRef of(const QWidget *widget);
/// The widget of @p row while it is one; null otherwise.
QWidget *widget(const RowRef &row);
/// The widget of @p row, built if it was not one yet; null if it is gone.
QWidget *realise(const RowRef &row);

st_NodeInfoSignal record(const RowRef &row);
/// Whether the root row @p row shows its children.
bool isExpanded(const RowRef &row);
/// A child row in its selected look; a root row that is its drawer's
/// selection and was selected, by a press or by code, since it was last
/// deselected by code (an expanded root looks pressed without being so).
bool isSelected(const RowRef &row);
/// Whether @p row shows its edit (@p edit) or delete button on hover.
bool offersButton(const RowRef &row, bool edit);
/// Where @p row is, in screen coordinates; empty when not shown.
QRect screenRect(const RowRef &row);

/// What a click on the row does. The host may change or delete the list
/// from the signals this raises.
void activate(const RowRef &row);
/// What a click on the root row's expand box does, when it would change
/// the expanded state to @p expand. Returns whether it clicked.
bool setExpanded(const RowRef &row, bool expand);
/// What a click on the row's offered edit or delete button does; false
/// when the row offers none.
bool clickButton(const RowRef &row, bool edit);

/// The drawer that holds @p widget and the list frame that holds it; null
/// when there is none.
DrawerControl *drawerOf(const QWidget *widget);
TreeListFrame *frameOf(const QWidget *widget);

} // namespace ShownRows

#endif // SIGNALTREELIST_SHOWNROWS_H
