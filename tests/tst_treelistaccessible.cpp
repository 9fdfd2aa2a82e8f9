// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// The list as assistive technology reads it through QAccessible: a tree
// whose items are the visible root rows, holding their shown child rows,
// with the keyboard focus row as its focus child.

#include "AccessibleHost.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "NodeFactory.h"
#include "RootItem.h"
#include "RowClick.h"
#include "RowButtons.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"
#include "Translations.h"
#include "TreeText.h"

#include <QAccessible>
#include <QCheckBox>
#include <QToolButton>
#include <QElapsedTimer>
#include <QtTest>

namespace {

// The events with repeats in a row merged: on focus-in Qt itself reports the
// tree's focus child as well.
QStringList merged(const QStringList &events)
{
    QStringList out;
    for (const QString &e : events) {
        if (out.isEmpty() || out.last() != e)
            out << e;
    }
    return out;
}

QStringList childNames(QAccessibleInterface *iface)
{
    QStringList names;
    for (int i = 0; i < iface->childCount(); ++i)
        names << iface->child(i)->text(QAccessible::Name);
    return names;
}

} // namespace

class tst_TreeListAccessible : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { EventSender::parkPointer(); }
    void listIsATreeOfVisibleRows();
    void childRowsHangUnderTheirRoot();
    void treeFollowsTheOperations();
    void focusChildIsTheKeyboardFocusRow();
    void accessibilityEvents();
    void selectionEventsFollowState_data();
    void selectionEventsFollowState();
    void languageChangeRedescribesKnownRows();
};

void tst_TreeListAccessible::listIsATreeOfVisibleRows()
{
    auto host = AccessibleHost::make();
    QVERIFY(host);
    QAccessibleInterface *tree = host->tree();
    QVERIFY(tree && tree->isValid());
    QCOMPARE(tree->role(), QAccessible::Tree);
    QVERIFY(!tree->text(QAccessible::Name).isEmpty());
    QVERIFY(tree->state().focusable);
    QCOMPARE(childNames(tree), (QStringList{"R0", "R1", "R2, second line"}));
    for (int i = 0; i < tree->childCount(); ++i) {
        QAccessibleInterface *root = tree->child(i);
        QCOMPARE(root->role(), QAccessible::TreeItem);
        QCOMPARE(tree->indexOfChild(root), i);
        QCOMPARE(root->parent(), tree);
    }
    // A host-given name wins.
    host->frame()->setAccessibleName(QStringLiteral("Sources"));
    QCOMPARE(tree->text(QAccessible::Name), QStringLiteral("Sources"));
}

void tst_TreeListAccessible::childRowsHangUnderTheirRoot()
{
    auto host = AccessibleHost::make();
    QVERIFY(host);
    QAccessibleInterface *r0 = host->row(QStringLiteral("R0"));
    QAccessibleInterface *r1 = host->row(QStringLiteral("R1"));
    // Root 0 is expanded, root 1 collapsed: its rows are not visible rows.
    QCOMPARE(childNames(r0), (QStringList{"R0-0", "R0-1", "R0-2"}));
    QCOMPARE(r1->childCount(), 0);
    QAccessibleInterface *child = r0->child(1);
    QCOMPARE(child->role(), QAccessible::TreeItem);
    QCOMPARE(child->parent(), r0);
    QCOMPARE(r0->indexOfChild(child), 1);
    QCOMPARE(child->childCount(), 0);

    host->list->setIsShowChildItem(1, true);
    QCOMPARE(childNames(r1), (QStringList{"R1-0", "R1-1", "R1-2"}));
    host->list->setIsShowChildItem(0, false);
    QCOMPARE(r0->childCount(), 0);
}

void tst_TreeListAccessible::treeFollowsTheOperations()
{
    auto host = AccessibleHost::make();
    QVERIFY(host);
    QAccessibleInterface *tree = host->tree();
    host->list->deleteRootItem(1);
    QCOMPARE(childNames(tree), (QStringList{"R0", "R2, second line"}));
    host->list->deleteChildeItem(QList<int>{0, 0});
    QCOMPARE(childNames(host->row(QStringLiteral("R0"))), (QStringList{"R0-1", "R0-2"}));
    host->list->clearTree();
    QCOMPARE(tree->childCount(), 0);
}

