// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Keyboard use of the list through real key events on the focus widget: the
// tab order, the focus row and its look, moving (which never acts), and the
// keys that do what a click does.

#include "BuiltRows.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "AccessibleHost.h"
#include "HostRecorder.h"
#include "KeyboardNavigator.h"
#include "NodeFactory.h"
#include "PixelProbe.h"
#include "RootItem.h"
#include "RowClick.h"
#include "SecondItem.h"
#include "ShownRows.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"
#include "TreeText.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

namespace {

const NodeFactory kNodes;

// Remembers the keys that reached it: the keys the list does not use.
class KeyCatcher : public QWidget
{
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent *event) override { keys << event->key(); }
};

// A window: a line edit, the list (on its panel), another line edit. Three
// roots R0..R2 with three children each (every hover button flagged on R1
// and its rows, none elsewhere); root 0 expanded.
struct Host
{
    std::unique_ptr<KeyCatcher> window{new KeyCatcher};
    QLineEdit *before = new QLineEdit(window.get());
    QWidget *panel = new QWidget(window.get());
    QLineEdit *after = new QLineEdit(window.get());
    SignalTreeList *list = nullptr;

    TreeListFrame *frame() const { return qobject_cast<TreeListFrame *>(list->getSignalTreeListFrame()); }
    DrawerControl *drawer(int i) const { return frame()->drawers().value(i); }
    KeyboardNavigator *keys() const { return KeyboardNavigator::of(frame()); }
    QWidget *focusRow() const { return ShownRows::widget(keys()->focusRow()); }
    // Moves the keyboard focus to the row @p row shows.
    void focusOn(QWidget *row) const { keys()->setFocusRow(ShownRows::of(row)); }
};

std::unique_ptr<Host> makeHost(int roots = 3, int children = 3, QSize size = QSize(360, 600))
{
    auto host = std::make_unique<Host>();
    auto *layout = new QVBoxLayout(host->window.get());
    layout->addWidget(host->before);
    layout->addWidget(host->panel, 1);
    layout->addWidget(host->after);
    host->list = new SignalTreeList(host->panel);
    host->list->initControls();
    for (int i = 0; i < roots; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        st_NodeInfoSignal node = kNodes.node({name}, QStringLiteral("S%1").arg(i));
        node.showOpBtn = {i == 1, i == 1};
        QList<st_NodeInfoSignal> rows = kNodes.children(name, children, QStringLiteral("S%1").arg(i));
        for (st_NodeInfoSignal &row : rows)
            row.showOpBtn = {i == 1, i == 1, i == 1};
        host->list->addRootItem(node, rows);
    }
    host->list->setIsShowChildItem(0, true);
    host->window->resize(size);
    host->window->show();
    host->window->activateWindow();
    if (!QTest::qWaitForWindowActive(host->window.get()))
        return nullptr;
    return host;
}

// "R1" for a root row, "R1-2" for a child row, "" for none.
QString nameOf(QWidget *row)
{
    if (auto *root = qobject_cast<RootItem *>(row))
        return root->getNodeInfo().strNodeName.value(0);
    if (auto *child = qobject_cast<SecondItem *>(row))
        return child->getNodeInfo().strNodeName.value(0);
    return QString();
}

QWidget *rowNamed(Host *host, const QString &name)
{
    for (DrawerControl *d : host->frame()->drawers()) {
        if (nameOf(d->rootItem()) == name)
            return d->rootItem();
        for (SecondItem *row : builtRows(d)) {
            if (nameOf(row) == name)
                return row;
        }
    }
    return nullptr;
}

void press(int key)
{
    QWidget *target = QApplication::focusWidget();
    QVERIFY(target);
    QTest::keyClick(target, Qt::Key(key));
}

