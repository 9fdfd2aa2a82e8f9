// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// The stress test's pieces: randomness, records, the oracle that keeps what
// the public behaviour implies, and one run of random operations
// (StressRun, its parts in tests/stress/*.cpp). See tst_stress.cpp.

#pragma once

#include "ChildRowState.h"
#include "DrawerControl.h"
#include "RowRealiser.h"
#include "EventSender.h"
#include "RootItem.h"
#include "RowButtons.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"

#include <algorithm>

#include <QApplication>
#include <QCheckBox>
#include <QDrag>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLayout>
#include <QMap>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>
#include <QWindow>
#include <QtTest>

#include <climits>
#include <cstdio>
#include <functional>
#include <memory>

#if defined(__SANITIZE_ADDRESS__)
#define STRESS_HAVE_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define STRESS_HAVE_SANITIZER 1
#endif
#endif
#ifdef STRESS_HAVE_SANITIZER
#include <sanitizer/common_interface_defs.h>
#endif

namespace Stress {

// ------------------------------------------------------------ randomness

// splitmix64: small, fast and the same on every platform and library.
class Rng
{
public:
    explicit Rng(quint64 seed) : m_state(seed) {}
    quint64 next()
    {
        quint64 z = (m_state += Q_UINT64_C(0x9E3779B97F4A7C15));
        z = (z ^ (z >> 30)) * Q_UINT64_C(0xBF58476D1CE4E5B9);
        z = (z ^ (z >> 27)) * Q_UINT64_C(0x94D049BB133111EB);
        return z ^ (z >> 31);
    }
    int below(int n) { return n <= 0 ? 0 : int(next() % quint64(n)); }
    int range(int lo, int hi) { return lo + below(hi - lo + 1); } // inclusive
    bool chance(int percent) { return below(100) < percent; }

private:
    quint64 m_state;
};

// ------------------------------------------------------------- records

inline bool sameRecord(const st_NodeInfoSignal &a, const st_NodeInfoSignal &b)
{
    return a.strNodeName == b.strNodeName && a.strSourceName == b.strSourceName
           && a.nNodeData1 == b.nNodeData1 && a.isOnline == b.isOnline && a.showOpBtn == b.showOpBtn
           && a.iType == b.iType && a.nNodeData2 == b.nNodeData2 && a.iSignalGroupNo == b.iSignalGroupNo
           && a.eInputSourceType == b.eInputSourceType && a.iInputSourceNo == b.iInputSourceNo;
}

inline QString shortText(const QString &s)
{
    if (s.size() <= 16)
        return s;
    return s.left(8) + QStringLiteral("...<%1 chars>").arg(s.size());
}

inline QString describe(const st_NodeInfoSignal &n)
{
    QStringList names;
    for (const QString &s : n.strNodeName)
        names << shortText(s);
    QString buttons;
    for (bool b : n.showOpBtn)
        buttons += b ? QLatin1Char('1') : QLatin1Char('0');
    return QStringLiteral("{[%1] src=%2 type=%3 online=%4 btn=%5 d1=%6 d2=%7 g=%8 e=%9 in=%10}")
        .arg(names.join(QLatin1Char('|')), shortText(n.strSourceName))
        .arg(n.iType)
        .arg(int(n.isOnline))
        .arg(buttons)
        .arg(n.nNodeData1)
        .arg(n.nNodeData2)
        .arg(n.iSignalGroupNo)
        .arg(n.eInputSourceType)
        .arg(n.iInputSourceNo);
}

inline QString pathText(const QList<int> &path)
{
    QStringList parts;
    for (int v : path)
        parts << QString::number(v);
    return parts.join(QLatin1Char(','));
}

inline int oddInt(Rng &rng)
{
    static const int values[] = {0, 1, -1, 2, 7, INT_MAX, INT_MIN, 1000000, -65536};
    return rng.chance(60) ? rng.range(-3, 40) : values[rng.below(int(sizeof values / sizeof *values))];
}

inline QString randomName(Rng &rng)
{
    const int kind = rng.below(100);
    if (kind < 5)
        return QString();
    static const QString alphabet =
        QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 -_.,#") + QChar(0x00E9)
        + QChar(0x4E2D) + QChar(0x00DF);
    int length = rng.range(1, 14);
    if (kind < 7)
        length = 10000;
    else if (kind < 10)
        length = rng.range(15, 300);
    QString name;
    name.reserve(length);
    for (int i = 0; i < length; ++i)
        name += alphabet.at(rng.below(alphabet.size()));
    return name;
}

inline st_NodeInfoSignal randomRecord(Rng &rng)
{
    st_NodeInfoSignal n;
    const int k = rng.below(100);
    const int names = k < 10 ? 0 : k < 60 ? 1 : k < 90 ? 2 : 3;
    for (int i = 0; i < names; ++i)
        n.strNodeName << randomName(rng);
    static const char *const sources[] = {"", "src-A", "src-B", "src-C"};
    n.strSourceName = rng.chance(80) ? QString::fromLatin1(sources[rng.below(4)]) : randomName(rng);
    n.nNodeData1 = qint64(rng.next());
    n.isOnline = rng.chance(50);
    const int buttons = rng.range(0, 5);
    for (int i = 0; i < buttons; ++i)
        n.showOpBtn << rng.chance(60);
    n.iType = rng.range(-1, 20);
    n.nNodeData2 = qint64(rng.next());
    n.iSignalGroupNo = oddInt(rng);
    n.eInputSourceType = oddInt(rng);
    n.iInputSourceNo = oddInt(rng);
    return n;
}

inline QList<st_NodeInfoSignal> randomRecords(Rng &rng, int maxCount)
{
    QList<st_NodeInfoSignal> list;
    const int count = rng.range(0, maxCount);
    for (int i = 0; i < count; ++i)
        list << randomRecord(rng);
    return list;
}

// ------------------------------------------------------------ the oracle

struct MChild
{
    st_NodeInfoSignal rec;
    int storedIndex = 0; // the index the row was created with, never renumbered
    bool showEdit = false, showDelete = false, showCapture = false, showFourth = false;
    // The row's widget while it is one: rows off screen are parked and made
    // again, so a row is known by its key.
    QPointer<SecondItem> widget;
    quint64 key = 0; // identity, filled in when first seen
};

struct MDrawer
{
    int stored = -1; // the drawer's root index: its position at creation
    st_NodeInfoSignal root;
    QList<MChild> children;
    int addedRecords = 0; // records handed to addSecondItems so far
    bool rootShowEdit = false, rootShowDelete = false;
    bool rootSel = true;
    QList<int> selPath;
    st_NodeInfoSignal selRec;
    int cur = -1;
    bool expanded = false;
    bool containerShown = true; // until the expanded state is first applied
    bool drag = false;
    QPoint dragStart{0, 0};
    QPointer<DrawerControl> widget;
};

struct Model
{
    QList<MDrawer> drawers;
    bool isDrag = false;
    bool frameHidden = false;
    QStringList rootName;
    QList<int> dragSrc, dragDst;
};

inline void applyChildFlags(MChild &c, const QList<bool> &flags)
{
    const int n = flags.size();
    if (n < 1 || n > 4)
        return;
    c.showEdit = flags.at(0);
    if (n >= 2)
        c.showDelete = flags.at(1);
    if (n >= 3)
        c.showCapture = flags.at(2);
    if (n >= 4)
        c.showFourth = flags.at(3);
}

inline void applyRootFlags(MDrawer &d, const QList<bool> &flags)
{
    if (flags.size() == 1) {
        d.rootShowEdit = flags.at(0);
    } else if (flags.size() == 2) {
        d.rootShowEdit = flags.at(0);
        d.rootShowDelete = flags.at(1);
    }
}

inline void modelAddChildren(MDrawer &d, const QList<st_NodeInfoSignal> &records)
{
    for (const st_NodeInfoSignal &r : records) {
        MChild c;
        c.rec = r;
        c.storedIndex = d.addedRecords++;
        applyChildFlags(c, r.showOpBtn);
        d.children << c;
    }
    d.containerShown = d.expanded;
}

inline MDrawer modelNewDrawer(const Model &m, const st_NodeInfoSignal &root,
                       const QList<st_NodeInfoSignal> &children, int position)
{
    MDrawer d;
    d.stored = position;
    d.root = root;
    d.drag = m.isDrag;
    applyRootFlags(d, root.showOpBtn);
    if (!children.isEmpty())
        modelAddChildren(d, children);
    return d;
}

inline void modelSetExpanded(MDrawer &d, bool b)
{
    d.expanded = b;
    d.containerShown = b;
}

inline void modelSelectRoot(MDrawer &d)
{
    d.rootSel = true;
    d.selRec = d.root;
    d.selPath = QList<int>{d.stored};
}

inline void modelSelectChild(MDrawer &d, int pos)
{
    d.rootSel = false;
    d.cur = pos;
    d.selRec = d.children.at(pos).rec;
    d.selPath = QList<int>{d.stored, pos};
}

// The child row under a point in screen coordinates, as the drawer finds
// it: the first row, in list order, whose rectangle (its top-left corner
// mapped to the screen, its size) contains the point, shown or not; -1 when
// none does.
// The size of a child row that was made but never laid out.
inline QSize unlaidRowSize()
{
    static const QSize size = [] {
        QWidget parent;
        SecondItem row(&parent);
        row.initItem(0, 0);
        row.setNodeInfo(st_NodeInfoSignal());
        return row.size();
    }();
    return size;
}

// Where the rows of a drawer never expanded would be: never laid out, they
// all sit at the container's origin, so the first one answers.
inline int waitingRowAt(DrawerControl *drawer, int rows, const QPoint &global)
{
    return rows > 0 && QRect(drawer->childContainer()->mapToGlobal(QPoint(0, 0)), unlaidRowSize()).contains(global)
        ? 0
        : -1;
}

inline int rowAt(const QList<MChild> &children, const QPoint &global)
{
    for (int i = 0; i < children.size(); ++i) {
        const SecondItem *row = children.at(i).widget;
        if (row && QRect(row->mapToGlobal(QPoint(0, 0)), row->size()).contains(global))
            return i;
    }
    return -1;
}

// ------------------------------------------------------------ helpers

inline void sendMouse(QWidget *w, QEvent::Type type, const QPoint &local, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    QMouseEvent ev(type, local, w->mapTo(w->window(), local), w->mapToGlobal(local), button, buttons,
                   Qt::NoModifier);
    QCoreApplication::sendEvent(w, &ev);
}

inline void clickAt(QWidget *w, const QPoint &p)
{
    QPointer<QWidget> guard(w);
    sendMouse(w, QEvent::MouseButtonPress, p, Qt::LeftButton, Qt::LeftButton);
    if (guard)
        sendMouse(w, QEvent::MouseButtonRelease, p, Qt::LeftButton, Qt::NoButton);
}

// Press, release, press, double click, release: what a window delivers for
// a double click.
inline void doubleClickAt(QWidget *w, const QPoint &p)
{
    QPointer<QWidget> guard(w);
    clickAt(w, p);
    if (guard)
        sendMouse(w, QEvent::MouseButtonPress, p, Qt::LeftButton, Qt::LeftButton);
    if (guard)
        sendMouse(w, QEvent::MouseButtonDblClick, p, Qt::LeftButton, Qt::LeftButton);
    if (guard)
        sendMouse(w, QEvent::MouseButtonRelease, p, Qt::LeftButton, Qt::NoButton);
}

inline void sendPlain(QWidget *w, QEvent::Type type)
{
    QEvent ev(type);
    QCoreApplication::sendEvent(w, &ev);
}

// A drag mouse event at a global position, sent to a top-level window; the
// running drag's event filter takes it.
inline void sendDragMouse(QWindow *window, QEvent::Type type, const QPoint &global)
{
    const QPointF local = window->mapFromGlobal(global);
    const Qt::MouseButton button = type == QEvent::MouseButtonRelease ? Qt::LeftButton : Qt::NoButton;
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent ev(type, local, local, global, button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &ev);
}

using RowButtons::rootButton;
using RowButtons::rowButton;

// ------------------------------------------------------------- settings

inline int envInt(const char *name, int fallback)
{
    bool ok = false;
    const int v = qEnvironmentVariable(name).toInt(&ok);
    return ok ? v : fallback;
}

inline QList<quint64> seedsFromEnv()
{
    QList<quint64> seeds;
    const QString text = qEnvironmentVariable("STRESS_SEED");
    for (const QString &part : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        bool ok = false;
        const quint64 v = part.trimmed().toULongLong(&ok, 0);
        if (ok)
            seeds << v;
    }
    if (seeds.isEmpty())
        seeds << 20240611 << 7 << 424242;
    return seeds;
}

inline int opsFromEnv()
{
    return envInt("STRESS_OPS", qEnvironmentVariableIntValue("STRESS_LONG") ? 100000 : 10000);
}

// --------------------------------------------------------------- the run

enum Op {
    OpAddRoot,
    OpAddRootWithChildren,
    OpAddChild,
    OpClearTree,
    OpDeleteRoot,
    OpDeleteChilde,
    OpGetNode,
    OpModify,
    OpSetCurSel,
    OpSetIsDrag,
    OpSetShowChild,
    OpSetRootName,
    OpSetFrameVisible,
    OpUpdateTree,
    OpReTranslate,
    OpGetFrame,
    OpRecreate,
    // events on the shown control
    OpClickChild,
    OpDoubleClickChild,
    OpClickRoot,
    OpDoubleClickRoot,
    OpClickCheckBox,
    OpDoubleClickDrawer,
    OpPressNearRow,
    OpHoverChild,
    OpHoverRoot,
    OpDrag,
    OpCount
};

inline const char *const kOpNames[OpCount] = {
    "addRootItem", "addRootItem+children", "addChildItem", "clearTree", "deleteRootItem",
    "deleteChildeItem", "getItemSignalNode", "modifyItemData", "setCurSelItem", "setIsDrag",
    "setIsShowChildItem", "setSignalRootName", "setSignalTreeListFrameVisiable", "updateTreeList",
    "reTranslateUI", "getSignalTreeListFrame", "recreate", "click child", "double-click child",
    "click root", "double-click root", "click check box", "double-click drawer", "press near row",
    "hover child", "hover root", "drag"};

struct Stats
{
    int ops[OpCount] = {};
    int dragsStarted = 0;
    int drops = 0;
    int dragDeleteRoot = 0, dragDeleteRow = 0, dragClear = 0, dragDestroy = 0, dragHostOps = 0;
    int signalsChecked = 0;
    int reactCalls = 0, reactNested = 0, reactDestroy = 0, reactOwnRow = 0;
    int maxDrawers = 0;
    int maxRows = 0;
};

class StressRun;
inline StressRun *g_currentRun = nullptr;

// STRESS_DEBUG=1: traces the drag-and-drop events the widgets receive.
class DndTracer : public QObject
{
protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::DragLeave:
        case QEvent::Drop: {
            QString line;
            QDebug dbg(&line);
            dbg << "  event" << event->type() << "to" << watched;
            if (event->type() != QEvent::DragLeave)
                dbg << static_cast<QDropEvent *>(event)->pos() << "accepted" << event->isAccepted();
            std::fprintf(stderr, "%s\n", qPrintable(line));
            break;
        }
        default:
            break;
        }
        return false;
    }
};

