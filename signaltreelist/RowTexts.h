// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_ROWTEXTS_H
#define SIGNALTREELIST_ROWTEXTS_H

// Internal: not installed, not part of the library's interface.

#include <QString>

class QWidget;

/**
 * The texts the rows give assistive technology, in the current language
 * (translation context "SignalTreeList"): the names of their buttons.
 */
namespace RowTexts {

QString editButton();
QString deleteButton();
QString expandBox();
QString captureButton();
QString fourthButton();

/// Gives the buttons of a row (null ones are skipped) their accessible
/// names in the current language.
void nameButtons(QWidget *edit, QWidget *del, QWidget *expandBox, QWidget *capture, QWidget *fourth);

} // namespace RowTexts

#endif // SIGNALTREELIST_ROWTEXTS_H
