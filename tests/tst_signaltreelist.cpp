// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Tests of the exported widget as a host application uses it: construction,
// initControls, forwarding, relayed signals, destruction, misuse, and a real
// drag between two drawers. Runs on the "minimal" platform, whose in-process
// drag makes QDrag::exec run for real.

#include "BuiltRows.h"
#include "DragDriver.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "HostRecorder.h"
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

using TreeText::pathText;
using TreeText::snapshot;

// ---- records --------------------------------------------------------------

// Every record carries a host value made from its name.
const NodeFactory kNodes([](st_NodeInfoSignal &node) {
    node.nNodeData1 = Q_INT64_C(0x300000000) + qHash(node.strNodeName.value(0));
});

st_NodeInfoSignal makeNode(const QString &name, const QString &source, int type = 0, int inputNo = 0)
{
    st_NodeInfoSignal node = kNodes.node({name}, source, type);
    node.iInputSourceNo = inputNo;
    return node;
}

QList<st_NodeInfoSignal> makeChildren(const QString &prefix, int count, const QString &source)
{
    return kNodes.children(prefix, count, source);
}

bool isDefaultNode(const st_NodeInfoSignal &n)
{
    return n.strNodeName.isEmpty() && n.strSourceName.isEmpty() && !n.strSourceName.isNull()
        && n.nNodeData1 == 0 && !n.isOnline && n.showOpBtn.isEmpty() && n.iType == 0 && n.nNodeData2 == 0
        && n.iSignalGroupNo == 0 && n.eInputSourceType == 0 && n.iInputSourceNo == 0;
}

// ---- host -----------------------------------------------------------------

TreeListFrame *frameOf(SignalTreeList *list)
{
    return list ? qobject_cast<TreeListFrame *>(list->getSignalTreeListFrame()) : nullptr;
}

struct Host
{
    std::unique_ptr<QWidget> parent;
    QPointer<SignalTreeList> list; // owned by parent
    TreeListFrame *frame() const { return frameOf(list); }
    DrawerControl *drawer(int i) const { return frame()->drawers().value(i); }
};

std::unique_ptr<Host> makeHost(bool init = true)
{
    auto host = std::make_unique<Host>();
    host->parent = std::make_unique<QWidget>();
    host->parent->resize(400, 600);
    host->list = new SignalTreeList(host->parent.get());
    if (init)
        host->list->initControls();
    return host;
}

// Root "R<i>" (source "S<i>") with @p children child rows "R<i>-<c>".
void addRoots(SignalTreeList *list, int count, int children)
{
    for (int i = 0; i < count; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        st_NodeInfoSignal node = makeNode(name, QStringLiteral("S%1").arg(i));
        list->addRootItem(node, makeChildren(name, children, QStringLiteral("S%1").arg(i)));
    }
}

int secondItemCount(QWidget *parent)
{
    // Counted as widgets: the rows of groups never expanded are built first.
    for (DrawerControl *drawer : listDrawers(parent))
        builtRows(drawer);
    return listRowWidgets(parent).size();
}

// Signal arguments as "type:value" texts (QVariant cannot compare lists).
QStringList typedTexts(const QVariantList &values)
{
    QStringList out;
    for (const QVariant &v : values) {
        const QString text = v.userType() == qMetaTypeId<QList<int>>()
            ? QLatin1Char('[') + pathText(v.value<QList<int>>()) + QLatin1Char(']')
            : v.toString();
        out << QString::fromLatin1(v.typeName()) + QLatin1Char(':') + text;
    }
    return out;
}

// ---- driving a real drag ---------------------------------------------------------

using DragDriver::globalCenter;

// Plays the user's part while a drag runs. QDrag::exec blocks in its own
// event loop, so everything that happens during the drag is started from a
// timer that is running before the drag begins. A watchdog cancels a drag
// that nobody ends, so that a failing test cannot hang.
class DragPlayer : public QObject
{
public:
    DragPlayer(DrawerControl *source, std::function<void()> whileDragging, QWindow *escapeTarget)
        : m_source(source)
        , m_whileDragging(std::move(whileDragging))
        , m_escapeTarget(escapeTarget)
    {
        m_poll.setInterval(10);
        connect(&m_poll, &QTimer::timeout, this, [this] {
            if (acted || !m_source || !m_source->isDragging())
                return;
            acted = true;
            m_poll.stop();
            m_whileDragging();
        });
        m_watchdog.setSingleShot(true);
        m_watchdog.setInterval(20000);
        connect(&m_watchdog, &QTimer::timeout, this, [this] {
            if (m_source && m_source->isDragging() && m_escapeTarget) {
                watchdogFired = true;
                DragDriver::escape(m_escapeTarget);
            }
        });
        m_poll.start();
        m_watchdog.start();
    }

    bool acted = false;
    bool watchdogFired = false;

private:
    QPointer<DrawerControl> m_source;
    std::function<void()> m_whileDragging;
    QPointer<QWindow> m_escapeTarget;
    QTimer m_poll;
    QTimer m_watchdog;
};