// Everything a host or a style sheet can see of the rows' selection.
QStringList selectionState(Host *host)
{
    QStringList out;
    for (DrawerControl *d : host->frame()->drawers()) {
        QStringList looks;
        looks << d->rootItem()->property("isRootItem").toString();
        for (SecondItem *row : builtRows(d))
            looks << row->property("isSecondItem").toString();
        QStringList path;
        for (int v : d->selIndex())
            path << QString::number(v);
        out << QStringLiteral("%1 sel [%2] rootSel %3 shown %4 looks %5")
                   .arg(nameOf(d->rootItem()), path.join(QLatin1Char(',')))
                   .arg(d->getIsRootSel())
                   .arg(d->isShowChild())
                   .arg(looks.join(QLatin1Char(' ')));
    }
    return out;
}


void fill(Host *host, int roots = 3, int children = 3)
{
    for (int i = 0; i < roots; ++i) {
        const QString name = QStringLiteral("R%1").arg(i);
        st_NodeInfoSignal node = kNodes.node({name}, QStringLiteral("S%1").arg(i));
        host->list->addRootItem(node, kNodes.children(name, children, QStringLiteral("S%1").arg(i)));
    }
    host->list->setIsShowChildItem(0, true);
}

// What the event loop does next: queued calls, then deferred deletions.
void settle()
{
    QCoreApplication::processEvents();
    EventSender::flushDeferredDeletes();
    QCoreApplication::processEvents();
}

// Runs a host and user script, one step a string, letting the event loop
// run after each step as it would between two user actions:
//   "click R0-1"  a click on a row        "key Down"      a key on the focus widget
//   "leave"       focus to the line edit   "tab"           Tab from that line edit into the list
//   "select 0,2"  setCurSelItem           "show 2", "hide 2"  setIsShowChildItem
//   "delete 0,1"  deleteChildeItem        "deleteRoot 0"  deleteRootItem
//   "clear"       clearTree               "fill"          three roots of three rows, root 0 open
void run(Host *host, const QStringList &steps)
{
    static const QMap<QString, int> keys{{"Down", Qt::Key_Down}, {"Up", Qt::Key_Up},       {"End", Qt::Key_End},
                                         {"Home", Qt::Key_Home}, {"Space", Qt::Key_Space}, {"Right", Qt::Key_Right}};
    for (const QString &step : steps) {
        const QString verb = step.section(QLatin1Char(' '), 0, 0);
        const QString arg = step.section(QLatin1Char(' '), 1);
        if (verb == QLatin1String("click")) {
            QWidget *row = rowNamed(host, arg);
            QVERIFY2(row, qPrintable(step));
            RowClick::click(row);
        } else if (verb == QLatin1String("key")) {
            QVERIFY2(keys.contains(arg), qPrintable(step));
            press(keys.value(arg));
        } else if (verb == QLatin1String("leave")) {
            host->before->setFocus(Qt::TabFocusReason);
        } else if (verb == QLatin1String("tab")) {
            host->before->setFocus(Qt::TabFocusReason);
            QTest::keyClick(host->before, Qt::Key_Tab);
        } else if (verb == QLatin1String("select")) {
            host->list->setCurSelItem(TreeText::pathFromText(arg));
        } else if (verb == QLatin1String("show") || verb == QLatin1String("hide")) {
            host->list->setIsShowChildItem(arg.toInt(), verb == QLatin1String("show"));
        } else if (verb == QLatin1String("delete")) {
            host->list->deleteChildeItem(TreeText::pathFromText(arg));
        } else if (verb == QLatin1String("deleteRoot")) {
            host->list->deleteRootItem(arg.toInt());
        } else if (verb == QLatin1String("clear")) {
            host->list->clearTree();
        } else if (verb == QLatin1String("fill")) {
            fill(host);
        } else {
            QFAIL(qPrintable(QStringLiteral("unknown step ") + step));
        }
        settle();
    }
}

// The rows, built or not, that publish the focus look.
QStringList rowsWithFocusLook(Host *host)
{
    QStringList names;
    for (DrawerControl *d : host->frame()->drawers()) {
        if (d->rootItem()->property("isKeyFocus").toBool())
            names << nameOf(d->rootItem());
        for (SecondItem *row : builtRows(d)) {
            if (row->property("isKeyFocus").toBool())
                names << nameOf(row);
        }
    }
    return names;
}

} // namespace

