// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "DemoStyle.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

QStringList DemoStyle::referenceSheetCandidates()
{
    QStringList candidates;
    candidates << QStringLiteral(SIGNALTREELIST_QSS_SOURCE_PATH);
    candidates << QDir(QCoreApplication::applicationDirPath())
                      .absoluteFilePath(QStringLiteral(SIGNALTREELIST_QSS_RELATIVE_PATH));
    candidates << QStringLiteral(SIGNALTREELIST_QSS_INSTALL_PATH);
    return candidates;
}

QString DemoStyle::loadReferenceSheet(const QString &path, QString *usedPath)
{
    const QStringList candidates = path.isEmpty() ? referenceSheetCandidates() : QStringList{path};
    for (const QString &candidate : candidates) {
        QFile file(candidate);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            continue;
        if (usedPath)
            *usedPath = QFileInfo(candidate).canonicalFilePath();
        return QString::fromUtf8(file.readAll());
    }
    if (usedPath)
        usedPath->clear();
    return QString();
}

QString DemoStyle::chromeSheet()
{
    // Palette: window rgb(36,38,40), panels rgb(48,50,56), raised rgb(79,84,92),
    // text rgb(230,230,230), secondary text rgb(152,153,155), accent orange
    // rgb(226,100,12).
    return QStringLiteral(
        "QMainWindow{background:rgb(36,38,40);}"
        "QMainWindow::separator{background:rgb(36,38,40);width:6px;height:6px;}"
        "QMenuBar{background:rgb(36,38,40);color:rgb(230,230,230);border-bottom:1px solid rgb(22,23,25);}"
        "QMenuBar::item{background:transparent;padding:4px 10px;}"
        "QMenuBar::item:selected{background:rgb(79,84,92);}"
        "QMenu{background:rgb(48,50,56);color:rgb(230,230,230);border:1px solid rgb(22,23,25);}"
        "QMenu::item{padding:5px 24px 5px 24px;}"
        "QMenu::item:selected{background:rgb(226,100,12);color:rgb(255,255,255);}"
        "QMenu::item:disabled{color:rgb(102,102,102);}"
        "QMenu::separator{height:1px;background:rgb(79,84,92);margin:4px 8px;}"
        "QToolBar#DemoToolBar{background:rgb(36,38,40);border:none;border-bottom:1px solid rgb(22,23,25);"
        "spacing:4px;padding:4px 6px;}"
        "QToolBar#DemoToolBar QToolButton{color:rgb(230,230,230);background:transparent;"
        "border:1px solid transparent;border-radius:3px;padding:3px 8px;}"
        "QToolBar#DemoToolBar QToolButton:hover{background:rgb(79,84,92);}"
        "QToolBar#DemoToolBar QToolButton:pressed{background:rgb(22,23,25);}"
        "QToolBar#DemoToolBar QToolButton:checked{border:1px solid rgb(226,100,12);color:rgb(226,100,12);}"
        "QToolBar#DemoToolBar QLabel{color:rgb(152,153,155);padding:0px 2px 0px 8px;}"
        "QToolBar#DemoToolBar QLineEdit{background:rgb(22,23,25);color:rgb(230,230,230);"
        "border:1px solid rgb(79,84,92);border-radius:3px;padding:2px 6px;"
        "selection-background-color:rgb(226,100,12);}"
        "QToolBar#DemoToolBar QLineEdit:focus{border:1px solid rgb(226,100,12);}"
        "QToolBar#DemoToolBar::separator{background:rgb(79,84,92);width:1px;margin:4px 6px;}"
        "QSplitter#DemoSplitter::handle{background:rgb(22,23,25);}"
        "QFrame#SignalPanel{background:rgb(48,50,56);border:none;}"
        "QFrame#SignalPanelHeader, QFrame#LogHeader{background:rgb(36,38,40);"
        "border-bottom:2px solid rgb(226,100,12);}"
        "QLabel#PanelTitle{color:rgb(230,230,230);font-weight:bold;}"
        "QLabel#PanelHint{color:rgb(152,153,155);}"
        "QFrame#LogPanel{background:rgb(36,38,40);}"
        "QPlainTextEdit#SignalLog{background:rgb(22,23,25);color:rgb(230,230,230);border:none;"
        "selection-background-color:rgb(226,100,12);}"
        "QPushButton#ClearLog{background:rgb(79,84,92);color:rgb(230,230,230);border:none;"
        "border-radius:3px;padding:3px 10px;}"
        "QPushButton#ClearLog:hover{background:rgb(226,100,12);}"
        "QStatusBar{background:rgb(36,38,40);color:rgb(152,153,155);border-top:1px solid rgb(22,23,25);}"
        "QStatusBar QLabel{color:rgb(152,153,155);padding:2px 10px;}"
        "QInputDialog{background:rgb(48,50,56);}"
        "QInputDialog QLabel{color:rgb(230,230,230);}"
        "QInputDialog QLineEdit{background:rgb(22,23,25);color:rgb(230,230,230);"
        "border:1px solid rgb(79,84,92);padding:2px 6px;}"
        "QInputDialog QPushButton{background:rgb(79,84,92);color:rgb(230,230,230);border:none;"
        "padding:4px 14px;border-radius:3px;}"
        "QInputDialog QPushButton:hover{background:rgb(226,100,12);}"
        "QToolTip{background:rgb(22,23,25);color:rgb(230,230,230);border:1px solid rgb(79,84,92);}");
}
