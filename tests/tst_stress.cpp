// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Model-based random-operation stress test of SignalTreeList.
//
// A seeded random sequence drives every public operation of the control,
// with valid and invalid arguments, interleaved with real mouse events on
// the shown control (clicks, double clicks, enter and leave, the hover
// buttons) and with real drags. During a drag the host may delete the
// dragging root, clear the tree, destroy the whole control or call any
// other operation. The host also acts from inside the list's signals: it
// calls operations (often removing the row or root that just emitted), does
// so from a nested event loop as a modal dialog would, or deletes the whole
// control. A small oracle keeps what the public behaviour implies
// (the rows, their records and stored indices, the selection of every
// drawer, which signals reach the host with which paths) and after every
// step the oracle and the control must agree.
//
// Real drags need the "minimal" platform: its in-process drag runs
// QDrag::exec's nested event loop. A timer armed before the mouse move that
// starts the drag fires inside that loop; from there the test plays the
// host and the user (mouse moves and the release are sent to a top-level
// QWindow with their global position; the drag's event filter turns them
// into drag-enter, drag-move and drop events).
//
// Environment:
//   STRESS_SEED         one seed or several separated by commas
//                       (default: three fixed seeds)
//   STRESS_OPS          operations per seed (default 10000; 100000 with
//                       STRESS_LONG=1)
//   STRESS_TIME_BUDGET  seconds for the whole run; the test stops early and
//                       says how many operations ran (default 240)
//   STRESS_VERBOSE=1    prints every operation as it runs
//   STRESS_DEBUG=1      also traces the drag-and-drop events and drop points
//
// On a failure the test prints the seed, the first failing operation and
// the shortest failing prefix of the sequence it finds by re-running
// prefixes with the same seed on a fresh control.
//
// The run itself (StressRun: oracle, operations, drags, checks) is in
// tests/stress/.

#include "StressRun.h"

namespace {

using namespace Stress;

#ifdef STRESS_HAVE_SANITIZER
void onSanitizerDeath()
{
    StressRun::printRecent();
}
#endif

QtMessageHandler g_previousHandler = nullptr;

// The library traces to the debug stream on every press and deletion:
// thousands of lines that say nothing here.
void quietHandler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtDebugMsg)
        return;
    if (g_previousHandler)
        g_previousHandler(type, context, message);
}

} // namespace

class TestStress : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void randomOperations_data();
    void randomOperations();
    void cleanupTestCase();

private:
    QElapsedTimer m_clock;
    qint64 m_budgetMs = 0;
    int m_rowsLeft = 0;
    qint64 m_totalOps = 0;
};

void TestStress::initTestCase()
{
    EventSender::parkPointer();
    RowRealiser::setParking(true);
    if (QGuiApplication::platformName() != QLatin1String("minimal"))
        QSKIP("needs the minimal platform, whose in-process drag runs QDrag::exec");
    g_previousHandler = qInstallMessageHandler(quietHandler);
#ifdef STRESS_HAVE_SANITIZER
    __sanitizer_set_death_callback(onSanitizerDeath);
#endif
    m_budgetMs = qint64(envInt("STRESS_TIME_BUDGET", 240)) * 1000;
    m_rowsLeft = seedsFromEnv().size();
    m_clock.start();
    qInfo("stress: %d operations per seed, time budget %lld s, seeds %s", opsFromEnv(), m_budgetMs / 1000,
          qPrintable(qEnvironmentVariable("STRESS_SEED", QStringLiteral("(default)"))));
    qInfo("stress: after a crash, repeat with STRESS_SEED=<seed> STRESS_VERBOSE=1 to see every operation");
}

