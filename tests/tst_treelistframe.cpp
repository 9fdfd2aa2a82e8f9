// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Tests of the scrolling tree container: how it is built, and adding and
// removing drawers and rows (reading, changing and selecting are in
// tst_treelistframe_data, the grouping after a drag in tst_treelistframe_drag).
// Wherever a behaviour can be seen from the public widget, it is driven through
// SignalTreeList and observed on the widgets it shows and on the signals a host
// receives; the container is reached through getSignalTreeListFrame() only to
// look at its layout and stored state.

#include "BuiltRows.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "FrameHost.h"
#include "HostRecorder.h"
#include "MessageCapture.h"
#include "NodeFactory.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"
#include "TreeText.h"

#include <CLanguageTranslateFrame.h>
#include <ScrollBarEx.h>

#include <QBoxLayout>
#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLayoutItem>
#include <QMetaMethod>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpacerItem>
#include <QtTest>

#include <functional>

#include <climits>
#include <memory>

namespace {

using namespace FrameHost;
using TreeText::rootName;
using TreeText::snapshot;

} // namespace

class tst_TreeListFrame : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // construction and structure
    void constructorBuildsNothing();
    void initControlsBuildsScrollAreaAndLayouts();
    void scrollBarsKeepTheirLook();
    void metaObjectListsTenSignalsInOrder();
    void destructorWritesTraceAroundRelease();

    // adding
    void addRootItemOnEmptyFrame_data();
    void addRootItemOnEmptyFrame();
    void secondRootGetsIndexOneAndLiesBelow();
    void fourAdditionsKeepListOrderAndOneStretch();
    void layoutRebuildRemovesHalfOfTheItems_data();
    void layoutRebuildRemovesHalfOfTheItems();
    void addChildItemAppendsToOneDrawer_data();
    void addChildItemAppendsToOneDrawer();

    // removing
    void deleteRootItemOutOfRangeDoesNothing_data();
    void deleteRootItemOutOfRangeDoesNothing();
    void deleteRootItemKeepsOldIndices_data();
    void deleteRootItemKeepsOldIndices();
    void deletedDrawerLeavesTheLayout();
    void deletedDrawerNoLongerReportsClicks();
    void deleteChildeItemKeepsChildIndices();
    void clearTreeReleasesEveryDrawer();
    void releasedDrawersStillAliveKeepTheirPlace_data();
    void releasedDrawersStillAliveKeepTheirPlace();
};

void tst_TreeListFrame::initTestCase()
{
    EventSender::parkPointer();
    qRegisterMetaType<QList<int>>();
}

// ---- construction and structure ---------------------------------------------

void tst_TreeListFrame::constructorBuildsNothing()
{
    QWidget parent;
    TreeListFrame frame(&parent);
    QCOMPARE(frame.objectName(), QStringLiteral("TreeListFrame"));
    QCOMPARE(frame.parentWidget(), &parent);
    QVERIFY(frame.findChildren<QWidget *>().isEmpty());
    QVERIFY(frame.layout() == nullptr);
    QVERIFY(frame.drawers().isEmpty());
    QVERIFY(frame.dragSource().isEmpty());
    QVERIFY(frame.dragDestination().isEmpty());
    QVERIFY(frame.pendingRootName().isEmpty());
    QVERIFY(frame.styleSheet().isEmpty());
}

