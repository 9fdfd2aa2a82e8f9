// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "DrawerProbe.h"

#include "BuiltRows.h"
#include "DragDriver.h"
#include "DrawerControl.h"
#include "MessageCapture.h"
#include "NodeFactory.h"
#include "RootItem.h"
#include "SecondItem.h"

#include <QCoreApplication>
#include <QDrag>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <QWindow>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QWidget>

namespace DrawerProbe {

using DragDriver::moveAndRelease;

st_NodeInfoSignal makeNode(const QStringList &names, const QString &source, int type)
{
    return NodeFactory().node(names, source, type);
}

QList<st_NodeInfoSignal> childNodes(int count, const QString &prefix, int first)
{
    QList<st_NodeInfoSignal> nodes;
    for (int i = first; i < first + count; ++i) {
        st_NodeInfoSignal node = makeNode({prefix + QString::number(i), QStringLiteral("line2")},
                                          QStringLiteral("Source%1").arg(i), i % 19);
        node.iInputSourceNo = 100 + i;
        nodes << node;
    }
    return nodes;
}

bool sameRecord(const st_NodeInfoSignal &a, const st_NodeInfoSignal &b)
{
    return a.strNodeName == b.strNodeName && a.strSourceName == b.strSourceName
        && a.nNodeData1 == b.nNodeData1 && a.isOnline == b.isOnline && a.showOpBtn == b.showOpBtn
        && a.iType == b.iType && a.nNodeData2 == b.nNodeData2
        && a.iSignalGroupNo == b.iSignalGroupNo && a.eInputSourceType == b.eInputSourceType
        && a.iInputSourceNo == b.iInputSourceNo;
}

DrawerControl *buildDrawer(QWidget *parent, int rootIndex, const st_NodeInfoSignal &root,
                           const QList<st_NodeInfoSignal> &children)
{
    auto *drawer = new DrawerControl(parent);
    drawer->initRootItem(root.iType == 0 ? 1 : 0, rootIndex);
    drawer->modifyRootItemData(root);
    if (!children.isEmpty())
        drawer->addSecondItems(children);
    return drawer;
}

DrawerControl *buildDrawer(QWidget *parent, int rootIndex, int childCount)
{
    return buildDrawer(parent, rootIndex,
                       makeNode({QStringLiteral("Root%1").arg(rootIndex)}, QString(), 0),
                       childNodes(childCount));
}

QString lookOf(QObject *row)
{
    return row->property("isSecondItem").toString();
}

QStringList looksOf(DrawerControl *drawer)
{
    QStringList looks;
    const auto rows = builtRows(drawer);
    for (SecondItem *row : rows)
        looks << lookOf(row);
    return looks;
}

QStringList looksWithPressed(int count, int pressed)
{
    QStringList looks;
    for (int i = 0; i < count; ++i)
        looks << QString::fromLatin1(i == pressed ? kPressLook : kNormalLook);
    return looks;
}

void pressWidget(QWidget *widget)
{
    const QPoint pos = widget->rect().center();
    QMouseEvent event(QEvent::MouseButtonPress, pos, widget->mapTo(widget->window(), pos),
                      widget->mapToGlobal(pos), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

QStringList drawerLines(const MessageCapture &log)
{
    return log.linesStartingWith(QStringLiteral("[Tarn]::DrawerControl::"));
}

QList<int> intsOf(const QVariant &v)
{
    return v.value<QList<int>>();
}

bool realDragAvailable()
{
    return QGuiApplication::platformName() == QLatin1String("minimal");
}

void askForFonts()
{
    if (qgetenv("QT_QPA_PLATFORM") == "minimal")
        qputenv("QT_QPA_PLATFORM", "minimal:enable_fonts");
}

QPoint rowCentre(DrawerControl *drawer, int i)
{
    SecondItem *row = builtRows(drawer).at(i);
    return row->mapTo(drawer, row->rect().center());
}

QPoint rootCentre(DrawerControl *drawer)
{
    return drawer->rootItem()->mapTo(drawer, drawer->rootItem()->rect().center());
}

QList<QRect> rowRects(DrawerControl *drawer)
{
    QList<QRect> rects;
    const auto rows = builtRows(drawer);
    for (SecondItem *row : rows)
        rects << QRect(row->mapTo(drawer, QPoint(0, 0)), row->size());
    return rects;
}

bool onAnyRow(DrawerControl *drawer, const QPoint &p)
{
    const auto rects = rowRects(drawer);
    for (const QRect &r : rects) {
        if (r.contains(p))
            return true;
    }
    return false;
}

QPoint gapBelowRow(DrawerControl *drawer, int i)
{
    const QList<QRect> rects = rowRects(drawer);
    const int y = (rects.at(i).bottom() + rects.at(i + 1).top()) / 2 + 1;
    return QPoint(rects.at(i).left() + 20, y);
}

QPoint marginBesideRow(DrawerControl *drawer, int i)
{
    const QPoint centre = rowCentre(drawer, i);
    const int containerLeft = drawer->childContainer()->mapTo(drawer, QPoint(0, 0)).x();
    return QPoint(containerLeft + 12, centre.y());
}

QDrag *textDrag(QObject *source, const QString &text)
{
    auto *drag = new QDrag(source);
    auto *mime = new QMimeData;
    mime->setText(text);
    drag->setMimeData(mime);
    QPixmap pm(10, 10);
    pm.fill(Qt::black);
    drag->setPixmap(pm);
    return drag;
}

Qt::DropAction execReleasedAt(QDrag *drag, QWindow *window, const QPoint &global, bool *ran)
{
    QObject guard; // dropping it cancels the timer when no drag ran
    QTimer::singleShot(0, &guard, [&] {
        *ran = true;
        moveAndRelease(window, global);
    });
    return drag->exec(Qt::MoveAction);
}

QImage expectedDragImage(const QString &caption, qreal ratio)
{
    QPixmap picture(QStringLiteral(":/rootitem/resource/rootitem/rootitem_drag_tip_new.png"));
    if (ratio > 1.0) {
        QPixmap sharp(picture.size() * ratio);
        sharp.setDevicePixelRatio(ratio);
        sharp.fill(Qt::transparent);
        QPainter scaler(&sharp);
        scaler.setRenderHint(QPainter::SmoothPixmapTransform);
        scaler.drawPixmap(QRectF(0, 0, picture.width(), picture.height()), picture, QRectF(picture.rect()));
        scaler.end();
        picture = sharp;
    }
    QPainter painter(&picture);
    painter.setFont(QFont(QStringLiteral("Arial"), 9, QFont::Normal, false)); // weight 50 on Qt 5
    painter.setPen(QPen(QBrush(Qt::white, Qt::SolidPattern), 1.0, Qt::SolidLine, Qt::SquareCap,
                        Qt::BevelJoin));
    painter.drawText(QRectF(25.0, 7.0, 100.0, 18.0), caption, QTextOption());
    painter.end();
    return picture.toImage();
}

} // namespace DrawerProbe