void TestStress::randomOperations_data()
{
    QTest::addColumn<quint64>("seed");
    for (quint64 seed : seedsFromEnv())
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

void TestStress::randomOperations()
{
    QFETCH(quint64, seed);
    const int ops = opsFromEnv();
    const bool verbose = qEnvironmentVariableIntValue("STRESS_VERBOSE") != 0;
    // Each seed gets its share of what is left of the budget.
    const qint64 left = qMax<qint64>(1000, m_budgetMs - m_clock.elapsed());
    const qint64 share = left / qMax(1, m_rowsLeft--);

    qInfo("stress: seed %llu: starting", static_cast<unsigned long long>(seed));
    StressRun run(seed, ops, share, verbose);
    const bool ok = run.run();
    m_totalOps += run.opsRun;

    QStringList perOp;
    for (int i = 0; i < OpCount; ++i)
        perOp << QStringLiteral("%1 %2").arg(QLatin1String(kOpNames[i])).arg(run.stats.ops[i]);
    qInfo("stress: seed %llu: %d of %d operations in %.1f s%s; drags started %d, drops %d, in-drag "
          "root deletions %d, row deletions %d, clears %d, destructions %d, host calls %d; host reactions "
          "%d (nested %d, destroying %d, removing the emitting row %d); host signals checked %d; largest "
          "tree %d drawers, %d child rows",
          static_cast<unsigned long long>(seed), run.opsRun, ops, run.elapsedMs / 1000.0,
          run.timedOut ? " (stopped by the time budget)" : "", run.stats.dragsStarted, run.stats.drops,
          run.stats.dragDeleteRoot, run.stats.dragDeleteRow, run.stats.dragClear, run.stats.dragDestroy, run.stats.dragHostOps,
          run.stats.reactCalls, run.stats.reactNested, run.stats.reactDestroy, run.stats.reactOwnRow,
          run.stats.signalsChecked, run.stats.maxDrawers, run.stats.maxRows);
    qInfo("stress: operations: %s", qPrintable(perOp.join(QStringLiteral(", "))));

    if (ok)
        return;

    // Shrink: the shortest prefix of the same sequence that still fails on
    // a fresh control.
    const int failingLength = run.failedAt + 1;
    int shortest = failingLength;
    QString shortestFailure = run.failure;
    QStringList shortestRecent = run.recent;
    // Shrinking re-runs the sequence; it stops a minute after the budget so
    // that the test still ends inside its timeout.
    const qint64 shrinkDeadline = m_budgetMs + 60000;
    const auto remaining = [&] { return qMax<qint64>(1, shrinkDeadline - m_clock.elapsed()); };
    {
        StressRun again(seed, failingLength, remaining(), false);
        if (again.run() || again.timedOut) {
            qWarning("stress: the failure did not repeat on a fresh control with the first %d operations",
                     failingLength);
        } else {
            shortest = again.failedAt + 1;
            shortestFailure = again.failure;
            shortestRecent = again.recent;
            int lo = 1, hi = shortest - 1; // search for a shorter failing prefix
            while (lo <= hi && m_clock.elapsed() < shrinkDeadline) {
                const int mid = lo + (hi - lo) / 2;
                StressRun probe(seed, mid, remaining(), false);
                const bool passed = probe.run();
                if (probe.timedOut)
                    break;
                if (passed) {
                    lo = mid + 1;
                } else {
                    shortest = probe.failedAt + 1;
                    shortestFailure = probe.failure;
                    shortestRecent = probe.recent;
                    hi = shortest - 1;
                }
            }
        }
    }
    const QString report =
        QStringLiteral("seed %1: operation #%2 failed: %3\nshortest failing prefix: %4 operations (#%5: %6)\n"
                       "repeat with: STRESS_SEED=%1 STRESS_OPS=%4 STRESS_VERBOSE=1\nlast operations:\n  %7")
            .arg(seed)
            .arg(run.failedAt)
            .arg(run.failure)
            .arg(shortest)
            .arg(shortest - 1)
            .arg(shortestFailure)
            .arg(shortestRecent.join(QStringLiteral("\n  ")));
    QFAIL(qPrintable(report));
}

void TestStress::cleanupTestCase()
{
    qInfo("stress: %lld operations in %.1f s", m_totalOps, m_clock.elapsed() / 1000.0);
}

QTEST_MAIN(TestStress)

#include "tst_stress.moc"