void tst_TreeListFrame::initControlsBuildsScrollAreaAndLayouts()
{
    QWidget parent;
    TreeListFrame frame(&parent);
    frame.initControls();

    QHBoxLayout *main = qobject_cast<QHBoxLayout *>(frame.layout());
    QVERIFY(main);
    QCOMPARE(main->spacing(), 16);
    QCOMPARE(main->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(main->count(), 1);

    QScrollArea *area = qobject_cast<QScrollArea *>(main->itemAt(0)->widget());
    QVERIFY(area);
    QCOMPARE(area->parentWidget(), static_cast<QWidget *>(&frame));
    QCOMPARE(frame.findChildren<QScrollArea *>().size(), 1);
    QCOMPARE(area->contentsMargins(), QMargins(10, 0, 0, 0));
    QVERIFY(area->widgetResizable());

    QWidget *container = area->widget();
    QVERIFY(container);
    QCOMPARE(container->objectName(), QStringLiteral("DrawerContainer"));
    QVERIFY(qobject_cast<CLanguageTranslateFrame *>(container));
    QVBoxLayout *inner = qobject_cast<QVBoxLayout *>(container->layout());
    QVERIFY(inner);
    QCOMPARE(inner->spacing(), 16);
    QCOMPARE(inner->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(inner->count(), 0);

    // The looks come from the host's style sheet through the object names;
    // the frame applies none itself.
    QVERIFY(frame.styleSheet().isEmpty());
    QVERIFY(container->styleSheet().isEmpty());
    QVERIFY(frame.drawers().isEmpty());
}

void tst_TreeListFrame::scrollBarsKeepTheirLook()
{
    QWidget parent;
    TreeListFrame frame(&parent);
    frame.initControls();
    QScrollArea *area = scrollAreaOf(&frame);
    QVERIFY(area);

    // Styled through objects that no longer exist: the look stays on the bars.
    const ScrollBarEx reference(nullptr, true);
    const QString vertical = area->verticalScrollBar()->styleSheet();
    const QString horizontal = area->horizontalScrollBar()->styleSheet();
    QVERIFY(!vertical.isEmpty());
    QVERIFY(!horizontal.isEmpty());
    QVERIFY(vertical != horizontal);
    QCOMPARE(vertical, reference.treeVerticalStyleSheet());
    QCOMPARE(horizontal, reference.treeHorizontalStyleSheet());
}

void tst_TreeListFrame::metaObjectListsTenSignalsInOrder()
{
    const QMetaObject *mo = &TreeListFrame::staticMetaObject;
    QCOMPARE(QByteArray(mo->className()), QByteArray("TreeListFrame"));
    const QList<QByteArray> expected = HostRecorder::signalSignatures();
    QCOMPARE(expected.size(), 10);
    QList<QByteArray> signalList;
    QList<QByteArray> slotList;
    for (int i = mo->methodOffset(); i < mo->methodCount(); ++i) {
        const QMetaMethod m = mo->method(i);
        if (m.methodType() == QMetaMethod::Signal) {
            QVERIFY2(slotList.isEmpty(), "signals come before the slots");
            QCOMPARE(m.access(), QMetaMethod::Public);
            signalList << m.methodSignature();
        } else if (m.methodType() == QMetaMethod::Slot) {
            slotList << m.methodSignature();
        }
    }
    QCOMPARE(signalList, expected);
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(mo->method(mo->methodOffset() + i).methodSignature(), expected.at(i));
    QVERIFY(slotList.contains("slot_OnItemsIsDraged(QList<int>,QList<int>)"));
    QVERIFY(slotList.contains("slot_OnCompleteDraged()"));
    QVERIFY(slotList.indexOf("slot_OnItemsIsDraged(QList<int>,QList<int>)")
            < slotList.indexOf("slot_OnCompleteDraged()"));
}

void tst_TreeListFrame::destructorWritesTraceAroundRelease()
{
    QWidget parent;
    auto *frame = new TreeListFrame(&parent);
    frame->initControls();
    st_NodeInfoSignal a = makeNode(QStringLiteral("a"), QStringLiteral("a"));
    st_NodeInfoSignal b = makeNode(QStringLiteral("b"), QStringLiteral("b"));
    frame->addRootItem(a);
    frame->addRootItem(b, makeChildren(QStringLiteral("b"), 2, QStringLiteral("b")));
    QPointer<DrawerControl> first = frame->drawers().value(0);
    QPointer<DrawerControl> second = frame->drawers().value(1);

    QStringList lines;
    {
        MessageCapture capture;
        delete frame;
        lines = capture.lines();
    }
    const QString begin = QStringLiteral("[Tarn]::TreeListFrame::~TreeListFrame()");
    const QString end = QStringLiteral("[Tarn]::TreeListFrame::~TreeListFrame() end");
    QCOMPARE(lines.count(begin), 1);
    QCOMPARE(lines.count(end), 1);
    const int beginAt = lines.indexOf(begin);
    const int endAt = lines.indexOf(end);
    QVERIFY(beginAt < endAt);
    // Both drawers were released in between.
    const QStringList between = lines.mid(beginAt + 1, endAt - beginAt - 1);
    QCOMPARE(between.count(QStringLiteral("[Tarn]::DrawerControl::releaseSelf")), 2);
    QVERIFY(first.isNull());
    QVERIFY(second.isNull());
}

// ---- adding -------------------------------------------------------------------

void tst_TreeListFrame::addRootItemOnEmptyFrame_data()
{
    QTest::addColumn<int>("rootType");
    QTest::addColumn<int>("childCount");
    QTest::addColumn<int>("expectedItemType");

    // A root without children always shows the childless look (type 1); one
    // with children keeps what its iType gave it (1 for iType 0, else 0).
    QTest::newRow("plain source, no children") << 0 << 0 << 1;
    QTest::newRow("group, no children") << 1 << 0 << 1;
    QTest::newRow("other type, no children") << 4 << 0 << 1;
    QTest::newRow("plain source, children") << 0 << 2 << 1;
    QTest::newRow("group, children") << 1 << 2 << 0;
    QTest::newRow("other type, children") << 4 << 1 << 0;
}

void tst_TreeListFrame::addRootItemOnEmptyFrame()
{
    QFETCH(int, rootType);
    QFETCH(int, childCount);
    QFETCH(int, expectedItemType);

    auto host = makeHost();
    QVERIFY(host->frame);
    HostRecorder recorder(host->list);
    st_NodeInfoSignal root = makeNode(QStringLiteral("First"), QStringLiteral("src"), rootType);
    if (childCount == 0)
        host->list->addRootItem(root);
    else
        host->list->addRootItem(root, makeChildren(QStringLiteral("c"), childCount, QStringLiteral("c")));

    QCOMPARE(host->drawers().size(), 1);
    DrawerControl *d = host->drawer(0);
    QCOMPARE(d->parentWidget(), scrollAreaOf(host->frame)->widget());
    QCOMPARE(d->rootIndex(), 0);
    QCOMPARE(d->rootItem()->getIndexText(), QStringLiteral("0"));
    QCOMPARE(d->rootItem()->getItemType(), expectedItemType);
    QCOMPARE(describe(d->getRootNodeInfo()), describe(root));
    QCOMPARE(builtRows(d).size(), childCount);
    QCOMPARE(listDrawers(host->parent.get()).size(), 1);
    QCOMPARE(layoutTokens(host->frame), (QStringList{QStringLiteral("First"), QStringLiteral("S")}));
    QVERIFY(!d->acceptDrops()); // dragging is off until setIsDrag(true)
    QVERIFY(recorder.events.isEmpty());
}

void tst_TreeListFrame::secondRootGetsIndexOneAndLiesBelow()
{
    auto host = makeHost();
    HostRecorder recorder(host->list);
    st_NodeInfoSignal first = makeNode(QStringLiteral("First"), QStringLiteral("1"));
    st_NodeInfoSignal second = makeNode(QStringLiteral("Second"), QStringLiteral("2"));
    host->list->addRootItem(first);
    host->list->addRootItem(second);
    host->parent->show();
    QVERIFY(QTest::qWaitForWindowExposed(host->parent.get()));

    QCOMPARE(host->drawers().size(), 2);
    DrawerControl *d0 = host->drawer(0);
    DrawerControl *d1 = host->drawer(1);
    QCOMPARE(rootName(d0), QStringLiteral("First"));
    QCOMPARE(rootName(d1), QStringLiteral("Second"));
    QCOMPARE(d1->rootIndex(), 1);
    QCOMPARE(d1->rootItem()->getIndexText(), QStringLiteral("1"));
    QCOMPARE(d0->rootIndex(), 0);
    // Below, one layout spacing (16) apart.
    QTRY_VERIFY(d0->height() > 0 && d1->y() > d0->y());
    QCOMPARE(d1->x(), d0->x());
    QCOMPARE(d1->y() - (d0->y() + d0->height()), 16);
    QVERIFY(recorder.events.isEmpty());
}

void tst_TreeListFrame::fourAdditionsKeepListOrderAndOneStretch()
{
    auto host = makeHost();
    host->parent->show();
    QVERIFY(QTest::qWaitForWindowExposed(host->parent.get()));
    QStringList names;
    for (int i = 0; i < 4; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        st_NodeInfoSignal node = makeNode(name, name);
        if (i % 2)
            host->list->addRootItem(node, makeChildren(name, i, name));
        else
            host->list->addRootItem(node);
        names << name;
        // After every addition: every drawer in list order, then one stretch.
        QCOMPARE(layoutTokens(host->frame), names + QStringList{QStringLiteral("S")});
        QCOMPARE(rootIndexes(host->frame).last(), i);
    }
    QCOMPARE(listDrawers(host->parent.get()).size(), 4);
    QCoreApplication::processEvents();
    QTRY_VERIFY(host->drawer(3)->y() > host->drawer(2)->y());
    for (int i = 1; i < 4; ++i)
        QVERIFY2(host->drawer(i)->y() > host->drawer(i - 1)->y() + host->drawer(i - 1)->height(),
                 qPrintable(QStringLiteral("drawer %1 is not below drawer %2").arg(i).arg(i - 1)));
}

void tst_TreeListFrame::layoutRebuildRemovesHalfOfTheItems_data()
{
    QTest::addColumn<int>("markers");
    for (int k : {0, 1, 2, 3, 4, 5, 7})
        QTest::addRow("%d markers in front", k) << k;
}

// Items that a rebuild does not remove stay where they are. Markers put in
// front of the drawers show how many items each rebuild took away: ceil(n/2)
// of the n items in the layout, from the end, before every drawer (moved if
// still there) and a new stretch are appended.
void tst_TreeListFrame::layoutRebuildRemovesHalfOfTheItems()
{
    QFETCH(int, markers);
    auto host = makeHost();
    st_NodeInfoSignal first = makeNode(QStringLiteral("R0"), QStringLiteral("R0"));
    host->list->addRootItem(first);
    QBoxLayout *layout = containerLayout(host->frame);
    QVERIFY(layout);
    for (int m = markers - 1; m >= 0; --m)
        layout->insertSpacerItem(0, makeMarker(m));

    QStringList model;
    for (int m = 0; m < markers; ++m)
        model << QStringLiteral("M%1").arg(m);
    model << QStringLiteral("R0") << QStringLiteral("S");
    QCOMPARE(layoutTokens(host->frame), model);

    QStringList drawersInOrder{QStringLiteral("R0")};
    for (int i = 1; i <= 4; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        st_NodeInfoSignal node = makeNode(name, name);
        host->list->addRootItem(node);
        drawersInOrder << name;

        const int removed = (model.size() + 1) / 2; // ceil(n / 2)
        model = model.mid(0, model.size() - removed);
        for (const QString &d : drawersInOrder)
            model.removeAll(d); // a drawer still laid out moves to its new place
        model << drawersInOrder << QStringLiteral("S");
        QCOMPARE(layoutTokens(host->frame), model);
    }
}

void tst_TreeListFrame::addChildItemAppendsToOneDrawer_data()
{
    QTest::addColumn<QList<int>>("path");
    QTest::addColumn<QStringList>("expected");

    const QStringList before{QStringLiteral("P:P-0"), QStringLiteral("Q:"), QStringLiteral("R:R-0,R-1")};
    QTest::newRow("[1]") << QList<int>{1}
                         << QStringList{QStringLiteral("P:P-0"), QStringLiteral("Q:N-0,N-1"),
                                        QStringLiteral("R:R-0,R-1")};
    QTest::newRow("[2, 9]: only the root is read")
        << QList<int>{2, 9}
        << QStringList{QStringLiteral("P:P-0"), QStringLiteral("Q:"), QStringLiteral("R:R-0,R-1,N-0,N-1")};
    QTest::newRow("[0, 0, 0]: only the root is read")
        << QList<int>{0, 0, 0}
        << QStringList{QStringLiteral("P:P-0,N-0,N-1"), QStringLiteral("Q:"), QStringLiteral("R:R-0,R-1")};
    QTest::newRow("[] nothing") << QList<int>{} << before;
    QTest::newRow("[3] nothing") << QList<int>{3} << before;
    QTest::newRow("[-1] nothing") << QList<int>{-1} << before;
    QTest::newRow("[INT_MIN] nothing") << QList<int>{INT_MIN} << before;
    QTest::newRow("[INT_MAX] nothing") << QList<int>{INT_MAX} << before;
}

void tst_TreeListFrame::addChildItemAppendsToOneDrawer()
{
    QFETCH(QList<int>, path);
    QFETCH(QStringList, expected);

    auto host = makeHost();
    st_NodeInfoSignal p = makeNode(QStringLiteral("P"), QStringLiteral("P"));
    st_NodeInfoSignal q = makeNode(QStringLiteral("Q"), QStringLiteral("Q"), 1);
    st_NodeInfoSignal r = makeNode(QStringLiteral("R"), QStringLiteral("R"));
    host->list->addRootItem(p, makeChildren(QStringLiteral("P"), 1, QStringLiteral("P")));
    host->list->addRootItem(q);
    host->list->addRootItem(r, makeChildren(QStringLiteral("R"), 2, QStringLiteral("R")));
    const QStringList layoutBefore = layoutTokens(host->frame);
    HostRecorder recorder(host->list);

    host->list->addChildItem(path, makeChildren(QStringLiteral("N"), 2, QStringLiteral("N")));

    QCOMPARE(snapshot(host->frame), expected);
    QCOMPARE(layoutTokens(host->frame), layoutBefore); // no relayout of the drawers
    QVERIFY(recorder.events.isEmpty());
}

// ---- removing -------------------------------------------------------------------

void tst_TreeListFrame::deleteRootItemOutOfRangeDoesNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("5") << 5;
    QTest::newRow("3 (one past the end)") << 3;
    QTest::newRow("-1") << -1;
    QTest::newRow("INT_MIN") << INT_MIN;
    QTest::newRow("INT_MAX") << INT_MAX;
}

void tst_TreeListFrame::deleteRootItemOutOfRangeDoesNothing()
{
    QFETCH(int, row);
    auto host = makeHost();
    for (const QString &name : {QStringLiteral("R0"), QStringLiteral("R1"), QStringLiteral("R2")}) {
        st_NodeInfoSignal node = makeNode(name, name);
        host->list->addRootItem(node, makeChildren(name, 1, name));
    }
    const QStringList before = snapshot(host->frame);
    QList<QPointer<DrawerControl>> guards;
    for (DrawerControl *d : host->drawers())
        guards << d;
    HostRecorder recorder(host->list);

    host->list->deleteRootItem(row);
    QTest::qWait(20);

    QCOMPARE(snapshot(host->frame), before);
    QCOMPARE(rootIndexes(host->frame), (QList<int>{0, 1, 2}));
    for (const QPointer<DrawerControl> &d : guards) {
        QVERIFY(!d.isNull());
        QVERIFY(!d->isHidden());
    }
    QCOMPARE(listDrawers(host->parent.get()).size(), 3);
    QVERIFY(recorder.events.isEmpty());
}

void tst_TreeListFrame::deleteRootItemKeepsOldIndices_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("remaining");
    QTest::addColumn<QList<int>>("indices");

    QTest::newRow("row 0") << 0 << QStringList{QStringLiteral("R1"), QStringLiteral("R2")} << QList<int>{1, 2};
    QTest::newRow("row 1") << 1 << QStringList{QStringLiteral("R0"), QStringLiteral("R2")} << QList<int>{0, 2};
    QTest::newRow("row 2") << 2 << QStringList{QStringLiteral("R0"), QStringLiteral("R1")} << QList<int>{0, 1};
}

