// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Tests of the scrolling tree container and of the grouping that follows a
// completed drag. Wherever a behaviour can be seen from the public widget,
// it is driven through SignalTreeList and observed on the widgets it shows
// and on the signals a host receives; the container is reached through
// getSignalTreeListFrame() only to look at its layout and stored state.

#include "BuiltRows.h"
#include "DrawerControl.h"
#include "EventSender.h"
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

using TreeText::childNames;
using TreeText::pathText;
using TreeText::rootName;
using TreeText::snapshot;

// ---- records --------------------------------------------------------------

// Every field of every record is set, each from the name or the source, so
// that a record that reaches the host can be told from any other.
const NodeFactory kNodes([](st_NodeInfoSignal &node) {
    const QString name = node.strNodeName.value(0);
    const QString source = node.strSourceName;
    node.nNodeData1 = Q_INT64_C(0x100000000) + qHash(name);
    node.nNodeData2 = -Q_INT64_C(0x200000000) - qHash(source);
    node.iSignalGroupNo = name.size();
    node.eInputSourceType = 3;
    node.iInputSourceNo = source.size() + 7;
    node.showOpBtn = QList<bool>{true, false, true};
});

st_NodeInfoSignal makeNode(const QString &name, const QString &source, int type = 0)
{
    return kNodes.node({name}, source, type);
}

// Child records "<prefix>-0", "<prefix>-1", ... all of input source @p source.
QList<st_NodeInfoSignal> makeChildren(const QString &prefix, int count, const QString &source)
{
    return kNodes.children(prefix, count, source);
}

// Every field of a record as one text, so that a mismatch names the field.
QString describe(const st_NodeInfoSignal &n)
{
    QStringList buttons;
    for (bool b : n.showOpBtn)
        buttons << (b ? QStringLiteral("1") : QStringLiteral("0"));
    return QStringLiteral("name=[%1] source=\"%2\" data1=%3 online=%4 buttons=[%5] type=%6 "
                          "data2=%7 group=%8 inputType=%9")
               .arg(n.strNodeName.join(QLatin1Char('|')), n.strSourceName)
               .arg(n.nNodeData1)
               .arg(n.isOnline ? 1 : 0)
               .arg(buttons.join(QLatin1Char(',')))
               .arg(n.iType)
               .arg(n.nNodeData2)
               .arg(n.iSignalGroupNo)
               .arg(n.eInputSourceType)
           + QStringLiteral(" inputNo=%1").arg(n.iInputSourceNo);
}

bool isDefaultNode(const st_NodeInfoSignal &n)
{
    return n.strNodeName.isEmpty() && n.strSourceName.isEmpty() && n.nNodeData1 == 0 && !n.isOnline
        && n.showOpBtn.isEmpty() && n.iType == 0 && n.nNodeData2 == 0 && n.iSignalGroupNo == 0
        && n.eInputSourceType == 0 && n.iInputSourceNo == 0;
}

// ---- host -----------------------------------------------------------------

// A host window with the list laid out in it, as a host application builds it.
struct Host
{
    std::unique_ptr<QWidget> parent;
    SignalTreeList *list = nullptr; // owned by parent
    TreeListFrame *frame = nullptr; // owned by parent

    QList<DrawerControl *> drawers() const { return frame->drawers(); }
    DrawerControl *drawer(int i) const { return frame->drawers().value(i); }
};

std::unique_ptr<Host> makeHost()
{
    auto host = std::make_unique<Host>();
    host->parent = std::make_unique<QWidget>();
    host->parent->resize(420, 900);
    host->list = new SignalTreeList(host->parent.get());
    host->list->initControls();
    host->frame = qobject_cast<TreeListFrame *>(host->list->getSignalTreeListFrame());
    return host;
}

// ---- looking at drawers ---------------------------------------------------

QList<int> rootIndexes(TreeListFrame *frame)
{
    QList<int> out;
    for (DrawerControl *d : frame->drawers())
        out << d->rootIndex();
    return out;
}

