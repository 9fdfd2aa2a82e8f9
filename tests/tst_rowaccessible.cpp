// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// A row as assistive technology reads it: its full name, "offline" for an
// offline signal, truthful states, and actions that do what the mouse does.

#include "AccessibleRows.h"
#include "BuiltRows.h"
#include "AccessibleHost.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "HostRecorder.h"
#include "NodeFactory.h"
#include "RowButtons.h"
#include "RootItem.h"
#include "RowClick.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"
#include "TreeText.h"

#include <QAccessible>
#include <QCheckBox>
#include <QToolButton>
#include <QLabel>
#include <QtTest>

class tst_RowAccessible : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        EventSender::parkPointer();
        qRegisterMetaType<QList<int>>();
    }
    void nameIsTheFullText_data();
    void nameIsTheFullText();
    void offlineSignalSaysSo();
    void selectedStateIsTruthful();
    void rootStatesAreTruthful();
    void selectedRootsAreTheSelectedOnes_data();
    void selectedRootsAreTheSelectedOnes();
    void fourthButtonHasAName();
    void pressActionDoesWhatAClickDoes_data();
    void pressActionDoesWhatAClickDoes();
    void expandAndCollapseActionsUseTheExpandBox();
    void editAndDeleteActionsClickTheOfferedButton_data();
    void editAndDeleteActionsClickTheOfferedButton();
    void rowWithoutButtonsOffersNoEditOrDelete();
    void interfaceStaysWithItsRow_data();
    void interfaceStaysWithItsRow();
    void rowsThatAreNoWidgetsAnswer();

private:
    static void offerButtons(const AccessibleHost &host);
};

void tst_RowAccessible::nameIsTheFullText_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("expected");
    const QString longName(200, QLatin1Char('W'));
    QTest::newRow("one line") << QStringList{"HDMI 1"} << "HDMI 1";
    QTest::newRow("two lines") << QStringList{"HDMI 1", "1920x1080@60"} << "HDMI 1, 1920x1080@60";
    QTest::newRow("a name too long to show") << QStringList{longName, "4K"} << longName + ", 4K";
}

// Child row 0 of root 0 and root 1 get the names: both read in full,
// though the rows show them shortened.
void tst_RowAccessible::nameIsTheFullText()
{
    QFETCH(QStringList, names);
    QFETCH(QString, expected);
    auto host = AccessibleHost::make();
    QVERIFY(host);
    st_NodeInfoSignal node = builtRows(host->drawer(0)).at(0)->getNodeInfo();
    node.strNodeName = names;
    host->list->modifyItemData(QList<int>{0, 0}, node); // child 0 of every root
    host->list->modifyItemData(QList<int>{0}, node);

    SecondItem *row = builtRows(host->drawer(0)).at(0);
    QAccessibleInterface *iface = AccessibleRows::interfaceFor(ShownRows::of(row));
    QCOMPARE(iface->text(QAccessible::Name), expected);
    QCOMPARE(AccessibleRows::interfaceFor(RowRef::root(host->drawer(0)))->text(QAccessible::Name), expected);
    if (names.first().size() > 100)
        QVERIFY(row->findChild<QLabel *>(QStringLiteral("m_qlUpper"))->text() != names.first());
}

void tst_RowAccessible::offlineSignalSaysSo()
{
    auto host = AccessibleHost::make();
    QVERIFY(host);
    host->list->setIsShowChildItem(1, true);
    QCOMPARE(host->row(QStringLiteral("R1-1"))->text(QAccessible::Description), QStringLiteral("offline"));
    QCOMPARE(host->row(QStringLiteral("R1-0"))->text(QAccessible::Description), QString());
    QCOMPARE(host->row(QStringLiteral("R1"))->text(QAccessible::Description), QString());
}

