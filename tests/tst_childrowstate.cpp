// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// A child row put away as its state (ChildRowState) and made again from it
// comes back as it was: its name lines shortened as they were, with the
// fonts its past gave them, its looks, buttons and tool tip. Each case is
// one where the past shows: made again without its look history, the row
// comes back different.

#include "ChildRowState.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "LayoutCheck.h"
#include "NodeFactory.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"

#include <QApplication>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>
#include <QtTest>

namespace {

// The lower line is polished once, with the row; a rule that depends on
// the row's look at that moment sticks, as long as the row's own font
// does not change.
const char *const kPolishTimeSheet = R"(
SecondItem QLabel { font-size: 9px; }
#SignalSecondItem[isSecondItem="press"] QLabel#m_qlDown { font-size: 14px; }
#SignalSecondItem[isKeyFocus="true"] QLabel#m_qlDown { font-size: 16px; }
#SignalSecondItem[isSecondItem="press"] QLabel#m_qlUpper { font-size: 13px; }
)";

void settle()
{
    EventSender::settle(5);
}

// A list with one group "R0" of three rows, in a window of its own, under
// the sheet whose fonts depend on when rows are polished.
struct OneGroup
{
    OneGroup()
    {
        qApp->setStyleSheet(QLatin1String(kPolishTimeSheet));
        window.resize(380, 500);
        auto *layout = new QVBoxLayout(&window);
        auto *panel = new QWidget(&window);
        layout->addWidget(panel);
        list = new SignalTreeList(panel);
        list->initControls();
        st_NodeInfoSignal root = nodes.node({QStringLiteral("R0")}, QStringLiteral("S0"));
        list->addRootItem(root, nodes.children(QStringLiteral("R0"), 3, QStringLiteral("S0")));
    }
    bool show()
    {
        window.show();
        const bool exposed = QTest::qWaitForWindowExposed(&window);
        settle();
        return exposed;
    }
    DrawerControl *drawer() const
    {
        return qobject_cast<TreeListFrame *>(list->getSignalTreeListFrame())->drawers().at(0);
    }

    const NodeFactory nodes;
    QWidget window;
    SignalTreeList *list = nullptr;
};

} // namespace

class tst_ChildRowState : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { EventSender::parkPointer(); }
    void cleanup() { qApp->setStyleSheet(QString()); }
    void rowComesBackAsItWas_data();
    void rowComesBackAsItWas();
    void historyStaysShortThroughRounds_data();
    void historyStaysShortThroughRounds();
    void newSheetFitsTheFullNamesAfresh_data();
    void newSheetFitsTheFullNamesAfresh();
    void rowsGetTheirHeightBackWhenANewSheetStopsSizingThem_data();
    void rowsGetTheirHeightBackWhenANewSheetStopsSizingThem();
};

void tst_ChildRowState::rowComesBackAsItWas_data()
{
    QTest::addColumn<QString>("steps");
    // Whether, made again without its look history, some row would come
    // back with other fonts.
    QTest::addColumn<bool>("pastShows");
    // The last row of a batch is selected when its lines are polished.
    QTest::newRow("selected when polished") << "open" << false;
    QTest::newRow("selected when polished, then not") << "open;select 0" << true;
    QTest::newRow("selected when polished, renamed long, then not") << "open;long 2;select 0" << true;
    QTest::newRow("a lower line first shown while selected") << "select 0;open;long 0;select 1" << true;
    QTest::newRow("keyboard focus after the polish") << "focus 1;open" << false;
    QTest::newRow("keyboard focus, then away") << "focus 1;open;focus 0" << false;
}

