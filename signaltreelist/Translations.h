// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_TRANSLATIONS_H
#define SIGNALTREELIST_TRANSLATIONS_H

// Internal: not installed, not part of the library's interface.

#include <QStringList>

class QLocale;

/**
 * The library's own catalogues: compiled from the Qt Linguist sources under translations/ and built
 * into the resource bundle under directory(). At most one of them is
 * installed on the application at a time; installing or removing it sends
 * QEvent::LanguageChange, which every row answers with reTranslateUI.
 */
class Translations
{
public:
    /// Installs the catalogue for @p locale's user-interface languages
    /// (the first shipped one wins), replacing the one installed before.
    /// Without a shipped catalogue (English, or a language not shipped) the
    /// previous one is removed and the texts fall back to English; returns
    /// whether a catalogue is installed. Does nothing and returns false
    /// without an application object.
    static bool install(const QLocale &locale);
    /// The resource folder of the catalogues.
    static QString directory();
    /// The shipped languages ("de", "fr", ...), as found in directory().
    static QStringList shippedLanguages();
};

#endif // SIGNALTREELIST_TRANSLATIONS_H
