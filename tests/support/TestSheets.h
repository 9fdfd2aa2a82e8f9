// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

namespace TestSheets {

// Rules that change fonts and heights by state, to go on top of the dark
// sheet: a selected row is taller and its name lines take other fonts.
QString stateRules();

// The sheet at @p path (the dark sheet), or an empty string.
QString read(const QString &path);

} // namespace TestSheets