void tst_TreeListFrame::deleteRootItemKeepsOldIndices()
{
    QFETCH(int, row);
    QFETCH(QStringList, remaining);
    QFETCH(QList<int>, indices);

    auto host = makeHost();
    for (const QString &name : {QStringLiteral("R0"), QStringLiteral("R1"), QStringLiteral("R2")}) {
        st_NodeInfoSignal node = makeNode(name, name);
        host->list->addRootItem(node, makeChildren(name, 2, name));
    }
    QPointer<DrawerControl> doomed = host->drawer(row);
    HostRecorder recorder(host->list);
    MessageCapture capture;

    host->list->deleteRootItem(row);

    QVERIFY(!doomed.isNull()); // released, deleted later
    QVERIFY(doomed->isHidden());
    QStringList names;
    for (DrawerControl *d : host->drawers())
        names << rootName(d);
    QCOMPARE(names, remaining);
    QCOMPARE(rootIndexes(host->frame), indices);
    QStringList texts;
    for (int i : indices)
        texts << QString::number(i);
    QCOMPARE(rootIndexTexts(host->frame), texts);
    QVERIFY(capture.lines().contains(QStringLiteral("[Tarn]::DrawerControl::releaseSelf")));

    QTRY_VERIFY(doomed.isNull());
    QCOMPARE(listDrawers(host->parent.get()).size(), 2);
    QCOMPARE(rootIndexes(host->frame), indices);
    QVERIFY(recorder.events.isEmpty());
}

