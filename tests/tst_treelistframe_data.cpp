// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Tests of the scrolling tree container: reading and changing records,
// selection, expansion and flags. Wherever a behaviour can be seen from the
// public widget, it is driven through SignalTreeList and observed on the
// widgets it shows and on the signals a host receives; the container is reached
// through getSignalTreeListFrame() only to look at its layout and stored state.

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

class tst_TreeListFrameData : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // reading and changing data
    void modifyItemDataHonoursRootZeroOnly_data();
    void modifyItemDataHonoursRootZeroOnly();
    void modifiedChildTakesTheWholeRecord();
    void getItemSignalNodeOnEmptyFrame_data();
    void getItemSignalNodeOnEmptyFrame();
    void getItemSignalNode_data();
    void getItemSignalNode();

    // selection, expansion, flags
    void setCurSelItemRoot_data();
    void setCurSelItemRoot();
    void setCurSelItemChild_data();
    void setCurSelItemChild();
    void setIsShowChildItem_data();
    void setIsShowChildItem();
    void setIsDragReachesEveryDrawer();
    void setSignalRootNameKeepsOnlyTheLast();
    void drawerSignalsReachTheHost_data();
    void drawerSignalsReachTheHost();
};

void tst_TreeListFrameData::initTestCase()
{
    EventSender::parkPointer();
    qRegisterMetaType<QList<int>>();
}

// ---- reading and changing data ----------------------------------------------------

namespace {

// Root 0 "A" with A-0..A-2, root 1 "B" with B-0, B-1, root 2 "C" with C-0..C-3.
void addDataFixture(SignalTreeList *list)
{
    st_NodeInfoSignal a = makeNode(QStringLiteral("A"), QStringLiteral("srcA"));
    st_NodeInfoSignal b = makeNode(QStringLiteral("B"), QStringLiteral("srcB"), 1);
    st_NodeInfoSignal c = makeNode(QStringLiteral("C"), QStringLiteral("srcC"));
    list->addRootItem(a, makeChildren(QStringLiteral("A"), 3, QStringLiteral("srcA")));
    list->addRootItem(b, makeChildren(QStringLiteral("B"), 2, QStringLiteral("srcB")));
    list->addRootItem(c, makeChildren(QStringLiteral("C"), 4, QStringLiteral("srcC")));
}

const QStringList kDataFixture{QStringLiteral("A:A-0,A-1,A-2"), QStringLiteral("B:B-0,B-1"),
                               QStringLiteral("C:C-0,C-1,C-2,C-3")};

} // namespace

void tst_TreeListFrameData::modifyItemDataHonoursRootZeroOnly_data()
{
    QTest::addColumn<QList<int>>("path");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("[1] nothing") << QList<int>{1} << kDataFixture;
    QTest::newRow("[1, 0] nothing") << QList<int>{1, 0} << kDataFixture;
    QTest::newRow("[2, 2] nothing") << QList<int>{2, 2} << kDataFixture;
    QTest::newRow("[] nothing") << QList<int>{} << kDataFixture;
    QTest::newRow("[0, 0, 0] nothing") << QList<int>{0, 0, 0} << kDataFixture;
    QTest::newRow("[-1] nothing") << QList<int>{-1} << kDataFixture;
    QTest::newRow("[0, -1] nothing") << QList<int>{0, -1} << kDataFixture;
    QTest::newRow("[0, INT_MAX] nothing") << QList<int>{0, INT_MAX} << kDataFixture;
    QTest::newRow("[0] root 0 only")
        << QList<int>{0}
        << QStringList{QStringLiteral("New:A-0,A-1,A-2"), QStringLiteral("B:B-0,B-1"),
                       QStringLiteral("C:C-0,C-1,C-2,C-3")};
    QTest::newRow("[0, 2] child 2 of every drawer that has one")
        << QList<int>{0, 2}
        << QStringList{QStringLiteral("A:A-0,A-1,New"), QStringLiteral("B:B-0,B-1"),
                       QStringLiteral("C:C-0,C-1,New,C-3")};
    QTest::newRow("[0, 0] child 0 everywhere")
        << QList<int>{0, 0}
        << QStringList{QStringLiteral("A:New,A-1,A-2"), QStringLiteral("B:New,B-1"),
                       QStringLiteral("C:New,C-1,C-2,C-3")};
    QTest::newRow("[0, 3] only where a fourth child exists")
        << QList<int>{0, 3}
        << QStringList{QStringLiteral("A:A-0,A-1,A-2"), QStringLiteral("B:B-0,B-1"),
                       QStringLiteral("C:C-0,C-1,C-2,New")};
}

