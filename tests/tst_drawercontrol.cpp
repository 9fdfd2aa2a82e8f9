// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Autotest of DrawerControl: one root row with its container of child rows,
// how it is built and how its rows come and go (selection, expansion and the
// drawer's lifetime are in tst_drawercontrol_select, drag and drop in
// tst_drawercontrol_drag).
//
// The drag and drop tests need a platform whose QDrag::exec really runs:
// the "minimal" platform's in-process drag does, "offscreen" returns at once.
// Under minimal a drag is driven like this: a timer armed before the
// gesture fires inside the drag's nested event loop; there it sends mouse
// moves and the release to the target's top-level QWindow with the global
// position set (the drag's application event filter eats them and turns
// them into drag-enter, drag-move and drop events).

#include "BuiltRows.h"
#include "DragDriver.h"
#include "DrawerControl.h"
#include "DrawerProbe.h"
#include "EventSender.h"
#include "MessageCapture.h"
#include "NodeFactory.h"
#include "RootItem.h"
#include "RowButtons.h"
#include "SecondItem.h"
#include "st_NodeInfoSignal.h"

#include <QApplication>
#include <QCheckBox>
#include <QDrag>
#include <QFont>
#include <QFrame>
#include <QGuiApplication>
#include <QImage>
#include <QLayout>
#include <QLayoutItem>
#include <QMetaMethod>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QPointer>
#include <QSignalSpy>
#include <QSpacerItem>
#include <QTextOption>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>
#include <QtTest>

#include <functional>
#include <limits>
#include <memory>

namespace {

using namespace DrawerProbe;

QStringList indexTextsOf(DrawerControl *drawer)
{
    QStringList texts;
    const auto rows = builtRows(drawer);
    for (SecondItem *row : rows)
        texts << row->getIndexText();
    return texts;
}

// One entry per item of the layout: nullptr for a spacing, else the widget.
QList<QObject *> layoutEntries(QLayout *layout, QList<int> *spacingHeights)
{
    QList<QObject *> entries;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (QSpacerItem *spacer = item->spacerItem()) {
            entries << nullptr;
            spacingHeights->append(spacer->sizeHint().height());
        } else {
            entries << item->widget();
        }
    }
    return entries;
}

// Records, application-wide, every change of a row's "isSecondItem" look.
class LookRecorder : public QObject
{
public:
    struct Change
    {
        QObject *row;
        QString look;
    };
    QVector<Change> changes;

    QStringList looksOf(QObject *row) const
    {
        QStringList result;
        for (const Change &c : changes) {
            if (c.row == row)
                result << c.look;
        }
        return result;
    }
    int firstIndexOf(QObject *row, const QString &look) const
    {
        for (int i = 0; i < changes.size(); ++i) {
            if (changes.at(i).row == row && changes.at(i).look == look)
                return i;
        }
        return -1;
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange
            && static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName()
                   == "isSecondItem")
            changes.append({watched, watched->property("isSecondItem").toString()});
        return false;
    }
};

} // namespace

class TestDrawerControl : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    // construction and class shape
    void constructionState();
    void metaObjectMethods_data();
    void metaObjectMethods();
    void metaObjectShape();
    void initRootItemBuildsDrawer_data();
    void initRootItemBuildsDrawer();
    void containerVisibleUntilFirstExpandState();

    // child rows
    void addSecondItemsLayoutRule_data();
    void addSecondItemsLayoutRule();
    void addSecondItemsEmptyListReappliesExpandedState();
    void addSecondItemsRecordsAndIndices();
    void addSecondItemsSelectionLook_data();
    void addSecondItemsSelectionLook();
    void addSecondItemsToolTip_data();
    void addSecondItemsToolTip();
    void modifySecondItemDataToolTip_data();
    void modifySecondItemDataToolTip();
    void addSecondItemSingle();
    void deleteSecondItemKeepsIndices();
    void outOfRangeIndicesDoNothing_data();
    void outOfRangeIndicesDoNothing();
    void setRootIndexRenumbers_data();
    void setRootIndexRenumbers();
};

