// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_DEMO_DEMOSTYLE_H
#define SIGNALTREELIST_DEMO_DEMOSTYLE_H

#include <QString>
#include <QStringList>

/**
 * The demo's looks: the library's reference dark style sheet (which gives
 * the rows their normal, hover and press looks) plus a small sheet of the
 * demo's own for the window around the list.
 */
class DemoStyle
{
public:
    /// Places where the reference sheet is looked for, in order: the source
    /// tree, the share directory beside the executable, the install prefix.
    static QStringList referenceSheetCandidates();

    /// Reads the reference sheet from @p path, or, when @p path is empty,
    /// from the first candidate that exists. @p usedPath receives the file
    /// read (empty when none was found). Returns the sheet text.
    static QString loadReferenceSheet(const QString &path, QString *usedPath);

    /// The demo's own sheet for menus, tool bar, log and splitter; it only
    /// selects widgets of the window, never the rows of the list.
    static QString chromeSheet();
};

#endif // SIGNALTREELIST_DEMO_DEMOSTYLE_H
