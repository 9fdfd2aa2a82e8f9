// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "ItemWidgetTreeSubject.h"

#include "BenchContent.h"
#include "BenchRowWidget.h"

#include <QHBoxLayout>
#include <QScrollBar>
#include <QTreeWidget>

void ItemWidgetTreeSubject::createEmpty()
{
    m_pWindow = createHostWindow();
    QHBoxLayout *layout = new QHBoxLayout(m_pWindow);
    layout->setContentsMargins(0, 0, 0, 0);
    m_pTree = new QTreeWidget(m_pWindow);
    m_pTree->setHeaderHidden(true);
    m_pTree->setColumnCount(1);
    layout->addWidget(m_pTree);
}

QTreeWidgetItem *ItemWidgetTreeSubject::makeGroup(const BenchContent &content)
{
    QTreeWidgetItem *group = new QTreeWidgetItem();
    QList<QTreeWidgetItem *> kids;
    for (int c = 0; c < content.children(); ++c)
        kids.append(new QTreeWidgetItem());
    group->addChildren(kids);
    return group;
}

void ItemWidgetTreeSubject::attachRows(const BenchContent &content, int root,
                                       QTreeWidgetItem *group)
{
    const st_NodeInfoSignal &rootNode = content.rootNode(root);
    m_pTree->setItemWidget(group, 0,
                           createRow(QString(), BenchContent::upperText(rootNode), QString(), nullptr));
    const QList<st_NodeInfoSignal> &kids = content.childNodes(root);
    for (int c = 0; c < kids.size(); ++c) {
        const st_NodeInfoSignal &node = kids.at(c);
        BenchRowWidget *row = createRow(BenchContent::picturePath(node), BenchContent::upperText(node),
                                        BenchContent::lowerText(node), nullptr);
        row->setToolTip(node.strSourceName);
        m_pTree->setItemWidget(group->child(c), 0, row);
    }
}

void ItemWidgetTreeSubject::fillBulk(const BenchContent &content)
{
    QList<QTreeWidgetItem *> groups;
    for (int r = 0; r < content.roots(); ++r)
        groups.append(makeGroup(content));
    const int first = m_pTree->topLevelItemCount();
    m_pTree->addTopLevelItems(groups);
    for (int r = 0; r < groups.size(); ++r)
        attachRows(content, r, m_pTree->topLevelItem(first + r));
}

void ItemWidgetTreeSubject::fillOneByOne(const BenchContent &content)
{
    for (int r = 0; r < content.roots(); ++r) {
        QTreeWidgetItem *group = makeGroup(content);
        m_pTree->addTopLevelItem(group);
        attachRows(content, r, group);
    }
}

void ItemWidgetTreeSubject::setExpanded(int root, bool expanded)
{
    if (QTreeWidgetItem *item = m_pTree->topLevelItem(root))
        item->setExpanded(expanded);
}

int ItemWidgetTreeSubject::groupCount() const
{
    return m_pTree->topLevelItemCount();
}

QScrollBar *ItemWidgetTreeSubject::scrollBar() const
{
    return m_pTree->verticalScrollBar();
}

QWidget *ItemWidgetTreeSubject::scrollViewport() const
{
    return m_pTree->viewport();
}

BenchSubject::ClickTarget ItemWidgetTreeSubject::revealRow(int root, int child)
{
    ClickTarget target;
    QTreeWidgetItem *group = m_pTree->topLevelItem(root);
    QTreeWidgetItem *item = group ? group->child(child) : nullptr;
    QWidget *row = item ? m_pTree->itemWidget(item, 0) : nullptr;
    if (!row)
        return target;
    m_pTree->scrollToItem(item);
    drainEvents();
    target.widget = row;
    target.pos = QPoint(row->width() - 4, 4);
    return target;
}
