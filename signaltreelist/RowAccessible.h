// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_ROWACCESSIBLE_H
#define SIGNALTREELIST_ROWACCESSIBLE_H

// Internal: not installed, not part of the library's interface.

#include <QAccessibleWidget>

class DrawerControl;

/**
 * A root row or a child row as assistive technology sees it: a tree item
 * named by its full text (every name line, not the elided ones), with
 * "offline" in the description of an offline signal, truthful selected,
 * focused, expandable, expanded and collapsed states, and the actions of
 * the mouse: press (a click on the row), expand and collapse (a click on
 * the root row's expand box), edit and delete (a click on the button the
 * row offers). Every text goes through the "SignalTreeList" translation
 * context.
 */
// QAccessibleWidget brings the action interface; the actions are overridden.
class RowAccessible : public QAccessibleWidget
{
public:
    explicit RowAccessible(QWidget *row);

    static QString expandAction();
    static QString collapseAction();
    static QString editAction();
    static QString deleteAction();

    /// Gives @p row's buttons (null ones are skipped) their accessible names
    /// in the current language and tells assistive technology that the
    /// row's description changed; the rows call it from reTranslateUI.
    static void retranslate(QWidget *row, QWidget *edit, QWidget *del, QWidget *expandBox, QWidget *capture,
                            QWidget *fourth);

    QString text(QAccessible::Text t) const override;
    QAccessible::State state() const override;
    QAccessibleInterface *parent() const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

    QStringList actionNames() const override;
    QString localizedActionName(const QString &name) const override;
    QString localizedActionDescription(const QString &name) const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &name) const override;

private:
    static QString editButtonName();
    static QString deleteButtonName();
    bool isRoot() const;
    DrawerControl *drawer() const;
    QList<QWidget *> shownChildren() const;
};

#endif // SIGNALTREELIST_ROWACCESSIBLE_H