class tst_KeyboardNavigator : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void listIsOneTabStop();
    void focusFollowsTheRules_data();
    void focusFollowsTheRules();
    void nextKeyActsFromTheHandedOnRow();
    void clickGivesFocusToThatRow();
    void focusLook();
    void movingNeverActs_data();
    void movingNeverActs();
    void focusRowIsScrolledIntoView();
    void spaceAndEnterActAsAClick_data();
    void spaceAndEnterActAsAClick();
    void rightAndLeftExpandCollapseAndMove();
    void plusAndMinusExpandAndCollapse();
    void buttonKeysPressTheFlaggedButtons_data();
    void buttonKeysPressTheFlaggedButtons();
    void unusedKeysGoToTheParent();
    void hostMayDeleteTheListFromAKey();
    void hostReactionsKeepTheFocusConsistent_data();
    void hostReactionsKeepTheFocusConsistent();
};

void tst_KeyboardNavigator::initTestCase()
{
    EventSender::parkPointer();
    qRegisterMetaType<QList<int>>();
}

void tst_KeyboardNavigator::listIsOneTabStop()
{
    auto host = makeHost();
    QVERIFY(host);
    host->before->setFocus(Qt::TabFocusReason);
    QVERIFY(host->before->hasFocus());

    press(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(host->frame()));
    // Nothing selected yet: the first row.
    QCOMPARE(nameOf(host->focusRow()), QStringLiteral("R0"));

    press(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(host->after));
    press(Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(host->frame()));
    press(Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(host->before));

    // Focus given to the list goes to its frame.
    host->list->setFocus();
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(host->frame()));
}