void tst_TreeListFrameData::modifyItemDataHonoursRootZeroOnly()
{
    QFETCH(QList<int>, path);
    QFETCH(QStringList, expected);

    auto host = makeHost();
    addDataFixture(host->list);
    QCOMPARE(snapshot(host->frame), kDataFixture);
    HostRecorder recorder(host->list);

    st_NodeInfoSignal node = makeNode(QStringLiteral("New"), QStringLiteral("newSrc"), 6);
    host->list->modifyItemData(path, node);

    QCOMPARE(snapshot(host->frame), expected);
    QCOMPARE(host->drawers().size(), 3);
    QVERIFY(recorder.events.isEmpty());
}

void tst_TreeListFrameData::modifiedChildTakesTheWholeRecord()
{
    auto host = makeHost();
    addDataFixture(host->list);
    st_NodeInfoSignal node = makeNode(QStringLiteral("Whole"), QStringLiteral("wholeSrc"), 9);
    node.strNodeName << QStringLiteral("second line");
    node.nNodeData1 = Q_INT64_C(0x7fffffff00000001);

    host->list->modifyItemData(QList<int>{0, 1}, node);
    for (DrawerControl *d : host->drawers())
        QCOMPARE(describe(builtRows(d).at(1)->getNodeInfo()), describe(node));

    host->list->modifyItemData(QList<int>{0}, node);
    QCOMPARE(describe(host->drawer(0)->getRootNodeInfo()), describe(node));
    QCOMPARE(rootName(host->drawer(1)), QStringLiteral("B"));

    // Read back through the public lookup.
    const auto result = host->list->getItemSignalNode(QList<int>{0});
    QVERIFY(result.first);
    QCOMPARE(describe(result.second), describe(node));
}

void tst_TreeListFrameData::getItemSignalNodeOnEmptyFrame_data()
{
    QTest::addColumn<QList<int>>("path");
    QTest::newRow("[]") << QList<int>{};
    QTest::newRow("[0]") << QList<int>{0};
    QTest::newRow("[1]") << QList<int>{1};
    QTest::newRow("[-1]") << QList<int>{-1};
    QTest::newRow("[0, 0]") << QList<int>{0, 0};
    QTest::newRow("[0, 9]") << QList<int>{0, 9};
    QTest::newRow("[0, 0, 0]") << QList<int>{0, 0, 0};
}

void tst_TreeListFrameData::getItemSignalNodeOnEmptyFrame()
{
    QFETCH(QList<int>, path);
    auto host = makeHost();
    const auto result = host->list->getItemSignalNode(path);
    QCOMPARE(result.first, false);
    QVERIFY2(isDefaultNode(result.second), qPrintable(describe(result.second)));
    QVERIFY(!result.second.strSourceName.isNull());
}

void tst_TreeListFrameData::getItemSignalNode_data()
{
    QTest::addColumn<QList<int>>("path");
    QTest::addColumn<bool>("flag");
    QTest::addColumn<QString>("name"); // empty: a default record

    QTest::newRow("[0] root 0") << QList<int>{0} << true << QStringLiteral("A");
    QTest::newRow("[1] not root 0") << QList<int>{1} << false << QString();
    QTest::newRow("[2] not root 0") << QList<int>{2} << false << QString();
    QTest::newRow("[0, 9] nobody has a tenth child") << QList<int>{0, 9} << true << QString();
    QTest::newRow("[0, 1] everybody has it") << QList<int>{0, 1} << false << QStringLiteral("C-1");
    QTest::newRow("[0, 2] B lacks it, last found is C's") << QList<int>{0, 2} << true << QStringLiteral("C-2");
    QTest::newRow("[0, 3] only C has it") << QList<int>{0, 3} << true << QStringLiteral("C-3");
    QTest::newRow("[0, -1]") << QList<int>{0, -1} << true << QString();
    QTest::newRow("[0, INT_MIN]") << QList<int>{0, INT_MIN} << true << QString();
    QTest::newRow("[1, 0] not root 0") << QList<int>{1, 0} << false << QString();
    QTest::newRow("[]") << QList<int>{} << false << QString();
    QTest::newRow("[0, 0, 0]") << QList<int>{0, 0, 0} << false << QString();
}