QStringList rootIndexTexts(TreeListFrame *frame)
{
    QStringList out;
    for (DrawerControl *d : frame->drawers())
        out << d->rootItem()->getIndexText();
    return out;
}

QCheckBox *expandBox(DrawerControl *d)
{
    return d->rootItem()->findChild<QCheckBox *>();
}

bool upperHighlighted(DrawerControl *d)
{
    QLabel *upper = d->rootItem()->findChild<QLabel *>(QStringLiteral("m_qlUpper"));
    return upper && upper->property("isUpOnline").toBool();
}

QScrollArea *scrollAreaOf(TreeListFrame *frame)
{
    return frame->findChild<QScrollArea *>();
}

QBoxLayout *containerLayout(TreeListFrame *frame)
{
    QScrollArea *area = scrollAreaOf(frame);
    return area && area->widget() ? qobject_cast<QBoxLayout *>(area->widget()->layout()) : nullptr;
}

// Marker spacers that a test puts into the container layout are 1000 + n
// pixels wide; the stretch the container adds is an expanding spacer.
QSpacerItem *makeMarker(int n)
{
    return new QSpacerItem(1000 + n, 1, QSizePolicy::Fixed, QSizePolicy::Fixed);
}

// The container layout as tokens: a drawer by its root name, "S" for a
// stretch, "M<n>" for a marker.
QStringList layoutTokens(TreeListFrame *frame)
{
    QStringList tokens;
    QLayout *layout = containerLayout(frame);
    if (!layout)
        return QStringList{QStringLiteral("<no layout>")};
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (QWidget *w = item->widget()) {
            DrawerControl *d = qobject_cast<DrawerControl *>(w);
            tokens << (d ? rootName(d) : QStringLiteral("<widget>"));
        } else if (QSpacerItem *spacer = item->spacerItem()) {
            const int width = spacer->sizeHint().width();
            if (width >= 1000)
                tokens << QStringLiteral("M%1").arg(width - 1000);
            else if (spacer->expandingDirections() & Qt::Vertical)
                tokens << QStringLiteral("S");
            else
                tokens << QStringLiteral("<spacer>");
        } else {
            tokens << QStringLiteral("<item>");
        }
    }
    return tokens;
}

// Lets a queued call that is already posted run, and nothing more.
void runPostedCalls()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

// ---- the grouping fixture -----------------------------------------------------

// Root 0 "Source A" (plain source, iType 0) with A-0..A-2 from source "A";
// root 1 "Group B" (group, iType 1, source "B") with B-0, B-1;
// root 2 "Source C" (iType 0) with C-0, C-1 from source "C";
// root 3 "Other D" (iType 2, source "D") with D-0.
void addGroupingFixture(SignalTreeList *list)
{
    st_NodeInfoSignal a = makeNode(QStringLiteral("Source A"), QStringLiteral("A"), 0);
    st_NodeInfoSignal b = makeNode(QStringLiteral("Group B"), QStringLiteral("B"), 1);
    st_NodeInfoSignal c = makeNode(QStringLiteral("Source C"), QStringLiteral("C"), 0);
    st_NodeInfoSignal d = makeNode(QStringLiteral("Other D"), QStringLiteral("D"), 2);
    list->addRootItem(a, makeChildren(QStringLiteral("A"), 3, QStringLiteral("A")));
    list->addRootItem(b, makeChildren(QStringLiteral("B"), 2, QStringLiteral("B")));
    list->addRootItem(c, makeChildren(QStringLiteral("C"), 2, QStringLiteral("C")));
    list->addRootItem(d, makeChildren(QStringLiteral("D"), 1, QStringLiteral("D")));
}

// Plays the receiving drawer's drop and then the completion notice.
void dropAndComplete(Host *host, const QList<int> &src, const QList<int> &dst)
{
    DrawerControl *receiver = host->drawer(0);
    emit receiver->signal_OnItemsIsDraged(src, dst);
    emit receiver->signal_OnCompleteDraged();
}

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

    // drag completion
    void dropAloneOnlyReplacesStoredPaths();
    void completionIsQueued();
    void childOntoGroupRootAppendsCopy();
    void ontoPlainRootDoesNothing();
    void sameSourceNameDoesNothing_data();
    void sameSourceNameDoesNothing();
    void childOntoChildCreatesGroup();
    void hostNamesTheNewGroup();
    void queuedHostAnswerComesTooLate();
    void generatedNameIsFirstFree_data();
    void generatedNameIsFirstFree();
    void completionCases_data();
    void completionCases();
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