void tst_KeyboardNavigator::focusFollowsTheRules_data()
{
    QTest::addColumn<int>("roots");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("focus");

    // Tab lands on the more recent of the last focus row and the last
    // selection, if shown; else on the last selection (its group's row while
    // the group is closed); else on the first row. Root 0 starts open.
    QTest::newRow("Tab, nothing selected") << 3 << QStringList{"tab"} << "R0";
    QTest::newRow("Tab after setCurSelItem [0,2]") << 3 << QStringList{"select 0,2", "tab"} << "R0-2";
    QTest::newRow("Tab after setCurSelItem [2]") << 3 << QStringList{"select 2", "tab"} << "R2";
    QTest::newRow("Tab after setCurSelItem [2,1], open group")
        << 3 << QStringList{"show 2", "select 2,1", "tab"} << "R2-1";
    QTest::newRow("Tab after setCurSelItem [2,1], group opened later")
        << 3 << QStringList{"select 2,1", "show 2", "tab"} << "R2-1";
    QTest::newRow("Tab after setCurSelItem [2,1], closed group") << 3 << QStringList{"select 2,1", "tab"} << "R2";
    QTest::newRow("Tab after setCurSelItem of a row that does not exist") << 3 << QStringList{"select 1,9", "tab"} << "R0";
    QTest::newRow("click, setCurSelItem, leave, Tab")
        << 3 << QStringList{"click R0-1", "select 0,2", "leave", "tab"} << "R0-2";
    QTest::newRow("click, leave, setCurSelItem, Tab")
        << 3 << QStringList{"click R0-1", "leave", "select 2", "tab"} << "R2";
    QTest::newRow("click, setCurSelItem, a key, leave, Tab")
        << 3 << QStringList{"click R0-1", "select 0,2", "key Up", "leave", "tab"} << "R0-0";
    QTest::newRow("keys, leave, Tab") << 3 << QStringList{"tab", "key Down", "key Down", "leave", "tab"} << "R0-1";
    QTest::newRow("click, keys, leave, Tab")
        << 3 << QStringList{"click R0-2", "key Home", "leave", "tab"} << "R0";
    QTest::newRow("focus row deleted while away: the selection")
        << 3 << QStringList{"click R0-2", "key Up", "leave", "delete 0,1", "tab"} << "R0-2";
    QTest::newRow("focus row deleted while away, selection in another group")
        << 3 << QStringList{"show 1", "click R1-0", "click R0-0", "key Down", "leave", "delete 0,1", "tab"} << "R0-0";
    QTest::newRow("focus row hidden while away: the selection")
        << 3 << QStringList{"select 1", "tab", "key Down", "key Down", "leave", "hide 1", "tab"} << "R1";

    // The focus row removed or hidden while the list has the focus: the
    // next row of its group, else the previous, else the group's root row,
    // else the nearest root row.
    QTest::newRow("focus row deleted") << 3 << QStringList{"tab", "key Down", "key Down", "delete 0,1"} << "R0-2";
    QTest::newRow("last row deleted") << 3 << QStringList{"tab", "key Right", "key End", "key Up", "key Up", "delete 0,2"}
                                      << "R0-1";
    QTest::newRow("every row deleted")
        << 3 << QStringList{"tab", "key Down", "delete 0,2", "delete 0,1", "delete 0,0"} << "R0";
    QTest::newRow("group deleted") << 3 << QStringList{"tab", "key Down", "deleteRoot 0"} << "R1";
    QTest::newRow("group deleted by path [0]") << 3 << QStringList{"tab", "key Down", "delete 0"} << "R1";
    QTest::newRow("last group deleted") << 3 << QStringList{"tab", "key End", "deleteRoot 2"} << "R1";
    QTest::newRow("group collapsed") << 3 << QStringList{"tab", "key Down", "key Down", "hide 0"} << "R0";
    QTest::newRow("group collapsed by setCurSelItem") << 3 << QStringList{"tab", "key Down", "select 2"} << "R0";
    QTest::newRow("list cleared") << 3 << QStringList{"tab", "key Down", "clear"} << "";

    // No row had the focus: the first key only puts it on a row.
    QTest::newRow("empty list, fill, Down") << 0 << QStringList{"tab", "fill", "key Down"} << "R0";
    QTest::newRow("list cleared, fill, Down") << 3 << QStringList{"tab", "key Down", "clear", "fill", "key Down"} << "R0";
    QTest::newRow("empty list, fill, End") << 0 << QStringList{"tab", "fill", "key End"} << "R2";
    QTest::newRow("empty list, fill, Down, Down") << 0 << QStringList{"tab", "fill", "key Down", "key Down"} << "R0-0";
}

// Where the keyboard focus is after each script, through real events, and
// that it shows: the focus row alone has the focus look, and assistive
// technology finds it as the tree's focus child.
void tst_KeyboardNavigator::focusFollowsTheRules()
{
    QFETCH(int, roots);
    QFETCH(QStringList, steps);
    QFETCH(QString, focus);

    auto host = makeHost(roots);
    QVERIFY(host);
    run(host.get(), steps);
    if (QTest::currentTestFailed())
        return;

    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(host->frame()));
    QCOMPARE(nameOf(host->focusRow()), focus);
    QCOMPARE(rowsWithFocusLook(host.get()), focus.isEmpty() ? QStringList() : QStringList{focus});
    QAccessibleInterface *tree = QAccessible::queryAccessibleInterface(host->frame());
    QAccessibleInterface *child = tree->focusChild();
    QCOMPARE(child ? child->text(QAccessible::Name) : QString(), focus);
}

// After the focus row was hidden the next key acts from where the focus
// went, not from the top.
void tst_KeyboardNavigator::nextKeyActsFromTheHandedOnRow()
{
    auto host = makeHost();
    QVERIFY(host);
    run(host.get(), {"show 2", "tab", "key End", "key Up", "hide 2", "key Space"});
    QCOMPARE(nameOf(host->focusRow()), QStringLiteral("R2"));
    QCOMPARE(host->drawer(2)->selIndex(), QList<int>{2});
    QVERIFY(host->drawer(0)->selIndex() != QList<int>{0});
}

