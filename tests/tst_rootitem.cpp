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

// The root row: what it builds, its texts, states and looks.
class tst_RootItem : public QObject
{
    Q_OBJECT

private slots:
    // Hover comes only from the events the tests send.
    void initTestCase() { EventSender::parkPointer(); }
    void constructionDefaults();
    void callsBeforeInitItemDoNotCrash();
    void initItemBuildsChildren();
    void layoutOrder();
    void itemTypeResetsChildVisibility_data();
    void itemTypeResetsChildVisibility();
    void indexText_data();
    void indexText();
    void nameListSize_data();
    void nameListSize();
    void upperTextElided_data();
    void upperTextElided();
    void downTextNotElided();
    void onlineState_data();
    void onlineState();
    void opBtnShow_data();
    void opBtnShow();
    void styleSheetFollowsRootLook();
    void styleSheetFollowsUpperLine();
    void resizeAndLanguageChangeDoNothing();
};

void tst_RootItem::constructionDefaults()
{
    RootItem item(nullptr);
    QCOMPARE(item.objectName(), QStringLiteral("RootItem"));
    QCOMPARE(item.property("isTarn").toBool(), true);
    QCOMPARE(item.property("isRootItem").type(), QVariant::String);
    QCOMPARE(prop(&item, "isRootItem"), QStringLiteral("normal"));
    QCOMPARE(item.property("isWin").toBool(), true);
    QCOMPARE(item.minimumHeight(), 45);
    QCOMPARE(item.maximumHeight(), 45);
    QVERIFY(item.acceptDrops());
    QCOMPARE(item.getItemType(), 0);
    QCOMPARE(item.getIndexText(), QStringLiteral("-1"));
    QCOMPARE(item.isOnline(), false);
    QVERIFY(item.getNodeInfo().strNodeName.isEmpty());
    QVERIFY(item.findChildren<QWidget *>().isEmpty());
    QVERIFY(item.getUpperText().isEmpty());
    QVERIFY(item.getDownText().isEmpty());
}

void tst_RootItem::callsBeforeInitItemDoNotCrash()
{
    RootItem item(nullptr);
    Recorder rec;
    rec.attach(&item);

    st_NodeInfoSignal node;
    node.strNodeName << QStringLiteral("up") << QStringLiteral("down");
    node.isOnline = true;
    node.showOpBtn << true << true;
    item.setNodeInfo(node);
    item.setUpperText(QString(100000, QLatin1Char('x')));
    item.setDownText(QStringLiteral("d"));
    item.setOnline(false);
    item.setItemType(3);
    item.setOpBtnShow({});
    sendEnter(&item);
    QCOMPARE(prop(&item, "isRootItem"), QStringLiteral("hover"));
    sendLeave(&item);
    QCOMPARE(prop(&item, "isRootItem"), QStringLiteral("normal"));
    item.setExpand(true);
    item.setSelected(false);
    item.resize(300, 45);
    item.reTranslateUI();

    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&item, &press);
    QMouseEvent dbl(QEvent::MouseButtonDblClick, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&item, &dbl);

    // Without children the texts stay empty but the state and signals work.
    QVERIFY(item.getUpperText().isEmpty());
    QVERIFY(item.getDownText().isEmpty());
    QCOMPARE(item.getNodeInfo().strNodeName, node.strNodeName);
    QCOMPARE(item.isOnline(), false);
    QCOMPARE(item.getItemType(), 3);
    QCOMPARE(prop(&item, "isRootItem"), QStringLiteral("press"));
    // With no box to read, a double click counts the box as unchecked.
    QCOMPARE(rec.events, QStringList({QStringLiteral("show(true)"), QStringLiteral("show(false)"),
                                      QStringLiteral("select"), QStringLiteral("select"),
                                      QStringLiteral("show(true)")}));
}

