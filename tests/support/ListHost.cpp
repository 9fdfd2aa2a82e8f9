// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "ListHost.h"

#include "BuiltRows.h"
#include "DrawerControl.h"
#include "NodeFactory.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"
#include "TreeText.h"

namespace ListHost {

namespace {

// Every record carries a host value made from its name.
const NodeFactory kNodes([](st_NodeInfoSignal &node) {
    node.nNodeData1 = Q_INT64_C(0x300000000) + qHash(node.strNodeName.value(0));
});

} // namespace

st_NodeInfoSignal makeNode(const QString &name, const QString &source, int type, int inputNo)
{
    st_NodeInfoSignal node = kNodes.node({name}, source, type);
    node.iInputSourceNo = inputNo;
    return node;
}

QList<st_NodeInfoSignal> makeChildren(const QString &prefix, int count, const QString &source)
{
    return kNodes.children(prefix, count, source);
}

bool isDefaultNode(const st_NodeInfoSignal &n)
{
    return n.strNodeName.isEmpty() && n.strSourceName.isEmpty() && !n.strSourceName.isNull()
        && n.nNodeData1 == 0 && !n.isOnline && n.showOpBtn.isEmpty() && n.iType == 0 && n.nNodeData2 == 0
        && n.iSignalGroupNo == 0 && n.eInputSourceType == 0 && n.iInputSourceNo == 0;
}

TreeListFrame *frameOf(SignalTreeList *list)
{
    return list ? qobject_cast<TreeListFrame *>(list->getSignalTreeListFrame()) : nullptr;
}

DrawerControl *Host::drawer(int i) const
{
    return frame()->drawers().value(i);
}

std::unique_ptr<Host> makeHost(bool init)
{
    auto host = std::make_unique<Host>();
    host->parent = std::make_unique<QWidget>();
    host->parent->resize(400, 600);
    host->list = new SignalTreeList(host->parent.get());
    if (init)
        host->list->initControls();
    return host;
}

void addRoots(SignalTreeList *list, int count, int children)
{
    for (int i = 0; i < count; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        st_NodeInfoSignal node = makeNode(name, QStringLiteral("S%1").arg(i));
        list->addRootItem(node, makeChildren(name, children, QStringLiteral("S%1").arg(i)));
    }
}

int secondItemCount(QWidget *parent)
{
    for (DrawerControl *drawer : listDrawers(parent))
        builtRows(drawer);
    return listRowWidgets(parent).size();
}

QStringList typedTexts(const QVariantList &values)
{
    QStringList out;
    for (const QVariant &v : values) {
        const QString text = v.userType() == qMetaTypeId<QList<int>>()
            ? QLatin1Char('[') + TreeText::pathText(v.value<QList<int>>()) + QLatin1Char(']')
            : v.toString();
        out << QString::fromLatin1(v.typeName()) + QLatin1Char(':') + text;
    }
    return out;
}

} // namespace ListHost
