// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_BUTTONFLAGS_H
#define SIGNALTREELIST_BUTTONFLAGS_H

// Internal: not installed, not part of the library's interface.

#include <QList>

/**
 * Which hover buttons a child row shows, as the records it was given left it.
 *
 * A record's flag list sets as many flags as it has entries, so a shorter
 * list keeps what earlier records set for the rest: the flags are the sum of
 * the row's history, and rows kept without widgets fold them the same way.
 */
struct ButtonFlags
{
    bool edit = false;
    bool remove = false;
    bool capture = false;
    bool fourth = false;

    /// Entries in the order edit, delete, capture, fourth; a list of 1 to 4
    /// entries sets that many flags, any other length changes nothing.
    void apply(const QList<bool> &list);
    /// All four, in the order apply() reads them.
    QList<bool> toList() const;
};

#endif // SIGNALTREELIST_BUTTONFLAGS_H
