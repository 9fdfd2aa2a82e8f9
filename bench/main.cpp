// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// signaltreelist_bench: SignalTreeList against Qt's own widgets holding the
// same rows. One process runs one case:
//
//   --case timing --size 256x16 --look none|sheet [--reps 5] [--clock cpu|wall]
//          [--no-warmup]
//          [--subjects stl,tree,treewidgets,floor] [--ops build,show,...]
//   --case memory --size 256x16 --look none|sheet --subject floor
//   --case live --size 1024x16 --look none|sheet [--reps ROUNDS]
//   --case open-room --size 1024x16 --look none|sheet --subject KEY [--reps N]
//          (the live control room: a poller flips every signal each round)
//   --case report FILE...      (Markdown tables from the lines printed above)
//
// Times are the GUI thread's CPU time by default (the machines are shared;
// everything measured runs synchronously on that thread); --clock wall
// takes the wall clock instead.
//
// --look sheet applies an application style sheet: --qss PATH, by default
// the library's reference sheet, followed by bench/bench-rows.qss (the looks
// of the bench's own row widgets). bench/run.sh runs every case.
#include "BenchContent.h"
#include "BenchReport.h"
#include "BenchRunner.h"
#include "LiveRoom.h"

#include <QApplication>
#include <QFile>
#include <QStringList>
#include <QTextStream>

#include <cstdio>

namespace {

// The library writes debug traces (a press writes "enter"); a terminal would
// make them the most expensive part of a click, so they are dropped here.
void messageHandler(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    // The offscreen platform says so for every top-level window.
    if (message.contains(QLatin1String("propagateSizeHints")))
        return;
    std::fprintf(stderr, "%s\n", qPrintable(message));
}

int usage()
{
    std::fprintf(stderr,
                 "usage: signaltreelist_bench --case timing --size RxC --look none|sheet [--reps N] [--clock cpu|wall]\n"
                 "                            [--no-warmup]\n"
                 "                            [--subjects a,b] [--ops a,b] [--qss PATH]\n"
                 "       signaltreelist_bench --case memory --size RxC --look none|sheet --subject KEY\n"
                 "       signaltreelist_bench --case room --size RxC --look none|sheet --subject KEY [--reps N]\n"
                 "       signaltreelist_bench --case live --size RxC --look none|sheet [--reps ROUNDS]\n"
                 "       signaltreelist_bench --case open-room --size RxC --look none|sheet --subject KEY [--reps N]\n"
                 "                            [--clock cpu|wall]\n"
                 "       signaltreelist_bench --case report FILE...\n");
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);

    QString mode;
    QString size = QStringLiteral("16x16");
    QString style = QStringLiteral("none");
    QString qss = QStringLiteral(SIGNALTREELIST_DEFAULT_QSS);
    QString subject;
    QStringList subjects;
    QStringList ops;
    QStringList files;
    int reps = 5;
    QString clock = QStringLiteral("cpu");
    bool warmUp = true;
    for (int i = 0; i < args.size(); ++i) {
        const QString &a = args.at(i);
        const QString next = args.value(i + 1);
        if (a == QLatin1String("--case")) { mode = next; ++i; }
        else if (a == QLatin1String("--size")) { size = next; ++i; }
        else if (a == QLatin1String("--look")) { style = next; ++i; }
        else if (a == QLatin1String("--clock")) { clock = next; ++i; }
        else if (a == QLatin1String("--no-warmup")) { warmUp = false; }
        else if (a == QLatin1String("--qss")) { qss = next; ++i; }
        else if (a == QLatin1String("--reps")) { reps = next.toInt(); ++i; }
        else if (a == QLatin1String("--subject")) { subject = next; ++i; }
        else if (a == QLatin1String("--subjects")) { subjects = next.split(QLatin1Char(','), Qt::SkipEmptyParts); ++i; }
        else if (a == QLatin1String("--ops")) { ops = next.split(QLatin1Char(','), Qt::SkipEmptyParts); ++i; }
        else if (mode == QLatin1String("report")) files << a;
        else return usage();
    }

    QTextStream out(stdout);
    if (mode == QLatin1String("report")) {
        BenchReport report;
        for (const QString &name : qAsConst(files)) {
            QFile file(name);
            if (file.open(QIODevice::ReadOnly | QIODevice::Text))
                report.addLines(QString::fromUtf8(file.readAll()));
        }
        report.write(out);
        return 0;
    }
    const bool openRoom = mode == QLatin1String("open-room");
    if (mode != QLatin1String("timing") && mode != QLatin1String("memory") && mode != QLatin1String("room")
        && mode != QLatin1String("live") && !openRoom)
        return usage();

    int roots = 0;
    int children = 0;
    if (!BenchContent::parseSize(size, &roots, &children))
        return usage();
    if (style != QLatin1String("none") && style != QLatin1String("sheet"))
        return usage();

    if (clock != QLatin1String("cpu") && clock != QLatin1String("wall"))
        return usage();

    qInstallMessageHandler(messageHandler);
    // Qt must not see the bench's own options (it knows a -style option).
    int qtArgc = 1;
    QApplication app(qtArgc, argv);
    if (style == QLatin1String("sheet")) {
        QFile file(qss);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
            std::fprintf(stderr, "bench: cannot read style sheet %s\n", qPrintable(qss));
            return 1;
        }
        QString sheet = QString::fromUtf8(file.readAll());
        QFile rows(QStringLiteral(SIGNALTREELIST_BENCH_ROWS_QSS));
        if (rows.open(QIODevice::ReadOnly | QIODevice::Text))
            sheet += QLatin1Char('\n') + QString::fromUtf8(rows.readAll());
        app.setStyleSheet(sheet);
    }

    const BenchContent content(roots, children);
    if (mode == QLatin1String("live")) {
        runLiveRoom(content, style, reps, out);
        return 0;
    }
    BenchRunner runner(content, style, out);
    runner.setWallClock(clock == QLatin1String("wall"));
    runner.setWarmUp(warmUp);
    if (!subjects.isEmpty())
        runner.setSubjects(subjects);
    runner.setOperations(ops);
    if (mode == QLatin1String("memory") || mode == QLatin1String("room") || openRoom) {
        if (!BenchRunner::subjectKeys().contains(subject))
            return usage();
        if (mode == QLatin1String("room"))
            runner.runRoom(subject, reps);
        else if (openRoom)
            runner.runOpenRoom(subject, reps);
        else
            runner.runMemory(subject);
    } else {
        runner.runTiming(reps);
    }
    return 0;
}
