// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_BENCH_BENCHRUNNER_H
#define SIGNALTREELIST_BENCH_BENCHRUNNER_H

#include <QElapsedTimer>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>
#include <vector>

class BenchContent;
class BenchSubject;
class QTextStream;

/**
 * Runs the measured operations on every design for one content size and
 * prints one result line per (design, operation) with the median, minimum
 * and maximum over the repetitions. Designs are interleaved within each
 * repetition so that a slow spell of the machine hits all of them.
 *
 * Each operation is a function of its own (never inlined) so that a
 * profiler can collect exactly one of them, e.g.
 * valgrind --tool=callgrind --collect-atstart=no
 *         --toggle-collect='BenchRunner::opBuild*' ...
 */
class BenchRunner
{
public:
    /// The operations, in report order.
    static QStringList operations();
    /// Every design key, in report order.
    static QStringList subjectKeys();
    static std::unique_ptr<BenchSubject> createSubject(const QString &key);

    BenchRunner(const BenchContent &content, const QString &style, QTextStream &out);

    void setSubjects(const QStringList &keys) { m_subjects = keys; }
    void setOperations(const QStringList &ops) { m_ops = ops; }
    /// Wall clock instead of the thread's CPU time.
    void setWallClock(bool wall) { m_bWallClock = wall; }
    /// Whether runTiming() starts with an unrecorded warm-up pass (default).
    void setWarmUp(bool warmUp) { m_bWarmUp = warmUp; }

    /// @p reps repetitions of every selected operation on every design.
    void runTiming(int reps);
    /// The large control room: every group collapsed, as a list starts
    /// them. Per repetition, on a fresh design: the first paint (fill, show,
    /// painted; "room-first-paint"), expanding the middle group to painted
    /// ("room-expand-one") and then every group ("room-expand-all"). Also
    /// prints the resident set right after the first repetition's first
    /// paint ("ROOMRSS", kB): run one process per design and look.
    void runRoom(const QString &subjectKey, int reps);
    /// The room with every group open. Per repetition, on a fresh design:
    /// the first paint (fill, open every group, show, painted;
    /// "open-first-paint"), then paging down through the room, one page
    /// step at a time: the scroll to its paint ("page", every page a
    /// sample) and the work the design does once idle after it
    /// ("page-idle"). Prints the resident set after the first paint of the
    /// first repetition ("ROOMRSS", kB).
    void runOpenRoom(const QString &subjectKey, int reps);
    /// Builds, shows and scrolls through one design, then prints the peak
    /// resident set size of the process (one process per case).
    void runMemory(const QString &subjectKey);

    // The operations, each on a fresh or prepared design; times in ns.
    qint64 opBuild(BenchSubject &subject);
    qint64 opShow(BenchSubject &subject);
    qint64 opScroll(BenchSubject &subject, int *steps);
    qint64 opClick(BenchSubject &subject, int child, qint64 *toSignal);
    qint64 opCollapseExpand(BenchSubject &subject);
    qint64 opFirstPaintCollapsed(BenchSubject &subject);
    qint64 opFirstPaintOpen(BenchSubject &subject);
    qint64 opExpand(BenchSubject &subject, int root);
    qint64 opExpandAll(BenchSubject &subject);
    qint64 opUpdateFromMap(BenchSubject &subject);
    qint64 opAddOneByOne(BenchSubject &subject);

private:
    bool wants(const QString &op) const { return m_ops.isEmpty() || m_ops.contains(op); }
    void record(const QString &subject, const QString &op, qint64 ns);
    void printResults();
    /// @p reps repetitions of everything selected, recorded in m_samples.
    void runPasses(int reps);
    /// Current time of the chosen clock, in ns.
    qint64 now() const;

    const BenchContent &m_content;
    QString m_style;
    QTextStream &m_out;
    QStringList m_subjects;
    QStringList m_ops;
    QElapsedTimer m_clock;
    bool m_bWallClock = false;
    bool m_bWarmUp = true;
    qint64 m_signalAt = -1;
    // subject -> op -> samples (ns)
    QMap<QString, QMap<QString, QVector<qint64>>> m_samples;
};

#endif // SIGNALTREELIST_BENCH_BENCHRUNNER_H
