// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "DrawerProbe.h"

#include "BuiltRows.h"
#include "DrawerControl.h"
#include "MessageCapture.h"
#include "NodeFactory.h"
#include "SecondItem.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QWidget>

namespace DrawerProbe {

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

} // namespace DrawerProbe