void TestDrawerControl::initTestCase()
{
    EventSender::parkPointer();
    qRegisterMetaType<QList<int>>();
}

void TestDrawerControl::cleanup()
{
    // Rows, drags and drawers deleted later must not leak into the next test.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

// ------------------------------------------------------------------------
// construction and class shape

void TestDrawerControl::constructionState()
{
    QWidget host;
    auto *drawer = new DrawerControl(&host);

    QCOMPARE(drawer->parentWidget(), &host);
    QCOMPARE(drawer->rootItem(), nullptr);                   // m_pRootItem
    QVERIFY(builtRows(drawer).isEmpty());                // m_lstSecondItem
    QCOMPARE(drawer->getIsRootAsChild(), false);             // m_bIsRootAsChild
    QCOMPARE(drawer->getIsRootSel(), true);                  // m_bIsRootSel
    QCOMPARE(drawer->getIsNotRootSel(), false);
    QCOMPARE(drawer->getSpareFlag(), false);                 // m_bSpareFlag
    QVERIFY(sameRecord(drawer->selNodeInfo(), st_NodeInfoSignal())); // m_stSelNodeInfo
    QVERIFY(drawer->getSecondNodeInfos().isEmpty());         // m_lstSecondNodeInfo
    QCOMPARE(drawer->rootIndex(), -1);                       // m_iRootIndex
    QCOMPARE(drawer->curSecondIndex(), -1);                  // m_iCurSecondIndex
    QCOMPARE(drawer->acceptDrops(), false);                  // setIsDrag(false)
    QCOMPARE(drawer->isShowChild(), false);                  // m_bIsShowChild
    QCOMPARE(drawer->layout(), nullptr);                     // m_pMainLayout
    QCOMPARE(drawer->childLayout(), nullptr);                // m_pChildLayout
    QCOMPARE(drawer->childContainer(), nullptr);             // m_pContainer
    QVERIFY(drawer->selIndex().isEmpty());                   // m_lstSelIndex
    QCOMPARE(drawer->isDragging(), false);                   // m_pDrag
    QCOMPARE(drawer->findChild<QDrag *>(), nullptr);
    QVERIFY(drawer->findChildren<QWidget *>().isEmpty());    // no child widgets yet
    QVERIFY(drawer->objectName().isEmpty());
    QVERIFY(drawer->styleSheet().isEmpty());

    // m_bIsLockSel starts false: once rows exist, marking works.
    drawer->initRootItem(1, 0);
    drawer->addSecondItems(childNodes(3));
    drawer->markSelSecondItem(0);
    QCOMPARE(looksOf(drawer), looksWithPressed(3, 0));
}

void TestDrawerControl::metaObjectMethods_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<int>("methodType");
    QTest::addColumn<int>("access");

    const int sig = QMetaMethod::Signal;
    const int slot = QMetaMethod::Slot;
    const int pub = QMetaMethod::Public;
    const int priv = QMetaMethod::Private;
    const QList<QByteArray> signatures = {
        "signal_OnCurrentItemClicked(QList<int>)",
        "signal_OnItemsIsDraged(QList<int>,QList<int>)",
        "signal_OnCompleteDraged()",
        "signal_OnItemIsDoubleClicked(bool)",
        "signal_OnEditBtnClicked(QList<int>)",
        "signal_OnDeleteBtnClicked(QList<int>)",
        "signal_OnCaptureBtnClicked(QList<int>)",
        "slot_OnRootItemClicked()",
        "slot_OnSecondItemClicked()",
        "slot_OnSecondItemCaptureBtnClicked()",
        "slot_OnIsShowChildItems(bool)",
        "slot_OnEditBtnClicked()",
        "slot_OnDeleteBtnClicked()",
        "slot_releaseDrag()",
    };
    for (int i = 0; i < signatures.size(); ++i) {
        QTest::newRow(signatures.at(i).constData())
            << i << signatures.at(i) << (i < 7 ? sig : slot) << (i < 7 ? pub : priv);
    }
}

