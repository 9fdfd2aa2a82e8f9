// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// A host that calls the exported widget from inside its signals, in nested
// event loops, deleting rows or the list (HandlerGuard). Runs on the
// "minimal" platform, whose in-process drag makes QDrag::exec run for real.

#include "BuiltRows.h"
#include "DragDriver.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "HostRecorder.h"
#include "ListHost.h"
#include "MessageCapture.h"
#include "NodeFactory.h"
#include "RootItem.h"
#include "RowButtons.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"
#include "TreeText.h"

#include <QApplication>
#include <QEventLoop>
#include <QBoxLayout>
#include <QLabel>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>
#include <QWindow>
#include <QtTest>

#include <climits>
#include <functional>
#include <memory>

namespace {

using namespace ListHost;
using TreeText::pathText;
using TreeText::snapshot;

// ---- calling the list from its own signals ------------------------------------

// What makes the list emit.
enum class Trigger {
    ChildClick, // a click on child row [1,1]
    ChildCapture, // a click on that row's capture, edit or delete button
    ChildEdit,
    ChildDelete,
    RootEdit, // a click on root row 1, then on its edit or delete button
    RootDelete,
    SetCurSelItem, // the host's own setCurSelItem([1,1])
    Completion, // a drop of [0,1] onto [2,0] being grouped into a new root
};

// What the host does from its slot.
enum class Reaction {
    DeletePath, // deleteChildeItem() with the path it was given
    DeleteRoot, // deleteRootItem() of that path's root
    ClearTree,
    Rebuild, // clearTree(), then updateTreeList() with one new root "X"
    DestroyList, // delete the SignalTreeList
    DestroyWindow, // delete the host's window, the list with it
};

// Three roots R0..R2 (iType 0, sources S0..S2) with three children each, all
// with every hover button; root 1 expanded; shown.
std::unique_ptr<Host> makeReentrantHost()
{
    auto host = makeHost();
    for (int i = 0; i < 3; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        const QString source = QStringLiteral("S%1").arg(i);
        st_NodeInfoSignal node = makeNode(name, source);
        node.showOpBtn = {true, true};
        QList<st_NodeInfoSignal> children = makeChildren(name, 3, source);
        for (st_NodeInfoSignal &child : children)
            child.showOpBtn = {true, true, true};
        host->list->addRootItem(node, children);
    }
    host->list->setIsShowChildItem(1, true);
    host->parent->show();
    return host;
}

using EventSender::flushDeferredDeletes;
using RowButtons::rootButton;
using RowButtons::rowButton;

// Runs @p work from a timer inside a nested event loop, as a slot that
// opens a modal dialog would, and lets that loop turn a few more times:
// what the work deletes later is deleted inside the nested loop.
void runInNestedLoop(const std::function<void()> &work)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        work();
        QTimer::singleShot(20, &loop, &QEventLoop::quit);
    });
    loop.exec();
}

// Connects @p onSignal to every signal of @p list that a user action can
// raise, with the signal's name as HostRecorder writes it and its path
// (empty for the signals without one).
void onEverySignal(SignalTreeList *list, QObject *context,
                   const std::function<void(const QString &, const QList<int> &)> &onSignal)
{
    QObject::connect(list, &SignalTreeList::signal_OnCurrentItemClicked, context,
                     [onSignal](QList<int> p) { onSignal(QStringLiteral("CurrentItemClicked"), p); });
    QObject::connect(list, &SignalTreeList::signal_OnCaptureBtnClicked, context,
                     [onSignal](QList<int> p) { onSignal(QStringLiteral("CaptureBtnClicked"), p); });
    QObject::connect(list, &SignalTreeList::signal_OnEditBtnClicked, context,
                     [onSignal](QList<int> p) { onSignal(QStringLiteral("EditBtnClicked"), p); });
    QObject::connect(list, &SignalTreeList::signal_OnDeleteBtnClicked, context,
                     [onSignal](QList<int> p) { onSignal(QStringLiteral("DeleteBtnClicked"), p); });
    QObject::connect(list, &SignalTreeList::signal_OnGetNewRootName, context,
                     [onSignal] { onSignal(QStringLiteral("GetNewRootName"), {}); });
    QObject::connect(list, &SignalTreeList::signal_OnAddRootItem, context,
                     [onSignal](QString) { onSignal(QStringLiteral("AddRootItem"), {}); });
    QObject::connect(list, &SignalTreeList::signal_OnAddSecondItems, context,
                     [onSignal](QList<int>, QList<int> dst) { onSignal(QStringLiteral("AddSecondItems"), dst); });
}