// Selects @p row with a click and then moves over it with the left button
// held, which starts the drag; returns when the drag is over.
void clickAndDrag(SecondItem *row)
{
    const QPoint local = row->rect().center();
    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, local);
    QMouseEvent move(QEvent::MouseMove, QPointF(local), QPointF(row->mapToGlobal(local)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(row, &move);
}

// Two expanded drawers with dragging on, shown in the host's window:
// "Source A" (iType 0, source "A") with A-0..A-2 and "Group B" (iType 1,
// source "B") with B-0..B-2.
std::unique_ptr<Host> makeDragHost()
{
    auto host = makeHost();
    host->list->setIsDrag(true);
    st_NodeInfoSignal a = makeNode(QStringLiteral("Source A"), QStringLiteral("A"), 0);
    st_NodeInfoSignal b = makeNode(QStringLiteral("Group B"), QStringLiteral("B"), 1);
    host->list->addRootItem(a, makeChildren(QStringLiteral("A"), 3, QStringLiteral("A")));
    host->list->addRootItem(b, makeChildren(QStringLiteral("B"), 3, QStringLiteral("B")));
    host->list->setIsShowChildItem(0, true);
    host->list->setIsShowChildItem(1, true);
    host->parent->show();
    return host;
}

bool dragHostReady(Host *host)
{
    if (!QTest::qWaitForWindowExposed(host->parent.get()))
        return false;
    DrawerControl *d1 = host->drawer(1);
    SecondItem *last = builtRows(d1).value(2);
    return last && QTest::qWaitFor([&] {
               return last->isVisible() && last->height() > 0
                   && host->parent->rect().contains(last->mapTo(host->parent.get(), last->rect().bottomRight()));
           });
}

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

namespace {

using Op = std::function<void(SignalTreeList *)>;

} // namespace

Q_DECLARE_METATYPE(Op)

class tst_SignalTreeList : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void metaObjectListsTenSignalsInTableOrder();
    void constructorBuildsNothing();
    void operationsBeforeInitControlsDoNothing_data();
    void operationsBeforeInitControlsDoNothing();
    void getItemSignalNodeBeforeInitControls_data();
    void getItemSignalNodeBeforeInitControls();
    void initControlsPutsLayoutAndFrameOnParent();
    void initControlsWithoutParent();
    void initControlsTwiceKeepsTheFirstFrameOnTheParent();
    void initControlsOnParentThatHasALayout();
    void frameSignalsAreRelayed_data();
    void frameSignalsAreRelayed();
    void destroyingDeletesTheFrameOnce_data();
    void destroyingDeletesTheFrameOnce();
    void deleteChildeItemByPathLength_data();
    void deleteChildeItemByPathLength();
    void updateTreeList_data();
    void updateTreeList();
    void addChildItemUsesFirstElementOnly_data();
    void addChildItemUsesFirstElementOnly();
    void setSignalTreeListFrameVisiable();
    void childClickReachesHostSynchronously();
    void rootEditButtonReportsCurrentSelection();
    void misuseNeverCrashes_data();
    void misuseNeverCrashes();

    void realDragStoresPathsOnly_data();
    void realDragStoresPathsOnly();
    void deletingSourceRootDuringDrag_data();
    void deletingSourceRootDuringDrag();
    void destroyingListDuringDrag_data();
    void destroyingListDuringDrag();

    void hostActsFromInsideItsSignals_data();
    void hostActsFromInsideItsSignals();
    void anyOperationFromInsideAClick_data();
    void anyOperationFromInsideAClick();
    void rowRemovedFromItsClickLeavesAtOnce();
    void nothingDeferredWithoutReentrancy();
};

void tst_SignalTreeList::initTestCase()
{
    EventSender::parkPointer();
    qRegisterMetaType<QList<int>>();
}

void tst_SignalTreeList::metaObjectListsTenSignalsInTableOrder()
{
    const QMetaObject *mo = &SignalTreeList::staticMetaObject;
    QCOMPARE(QByteArray(mo->className()), QByteArray("SignalTreeList"));
    const QList<QByteArray> expected = HostRecorder::signalSignatures();
    QCOMPARE(expected.size(), 10);
    QCOMPARE(mo->methodCount() - mo->methodOffset(), expected.size()); // no slots
    for (int i = 0; i < expected.size(); ++i) {
        const QMetaMethod m = mo->method(mo->methodOffset() + i);
        QCOMPARE(m.methodSignature(), expected.at(i));
        QCOMPARE(m.methodType(), QMetaMethod::Signal);
        QCOMPARE(m.access(), QMetaMethod::Public);
    }
    QCOMPARE(mo->propertyCount(), mo->propertyOffset());
    QVERIFY(mo->inherits(&CLanguageTranslateFrame::staticMetaObject));
}

void tst_SignalTreeList::constructorBuildsNothing()
{
    QWidget parent;
    auto *list = new SignalTreeList(&parent);
    QCOMPARE(list->parentWidget(), &parent);
    QVERIFY(list->getSignalTreeListFrame() == nullptr);
    QVERIFY(list->findChildren<QWidget *>().isEmpty());
    QVERIFY(list->layout() == nullptr);
    QVERIFY(parent.layout() == nullptr);
    QCOMPARE(parent.findChildren<QWidget *>().size(), 1);
}

void tst_SignalTreeList::operationsBeforeInitControlsDoNothing_data()
{
    QTest::addColumn<Op>("op");

    QTest::newRow("addRootItem") << Op([](SignalTreeList *l) {
        st_NodeInfoSignal n = makeNode(QStringLiteral("n"), QStringLiteral("n"));
        l->addRootItem(n);
    });
    QTest::newRow("addRootItem with children") << Op([](SignalTreeList *l) {
        st_NodeInfoSignal n = makeNode(QStringLiteral("n"), QStringLiteral("n"));
        l->addRootItem(n, makeChildren(QStringLiteral("n"), 2, QStringLiteral("n")));
    });
    QTest::newRow("addChildItem") << Op([](SignalTreeList *l) {
        l->addChildItem(QList<int>{0}, makeChildren(QStringLiteral("n"), 2, QStringLiteral("n")));
    });
    QTest::newRow("addChildItem, empty path") << Op([](SignalTreeList *l) {
        l->addChildItem(QList<int>{}, makeChildren(QStringLiteral("n"), 1, QStringLiteral("n")));
    });
    QTest::newRow("clearTree") << Op([](SignalTreeList *l) { l->clearTree(); });
    QTest::newRow("deleteRootItem") << Op([](SignalTreeList *l) { l->deleteRootItem(0); });
    QTest::newRow("deleteChildeItem [0]") << Op([](SignalTreeList *l) { l->deleteChildeItem(QList<int>{0}); });
    QTest::newRow("deleteChildeItem [0, 0]")
        << Op([](SignalTreeList *l) { l->deleteChildeItem(QList<int>{0, 0}); });
    QTest::newRow("getItemSignalNode") << Op([](SignalTreeList *l) { l->getItemSignalNode(QList<int>{0}); });
    QTest::newRow("modifyItemData") << Op([](SignalTreeList *l) {
        st_NodeInfoSignal n = makeNode(QStringLiteral("n"), QStringLiteral("n"));
        l->modifyItemData(QList<int>{0}, n);
    });
    QTest::newRow("reTranslateUI") << Op([](SignalTreeList *l) { l->reTranslateUI(); });
    QTest::newRow("setCurSelItem") << Op([](SignalTreeList *l) { l->setCurSelItem(QList<int>{0, 0}); });
    QTest::newRow("setIsDrag") << Op([](SignalTreeList *l) { l->setIsDrag(true); });
    QTest::newRow("setIsShowChildItem") << Op([](SignalTreeList *l) { l->setIsShowChildItem(0, true); });
    QTest::newRow("setSignalRootName")
        << Op([](SignalTreeList *l) { l->setSignalRootName(QStringLiteral("Early")); });
    QTest::newRow("setSignalTreeListFrameVisiable")
        << Op([](SignalTreeList *l) { l->setSignalTreeListFrameVisiable(false); });
    QTest::newRow("updateTreeList") << Op([](SignalTreeList *l) {
        QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree;
        tree.insert(makeNode(QStringLiteral("a"), QStringLiteral("a"), 0, 1),
                    makeChildren(QStringLiteral("a"), 1, QStringLiteral("a")));
        tree.insert(makeNode(QStringLiteral("b"), QStringLiteral("b"), 0, 2), {});
        l->updateTreeList(tree);
    });
}

