// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "BenchReport.h"

#include "BenchContent.h"
#include "BenchRunner.h"

#include <QTextStream>

namespace {

QString styleTitle(const QString &style)
{
    if (style == QLatin1String("none"))
        return QStringLiteral("Qt's default look (no application style sheet)");
    return QStringLiteral("reference style sheet applied to the application");
}

QString subjectTitle(const QString &key)
{
    if (key == QLatin1String("stl"))
        return QStringLiteral("SignalTreeList");
    if (key == QLatin1String("tree"))
        return QStringLiteral("QTreeWidget items");
    if (key == QLatin1String("treewidgets"))
        return QStringLiteral("QTreeWidget + setItemWidget");
    if (key == QLatin1String("floorfull"))
        return QStringLiteral("floor, library's widget set");
    return QStringLiteral("floor");
}

QString ratio(double value, double floor)
{
    if (floor <= 0)
        return QStringLiteral("-");
    return QString::number(value / floor, 'f', value / floor < 10 ? 2 : 1) + QLatin1Char('x');
}

} // namespace

void BenchReport::addLines(const QString &text)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QStringList f = line.trimmed().split(QLatin1Char('\t'));
        if (f.size() >= 6 && f.at(0) == QLatin1String("RESULT"))
            m_times[f.at(2)][f.at(1)][f.at(3)][f.at(4)] = f.at(5).toDouble();
        else if (f.size() >= 5 && f.at(0) == QLatin1String("MEM"))
            m_memory[f.at(2)][f.at(1)][f.at(3)] = f.at(4).toDouble();
    }
}

QString BenchReport::formatNs(double ns)
{
    if (ns < 1e6)
        return QString::number(ns / 1e3, 'f', ns < 1e5 ? 1 : 0) + QStringLiteral(" us");
    if (ns < 1e9)
        return QString::number(ns / 1e6, 'f', ns < 1e8 ? 2 : 1) + QStringLiteral(" ms");
    return QString::number(ns / 1e9, 'f', 2) + QStringLiteral(" s");
}

int BenchReport::rowsOf(const QString &size)
{
    int roots = 0;
    int children = 0;
    if (!BenchContent::parseSize(size, &roots, &children))
        return 0;
    return roots + roots * children;
}

QStringList BenchReport::sizes() const
{
    return QStringList() << QStringLiteral("16x16") << QStringLiteral("64x16")
                         << QStringLiteral("256x16") << QStringLiteral("1024x4");
}

void BenchReport::writeTiming(QTextStream &out, const QString &style) const
{
    const auto &bySize = m_times.value(style);
    const QStringList keys = BenchRunner::subjectKeys();
    for (const QString &size : sizes()) {
        if (!bySize.contains(size))
            continue;
        const auto &bySubject = bySize.value(size);
        out << "\n#### " << size << " (" << rowsOf(size) << " rows), median time and ratio to the floor\n\n";
        out << "| operation |";
        for (const QString &key : keys)
            out << ' ' << subjectTitle(key) << " |";
        out << "\n|---|";
        for (int i = 0; i < keys.size(); ++i)
            out << "---:|";
        out << '\n';
        for (const QString &op : BenchRunner::operations()) {
            const double floor = bySubject.value(QStringLiteral("floor")).value(op, -1);
            out << "| " << op << " |";
            for (const QString &key : keys) {
                const double v = bySubject.value(key).value(op, -1);
                if (v < 0)
                    out << " - |";
                else
                    out << ' ' << formatNs(v) << " (" << ratio(v, floor) << ") |";
            }
            out << '\n';
        }
        const int rows = rowsOf(size);
        if (rows > 0) {
            out << "\nPer row:";
            for (const QString &key : keys) {
                const auto &ops = bySubject.value(key);
                if (!ops.contains(QStringLiteral("build")))
                    continue;
                out << ' ' << subjectTitle(key) << " build "
                    << formatNs(ops.value(QStringLiteral("build")) / rows) << ", show "
                    << formatNs(ops.value(QStringLiteral("show")) / rows) << ';';
            }
            const auto &stl = bySubject.value(QStringLiteral("stl"));
            if (stl.contains(QStringLiteral("scroll-steps")))
                out << " scroll steps (SignalTreeList): " << stl.value(QStringLiteral("scroll-steps"))
                    << '.';
            out << '\n';
        }
    }
}

