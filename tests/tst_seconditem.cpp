// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "EventSender.h"
#include "SecondItem.h"
#include "SecondItemProbe.h"

#include <QApplication>
#include <QBoxLayout>
#include <QFontMetrics>
#include <QFrame>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QLayoutItem>
#include <QMouseEvent>
#include <QPixmap>
#include <QScreen>
#include <QSignalSpy>
#include <QSpacerItem>
#include <QToolButton>
#include <QWindow>
#include <QtTest>

#include <climits>
#include <memory>

namespace {

using namespace SecondItemProbe;

using EventSender::sendEnter;
using EventSender::sendLeave;

// The shortening rule, restated independently: while the candidate is wider
// than the limit, drop the last character of the running text and append
// "...".
QString shortened(const QString &full, const QFontMetrics &fm, int limit)
{
    QString running = full;
    QString candidate = full;
    while (fm.horizontalAdvance(candidate) > limit) {
        if (running.isEmpty())
            break;
        running.chop(1);
        candidate = running + QStringLiteral("...");
    }
    return candidate;
}

// Picture names by type number, from the table of signal families.
QString pictureName(int type)
{
    static const QStringList names = {
        QStringLiteral("DVI"),      QStringLiteral("HDMI"), QStringLiteral("VGA"),     QStringLiteral("SDI"),
        QStringLiteral("CVBS"),     QStringLiteral("DVI"),  QStringLiteral("HDMI"),    QStringLiteral("DP"),
        QStringLiteral("DP"),       QStringLiteral("HDMI"), QStringLiteral("USB"),     QStringLiteral("WLan"),
        QStringLiteral("SDI"),      QStringLiteral("SDI"),  QStringLiteral("dvimosic"), QStringLiteral("unknown"),
        QStringLiteral("DVI"),      QStringLiteral("OPT"),  QStringLiteral("dvimosic"),
    };
    if (type < 0 || type >= names.size())
        return QStringLiteral("unknown");
    return names.at(type);
}

QString picturePath(const QString &name, bool online)
{
    return QStringLiteral(":/signaltype/resource/signaltype/") + name
        + (online ? QStringLiteral("_normal.png") : QStringLiteral("_disable.png"));
}

// The double-size variant's name as the bundle spells it.
QString doubleSizePicturePath(const QString &name, bool online)
{
    const QString suffix = name == QLatin1String("OPT") ? QStringLiteral("@2x")
        : (name == QLatin1String("dvimosic") || name == QLatin1String("unknown")) ? QStringLiteral("2x")
                                                                                  : QStringLiteral("_2x");
    return QStringLiteral(":/signaltype/resource/signaltype/") + name
        + (online ? QStringLiteral("_normal") : QStringLiteral("_disable")) + suffix + QStringLiteral(".png");
}

// The pixel ratio of the screen an unparented row is on.
qreal screenRatio()
{
    return QGuiApplication::primaryScreen()->devicePixelRatio();
}

// What a row is to show for @p name: the one-times picture at ratio 1, the
// double-size one at ratio 2 on a screen above 1 (QT_SCALE_FACTOR=2 runs
// these tests too).
QImage expectedPicture(const QString &name, bool online, qreal ratio = screenRatio())
{
    if (ratio <= 1.0)
        return QImage(picturePath(name, online));
    QImage sharp(doubleSizePicturePath(name, online));
    sharp.setDevicePixelRatio(2.0);
    return sharp;
}

QImage comparable(const QImage &img)
{
    return img.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage shownPicture(QLabel *label)
{
    return comparable(label->pixmap(Qt::ReturnByValue).toImage());
}

} // namespace

class tst_SecondItem : public QObject
{
    Q_OBJECT

private slots:
    // Hover comes only from the events the tests send.
    void initTestCase() { EventSender::parkPointer(); }
    void constructionDefaults();
    void heightRulesOfTheSheetLeaveTheFixedHeight_data();
    void heightRulesOfTheSheetLeaveTheFixedHeight();
    void callsBeforeInitItemDoNotCrash();
    void initItemBuildsChildren();
    void layoutOrder();
    void indexText_data();
    void indexText();
    void nameListSize_data();
    void nameListSize();
    void textFitting_data();
    void textFitting();
    void longUpperTextKeepsLongestPrefix();
    void tooltipShowsFullText();
    void twoShortTextsShareWiderWidth();
    void fittingRestartsFromFullTexts();
    void hugeTextDoesNotHang();
    void resizeRefitsAgainstFixedLimit_data();
    void resizeRefitsAgainstFixedLimit();
    void typePictures_data();
    void typePictures();
    void unknownFamily_data();
    void unknownFamily();
    void onlineToggleSwitchesPicture_data();
    void onlineToggleSwitchesPicture();
    void picturesAreDistinct();
    void pictureFollowsTheScreenRatio();
};

void tst_SecondItem::constructionDefaults()
{
    SecondItem item(nullptr);
    QCOMPARE(item.objectName(), QStringLiteral("SignalSecondItem"));
    QCOMPARE(item.property("isTarn").toBool(), true);
    QCOMPARE(item.property("isSecondItem").type(), QVariant::String);
    QCOMPARE(prop(&item, "isSecondItem"), QStringLiteral("normal"));
    QCOMPARE(item.minimumHeight(), 40);
    QCOMPARE(item.maximumHeight(), 40);
    QCOMPARE(item.getIndexText(), QStringLiteral("0-0"));
    QVERIFY(item.getNodeInfo().strNodeName.isEmpty());
    QVERIFY(item.findChildren<QWidget *>().isEmpty());
    QVERIFY(item.toolTip().isEmpty());
}

void tst_SecondItem::callsBeforeInitItemDoNotCrash()
{
    SecondItem item(nullptr);
    Recorder rec;
    rec.attach(&item);

    st_NodeInfoSignal node;
    node.strNodeName << QStringLiteral("up") << QStringLiteral("down");
    node.iType = 3;
    node.showOpBtn << true << true << true << true;
    item.setNodeInfo(node);
    item.setUpperText(QString(50000, QLatin1Char('x')));
    item.setDownText(QStringLiteral("d"));
    item.setSignalIcon(1, true);
    item.setOpBtnShow({});
    item.setChildIndex(9);
    item.setTipShow(true);
    sendEnter(&item);
    QCOMPARE(prop(&item, "isSecondItem"), QStringLiteral("hover"));
    sendLeave(&item);
    QCOMPARE(prop(&item, "isSecondItem"), QStringLiteral("normal"));
    item.setPressed(true);
    QCOMPARE(prop(&item, "isSecondItem"), QStringLiteral("press"));
    item.setPressed(false);
    item.resize(500, 40);
    item.reTranslateUI();

    QTest::ignoreMessage(QtDebugMsg, "enter");
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&item, &press);

