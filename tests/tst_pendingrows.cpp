// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// The child rows of a never-expanded drawer wait as records (PendingRows)
// and are built on the first expansion. Each script of calls runs on such a
// drawer and on one that builds its rows at once (the switch only this test
// uses); while collapsed both must answer and signal alike, and once
// expanded both must hold the same widgets, properties, geometry and layout
// and behave alike.

#include "DrawerControl.h"
#include "EventSender.h"
#include "RootItem.h"
#include "NodeFactory.h"
#include "PendingRows.h"
#include "SecondItem.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLayout>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

namespace {

// A selected row's upper line is larger, its lower line smaller; every row's
// lower line is bold (the first fit of a record reads it).
const char *const kStateRules = R"(
SecondItem QLabel { font-size: 10px; }
QLabel#m_qlDown { font-weight: bold; }
#SignalSecondItem[isSecondItem="press"] QLabel#m_qlUpper { font-size: 14px; }
#SignalSecondItem[isSecondItem="press"] QLabel#m_qlDown { font-size: 8px; }
)";

// Every signal of a drawer, in order, as text.
class DrawerSignals : public QObject
{
public:
    explicit DrawerSignals(DrawerControl *drawer)
    {
        const auto path = [this](const char *name) {
            return [this, name](QList<int> p) {
                QStringList parts;
                for (int i : p)
                    parts << QString::number(i);
                events << QStringLiteral("%1(%2)").arg(QLatin1String(name), parts.join(u','));
            };
        };
        connect(drawer, &DrawerControl::signal_OnCurrentItemClicked, this, path("clicked"));
        connect(drawer, &DrawerControl::signal_OnEditBtnClicked, this, path("edit"));
        connect(drawer, &DrawerControl::signal_OnDeleteBtnClicked, this, path("delete"));
        connect(drawer, &DrawerControl::signal_OnCaptureBtnClicked, this, path("capture"));
        connect(drawer, &DrawerControl::signal_OnItemsIsDraged, this,
                [this](QList<int>, QList<int>) { events << QStringLiteral("dragged"); });
    }
    QStringList events;
};

// A drawer in a window of its own, shown; built deferred or at once.
struct Subject
{
    std::unique_ptr<QWidget> window;
    DrawerControl *drawer = nullptr;
    std::unique_ptr<DrawerSignals> signalLog;

    static Subject make(bool defer, int itemType, const st_NodeInfoSignal &root, bool show = true)
    {
        Subject s;
        s.window.reset(new QWidget);
        s.window->resize(360, 900);
        auto *layout = new QVBoxLayout(s.window.get());
        DrawerControl::setDeferRows(defer);
        s.drawer = new DrawerControl(s.window.get());
        DrawerControl::setDeferRows(true);
        s.drawer->initRootItem(itemType, 3);
        s.drawer->modifyRootItemData(root);
        layout->addWidget(s.drawer);
        layout->addStretch();
        s.signalLog.reset(new DrawerSignals(s.drawer));
        if (show)
            s.window->show();
        return s;
    }
};

QString recordText(const st_NodeInfoSignal &n)
{
    QStringList flags;
    for (bool b : n.showOpBtn)
        flags << QString::number(b);
    return QStringLiteral("%1|%2|%3|%4|%5|%6")
        .arg(n.strNodeName.join(u'/'), n.strSourceName)
        .arg(n.iType)
        .arg(n.isOnline)
        .arg(flags.join(u','))
        .arg(n.nNodeData1);
}

QString imageKey(const QLabel *label)
{
    const QPixmap picture = label->pixmap(Qt::ReturnByValue);
    if (picture.isNull())
        return QStringLiteral("no picture");
    const QImage image = picture.toImage();
    return QStringLiteral("%1x%2@%3 #%4")
        .arg(image.width())
        .arg(image.height())
        .arg(picture.devicePixelRatio())
        .arg(qHash(QByteArray(reinterpret_cast<const char *>(image.constBits()), int(image.sizeInBytes()))));
}

