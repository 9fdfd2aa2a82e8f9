// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "BenchRunner.h"

#include "BenchContent.h"
#include "BenchSubject.h"
#include "FloorSubject.h"
#include "ItemWidgetTreeSubject.h"
#include "SignalTreeListSubject.h"
#include "TreeWidgetSubject.h"

#include <QApplication>
#include <QFile>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextStream>
#include <QWidget>

#include <algorithm>
#include <sys/resource.h>
#include <time.h>

namespace {

// Clicks per repetition; the first one of each repetition warms up.
constexpr int kClicks = 7;

void sendMouse(QWidget *widget, QEvent::Type type, const QPoint &pos)
{
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, pos, widget->mapToGlobal(pos), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

} // namespace

QStringList BenchRunner::operations()
{
    return QStringList() << QStringLiteral("build") << QStringLiteral("show")
                         << QStringLiteral("build+show") << QStringLiteral("scroll")
                         << QStringLiteral("click") << QStringLiteral("click-signal")
                         << QStringLiteral("collapse+expand") << QStringLiteral("updateTreeList")
                         << QStringLiteral("addRootItem");
}

QStringList BenchRunner::subjectKeys()
{
    return QStringList() << QStringLiteral("stl") << QStringLiteral("tree")
                         << QStringLiteral("treewidgets") << QStringLiteral("floor")
                         << QStringLiteral("floorfull");
}

std::unique_ptr<BenchSubject> BenchRunner::createSubject(const QString &key)
{
    if (key == QLatin1String("stl"))
        return std::unique_ptr<BenchSubject>(new SignalTreeListSubject);
    if (key == QLatin1String("tree"))
        return std::unique_ptr<BenchSubject>(new TreeWidgetSubject);
    if (key == QLatin1String("treewidgets"))
        return std::unique_ptr<BenchSubject>(new ItemWidgetTreeSubject);
    if (key == QLatin1String("floor"))
        return std::unique_ptr<BenchSubject>(new FloorSubject(false));
    if (key == QLatin1String("floorfull"))
        return std::unique_ptr<BenchSubject>(new FloorSubject(true));
    return nullptr;
}

BenchRunner::BenchRunner(const BenchContent &content, const QString &style, QTextStream &out)
    : m_content(content)
    , m_style(style)
    , m_out(out)
    , m_subjects(subjectKeys())
{
    m_clock.start();
}

qint64 BenchRunner::now() const
{
    if (m_bWallClock)
        return m_clock.nsecsElapsed();
    timespec ts;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
    return qint64(ts.tv_sec) * 1000000000 + ts.tv_nsec;
}

void BenchRunner::record(const QString &subject, const QString &op, qint64 ns)
{
    if (ns >= 0)
        m_samples[subject][op].append(ns);
}

Q_NEVER_INLINE qint64 BenchRunner::opBuild(BenchSubject &subject)
{
    const qint64 t0 = now();
    subject.createEmpty();
    subject.fillBulk(m_content);
    subject.setAllExpanded(true);
    return now() - t0;
}

Q_NEVER_INLINE qint64 BenchRunner::opShow(BenchSubject &subject)
{
    const qint64 t0 = now();
    subject.showAndExpose();
    subject.window()->repaint();
    BenchSubject::drainEvents();
    return now() - t0;
}

Q_NEVER_INLINE qint64 BenchRunner::opScroll(BenchSubject &subject, int *steps)
{
    QScrollBar *bar = subject.scrollBar();
    QWidget *viewport = subject.scrollViewport();
    bar->setValue(0);
    BenchSubject::drainEvents();
    *steps = 0;
    const qint64 t0 = now();
    int value = 0;
    while (value < bar->maximum()) {
        value = std::min(value + bar->pageStep(), bar->maximum());
        bar->setValue(value);
        viewport->repaint();
        ++*steps;
    }
    BenchSubject::drainEvents();
    return now() - t0;
}

Q_NEVER_INLINE qint64 BenchRunner::opClick(BenchSubject &subject, int child, qint64 *toSignal)
{
    const BenchSubject::ClickTarget target = subject.revealRow(m_content.roots() / 2, child);
    if (!target.widget)
        return -1;
    m_signalAt = -1;
    const qint64 t0 = now();
    sendMouse(target.widget, QEvent::MouseButtonPress, target.pos);
    sendMouse(target.widget, QEvent::MouseButtonRelease, target.pos);
    BenchSubject::drainEvents();
    const qint64 t1 = now();
    if (m_signalAt < 0) {
        qWarning("bench: %s answered no click", qPrintable(subject.key()));
        *toSignal = -1;
        return -1;
    }
    *toSignal = m_signalAt - t0;
    return t1 - t0;
}

Q_NEVER_INLINE qint64 BenchRunner::opCollapseExpand(BenchSubject &subject)
{
    const qint64 t0 = now();
    subject.setAllExpanded(false);
    BenchSubject::drainEvents();
    subject.setAllExpanded(true);
    BenchSubject::drainEvents();
    return now() - t0;
}

Q_NEVER_INLINE qint64 BenchRunner::opFirstPaintCollapsed(BenchSubject &subject)
{
    const qint64 t0 = now();
    subject.createEmpty();
    subject.fillBulk(m_content);
    subject.showAndExpose();
    subject.window()->repaint();
    BenchSubject::drainEvents();
    return now() - t0;
}

Q_NEVER_INLINE qint64 BenchRunner::opFirstPaintOpen(BenchSubject &subject)
{
    const qint64 t0 = now();
    subject.createEmpty();
    subject.fillBulk(m_content);
    subject.setAllExpanded(true);
    subject.showAndExpose();
    subject.window()->repaint();
    BenchSubject::drainEvents();
    return now() - t0;
}

Q_NEVER_INLINE qint64 BenchRunner::opExpand(BenchSubject &subject, int root)
{
    const qint64 t0 = now();
    subject.setExpanded(root, true);
    BenchSubject::drainEvents();
    subject.window()->repaint();
    return now() - t0;
}

Q_NEVER_INLINE qint64 BenchRunner::opExpandAll(BenchSubject &subject)
{
    const qint64 t0 = now();
    subject.setAllExpanded(true);
    BenchSubject::drainEvents();
    subject.window()->repaint();
    return now() - t0;
}

Q_NEVER_INLINE qint64 BenchRunner::opUpdateFromMap(BenchSubject &subject)
{
    subject.createEmpty();
    subject.showAndExpose();
    const qint64 t0 = now();
    subject.fillBulk(m_content);
    subject.setAllExpanded(true);
    BenchSubject::drainEvents();
    return now() - t0;
}

Q_NEVER_INLINE qint64 BenchRunner::opAddOneByOne(BenchSubject &subject)
{
    subject.createEmpty();
    subject.showAndExpose();
    const qint64 t0 = now();
    subject.fillOneByOne(m_content);
    subject.setAllExpanded(true);
    BenchSubject::drainEvents();
    return now() - t0;
}

void BenchRunner::runTiming(int reps)
{
    // One unrecorded pass over two groups of every design first: fonts,
    // glyphs, pictures and style sheet caches are then warm for all of them.
    if (m_bWarmUp && m_content.roots() > 2) {
        const BenchContent warmContent(2, m_content.children());
        BenchRunner warm(warmContent, m_style, m_out);
        warm.m_bWallClock = m_bWallClock;
        warm.m_subjects = m_subjects;
        warm.m_ops = m_ops;
        warm.runPasses(1);
    }
    runPasses(reps);
    printResults();
}

void BenchRunner::runPasses(int reps)
{
    const bool first = wants(QStringLiteral("build")) || wants(QStringLiteral("show"))
        || wants(QStringLiteral("build+show")) || wants(QStringLiteral("scroll"))
        || wants(QStringLiteral("click")) || wants(QStringLiteral("click-signal"))
        || wants(QStringLiteral("collapse+expand"));
    for (int rep = 0; rep < reps; ++rep) {
        // Each repetition starts with another design, so that none is
        // always the first after a slow spell or a long free.
        QStringList order = m_subjects;
        if (!order.isEmpty())
            std::rotate(order.begin(), order.begin() + rep % order.size(), order.end());
        for (const QString &key : qAsConst(order)) {
            if (first) {
                std::unique_ptr<BenchSubject> subject = createSubject(key);
                QObject::connect(subject.get(), &BenchSubject::clicked,
                                 [this]() { m_signalAt = now(); });
                const qint64 build = opBuild(*subject);
                const qint64 show = opShow(*subject);
                record(key, QStringLiteral("build"), build);
                record(key, QStringLiteral("show"), show);
                record(key, QStringLiteral("build+show"), build + show);
                if (wants(QStringLiteral("scroll"))) {
                    int steps = 0;
                    record(key, QStringLiteral("scroll"), opScroll(*subject, &steps));
                    record(key, QStringLiteral("scroll-steps"), steps);
                }
                if ((wants(QStringLiteral("click")) || wants(QStringLiteral("click-signal")))
                    && m_content.children() > 0) {
                    const int mid = m_content.children() / 2;
                    for (int k = 0; k < kClicks; ++k) {
                        // Alternate between two rows so that every click
                        // changes the selection.
                        const int child = (k % 2 == 0 || mid == 0) ? mid : mid - 1;
                        qint64 toSignal = -1;
                        const qint64 total = opClick(*subject, child, &toSignal);
                        if (k == 0)
                            continue;
                        record(key, QStringLiteral("click"), total);
                        record(key, QStringLiteral("click-signal"), toSignal);
                    }
                }
                if (wants(QStringLiteral("collapse+expand")))
                    record(key, QStringLiteral("collapse+expand"), opCollapseExpand(*subject));
                subject.reset();
                BenchSubject::drainEvents();
            }
            if (wants(QStringLiteral("updateTreeList"))) {
                std::unique_ptr<BenchSubject> subject = createSubject(key);
                record(key, QStringLiteral("updateTreeList"), opUpdateFromMap(*subject));
                subject.reset();
                BenchSubject::drainEvents();
            }
            if (wants(QStringLiteral("addRootItem"))) {
                std::unique_ptr<BenchSubject> subject = createSubject(key);
                record(key, QStringLiteral("addRootItem"), opAddOneByOne(*subject));
                subject.reset();
                BenchSubject::drainEvents();
            }
        }
        QTextStream(stderr) << "  " << m_content.sizeText() << ' ' << m_style << ": repetition "
                            << rep + 1 << '/' << reps << " done\n";
    }
}

void BenchRunner::printResults()
{
    for (const QString &key : qAsConst(m_subjects)) {
        const QMap<QString, QVector<qint64>> &ops = m_samples.value(key);
        for (auto it = ops.cbegin(); it != ops.cend(); ++it) {
            QVector<qint64> samples = it.value();
            if (samples.isEmpty())
                continue;
            std::sort(samples.begin(), samples.end());
            const int n = samples.size();
            const qint64 median = n % 2 ? samples.at(n / 2) : (samples.at(n / 2 - 1) + samples.at(n / 2)) / 2;
            m_out << "RESULT\t" << m_content.sizeText() << '\t' << m_style << '\t' << key << '\t'
                  << it.key() << '\t' << median << '\t' << samples.first() << '\t' << samples.last()
                  << '\t' << n << '\n';
        }
    }
    m_out.flush();
}

void BenchRunner::runRoom(const QString &subjectKey, int reps)
{
    m_subjects = QStringList{subjectKey};
    const int middle = m_content.roots() / 2;
    for (int rep = 0; rep < reps; ++rep) {
        std::unique_ptr<BenchSubject> subject = createSubject(subjectKey);
        if (!subject)
            return;
        record(subjectKey, QStringLiteral("room-first-paint"), opFirstPaintCollapsed(*subject));
        if (rep == 0) {
            m_out << "ROOMRSS\t" << m_content.sizeText() << '\t' << m_style << '\t' << subjectKey << '\t'
                  << BenchSubject::residentKiB() << '\n';
        }
        record(subjectKey, QStringLiteral("room-expand-one"), opExpand(*subject, middle));
        record(subjectKey, QStringLiteral("room-expand-all"), opExpandAll(*subject));
        subject.reset();
        BenchSubject::drainEvents();
    }
    printResults();
}

void BenchRunner::runOpenRoom(const QString &subjectKey, int reps)
{
    m_subjects = QStringList{subjectKey};
    for (int rep = 0; rep < reps; ++rep) {
        std::unique_ptr<BenchSubject> subject = createSubject(subjectKey);
        if (!subject)
            return;
        record(subjectKey, QStringLiteral("open-first-paint"), opFirstPaintOpen(*subject));
        if (rep == 0) {
            m_out << "ROOMRSS\t" << m_content.sizeText() << '\t' << m_style << '\t' << subjectKey << '\t'
                  << BenchSubject::residentKiB() << '\n';
        }
        // A page down as a key press does it: the scroll and its paint,
        // then whatever the design does once the event loop is idle.
        QScrollBar *bar = subject->scrollBar();
        QWidget *viewport = subject->scrollViewport();
        while (bar && viewport && bar->value() < bar->maximum()) {
            const qint64 t0 = now();
            bar->setValue(std::min(bar->value() + bar->pageStep(), bar->maximum()));
            viewport->repaint();
            const qint64 t1 = now();
            BenchSubject::drainEvents();
            record(subjectKey, QStringLiteral("page"), t1 - t0);
            record(subjectKey, QStringLiteral("page-idle"), now() - t1);
        }
        subject.reset();
        BenchSubject::drainEvents();
    }
    printResults();
}

void BenchRunner::runMemory(const QString &subjectKey)
{
    std::unique_ptr<BenchSubject> subject = createSubject(subjectKey);
    if (!subject)
        return;
    subject->createEmpty();
    subject->fillBulk(m_content);
    subject->setAllExpanded(true);
    subject->showAndExpose();
    subject->window()->repaint();
    int steps = 0;
    opScroll(*subject, &steps);
    BenchSubject::drainEvents();

    struct rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    m_out << "MEM\t" << m_content.sizeText() << '\t' << m_style << '\t' << subjectKey << '\t'
          << usage.ru_maxrss << '\n';
    m_out.flush();
}