void tst_TreeListAccessible::focusChildIsTheKeyboardFocusRow()
{
    auto host = AccessibleHost::make();
    QVERIFY(host);
    QAccessibleInterface *tree = host->tree();
    // The list is the window's only tab stop, so it has the focus already.
    QCOMPARE(tree->focusChild(), host->row(QStringLiteral("R0")));
    host->frame()->clearFocus();
    QVERIFY(!tree->focusChild());

    host->frame()->setFocus(Qt::TabFocusReason);
    QCOMPARE(tree->focusChild(), host->row(QStringLiteral("R0")));
    QTest::keyClick(host->frame(), Qt::Key_Down);
    QCOMPARE(tree->focusChild(), host->row(QStringLiteral("R0-0")));
    QVERIFY(host->row(QStringLiteral("R0-0"))->state().focused);
    QVERIFY(!host->row(QStringLiteral("R0"))->state().focused);

    // The public widget passes its focus on to the tree: only the tree and
    // its row report the focus.
    host->list->setFocus();
    QVERIFY(host->frame()->hasFocus());
    QAccessibleInterface *proxy = QAccessible::queryAccessibleInterface(host->list);
    QVERIFY(!proxy->state().focused);
    QVERIFY(proxy->state().invisible);
    QVERIFY(tree->state().focused);

    host->frame()->clearFocus();
    QVERIFY(!tree->focusChild());
    QVERIFY(!host->row(QStringLiteral("R0-0"))->state().focused);
}

namespace {

// Waits once for the platform to turn accessibility on.
// A row's selection change as assistive technology hears it.
QStringList selected(const QString &row)
{
    return {"StateChanged " + row, "SelectionAdd " + row};
}
QStringList deselected(const QString &row)
{
    return {"StateChanged " + row, "SelectionRemove " + row};
}

} // namespace

// Focus moves and selections raise the matching events. Only where Qt's
// accessibility is live (CTest "accessible_events": Xvfb and an AT-SPI bus).
void tst_TreeListAccessible::accessibilityEvents()
{
    if (!waitForLiveAccessibility())
        QSKIP("Qt's accessibility is not active on this platform; the accessible_events test runs this");

    auto host = AccessibleHost::make();
    QVERIFY(host);
    QTest::qWait(100); // the window system's activation settles
    host->frame()->clearFocus();
    AccessibleEvents events;
    host->frame()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(host->frame(), Qt::Key_Down);
    QTest::keyClick(host->frame(), Qt::Key_Down);
    QCOMPARE(merged(events.events), (QStringList{"Focus R0", "Focus R0-0", "Focus R0-1"}));

    // A click: focus, then, once the press is handled, the selection: the
    // row joins it, the group's row selected before (the last one added)
    // leaves it.
    events.events.clear();
    QWidget *row = AccessibleHost::widgetOf(host->row(QStringLiteral("R0-0")));
    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, QPoint(5, row->height() / 2));
    QTRY_COMPARE(merged(events.events), QStringList{"Focus R0-0"} + selected("R0-0") + deselected("R0-2"));

    // Space selects as a click does, with the same events.
    events.events.clear();
    QTest::keyClick(host->frame(), Qt::Key_Down);
    QTest::keyClick(host->frame(), Qt::Key_Space);
    QTest::qWait(50);
    // In display order.
    QVERIFY2(merged(events.events) == QStringList{"Focus R0-1"} + deselected("R0-0") + selected("R0-1"),
             qPrintable(merged(events.events).join(QStringLiteral(" | "))));
}

void tst_TreeListAccessible::selectionEventsFollowState_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QStringList>("expected");

    // R0 open, R0-2 selected (the last row added), focus on R0-2, child 1
    // of every group offers its edit and delete buttons.
    QTest::newRow("F2 on a child") << "F2" << selected("R0-1") + deselected("R0-2");
    QTest::newRow("Delete on a child") << "Delete" << selected("R0-1") + deselected("R0-2");
    QTest::newRow("setCurSelItem of a child") << "select 0,0" << selected("R0-0") + deselected("R0-2");
    QTest::newRow("setCurSelItem of the selected child") << "select 0,2" << QStringList();
    // Root 0 collapses (deselected by code): the focus goes to its row.
    QTest::newRow("setCurSelItem of a root") << "select 1" << QStringList{"Focus R0"} + selected("R1");
    QTest::newRow("expand box of an unselected root") << "box R1" << QStringList{"Focus R1"};
    QTest::newRow("click on a root") << "click R1" << QStringList{"Focus R1"} + selected("R1");
    QTest::newRow("click on the selected child") << "click R0-2" << QStringList();
    QTest::newRow("capture button") << "capture R0-1" << QStringList{"Focus R0-1"} + selected("R0-1") + deselected("R0-2");
}

