// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "DemoCapture.h"

#include "DemoData.h"
#include "DemoRows.h"
#include "DemoWindow.h"

#include <SignalTreeList.h>

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QElapsedTimer>
#include <QEvent>
#include <QFrame>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include <cstdio>
#include <memory>

namespace {

void printError(const QString &text)
{
    std::fprintf(stderr, "signaltreelist_demo: %s\n", qPrintable(text));
}

// Keeps the real pointer (under a real X server) away from the windows, so
// that only the synthetic hover shows.
void parkPointer()
{
    if (QScreen *screen = QGuiApplication::primaryScreen())
        QCursor::setPos(screen->geometry().bottomRight());
}

} // namespace

void DemoCapture::settle(QWidget *window)
{
    QElapsedTimer timer;
    timer.start();
    // Wait (at most two seconds) for the window system to show the window.
    while (window && window->windowHandle() && !window->windowHandle()->isExposed()
           && timer.elapsed() < 2000)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    for (int round = 0; round < 5; ++round) {
        QApplication::sendPostedEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
}

void DemoCapture::click(QWidget *widget)
{
    if (!widget)
        return;
    const QPointF local(widget->width() / 2.0, widget->height() / 2.0);
    const QPointF window = widget->mapTo(widget->window(), local.toPoint());
    const QPointF global = widget->mapToGlobal(local.toPoint());
    QMouseEvent press(QEvent::MouseButtonPress, local, window, global, Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, local, window, global, Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &release);
}

void DemoCapture::hover(QWidget *widget)
{
    if (!widget)
        return;
    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(widget, &enter);
}

bool DemoCapture::renderWindow(DemoWindow &window, const QString &file)
{
    parkPointer();
    window.resize(1200, 820);
    window.move(0, 0);
    window.show();
    settle(&window);

    QFrame *frame = window.list()->getSignalTreeListFrame();
    // The operator first picks a signal of the mosaic group, then one of
    // board 1, and rests the pointer on another signal of board 1.
    QWidget *first = DemoRows::childRow(frame, 5, 0);
    QWidget *pressed = DemoRows::childRow(frame, 0, 2);
    QWidget *hovered = DemoRows::childRow(frame, 0, 0);
    if (!first || !pressed || !hovered) {
        printError(QStringLiteral("the rows to click and hover were not found"));
        return false;
    }
    click(first);
    settle(&window);
    click(pressed);
    settle(&window);
    hover(hovered);
    settle(&window);

    const QPixmap picture = window.grab();
    if (!QDir().mkpath(QFileInfo(file).absolutePath()) || !picture.save(file, "PNG")) {
        printError(QStringLiteral("could not write %1").arg(file));
        return false;
    }
    std::printf("wrote %s (%dx%d)\n", qPrintable(file), picture.width(), picture.height());
    return true;
}

bool DemoCapture::saveRow(QWidget *rowWidget, int margin, int scale, const QString &file)
{
    if (!rowWidget) {
        printError(QStringLiteral("row for %1 not found").arg(file));
        return false;
    }
    QWidget *top = rowWidget->window();
    const QRect rect = QRect(rowWidget->mapTo(top, QPoint(0, 0)), rowWidget->size())
                           .adjusted(-margin, -margin, margin, margin)
                           .intersected(top->rect());
    QPixmap picture(rect.size() * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(QColor(48, 50, 56));
    top->render(&picture, QPoint(), QRegion(rect));
    picture.setDevicePixelRatio(1);
    if (!picture.save(file, "PNG")) {
        printError(QStringLiteral("could not write %1").arg(file));
        return false;
    }
    std::printf("wrote %s (%dx%d)\n", qPrintable(file), picture.width(), picture.height());
    return true;
}

bool DemoCapture::renderCloseups(const QString &directory, int scale)
{
    if (!QDir().mkpath(directory)) {
        printError(QStringLiteral("could not create %1").arg(directory));
        return false;
    }
    parkPointer();
    const QDir dir(directory);
    const QStringList states{QStringLiteral("normal"), QStringLiteral("hover"), QStringLiteral("press")};
    bool ok = true;

    for (const bool rootRow : {true, false}) {
        for (const QString &state : states) {
            // A fresh list per picture: a pressed root keeps its press look.
            // A panel with a little room around it, so that the rounded
            // corners of the first row are not cut.
            QFrame host;
            host.setObjectName(QStringLiteral("SignalPanel"));
            host.setWindowFlags(Qt::FramelessWindowHint);
            host.resize(380, rootRow ? 120 : 230);
            host.move(0, 0);
            auto *hostLayout = new QVBoxLayout(&host);
            hostLayout->setContentsMargins(0, 10, 0, 10);
            auto *panel = new QFrame;
            hostLayout->addWidget(panel);
            SignalTreeList list(panel);
            list.initControls();

            const QString source = QStringLiteral("board-1");
            st_NodeInfoSignal root = DemoData::root(QStringLiteral("Input board 1 · HDMI"), source,
                                                    false, true, 1, 0);
            const QList<st_NodeInfoSignal> children{
                DemoData::signal(QStringLiteral("HDMI 2"), QStringLiteral("1920x1080@60"), 6, true,
                                 source, {true, true, true}),
                DemoData::signal(QStringLiteral("DVI 1"), QStringLiteral("1920x1200@60"), 0, true, source,
                                 {true, true, true})};
            list.addRootItem(root, children);
            if (!rootRow)
                list.setIsShowChildItem(0, true);

            host.show();
            settle(&host);
            QFrame *frame = list.getSignalTreeListFrame();
            QWidget *row = rootRow ? DemoRows::rootRow(frame, 0) : DemoRows::childRow(frame, 0, 0);
            if (state == QLatin1String("hover"))
                hover(row);
            else if (state == QLatin1String("press"))
                click(row);
            settle(&host);

            const QString name = QStringLiteral("%1-%2.png")
                                     .arg(rootRow ? QStringLiteral("rootitem") : QStringLiteral("seconditem"),
                                          state);
            ok = saveRow(row, 6, scale, dir.filePath(name)) && ok;
            host.hide();
        }
    }
    return ok;
}
