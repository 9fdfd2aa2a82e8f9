// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "BuiltRows.h"

#include "DrawerControl.h"

QList<SecondItem *> builtRows(DrawerControl *drawer)
{
    if (!drawer)
        return {};
    drawer->buildRows();
    return drawer->secondItems();
}