void tst_RootItem::initItemBuildsChildren()
{
    RootItem item(nullptr);
    item.initItem(7, 4);
    QCOMPARE(item.getItemType(), 7);
    QCOMPARE(item.getIndexText(), QStringLiteral("4"));

    const RootParts p = partsOf(&item);
    QVERIFY(p.expandBox && p.onlineBtn && p.editBtn && p.deleteBtn && p.upper && p.down && p.marker);
    QCOMPARE(item.findChildren<QCheckBox *>().size(), 1);
    QCOMPARE(item.findChildren<QToolButton *>().size(), 3);
    QCOMPARE(item.findChildren<QLabel *>().size(), 3);

    QCOMPARE(p.expandBox->minimumSize(), QSize(16, 16));
    QCOMPARE(p.expandBox->maximumSize(), QSize(16, 16));
    QCOMPARE(p.onlineBtn->minimumSize(), QSize(8, 8));
    QCOMPARE(p.onlineBtn->maximumSize(), QSize(8, 8));
    QCOMPARE(p.upper->minimumSize(), QSize(150, 15));
    QCOMPARE(p.upper->maximumSize(), QSize(150, 15));
    QCOMPARE(p.down->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    QCOMPARE(p.marker->minimumHeight(), 2);
    QCOMPARE(p.marker->maximumHeight(), 2);
    QCOMPARE(p.editBtn->minimumSize(), QSize(20, 20));
    QCOMPARE(p.editBtn->maximumSize(), QSize(20, 20));
    QCOMPARE(p.deleteBtn->minimumSize(), QSize(20, 20));
    QCOMPARE(p.deleteBtn->maximumSize(), QSize(20, 20));

    QCOMPARE(p.onlineBtn->property("isTarn").toBool(), true);
    QCOMPARE(p.onlineBtn->property("isOnlineBtn").toBool(), true);
    QCOMPARE(p.marker->property("isTarn").toBool(), true);
    QCOMPARE(p.marker->property("isMainproperty").toBool(), true);
    QCOMPARE(p.editBtn->property("isTarn").toBool(), true);
    QCOMPARE(p.editBtn->property("isEditBtn").toBool(), true);
    QVERIFY(!p.editBtn->property("isDelBtn").isValid());
    QCOMPARE(p.deleteBtn->property("isTarn").toBool(), true);
    QCOMPARE(p.deleteBtn->property("isDelBtn").toBool(), true);
    QVERIFY(!p.deleteBtn->property("isEditBtn").isValid());
    QCOMPARE(p.upper->property("isTarn").toBool(), true);
    QCOMPARE(p.upper->property("isUpOnline").type(), QVariant::Bool);
    QCOMPARE(p.upper->property("isUpOnline").toBool(), false);

    QVERIFY(!p.expandBox->isHidden());
    QVERIFY(p.onlineBtn->isHidden());
    QVERIFY(!p.upper->isHidden());
    QVERIFY(p.down->isHidden());
    QVERIFY(p.marker->isHidden());
    QVERIFY(p.editBtn->isHidden());
    QVERIFY(p.deleteBtn->isHidden());
    QVERIFY(!p.expandBox->isChecked());

    // Building changes no look of the row itself.
    QCOMPARE(prop(&item, "isRootItem"), QStringLiteral("normal"));
}

void tst_RootItem::layoutOrder()
{
    RootItem item(nullptr);
    item.initItem(0, 0);
    const RootParts p = partsOf(&item);

    auto *main = qobject_cast<QHBoxLayout *>(item.layout());
    QVERIFY(main);
    QCOMPARE(main->spacing(), 16);
    QCOMPARE(main->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(main->count(), 9);

    auto isFixedGap = [](QLayoutItem *li, int width) {
        QSpacerItem *s = li->spacerItem();
        return s && s->sizeHint().width() == width && !(s->expandingDirections() & Qt::Horizontal);
    };
    QVERIFY(isFixedGap(main->itemAt(0), 18));
    QCOMPARE(main->itemAt(1)->widget(), static_cast<QWidget *>(p.expandBox));
    QCOMPARE(main->itemAt(2)->widget(), static_cast<QWidget *>(p.onlineBtn));
    auto *text = qobject_cast<QVBoxLayout *>(main->itemAt(3)->layout());
    QVERIFY(text);
    QVERIFY(main->itemAt(4)->spacerItem());
    QVERIFY(main->itemAt(4)->spacerItem()->expandingDirections() & Qt::Horizontal);
    QCOMPARE(main->itemAt(5)->widget(), static_cast<QWidget *>(p.marker));
    QCOMPARE(main->itemAt(6)->widget(), static_cast<QWidget *>(p.editBtn));
    QCOMPARE(main->itemAt(7)->widget(), static_cast<QWidget *>(p.deleteBtn));
    QVERIFY(isFixedGap(main->itemAt(8), 18));

    QCOMPARE(text->spacing(), 0);
    QCOMPARE(text->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(text->count(), 2);
    QCOMPARE(text->itemAt(0)->widget(), static_cast<QWidget *>(p.upper));
    QCOMPARE(text->itemAt(1)->widget(), static_cast<QWidget *>(p.down));
}

void tst_RootItem::itemTypeResetsChildVisibility_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("0") << 0;
    QTest::newRow("1") << 1;
    QTest::newRow("negative") << -5;
    QTest::newRow("large") << INT_MAX;
}

void tst_RootItem::itemTypeResetsChildVisibility()
{
    QFETCH(int, type);
    auto item = makeShownItem();
    QVERIFY(item);
    const RootParts p = partsOf(item.get());

    item->setOpBtnShow({true, true});
    sendEnter(item.get());
    QVERIFY(p.editBtn->isVisible());
    QVERIFY(p.deleteBtn->isVisible());
    p.onlineBtn->show();
    p.down->show();
    p.upper->hide();
    p.expandBox->hide();

    item->setItemType(type);
    QCOMPARE(item->getItemType(), type);
    QVERIFY(p.expandBox->isVisible());
    QVERIFY(!p.onlineBtn->isVisible());
    QVERIFY(p.upper->isVisible());
    QVERIFY(!p.down->isVisible());
    QVERIFY(!p.editBtn->isVisible());
    QVERIFY(!p.deleteBtn->isVisible());
}

void tst_RootItem::indexText_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("expected");
    QTest::newRow("zero") << 0 << QStringLiteral("0");
    QTest::newRow("seven") << 7 << QStringLiteral("7");
    QTest::newRow("minus one") << -1 << QStringLiteral("-1");
    QTest::newRow("large") << 123456 << QStringLiteral("123456");
    QTest::newRow("int max") << INT_MAX << QStringLiteral("2147483647");
    QTest::newRow("int min") << INT_MIN << QStringLiteral("-2147483648");
}

void tst_RootItem::indexText()
{
    QFETCH(int, index);
    QFETCH(QString, expected);
    RootItem built(nullptr);
    built.initItem(0, index);
    QCOMPARE(built.getIndexText(), expected);

    RootItem set(nullptr);
    set.setItemIndex(index);
    QCOMPARE(set.getIndexText(), expected);
}

void tst_RootItem::nameListSize_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("expectedUpper");
    QTest::addColumn<QString>("expectedDown");
    QTest::newRow("none") << QStringList() << QStringLiteral("old up") << QStringLiteral("old down");
    QTest::newRow("one") << QStringList({QStringLiteral("Alpha")}) << QStringLiteral("Alpha")
                         << QStringLiteral("old down");
    QTest::newRow("two") << QStringList({QStringLiteral("Alpha"), QStringLiteral("Beta")})
                         << QStringLiteral("Alpha") << QStringLiteral("Beta");
    QTest::newRow("three") << QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")})
                           << QStringLiteral("old up") << QStringLiteral("old down");
    QTest::newRow("four") << QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"),
                                          QStringLiteral("D")})
                          << QStringLiteral("old up") << QStringLiteral("old down");
}

