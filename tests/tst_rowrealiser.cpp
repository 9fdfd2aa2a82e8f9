// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Child rows are widgets only in and near the viewport. Each test runs the
// same operations on the list as shipped and on one whose rows are all
// widgets, and compares what a host and a user see of both: signals, the
// rows on screen, the scroll range, the accessibility tree, the picture.

#include "AccessibleHost.h"
#include "AccessibleRows.h"
#include "BuiltRows.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "HostRecorder.h"
#include "ListProbe.h"
#include "RowAt.h"
#include "RowRealiser.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TestSheets.h"
#include "TreeListFrame.h"

#include <QAccessible>
#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

using EventSender::settle;

struct Side
{
    bool atOnce = false;
    std::unique_ptr<QWidget> window;
    QPointer<SignalTreeList> list;
    std::unique_ptr<HostRecorder> recorder;
    // What the last step left.
    QStringList dump;
    QImage picture;

    TreeListFrame *frame() const { return list ? qobject_cast<TreeListFrame *>(list->getSignalTreeListFrame()) : nullptr; }
    DrawerControl *drawer(int r) const { return frame() ? frame()->drawers().value(r) : nullptr; }
    QScrollBar *bar() const { return frame() ? frame()->scrollArea()->verticalScrollBar() : nullptr; }
    int rows() const
    {
        int n = 0;
        for (DrawerControl *d : frame()->drawers())
            n += d->rowCount();
        return n;
    }
    int widgets() const
    {
        int n = 0;
        for (DrawerControl *d : frame()->drawers())
            n += d->rowsDeferred() ? 0 : d->realisedRows();
        return n;
    }
};

st_NodeInfoSignal record(const QString &name, int type = 1)
{
    st_NodeInfoSignal n;
    n.strNodeName = QStringList{name, QStringLiteral("1920x1080@60")};
    n.strSourceName = QStringLiteral("S");
    n.iType = type;
    n.isOnline = true;
    n.showOpBtn = QList<bool>{true, true, false};
    return n;
}

// A room of @p roots groups of @p rows signals each, every group open, the
// list as shipped and the list of widgets side by side.
class Twin
{
public:
    // A room of @p roots groups of @p rows signals, every group open
    // unless @p open is false.
    Twin(int roots, int rows, bool open = true)
    {
        for (Side *side : {&reference, &shipped}) {
            side->atOnce = side == &reference;
            side->window.reset(new QWidget);
            side->window->resize(380, 520);
            side->window->move(side->atOnce ? 0 : 400, 0);
            auto *layout = new QVBoxLayout(side->window.get());
            auto *panel = new QWidget(side->window.get());
            layout->addWidget(panel);
            side->list = new SignalTreeList(panel);
            side->list->initControls();
            side->recorder.reset(new HostRecorder(side->list));
            side->window->show();
        }
        apply([roots, rows, open](Side &side) {
            for (int r = 0; r < roots; ++r) {
                st_NodeInfoSignal root = record(QStringLiteral("Room %1").arg(r), r % 2);
                QList<st_NodeInfoSignal> children;
                for (int c = 0; c < rows; ++c)
                    children << record(QStringLiteral("Room %1 input %2").arg(r).arg(c), 1 + c % 5);
                side.list->addRootItem(root, children);
                side.list->setIsShowChildItem(r, open);
            }
        });
    }

    bool exposed()
    {
        return QTest::qWaitForWindowExposed(reference.window.get()) && QTest::qWaitForWindowExposed(shipped.window.get());
    }

    void apply(const std::function<void(Side &)> &step)
    {
        for (Side *side : {&reference, &shipped}) {
            // Each in its own active window, as a user has it.
            if (side->window->isVisible()) {
                side->window->activateWindow();
                if (!QTest::qWaitForWindowActive(side->window.get()))
                    qWarning("window not active");
            }
            settle();
            DrawerControl::setDeferRows(!side->atOnce);
            TreeListFrame::setRebuildEveryTime(side->atOnce);
            step(*side);
            settle();
            DrawerControl::setDeferRows(true);
            TreeListFrame::setRebuildEveryTime(false);
            // Seen while its window is the active one.
            side->dump = ListProbe::dump(side->list);
            side->picture = ListProbe::picture(side->list);
        }
    }