// Makes the list emit as @p trigger says, through real events where a user
// would act.
void pull(Host *host, Trigger trigger)
{
    DrawerControl *drawer = host->drawer(1);
    SecondItem *row = builtRows(drawer).at(1);
    const auto clickButton = [](QWidget *row, QToolButton *button) {
        EventSender::sendEnter(row);
        QVERIFY(button && button->isVisibleTo(row));
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, button->rect().center());
    };
    switch (trigger) {
    case Trigger::ChildClick:
        QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, row->rect().center());
        break;
    case Trigger::ChildCapture:
    case Trigger::ChildEdit:
    case Trigger::ChildDelete:
        clickButton(row, rowButton(row, int(trigger) - int(Trigger::ChildCapture)));
        break;
    case Trigger::RootEdit:
    case Trigger::RootDelete: {
        RootItem *root = drawer->rootItem();
        QTest::mouseClick(root, Qt::LeftButton, Qt::NoModifier, QPoint(root->width() / 2, 5));
        clickButton(root, rootButton(root, trigger == Trigger::RootEdit ? "isEditBtn" : "isDelBtn"));
        break;
    }
    case Trigger::SetCurSelItem:
        host->list->setCurSelItem(QList<int>{1, 1});
        break;
    case Trigger::Completion:
        emit host->drawer(2)->signal_OnItemsIsDraged(QList<int>{0, 1}, QList<int>{2, 0});
        emit host->drawer(2)->signal_OnCompleteDraged();
        QCoreApplication::processEvents(); // the completion is queued
        break;
    }
}

struct ReentrantCase
{
    Trigger trigger;
    QString reactOn;
    Reaction reaction;
    QStringList events; // what the host receives, in order
    QStringList tree; // the tree afterwards, when the list is still there
};

} // namespace

Q_DECLARE_METATYPE(ReentrantCase)

class tst_SignalTreeListReentrant : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void hostActsFromInsideItsSignals_data();
    void hostActsFromInsideItsSignals();
    void anyOperationFromInsideAClick_data();
    void anyOperationFromInsideAClick();
    void rowRemovedFromItsClickLeavesAtOnce();
    void nothingDeferredWithoutReentrancy();
};

void tst_SignalTreeListReentrant::initTestCase()
{
    EventSender::parkPointer();
    qRegisterMetaType<QList<int>>();
}
// ---- calling the list from its own signals -------------------------------------------