    QCOMPARE(rec.events, QStringList({QStringLiteral("item")}));
    QCOMPARE(prop(&item, "isSecondItem"), QStringLiteral("press"));
    QCOMPARE(item.getNodeInfo().strNodeName, node.strNodeName);
    QCOMPARE(item.getIndexText(), QStringLiteral("0-9"));
    // No label held the text, so nothing was stored for the tool tip.
    QVERIFY(item.toolTip().isEmpty());
}

void tst_SecondItem::initItemBuildsChildren()
{
    SecondItem item(nullptr);
    item.initItem(3, 4);
    QCOMPARE(item.getIndexText(), QStringLiteral("3-4"));

    const SecondParts p = partsOf(&item);
    QVERIFY(p.icon && p.upper && p.down && p.frame && p.capture && p.edit && p.del && p.fourth);
    QCOMPARE(item.findChildren<QLabel *>().size(), 3);
    QCOMPARE(item.findChildren<QToolButton *>().size(), 4);

    QCOMPARE(p.icon->minimumSize(), QSize(33, 20));
    QCOMPARE(p.icon->maximumSize(), QSize(33, 20));
    QCOMPARE(p.upper->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(p.down->alignment(), Qt::AlignLeft | Qt::AlignVCenter);

    QCOMPARE(p.frame->parentWidget(), static_cast<QWidget *>(&item));
    for (QToolButton *btn : {p.capture, p.edit, p.del, p.fourth}) {
        QCOMPARE(btn->parentWidget(), static_cast<QWidget *>(p.frame));
        QCOMPARE(btn->minimumSize(), QSize(20, 20));
        QCOMPARE(btn->maximumSize(), QSize(20, 20));
        QCOMPARE(btn->property("isTarn").toBool(), true);
        QVERIFY(btn->isHidden());
    }
    // Capture and the fourth button carry the delete button's property.
    QCOMPARE(p.capture->property("isDelBtn").toBool(), true);
    QVERIFY(!p.capture->property("isEditBtn").isValid());
    QCOMPARE(p.edit->property("isEditBtn").toBool(), true);
    QVERIFY(!p.edit->property("isDelBtn").isValid());
    QCOMPARE(p.del->property("isDelBtn").toBool(), true);
    QCOMPARE(p.fourth->property("isDelBtn").toBool(), true);
    QVERIFY(p.frame->isHidden());

    QCOMPARE(p.upper->property("isTarn").toBool(), true);
    QCOMPARE(p.upper->property("isUpOnline").type(), QVariant::Bool);
    QCOMPARE(p.upper->property("isUpOnline").toBool(), true);
    QCOMPARE(prop(&item, "isSecondItem"), QStringLiteral("normal"));
}

void tst_SecondItem::layoutOrder()
{
    SecondItem item(nullptr);
    item.initItem(0, 0);
    const SecondParts p = partsOf(&item);

    auto *main = qobject_cast<QHBoxLayout *>(item.layout());
    QVERIFY(main);
    QCOMPARE(main->spacing(), 10);
    QCOMPARE(main->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(main->count(), 4);
    QSpacerItem *gap = main->itemAt(0)->spacerItem();
    QVERIFY(gap);
    QCOMPARE(gap->sizeHint().width(), 8);
    QVERIFY(!(gap->expandingDirections() & Qt::Horizontal));
    QCOMPARE(main->itemAt(1)->widget(), static_cast<QWidget *>(p.icon));
    auto *text = qobject_cast<QVBoxLayout *>(main->itemAt(2)->layout());
    QVERIFY(text);
    QVERIFY(main->itemAt(3)->spacerItem());
    QVERIFY(main->itemAt(3)->spacerItem()->expandingDirections() & Qt::Horizontal);

    QCOMPARE(text->spacing(), 0);
    QCOMPARE(text->contentsMargins(), QMargins(0, 5, 0, 4));
    QCOMPARE(text->count(), 2);
    QCOMPARE(text->itemAt(0)->widget(), static_cast<QWidget *>(p.upper));
    QCOMPARE(text->itemAt(1)->widget(), static_cast<QWidget *>(p.down));

    // The button frame is placed by hand, outside the main layout.
    QCOMPARE(main->indexOf(p.frame), -1);
    auto *btns = qobject_cast<QHBoxLayout *>(p.frame->layout());
    QVERIFY(btns);
    QCOMPARE(btns->spacing(), 8);
    QCOMPARE(btns->contentsMargins(), QMargins(0, 0, 0, 0));
}

void tst_SecondItem::indexText_data()
{
    QTest::addColumn<int>("root");
    QTest::addColumn<int>("child");
    QTest::addColumn<int>("newChild");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("expectedAfter");
    QTest::newRow("2-5") << 2 << 5 << 6 << QStringLiteral("2-5") << QStringLiteral("2-6");
    QTest::newRow("0-0") << 0 << 0 << 10 << QStringLiteral("0-0") << QStringLiteral("0-10");
    QTest::newRow("negative") << -1 << -3 << 0 << QStringLiteral("-1--3") << QStringLiteral("-1-0");
    QTest::newRow("large") << INT_MAX << 12 << INT_MIN << QStringLiteral("2147483647-12")
                           << QStringLiteral("2147483647--2147483648");
}

void tst_SecondItem::indexText()
{
    QFETCH(int, root);
    QFETCH(int, child);
    QFETCH(int, newChild);
    QFETCH(QString, expected);
    QFETCH(QString, expectedAfter);
    SecondItem item(nullptr);
    item.initItem(root, child);
    QCOMPARE(item.getIndexText(), expected);
    item.setChildIndex(newChild);
    QCOMPARE(item.getIndexText(), expectedAfter);
}

void tst_SecondItem::nameListSize_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<bool>("upperShown");
    QTest::addColumn<bool>("downShown");
    QTest::addColumn<QString>("upperFull");
    QTest::addColumn<QString>("downFull");

    QTest::newRow("none") << QStringList() << false << false << QStringLiteral("old up")
                          << QStringLiteral("old down");
    QTest::newRow("one") << QStringList({QStringLiteral("Cam 1")}) << true << false << QStringLiteral("Cam 1")
                         << QStringLiteral("old down");
    QTest::newRow("two") << QStringList({QStringLiteral("Cam 1"), QStringLiteral("Port A")}) << true << true
                         << QStringLiteral("Cam 1") << QStringLiteral("Port A");
    QTest::newRow("three") << QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")})
                           << false << false << QStringLiteral("old up") << QStringLiteral("old down");
}

void tst_SecondItem::nameListSize()
{
    QFETCH(QStringList, names);
    QFETCH(bool, upperShown);
    QFETCH(bool, downShown);
    QFETCH(QString, upperFull);
    QFETCH(QString, downFull);

    SecondItem item(nullptr);
    item.initItem(0, 0);
    const SecondParts p = partsOf(&item);
    item.setUpperText(QStringLiteral("old up"));
    item.setDownText(QStringLiteral("old down"));
    p.upper->show();
    p.down->show();

    st_NodeInfoSignal node;
    node.strNodeName = names;
    node.nNodeData2 = Q_INT64_C(-0x7FFFFFFFFFF);
    item.setNodeInfo(node);

    QCOMPARE(!p.upper->isHidden(), upperShown);
    QCOMPARE(!p.down->isHidden(), downShown);
    QCOMPARE(item.getNodeInfo().strNodeName, names);
    QCOMPARE(item.getNodeInfo().nNodeData2, Q_INT64_C(-0x7FFFFFFFFFF));

    // The texts on show are the fitted forms of the texts kept.
    const QFontMetrics upFm(p.upper->font());
    const QFontMetrics downFm(p.down->font());
    const int widest = qMax(upFm.horizontalAdvance(upperFull), downFm.horizontalAdvance(downFull));
    QVERIFY(widest <= kTextLimit);
    QCOMPARE(p.upper->text(), upperFull);
    QCOMPARE(p.down->text(), downFull);
    QCOMPARE(p.upper->width(), widest);
    QCOMPARE(p.down->width(), widest);

    item.setTipShow(true);
    QCOMPARE(item.toolTip(), upperFull);
}

void tst_SecondItem::textFitting_data()
{
    QTest::addColumn<QString>("upper");
    QTest::addColumn<QString>("down");

    const QString longWord(60, QLatin1Char('W'));
    const QString longSentence = QStringLiteral("HDMI input of the rear panel, slot three, port two");
    QTest::newRow("both short") << QStringLiteral("Cam 1") << QStringLiteral("Port A");
    QTest::newRow("upper long") << longWord << QStringLiteral("Port A");
    QTest::newRow("down long") << QStringLiteral("Cam 1") << longSentence;
    QTest::newRow("both long") << longSentence << longWord;
    QTest::newRow("both empty") << QString() << QString();
    QTest::newRow("upper empty down long") << QString() << longWord;
    QTest::newRow("non latin") << QString(40, QChar(0x4E2D)) << QStringLiteral("x");
    QTest::newRow("one over") << QString(200, QLatin1Char('i')) << QStringLiteral("i");
}

void tst_SecondItem::textFitting()
{
    QFETCH(QString, upper);
    QFETCH(QString, down);

    SecondItem item(nullptr);
    item.initItem(0, 0);
    const SecondParts p = partsOf(&item);
    st_NodeInfoSignal node;
    node.strNodeName << upper << down;
    item.setNodeInfo(node);

    const QFontMetrics upFm(p.upper->font());
    const QFontMetrics downFm(p.down->font());
    const int widest = qMax(upFm.horizontalAdvance(upper), downFm.horizontalAdvance(down));
    if (widest <= kTextLimit) {
        QCOMPARE(p.upper->text(), upper);
        QCOMPARE(p.down->text(), down);
        QCOMPARE(p.upper->minimumWidth(), widest);
        QCOMPARE(p.upper->maximumWidth(), widest);
        QCOMPARE(p.down->minimumWidth(), widest);
        QCOMPARE(p.down->maximumWidth(), widest);
    } else {
        QCOMPARE(p.upper->text(), shortened(upper, upFm, kTextLimit));
        QCOMPARE(p.down->text(), shortened(down, downFm, kTextLimit));
        // Both lines take the limit's width, also one that fits.
        QCOMPARE(p.upper->minimumWidth(), kTextLimit);
        QCOMPARE(p.upper->maximumWidth(), kTextLimit);
        QCOMPARE(p.down->minimumWidth(), kTextLimit);
        QCOMPARE(p.down->maximumWidth(), kTextLimit);
    }
}

void tst_SecondItem::longUpperTextKeepsLongestPrefix()
{
    SecondItem item(nullptr);
    item.initItem(0, 0);
    const SecondParts p = partsOf(&item);
    const QString full = QStringLiteral("Conference room north wall display input");
    const QFontMetrics fm(p.upper->font());
    QVERIFY(fm.horizontalAdvance(full) > 139);

    item.setUpperText(full);
    const QString shown = p.upper->text();
    QVERIFY(shown.endsWith(QStringLiteral("...")));
    const QString prefix = shown.left(shown.size() - 3);
    QVERIFY(full.startsWith(prefix));
    QVERIFY(prefix.size() < full.size());
    QVERIFY(fm.horizontalAdvance(shown) <= 139);
    // One more character would not fit any more.
    QVERIFY(fm.horizontalAdvance(full.left(prefix.size() + 1) + QStringLiteral("...")) > 139);
    QCOMPARE(p.upper->width(), 139);
}

void tst_SecondItem::tooltipShowsFullText()
{
    SecondItem item(nullptr);
    item.initItem(0, 0);
    const QString full = QStringLiteral("Conference room north wall display input");
    st_NodeInfoSignal node;
    node.strNodeName << full << QStringLiteral("down");
    item.setNodeInfo(node);
    QVERIFY(partsOf(&item).upper->text() != full);

    item.setTipShow(true);
    QCOMPARE(item.toolTip(), full);
    item.setTipShow(false);
    QVERIFY(item.toolTip().isEmpty());
}

void tst_SecondItem::twoShortTextsShareWiderWidth()
{
    SecondItem item(nullptr);
    item.initItem(0, 0);
    const SecondParts p = partsOf(&item);
    item.setUpperText(QStringLiteral("ab"));
    item.setDownText(QStringLiteral("abcdefgh"));
    const int wider = QFontMetrics(p.down->font()).horizontalAdvance(QStringLiteral("abcdefgh"));
    QVERIFY(wider > QFontMetrics(p.upper->font()).horizontalAdvance(QStringLiteral("ab")));
    QCOMPARE(p.upper->width(), wider);
    QCOMPARE(p.down->width(), wider);
    QCOMPARE(p.upper->text(), QStringLiteral("ab"));
    QCOMPARE(p.down->text(), QStringLiteral("abcdefgh"));
}

void tst_SecondItem::fittingRestartsFromFullTexts()
{
    SecondItem item(nullptr);
    item.initItem(0, 0);
    const SecondParts p = partsOf(&item);
    const QFontMetrics fm(p.upper->font());
    const QString longUpper(80, QLatin1Char('M'));

    item.setUpperText(longUpper);
    const QString first = p.upper->text();
    QCOMPARE(first, shortened(longUpper, fm, kTextLimit));

    // Each fitting starts again from the stored full text, so a second pass
    // (run by setting the other line) does not shorten further.
    item.setDownText(QStringLiteral("short"));
    QCOMPARE(p.upper->text(), first);
    QCOMPARE(p.down->text(), QStringLiteral("short"));
    item.setTipShow(true);
    QCOMPARE(item.toolTip(), longUpper);

    // Once both fit, both get the wider text's width again.
    item.setUpperText(QStringLiteral("tiny"));
    const int wider = QFontMetrics(p.down->font()).horizontalAdvance(QStringLiteral("short"));
    QCOMPARE(p.upper->width(), wider);
    QCOMPARE(p.down->width(), wider);
}

void tst_SecondItem::hugeTextDoesNotHang()
{
    SecondItem item(nullptr);
    item.initItem(0, 0);
    const SecondParts p = partsOf(&item);
    QElapsedTimer timer;
    timer.start();
    item.setUpperText(QString(200000, QLatin1Char('w')));
    item.setDownText(QString(100000, QLatin1Char('a')));
    QVERIFY2(timer.elapsed() < 20000, "fitting a huge text took too long");
    const QFontMetrics fm(p.upper->font());
    QVERIFY(p.upper->text().endsWith(QStringLiteral("...")));
    QVERIFY(fm.horizontalAdvance(p.upper->text()) <= kTextLimit);
    // Same result as the rule on a short text made of the same letters.
    QCOMPARE(p.upper->text(), shortened(QString(100, QLatin1Char('w')), fm, kTextLimit));
    QCOMPARE(p.down->text(), shortened(QString(100, QLatin1Char('a')), QFontMetrics(p.down->font()), kTextLimit));
}

void tst_SecondItem::resizeRefitsAgainstFixedLimit_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("narrow") << 260;
    QTest::newRow("wide") << 900;
    QTest::newRow("very wide") << 2000;
}

