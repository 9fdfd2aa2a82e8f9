// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "TextFit.h"

#include <QFontMetrics>

namespace TextFit {

void fit(Lines &lines, const QString (&full)[2], const int (&fullWidth)[2], const QFontMetrics *const (&metrics)[2],
         int limit)
{
    int widest = fullWidth[0];
    for (int i = 0; i < 2; ++i) {
        if (fullWidth[i] >= widest)
            widest = fullWidth[i];
    }
    if (widest <= limit) {
        // Both lines fit: they share the width of the wider one.
        lines.width[0] = lines.width[1] = widest;
        return;
    }
    for (int i = 0; i < 2; ++i) {
        lines.shown[i] = shorten(full[i], fullWidth[i], *metrics[i], limit);
        lines.width[i] = limit;
    }
}

QString shorten(const QString &full, int fullWidth, const QFontMetrics &metrics, int limit)
{
    const QString ellipsis = QStringLiteral("...");
    QString running = full;
    QString candidate = full;
    if (fullWidth <= limit)
        return candidate;

    // Dropping one character per measurement is quadratic; for long texts
    // first cut at the shortest prefix that alone is already too wide, which
    // every longer prefix is as well.
    if (running.size() > 256) {
        int lo = 1;
        int hi = running.size();
        while (lo < hi) {
            const int mid = lo + (hi - lo) / 2;
            if (metrics.horizontalAdvance(running.left(mid)) > limit)
                hi = mid;
            else
                lo = mid + 1;
        }
        running.truncate(lo);
    }

    // An empty running text cannot shrink further, even if "..." alone is
    // too wide for a very large font. The first candidate is the full text.
    int candidateWidth = fullWidth;
    while (candidateWidth > limit && !running.isEmpty()) {
        running.chop(1);
        candidate = running + ellipsis;
        candidateWidth = metrics.horizontalAdvance(candidate);
    }
    return candidate;
}

} // namespace TextFit