void tst_RowAccessible::selectedStateIsTruthful()
{
    auto host = AccessibleHost::make();
    QVERIFY(host);
    // The list selects the last row it adds (the press look).
    QVERIFY(host->row(QStringLiteral("R0-2"))->state().selected);
    QVERIFY(!host->row(QStringLiteral("R0-0"))->state().selected);
    QVERIFY(host->row(QStringLiteral("R0-0"))->state().selectable);

    QWidget *row = AccessibleHost::widgetOf(host->row(QStringLiteral("R0-0")));
    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, QPoint(5, row->height() / 2));
    QVERIFY(host->row(QStringLiteral("R0-0"))->state().selected);
    QVERIFY(!host->row(QStringLiteral("R0-2"))->state().selected);
    QVERIFY(!host->row(QStringLiteral("R0"))->state().selected);

    host->list->setCurSelItem(QList<int>{0, 1});
    QVERIFY(host->row(QStringLiteral("R0-1"))->state().selected);
    QVERIFY(!host->row(QStringLiteral("R0-0"))->state().selected);

    RootItem *root = host->drawer(0)->rootItem();
    QTest::mouseClick(root, Qt::LeftButton, Qt::NoModifier, QPoint(root->width() - 60, 3));
    QVERIFY(host->row(QStringLiteral("R0"))->state().selected);
    QVERIFY(!host->row(QStringLiteral("R1"))->state().selected);
}

void tst_RowAccessible::rootStatesAreTruthful()
{
    auto host = AccessibleHost::make();
    QVERIFY(host);
    QAccessibleInterface *r0 = host->row(QStringLiteral("R0"));
    QAccessibleInterface *r1 = host->row(QStringLiteral("R1"));
    QVERIFY(r0->state().expandable && r0->state().expanded && !r0->state().collapsed);
    QVERIFY(r1->state().expandable && !r1->state().expanded && r1->state().collapsed);
    QVERIFY(!host->row(QStringLiteral("R0-1"))->state().expandable);
    host->list->setIsShowChildItem(0, false);
    QVERIFY(!r0->state().expanded && r0->state().collapsed);
    QCOMPARE(r0->actionInterface()->actionNames(),
             (QStringList{QAccessibleActionInterface::pressAction(), QStringLiteral("expand")}));
    host->list->setIsShowChildItem(1, true);
    QCOMPARE(r1->actionInterface()->actionNames(),
             (QStringList{QAccessibleActionInterface::pressAction(), QStringLiteral("collapse")}));
    QCOMPARE(host->row(QStringLiteral("R1-0"))->actionInterface()->actionNames(),
             QStringList{QAccessibleActionInterface::pressAction()});
}

void tst_RowAccessible::selectedRootsAreTheSelectedOnes_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("selected");

    // "click R1" on the row, "box R1" on its expand box, "select 2" is
    // setCurSelItem([2]), "select 0,1" setCurSelItem([0, 1]).
    QTest::newRow("nothing yet") << QStringList() << "";
    QTest::newRow("setCurSelItem [2]: the roots above are deselected") << QStringList{"select 2"} << "R2";
    QTest::newRow("click R0, setCurSelItem [2]") << QStringList{"click R0", "select 2"} << "R2";
    QTest::newRow("each root keeps its own selection") << QStringList{"click R0", "click R1"} << "R0 R1";
    QTest::newRow("the expand box selects nothing") << QStringList{"box R1", "box R2"} << "";
    QTest::newRow("a child selected in the same group") << QStringList{"click R0", "click R0-1"} << "";
    QTest::newRow("setCurSelItem of a child") << QStringList{"click R0", "select 0,1"} << "";
    QTest::newRow("collapsing a selected root keeps it selected") << QStringList{"click R1", "box R1", "box R1"} << "R1";
    QTest::newRow("the expand box of a root deselected by code") << QStringList{"select 2", "box R0"} << "R2";
    QTest::newRow("a click after a deselection by code") << QStringList{"select 2", "box R0", "click R0"} << "R0 R2";
}

