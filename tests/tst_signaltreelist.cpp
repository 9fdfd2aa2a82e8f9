// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Tests of the exported widget as a host application uses it: construction,
// initControls, forwarding, relayed signals, destruction and misuse (drags
// and re-entrant hosts are in tst_signaltreelist_reentrant). Runs on the
// "minimal" platform.

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
using RowButtons::rootButton;
using RowButtons::rowButton;

} // namespace

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

QTEST_MAIN(tst_SignalTreeList)
#include "tst_signaltreelist.moc"