void tst_TreeListFrameData::getItemSignalNode()
{
    QFETCH(QList<int>, path);
    QFETCH(bool, flag);
    QFETCH(QString, name);

    auto host = makeHost();
    addDataFixture(host->list);
    const auto result = host->list->getItemSignalNode(path);
    QCOMPARE(result.first, flag);
    if (name.isEmpty()) {
        QVERIFY2(isDefaultNode(result.second), qPrintable(describe(result.second)));
    } else {
        QCOMPARE(result.second.strNodeName, QStringList{name});
        QVERIFY(!result.second.strSourceName.isEmpty());
    }
    QCOMPARE(snapshot(host->frame), kDataFixture);
}

// ---- selection, expansion, flags ------------------------------------------------------

void tst_TreeListFrameData::setCurSelItemRoot_data()
{
    QTest::addColumn<QList<int>>("path");
    QTest::addColumn<QList<bool>>("expanded"); // per root, afterwards

    // Before: roots 0, 1, 3 and 4 expanded, root 2 collapsed.
    QTest::newRow("[2]") << QList<int>{2} << QList<bool>{false, false, true, true, true};
    QTest::newRow("[0]") << QList<int>{0} << QList<bool>{true, true, false, true, true};
    QTest::newRow("[4]") << QList<int>{4} << QList<bool>{false, false, false, false, true};
    QTest::newRow("[5] past the end") << QList<int>{5} << QList<bool>{false, false, false, false, false};
    QTest::newRow("[INT_MAX]") << QList<int>{INT_MAX} << QList<bool>{false, false, false, false, false};
    QTest::newRow("[-1]") << QList<int>{-1} << QList<bool>{true, true, false, true, true};
    QTest::newRow("[INT_MIN]") << QList<int>{INT_MIN} << QList<bool>{true, true, false, true, true};
    QTest::newRow("[]") << QList<int>{} << QList<bool>{true, true, false, true, true};
    QTest::newRow("[2, 0, 0]") << QList<int>{2, 0, 0} << QList<bool>{true, true, false, true, true};
}

void tst_TreeListFrameData::setCurSelItemRoot()
{
    QFETCH(QList<int>, path);
    QFETCH(QList<bool>, expanded);

    auto host = makeHost();
    for (int i = 0; i < 5; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        st_NodeInfoSignal node = makeNode(name, name);
        host->list->addRootItem(node, makeChildren(name, 1, name));
    }
    for (int i = 0; i < 5; ++i)
        host->list->setIsShowChildItem(i, i != 2);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(expandBox(host->drawer(i))->isChecked(), i != 2);
        QCOMPARE(host->drawer(i)->isShowChild(), i != 2);
    }
    HostRecorder recorder(host->list);

    host->list->setCurSelItem(path);

    const int selected = path.size() == 1 ? path.first() : -1;
    for (int i = 0; i < 5; ++i) {
        DrawerControl *d = host->drawer(i);
        const QByteArray where = QByteArray("root ") + QByteArray::number(i);
        QVERIFY2(expandBox(d)->isChecked() == expanded.at(i), where.constData());
        QVERIFY2(d->isShowChild() == expanded.at(i), where.constData());
        if (i == selected)
            QVERIFY2(upperHighlighted(d), where.constData());
        else if (i < selected)
            QVERIFY2(!upperHighlighted(d), where.constData());
        else
            QVERIFY2(upperHighlighted(d), where.constData()); // untouched press look
    }
    QVERIFY(recorder.events.isEmpty());
}

