// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>

class QWidget;
class SignalTreeList;

// Rows by path, as a user reaches them: a row is a widget for sure only
// while it can be seen, so it is scrolled into view first.
namespace RowAt {

// The widget of the shown row at @p path ([root] or [root, child]) of
// @p list, scrolled into view; null when the path names no shown row.
QWidget *shown(SignalTreeList *list, const QList<int> &path);

} // namespace RowAt
