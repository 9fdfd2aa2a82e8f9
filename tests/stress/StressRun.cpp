// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// One run: the control, choosing and running a step, and the run itself.

#include "StressRun.h"

namespace Stress {

void StressRun::createControl()
{
    if (!m_spare) {
        m_spare.reset(new QWidget);
        m_spare->setGeometry(560, 40, 200, 200);
        m_spare->show();
    }
    m_host = new QWidget;
    m_host->setGeometry(20, 20, 420, 540);
    m_list = new SignalTreeList(m_host);
    m_list->initControls();
    m_frame = qobject_cast<TreeListFrame *>(m_list->getSignalTreeListFrame());
    m_scroll = m_frame ? m_frame->findChild<QScrollArea *>() : nullptr;
    m_container = m_scroll ? m_scroll->widget() : nullptr;

    SignalTreeList *l = m_list;
    const auto path = [this](const char *name, bool isClicked) {
        return [this, name, isClicked](QList<int> p) {
            hostSignal(QStringLiteral("%1(%2)").arg(QLatin1String(name), pathText(p)), p, isClicked);
        };
    };
    QObject::connect(l, &SignalTreeList::signal_OnCurrentItemClicked, l, path("Clicked", true));
    QObject::connect(l, &SignalTreeList::signal_OnEditBtnClicked, l, path("Edit", false));
    QObject::connect(l, &SignalTreeList::signal_OnDeleteBtnClicked, l, path("Delete", false));
    QObject::connect(l, &SignalTreeList::signal_OnCaptureBtnClicked, l, path("Capture", false));
    QObject::connect(l, &SignalTreeList::signal_OnDeleteItem, l, path("DeleteItem", false));
    QObject::connect(l, &SignalTreeList::signal_OnAddRootItem, l,
                     [this](QString s) { hostSignal(QStringLiteral("AddRoot(%1)").arg(s), {}, false); });
    QObject::connect(l, &SignalTreeList::signal_OnAddSecondItems, l, [this](QList<int> a, QList<int> b) {
        hostSignal(QStringLiteral("AddSecond(%1|%2)").arg(pathText(a), pathText(b)), b, false);
    });
    QObject::connect(l, &SignalTreeList::signal_OnDeleteRootItem, l,
                     [this](int r) { hostSignal(QStringLiteral("DeleteRoot(%1)").arg(r), {r}, false); });
    QObject::connect(l, &SignalTreeList::signal_OnDeleteSecondItem, l, [this](int r, int c) {
        hostSignal(QStringLiteral("DeleteSecond(%1,%2)").arg(r).arg(c), {r, c}, false);
    });
    QObject::connect(l, &SignalTreeList::signal_OnGetNewRootName, l,
                     [this] { hostSignal(QStringLiteral("GetNewRootName"), {}, false); });

    m_host->show();
    if (!QTest::qWaitForWindowExposed(m_host, 5000))
        fail(QStringLiteral("the host window was not exposed"));
    m = Model();
}

void StressRun::destroyControl()
{
    for (const MDrawer &d : qAsConst(m.drawers))
        m_retired << d.widget;
    m.drawers.clear();
    delete m_host.data();
    delete m_list.data(); // only when it outlived its host (never, as built)
    EventSender::flushDeferredDeletes();
}

void StressRun::note(const QString &text)
{
    const QString line = QStringLiteral("#%1 %2").arg(m_opIndex).arg(text);
    recent << line;
    if (recent.size() > 40)
        recent.removeFirst();
    if (m_verbose)
        std::fprintf(stderr, "%s\n", qPrintable(line));
}

void StressRun::fail(const QString &what)
{
    if (failure.isEmpty()) {
        failure = what;
        failedAt = m_opIndex;
    }
}

int StressRun::pickRoot(bool preferZero)
{
    const int n = m.drawers.size();
    const int k = m_rng.below(100);
    if (preferZero && k < 45)
        return 0;
    if (n > 0 && k < 85)
        return m_rng.below(n);
    static const int odd[] = {-1, -2, INT_MIN, INT_MAX, 1000000};
    const int j = m_rng.below(7);
    if (j < 5)
        return odd[j];
    return n + j - 5; // n, n + 1
}

int StressRun::pickChild(int root)
{
    const int n = root >= 0 && root < m.drawers.size() ? m.drawers.at(root).children.size() : 4;
    const int k = m_rng.below(100);
    if (n > 0 && k < 75)
        return m_rng.below(n);
    static const int odd[] = {-1, INT_MIN, INT_MAX, 0, 99};
    const int j = m_rng.below(7);
    if (j < 5)
        return odd[j];
    return n + j - 5;
}

QList<int> StressRun::randomPath(bool preferZero)
{
    const int k = m_rng.below(100);
    const int length = k < 8 ? 0 : k < 40 ? 1 : k < 90 ? 2 : 3;
    QList<int> path;
    if (length >= 1)
        path << pickRoot(preferZero);
    if (length >= 2)
        path << pickChild(path.at(0));
    if (length >= 3)
        path << pickChild(path.at(0));
    return path;
}

// Child rows (drawer position, row position) that are shown on screen.
QList<QPair<int, int>> StressRun::visibleRows()
{
    QList<QPair<int, int>> rows;
    if (!frameShown())
        return rows;
    for (int i = 0; i < m.drawers.size(); ++i) {
        MDrawer &d = m.drawers[i];
        for (int j = 0; j < d.children.size(); ++j) {
            // The widgets of the moment: a row parked since has none.
            d.children[j].widget = d.widget ? d.widget->builtRow(j) : nullptr;
            if (d.children.at(j).widget && d.children.at(j).widget->isVisible())
                rows << qMakePair(i, j);
        }
    }
    return rows;
}

QList<int> StressRun::visibleRoots()
{
    QList<int> roots;
    if (!frameShown())
        return roots;
    for (int i = 0; i < m.drawers.size(); ++i) {
        if (m.drawers.at(i).widget && m.drawers.at(i).widget->isVisible())
            roots << i;
    }
    return roots;
}

Op StressRun::chooseOp(bool apiOnly)
{
    int w[OpCount] = {};
    const int n = m.drawers.size();
    w[OpAddRoot] = 6;
    w[OpAddRootWithChildren] = 7;
    w[OpAddChild] = 8;
    w[OpClearTree] = 1;
    w[OpDeleteRoot] = 5;
    w[OpDeleteChilde] = 8;
    w[OpGetNode] = 6;
    w[OpModify] = 8;
    w[OpSetCurSel] = 6;
    w[OpSetIsDrag] = 3;
    w[OpSetShowChild] = 7;
    w[OpSetRootName] = 2;
    w[OpSetFrameVisible] = m.frameHidden ? 6 : 1;
    w[OpUpdateTree] = 2;
    w[OpReTranslate] = 1;
    w[OpGetFrame] = 1;
    if (!apiOnly) {
        w[OpRecreate] = m_rng.chance(20) ? 1 : 0;
        w[OpClickChild] = 10;
        w[OpDoubleClickChild] = 3;
        w[OpClickRoot] = 4;
        w[OpDoubleClickRoot] = 3;
        w[OpClickCheckBox] = 3;
        w[OpDoubleClickDrawer] = 2;
        w[OpPressNearRow] = 2;
        w[OpHoverChild] = 5;
        w[OpHoverRoot] = 3;
        w[OpDrag] = 10;
    }
    // Keep the tree to a size that a few thousand steps can churn through.
    if (n > 30) {
        w[OpDeleteRoot] += 10;
        w[OpDeleteChilde] += 6;
        w[OpClearTree] += n > 60 ? 6 : 1;
    }
    if (n > 90 || apiOnly) {
        w[OpUpdateTree] = apiOnly ? 1 : 0;
        w[OpAddRootWithChildren] = n > 90 ? 0 : w[OpAddRootWithChildren];
        w[OpAddRoot] = n > 90 ? 0 : w[OpAddRoot];
    }
    int total = 0;
    for (int v : w)
        total += v;
    int r = m_rng.below(total);
    for (int i = 0; i < OpCount; ++i) {
        if (r < w[i])
            return Op(i);
        r -= w[i];
    }
    return OpGetNode;
}

void StressRun::runOp(Op op)
{
    stats.ops[op]++;
    if (op <= OpRecreate)
        apiOp(op);
    else
        uiOp(op);
}

bool StressRun::run()
{
    g_currentRun = this;
    std::unique_ptr<DndTracer> tracer;
    if (qEnvironmentVariableIntValue("STRESS_DEBUG")) {
        tracer.reset(new DndTracer);
        qApp->installEventFilter(tracer.get());
    }
    QElapsedTimer clock;
    clock.start();
    createControl();
    QString problem = check(true);
    if (!problem.isEmpty())
        fail(QStringLiteral("fresh control: %1").arg(problem));
    for (m_opIndex = 0; m_opIndex < m_maxOps && failure.isEmpty(); ++m_opIndex) {
        if (m_budgetMs > 0 && clock.elapsed() > m_budgetMs) {
            timedOut = true;
            break;
        }
        const Op op = chooseOp(false);
        runOp(op);
        recreateIfGone();
        opsRun = m_opIndex + 1;
        if (!failure.isEmpty())
            break;
        problem = check(true);
        if (!problem.isEmpty())
            fail(problem);
        int rows = 0;
        for (const MDrawer &d : qAsConst(m.drawers))
            rows += d.children.size();
        stats.maxDrawers = qMax(stats.maxDrawers, m.drawers.size());
        stats.maxRows = qMax(stats.maxRows, rows);
    }
    destroyControl();
    elapsedMs = clock.elapsed();
    g_currentRun = nullptr;
    return failure.isEmpty();
}

} // namespace Stress
