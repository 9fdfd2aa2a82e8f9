// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// The differential harness: random host scripts (the public operations with
// bad input among them, clicks, hover, button clicks, keys, and a host that
// answers signals from its slots) run side by side on a reference list,
// whose drawers build their rows at once and whose frame rebuilds its
// layout on every new drawer, and on the list as shipped. After
// every step, once the event loop has settled, everything a host or user
// can observe must be the same on both: the signals with their paths, the
// debug lines, getItemSignalNode, the accessibility tree, the scroll range
// and position, every shown row (ListProbe) and the pixels of the viewport.
// A difference fails with the first differing step and the script up to it.
//
// Looks: no style sheet ("none"), the reference dark sheet ("dark"), and a
// test sheet whose rules change fonts and heights by state ("state").
// DIFF_LOOKS=none,dark chooses some (default all three), DIFF_SEEDS=N
// runs N seeds a look (default 6), DIFF_STEPS=N steps a seed (default 120),
// DIFF_SEED=S one seed (DIFF_MOOD=0, 1 or 2 its mood); DIFF_VERBOSE=1
// prints every differing line of the state. Seeds take turns at three moods
// (mixed, closed groups, filled before shown). Under the minimal platform
// the scripts drag rows too (its drag runs QDrag::exec; it shows no
// pixels, so the pictures are compared under offscreen only).

#include "DragDriver.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "HostRecorder.h"
#include "KeyboardNavigator.h"
#include "LayoutCheck.h"
#include "ListProbe.h"
#include "MessageCapture.h"
#include "RootItem.h"
#include "RowAt.h"
#include "RowRealiser.h"
#include "RowClick.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TestSheets.h"
#include "TreeListFrame.h"
#include "TreeText.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QApplication>
#include <QCheckBox>
#include <QDrag>
#include <QFile>
#include <QMouseEvent>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

#include <functional>
#include <memory>
#include <random>

namespace {

QString sheetFor(const QString &look)
{
    if (look == QLatin1String("none"))
        return QString();
    QString sheet = TestSheets::read(QStringLiteral(DARK_STYLE_SHEET));
    if (!sheet.isEmpty() && look == QLatin1String("state"))
        sheet += TestSheets::stateRules();
    return sheet;
}

int envInt(const char *name, int fallback)
{
    bool ok = false;
    const int value = qEnvironmentVariableIntValue(name, &ok);
    return ok ? value : fallback;
}

// A list with more widgets may need more turns than the other.
using EventSender::settle;

// One list in a window of its own: the reference or the shipped one.
struct Side
{
    bool atOnce = false;
    std::unique_ptr<QWidget> window;
    QPointer<SignalTreeList> list;
    std::unique_ptr<HostRecorder> recorder;
    std::unique_ptr<LayoutCheck> layout;

    TreeListFrame *frame() const { return list ? qobject_cast<TreeListFrame *>(list->getSignalTreeListFrame()) : nullptr; }
    DrawerControl *drawer(int r) const { return frame() ? frame()->drawers().value(r) : nullptr; }
    // A shown row as a user reaches it: scrolled into view.
    QWidget *row(const QList<int> &path) const { return RowAt::shown(list, path); }
};

// What a step left behind, for comparison.
struct Seen
{
    QStringList events;
    QStringList lines;
    QStringList dump;
    QImage picture;
    // Where the layout model, given the rows' looks, puts rows that are not
    // where their widgets are.
    QStringList misplaced;
};

// How a script leans. Mixed: everything a host and a user do. Closed: most
// groups stay closed while the host modifies, selects and adds to them (the
// rows wait unbuilt longest). Unshown: the host fills the lists before their
// windows are shown, as applications do at start.
enum class Mood { Mixed, Closed, Unshown };

const char *moodName(Mood mood)
{
    return mood == Mood::Mixed ? "mixed" : mood == Mood::Closed ? "closed" : "unshown";
}

// The kinds of step, and how often each comes in a mood.
enum Kind {
    AddRoot, AddChild, DeleteRoot, DeleteChild, Modify, SetCurrent, ShowChildren, SetDrag, Clear, Update,
    Click, Hover, Key, DragRow, Scroll, Resize, KindCount
};
// Mixed, closed, and any mood while the windows are not shown yet.
const int kWeights[3][KindCount] = {
    {14, 8, 5, 7, 12, 7, 10, 2, 1, 2, 14, 6, 12, 8, 10, 2},
    {8, 12, 2, 4, 30, 12, 5, 1, 1, 2, 10, 5, 8, 3, 8, 2},
    {8, 12, 2, 4, 30, 12, 8, 1, 1, 2, 0, 0, 0, 0, 0, 1},
};

class Script
{
public:
    Script(quint32 seed, Mood mood)
        : m_rng(seed)
        , m_mood(mood)
    {
    }