void tst_TreeListFrame::modifyItemDataHonoursRootZeroOnly_data()
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

void tst_TreeListFrame::modifyItemDataHonoursRootZeroOnly()
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

void tst_TreeListFrame::modifiedChildTakesTheWholeRecord()
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

void tst_TreeListFrame::getItemSignalNodeOnEmptyFrame_data()
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

void tst_TreeListFrame::getItemSignalNodeOnEmptyFrame()
{
    QFETCH(QList<int>, path);
    auto host = makeHost();
    const auto result = host->list->getItemSignalNode(path);
    QCOMPARE(result.first, false);
    QVERIFY2(isDefaultNode(result.second), qPrintable(describe(result.second)));
    QVERIFY(!result.second.strSourceName.isNull());
}

void tst_TreeListFrame::getItemSignalNode_data()
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

void tst_TreeListFrame::getItemSignalNode()
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

void tst_TreeListFrame::setCurSelItemRoot_data()
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

void tst_TreeListFrame::setCurSelItemRoot()
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

void tst_TreeListFrame::setCurSelItemChild_data()
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

void tst_TreeListFrame::setCurSelItemChild()
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

void tst_TreeListFrame::setIsShowChildItem_data()
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

void tst_TreeListFrame::setIsShowChildItem()
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

void tst_TreeListFrame::setIsDragReachesEveryDrawer()
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

void tst_TreeListFrame::setSignalRootNameKeepsOnlyTheLast()
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

void tst_TreeListFrame::drawerSignalsReachTheHost_data()
{
    QTest::addColumn<QString>("which");
    QTest::addColumn<QString>("expected");
    QTest::newRow("clicked") << QStringLiteral("clicked") << QStringLiteral("CurrentItemClicked(2,7)");
    QTest::newRow("capture") << QStringLiteral("capture") << QStringLiteral("CaptureBtnClicked(2,7)");
    QTest::newRow("edit") << QStringLiteral("edit") << QStringLiteral("EditBtnClicked(2,7)");
    QTest::newRow("delete") << QStringLiteral("delete") << QStringLiteral("DeleteBtnClicked(2,7)");
    QTest::newRow("double click stays inside") << QStringLiteral("double") << QString();
}

void tst_TreeListFrame::drawerSignalsReachTheHost()
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

// ---- drag completion ------------------------------------------------------------------

void tst_TreeListFrame::dropAloneOnlyReplacesStoredPaths()
{
    auto host = makeHost();
    addGroupingFixture(host->list);
    const QStringList before = snapshot(host->frame);
    const QStringList layoutBefore = layoutTokens(host->frame);
    HostRecorder recorder(host->list);

    emit host->drawer(2)->signal_OnItemsIsDraged(QList<int>{0, 1}, QList<int>{2, 0});
    QCOMPARE(host->frame->dragSource(), (QList<int>{0, 1}));
    QCOMPARE(host->frame->dragDestination(), (QList<int>{2, 0}));

    // A later drop replaces both; nothing else happens, now or later.
    emit host->drawer(1)->signal_OnItemsIsDraged(QList<int>{0, 2}, QList<int>{1});
    QCOMPARE(host->frame->dragSource(), (QList<int>{0, 2}));
    QCOMPARE(host->frame->dragDestination(), QList<int>{1});
    QTest::qWait(20);
    QCOMPARE(snapshot(host->frame), before);
    QCOMPARE(layoutTokens(host->frame), layoutBefore);
    QCOMPARE(listDrawers(host->parent.get()).size(), 4);
    QVERIFY(recorder.events.isEmpty());
    QCOMPARE(host->frame->dragSource(), (QList<int>{0, 2}));
}