void TestDrawerControl::metaObjectMethods()
{
    QFETCH(int, position);
    QFETCH(QByteArray, signature);
    QFETCH(int, methodType);
    QFETCH(int, access);

    const QMetaObject &mo = DrawerControl::staticMetaObject;
    const QMetaMethod method = mo.method(mo.methodOffset() + position);
    QVERIFY(method.isValid());
    QCOMPARE(method.methodSignature(), signature);
    QCOMPARE(int(method.methodType()), methodType);
    QCOMPARE(int(method.access()), access);
}

void TestDrawerControl::metaObjectShape()
{
    const QMetaObject &mo = DrawerControl::staticMetaObject;
    QCOMPARE(QByteArray(mo.className()), QByteArray("DrawerControl"));
    QVERIFY(mo.superClass());
    QCOMPARE(QByteArray(mo.superClass()->className()), QByteArray("CLanguageTranslateFrame"));
    QCOMPARE(mo.methodCount() - mo.methodOffset(), 14);
}

void TestDrawerControl::initRootItemBuildsDrawer_data()
{
    QTest::addColumn<int>("itemType");
    QTest::addColumn<int>("rootIndex");
    QTest::addColumn<bool>("dragEnabled");

    QTest::newRow("type 1, root 0") << 1 << 0 << false;
    QTest::newRow("type 0, root 7") << 0 << 7 << false;
    QTest::newRow("type 1, root 12, drag on") << 1 << 12 << true;
}

void TestDrawerControl::initRootItemBuildsDrawer()
{
    QFETCH(int, itemType);
    QFETCH(int, rootIndex);
    QFETCH(bool, dragEnabled);

    DrawerControl drawer;
    drawer.setIsDrag(dragEnabled);
    drawer.initRootItem(itemType, rootIndex);

    QCOMPARE(drawer.rootIndex(), rootIndex);
    RootItem *root = drawer.rootItem();
    QVERIFY(root);
    QCOMPARE(root->parentWidget(), &drawer);
    QCOMPARE(root->getItemType(), itemType);
    QCOMPARE(root->getIndexText(), QString::number(rootIndex));

    auto *mainLayout = qobject_cast<QVBoxLayout *>(drawer.layout());
    QVERIFY(mainLayout);
    QCOMPARE(mainLayout->spacing(), 0);
    QCOMPARE(mainLayout->contentsMargins(), QMargins(10, 0, 10, 0));
    QCOMPARE(mainLayout->count(), 2);
    QCOMPARE(mainLayout->itemAt(0)->widget(), static_cast<QWidget *>(root));

    QFrame *container = drawer.childContainer();
    QVERIFY(container);
    QCOMPARE(mainLayout->itemAt(1)->widget(), static_cast<QWidget *>(container));
    QCOMPARE(container->parentWidget(), &drawer);
    QCOMPARE(container->objectName(), QStringLiteral("DrawerContainer"));
    QVERIFY(!container->isWindow());
    QCOMPARE(container->windowType(), Qt::Widget);
    QCOMPARE(container->acceptDrops(), true); // whatever dragging says
    QCOMPARE(drawer.acceptDrops(), dragEnabled);

    QVBoxLayout *childLayout = drawer.childLayout();
    QVERIFY(childLayout);
    QCOMPARE(childLayout->parentWidget(), static_cast<QWidget *>(container));
    QCOMPARE(container->layout(), static_cast<QLayout *>(childLayout));
    QCOMPARE(childLayout->spacing(), 8);
    QCOMPARE(childLayout->contentsMargins(), QMargins(24, 0, 0, 0));
    QCOMPARE(childLayout->count(), 0);

    // The drawer names and styles nothing of its own.
    QVERIFY(drawer.objectName().isEmpty());
    QVERIFY(drawer.styleSheet().isEmpty());
    QVERIFY(container->styleSheet().isEmpty());
    QVERIFY(builtRows(&drawer).isEmpty());
    QVERIFY(drawer.selIndex().isEmpty());
}

void TestDrawerControl::containerVisibleUntilFirstExpandState()
{
    DrawerControl drawer;
    drawer.initRootItem(1, 0);
    QCOMPARE(drawer.isShowChild(), false);
    QVERIFY(!drawer.childContainer()->isHidden()); // not yet told to collapse

    drawer.addSecondItems({}); // re-applies the (collapsed) state
    QVERIFY(drawer.childContainer()->isHidden());
}

