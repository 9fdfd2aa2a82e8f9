// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_ACCESSIBLEROWS_H
#define SIGNALTREELIST_ACCESSIBLEROWS_H

// Internal: not installed, not part of the library's interface.

#include "ShownRows.h"

class QAccessibleInterface;

/**
 * The accessible interfaces of the rows: one per row that assistive
 * technology has asked about, the same one for as long as the row exists,
 * whether or not the row is a widget at the moment. They are registered
 * with Qt, which gives each its lasting id.
 */
namespace AccessibleRows {

/// The interface of @p row, made on first use; null when the row is gone.
QAccessibleInterface *interfaceFor(const RowRef &row);
/// The interface of @p row if one was made; null otherwise.
QAccessibleInterface *existing(const RowRef &row);
/// The row an interface stands for; a null row for other interfaces.
RowRef rowOf(const QAccessibleInterface *iface);
/// Lets go of the interfaces of rows that are gone, telling assistive
/// technology that they are.
void sweep();
/// Interfaces kept (for tests).
int count();

} // namespace AccessibleRows

#endif // SIGNALTREELIST_ACCESSIBLEROWS_H