void tst_SecondItem::resizeRefitsAgainstFixedLimit()
{
    QFETCH(int, width);
    auto item = makeShownItem(400);
    QVERIFY(item);
    const SecondParts p = partsOf(item.get());
    const QString full = QStringLiteral("Conference room north wall display input");
    item->setUpperText(full);
    item->setDownText(QStringLiteral("down"));

    // A bigger font changes nothing by itself; the resize refits with it.
    QFont big = p.upper->font();
    big.setPixelSize(22);
    p.upper->setFont(big);
    const QString before = p.upper->text();
    const QString expected = shortened(full, QFontMetrics(big), kTextLimit);
    QVERIFY(expected != before);
    QCOMPARE(p.upper->text(), before);

    item->resize(width, 40);
    QTRY_COMPARE(item->width(), width);
    QCOMPARE(p.upper->text(), expected);
    QCOMPARE(p.upper->width(), kTextLimit);
    QCOMPARE(p.down->width(), kTextLimit);
}

void tst_SecondItem::typePictures_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("online");
    for (int type = -1; type <= 19; ++type) {
        for (bool online : {true, false}) {
            QTest::addRow("type %d %s", type, online ? "online" : "offline") << type << online;
        }
    }
}

void tst_SecondItem::typePictures()
{
    QFETCH(int, type);
    QFETCH(bool, online);

    const QImage oneTimes(picturePath(pictureName(type), online));
    QVERIFY2(!oneTimes.isNull(), qPrintable(picturePath(pictureName(type), online)));
    QVERIFY(oneTimes.width() <= 33 && oneTimes.height() <= 20);
    const QImage expected = expectedPicture(pictureName(type), online);
    QVERIFY(!expected.isNull());

    SecondItem item(nullptr);
    item.initItem(0, 0);
    const SecondParts p = partsOf(&item);

    st_NodeInfoSignal node;
    node.strNodeName << QStringLiteral("sig");
    node.iType = type;
    node.isOnline = online;
    item.setNodeInfo(node);
    const QPixmap shown = p.icon->pixmap(Qt::ReturnByValue);
    QCOMPARE(shown.size(), expected.size());
    QCOMPARE(shown.devicePixelRatio(), screenRatio() > 1.0 ? 2.0 : 1.0);
    // On screen it keeps the one-times size, in its 33x20 label.
    QCOMPARE(shown.size() / shown.devicePixelRatio(), oneTimes.size());
    QCOMPARE(p.icon->size(), QSize(33, 20));
    QCOMPARE(shownPicture(p.icon), comparable(expected));

    // Directly, after some other picture.
    item.setSignalIcon(type == 2 ? 4 : 2, !online);
    QVERIFY(shownPicture(p.icon) != comparable(expected));
    item.setSignalIcon(type, online);
    QCOMPARE(shownPicture(p.icon), comparable(expected));
}