    int pick(int n) { return n <= 0 ? 0 : int(m_rng() % quint32(n)); }
    bool chance(int percent) { return pick(100) < percent; }

    QStringList names()
    {
        static const QStringList words{"HDMI 1", "DVI 2", "SDI", "1920x1080@60", "3840x2160@30",
                                       "Lobby camera, north entrance, PTZ preset 3", "Board 12 input 4",
                                       "Control room PC (left)", "VGA", "x"};
        const int roll = pick(100);
        const int count = roll < 50 ? 1 : roll < 85 ? 2 : roll < 92 ? 0 : 3;
        QStringList out;
        for (int i = 0; i < count; ++i) {
            // Closed groups get more lines too long for the row, which the
            // rows elide by the fonts of their state.
            const int word = m_mood == Mood::Closed && chance(25) ? 5 : pick(words.size());
            out << words.at(word) + QStringLiteral(" %1").arg(pick(20));
        }
        return out;
    }

    st_NodeInfoSignal node(bool root)
    {
        st_NodeInfoSignal n;
        n.strNodeName = names();
        n.strSourceName = QStringLiteral("S%1").arg(pick(5));
        n.isOnline = chance(70);
        n.iType = root ? pick(2) : pick(20);
        const int flags = pick(6);
        for (int i = 0; i < flags; ++i)
            n.showOpBtn << chance(60);
        n.nNodeData1 = pick(1000);
        return n;
    }

    QList<st_NodeInfoSignal> children(int most)
    {
        QList<st_NodeInfoSignal> out;
        // Empty batches add spacings; closed groups get more of them.
        const int count = m_mood == Mood::Closed && chance(30) ? 0 : pick(most + 1);
        for (int i = 0; i < count; ++i)
            out << node(false);
        return out;
    }

    QList<int> path(int roots, int children)
    {
        const int length = chance(85) ? 1 + pick(2) : (chance(50) ? 0 : 3);
        QList<int> p;
        for (int i = 0; i < length; ++i)
            p << (i == 0 ? pick(roots + 2) - 1 : pick(children + 2) - 1);
        return p;
    }

    Kind kind(bool shown, bool drags)
    {
        const int *weights = kWeights[!shown ? 2 : m_mood == Mood::Closed ? 1 : 0];
        int total = 0;
        for (int k = 0; k < KindCount; ++k)
            total += (k == DragRow && !drags) ? 0 : weights[k];
        int roll = pick(total);
        for (int k = 0; k < KindCount; ++k) {
            const int weight = (k == DragRow && !drags) ? 0 : weights[k];
            if (roll < weight)
                return Kind(k);
            roll -= weight;
        }
        return Key;
    }

