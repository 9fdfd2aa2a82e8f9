// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Model-based random-operation stress test of SignalTreeList.
//
// A seeded random sequence drives every public operation of the control,
// with valid and invalid arguments, interleaved with real mouse events on
// the shown control (clicks, double clicks, enter and leave, the hover
// buttons) and with real drags. During a drag the host may delete the
// dragging root, clear the tree, destroy the whole control or call any
// other operation. The host also acts from inside the list's signals: it
// calls operations (often removing the row or root that just emitted), does
// so from a nested event loop as a modal dialog would, or deletes the whole
// control. A small oracle keeps what the public behaviour implies
// (the rows, their records and stored indices, the selection of every
// drawer, which signals reach the host with which paths) and after every
// step the oracle and the control must agree.
//
// Real drags need the "minimal" platform: its in-process drag runs
// QDrag::exec's nested event loop. A timer armed before the mouse move that
// starts the drag fires inside that loop; from there the test plays the
// host and the user (mouse moves and the release are sent to a top-level
// QWindow with their global position; the drag's event filter turns them
// into drag-enter, drag-move and drop events).
//
// Environment:
//   STRESS_SEED         one seed or several separated by commas
//                       (default: three fixed seeds)
//   STRESS_OPS          operations per seed (default 10000; 100000 with
//                       STRESS_LONG=1)
//   STRESS_TIME_BUDGET  seconds for the whole run; the test stops early and
//                       says how many operations ran (default 240)
//   STRESS_VERBOSE=1    prints every operation as it runs
//   STRESS_DEBUG=1      also traces the drag-and-drop events and drop points
//
// On a failure the test prints the seed, the first failing operation and
// the shortest failing prefix of the sequence it finds by re-running
// prefixes with the same seed on a fresh control.

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