void tst_SignalTreeList::operationsBeforeInitControlsDoNothing()
{
    QFETCH(Op, op);
    auto host = makeHost(false);
    const int parentChildren = host->parent->children().size();
    const int listChildren = host->list->children().size();
    HostRecorder recorder(host->list);

    op(host->list);

    QVERIFY(host->list->getSignalTreeListFrame() == nullptr);
    QCOMPARE(host->parent->children().size(), parentChildren);
    QCOMPARE(host->list->children().size(), listChildren);
    QVERIFY(host->parent->layout() == nullptr);
    QVERIFY(listDrawers(host->parent.get()).isEmpty());
    QVERIFY(recorder.events.isEmpty());

    // Nothing was kept for later either.
    host->list->initControls();
    TreeListFrame *frame = host->frame();
    QVERIFY(frame);
    QVERIFY(frame->drawers().isEmpty());
    QVERIFY(frame->pendingRootName().isEmpty());
    QVERIFY(!frame->isHidden());
    st_NodeInfoSignal n = makeNode(QStringLiteral("late"), QStringLiteral("late"));
    host->list->addRootItem(n);
    QCOMPARE(frame->drawers().size(), 1);
    QVERIFY(!frame->drawers().first()->acceptDrops());
    QVERIFY(recorder.events.isEmpty());
}

void tst_SignalTreeList::getItemSignalNodeBeforeInitControls_data()
{
    QTest::addColumn<QList<int>>("path");
    QTest::newRow("[]") << QList<int>{};
    QTest::newRow("[0]") << QList<int>{0};
    QTest::newRow("[0, 0]") << QList<int>{0, 0};
    QTest::newRow("[0, 9]") << QList<int>{0, 9};
    QTest::newRow("[0, 0, 0]") << QList<int>{0, 0, 0};
}

void tst_SignalTreeList::getItemSignalNodeBeforeInitControls()
{
    QFETCH(QList<int>, path);
    SignalTreeList list(nullptr);
    const auto result = list.getItemSignalNode(path);
    QCOMPARE(result.first, false);
    QVERIFY(isDefaultNode(result.second));
    QVERIFY(list.getSignalTreeListFrame() == nullptr);
}

void tst_SignalTreeList::initControlsPutsLayoutAndFrameOnParent()
{
    QWidget parent;
    parent.resize(300, 400);
    auto *list = new SignalTreeList(&parent);
    list->initControls();

    QFrame *frame = list->getSignalTreeListFrame();
    QVERIFY(frame);
    QVERIFY(qobject_cast<TreeListFrame *>(frame));
    QCOMPARE(frame->objectName(), QStringLiteral("TreeListFrame"));
    QCOMPARE(frame->parentWidget(), &parent);
    QVERIFY(frame->findChild<QScrollArea *>()); // the frame was initialised

    QHBoxLayout *layout = qobject_cast<QHBoxLayout *>(parent.layout());
    QVERIFY(layout);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->widget(), static_cast<QWidget *>(frame));
    QCOMPARE(layout->stretch(0), 0);
    QCOMPARE(int(layout->itemAt(0)->alignment()), 0);

    // The widget itself stays empty: everything lives on the host's parent.
    QVERIFY(list->layout() == nullptr);
    QVERIFY(list->findChildren<QWidget *>().isEmpty());

    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));
    QTRY_COMPARE(frame->geometry(), parent.rect());
}

void tst_SignalTreeList::initControlsWithoutParent()
{
    auto list = std::make_unique<SignalTreeList>(nullptr);
    list->initControls();
    QPointer<QFrame> frame = list->getSignalTreeListFrame();
    QVERIFY(frame);
    QVERIFY(frame->parentWidget() == nullptr);
    st_NodeInfoSignal n = makeNode(QStringLiteral("n"), QStringLiteral("n"));
    list->addRootItem(n);
    QCOMPARE(frameOf(list.get())->drawers().size(), 1);
    list.reset();
    QVERIFY(frame.isNull());
}

void tst_SignalTreeList::initControlsTwiceKeepsTheFirstFrameOnTheParent()
{
    QWidget parent;
    QPointer<SignalTreeList> list = new SignalTreeList(&parent);
    list->initControls();
    QPointer<QFrame> first = list->getSignalTreeListFrame();
    list->initControls();
    QPointer<QFrame> second = list->getSignalTreeListFrame();
    QVERIFY(first);
    QVERIFY(second);
    QVERIFY(first != second);
    QCOMPARE(first->parentWidget(), &parent);
    QCOMPARE(second->parentWidget(), &parent);

    // Operations reach the newer frame only.
    st_NodeInfoSignal n = makeNode(QStringLiteral("n"), QStringLiteral("n"));
    list->addRootItem(n);
    QCOMPARE(frameOf(list)->drawers().size(), 1);
    QCOMPARE(qobject_cast<TreeListFrame *>(first.data())->drawers().size(), 0);

    delete list;
    QVERIFY(second.isNull());
    QVERIFY(!first.isNull()); // goes with the parent
}

