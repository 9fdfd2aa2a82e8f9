// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "AccessibleRows.h"

#include "RowAccessible.h"

#include <QAccessible>
#include <QHash>

namespace {

// By row key: keys are never reused, so an entry can only go stale, never
// name another row.
QHash<quint64, QAccessible::Id> &registry()
{
    static QHash<quint64, QAccessible::Id> ids;
    return ids;
}

} // namespace

namespace AccessibleRows {

QAccessibleInterface *existing(const RowRef &row)
{
    const auto found = registry().constFind(row.key);
    if (found == registry().constEnd())
        return nullptr;
    QAccessibleInterface *iface = QAccessible::accessibleInterface(*found);
    return iface && iface->isValid() ? iface : nullptr;
}

QAccessibleInterface *interfaceFor(const RowRef &row)
{
    if (!row.exists())
        return nullptr;
    if (QAccessibleInterface *iface = existing(row))
        return iface;
    auto *iface = new RowAccessible(row);
    registry().insert(row.key, QAccessible::registerAccessibleInterface(iface));
    return iface;
}

RowRef rowOf(const QAccessibleInterface *iface)
{
    const auto *rowIface = dynamic_cast<const RowAccessible *>(iface);
    return rowIface ? rowIface->row() : RowRef();
}

void sweep()
{
    QHash<quint64, QAccessible::Id> &ids = registry();
    for (auto it = ids.begin(); it != ids.end();) {
        QAccessibleInterface *iface = QAccessible::accessibleInterface(it.value());
        if (iface && iface->isValid()) {
            ++it;
            continue;
        }
        if (iface) {
            QAccessibleEvent gone(iface, QAccessible::ObjectDestroyed);
            QAccessible::updateAccessibility(&gone);
            QAccessible::deleteAccessibleInterface(it.value());
        }
        it = ids.erase(it);
    }
}

int count()
{
    return registry().size();
}

} // namespace AccessibleRows