void tst_KeyboardNavigator::clickGivesFocusToThatRow()
{
    auto host = makeHost();
    QVERIFY(host);
    host->before->setFocus();
    QWidget *child = rowNamed(host.get(), QStringLiteral("R0-1"));
    QTest::mouseClick(child, Qt::LeftButton, Qt::NoModifier, QPoint(5, child->height() / 2));
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(host->frame()));
    QCOMPARE(host->focusRow(), child);

    // A root row's expand box too: the focus goes to that root row.
    QCheckBox *box = qobject_cast<RootItem *>(rowNamed(host.get(), QStringLiteral("R2")))->expandBox();
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, box->rect().center());
    QCOMPARE(nameOf(host->focusRow()), QStringLiteral("R2"));
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(host->frame()));
}

void tst_KeyboardNavigator::focusLook()
{
    auto host = makeHost();
    QVERIFY(host);
    const QString sheet = QStringLiteral("#SignalSecondItem[isKeyFocus=\"true\"] { background: rgb(0, 200, 0); }"
                                         "#SignalSecondItem { background: rgb(0, 0, 200); }");
    qApp->setStyleSheet(sheet);
    host->frame()->setFocus(Qt::TabFocusReason);
    QWidget *first = rowNamed(host.get(), QStringLiteral("R0-0"));
    QWidget *second = rowNamed(host.get(), QStringLiteral("R0-1"));
    const PixelProbe probeFirst(first, QPoint(2, 2));
    const PixelProbe probeSecond(second, QPoint(2, 2));

    press(Qt::Key_Down); // R0-0
    QCOMPARE(first->property("isKeyFocus").toBool(), true);
    QCOMPARE(probeFirst.colour(), QColor(0, 200, 0));
    QCOMPARE(probeSecond.colour(), QColor(0, 0, 200));

    press(Qt::Key_Down); // R0-1
    QCOMPARE(first->property("isKeyFocus").toBool(), false);
    QCOMPARE(second->property("isKeyFocus").toBool(), true);
    QCOMPARE(probeFirst.colour(), QColor(0, 0, 200));
    QCOMPARE(probeSecond.colour(), QColor(0, 200, 0));

    // Only while the list has the focus.
    host->after->setFocus(Qt::TabFocusReason);
    QCOMPARE(second->property("isKeyFocus").toBool(), false);
    QCOMPARE(probeSecond.colour(), QColor(0, 0, 200));
    host->frame()->setFocus(Qt::BacktabFocusReason);
    QCOMPARE(second->property("isKeyFocus").toBool(), true);
    qApp->setStyleSheet(QString());
}

void tst_KeyboardNavigator::movingNeverActs_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<QString>("lands");

    // Visible rows: R0, R0-0, R0-1, R0-2, R1, R2.
    QTest::newRow("Down") << QList<int>{Qt::Key_Down} << "R0-0";
    QTest::newRow("Down x4") << QList<int>{Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down} << "R1";
    QTest::newRow("Down past the end") << QList<int>{Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down} << "R2";
    QTest::newRow("Up at the top") << QList<int>{Qt::Key_Up} << "R0";
    QTest::newRow("End") << QList<int>{Qt::Key_End} << "R2";
    QTest::newRow("End, Up") << QList<int>{Qt::Key_End, Qt::Key_Up} << "R1";
    QTest::newRow("End, Home") << QList<int>{Qt::Key_End, Qt::Key_Home} << "R0";
    QTest::newRow("Page Down") << QList<int>{Qt::Key_PageDown} << "R2";
    QTest::newRow("End, Page Up") << QList<int>{Qt::Key_End, Qt::Key_PageUp} << "R0";
    QTest::newRow("Left on a collapsed root") << QList<int>{Qt::Key_End, Qt::Key_Left} << "R2";
    QTest::newRow("Left on a child") << QList<int>{Qt::Key_Down, Qt::Key_Down, Qt::Key_Left} << "R0";
    QTest::newRow("Right on an expanded root") << QList<int>{Qt::Key_Right} << "R0-0";
}

