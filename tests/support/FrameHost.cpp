// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "FrameHost.h"

#include "DrawerControl.h"
#include "NodeFactory.h"
#include "RootItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"
#include "TreeText.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLayoutItem>
#include <QScrollArea>
#include <QSpacerItem>

namespace FrameHost {

using TreeText::rootName;

namespace {

// Every field of every record is set, each from the name or the source, so
// that a record that reaches the host can be told from any other.
const NodeFactory kNodes([](st_NodeInfoSignal &node) {
    const QString name = node.strNodeName.value(0);
    const QString source = node.strSourceName;
    node.nNodeData1 = Q_INT64_C(0x100000000) + qHash(name);
    node.nNodeData2 = -Q_INT64_C(0x200000000) - qHash(source);
    node.iSignalGroupNo = name.size();
    node.eInputSourceType = 3;
    node.iInputSourceNo = source.size() + 7;
    node.showOpBtn = QList<bool>{true, false, true};
});

} // namespace

st_NodeInfoSignal makeNode(const QString &name, const QString &source, int type)
{
    return kNodes.node({name}, source, type);
}

// Child records "<prefix>-0", "<prefix>-1", ... all of input source @p source.
QList<st_NodeInfoSignal> makeChildren(const QString &prefix, int count, const QString &source)
{
    return kNodes.children(prefix, count, source);
}

// Every field of a record as one text, so that a mismatch names the field.
QString describe(const st_NodeInfoSignal &n)
{
    QStringList buttons;
    for (bool b : n.showOpBtn)
        buttons << (b ? QStringLiteral("1") : QStringLiteral("0"));
    return QStringLiteral("name=[%1] source=\"%2\" data1=%3 online=%4 buttons=[%5] type=%6 "
                          "data2=%7 group=%8 inputType=%9")
               .arg(n.strNodeName.join(QLatin1Char('|')), n.strSourceName)
               .arg(n.nNodeData1)
               .arg(n.isOnline ? 1 : 0)
               .arg(buttons.join(QLatin1Char(',')))
               .arg(n.iType)
               .arg(n.nNodeData2)
               .arg(n.iSignalGroupNo)
               .arg(n.eInputSourceType)
           + QStringLiteral(" inputNo=%1").arg(n.iInputSourceNo);
}

bool isDefaultNode(const st_NodeInfoSignal &n)
{
    return n.strNodeName.isEmpty() && n.strSourceName.isEmpty() && n.nNodeData1 == 0 && !n.isOnline
        && n.showOpBtn.isEmpty() && n.iType == 0 && n.nNodeData2 == 0 && n.iSignalGroupNo == 0
        && n.eInputSourceType == 0 && n.iInputSourceNo == 0;
}

DrawerControl *Host::drawer(int i) const
{
    return frame->drawers().value(i);
}

QList<DrawerControl *> Host::drawers() const
{
    return frame->drawers();
}

std::unique_ptr<Host> makeHost()
{
    auto host = std::make_unique<Host>();
    host->parent = std::make_unique<QWidget>();
    host->parent->resize(420, 900);
    host->list = new SignalTreeList(host->parent.get());
    host->list->initControls();
    host->frame = qobject_cast<TreeListFrame *>(host->list->getSignalTreeListFrame());
    return host;
}

// ---- looking at drawers ---------------------------------------------------

QList<int> rootIndexes(TreeListFrame *frame)
{
    QList<int> out;
    for (DrawerControl *d : frame->drawers())
        out << d->rootIndex();
    return out;
}

QStringList rootIndexTexts(TreeListFrame *frame)
{
    QStringList out;
    for (DrawerControl *d : frame->drawers())
        out << d->rootItem()->getIndexText();
    return out;
}

QCheckBox *expandBox(DrawerControl *d)
{
    return d->rootItem()->findChild<QCheckBox *>();
}

bool upperHighlighted(DrawerControl *d)
{
    QLabel *upper = d->rootItem()->findChild<QLabel *>(QStringLiteral("m_qlUpper"));
    return upper && upper->property("isUpOnline").toBool();
}

QScrollArea *scrollAreaOf(TreeListFrame *frame)
{
    return frame->findChild<QScrollArea *>();
}

QBoxLayout *containerLayout(TreeListFrame *frame)
{
    QScrollArea *area = scrollAreaOf(frame);
    return area && area->widget() ? qobject_cast<QBoxLayout *>(area->widget()->layout()) : nullptr;
}

// Marker spacers that a test puts into the container layout are 1000 + n
// pixels wide; the stretch the container adds is an expanding spacer.
QSpacerItem *makeMarker(int n)
{
    return new QSpacerItem(1000 + n, 1, QSizePolicy::Fixed, QSizePolicy::Fixed);
}

// The container layout as tokens: a drawer by its root name, "S" for a
// stretch, "M<n>" for a marker.
QStringList layoutTokens(TreeListFrame *frame)
{
    QStringList tokens;
    QLayout *layout = containerLayout(frame);
    if (!layout)
        return QStringList{QStringLiteral("<no layout>")};
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (QWidget *w = item->widget()) {
            DrawerControl *d = qobject_cast<DrawerControl *>(w);
            tokens << (d ? rootName(d) : QStringLiteral("<widget>"));
        } else if (QSpacerItem *spacer = item->spacerItem()) {
            const int width = spacer->sizeHint().width();
            if (width >= 1000)
                tokens << QStringLiteral("M%1").arg(width - 1000);
            else if (spacer->expandingDirections() & Qt::Vertical)
                tokens << QStringLiteral("S");
            else
                tokens << QStringLiteral("<spacer>");
        } else {
            tokens << QStringLiteral("<item>");
        }
    }
    return tokens;
}

// Lets a queued call that is already posted run, and nothing more.
void runPostedCalls()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

// ---- the grouping fixture -----------------------------------------------------

// Root 0 "Source A" (plain source, iType 0) with A-0..A-2 from source "A";
// root 1 "Group B" (group, iType 1, source "B") with B-0, B-1;
// root 2 "Source C" (iType 0) with C-0, C-1 from source "C";
// root 3 "Other D" (iType 2, source "D") with D-0.
void addGroupingFixture(SignalTreeList *list)
{
    st_NodeInfoSignal a = makeNode(QStringLiteral("Source A"), QStringLiteral("A"), 0);
    st_NodeInfoSignal b = makeNode(QStringLiteral("Group B"), QStringLiteral("B"), 1);
    st_NodeInfoSignal c = makeNode(QStringLiteral("Source C"), QStringLiteral("C"), 0);
    st_NodeInfoSignal d = makeNode(QStringLiteral("Other D"), QStringLiteral("D"), 2);
    list->addRootItem(a, makeChildren(QStringLiteral("A"), 3, QStringLiteral("A")));
    list->addRootItem(b, makeChildren(QStringLiteral("B"), 2, QStringLiteral("B")));
    list->addRootItem(c, makeChildren(QStringLiteral("C"), 2, QStringLiteral("C")));
    list->addRootItem(d, makeChildren(QStringLiteral("D"), 1, QStringLiteral("D")));
}

// Plays the receiving drawer's drop and then the completion notice.
void dropAndComplete(Host *host, const QList<int> &src, const QList<int> &dst)
{
    DrawerControl *receiver = host->drawer(0);
    emit receiver->signal_OnItemsIsDraged(src, dst);
    emit receiver->signal_OnCompleteDraged();
}

} // namespace FrameHost