    std::mt19937 m_rng;
    Mood m_mood;
};

QList<QList<int>> shownPaths(const Side &side)
{
    QList<QList<int>> paths;
    TreeListFrame *frame = side.frame();
    if (!frame)
        return paths;
    const QList<DrawerControl *> drawers = frame->drawers();
    for (int r = 0; r < drawers.size(); ++r) {
        DrawerControl *d = drawers.at(r);
        if (!d || d->isHidden())
            continue;
        paths << QList<int>{r};
        if (d->showsChildren()) {
            for (int c = 0; c < d->secondItems().size(); ++c)
                paths << QList<int>{r, c};
        }
    }
    return paths;
}

// A step: a short text for the reproduction, and what it does to a side.
struct Step
{
    QString text;
    std::function<void(Side &)> run;
};

// Real drags need the minimal platform: its in-process drag runs QDrag::exec.
bool dragsRun()
{
    return QGuiApplication::platformName() == QLatin1String("minimal");
}

Step dragStep(Script &s, const QList<QList<int>> &shown);
// Drags that started and drops that a list stored, over the whole run (both
// sides).
int g_dragsStarted = 0;
int g_drops = 0;

Step makeStep(Script &s, const Side &reference, bool windowsShown)
{
    TreeListFrame *frame = reference.frame();
    const int roots = frame ? frame->drawers().size() : 0;
    const QList<QList<int>> shown = shownPaths(reference);
    const Kind kind = s.kind(windowsShown, dragsRun());
    if (kind == AddRoot) {
        st_NodeInfoSignal root = s.node(true);
        QList<st_NodeInfoSignal> rows = s.children(4);
        const bool withRows = !rows.isEmpty() || s.chance(50);
        return {QStringLiteral("addRootItem(%1 rows)").arg(withRows ? rows.size() : -1), [root, rows, withRows](Side &side) {
                    st_NodeInfoSignal copy = root;
                    if (withRows)
                        side.list->addRootItem(copy, rows);
                    else
                        side.list->addRootItem(copy);
                }};
    }
    if (kind == AddChild) {
        // Closed groups: mostly a closed one, so that batches pile up on
        // groups no one has opened.
        int r = s.pick(roots + 2) - 1;
        if (s.m_mood == Mood::Closed && s.chance(75)) {
            QList<int> closed;
            for (int i = 0; i < roots; ++i) {
                DrawerControl *d = frame->drawers().at(i);
                if (d && !d->showsChildren())
                    closed << i;
            }
            if (!closed.isEmpty())
                r = closed.at(s.pick(qMin(closed.size(), 4)));
        }
        const QList<int> path = s.chance(90) ? QList<int>{r} : QList<int>{s.pick(roots + 1), 0};
        const QList<st_NodeInfoSignal> rows = s.children(3);
        return {QStringLiteral("addChildItem([%1], %2 rows)").arg(TreeText::pathText(path)).arg(rows.size()),
                [path, rows](Side &side) { side.list->addChildItem(path, rows); }};
    }
    if (kind == DeleteRoot) {
        const int r = s.pick(roots + 2) - 1;
        return {QStringLiteral("deleteRootItem(%1)").arg(r), [r](Side &side) { side.list->deleteRootItem(r); }};
    }
    if (kind == DeleteChild) {
        const QList<int> path = s.path(roots, 4);
        return {QStringLiteral("deleteChildeItem([%1])").arg(TreeText::pathText(path)),
                [path](Side &side) { side.list->deleteChildeItem(path); }};
    }
    if (kind == Modify) {
        QList<int> path = s.chance(70) ? QList<int>{0, s.pick(5)} : s.chance(60) ? QList<int>{0} : s.path(roots, 4);
        const st_NodeInfoSignal node = s.node(path.size() == 1);
        return {QStringLiteral("modifyItemData([%1])").arg(TreeText::pathText(path)), [path, node](Side &side) {
                    st_NodeInfoSignal copy = node;
                    side.list->modifyItemData(path, copy);
                }};
    }
    if (kind == SetCurrent) {
        const QList<int> path = s.path(roots, 4);
        return {QStringLiteral("setCurSelItem([%1])").arg(TreeText::pathText(path)),
                [path](Side &side) { side.list->setCurSelItem(path); }};
    }
    if (kind == ShowChildren) {
        const int r = s.pick(roots + 1);
        const bool show = s.chance(s.m_mood == Mood::Closed ? 35 : 65);
        return {QStringLiteral("setIsShowChildItem(%1, %2)").arg(r).arg(show),
                [r, show](Side &side) { side.list->setIsShowChildItem(r, show); }};
    }
    if (kind == SetDrag) {
        const bool drag = s.chance(50);
        return {QStringLiteral("setIsDrag(%1)").arg(drag), [drag](Side &side) { side.list->setIsDrag(drag); }};
    }
    if (kind == Clear)
        return {QStringLiteral("clearTree()"), [](Side &side) { side.list->clearTree(); }};
    if (kind == Update) {
        QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree;
        const int entries = s.pick(4);
        for (int i = 0; i < entries; ++i)
            tree.insert(s.node(true), s.children(3));
        return {QStringLiteral("updateTreeList(%1 roots)").arg(tree.size()),
                [tree](Side &side) { side.list->updateTreeList(tree); }};
    }
    if (shown.isEmpty())
        return {QStringLiteral("nothing shown"), [](Side &) {}};
    if (kind == DragRow)
        return dragStep(s, shown);
    const QList<int> target = shown.at(s.pick(shown.size()));
    const QString at = TreeText::pathText(target);
    if (kind == Click) {
        const bool box = target.size() == 1 && s.chance(30);
        const bool twice = s.chance(10);
        return {QStringLiteral("%1 [%2]%3").arg(box ? "click the expand box of" : "click", at, twice ? " twice" : ""),
                [target, box, twice](Side &side) {
                    QWidget *row = side.row(target);
                    if (!row)
                        return;
                    if (!box) {
                        RowClick::click(row, twice);
                        return;
                    }
                    QWidget *widget = qobject_cast<RootItem *>(row)->expandBox();
                    if (twice)
                        QTest::mouseDClick(widget, Qt::LeftButton, Qt::NoModifier, widget->rect().center());
                    else
                        QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, widget->rect().center());
                }};
    }
    if (kind == Hover) {
        const int button = s.pick(4);
        const bool leave = s.chance(60);
        return {QStringLiteral("hover [%1], button %2%3").arg(at).arg(button).arg(leave ? ", leave" : ""),
                [target, button, leave](Side &side) {
                    QPointer<QWidget> row = side.row(target);
                    if (!row)
                        return;
                    EventSender::sendEnter(row);
                    QList<QToolButton *> buttons = row->findChildren<QToolButton *>();
                    buttons.erase(std::remove_if(buttons.begin(), buttons.end(),
                                                 [&row](QToolButton *b) { return !b->isVisibleTo(row); }),
                                  buttons.end());
                    if (!buttons.isEmpty())
                        QTest::mouseClick(buttons.at(button % buttons.size()), Qt::LeftButton);
                    if (row && leave)
                        EventSender::sendLeave(row);
                }};
    }
    if (kind == Scroll) {
        // Anywhere in the range: rows far off come into view, rows in view
        // leave it.
        const int percent = s.chance(20) ? (s.chance(50) ? 0 : 100) : s.pick(101);
        return {QStringLiteral("scroll to %1%").arg(percent), [percent](Side &side) {
                    TreeListFrame *frame = side.frame();
                    QScrollArea *area = frame ? frame->scrollArea() : nullptr;
                    if (!area)
                        return;
                    QScrollBar *bar = area->verticalScrollBar();
                    bar->setValue(bar->minimum() + (bar->maximum() - bar->minimum()) * percent / 100);
                }};
    }
    if (kind == Resize) {
        // Rows get other widths: they fit their lines again.
        const int width = 300 + 20 * s.pick(9);
        const int height = 360 + 40 * s.pick(6);
        return {QStringLiteral("window %1x%2").arg(width).arg(height),
                [width, height](Side &side) { side.window->resize(width, height); }};
    }
    static const QList<int> keys{Qt::Key_Down, Qt::Key_Up,  Qt::Key_Space, Qt::Key_Right, Qt::Key_Left,
                                 Qt::Key_F2,   Qt::Key_End, Qt::Key_Home,  Qt::Key_Delete, Qt::Key_Down};
    const int key = keys.at(s.pick(keys.size()));
    return {QStringLiteral("key %1").arg(QKeySequence(key).toString()), [key](Side &side) {
                if (TreeListFrame *frame = side.frame()) {
                    if (!frame->hasFocus())
                        frame->setFocus(Qt::TabFocusReason);
                    QTest::keyClick(frame, Qt::Key(key));
                }
            }};
}