namespace {

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

bool sameRecord(const st_NodeInfoSignal &a, const st_NodeInfoSignal &b)
{
    return a.strNodeName == b.strNodeName && a.strSourceName == b.strSourceName
           && a.nNodeData1 == b.nNodeData1 && a.isOnline == b.isOnline && a.showOpBtn == b.showOpBtn
           && a.iType == b.iType && a.nNodeData2 == b.nNodeData2 && a.iSignalGroupNo == b.iSignalGroupNo
           && a.eInputSourceType == b.eInputSourceType && a.iInputSourceNo == b.iInputSourceNo;
}

QString shortText(const QString &s)
{
    if (s.size() <= 16)
        return s;
    return s.left(8) + QStringLiteral("...<%1 chars>").arg(s.size());
}

QString describe(const st_NodeInfoSignal &n)
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

QString pathText(const QList<int> &path)
{
    QStringList parts;
    for (int v : path)
        parts << QString::number(v);
    return parts.join(QLatin1Char(','));
}

int oddInt(Rng &rng)
{
    static const int values[] = {0, 1, -1, 2, 7, INT_MAX, INT_MIN, 1000000, -65536};
    return rng.chance(60) ? rng.range(-3, 40) : values[rng.below(int(sizeof values / sizeof *values))];
}

QString randomName(Rng &rng)
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

st_NodeInfoSignal randomRecord(Rng &rng)
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

QList<st_NodeInfoSignal> randomRecords(Rng &rng, int maxCount)
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

void applyChildFlags(MChild &c, const QList<bool> &flags)
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

void applyRootFlags(MDrawer &d, const QList<bool> &flags)
{
    if (flags.size() == 1) {
        d.rootShowEdit = flags.at(0);
    } else if (flags.size() == 2) {
        d.rootShowEdit = flags.at(0);
        d.rootShowDelete = flags.at(1);
    }
}

void modelAddChildren(MDrawer &d, const QList<st_NodeInfoSignal> &records)
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

MDrawer modelNewDrawer(const Model &m, const st_NodeInfoSignal &root,
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

void modelSetExpanded(MDrawer &d, bool b)
{
    d.expanded = b;
    d.containerShown = b;
}

void modelSelectRoot(MDrawer &d)
{
    d.rootSel = true;
    d.selRec = d.root;
    d.selPath = QList<int>{d.stored};
}

void modelSelectChild(MDrawer &d, int pos)
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
QSize unlaidRowSize()
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
int waitingRowAt(DrawerControl *drawer, int rows, const QPoint &global)
{
    return rows > 0 && QRect(drawer->childContainer()->mapToGlobal(QPoint(0, 0)), unlaidRowSize()).contains(global)
        ? 0
        : -1;
}

int rowAt(const QList<MChild> &children, const QPoint &global)
{
    for (int i = 0; i < children.size(); ++i) {
        const SecondItem *row = children.at(i).widget;
        if (row && QRect(row->mapToGlobal(QPoint(0, 0)), row->size()).contains(global))
            return i;
    }
    return -1;
}

// ------------------------------------------------------------ helpers

void sendMouse(QWidget *w, QEvent::Type type, const QPoint &local, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    QMouseEvent ev(type, local, w->mapTo(w->window(), local), w->mapToGlobal(local), button, buttons,
                   Qt::NoModifier);
    QCoreApplication::sendEvent(w, &ev);
}

void clickAt(QWidget *w, const QPoint &p)
{
    QPointer<QWidget> guard(w);
    sendMouse(w, QEvent::MouseButtonPress, p, Qt::LeftButton, Qt::LeftButton);
    if (guard)
        sendMouse(w, QEvent::MouseButtonRelease, p, Qt::LeftButton, Qt::NoButton);
}

// Press, release, press, double click, release: what a window delivers for
// a double click.
void doubleClickAt(QWidget *w, const QPoint &p)
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

void sendPlain(QWidget *w, QEvent::Type type)
{
    QEvent ev(type);
    QCoreApplication::sendEvent(w, &ev);
}

// A drag mouse event at a global position, sent to a top-level window; the
// running drag's event filter takes it.
void sendDragMouse(QWindow *window, QEvent::Type type, const QPoint &global)
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

int envInt(const char *name, int fallback)
{
    bool ok = false;
    const int v = qEnvironmentVariable(name).toInt(&ok);
    return ok ? v : fallback;
}

QList<quint64> seedsFromEnv()
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

int opsFromEnv()
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

const char *const kOpNames[OpCount] = {
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
StressRun *g_currentRun = nullptr;

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

// ------------------------------------------------- events on the control

void StressRun::uiOp(Op op)
{
    QCoreApplication::processEvents();
    EventSender::flushDeferredDeletes();
    const QList<QPair<int, int>> rows = visibleRows();
    const QList<int> roots = visibleRoots();

    switch (op) {
    case OpClickChild:
    case OpDoubleClickChild: {
        if (rows.isEmpty())
            break;
        const QPair<int, int> at = rows.at(m_rng.below(rows.size()));
        MDrawer &d = m.drawers[at.first];
        SecondItem *row = d.children.at(at.second).widget;
        const bool twice = op == OpDoubleClickChild;
        note(QStringLiteral("%1 row %2 of drawer %3 (stored %4)")
                 .arg(twice ? QStringLiteral("double-click") : QStringLiteral("click"))
                 .arg(at.second)
                 .arg(at.first)
                 .arg(d.stored));
        // Every press reports the row while it is in the list; a double
        // click is delivered as a press and, for a widget that does not
        // handle double clicks, a second press. The host may remove the row
        // or more from any of them.
        QPointer<SecondItem> target = row;
        const QPoint p = row->rect().center();
        m_activeRow = row;
        expectRowPress(row);
        sendMouse(row, QEvent::MouseButtonPress, p, Qt::LeftButton, Qt::LeftButton);
        if (target)
            sendMouse(target, QEvent::MouseButtonRelease, p, Qt::LeftButton, Qt::NoButton);
        if (twice) {
            for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick}) {
                if (!target)
                    break;
                expectRowPress(target);
                sendMouse(target, type, p, Qt::LeftButton, Qt::LeftButton);
            }
            if (target)
                sendMouse(target, QEvent::MouseButtonRelease, p, Qt::LeftButton, Qt::NoButton);
        }
        m_activeRow = nullptr;
        break;
    }
    case OpClickRoot:
    case OpDoubleClickRoot: {
        if (roots.isEmpty())
            break;
        const int i = roots.at(m_rng.below(roots.size()));
        MDrawer &d = m.drawers[i];
        RootItem *root = d.widget->rootItem();
        const bool twice = op == OpDoubleClickRoot;
        note(QStringLiteral("%1 root row of drawer %2 (stored %3)")
                 .arg(twice ? QStringLiteral("double-click") : QStringLiteral("click"))
                 .arg(i)
                 .arg(d.stored));
        if (twice)
            doubleClickAt(root, root->rect().center());
        else
            clickAt(root, root->rect().center());
        modelSelectRoot(d);
        if (twice)
            modelSetExpanded(d, !d.expanded);
        break;
    }
    case OpClickCheckBox: {
        if (roots.isEmpty())
            break;
        const int i = roots.at(m_rng.below(roots.size()));
        MDrawer &d = m.drawers[i];
        QCheckBox *box = d.widget->rootItem()->findChild<QCheckBox *>();
        if (!box || !box->isVisible())
            break;
        note(QStringLiteral("click the expand box of drawer %1").arg(i));
        clickAt(box, box->rect().center());
        modelSetExpanded(d, !d.expanded);
        break;
    }
    case OpDoubleClickDrawer: {
        if (roots.isEmpty())
            break;
        const int i = roots.at(m_rng.below(roots.size()));
        MDrawer &d = m.drawers[i];
        DrawerControl *drawer = d.widget;
        const QPoint p(3, drawer->rootItem()->geometry().center().y());
        if (drawer->childAt(p))
            break;
        note(QStringLiteral("double-click the margin of drawer %1").arg(i));
        doubleClickAt(drawer, p);
        d.dragStart = p;
        modelSetExpanded(d, !d.expanded);
        break;
    }
    case OpPressNearRow: {
        if (rows.isEmpty())
            break;
        const QPair<int, int> at = rows.at(m_rng.below(rows.size()));
        MDrawer &d = m.drawers[at.first];
        SecondItem *row = d.children.at(at.second).widget;
        QWidget *container = d.widget->childContainer();
        const QPoint rowPos = row->mapTo(container, QPoint(0, row->height() / 2));
        const QPoint p(rowPos.x() - 1 - m_rng.below(4), rowPos.y());
        if (p.x() < 0 || container->childAt(p))
            break;
        note(QStringLiteral("press beside row %1 of drawer %2").arg(at.second).arg(at.first));
        // The container ignores presses: the drawer gets it.
        clickAt(container, p);
        d.dragStart = container->mapTo(d.widget, p);
        break;
    }
    case OpHoverChild: {
        if (rows.isEmpty())
            break;
        const QPair<int, int> at = rows.at(m_rng.below(rows.size()));
        MDrawer &d = m.drawers[at.first];
        const MChild &c = d.children.at(at.second);
        SecondItem *row = c.widget;
        note(QStringLiteral("hover row %1 of drawer %2").arg(at.second).arg(at.first));
        sendPlain(row, QEvent::Enter);
        const bool shown[4] = {c.showCapture, c.showEdit, c.showDelete, c.showFourth};
        QList<int> clickable;
        for (int b = 0; b < 4; ++b) {
            QToolButton *button = rowButton(row, b);
            if (!button) {
                fail(QStringLiteral("row without its four buttons"));
                return;
            }
            if (button->isVisibleTo(row) != shown[b])
                fail(QStringLiteral("hover: button %1 of row %2 of drawer %3 visible %4, expected %5")
                         .arg(b)
                         .arg(at.second)
                         .arg(at.first)
                         .arg(button->isVisibleTo(row))
                         .arg(shown[b]));
            if (shown[b])
                clickable << b;
        }
        if (!clickable.isEmpty() && m_rng.chance(70)) {
            const int b = clickable.at(m_rng.below(clickable.size()));
            static const char *const names[] = {"capture", "edit", "delete", "fourth"};
            note(QStringLiteral("  click the %1 button").arg(QLatin1String(names[b])));
            QToolButton *button = rowButton(row, b);
            QPointer<SecondItem> target = row;
            if (b < 3) {
                // The button's own signal follows the item-clicked one unless
                // the host removed the row (or more) in between.
                static const char *const signal[] = {"Capture", "Edit", "Delete"};
                expectRowPress(row);
                m_followUp = {row, QLatin1String(signal[b])};
            }
            m_activeRow = row;
            clickAt(button, button->rect().center());
            m_activeRow = nullptr;
            if (m_followUp.row)
                fail(QStringLiteral("the button's click reported nothing"));
            m_followUp = FollowUp();
            if (!target || findRow(target).first < 0)
                break; // removed by the host: nothing to leave
        }
        sendPlain(row, QEvent::Leave);
        for (int b = 0; b < 4; ++b) {
            if (rowButton(row, b)->isVisibleTo(row))
                fail(QStringLiteral("leave: button %1 still visible").arg(b));
        }
        break;
    }
    case OpHoverRoot: {
        if (roots.isEmpty())
            break;
        const int i = roots.at(m_rng.below(roots.size()));
        MDrawer &d = m.drawers[i];
        RootItem *root = d.widget->rootItem();
        QToolButton *edit = rootButton(root, "isEditBtn");
        QToolButton *del = rootButton(root, "isDelBtn");
        if (!edit || !del) {
            fail(QStringLiteral("root row without its edit and delete buttons"));
            return;
        }
        note(QStringLiteral("hover root row of drawer %1").arg(i));
        sendPlain(root, QEvent::Enter);
        if (edit->isVisibleTo(root) != d.rootShowEdit || del->isVisibleTo(root) != d.rootShowDelete)
            fail(QStringLiteral("hover: root buttons visible %1/%2, expected %3/%4")
                     .arg(edit->isVisibleTo(root))
                     .arg(del->isVisibleTo(root))
                     .arg(d.rootShowEdit)
                     .arg(d.rootShowDelete));
        QList<QToolButton *> clickable;
        if (d.rootShowEdit)
            clickable << edit;
        if (d.rootShowDelete)
            clickable << del;
        if (!clickable.isEmpty() && m_rng.chance(70)) {
            QToolButton *button = clickable.at(m_rng.below(clickable.size()));
            note(QStringLiteral("  click the root's %1 button")
                     .arg(button == edit ? QStringLiteral("edit") : QStringLiteral("delete")));
            // The root's buttons report the drawer's current selection.
            expect(QStringLiteral("%1(%2)")
                       .arg(button == edit ? QStringLiteral("Edit") : QStringLiteral("Delete"),
                            pathText(d.selPath)));
            QPointer<DrawerControl> drawer = d.widget;
            clickAt(button, button->rect().center());
            bool stillListed = false;
            for (const MDrawer &x : qAsConst(m.drawers))
                stillListed = stillListed || (drawer && x.widget == drawer);
            if (!stillListed)
                break; // released by the host: nothing to leave
        }
        sendPlain(root, QEvent::Leave);
        if (edit->isVisibleTo(root) || del->isVisibleTo(root))
            fail(QStringLiteral("leave: root buttons still visible"));
        break;
    }
    case OpDrag:
        opDrag();
        break;
    default:
        break;
    }
}

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

#ifdef STRESS_HAVE_SANITIZER
void onSanitizerDeath()
{
    StressRun::printRecent();
}
#endif

QtMessageHandler g_previousHandler = nullptr;

// The library traces to the debug stream on every press and deletion:
// thousands of lines that say nothing here.
void quietHandler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtDebugMsg)
        return;
    if (g_previousHandler)
        g_previousHandler(type, context, message);
}

} // namespace