void tst_RootItem::nameListSize()
{
    QFETCH(QStringList, names);
    QFETCH(QString, expectedUpper);
    QFETCH(QString, expectedDown);

    RootItem item(nullptr);
    item.initItem(0, 0);
    item.setUpperText(QStringLiteral("old up"));
    item.setDownText(QStringLiteral("old down"));

    st_NodeInfoSignal node;
    node.strNodeName = names;
    node.strSourceName = QStringLiteral("source");
    node.nNodeData1 = Q_INT64_C(0x123456789AB);
    item.setNodeInfo(node);

    QCOMPARE(item.getUpperText(), expectedUpper);
    QCOMPARE(item.getDownText(), expectedDown);
    const st_NodeInfoSignal stored = item.getNodeInfo();
    QCOMPARE(stored.strNodeName, names);
    QCOMPARE(stored.strSourceName, QStringLiteral("source"));
    QCOMPARE(stored.nNodeData1, Q_INT64_C(0x123456789AB));
}

void tst_RootItem::upperTextElided_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("200 letters") << QString(200, QLatin1Char('W'));
    QString mixed;
    for (int i = 0; i < 200; ++i)
        mixed += QChar(QLatin1Char('a' + i % 26));
    QTest::newRow("200 mixed") << mixed;
    QTest::newRow("short") << QStringLiteral("Input 1");
    QTest::newRow("spaces") << QStringLiteral("signal group with a rather long descriptive name here");
    QTest::newRow("non latin") << QString(120, QChar(0x4E2D));
    QTest::newRow("huge") << QString(100000, QLatin1Char('m'));
    QTest::newRow("empty") << QString();
}

