// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_BENCH_ITEMWIDGETTREESUBJECT_H
#define SIGNALTREELIST_BENCH_ITEMWIDGETTREESUBJECT_H

#include "BenchSubject.h"

class QTreeWidget;
class QTreeWidgetItem;

/// Qt's QTreeWidget with a row widget (icon label and two text labels) put
/// on every item with setItemWidget.
class ItemWidgetTreeSubject : public BenchSubject
{
    Q_OBJECT
public:
    QString key() const override { return QStringLiteral("treewidgets"); }
    QString title() const override { return QStringLiteral("QTreeWidget + setItemWidget"); }

    void createEmpty() override;
    void fillBulk(const BenchContent &content) override;
    void fillOneByOne(const BenchContent &content) override;
    void setExpanded(int root, bool expanded) override;
    int groupCount() const override;
    QScrollBar *scrollBar() const override;
    QWidget *scrollViewport() const override;
    ClickTarget revealRow(int root, int child) override;

private:
    /// An empty group item with as many empty child items as the content has.
    QTreeWidgetItem *makeGroup(const BenchContent &content);
    /// Puts the row widgets on a group that is already in the tree.
    void attachRows(const BenchContent &content, int root, QTreeWidgetItem *group);

    QTreeWidget *m_pTree = nullptr;
};

#endif // SIGNALTREELIST_BENCH_ITEMWIDGETTREESUBJECT_H
