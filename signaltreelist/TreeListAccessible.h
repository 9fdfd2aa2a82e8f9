// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_TREELISTACCESSIBLE_H
#define SIGNALTREELIST_TREELISTACCESSIBLE_H

// Internal: not installed, not part of the library's interface.

#include <QAccessibleWidget>

class TreeListFrame;

/**
 * The list as assistive technology sees it: a tree (QAccessible::Tree)
 * whose children are the visible root rows; each root row holds its child
 * rows while they show (RowAccessible). Installed through a factory, so
 * Qt's own bridge (AT-SPI, UI Automation) and QAccessible queries find it.
 */
class TreeListAccessible : public QAccessibleWidget
{
public:
    explicit TreeListAccessible(TreeListFrame *frame);

    /// Registers the factory for the tree frame and the row classes; once.
    static void installFactory();

    QString text(QAccessible::Text t) const override;
    QAccessible::State state() const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;

private:
    TreeListFrame *frame() const;
};

#endif // SIGNALTREELIST_TREELISTACCESSIBLE_H
