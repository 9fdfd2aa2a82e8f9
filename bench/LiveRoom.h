// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_BENCH_LIVEROOM_H
#define SIGNALTREELIST_BENCH_LIVEROOM_H

class BenchContent;
class QString;
class QTextStream;

/**
 * The live control room: the list filled with @p content, a few groups open,
 * and a host that flips every signal's online state once a round, as a
 * poller does (modifyItemData([0, c]) rewrites child c of every group).
 * Prints, as LIVE lines: the resident set after rounds 5, 50 and @p rounds,
 * the mean time of a round, and the time to open a group never opened
 * before, once after round 1 and once after the last round.
 */
void runLiveRoom(const BenchContent &content, const QString &look, int rounds, QTextStream &out);

#endif // SIGNALTREELIST_BENCH_LIVEROOM_H