class TestStress : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void randomOperations_data();
    void randomOperations();
    void cleanupTestCase();

private:
    QElapsedTimer m_clock;
    qint64 m_budgetMs = 0;
    int m_rowsLeft = 0;
    qint64 m_totalOps = 0;
};

void TestStress::initTestCase()
{
    EventSender::parkPointer();
    RowRealiser::setParking(true);
    if (QGuiApplication::platformName() != QLatin1String("minimal"))
        QSKIP("needs the minimal platform, whose in-process drag runs QDrag::exec");
    g_previousHandler = qInstallMessageHandler(quietHandler);
#ifdef STRESS_HAVE_SANITIZER
    __sanitizer_set_death_callback(onSanitizerDeath);
#endif
    m_budgetMs = qint64(envInt("STRESS_TIME_BUDGET", 240)) * 1000;
    m_rowsLeft = seedsFromEnv().size();
    m_clock.start();
    qInfo("stress: %d operations per seed, time budget %lld s, seeds %s", opsFromEnv(), m_budgetMs / 1000,
          qPrintable(qEnvironmentVariable("STRESS_SEED", QStringLiteral("(default)"))));
    qInfo("stress: after a crash, repeat with STRESS_SEED=<seed> STRESS_VERBOSE=1 to see every operation");
}

