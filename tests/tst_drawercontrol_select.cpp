// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Autotest of DrawerControl: the selection path and the signals that carry
// it, expand and collapse, pass-throughs and the drawer's lifetime.
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

using RowButtons::rootButton;
using RowButtons::rowButtons;

void sendToWidget(QWidget *widget, QEvent::Type type, const QPoint &pos, Qt::MouseButton button,
                  Qt::MouseButtons buttons)
{
    QMouseEvent event(type, pos, widget->mapTo(widget->window(), pos), widget->mapToGlobal(pos),
                      button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

class TestDrawerControlSelect : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    // selection and signals
    void clickChildRowReportsPath_data();
    void clickChildRowReportsPath();
    void clickRootRowReportsNothing();
    void buttonSlotsReportCurrentPath_data();
    void buttonSlotsReportCurrentPath();
    void childButtonsReportAfterClick_data();
    void childButtonsReportAfterClick();
    void setCurSelSecondItem_data();
    void setCurSelSecondItem();
    void markSelSecondItemHonoursLock_data();
    void markSelSecondItemHonoursLock();

    // expand and collapse, pass-throughs
    void doubleClickTogglesExpand_data();
    void doubleClickTogglesExpand();
    void passThroughs();
    void uninitialisedDrawerIgnoresRootCalls();
    void setIsDragDrivesAcceptDrops();

    // lifetime
    void destructorTrace();
    void releaseSelfWithoutDrag();
};

void TestDrawerControlSelect::initTestCase()
{
    EventSender::parkPointer();
    qRegisterMetaType<QList<int>>();
}

void TestDrawerControlSelect::cleanup()
{
    // Rows, drags and drawers deleted later must not leak into the next test.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

// ------------------------------------------------------------------------
// selection and signals

void TestDrawerControlSelect::clickChildRowReportsPath_data()
{
    QTest::addColumn<int>("rootIndex");
    QTest::addColumn<int>("rowCount");
    QTest::addColumn<int>("clicked");

    QTest::newRow("root 0, first of three") << 0 << 3 << 0;
    QTest::newRow("root 4, second of three") << 4 << 3 << 1;
    QTest::newRow("root 1, last of five") << 1 << 5 << 4;
    QTest::newRow("root 9, only row") << 9 << 1 << 0;
}

void TestDrawerControlSelect::clickChildRowReportsPath()
{
    QFETCH(int, rootIndex);
    QFETCH(int, rowCount);
    QFETCH(int, clicked);

    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, rootIndex, rowCount));
    QSignalSpy spy(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked);

    SecondItem *row = builtRows(drawer).at(clicked);
    pressWidget(row);

    QCOMPARE(spy.count(), 1);
    QCOMPARE(intsOf(spy.at(0).at(0)), QList<int>({rootIndex, clicked}));
    QCOMPARE(drawer->selIndex(), QList<int>({rootIndex, clicked}));
    QCOMPARE(drawer->curSecondIndex(), clicked);
    QCOMPARE(drawer->getIsRootSel(), false);
    QCOMPARE(drawer->getIsNotRootSel(), true);
    QVERIFY(sameRecord(drawer->selNodeInfo(), row->getNodeInfo()));
    QCOMPARE(looksOf(drawer.data()), looksWithPressed(rowCount, clicked));
}

void TestDrawerControlSelect::clickRootRowReportsNothing()
{
    const st_NodeInfoSignal rootRecord =
        makeNode({QStringLiteral("TheRoot"), QStringLiteral("low")}, QStringLiteral("RS"), 1);
    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 3, rootRecord, childNodes(3)));
    QSignalSpy current(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked);
    QSignalSpy edit(drawer.data(), &DrawerControl::signal_OnEditBtnClicked);
    QSignalSpy del(drawer.data(), &DrawerControl::signal_OnDeleteBtnClicked);
    QSignalSpy capture(drawer.data(), &DrawerControl::signal_OnCaptureBtnClicked);
    QSignalSpy dragged(drawer.data(), &DrawerControl::signal_OnItemsIsDraged);

    pressWidget(builtRows(drawer).at(1));
    QCOMPARE(current.count(), 1);
    const QStringList looksAfterChild = looksOf(drawer.data());

    pressWidget(drawer->rootItem());

    QCOMPARE(current.count(), 1); // nothing more from the drawer
    QCOMPARE(edit.count() + del.count() + capture.count() + dragged.count(), 0);
    QCOMPARE(drawer->selIndex(), QList<int>({3}));
    QCOMPARE(drawer->getIsRootSel(), true);
    QVERIFY(sameRecord(drawer->selNodeInfo(), rootRecord));
    QCOMPARE(looksOf(drawer.data()), looksAfterChild); // child looks unchanged
    QCOMPARE(drawer->curSecondIndex(), 1);
}