// One widget as a host or the user meets it.
QString widgetText(const QWidget *w, const QWidget *top)
{
    QStringList parts{QString::fromLatin1(w->metaObject()->className()), w->objectName()};
    // Geometry of what is shown: a hidden widget keeps whatever place it
    // last had, which depends on when Qt happened to lay it out.
    if (w->isVisibleTo(top)) {
        const QRect r(w->mapTo(top, QPoint(0, 0)), w->size());
        parts << QStringLiteral("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
    } else {
        parts << QStringLiteral("hidden");
    }
    for (const QByteArray &name : w->dynamicPropertyNames())
        parts << QString::fromLatin1(name) + QLatin1Char('=') + w->property(name).toString();
    parts << QStringLiteral("tip=") + w->toolTip() << QStringLiteral("a11y=") + w->accessibleName();
    if (const auto *label = qobject_cast<const QLabel *>(w))
        parts << QStringLiteral("text=") + label->text() << imageKey(label);
    return parts.join(QStringLiteral(" | "));
}

// The rows, their widget trees and the child layout, pointer-free.
QStringList dump(DrawerControl *drawer)
{
    QStringList lines;
    lines << widgetText(drawer, drawer->window()) << widgetText(drawer->childContainer(), drawer->window());
    const QList<SecondItem *> rows = drawer->secondItems();
    QLayout *layout = drawer->childLayout();
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (QWidget *w = item->widget())
            lines << QStringLiteral("layout: row %1").arg(rows.indexOf(static_cast<SecondItem *>(w)));
        else
            lines << QStringLiteral("layout: space %1").arg(item->sizeHint().height());
    }
    for (SecondItem *row : rows) {
        lines << QStringLiteral("row %1 %2").arg(row->getIndexText(), recordText(row->getNodeInfo()));
        lines << widgetText(row, drawer);
        for (QWidget *w : row->findChildren<QWidget *>())
            lines << QStringLiteral("  ") + widgetText(w, drawer);
    }
    return lines;
}

// What the drawer answers about its rows, without looking at widgets.
QStringList answers(DrawerControl *drawer, int rows)
{
    QStringList lines;
    for (int i = -1; i <= rows + 1; ++i) {
        st_NodeInfoSignal out;
        out.strNodeName = QStringList{QStringLiteral("untouched")};
        const int found = drawer->getSecondNodeInfo(i, out);
        lines << QStringLiteral("getSecondNodeInfo(%1) = %2 %3").arg(i).arg(found).arg(recordText(out));
    }
    QStringList records;
    for (const st_NodeInfoSignal &n : drawer->getSecondNodeInfos())
        records << recordText(n);
    lines << QStringLiteral("records ") + records.join(u';');
    QStringList sel;
    for (int i : drawer->selIndex())
        sel << QString::number(i);
    lines << QStringLiteral("selection %1, current %2, root selected %3, shown %4")
                 .arg(sel.join(u','))
                 .arg(drawer->curSecondIndex())
                 .arg(drawer->getIsRootSel())
                 .arg(drawer->isShowChild());
    // Hit tests over the drawer (drops and drag starts read them).
    const QPoint origin = drawer->mapToGlobal(QPoint(0, 0));
    for (const QPoint &p : {QPoint(0, 0), QPoint(5, 5), QPoint(11, 20), QPoint(60, 39), QPoint(109, 45),
                            QPoint(110, 10), QPoint(200, 20), QPoint(30, 70), QPoint(-1, -1)})
        lines << QStringLiteral("row at %1,%2: %3").arg(p.x()).arg(p.y()).arg(drawer->secondItemIndexAt(origin + p));
    return lines;
}

int countRows(DrawerControl *drawer)
{
    int n = 0;
    for (st_NodeInfoSignal out; drawer->getSecondNodeInfo(n, out) != 0;)
        ++n;
    return n;
}

st_NodeInfoSignal variant(const QString &kind, int serial)
{
    const NodeFactory nodes;
    st_NodeInfoSignal n = nodes.node({QStringLiteral("M%1").arg(serial), QStringLiteral("1920x1080")},
                                     QStringLiteral("src M%1").arg(serial), 2);
    if (kind == QLatin1String("long"))
        n.strNodeName = QStringList{QString(200, QLatin1Char('W')), QString(90, QLatin1Char('i'))};
    else if (kind == QLatin1String("offline"))
        n.isOnline = false;
    else if (kind == QLatin1String("buttons"))
        n.showOpBtn = {true, true, true, true};
    else if (kind == QLatin1String("nameless"))
        n.strNodeName.clear();
    else if (kind == QLatin1String("longdown"))
        n.strNodeName = QStringList{QStringLiteral("M%1").arg(serial), QString(60, QLatin1Char('W'))};
    else if (kind == QLatin1String("oneline"))
        n.strNodeName = QStringList{QStringLiteral("one")};
    else if (kind == QLatin1String("onelinelong"))
        n.strNodeName = QStringList{QString(60, QLatin1Char('W'))};
    return n;
}