// A selected or unselected child row pulled with the button held onto a
// shown row: the drawer starts a drag when its rules allow, and the user's
// part then moves over the target and releases there.
Step dragStep(Script &s, const QList<QList<int>> &shown)
{
    QList<QList<int>> children;
    for (const QList<int> &path : shown) {
        if (path.size() == 2)
            children << path;
    }
    if (children.isEmpty())
        return {QStringLiteral("nothing to drag"), [](Side &) {}};
    const QList<int> from = children.at(s.pick(children.size()));
    const QList<int> onto = shown.at(s.pick(shown.size()));
    const bool clickFirst = s.chance(60);
    const bool allow = s.chance(50);
    return {QStringLiteral("%1%2drag [%3] onto [%4]")
                .arg(allow ? QStringLiteral("setIsDrag(1), ") : QString(),
                     clickFirst ? QStringLiteral("click, then ") : QString(), TreeText::pathText(from),
                     TreeText::pathText(onto)),
            [from, onto, clickFirst, allow](Side &side) {
                if (allow)
                    side.list->setIsDrag(true);
                QPointer<QWidget> row = side.row(from);
                QWidget *target = side.row(onto);
                if (!row || !target)
                    return;
                if (clickFirst)
                    RowClick::click(row, false);
                if (!row)
                    return;
                QWindow *window = side.window->windowHandle();
                const QPoint dropAt = DragDriver::globalCenter(target);
                QPointer<QWidget> frame = side.frame();
                const auto running = [frame] { return frame && frame->findChild<QDrag *>(); };
                // Inside the drag's own event loop, if the move started one.
                QTimer::singleShot(0, [running, window, dropAt] {
                    if (!running())
                        return;
                    ++g_dragsStarted;
                    DragDriver::moveAndRelease(window, dropAt);
                });
                // A drag that the release did not end is cancelled: the
                // comparison then shows it.
                const auto returned = std::make_shared<bool>(false);
                QTimer::singleShot(3000, [running, window, returned] {
                    if (!*returned && running())
                        DragDriver::escape(window);
                });
                const QPoint local(row->width() / 2, row->height() / 2);
                QMouseEvent move(QEvent::MouseMove, QPointF(local), QPointF(row->mapToGlobal(local)), Qt::NoButton,
                                 Qt::LeftButton, Qt::NoModifier);
                QObject counter;
                for (DrawerControl *drawer : side.frame()->drawers())
                    QObject::connect(drawer, &DrawerControl::signal_OnItemsIsDraged, &counter, [] { ++g_drops; });
                QApplication::sendEvent(row, &move);
                *returned = true;
            }};
}

