// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_ROWACCESSIBLE_H
#define SIGNALTREELIST_ROWACCESSIBLE_H

// Internal: not installed, not part of the library's interface.

#include "ShownRows.h"

#include <QAccessible>

/**
 * A root row or a child row as assistive technology sees it: a tree item
 * named by its full text (every name line, not the elided ones), with
 * "offline" in the description of an offline signal, truthful selected,
 * focused, expandable, expanded and collapsed states, and the actions of
 * the mouse: press (a click on the row), expand and collapse (a click on
 * the root row's expand box), edit and delete (a click on the button the
 * row offers). Every text goes through the "SignalTreeList" translation
 * context.
 *
 * It stands for the row, not for a widget: it answers whether or not the
 * row is a widget at the moment, and stays the same interface for as long
 * as the row exists (AccessibleRows hands it out).
 */
class RowAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    explicit RowAccessible(const RowRef &row);

    const RowRef &row() const { return m_row; }

    static QString expandAction();
    static QString collapseAction();
    static QString editAction();
    static QString deleteAction();

    /// Tells assistive technology that the descriptions of the rows it
    /// knows among @p rows changed (the language did).
    static void announceDescriptions(const QList<RowRef> &rows);

    bool isValid() const override;
    QObject *object() const override;
    QWindow *window() const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QString text(QAccessible::Text t) const override;
    void setText(QAccessible::Text t, const QString &text) override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    QString localizedActionName(const QString &name) const override;
    QString localizedActionDescription(const QString &name) const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &name) const override;

private:
    QList<RowRef> shownChildren() const;

    RowRef m_row;
};

#endif // SIGNALTREELIST_ROWACCESSIBLE_H