    /// Scrolls both to @p percent of the range.
    void scrollTo(int percent)
    {
        apply([percent](Side &side) {
            QScrollBar *bar = side.bar();
            bar->setValue(bar->minimum() + (bar->maximum() - bar->minimum()) * percent / 100);
        });
    }

    /// The first thing a host or a user would see differently, or nothing.
    QString difference()
    {
        if (reference.recorder->events != shipped.recorder->events)
            return QStringLiteral("signals: %1 / %2")
                .arg(reference.recorder->events.join(u' '), shipped.recorder->events.join(u' '));
        const QStringList &a = reference.dump;
        const QStringList &b = shipped.dump;
        for (int i = 0; i < qMax(a.size(), b.size()); ++i) {
            if (a.value(i) != b.value(i))
                return QStringLiteral("line %1: %2 / %3").arg(i).arg(a.value(i), b.value(i));
        }
        if (reference.picture != shipped.picture)
            return QStringLiteral("the pictures differ");
        return QString();
    }

    Side reference;
    Side shipped;
};

// Every child row that shows in the viewport is a widget, shown.
QString rowsOnScreenAreWidgets(const Side &side)
{
    QWidget *viewport = side.frame()->scrollArea()->viewport();
    const QList<DrawerControl *> drawers = side.frame()->drawers();
    for (int r = 0; r < drawers.size(); ++r) {
        DrawerControl *d = drawers.at(r);
        if (!d->showsChildren())
            continue;
        for (int c = 0; c < d->rowCount(); ++c) {
            const QRect place = d->rowGeometry(c).translated(d->childContainer()->mapTo(viewport, QPoint(0, 0)));
            if (!place.intersects(viewport->rect()))
                continue;
            SecondItem *row = d->builtRow(c);
            if (!row || !row->isVisible())
                return QStringLiteral("row %1,%2 shows in the viewport but is no widget on screen").arg(r).arg(c);
        }
    }
    return QString();
}

// While alive, notes every accessibility event about an object inside a
// row widget other than the row itself (as "NameChanged QLabel").
class WidgetNews
{
public:
    explicit WidgetNews(QStringList *heard)
    {
        s_heard = heard;
        m_previous = QAccessible::installUpdateHandler(&WidgetNews::handle);
    }
    ~WidgetNews()
    {
        QAccessible::installUpdateHandler(m_previous);
        s_heard = nullptr;
    }

private:
    static void handle(QAccessibleEvent *event)
    {
        if (!s_heard || AccessibleRows::rowOf(event->accessibleInterface()).exists())
            return;
        for (QObject *o = event->object(); o; o = o->parent()) {
            if (qobject_cast<SecondItem *>(o)) {
                *s_heard << QStringLiteral("%1 %2").arg(int(event->type())).arg(QLatin1String(event->object()->metaObject()->className()));
                return;
            }
        }
    }
    static QStringList *s_heard;
    QAccessible::UpdateHandler m_previous;
};

QStringList *WidgetNews::s_heard = nullptr;

} // namespace

