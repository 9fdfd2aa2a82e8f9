// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "ItemChangeControllor.h"

#include "DrawerControl.h"
#include "StyleConstants.h"

ItemChangeControllor::ItemChangeControllor() = default;

ItemChangeControllor::~ItemChangeControllor() = default;

void addRootAsChild(DrawerControl *pSource, DrawerControl *pTarget)
{
    if (!pSource || !pTarget || !pSource->getIsRootAsChild())
        return;
    pTarget->addSecondItem(pSource->getRootNodeInfo(), 0, 0);
}
