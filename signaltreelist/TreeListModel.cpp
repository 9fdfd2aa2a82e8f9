// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "TreeListModel.h"

TreeListModel::TreeListModel(QObject *parent)
    : QObject(parent)
{
}

TreeListModel::~TreeListModel()
{
    m_lstRootNode.clear();
    m_lstChildNode.clear();
}

void TreeListModel::insertRootItem(st_NodeInfoSignal node, int index)
{
    insertRootItem(node, QList<st_NodeInfoSignal>(), index);
}

void TreeListModel::insertRootItem(st_NodeInfoSignal node, QList<st_NodeInfoSignal> children,
                                   int index)
{
    // QList::insert asserts on an index outside 0..count; bad input is ignored.
    if (index < 0 || index > m_lstRootNode.count() || index > m_lstChildNode.count())
        return;
    m_lstRootNode.insert(index, node);
    m_lstChildNode.insert(index, children);
}

void TreeListModel::setChildItems(int index, QList<st_NodeInfoSignal> children)
{
    for (int i = 0; i < m_lstChildNode.count(); ++i) {
        if (i == index) {
            m_lstChildNode[i] = children;
            return;
        }
    }
}

void TreeListModel::updateTreeList(QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree)
{
    m_lstRootNode.clear();
    m_lstChildNode.clear();
    for (auto it = tree.constBegin(); it != tree.constEnd(); ++it) {
        m_lstRootNode.append(it.key());
        m_lstChildNode.append(it.value());
    }
}

void TreeListModel::deleteItem(QList<int> path)
{
    if (path.count() == 1) {
        deleteRootItem(path.at(0));
    } else if (path.count() == 2) {
        // Child rows are never removed through the model: the indices are
        // read and nothing else happens.
        const int root = path.at(0);
        const int child = path.last();
        Q_UNUSED(root)
        Q_UNUSED(child)
    }
}

void TreeListModel::deleteRootItem(int index)
{
    // Root 0 is deliberately out of reach.
    if (index < 1)
        return;
    if (index < m_lstRootNode.count())
        m_lstRootNode.removeAt(index);
    if (index < m_lstChildNode.count())
        m_lstChildNode.removeAt(index);
}

void TreeListModel::modifyItemData(QList<int> path, st_NodeInfoSignal node)
{
    if (path.count() == 1)
        modifyRootItem(path.at(0), node);
    else if (path.count() == 2)
        modifyChildItem(path.at(0), path.last(), node);
}

void TreeListModel::modifyRootItem(int index, st_NodeInfoSignal node)
{
    // Root 0 is deliberately out of reach.
    if (index < 1)
        return;
    // Not "count < index + 1": index + 1 overflows for INT_MAX.
    if (index >= m_lstRootNode.count())
        return;
    m_lstRootNode[index] = node;
}

void TreeListModel::modifyChildItem(int root, int child, st_NodeInfoSignal node)
{
    // A zero root or child index is deliberately ignored.
    if (root < 1 || child < 1)
        return;
    if (root >= m_lstChildNode.count())
        return;
    QList<st_NodeInfoSignal> &children = m_lstChildNode[root];
    if (child < children.count())
        children[child] = node;
}

const QList<st_NodeInfoSignal> &TreeListModel::rootNodes() const
{
    return m_lstRootNode;
}

const QList<QList<st_NodeInfoSignal>> &TreeListModel::childNodes() const
{
    return m_lstChildNode;
}