// Runs one script line ("add 3", "press 2", ...) on @p drawer.
void apply(DrawerControl *drawer, const QString &line, int *made)
{
    const QStringList w = line.split(u' ', Qt::SkipEmptyParts);
    const QString op = w.value(0);
    const int a = w.value(1).toInt();
    const NodeFactory nodes;
    if (op == QLatin1String("add")) {
        QList<st_NodeInfoSignal> batch;
        for (int i = 0; i < a; ++i)
            batch << nodes.node({QStringLiteral("S%1").arg(*made + i), QStringLiteral("line %1").arg(i)},
                                QStringLiteral("source %1").arg(*made + i), 1 + (*made + i) % 19);
        *made += a;
        drawer->addSecondItems(batch);
    } else if (op == QLatin1String("single")) {
        drawer->addSecondItem(variant(QString(), *made), a, w.value(2).toInt());
        ++*made;
    } else if (op == QLatin1String("delete")) {
        drawer->deleteSecondItem(a);
    } else if (op == QLatin1String("modify")) {
        drawer->modifySecondItemData(a, variant(w.value(2), ++*made));
    } else if (op == QLatin1String("press")) {
        drawer->setCurSelSecondItem(a);
    } else if (op == QLatin1String("mark")) {
        drawer->markSelSecondItem(a);
    } else if (op == QLatin1String("lock")) {
        drawer->setIsLockSel(a != 0);
    } else if (op == QLatin1String("renumber")) {
        drawer->setRootIndex(a);
    } else if (op == QLatin1String("roottype")) {
        st_NodeInfoSignal root = drawer->getRootNodeInfo();
        root.iType = a;
        drawer->modifyRootItemData(root);
    } else if (op == QLatin1String("collapse")) {
        drawer->setIsShowChildItem(false);
    } else if (op == QLatin1String("rootclick")) {
        QTest::mouseClick(drawer->rootItem(), Qt::LeftButton);
    } else {
        QFAIL(qPrintable(QStringLiteral("unknown script line: ") + line));
    }
}

void settle()
{
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
}

} // namespace

class tst_PendingRows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        EventSender::parkPointer();
        qRegisterMetaType<QList<int>>();
    }
    void cleanup()
    {
        DrawerControl::setDeferRows(true);
        qApp->setStyleSheet(QString());
    }
    void sameAsBuiltAtOnce_data();
    void sameAsBuiltAtOnce();
    void collapsedGroupBuildsNoRowWidgets();
    void keptStateDoesNotGrowWithCalls_data();
    void keptStateDoesNotGrowWithCalls();
    void changingNamesBetweenSelectionsBuildsTheRows();
    void recordsFollowTheCalls();
};