void tst_SecondItem::unknownFamily_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("15") << 15;
    QTest::newRow("19") << 19;
    QTest::newRow("-1") << -1;
    QTest::newRow("1000") << 1000;
    QTest::newRow("int min") << INT_MIN;
    QTest::newRow("int max") << INT_MAX;
}

void tst_SecondItem::unknownFamily()
{
    QFETCH(int, type);
    SecondItem item(nullptr);
    item.initItem(0, 0);
    const SecondParts p = partsOf(&item);
    for (bool online : {true, false}) {
        const QImage unknown = expectedPicture(QStringLiteral("unknown"), online);
        QVERIFY(!unknown.isNull());
        item.setSignalIcon(type, online);
        QCOMPARE(shownPicture(p.icon), comparable(unknown));
    }
}

void tst_SecondItem::onlineToggleSwitchesPicture_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    QTest::newRow("HDMI") << 1 << QStringLiteral("HDMI");
    QTest::newRow("WLan") << 11 << QStringLiteral("WLan");
    QTest::newRow("dvimosic") << 18 << QStringLiteral("dvimosic");
    QTest::newRow("OPT") << 17 << QStringLiteral("OPT");
}

void tst_SecondItem::onlineToggleSwitchesPicture()
{
    QFETCH(int, type);
    QFETCH(QString, name);
    SecondItem item(nullptr);
    item.initItem(0, 0);
    const SecondParts p = partsOf(&item);
    const QImage normal = expectedPicture(name, true);
    const QImage disable = expectedPicture(name, false);
    QVERIFY(!normal.isNull() && !disable.isNull());

    st_NodeInfoSignal node;
    node.strNodeName << QStringLiteral("sig");
    node.iType = type;
    node.isOnline = true;
    item.setNodeInfo(node);
    QCOMPARE(shownPicture(p.icon), comparable(normal));
    node.isOnline = false;
    item.setNodeInfo(node);
    QCOMPARE(shownPicture(p.icon), comparable(disable));
    node.isOnline = true;
    item.setNodeInfo(node);
    QCOMPARE(shownPicture(p.icon), comparable(normal));
}

