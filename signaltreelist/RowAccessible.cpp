// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RowAccessible.h"

#include "AccessibleRows.h"
#include "DrawerControl.h"
#include "KeyboardNavigator.h"
#include "RowTexts.h"
#include "TreeListFrame.h"

#include <QCoreApplication>
#include <QWidget>
#include <QWindow>

RowAccessible::RowAccessible(const RowRef &row)
    : m_row(row)
{
}

QString RowAccessible::expandAction()
{
    return QStringLiteral("expand");
}

QString RowAccessible::collapseAction()
{
    return QStringLiteral("collapse");
}

QString RowAccessible::editAction()
{
    return QStringLiteral("edit");
}

QString RowAccessible::deleteAction()
{
    return QStringLiteral("delete");
}

void RowAccessible::announceDescriptions(const QList<RowRef> &rows)
{
    // The description ("offline") is read in the new language from now on,
    // by whoever already knows the row.
    if (!QAccessible::isActive())
        return;
    for (const RowRef &row : rows) {
        if (QAccessibleInterface *iface = AccessibleRows::existing(row)) {
            QAccessibleEvent event(iface, QAccessible::DescriptionChanged);
            QAccessible::updateAccessibility(&event);
        }
    }
}

bool RowAccessible::isValid() const
{
    return m_row.exists();
}

QObject *RowAccessible::object() const
{
    // The row, not whichever widget shows it now.
    return nullptr;
}

QWindow *RowAccessible::window() const
{
    QWidget *frame = ShownRows::frameOf(m_row.drawer);
    return frame ? frame->window()->windowHandle() : nullptr;
}

QList<RowRef> RowAccessible::shownChildren() const
{
    return ShownRows::children(m_row);
}

QString RowAccessible::text(QAccessible::Text t) const
{
    const st_NodeInfoSignal node = ShownRows::record(m_row);
    switch (t) {
    case QAccessible::Name:
        // Every line in full: the row shows them elided.
        return node.strNodeName.join(QStringLiteral(", "));
    case QAccessible::Description:
        if (!m_row.isRoot() && !node.isOnline)
            return QCoreApplication::translate("SignalTreeList", "offline", "a signal that is not available");
        return QString();
    default:
        return QString();
    }
}

void RowAccessible::setText(QAccessible::Text t, const QString &text)
{
    // The host names the rows.
    Q_UNUSED(t)
    Q_UNUSED(text)
}

QRect RowAccessible::rect() const
{
    return ShownRows::screenRect(m_row);
}

QAccessible::Role RowAccessible::role() const
{
    return QAccessible::TreeItem;
}

QAccessible::State RowAccessible::state() const
{
    QAccessible::State s;
    s.selectable = true;
    s.focusable = true;
    if (!m_row.exists()) {
        s.invisible = true;
        return s;
    }
    TreeListFrame *frame = ShownRows::frameOf(m_row.drawer);
    const QWidget *shownBy = ShownRows::widget(m_row);
    s.invisible = shownBy ? !shownBy->isVisible() : !(frame && frame->isVisible());
    s.offscreen = s.invisible;
    s.selected = ShownRows::isSelected(m_row);
    if (m_row.isRoot()) {
        s.expandable = true;
        s.expanded = ShownRows::isExpanded(m_row);
        s.collapsed = !s.expanded;
    }
    const KeyboardNavigator *keys = KeyboardNavigator::of(frame);
    s.focused = frame && frame->hasFocus() && keys && keys->focusRow() == m_row;
    return s;
}

QAccessibleInterface *RowAccessible::parent() const
{
    if (!m_row.exists())
        return nullptr;
    if (!m_row.isRoot())
        return AccessibleRows::interfaceFor(RowRef::root(m_row.drawer));
    TreeListFrame *frame = ShownRows::frameOf(m_row.drawer);
    return frame ? QAccessible::queryAccessibleInterface(frame) : nullptr;
}

int RowAccessible::childCount() const
{
    return shownChildren().size();
}

QAccessibleInterface *RowAccessible::child(int index) const
{
    return AccessibleRows::interfaceFor(shownChildren().value(index));
}

int RowAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const RowRef row = AccessibleRows::rowOf(child);
    return row.drawer ? shownChildren().indexOf(row) : -1;
}

QAccessibleInterface *RowAccessible::childAt(int x, int y) const
{
    for (const RowRef &row : shownChildren()) {
        if (ShownRows::screenRect(row).contains(x, y))
            return AccessibleRows::interfaceFor(row);
    }
    return nullptr;
}

void *RowAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
}

QStringList RowAccessible::actionNames() const
{
    QStringList names{pressAction()};
    if (m_row.isRoot())
        names << (ShownRows::isExpanded(m_row) ? collapseAction() : expandAction());
    if (ShownRows::offersButton(m_row, true))
        names << editAction();
    if (ShownRows::offersButton(m_row, false))
        names << deleteAction();
    return names;
}

QString RowAccessible::localizedActionName(const QString &name) const
{
    // Qt's own name for press would need Qt's catalogue as well: the list
    // names all of its actions itself.
    if (name == pressAction())
        return QCoreApplication::translate("SignalTreeList", "Press", "accessible action: select the row, as a click does");
    if (name == expandAction())
        return QCoreApplication::translate("SignalTreeList", "Expand", "accessible action: show a group's signals");
    if (name == collapseAction())
        return QCoreApplication::translate("SignalTreeList", "Collapse", "accessible action: hide a group's signals");
    if (name == editAction())
        return RowTexts::editButton();
    if (name == deleteAction())
        return RowTexts::deleteButton();
    return QString();
}

QString RowAccessible::localizedActionDescription(const QString &name) const
{
    if (name == pressAction())
        return QCoreApplication::translate("SignalTreeList", "Selects the row, as a click does", "accessible action description: press");
    if (name == expandAction())
        return QCoreApplication::translate("SignalTreeList", "Shows the signals of this group", "accessible action description: expand");
    if (name == collapseAction())
        return QCoreApplication::translate("SignalTreeList", "Hides the signals of this group", "accessible action description: collapse");
    if (name == editAction())
        return QCoreApplication::translate("SignalTreeList", "Asks the application to edit this row, as its edit button does", "accessible action description: edit");
    if (name == deleteAction())
        return QCoreApplication::translate("SignalTreeList", "Asks the application to delete this row, as its delete button does", "accessible action description: delete");
    return QString();
}

void RowAccessible::doAction(const QString &name)
{
    if (!m_row.exists())
        return;
    TreeListFrame *frame = ShownRows::frameOf(m_row.drawer);
    KeyboardNavigator *keys = KeyboardNavigator::of(frame);
    if (name == pressAction()) {
        ShownRows::activate(m_row);
    } else if (name == expandAction() || name == collapseAction()) {
        if (ShownRows::setExpanded(m_row, name == expandAction()) && keys)
            keys->scheduleSync();
    } else if (name == editAction() || name == deleteAction()) {
        const bool edit = name == editAction();
        if (!ShownRows::offersButton(m_row, edit))
            return;
        if (keys)
            keys->noteActedOn(m_row);
        ShownRows::clickButton(m_row, edit); // the host may delete the list from here on
    }
}

QStringList RowAccessible::keyBindingsForAction(const QString &name) const
{
    if (name == pressAction())
        return {QStringLiteral("Space")};
    if (name == expandAction())
        return {QStringLiteral("Right")};
    if (name == collapseAction())
        return {QStringLiteral("Left")};
    if (name == editAction())
        return {QStringLiteral("F2")};
    if (name == deleteAction())
        return {QStringLiteral("Delete")};
    return {};
}
