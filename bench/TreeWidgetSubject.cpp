// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "TreeWidgetSubject.h"

#include "BenchContent.h"

#include <QHBoxLayout>
#include <QScrollBar>
#include <QTreeWidget>

void TreeWidgetSubject::createEmpty()
{
    m_pWindow = createHostWindow();
    QHBoxLayout *layout = new QHBoxLayout(m_pWindow);
    layout->setContentsMargins(0, 0, 0, 0);
    m_pTree = new QTreeWidget(m_pWindow);
    m_pTree->setHeaderHidden(true);
    m_pTree->setColumnCount(1);
    m_pTree->setIconSize(QSize(33, 20));
    layout->addWidget(m_pTree);
    connect(m_pTree, &QTreeWidget::itemPressed, this, &BenchSubject::clicked);
}

QIcon TreeWidgetSubject::icon(const QString &path)
{
    // One icon per picture, as a host would keep them.
    auto it = m_icons.find(path);
    if (it == m_icons.end())
        it = m_icons.insert(path, QIcon(path));
    return it.value();
}

QTreeWidgetItem *TreeWidgetSubject::makeGroup(const BenchContent &content, int root)
{
    QTreeWidgetItem *group = new QTreeWidgetItem(
        QStringList() << BenchContent::upperText(content.rootNode(root)));
    QList<QTreeWidgetItem *> kids;
    for (const st_NodeInfoSignal &node : content.childNodes(root)) {
        QTreeWidgetItem *item = new QTreeWidgetItem(
            QStringList() << BenchContent::upperText(node) + QLatin1Char('\n')
                                 + BenchContent::lowerText(node));
        item->setIcon(0, icon(BenchContent::picturePath(node)));
        item->setToolTip(0, node.strSourceName);
        kids.append(item);
    }
    group->addChildren(kids);
    return group;
}

void TreeWidgetSubject::fillBulk(const BenchContent &content)
{
    QList<QTreeWidgetItem *> groups;
    for (int r = 0; r < content.roots(); ++r)
        groups.append(makeGroup(content, r));
    m_pTree->addTopLevelItems(groups);
}

void TreeWidgetSubject::fillOneByOne(const BenchContent &content)
{
    for (int r = 0; r < content.roots(); ++r)
        m_pTree->addTopLevelItem(makeGroup(content, r));
}

void TreeWidgetSubject::setExpanded(int root, bool expanded)
{
    if (QTreeWidgetItem *item = m_pTree->topLevelItem(root))
        item->setExpanded(expanded);
}

int TreeWidgetSubject::groupCount() const
{
    return m_pTree->topLevelItemCount();
}

QScrollBar *TreeWidgetSubject::scrollBar() const
{
    return m_pTree->verticalScrollBar();
}

QWidget *TreeWidgetSubject::scrollViewport() const
{
    return m_pTree->viewport();
}

BenchSubject::ClickTarget TreeWidgetSubject::revealRow(int root, int child)
{
    ClickTarget target;
    QTreeWidgetItem *group = m_pTree->topLevelItem(root);
    QTreeWidgetItem *item = group ? group->child(child) : nullptr;
    if (!item)
        return target;
    m_pTree->scrollToItem(item);
    drainEvents();
    target.widget = m_pTree->viewport();
    target.pos = m_pTree->visualItemRect(item).center();
    return target;
}