void tst_TreeListFrame::deletedDrawerLeavesTheLayout()
{
    auto host = makeHost();
    for (const QString &name : {QStringLiteral("R0"), QStringLiteral("R1"), QStringLiteral("R2")}) {
        st_NodeInfoSignal node = makeNode(name, name);
        host->list->addRootItem(node);
    }
    QPointer<DrawerControl> doomed = host->drawer(1);
    host->list->deleteRootItem(1);
    QTRY_VERIFY(doomed.isNull());
    QCOMPARE(layoutTokens(host->frame),
             (QStringList{QStringLiteral("R0"), QStringLiteral("R2"), QStringLiteral("S")}));

    // The next addition lays out the remaining drawers and the new one.
    st_NodeInfoSignal node = makeNode(QStringLiteral("R3"), QStringLiteral("R3"));
    host->list->addRootItem(node);
    QCOMPARE(layoutTokens(host->frame),
             (QStringList{QStringLiteral("R0"), QStringLiteral("R2"), QStringLiteral("R3"), QStringLiteral("S")}));
    QCOMPARE(host->drawer(2)->rootIndex(), 2); // appended at the current count
}

void tst_TreeListFrame::deletedDrawerNoLongerReportsClicks()
{
    auto host = makeHost();
    for (const QString &name : {QStringLiteral("R0"), QStringLiteral("R1")}) {
        st_NodeInfoSignal node = makeNode(name, name);
        host->list->addRootItem(node, makeChildren(name, 2, name));
    }
    QPointer<DrawerControl> doomed = host->drawer(0);
    host->list->deleteRootItem(0);
    QVERIFY(!doomed.isNull());
    HostRecorder recorder(host->list);

    // Only the click relay is cut; the button relays stay until the drawer
    // is gone.
    emit doomed->signal_OnCurrentItemClicked(QList<int>{0, 1});
    QVERIFY(recorder.events.isEmpty());
    emit doomed->signal_OnEditBtnClicked(QList<int>{0, 1});
    QCOMPARE(recorder.events, QStringList{QStringLiteral("EditBtnClicked(0,1)")});

    // The remaining drawer still reports clicks.
    recorder.events.clear();
    emit host->drawer(0)->signal_OnCurrentItemClicked(QList<int>{1, 0});
    QCOMPARE(recorder.events, QStringList{QStringLiteral("CurrentItemClicked(1,0)")});
    QTRY_VERIFY(doomed.isNull());
}

