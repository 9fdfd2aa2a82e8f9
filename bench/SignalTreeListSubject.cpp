// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "SignalTreeListSubject.h"

#include "BenchContent.h"

#include <SignalTreeList.h>

#include <QLayout>
#include <QScrollArea>
#include <QScrollBar>

void SignalTreeListSubject::createEmpty()
{
    m_pWindow = createHostWindow();
    m_pList = new SignalTreeList(m_pWindow);
    m_pList->initControls();
    m_pScrollArea = m_pWindow->findChild<QScrollArea *>();
    m_iRoots = 0;
    connect(m_pList, &SignalTreeList::signal_OnCurrentItemClicked, this, &BenchSubject::clicked);
}

void SignalTreeListSubject::fillBulk(const BenchContent &content)
{
    m_pList->updateTreeList(content.map());
    m_iRoots += content.roots();
}

void SignalTreeListSubject::fillOneByOne(const BenchContent &content)
{
    for (int r = 0; r < content.roots(); ++r) {
        st_NodeInfoSignal root = content.rootNode(r);
        m_pList->addRootItem(root, content.childNodes(r));
    }
    m_iRoots += content.roots();
}

void SignalTreeListSubject::setExpanded(int root, bool expanded)
{
    m_pList->setIsShowChildItem(root, expanded);
}

int SignalTreeListSubject::groupCount() const
{
    return m_iRoots;
}

QScrollBar *SignalTreeListSubject::scrollBar() const
{
    return m_pScrollArea->verticalScrollBar();
}

QWidget *SignalTreeListSubject::scrollViewport() const
{
    return m_pScrollArea->viewport();
}

QFrame *SignalTreeListSubject::childRow(int root, int child) const
{
    // Drawers sit in the scrolled container's layout in root order; each
    // drawer's child rows are children of its "DrawerContainer" frame, in
    // child order.
    QLayout *drawers = m_pScrollArea->widget()->layout();
    QLayoutItem *item = drawers ? drawers->itemAt(root) : nullptr;
    QWidget *drawer = item ? item->widget() : nullptr;
    if (!drawer)
        return nullptr;
    QFrame *container = drawer->findChild<QFrame *>(QStringLiteral("DrawerContainer"),
                                                    Qt::FindDirectChildrenOnly);
    if (!container)
        return nullptr;
    const QList<QFrame *> rows = container->findChildren<QFrame *>(
        QStringLiteral("SignalSecondItem"), Qt::FindDirectChildrenOnly);
    return rows.value(child);
}

BenchSubject::ClickTarget SignalTreeListSubject::revealRow(int root, int child)
{
    ClickTarget target;
    QFrame *row = childRow(root, child);
    if (!row)
        return target;
    m_pScrollArea->ensureWidgetVisible(row);
    drainEvents();
    target.widget = row;
    // Top right corner: no label there, and the hover buttons are hidden.
    target.pos = QPoint(row->width() - 4, 4);
    return target;
}