// A root row is selected while it is its drawer's selection and was
// selected: not after a deselection by code (the drawer keeps [root] then),
// nor for the pressed look and highlighted name an expand box leaves.
void tst_RowAccessible::selectedRootsAreTheSelectedOnes()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, selected);

    auto host = AccessibleHost::make();
    QVERIFY(host);
    for (const QString &step : steps) {
        const QString arg = step.section(QLatin1Char(' '), 1);
        QWidget *row = host->row(arg) ? AccessibleHost::widgetOf(host->row(arg)) : nullptr;
        if (step.startsWith(QLatin1String("select "))) {
            host->list->setCurSelItem(TreeText::pathFromText(arg));
        } else if (step.startsWith(QLatin1String("click "))) {
            QVERIFY(row);
            RowClick::click(row);
        } else {
            auto *root = qobject_cast<RootItem *>(row);
            QVERIFY(root);
            QTest::mouseClick(root->expandBox(), Qt::LeftButton, Qt::NoModifier, root->expandBox()->rect().center());
        }
    }
    QStringList roots;
    QAccessibleInterface *tree = host->tree();
    for (int i = 0; i < tree->childCount(); ++i) {
        if (tree->child(i)->state().selected)
            roots << tree->child(i)->text(QAccessible::Name).section(QLatin1Char(','), 0, 0);
    }
    QCOMPARE(roots.join(QLatin1Char(' ')), selected);
}

// All four hover buttons of a child row have names a screen reader reads,
// the fourth one too (rows whose records flag four buttons).
void tst_RowAccessible::fourthButtonHasAName()
{
    auto host = AccessibleHost::make();
    QVERIFY(host);
    SecondItem *row = builtRows(host->drawer(0)).at(1);
    st_NodeInfoSignal node = row->getNodeInfo();
    node.showOpBtn = {true, true, true, true};
    host->list->modifyItemData(QList<int>{0, 1}, node);
    QStringList names;
    for (int i = 0; i < 4; ++i) {
        QToolButton *button = RowButtons::rowButton(row, i);
        QVERIFY(button);
        QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(button);
        names << iface->text(QAccessible::Name);
    }
    QCOMPARE(names, (QStringList{"Capture", "Edit", "Delete", "More"}));
}

void tst_RowAccessible::pressActionDoesWhatAClickDoes_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QList<int>>("selection"); // of drawer 0
    QTest::newRow("child row") << "R0-1" << QStringList{"CurrentItemClicked(0,1)"} << QList<int>{0, 1};
    QTest::newRow("root row") << "R0" << QStringList() << QList<int>{0};
}

void tst_RowAccessible::pressActionDoesWhatAClickDoes()
{
    QFETCH(QString, row);
    QFETCH(QStringList, events);
    QFETCH(QList<int>, selection);
    auto host = AccessibleHost::make();
    QVERIFY(host);
    HostRecorder recorder(host->list);
    QAccessibleInterface *iface = host->row(row);
    iface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(recorder.events, events);
    QCOMPARE(host->drawer(0)->selIndex(), selection);
    QVERIFY(iface->state().selected);
    const char *look = row.contains(QLatin1Char('-')) ? "isSecondItem" : "isRootItem";
    QCOMPARE(AccessibleHost::widgetOf(iface)->property(look).toString(), QStringLiteral("press"));
}

void tst_RowAccessible::expandAndCollapseActionsUseTheExpandBox()
{
    auto host = AccessibleHost::make();
    QVERIFY(host);
    RootItem *root = host->drawer(1)->rootItem();
    QSignalSpy shown(root, &RootItem::signal_OnIsShowChildItems);
    QAccessibleInterface *iface = host->row(QStringLiteral("R1"));

    iface->actionInterface()->doAction(QStringLiteral("expand"));
    QVERIFY(host->drawer(1)->isShowChild());
    QVERIFY(root->expandBox()->isChecked());
    QCOMPARE(root->property("isRootItem").toString(), QStringLiteral("press"));
    QCOMPARE(shown.count(), 1);
    QCOMPARE(iface->childCount(), 3);

    iface->actionInterface()->doAction(QStringLiteral("expand")); // already: nothing
    QCOMPARE(shown.count(), 1);
    iface->actionInterface()->doAction(QStringLiteral("collapse"));
    QVERIFY(!host->drawer(1)->isShowChild());
    QVERIFY(!root->expandBox()->isChecked());
    QCOMPARE(shown.count(), 2);
    QCOMPARE(shown.at(1).at(0).toBool(), false);
    QCOMPARE(iface->childCount(), 0);
}