// The host: answers some signals from its slots, the same on both sides.
void connectHost(Side &side)
{
    SignalTreeList *list = side.list;
    QObject::connect(list, &SignalTreeList::signal_OnCurrentItemClicked, list, [list](QList<int> path) {
        if (path.size() == 2 && path.at(1) % 4 == 3)
            list->setIsShowChildItem(path.at(0), false);
    });
    QObject::connect(list, &SignalTreeList::signal_OnDeleteBtnClicked, list,
                     [list](QList<int> path) { list->deleteChildeItem(path); });
    QObject::connect(list, &SignalTreeList::signal_OnEditBtnClicked, list, [list](QList<int> path) {
        st_NodeInfoSignal node;
        node.strNodeName = QStringList{QStringLiteral("edited %1").arg(path.value(1))};
        list->modifyItemData(QList<int>{0, path.value(1)}, node);
    });
}

Side makeSide(bool atOnce, bool show)
{
    Side side;
    side.atOnce = atOnce;
    side.window.reset(new QWidget);
    side.window->resize(380, 520);
    auto *layout = new QVBoxLayout(side.window.get());
    auto *panel = new QWidget(side.window.get());
    layout->addWidget(panel);
    side.list = new SignalTreeList(panel);
    side.list->initControls();
    side.recorder.reset(new HostRecorder(side.list));
    side.layout.reset(new LayoutCheck(side.list));
    connectHost(side);
    // Apart, so that a drag over one side's window cannot reach the other.
    side.window->move(atOnce ? 0 : 400, 0);
    if (show)
        side.window->show();
    return side;
}

