// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_BENCH_SIGNALTREELISTSUBJECT_H
#define SIGNALTREELIST_BENCH_SIGNALTREELISTSUBJECT_H

#include "BenchSubject.h"

class QFrame;
class QScrollArea;
class SignalTreeList;

/// The library's control, driven through its exported interface only.
class SignalTreeListSubject : public BenchSubject
{
    Q_OBJECT
public:
    QString key() const override { return QStringLiteral("stl"); }
    QString title() const override { return QStringLiteral("SignalTreeList"); }

    void createEmpty() override;
    void fillBulk(const BenchContent &content) override;
    void fillOneByOne(const BenchContent &content) override;
    void setExpanded(int root, bool expanded) override;
    int groupCount() const override;
    QScrollBar *scrollBar() const override;
    QWidget *scrollViewport() const override;
    ClickTarget revealRow(int root, int child) override;

private:
    /// Child row @p child of root row @p root, found through the widget tree.
    QFrame *childRow(int root, int child) const;

    SignalTreeList *m_pList = nullptr;
    QScrollArea *m_pScrollArea = nullptr;
    int m_iRoots = 0;
};

#endif // SIGNALTREELIST_BENCH_SIGNALTREELISTSUBJECT_H
