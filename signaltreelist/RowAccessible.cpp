// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RowAccessible.h"

#include "DrawerControl.h"
#include "KeyboardNavigator.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "TreeListFrame.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QToolButton>

RowAccessible::RowAccessible(QWidget *row)
    : QAccessibleWidget(row, QAccessible::TreeItem)
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

QString RowAccessible::editButtonName()
{
    return QCoreApplication::translate("SignalTreeList", "Edit", "button of a row: edit the signal or group");
}

QString RowAccessible::deleteButtonName()
{
    return QCoreApplication::translate("SignalTreeList", "Delete", "button of a row: delete the signal or group");
}

void RowAccessible::retranslate(QWidget *row, QWidget *edit, QWidget *del, QWidget *expandBox, QWidget *capture,
                                QWidget *fourth)
{
    const auto name = [](QWidget *button, const QString &text) {
        if (button)
            button->setAccessibleName(text);
    };
    name(edit, editButtonName());
    name(del, deleteButtonName());
    name(expandBox, QCoreApplication::translate("SignalTreeList", "Show signals",
                                                "check box of a group row: show or hide its signals"));
    name(capture, QCoreApplication::translate("SignalTreeList", "Capture",
                                              "button of a signal row: capture a picture of the signal"));
    // The library gives the fourth button no action of its own; hosts give
    // it a picture and a meaning through their style.
    name(fourth, QCoreApplication::translate("SignalTreeList", "More",
                                             "fourth button of a signal row, whose meaning the application gives"));
    // The description ("offline") is read in the new language from now on.
    if (row && QAccessible::isActive()) {
        QAccessibleEvent event(row, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&event);
    }
}

bool RowAccessible::isRoot() const
{
    return qobject_cast<const RootItem *>(object()) != nullptr;
}

DrawerControl *RowAccessible::drawer() const
{
    return KeyboardNavigator::drawerOf(widget());
}

QList<QWidget *> RowAccessible::shownChildren() const
{
    QList<QWidget *> rows;
    DrawerControl *d = drawer();
    if (!isRoot() || !d || !KeyboardNavigator::isExpanded(widget()))
        return rows;
    for (SecondItem *row : d->secondItems())
        rows << row;
    return rows;
}

QString RowAccessible::text(QAccessible::Text t) const
{
    st_NodeInfoSignal node;
    if (auto *root = qobject_cast<RootItem *>(object()))
        node = root->getNodeInfo();
    else if (auto *row = qobject_cast<SecondItem *>(object()))
        node = row->getNodeInfo();
    switch (t) {
    case QAccessible::Name:
        // Every line in full: the row shows them elided.
        return node.strNodeName.join(QStringLiteral(", "));
    case QAccessible::Description:
        if (!isRoot() && !node.isOnline)
            return QCoreApplication::translate("SignalTreeList", "offline", "a signal that is not available");
        return QString();
    default:
        return QAccessibleWidget::text(t);
    }
}

QAccessible::State RowAccessible::state() const
{
    QAccessible::State s = QAccessibleWidget::state();
    s.selectable = true;
    s.focusable = true;
    DrawerControl *d = drawer();
    QWidget *row = widget();
    if (!d || !row)
        return s;
    s.selected = KeyboardNavigator::isSelected(row);
    if (isRoot()) {
        s.expandable = true;
        s.expanded = KeyboardNavigator::isExpanded(row);
        s.collapsed = !s.expanded;
    }
    TreeListFrame *frame = KeyboardNavigator::frameOf(row);
    const KeyboardNavigator *keys = KeyboardNavigator::of(frame);
    s.focused = frame && frame->hasFocus() && keys && keys->focusRow() == row;
    return s;
}

QAccessibleInterface *RowAccessible::parent() const
{
    DrawerControl *d = drawer();
    if (!d)
        return QAccessibleWidget::parent();
    if (!isRoot())
        return QAccessible::queryAccessibleInterface(d->rootItem());
    if (TreeListFrame *frame = KeyboardNavigator::frameOf(d))
        return QAccessible::queryAccessibleInterface(frame);
    return QAccessibleWidget::parent();
}

int RowAccessible::childCount() const
{
    return shownChildren().size();
}

QAccessibleInterface *RowAccessible::child(int index) const
{
    QWidget *row = shownChildren().value(index);
    return row ? QAccessible::queryAccessibleInterface(row) : nullptr;
}

int RowAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    return child ? shownChildren().indexOf(qobject_cast<QWidget *>(child->object())) : -1;
}

QStringList RowAccessible::actionNames() const
{
    QStringList names{pressAction()};
    if (isRoot() && widget())
        names << (KeyboardNavigator::isExpanded(widget()) ? collapseAction() : expandAction());
    if (KeyboardNavigator::offeredButton(widget(), true))
        names << editAction();
    if (KeyboardNavigator::offeredButton(widget(), false))
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
        return editButtonName();
    if (name == deleteAction())
        return deleteButtonName();
    return QAccessibleWidget::localizedActionName(name);
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
    return QAccessibleWidget::localizedActionDescription(name);
}

void RowAccessible::doAction(const QString &name)
{
    QWidget *row = widget();
    if (!row)
        return;
    if (name == pressAction())
        KeyboardNavigator::activate(row);
    else if (name == expandAction())
        KeyboardNavigator::setExpanded(row, true);
    else if (name == collapseAction())
        KeyboardNavigator::setExpanded(row, false);
    else if (name == editAction() || name == deleteAction()) {
        if (QToolButton *button = KeyboardNavigator::offeredButton(row, name == editAction())) {
            if (KeyboardNavigator *keys = KeyboardNavigator::of(KeyboardNavigator::frameOf(row)))
                keys->noteActedOn(row);
            button->click();
        }
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