void tst_PendingRows::sameAsBuiltAtOnce_data()
{
    QTest::addColumn<int>("itemType");
    QTest::addColumn<int>("rootType");
    QTest::addColumn<QString>("script");

    QTest::newRow("one batch") << 0 << 1 << "add 3";
    QTest::newRow("empty calls accumulate spacings") << 0 << 1 << "add 0; add 0; add 0";
    QTest::newRow("rows, then empty calls") << 0 << 1 << "add 3; add 0; add 0; add 0";
    QTest::newRow("two batches, half-cleared layout") << 0 << 1 << "add 5; add 5; add 0";
    QTest::newRow("empty first, then rows") << 0 << 1 << "add 0; add 2; add 4; add 0";
    QTest::newRow("select a row") << 0 << 1 << "add 4; press 2";
    QTest::newRow("select past the end and before the start") << 0 << 1 << "add 3; press 7; press -1";
    QTest::newRow("select, then add") << 0 << 1 << "add 3; press 0; add 2";
    QTest::newRow("modify a long text") << 0 << 1 << "add 4; modify 1 long";
    QTest::newRow("offline and buttons") << 0 << 1 << "add 3; modify 0 offline; modify 2 buttons";
    QTest::newRow("nameless record") << 0 << 1 << "add 2; modify 1 nameless";
    QTest::newRow("modify past the end") << 0 << 1 << "add 2; modify 2 offline; modify -1 offline";
    QTest::newRow("delete, keep old indices, renumber") << 0 << 1 << "add 5; delete 1; delete 3; renumber 7";
    QTest::newRow("delete past the end") << 0 << 1 << "add 2; delete 5; delete -1";
    QTest::newRow("delete everything, add again") << 0 << 1 << "add 2; delete 0; delete 0; add 3";
    QTest::newRow("locked selection") << 0 << 1 << "lock 1; add 3; mark 1; lock 0; add 2; mark 0";
    QTest::newRow("batch while locked") << 0 << 1 << "lock 1; add 3";
    QTest::newRow("one row while locked") << 0 << 1 << "add 2; lock 1; single 4 2";
    QTest::newRow("locked, selected, locked batch") << 0 << 1 << "lock 1; add 3; lock 0; press 1; lock 1; add 2";
    QTest::newRow("mark while collapsed") << 0 << 1 << "add 4; mark 2";
    QTest::newRow("one row added while collapsed") << 0 << 1 << "add 2; single 9 4";
    QTest::newRow("one row added to a new drawer") << 0 << 1 << "single 3 3; add 2";
    QTest::newRow("group rows, tool tips by the root type of the time") << 0 << 1
                                                                        << "add 2; roottype 0; add 2; modify 0 plain";
    QTest::newRow("plain source rows") << 1 << 0 << "add 3; modify 1 plain; roottype 1; modify 2 plain";
    QTest::newRow("root row clicked, then rows") << 0 << 1 << "rootclick; add 3; press 1";
    // How a row's name lines are elided depends on more than its last
    // record: a record's first fit reads the second line an earlier record
    // left, one-line records keep the second line, and under a sheet a
    // selected row fits with other fonts.
    QTest::newRow("a long second line, then a short record") << 0 << 1 << "add 3; modify 1 longdown; modify 1 plain";
    QTest::newRow("one-line names, one of them again")
        << 0 << 1 << "add 3; modify 1 longdown; modify 1 oneline; modify 1 onelinelong; modify 1 oneline";
    QTest::newRow("nameless records between names")
        << 0 << 1 << "add 3; modify 1 longdown; modify 1 nameless; modify 1 oneline; modify 1 nameless";
    QTest::newRow("sheet: one-line names between selections")
        << 0 << 1
        << "sheet; add 3; modify 1 longdown; press 1; modify 1 onelinelong; press 0; modify 1 oneline; "
           "press 1; modify 1 oneline";
    QTest::newRow("sheet: selected, then both lines anew")
        << 0 << 1 << "sheet; add 3; press 1; modify 1 longdown; press 0; modify 1 plain; modify 1 oneline";
    QTest::newRow("sheet: selected before the drawer was polished")
        << 0 << 1 << "sheet; hidden; add 3; press 1; modify 1 longdown; show; modify 1 oneline";
    QTest::newRow("everything") << 0 << 1
                                << "add 3; press 1; add 0; modify 2 buttons; delete 0; renumber 5; lock 1; "
                                   "add 4; mark 3; lock 0; modify 1 offline; single 5 9; delete 9; add 1; "
                                   "press 4; renumber 2; add 0";
}