// Moving the focus selects nothing, changes no look but the focus look and
// tells the host nothing.
void tst_KeyboardNavigator::movingNeverActs()
{
    QFETCH(QList<int>, keys);
    QFETCH(QString, lands);

    auto host = makeHost();
    QVERIFY(host);
    host->frame()->setFocus(Qt::TabFocusReason);
    HostRecorder recorder(host->list);
    QSignalSpy clicked(host->list, &SignalTreeList::signal_OnCurrentItemClicked);
    const QStringList before = selectionState(host.get());

    for (int key : keys)
        press(key);

    QCOMPARE(nameOf(host->focusRow()), lands);
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(recorder.events, QStringList());
    QCOMPARE(selectionState(host.get()), before);
}

void tst_KeyboardNavigator::focusRowIsScrolledIntoView()
{
    auto host = makeHost(12, 3, QSize(360, 260));
    QVERIFY(host);
    for (int i = 0; i < 12; ++i)
        host->list->setIsShowChildItem(i, true);
    host->frame()->setFocus(Qt::TabFocusReason);
    QScrollArea *area = host->frame()->findChild<QScrollArea *>();
    QVERIFY(area);
    QTest::qWait(20);

    const auto inView = [&](QWidget *row) {
        const QRect r(row->mapTo(area->viewport(), QPoint(0, 0)), row->size());
        return area->viewport()->rect().contains(r);
    };
    press(Qt::Key_End);
    QWidget *last = host->focusRow();
    QCOMPARE(nameOf(last), QStringLiteral("R11-2"));
    QVERIFY(inView(last));
    QVERIFY(area->verticalScrollBar()->value() > 0);

    press(Qt::Key_PageUp);
    QWidget *paged = host->focusRow();
    QVERIFY(paged != last);
    QVERIFY(inView(paged));
    press(Qt::Key_Home);
    QVERIFY(inView(host->focusRow()));
    QCOMPARE(area->verticalScrollBar()->value(), 0);
}

void tst_KeyboardNavigator::spaceAndEnterActAsAClick_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("row");
    for (int key : {int(Qt::Key_Space), int(Qt::Key_Return), int(Qt::Key_Enter)}) {
        const QByteArray name = QKeySequence(key).toString().toLatin1();
        QTest::addRow("%s on a child row", name.constData()) << key << "R0-2";
        QTest::addRow("%s on a root row", name.constData()) << key << "R1";
    }
}

// The key leaves the list as a mouse click on the same row of a second,
// identical list leaves it, and tells the host the same.
void tst_KeyboardNavigator::spaceAndEnterActAsAClick()
{
    QFETCH(int, key);
    QFETCH(QString, row);

    auto byKey = makeHost();
    auto byMouse = makeHost();
    QVERIFY(byKey && byMouse);
    HostRecorder keyEvents(byKey->list);
    HostRecorder mouseEvents(byMouse->list);
    byKey->window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(byKey->window.get()));

    byKey->frame()->setFocus(Qt::TabFocusReason);
    byKey->focusOn(rowNamed(byKey.get(), row));
    press(key);
    QWidget *clicked = rowNamed(byMouse.get(), row);
    QTest::mouseClick(clicked, Qt::LeftButton, Qt::NoModifier, QPoint(clicked->width() - 40, 3));

    QCOMPARE(selectionState(byKey.get()), selectionState(byMouse.get()));
    QCOMPARE(keyEvents.events, mouseEvents.events);
    if (row.contains(QLatin1Char('-')))
        QCOMPARE(keyEvents.events, QStringList{QStringLiteral("CurrentItemClicked(0,2)")});
    else
        QCOMPARE(keyEvents.events, QStringList());
}

