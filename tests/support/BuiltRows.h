// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QScopedPointer>

class DrawerControl;
class QWidget;
class SecondItem;

// The child rows of @p drawer as widgets. A drawer builds them on its first
// expansion, and keeps them as widgets only while they may be seen; a test
// that inspects rows has them built and made widgets first, as expanding
// or scrolling them into view would.
QList<SecondItem *> builtRows(DrawerControl *drawer);
inline QList<SecondItem *> builtRows(const QScopedPointer<DrawerControl> &drawer)
{
    return builtRows(drawer.data());
}

// The drawers under @p parent as widgets, without the hidden prototypes
// that a list measures its rows on.
QList<DrawerControl *> listDrawers(const QWidget *parent);
// The child rows under @p parent as widgets, likewise.
QList<SecondItem *> listRowWidgets(const QWidget *parent);
