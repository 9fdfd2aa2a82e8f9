// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "BuiltRows.h"

#include "DrawerControl.h"
#include "SecondItem.h"

QList<SecondItem *> builtRows(DrawerControl *drawer)
{
    if (!drawer)
        return {};
    drawer->buildRows();
    // Parked rows are made again; they stay widgets until the list next
    // decides which rows it keeps as widgets.
    for (int i = 0; i < drawer->rowCount(); ++i)
        drawer->realiseRow(i);
    return drawer->secondItems();
}

namespace {

bool inPrototype(const QWidget *widget)
{
    for (const QWidget *w = widget; w; w = w->parentWidget()) {
        const auto *drawer = qobject_cast<const DrawerControl *>(w);
        if (drawer && drawer->isPrototype())
            return true;
    }
    return false;
}

template <typename T>
QList<T *> withoutPrototypes(const QWidget *parent)
{
    QList<T *> found;
    if (!parent)
        return found;
    for (T *widget : parent->findChildren<T *>()) {
        if (!inPrototype(widget))
            found << widget;
    }
    return found;
}

} // namespace

QList<DrawerControl *> listDrawers(const QWidget *parent)
{
    return withoutPrototypes<DrawerControl>(parent);
}

QList<SecondItem *> listRowWidgets(const QWidget *parent)
{
    return withoutPrototypes<SecondItem>(parent);
}