void tst_SecondItem::picturesAreDistinct()
{
    // Guards the picture comparisons above: every family and state must be
    // told apart by its pixels.
    const QStringList names = {QStringLiteral("CVBS"), QStringLiteral("DP"),  QStringLiteral("DVI"),
                               QStringLiteral("dvimosic"), QStringLiteral("HDMI"), QStringLiteral("OPT"),
                               QStringLiteral("SDI"),  QStringLiteral("USB"), QStringLiteral("unknown"),
                               QStringLiteral("VGA"),  QStringLiteral("WLan")};
    QList<QImage> all;
    for (const QString &name : names) {
        for (bool online : {true, false}) {
            const QImage img = comparable(QImage(picturePath(name, online)));
            QVERIFY2(!img.isNull(), qPrintable(picturePath(name, online)));
            for (const QImage &other : qAsConst(all))
                QVERIFY2(other != img, qPrintable(picturePath(name, online)));
            all << img;
        }
    }
}

// A row whose window moves to a screen with another pixel ratio picks its
// picture again. Needs two screens of ratios 1 and 2: Qt 6's offscreen
// platform with tests/two-screens.json (the "seconditem_screens" test).
void tst_SecondItem::pictureFollowsTheScreenRatio()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    if (screens.size() < 2 || screens.at(0)->devicePixelRatio() != 1.0 || screens.at(1)->devicePixelRatio() != 2.0)
        QSKIP("needs a screen at ratio 1 and one at ratio 2");

    QWidget window;
    window.resize(320, 60);
    window.move(screens.at(0)->geometry().topLeft() + QPoint(20, 20));
    SecondItem *item = new SecondItem(&window);
    item->initItem(0, 0);
    item->setGeometry(0, 0, 320, 40);
    st_NodeInfoSignal node;
    node.strNodeName << QStringLiteral("sig");
    node.iType = 17; // OPT
    node.isOnline = true;
    item->setNodeInfo(node);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const SecondParts p = partsOf(item);
    QCOMPARE(shownPicture(p.icon), comparable(expectedPicture(QStringLiteral("OPT"), true, 1.0)));

    window.windowHandle()->setScreen(screens.at(1));
    window.move(screens.at(1)->geometry().topLeft() + QPoint(20, 20));
    QTRY_COMPARE(item->devicePixelRatioF(), 2.0);
    QCOMPARE(shownPicture(p.icon), comparable(expectedPicture(QStringLiteral("OPT"), true, 2.0)));
    QCOMPARE(p.icon->pixmap(Qt::ReturnByValue).devicePixelRatio(), 2.0);

    window.windowHandle()->setScreen(screens.at(0));
    window.move(screens.at(0)->geometry().topLeft() + QPoint(20, 20));
    QTRY_COMPARE(item->devicePixelRatioF(), 1.0);
    QCOMPARE(shownPicture(p.icon), comparable(expectedPicture(QStringLiteral("OPT"), true, 1.0)));
}