// Root 0 and child 1 (under every root) show their edit and delete
// buttons on hover.
void tst_RowAccessible::offerButtons(const AccessibleHost &host)
{
    st_NodeInfoSignal root = host.drawer(0)->rootItem()->getNodeInfo();
    root.showOpBtn = {true, true};
    host.list->modifyItemData(QList<int>{0}, root);
    st_NodeInfoSignal child = builtRows(host.drawer(0)).at(1)->getNodeInfo();
    child.showOpBtn = {true, true, true};
    host.list->modifyItemData(QList<int>{0, 1}, child);
}

void tst_RowAccessible::editAndDeleteActionsClickTheOfferedButton_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<bool>("edit");
    QTest::newRow("root edit") << "R0" << true;
    QTest::newRow("root delete") << "R0" << false;
    QTest::newRow("child edit") << "R0-1" << true;
    QTest::newRow("child delete") << "R0-1" << false;
}

// The action raises exactly what a mouse click on the button raises, on a
// list of its own.
void tst_RowAccessible::editAndDeleteActionsClickTheOfferedButton()
{
    QFETCH(QString, row);
    QFETCH(bool, edit);
    const QString action = edit ? QStringLiteral("edit") : QStringLiteral("delete");

    auto byAction = AccessibleHost::make();
    QVERIFY(byAction);
    offerButtons(*byAction);
    QAccessibleInterface *iface = byAction->row(row);
    QVERIFY(iface);
    QVERIFY(iface->actionInterface()->actionNames().contains(action));
    QVERIFY(!iface->actionInterface()->localizedActionName(action).isEmpty());
    HostRecorder viaAction(byAction->list);
    iface->actionInterface()->doAction(action);

    auto byMouse = AccessibleHost::make();
    QVERIFY(byMouse);
    offerButtons(*byMouse);
    HostRecorder viaMouse(byMouse->list);
    QWidget *target = AccessibleHost::widgetOf(byMouse->row(row));
    QToolButton *button = nullptr;
    if (auto *root = qobject_cast<RootItem *>(target))
        button = edit ? root->editButton() : root->deleteButton();
    else if (auto *child = qobject_cast<SecondItem *>(target))
        button = edit ? child->editButton() : child->deleteButton();
    QVERIFY(button);
    EventSender::sendEnter(target);
    QTRY_VERIFY(button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);

    QVERIFY(!viaMouse.events.isEmpty());
    QCOMPARE(viaAction.events, viaMouse.events);
}

void tst_RowAccessible::rowWithoutButtonsOffersNoEditOrDelete()
{
    auto host = AccessibleHost::make();
    QVERIFY(host);
    offerButtons(*host);
    HostRecorder recorder(host->list);
    for (const QString &row : {QStringLiteral("R1"), QStringLiteral("R0-0")}) {
        QAccessibleActionInterface *actions = host->row(row)->actionInterface();
        QVERIFY(!actions->actionNames().contains(QStringLiteral("edit")));
        QVERIFY(!actions->actionNames().contains(QStringLiteral("delete")));
        actions->doAction(QStringLiteral("edit"));
        actions->doAction(QStringLiteral("delete"));
    }
    QCOMPARE(recorder.events, QStringList());
}

void tst_RowAccessible::interfaceStaysWithItsRow_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<bool>("rowGoes");
    QTest::newRow("a row before it deleted") << "delete 0,0" << false;
    QTest::newRow("rows added after it") << "add 0" << false;
    QTest::newRow("its group collapsed") << "collapse 0" << false;
    QTest::newRow("the row deleted") << "delete 0,1" << true;
    QTest::newRow("its group deleted") << "delete 0" << true;
    QTest::newRow("the list cleared") << "clear" << true;
}

