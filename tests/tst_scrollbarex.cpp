// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "EventSender.h"
#include "ScrollBarEx.h"

#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QtTest>

namespace {

// The panel colour of the track and the raised grey of the handle.
const QColor kTrack(48, 50, 56);
const QColor kHandle(79, 84, 92);

// The look is applied through a temporary that is gone before the bar paints.
void styleWithTemporary(QScrollBar *bar, bool showArrows)
{
    ScrollBarEx styler(bar, showArrows);
    if (bar->orientation() == Qt::Vertical)
        styler.setTreeVerticalStyle();
    else
        styler.setTreeHorizontalStyle();
}

QRect subControl(QScrollBar *bar, QStyle::SubControl control)
{
    QStyleOptionSlider option;
    option.initFrom(bar);
    option.subControls = QStyle::SC_None;
    option.activeSubControls = QStyle::SC_None;
    option.orientation = bar->orientation();
    option.minimum = bar->minimum();
    option.maximum = bar->maximum();
    option.sliderPosition = bar->sliderPosition();
    option.sliderValue = bar->value();
    option.singleStep = bar->singleStep();
    option.pageStep = bar->pageStep();
    option.upsideDown = bar->invertedAppearance();
    if (bar->orientation() == Qt::Horizontal)
        option.state |= QStyle::State_Horizontal;
    return bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, control, bar);
}

QImage paintedBar(QScrollBar *bar)
{
    return bar->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QStringList resourceUrls(const QString &sheet)
{
    QStringList urls;
    QRegularExpression url(QStringLiteral("url\\(([^)]*)\\)"));
    auto it = url.globalMatch(sheet);
    while (it.hasNext())
        urls << it.next().captured(1).trimmed();
    return urls;
}

} // namespace

class tst_ScrollBarEx : public QObject
{
    Q_OBJECT

private slots:
    // Hover comes only from the events the tests send.
    void initTestCase() { EventSender::parkPointer(); }
    void lookOutlivesTemporary_data();
    void lookOutlivesTemporary();
    void trackAndHandleColours_data();
    void trackAndHandleColours();
    void noArrowsLeavesNoArrowRoom_data();
    void noArrowsLeavesNoArrowRoom();
    void arrowsTakeRoomAtBothEnds_data();
    void arrowsTakeRoomAtBothEnds();
    void nullScrollBarIsNoOp();
    void sheetResourcesExist_data();
    void sheetResourcesExist();
};

void tst_ScrollBarEx::lookOutlivesTemporary_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<bool>("showArrows");
    QTest::newRow("vertical, arrows") << Qt::Vertical << true;
    QTest::newRow("vertical, bare") << Qt::Vertical << false;
    QTest::newRow("horizontal, arrows") << Qt::Horizontal << true;
    QTest::newRow("horizontal, bare") << Qt::Horizontal << false;
}

void tst_ScrollBarEx::lookOutlivesTemporary()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(bool, showArrows);

    QScrollBar bar(orientation);
    QVERIFY(bar.styleSheet().isEmpty());
    styleWithTemporary(&bar, showArrows);
    QVERIFY(!bar.styleSheet().isEmpty());
    QVERIFY(bar.styleSheet().contains(QStringLiteral("QScrollBar")));
}

void tst_ScrollBarEx::trackAndHandleColours_data()
{
    lookOutlivesTemporary_data();
}

void tst_ScrollBarEx::trackAndHandleColours()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(bool, showArrows);

    QScrollBar bar(orientation);
    bar.setRange(0, 100);
    bar.setPageStep(20);
    bar.setValue(0);
    if (orientation == Qt::Vertical)
        bar.resize(12, 240);
    else
        bar.resize(240, 12);
    styleWithTemporary(&bar, showArrows);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));

    const QRect handle = subControl(&bar, QStyle::SC_ScrollBarSlider);
    const QRect page = subControl(&bar, QStyle::SC_ScrollBarAddPage);
    QVERIFY(handle.isValid());
    QVERIFY(page.isValid());

    const QImage image = paintedBar(&bar);
    QCOMPARE(image.size(), bar.size());
    QCOMPARE(QColor(image.pixel(handle.center())), kHandle);
    QCOMPARE(QColor(image.pixel(page.center())), kTrack);
}

void tst_ScrollBarEx::noArrowsLeavesNoArrowRoom_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::newRow("vertical") << Qt::Vertical;
    QTest::newRow("horizontal") << Qt::Horizontal;
}

