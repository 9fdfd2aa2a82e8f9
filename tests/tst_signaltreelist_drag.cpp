// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// A real drag between two drawers of the exported widget, and the source or
// the list going away during it. Runs on the "minimal" platform, whose
// in-process drag makes QDrag::exec run for real.

#include "BuiltRows.h"
#include "DragDriver.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "HostRecorder.h"
#include "ListHost.h"
#include "MessageCapture.h"
#include "NodeFactory.h"
#include "RootItem.h"
#include "RowButtons.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"
#include "TreeText.h"

#include <QApplication>
#include <QEventLoop>
#include <QBoxLayout>
#include <QLabel>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>
#include <QWindow>
#include <QtTest>

#include <climits>
#include <functional>
#include <memory>

namespace {

using namespace ListHost;
using TreeText::pathText;
using TreeText::snapshot;

// ---- driving a real drag ---------------------------------------------------------

using DragDriver::globalCenter;

// Plays the user's part while a drag runs. QDrag::exec blocks in its own
// event loop, so everything that happens during the drag is started from a
// timer that is running before the drag begins. A watchdog cancels a drag
// that nobody ends, so that a failing test cannot hang.
class DragPlayer : public QObject
{
public:
    DragPlayer(DrawerControl *source, std::function<void()> whileDragging, QWindow *escapeTarget)
        : m_source(source)
        , m_whileDragging(std::move(whileDragging))
        , m_escapeTarget(escapeTarget)
    {
        m_poll.setInterval(10);
        connect(&m_poll, &QTimer::timeout, this, [this] {
            if (acted || !m_source || !m_source->isDragging())
                return;
            acted = true;
            m_poll.stop();
            m_whileDragging();
        });
        m_watchdog.setSingleShot(true);
        m_watchdog.setInterval(20000);
        connect(&m_watchdog, &QTimer::timeout, this, [this] {
            if (m_source && m_source->isDragging() && m_escapeTarget) {
                watchdogFired = true;
                DragDriver::escape(m_escapeTarget);
            }
        });
        m_poll.start();
        m_watchdog.start();
    }

    bool acted = false;
    bool watchdogFired = false;

private:
    QPointer<DrawerControl> m_source;
    std::function<void()> m_whileDragging;
    QPointer<QWindow> m_escapeTarget;
    QTimer m_poll;
    QTimer m_watchdog;
};

// Selects @p row with a click and then moves over it with the left button
// held, which starts the drag; returns when the drag is over.
void clickAndDrag(SecondItem *row)
{
    const QPoint local = row->rect().center();
    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, local);
    QMouseEvent move(QEvent::MouseMove, QPointF(local), QPointF(row->mapToGlobal(local)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(row, &move);
}

// Two expanded drawers with dragging on, shown in the host's window:
// "Source A" (iType 0, source "A") with A-0..A-2 and "Group B" (iType 1,
// source "B") with B-0..B-2.
std::unique_ptr<Host> makeDragHost()
{
    auto host = makeHost();
    host->list->setIsDrag(true);
    st_NodeInfoSignal a = makeNode(QStringLiteral("Source A"), QStringLiteral("A"), 0);
    st_NodeInfoSignal b = makeNode(QStringLiteral("Group B"), QStringLiteral("B"), 1);
    host->list->addRootItem(a, makeChildren(QStringLiteral("A"), 3, QStringLiteral("A")));
    host->list->addRootItem(b, makeChildren(QStringLiteral("B"), 3, QStringLiteral("B")));
    host->list->setIsShowChildItem(0, true);
    host->list->setIsShowChildItem(1, true);
    host->parent->show();
    return host;
}

bool dragHostReady(Host *host)
{
    if (!QTest::qWaitForWindowExposed(host->parent.get()))
        return false;
    DrawerControl *d1 = host->drawer(1);
    SecondItem *last = builtRows(d1).value(2);
    return last && QTest::qWaitFor([&] {
               return last->isVisible() && last->height() > 0
                   && host->parent->rect().contains(last->mapTo(host->parent.get(), last->rect().bottomRight()));
           });
}

} // namespace

class tst_SignalTreeListDrag : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void realDragStoresPathsOnly_data();
    void realDragStoresPathsOnly();
    void deletingSourceRootDuringDrag_data();
    void deletingSourceRootDuringDrag();
    void destroyingListDuringDrag_data();
    void destroyingListDuringDrag();
};