// Assistive technology holds on to a row by its interface and id: the same
// for as long as the row exists, wherever it moves; once the row is gone,
// invalid, and let go of once the list catches up.
void tst_RowAccessible::interfaceStaysWithItsRow()
{
    QFETCH(QString, change);
    QFETCH(bool, rowGoes);
    auto host = AccessibleHost::make();
    QVERIFY(host);
    QAccessibleInterface *iface = host->row(QStringLiteral("R0-1"));
    QVERIFY(iface && iface->isValid());
    const QAccessible::Id id = QAccessible::uniqueId(iface);
    const QString arg = change.section(QLatin1Char(' '), 1);
    if (change.startsWith(QLatin1String("delete ")) && arg.contains(QLatin1Char(',')))
        host->list->deleteChildeItem(TreeText::pathFromText(arg));
    else if (change.startsWith(QLatin1String("delete ")))
        host->list->deleteRootItem(arg.toInt());
    else if (change.startsWith(QLatin1String("add ")))
        host->list->addChildItem(QList<int>{arg.toInt()}, NodeFactory().children(QStringLiteral("new"), 2, QStringLiteral("S9")));
    else if (change.startsWith(QLatin1String("collapse ")))
        host->list->setIsShowChildItem(arg.toInt(), false);
    else if (change == QLatin1String("clear"))
        host->list->clearTree();
    QTest::qWait(20);
    EventSender::flushDeferredDeletes();

    if (!rowGoes) {
        QCOMPARE(host->row(QStringLiteral("R0-1")), iface);
        QCOMPARE(QAccessible::accessibleInterface(id), iface);
        QCOMPARE(iface->text(QAccessible::Name), QStringLiteral("R0-1"));
        return;
    }
    QVERIFY(!host->row(QStringLiteral("R0-1")));
    // Until it is let go of it answers as a row that is gone.
    QAccessibleInterface *gone = QAccessible::accessibleInterface(id);
    if (gone) {
        QVERIFY(!gone->isValid());
        QVERIFY(!gone->parent());
        QCOMPARE(gone->childCount(), 0);
    }
    if (QAccessible::isActive()) {
        QTest::qWait(20);
        QVERIFY(!QAccessible::accessibleInterface(id));
    }
}

// A group never opened keeps its rows as records, not widgets: asked about
// them, it answers from those, and asking builds nothing.
void tst_RowAccessible::rowsThatAreNoWidgetsAnswer()
{
    auto host = AccessibleHost::make();
    QVERIFY(host);
    DrawerControl *drawer = host->drawer(1);
    QVERIFY(drawer->rowsDeferred());
    QAccessibleInterface *iface = host->row(QStringLiteral("R1-1"));
    QVERIFY(iface && iface->isValid());
    QCOMPARE(iface->text(QAccessible::Name), QStringLiteral("R1-1"));
    QCOMPARE(iface->text(QAccessible::Description), QStringLiteral("offline"));
    QCOMPARE(iface->role(), QAccessible::TreeItem);
    QVERIFY(!iface->object());
    // Not shown: its group is closed, so the tree does not list it, and it
    // is not the group's child as the tree reads it.
    QCOMPARE(host->row(QStringLiteral("R1"))->childCount(), 0);
    QCOMPARE(iface->parent(), host->row(QStringLiteral("R1")));
    QCOMPARE(iface->parent()->indexOfChild(iface), -1);
    // R1's last row carries the selected look the group gave it.
    QVERIFY(host->row(QStringLiteral("R1-2"))->state().selected);
    QVERIFY(!iface->state().selected);
    QVERIFY(drawer->rowsDeferred());
}

QTEST_MAIN(tst_RowAccessible)
#include "tst_rowaccessible.moc"
