// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_ROWREPLAY_H
#define SIGNALTREELIST_ROWREPLAY_H

// Internal: not installed, not part of the library's interface.

#include "ChildRowState.h"
#include "PendingRows.h"

#include <QSize>

class RowMetrics;
class SecondItem;

/**
 * The child rows that waited for their group's first expansion, made as
 * they would have been: as widgets (replay()), or, for rows that are parked
 * as soon as they are made, straight as the state their widgets would have
 * once shown with their container (shownState()), without a widget each.
 *
 * What a row's past does to its looks and fonts (polishes, selections,
 * lines shown and hidden) does not hang on its names, only on the kinds of
 * its events and on how many name lines each record had: its shape. A row
 * of each shape is made once among the prototypes, the fonts of its lines
 * noted at every fit of them; each row of that shape then has its own names
 * fitted with those fonts in the same order.
 */
namespace RowReplay {

/// Puts @p item, new and just through initItem(), through what @p row went
/// through while it waited.
void replay(SecondItem *item, const PendingRows::Row &row);

/// The state of the widget that replay() would make of @p row, once shown
/// with its container on a screen of pixel ratio @p ratio; @p size is that
/// widget's size before a layout places it. False (and nothing set) when
/// there are no prototypes to measure on.
bool shownState(RowMetrics &metrics, const PendingRows::Row &row, qreal ratio, ChildRowState &state,
                QSize &size);

} // namespace RowReplay

#endif // SIGNALTREELIST_ROWREPLAY_H
