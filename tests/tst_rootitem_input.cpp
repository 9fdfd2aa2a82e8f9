// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "EventSender.h"
#include "RootItemProbe.h"
#include "PixelProbe.h"
#include "RootItem.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QFontMetrics>
#include <QImage>
#include <QLabel>
#include <QLayoutItem>
#include <QMouseEvent>
#include <QPixmap>
#include <QPointer>
#include <QSignalSpy>
#include <QSpacerItem>
#include <QToolButton>
#include <QtTest>

#include <climits>
#include <memory>

using namespace RootItemProbe;
using EventSender::sendEnter;
using EventSender::sendLeave;

// The root row under the pointer and the mouse: hover, press, double
// click, the expand box, selection and its buttons.
class tst_RootItemInput : public QObject
{
    Q_OBJECT

private slots:
    // Hover comes only from the events the tests send.
    void initTestCase() { EventSender::parkPointer(); }
    void hoverWhenNotPressed();
    void hoverPressedItemKeepsPressLook();
    void mousePressSelects();
    void doubleClickCollapsesExpandedRoot();
    void doubleClickExpandsCollapsedRoot();
    void doubleClickEmitsNoSelectionOfItsOwn();
    void checkBoxClick();
    void setExpand_data();
    void setExpand();
    void setSelectedTrue();
    void setSelectedFalseKeepsPressLook();
    void editAndDeleteButtons();
};

void tst_RootItemInput::hoverWhenNotPressed()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const RootParts p = partsOf(item.get());
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("normal"));

    sendEnter(item.get());
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("hover"));
    QCOMPARE(item->property("isTarn").toBool(), true);
    QCOMPARE(p.upper->property("isUpOnline").toBool(), false);
    QCOMPARE(p.upper->property("isTarn").toBool(), true);

    sendLeave(item.get());
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("normal"));
    QCOMPARE(item->property("isTarn").toBool(), true);
    QCOMPARE(p.upper->property("isUpOnline").toBool(), false);
}

void tst_RootItemInput::hoverPressedItemKeepsPressLook()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const RootParts p = partsOf(item.get());
    item->setOpBtnShow({true, true});

    QTest::mouseClick(item.get(), Qt::LeftButton, Qt::NoModifier, freeSpot(item.get()));
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("press"));

    sendEnter(item.get());
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("press"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);
    QVERIFY(p.editBtn->isVisible());
    QVERIFY(p.deleteBtn->isVisible());

    sendLeave(item.get());
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("press"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);
    QVERIFY(!p.editBtn->isVisible());
    QVERIFY(!p.deleteBtn->isVisible());
}

void tst_RootItemInput::mousePressSelects()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const RootParts p = partsOf(item.get());
    QVERIFY(!item->childAt(freeSpot(item.get())));
    Recorder rec;
    rec.attach(item.get());

    QTest::mousePress(item.get(), Qt::LeftButton, Qt::NoModifier, freeSpot(item.get()));
    QCOMPARE(rec.events, QStringList({QStringLiteral("select")}));
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("press"));
    QCOMPARE(item->property("isTarn").toBool(), true);
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);
    QCOMPARE(p.upper->property("isTarn").toBool(), true);
    QTest::mouseRelease(item.get(), Qt::LeftButton, Qt::NoModifier, freeSpot(item.get()));
    // A press does not touch the expand box.
    QVERIFY(!p.expandBox->isChecked());

    // Pressing on a text label reaches the row as well.
    QTest::mouseClick(item.get(), Qt::LeftButton, Qt::NoModifier, p.upper->geometry().center());
    QCOMPARE(rec.events, QStringList({QStringLiteral("select"), QStringLiteral("select")}));
}

void tst_RootItemInput::doubleClickCollapsesExpandedRoot()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const RootParts p = partsOf(item.get());
    item->setExpand(true);
    QVERIFY(p.expandBox->isChecked());

    Recorder rec;
    rec.attach(item.get());
    EventCounter presses(QEvent::MouseButtonPress);
    item->installEventFilter(&presses);

    QTest::mouseDClick(item.get(), Qt::LeftButton, Qt::NoModifier, freeSpot(item.get()));

    QVERIFY(!p.expandBox->isChecked());
    QCOMPARE(rec.events.count(QStringLiteral("show(false)")), 1);
    QCOMPARE(rec.events.count(QStringLiteral("show(true)")), 0);
    // Only the presses select; the double click adds no selection signal.
    QCOMPARE(rec.events.count(QStringLiteral("select")), presses.count);
    QCOMPARE(rec.events.last(), QStringLiteral("show(false)"));
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("press"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);
}

void tst_RootItemInput::doubleClickExpandsCollapsedRoot()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const RootParts p = partsOf(item.get());
    QSignalSpy show(item.get(), &RootItem::signal_OnIsShowChildItems);

    QTest::mouseDClick(item.get(), Qt::LeftButton, Qt::NoModifier, freeSpot(item.get()));
    QVERIFY(p.expandBox->isChecked());
    QCOMPARE(show.count(), 1);
    QCOMPARE(show.at(0).at(0).toBool(), true);

    QTest::mouseDClick(item.get(), Qt::LeftButton, Qt::NoModifier, freeSpot(item.get()));
    QVERIFY(!p.expandBox->isChecked());
    QCOMPARE(show.count(), 2);
    QCOMPARE(show.at(1).at(0).toBool(), false);
}