void tst_TreeListFrame::completionIsQueued()
{
    auto host = makeHost();
    addGroupingFixture(host->list);
    const QStringList before = snapshot(host->frame);
    HostRecorder recorder(host->list);

    DrawerControl *receiver = host->drawer(2);
    emit receiver->signal_OnItemsIsDraged(QList<int>{0, 1}, QList<int>{2, 0});
    emit receiver->signal_OnCompleteDraged();

    // Right after the emission nothing has happened yet.
    QCOMPARE(snapshot(host->frame), before);
    QVERIFY(recorder.events.isEmpty());
    QCOMPARE(host->frame->dragSource(), (QList<int>{0, 1}));

    QTRY_COMPARE(host->drawers().size(), 5);
    QCOMPARE(recorder.events.size(), 4);
    QVERIFY(host->frame->dragSource().isEmpty());
    QVERIFY(host->frame->dragDestination().isEmpty());
}

void tst_TreeListFrame::childOntoGroupRootAppendsCopy()
{
    auto host = makeHost();
    addGroupingFixture(host->list);
    const st_NodeInfoSignal dragged = builtRows(host->drawer(0)).at(1)->getNodeInfo();
    QCOMPARE(dragged.strNodeName, QStringList{QStringLiteral("A-1")});
    HostRecorder recorder(host->list);

    dropAndComplete(host.get(), QList<int>{0, 1}, QList<int>{1});

    QTRY_COMPARE(recorder.events, QStringList{QStringLiteral("AddSecondItems(0,1|1)")});
    QCOMPARE(snapshot(host->frame),
             (QStringList{QStringLiteral("Source A:A-0,A-1,A-2"), QStringLiteral("Group B:B-0,B-1,A-1"),
                          QStringLiteral("Source C:C-0,C-1"), QStringLiteral("Other D:D-0")}));
    QCOMPARE(describe(builtRows(host->drawer(1)).last()->getNodeInfo()), describe(dragged));
    QCOMPARE(host->drawers().size(), 4);
    QVERIFY(host->frame->dragSource().isEmpty());
    QVERIFY(host->frame->dragDestination().isEmpty());
    runPostedCalls();
    QCOMPARE(recorder.events.size(), 1);
}

void tst_TreeListFrame::ontoPlainRootDoesNothing()
{
    auto host = makeHost();
    addGroupingFixture(host->list);
    const QStringList before = snapshot(host->frame);
    HostRecorder recorder(host->list);

    dropAndComplete(host.get(), QList<int>{0, 1}, QList<int>{2});
    runPostedCalls();
    QTest::qWait(20);

    QCOMPARE(snapshot(host->frame), before);
    QVERIFY(recorder.events.isEmpty());
    // This early stop keeps the stored paths.
    QCOMPARE(host->frame->dragSource(), (QList<int>{0, 1}));
    QCOMPARE(host->frame->dragDestination(), QList<int>{2});
}

void tst_TreeListFrame::sameSourceNameDoesNothing_data()
{
    QTest::addColumn<QList<int>>("src");
    QTest::addColumn<QList<int>>("dst");

    QTest::newRow("child onto a child of the same source") << QList<int>{0, 1} << QList<int>{0, 2};
    QTest::newRow("child onto its own group root") << QList<int>{1, 0} << QList<int>{1};
    QTest::newRow("child onto its own plain root") << QList<int>{2, 1} << QList<int>{2};
    QTest::newRow("root onto its own child") << QList<int>{2} << QList<int>{2, 0};
    QTest::newRow("nothing found on either side") << QList<int>{7, 7} << QList<int>{8, 0};
    QTest::newRow("both paths empty") << QList<int>{} << QList<int>{};
}

void tst_TreeListFrame::sameSourceNameDoesNothing()
{
    QFETCH(QList<int>, src);
    QFETCH(QList<int>, dst);

    auto host = makeHost();
    addGroupingFixture(host->list);
    const QStringList before = snapshot(host->frame);
    HostRecorder recorder(host->list);

    dropAndComplete(host.get(), src, dst);
    runPostedCalls();
    QTest::qWait(20);

    QCOMPARE(snapshot(host->frame), before);
    QVERIFY(recorder.events.isEmpty());
    QCOMPARE(host->frame->dragSource(), src);
    QCOMPARE(host->frame->dragDestination(), dst);
}