void BenchReport::writeGrowth(QTextStream &out, const QString &style) const
{
    const auto &bySize = m_times.value(style);
    const QString from = QStringLiteral("16x16");
    const QString to = QStringLiteral("256x16");
    if (!bySize.contains(from) || !bySize.contains(to))
        return;
    const double rowFactor = double(rowsOf(to)) / rowsOf(from);
    const QStringList keys = BenchRunner::subjectKeys();
    out << "\n#### Growth from 16 to 256 roots (rows x" << rowFactor
        << "; linear = " << rowFactor << "x, quadratic = " << rowFactor * rowFactor << "x)\n\n";
    out << "| operation |";
    for (const QString &key : keys)
        out << ' ' << subjectTitle(key) << " |";
    out << "\n|---|";
    for (int i = 0; i < keys.size(); ++i)
        out << "---:|";
    out << '\n';
    for (const QString &op : BenchRunner::operations()) {
        out << "| " << op << " |";
        for (const QString &key : keys) {
            const double a = bySize.value(from).value(key).value(op, -1);
            const double b = bySize.value(to).value(key).value(op, -1);
            if (a <= 0 || b < 0)
                out << " - |";
            else
                out << ' ' << QString::number(b / a, 'f', 1) << "x |";
        }
        out << '\n';
    }
}

void BenchReport::writeMemory(QTextStream &out, const QString &style) const
{
    const auto &bySize = m_memory.value(style);
    if (bySize.isEmpty())
        return;
    const QStringList keys = BenchRunner::subjectKeys();
    const auto &empty = bySize.value(QStringLiteral("0x0"));
    out << "\n#### Peak memory (maxrss, one process per case) above the same design's empty window, per row; ratio to the floor\n\n";
    out << "| size |";
    for (const QString &key : keys)
        out << ' ' << subjectTitle(key) << " |";
    out << "\n|---|";
    for (int i = 0; i < keys.size(); ++i)
        out << "---:|";
    out << '\n';
    out << "| empty window (peak) |";
    for (const QString &key : keys)
        out << ' ' << (empty.contains(key) ? QString::number(empty.value(key) / 1024.0, 'f', 1) + QStringLiteral(" MB") : QStringLiteral("-")) << " |";
    out << '\n';
    for (const QString &size : sizes()) {
        if (!bySize.contains(size))
            continue;
        const int rows = rowsOf(size);
        const auto &bySubject = bySize.value(size);
        const double floorPerRow = (bySubject.value(QStringLiteral("floor"), -1) - empty.value(QStringLiteral("floor"))) / rows;
        out << "| " << size << " |";
        for (const QString &key : keys) {
            if (!bySubject.contains(key) || !empty.contains(key)) {
                out << " - |";
                continue;
            }
            const double perRow = (bySubject.value(key) - empty.value(key)) / rows;
            out << ' ' << QString::number(perRow, 'f', 1) << " kB (" << ratio(perRow, floorPerRow) << ") |";
        }
        out << '\n';
    }
}

void BenchReport::write(QTextStream &out) const
{
    QStringList styles;
    for (const QString &style : {QStringLiteral("none"), QStringLiteral("sheet")}) {
        if (m_times.contains(style) || m_memory.contains(style))
            styles << style;
    }
    for (const QString &style : styles) {
        out << "\n### " << styleTitle(style) << '\n';
        writeTiming(out, style);
        writeGrowth(out, style);
        writeMemory(out, style);
    }
    out.flush();
}