void tst_TreeListFrameData::setCurSelItemChild_data()
{
    QTest::addColumn<QList<int>>("path");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<int>("drawer");      // drawer whose selection changes, or -1
    QTest::addColumn<int>("pressedChild"); // in that drawer, or -1 for none

    QTest::newRow("[1, 1]") << QList<int>{1, 1} << QStringList{QStringLiteral("CurrentItemClicked(1,1)")} << 1 << 1;
    QTest::newRow("[0, 0]") << QList<int>{0, 0} << QStringList{QStringLiteral("CurrentItemClicked(0,0)")} << 0 << 0;
    QTest::newRow("[2, 5] child index is not checked")
        << QList<int>{2, 5} << QStringList{QStringLiteral("CurrentItemClicked(2,5)")} << 2 << -1;
    QTest::newRow("[3, 0] no such root") << QList<int>{3, 0} << QStringList{} << -1 << -1;
    QTest::newRow("[-1, 0] no such root") << QList<int>{-1, 0} << QStringList{} << -1 << -1;
    QTest::newRow("[INT_MAX, 0] no such root") << QList<int>{INT_MAX, 0} << QStringList{} << -1 << -1;
}

void tst_TreeListFrameData::setCurSelItemChild()
{
    QFETCH(QList<int>, path);
    QFETCH(QStringList, events);
    QFETCH(int, drawer);
    QFETCH(int, pressedChild);

    auto host = makeHost();
    for (int i = 0; i < 3; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        st_NodeInfoSignal node = makeNode(name, name);
        host->list->addRootItem(node, makeChildren(name, 3, name));
    }
    QList<QList<int>> before;
    for (DrawerControl *d : host->drawers())
        before << d->selIndex();
    HostRecorder recorder(host->list);

    host->list->setCurSelItem(path);

    QCOMPARE(recorder.events, events);
    for (int i = 0; i < 3; ++i) {
        DrawerControl *d = host->drawer(i);
        if (i == drawer) {
            QCOMPARE(d->selIndex(), path);
            QCOMPARE(d->curSecondIndex(), path.last());
            for (int c = 0; c < 3; ++c)
                QCOMPARE(builtRows(d).at(c)->property("isSecondItem").toString(),
                         c == pressedChild ? QStringLiteral("press") : QStringLiteral("normal"));
        } else {
            QCOMPARE(d->selIndex(), before.at(i));
        }
    }
}

void tst_TreeListFrameData::setIsShowChildItem_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("show");
    QTest::addColumn<QList<bool>>("expanded");

    QTest::newRow("open 1") << 1 << true << QList<bool>{false, true, false};
    QTest::newRow("open 2") << 2 << true << QList<bool>{false, false, true};
    QTest::newRow("close 0") << 0 << false << QList<bool>{false, false, false};
    QTest::newRow("open 3: no such root") << 3 << true << QList<bool>{false, false, false};
    QTest::newRow("open -1") << -1 << true << QList<bool>{false, false, false};
    QTest::newRow("open INT_MIN") << INT_MIN << true << QList<bool>{false, false, false};
    QTest::newRow("open INT_MAX") << INT_MAX << true << QList<bool>{false, false, false};
}

void tst_TreeListFrameData::setIsShowChildItem()
{
    QFETCH(int, row);
    QFETCH(bool, show);
    QFETCH(QList<bool>, expanded);

    auto host = makeHost();
    for (int i = 0; i < 3; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        st_NodeInfoSignal node = makeNode(name, name);
        host->list->addRootItem(node, makeChildren(name, 2, name));
    }
    host->parent->show();
    QVERIFY(QTest::qWaitForWindowExposed(host->parent.get()));
    HostRecorder recorder(host->list);

    host->list->setIsShowChildItem(row, show);

    for (int i = 0; i < 3; ++i) {
        DrawerControl *d = host->drawer(i);
        QCOMPARE(d->isShowChild(), expanded.at(i));
        QCOMPARE(expandBox(d)->isChecked(), expanded.at(i));
        QCOMPARE(d->childContainer()->isVisible(), expanded.at(i));
    }
    QVERIFY(recorder.events.isEmpty());
}