void tst_RootItemInput::doubleClickEmitsNoSelectionOfItsOwn()
{
    auto item = makeShownItem();
    QVERIFY(item);
    Recorder rec;
    rec.attach(item.get());

    // The double-click event alone, without the press that precedes it.
    const QPoint pos = freeSpot(item.get());
    QMouseEvent dbl(QEvent::MouseButtonDblClick, pos, item->mapToGlobal(pos), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
    QCoreApplication::sendEvent(item.get(), &dbl);
    QCOMPARE(rec.events, QStringList({QStringLiteral("show(true)")}));
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("press"));
}

void tst_RootItemInput::checkBoxClick()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const RootParts p = partsOf(item.get());
    Recorder rec;
    rec.attach(item.get());

    QTest::mouseClick(p.expandBox, Qt::LeftButton, Qt::NoModifier, p.expandBox->rect().center());
    QVERIFY(p.expandBox->isChecked());
    QCOMPARE(rec.events, QStringList({QStringLiteral("show(true)")}));
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("press"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);

    QTest::mouseClick(p.expandBox, Qt::LeftButton, Qt::NoModifier, p.expandBox->rect().center());
    QVERIFY(!p.expandBox->isChecked());
    QCOMPARE(rec.events, QStringList({QStringLiteral("show(true)"), QStringLiteral("show(false)")}));
    // Collapsing leaves the press look too.
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("press"));

    // Hosts may drive the slot directly.
    item->slot_OnCheckBoxClicked(true);
    QCOMPARE(rec.events.last(), QStringLiteral("show(true)"));
}

void tst_RootItemInput::setExpand_data()
{
    QTest::addColumn<bool>("expand");
    QTest::newRow("expand") << true;
    QTest::newRow("collapse") << false;
}

void tst_RootItemInput::setExpand()
{
    QFETCH(bool, expand);
    RootItem item(nullptr);
    item.initItem(0, 0);
    const RootParts p = partsOf(&item);
    p.expandBox->setChecked(!expand);
    QSignalSpy show(&item, &RootItem::signal_OnIsShowChildItems);
    QSignalSpy select(&item, &RootItem::signal_OnSelectRootItem);

    item.setExpand(expand);
    QCOMPARE(p.expandBox->isChecked(), expand);
    QCOMPARE(show.count(), 1);
    QCOMPARE(show.at(0).at(0).toBool(), expand);
    QCOMPARE(select.count(), 0);
    QCOMPARE(prop(&item, "isRootItem"), QStringLiteral("press"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);
}

void tst_RootItemInput::setSelectedTrue()
{
    RootItem item(nullptr);
    item.initItem(0, 0);
    const RootParts p = partsOf(&item);
    Recorder rec;
    rec.attach(&item);

    item.setSelected(true);
    QCOMPARE(rec.events, QStringList({QStringLiteral("show(true)"), QStringLiteral("select")}));
    QVERIFY(p.expandBox->isChecked());
    QCOMPARE(prop(&item, "isRootItem"), QStringLiteral("press"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);
    QCOMPARE(p.upper->property("isTarn").toBool(), true);
}

void tst_RootItemInput::setSelectedFalseKeepsPressLook()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const RootParts p = partsOf(item.get());
    item->setSelected(true);

    Recorder rec;
    rec.attach(item.get());
    item->setSelected(false);
    QCOMPARE(rec.events, QStringList({QStringLiteral("show(false)"), QStringLiteral("select")}));
    QVERIFY(!p.expandBox->isChecked());
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("press"));
    QCOMPARE(p.upper->property("isUpOnline").toBool(), false);

    // The pressed flag is set again as well: hovering does not bring the
    // hover look back, and leaving does not return to "normal".
    sendEnter(item.get());
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("press"));
    sendLeave(item.get());
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("press"));

    // Deselecting a never-selected root still collapses and reports.
    RootItem fresh(nullptr);
    fresh.initItem(0, 0);
    Recorder freshRec;
    freshRec.attach(&fresh);
    fresh.setSelected(false);
    QCOMPARE(freshRec.events, QStringList({QStringLiteral("show(false)"), QStringLiteral("select")}));
    QCOMPARE(prop(&fresh, "isRootItem"), QStringLiteral("press"));
}

void tst_RootItemInput::editAndDeleteButtons()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const RootParts p = partsOf(item.get());
    item->setOpBtnShow({true, true});
    sendEnter(item.get());
    QVERIFY(p.editBtn->isVisible());
    QVERIFY(p.deleteBtn->isVisible());
    // Right of the stretch, the edit button before the delete button.
    QVERIFY(p.editBtn->x() < p.deleteBtn->x());
    QVERIFY(p.upper->x() < p.editBtn->x());

    Recorder rec;
    rec.attach(item.get());
    QTest::mouseClick(p.editBtn, Qt::LeftButton, Qt::NoModifier, p.editBtn->rect().center());
    QCOMPARE(rec.events, QStringList({QStringLiteral("edit")}));
    QTest::mouseClick(p.deleteBtn, Qt::LeftButton, Qt::NoModifier, p.deleteBtn->rect().center());
    QCOMPARE(rec.events, QStringList({QStringLiteral("edit"), QStringLiteral("delete")}));
    // The buttons take the press themselves: the row is not selected.
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("hover"));
}

QTEST_MAIN(tst_RootItemInput)
#include "tst_rootitem_input.moc"
