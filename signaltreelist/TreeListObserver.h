// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_TREELISTOBSERVER_H
#define SIGNALTREELIST_TREELISTOBSERVER_H

// Internal: not installed, not part of the library's interface.

class DrawerControl;

/**
 * What the list frame tells the layers above it (the keyboard and
 * accessibility) about its rows, without knowing them.
 */
class TreeListObserver
{
public:
    virtual ~TreeListObserver() = default;

    /// Rows were added, removed, shown, hidden or (de)selected.
    virtual void rowsChanged() = 0;
    /// The host selected @p child of @p drawer (-1: its root row) with
    /// setCurSelItem.
    virtual void hostSelected(DrawerControl *drawer, int child) = 0;
};

#endif // SIGNALTREELIST_TREELISTOBSERVER_H
