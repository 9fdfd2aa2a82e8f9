// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>

class QToolButton;
class RootItem;
class SecondItem;

// The rows' buttons as a user finds them on screen.
namespace RowButtons {

// A child row's hover buttons in frame order: capture, edit, delete, fourth.
QList<QToolButton *> rowButtons(SecondItem *row);
// One of them (0 capture, 1 edit, 2 delete, 3 fourth), or null.
QToolButton *rowButton(SecondItem *row, int index);
// The root row's button that carries @p property ("isEditBtn", "isDelBtn").
QToolButton *rootButton(RootItem *root, const char *property);

} // namespace RowButtons