class StressRun
{
public:
    StressRun(quint64 seed, int maxOps, qint64 budgetMs, bool verbose)
        : m_rng(seed), m_seed(seed), m_maxOps(maxOps), m_budgetMs(budgetMs), m_verbose(verbose)
    {
    }

    ~StressRun()
    {
        destroyControl();
        if (g_currentRun == this)
            g_currentRun = nullptr;
    }

    bool run();

    int opsRun = 0;
    int failedAt = -1;
    bool timedOut = false;
    QString failure;
    QStringList recent; // descriptions of the last operations
    Stats stats;
    qint64 elapsedMs = 0;

    static void printRecent()
    {
        if (!g_currentRun)
            return;
        std::fprintf(stderr, "stress: seed %llu, operation #%d running; last operations:\n",
                     static_cast<unsigned long long>(g_currentRun->m_seed), g_currentRun->m_opIndex);
        for (const QString &s : qAsConst(g_currentRun->recent))
            std::fprintf(stderr, "  %s\n", qPrintable(s));
        std::fflush(stderr);
    }

private:
    // control
    void createControl();
    void destroyControl();
    // one step
    Op chooseOp(bool apiOnly);
    void runOp(Op op);
    void apiOp(Op op);
    void uiOp(Op op);
    void opDrag();
    // the host, from inside the list's signals
    void hostSignal(const QString &text, const QList<int> &path, bool isClicked);
    void react(const QList<int> &path);
    void hostCalls(const QList<int> &path);
    void expectRowPress(SecondItem *row);
    QPair<int, int> findRow(const SecondItem *row) const;
    void deleteChildePath(const QList<int> &path);
    void deleteRoot(int r);
    void recreateIfGone();
    // oracle
    QString check(bool full);
    void fail(const QString &what);
    void note(const QString &text);
    void expect(const QString &signal) { m_expected << signal; }
    int pickRoot(bool preferZero);
    int pickChild(int root);
    QList<int> randomPath(bool preferZero);
    QList<QPair<int, int>> visibleRows();
    QList<int> visibleRoots();
    bool frameShown() const { return m_host && m_frame && m_frame->isVisible(); }