void tst_RootItem::upperTextElided()
{
    QFETCH(QString, name);
    RootItem item(nullptr);
    item.initItem(0, 0);
    const RootParts p = partsOf(&item);

    st_NodeInfoSignal node;
    node.strNodeName << name;
    item.setNodeInfo(node);

    const QString expected = QFontMetrics(p.upper->font()).elidedText(name, Qt::ElideRight, 150);
    QCOMPARE(item.getUpperText(), expected);
    QCOMPARE(p.upper->text(), expected);
    QCOMPARE(item.getNodeInfo().strNodeName.value(0), name);

    if (QFontMetrics(p.upper->font()).horizontalAdvance(name) > 150) {
        // Elided at the right: a shorter text that ends with the ellipsis.
        QVERIFY(expected.size() < name.size());
        QVERIFY(expected.endsWith(QChar(0x2026)));
        QVERIFY(name.startsWith(expected.left(expected.size() - 1)));
    } else {
        QCOMPARE(item.getUpperText(), name);
    }

    // Direct calls elide the same way.
    item.setUpperText(name);
    QCOMPARE(item.getUpperText(), expected);
}

void tst_RootItem::downTextNotElided()
{
    RootItem item(nullptr);
    item.initItem(0, 0);
    const QString longText(300, QLatin1Char('W'));
    st_NodeInfoSignal node;
    node.strNodeName << QStringLiteral("up") << longText;
    item.setNodeInfo(node);
    QCOMPARE(item.getDownText(), longText);
    // The lower line stays hidden: setting its text does not show it.
    QVERIFY(partsOf(&item).down->isHidden());
}

void tst_RootItem::onlineState_data()
{
    QTest::addColumn<bool>("online");
    QTest::newRow("online") << true;
    QTest::newRow("offline") << false;
}

void tst_RootItem::onlineState()
{
    QFETCH(bool, online);
    RootItem item(nullptr);
    item.initItem(0, 0);
    const RootParts p = partsOf(&item);

    item.setOnline(online);
    QCOMPARE(item.isOnline(), online);
    QCOMPARE(p.onlineBtn->property("isOnlineBtn").toBool(), online);
    QCOMPARE(p.onlineBtn->property("isTarn").toBool(), true);

    st_NodeInfoSignal node;
    node.isOnline = !online;
    item.setNodeInfo(node);
    QCOMPARE(item.isOnline(), !online);
    QCOMPARE(p.onlineBtn->property("isOnlineBtn").toBool(), !online);
    // The indicator never shows by itself.
    QVERIFY(p.onlineBtn->isHidden());
}

void tst_RootItem::opBtnShow_data()
{
    QTest::addColumn<QList<bool>>("first");
    QTest::addColumn<QList<bool>>("second");
    QTest::addColumn<bool>("editShown");
    QTest::addColumn<bool>("deleteShown");

    QTest::newRow("default") << QList<bool>() << QList<bool>() << false << false;
    QTest::newRow("edit only") << QList<bool>({true}) << QList<bool>() << true << false;
    QTest::newRow("both") << QList<bool>({true, true}) << QList<bool>() << true << true;
    QTest::newRow("delete only") << QList<bool>({false, true}) << QList<bool>() << false << true;
    QTest::newRow("one element keeps delete") << QList<bool>({true, true}) << QList<bool>({false}) << false
                                              << true;
    QTest::newRow("one element keeps delete off") << QList<bool>({false, false}) << QList<bool>({true})
                                                  << true << false;
    QTest::newRow("three ignored") << QList<bool>({true, true}) << QList<bool>({false, false, false}) << true
                                   << true;
    QTest::newRow("empty ignored") << QList<bool>({true, false}) << QList<bool>() << true << false;
    QTest::newRow("two overrides") << QList<bool>({true, true}) << QList<bool>({false, false}) << false
                                   << false;
}