void tst_TreeListFrame::deleteChildeItemKeepsChildIndices()
{
    auto host = makeHost();
    st_NodeInfoSignal r0 = makeNode(QStringLiteral("R0"), QStringLiteral("R0"));
    st_NodeInfoSignal r1 = makeNode(QStringLiteral("R1"), QStringLiteral("R1"));
    host->list->addRootItem(r0, makeChildren(QStringLiteral("R0"), 2, QStringLiteral("R0")));
    host->list->addRootItem(r1, makeChildren(QStringLiteral("R1"), 3, QStringLiteral("R1")));
    HostRecorder recorder(host->list);
    QPointer<SecondItem> doomed = builtRows(host->drawer(1)).value(0);

    host->list->deleteChildeItem(QList<int>{1, 0});

    QVERIFY(doomed.isNull()); // deleted at once
    QCOMPARE(snapshot(host->frame),
             (QStringList{QStringLiteral("R0:R0-0,R0-1"), QStringLiteral("R1:R1-1,R1-2")}));
    QStringList indexTexts;
    for (SecondItem *item : builtRows(host->drawer(1)))
        indexTexts << item->getIndexText();
    QCOMPARE(indexTexts, (QStringList{QStringLiteral("1-1"), QStringLiteral("1-2")}));
    QVERIFY(recorder.events.isEmpty());

    // A child index out of range in an existing drawer does nothing.
    host->list->deleteChildeItem(QList<int>{1, 2});
    host->list->deleteChildeItem(QList<int>{0, -1});
    QCOMPARE(snapshot(host->frame),
             (QStringList{QStringLiteral("R0:R0-0,R0-1"), QStringLiteral("R1:R1-1,R1-2")}));
}