void tst_KeyboardNavigator::rightAndLeftExpandCollapseAndMove()
{
    auto host = makeHost();
    QVERIFY(host);
    host->frame()->setFocus(Qt::TabFocusReason);
    DrawerControl *drawer = host->drawer(1);
    RootItem *root = drawer->rootItem();
    host->focusOn(root);
    QSignalSpy shown(root, &RootItem::signal_OnIsShowChildItems);
    HostRecorder recorder(host->list);

    press(Qt::Key_Right); // expands, as the expand box does
    QVERIFY(drawer->isShowChild());
    QVERIFY(!drawer->childContainer()->isHidden());
    QVERIFY(root->expandBox()->isChecked());
    QCOMPARE(root->property("isRootItem").toString(), QStringLiteral("press"));
    QCOMPARE(shown.count(), 1);
    QCOMPARE(shown.at(0).at(0).toBool(), true);
    QCOMPARE(host->focusRow(), root);

    press(Qt::Key_Right); // to the first child
    QCOMPARE(nameOf(host->focusRow()), QStringLiteral("R1-0"));
    press(Qt::Key_Down);
    press(Qt::Key_Left); // back to the root
    QCOMPARE(host->focusRow(), root);

    press(Qt::Key_Left); // collapses
    QVERIFY(!drawer->isShowChild());
    QVERIFY(drawer->childContainer()->isHidden());
    QVERIFY(!root->expandBox()->isChecked());
    QCOMPARE(shown.count(), 2);
    QCOMPARE(shown.at(1).at(0).toBool(), false);
    QCOMPARE(recorder.events, QStringList());
}

void tst_KeyboardNavigator::plusAndMinusExpandAndCollapse()
{
    auto host = makeHost();
    QVERIFY(host);
    host->frame()->setFocus(Qt::TabFocusReason);
    DrawerControl *drawer = host->drawer(2);
    host->focusOn(drawer->rootItem());
    press(Qt::Key_Plus);
    QVERIFY(drawer->isShowChild());
    press(Qt::Key_Plus); // + never moves
    QCOMPARE(host->focusRow(), static_cast<QWidget *>(drawer->rootItem()));
    press(Qt::Key_Minus);
    QVERIFY(!drawer->isShowChild());
}

void tst_KeyboardNavigator::buttonKeysPressTheFlaggedButtons_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QStringList>("events");

    // R1 and its rows have both buttons flagged; R0 and its rows none.
    QTest::newRow("F2 on a flagged child") << int(Qt::Key_F2) << "R1-1"
                                           << QStringList{"CurrentItemClicked(1,1)", "EditBtnClicked(1,1)"};
    QTest::newRow("Delete on a flagged child")
        << int(Qt::Key_Delete) << "R1-1" << QStringList{"CurrentItemClicked(1,1)", "DeleteBtnClicked(1,1)"};
    // A root's buttons report its drawer's selection, here the root itself.
    QTest::newRow("F2 on a flagged root") << int(Qt::Key_F2) << "R1" << QStringList{"EditBtnClicked(1)"};
    QTest::newRow("Delete on a flagged root") << int(Qt::Key_Delete) << "R1" << QStringList{"DeleteBtnClicked(1)"};
    QTest::newRow("F2 on an unflagged child") << int(Qt::Key_F2) << "R0-1" << QStringList();
    QTest::newRow("Delete on an unflagged root") << int(Qt::Key_Delete) << "R0" << QStringList();
}

void tst_KeyboardNavigator::buttonKeysPressTheFlaggedButtons()
{
    QFETCH(int, key);
    QFETCH(QString, row);
    QFETCH(QStringList, events);

    auto host = makeHost();
    QVERIFY(host);
    host->list->setIsShowChildItem(1, true);
    QWidget *target = rowNamed(host.get(), row);
    if (qobject_cast<RootItem *>(target))
        QTest::mouseClick(target, Qt::LeftButton, Qt::NoModifier, QPoint(target->width() - 80, 3));
    host->frame()->setFocus(Qt::TabFocusReason);
    host->focusOn(target);
    HostRecorder recorder(host->list);

    press(key);
    QCOMPARE(recorder.events, events);
    // Nothing is deleted by the list; an unused key goes on to the parent.
    QVERIFY(rowNamed(host.get(), row));
    QCOMPARE(host->window->keys, events.isEmpty() ? QList<int>{key} : QList<int>());
}