void tst_SignalTreeListReentrant::hostActsFromInsideItsSignals_data()
{
    QTest::addColumn<ReentrantCase>("c");
    QTest::addColumn<bool>("nested");

    const QString r0 = QStringLiteral("R0:R0-0,R0-1,R0-2");
    const QString r1 = QStringLiteral("R1:R1-0,R1-1,R1-2");
    const QString r2 = QStringLiteral("R2:R2-0,R2-1,R2-2");
    const QStringList all{r0, r1, r2};
    const QStringList withoutRoot1{r0, r2};
    const QStringList rebuilt{QStringLiteral("X:X-0,X-1")};
    const QList<Reaction> reactions{Reaction::DeletePath, Reaction::DeleteRoot, Reaction::ClearTree,
                                    Reaction::Rebuild, Reaction::DestroyList, Reaction::DestroyWindow};
    const char *const reactionNames[] = {"deletes the path", "deletes the root", "clears",
                                         "rebuilds", "deletes the list", "deletes its window"};
    // The tree a reaction leaves when the path is [1,1] (child) or [1] (root).
    const auto treeAfter = [&](Reaction r, bool childPath) {
        switch (r) {
        case Reaction::DeletePath:
            return childPath ? QStringList{r0, QStringLiteral("R1:R1-0,R1-2"), r2} : withoutRoot1;
        case Reaction::DeleteRoot:
            return withoutRoot1;
        case Reaction::ClearTree:
            return QStringList();
        case Reaction::Rebuild:
            return rebuilt;
        default:
            return QStringList(); // the list is gone
        }
    };
    const auto add = [](const QString &name, const ReentrantCase &c) {
        for (bool nested : {false, true})
            QTest::addRow("%s%s", qPrintable(name), nested ? ", in a nested loop" : "") << c << nested;
    };

    const QString clicked = QStringLiteral("CurrentItemClicked(1,1)");
    struct RowTrigger
    {
        Trigger trigger;
        const char *name;
        QString second; // the button's own signal, after the item-clicked one
    };
    const QList<RowTrigger> rowTriggers{{Trigger::ChildClick, "click", QString()},
                                        {Trigger::ChildCapture, "capture", QStringLiteral("CaptureBtnClicked")},
                                        {Trigger::ChildEdit, "edit", QStringLiteral("EditBtnClicked")},
                                        {Trigger::ChildDelete, "delete", QStringLiteral("DeleteBtnClicked")},
                                        {Trigger::SetCurSelItem, "setCurSelItem", QString()}};
    for (const RowTrigger &t : rowTriggers) {
        for (int i = 0; i < reactions.size(); ++i) {
            const Reaction r = reactions.at(i);
            // The host acts on the first signal: a removed row sends no second.
            add(QStringLiteral("child %1, host %2 on item-clicked").arg(QLatin1String(t.name), QLatin1String(reactionNames[i])),
                {t.trigger, QStringLiteral("CurrentItemClicked"), r, {clicked}, treeAfter(r, true)});
            if (t.second.isEmpty())
                continue;
            // The host acts on the button's signal: both arrive.
            add(QStringLiteral("child %1, host %2 on its button signal").arg(QLatin1String(t.name), QLatin1String(reactionNames[i])),
                {t.trigger, t.second, r, {clicked, t.second + QStringLiteral("(1,1)")}, treeAfter(r, true)});
        }
    }
    for (int i = 0; i < reactions.size(); ++i) {
        const Reaction r = reactions.at(i);
        add(QStringLiteral("root edit, host %1").arg(QLatin1String(reactionNames[i])),
            {Trigger::RootEdit, QStringLiteral("EditBtnClicked"), r, {QStringLiteral("EditBtnClicked(1)")}, treeAfter(r, false)});
        add(QStringLiteral("root delete, host %1").arg(QLatin1String(reactionNames[i])),
            {Trigger::RootDelete, QStringLiteral("DeleteBtnClicked"), r, {QStringLiteral("DeleteBtnClicked(1)")},
             treeAfter(r, false)});
    }

    // A drop of R0-1 (source S0) onto R2-0 (source S2) makes the group
    // "Stitching1" from the two records read before the host is asked.
    const QString askName = QStringLiteral("GetNewRootName()");
    const QString added = QStringLiteral("AddRootItem(Stitching1)");
    const QString group = QStringLiteral("Stitching1:R0-1,R2-0");
    const auto addSecond = [](int at) {
        return QStringList{QStringLiteral("AddSecondItems(0,1|%1)").arg(at), QStringLiteral("AddSecondItems(2,0|%1)").arg(at)};
    };
    add(QStringLiteral("grouping, host clears on the name request"),
        {Trigger::Completion, QStringLiteral("GetNewRootName"), Reaction::ClearTree,
         QStringList{askName, added} + addSecond(0), {group}});
    add(QStringLiteral("grouping, host rebuilds on the name request"),
        {Trigger::Completion, QStringLiteral("GetNewRootName"), Reaction::Rebuild,
         QStringList{askName, added} + addSecond(1), rebuilt + QStringList{group}});
    add(QStringLiteral("grouping, host clears on the new root"),
        {Trigger::Completion, QStringLiteral("AddRootItem"), Reaction::ClearTree,
         QStringList{askName, added} + addSecond(3), {}});
    for (const Reaction r : {Reaction::DestroyList, Reaction::DestroyWindow}) {
        const char *how = r == Reaction::DestroyList ? "deletes the list" : "deletes its window";
        add(QStringLiteral("grouping, host %1 on the name request").arg(QLatin1String(how)),
            {Trigger::Completion, QStringLiteral("GetNewRootName"), r, {askName}, {}});
        add(QStringLiteral("grouping, host %1 on the new root").arg(QLatin1String(how)),
            {Trigger::Completion, QStringLiteral("AddRootItem"), r, {askName, added}, {}});
        add(QStringLiteral("grouping, host %1 on the first rows").arg(QLatin1String(how)),
            {Trigger::Completion, QStringLiteral("AddSecondItems"), r, {askName, added, addSecond(3).first()}, {}});
    }
}

