// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "CLanguageTranslateFrame.h"
#include "EventSender.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QTranslator>
#include <QWindow>
#include <QtTest>

#include <memory>

namespace {

// Counts the hook calls so that a test can tell "once" from "never" or "twice".
class CountingFrame : public CLanguageTranslateFrame
{
public:
    explicit CountingFrame(QWidget *parent = nullptr)
        : CLanguageTranslateFrame(parent)
    {
    }

    void reTranslateUI() override { ++translateCalls; }

    int translateCalls = 0;
    QList<QScreen *> screens;

protected:
    void screenChangedEvent(QScreen *screen) override { screens.append(screen); }
};

// A .qm image: the 16-byte magic, then one "messages" block (tag 0x69, length
// 1) holding only the end-of-message tag. The block makes the translator
// non-empty, which installTranslator() needs before it announces a language
// change.
QByteArray minimalQm()
{
    static const unsigned char bytes[] = {
        0x3c, 0xb8, 0x64, 0x18, 0xca, 0xef, 0x9c, 0x95,
        0xcd, 0x21, 0x1c, 0xbf, 0x60, 0xa1, 0xbd, 0xdd,
        0x69, 0x00, 0x00, 0x00, 0x01, 0x01,
    };
    return QByteArray(reinterpret_cast<const char *>(bytes), int(sizeof bytes));
}

} // namespace

class tst_CLanguageTranslateFrame : public QObject
{
    Q_OBJECT

private slots:
    // Hover comes only from the events the tests send.
    void initTestCase() { EventSender::parkPointer(); }
    void isAFrame();
    void noTranslationCallWithoutLanguageChange();
    void languageChangeEventCallsReTranslateOnce();
    void installingTranslatorCallsReTranslateOnce_data();
    void installingTranslatorCallsReTranslateOnce();
    void childFrameGetsLanguageChangeOfItsWindow();
    void screenChangeOfTopLevelCallsHook();
    void screenChangeOfOwnTopLevelCallsHook();
    void reparentingMovesScreenWatch();
    void destroyedFrameIsNotCalled();
};

void tst_CLanguageTranslateFrame::isAFrame()
{
    QWidget parent;
    CountingFrame frame(&parent);
    QVERIFY(qobject_cast<QFrame *>(&frame) != nullptr);
    QCOMPARE(frame.parentWidget(), &parent);
    QVERIFY(frame.inherits("CLanguageTranslateFrame"));
}

void tst_CLanguageTranslateFrame::noTranslationCallWithoutLanguageChange()
{
    QWidget top;
    CountingFrame frame(&top);
    top.show();
    QVERIFY(QTest::qWaitForWindowExposed(&top));
    QCoreApplication::processEvents();
    QCOMPARE(frame.translateCalls, 0);
    QVERIFY(frame.screens.isEmpty());
}

void tst_CLanguageTranslateFrame::languageChangeEventCallsReTranslateOnce()
{
    CountingFrame frame;
    QEvent event(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&frame, &event);
    QCOMPARE(frame.translateCalls, 1);

    // Other change events are not language changes.
    QEvent other(QEvent::FontChange);
    QCoreApplication::sendEvent(&frame, &other);
    QCOMPARE(frame.translateCalls, 1);

    QCoreApplication::sendEvent(&frame, &event);
    QCOMPARE(frame.translateCalls, 2);
}

void tst_CLanguageTranslateFrame::installingTranslatorCallsReTranslateOnce_data()
{
    QTest::addColumn<bool>("shown");
    QTest::newRow("hidden top level") << false;
    QTest::newRow("shown top level") << true;
}

void tst_CLanguageTranslateFrame::installingTranslatorCallsReTranslateOnce()
{
    QFETCH(bool, shown);

    const QByteArray qm = minimalQm();
    QTranslator translator;
    QVERIFY(translator.load(reinterpret_cast<const uchar *>(qm.constData()), qm.size()));
    QVERIFY(!translator.isEmpty());

    CountingFrame frame;
    if (shown) {
        frame.show();
        QVERIFY(QTest::qWaitForWindowExposed(&frame));
    }
    QCoreApplication::processEvents();
    QCOMPARE(frame.translateCalls, 0);

    QVERIFY(QCoreApplication::installTranslator(&translator));
    // The application delivers the language change through the event queue.
    QTRY_COMPARE(frame.translateCalls, 1);
    QTest::qWait(50);
    QCOMPARE(frame.translateCalls, 1);

    QVERIFY(QCoreApplication::removeTranslator(&translator));
    QTRY_COMPARE(frame.translateCalls, 2);
    QTest::qWait(50);
    QCOMPARE(frame.translateCalls, 2);
}