void tst_TreeListFrame::childOntoChildCreatesGroup()
{
    auto host = makeHost();
    st_NodeInfoSignal a = makeNode(QStringLiteral("Source A"), QStringLiteral("A"));
    st_NodeInfoSignal b = makeNode(QStringLiteral("Source B"), QStringLiteral("B"));
    st_NodeInfoSignal c = makeNode(QStringLiteral("Source C"), QStringLiteral("C"));
    host->list->addRootItem(a, makeChildren(QStringLiteral("A"), 2, QStringLiteral("A")));
    host->list->addRootItem(b, makeChildren(QStringLiteral("B"), 1, QStringLiteral("B")));
    host->list->addRootItem(c, makeChildren(QStringLiteral("C"), 2, QStringLiteral("C")));
    const st_NodeInfoSignal src = builtRows(host->drawer(0)).at(1)->getNodeInfo();
    const st_NodeInfoSignal dst = builtRows(host->drawer(2)).at(0)->getNodeInfo();
    HostRecorder recorder(host->list);
    QSignalSpy askSpy(host->list, &SignalTreeList::signal_OnGetNewRootName);

    dropAndComplete(host.get(), QList<int>{0, 1}, QList<int>{2, 0});

    QTRY_COMPARE(host->drawers().size(), 4);
    QCOMPARE(recorder.events,
             (QStringList{QStringLiteral("GetNewRootName()"), QStringLiteral("AddRootItem(Stitching1)"),
                          QStringLiteral("AddSecondItems(0,1|3)"), QStringLiteral("AddSecondItems(2,0|3)")}));
    QCOMPARE(askSpy.count(), 1);

    DrawerControl *group = host->drawer(3);
    QCOMPARE(group->getRootNodeInfo().strNodeName, QStringList{QStringLiteral("Stitching1")});
    QCOMPARE(group->getRootNodeInfo().iType, 0);
    QVERIFY(group->getRootNodeInfo().strSourceName.isEmpty());
    QCOMPARE(group->rootIndex(), 3);
    QCOMPARE(builtRows(group).size(), 2);
    QCOMPARE(describe(builtRows(group).at(0)->getNodeInfo()), describe(src));
    QCOMPARE(describe(builtRows(group).at(1)->getNodeInfo()), describe(dst));
    // Nothing left its old place.
    QCOMPARE(snapshot(host->frame),
             (QStringList{QStringLiteral("Source A:A-0,A-1"), QStringLiteral("Source B:B-0"),
                          QStringLiteral("Source C:C-0,C-1"), QStringLiteral("Stitching1:A-1,C-0")}));
    QCOMPARE(layoutTokens(host->frame),
             (QStringList{QStringLiteral("Source A"), QStringLiteral("Source B"), QStringLiteral("Source C"),
                          QStringLiteral("Stitching1"), QStringLiteral("S")}));
    QVERIFY(host->frame->dragSource().isEmpty());
    QVERIFY(host->frame->dragDestination().isEmpty());

    // A second group gets the next free name.
    recorder.events.clear();
    dropAndComplete(host.get(), QList<int>{1, 0}, QList<int>{0, 0});
    QTRY_COMPARE(host->drawers().size(), 5);
    QCOMPARE(recorder.events,
             (QStringList{QStringLiteral("GetNewRootName()"), QStringLiteral("AddRootItem(Stitching2)"),
                          QStringLiteral("AddSecondItems(1,0|4)"), QStringLiteral("AddSecondItems(0,0|4)")}));
}

