// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// The child row under the pointer and the mouse: hover buttons, presses,
// clicks on the buttons, and the looks they leave (the row's construction,
// names and pictures are in tst_seconditem).

#include "EventSender.h"
#include "PixelProbe.h"
#include "SecondItem.h"
#include "SecondItemProbe.h"

#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QStyle>
#include <QToolButton>
#include <QtTest>

#include <memory>

namespace {

using namespace SecondItemProbe;
using EventSender::sendEnter;
using EventSender::sendLeave;

QStringList g_debugMessages;
QtMessageHandler g_previousHandler = nullptr;

void captureDebug(QtMsgType type, const QMessageLogContext &context, const QString &msg)
{
    if (type == QtDebugMsg)
        g_debugMessages << msg;
    else if (g_previousHandler)
        g_previousHandler(type, context, msg);
}

} // namespace

class tst_SecondItemInput : public QObject
{
    Q_OBJECT

private slots:
    // Hover comes only from the events the tests send.
    void initTestCase() { EventSender::parkPointer(); }
    void buttonPlacementOnHover_data();
    void buttonPlacementOnHover();
    void opBtnShowOneElementKeepsOthers();
    void leaveHidesButtons();
    void hoverLook();
    void mousePressSelects();
    void captureClickKeepsLook();
    void editAndDeleteClicksSelect_data();
    void editAndDeleteClicksSelect();
    void fourthButtonHasNoAction();
    void setPressed_data();
    void setPressed();
    void styleSheetFollowsItemLook();
    void styleSheetFollowsUpperLine();
    void languageChangeDoesNothing();
};

void tst_SecondItemInput::buttonPlacementOnHover_data()
{
    QTest::addColumn<QList<bool>>("flags");
    QTest::addColumn<bool>("capture");
    QTest::addColumn<bool>("edit");
    QTest::addColumn<bool>("del");
    QTest::addColumn<bool>("fourth");
    QTest::addColumn<int>("itemWidth");

    QTest::newRow("none") << QList<bool>() << false << false << false << false << 320;
    QTest::newRow("edit") << QList<bool>({true}) << false << true << false << false << 320;
    QTest::newRow("edit delete") << QList<bool>({true, true}) << false << true << true << false << 320;
    QTest::newRow("three") << QList<bool>({true, true, true}) << true << true << true << false << 320;
    QTest::newRow("three wide") << QList<bool>({true, true, true}) << true << true << true << false << 777;
    QTest::newRow("four") << QList<bool>({true, true, true, true}) << true << true << true << true << 320;
    QTest::newRow("fourth only") << QList<bool>({false, false, false, true}) << false << false << false << true
                                 << 320;
    QTest::newRow("delete only") << QList<bool>({false, true, false}) << false << false << true << false << 401;
    QTest::newRow("all off") << QList<bool>({false, false, false, false}) << false << false << false << false
                             << 320;
    QTest::newRow("five ignored") << QList<bool>({true, true, true, true, true}) << false << false << false
                                  << false << 320;
}

void tst_SecondItemInput::buttonPlacementOnHover()
{
    QFETCH(QList<bool>, flags);
    QFETCH(bool, capture);
    QFETCH(bool, edit);
    QFETCH(bool, del);
    QFETCH(bool, fourth);
    QFETCH(int, itemWidth);

    auto item = makeShownItem(itemWidth);
    QVERIFY(item);
    QCOMPARE(item->width(), itemWidth);
    const SecondParts p = partsOf(item.get());

    st_NodeInfoSignal node;
    node.strNodeName << QStringLiteral("sig");
    node.showOpBtn = flags;
    item->setNodeInfo(node);
    // Flags alone show nothing.
    QVERIFY(!p.frame->isVisible());

    sendEnter(item.get());
    QCOMPARE(p.capture->isVisible(), capture);
    QCOMPARE(p.edit->isVisible(), edit);
    QCOMPARE(p.del->isVisible(), del);
    QCOMPARE(p.fourth->isVisible(), fourth);

    const int shown = int(capture) + int(edit) + int(del) + int(fourth);
    if (shown == 0) {
        QVERIFY(!p.frame->isVisible());
        return;
    }
    const int frameWidth = shown * (20 + 8) + 8;
    QVERIFY(p.frame->isVisible());
    QCOMPARE(p.frame->width(), frameWidth);
    QCOMPARE(p.frame->x(), itemWidth - frameWidth);
    QCOMPARE(p.frame->x() + p.frame->width(), item->width());
    QCOMPARE(p.frame->y(), (40 - p.frame->height()) / 2);
    if (shown == 3)
        QCOMPARE(p.frame->width(), 92);
}