void tst_ChildRowState::rowComesBackAsItWas()
{
    QFETCH(QString, steps);
    QFETCH(bool, pastShows);
    OneGroup group;
    QVERIFY(group.show());
    SignalTreeList *list = group.list;
    const NodeFactory &nodes = group.nodes;
    DrawerControl *drawer = group.drawer();
    drawer->buildRows();
    for (const QString &step : steps.split(QLatin1Char(';'))) {
        const QString verb = step.section(QLatin1Char(' '), 0, 0);
        const int row = step.section(QLatin1Char(' '), 1, 1).toInt();
        if (verb == QLatin1String("open")) {
            list->setIsShowChildItem(0, true);
        } else if (verb == QLatin1String("select")) {
            list->setCurSelItem(QList<int>{0, row});
        } else if (verb == QLatin1String("long")) {
            st_NodeInfoSignal node = nodes.node({QString(60, QLatin1Char('W')), QString(50, QLatin1Char('m'))});
            list->modifyItemData(QList<int>{0, row}, node);
        } else if (verb == QLatin1String("focus")) {
            // The keyboard's focus look, as the keyboard gives it.
            QWidget *item = drawer->secondItems().at(row);
            for (SecondItem *other : drawer->secondItems()) {
                if (other->property("isKeyFocus").toBool()) {
                    other->setProperty("isKeyFocus", false);
                    other->style()->unpolish(other);
                    other->style()->polish(other);
                }
            }
            item->setProperty("isKeyFocus", true);
            item->style()->unpolish(item);
            item->style()->polish(item);
        }
        settle();
    }

    LayoutCheck check(list);
    const QStringList differences = check.roundTripDifferences();
    QVERIFY2(differences.isEmpty(), qPrintable(differences.join(QLatin1Char('\n'))));

    if (!pastShows)
        return;
    // Without its past, at least one row would not come back the same.
    bool differs = false;
    for (SecondItem *row : drawer->secondItems()) {
        ChildRowState state = row->state();
        state.history = LookHistory();
        SecondItem copy(drawer->childContainer());
        copy.initItem(state.rootIndex, state.childIndex);
        copy.setVisible(false);
        copy.restoreState(state);
        copy.ensurePolished();
        for (const char *line : {"m_qlUpper", "m_qlDown"}) {
            const auto *was = row->findChild<QLabel *>(QLatin1String(line));
            const auto *is = copy.findChild<QLabel *>(QLatin1String(line));
            if (was->font().toString() != is->font().toString())
                differs = true;
        }
    }
    QVERIFY2(differs, "no row's fonts depend on its past here");
}

void tst_ChildRowState::historyStaysShortThroughRounds_data()
{
    QTest::addColumn<QStringList>("round");
    QTest::newRow("hovered, again and again") << QStringList{"hover 1"};
    QTest::newRow("selected and not, again and again") << QStringList{"select 1", "select 0"};
    QTest::newRow("hovered while selected and while not")
        << QStringList{"select 1", "hover 1", "select 2", "hover 1", "hover 2"};
}

// What a row keeps of its past grows with its looks, not with how often the
// pointer and the selection came by; and a row made again from it still has
// the fonts the row has.
void tst_ChildRowState::historyStaysShortThroughRounds()
{
    QFETCH(QStringList, round);
    OneGroup group;
    SignalTreeList *list = group.list;
    list->setIsShowChildItem(0, true);
    QVERIFY(group.show());
    DrawerControl *drawer = group.drawer();
    const auto longest = [drawer] {
        int n = 0;
        for (SecondItem *row : drawer->secondItems())
            n = qMax(n, int(row->lookHistory().events().size()));
        return n;
    };
    int afterFew = 0;
    for (int i = 0; i < 200; ++i) {
        for (const QString &step : round) {
            const int row = step.section(QLatin1Char(' '), 1, 1).toInt();
            if (step.startsWith(QLatin1String("hover"))) {
                EventSender::sendEnter(drawer->secondItems().at(row));
                EventSender::sendLeave(drawer->secondItems().at(row));
            } else {
                list->setCurSelItem(QList<int>{0, row});
            }
        }
        if (i == 3)
            afterFew = longest();
    }
    settle();
    QCOMPARE(longest(), afterFew);
    QVERIFY(afterFew < 40);
    LayoutCheck check(list);
    const QStringList differences = check.roundTripDifferences();
    QVERIFY2(differences.isEmpty(), qPrintable(differences.join(QLatin1Char('\n'))));
}

void tst_ChildRowState::newSheetFitsTheFullNamesAfresh_data()
{
    QTest::addColumn<int>("before"); // font sizes of the name lines, in pixels
    QTest::addColumn<int>("after");
    QTest::addColumn<bool>("onTheParent"); // the sheet on the row's parent, not the application
    QTest::newRow("larger, application") << 8 << 22 << false;
    QTest::newRow("smaller, application") << 22 << 8 << false;
    QTest::newRow("larger, parent") << 8 << 22 << true;
    QTest::newRow("smaller, parent") << 22 << 8 << true;
}

