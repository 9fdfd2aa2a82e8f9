// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// The layout model: given what the drawers and rows are, with their looks
// measured on prototype rows under the style sheet of the moment, it puts
// every shown drawer and row exactly where the widgets' own layouts put
// them, and gives the list's container the same minimum size (hence the
// same scroll range), whatever the sheet does to margins and sizes.

#include "DrawerControl.h"
#include "EventSender.h"
#include "LayoutCheck.h"
#include "NodeFactory.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"

#include <QApplication>
#include <QFile>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtTest>

namespace {

QString darkSheet()
{
    QFile file(QStringLiteral(DARK_STYLE_SHEET));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void settle()
{
    for (int i = 0; i < 10; ++i) {
        QCoreApplication::processEvents();
        EventSender::flushDeferredDeletes();
    }
}

} // namespace

class tst_TreeLayout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { EventSender::parkPointer(); }
    void cleanup() { qApp->setStyleSheet(QString()); }
    void modelPutsRowsWhereTheWidgetsAre_data();
    void modelPutsRowsWhereTheWidgetsAre();
    void slotsKeepTheirPlaceWhileEmpty();
};

void tst_TreeLayout::modelPutsRowsWhereTheWidgetsAre_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("action");

    const QString dark = darkSheet();
    QTest::newRow("no sheet") << QString() << 380 << QString();
    QTest::newRow("dark sheet") << dark << 380 << QString();
    // Narrower than a row: the rows' widths set the horizontal range.
    QTest::newRow("dark sheet, narrow") << dark << 150 << QString();
    QTest::newRow("no sheet, narrow, a root hovered") << QString() << 150 << "hover root";
    QTest::newRow("dark sheet, keyboard focus outline") << dark << 380 << "keys";
    QTest::newRow("dark sheet, narrow, keyboard focus outline") << dark << 150 << "keys";
    // Margins, borders and padding on the drawers and the row containers.
    QTest::newRow("framed drawers")
        << dark + "DrawerControl { border: 3px solid red; padding: 2px 5px 1px 4px; }"
                  "DrawerControl #DrawerContainer { border: 2px solid blue; padding: 1px; }"
        << 380 << QString();
    // Rows whose height has a range, and selected rows that are taller.
    QTest::newRow("rows with a height range")
        << dark + "#SignalSecondItem { min-height: 30px; max-height: 70px; }"
                  "#SignalSecondItem[isSecondItem=\"press\"] { min-height: 52px; max-height: 52px; }"
        << 380 << "click";
    QTest::newRow("taller selected rows, narrow")
        << dark + "#SignalSecondItem[isSecondItem=\"press\"] { min-height: 60px; max-height: 60px; }"
                  "RootItem[isRootItem=\"press\"] { min-height: 50px; max-height: 50px; }"
        << 170 << "click";
    // The frame's container with margins of its own.
    QTest::newRow("padded container") << dark + "#TreeListFrame > QScrollArea > QWidget > #DrawerContainer { padding: 7px; }"
                                      << 380 << QString();
    QTest::newRow("names of every length") << dark << 300 << "names";
}