void TestDrawerControlSelect::buttonSlotsReportCurrentPath_data()
{
    QTest::addColumn<int>("selected");   // child row clicked first; -1: root row; -2: nothing
    QTest::addColumn<QString>("action"); // what is pressed
    QTest::addColumn<int>("actionRow");  // child row whose signal fires
    QTest::addColumn<QString>("signal"); // drawer signal expected
    QTest::addColumn<QList<int>>("path");

    QTest::newRow("root edit after child 2") << 2 << "rootEdit" << -1 << "edit" << QList<int>{8, 2};
    QTest::newRow("root delete after child 1") << 1 << "rootDelete" << -1 << "delete" << QList<int>{8, 1};
    QTest::newRow("root edit after root click") << -1 << "rootEdit" << -1 << "edit" << QList<int>{8};
    QTest::newRow("root edit before any selection") << -2 << "rootEdit" << -1 << "edit" << QList<int>{};
    QTest::newRow("row 0 edit signal, child 2 selected") << 2 << "rowEdit" << 0 << "edit" << QList<int>{8, 2};
    QTest::newRow("row 1 delete signal, child 0 selected") << 0 << "rowDelete" << 1 << "delete" << QList<int>{8, 0};
    QTest::newRow("row 2 capture signal, child 1 selected") << 1 << "rowCapture" << 2 << "capture" << QList<int>{8, 1};
    QTest::newRow("row 0 capture signal, root selected") << -1 << "rowCapture" << 0 << "capture" << QList<int>{8};
}

void TestDrawerControlSelect::buttonSlotsReportCurrentPath()
{
    QFETCH(int, selected);
    QFETCH(QString, action);
    QFETCH(int, actionRow);
    QFETCH(QString, signal);
    QFETCH(QList<int>, path);

    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 8, 3));
    if (selected >= 0)
        pressWidget(builtRows(drawer).at(selected));
    else if (selected == -1)
        pressWidget(drawer->rootItem());

    QSignalSpy current(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked);
    QSignalSpy edit(drawer.data(), &DrawerControl::signal_OnEditBtnClicked);
    QSignalSpy del(drawer.data(), &DrawerControl::signal_OnDeleteBtnClicked);
    QSignalSpy capture(drawer.data(), &DrawerControl::signal_OnCaptureBtnClicked);

    if (action == QLatin1String("rootEdit")) {
        QToolButton *btn = rootButton(drawer->rootItem(), "isEditBtn");
        QVERIFY(btn);
        btn->click();
    } else if (action == QLatin1String("rootDelete")) {
        QToolButton *btn = rootButton(drawer->rootItem(), "isDelBtn");
        QVERIFY(btn);
        btn->click();
    } else {
        // The row's own signal alone, without its click: the drawer must
        // report its current selection, not the row that fired.
        const char *name = action == QLatin1String("rowEdit") ? "signal_OnEditBtnClicked"
            : action == QLatin1String("rowDelete")            ? "signal_OnDeleteBtnClicked"
                                                               : "signal_OnCaptureBtnClicked";
        QVERIFY(QMetaObject::invokeMethod(builtRows(drawer).at(actionRow), name,
                                          Qt::DirectConnection));
    }

    QSignalSpy *expectedSpy = signal == QLatin1String("edit") ? &edit
        : signal == QLatin1String("delete")                   ? &del
                                                              : &capture;
    QCOMPARE(expectedSpy->count(), 1);
    QCOMPARE(intsOf(expectedSpy->at(0).at(0)), path);
    QCOMPARE(edit.count() + del.count() + capture.count(), 1);
    QCOMPARE(current.count(), 0);
}