// ------------------------------------------------------------------------
// child rows

void TestDrawerControl::addSecondItemsLayoutRule_data()
{
    QTest::addColumn<QList<int>>("batches");
    // Number of spacings after each call, worked out by hand from the loop
    // "i from 0 while i < count: remove the last item" (which keeps the first
    // floor(count/2) items), one added spacing, then every row re-added.
    QTest::addColumn<QList<int>>("spacings");

    QTest::newRow("one empty call") << QList<int>{0} << QList<int>{1};
    QTest::newRow("three empty calls") << QList<int>{0, 0, 0} << QList<int>{1, 1, 1};
    QTest::newRow("three rows, then two empty calls") << QList<int>{3, 0, 0} << QList<int>{1, 2, 3};
    QTest::newRow("two rows, then one row") << QList<int>{2, 1} << QList<int>{1, 2};
    QTest::newRow("one row, then empty twice") << QList<int>{1, 0, 0} << QList<int>{1, 2, 2};
    QTest::newRow("3, 0, 0, 0") << QList<int>{3, 0, 0, 0} << QList<int>{1, 2, 3, 4};
    QTest::newRow("5, 5, 0") << QList<int>{5, 5, 0} << QList<int>{1, 2, 3};
    QTest::newRow("empty first, then rows") << QList<int>{0, 2, 4, 0} << QList<int>{1, 1, 2, 3};
}

void TestDrawerControl::addSecondItemsLayoutRule()
{
    QFETCH(QList<int>, batches);
    QFETCH(QList<int>, spacings);

    DrawerControl drawer;
    drawer.initRootItem(1, 2);
    QVBoxLayout *layout = drawer.childLayout();

    QList<QObject *> model; // expected items: nullptr = spacing
    int made = 0;
    for (int call = 0; call < batches.size(); ++call) {
        drawer.addSecondItems(childNodes(batches.at(call), QStringLiteral("N"), made));
        made += batches.at(call);

        const QList<SecondItem *> rows = builtRows(&drawer);
        QCOMPARE(rows.size(), made);

        // The rule, applied to the model.
        for (int i = 0; i < model.size(); ++i)
            model.removeLast();
        model.append(nullptr);
        for (SecondItem *row : rows) {
            model.removeAll(row); // a re-added widget leaves its old place
            model.append(row);
        }

        QList<int> heights;
        const QList<QObject *> actual = layoutEntries(layout, &heights);
        QCOMPARE(actual, model);
        QCOMPARE(heights.size(), spacings.at(call));
        for (int h : heights)
            QCOMPARE(h, 8);
        // Every row sits in the layout exactly once, in list order, after
        // the last spacing.
        const int lastSpacing = actual.lastIndexOf(nullptr);
        QCOMPARE(actual.size() - 1 - lastSpacing, made);
    }
}

void TestDrawerControl::addSecondItemsEmptyListReappliesExpandedState()
{
    DrawerControl drawer;
    drawer.initRootItem(1, 0);
    drawer.addSecondItems(childNodes(2));
    QVERIFY(drawer.childContainer()->isHidden()); // collapsed state applied

    drawer.setIsShowChildItem(true);
    QCOMPARE(drawer.isShowChild(), true);
    QVERIFY(!drawer.childContainer()->isHidden());

    // Hide the container behind the drawer's back: an empty batch shows it
    // again because it re-applies the expanded state.
    drawer.childContainer()->hide();
    drawer.addSecondItems({});
    QVERIFY(!drawer.childContainer()->isHidden());
    QCOMPARE(drawer.isShowChild(), true);
    QCOMPARE(builtRows(&drawer).size(), 2);

    drawer.setIsShowChildItem(false);
    drawer.childContainer()->show();
    drawer.addSecondItems({});
    QVERIFY(drawer.childContainer()->isHidden());
    QCOMPARE(drawer.isShowChild(), false);
}

