// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "BenchSubject.h"

#include "BenchRowWidget.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QWidget>
#include <QWindow>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
// Exported by Qt 5's QtCore: the number of events posted and not yet delivered.
Q_CORE_EXPORT uint qGlobalPostedEventsCount();
#endif

namespace {

// Whether the last pass left work behind. Qt 6 does not export the posted
// event count; there the event dispatcher says whether a pass did anything.
bool eventsLeft(bool passDidWork)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    Q_UNUSED(passDidWork)
    return qGlobalPostedEventsCount() != 0;
#else
    return passDidWork;
#endif
}

} // namespace

BenchSubject::~BenchSubject()
{
    destroyWindow();
}

void BenchSubject::setAllExpanded(bool expanded)
{
    const int groups = groupCount();
    for (int r = 0; r < groups; ++r)
        setExpanded(r, expanded);
}

void BenchSubject::destroyWindow()
{
    delete m_pWindow;
    m_pWindow = nullptr;
    m_pCurrentRow = nullptr;
    drainEvents();
}

void BenchSubject::drainEvents()
{
    for (int pass = 0; pass < 64; ++pass) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const bool didWork = QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (!eventsLeft(didWork))
            return;
    }
}

long BenchSubject::residentKiB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').value(0).toLong();
    }
    return -1;
}

void BenchSubject::showAndExpose()
{
    m_pWindow->show();
    QElapsedTimer deadline;
    deadline.start();
    while (!(m_pWindow->windowHandle() && m_pWindow->windowHandle()->isExposed())
           && deadline.elapsed() < 5000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    }
    drainEvents();
}

QWidget *BenchSubject::createHostWindow()
{
    QWidget *window = new QWidget;
    window->setObjectName(QStringLiteral("BenchHost"));
    window->resize(420, 900);
    return window;
}

BenchRowWidget *BenchSubject::createRow(const QString &picture, const QString &upper,
                                        const QString &lower, QWidget *parent)
{
    BenchRowWidget *row = new BenchRowWidget(picture, upper, lower, m_bLibraryWidgets, parent);
    connect(row, &BenchRowWidget::pressed, this, [this, row]() {
        if (m_pCurrentRow && m_pCurrentRow != row)
            m_pCurrentRow->setLook(QStringLiteral("normal"));
        row->setLook(QStringLiteral("press"));
        m_pCurrentRow = row;
        emit clicked();
    });
    return row;
}