void tst_CLanguageTranslateFrame::childFrameGetsLanguageChangeOfItsWindow()
{
    QWidget top;
    auto *outer = new CountingFrame(&top);
    auto *inner = new CountingFrame(outer);
    QEvent event(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&top, &event);
    QCOMPARE(outer->translateCalls, 1);
    QCOMPARE(inner->translateCalls, 1);
}

void tst_CLanguageTranslateFrame::screenChangeOfTopLevelCallsHook()
{
    QWidget top;
    top.resize(200, 100);
    auto *frame = new CountingFrame(&top);
    top.show();
    QVERIFY(QTest::qWaitForWindowExposed(&top));

    QWindow *handle = top.windowHandle();
    QVERIFY(handle != nullptr);
    QScreen *screen = QGuiApplication::primaryScreen();
    QVERIFY(screen != nullptr);

    frame->screens.clear();
    emit handle->screenChanged(screen);
    QCOMPARE(frame->screens.size(), 1);
    QCOMPARE(frame->screens.first(), screen);

    emit handle->screenChanged(nullptr);
    QCOMPARE(frame->screens.size(), 2);
    QCOMPARE(frame->screens.at(1), static_cast<QScreen *>(nullptr));
}

void tst_CLanguageTranslateFrame::screenChangeOfOwnTopLevelCallsHook()
{
    CountingFrame frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QWindow *handle = frame.windowHandle();
    QVERIFY(handle != nullptr);
    frame.screens.clear();
    emit handle->screenChanged(QGuiApplication::primaryScreen());
    QCOMPARE(frame.screens.size(), 1);
    QCOMPARE(frame.screens.first(), QGuiApplication::primaryScreen());
}

void tst_CLanguageTranslateFrame::reparentingMovesScreenWatch()
{
    QWidget first;
    first.resize(200, 100);
    QWidget second;
    second.resize(200, 100);
    auto *frame = new CountingFrame(&first);
    first.show();
    second.show();
    QVERIFY(QTest::qWaitForWindowExposed(&first));
    QVERIFY(QTest::qWaitForWindowExposed(&second));
    QWindow *firstHandle = first.windowHandle();
    QWindow *secondHandle = second.windowHandle();
    QVERIFY(firstHandle && secondHandle && firstHandle != secondHandle);
    QScreen *screen = QGuiApplication::primaryScreen();

    frame->screens.clear();
    emit secondHandle->screenChanged(screen);
    QVERIFY2(frame->screens.isEmpty(), "a window that does not hold the frame must not reach it");

    frame->setParent(&second);
    frame->show();
    QCoreApplication::processEvents();

    frame->screens.clear();
    emit firstHandle->screenChanged(screen);
    QVERIFY2(frame->screens.isEmpty(), "the old window still reaches the frame");

    emit secondHandle->screenChanged(screen);
    QCOMPARE(frame->screens.size(), 1);
    QCOMPARE(frame->screens.first(), screen);
}

void tst_CLanguageTranslateFrame::destroyedFrameIsNotCalled()
{
    QWidget top;
    QPointer<CountingFrame> doomed = new CountingFrame(&top);
    auto *survivor = new CountingFrame(&top);
    top.show();
    QVERIFY(QTest::qWaitForWindowExposed(&top));
    QWindow *handle = top.windowHandle();
    delete doomed.data();
    QVERIFY(doomed.isNull());
    // The deleted frame's watch must be gone (no call into freed memory),
    // while its sibling still hears the window.
    survivor->screens.clear();
    emit handle->screenChanged(QGuiApplication::primaryScreen());
    QCOMPARE(survivor->screens.size(), 1);
}

QTEST_MAIN(tst_CLanguageTranslateFrame)
#include "tst_clanguagetranslateframe.moc"