    Rng m_rng;
    quint64 m_seed;
    int m_maxOps;
    qint64 m_budgetMs;
    bool m_verbose;
    int m_opIndex = 0;
    bool m_inDrag = false;
    bool m_mayReact = true; // off while a drag is being prepared or runs
    int m_reactDepth = 0; // > 0 while the host reacts to a signal
    bool m_controlGone = false; // the host deleted the control from a slot
    QPointer<SecondItem> m_activeRow; // the row whose handler runs, if any
    // A button's own signal, due after the row's item-clicked signal.
    struct FollowUp
    {
        QPointer<SecondItem> row;
        QString signal;
    } m_followUp;

    QPointer<QWidget> m_host;
    QPointer<SignalTreeList> m_list;
    QPointer<TreeListFrame> m_frame;
    QPointer<QScrollArea> m_scroll;
    QPointer<QWidget> m_container;
    std::unique_ptr<QWidget> m_spare; // a window to release drags over, away from the list

    Model m;
    QStringList m_log;      // what the host received
    QStringList m_expected; // what the oracle says it must receive
    QList<QPointer<DrawerControl>> m_retired; // removed drawers: must be gone after deferred deletion
    QList<QPointer<SecondItem>> m_retiredRows; // rows removed under their own handler: likewise
};

} // namespace Stress
