// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// The public operations, and the host inside the list's signals.

#include "StressRun.h"

namespace Stress {

// ---------------------------------------------------- public operations

void StressRun::apiOp(Op op)
{
    SignalTreeList *l = m_list;
    switch (op) {
    case OpAddRoot: {
        st_NodeInfoSignal rec = randomRecord(m_rng);
        note(QStringLiteral("addRootItem(%1)").arg(describe(rec)));
        l->addRootItem(rec);
        m.drawers << modelNewDrawer(m, rec, {}, m.drawers.size());
        break;
    }
    case OpAddRootWithChildren: {
        st_NodeInfoSignal rec = randomRecord(m_rng);
        const QList<st_NodeInfoSignal> children = randomRecords(m_rng, m_rng.chance(10) ? 12 : 3);
        note(QStringLiteral("addRootItem(%1, %2 children)").arg(describe(rec)).arg(children.size()));
        l->addRootItem(rec, children);
        m.drawers << modelNewDrawer(m, rec, children, m.drawers.size());
        break;
    }
    case OpAddChild: {
        QList<int> path = randomPath(false);
        if (path.isEmpty())
            path << 0; // an empty path is the caller's error
        const QList<st_NodeInfoSignal> children = randomRecords(m_rng, 3);
        note(QStringLiteral("addChildItem([%1], %2 children)").arg(pathText(path)).arg(children.size()));
        l->addChildItem(path, children);
        const int r = path.at(0);
        if (r >= 0 && r < m.drawers.size())
            modelAddChildren(m.drawers[r], children);
        break;
    }
    case OpClearTree:
        note(QStringLiteral("clearTree()"));
        l->clearTree();
        for (const MDrawer &d : qAsConst(m.drawers))
            m_retired << d.widget;
        m.drawers.clear();
        break;
    case OpDeleteRoot: {
        const int r = pickRoot(false);
        note(QStringLiteral("deleteRootItem(%1)").arg(r));
        deleteRoot(r);
        break;
    }
    case OpDeleteChilde: {
        const QList<int> path = randomPath(false);
        note(QStringLiteral("deleteChildeItem([%1])").arg(pathText(path)));
        deleteChildePath(path);
        break;
    }
    case OpGetNode: {
        QList<int> path = randomPath(true);
        note(QStringLiteral("getItemSignalNode([%1])").arg(pathText(path)));
        const std::pair<bool, st_NodeInfoSignal> got = l->getItemSignalNode(path);
        bool flag = false;
        st_NodeInfoSignal node;
        if (path.size() == 1) {
            if (!m.drawers.isEmpty() && path.at(0) == 0) {
                flag = true;
                node = m.drawers.first().root;
            }
        } else if (path.size() == 2 && path.at(0) == 0) {
            const int c = path.at(1);
            for (const MDrawer &d : qAsConst(m.drawers)) {
                if (c >= 0 && c < d.children.size())
                    node = d.children.at(c).rec;
                else
                    flag = true;
            }
        }
        if (got.first != flag || !sameRecord(got.second, node))
            fail(QStringLiteral("getItemSignalNode([%1]) = (%2, %3), expected (%4, %5)")
                     .arg(pathText(path))
                     .arg(got.first)
                     .arg(describe(got.second))
                     .arg(flag)
                     .arg(describe(node)));
        if (got.second.strSourceName.isNull() && !node.strSourceName.isNull())
            fail(QStringLiteral("getItemSignalNode: null source name"));
        break;
    }
    case OpModify: {
        const QList<int> path = randomPath(true);
        st_NodeInfoSignal rec = randomRecord(m_rng);
        note(QStringLiteral("modifyItemData([%1], %2)").arg(pathText(path), describe(rec)));
        l->modifyItemData(path, rec);
        if (path.size() == 1 && path.at(0) == 0 && !m.drawers.isEmpty()) {
            m.drawers[0].root = rec;
            applyRootFlags(m.drawers[0], rec.showOpBtn);
        } else if (path.size() == 2 && path.at(0) == 0) {
            const int c = path.at(1);
            for (MDrawer &d : m.drawers) {
                if (c >= 0 && c < d.children.size()) {
                    d.children[c].rec = rec;
                    applyChildFlags(d.children[c], rec.showOpBtn);
                }
            }
        }
        break;
    }
    case OpSetCurSel: {
        const QList<int> path = randomPath(false);
        note(QStringLiteral("setCurSelItem([%1])").arg(pathText(path)));
        // The oracle moves first: a child selection is reported from inside
        // the call, where the host may act on it.
        if (path.size() == 1) {
            const int r = path.at(0);
            for (int j = 0; j < m.drawers.size(); ++j) {
                if (j > r)
                    break;
                MDrawer &d = m.drawers[j];
                // Selecting or deselecting a root expands or collapses it and
                // reports it to the drawer as a root selection.
                modelSetExpanded(d, j == r);
                modelSelectRoot(d);
            }
        } else if (path.size() == 2) {
            const int r = path.at(0), c = path.at(1);
            if (r >= 0 && r < m.drawers.size()) {
                MDrawer &d = m.drawers[r];
                d.cur = c;
                d.selPath = QList<int>{d.stored, c};
                expect(QStringLiteral("Clicked(%1)").arg(pathText(d.selPath)));
            }
        }
        l->setCurSelItem(path);
        break;
    }
    case OpSetIsDrag: {
        const bool b = m_rng.chance(70);
        note(QStringLiteral("setIsDrag(%1)").arg(b));
        l->setIsDrag(b);
        m.isDrag = b;
        for (MDrawer &d : m.drawers)
            d.drag = b;
        break;
    }
    case OpSetShowChild: {
        const int r = pickRoot(false);
        const bool b = m_rng.chance(65);
        note(QStringLiteral("setIsShowChildItem(%1, %2)").arg(r).arg(b));
        l->setIsShowChildItem(r, b);
        if (r >= 0 && r < m.drawers.size())
            modelSetExpanded(m.drawers[r], b);
        break;
    }
    case OpSetRootName: {
        const QString name = randomName(m_rng);
        note(QStringLiteral("setSignalRootName(%1)").arg(shortText(name)));
        l->setSignalRootName(name);
        m.rootName = QStringList{name};
        break;
    }
    case OpSetFrameVisible: {
        const bool b = m_rng.chance(m.frameHidden ? 90 : 40);
        note(QStringLiteral("setSignalTreeListFrameVisiable(%1)").arg(b));
        l->setSignalTreeListFrameVisiable(b);
        m.frameHidden = !b;
        break;
    }
    case OpUpdateTree: {
        QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree;
        const int k = m_rng.below(100);
        const int count = k < 15 ? 0 : k < 90 ? m_rng.range(1, 6) : m_rng.range(7, 50);
        for (int i = 0; i < count; ++i)
            tree.insert(randomRecord(m_rng), randomRecords(m_rng, 3));
        note(QStringLiteral("updateTreeList(%1 entries)").arg(tree.size()));
        l->updateTreeList(tree);
        int position = 0;
        for (auto it = tree.cbegin(); it != tree.cend(); ++it, ++position)
            m.drawers.insert(position, modelNewDrawer(m, it.key(), it.value(), position));
        break;
    }
    case OpReTranslate:
        note(QStringLiteral("reTranslateUI()"));
        l->reTranslateUI();
        break;
    case OpGetFrame:
        note(QStringLiteral("getSignalTreeListFrame()"));
        if (l->getSignalTreeListFrame() != m_frame.data() || !m_frame)
            fail(QStringLiteral("getSignalTreeListFrame() does not return the control's frame"));
        break;
    case OpRecreate:
        note(QStringLiteral("destroy and recreate the control"));
        destroyControl();
        createControl();
        break;
    default:
        break;
    }
}

void StressRun::deleteRoot(int r)
{
    m_list->deleteRootItem(r);
    if (r >= 0 && r < m.drawers.size())
        m_retired << m.drawers.takeAt(r).widget;
}

void StressRun::deleteChildePath(const QList<int> &path)
{
    m_list->deleteChildeItem(path);
    if (path.size() == 1) {
        const int r = path.at(0);
        if (r >= 0 && r < m.drawers.size())
            m_retired << m.drawers.takeAt(r).widget;
    } else if (path.size() == 2) {
        const int r = path.at(0), c = path.at(1);
        if (r >= 0 && r < m.drawers.size() && c >= 0 && c < m.drawers.at(r).children.size()) {
            QPointer<SecondItem> removed = m.drawers[r].children.takeAt(c).widget;
            if (!removed)
                return;
            // Child rows are deleted at once, unless the host removes the
            // row whose own handler is running: that one leaves the screen
            // now and is freed when its handler has returned.
            if (m_reactDepth > 0 && removed == m_activeRow) {
                stats.reactOwnRow++;
                if (!removed->isHidden() || removed->parentWidget())
                    fail(QStringLiteral("deleteChildeItem([%1]) from the row's own signal: the row is still shown")
                             .arg(pathText(path)));
                m_retiredRows << removed;
            } else {
                fail(QStringLiteral("deleteChildeItem([%1]): the row widget still exists").arg(pathText(path)));
            }
        }
    }
}

// ------------------------------------------ the host inside the list's signals

QPair<int, int> StressRun::findRow(const SecondItem *row) const
{
    for (int i = 0; row && i < m.drawers.size(); ++i) {
        const DrawerControl *drawer = m.drawers.at(i).widget;
        const int j = drawer ? drawer->secondItems().indexOf(const_cast<SecondItem *>(row)) : -1;
        if (j >= 0 && j < m.drawers.at(i).children.size())
            return qMakePair(i, j);
    }
    return qMakePair(-1, -1);
}

// A press on @p row selects it and reports it, if it is still in the list.
void StressRun::expectRowPress(SecondItem *row)
{
    const QPair<int, int> at = findRow(row);
    if (at.first < 0)
        return;
    MDrawer &d = m.drawers[at.first];
    modelSelectChild(d, at.second);
    expect(QStringLiteral("Clicked(%1)").arg(pathText(d.selPath)));
}

void StressRun::hostSignal(const QString &text, const QList<int> &path, bool isClicked)
{
    m_log << text;
    // The host's own calls from a reaction may emit again: logged only.
    if (m_reactDepth > 0)
        return;
    if (m_mayReact && !m_inDrag && m_rng.chance(40)) {
        ++m_reactDepth;
        react(path);
        --m_reactDepth;
    }
    // A button click's second signal comes from the row after this one, with
    // its drawer's selection of that moment, if the row is still listed.
    if (isClicked && m_followUp.row) {
        const QPair<int, int> at = findRow(m_followUp.row);
        if (at.first >= 0)
            expect(QStringLiteral("%1(%2)").arg(m_followUp.signal, pathText(m.drawers.at(at.first).selPath)));
        m_followUp = FollowUp();
    }
}

void StressRun::react(const QList<int> &path)
{
    const int k = m_rng.below(100);
    if (k < 45) {
        note(QStringLiteral("  host reacts to [%1]").arg(pathText(path)));
        hostCalls(path);
    } else if (k < 93) {
        note(QStringLiteral("  host reacts to [%1] from a nested event loop").arg(pathText(path)));
        stats.reactNested++;
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&] {
            hostCalls(path);
            // One more turn: what was released is deleted inside this loop.
            QTimer::singleShot(0, &loop, &QEventLoop::quit);
        });
        loop.exec();
    } else {
        const bool window = m_rng.chance(35);
        note(QStringLiteral("  host deletes the %1 from its slot")
                 .arg(window ? QStringLiteral("window") : QStringLiteral("SignalTreeList")));
        stats.reactDestroy++;
        for (const MDrawer &d : qAsConst(m.drawers))
            m_retired << d.widget;
        m.drawers.clear();
        m_controlGone = true;
        if (window)
            delete m_host.data();
        else
            delete m_list.data();
    }
}

// What a host does with the path it was given, then a few other calls.
void StressRun::hostCalls(const QList<int> &path)
{
    stats.reactCalls++;
    if (m_rng.chance(75)) {
        switch (m_rng.below(4)) {
        case 0:
            note(QStringLiteral("  host: deleteChildeItem([%1])").arg(pathText(path)));
            deleteChildePath(path);
            break;
        case 1:
            note(QStringLiteral("  host: deleteRootItem(%1)").arg(path.value(0)));
            deleteRoot(path.value(0));
            break;
        default:
            apiOp(m_rng.chance(50) ? OpClearTree : OpUpdateTree);
            break;
        }
    }
    const int count = m_rng.range(0, 2);
    for (int i = 0; i < count && failure.isEmpty(); ++i) {
        const Op op = chooseOp(true);
        apiOp(op == OpRecreate ? OpGetNode : op);
    }
}

void StressRun::recreateIfGone()
{
    if (!m_controlGone)
        return;
    m_controlGone = false;
    destroyControl();
    createControl();
}

} // namespace Stress
