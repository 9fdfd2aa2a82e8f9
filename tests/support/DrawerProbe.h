// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "st_NodeInfoSignal.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

class DrawerControl;
class MessageCapture;
class QObject;
class QWidget;

// Helpers of the drawer's tests.
namespace DrawerProbe {

constexpr const char *kPressLook = "press";
constexpr const char *kNormalLook = "normal";

st_NodeInfoSignal makeNode(const QStringList &names, const QString &source = QString(), int type = 0);
// Child records "<prefix><first>" ... with a second line and a source name.
QList<st_NodeInfoSignal> childNodes(int count, const QString &prefix = QStringLiteral("Sig"), int first = 0);
// Every field equal.
bool sameRecord(const st_NodeInfoSignal &a, const st_NodeInfoSignal &b);

// Builds a drawer the way the tree container does: root row (item type 1
// for a root record of iType 0, else 0), the root record, then children.
DrawerControl *buildDrawer(QWidget *parent, int rootIndex, const st_NodeInfoSignal &root,
                           const QList<st_NodeInfoSignal> &children);
DrawerControl *buildDrawer(QWidget *parent, int rootIndex, int childCount);

QString lookOf(QObject *row);
QStringList looksOf(DrawerControl *drawer);
// Looks with exactly row @p pressed in the press look (none if out of range).
QStringList looksWithPressed(int count, int pressed);

// A left press at the middle of @p widget, sent to it.
void pressWidget(QWidget *widget);
// The drawer's own trace lines among the messages @p log collected.
QStringList drawerLines(const MessageCapture &log);
QList<int> intsOf(const QVariant &v);
// Whether QDrag::exec really runs (the minimal platform's in-process drag).
bool realDragAvailable();

// The minimal platform registers no fonts unless asked to; the drag caption
// is compared glyph for glyph and row texts are measured, so ask for the
// system fonts there.
void askForFonts();

} // namespace DrawerProbe

#define DRAWER_TEST_MAIN(TestClass)                                                                \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        DrawerProbe::askForFonts();                                                                \
        QApplication app(argc, argv);                                                              \
        TestClass test;                                                                            \
        QTEST_SET_MAIN_SOURCE_PATH                                                                 \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