void TestDrawerControlSelect::childButtonsReportAfterClick_data()
{
    QTest::addColumn<int>("button"); // position in the row's button frame
    QTest::addColumn<QString>("signal");

    QTest::newRow("capture") << 0 << "capture";
    QTest::newRow("edit") << 1 << "edit";
    QTest::newRow("delete") << 2 << "delete";
}

void TestDrawerControlSelect::childButtonsReportAfterClick()
{
    QFETCH(int, button);
    QFETCH(QString, signal);

    QStringList events; // outlives the drawer and its connections
    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 2, 3));
    pressWidget(drawer->rootItem());

    auto record = [&events](const char *tag) {
        return [&events, tag](const QList<int> &p) {
            QStringList parts;
            for (int v : p)
                parts << QString::number(v);
            events << QStringLiteral("%1[%2]").arg(QLatin1String(tag), parts.join(QLatin1Char(',')));
        };
    };
    connect(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked, this, record("current"));
    connect(drawer.data(), &DrawerControl::signal_OnEditBtnClicked, this, record("edit"));
    connect(drawer.data(), &DrawerControl::signal_OnDeleteBtnClicked, this, record("delete"));
    connect(drawer.data(), &DrawerControl::signal_OnCaptureBtnClicked, this, record("capture"));

    const QList<QToolButton *> buttons = rowButtons(builtRows(drawer).at(1));
    QCOMPARE(buttons.size(), 4);
    QVERIFY(buttons.at(button));
    buttons.at(button)->click();

    // The row's click comes first and makes it the selection; the button's
    // report then carries that path.
    QCOMPARE(events, QStringList({QStringLiteral("current[2,1]"), signal + QStringLiteral("[2,1]")}));
    QCOMPARE(drawer->selIndex(), QList<int>({2, 1}));
    disconnect(drawer.data(), nullptr, this, nullptr);
}

void TestDrawerControlSelect::setCurSelSecondItem_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("childClickedFirst");
    QTest::addColumn<bool>("locked");

    QTest::newRow("row 0") << 0 << false << false;
    QTest::newRow("row 2") << 2 << false << false;
    QTest::newRow("row 2 after a child click") << 2 << true << false;
    QTest::newRow("out of range 5") << 5 << false << false;
    QTest::newRow("negative") << -1 << true << false;
    QTest::newRow("locked selection is ignored") << 0 << false << true;
    QTest::newRow("locked, after a child click") << 1 << true << true;
}

void TestDrawerControlSelect::setCurSelSecondItem()
{
    QFETCH(int, index);
    QFETCH(bool, childClickedFirst);
    QFETCH(bool, locked);

    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 6, 3));
    if (childClickedFirst)
        pressWidget(builtRows(drawer).at(1));
    drawer->setIsLockSel(locked);
    const bool rootSelBefore = drawer->getIsRootSel();
    const st_NodeInfoSignal selBefore = drawer->selNodeInfo();
    QSignalSpy spy(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked);

    drawer->setCurSelSecondItem(index);

    QCOMPARE(spy.count(), 1);
    QCOMPARE(intsOf(spy.at(0).at(0)), QList<int>({6, index}));
    QCOMPARE(drawer->selIndex(), QList<int>({6, index}));
    QCOMPARE(drawer->curSecondIndex(), index);
    QCOMPARE(looksOf(drawer.data()), looksWithPressed(3, index));
    QCOMPARE(drawer->getIsRootSel(), rootSelBefore);
    QCOMPARE(drawer->getIsRootSel(), !childClickedFirst);
    QVERIFY(sameRecord(drawer->selNodeInfo(), selBefore));
}

void TestDrawerControlSelect::markSelSecondItemHonoursLock_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("locked");
    QTest::addColumn<int>("expectedPressed"); // -1: none

    // After adding, the last row is pressed.
    QTest::newRow("unlocked, row 0") << 3 << 0 << false << 0;
    QTest::newRow("unlocked, row 1") << 3 << 1 << false << 1;
    QTest::newRow("unlocked, out of range") << 3 << 7 << false << -1;
    QTest::newRow("unlocked, negative") << 3 << -1 << false << -1;
    QTest::newRow("locked, row 0") << 3 << 0 << true << 2;
    QTest::newRow("locked, out of range") << 3 << 7 << true << 2;
    QTest::newRow("no rows") << 0 << 0 << false << -1;
}