// Under the new sheet a row shows its names as a row given them under that
// sheet does: shortened where they no longer fit, whole again where they do,
// not as they were fitted to the fonts of before.
void tst_ChildRowState::newSheetFitsTheFullNamesAfresh()
{
    QFETCH(int, before);
    QFETCH(int, after);
    QFETCH(bool, onTheParent);
    const auto sheet = [](int px) { return QStringLiteral("SecondItem QLabel { font-size: %1px; }").arg(px); };
    const QStringList names{QStringLiteral("Board 12 input 4"), QStringLiteral("SDI")};
    QWidget window;
    window.resize(360, 120);
    auto *layout = new QVBoxLayout(&window);
    auto *row = new SecondItem(&window);
    row->initItem(0, 0);
    layout->addWidget(row);
    NodeFactory factory;
    row->setNodeInfo(factory.node(names, 1));
    const auto apply = [&](const QString &text) {
        if (onTheParent)
            window.setStyleSheet(text);
        else
            qApp->setStyleSheet(text);
    };
    apply(sheet(before));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    auto *upper = row->findChild<QLabel *>(QStringLiteral("m_qlUpper"));
    QVERIFY(upper);
    const QString fittedBefore = upper->text();

    apply(sheet(after));
    QCoreApplication::processEvents();
    // A row on screen under the new sheet, given the same names.
    auto *fresh = new SecondItem(&window);
    fresh->initItem(0, 1);
    layout->addWidget(fresh);
    QTRY_VERIFY(fresh->isVisible());
    fresh->setNodeInfo(factory.node(names, 1));
    auto *freshUpper = fresh->findChild<QLabel *>(QStringLiteral("m_qlUpper"));
    QCOMPARE(upper->font().pixelSize(), after);
    QCOMPARE(upper->text(), freshUpper->text());
    QCOMPARE(upper->minimumWidth(), freshUpper->minimumWidth());
    // The sizes were picked so that one look shortens the name and the other
    // shows it whole: the fit changed.
    QVERIFY(upper->text() != fittedBefore);
    QCOMPARE(upper->text().endsWith(QLatin1String("...")), after > before);
    qApp->setStyleSheet(QString());
}

void tst_ChildRowState::rowsGetTheirHeightBackWhenANewSheetStopsSizingThem_data()
{
    QTest::addColumn<bool>("root");
    QTest::newRow("child row") << false;
    QTest::newRow("root row") << true;
}

// A sheet sizes the selected look; the next sheet does not: the selected row
// is its own height again, as it is once it is no longer selected.
void tst_ChildRowState::rowsGetTheirHeightBackWhenANewSheetStopsSizingThem()
{
    QFETCH(bool, root);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    QWidget *row = nullptr;
    int height = 0;
    if (root) {
        auto *item = new RootItem(&window);
        item->initItem(0, 0);
        item->setSelected(true);
        row = item;
        height = RootItem::kRowHeight;
    } else {
        auto *item = new SecondItem(&window);
        item->initItem(0, 0);
        NodeFactory factory;
        item->setNodeInfo(factory.node(QStringList{QStringLiteral("HDMI 1"), QStringLiteral("SDI")}, 1));
        item->setPressed(true);
        row = item;
        height = SecondItem::kRowHeight;
    }
    layout->addWidget(row);
    layout->addStretch();
    qApp->setStyleSheet(QStringLiteral("RootItem[isRootItem=\"press\"], #SignalSecondItem[isSecondItem=\"press\"] "
                                       "{ min-height: 70px; max-height: 70px; }"));
    window.resize(320, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTRY_COMPARE(row->height(), 70);

    qApp->setStyleSheet(QStringLiteral("QLabel { font-size: 30px; }"));
    QCOMPARE(row->minimumHeight(), height);
    QCOMPARE(row->maximumHeight(), height);
    QTRY_COMPARE(row->height(), height);
    qApp->setStyleSheet(QString());
}

QTEST_MAIN(tst_ChildRowState)
#include "tst_childrowstate.moc"