void tst_SignalTreeListDrag::initTestCase()
{
    EventSender::parkPointer();
    qRegisterMetaType<QList<int>>();
}

// ---- real drag -----------------------------------------------------------------

void tst_SignalTreeListDrag::realDragStoresPathsOnly_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QList<int>>("dst"); // empty: the drop is refused

    QTest::newRow("onto the other root row") << QStringLiteral("root") << QList<int>{1};
    QTest::newRow("onto the other drawer's third child") << QStringLiteral("child2") << QList<int>{1, 2};
    QTest::newRow("onto the other drawer's first child") << QStringLiteral("child0") << QList<int>{1, 0};
    QTest::newRow("onto the other drawer's margin") << QStringLiteral("margin") << QList<int>{1};
    QTest::newRow("onto the source drawer") << QStringLiteral("self") << QList<int>{};
}

void tst_SignalTreeListDrag::realDragStoresPathsOnly()
{
    QFETCH(QString, target);
    QFETCH(QList<int>, dst);

    auto host = makeDragHost();
    QVERIFY(dragHostReady(host.get()));
    TreeListFrame *frame = host->frame();
    DrawerControl *source = host->drawer(0);
    DrawerControl *other = host->drawer(1);
    QWindow *window = host->parent->windowHandle();
    QVERIFY(window);
    const QStringList before = snapshot(frame);
    HostRecorder recorder(host->list);

    QPoint dropAt;
    if (target == QLatin1String("root"))
        dropAt = globalCenter(other->rootItem());
    else if (target == QLatin1String("child2"))
        dropAt = globalCenter(builtRows(other).at(2));
    else if (target == QLatin1String("child0"))
        dropAt = globalCenter(builtRows(other).at(0));
    else if (target == QLatin1String("margin"))
        dropAt = other->mapToGlobal(QPoint(3, other->rootItem()->height() / 2));
    else
        dropAt = globalCenter(builtRows(source).at(0));

    DragPlayer player(
        source,
        [&] {
            DragDriver::move(window, dropAt - QPoint(0, 3));
            DragDriver::move(window, dropAt);
            DragDriver::release(window, dropAt);
        },
        window);

    clickAndDrag(builtRows(source).at(1));

    QVERIFY2(player.acted, "the drag did not start");
    QVERIFY(!player.watchdogFired);
    // The click selected the row and told the host; the drag told it nothing.
    QCOMPARE(source->selIndex(), (QList<int>{0, 1}));
    QCOMPARE(recorder.events, QStringList{QStringLiteral("CurrentItemClicked(0,1)")});
    if (dst.isEmpty()) {
        QVERIFY(frame->dragSource().isEmpty());
        QVERIFY(frame->dragDestination().isEmpty());
    } else {
        QCOMPARE(frame->dragSource(), (QList<int>{0, 1}));
        QCOMPARE(frame->dragDestination(), dst);
    }

    // The drag object goes away; nothing else follows.
    QTRY_VERIFY(!source->isDragging());
    QTest::qWait(50);
    QCOMPARE(recorder.events, QStringList{QStringLiteral("CurrentItemClicked(0,1)")});
    QCOMPARE(snapshot(frame), before);
    QCOMPARE(frame->drawers().size(), 2);
    QCOMPARE(host->drawer(0), source);
    QCOMPARE(source->parentWidget(), other->parentWidget());
}

void tst_SignalTreeListDrag::deletingSourceRootDuringDrag_data()
{
    QTest::addColumn<bool>("drop");
    QTest::newRow("then dropped on the other drawer") << true;
    QTest::newRow("then cancelled") << false;
}

