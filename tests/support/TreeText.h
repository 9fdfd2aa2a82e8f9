// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class DrawerControl;
class TreeListFrame;

// The state of a tree as short texts, so that a comparison that fails shows
// what differs.
namespace TreeText {

// "1,2" for the path [1, 2].
QString pathText(const QList<int> &path);

// [1, 2] for "1,2"; the empty path for "".
QList<int> pathFromText(const QString &text);

// The first name line of a drawer's root record.
QString rootName(DrawerControl *drawer);

// The first name lines of a drawer's child rows, top to bottom.
QStringList childNames(DrawerControl *drawer);

// "Root:child,child" for every drawer of @p frame in list order; empty
// without a frame.
QStringList snapshot(TreeListFrame *frame);

} // namespace TreeText