void tst_TreeListFrame::hostNamesTheNewGroup()
{
    auto host = makeHost();
    addGroupingFixture(host->list);
    HostRecorder recorder(host->list);
    int asked = 0;
    SignalTreeList *list = host->list;
    QMetaObject::Connection answer = connect(
        list, &SignalTreeList::signal_OnGetNewRootName, list,
        [list, &asked] {
            ++asked;
            list->setSignalRootName(QStringLiteral("Group A"));
        },
        Qt::DirectConnection);

    dropAndComplete(host.get(), QList<int>{0, 1}, QList<int>{2, 0});
    QTRY_COMPARE(host->drawers().size(), 5);
    QCOMPARE(asked, 1);
    QCOMPARE(host->drawer(4)->getRootNodeInfo().strNodeName, QStringList{QStringLiteral("Group A")});
    QCOMPARE(recorder.events,
             (QStringList{QStringLiteral("GetNewRootName()"), QStringLiteral("AddRootItem(Group A)"),
                          QStringLiteral("AddSecondItems(0,1|4)"), QStringLiteral("AddSecondItems(2,0|4)")}));
    // The answer served this group only.
    QVERIFY(host->frame->pendingRootName().isEmpty());

    // Without an answer the next group asks again and gets a generated name.
    disconnect(answer);
    recorder.events.clear();
    dropAndComplete(host.get(), QList<int>{2, 1}, QList<int>{0, 0});
    QTRY_COMPARE(host->drawers().size(), 6);
    QCOMPARE(recorder.events.value(0), QStringLiteral("GetNewRootName()"));
    QCOMPARE(recorder.events.value(1), QStringLiteral("AddRootItem(Stitching1)"));
    QCOMPARE(host->drawer(5)->getRootNodeInfo().strNodeName, QStringList{QStringLiteral("Stitching1")});

    // A host that answers again names the third group.
    answer = connect(
        list, &SignalTreeList::signal_OnGetNewRootName, list,
        [list, &asked] {
            ++asked;
            list->setSignalRootName(QStringLiteral("Group C"));
        },
        Qt::DirectConnection);
    recorder.events.clear();
    dropAndComplete(host.get(), QList<int>{3, 0}, QList<int>{0, 2});
    QTRY_COMPARE(host->drawers().size(), 7);
    QCOMPARE(asked, 2);
    QCOMPARE(rootName(host->drawer(6)), QStringLiteral("Group C"));
    disconnect(answer);
}

void tst_TreeListFrame::queuedHostAnswerComesTooLate()
{
    auto host = makeHost();
    addGroupingFixture(host->list);
    SignalTreeList *list = host->list;
    connect(
        list, &SignalTreeList::signal_OnGetNewRootName, list,
        [list] { list->setSignalRootName(QStringLiteral("Late")); }, Qt::QueuedConnection);

    dropAndComplete(host.get(), QList<int>{0, 1}, QList<int>{2, 0});
    QTRY_COMPARE(host->drawers().size(), 5);
    QCOMPARE(rootName(host->drawer(4)), QStringLiteral("Stitching1"));
    // The late answer arrives afterwards and waits for the next group.
    QTRY_COMPARE(host->frame->pendingRootName(), QStringList{QStringLiteral("Late")});

    dropAndComplete(host.get(), QList<int>{2, 1}, QList<int>{0, 0});
    QTRY_COMPARE(host->drawers().size(), 6);
    QCOMPARE(rootName(host->drawer(5)), QStringLiteral("Late"));
}