// Qt keeps the host's own layout; the list's frame still lands on the
// parent, works, and goes with the widget, leaving the host's layout intact.
void tst_SignalTreeList::initControlsOnParentThatHasALayout()
{
    QWidget parent;
    auto *hostLayout = new QVBoxLayout(&parent);
    auto *label = new QLabel(QStringLiteral("host"), &parent);
    hostLayout->addWidget(label);
    QPointer<SignalTreeList> list = new SignalTreeList(&parent);

    list->initControls();

    QCOMPARE(parent.layout(), static_cast<QLayout *>(hostLayout));
    QCOMPARE(hostLayout->count(), 1);
    QPointer<QFrame> frame = list->getSignalTreeListFrame();
    QVERIFY(frame);
    QCOMPARE(frame->parentWidget(), &parent);
    addRoots(list, 2, 1);
    QCOMPARE(frameOf(list)->drawers().size(), 2);

    delete list;
    QVERIFY(frame.isNull());
    QCOMPARE(parent.layout(), static_cast<QLayout *>(hostLayout));
    QCOMPARE(hostLayout->count(), 1);
    QCOMPARE(hostLayout->itemAt(0)->widget(), static_cast<QWidget *>(label));
}

void tst_SignalTreeList::frameSignalsAreRelayed_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("expected");

    const auto path = [](std::initializer_list<int> l) { return QVariant::fromValue(QList<int>(l)); };
    QTest::newRow("signal_OnCurrentItemClicked")
        << 0 << QByteArray("signal_OnCurrentItemClicked(QList<int>)") << QVariantList{path({1, 3})}
        << QStringLiteral("CurrentItemClicked(1,3)");
    QTest::newRow("signal_OnAddRootItem")
        << 1 << QByteArray("signal_OnAddRootItem(QString)") << QVariantList{QStringLiteral("Group X")}
        << QStringLiteral("AddRootItem(Group X)");
    QTest::newRow("signal_OnAddSecondItems")
        << 2 << QByteArray("signal_OnAddSecondItems(QList<int>,QList<int>)")
        << QVariantList{path({0, 2}), path({5})} << QStringLiteral("AddSecondItems(0,2|5)");
    QTest::newRow("signal_OnDeleteItem") << 3 << QByteArray("signal_OnDeleteItem(QList<int>)")
                                         << QVariantList{path({4, 1})} << QStringLiteral("DeleteItem(4,1)");
    QTest::newRow("signal_OnDeleteRootItem") << 4 << QByteArray("signal_OnDeleteRootItem(int)")
                                             << QVariantList{6} << QStringLiteral("DeleteRootItem(6)");
    QTest::newRow("signal_OnDeleteSecondItem") << 5 << QByteArray("signal_OnDeleteSecondItem(int,int)")
                                               << QVariantList{2, 8} << QStringLiteral("DeleteSecondItem(2,8)");
    QTest::newRow("signal_OnGetNewRootName") << 6 << QByteArray("signal_OnGetNewRootName()") << QVariantList{}
                                             << QStringLiteral("GetNewRootName()");
    QTest::newRow("signal_OnCaptureBtnClicked")
        << 7 << QByteArray("signal_OnCaptureBtnClicked(QList<int>)") << QVariantList{path({7, 0})}
        << QStringLiteral("CaptureBtnClicked(7,0)");
    QTest::newRow("signal_OnEditBtnClicked") << 8 << QByteArray("signal_OnEditBtnClicked(QList<int>)")
                                             << QVariantList{path({3})} << QStringLiteral("EditBtnClicked(3)");
    QTest::newRow("signal_OnDeleteBtnClicked")
        << 9 << QByteArray("signal_OnDeleteBtnClicked(QList<int>)") << QVariantList{path({9, 9})}
        << QStringLiteral("DeleteBtnClicked(9,9)");
}

void tst_SignalTreeList::frameSignalsAreRelayed()
{
    QFETCH(int, which);
    QFETCH(QByteArray, signature);
    QFETCH(QVariantList, arguments);
    QFETCH(QString, expected);
    auto host = makeHost();
    TreeListFrame *frame = host->frame();
    QVERIFY(frame);
    HostRecorder recorder(host->list);
    QSignalSpy hostSpy(host->list.data(), QByteArray("2" + signature).constData());
    QVERIFY(hostSpy.isValid());

    switch (which) {
    case 0: emit frame->signal_OnCurrentItemClicked(QList<int>{1, 3}); break;
    case 1: emit frame->signal_OnAddRootItem(QStringLiteral("Group X")); break;
    case 2: emit frame->signal_OnAddSecondItems(QList<int>{0, 2}, QList<int>{5}); break;
    case 3: emit frame->signal_OnDeleteItem(QList<int>{4, 1}); break;
    case 4: emit frame->signal_OnDeleteRootItem(6); break;
    case 5: emit frame->signal_OnDeleteSecondItem(2, 8); break;
    case 6: emit frame->signal_OnGetNewRootName(); break;
    case 7: emit frame->signal_OnCaptureBtnClicked(QList<int>{7, 0}); break;
    case 8: emit frame->signal_OnEditBtnClicked(QList<int>{3}); break;
    case 9: emit frame->signal_OnDeleteBtnClicked(QList<int>{9, 9}); break;
    default: QFAIL("unknown row");
    }
    // Directly, once, with the same arguments, and no other signal.
    QCOMPARE(hostSpy.count(), 1);
    QCOMPARE(typedTexts(hostSpy.first()), typedTexts(arguments));
    QCOMPARE(recorder.events, QStringList{expected});
    QCoreApplication::processEvents();
    QCOMPARE(hostSpy.count(), 1);
    QCOMPARE(recorder.events, QStringList{expected});
}