void TestDrawerControl::addSecondItemsRecordsAndIndices()
{
    DrawerControl drawer;
    drawer.initRootItem(1, 4);
    const QList<st_NodeInfoSignal> first = childNodes(2, QStringLiteral("A"));
    const QList<st_NodeInfoSignal> second = childNodes(3, QStringLiteral("B"));

    drawer.addSecondItems(first);
    drawer.addSecondItems(second);

    const QList<st_NodeInfoSignal> all = first + second;
    const QList<st_NodeInfoSignal> kept = drawer.getSecondNodeInfos();
    QCOMPARE(kept.size(), all.size());
    for (int i = 0; i < all.size(); ++i) {
        QVERIFY2(sameRecord(kept.at(i), all.at(i)), qPrintable(QString::number(i)));
        st_NodeInfoSignal out;
        QCOMPARE(drawer.getSecondNodeInfo(i, out), 1);
        QVERIFY(sameRecord(out, all.at(i)));
        QCOMPARE(builtRows(&drawer).at(i)->parentWidget(),
                 static_cast<QWidget *>(drawer.childContainer()));
    }
    // Child indices continue from the number of records already kept.
    QCOMPARE(indexTextsOf(&drawer),
             QStringList({"4-0", "4-1", "4-2", "4-3", "4-4"}));
    // Adding rows changes neither the selection path nor the current index.
    QVERIFY(drawer.selIndex().isEmpty());
    QCOMPARE(drawer.curSecondIndex(), -1);
    QCOMPARE(drawer.getIsRootSel(), true);
}

void TestDrawerControl::addSecondItemsSelectionLook_data()
{
    QTest::addColumn<int>("existing");
    QTest::addColumn<int>("batch");
    QTest::addColumn<bool>("locked");

    QTest::newRow("fresh, three rows") << 0 << 3 << false;
    QTest::newRow("fresh, one row") << 0 << 1 << false;
    QTest::newRow("two old, three new") << 2 << 3 << false;
    QTest::newRow("two old, empty batch") << 2 << 0 << false;
    QTest::newRow("locked, fresh, three rows") << 0 << 3 << true;
    QTest::newRow("locked, two old, three new") << 2 << 3 << true;
    QTest::newRow("locked, two old, one new") << 2 << 1 << true;
}

void TestDrawerControl::addSecondItemsSelectionLook()
{
    QFETCH(int, existing);
    QFETCH(int, batch);
    QFETCH(bool, locked);

    DrawerControl drawer;
    drawer.initRootItem(1, 1);
    if (existing > 0)
        drawer.addSecondItems(childNodes(existing, QStringLiteral("Old")));

    QList<bool> expected; // pressed state per row, by the rule
    for (SecondItem *row : builtRows(&drawer))
        expected << (lookOf(row) == QLatin1String(kPressLook));
    for (int j = 0; j < batch; ++j)
        expected << (j == 0); // first of the batch pressed, the rest not
    if (!locked && !expected.isEmpty()) {
        for (int i = 0; i < expected.size(); ++i)
            expected[i] = (i == expected.size() - 1);
    }

    drawer.setIsLockSel(locked);
    LookRecorder recorder;
    qApp->installEventFilter(&recorder);
    drawer.addSecondItems(childNodes(batch, QStringLiteral("New")));
    qApp->removeEventFilter(&recorder);

    const QList<SecondItem *> rows = builtRows(&drawer);
    QCOMPARE(rows.size(), existing + batch);
    QList<bool> actual;
    for (SecondItem *row : rows)
        actual << (lookOf(row) == QLatin1String(kPressLook));
    QCOMPARE(actual, expected);

    if (batch == 0)
        return;
    SecondItem *firstNew = rows.at(existing);
    SecondItem *last = rows.last();
    const int firstPress = recorder.firstIndexOf(firstNew, QLatin1String(kPressLook));
    QVERIFY2(firstPress >= 0, "the first row of the batch never got the selected look");
    for (int j = 1; j < batch; ++j) {
        SecondItem *row = rows.at(existing + j);
        if (row != last || locked)
            QVERIFY(!recorder.looksOf(row).contains(QLatin1String(kPressLook)));
    }
    if (!locked && firstNew != last) {
        // Pressed first, turned off by the final marking of the last row.
        const QStringList firstLooks = recorder.looksOf(firstNew);
        QCOMPARE(firstLooks.last(), QString::fromLatin1(kNormalLook));
        QVERIFY(firstLooks.indexOf(QLatin1String(kPressLook))
                < firstLooks.lastIndexOf(QLatin1String(kNormalLook)));
        QVERIFY(firstPress < recorder.firstIndexOf(last, QLatin1String(kPressLook)));
    }
}