void tst_TreeListFrame::generatedNameIsFirstFree_data()
{
    QTest::addColumn<QList<QStringList>>("rootNames");
    QTest::addColumn<QString>("expected");

    using L = QList<QStringList>;
    QTest::newRow("no such names") << L{} << QStringLiteral("Stitching1");
    QTest::newRow("1 and 3") << L{{QStringLiteral("Stitching1")}, {QStringLiteral("Stitching3")}}
                             << QStringLiteral("Stitching2");
    QTest::newRow("3 and 1") << L{{QStringLiteral("Stitching3")}, {QStringLiteral("Stitching1")}}
                             << QStringLiteral("Stitching2");
    QTest::newRow("only 2") << L{{QStringLiteral("Stitching2")}} << QStringLiteral("Stitching1");
    QTest::newRow("1 and 2") << L{{QStringLiteral("Stitching2")}, {QStringLiteral("Stitching1")}}
                             << QStringLiteral("Stitching3");
    QTest::newRow("case sensitive") << L{{QStringLiteral("stitching1")}, {QStringLiteral("STITCHING1")}}
                                    << QStringLiteral("Stitching1");
    QTest::newRow("whole strings only")
        << L{{QStringLiteral("Stitching1 ")}, {QStringLiteral("Stitching10")}, {QStringLiteral("xStitching1")}}
        << QStringLiteral("Stitching1");
    QTest::newRow("second line counts") << L{{QStringLiteral("Group"), QStringLiteral("Stitching1")}}
                                        << QStringLiteral("Stitching2");
    L eleven;
    for (int i = 11; i >= 1; --i)
        eleven << QStringList{QStringLiteral("Stitching%1").arg(i)};
    QTest::newRow("1 to 11") << eleven << QStringLiteral("Stitching12");
}

void tst_TreeListFrame::generatedNameIsFirstFree()
{
    QFETCH(QList<QStringList>, rootNames);
    QFETCH(QString, expected);

    auto host = makeHost();
    st_NodeInfoSignal p = makeNode(QStringLiteral("P"), QStringLiteral("P"));
    st_NodeInfoSignal q = makeNode(QStringLiteral("Q"), QStringLiteral("Q"));
    host->list->addRootItem(p, makeChildren(QStringLiteral("P"), 1, QStringLiteral("P")));
    // A child row named like a group does not count: only root names do.
    QList<st_NodeInfoSignal> qChildren = makeChildren(QStringLiteral("Q"), 1, QStringLiteral("Q"));
    qChildren << makeNode(QStringLiteral("Stitching1"), QStringLiteral("Q"));
    host->list->addRootItem(q, qChildren);
    for (const QStringList &names : rootNames) {
        st_NodeInfoSignal root = makeNode(QString(), QStringLiteral("x"), 1);
        root.strNodeName = names;
        host->list->addRootItem(root);
    }
    const int count = host->drawers().size();
    HostRecorder recorder(host->list);

    dropAndComplete(host.get(), QList<int>{0, 0}, QList<int>{1, 0});

    QTRY_COMPARE(host->drawers().size(), count + 1);
    QCOMPARE(host->drawer(count)->getRootNodeInfo().strNodeName, QStringList{expected});
    QCOMPARE(recorder.events.value(1), QStringLiteral("AddRootItem(%1)").arg(expected));
}

void tst_TreeListFrame::completionCases_data()
{
    QTest::addColumn<QList<int>>("src");
    QTest::addColumn<QList<int>>("dst");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QStringList>("tree");
    QTest::addColumn<bool>("keepsPaths");

    // The fixture after its first root has been deleted, so the drawers
    // still carry the indices 1..4 until a completion renumbers them.
    const QStringList fixture{QStringLiteral("Source A:A-0,A-1,A-2"), QStringLiteral("Group B:B-0,B-1"),
                              QStringLiteral("Source C:C-0,C-1"), QStringLiteral("Other D:D-0")};
    auto with = [&fixture](int row, const QString &text) {
        QStringList t = fixture;
        if (row < t.size())
            t[row] = text;
        else
            t << text;
        return t;
    };

    QTest::newRow("child onto group root")
        << QList<int>{0, 1} << QList<int>{1} << QStringList{QStringLiteral("AddSecondItems(0,1|1)")}
        << with(1, QStringLiteral("Group B:B-0,B-1,A-1")) << false;
    QTest::newRow("root onto group root")
        << QList<int>{2} << QList<int>{1} << QStringList{QStringLiteral("AddSecondItems(2|1)")}
        << with(1, QStringLiteral("Group B:B-0,B-1,Source C")) << false;
    QTest::newRow("missing child onto group root adds an empty record")
        << QList<int>{0, 9} << QList<int>{1} << QStringList{QStringLiteral("AddSecondItems(0,9|1)")}
        << with(1, QStringLiteral("Group B:B-0,B-1,")) << false;
    QTest::newRow("child onto plain root") << QList<int>{0, 1} << QList<int>{2} << QStringList{} << fixture
                                           << true;
    QTest::newRow("child onto root of another type")
        << QList<int>{0, 1} << QList<int>{3} << QStringList{} << fixture << false;
    QTest::newRow("same source") << QList<int>{0, 0} << QList<int>{0, 2} << QStringList{} << fixture << true;
    QTest::newRow("nothing found") << QList<int>{9, 9} << QList<int>{9} << QStringList{} << fixture << true;
    QTest::newRow("destination of three elements")
        << QList<int>{0, 1} << QList<int>{2, 0, 0} << QStringList{} << fixture << false;
    QTest::newRow("child onto child")
        << QList<int>{0, 1} << QList<int>{2, 0}
        << QStringList{QStringLiteral("GetNewRootName()"), QStringLiteral("AddRootItem(Stitching1)"),
                       QStringLiteral("AddSecondItems(0,1|4)"), QStringLiteral("AddSecondItems(2,0|4)")}
        << with(4, QStringLiteral("Stitching1:A-1,C-0")) << false;
    QTest::newRow("root onto child")
        << QList<int>{3} << QList<int>{0, 2}
        << QStringList{QStringLiteral("GetNewRootName()"), QStringLiteral("AddRootItem(Stitching1)"),
                       QStringLiteral("AddSecondItems(3|4)"), QStringLiteral("AddSecondItems(0,2|4)")}
        << with(4, QStringLiteral("Stitching1:Other D,A-2")) << false;
}

