// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_DEMO_DEMOROWS_H
#define SIGNALTREELIST_DEMO_DEMOROWS_H

#include <QList>

class QFrame;
class QWidget;

/**
 * Finds the row widgets of a SignalTreeList from the outside, the way a
 * style sheet does: root rows carry the object name "RootItem", child rows
 * "SignalSecondItem". The demo uses it to press and hover rows for its
 * screenshots as a pointer would.
 *
 * @p listFrame is SignalTreeList::getSignalTreeListFrame(). Rows are
 * counted in display order (top to bottom); a path naming no row gives
 * null.
 */
class DemoRows
{
public:
    /// The root row at display position @p root.
    static QWidget *rootRow(QFrame *listFrame, int root);
    /// The child row @p child under root row @p root.
    static QWidget *childRow(QFrame *listFrame, int root, int child);

private:
    /// One widget per root: the common ancestor of a root row and its
    /// child rows, in display order.
    static QList<QWidget *> drawers(QFrame *listFrame);
};

#endif // SIGNALTREELIST_DEMO_DEMOROWS_H