void TestDrawerControl::addSecondItemsToolTip_data()
{
    QTest::addColumn<int>("rootType");
    QTest::addColumn<QString>("expectedTip");

    // Root record: name "GroupName"; child record: name "Child", source "ChildSource".
    QTest::newRow("group root shows the group name") << 1 << QStringLiteral("GroupName");
    QTest::newRow("plain root shows the row's source") << 0 << QStringLiteral("ChildSource");
    QTest::newRow("type 2 root sets no tip") << 2 << QString();
    QTest::newRow("type -1 root sets no tip") << -1 << QString();
}

void TestDrawerControl::addSecondItemsToolTip()
{
    QFETCH(int, rootType);
    QFETCH(QString, expectedTip);

    QScopedPointer<DrawerControl> drawer(
        buildDrawer(nullptr, 0, makeNode({QStringLiteral("GroupName"), QStringLiteral("lower")},
                                         QStringLiteral("RootSource"), rootType),
                    {makeNode({QStringLiteral("Child")}, QStringLiteral("ChildSource"), 1),
                     makeNode({QStringLiteral("Child2")}, QStringLiteral("ChildSource"), 2)}));
    const auto rows = builtRows(drawer);
    QCOMPARE(rows.size(), 2);
    for (SecondItem *row : rows)
        QCOMPARE(row->toolTip(), expectedTip);
}

void TestDrawerControl::modifySecondItemDataToolTip_data()
{
    QTest::addColumn<int>("rootType");
    QTest::addColumn<QStringList>("newNames");
    QTest::addColumn<QString>("expectedTip");

    // The row starts with the name "OldName"; the new record's source is "NewSource".
    QTest::newRow("plain root: tip shows the full upper text")
        << 0 << QStringList{"NewName", "lower"} << QStringLiteral("NewName");
    const QString longName = QString(60, QLatin1Char('W'));
    QTest::newRow("plain root: long name is the full text")
        << 0 << QStringList{longName} << longName;
    QTest::newRow("plain root: nameless record keeps the old upper text")
        << 0 << QStringList{} << QStringLiteral("OldName");
    QTest::newRow("group root: tip shows the new source")
        << 1 << QStringList{"NewName"} << QStringLiteral("NewSource");
    QTest::newRow("type 3 root: tip shows the new source")
        << 3 << QStringList{"NewName"} << QStringLiteral("NewSource");
}

void TestDrawerControl::modifySecondItemDataToolTip()
{
    QFETCH(int, rootType);
    QFETCH(QStringList, newNames);
    QFETCH(QString, expectedTip);

    const st_NodeInfoSignal oldRecord =
        makeNode({QStringLiteral("OldName")}, QStringLiteral("OldSource"), 4);
    QScopedPointer<DrawerControl> drawer(
        buildDrawer(nullptr, 0, makeNode({QStringLiteral("Root")}, QString(), rootType),
                    {makeNode({QStringLiteral("Other")}, QStringLiteral("OtherSource"), 1),
                     oldRecord}));

    st_NodeInfoSignal newRecord = makeNode(newNames, QStringLiteral("NewSource"), 7);
    newRecord.iInputSourceNo = 42;
    drawer->modifySecondItemData(1, newRecord);

    QCOMPARE(builtRows(drawer).at(1)->toolTip(), expectedTip);
    // The row reports the new record; the kept records are not touched.
    st_NodeInfoSignal out;
    QCOMPARE(drawer->getSecondNodeInfo(1, out), 1);
    QVERIFY(sameRecord(out, newRecord));
    QVERIFY(sameRecord(drawer->getSecondNodeInfos().at(1), oldRecord));
    // The other row is left alone.
    QVERIFY(sameRecord(builtRows(drawer).at(0)->getNodeInfo(),
                       makeNode({QStringLiteral("Other")}, QStringLiteral("OtherSource"), 1)));
}

