// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Tests of the scrolling tree container: the grouping that follows a completed
// drag. Wherever a behaviour can be seen from the public widget, it is driven
// through SignalTreeList and observed on the widgets it shows and on the
// signals a host receives; the container is reached through
// getSignalTreeListFrame() only to look at its layout and stored state.

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

class tst_TreeListFrameDrag : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

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

void tst_TreeListFrameDrag::initTestCase()
{
    EventSender::parkPointer();
    qRegisterMetaType<QList<int>>();
}

// ---- drag completion ------------------------------------------------------------------

void tst_TreeListFrameDrag::dropAloneOnlyReplacesStoredPaths()
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

void tst_TreeListFrameDrag::completionIsQueued()
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

void tst_TreeListFrameDrag::childOntoGroupRootAppendsCopy()
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

void tst_TreeListFrameDrag::ontoPlainRootDoesNothing()
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

void tst_TreeListFrameDrag::sameSourceNameDoesNothing_data()
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

void tst_TreeListFrameDrag::sameSourceNameDoesNothing()
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

void tst_TreeListFrameDrag::childOntoChildCreatesGroup()
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

void tst_TreeListFrameDrag::hostNamesTheNewGroup()
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

void tst_TreeListFrameDrag::queuedHostAnswerComesTooLate()
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

void tst_TreeListFrameDrag::generatedNameIsFirstFree_data()
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

void tst_TreeListFrameDrag::generatedNameIsFirstFree()
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

void tst_TreeListFrameDrag::completionCases_data()
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

void tst_TreeListFrameDrag::completionCases()
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

QTEST_MAIN(tst_TreeListFrameDrag)
#include "tst_treelistframe_drag.moc"