void tst_TreeListFrame::completionCases()
{
    QFETCH(QList<int>, src);
    QFETCH(QList<int>, dst);
    QFETCH(QStringList, events);
    QFETCH(QStringList, tree);
    QFETCH(bool, keepsPaths);

    auto host = makeHost();
    st_NodeInfoSignal doomedRoot = makeNode(QStringLiteral("Doomed"), QStringLiteral("Z"));
    host->list->addRootItem(doomedRoot);
    addGroupingFixture(host->list);
    QPointer<DrawerControl> doomed = host->drawer(0);
    host->list->deleteRootItem(0);
    QTRY_VERIFY(doomed.isNull());
    QCOMPARE(rootIndexes(host->frame), (QList<int>{1, 2, 3, 4}));
    HostRecorder recorder(host->list);

    dropAndComplete(host.get(), src, dst);
    QVERIFY(recorder.events.isEmpty());
    QCOMPARE(rootIndexes(host->frame), (QList<int>{1, 2, 3, 4})); // not yet

    // Every completion ends with each drawer's index equal to its position.
    QList<int> positions;
    for (int i = 0; i < tree.size(); ++i)
        positions << i;
    QTRY_COMPARE(rootIndexes(host->frame), positions);
    QStringList texts;
    for (int i : positions)
        texts << QString::number(i);
    QCOMPARE(rootIndexTexts(host->frame), texts);
    for (DrawerControl *d : host->drawers()) {
        for (int c = 0; c < builtRows(d).size(); ++c)
            QVERIFY(builtRows(d).at(c)->getIndexText().endsWith(QStringLiteral("-%1").arg(c)));
    }

    QCOMPARE(recorder.events, events);
    QCOMPARE(snapshot(host->frame), tree);
    if (keepsPaths) {
        QCOMPARE(host->frame->dragSource(), src);
        QCOMPARE(host->frame->dragDestination(), dst);
    } else {
        QVERIFY(host->frame->dragSource().isEmpty());
        QVERIFY(host->frame->dragDestination().isEmpty());
    }

    // A second completion without a new drop changes nothing: the cleared
    // paths find nothing, the kept ones stop early again.
    recorder.events.clear();
    const QStringList treeAfter = snapshot(host->frame);
    emit host->drawer(0)->signal_OnCompleteDraged();
    runPostedCalls();
    QTest::qWait(10);
    QVERIFY(recorder.events.isEmpty());
    QCOMPARE(snapshot(host->frame), treeAfter);
}

QTEST_MAIN(tst_TreeListFrame)
#include "tst_treelistframe.moc"