void TestDrawerControl::addSecondItemSingle()
{
    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 6, 2));
    drawer->setIsShowChildItem(false);
    builtRows(drawer); // the layout is inspected below
    QSignalSpy clicked(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked);
    const int layoutCountBefore = drawer->childLayout()->count();
    const QList<int> selBefore = drawer->selIndex();

    const st_NodeInfoSignal node = makeNode({QStringLiteral("Single")}, QStringLiteral("S"), 3);
    drawer->addSecondItem(node, 9, 4); // indices taken as given

    const QList<SecondItem *> rows = builtRows(drawer);
    QCOMPARE(rows.size(), 3);
    SecondItem *added = rows.last();
    QCOMPARE(added->parentWidget(), static_cast<QWidget *>(drawer->childContainer()));
    QCOMPARE(added->getIndexText(), QStringLiteral("9-4"));
    QVERIFY(sameRecord(added->getNodeInfo(), node));
    QVERIFY(added->toolTip().isEmpty());
    // One layout item more, no spacing.
    QCOMPARE(drawer->childLayout()->count(), layoutCountBefore + 1);
    QCOMPARE(drawer->childLayout()->itemAt(layoutCountBefore)->widget(),
             static_cast<QWidget *>(added));
    QCOMPARE(looksOf(drawer.data()), looksWithPressed(3, 2));
    QCOMPARE(drawer->curSecondIndex(), 2);
    // Records, path and selected record untouched; nothing emitted.
    QCOMPARE(drawer->getSecondNodeInfos().size(), 2);
    QCOMPARE(drawer->selIndex(), selBefore);
    QCOMPARE(drawer->getIsRootSel(), true);
    QCOMPARE(clicked.count(), 0);

    // Its click is connected.
    pressWidget(added);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(intsOf(clicked.at(0).at(0)), QList<int>({6, 2}));

    // With the selection locked the looks stay, the index still moves.
    drawer->setIsLockSel(true);
    drawer->addSecondItem(node, 6, 3);
    QCOMPARE(looksOf(drawer.data()), looksWithPressed(4, 2));
    QCOMPARE(drawer->curSecondIndex(), 3);
}

void TestDrawerControl::deleteSecondItemKeepsIndices()
{
    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 2, 4));
    const QList<st_NodeInfoSignal> records = drawer->getSecondNodeInfos();
    QCOMPARE(records.size(), 4);

    pressWidget(builtRows(drawer).at(3)); // select the last row
    QCOMPARE(drawer->selIndex(), QList<int>({2, 3}));
    const int layoutCount = drawer->childLayout()->count();

    QPointer<SecondItem> doomed = builtRows(drawer).at(1);
    drawer->deleteSecondItem(1);

    QVERIFY(doomed.isNull()); // deleted at once, not later
    QCOMPARE(builtRows(drawer).size(), 3);
    QCOMPARE(drawer->childLayout()->count(), layoutCount - 1);
    // No renumbering: the rows behind keep their old child indices.
    QCOMPARE(indexTextsOf(drawer.data()), QStringList({"2-0", "2-2", "2-3"}));
    // The deleted row's record stays kept.
    QCOMPARE(drawer->getSecondNodeInfos().size(), 4);
    QVERIFY(sameRecord(drawer->getSecondNodeInfos().at(1), records.at(1)));
    // Position 1 now reports the former row 2.
    st_NodeInfoSignal out;
    QCOMPARE(drawer->getSecondNodeInfo(1, out), 1);
    QVERIFY(sameRecord(out, records.at(2)));
    // Selection and current index untouched.
    QCOMPARE(drawer->selIndex(), QList<int>({2, 3}));
    QCOMPARE(drawer->curSecondIndex(), 3);
    QCOMPARE(drawer->getIsRootSel(), false);

    // New rows continue from the number of kept records, not of rows.
    drawer->addSecondItems(childNodes(1, QStringLiteral("Late")));
    QCOMPARE(indexTextsOf(drawer.data()), QStringList({"2-0", "2-2", "2-3", "2-4"}));

    // setRootIndex renumbers by position.
    drawer->setRootIndex(2);
    QCOMPARE(indexTextsOf(drawer.data()), QStringList({"2-0", "2-1", "2-2", "2-3"}));
}