void TestDrawerControlSelect::markSelSecondItemHonoursLock()
{
    QFETCH(int, rows);
    QFETCH(int, index);
    QFETCH(bool, locked);
    QFETCH(int, expectedPressed);

    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 0, rows));
    drawer->setIsLockSel(locked);
    QSignalSpy spy(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked);
    const int curBefore = drawer->curSecondIndex();

    drawer->markSelSecondItem(index);

    QCOMPARE(looksOf(drawer.data()), looksWithPressed(rows, expectedPressed));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(drawer->curSecondIndex(), curBefore);
    QVERIFY(drawer->selIndex().isEmpty());
}

// ------------------------------------------------------------------------
// expand and collapse, pass-throughs

void TestDrawerControlSelect::doubleClickTogglesExpand_data()
{
    QTest::addColumn<bool>("startExpanded");
    QTest::addColumn<bool>("rootSignalsBlocked");

    QTest::newRow("collapsed") << false << false;
    QTest::newRow("expanded") << true << false;
    QTest::newRow("collapsed, root signals blocked") << false << true;
}

void TestDrawerControlSelect::doubleClickTogglesExpand()
{
    QFETCH(bool, startExpanded);
    QFETCH(bool, rootSignalsBlocked);

    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 0, 2));
    drawer->setIsShowChildItem(startExpanded);
    QCOMPARE(drawer->isShowChild(), startExpanded);
    QCOMPARE(!drawer->childContainer()->isHidden(), startExpanded);

    RootItem *root = drawer->rootItem();
    QCheckBox *box = root->findChild<QCheckBox *>();
    QVERIFY(box);
    QSignalSpy rootShow(root, &RootItem::signal_OnIsShowChildItems);
    QSignalSpy doubleClicked(drawer.data(), &DrawerControl::signal_OnItemIsDoubleClicked);
    root->blockSignals(rootSignalsBlocked);

    const QPoint onDrawer(3, 3); // the drawer's own margin
    for (int round = 1; round <= 2; ++round) {
        const bool before = drawer->isShowChild();
        sendToWidget(drawer.data(), QEvent::MouseButtonPress, onDrawer, Qt::LeftButton, Qt::LeftButton);
        sendToWidget(drawer.data(), QEvent::MouseButtonRelease, onDrawer, Qt::LeftButton, Qt::NoButton);
        sendToWidget(drawer.data(), QEvent::MouseButtonDblClick, onDrawer, Qt::LeftButton, Qt::LeftButton);
        sendToWidget(drawer.data(), QEvent::MouseButtonRelease, onDrawer, Qt::LeftButton, Qt::NoButton);

        // The root row's expand box always follows the opposite of the
        // drawer's state; the drawer itself changes only through the
        // root row's signal.
        QCOMPARE(box->isChecked(), !before);
        if (rootSignalsBlocked) {
            QCOMPARE(rootShow.count(), 0);
            QCOMPARE(drawer->isShowChild(), before);
            QCOMPARE(!drawer->childContainer()->isHidden(), before);
            QCOMPARE(drawer->childContainer()->isHidden(), !startExpanded);
        } else {
            QCOMPARE(rootShow.count(), round);
            QCOMPARE(rootShow.last().at(0).toBool(), !before);
            QCOMPARE(drawer->isShowChild(), !before);
            QCOMPARE(!drawer->childContainer()->isHidden(), !before);
        }
        QCOMPARE(doubleClicked.count(), 0);
    }
    root->blockSignals(false);
}

