// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "FloorSubject.h"

#include "BenchContent.h"
#include "BenchRowWidget.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

void FloorSubject::createEmpty()
{
    m_pWindow = createHostWindow();
    QHBoxLayout *layout = new QHBoxLayout(m_pWindow);
    layout->setContentsMargins(0, 0, 0, 0);
    m_pScrollArea = new QScrollArea(m_pWindow);
    m_pScrollArea->setWidgetResizable(true);
    QWidget *content = new QWidget;
    m_pRows = new QVBoxLayout(content);
    m_pRows->setContentsMargins(0, 0, 0, 0);
    m_pRows->setSpacing(8);
    m_pRows->addStretch();
    m_pScrollArea->setWidget(content);
    layout->addWidget(m_pScrollArea);
    m_groups.clear();
}

void FloorSubject::addGroup(const BenchContent &content, int root)
{
    QWidget *parent = m_pScrollArea->widget();
    // Rows go in front of the closing stretch.
    int at = m_pRows->count() - 1;
    const st_NodeInfoSignal &rootNode = content.rootNode(root);
    m_pRows->insertWidget(at++, createRow(QString(), BenchContent::upperText(rootNode), QString(), parent));
    QList<BenchRowWidget *> rows;
    for (const st_NodeInfoSignal &node : content.childNodes(root)) {
        BenchRowWidget *row = createRow(BenchContent::picturePath(node), BenchContent::upperText(node),
                                        BenchContent::lowerText(node), parent);
        row->setToolTip(node.strSourceName);
        m_pRows->insertWidget(at++, row);
        rows.append(row);
    }
    m_groups.append(rows);
}

void FloorSubject::fillBulk(const BenchContent &content)
{
    for (int r = 0; r < content.roots(); ++r)
        addGroup(content, r);
}

void FloorSubject::fillOneByOne(const BenchContent &content)
{
    // A plain layout has no cheaper bulk call: both are the same.
    fillBulk(content);
}

void FloorSubject::setExpanded(int root, bool expanded)
{
    for (BenchRowWidget *row : m_groups.value(root)) {
        // Rows that already are as asked are left alone, as a design with
        // per-group state would.
        if (row->isHidden() == expanded)
            row->setVisible(expanded);
    }
}

int FloorSubject::groupCount() const
{
    return m_groups.size();
}

QScrollBar *FloorSubject::scrollBar() const
{
    return m_pScrollArea->verticalScrollBar();
}

QWidget *FloorSubject::scrollViewport() const
{
    return m_pScrollArea->viewport();
}

BenchSubject::ClickTarget FloorSubject::revealRow(int root, int child)
{
    ClickTarget target;
    BenchRowWidget *row = m_groups.value(root).value(child);
    if (!row)
        return target;
    m_pScrollArea->ensureWidgetVisible(row);
    drainEvents();
    target.widget = row;
    target.pos = QPoint(row->width() - 4, 4);
    return target;
}