void tst_SignalTreeList::destroyingDeletesTheFrameOnce_data()
{
    QTest::addColumn<QString>("order");
    QTest::newRow("widget, then parent") << QStringLiteral("widget");
    QTest::newRow("parent only") << QStringLiteral("parent");
    QTest::newRow("no parent") << QStringLiteral("orphan");
    QTest::newRow("host deleted the frame first") << QStringLiteral("frame");
}

void tst_SignalTreeList::destroyingDeletesTheFrameOnce()
{
    QFETCH(QString, order);
    const bool orphan = order == QLatin1String("orphan");
    std::unique_ptr<QWidget> parent(orphan ? nullptr : new QWidget);
    QPointer<SignalTreeList> list = new SignalTreeList(parent.get());
    list->initControls();
    addRoots(list, 2, 2);
    QPointer<QFrame> frame = list->getSignalTreeListFrame();
    QVERIFY(frame);
    QSignalSpy destroyedSpy(frame.data(), &QObject::destroyed);
    MessageCapture capture;

    if (order == QLatin1String("frame")) {
        delete frame.data();
        QCOMPARE(destroyedSpy.count(), 1);
        QVERIFY(list->getSignalTreeListFrame() == nullptr);
        // The widget is still usable, as before initControls.
        st_NodeInfoSignal n = makeNode(QStringLiteral("n"), QStringLiteral("n"));
        list->addRootItem(n);
        QCOMPARE(list->getItemSignalNode(QList<int>{0}).first, false);
    }
    if (order == QLatin1String("parent")) {
        parent.reset();
        QVERIFY(list.isNull());
    } else {
        delete list.data();
        QCOMPARE(destroyedSpy.count(), 1);
        QVERIFY(frame.isNull());
        if (parent)
            QCOMPARE(parent->findChildren<TreeListFrame *>().size(), 0);
        parent.reset();
    }
    QVERIFY(frame.isNull());
    QCOMPARE(destroyedSpy.count(), 1);
    QCOMPARE(capture.lines().count(QStringLiteral("[Tarn]::TreeListFrame::~TreeListFrame()")), 1);
    QCOMPARE(capture.lines().count(QStringLiteral("[Tarn]::TreeListFrame::~TreeListFrame() end")), 1);
}

void tst_SignalTreeList::deleteChildeItemByPathLength_data()
{
    QTest::addColumn<QList<int>>("path");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("rowsLeft");

    const QStringList all{QStringLiteral("R0:R0-0,R0-1,R0-2"), QStringLiteral("R1:R1-0,R1-1,R1-2"),
                          QStringLiteral("R2:R2-0,R2-1,R2-2")};
    QTest::newRow("length 3: nothing") << QList<int>{1, 1, 1} << all << 9;
    QTest::newRow("length 3 [0,1,2]: nothing") << QList<int>{0, 1, 2} << all << 9;
    QTest::newRow("length 4: nothing") << QList<int>{0, 0, 0, 0} << all << 9;
    QTest::newRow("length 0: nothing") << QList<int>{} << all << 9;
    QTest::newRow("length 1: whole root row")
        << QList<int>{1} << QStringList{QStringLiteral("R0:R0-0,R0-1,R0-2"), QStringLiteral("R2:R2-0,R2-1,R2-2")}
        << 6;
    QTest::newRow("length 1, root 0")
        << QList<int>{0} << QStringList{QStringLiteral("R1:R1-0,R1-1,R1-2"), QStringLiteral("R2:R2-0,R2-1,R2-2")}
        << 6;
    QTest::newRow("length 2: one child")
        << QList<int>{1, 2}
        << QStringList{QStringLiteral("R0:R0-0,R0-1,R0-2"), QStringLiteral("R1:R1-0,R1-1"),
                       QStringLiteral("R2:R2-0,R2-1,R2-2")}
        << 8;
    QTest::newRow("length 2: first child of last root")
        << QList<int>{2, 0}
        << QStringList{QStringLiteral("R0:R0-0,R0-1,R0-2"), QStringLiteral("R1:R1-0,R1-1,R1-2"),
                       QStringLiteral("R2:R2-1,R2-2")}
        << 8;
}

void tst_SignalTreeList::deleteChildeItemByPathLength()
{
    QFETCH(QList<int>, path);
    QFETCH(QStringList, expected);
    QFETCH(int, rowsLeft);

    auto host = makeHost();
    addRoots(host->list, 3, 3);
    QCOMPARE(secondItemCount(host->parent.get()), 9);
    QList<QPointer<DrawerControl>> guards;
    for (DrawerControl *d : host->frame()->drawers())
        guards << d;
    HostRecorder recorder(host->list);

    host->list->deleteChildeItem(path);

    QCOMPARE(snapshot(host->frame()), expected);
    QTRY_COMPARE(secondItemCount(host->parent.get()), rowsLeft);
    int alive = 0;
    for (const QPointer<DrawerControl> &d : guards)
        alive += d.isNull() ? 0 : 1;
    QCOMPARE(alive, expected.size());
    QCOMPARE(listDrawers(host->parent.get()).size(), expected.size());
    QVERIFY(recorder.events.isEmpty());
}

void tst_SignalTreeList::updateTreeList_data()
{
    QTest::addColumn<int>("existing");
    QTest::addColumn<int>("entries");
    QTest::newRow("empty map") << 0 << 0;
    QTest::newRow("empty map over two roots") << 2 << 0;
    QTest::newRow("three entries") << 0 << 3;
    QTest::newRow("three entries over two roots") << 2 << 3;
}