// The host answers a signal by removing what raised it, directly or from a
// nested event loop. Whatever was removed leaves the screen at once, stays
// alive until the handler that raised the signal has returned, sends
// nothing more, and is freed afterwards; the tree ends as the calls say.
void tst_SignalTreeListReentrant::hostActsFromInsideItsSignals()
{
    QFETCH(ReentrantCase, c);
    QFETCH(bool, nested);

    auto host = makeReentrantHost();
    QVERIFY(QTest::qWaitForWindowExposed(host->parent.get()));
    HostRecorder recorder(host->list);
    QPointer<SignalTreeList> list = host->list;
    QPointer<QFrame> frame = host->frame();
    QPointer<DrawerControl> drawer = host->drawer(1);
    QPointer<SecondItem> row = builtRows(drawer).at(1);

    const bool destroys = c.reaction == Reaction::DestroyList || c.reaction == Reaction::DestroyWindow;
    const bool rootPath = c.trigger == Trigger::RootEdit || c.trigger == Trigger::RootDelete;
    // What must leave at once: the frame when the list goes, else the row or
    // its drawer. A row is deleted at once when none of its handlers runs
    // (the host's own setCurSelItem).
    QPointer<QWidget> leaving;
    bool leavesNow = false;
    if (destroys)
        leaving = frame.data();
    else if (c.trigger == Trigger::Completion)
        leaving = nullptr;
    else if (c.reaction == Reaction::DeletePath && !rootPath)
        leaving = row.data();
    else
        leaving = drawer.data();
    if (c.trigger == Trigger::SetCurSelItem && c.reaction == Reaction::DeletePath)
        leavesNow = true;

    QObject context;
    bool reacted = false;
    bool leftScreen = false;
    bool aliveAtSlotEnd = false;
    onEverySignal(list, &context, [&](const QString &name, const QList<int> &path) {
        if (reacted || name != c.reactOn)
            return;
        reacted = true;
        const auto act = [&] {
            switch (c.reaction) {
            case Reaction::DeletePath:
                list->deleteChildeItem(path);
                break;
            case Reaction::DeleteRoot:
                list->deleteRootItem(path.value(0));
                break;
            case Reaction::ClearTree:
                list->clearTree();
                break;
            case Reaction::Rebuild: {
                list->clearTree();
                QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree;
                tree.insert(makeNode(QStringLiteral("X"), QStringLiteral("SX")),
                            makeChildren(QStringLiteral("X"), 2, QStringLiteral("SX")));
                list->updateTreeList(tree);
                break;
            }
            case Reaction::DestroyList:
                delete list.data();
                break;
            case Reaction::DestroyWindow:
                host->parent.reset();
                break;
            }
            leftScreen = leaving && leaving->isHidden() && !leaving->parentWidget();
        };
        if (nested)
            runInNestedLoop(act);
        else
            act();
        aliveAtSlotEnd = !leaving.isNull();
    });

    pull(host.get(), c.trigger);
    QVERIFY(!QTest::currentTestFailed());
    QVERIFY(reacted);
    if (leavesNow) {
        QVERIFY(!leftScreen);
        QVERIFY(!aliveAtSlotEnd);
    } else if (c.trigger != Trigger::Completion || destroys) {
        QVERIFY2(leftScreen, "what the host removed is still on the screen");
        QVERIFY2(aliveAtSlotEnd, "what the host removed was freed under a running handler");
    }
    QCOMPARE(recorder.events, c.events);

    flushDeferredDeletes();
    QVERIFY(leaving.isNull());
    if (c.trigger != Trigger::Completion)
        QVERIFY(row.isNull());
    QCOMPARE(list.isNull(), destroys);
    QCOMPARE(frame.isNull(), destroys);
    if (!destroys) {
        QCOMPARE(snapshot(host->frame()), c.tree);
        QCOMPARE(listDrawers(host->parent.get()).size(), c.tree.size());
    }
}

