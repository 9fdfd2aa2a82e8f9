// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_BENCH_FLOORSUBJECT_H
#define SIGNALTREELIST_BENCH_FLOORSUBJECT_H

#include "BenchSubject.h"

#include <QList>

class BenchRowWidget;
class QScrollArea;
class QVBoxLayout;

/**
 * The floor of any widget-per-row design: the same row widgets (icon label
 * and two text labels) for every root and child row, in one QVBoxLayout
 * inside a QScrollArea, with nothing else.
 */
class FloorSubject : public BenchSubject
{
    Q_OBJECT
public:
    /// @p libraryWidgets: rows with the library's widget set (see
    /// BenchRowWidget), the floor of a design with that many widgets a row.
    explicit FloorSubject(bool libraryWidgets = false) { m_bLibraryWidgets = libraryWidgets; }

    QString key() const override
    {
        return m_bLibraryWidgets ? QStringLiteral("floorfull") : QStringLiteral("floor");
    }
    QString title() const override
    {
        return m_bLibraryWidgets ? QStringLiteral("floor, library's widget set")
                                 : QStringLiteral("floor (rows in a QVBoxLayout)");
    }

    void createEmpty() override;
    void fillBulk(const BenchContent &content) override;
    void fillOneByOne(const BenchContent &content) override;
    void setExpanded(int root, bool expanded) override;
    int groupCount() const override;
    QScrollBar *scrollBar() const override;
    QWidget *scrollViewport() const override;
    ClickTarget revealRow(int root, int child) override;

private:
    void addGroup(const BenchContent &content, int root);

    QScrollArea *m_pScrollArea = nullptr;
    QVBoxLayout *m_pRows = nullptr;
    /// Child rows per root.
    QList<QList<BenchRowWidget *>> m_groups;
};

#endif // SIGNALTREELIST_BENCH_FLOORSUBJECT_H
