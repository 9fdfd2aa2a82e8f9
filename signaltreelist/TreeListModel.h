// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_TREELISTMODEL_H
#define SIGNALTREELIST_TREELISTMODEL_H

#include "st_NodeInfoSignal.h"

#include <QList>
#include <QMap>
#include <QObject>

/**
 * A plain data holder for the two-level tree: the root records and, beside
 * them, one list of child records per root. It mirrors the widget's
 * operations on data alone. Root 0 can be neither deleted nor modified, and
 * child rows are never removed through it: deliberate lower bounds.
 */
class TreeListModel : public QObject
{
    Q_OBJECT
public:
    explicit TreeListModel(QObject *parent = nullptr);
    ~TreeListModel() override;

    void insertRootItem(st_NodeInfoSignal node, int index);
    void insertRootItem(st_NodeInfoSignal node, QList<st_NodeInfoSignal> children, int index);
    void setChildItems(int index, QList<st_NodeInfoSignal> children);
    void updateTreeList(QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree);
    void deleteItem(QList<int> path);
    void deleteRootItem(int index);
    void modifyItemData(QList<int> path, st_NodeInfoSignal node);
    void modifyRootItem(int index, st_NodeInfoSignal node);
    void modifyChildItem(int root, int child, st_NodeInfoSignal node);

    /// Read access for hosts and tests: the root records in display order.
    const QList<st_NodeInfoSignal> &rootNodes() const;
    /// Read access: the child lists, entry i belongs to root i.
    const QList<QList<st_NodeInfoSignal>> &childNodes() const;

private:
    QList<st_NodeInfoSignal> m_lstRootNode;
    QList<QList<st_NodeInfoSignal>> m_lstChildNode;
};

#endif // SIGNALTREELIST_TREELISTMODEL_H