void tst_SignalTreeListReentrant::anyOperationFromInsideAClick_data()
{
    QTest::addColumn<Op>("op");
    QTest::addColumn<bool>("nested");

    const auto add = [](const char *name, const Op &op) {
        QTest::addRow("%s", name) << op << false;
        QTest::addRow("%s, in a nested loop", name) << op << true;
    };
    add("addRootItem", [](SignalTreeList *l) {
        st_NodeInfoSignal n = makeNode(QStringLiteral("N"), QStringLiteral("SN"));
        l->addRootItem(n);
    });
    add("addRootItem with children", [](SignalTreeList *l) {
        st_NodeInfoSignal n = makeNode(QStringLiteral("N"), QStringLiteral("SN"));
        l->addRootItem(n, makeChildren(QStringLiteral("N"), 2, QStringLiteral("SN")));
    });
    add("addChildItem([1])", [](SignalTreeList *l) {
        l->addChildItem(QList<int>{1}, makeChildren(QStringLiteral("N"), 2, QStringLiteral("S1")));
    });
    add("clearTree", [](SignalTreeList *l) { l->clearTree(); });
    add("deleteRootItem(1)", [](SignalTreeList *l) { l->deleteRootItem(1); });
    add("deleteRootItem(0)", [](SignalTreeList *l) { l->deleteRootItem(0); });
    add("deleteChildeItem([1,1])", [](SignalTreeList *l) { l->deleteChildeItem(QList<int>{1, 1}); });
    add("deleteChildeItem([1,0])", [](SignalTreeList *l) { l->deleteChildeItem(QList<int>{1, 0}); });
    add("deleteChildeItem([1,1,1])", [](SignalTreeList *l) { l->deleteChildeItem(QList<int>{1, 1, 1}); });
    add("getItemSignalNode([0,1])", [](SignalTreeList *l) { (void)l->getItemSignalNode(QList<int>{0, 1}); });
    add("modifyItemData([0,1])", [](SignalTreeList *l) {
        st_NodeInfoSignal n = makeNode(QStringLiteral("M"), QStringLiteral("SM"));
        l->modifyItemData(QList<int>{0, 1}, n);
    });
    add("modifyItemData([0])", [](SignalTreeList *l) {
        st_NodeInfoSignal n = makeNode(QStringLiteral("M"), QStringLiteral("SM"));
        l->modifyItemData(QList<int>{0}, n);
    });
    add("reTranslateUI", [](SignalTreeList *l) { l->reTranslateUI(); });
    add("setCurSelItem([1])", [](SignalTreeList *l) { l->setCurSelItem(QList<int>{1}); });
    add("setCurSelItem([2])", [](SignalTreeList *l) { l->setCurSelItem(QList<int>{2}); });
    add("setCurSelItem([1,2])", [](SignalTreeList *l) { l->setCurSelItem(QList<int>{1, 2}); });
    add("setIsDrag", [](SignalTreeList *l) { l->setIsDrag(true); });
    add("setIsShowChildItem(1, false)", [](SignalTreeList *l) { l->setIsShowChildItem(1, false); });
    add("setIsShowChildItem(2, true)", [](SignalTreeList *l) { l->setIsShowChildItem(2, true); });
    add("setSignalRootName", [](SignalTreeList *l) { l->setSignalRootName(QStringLiteral("G")); });
    add("setSignalTreeListFrameVisiable(false)", [](SignalTreeList *l) { l->setSignalTreeListFrameVisiable(false); });
    add("updateTreeList", [](SignalTreeList *l) {
        QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree;
        tree.insert(makeNode(QStringLiteral("U"), QStringLiteral("SU")),
                    makeChildren(QStringLiteral("U"), 1, QStringLiteral("SU")));
        tree.insert(makeNode(QStringLiteral("V"), QStringLiteral("SV")), {});
        l->updateTreeList(tree);
    });
}

namespace {
// What a host can read of a list: the rows, each drawer's selection,
// expanded state and index, the frame's visibility and two lookups.
QStringList hostView(Host *host)
{
    QStringList out = snapshot(host->frame());
    for (DrawerControl *d : host->frame()->drawers())
        out << QStringLiteral("sel [%1] shown %2 index %3").arg(pathText(d->selIndex())).arg(d->isShowChild()).arg(d->rootIndex());
    out << QStringLiteral("frame hidden %1").arg(host->frame()->isHidden());
    for (const QList<int> &path : {QList<int>{0}, QList<int>{0, 1}}) {
        const auto got = host->list->getItemSignalNode(path);
        out << QStringLiteral("[%1] -> %2 %3").arg(pathText(path)).arg(got.first).arg(got.second.strNodeName.join(QLatin1Char('|')));
    }
    out << QStringLiteral("%1 drawers, %2 rows in the window")
               .arg(listDrawers(host->parent.get()).size())
               .arg(secondItemCount(host->parent.get()));
    return out;
}
} // namespace

