// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_ITEMCHANGECONTROLLOR_H
#define SIGNALTREELIST_ITEMCHANGECONTROLLOR_H

class DrawerControl;

/// Placeholder of an item-change strategy: built and destroyed, it does
/// nothing else. Kept because hosts of earlier versions construct it.
class ItemChangeControllor
{
public:
    ItemChangeControllor();
    virtual ~ItemChangeControllor();
};

/// When @p pSource is flagged "root as child", adds the source's root record
/// to @p pTarget as a child row with indices (0, 0). Null drawers are ignored.
void addRootAsChild(DrawerControl *pSource, DrawerControl *pTarget);

#endif // SIGNALTREELIST_ITEMCHANGECONTROLLOR_H