void tst_RootItem::opBtnShow()
{
    QFETCH(QList<bool>, first);
    QFETCH(QList<bool>, second);
    QFETCH(bool, editShown);
    QFETCH(bool, deleteShown);

    auto item = makeShownItem();
    QVERIFY(item);
    const RootParts p = partsOf(item.get());

    st_NodeInfoSignal node;
    node.showOpBtn = first;
    item->setNodeInfo(node);
    item->setOpBtnShow(second);

    // The flags alone show nothing until the next hover.
    QVERIFY(!p.editBtn->isVisible());
    QVERIFY(!p.deleteBtn->isVisible());

    sendEnter(item.get());
    QCOMPARE(p.editBtn->isVisible(), editShown);
    QCOMPARE(p.deleteBtn->isVisible(), deleteShown);

    sendLeave(item.get());
    QVERIFY(!p.editBtn->isVisible());
    QVERIFY(!p.deleteBtn->isVisible());
}

void tst_RootItem::styleSheetFollowsRootLook()
{
    auto item = makeShownItem();
    QVERIFY(item);
    item->setStyleSheet(QStringLiteral("RootItem[isRootItem=\"normal\"]{background:rgb(0,0,255);}"
                                       "RootItem[isRootItem=\"hover\"]{background:rgb(0,255,0);}"
                                       "RootItem[isRootItem=\"press\"]{background:rgb(226,100,12);}"));
    const PixelProbe probe(item.get(), QPoint(2, 2));
    QVERIFY(!item->childAt(probe.spot()));

    QCOMPARE(probe.colour(), QColor(0, 0, 255));
    sendEnter(item.get());
    QCOMPARE(probe.colour(), QColor(0, 255, 0));
    sendLeave(item.get());
    QCOMPARE(probe.colour(), QColor(0, 0, 255));
    QTest::mouseClick(item.get(), Qt::LeftButton, Qt::NoModifier, freeSpot(item.get()));
    QCOMPARE(probe.colour(), QColor(226, 100, 12));
    sendLeave(item.get());
    QCOMPARE(probe.colour(), QColor(226, 100, 12));
}

void tst_RootItem::styleSheetFollowsUpperLine()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const RootParts p = partsOf(item.get());
    item->setStyleSheet(QStringLiteral("QLabel#m_qlUpper{background:rgb(10,20,30);}"
                                       "QLabel#m_qlUpper[isUpOnline=\"true\"]{background:rgb(226,100,12);}"));
    const PixelProbe probe(item.get(), p.upper->geometry().topLeft() + QPoint(1, 1));

    QCOMPARE(probe.colour(), QColor(10, 20, 30));
    item->setSelected(true);
    QCOMPARE(probe.colour(), QColor(226, 100, 12));
    item->setSelected(false);
    QCOMPARE(probe.colour(), QColor(10, 20, 30));
}

void tst_RootItem::resizeAndLanguageChangeDoNothing()
{
    auto item = makeShownItem();
    QVERIFY(item);
    const QString name(200, QLatin1Char('W'));
    item->setUpperText(name);
    const QString shown = item->getUpperText();
    item->resize(900, 45);
    QTest::qWait(10);
    item->resize(60, 45);
    QTest::qWait(10);
    QCOMPARE(item->getUpperText(), shown);
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("normal"));

    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(item.get(), &change);
    QCOMPARE(item->getUpperText(), shown);
    QCOMPARE(prop(item.get(), "isRootItem"), QStringLiteral("normal"));
}

QTEST_MAIN(tst_RootItem)
#include "tst_rootitem.moc"
