// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_BENCH_TREEWIDGETSUBJECT_H
#define SIGNALTREELIST_BENCH_TREEWIDGETSUBJECT_H

#include "BenchSubject.h"

#include <QHash>
#include <QIcon>

class QTreeWidget;
class QTreeWidgetItem;

/// Qt's QTreeWidget with one item per row (icon and two text lines), no
/// widgets in the rows.
class TreeWidgetSubject : public BenchSubject
{
    Q_OBJECT
public:
    QString key() const override { return QStringLiteral("tree"); }
    QString title() const override { return QStringLiteral("QTreeWidget items"); }

    void createEmpty() override;
    void fillBulk(const BenchContent &content) override;
    void fillOneByOne(const BenchContent &content) override;
    void setExpanded(int root, bool expanded) override;
    int groupCount() const override;
    QScrollBar *scrollBar() const override;
    QWidget *scrollViewport() const override;
    ClickTarget revealRow(int root, int child) override;

private:
    QTreeWidgetItem *makeGroup(const BenchContent &content, int root);
    QIcon icon(const QString &path);

    QTreeWidget *m_pTree = nullptr;
    QHash<QString, QIcon> m_icons;
};

#endif // SIGNALTREELIST_BENCH_TREEWIDGETSUBJECT_H