Seen runOn(Side &side, const Step &step)
{
    Seen seen;


    const bool shown = side.window->isVisible();
    if (shown) {
        side.window->activateWindow();
        if (!QTest::qWaitForWindowActive(side.window.get()))
            qWarning("window not active");
    }
    settle();
    side.recorder->events.clear();
    {
        MessageCapture capture;
        DrawerControl::setDeferRows(!side.atOnce);
        TreeListFrame::setRebuildEveryTime(side.atOnce);
        step.run(side);
        settle();
        DrawerControl::setDeferRows(true);
        TreeListFrame::setRebuildEveryTime(false);
        seen.lines = capture.lines();
    }
    seen.events = side.recorder->events;
    seen.dump = ListProbe::dump(side.list);
    // Where the last drop landed, as the frame keeps it for the grouping.
    if (TreeListFrame *frame = side.frame()) {
        seen.dump << QStringLiteral("node [drop] [%1] onto [%2]")
                         .arg(TreeText::pathText(frame->dragSource()), TreeText::pathText(frame->dragDestination()));
    }
    if (!shown) {
        // Nothing is on screen yet: only the answers count.
        seen.dump.erase(std::remove_if(seen.dump.begin(), seen.dump.end(),
                                       [](const QString &line) { return !line.startsWith(QLatin1String("node [")); }),
                        seen.dump.end());
    }
    seen.picture = ListProbe::picture(side.list);
    if (shown && side.list)
        seen.misplaced = side.layout->differences() + side.layout->fontDifferences()
            + side.layout->roundTripDifferences();
    return seen;
}

// The first line where two texts differ, both ways.
QString firstDifference(const QStringList &a, const QStringList &b)
{
    for (int i = 0; i < qMax(a.size(), b.size()); ++i) {
        if (a.value(i) != b.value(i))
            return QStringLiteral("line %1:\n  reference: %2\n  shipped:   %3").arg(i).arg(a.value(i), b.value(i));
    }
    return QString();
}

} // namespace

class tst_Differential : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        EventSender::parkPointer();
        qRegisterMetaType<QList<int>>();
        // The list as it will ship: rows off screen parked.
        RowRealiser::setParking(true);
    }
    void cleanupTestCase()
    {
        // Under the minimal platform the scripts must really drag.
        if (dragsRun() && envInt("DIFF_SEEDS", 6) >= 3 && envInt("DIFF_SEED", -1) < 0)
            QVERIFY2(g_dragsStarted > 0, "no drag started");
        qInfo().noquote() << QStringLiteral("%1 drags started, %2 dropped").arg(g_dragsStarted).arg(g_drops);
    }
    void cleanup()
    {
        qApp->setStyleSheet(QString());
        DrawerControl::setDeferRows(true);
        TreeListFrame::setRebuildEveryTime(false);
    }
    void sameAsBuiltAtOnce_data();
    void sameAsBuiltAtOnce();
};

