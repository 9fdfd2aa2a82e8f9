// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_TABCHAIN_H
#define SIGNALTREELIST_TABCHAIN_H

// Internal: not installed, not part of the library's interface.

#include <QList>

class QWidget;

/**
 * Where the list stands in its window's tab order.
 *
 * A widget joins its window's focus chain at the end, whenever it is
 * created. Hosts usually build their form first (setupUi) and create the
 * list inside one of its panels afterwards, so left alone the list would be
 * reached last, whatever its place on screen.
 */
namespace TabChain {

/// Moves @p widgets, in this order and next to each other, to where
/// @p parent stands in the focus chain: after @p parent and after the
/// widgets inside it that come right behind it. None of @p widgets may have
/// a focus proxy yet. Does nothing without a parent.
void placeWith(QWidget *parent, const QList<QWidget *> &widgets);

} // namespace TabChain

#endif // SIGNALTREELIST_TABCHAIN_H