void tst_SignalTreeListDrag::deletingSourceRootDuringDrag()
{
    QFETCH(bool, drop);

    auto host = makeDragHost();
    QVERIFY(dragHostReady(host.get()));
    TreeListFrame *frame = host->frame();
    QPointer<DrawerControl> source = host->drawer(0);
    QPointer<DrawerControl> other = host->drawer(1);
    QWindow *window = host->parent->windowHandle();
    HostRecorder recorder(host->list);
    MessageCapture capture;

    bool detachedDuringDrag = false;
    int drawersDuringDrag = -1;
    DragPlayer player(
        source,
        [&] {
            const QPoint dropAt = globalCenter(builtRows(other).at(1));
            DragDriver::move(window, dropAt);
            host->list->deleteRootItem(0);
            detachedDuringDrag = source && source->parentWidget() == nullptr;
            drawersDuringDrag = frame->drawers().size();
            if (drop) {
                DragDriver::move(window, dropAt + QPoint(1, 0));
                DragDriver::release(window, dropAt);
            } else {
                DragDriver::escape(window);
            }
        },
        window);

    clickAndDrag(builtRows(source).at(1));

    QVERIFY2(player.acted, "the drag did not start");
    QVERIFY(!player.watchdogFired);
    QVERIFY(detachedDuringDrag);
    QCOMPARE(drawersDuringDrag, 1);
    QVERIFY(!source.isNull()); // still alive right after the drag
    if (drop) {
        // The other drawer still has its old index 1.
        QCOMPARE(frame->dragSource(), (QList<int>{0, 1}));
        QCOMPARE(frame->dragDestination(), (QList<int>{1, 1}));
    } else {
        QVERIFY(frame->dragSource().isEmpty());
    }

    // Once the drag object is gone the drawer deletes itself.
    QTRY_VERIFY(source.isNull());
    QVERIFY(capture.lines().contains(QStringLiteral("[Tarn]::DrawerControl::slot_releaseDrag deleteLater")));
    QCOMPARE(frame->drawers().size(), 1);
    QCOMPARE(frame->drawers().first(), other.data());
    QCOMPARE(listDrawers(host->parent.get()).size(), 1);
    QCOMPARE(recorder.events, QStringList{QStringLiteral("CurrentItemClicked(0,1)")});
}

void tst_SignalTreeListDrag::destroyingListDuringDrag_data()
{
    QTest::addColumn<bool>("withParent");
    QTest::newRow("the widget") << false;
    QTest::newRow("the widget and its parent") << true;
}

void tst_SignalTreeListDrag::destroyingListDuringDrag()
{
    QFETCH(bool, withParent);

    // A second window to end the drag from once the host's window is gone.
    QWidget spare;
    spare.setGeometry(700, 500, 40, 40);
    spare.show();
    QVERIFY(QTest::qWaitForWindowExposed(&spare));

    auto host = makeDragHost();
    QVERIFY(dragHostReady(host.get()));
    QPointer<QFrame> frame = host->list->getSignalTreeListFrame();
    QPointer<SignalTreeList> list = host->list;
    QPointer<DrawerControl> source = host->drawer(0);
    QPointer<DrawerControl> other = host->drawer(1);
    QPointer<QWidget> parent = host->parent.get();
    QWindow *window = host->parent->windowHandle();
    QSignalSpy frameDestroyed(frame.data(), &QObject::destroyed);

    bool sourceSurvived = false;
    DragPlayer player(
        source,
        [&] {
            DragDriver::move(window, globalCenter(other->rootItem()));
            if (withParent)
                host->parent.reset();
            else
                delete list.data();
            sourceSurvived = !source.isNull();
            DragDriver::escape(spare.windowHandle());
        },
        spare.windowHandle());

    clickAndDrag(builtRows(source).at(1));

    QVERIFY2(player.acted, "the drag did not start");
    QVERIFY(!player.watchdogFired);
    QVERIFY(sourceSurvived);
    QVERIFY(list.isNull());
    QVERIFY(frame.isNull());
    QCOMPARE(frameDestroyed.count(), 1);
    QVERIFY(other.isNull());
    QCOMPARE(parent.isNull(), withParent);
    QTRY_VERIFY(source.isNull());
}

QTEST_MAIN(tst_SignalTreeListDrag)
#include "tst_signaltreelist_drag.moc"
