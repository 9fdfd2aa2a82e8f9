// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "AccessibleHost.h"

#include "BuiltRows.h"
#include "DrawerControl.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"

#include <QTest>

TreeListFrame *AccessibleHost::frame() const
{
    return qobject_cast<TreeListFrame *>(list->getSignalTreeListFrame());
}

DrawerControl *AccessibleHost::drawer(int i) const
{
    return frame()->drawers().value(i);
}

QAccessibleInterface *AccessibleHost::tree() const
{
    return QAccessible::queryAccessibleInterface(frame());
}

QAccessibleInterface *AccessibleHost::row(const QString &name) const
{
    for (DrawerControl *d : frame()->drawers()) {
        if (d->rootItem()->getNodeInfo().strNodeName.value(0) == name)
            return QAccessible::queryAccessibleInterface(d->rootItem());
        for (SecondItem *r : builtRows(d)) {
            if (r->getNodeInfo().strNodeName.value(0) == name)
                return QAccessible::queryAccessibleInterface(r);
        }
    }
    return nullptr;
}

std::unique_ptr<AccessibleHost> AccessibleHost::make()
{
    const NodeFactory nodes;
    auto host = std::make_unique<AccessibleHost>();
    host->window.reset(new QWidget);
    host->window->resize(360, 500);
    host->list = new SignalTreeList(host->window.get());
    host->list->initControls();
    for (int i = 0; i < 3; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        st_NodeInfoSignal root =
            nodes.node(i == 2 ? QStringList{name, QStringLiteral("second line")} : QStringList{name},
                       QStringLiteral("S%1").arg(i));
        QList<st_NodeInfoSignal> children = nodes.children(name, 3, QStringLiteral("S%1").arg(i));
        children[1].isOnline = i != 1;
        host->list->addRootItem(root, children);
    }
    host->list->setIsShowChildItem(0, true);
    host->window->show();
    host->window->activateWindow();
    if (!QTest::qWaitForWindowActive(host->window.get()))
        return nullptr;
    return host;
}

AccessibleEvents *AccessibleEvents::s_current = nullptr;

AccessibleEvents::AccessibleEvents()
{
    s_current = this;
    QAccessible::setActive(true);
    m_previous = QAccessible::installUpdateHandler(&AccessibleEvents::handle);
}

AccessibleEvents::~AccessibleEvents()
{
    QAccessible::installUpdateHandler(m_previous);
    s_current = nullptr;
}

void AccessibleEvents::handle(QAccessibleEvent *event)
{
    if (!s_current)
        return;
    QString name;
    if (auto *root = qobject_cast<RootItem *>(event->object()))
        name = root->getNodeInfo().strNodeName.value(0);
    else if (auto *row = qobject_cast<SecondItem *>(event->object()))
        name = row->getNodeInfo().strNodeName.value(0);
    else
        return; // only the rows' events are of interest here
    const char *type = event->type() == QAccessible::Focus ? "Focus"
        : event->type() == QAccessible::Selection          ? "Selection"
        : event->type() == QAccessible::SelectionAdd       ? "SelectionAdd"
        : event->type() == QAccessible::SelectionRemove    ? "SelectionRemove"
        : event->type() == QAccessible::StateChanged       ? "StateChanged"
                                                           : nullptr;
    if (!type)
        return; // Qt's own (shown, hidden, created...): not the library's to raise
    s_current->events << QStringLiteral("%1 %2").arg(QLatin1String(type), name);
}