void tst_Differential::sameAsBuiltAtOnce_data()
{
    QTest::addColumn<QString>("look");
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<int>("mood");
    const int seeds = envInt("DIFF_SEEDS", 6);
    const int only = envInt("DIFF_SEED", -1);
    const QStringList looks = qEnvironmentVariable("DIFF_LOOKS", QStringLiteral("none,dark,state")).split(u',');
    for (const QString &look : looks) {
        for (int i = 0; i < seeds; ++i) {
            const quint32 seed = only >= 0 ? quint32(only) : quint32(1000 + 7919 * i);
            const Mood mood = Mood((only >= 0 ? envInt("DIFF_MOOD", 0) : i) % 3);
            QTest::addRow("%s, seed %u, %s", qPrintable(look), seed, moodName(mood)) << look << seed << int(mood);
            if (only >= 0)
                break;
        }
    }
}

void tst_Differential::sameAsBuiltAtOnce()
{
    QFETCH(QString, look);
    QFETCH(quint32, seed);
    QFETCH(int, mood);
    const int steps = envInt("DIFF_STEPS", 120);
    // Unshown: the first steps run before the windows are shown.
    const int hiddenSteps = Mood(mood) == Mood::Unshown ? steps / 4 : 0;
    if (look != QLatin1String("none")) {
        const QString sheet = sheetFor(look);
        QVERIFY(!sheet.isEmpty());
        qApp->setStyleSheet(sheet);
    }

    Side reference = makeSide(true, hiddenSteps == 0);
    Side shipped = makeSide(false, hiddenSteps == 0);
    Script script(seed, Mood(mood));
    QStringList done;
    for (int i = 0; i < steps; ++i) {
        if (i == hiddenSteps && !reference.window->isVisible()) {
            done << QStringLiteral("(the windows are shown)");
            for (Side *side : {&reference, &shipped}) {
                side->window->show();
                QVERIFY(QTest::qWaitForWindowExposed(side->window.get()));
            }
        }
        const Step step = makeStep(script, reference, reference.window->isVisible());
        done << step.text;
        const Seen a = runOn(reference, step);
        const Seen b = runOn(shipped, step);
        if (!reference.list || !shipped.list)
            QFAIL("a list went away");
        QString difference;
        if (a.events != b.events)
            difference = QStringLiteral("signals differ, ") + firstDifference(a.events, b.events);
        else if (a.lines != b.lines)
            difference = QStringLiteral("debug lines differ, ") + firstDifference(a.lines, b.lines);
        else if (a.dump != b.dump)
            difference = QStringLiteral("state differs, ") + firstDifference(a.dump, b.dump);
        else if (a.picture != b.picture)
            difference = QStringLiteral("the pictures differ");
        else if (!a.misplaced.isEmpty() || !b.misplaced.isEmpty())
            difference = QStringLiteral("the layout model misplaces rows (reference: %1; shipped: %2)")
                             .arg(a.misplaced.mid(0, 3).join(QStringLiteral("; ")), b.misplaced.mid(0, 3).join(QStringLiteral("; ")));
        if (!difference.isEmpty()) {
            // The reproduction first: the failure message has a length limit.
            qInfo().noquote() << QStringLiteral("look %1, seed %2, %3, the script up to the first difference:\n  %4")
                                     .arg(look)
                                     .arg(seed)
                                     .arg(QLatin1String(moodName(Mood(mood))))
                                     .arg(done.join(QStringLiteral("\n  ")));
            if (qEnvironmentVariableIsSet("DIFF_VERBOSE")) {
                for (int k = 0; k < qMax(a.dump.size(), b.dump.size()); ++k) {
                    if (a.dump.value(k) != b.dump.value(k))
                        qInfo().noquote() << "ref " << a.dump.value(k) << "\nship" << b.dump.value(k);
                }
            }
            QFAIL(qPrintable(QStringLiteral("step %1 (%2): %3").arg(i).arg(step.text, difference)));
        }
    }
}

QTEST_MAIN(tst_Differential)
#include "tst_differential.moc"