void TestStress::randomOperations_data()
{
    QTest::addColumn<quint64>("seed");
    for (quint64 seed : seedsFromEnv())
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

void TestStress::randomOperations()
{
    QFETCH(quint64, seed);
    const int ops = opsFromEnv();
    const bool verbose = qEnvironmentVariableIntValue("STRESS_VERBOSE") != 0;
    // Each seed gets its share of what is left of the budget.
    const qint64 left = qMax<qint64>(1000, m_budgetMs - m_clock.elapsed());
    const qint64 share = left / qMax(1, m_rowsLeft--);

    qInfo("stress: seed %llu: starting", static_cast<unsigned long long>(seed));
    StressRun run(seed, ops, share, verbose);
    const bool ok = run.run();
    m_totalOps += run.opsRun;

    QStringList perOp;
    for (int i = 0; i < OpCount; ++i)
        perOp << QStringLiteral("%1 %2").arg(QLatin1String(kOpNames[i])).arg(run.stats.ops[i]);
    qInfo("stress: seed %llu: %d of %d operations in %.1f s%s; drags started %d, drops %d, in-drag "
          "root deletions %d, row deletions %d, clears %d, destructions %d, host calls %d; host reactions "
          "%d (nested %d, destroying %d, removing the emitting row %d); host signals checked %d; largest "
          "tree %d drawers, %d child rows",
          static_cast<unsigned long long>(seed), run.opsRun, ops, run.elapsedMs / 1000.0,
          run.timedOut ? " (stopped by the time budget)" : "", run.stats.dragsStarted, run.stats.drops,
          run.stats.dragDeleteRoot, run.stats.dragDeleteRow, run.stats.dragClear, run.stats.dragDestroy, run.stats.dragHostOps,
          run.stats.reactCalls, run.stats.reactNested, run.stats.reactDestroy, run.stats.reactOwnRow,
          run.stats.signalsChecked, run.stats.maxDrawers, run.stats.maxRows);
    qInfo("stress: operations: %s", qPrintable(perOp.join(QStringLiteral(", "))));

    if (ok)
        return;

    // Shrink: the shortest prefix of the same sequence that still fails on
    // a fresh control.
    const int failingLength = run.failedAt + 1;
    int shortest = failingLength;
    QString shortestFailure = run.failure;
    QStringList shortestRecent = run.recent;
    // Shrinking re-runs the sequence; it stops a minute after the budget so
    // that the test still ends inside its timeout.
    const qint64 shrinkDeadline = m_budgetMs + 60000;
    const auto remaining = [&] { return qMax<qint64>(1, shrinkDeadline - m_clock.elapsed()); };
    {
        StressRun again(seed, failingLength, remaining(), false);
        if (again.run() || again.timedOut) {
            qWarning("stress: the failure did not repeat on a fresh control with the first %d operations",
                     failingLength);
        } else {
            shortest = again.failedAt + 1;
            shortestFailure = again.failure;
            shortestRecent = again.recent;
            int lo = 1, hi = shortest - 1; // search for a shorter failing prefix
            while (lo <= hi && m_clock.elapsed() < shrinkDeadline) {
                const int mid = lo + (hi - lo) / 2;
                StressRun probe(seed, mid, remaining(), false);
                const bool passed = probe.run();
                if (probe.timedOut)
                    break;
                if (passed) {
                    lo = mid + 1;
                } else {
                    shortest = probe.failedAt + 1;
                    shortestFailure = probe.failure;
                    shortestRecent = probe.recent;
                    hi = shortest - 1;
                }
            }
        }
    }
    const QString report =
        QStringLiteral("seed %1: operation #%2 failed: %3\nshortest failing prefix: %4 operations (#%5: %6)\n"
                       "repeat with: STRESS_SEED=%1 STRESS_OPS=%4 STRESS_VERBOSE=1\nlast operations:\n  %7")
            .arg(seed)
            .arg(run.failedAt)
            .arg(run.failure)
            .arg(shortest)
            .arg(shortest - 1)
            .arg(shortestFailure)
            .arg(shortestRecent.join(QStringLiteral("\n  ")));
    QFAIL(qPrintable(report));
}

void TestStress::cleanupTestCase()
{
    qInfo("stress: %lld operations in %.1f s", m_totalOps, m_clock.elapsed() / 1000.0);
}

QTEST_MAIN(TestStress)

#include "tst_stress.moc"