void tst_SignalTreeList::updateTreeList()
{
    QFETCH(int, existing);
    QFETCH(int, entries);

    auto host = makeHost();
    for (int i = 0; i < existing; ++i) {
        st_NodeInfoSignal old = makeNode(QStringLiteral("Old%1").arg(i), QStringLiteral("old"));
        host->list->addRootItem(old);
    }
    QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree;
    // Inserted in the opposite order to their keys' order.
    for (int i = entries - 1; i >= 0; --i) {
        const QString name = QStringLiteral("Key%1").arg(i);
        tree.insert(makeNode(name, name, i % 2, 10 + i), makeChildren(name, i + 1, name));
    }
    QCOMPARE(tree.size(), entries);
    QStringList expected;
    for (auto it = tree.cbegin(); it != tree.cend(); ++it)
        expected << it.key().strNodeName.first() + QLatin1Char(':')
                        + [&] {
                              QStringList names;
                              for (const st_NodeInfoSignal &c : it.value())
                                  names << c.strNodeName.first();
                              return names.join(QLatin1Char(','));
                          }();
    for (int i = 0; i < existing; ++i)
        expected << QStringLiteral("Old%1:").arg(i);
    HostRecorder recorder(host->list);

    host->list->updateTreeList(tree);

    QCOMPARE(snapshot(host->frame()), expected);
    const QList<DrawerControl *> drawers = host->frame()->drawers();
    // New drawers carry their counters 0, 1, 2; the old ones keep theirs.
    for (int i = 0; i < entries; ++i) {
        QCOMPARE(drawers.at(i)->rootIndex(), i);
        QCOMPARE(drawers.at(i)->rootItem()->getIndexText(), QString::number(i));
    }
    for (int i = 0; i < existing; ++i)
        QCOMPARE(drawers.at(entries + i)->rootIndex(), i);
    QCOMPARE(listDrawers(host->parent.get()).size(), existing + entries);
    QVERIFY(recorder.events.isEmpty());
}

void tst_SignalTreeList::addChildItemUsesFirstElementOnly_data()
{
    QTest::addColumn<QList<int>>("path");
    QTest::addColumn<QStringList>("expected");
    const QStringList before{QStringLiteral("R0:R0-0"), QStringLiteral("R1:R1-0")};
    QTest::newRow("empty path: nothing") << QList<int>{} << before;
    QTest::newRow("[1]") << QList<int>{1} << QStringList{QStringLiteral("R0:R0-0"), QStringLiteral("R1:R1-0,N-0,N-1")};
    QTest::newRow("[1, 7]") << QList<int>{1, 7}
                            << QStringList{QStringLiteral("R0:R0-0"), QStringLiteral("R1:R1-0,N-0,N-1")};
    QTest::newRow("[0, 1, 2]") << QList<int>{0, 1, 2}
                               << QStringList{QStringLiteral("R0:R0-0,N-0,N-1"), QStringLiteral("R1:R1-0")};
    QTest::newRow("[2]: no such root") << QList<int>{2} << before;
    QTest::newRow("[-1]") << QList<int>{-1} << before;
}

void tst_SignalTreeList::addChildItemUsesFirstElementOnly()
{
    QFETCH(QList<int>, path);
    QFETCH(QStringList, expected);
    auto host = makeHost();
    addRoots(host->list, 2, 1);
    HostRecorder recorder(host->list);
    host->list->addChildItem(path, makeChildren(QStringLiteral("N"), 2, QStringLiteral("N")));
    QCOMPARE(snapshot(host->frame()), expected);
    QVERIFY(recorder.events.isEmpty());
}

void tst_SignalTreeList::setSignalTreeListFrameVisiable()
{
    auto host = makeHost();
    host->parent->show();
    QVERIFY(QTest::qWaitForWindowExposed(host->parent.get()));
    QFrame *frame = host->list->getSignalTreeListFrame();
    QVERIFY(frame->isVisible());
    host->list->setSignalTreeListFrameVisiable(false);
    QVERIFY(!frame->isVisible());
    QVERIFY(frame->isHidden());
    host->list->setSignalTreeListFrameVisiable(true);
    QVERIFY(frame->isVisible());
    host->list->setSignalTreeListFrameVisiable(true);
    QVERIFY(frame->isVisible());
}

void tst_SignalTreeList::childClickReachesHostSynchronously()
{
    auto host = makeHost();
    st_NodeInfoSignal r0 = makeNode(QStringLiteral("R0"), QStringLiteral("S0"));
    st_NodeInfoSignal r1 = makeNode(QStringLiteral("R1"), QStringLiteral("S1"));
    host->list->addRootItem(r0, makeChildren(QStringLiteral("R0"), 2, QStringLiteral("S0")));
    host->list->addRootItem(r1, makeChildren(QStringLiteral("R1"), 4, QStringLiteral("S1")));
    host->list->setIsShowChildItem(1, true);
    host->parent->show();
    QVERIFY(QTest::qWaitForWindowExposed(host->parent.get()));
    HostRecorder recorder(host->list);

    SecondItem *row = builtRows(host->drawer(1)).at(3);
    QTest::mousePress(row, Qt::LeftButton, Qt::NoModifier, row->rect().center());
    // Within the press, without any event loop turn.
    QCOMPARE(recorder.events, QStringList{QStringLiteral("CurrentItemClicked(1,3)")});
    QTest::mouseRelease(row, Qt::LeftButton, Qt::NoModifier, row->rect().center());
    QCOMPARE(recorder.events, QStringList{QStringLiteral("CurrentItemClicked(1,3)")});

    // A click on a root row only selects it; the host is not told.
    recorder.events.clear();
    RootItem *root = host->drawer(0)->rootItem();
    QTest::mouseClick(root, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QCoreApplication::processEvents();
    QVERIFY(recorder.events.isEmpty());
    QCOMPARE(host->drawer(0)->selIndex(), QList<int>{0});
}

void tst_SignalTreeList::rootEditButtonReportsCurrentSelection()
{
    auto host = makeHost();
    addRoots(host->list, 2, 3);
    host->list->setIsShowChildItem(1, true);
    host->parent->show();
    QVERIFY(QTest::qWaitForWindowExposed(host->parent.get()));
    HostRecorder recorder(host->list);

    SecondItem *row = builtRows(host->drawer(1)).at(2);
    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, row->rect().center());
    QToolButton *edit = rootButton(host->drawer(1)->rootItem(), "isEditBtn");
    QVERIFY(edit);
    edit->click();
    QCOMPARE(recorder.events, (QStringList{QStringLiteral("CurrentItemClicked(1,2)"),
                                           QStringLiteral("EditBtnClicked(1,2)")}));
}

