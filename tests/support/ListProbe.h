// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QImage>
#include <QStringList>

class SignalTreeList;

// What a host or a user can observe of a list once the event loop has
// settled, as text lines: the scroll range and position, the keyboard focus,
// getItemSignalNode for a few paths, the accessibility tree (names, states,
// actions) and every shown row keyed by its path (class, object name,
// geometry relative to the list, dynamic properties, tool tip, texts, and
// the same for every widget inside it). Rows of closed groups are not
// shown and not dumped.
namespace ListProbe {

QStringList dump(SignalTreeList *list);

// The list as its window shows it now (read from the platform, without
// rendering anything).
QImage picture(SignalTreeList *list);

} // namespace ListProbe
