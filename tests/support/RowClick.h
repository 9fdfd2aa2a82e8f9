// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class QWidget;

namespace RowClick {

// A click (or a double click) on a row where a user clicks it: a root row
// on its body, clear of the expand box and the buttons; a child row near
// its left edge.
void click(QWidget *row, bool twice = false);

} // namespace RowClick