// A selection event whenever a shown row's selected state changes, whatever
// changed it, and none when it does not.
void tst_TreeListAccessible::selectionEventsFollowState()
{
    QFETCH(QString, action);
    QFETCH(QStringList, expected);
    if (!waitForLiveAccessibility())
        QSKIP("Qt's accessibility is not active on this platform; the accessible_events test runs this");

    auto host = AccessibleHost::make();
    QVERIFY(host);
    st_NodeInfoSignal child = qobject_cast<SecondItem *>(AccessibleHost::widgetOf(host->row(QStringLiteral("R0-1"))))->getNodeInfo();
    child.showOpBtn = {true, true, true};
    host->list->modifyItemData(QList<int>{0, 1}, child);
    QTest::qWait(100);
    host->frame()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(host->frame(), Qt::Key_End); // R2
    QTest::keyClick(host->frame(), Qt::Key_Up); // R1
    QTest::keyClick(host->frame(), Qt::Key_Up); // R0-2
    QTest::qWait(50);

    AccessibleEvents events;
    const QString arg = action.section(QLatin1Char(' '), 1);
    QWidget *row = host->row(arg) ? AccessibleHost::widgetOf(host->row(arg)) : nullptr;
    if (action == QLatin1String("F2") || action == QLatin1String("Delete")) {
        QTest::keyClick(host->frame(), Qt::Key_Up); // R0-1
        events.events.clear();
        QTest::keyClick(host->frame(), action == QLatin1String("F2") ? Qt::Key_F2 : Qt::Key_Delete);
    } else if (action.startsWith(QLatin1String("select "))) {
        host->list->setCurSelItem(TreeText::pathFromText(arg));
    } else if (action.startsWith(QLatin1String("box "))) {
        QCheckBox *box = qobject_cast<RootItem *>(row)->expandBox();
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, box->rect().center());
    } else if (action.startsWith(QLatin1String("click "))) {
        RowClick::click(row);
    } else if (action.startsWith(QLatin1String("capture "))) {
        auto *item = qobject_cast<SecondItem *>(row);
        EventSender::sendEnter(item);
        QToolButton *capture = RowButtons::rowButton(item, 0);
        QTRY_VERIFY(capture->isVisible());
        QTest::mouseClick(capture, Qt::LeftButton);
    }
    QTest::qWait(50); // let whatever would follow arrive
    const QStringList heard = merged(events.events);
    QVERIFY2(heard == expected, qPrintable(QStringLiteral("heard: ") + heard.join(QStringLiteral(" | "))));
}

// A new language: assistive technology hears that the shown rows it knows
// read differently, and reads the new texts.
void tst_TreeListAccessible::languageChangeRedescribesKnownRows()
{
    if (!waitForLiveAccessibility())
        QSKIP("Qt's accessibility is not active on this platform; the accessible_events test runs this");

    auto host = AccessibleHost::make();
    QVERIFY(host);
    // Child 1 of every group becomes the offline signal Z.
    QAccessibleInterface *row = host->row(QStringLiteral("R0-1"));
    st_NodeInfoSignal record = NodeFactory().node({QStringLiteral("Z")}, QStringLiteral("S9"));
    record.isOnline = false;
    host->list->modifyItemData(QList<int>{0, 1}, record);
    QCOMPARE(row->text(QAccessible::Description), QStringLiteral("offline"));
    host->row(QStringLiteral("R1"));
    QAccessibleInterface *hidden = host->row(QStringLiteral("R1-2")); // known, but its group is closed

    AccessibleEvents events;
    QVERIFY(Translations::install(QLocale(QLocale::German)));
    QTest::qWait(20);
    const QStringList heard = events.events.filter(QStringLiteral("DescriptionChanged"));
    const QString german = row->text(QAccessible::Description);
    Translations::install(QLocale(QLocale::English));
    QTest::qWait(20);
    QCOMPARE(german, QStringLiteral("nicht verbunden"));
    // Shown and known: Z (R0-1 was) and R1; R1's rows are not shown.
    QVERIFY2(heard.contains(QStringLiteral("DescriptionChanged Z")), qPrintable(heard.join(QStringLiteral(" | "))));
    QVERIFY(heard.contains(QStringLiteral("DescriptionChanged R1")));
    QVERIFY(hidden && hidden->isValid());
    QVERIFY(!heard.contains(QStringLiteral("DescriptionChanged R1-2")));
}

QTEST_MAIN(tst_TreeListAccessible)
#include "tst_treelistaccessible.moc"
