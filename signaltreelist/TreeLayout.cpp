// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "TreeLayout.h"

#include <QSpacerItem>

namespace {

// The drawer's layout: margins left and right, no spacing; its row
// container's: a left margin, 8 pixels between rows and spacings.
const QMargins kDrawerMargins(10, 0, 10, 0);
const QMargins kRowMargins(24, 0, 0, 0);

// Takes every item out of @p box without deleting it.
void empty(QVBoxLayout *box)
{
    while (box->count() > 0)
        box->takeAt(box->count() - 1);
}

} // namespace

// The slots of one drawer. The drawer's box holds the root row and the row
// container; the container's box holds its spacings and rows. Items are
// taken out of the boxes before the ghost goes, so that each slot is
// deleted once, here.
struct TreeLayout::Ghost
{
    explicit Ghost(const Drawer &drawer)
        : slot(new BoxSlot(drawer.initial))
        , root(new LeafSlot(drawer.root.initial))
        , container(new BoxSlot(drawer.containerInitial))
    {
        slot->box()->setContentsMargins(kDrawerMargins);
        slot->box()->setSpacing(0);
        container->box()->setContentsMargins(kRowMargins);
        container->box()->setSpacing(kRowSpacing);
        slot->box()->addItem(root);
        slot->box()->addItem(container);
    }
    ~Ghost()
    {
        empty(container->box());
        qDeleteAll(spacers);
        qDeleteAll(rows);
        empty(slot->box());
        delete container;
        delete root;
        delete slot;
    }

    void sync(const Drawer &drawer)
    {
        slot->setFrame(drawer.frame);
        slot->setEmpty(drawer.empty);
        root->setMetrics(drawer.root.metrics);
        root->setEmpty(drawer.root.empty);
        container->setFrame(drawer.containerFrame);
        container->setEmpty(drawer.containerEmpty);

        empty(container->box());
        while (spacers.size() < drawer.spacings)
            spacers.append(new QSpacerItem(0, kRowSpacing, QSizePolicy::Minimum, QSizePolicy::Fixed));
        while (spacers.size() > drawer.spacings)
            delete spacers.takeLast();
        for (QSpacerItem *spacer : qAsConst(spacers))
            container->box()->addItem(spacer);
        QHash<quint64, LeafSlot *> kept;
        for (const Row &row : drawer.rows) {
            LeafSlot *leaf = rows.take(row.key);
            if (!leaf)
                leaf = new LeafSlot(row.initial);
            leaf->setMetrics(row.metrics);
            leaf->setEmpty(row.empty);
            kept.insert(row.key, leaf);
            container->box()->addItem(leaf);
        }
        qDeleteAll(rows);
        rows.swap(kept);

        container->invalidate();
        slot->invalidate();
    }

    BoxSlot *slot;
    LeafSlot *root;
    BoxSlot *container;
    QVector<QSpacerItem *> spacers;
    QHash<quint64, LeafSlot *> rows;
};

TreeLayout::TreeLayout()
{
    m_column.setContentsMargins(0, 0, 0, 0);
    m_column.setSpacing(kDrawerSpacing);
}

TreeLayout::~TreeLayout()
{
    clearColumn();
    qDeleteAll(m_ghosts);
}

void TreeLayout::clearColumn()
{
    // The stretch is the column's own; the ghosts keep their slots.
    while (m_column.count() > 0) {
        QLayoutItem *item = m_column.takeAt(m_column.count() - 1);
        if (item->spacerItem())
            delete item;
    }
}

void TreeLayout::sync(const QVector<Drawer> &drawers)
{
    clearColumn();
    QHash<quint64, Ghost *> kept;
    for (const Drawer &drawer : drawers) {
        Ghost *ghost = m_ghosts.take(drawer.key);
        if (!ghost)
            ghost = new Ghost(drawer);
        ghost->sync(drawer);
        kept.insert(drawer.key, ghost);
        m_column.addItem(ghost->slot);
    }
    m_column.addStretch(0);
    qDeleteAll(m_ghosts);
    m_ghosts.swap(kept);
    m_column.invalidate();
}

void TreeLayout::setContainerFrame(const BoxSlot::Frame &frame)
{
    m_containerFrame = frame;
}

QSize TreeLayout::containerSize(const QSize &viewport, const QSize &maximumViewport) const
{
    // QScrollArea, widget resizable, no height for width: the container
    // fills the viewport, and is at least as large as its layout needs; when
    // that fits the largest viewport, the scroll bars go and it fills that.
    auto &column = const_cast<QVBoxLayout &>(m_column);
    const QMargins &m = m_containerFrame.margins;
    const QSize extra(m.left() + m.right(), m.top() + m.bottom());
    const BoxSlot::Frame &frame = m_containerFrame;
    const QSize hint = column.sizeHint() + extra;
    const QSize minimumHint = column.minimumSize() + extra;
    const QSize minimum = SlotRules::smartMinimum(hint, minimumHint, frame.minimum, frame.maximum, frame.policy);
    const QSize maximum =
        SlotRules::smartMaximum(hint.expandedTo(minimumHint), frame.minimum, frame.maximum, frame.policy);

    QSize p = viewport;
    if (maximumViewport.expandedTo(minimum) == maximumViewport && maximumViewport.boundedTo(maximum) == maximumViewport)
        p = maximumViewport;
    return p.expandedTo(minimum).boundedTo(maximum);
}

void TreeLayout::layout(const QSize &size)
{
    const QMargins &m = m_containerFrame.margins;
    m_column.setGeometry(QRect(m.left(), m.top(), size.width() - m.left() - m.right(),
                               size.height() - m.top() - m.bottom()));
}

QSize TreeLayout::minimumSize() const
{
    const QMargins &m = m_containerFrame.margins;
    return const_cast<QVBoxLayout &>(m_column).minimumSize() + QSize(m.left() + m.right(), m.top() + m.bottom());
}

QSize TreeLayout::sizeHint() const
{
    const QMargins &m = m_containerFrame.margins;
    return const_cast<QVBoxLayout &>(m_column).sizeHint() + QSize(m.left() + m.right(), m.top() + m.bottom());
}

QRect TreeLayout::drawerRect(quint64 drawer) const
{
    const Ghost *ghost = m_ghosts.value(drawer);
    return ghost ? ghost->slot->rect() : QRect();
}

QRect TreeLayout::rootRect(quint64 drawer) const
{
    const Ghost *ghost = m_ghosts.value(drawer);
    return ghost ? ghost->root->rect() : QRect();
}

QRect TreeLayout::rowContainerRect(quint64 drawer) const
{
    const Ghost *ghost = m_ghosts.value(drawer);
    return ghost ? ghost->container->rect() : QRect();
}

QRect TreeLayout::rowRect(quint64 drawer, quint64 row) const
{
    const Ghost *ghost = m_ghosts.value(drawer);
    const LeafSlot *leaf = ghost ? ghost->rows.value(row) : nullptr;
    return leaf ? leaf->rect() : QRect();
}
