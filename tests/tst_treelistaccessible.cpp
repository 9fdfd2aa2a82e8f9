// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// The list as assistive technology reads it through QAccessible: a tree
// whose items are the visible root rows, holding their shown child rows,
// with the keyboard focus row as its focus child.

#include "AccessibleHost.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"

#include <QAccessible>
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

// Focus moves and selections raise the matching events. Only where Qt's
// accessibility is live (CTest "accessible_events": Xvfb and an AT-SPI bus).
void tst_TreeListAccessible::accessibilityEvents()
{
    QElapsedTimer wait;
    wait.start();
    while (!QAccessible::isActive() && wait.elapsed() < 1000)
        QTest::qWait(20);
    if (!QAccessible::isActive())
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

    // A click: focus, then, once the press is handled, the selection.
    events.events.clear();
    QWidget *row = qobject_cast<QWidget *>(host->row(QStringLiteral("R0-2"))->object());
    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, QPoint(5, row->height() / 2));
    QTRY_COMPARE(merged(events.events), (QStringList{"Focus R0-2", "StateChanged R0-2", "Selection R0-2"}));

    // Space selects as a click does, with the same events.
    events.events.clear();
    QTest::keyClick(host->frame(), Qt::Key_Up);
    QTest::keyClick(host->frame(), Qt::Key_Space);
    QTRY_COMPARE(merged(events.events), (QStringList{"Focus R0-1", "StateChanged R0-1", "Selection R0-1"}));
}

QTEST_MAIN(tst_TreeListAccessible)
#include "tst_treelistaccessible.moc"