void tst_SignalTreeList::misuseNeverCrashes_data()
{
    QTest::addColumn<Op>("op");
    auto path = [](std::initializer_list<int> l) { return QList<int>(l); };

    for (int row : {INT_MIN, -1, 3, INT_MAX}) {
        QTest::addRow("deleteRootItem(%d)", row) << Op([row](SignalTreeList *l) { l->deleteRootItem(row); });
        QTest::addRow("setIsShowChildItem(%d)", row)
            << Op([row](SignalTreeList *l) { l->setIsShowChildItem(row, true); });
        QTest::addRow("addChildItem([%d])", row) << Op([row](SignalTreeList *l) {
            l->addChildItem(QList<int>{row}, makeChildren(QStringLiteral("x"), 1, QStringLiteral("x")));
        });
    }
    const QList<QList<int>> badPaths{path({}),
                                     path({0, 0, 0}),
                                     path({0, 1, 2, 3}),
                                     path({INT_MIN}),
                                     path({INT_MAX}),
                                     path({-1}),
                                     path({0, INT_MIN}),
                                     path({0, INT_MAX}),
                                     path({0, -1}),
                                     path({0, 2}),
                                     path({-1, 0}),
                                     path({INT_MAX, INT_MIN}),
                                     path({INT_MIN, 0})};
    for (const QList<int> &p : badPaths) {
        const QByteArray text = pathText(p).toLatin1();
        QTest::addRow("deleteChildeItem([%s])", text.constData())
            << Op([p](SignalTreeList *l) { l->deleteChildeItem(p); });
        QTest::addRow("getItemSignalNode([%s])", text.constData())
            << Op([p](SignalTreeList *l) { (void)l->getItemSignalNode(p); });
        QTest::addRow("setCurSelItem([%s])", text.constData())
            << Op([p](SignalTreeList *l) { l->setCurSelItem(p); });
        QTest::addRow("modifyItemData([%s])", text.constData()) << Op([p](SignalTreeList *l) {
            st_NodeInfoSignal n = makeNode(QStringLiteral("x"), QStringLiteral("x"));
            l->modifyItemData(p, n);
        });
    }
    QTest::newRow("addChildItem([]) with nothing") << Op([](SignalTreeList *l) {
        l->addChildItem(QList<int>{}, QList<st_NodeInfoSignal>{});
    });
    QTest::newRow("updateTreeList(empty)")
        << Op([](SignalTreeList *l) { l->updateTreeList(QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>>()); });
    QTest::newRow("reTranslateUI twice") << Op([](SignalTreeList *l) {
        l->reTranslateUI();
        l->reTranslateUI();
    });
    QTest::newRow("language change") << Op([](SignalTreeList *l) {
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(l, &change);
        QCoreApplication::sendEvent(l->getSignalTreeListFrame(), &change);
    });
}

// Nothing changes the tree and no host signal is emitted, except that a
// child selection with a wild child index is reported as it is.
void tst_SignalTreeList::misuseNeverCrashes()
{
    QFETCH(Op, op);
    auto host = makeHost();
    addRoots(host->list, 3, 2);
    host->parent->show();
    const QStringList before = snapshot(host->frame());
    HostRecorder recorder(host->list);

    op(host->list);
    QTest::qWait(10);

    QCOMPARE(snapshot(host->frame()), before);
    QCOMPARE(listDrawers(host->parent.get()).size(), 3);
    QCOMPARE(secondItemCount(host->parent.get()), 6);
    for (const QString &e : recorder.events)
        QVERIFY2(e.startsWith(QStringLiteral("CurrentItemClicked(0,")), qPrintable(e));
}

// ---- real drag -----------------------------------------------------------------

void tst_SignalTreeList::realDragStoresPathsOnly_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QList<int>>("dst"); // empty: the drop is refused

    QTest::newRow("onto the other root row") << QStringLiteral("root") << QList<int>{1};
    QTest::newRow("onto the other drawer's third child") << QStringLiteral("child2") << QList<int>{1, 2};
    QTest::newRow("onto the other drawer's first child") << QStringLiteral("child0") << QList<int>{1, 0};
    QTest::newRow("onto the other drawer's margin") << QStringLiteral("margin") << QList<int>{1};
    QTest::newRow("onto the source drawer") << QStringLiteral("self") << QList<int>{};
}

void tst_SignalTreeList::realDragStoresPathsOnly()
{
    QFETCH(QString, target);
    QFETCH(QList<int>, dst);

    auto host = makeDragHost();
    QVERIFY(dragHostReady(host.get()));
    TreeListFrame *frame = host->frame();
    DrawerControl *source = host->drawer(0);
    DrawerControl *other = host->drawer(1);
    QWindow *window = host->parent->windowHandle();
    QVERIFY(window);
    const QStringList before = snapshot(frame);
    HostRecorder recorder(host->list);

    QPoint dropAt;
    if (target == QLatin1String("root"))
        dropAt = globalCenter(other->rootItem());
    else if (target == QLatin1String("child2"))
        dropAt = globalCenter(builtRows(other).at(2));
    else if (target == QLatin1String("child0"))
        dropAt = globalCenter(builtRows(other).at(0));
    else if (target == QLatin1String("margin"))
        dropAt = other->mapToGlobal(QPoint(3, other->rootItem()->height() / 2));
    else
        dropAt = globalCenter(builtRows(source).at(0));

    DragPlayer player(
        source,
        [&] {
            DragDriver::move(window, dropAt - QPoint(0, 3));
            DragDriver::move(window, dropAt);
            DragDriver::release(window, dropAt);
        },
        window);

    clickAndDrag(builtRows(source).at(1));

    QVERIFY2(player.acted, "the drag did not start");
    QVERIFY(!player.watchdogFired);
    // The click selected the row and told the host; the drag told it nothing.
    QCOMPARE(source->selIndex(), (QList<int>{0, 1}));
    QCOMPARE(recorder.events, QStringList{QStringLiteral("CurrentItemClicked(0,1)")});
    if (dst.isEmpty()) {
        QVERIFY(frame->dragSource().isEmpty());
        QVERIFY(frame->dragDestination().isEmpty());
    } else {
        QCOMPARE(frame->dragSource(), (QList<int>{0, 1}));
        QCOMPARE(frame->dragDestination(), dst);
    }

    // The drag object goes away; nothing else follows.
    QTRY_VERIFY(!source->isDragging());
    QTest::qWait(50);
    QCOMPARE(recorder.events, QStringList{QStringLiteral("CurrentItemClicked(0,1)")});
    QCOMPARE(snapshot(frame), before);
    QCOMPARE(frame->drawers().size(), 2);
    QCOMPARE(host->drawer(0), source);
    QCOMPARE(source->parentWidget(), other->parentWidget());
}