void tst_SecondItem::heightRulesOfTheSheetLeaveTheFixedHeight_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<int>("pressedHeight"); // -1: whatever Qt makes of it
    QTest::newRow("min and max") << "min-height: 48px; max-height: 48px;" << 48;
    QTest::newRow("min only") << "min-height: 44px;" << -1;
    QTest::newRow("max only") << "max-height: 30px;" << 30;
}

// A host rule that sizes the pressed look applies while the row is pressed;
// once it no longer applies the row is 40 px again (Qt's style sheet style
// resets a minimum and maximum height it set to 0 and unbounded).
void tst_SecondItem::heightRulesOfTheSheetLeaveTheFixedHeight()
{
    QFETCH(QString, rule);
    QFETCH(int, pressedHeight);
    qApp->setStyleSheet(QStringLiteral("#SignalSecondItem[isSecondItem=\"press\"] { %1 }").arg(rule));
    auto item = makeShownItem();
    QVERIFY(item);
    QCOMPARE(item->minimumHeight(), 40);
    QCOMPARE(item->maximumHeight(), 40);

    QTest::mouseClick(item.get(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 20));
    QCOMPARE(item->property("isSecondItem").toString(), QStringLiteral("press"));
    if (pressedHeight >= 0)
        QCOMPARE(item->maximumHeight(), pressedHeight);

    item->setPressed(false);
    QCOMPARE(item->minimumHeight(), 40);
    QCOMPARE(item->maximumHeight(), 40);
    item->setPressed(true);
    item->setPressed(false);
    QCOMPARE(item->minimumHeight(), 40);
    QCOMPARE(item->maximumHeight(), 40);
    qApp->setStyleSheet(QString());
}

QTEST_MAIN(tst_SecondItem)
#include "tst_seconditem.moc"