void tst_KeyboardNavigator::unusedKeysGoToTheParent()
{
    auto host = makeHost();
    QVERIFY(host);
    host->frame()->setFocus(Qt::TabFocusReason);
    press(Qt::Key_A);
    press(Qt::Key_Escape);
    QCOMPARE(host->window->keys, (QList<int>{Qt::Key_A, Qt::Key_Escape}));
}

// A host that deletes the list from the click that Space makes.
void tst_KeyboardNavigator::hostMayDeleteTheListFromAKey()
{
    auto host = makeHost();
    QVERIFY(host);
    QPointer<SignalTreeList> list = host->list;
    QPointer<QFrame> frame = host->frame();
    connect(list, &SignalTreeList::signal_OnCurrentItemClicked, list, [&] { delete list.data(); });
    host->frame()->setFocus(Qt::TabFocusReason);
    host->focusOn(rowNamed(host.get(), QStringLiteral("R0-1")));
    press(Qt::Key_Space);
    QVERIFY(list.isNull());
    QTRY_VERIFY(frame.isNull());
}

void tst_KeyboardNavigator::hostReactionsKeepTheFocusConsistent_data()
{
    QTest::addColumn<QString>("trigger");
    QTest::addColumn<QString>("reaction");
    for (const char *trigger : {"Space", "F2", "setCurSelItem"}) {
        for (const char *reaction : {"delete the row", "delete the group", "collapse", "clear", "delete the list"})
            QTest::addRow("%s, host: %s", trigger, reaction) << trigger << reaction;
    }
}

// The host answers the signal a key or its own call raises by removing or
// hiding the focus row, or the whole list: nothing breaks, and once the
// event loop has run the focus is on a shown row with the focus look.
void tst_KeyboardNavigator::hostReactionsKeepTheFocusConsistent()
{
    QFETCH(QString, trigger);
    QFETCH(QString, reaction);

    auto host = makeHost();
    QVERIFY(host);
    QPointer<SignalTreeList> list = host->list;
    host->list->setIsShowChildItem(1, true);
    const auto react = [&list, reaction](const QList<int> &path) {
        if (!list || path.size() != 2)
            return;
        if (reaction == QLatin1String("delete the row"))
            list->deleteChildeItem(path);
        else if (reaction == QLatin1String("delete the group"))
            list->deleteRootItem(path.first());
        else if (reaction == QLatin1String("collapse"))
            list->setIsShowChildItem(path.first(), false);
        else if (reaction == QLatin1String("clear"))
            list->clearTree();
        else
            delete list.data();
    };
    connect(list, &SignalTreeList::signal_OnEditBtnClicked, list, react);
    connect(list, &SignalTreeList::signal_OnCurrentItemClicked, list, [&](const QList<int> &path) {
        if (trigger != QLatin1String("F2"))
            react(path);
    });
    host->frame()->setFocus(Qt::TabFocusReason);
    host->focusOn(rowNamed(host.get(), QStringLiteral("R1-1")));
    settle();

    if (trigger == QLatin1String("Space"))
        press(Qt::Key_Space);
    else if (trigger == QLatin1String("F2"))
        press(Qt::Key_F2);
    else
        host->list->setCurSelItem(QList<int>{1, 1});
    settle();

    if (!list)
        return; // deleted from its own signal, and freed
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(host->frame()));
    QWidget *row = host->focusRow();
    const QString name = nameOf(row);
    QCOMPARE(rowsWithFocusLook(host.get()), row ? QStringList{name} : QStringList());
    if (reaction == QLatin1String("clear"))
        QVERIFY(!row);
    else
        QVERIFY2(row, qPrintable(reaction));
}

QTEST_MAIN(tst_KeyboardNavigator)
#include "tst_keyboardnavigator.moc"