void tst_TreeListFrame::clearTreeReleasesEveryDrawer()
{
    auto host = makeHost();
    for (const QString &name : {QStringLiteral("R0"), QStringLiteral("R1"), QStringLiteral("R2")}) {
        st_NodeInfoSignal node = makeNode(name, name);
        host->list->addRootItem(node, makeChildren(name, 1, name));
    }
    QList<QPointer<DrawerControl>> guards;
    for (DrawerControl *d : host->drawers())
        guards << d;
    HostRecorder recorder(host->list);
    MessageCapture capture;

    host->list->clearTree();

    QVERIFY(host->drawers().isEmpty());
    QCOMPARE(capture.lines().count(QStringLiteral("[Tarn]::DrawerControl::releaseSelf")), 3);
    for (const QPointer<DrawerControl> &d : guards)
        QTRY_VERIFY(d.isNull());
    QCOMPARE(listDrawers(host->parent.get()).size(), 0);
    QCOMPARE(layoutTokens(host->frame), QStringList{QStringLiteral("S")});
    QVERIFY(recorder.events.isEmpty());

    // The list is usable again and starts over at index 0.
    st_NodeInfoSignal node = makeNode(QStringLiteral("New"), QStringLiteral("New"));
    host->list->addRootItem(node);
    QCOMPARE(host->drawers().size(), 1);
    QCOMPARE(host->drawer(0)->rootIndex(), 0);
    QCOMPARE(layoutTokens(host->frame), (QStringList{QStringLiteral("New"), QStringLiteral("S")}));
}

