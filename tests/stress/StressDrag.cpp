// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Real drags.

#include "StressRun.h"

namespace Stress {

// ------------------------------------------------------------------ drags

void StressRun::opDrag()
{
    // The drag's own scenarios play the host here.
    m_mayReact = false;
    struct Restore
    {
        bool &flag;
        ~Restore() { flag = true; }
    } restore{m_mayReact};
    const QList<QPair<int, int>> rows = visibleRows();
    if (rows.isEmpty()) {
        // Get a drawer ready: show some children.
        if (!m.drawers.isEmpty()) {
            const int r = m_rng.below(m.drawers.size());
            note(QStringLiteral("drag prep: setIsShowChildItem(%1, true)").arg(r));
            m_list->setIsShowChildItem(r, true);
            modelSetExpanded(m.drawers[r], true);
        }
        return;
    }
    if (!m.isDrag && m_rng.chance(80)) {
        note(QStringLiteral("drag prep: setIsDrag(true)"));
        m_list->setIsDrag(true);
        m.isDrag = true;
        for (MDrawer &d : m.drawers)
            d.drag = true;
    }

    QPair<int, int> at = rows.at(m_rng.below(rows.size()));
    const int di = at.first;
    // Usually select a row of that drawer first, by a click.
    if (m_rng.chance(75)) {
        QList<int> candidates;
        for (const auto &r : rows) {
            if (r.first == di)
                candidates << r.second;
        }
        const int p = candidates.at(m_rng.below(candidates.size()));
        MDrawer &d = m.drawers[di];
        SecondItem *row = d.children.at(p).widget;
        note(QStringLiteral("drag: click row %1 of drawer %2").arg(p).arg(di));
        clickAt(row, row->rect().center());
        modelSelectChild(d, p);
        expect(QStringLiteral("Clicked(%1)").arg(pathText(d.selPath)));
        at.second = candidates.at(m_rng.below(candidates.size()));
    }
    MDrawer &d = m.drawers[di];
    QPointer<DrawerControl> source = d.widget;
    QPointer<SecondItem> row = d.children.at(at.second).widget;
    m_scroll->ensureWidgetVisible(row, 0, 0);
    QCoreApplication::processEvents();

    // Where the move lands: near the row's left edge or at its centre; a
    // press just beside the row before it puts the start point close.
    QPoint local = row->rect().center();
    if (m_rng.chance(40)) {
        local = QPoint(m_rng.below(16), row->height() / 2);
        if (m_rng.chance(60)) {
            QWidget *container = source->childContainer();
            const QPoint rowPos = row->mapTo(container, QPoint(0, row->height() / 2));
            const QPoint p(rowPos.x() - 1 - m_rng.below(4), rowPos.y());
            if (p.x() >= 0 && !container->childAt(p)) {
                note(QStringLiteral("drag: press beside row %1").arg(at.second));
                clickAt(container, p);
                d.dragStart = container->mapTo(source, p);
            }
        }
    }
    const QPoint inDrawer = row->mapTo(source, local);
    const int distance = (inDrawer - d.dragStart).manhattanLength();
    const bool overRow = rowAt(d.children, row->mapToGlobal(local)) != -1;
    const bool expectStart = d.drag && distance >= QApplication::startDragDistance() && overRow && !d.rootSel
                             && !d.selRec.strNodeName.isEmpty();
    const QList<int> dragText = d.selPath.size() == 2 ? QList<int>{d.stored, d.cur}
                                                       : (d.selPath.size() == 1 ? QList<int>{d.stored}
                                                                                : QList<int>{0});

    enum Scenario { DropOther, DropSelf, Nowhere, DeleteRoot, DeleteRow, Clear, DestroyList, DestroyHost, HostOps };
    const int k = m_rng.below(100);
    const Scenario scenario = k < 28 ? DropOther
                              : k < 33 ? DropSelf
                              : k < 43 ? Nowhere
                              : k < 56 ? DeleteRoot
                              : k < 63 ? DeleteRow
                              : k < 70 ? Clear
                              : k < 74 ? DestroyList
                              : k < 78 ? DestroyHost
                                       : HostOps;
    static const char *const scenarioNames[] = {"drop on another drawer", "drop on itself", "release nowhere",
                                                "host deletes the dragging root",
                                                "host deletes the row under the pointer", "host clears the tree",
                                                "host destroys the control", "host destroys its window",
                                                "host calls operations"};
    note(QStringLiteral("drag: move over row %1 of drawer %2 (stored %3), distance %4, expect %5; %6")
             .arg(at.second)
             .arg(di)
             .arg(d.stored)
             .arg(distance)
             .arg(expectStart ? QStringLiteral("a drag") : QStringLiteral("none"))
             .arg(QLatin1String(scenarioNames[scenario])));

    struct DragState
    {
        bool started = false;
        bool ended = false;
        bool draggingInside = false;
        bool detached = false;
        bool controlGone = false;
        bool dropExpected = false;
        QPointer<DrawerControl> target;
        QList<int> dst;
    } st;

    m_inDrag = true;
    std::unique_ptr<QObject> guard(new QObject);
    QObject *g = guard.get();
    QWindow *spareWindow = m_spare->windowHandle();
    const QPoint nowhere = m_spare->mapToGlobal(m_spare->rect().center());

    QPoint dropGlobal;
    bool haveDropPoint = false;

    // Step 2: choose the target and move over it.
    auto moveStep = [&, g]() {
        if (!m_inDrag)
            return;
        QPoint global = nowhere;
        QWindow *window = spareWindow;
        if ((scenario == DropOther || scenario == DropSelf || scenario == HostOps) && m_host && m_frame
            && m_frame->isVisible() && !m.drawers.isEmpty()) {
            // Candidates: another drawer (or the dragging one itself).
            QList<int> targets;
            for (int i = 0; i < m.drawers.size(); ++i) {
                const bool self = m.drawers.at(i).widget == source;
                if (m.drawers.at(i).widget && m.drawers.at(i).widget->isVisible()
                    && (scenario == DropSelf ? self : !self))
                    targets << i;
            }
            if (!targets.isEmpty()) {
                const int ti = targets.at(m_rng.below(targets.size()));
                MDrawer &t = m.drawers[ti];
                DrawerControl *tw = t.widget;
                QList<int> visibleChildren;
                for (int j = 0; j < t.children.size(); ++j) {
                    if (t.children.at(j).widget && t.children.at(j).widget->isVisible())
                        visibleChildren << j;
                }
                const int kind = m_rng.below(3); // 0 row, 1 root row, 2 drawer margin
                QWidget *aim = tw->rootItem();
                QPoint aimLocal = aim->rect().center();
                int childIndex = -1;
                if (kind == 0 && !visibleChildren.isEmpty()) {
                    childIndex = visibleChildren.at(m_rng.below(visibleChildren.size()));
                    aim = t.children.at(childIndex).widget;
                    aimLocal = aim->rect().center();
                } else if (kind == 2) {
                    aim = tw;
                    aimLocal = QPoint(3, tw->rootItem()->geometry().center().y());
                }
                // Scroll the aim into view, and let the layouts settle as
                // they would before a user could point at anything.
                m_scroll->ensureWidgetVisible(aim, 0, 0);
                for (int i = 0; i < 3; ++i)
                    QCoreApplication::processEvents();
                QWidget *viewport = m_scroll->viewport();
                const QPoint g2 = aim->mapToGlobal(aimLocal);
                const QPoint inView = viewport->mapFromGlobal(g2);
                if (m_host && viewport->rect().adjusted(1, 1, -1, -1).contains(inView)) {
                    global = g2;
                    window = m_host->windowHandle();
                    haveDropPoint = true;
                    // The drawer that gets the drop is the one on screen under
                    // the point (the nearest drawer above the widget there):
                    // it takes it when it accepts drops and is not the source.
                    QWidget *hit = m_host->childAt(m_host->mapFromGlobal(global));
                    DrawerControl *under = nullptr;
                    for (QWidget *w = hit; w && !under; w = w->parentWidget())
                        under = qobject_cast<DrawerControl *>(w);
                    const MDrawer *dm = nullptr;
                    for (const MDrawer &x : qAsConst(m.drawers)) {
                        if (under && x.widget == under)
                            dm = &x;
                    }
                    if (under && !dm && under != source)
                        fail(QStringLiteral("a drawer on screen is not one of the list"));
                    st.dropExpected = dm && under != source && dm->drag;
                    st.target = under;
                    note(QStringLiteral("  drag: aim at %1 of drawer %2 (stored %3); under the point: %4, drop %5")
                             .arg(kind == 0 && childIndex >= 0 ? QStringLiteral("row %1").arg(childIndex)
                                  : kind == 2                  ? QStringLiteral("the margin")
                                                               : QStringLiteral("the root row"))
                             .arg(ti)
                             .arg(t.stored)
                             .arg(dm ? QStringLiteral("drawer stored %1").arg(dm->stored)
                                     : under ? QStringLiteral("the source") : QStringLiteral("no drawer"))
                             .arg(st.dropExpected ? QStringLiteral("expected") : QStringLiteral("refused")));
                }
            }
        }
        dropGlobal = global;
        if (qEnvironmentVariableIntValue("STRESS_DEBUG") && m_host) {
            QString line;
            QDebug dbg(&line);
            dbg << "  moves at" << global << "chain:";
            for (QWidget *w = m_host->childAt(m_host->mapFromGlobal(global)); w; w = w->parentWidget())
                dbg << w << w->acceptDrops() << w->geometry();
            if (st.target) {
                dbg << " target chain:";
                for (QWidget *w = st.target; w; w = w->parentWidget())
                    dbg << w << w->geometry() << w->isVisible();
            }
            note(line);
        }
        if (!haveDropPoint)
            note(QStringLiteral("  drag: release away from the list"));
        sendDragMouse(window, QEvent::MouseMove, global);
        sendDragMouse(window, QEvent::MouseMove, global);
        QTimer::singleShot(0, g, [&, window]() {
            // The release. Re-check the target window: nothing may have
            // changed since the move, but be safe.
            QWindow *w = haveDropPoint && m_host ? m_host->windowHandle() : spareWindow;
            Q_UNUSED(window)
            // The destination the target drawer reports: its root index, and
            // the child row under the drop point if there is one.
            for (const MDrawer &t : qAsConst(m.drawers)) {
                if (st.target && t.widget == st.target) {
                    st.dst = QList<int>{t.stored};
                    const int index = t.widget->rowsDeferred()
                        ? waitingRowAt(t.widget, t.children.size(), dropGlobal)
                        : rowAt(t.children, dropGlobal);
                    if (index >= 0)
                        st.dst << index;
                }
            }
            if (qEnvironmentVariableIntValue("STRESS_DEBUG")) {
                QDrag *drag = source ? source->findChild<QDrag *>() : nullptr;
                QString line;
                QDebug(&line) << "release: drag text" << (drag && drag->mimeData() ? drag->mimeData()->text() : QString())
                           << "at" << dropGlobal << "widget" << QApplication::widgetAt(dropGlobal)
                           << "expected dst" << st.dst << "target" << st.target.data();
                note(line);
            }
            sendDragMouse(w, QEvent::MouseButtonRelease, dropGlobal);
            st.ended = true;
        });
    };

    // Step 1: inside the drag; the host acts.
    QTimer::singleShot(0, g, [&, g]() {
        st.started = true;
        st.draggingInside = source && source->isDragging();
        stats.dragsStarted++;
        if (!expectStart) {
            fail(QStringLiteral("a drag started that was not expected"));
        } else if (!st.draggingInside) {
            fail(QStringLiteral("the source drawer does not report its running drag"));
        } else if (!source->findChild<QDrag *>()) {
            fail(QStringLiteral("no drag object under the source drawer"));
        }
        if (!failure.isEmpty()) {
            sendDragMouse(spareWindow, QEvent::MouseButtonRelease, nowhere);
            st.ended = true;
            return;
        }
        int position = -1;
        for (int i = 0; i < m.drawers.size(); ++i) {
            if (m.drawers.at(i).widget == source)
                position = i;
        }
        switch (scenario) {
        case DeleteRoot:
            note(QStringLiteral("  in drag: deleteRootItem(%1)").arg(position));
            m_list->deleteRootItem(position);
            m_retired << m.drawers.takeAt(position).widget;
            st.detached = true;
            stats.dragDeleteRoot++;
            break;
        case DeleteRow: {
            // The row that got the mouse move goes at once, while that event
            // is still being delivered.
            int c = -1;
            for (int j = 0; j < m.drawers.at(position).children.size(); ++j) {
                if (m.drawers.at(position).children.at(j).widget == row)
                    c = j;
            }
            note(QStringLiteral("  in drag: deleteChildeItem([%1,%2])").arg(position).arg(c));
            m_list->deleteChildeItem(QList<int>{position, c});
            if (c >= 0)
                m.drawers[position].children.removeAt(c);
            if (row)
                fail(QStringLiteral("the row under the pointer survived its deletion"));
            stats.dragDeleteRow++;
            break;
        }
        case Clear:
            note(QStringLiteral("  in drag: clearTree()"));
            m_list->clearTree();
            for (const MDrawer &x : qAsConst(m.drawers))
                m_retired << x.widget;
            m.drawers.clear();
            st.detached = true;
            stats.dragClear++;
            break;
        case DestroyList:
            note(QStringLiteral("  in drag: delete the SignalTreeList"));
            for (const MDrawer &x : qAsConst(m.drawers))
                m_retired << x.widget;
            m.drawers.clear();
            delete m_list.data();
            st.detached = true;
            st.controlGone = true;
            stats.dragDestroy++;
            break;
        case DestroyHost:
            note(QStringLiteral("  in drag: delete the host window"));
            for (const MDrawer &x : qAsConst(m.drawers))
                m_retired << x.widget;
            m.drawers.clear();
            delete m_host.data();
            st.detached = true;
            st.controlGone = true;
            stats.dragDestroy++;
            break;
        case HostOps: {
            const int count = m_rng.range(1, 4);
            stats.dragHostOps++;
            for (int i = 0; i < count && failure.isEmpty(); ++i) {
                Op op = chooseOp(true);
                if (op == OpRecreate)
                    op = OpGetNode;
                apiOp(op);
                bool inList = false;
                for (const MDrawer &x : qAsConst(m.drawers))
                    inList = inList || x.widget == source;
                st.detached = !inList;
                const QString problem = check(false);
                if (!problem.isEmpty())
                    fail(QStringLiteral("in drag: %1").arg(problem));
            }
            break;
        }
        default:
            break;
        }
        if (failure.isEmpty() && !st.controlGone) {
            const QString problem = check(false);
            if (!problem.isEmpty())
                fail(QStringLiteral("in drag: %1").arg(problem));
        }
        if (st.detached && source && source->parentWidget())
            fail(QStringLiteral("a released drawer kept its parent during its own drag"));
        // Let the event loop turn (deferred deletions run) before the moves.
        QTimer::singleShot(0, g, moveStep);
    });

    // A watchdog: a drag that does not end on the release is a failure.
    QTimer::singleShot(5000, g, [&]() {
        fail(QStringLiteral("the drag did not end after its release"));
        sendDragMouse(spareWindow, QEvent::MouseButtonRelease, nowhere);
    });

    sendMouse(row, QEvent::MouseMove, local, Qt::NoButton, Qt::LeftButton);
    guard.reset();
    m_inDrag = false;

    // Qt's in-process drag sends no drag-leave when it is cancelled (released
    // where nothing accepts it), so a window would keep the widget of the
    // last drag-enter as its drop target and mistake the next drag's enter
    // for a move. A real window system would have sent the leave; send it.
    for (QWidget *top : {m_host.data(), m_spare.get()}) {
        if (top && top->windowHandle()) {
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(top->windowHandle(), &leave);
        }
    }

    if (st.started != expectStart)
        fail(QStringLiteral("drag expected %1, started %2").arg(expectStart).arg(st.started));
    if (!st.started)
        return;

    if (st.dropExpected) {
        m.dragSrc = dragText;
        m.dragDst = st.dst;
        stats.drops++;
    }

    // The toolkit disposes of the drag object later; then the drawer lets
    // go of it, and a drawer released during its drag deletes itself.
    if (source && !source->isDragging())
        fail(QStringLiteral("the drawer forgot its drag before the drag object was gone"));
    EventSender::flushDeferredDeletes();
    if (st.detached) {
        if (source)
            fail(QStringLiteral("a drawer released during its drag outlived the drag"));
    } else if (!source) {
        fail(QStringLiteral("the dragging drawer vanished"));
    } else if (source->isDragging() || source->findChild<QDrag *>()) {
        fail(QStringLiteral("the drawer still holds its drag after the drag object was disposed of"));
    }
    if (st.controlGone) {
        destroyControl();
        createControl();
    }
}

} // namespace Stress