class tst_RowRealiser : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { RowRealiser::setParking(true); }

    void cleanup()
    {
        qApp->setStyleSheet(QString());
        DrawerControl::setDeferRows(true);
        TreeListFrame::setRebuildEveryTime(false);
    }

    void onlyRowsNearTheViewportAreWidgets()
    {
        Twin twin(40, 12);
        QVERIFY(twin.exposed());
        settle();
        QCOMPARE(twin.reference.widgets(), 480);
        QCOMPARE(twin.shipped.rows(), 480);
        for (int percent : {0, 50, 100, 30}) {
            twin.scrollTo(percent);
            QVERIFY2(twin.shipped.widgets() <= 80, qPrintable(QString::number(twin.shipped.widgets())));
            const QString missing = rowsOnScreenAreWidgets(twin.shipped);
            QVERIFY2(missing.isEmpty(), qPrintable(missing));
            const QString difference = twin.difference();
            QVERIFY2(difference.isEmpty(), qPrintable(difference));
        }
        // Rows that left stay parked: the first group is far from 30 %.
        QCOMPARE(twin.shipped.drawer(0)->realisedRows(), 0);
    }

    void aPageDownFindsItsRowsMade()
    {
        // Rows a page away are made once the list is idle, so that paging
        // makes none before it paints; those in view are there even so.
        Twin twin(40, 12);
        QVERIFY(twin.exposed());
        twin.scrollTo(30);
        QScrollBar *bar = twin.shipped.bar();
        for (int step : {1, 1, -1, -1, -1}) {
            const int before = twin.shipped.widgets();
            bar->setValue(bar->value() + step * bar->pageStep());
            QCOMPARE(twin.shipped.widgets(), before);
            const QString missing = rowsOnScreenAreWidgets(twin.shipped);
            QVERIFY2(missing.isEmpty(), qPrintable(missing));
            settle();
        }
        // The rows the second page down made, now three pages below the
        // viewport, went when the list was idle; those of the next page stay.
        int gone = 0;
        const QList<DrawerControl *> drawers = twin.shipped.frame()->drawers();
        QWidget *viewport = twin.shipped.frame()->scrollArea()->viewport();
        const int page = viewport->height();
        for (DrawerControl *d : drawers) {
            for (int c = 0; c < d->rowCount(); ++c) {
                const int top = d->rowGeometry(c).translated(d->childContainer()->mapTo(viewport, QPoint(0, 0))).top();
                if (top > 3 * page && top < 4 * page) {
                    QVERIFY2(!d->builtRow(c), "a row three pages off is still a widget");
                    ++gone;
                } else if (top > page && top < 2 * page) {
                    QVERIFY2(d->builtRow(c), "a row of the next page is no widget");
                }
            }
        }
        QVERIFY(gone > 0);
    }

    void groupsOpenedAsTheyFill_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("rows added to a closed group, opened in the same turn") << QStringLiteral("add and open");
        QTest::newRow("a closed group opened later") << QStringLiteral("open later");
        QTest::newRow("renamed while closed, then opened") << QStringLiteral("rename");
        QTest::newRow("a group added open") << QStringLiteral("new open group");
        QTest::newRow("rows selected, then opened in the same turn") << QStringLiteral("select and open");
    }

    void groupsOpenedAsTheyFill()
    {
        // Rows of a group that opens are built parked, as the widgets they
        // would have been once shown. Under these sheets a polished row's
        // lines take a smaller font: the lower name is shortened with the
        // font a row has before its polish and fits with the one after.
        QFETCH(QString, how);
        const QString dark = TestSheets::read(QStringLiteral(DARK_STYLE_SHEET));
        QVERIFY(!dark.isEmpty());
        qApp->setStyleSheet(dark + TestSheets::stateRules());
        Twin twin(6, 3, false);
        QVERIFY(twin.exposed());
        const auto rows = [](int root) {
            QList<st_NodeInfoSignal> list;
            for (int c = 0; c < 40; ++c) {
                list << record(QStringLiteral("Room %1 input %2").arg(root).arg(c), 1 + c % 5);
                // Shortened with either font, or with the larger one only.
                list.last().strNodeName[1] = c % 3 == 0 ? QStringLiteral("3840x2160@60 HDR 10 bit, 4:4:4, from the left camera")
                                                        : QStringLiteral("3840x2160@60 HDR 10 bit");
                // Some with one name line: a line that never shows is never polished.
                if (c % 4 == 1)
                    list.last().strNodeName.removeLast();
            }
            return list;
        };
        twin.apply([&](Side &side) {
            if (how == QLatin1String("new open group")) {
                st_NodeInfoSignal root = record(QStringLiteral("Room 6"));
                side.list->addRootItem(root, rows(6));
                side.list->setIsShowChildItem(6, true);
                return;
            }
            side.list->addChildItem(QList<int>{2}, rows(2));
            if (how == QLatin1String("select and open"))
                side.list->setCurSelItem(QList<int>{2, 4});
            if (how == QLatin1String("add and open") || how == QLatin1String("select and open"))
                side.list->setIsShowChildItem(2, true);
        });
        if (how == QLatin1String("rename")) {
            // Child 6 of every group gets one short name, fitted with the
            // fonts of a polished row; its lower line stays as it was.
            twin.apply([](Side &side) {
                st_NodeInfoSignal renamed = record(QStringLiteral("Renamed"));
                renamed.strNodeName.removeLast();
                side.list->modifyItemData(QList<int>{0, 6}, renamed);
            });
        }
        if (how == QLatin1String("open later") || how == QLatin1String("rename"))
            twin.apply([](Side &side) { side.list->setIsShowChildItem(2, true); });
        QVERIFY(twin.shipped.widgets() < twin.shipped.rows());
        // A wider window resizes every row, and rows fit their lines again
        // with the fonts they have, parked or not.
        twin.apply([](Side &side) { side.window->resize(side.window->width() + 60, side.window->height()); });
        for (int percent : {0, 100, 40}) {
            twin.scrollTo(percent);
            const QString difference = twin.difference();
            QVERIFY2(difference.isEmpty(), qPrintable(QStringLiteral("at %1 %: ").arg(percent) + difference));
        }
    }

    void scrollingWhileTheHostEdits_data()
    {
        QTest::addColumn<QStringList>("script");
        QTest::newRow("modify a row far off, then scroll to it") << QStringList{"bottom", "modify 0 1", "top"};
        QTest::newRow("delete a row far off") << QStringList{"bottom", "delete 0 2", "top", "middle"};
        QTest::newRow("add rows to a group far off") << QStringList{"bottom", "add 0 3", "top"};
        QTest::newRow("select a row far off") << QStringList{"bottom", "select 1 4", "top"};
        QTest::newRow("delete a group far off") << QStringList{"bottom", "deleteRoot 1", "top"};
        QTest::newRow("close and open a group far off")
            << QStringList{"bottom", "collapse 2", "middle", "expand 2", "top"};
        QTest::newRow("edits between scrolls")
            << QStringList{"middle", "modify 0 5", "delete 20 0", "bottom", "add 29 2", "top", "select 29 3", "middle"};
    }

    void scrollingWhileTheHostEdits()
    {
        QFETCH(QStringList, script);
        Twin twin(30, 8);
        QVERIFY(twin.exposed());
        for (const QString &step : script) {
            const QStringList words = step.split(u' ');
            const int a = words.value(1).toInt();
            const int b = words.value(2).toInt();
            const QString verb = words.first();
            if (verb == QLatin1String("top") || verb == QLatin1String("middle") || verb == QLatin1String("bottom")) {
                twin.scrollTo(verb == QLatin1String("top") ? 0 : verb == QLatin1String("middle") ? 50 : 100);
            } else {
                twin.apply([&](Side &side) {
                    SignalTreeList *list = side.list;
                    if (verb == QLatin1String("modify")) {
                        st_NodeInfoSignal node = record(QStringLiteral("renamed, and a name far too long to fit the row"));
                        list->modifyItemData(QList<int>{a, b}, node);
                    } else if (verb == QLatin1String("delete")) {
                        list->deleteChildeItem(QList<int>{a, b});
                    } else if (verb == QLatin1String("add")) {
                        QList<st_NodeInfoSignal> more;
                        for (int i = 0; i < b; ++i)
                            more << record(QStringLiteral("added %1").arg(i), 2);
                        list->addChildItem(QList<int>{a}, more);
                    } else if (verb == QLatin1String("select")) {
                        list->setCurSelItem(QList<int>{a, b});
                    } else if (verb == QLatin1String("deleteRoot")) {
                        list->deleteRootItem(a);
                    } else if (verb == QLatin1String("collapse") || verb == QLatin1String("expand")) {
                        list->setIsShowChildItem(a, verb == QLatin1String("expand"));
                    }
                });
            }
            const QString difference = twin.difference();
            QVERIFY2(difference.isEmpty(), qPrintable(step + QStringLiteral(": ") + difference));
            const QString missing = rowsOnScreenAreWidgets(twin.shipped);
            QVERIFY2(missing.isEmpty(), qPrintable(step + QStringLiteral(": ") + missing));
        }
        QVERIFY(twin.shipped.widgets() < twin.shipped.rows());
    }

    void styleSheetChangeWhileScrolled_data()
    {
        QTest::addColumn<bool>("onTheList");
        QTest::newRow("the application's sheet") << false;
        QTest::newRow("the list's own sheet") << true;
    }

    void styleSheetChangeWhileScrolled()
    {
        QFETCH(bool, onTheList);
        const QString dark = TestSheets::read(QStringLiteral(DARK_STYLE_SHEET));
        QVERIFY(!dark.isEmpty());
        qApp->setStyleSheet(dark);
        Twin twin(30, 8);
        QVERIFY(twin.exposed());
        // Selected rows are taller under the second sheet, and their lines
        // take other fonts; hovered ones too.
        twin.apply([](Side &side) {
            for (int r = 0; r < 30; r += 3)
                side.list->setCurSelItem(QList<int>{r, r % 8});
        });
        twin.scrollTo(100);
        // The application's sheet reaches both lists at once: it is set
        // while another window is active, so that neither list has the
        // keyboard's focus then and both go through the same.
        QWidget elsewhere;
        elsewhere.move(800, 0);
        const auto restyle = [&](const QString &sheet) {
            if (onTheList) {
                twin.apply([&](Side &side) { side.list->setStyleSheet(sheet); });
                return;
            }
            elsewhere.show();
            elsewhere.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&elsewhere));
            qApp->setStyleSheet(sheet);
            settle();
            elsewhere.hide();
            twin.apply([](Side &) {});
        };
        restyle(dark + TestSheets::stateRules());
        for (int percent : {100, 0, 50}) {
            twin.scrollTo(percent);
            const QString difference = twin.difference();
            QVERIFY2(difference.isEmpty(), qPrintable(QStringLiteral("at %1 %: ").arg(percent) + difference));
        }
        restyle(onTheList ? QString() : dark);
        for (int percent : {0, 100}) {
            twin.scrollTo(percent);
            const QString difference = twin.difference();
            QVERIFY2(difference.isEmpty(), qPrintable(QStringLiteral("back, at %1 %: ").arg(percent) + difference));
        }
    }

    void keyboardOnRowsOffScreen()
    {
        Twin twin(30, 8);
        QVERIFY(twin.exposed());
        twin.apply([](Side &side) {
            side.frame()->setFocus(Qt::TabFocusReason);
            for (int i = 0; i < 3; ++i)
                QTest::keyClick(side.frame(), Qt::Key_Down);
        });
        // The focus row scrolls far off and is parked; the keys still walk
        // on from it, and bring the next row into view.
        twin.scrollTo(100);
        QVERIFY(!twin.shipped.drawer(0)->builtRow(1));
        for (int key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Space}) {
            twin.apply([key](Side &side) { QTest::keyClick(side.frame(), Qt::Key(key)); });
            const QString difference = twin.difference();
            QVERIFY2(difference.isEmpty(), qPrintable(difference));
        }
        QVERIFY(twin.shipped.bar()->value() < twin.shipped.bar()->maximum() / 4);
        QVERIFY(!twin.shipped.recorder->events.isEmpty());
    }

    void accessibilityOnRowsOffScreen()
    {
        Twin twin(30, 8);
        QVERIFY(twin.exposed());
        twin.scrollTo(0);
        QVERIFY(!twin.shipped.drawer(25)->builtRow(2));
        // What a screen reader reads of a row far off, and does with it.
        QList<QAccessibleInterface *> rows;
        for (const Side *side : {&twin.reference, &twin.shipped}) {
            QAccessibleInterface *frame = QAccessible::queryAccessibleInterface(side->frame());
            QVERIFY(frame);
            QAccessibleInterface *root = frame->child(25);
            QVERIFY(root);
            QAccessibleInterface *row = root->child(2);
            QVERIFY(row);
            rows << row;
        }
        QCOMPARE(rows.at(1)->text(QAccessible::Name), rows.at(0)->text(QAccessible::Name));
        QCOMPARE(rows.at(1)->text(QAccessible::Name), QStringLiteral("Room 25 input 2, 1920x1080@60"));
        QCOMPARE(rows.at(1)->rect().translated(-400, 0), rows.at(0)->rect());
        QCOMPARE(rows.at(1)->state().selected, false);
        QAccessibleActionInterface *press = rows.at(1)->actionInterface();
        QVERIFY(press);
        QVERIFY(press->actionNames().contains(QAccessibleActionInterface::pressAction()));
        twin.apply([&](Side &side) {
            rows.at(&side == &twin.reference ? 0 : 1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        });
        QCOMPARE(twin.shipped.recorder->events, QStringList{QStringLiteral("CurrentItemClicked(25,2)")});
        const QString difference = twin.difference();
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }

    void pagingTellsAssistiveTechnologyOnlyOfRows()
    {
        // Rows made and parked as the list scrolls are the same rows to a
        // screen reader: the widgets inside them come and go unheard.
        if (!waitForLiveAccessibility())
            QSKIP("Qt's accessibility is not active on this platform; the rowrealiser_accessible test runs this");
        Twin twin(30, 8);
        QVERIFY(twin.exposed());
        QScrollBar *bar = twin.shipped.bar();
        const int before = twin.shipped.widgets();
        QStringList heard;
        {
            const WidgetNews news(&heard);
            for (int page = 0; page < 12; ++page) {
                bar->setValue(bar->value() + bar->pageStep());
                settle();
            }
        }
        QVERIFY(bar->value() > 0);
        QVERIFY2(heard.isEmpty(), qPrintable(heard.mid(0, 5).join(QStringLiteral("; "))));
        // Rows were made and parked on the way.
        QVERIFY(twin.shipped.drawer(0)->realisedRows() < before);
    }

    void hostDeletesTheRowItHearsOfWhileScrolling()
    {
        Twin twin(30, 8);
        QVERIFY(twin.exposed());
        for (Side *side : {&twin.reference, &twin.shipped}) {
            SignalTreeList *list = side->list;
            QScrollBar *bar = side->bar();
            QObject::connect(list, &SignalTreeList::signal_OnCurrentItemClicked, list, [list, bar](QList<int> path) {
                if (path.size() != 2)
                    return;
                list->deleteChildeItem(path);
                bar->setValue(bar->value() + bar->pageStep());
            });
        }
        for (const QList<int> &path : {QList<int>{2, 3}, QList<int>{9, 0}, QList<int>{15, 7}, QList<int>{15, 6}}) {
            twin.apply([&path](Side &side) {
                QPointer<QWidget> row = RowAt::shown(side.list, path);
                QVERIFY(row);
                QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, QPoint(30, 20));
            });
            const QString difference = twin.difference();
            QVERIFY2(difference.isEmpty(), qPrintable(difference));
        }
        QCOMPARE(twin.shipped.rows(), 30 * 8 - 4);
    }
};

QTEST_MAIN(tst_RowRealiser)
#include "tst_rowrealiser.moc"