void tst_ScrollBarEx::noArrowsLeavesNoArrowRoom()
{
    QFETCH(Qt::Orientation, orientation);

    QScrollBar bar(orientation);
    bar.setRange(0, 100);
    bar.setPageStep(20);
    const bool vertical = orientation == Qt::Vertical;
    bar.resize(vertical ? QSize(12, 240) : QSize(240, 12));
    styleWithTemporary(&bar, false);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));

    // The groove runs the whole length of the bar.
    const QRect groove = subControl(&bar, QStyle::SC_ScrollBarGroove);
    QCOMPARE(vertical ? groove.height() : groove.width(), 240);
    const QRect subLine = subControl(&bar, QStyle::SC_ScrollBarSubLine);
    const QRect addLine = subControl(&bar, QStyle::SC_ScrollBarAddLine);
    QCOMPARE(vertical ? subLine.height() : subLine.width(), 0);
    QCOMPARE(vertical ? addLine.height() : addLine.width(), 0);

    // At the first end, where an arrow would stand, the track shows when the
    // handle is at the far end; and the handle reaches the very first pixel.
    bar.setValue(bar.maximum());
    QImage image = paintedBar(&bar);
    QCOMPARE(QColor(image.pixel(vertical ? QPoint(6, 2) : QPoint(2, 6))), kTrack);
    bar.setValue(bar.minimum());
    const QRect handle = subControl(&bar, QStyle::SC_ScrollBarSlider);
    QCOMPARE(vertical ? handle.top() : handle.left(), 0);
    image = paintedBar(&bar);
    QCOMPARE(QColor(image.pixel(vertical ? QPoint(6, 235) : QPoint(235, 6))), kTrack);
}

void tst_ScrollBarEx::arrowsTakeRoomAtBothEnds_data()
{
    noArrowsLeavesNoArrowRoom_data();
}

void tst_ScrollBarEx::arrowsTakeRoomAtBothEnds()
{
    QFETCH(Qt::Orientation, orientation);

    const bool vertical = orientation == Qt::Vertical;
    QScrollBar bare(orientation);
    QScrollBar arrowed(orientation);
    for (QScrollBar *bar : { &bare, &arrowed }) {
        bar->setRange(0, 100);
        bar->setPageStep(20);
        bar->resize(vertical ? QSize(12, 240) : QSize(240, 12));
    }
    styleWithTemporary(&bare, false);
    styleWithTemporary(&arrowed, true);
    bare.show();
    arrowed.show();
    QVERIFY(QTest::qWaitForWindowExposed(&arrowed));

    const QRect subLine = subControl(&arrowed, QStyle::SC_ScrollBarSubLine);
    const QRect addLine = subControl(&arrowed, QStyle::SC_ScrollBarAddLine);
    QVERIFY((vertical ? subLine.height() : subLine.width()) > 0);
    QVERIFY((vertical ? addLine.height() : addLine.width()) > 0);
    QCOMPARE(vertical ? subLine.top() : subLine.left(), 0);
    QCOMPARE(vertical ? addLine.bottom() : addLine.right(), 239);

    // With arrows the handle starts after the first arrow, and the room for
    // the handle is shorter than on the bare bar.
    const QRect handle = subControl(&arrowed, QStyle::SC_ScrollBarSlider);
    QVERIFY((vertical ? handle.top() : handle.left()) > 0);
    const QRect bareGroove = subControl(&bare, QStyle::SC_ScrollBarGroove);
    const QRect arrowedGroove = subControl(&arrowed, QStyle::SC_ScrollBarGroove);
    QVERIFY((vertical ? arrowedGroove.height() : arrowedGroove.width())
            < (vertical ? bareGroove.height() : bareGroove.width()));
}

void tst_ScrollBarEx::nullScrollBarIsNoOp()
{
    for (bool showArrows : { true, false }) {
        ScrollBarEx styler(nullptr, showArrows);
        styler.setTreeVerticalStyle();
        styler.setTreeHorizontalStyle();
        styler.setTreeVerticalStyle();
        // The texts are still available to a host that restyles itself.
        QVERIFY(!styler.treeVerticalStyleSheet().isEmpty());
        QVERIFY(!styler.treeHorizontalStyleSheet().isEmpty());
    }
    // A heap styler over no bar is created, used and deleted cleanly.
    ScrollBarEx *heap = new ScrollBarEx(nullptr, true);
    heap->setTreeVerticalStyle();
    delete heap;
    QScrollBar untouched(Qt::Vertical);
    QVERIFY(untouched.styleSheet().isEmpty());
}

void tst_ScrollBarEx::sheetResourcesExist_data()
{
    lookOutlivesTemporary_data();
}

void tst_ScrollBarEx::sheetResourcesExist()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(bool, showArrows);

    QScrollBar bar(orientation);
    styleWithTemporary(&bar, showArrows);
    const QStringList urls = resourceUrls(bar.styleSheet());
    if (showArrows)
        QVERIFY(!urls.isEmpty());
    for (const QString &url : urls) {
        QVERIFY2(url.startsWith(QStringLiteral(":/scrollbar/resource/scrollbar/")), qPrintable(url));
        QVERIFY2(QFile::exists(url), qPrintable(url));
    }
    // Both arrows of the orientation, at rest and pressed.
    if (showArrows) {
        const QStringList names = orientation == Qt::Vertical
            ? QStringList{ QStringLiteral("up"), QStringLiteral("down") }
            : QStringList{ QStringLiteral("left"), QStringLiteral("right") };
        for (const QString &name : names) {
            for (const char *state : { "normal", "pressed" }) {
                const QString path = QStringLiteral(":/scrollbar/resource/scrollbar/%1_%2.png")
                                         .arg(name, QLatin1String(state));
                QVERIFY2(urls.contains(path), qPrintable(path));
            }
        }
    }
}

QTEST_MAIN(tst_ScrollBarEx)
#include "tst_scrollbarex.moc"