void tst_TreeLayout::modelPutsRowsWhereTheWidgetsAre()
{
    QFETCH(QString, sheet);
    QFETCH(int, width);
    QFETCH(QString, action);
    qApp->setStyleSheet(sheet);

    QWidget window;
    window.resize(width, 420);
    auto *layout = new QVBoxLayout(&window);
    auto *panel = new QWidget(&window);
    layout->addWidget(panel);
    auto *list = new SignalTreeList(panel);
    list->initControls();
    const NodeFactory nodes;
    for (int i = 0; i < 4; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        st_NodeInfoSignal root = nodes.node({name}, QStringLiteral("S%1").arg(i), i % 2);
        root.showOpBtn = {true, true};
        list->addRootItem(root, nodes.children(name, 3 + i, QStringLiteral("S%1").arg(i)));
    }
    list->addChildItem(QList<int>{2}, QList<st_NodeInfoSignal>()); // one more spacing
    if (action == QLatin1String("names")) {
        st_NodeInfoSignal node = nodes.node({QString(70, QLatin1Char('W')), QStringLiteral("x")});
        list->modifyItemData(QList<int>{0, 0}, node);
        node.strNodeName = QStringList();
        list->modifyItemData(QList<int>{0, 1}, node);
        node.strNodeName = QStringList{QStringLiteral("one line")};
        list->modifyItemData(QList<int>{0, 2}, node);
    }
    list->setIsShowChildItem(0, true);
    list->setIsShowChildItem(2, true);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    settle();

    auto *frame = qobject_cast<TreeListFrame *>(list->getSignalTreeListFrame());
    if (action == QLatin1String("hover root")) {
        EventSender::sendEnter(frame->drawers().at(1)->rootItem());
    } else if (action == QLatin1String("keys")) {
        frame->setFocus(Qt::TabFocusReason);
        QTest::keyClick(frame, Qt::Key_Down);
        QTest::keyClick(frame, Qt::Key_Down);
    } else if (action == QLatin1String("click")) {
        QTest::mouseClick(frame->drawers().at(0)->secondItems().at(1), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
        QTest::mouseClick(frame->drawers().at(3)->rootItem(), Qt::LeftButton, Qt::NoModifier, QPoint(60, 5));
    }
    settle();

    if (QTest::currentDataTag() == QByteArray("padded container")) {
        // The case is about margins: the sheet must have given some.
        QCOMPARE(frame->findChild<QScrollArea *>()->widget()->contentsMargins(), QMargins(7, 7, 7, 7));
    }
    LayoutCheck check(list);
    const QStringList differences = check.differences();
    QVERIFY2(differences.isEmpty(), qPrintable(differences.join(QLatin1Char('\n'))));
    // Four drawers, their root rows, two open groups of 3 and 5 rows.
    QCOMPARE(check.compared(), 4 * 2 + 2 + 3 + 5);
    if (width < 200) {
        // Too narrow for its rows: the container keeps their width.
        auto *area = frame->findChild<QScrollArea *>();
        QVERIFY(area->horizontalScrollBar()->maximum() > 0);
    }
}

// A hidden widget keeps the geometry it had when last laid out, and one
// never laid out the one it was made with; so do the slots.
void tst_TreeLayout::slotsKeepTheirPlaceWhileEmpty()
{
    TreeLayout layout;
    TreeLayout::Drawer drawer;
    drawer.key = 1;
    drawer.initial = QRect(0, 0, 100, 30);
    drawer.root.key = 1;
    drawer.root.metrics.minimum = drawer.root.metrics.hint = drawer.root.metrics.maximum = QSize(50, 45);
    drawer.root.initial = QRect(0, 0, 100, 45);
    drawer.containerInitial = QRect(0, 0, 100, 30);
    drawer.containerEmpty = true;
    drawer.spacings = 1;
    TreeLayout::Row row;
    row.key = 7;
    row.metrics.minimum = row.metrics.hint = QSize(60, 40);
    row.metrics.maximum = QSize(QWIDGETSIZE_MAX, 40);
    row.metrics.expanding = Qt::Horizontal;
    row.initial = QRect(0, 0, 100, 40);
    drawer.rows << row;
    layout.sync({drawer});
    layout.layout(QSize(300, 400));
    QCOMPARE(layout.drawerRect(1), QRect(0, 0, 300, 45));
    QCOMPARE(layout.rootRect(1), QRect(10, 0, 50, 45));
    // Never shown: where they were made.
    QCOMPARE(layout.rowContainerRect(1), QRect(0, 0, 100, 30));
    QCOMPARE(layout.rowRect(1, 7), QRect(0, 0, 100, 40));

    drawer.containerEmpty = false;
    layout.sync({drawer});
    layout.layout(QSize(300, 400));
    QCOMPARE(layout.rowContainerRect(1), QRect(10, 45, 280, 48));
    // Below one spacing, right of the container's margin.
    QCOMPARE(layout.rowRect(1, 7), QRect(24, 8, 256, 40));

    // Closed again and the list wider: the hidden ones stay where they were.
    drawer.containerEmpty = true;
    layout.sync({drawer});
    layout.layout(QSize(500, 400));
    QCOMPARE(layout.drawerRect(1), QRect(0, 0, 500, 45));
    QCOMPARE(layout.rowContainerRect(1), QRect(10, 45, 280, 48));
    QCOMPARE(layout.rowRect(1, 7), QRect(24, 8, 256, 40));

    // A row gone takes its slot with it; a new one starts where it is made.
    drawer.rows[0].key = 8;
    drawer.containerEmpty = false;
    layout.sync({drawer});
    QCOMPARE(layout.rowRect(1, 7), QRect());
    QCOMPARE(layout.rowRect(1, 8), QRect(0, 0, 100, 40));
    layout.layout(QSize(500, 400));
    QCOMPARE(layout.rowRect(1, 8), QRect(24, 8, 456, 40));
}

QTEST_MAIN(tst_TreeLayout)
#include "tst_treelayout.moc"