void tst_SecondItemInput::opBtnShowOneElementKeepsOthers()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const SecondParts p = partsOf(item.get());
    item->setOpBtnShow({true, true, true, true});
    item->setOpBtnShow({false});
    sendEnter(item.get());
    QVERIFY(p.capture->isVisible());
    QVERIFY(!p.edit->isVisible());
    QVERIFY(p.del->isVisible());
    QVERIFY(p.fourth->isVisible());
    QCOMPARE(p.frame->width(), 3 * 28 + 8);

    sendLeave(item.get());
    item->setOpBtnShow({true, false, false});
    sendEnter(item.get());
    QVERIFY(!p.capture->isVisible());
    QVERIFY(p.edit->isVisible());
    QVERIFY(!p.del->isVisible());
    QVERIFY(p.fourth->isVisible());
    QCOMPARE(p.frame->width(), 2 * 28 + 8);
}

void tst_SecondItemInput::leaveHidesButtons()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const SecondParts p = partsOf(item.get());
    item->setOpBtnShow({true, true, true, true});
    sendEnter(item.get());
    QVERIFY(p.frame->isVisible());

    sendLeave(item.get());
    QVERIFY(!p.frame->isVisible());
    for (QToolButton *btn : {p.capture, p.edit, p.del, p.fourth})
        QVERIFY(btn->isHidden());
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("normal"));
}

void tst_SecondItemInput::hoverLook()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const SecondParts p = partsOf(item.get());

    sendEnter(item.get());
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("hover"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), false);
    sendLeave(item.get());
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("normal"));

    item->setPressed(true);
    sendEnter(item.get());
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("press"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);
    sendLeave(item.get());
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("press"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);

    item->setPressed(false);
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("normal"));
}

void tst_SecondItemInput::mousePressSelects()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const SecondParts p = partsOf(item.get());
    item->setPressed(false);
    Recorder rec;
    rec.attach(item.get());

    g_debugMessages.clear();
    g_previousHandler = qInstallMessageHandler(captureDebug);
    QTest::mousePress(item.get(), Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
    qInstallMessageHandler(g_previousHandler);
    QCOMPARE(g_debugMessages, QStringList({QStringLiteral("enter")}));

    QCOMPARE(rec.events, QStringList({QStringLiteral("item")}));
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("press"));
    QCOMPARE(item->property("isTarn").toBool(), true);
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);
    QTest::mouseRelease(item.get(), Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));

    // The same trace through QtTest's own check.
    QTest::ignoreMessage(QtDebugMsg, "enter");
    QTest::mouseClick(item.get(), Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
    QCOMPARE(rec.events.size(), 2);

    // Pressing on a text label reaches the row as well.
    item->setUpperText(QStringLiteral("label"));
    QTest::ignoreMessage(QtDebugMsg, "enter");
    QTest::mouseClick(item.get(), Qt::LeftButton, Qt::NoModifier, p.upper->geometry().center());
    QCOMPARE(rec.events.size(), 3);
}

void tst_SecondItemInput::captureClickKeepsLook()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const SecondParts p = partsOf(item.get());
    item->setOpBtnShow({true, true, true});
    sendEnter(item.get());
    QVERIFY(p.capture->isVisible());
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("hover"));

    Recorder rec;
    rec.attach(item.get());
    QTest::mouseClick(p.capture, Qt::LeftButton, Qt::NoModifier, p.capture->rect().center());
    QCOMPARE(rec.events, QStringList({QStringLiteral("item"), QStringLiteral("capture")}));
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("hover"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), false);

    // Leaving afterwards returns to "normal": the capture did not press.
    sendLeave(item.get());
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("normal"));

    // A pressed row stays pressed.
    item->setPressed(true);
    sendEnter(item.get());
    QTest::mouseClick(p.capture, Qt::LeftButton, Qt::NoModifier, p.capture->rect().center());
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("press"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);
}

void tst_SecondItemInput::editAndDeleteClicksSelect_data()
{
    QTest::addColumn<int>("buttonIndex");
    QTest::addColumn<QString>("signalName");
    QTest::newRow("edit") << 1 << QStringLiteral("edit");
    QTest::newRow("delete") << 2 << QStringLiteral("delete");
}

void tst_SecondItemInput::editAndDeleteClicksSelect()
{
    QFETCH(int, buttonIndex);
    QFETCH(QString, signalName);
    auto item = makeShownItem();
    QVERIFY(item);
    const SecondParts p = partsOf(item.get());
    item->setOpBtnShow({true, true, true, true});
    sendEnter(item.get());
    QToolButton *btn = qobject_cast<QToolButton *>(p.frame->layout()->itemAt(buttonIndex)->widget());
    QVERIFY(btn && btn->isVisible());

    Recorder rec;
    rec.attach(item.get());
    QTest::mouseClick(btn, Qt::LeftButton, Qt::NoModifier, btn->rect().center());
    QCOMPARE(rec.events, QStringList({QStringLiteral("item"), signalName}));
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("press"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);
    sendLeave(item.get());
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("press"));
}