void tst_TreeListFrameData::setIsDragReachesEveryDrawer()
{
    auto host = makeHost();
    st_NodeInfoSignal a = makeNode(QStringLiteral("a"), QStringLiteral("a"));
    st_NodeInfoSignal b = makeNode(QStringLiteral("b"), QStringLiteral("b"));
    host->list->addRootItem(a);
    host->list->addRootItem(b);
    QVERIFY(!host->drawer(0)->acceptDrops());
    QVERIFY(!host->drawer(1)->acceptDrops());

    host->list->setIsDrag(true);
    QVERIFY(host->drawer(0)->acceptDrops());
    QVERIFY(host->drawer(1)->acceptDrops());

    // A drawer created afterwards gets the stored flag.
    st_NodeInfoSignal c = makeNode(QStringLiteral("c"), QStringLiteral("c"));
    host->list->addRootItem(c, makeChildren(QStringLiteral("c"), 1, QStringLiteral("c")));
    QVERIFY(host->drawer(2)->acceptDrops());

    host->list->setIsDrag(false);
    for (DrawerControl *d : host->drawers())
        QVERIFY(!d->acceptDrops());
    st_NodeInfoSignal e = makeNode(QStringLiteral("e"), QStringLiteral("e"));
    host->list->addRootItem(e);
    QVERIFY(!host->drawer(3)->acceptDrops());
}

void tst_TreeListFrameData::setSignalRootNameKeepsOnlyTheLast()
{
    auto host = makeHost();
    QVERIFY(host->frame->pendingRootName().isEmpty());
    host->list->setSignalRootName(QStringLiteral("A"));
    QCOMPARE(host->frame->pendingRootName(), QStringList{QStringLiteral("A")});
    host->list->setSignalRootName(QStringLiteral("B"));
    QCOMPARE(host->frame->pendingRootName(), QStringList{QStringLiteral("B")});
    host->list->setSignalRootName(QString());
    QCOMPARE(host->frame->pendingRootName(), QStringList{QString()});
    host->list->setSignalRootName(QStringLiteral("B"));

    // The one stored name is what the next group gets.
    addGroupingFixture(host->list);
    HostRecorder recorder(host->list);
    dropAndComplete(host.get(), QList<int>{0, 1}, QList<int>{2, 0});
    QTRY_COMPARE(host->drawers().size(), 5);
    QCOMPARE(rootName(host->drawer(4)), QStringLiteral("B"));
    QCOMPARE(host->drawer(4)->getRootNodeInfo().strNodeName, QStringList{QStringLiteral("B")});
    QVERIFY(recorder.events.contains(QStringLiteral("AddRootItem(B)")));
    QVERIFY(host->frame->pendingRootName().isEmpty());
}

void tst_TreeListFrameData::drawerSignalsReachTheHost_data()
{
    QTest::addColumn<QString>("which");
    QTest::addColumn<QString>("expected");
    QTest::newRow("clicked") << QStringLiteral("clicked") << QStringLiteral("CurrentItemClicked(2,7)");
    QTest::newRow("capture") << QStringLiteral("capture") << QStringLiteral("CaptureBtnClicked(2,7)");
    QTest::newRow("edit") << QStringLiteral("edit") << QStringLiteral("EditBtnClicked(2,7)");
    QTest::newRow("delete") << QStringLiteral("delete") << QStringLiteral("DeleteBtnClicked(2,7)");
    QTest::newRow("double click stays inside") << QStringLiteral("double") << QString();
}

void tst_TreeListFrameData::drawerSignalsReachTheHost()
{
    QFETCH(QString, which);
    QFETCH(QString, expected);

    auto host = makeHost();
    for (int i = 0; i < 3; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        st_NodeInfoSignal node = makeNode(name, name);
        host->list->addRootItem(node);
    }
    HostRecorder recorder(host->list);
    DrawerControl *d = host->drawer(2);
    const QList<int> path{2, 7};
    if (which == QLatin1String("clicked"))
        emit d->signal_OnCurrentItemClicked(path);
    else if (which == QLatin1String("capture"))
        emit d->signal_OnCaptureBtnClicked(path);
    else if (which == QLatin1String("edit"))
        emit d->signal_OnEditBtnClicked(path);
    else if (which == QLatin1String("delete"))
        emit d->signal_OnDeleteBtnClicked(path);
    else
        emit d->signal_OnItemIsDoubleClicked(true);

    // Synchronous, unchanged path, exactly one host signal.
    QCOMPARE(recorder.events, expected.isEmpty() ? QStringList() : QStringList{expected});
    runPostedCalls();
    QCOMPARE(recorder.events, expected.isEmpty() ? QStringList() : QStringList{expected});
}

QTEST_MAIN(tst_TreeListFrameData)
#include "tst_treelistframe_data.moc"
