// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_TEXTFIT_H
#define SIGNALTREELIST_TEXTFIT_H

// Internal: not installed, not part of the library's interface.

#include <QString>

class QFontMetrics;

/**
 * How a child row fits its two name lines to its width budget, apart from
 * any widget: the same rule for a row that is a widget and for one that is
 * not one at the moment.
 */
namespace TextFit {

/// What the two name labels show, and the width they are fixed to (-1:
/// never fitted).
struct Lines
{
    QString shown[2];
    int width[2] = {-1, -1};

    bool operator==(const Lines &other) const
    {
        return shown[0] == other.shown[0] && shown[1] == other.shown[1] && width[0] == other.width[0]
            && width[1] == other.width[1];
    }
};

/// Fits @p lines to @p limit: @p full are the full texts, @p fullWidth
/// their widths in @p metrics, the labels' fonts of the moment. When both
/// fit, both labels get the width of the wider text and keep what they
/// show (an earlier shortening stays); otherwise each shows its full text
/// shortened with "..." to the limit, and both get the limit's width.
void fit(Lines &lines, const QString (&full)[2], const int (&fullWidth)[2], const QFontMetrics *const (&metrics)[2],
         int limit);

/// @p full shortened by whole characters until it plus "..." fits @p limit
/// (@p full itself when it fits); @p fullWidth is its width in @p metrics.
QString shorten(const QString &full, int fullWidth, const QFontMetrics &metrics, int limit);

} // namespace TextFit

#endif // SIGNALTREELIST_TEXTFIT_H