void tst_SecondItemInput::fourthButtonHasNoAction()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const SecondParts p = partsOf(item.get());
    item->setOpBtnShow({false, false, false, true});
    sendEnter(item.get());
    QVERIFY(p.fourth->isVisible());
    Recorder rec;
    rec.attach(item.get());
    QTest::mouseClick(p.fourth, Qt::LeftButton, Qt::NoModifier, p.fourth->rect().center());
    QVERIFY(rec.events.isEmpty());
    QCOMPARE(prop(item.get(), "isSecondItem"), QStringLiteral("hover"));
}

void tst_SecondItemInput::setPressed_data()
{
    QTest::addColumn<bool>("pressed");
    QTest::addColumn<QString>("look");
    QTest::newRow("pressed") << true << QStringLiteral("press");
    QTest::newRow("released") << false << QStringLiteral("normal");
}

void tst_SecondItemInput::setPressed()
{
    QFETCH(bool, pressed);
    QFETCH(QString, look);
    SecondItem item(nullptr);
    item.initItem(0, 0);
    const SecondParts p = partsOf(&item);
    item.setPressed(!pressed);
    QSignalSpy clicked(&item, &SecondItem::signal_OnItemClicked);

    item.setPressed(pressed);
    QCOMPARE(prop(&item, "isSecondItem"), look);
    QCOMPARE(item.property("isTarn").toBool(), true);
    QCOMPARE(p.upper->property("isUpOnline").toBool(), pressed);
    QCOMPARE(p.upper->property("isTarn").toBool(), true);
    QCOMPARE(clicked.count(), 0);
}

void tst_SecondItemInput::styleSheetFollowsItemLook()
{
    auto item = makeShownItem();
    QVERIFY(item);
    item->setStyleSheet(QStringLiteral("SecondItem[isSecondItem=\"normal\"]{background:rgb(0,0,255);}"
                                       "SecondItem[isSecondItem=\"hover\"]{background:rgb(0,255,0);}"
                                       "SecondItem[isSecondItem=\"press\"]{background:rgb(226,100,12);}"));
    const PixelProbe probe(item.get(), QPoint(2, 2));
    QVERIFY(!item->childAt(probe.spot()));

    QCOMPARE(probe.colour(), QColor(0, 0, 255));
    sendEnter(item.get());
    QCOMPARE(probe.colour(), QColor(0, 255, 0));
    sendLeave(item.get());
    QCOMPARE(probe.colour(), QColor(0, 0, 255));
    QTest::ignoreMessage(QtDebugMsg, "enter");
    QTest::mouseClick(item.get(), Qt::LeftButton, Qt::NoModifier, probe.spot());
    QCOMPARE(probe.colour(), QColor(226, 100, 12));
    sendLeave(item.get());
    QCOMPARE(probe.colour(), QColor(226, 100, 12));
    item->setPressed(false);
    QCOMPARE(probe.colour(), QColor(0, 0, 255));
}

void tst_SecondItemInput::styleSheetFollowsUpperLine()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const SecondParts p = partsOf(item.get());
    item->setUpperText(QStringLiteral("label text"));
    // Text in the background colour, so that only the background is sampled.
    item->setStyleSheet(QStringLiteral(
        "QLabel#m_qlUpper{background:rgb(10,20,30);color:rgb(10,20,30);}"
        "QLabel#m_qlUpper[isUpOnline=\"true\"]{background:rgb(226,100,12);color:rgb(226,100,12);}"));
    QTRY_VERIFY(p.upper->width() > 2);
    const PixelProbe probe(item.get(), p.upper->geometry().topLeft() + QPoint(1, 1));

    // Built with "isUpOnline" = true.
    QCOMPARE(probe.colour(), QColor(226, 100, 12));
    item->setPressed(false);
    QCOMPARE(probe.colour(), QColor(10, 20, 30));
    item->setPressed(true);
    QCOMPARE(probe.colour(), QColor(226, 100, 12));
}

void tst_SecondItemInput::languageChangeDoesNothing()
{
    SecondItem item(nullptr);
    item.initItem(0, 0);
    item.setUpperText(QStringLiteral("up"));
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&item, &change);
    QCOMPARE(partsOf(&item).upper->text(), QStringLiteral("up"));
    QCOMPARE(prop(&item, "isSecondItem"), QStringLiteral("normal"));
}


QTEST_MAIN(tst_SecondItemInput)
#include "tst_seconditem_input.moc"
