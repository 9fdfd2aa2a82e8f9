#include "BenchSubject.h"

#include "BenchRowWidget.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QHBoxLayout>
#include <QWidget>
#include <QWindow>

// Exported by QtCore: the number of events posted and not yet delivered.
Q_CORE_EXPORT uint qGlobalPostedEventsCount();

BenchSubject::~BenchSubject()
{
    destroyWindow();
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
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (qGlobalPostedEventsCount() == 0)
            return;
    }
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