void tst_PendingRows::sameAsBuiltAtOnce()
{
    QFETCH(int, itemType);
    QFETCH(int, rootType);
    QFETCH(QString, script);
    const NodeFactory nodes;
    const st_NodeInfoSignal root = nodes.node({QStringLiteral("Group"), QStringLiteral("G")},
                                              QStringLiteral("group source"), rootType);
    QStringList lines = script.split(u';', Qt::SkipEmptyParts);
    for (QString &line : lines)
        line = line.trimmed();
    // "sheet" first: under rules that change a row's fonts by state;
    // "hidden" first: the windows show at the line "show".
    if (lines.value(0) == QLatin1String("sheet"))
        qApp->setStyleSheet(QString::fromLatin1(kStateRules));
    lines.removeAll(QStringLiteral("sheet"));
    const bool hidden = lines.value(0) == QLatin1String("hidden");
    lines.removeAll(QStringLiteral("hidden"));
    Subject deferred = Subject::make(true, itemType, root, !hidden);
    Subject atOnce = Subject::make(false, itemType, root, !hidden);
    if (!hidden) {
        QVERIFY(QTest::qWaitForWindowExposed(deferred.window.get()));
        QVERIFY(QTest::qWaitForWindowExposed(atOnce.window.get()));
    }

    int madeDeferred = 0;
    int madeAtOnce = 0;
    for (const QString &line : lines) {
        if (line == QLatin1String("show")) {
            for (Subject *subject : {&deferred, &atOnce}) {
                subject->window->show();
                QVERIFY(QTest::qWaitForWindowExposed(subject->window.get()));
            }
            continue;
        }
        apply(deferred.drawer, line, &madeDeferred);
        apply(atOnce.drawer, line, &madeAtOnce);
        settle();
        const int rows = countRows(atOnce.drawer);
        QCOMPARE(answers(deferred.drawer, rows), answers(atOnce.drawer, rows));
    }
    QCOMPARE(deferred.signalLog->events, atOnce.signalLog->events);
    // Nothing is built for a group no one has opened (one row added to a
    // drawer whose container still shows is the exception: it is seen).
    if (!script.startsWith(QLatin1String("single")))
        QVERIFY(deferred.drawer->secondItems().isEmpty());

    deferred.drawer->setIsShowChildItem(true);
    atOnce.drawer->setIsShowChildItem(true);
    settle();
    QVERIFY(!deferred.drawer->rowsDeferred());
    QCOMPARE(dump(deferred.drawer), dump(atOnce.drawer));
    QCOMPARE(answers(deferred.drawer, countRows(atOnce.drawer)), answers(atOnce.drawer, countRows(atOnce.drawer)));

    // And they behave alike: a click on each row, then collapsing again.
    for (int i = 0; i < deferred.drawer->secondItems().size(); ++i) {
        QTest::mouseClick(deferred.drawer->secondItems().at(i), Qt::LeftButton, {}, QPoint(30, 20));
        QTest::mouseClick(atOnce.drawer->secondItems().at(i), Qt::LeftButton, {}, QPoint(30, 20));
    }
    deferred.drawer->setIsShowChildItem(false);
    atOnce.drawer->setIsShowChildItem(false);
    settle();
    QCOMPARE(deferred.signalLog->events, atOnce.signalLog->events);
    QCOMPARE(dump(deferred.drawer), dump(atOnce.drawer));
}

void tst_PendingRows::collapsedGroupBuildsNoRowWidgets()
{
    const NodeFactory nodes;
    Subject s = Subject::make(true, 0, nodes.node({QStringLiteral("Group")}, 1));
    s.drawer->addSecondItems(nodes.children(QStringLiteral("C"), 16, QStringLiteral("src")));
    s.drawer->setCurSelSecondItem(3);
    s.drawer->modifySecondItemData(2, nodes.node({QStringLiteral("changed")}, 3));
    s.drawer->setRootIndex(4);
    QVERIFY(s.drawer->rowsDeferred());
    QCOMPARE(s.drawer->findChildren<SecondItem *>().size(), 0);
    QCOMPARE(countRows(s.drawer), 16);

    // A double click opens it, as the expand box, the keyboard and the
    // accessibility action do: then the rows are there.
    QTest::mouseDClick(s.drawer, Qt::LeftButton, {}, QPoint(2, 2));
    QVERIFY(s.drawer->isShowChild());
    QVERIFY(!s.drawer->rowsDeferred());
    QCOMPARE(s.drawer->findChildren<SecondItem *>().size(), 16);
    QCOMPARE(s.drawer->secondItems().at(2)->getNodeInfo().strNodeName, QStringList{QStringLiteral("changed")});
    QCOMPARE(s.drawer->secondItems().at(3)->property("isSecondItem").toString(), QStringLiteral("press"));
    QCOMPARE(s.drawer->secondItems().at(15)->getIndexText(), QStringLiteral("3-15"));
}

void tst_PendingRows::keptStateDoesNotGrowWithCalls_data()
{
    QTest::addColumn<QString>("round");
    QTest::addColumn<bool>("polished");

    // One round of calls, repeated: what is kept after many rounds must be
    // what is kept after two.
    QTest::newRow("poller flips online state") << "modify online; modify offline" << true;
    QTest::newRow("poller, unpolished rows") << "modify online; modify offline" << false;
    QTest::newRow("selection moves") << "press 0; press 1; press 2" << true;
    QTest::newRow("selection between flips") << "press 1; modify online; press 2; modify offline" << true;
    QTest::newRow("same one-line name") << "modify oneline; press 1; modify oneline" << false;
    QTest::newRow("nameless records") << "modify nameless; modify nameless; modify online" << true;
    QTest::newRow("renumber and mark") << "renumber; press 2; renumber" << true;
}