void tst_SignalTreeList::deletingSourceRootDuringDrag_data()
{
    QTest::addColumn<bool>("drop");
    QTest::newRow("then dropped on the other drawer") << true;
    QTest::newRow("then cancelled") << false;
}

void tst_SignalTreeList::deletingSourceRootDuringDrag()
{
    QFETCH(bool, drop);

    auto host = makeDragHost();
    QVERIFY(dragHostReady(host.get()));
    TreeListFrame *frame = host->frame();
    QPointer<DrawerControl> source = host->drawer(0);
    QPointer<DrawerControl> other = host->drawer(1);
    QWindow *window = host->parent->windowHandle();
    HostRecorder recorder(host->list);
    MessageCapture capture;

    bool detachedDuringDrag = false;
    int drawersDuringDrag = -1;
    DragPlayer player(
        source,
        [&] {
            const QPoint dropAt = globalCenter(builtRows(other).at(1));
            DragDriver::move(window, dropAt);
            host->list->deleteRootItem(0);
            detachedDuringDrag = source && source->parentWidget() == nullptr;
            drawersDuringDrag = frame->drawers().size();
            if (drop) {
                DragDriver::move(window, dropAt + QPoint(1, 0));
                DragDriver::release(window, dropAt);
            } else {
                DragDriver::escape(window);
            }
        },
        window);

    clickAndDrag(builtRows(source).at(1));

    QVERIFY2(player.acted, "the drag did not start");
    QVERIFY(!player.watchdogFired);
    QVERIFY(detachedDuringDrag);
    QCOMPARE(drawersDuringDrag, 1);
    QVERIFY(!source.isNull()); // still alive right after the drag
    if (drop) {
        // The other drawer still has its old index 1.
        QCOMPARE(frame->dragSource(), (QList<int>{0, 1}));
        QCOMPARE(frame->dragDestination(), (QList<int>{1, 1}));
    } else {
        QVERIFY(frame->dragSource().isEmpty());
    }

    // Once the drag object is gone the drawer deletes itself.
    QTRY_VERIFY(source.isNull());
    QVERIFY(capture.lines().contains(QStringLiteral("[Tarn]::DrawerControl::slot_releaseDrag deleteLater")));
    QCOMPARE(frame->drawers().size(), 1);
    QCOMPARE(frame->drawers().first(), other.data());
    QCOMPARE(listDrawers(host->parent.get()).size(), 1);
    QCOMPARE(recorder.events, QStringList{QStringLiteral("CurrentItemClicked(0,1)")});
}

void tst_SignalTreeList::destroyingListDuringDrag_data()
{
    QTest::addColumn<bool>("withParent");
    QTest::newRow("the widget") << false;
    QTest::newRow("the widget and its parent") << true;
}

void tst_SignalTreeList::destroyingListDuringDrag()
{
    QFETCH(bool, withParent);

    // A second window to end the drag from once the host's window is gone.
    QWidget spare;
    spare.setGeometry(700, 500, 40, 40);
    spare.show();
    QVERIFY(QTest::qWaitForWindowExposed(&spare));

    auto host = makeDragHost();
    QVERIFY(dragHostReady(host.get()));
    QPointer<QFrame> frame = host->list->getSignalTreeListFrame();
    QPointer<SignalTreeList> list = host->list;
    QPointer<DrawerControl> source = host->drawer(0);
    QPointer<DrawerControl> other = host->drawer(1);
    QPointer<QWidget> parent = host->parent.get();
    QWindow *window = host->parent->windowHandle();
    QSignalSpy frameDestroyed(frame.data(), &QObject::destroyed);

    bool sourceSurvived = false;
    DragPlayer player(
        source,
        [&] {
            DragDriver::move(window, globalCenter(other->rootItem()));
            if (withParent)
                host->parent.reset();
            else
                delete list.data();
            sourceSurvived = !source.isNull();
            DragDriver::escape(spare.windowHandle());
        },
        spare.windowHandle());

    clickAndDrag(builtRows(source).at(1));

    QVERIFY2(player.acted, "the drag did not start");
    QVERIFY(!player.watchdogFired);
    QVERIFY(sourceSurvived);
    QVERIFY(list.isNull());
    QVERIFY(frame.isNull());
    QCOMPARE(frameDestroyed.count(), 1);
    QVERIFY(other.isNull());
    QCOMPARE(parent.isNull(), withParent);
    QTRY_VERIFY(source.isNull());
}

// ---- calling the list from its own signals -------------------------------------------

void tst_SignalTreeList::hostActsFromInsideItsSignals_data()
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
void tst_SignalTreeList::hostActsFromInsideItsSignals()
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

void tst_SignalTreeList::anyOperationFromInsideAClick_data()
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
void tst_SignalTreeList::anyOperationFromInsideAClick()
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
void tst_SignalTreeList::rowRemovedFromItsClickLeavesAtOnce()
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
void tst_SignalTreeList::nothingDeferredWithoutReentrancy()
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

QTEST_MAIN(tst_SignalTreeList)
#include "tst_signaltreelist.moc"