void TestDrawerControlSelect::passThroughs()
{
    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 2, 2));
    RootItem *root = drawer->rootItem();
    QCheckBox *box = root->findChild<QCheckBox *>();
    QVERIFY(box);

    drawer->setRootItemState(4);
    QCOMPARE(root->getItemType(), 4);

    st_NodeInfoSignal record = makeNode({QStringLiteral("Renamed"), QStringLiteral("two")},
                                        QStringLiteral("Src"), 1);
    record.nNodeData2 = Q_INT64_C(0x123456789);
    drawer->modifyRootItemData(record);
    QVERIFY(sameRecord(drawer->getRootNodeInfo(), record));
    QVERIFY(sameRecord(root->getNodeInfo(), record));

    drawer->setIsShowChildItem(true);
    QCOMPARE(box->isChecked(), true);
    QCOMPARE(drawer->isShowChild(), true);
    QVERIFY(!drawer->childContainer()->isHidden());
    drawer->setIsShowChildItem(false);
    QCOMPARE(box->isChecked(), false);
    QCOMPARE(drawer->isShowChild(), false);
    QVERIFY(drawer->childContainer()->isHidden());

    // Selecting the root row by code expands it (and makes it the selection).
    pressWidget(builtRows(drawer).at(0));
    QCOMPARE(drawer->getIsRootSel(), false);
    drawer->setRootItemSelected(true);
    QCOMPARE(drawer->isShowChild(), true);
    QVERIFY(!drawer->childContainer()->isHidden());
    QCOMPARE(drawer->getIsRootSel(), true);
    QCOMPARE(drawer->selIndex(), QList<int>({2}));
    drawer->setRootItemSelected(false);
    QCOMPARE(drawer->isShowChild(), false);
    QVERIFY(drawer->childContainer()->isHidden());

    drawer->reTranslateUI(); // reaches the rows; nothing visible changes
    QCOMPARE(builtRows(drawer).size(), 2);
}

void TestDrawerControlSelect::uninitialisedDrawerIgnoresRootCalls()
{
    DrawerControl drawer;
    drawer.setIsShowChildItem(true);
    drawer.setRootItemSelected(true);
    drawer.reTranslateUI();
    sendToWidget(&drawer, QEvent::MouseButtonDblClick, QPoint(2, 2), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(drawer.isShowChild(), false);
    QCOMPARE(drawer.rootItem(), nullptr);
    QVERIFY(sameRecord(drawer.getRootNodeInfo(), st_NodeInfoSignal()));
}

void TestDrawerControlSelect::setIsDragDrivesAcceptDrops()
{
    DrawerControl drawer;
    drawer.initRootItem(1, 0);
    QCOMPARE(drawer.acceptDrops(), false);
    drawer.setIsDrag(true);
    QCOMPARE(drawer.acceptDrops(), true);
    QCOMPARE(drawer.childContainer()->acceptDrops(), true);
    drawer.setIsDrag(false);
    QCOMPARE(drawer.acceptDrops(), false);
    QCOMPARE(drawer.childContainer()->acceptDrops(), true);
}

// ------------------------------------------------------------------------
// lifetime

void TestDrawerControlSelect::destructorTrace()
{
    auto *drawer = buildDrawer(nullptr, 0, 2);
    QPointer<SecondItem> row = builtRows(drawer).at(0);
    QPointer<RootItem> root = drawer->rootItem();

    QTest::ignoreMessage(QtDebugMsg, "[Tarn]::DrawerControl::~DrawerControl()");
    delete drawer;
    QVERIFY(row.isNull());
    QVERIFY(root.isNull());
}

void TestDrawerControlSelect::releaseSelfWithoutDrag()
{
    QWidget host;
    QPointer<DrawerControl> drawer = buildDrawer(&host, 0, 2);

    MessageCapture log;
    drawer->releaseSelf();
    QCOMPARE(drawerLines(log), QStringList({"[Tarn]::DrawerControl::releaseSelf",
                                            "[Tarn]::DrawerControl::releaseSelf delete"}));
    // Deleted later, not at once, and not detached.
    QVERIFY(!drawer.isNull());
    QCOMPARE(drawer->parentWidget(), &host);

    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(drawer.isNull());
    QCOMPARE(drawerLines(log).last(), QStringLiteral("[Tarn]::DrawerControl::~DrawerControl()"));
}

DRAWER_TEST_MAIN(TestDrawerControlSelect)

#include "tst_drawercontrol_select.moc"
