// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "AccessibleHost.h"

#include "AccessibleRows.h"
#include "DrawerControl.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"

#include <QElapsedTimer>
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
        if (d->getRootNodeInfo().strNodeName.value(0) == name)
            return AccessibleRows::interfaceFor(RowRef::root(d));
        for (int c = 0; c < d->rowCount(); ++c) {
            if (d->rowRecord(c).strNodeName.value(0) == name)
                return AccessibleRows::interfaceFor(RowRef::child(d, c));
        }
    }
    return nullptr;
}

QWidget *AccessibleHost::widgetOf(QAccessibleInterface *iface)
{
    return ShownRows::realise(AccessibleRows::rowOf(iface));
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
    const RowRef row = AccessibleRows::rowOf(event->accessibleInterface());
    if (!row.exists())
        return; // only the rows' events are of interest here
    const QString name = ShownRows::record(row).strNodeName.value(0);
    const char *type = event->type() == QAccessible::Focus ? "Focus"
        : event->type() == QAccessible::Selection          ? "Selection"
        : event->type() == QAccessible::SelectionAdd       ? "SelectionAdd"
        : event->type() == QAccessible::SelectionRemove    ? "SelectionRemove"
        : event->type() == QAccessible::StateChanged       ? "StateChanged"
        : event->type() == QAccessible::DescriptionChanged ? "DescriptionChanged"
                                                           : nullptr;
    if (!type)
        return; // Qt's own (shown, hidden, created...): not the library's to raise
    s_current->events << QStringLiteral("%1 %2").arg(QLatin1String(type), name);
}

bool waitForLiveAccessibility()
{
    static bool waited = false;
    QElapsedTimer wait;
    wait.start();
    while (!waited && !QAccessible::isActive() && wait.elapsed() < 1000)
        QTest::qWait(20);
    waited = true;
    return QAccessible::isActive();
}