void TestDrawerControl::outOfRangeIndicesDoNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("-1") << -1;
    QTest::newRow("size") << 3;
    QTest::newRow("size + 5") << 8;
    QTest::newRow("INT_MIN") << std::numeric_limits<int>::min();
    QTest::newRow("INT_MAX") << std::numeric_limits<int>::max();
}

void TestDrawerControl::outOfRangeIndicesDoNothing()
{
    QFETCH(int, index);

    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 1, 3));
    const QList<SecondItem *> rowsBefore = builtRows(drawer);
    QStringList tipsBefore;
    QList<st_NodeInfoSignal> recordsBefore;
    for (SecondItem *row : rowsBefore) {
        tipsBefore << row->toolTip();
        recordsBefore << row->getNodeInfo();
    }

    st_NodeInfoSignal sentinel = makeNode({QStringLiteral("Sentinel")}, QStringLiteral("S"), 9);
    sentinel.nNodeData1 = 1234;
    st_NodeInfoSignal out = sentinel;
    drawer->getSecondNodeInfo(index, out);
    QVERIFY(sameRecord(out, sentinel));

    drawer->modifySecondItemData(index, makeNode({QStringLiteral("Changed")}, QStringLiteral("C"), 2));
    drawer->deleteSecondItem(index);

    QCOMPARE(builtRows(drawer), rowsBefore);
    for (int i = 0; i < rowsBefore.size(); ++i) {
        QCOMPARE(rowsBefore.at(i)->toolTip(), tipsBefore.at(i));
        QVERIFY(sameRecord(rowsBefore.at(i)->getNodeInfo(), recordsBefore.at(i)));
    }
}

void TestDrawerControl::setRootIndexRenumbers_data()
{
    QTest::addColumn<QList<int>>("batches");
    QTest::addColumn<int>("newIndex");

    QTest::newRow("one batch of three") << QList<int>{3} << 2;
    QTest::newRow("two batches") << QList<int>{2, 3} << 9;
    QTest::newRow("no rows") << QList<int>{} << 4;
    QTest::newRow("same index") << QList<int>{4} << 7;
    QTest::newRow("back to zero") << QList<int>{1, 1} << 0;
}

void TestDrawerControl::setRootIndexRenumbers()
{
    QFETCH(QList<int>, batches);
    QFETCH(int, newIndex);

    DrawerControl drawer;
    drawer.initRootItem(1, 7);
    for (int n : batches)
        drawer.addSecondItems(childNodes(n));

    // Make the old child indices differ from the positions first.
    if (!builtRows(&drawer).isEmpty())
        drawer.deleteSecondItem(0);

    drawer.setRootIndex(newIndex);
    QCOMPARE(drawer.rootIndex(), newIndex);
    QCOMPARE(drawer.rootItem()->getIndexText(), QString::number(newIndex));
    // Each row gets its position as child index; the root part of a row's
    // index text is the one it was built with (rows have no root setter).
    QStringList expected;
    for (int i = 0; i < builtRows(&drawer).size(); ++i)
        expected << QStringLiteral("%1-%2").arg(7).arg(i);
    QCOMPARE(indexTextsOf(&drawer), expected);

    // Rows added from now on are built with the new root index.
    drawer.addSecondItems(childNodes(1));
    QCOMPARE(indexTextsOf(&drawer).last(),
             QStringLiteral("%1-%2").arg(newIndex).arg(drawer.getSecondNodeInfos().size() - 1));

    // The new index reaches the paths reported from now on.
    QSignalSpy clicked(&drawer, &DrawerControl::signal_OnCurrentItemClicked);
    drawer.setCurSelSecondItem(0);
    QCOMPARE(intsOf(clicked.at(0).at(0)), QList<int>({newIndex, 0}));
}

DRAWER_TEST_MAIN(TestDrawerControl)

#include "tst_drawercontrol.moc"