void tst_TreeListFrame::releasedDrawersStillAliveKeepTheirPlace_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<QString>("release");
    QTest::addColumn<int>("adds");
    for (int before : {1, 2, 3, 5, 8}) {
        for (int adds : {1, 2, 4, 7})
            QTest::addRow("%d roots, cleared, %d added", before, adds) << before << QStringLiteral("clear") << adds;
        QTest::addRow("%d roots, the first deleted, 3 added", before) << before << QStringLiteral("first") << 3;
        QTest::addRow("%d roots, the last deleted, 3 added", before) << before << QStringLiteral("last") << 3;
    }
}

// Released drawers stay in the layout until the event loop deletes them. A
// host that clears or deletes and adds again in one go meets them: every
// addition must leave the same items as the full rebuild would.
void tst_TreeListFrame::releasedDrawersStillAliveKeepTheirPlace()
{
    QFETCH(int, before);
    QFETCH(QString, release);
    QFETCH(int, adds);
    auto shipped = makeHost();
    auto rebuilt = makeHost();
    const auto onBoth = [&](const std::function<void(SignalTreeList *)> &call) {
        call(shipped->list);
        TreeListFrame::setRebuildEveryTime(true);
        call(rebuilt->list);
        TreeListFrame::setRebuildEveryTime(false);
    };
    for (int i = 0; i < before; ++i) {
        const QString name = QStringLiteral("Old%1").arg(i);
        onBoth([&](SignalTreeList *list) {
            st_NodeInfoSignal node = makeNode(name, name);
            list->addRootItem(node);
        });
    }
    onBoth([&](SignalTreeList *list) {
        if (release == QLatin1String("clear"))
            list->clearTree();
        else
            list->deleteRootItem(release == QLatin1String("first") ? 0 : before - 1);
    });
    // The released drawer that the first rebuild keeps (the first half of
    // the items): after a clear the first one, after a deletion the first
    // one when it was the one deleted.
    const QString keptReleased = release == QLatin1String("last") && before > 1 ? QString() : QStringLiteral("Old0");
    bool metReleased = false;
    for (int i = 0; i < adds; ++i) {
        const QString name = QStringLiteral("New%1").arg(i);
        onBoth([&](SignalTreeList *list) {
            st_NodeInfoSignal node = makeNode(name, name);
            list->addRootItem(node);
        });
        const QStringList tokens = layoutTokens(shipped->frame);
        QCOMPARE(tokens, layoutTokens(rebuilt->frame));
        metReleased = metReleased || (!keptReleased.isEmpty() && tokens.contains(keptReleased));
    }
    if (!keptReleased.isEmpty())
        QVERIFY(metReleased);
    QTRY_COMPARE(layoutTokens(shipped->frame), layoutTokens(rebuilt->frame));
}

QTEST_MAIN(tst_TreeListFrame)
#include "tst_treelistframe.moc"
