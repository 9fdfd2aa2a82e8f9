// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// The check of the control against the oracle.

#include "StressRun.h"

namespace Stress {

// ------------------------------------------------------------ the check

QString StressRun::check(bool full)
{
    if (full) {
        QCoreApplication::processEvents();
        EventSender::flushDeferredDeletes();
    }
    if (!m_list || !m_frame || !m_container)
        return QStringLiteral("the control is gone");
    if (m_list->getSignalTreeListFrame() != m_frame.data())
        return QStringLiteral("getSignalTreeListFrame() changed");
    if (m_frame->isHidden() != m.frameHidden)
        return QStringLiteral("frame hidden %1, expected %2").arg(m_frame->isHidden()).arg(m.frameHidden);

    // Host signals, in order.
    if (m_log != m_expected) {
        const QString msg = QStringLiteral("host received [%1], expected [%2]")
                                .arg(m_log.join(QStringLiteral(" ")), m_expected.join(QStringLiteral(" ")));
        m_log.clear();
        m_expected.clear();
        return msg;
    }
    stats.signalsChecked += m_log.size();
    m_log.clear();
    m_expected.clear();

    const QList<DrawerControl *> drawers = m_frame->drawers();
    if (drawers.size() != m.drawers.size())
        return QStringLiteral("%1 drawers, expected %2").arg(drawers.size()).arg(m.drawers.size());
    for (int i = 0; i < drawers.size(); ++i) {
        MDrawer &d = m.drawers[i];
        DrawerControl *w = drawers.at(i);
        const QString where = QStringLiteral("drawer %1 (stored %2): ").arg(i).arg(d.stored);
        if (!w)
            return where + QStringLiteral("null entry");
        if (!d.widget) {
            for (int j = 0; j < m.drawers.size(); ++j) {
                if (j != i && m.drawers.at(j).widget == w)
                    return where + QStringLiteral("a new drawer is an old one");
            }
            d.widget = w;
        }
        if (d.widget != w)
            return where + QStringLiteral("a different drawer stands here");
        if (w->parentWidget() != m_container)
            return where + QStringLiteral("not in the container");
        if (full && w->isHidden())
            return where + QStringLiteral("hidden");
        if (w->rootIndex() != d.stored)
            return where + QStringLiteral("root index %1").arg(w->rootIndex());
        if (!w->rootItem() || w->rootItem()->getIndexText() != QString::number(d.stored))
            return where + QStringLiteral("root row index text");
        if (!sameRecord(w->getRootNodeInfo(), d.root))
            return where + QStringLiteral("root record %1, expected %2")
                               .arg(describe(w->getRootNodeInfo()), describe(d.root));
        if (w->isShowChild() != d.expanded)
            return where + QStringLiteral("expanded %1, expected %2").arg(w->isShowChild()).arg(d.expanded);
        QCheckBox *box = w->rootItem()->findChild<QCheckBox *>();
        if (!box || box->isChecked() != d.expanded)
            return where + QStringLiteral("expand box out of step");
        if (!w->childContainer() || w->childContainer()->isHidden() == d.containerShown)
            return where + QStringLiteral("child container shown %1, expected %2")
                               .arg(!w->childContainer()->isHidden())
                               .arg(d.containerShown);
        if (w->getIsRootSel() != d.rootSel)
            return where + QStringLiteral("root selected %1, expected %2").arg(w->getIsRootSel()).arg(d.rootSel);
        if (w->selIndex() != d.selPath)
            return where + QStringLiteral("selection [%1], expected [%2]")
                               .arg(pathText(w->selIndex()), pathText(d.selPath));
        if (w->curSecondIndex() != d.cur)
            return where + QStringLiteral("current child %1, expected %2").arg(w->curSecondIndex()).arg(d.cur);
        if (!sameRecord(w->selNodeInfo(), d.selRec))
            return where + QStringLiteral("selected record %1, expected %2")
                               .arg(describe(w->selNodeInfo()), describe(d.selRec));
        if (!m_inDrag && w->isDragging())
            return where + QStringLiteral("dragging outside a drag");
        if (w->acceptDrops() != d.drag)
            return where + QStringLiteral("accepts drops %1, expected %2").arg(w->acceptDrops()).arg(d.drag);

        if (w->rowsDeferred()) {
            // Never expanded: no widgets yet, the records they would report.
            int count = 0;
            for (st_NodeInfoSignal rec; w->getSecondNodeInfo(count, rec) != 0; ++count) {
                if (count < d.children.size() && !sameRecord(rec, d.children.at(count).rec))
                    return where + QStringLiteral("waiting row %1: record %2, expected %3")
                                       .arg(count)
                                       .arg(describe(rec), describe(d.children.at(count).rec));
            }
            if (count != d.children.size())
                return where + QStringLiteral("%1 waiting rows, expected %2").arg(count).arg(d.children.size());
            // An open drawer's rows wait only for Qt's first polish of the
            // drawer, which builds them as it would have polished them.
            if (d.expanded && w->testAttribute(Qt::WA_WState_Polished))
                return where + QStringLiteral("expanded and polished, yet its rows wait");
            continue;
        }
        const QList<SecondItem *> rows = w->secondItems();
        if (rows.size() != d.children.size())
            return where + QStringLiteral("%1 child rows, expected %2").arg(rows.size()).arg(d.children.size());
        for (int j = 0; j < rows.size(); ++j) {
            MChild &c = d.children[j];
            SecondItem *row = rows.at(j);
            const QString at = where + QStringLiteral("row %1: ").arg(j);
            const quint64 key = w->rowKey(j);
            if (key == 0)
                return at + QStringLiteral("no key");
            if (!c.key) {
                for (int x = 0; x < d.children.size(); ++x) {
                    if (x != j && d.children.at(x).key == key)
                        return at + QStringLiteral("a new row is an old one");
                }
                c.key = key;
            }
            if (c.key != key)
                return at + QStringLiteral("a different row stands here");
            c.widget = row;
            if (!row) {
                // Parked: what it keeps.
                const ChildRowState *parked = w->parkedRow(j);
                if (!parked)
                    return at + QStringLiteral("neither a widget nor parked");
                if (!sameRecord(parked->record, c.rec))
                    return at + QStringLiteral("parked record %1, expected %2").arg(describe(parked->record), describe(c.rec));
                if (parked->rootIndex != d.stored || parked->childIndex != c.storedIndex)
                    return at + QStringLiteral("parked index %1-%2, expected %3-%4")
                                    .arg(parked->rootIndex)
                                    .arg(parked->childIndex)
                                    .arg(d.stored)
                                    .arg(c.storedIndex);
                continue;
            }
            if (row->parentWidget() != w->childContainer())
                return at + QStringLiteral("not in the drawer's container");
            if (!sameRecord(row->getNodeInfo(), c.rec))
                return at + QStringLiteral("record %1, expected %2").arg(describe(row->getNodeInfo()), describe(c.rec));
            const QString indexText = QStringLiteral("%1-%2").arg(d.stored).arg(c.storedIndex);
            if (row->getIndexText() != indexText)
                return at + QStringLiteral("index text %1, expected %2").arg(row->getIndexText(), indexText);
        }
    }

    if (full) {
        // Counted through the widgets: the drawers still parented to the
        // container, after deferred deletions ran.
        QList<DrawerControl *> children =
            m_container->findChildren<DrawerControl *>(QString(), Qt::FindDirectChildrenOnly);
        // The hidden prototype the rows are measured on is no drawer of the list.
        children.erase(std::remove_if(children.begin(), children.end(),
                                      [](const DrawerControl *d) { return d->isPrototype(); }),
                       children.end());
        if (children.size() != m.drawers.size())
            return QStringLiteral("%1 drawers in the container, expected %2").arg(children.size()).arg(m.drawers.size());
        for (const MDrawer &d : qAsConst(m.drawers)) {
            if (!children.contains(d.widget.data()))
                return QStringLiteral("a drawer of the list is not in the container");
            const int widgets =
                d.widget->childContainer()->findChildren<SecondItem *>(QString(), Qt::FindDirectChildrenOnly).size();
            if (widgets != (d.widget->rowsDeferred() ? 0 : d.widget->realisedRows()))
                return QStringLiteral("drawer (stored %1) holds rows that are not in its list").arg(d.stored);
        }
        for (int i = m_retired.size() - 1; i >= 0; --i) {
            if (m_retired.at(i))
                return QStringLiteral("a removed drawer still exists after deferred deletion");
            m_retired.removeAt(i);
        }
        for (int i = m_retiredRows.size() - 1; i >= 0; --i) {
            if (m_retiredRows.at(i))
                return QStringLiteral("a row removed under its own handler still exists after it returned");
            m_retiredRows.removeAt(i);
        }
    }

    if (m_frame->pendingRootName() != m.rootName)
        return QStringLiteral("stored root name differs");
    if (m_frame->dragSource() != m.dragSrc || m_frame->dragDestination() != m.dragDst)
        return QStringLiteral("stored drag paths [%1]->[%2], expected [%3]->[%4]")
            .arg(pathText(m_frame->dragSource()), pathText(m_frame->dragDestination()), pathText(m.dragSrc),
                 pathText(m.dragDst));

    // What a host reads back: root 0's record.
    const std::pair<bool, st_NodeInfoSignal> root0 = m_list->getItemSignalNode(QList<int>{0});
    const bool has = !m.drawers.isEmpty();
    if (root0.first != has || !sameRecord(root0.second, has ? m.drawers.first().root : st_NodeInfoSignal()))
        return QStringLiteral("getItemSignalNode([0]) = (%1, %2)").arg(root0.first).arg(describe(root0.second));
    if (!m_log.isEmpty())
        return QStringLiteral("a lookup emitted a signal");
    return QString();
}

} // namespace Stress
