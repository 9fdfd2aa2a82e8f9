// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "st_NodeInfoSignal.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <Qt>

class DrawerControl;
class QDrag;
class QImage;
class QPoint;
class QRect;
class QWindow;
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

// A point of @p drawer (drawer coordinates) in the middle of child row @p i.
QPoint rowCentre(DrawerControl *drawer, int i);
QPoint rootCentre(DrawerControl *drawer);
// The drawer-coordinate rectangle of every child row.
QList<QRect> rowRects(DrawerControl *drawer);
bool onAnyRow(DrawerControl *drawer, const QPoint &p);
// A point between child rows @p i and @p i + 1, left part of the rows.
QPoint gapBelowRow(DrawerControl *drawer, int i);
// A point in the container's left margin, beside child row @p i.
QPoint marginBesideRow(DrawerControl *drawer, int i);

// A drag from @p source that carries @p text and a 10 x 10 black picture,
// not started yet.
QDrag *textDrag(QObject *source, const QString &text);
// Runs @p drag as a move and releases it at @p global over @p window from a
// timer armed before the drag starts; *ran tells whether that timer fired.
Qt::DropAction execReleasedAt(QDrag *drag, QWindow *window, const QPoint &global, bool *ran);
// The drag picture as the drawer is to paint it, built here independently:
// at a screen ratio above 1 the picture is drawn scaled into a pixmap of that
// ratio and the caption painted over it.
QImage expectedDragImage(const QString &caption, qreal ratio = 1.0);

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