void tst_PendingRows::keptStateDoesNotGrowWithCalls()
{
    QFETCH(QString, round);
    QFETCH(bool, polished);
    PendingRows rows;
    const NodeFactory nodes;
    rows.addBatch(nodes.children(QStringLiteral("C"), 3, QString()), 0, 1, st_NodeInfoSignal(), false);
    if (polished)
        rows.polish();
    const auto play = [&](int times) {
        for (int t = 0; t < times; ++t) {
            for (const QString &call : round.split(u';')) {
                const QStringList words = call.trimmed().split(u' ');
                const QString verb = words.at(0);
                if (verb == QLatin1String("press")) {
                    rows.press(words.at(1).toInt());
                } else if (verb == QLatin1String("renumber")) {
                    rows.renumber();
                } else {
                    st_NodeInfoSignal node = nodes.node({QStringLiteral("name"), QStringLiteral("second")}, 2);
                    if (words.at(1) == QLatin1String("offline"))
                        node.isOnline = false;
                    else if (words.at(1) == QLatin1String("oneline"))
                        node.strNodeName = QStringList{QStringLiteral("one")};
                    else if (words.at(1) == QLatin1String("nameless"))
                        node.strNodeName.clear();
                    for (int i = 0; i < rows.rowCount(); ++i)
                        rows.modify(i, node, st_NodeInfoSignal());
                }
            }
        }
    };
    play(2);
    const int afterTwo = rows.eventCount();
    play(500);
    QCOMPARE(rows.eventCount(), afterTwo);
    QVERIFY(!rows.wantsWidgets());
    QVERIFY(afterTwo <= 4 * rows.rowCount());
}

void tst_PendingRows::changingNamesBetweenSelectionsBuildsTheRows()
{
    // One-line names that change between selections on a polished row each
    // decide, with the fonts of their moment, how the second line is elided:
    // the drawer builds its rows rather than keep them all.
    const NodeFactory nodes;
    Subject s = Subject::make(true, 0, nodes.node({QStringLiteral("Group")}, 1));
    s.drawer->addSecondItems(nodes.children(QStringLiteral("C"), 3, QStringLiteral("src")));
    settle();
    int round = 0;
    while (s.drawer->rowsDeferred() && round < 100) {
        s.drawer->setCurSelSecondItem(round % 3);
        s.drawer->modifySecondItemData(0, nodes.node({QStringLiteral("name %1").arg(round)}, 2));
        ++round;
    }
    QVERIFY(!s.drawer->rowsDeferred());
    QVERIFY(round <= PendingRows::kMostEvents);
    QVERIFY(!s.drawer->isShowChild());
    QCOMPARE(s.drawer->secondItems().size(), 3);
    QCOMPARE(s.drawer->secondItems().at(0)->getNodeInfo().strNodeName,
             QStringList{QStringLiteral("name %1").arg(round - 1)});
}

void tst_PendingRows::recordsFollowTheCalls()
{
    PendingRows rows;
    const NodeFactory nodes;
    const QList<st_NodeInfoSignal> batch = nodes.children(QStringLiteral("C"), 4, QString());
    rows.addBatch(batch, 0, 1, st_NodeInfoSignal(), false);
    rows.remove(1);
    const st_NodeInfoSignal changed = nodes.node({QStringLiteral("changed")}, 2);
    rows.modify(0, changed, st_NodeInfoSignal());
    rows.addSingle(nodes.node({QStringLiteral("single")}, 3), 1, 9, false);
    QCOMPARE(rows.rowCount(), 4);
    QCOMPARE(rows.record(0).strNodeName, changed.strNodeName);
    QCOMPARE(rows.record(1).strNodeName, batch.at(2).strNodeName);
    QCOMPARE(rows.record(3).strNodeName, QStringList{QStringLiteral("single")});
}

QTEST_MAIN(tst_PendingRows)
#include "tst_pendingrows.moc"
