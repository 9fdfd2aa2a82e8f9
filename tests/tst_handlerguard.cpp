// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Tests of HandlerGuard: which objects count as busy, and how a widget
// removed while busy leaves the screen at once and is freed afterwards.

#include "EventSender.h"
#include "HandlerGuard.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>
#include <QWidget>
#include <QtTest>

#include <memory>

using EventSender::flushDeferredDeletes;

namespace {

// window > outer > inner > leaf, and a sibling of outer.
struct Tree
{
    std::unique_ptr<QWidget> window{new QWidget};
    QWidget *outer = new QWidget(window.get());
    QWidget *inner = new QWidget(outer);
    QWidget *leaf = new QWidget(inner);
    QWidget *sibling = new QWidget(window.get());

    QWidget *byName(const QString &name) const
    {
        if (name == QLatin1String("outer"))
            return outer;
        if (name == QLatin1String("inner"))
            return inner;
        if (name == QLatin1String("leaf"))
            return leaf;
        if (name == QLatin1String("sibling"))
            return sibling;
        return window.get();
    }
};

} // namespace

class tst_HandlerGuard : public QObject
{
    Q_OBJECT

private slots:
    void busyMeansAGuardInside_data();
    void busyMeansAGuardInside();
    void idleWidgetIsLeftToTheCaller();
    void busyWidgetLeavesAtOnceAndGoesAfterTheGuard();
    void waitsForTheOutermostGuardInside();
    void freedOnceItsGuardEnds_data();
    void freedOnceItsGuardEnds();
    void nestedEventLoopDoesNotFreeTheBusyWidget();
};

void tst_HandlerGuard::busyMeansAGuardInside_data()
{
    QTest::addColumn<QString>("guarded");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<bool>("busy");

    QTest::newRow("itself") << "inner" << "inner" << true;
    QTest::newRow("its child") << "leaf" << "inner" << true;
    QTest::newRow("its grandchild") << "leaf" << "outer" << true;
    QTest::newRow("the window, from deep inside") << "leaf" << "window" << true;
    QTest::newRow("its parent") << "outer" << "inner" << false;
    QTest::newRow("a sibling") << "sibling" << "outer" << false;
    QTest::newRow("inside a sibling") << "leaf" << "sibling" << false;
}

void tst_HandlerGuard::busyMeansAGuardInside()
{
    QFETCH(QString, guarded);
    QFETCH(QString, asked);
    QFETCH(bool, busy);

    Tree tree;
    QVERIFY(!HandlerGuard::isBusy(tree.byName(asked)));
    {
        const HandlerGuard guard(tree.byName(guarded));
        QCOMPARE(HandlerGuard::isBusy(tree.byName(asked)), busy);
    }
    QVERIFY(!HandlerGuard::isBusy(tree.byName(asked)));
    QVERIFY(!HandlerGuard::isBusy(nullptr));
}

void tst_HandlerGuard::idleWidgetIsLeftToTheCaller()
{
    Tree tree;
    tree.window->show();
    QVERIFY(!HandlerGuard::deferDeletion(tree.inner));
    QCOMPARE(tree.inner->parentWidget(), tree.outer);
    QVERIFY(tree.inner->isVisible());
    QVERIFY(!tree.inner->signalsBlocked());
    QPointer<QWidget> inner = tree.inner;
    flushDeferredDeletes();
    QVERIFY(inner);
}

void tst_HandlerGuard::busyWidgetLeavesAtOnceAndGoesAfterTheGuard()
{
    Tree tree;
    tree.window->show();
    QPointer<QWidget> inner = tree.inner;
    QPointer<QWidget> leaf = tree.leaf;
    QSignalSpy objectNameChanged(tree.inner, &QObject::objectNameChanged);
    {
        const HandlerGuard guard(tree.leaf);
        QVERIFY(HandlerGuard::deferDeletion(tree.inner));
        QVERIFY(inner->isHidden());
        QVERIFY(!inner->parentWidget());
        QVERIFY(!tree.outer->children().contains(inner.data()));
        // Nothing more reaches the host from it.
        QVERIFY(inner->signalsBlocked());
        inner->setObjectName(QStringLiteral("changed"));
        QCOMPARE(objectNameChanged.count(), 0);
        flushDeferredDeletes();
        QVERIFY(inner);
        QVERIFY(leaf);
    }
    // Freed once the guard is gone and the event loop runs, not under it.
    QVERIFY(inner);
    flushDeferredDeletes();
    QVERIFY(inner.isNull());
    QVERIFY(leaf.isNull());
}

void tst_HandlerGuard::waitsForTheOutermostGuardInside()
{
    Tree tree;
    QPointer<QWidget> outer = tree.outer;
    {
        const HandlerGuard outerGuard(tree.inner);
        {
            const HandlerGuard innerGuard(tree.leaf);
            QVERIFY(HandlerGuard::deferDeletion(tree.outer));
        }
        flushDeferredDeletes();
        QVERIFY2(outer, "freed while a guard inside it still runs");
        // A guard outside it does not keep it.
        const HandlerGuard unrelated(tree.sibling);
    }
    flushDeferredDeletes();
    QVERIFY(outer.isNull());
}

void tst_HandlerGuard::freedOnceItsGuardEnds_data()
{
    QTest::addColumn<bool>("deferTwice");
    QTest::addColumn<bool>("ownerDeleted");
    QTest::newRow("deferred once") << false << false;
    QTest::newRow("deferred twice") << true << false;
    QTest::newRow("the guard's owner deleted by other means") << false << true;
}

void tst_HandlerGuard::freedOnceItsGuardEnds()
{
    QFETCH(bool, deferTwice);
    QFETCH(bool, ownerDeleted);

    Tree tree;
    QPointer<QWidget> inner = tree.inner;
    {
        const HandlerGuard guard(tree.leaf);
        QVERIFY(HandlerGuard::deferDeletion(tree.inner));
        if (deferTwice)
            QVERIFY(HandlerGuard::deferDeletion(tree.inner));
        if (ownerDeleted) {
            delete tree.leaf;
            QVERIFY(!HandlerGuard::isBusy(tree.inner));
        }
        flushDeferredDeletes();
        QCOMPARE(inner.isNull(), false);
    }
    flushDeferredDeletes();
    QVERIFY(inner.isNull());
}

// A slot that opens a modal dialog: deferred deletions run inside its loop,
// but not the one of a widget whose handler is still on the stack below.
void tst_HandlerGuard::nestedEventLoopDoesNotFreeTheBusyWidget()
{
    Tree tree;
    QPointer<QWidget> inner = tree.inner;
    QPointer<QWidget> sibling = tree.sibling;
    bool aliveAfterLoop = false;
    {
        const HandlerGuard guard(tree.leaf);
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&] {
            QVERIFY(HandlerGuard::deferDeletion(tree.inner));
            sibling->deleteLater();
            QTimer::singleShot(20, &loop, &QEventLoop::quit);
        });
        loop.exec();
        QVERIFY2(sibling.isNull(), "the nested loop ran no deferred deletion");
        aliveAfterLoop = !inner.isNull();
    }
    QVERIFY(aliveAfterLoop);
    flushDeferredDeletes();
    QVERIFY(inner.isNull());
}

QTEST_MAIN(tst_HandlerGuard)
#include "tst_handlerguard.moc"
