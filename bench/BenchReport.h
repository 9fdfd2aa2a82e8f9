// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_BENCH_BENCHREPORT_H
#define SIGNALTREELIST_BENCH_BENCHREPORT_H

#include <QMap>
#include <QString>
#include <QStringList>

class QTextStream;

/**
 * Turns the RESULT and MEM lines of the timing and memory cases into the
 * Markdown tables of BENCHMARKS.md: every design as a ratio to the floor,
 * growth from 16 to 256 roots, and memory per row.
 */
class BenchReport
{
public:
    /// Reads result lines; other lines are ignored.
    void addLines(const QString &text);
    void write(QTextStream &out) const;

private:
    static QString formatNs(double ns);
    static int rowsOf(const QString &size);
    QStringList sizes() const;
    void writeTiming(QTextStream &out, const QString &style) const;
    void writeGrowth(QTextStream &out, const QString &style) const;
    void writeMemory(QTextStream &out, const QString &style) const;

    // style -> size -> subject -> op -> median ns
    QMap<QString, QMap<QString, QMap<QString, QMap<QString, double>>>> m_times;
    // style -> size -> subject -> peak kB
    QMap<QString, QMap<QString, QMap<QString, double>>> m_memory;
};

#endif // SIGNALTREELIST_BENCH_BENCHREPORT_H
