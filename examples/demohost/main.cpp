// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// The signaltreelist demo host: an operator's input panel around
// SignalTreeList, with a live log of every signal it emits.
//
//   signaltreelist_demo                       run interactively
//   signaltreelist_demo --screenshot FILE     render the window to FILE and exit
//   signaltreelist_demo --closeups DIR        render row close-ups into DIR and exit
//   signaltreelist_demo --language de         the library's own texts in German (or fr)
//   signaltreelist_demo --room 1024x16        a generated room instead of the data set
//                                             (--closed: every board closed)
//
// Both rendering options work headless (QT_QPA_PLATFORM=offscreen).

#include "DemoCapture.h"
#include "DemoStyle.h"
#include "DemoWindow.h"

#include <SignalTreeList.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QStyleFactory>

#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("signaltreelist_demo"));
    QApplication::setApplicationVersion(QStringLiteral("1.0"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Demo host for the SignalTreeList control."));
    parser.addHelpOption();
    const QCommandLineOption screenshotOption(
        QStringLiteral("screenshot"),
        QStringLiteral("Render the window, after a click and a hover, to <file> (PNG) and exit."),
        QStringLiteral("file"));
    const QCommandLineOption closeupsOption(
        QStringLiteral("closeups"),
        QStringLiteral("Render a root row and a child row in each state (normal, hover, press) "
                       "into <dir> and exit."),
        QStringLiteral("dir"));
    const QCommandLineOption scaleOption(QStringLiteral("scale"),
                                         QStringLiteral("Scale of the close-ups (default 2)."),
                                         QStringLiteral("n"), QStringLiteral("2"));
    const QCommandLineOption styleOption(
        QStringLiteral("style-sheet"),
        QStringLiteral("Use <file> instead of the reference dark style sheet."), QStringLiteral("file"));
    const QCommandLineOption printLogOption(
        QStringLiteral("print-log"), QStringLiteral("Also print every log line on standard output."));
    const QCommandLineOption languageOption(
        QStringLiteral("language"),
        QStringLiteral("Hand assistive technology the list's own texts in <code> (de, fr; default English)."),
        QStringLiteral("code"));
    const QCommandLineOption roomOption(
        QStringLiteral("room"),
        QStringLiteral("Fill the list with a generated room of <boards>x<inputs>, every board open, "
                       "instead of the data set."),
        QStringLiteral("size"));
    const QCommandLineOption closedOption(QStringLiteral("closed"),
                                          QStringLiteral("With --room: every board closed."));
    parser.addOptions({screenshotOption, closeupsOption, scaleOption, styleOption, printLogOption, languageOption,
                       roomOption, closedOption});
    parser.process(app);
    if (parser.isSet(languageOption) && !SignalTreeList::installTranslations(QLocale(parser.value(languageOption))))
        std::fprintf(stderr, "signaltreelist_demo: no catalogue for \"%s\"; the list stays in English\n",
                     qPrintable(parser.value(languageOption)));

    // Fusion gives the same base look on every platform; the sheets do the rest.
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font = QApplication::font();
    font.setPointSize(9);
    QApplication::setFont(font);
    QString sheetPath;
    const QString referenceSheet = DemoStyle::loadReferenceSheet(parser.value(styleOption), &sheetPath);
    app.setStyleSheet(referenceSheet + QLatin1Char('\n') + DemoStyle::chromeSheet());

    const bool rendering = parser.isSet(screenshotOption) || parser.isSet(closeupsOption);
    if (sheetPath.isEmpty()) {
        std::fprintf(stderr, "signaltreelist_demo: reference style sheet not found (looked in %s); "
                             "the rows will have no dark looks\n",
                     qPrintable(DemoStyle::referenceSheetCandidates().join(QStringLiteral(", "))));
    }

    bool ok = true;
    if (parser.isSet(closeupsOption)) {
        bool scaleOk = false;
        int scale = parser.value(scaleOption).toInt(&scaleOk);
        if (!scaleOk || scale < 1 || scale > 8)
            scale = 2;
        ok = DemoCapture::renderCloseups(parser.value(closeupsOption), scale) && ok;
    }

    DemoWindow window;
    window.setEchoToStdout(rendering || parser.isSet(printLogOption));
    if (sheetPath.isEmpty()) {
        window.logNote(QStringLiteral("Reference style sheet not found: rows keep the plain look."));
    } else {
        const bool fromSources = parser.value(styleOption).isEmpty()
            && sheetPath == QFileInfo(DemoStyle::referenceSheetCandidates().value(0)).canonicalFilePath();
        window.logNote(QStringLiteral("Style sheet: %1 (%2)")
                           .arg(QFileInfo(sheetPath).fileName(),
                                fromSources ? QStringLiteral("source tree") : QDir::toNativeSeparators(QFileInfo(sheetPath).absolutePath())));
    }
    window.logNote(QStringLiteral("getSignalTreeListFrame(): %1")
                       .arg(window.list()->getSignalTreeListFrame()->objectName()));
    window.logNote(QStringLiteral("getItemSignalNode() answers for root 0 only: [0] gives root 0; "
                                  "[0, c] looks at child c under every root (the record of the last "
                                  "root that has one; true when some root lacks it)."));
    const QStringList room = parser.value(roomOption).split(QLatin1Char('x'));
    const int boards = room.value(0).toInt();
    const int inputs = room.value(1).toInt();
    if (parser.isSet(roomOption) && room.size() == 2 && boards > 0 && inputs >= 0)
        window.fillRoom(boards, inputs, !parser.isSet(closedOption));
    else
        window.fillFromDataSet();

    if (parser.isSet(screenshotOption))
        ok = DemoCapture::renderWindow(window, parser.value(screenshotOption)) && ok;
    if (rendering)
        return ok ? 0 : 1;

    window.show();
    return app.exec();
}