// Any operation called from the slot of a click leaves the list exactly as
// the same operation called right after the click.
void tst_SignalTreeListReentrant::anyOperationFromInsideAClick()
{
    QFETCH(Op, op);
    QFETCH(bool, nested);

    auto inside = makeReentrantHost();
    auto after = makeReentrantHost();
    QVERIFY(QTest::qWaitForWindowExposed(inside->parent.get()));
    QVERIFY(QTest::qWaitForWindowExposed(after->parent.get()));
    HostRecorder insideEvents(inside->list);
    HostRecorder afterEvents(after->list);

    bool reacted = false;
    QObject::connect(inside->list, &SignalTreeList::signal_OnCurrentItemClicked, inside->list, [&] {
        if (reacted)
            return;
        reacted = true;
        if (nested)
            runInNestedLoop([&] { op(inside->list); });
        else
            op(inside->list);
    });
    pull(inside.get(), Trigger::ChildClick);
    pull(after.get(), Trigger::ChildClick);
    op(after->list);
    QVERIFY(reacted);

    flushDeferredDeletes();
    QCOMPARE(hostView(inside.get()), hostView(after.get()));
    QCOMPARE(insideEvents.events, afterEvents.events);
}

// Case 1 in detail: the row that the host deletes from its own click.
void tst_SignalTreeListReentrant::rowRemovedFromItsClickLeavesAtOnce()
{
    auto host = makeReentrantHost();
    QVERIFY(QTest::qWaitForWindowExposed(host->parent.get()));
    DrawerControl *drawer = host->drawer(1);
    QPointer<SecondItem> row = builtRows(drawer).at(1);
    SecondItem *next = builtRows(drawer).at(2);
    QSignalSpy rowClicked(row.data(), &SecondItem::signal_OnItemClicked);

    bool checked = false;
    QObject::connect(host->list, &SignalTreeList::signal_OnCurrentItemClicked, host->list, [&](QList<int> path) {
        if (checked)
            return;
        checked = true;
        host->list->deleteChildeItem(path);
        // Out of the row list, the layout and the screen at once.
        QCOMPARE(builtRows(drawer).size(), 2);
        QVERIFY(!builtRows(drawer).contains(row.data()));
        QCOMPARE(drawer->childLayout()->indexOf(row.data()), -1);
        QVERIFY(row);
        QVERIFY(row->isHidden());
        QVERIFY(!row->parentWidget());
        st_NodeInfoSignal atOne;
        QCOMPARE(drawer->getSecondNodeInfo(1, atOne), 1);
        QCOMPARE(atOne.strNodeName, QStringList{QStringLiteral("R1-2")});
    });
    HostRecorder recorder(host->list);
    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, row->rect().center());
    QVERIFY(checked);
    QCOMPARE(recorder.events, QStringList{QStringLiteral("CurrentItemClicked(1,1)")});
    QCOMPARE(rowClicked.count(), 1);

    // Alive until the event loop runs, then freed; its neighbours keep
    // their indices as after any deletion.
    QVERIFY(row);
    QTRY_VERIFY(row.isNull());
    QCOMPARE(next->getIndexText(), QStringLiteral("1-2"));
    QTest::mouseClick(next, Qt::LeftButton, Qt::NoModifier, next->rect().center());
    QCOMPARE(recorder.events.last(), QStringLiteral("CurrentItemClicked(1,1)"));
}

// Without re-entrancy nothing is deferred: a row goes at once, a drawer
// later and still in place, the frame with the list, and a row deleted
// from a click on another row goes at once too.
void tst_SignalTreeListReentrant::nothingDeferredWithoutReentrancy()
{
    auto host = makeReentrantHost();
    QVERIFY(QTest::qWaitForWindowExposed(host->parent.get()));
    DrawerControl *drawer = host->drawer(1);

    QPointer<SecondItem> row = builtRows(drawer).at(0);
    host->list->deleteChildeItem(QList<int>{1, 0});
    QVERIFY(row.isNull());

    QPointer<SecondItem> other = builtRows(drawer).at(1);
    QObject::connect(host->list, &SignalTreeList::signal_OnCurrentItemClicked, host->list,
                     [&] { host->list->deleteChildeItem(QList<int>{1, 1}); });
    SecondItem *clicked = builtRows(drawer).at(0);
    QTest::mouseClick(clicked, Qt::LeftButton, Qt::NoModifier, clicked->rect().center());
    QVERIFY(other.isNull());
    QVERIFY(!clicked->isHidden());
    QCOMPARE(clicked->parentWidget(), drawer->childContainer());

    QPointer<DrawerControl> first = host->drawer(0);
    QWidget *container = first->parentWidget();
    host->list->clearTree();
    QVERIFY(first);
    QCOMPARE(first->parentWidget(), container);
    flushDeferredDeletes();
    QVERIFY(first.isNull());

    QPointer<QFrame> frame = host->list->getSignalTreeListFrame();
    delete host->list.data();
    QVERIFY(frame.isNull());
}

QTEST_MAIN(tst_SignalTreeListReentrant)
#include "tst_signaltreelist_reentrant.moc"
