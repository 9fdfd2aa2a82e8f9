// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Tests of the reference dark style sheet, signaltreelist-dark.qss: it parses,
// every picture it names is in the icon bundle, and once a host installs it
// as the application style sheet the list's rows paint the dark palette in
// each of their published states.
//
// Colours are checked on rendered pixels. The expected values are the
// library's palette, written out here independently of the sheet.
//
// Set SIGNALTREELIST_SHOT_DIR to a directory to have the rendered states
// written there as PNG files for a look by eye.

#include "BuiltRows.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "NodeFactory.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "SignalTreeList.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QRegularExpression>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

// ---- the palette ----------------------------------------------------------

const QColor kPanel(48, 50, 56);
const QColor kRaisedGrey(79, 84, 92);
const QColor kDarkRow(36, 38, 40);
const QColor kBlackRow(22, 23, 25);
const QColor kOrange(226, 100, 12);
const QColor kGreenDot(47, 195, 123);
const QColor kGreyDot(102, 102, 102);

// ---- colour helpers -------------------------------------------------------

double distance(const QColor &a, const QColor &b)
{
    const double dr = a.red() - b.red();
    const double dg = a.green() - b.green();
    const double db = a.blue() - b.blue();
    return std::sqrt(dr * dr + dg * dg + db * db);
}

QString describe(const QColor &c)
{
    return QStringLiteral("rgba(%1,%2,%3,%4)").arg(c.red()).arg(c.green()).arg(c.blue()).arg(c.alpha());
}

// Background fills are drawn without antialiasing: a small allowance only
// covers rounding in the raster engine.
bool sameColour(const QColor &actual, const QColor &expected)
{
    return actual.alpha() == 255 && distance(actual, expected) <= 3.0;
}

#define COMPARE_COLOUR(actual, expected)                                                    \
    do {                                                                                   \
        const QColor a_ = (actual);                                                        \
        const QColor e_ = (expected);                                                      \
        QVERIFY2(sameColour(a_, e_),                                                       \
                 qPrintable(QStringLiteral("got %1, expected %2").arg(describe(a_), describe(e_)))); \
    } while (false)

// The window as it is on screen now, children composited over their parents.
QImage snapshot(QWidget *window)
{
    QImage image = window->grab().toImage().convertToFormat(QImage::Format_ARGB32);
    image.setDevicePixelRatio(1.0);
    return image;
}

qreal ratioOf(QWidget *window)
{
    return window->devicePixelRatioF();
}

// Colour of @p pos (in @p widget's coordinates) in a snapshot of its window.
QColor pixelOf(QWidget *widget, const QPoint &pos)
{
    QWidget *window = widget->window();
    const QImage image = snapshot(window);
    const QPointF at = QPointF(widget->mapTo(window, pos)) * ratioOf(window);
    return image.pixelColor(at.toPoint());
}

// A spot of a row that no text, icon or button ever covers: a few pixels in
// from the right edge, half way down. Both row kinds keep their buttons
// further in (root rows behind an 18-pixel spacing, child rows' button frame
// ends in 16 empty pixels).
QPoint quietSpot(QWidget *row)
{
    return QPoint(row->width() - 4, row->height() / 2);
}

// Closest distance of any pixel of @p widget's area to @p colour.
double closestTo(QWidget *widget, const QColor &colour)
{
    QWidget *window = widget->window();
    const QImage image = snapshot(window);
    const qreal ratio = ratioOf(window);
    const QRect area(QPointF(QPointF(widget->mapTo(window, QPoint(0, 0))) * ratio).toPoint(),
                     QSizeF(QSizeF(widget->size()) * ratio).toSize());
    double best = 1e9;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            best = qMin(best, distance(image.pixelColor(x, y), colour));
    }
    return best;
}

// Text is antialiased: its solid stems carry the text colour, its edges a
// blend with the background.
const double kTextTolerance = 30.0;

void saveShot(QWidget *window, const QString &name)
{
    const QString dir = qEnvironmentVariable("SIGNALTREELIST_SHOT_DIR");
    if (dir.isEmpty())
        return;
    QDir().mkpath(dir);
    snapshot(window).save(QDir(dir).filePath(name + QStringLiteral(".png")));
}

// ---- messages -------------------------------------------------------------

QStringList g_parseWarnings;
QtMessageHandler g_previousHandler = nullptr;

void collectParseWarnings(QtMsgType type, const QMessageLogContext &context, const QString &msg)
{
    if (msg.contains(QLatin1String("Could not parse")))
        g_parseWarnings << msg;
    if (g_previousHandler)
        g_previousHandler(type, context, msg);
}

// ---- records --------------------------------------------------------------

st_NodeInfoSignal makeNode(const QStringList &names, int type, QList<bool> buttons)
{
    st_NodeInfoSignal node = NodeFactory().node(names, type);
    node.showOpBtn = buttons;
    return node;
}

// A host window holding a filled list: root 0 (expanded) with two child
// rows, root 1 (collapsed, never touched) with one.
struct Host
{
    std::unique_ptr<QWidget> window;
    SignalTreeList *list = nullptr;
    QList<RootItem *> roots;
    QList<SecondItem *> children; // of root 0

    Host()
        : window(new QWidget)
    {
        window->resize(360, 320);
        list = new SignalTreeList(window.get());
        list->initControls();

        st_NodeInfoSignal root0 = makeNode({QStringLiteral("Input source A")}, 0, {true, true});
        st_NodeInfoSignal root1 = makeNode({QStringLiteral("Input source B")}, 0, {true, true});
        const QList<st_NodeInfoSignal> kids0{
            makeNode({QStringLiteral("HDMI 1"), QStringLiteral("1920x1080@60")}, 1, {true, true, true}),
            makeNode({QStringLiteral("DVI 2"), QStringLiteral("1280x720@50")}, 0, {true, true, true}),
        };
        const QList<st_NodeInfoSignal> kids1{
            makeNode({QStringLiteral("SDI 1")}, 3, {true, true}),
        };
        list->addRootItem(root0, kids0);
        list->addRootItem(root1, kids1);
        list->setIsShowChildItem(0, true);

        window->show();
    }

    bool exposed() { return QTest::qWaitForWindowExposed(window.get()); }

    void collect()
    {
        // Drawers appear in the window in root order.
        QList<DrawerControl *> drawers = listDrawers(window.get());
        std::sort(drawers.begin(), drawers.end(), [](DrawerControl *a, DrawerControl *b) {
            return a->rootIndex() < b->rootIndex();
        });
        for (DrawerControl *drawer : drawers)
            roots << drawer->rootItem();
        if (!drawers.isEmpty())
            children = builtRows(drawers.first());
    }
};

QLabel *upperOf(QWidget *row)
{
    return row->findChild<QLabel *>(QStringLiteral("m_qlUpper"));
}

using EventSender::sendEnter;
using EventSender::sendLeave;

} // namespace

class tst_DarkStyleSheet : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void sheetParses();
    void brokenSheetIsNoticed();
    void everyPictureIsInTheBundle();
    void panelsPaintThePanelColour();
    void rootRowStates();
    void childRowStates();
    void rootUpperTextTurnsOrangeWhenSelected();
    void childUpperTextIsOrangeOnlyWhileSelected();
    void onlineIndicator_data();
    void onlineIndicator();
    void mainPropertyMarker();
    void hoverButtonsShowTheirPictures();
    void expandBoxShowsItsPictures();
    void scrollBarUsesThePalette();
    void keyboardFocusDrawsAnOutline();

private:
    QString m_sheet;
};

void tst_DarkStyleSheet::initTestCase()
{
    EventSender::parkPointer();
    QFile file(QStringLiteral(DARK_STYLE_SHEET));
    QVERIFY2(file.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(file.fileName()));
    m_sheet = QString::fromUtf8(file.readAll());
    QVERIFY(!m_sheet.trimmed().isEmpty());
    g_previousHandler = qInstallMessageHandler(collectParseWarnings);
}

void tst_DarkStyleSheet::cleanupTestCase()
{
    qInstallMessageHandler(g_previousHandler);
}

void tst_DarkStyleSheet::init()
{
    g_parseWarnings.clear();
    qApp->setStyleSheet(m_sheet);
}

void tst_DarkStyleSheet::cleanup()
{
    qApp->setStyleSheet(QString());
    QVERIFY2(g_parseWarnings.isEmpty(), qPrintable(g_parseWarnings.join(QLatin1Char('\n'))));
}

void tst_DarkStyleSheet::sheetParses()
{
    // The application sheet is parsed when the first widget is polished.
    QWidget window;
    QVBoxLayout *layout = new QVBoxLayout(&window);
    layout->addWidget(new QLabel(QStringLiteral("text")));
    layout->addWidget(new QToolButton);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY2(g_parseWarnings.isEmpty(), qPrintable(g_parseWarnings.join(QLatin1Char('\n'))));
}

void tst_DarkStyleSheet::brokenSheetIsNoticed()
{
    // The parse check above can fail: an unbalanced sheet is reported.
    qApp->setStyleSheet(m_sheet + QStringLiteral("\nQLabel { color: rgb(1,2,3); }}} {"));
    QWidget window;
    new QLabel(QStringLiteral("text"), &window);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(!g_parseWarnings.isEmpty());
    g_parseWarnings.clear();
}

void tst_DarkStyleSheet::everyPictureIsInTheBundle()
{
    const QRegularExpression urlPattern(QStringLiteral("url\\(\\s*([^)\\s]+)\\s*\\)"));
    QStringList urls;
    auto it = urlPattern.globalMatch(m_sheet);
    while (it.hasNext())
        urls << it.next().captured(1);
    QVERIFY(!urls.isEmpty());

    for (const QString &url : qAsConst(urls)) {
        QVERIFY2(url.startsWith(QLatin1String(":/")), qPrintable(url));
        QVERIFY2(QFile::exists(url), qPrintable(url));
        QVERIFY2(!QPixmap(url).isNull(), qPrintable(url));
    }

    // Every picture the looks depend on is named.
    const QStringList required{
        QStringLiteral(":/operate/resource/operate/settings_normal.png"),
        QStringLiteral(":/operate/resource/operate/settings_pressed.png"),
        QStringLiteral(":/operate/resource/operate/delete_normal.png"),
        QStringLiteral(":/operate/resource/operate/delete_pressed.png"),
        QStringLiteral(":/rootitem/resource/rootitem/rootitem_checkbox_normal.png"),
        QStringLiteral(":/rootitem/resource/rootitem/rootitem_checkbox_checked.png"),
        QStringLiteral(":/scrollbar/resource/scrollbar/up_normal.png"),
        QStringLiteral(":/scrollbar/resource/scrollbar/down_normal.png"),
        QStringLiteral(":/scrollbar/resource/scrollbar/left_normal.png"),
        QStringLiteral(":/scrollbar/resource/scrollbar/right_normal.png"),
    };
    for (const QString &path : required)
        QVERIFY2(urls.contains(path), qPrintable(path));
}

void tst_DarkStyleSheet::panelsPaintThePanelColour()
{
    Host host;
    QVERIFY(host.exposed());
    host.collect();
    QCOMPARE(host.roots.size(), 2);

    QFrame *frame = host.list->getSignalTreeListFrame();
    QVERIFY(frame);
    QCOMPARE(frame->objectName(), QStringLiteral("TreeListFrame"));

    // Below the last drawer only the scrolled container shows.
    RootItem *last = host.roots.last();
    const QPoint below = last->mapTo(frame, QPoint(last->width() / 2, last->height() + 12));
    QVERIFY(below.y() < frame->height());
    COMPARE_COLOUR(pixelOf(frame, below), kPanel);

    // The gap between the drawers, left of the rows.
    COMPARE_COLOUR(pixelOf(frame, QPoint(3, 3)), kPanel);
    saveShot(host.window.get(), QStringLiteral("dark-list"));
}

void tst_DarkStyleSheet::rootRowStates()
{
    Host host;
    QVERIFY(host.exposed());
    host.collect();
    RootItem *root = host.roots.value(1);
    QVERIFY(root);
    QCOMPARE(root->property("isRootItem").toString(), QStringLiteral("normal"));

    // normal: transparent, the panel shows through.
    const QColor normal = pixelOf(root, quietSpot(root));
    COMPARE_COLOUR(normal, kPanel);

    sendEnter(root);
    QCOMPARE(root->property("isRootItem").toString(), QStringLiteral("hover"));
    const QColor hover = pixelOf(root, quietSpot(root));
    COMPARE_COLOUR(hover, kRaisedGrey);
    saveShot(host.window.get(), QStringLiteral("dark-root-hover"));

    sendLeave(root);
    COMPARE_COLOUR(pixelOf(root, quietSpot(root)), kPanel);

    QTest::mouseClick(root, Qt::LeftButton, Qt::NoModifier, quietSpot(root));
    QCOMPARE(root->property("isRootItem").toString(), QStringLiteral("press"));
    const QColor press = pixelOf(root, quietSpot(root));
    COMPARE_COLOUR(press, kDarkRow);
    saveShot(host.window.get(), QStringLiteral("dark-root-press"));

    // Three clearly different looks.
    QVERIFY(distance(normal, hover) > 20);
    QVERIFY(distance(normal, press) > 10);
    QVERIFY(distance(hover, press) > 20);

    // The expanded root was pressed on the way and keeps that look.
    COMPARE_COLOUR(pixelOf(host.roots.first(), quietSpot(host.roots.first())), kDarkRow);
}

void tst_DarkStyleSheet::childRowStates()
{
    Host host;
    QVERIFY(host.exposed());
    host.collect();
    QCOMPARE(host.children.size(), 2);
    SecondItem *first = host.children.at(0);
    SecondItem *second = host.children.at(1);
    QVERIFY(first->isVisible());
    QCOMPARE(first->objectName(), QStringLiteral("SignalSecondItem"));

    // The list selects the last row it adds.
    QCOMPARE(first->property("isSecondItem").toString(), QStringLiteral("normal"));
    QCOMPARE(second->property("isSecondItem").toString(), QStringLiteral("press"));

    const QColor normal = pixelOf(first, quietSpot(first));
    COMPARE_COLOUR(normal, kPanel);
    COMPARE_COLOUR(pixelOf(second, quietSpot(second)), kBlackRow);

    sendEnter(first);
    QCOMPARE(first->property("isSecondItem").toString(), QStringLiteral("hover"));
    const QColor hover = pixelOf(first, quietSpot(first));
    COMPARE_COLOUR(hover, kRaisedGrey);
    saveShot(host.window.get(), QStringLiteral("dark-child-hover"));

    QTest::mouseClick(first, Qt::LeftButton, Qt::NoModifier, quietSpot(first));
    QCOMPARE(first->property("isSecondItem").toString(), QStringLiteral("press"));
    const QColor press = pixelOf(first, quietSpot(first));
    COMPARE_COLOUR(press, kBlackRow);

    // Pressed survives leaving; the previously selected row went back.
    sendLeave(first);
    COMPARE_COLOUR(pixelOf(first, quietSpot(first)), kBlackRow);
    COMPARE_COLOUR(pixelOf(second, quietSpot(second)), kPanel);
    saveShot(host.window.get(), QStringLiteral("dark-child-press"));

    QVERIFY(distance(normal, hover) > 20);
    QVERIFY(distance(normal, press) > 20);
    QVERIFY(distance(hover, press) > 20);
}

void tst_DarkStyleSheet::rootUpperTextTurnsOrangeWhenSelected()
{
    Host host;
    QVERIFY(host.exposed());
    host.collect();
    RootItem *root = host.roots.value(1);
    QVERIFY(root);
    QLabel *upper = upperOf(root);
    QVERIFY(upper);
    QVERIFY(!upper->text().isEmpty());

    // Light text, nothing near the orange, at rest and under the pointer.
    QVERIFY2(closestTo(upper, kOrange) > 60, qPrintable(QString::number(closestTo(upper, kOrange))));
    QVERIFY(closestTo(upper, QColor(230, 230, 230)) <= kTextTolerance);
    sendEnter(root);
    QVERIFY(closestTo(upper, kOrange) > 60);

    QTest::mouseClick(root, Qt::LeftButton, Qt::NoModifier, quietSpot(root));
    QCOMPARE(upper->property("isUpOnline").toBool(), true);
    const double d = closestTo(upper, kOrange);
    QVERIFY2(d <= kTextTolerance, qPrintable(QString::number(d)));
}

void tst_DarkStyleSheet::childUpperTextIsOrangeOnlyWhileSelected()
{
    Host host;
    QVERIFY(host.exposed());
    host.collect();
    QCOMPARE(host.children.size(), 2);
    QLabel *firstUpper = upperOf(host.children.at(0));
    QLabel *secondUpper = upperOf(host.children.at(1));
    QVERIFY(firstUpper && secondUpper);

    QVERIFY(closestTo(firstUpper, kOrange) > 60);
    QVERIFY(closestTo(secondUpper, kOrange) <= kTextTolerance);

    QTest::mouseClick(host.children.at(0), Qt::LeftButton, Qt::NoModifier,
                      quietSpot(host.children.at(0)));
    QVERIFY(closestTo(firstUpper, kOrange) <= kTextTolerance);
    QVERIFY(closestTo(secondUpper, kOrange) > 60);

    // The second line keeps its own grey.
    QLabel *down = host.children.at(0)->findChild<QLabel *>(QStringLiteral("m_qlDown"));
    QVERIFY(down && down->isVisible());
    QVERIFY(closestTo(down, QColor(152, 153, 155)) <= kTextTolerance);
    QVERIFY(closestTo(down, kOrange) > 60);
}

void tst_DarkStyleSheet::onlineIndicator_data()
{
    QTest::addColumn<bool>("online");
    QTest::addColumn<QColor>("dot");
    QTest::newRow("online") << true << kGreenDot;
    QTest::newRow("offline") << false << kGreyDot;
}

void tst_DarkStyleSheet::onlineIndicator()
{
    QFETCH(bool, online);
    QFETCH(QColor, dot);

    // A root row keeps its indicator hidden; a button carrying the same
    // properties shows the look a host gets when it brings it back.
    QWidget window;
    window.resize(40, 40);
    QToolButton *button = new QToolButton(&window);
    button->setFixedSize(8, 8);
    button->move(16, 16);
    button->setProperty("isTarn", true);
    button->setProperty("isOnlineBtn", online);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    COMPARE_COLOUR(pixelOf(button, QPoint(4, 4)), dot);
    // Corners are rounded by 2 pixels: the very corner is not the dot.
    QVERIFY(!sameColour(pixelOf(button, QPoint(0, 0)), dot));
}

void tst_DarkStyleSheet::mainPropertyMarker()
{
    QWidget window;
    window.resize(60, 20);
    QLabel *marker = new QLabel(&window);
    marker->setGeometry(10, 9, 30, 2);
    marker->setProperty("isTarn", true);
    marker->setProperty("isMainproperty", true);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    COMPARE_COLOUR(pixelOf(marker, QPoint(15, 1)), kOrange);
}

void tst_DarkStyleSheet::hoverButtonsShowTheirPictures()
{
    Host host;
    QVERIFY(host.exposed());
    host.collect();
    RootItem *root = host.roots.value(1);
    QVERIFY(root);
    sendEnter(root);

    QToolButton *edit = nullptr;
    QToolButton *del = nullptr;
    for (QToolButton *b : root->findChildren<QToolButton *>()) {
        if (b->property("isEditBtn").toBool())
            edit = b;
        else if (b->property("isDelBtn").toBool())
            del = b;
    }
    QVERIFY(edit && del);
    QVERIFY(edit->isVisible() && del->isVisible());

    // Each button shows its picture, stretched over its 20x20 face, on the
    // row's hover background: compare with the picture painted the same way.
    const auto expected = [](const QString &path) {
        QImage image(20, 20, QImage::Format_ARGB32);
        image.fill(kRaisedGrey);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(QRect(0, 0, 20, 20), QPixmap(path));
        return image;
    };
    const auto matches = [](QWidget *button, const QImage &reference) {
        double worst = 0;
        for (int y = 2; y < 18; ++y) {
            for (int x = 2; x < 18; ++x)
                worst = qMax(worst, distance(pixelOf(button, QPoint(x, y)), reference.pixelColor(x, y)));
        }
        return worst;
    };
    const QImage settings = expected(QStringLiteral(":/operate/resource/operate/settings_normal.png"));
    const QImage remove = expected(QStringLiteral(":/operate/resource/operate/delete_normal.png"));
    QVERIFY2(matches(edit, settings) < 40, qPrintable(QString::number(matches(edit, settings))));
    QVERIFY2(matches(del, remove) < 40, qPrintable(QString::number(matches(del, remove))));
    // ...and not the other one's picture (the pictures differ enough).
    QVERIFY(matches(edit, remove) > 60);

    // Under the pointer the edit button takes its pressed picture.
    edit->setAttribute(Qt::WA_UnderMouse, true);
    edit->update();
    const QImage settingsHover = expected(QStringLiteral(":/operate/resource/operate/settings_pressed.png"));
    QVERIFY2(matches(edit, settingsHover) < 40, qPrintable(QString::number(matches(edit, settingsHover))));
    saveShot(host.window.get(), QStringLiteral("dark-root-buttons"));
}

void tst_DarkStyleSheet::expandBoxShowsItsPictures()
{
    Host host;
    QVERIFY(host.exposed());
    host.collect();
    QCheckBox *expanded = host.roots.value(0)->findChild<QCheckBox *>();
    QCheckBox *collapsed = host.roots.value(1)->findChild<QCheckBox *>();
    QVERIFY(expanded && collapsed);
    QVERIFY(expanded->isChecked());
    QVERIFY(!collapsed->isChecked());

    const auto expected = [](const QString &path, const QColor &background) {
        QImage image(16, 16, QImage::Format_ARGB32);
        image.fill(background);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(QRect(0, 0, 16, 16), QPixmap(path));
        return image;
    };
    const auto mismatch = [](QWidget *box, const QImage &reference) {
        double worst = 0;
        for (int y = 1; y < 15; ++y) {
            for (int x = 1; x < 15; ++x)
                worst = qMax(worst, distance(pixelOf(box, QPoint(x, y)), reference.pixelColor(x, y)));
        }
        return worst;
    };
    const QImage checked = expected(QStringLiteral(":/rootitem/resource/rootitem/rootitem_checkbox_checked.png"), kDarkRow);
    const QImage unchecked = expected(QStringLiteral(":/rootitem/resource/rootitem/rootitem_checkbox_normal.png"), kPanel);
    QVERIFY2(mismatch(expanded, checked) < 40, qPrintable(QString::number(mismatch(expanded, checked))));
    QVERIFY2(mismatch(collapsed, unchecked) < 40, qPrintable(QString::number(mismatch(collapsed, unchecked))));
}

void tst_DarkStyleSheet::scrollBarUsesThePalette()
{
    // The arrows sit in the bar's margins, outside its track, on whatever
    // lies behind the bar: here, as in the list, the panel colour.
    QWidget window;
    window.resize(60, 240);
    QPalette palette = window.palette();
    palette.setColor(QPalette::Window, kPanel);
    window.setPalette(palette);
    window.setAutoFillBackground(true);
    QScrollBar *bar = new QScrollBar(Qt::Vertical, &window);
    bar->setRange(0, 100);
    bar->setPageStep(20);
    bar->setValue(0);
    bar->setGeometry(10, 10, 12, 220);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    // 12 pixels thick with its arrows in 12-pixel margins at both ends; the
    // handle starts right below the top arrow while the value is 0.
    QCOMPARE(bar->sizeHint().width(), 12);
    COMPARE_COLOUR(pixelOf(bar, QPoint(6, 12 + 10)), kRaisedGrey);
    COMPARE_COLOUR(pixelOf(bar, QPoint(6, bar->height() - 12 - 10)), kPanel);
    // Both ends show their arrow pictures, stretched over 12x12.
    const QImage image = snapshot(&window);
    const auto mismatch = [&](int top, const QString &picture) {
        QImage reference(12, 12, QImage::Format_ARGB32);
        reference.fill(kPanel);
        QPainter painter(&reference);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(QRect(0, 0, 12, 12), QPixmap(picture));
        painter.end();
        double worst = 0;
        for (int y = 0; y < 12; ++y) {
            for (int x = 0; x < 12; ++x) {
                const QColor shown = image.pixelColor(bar->mapTo(&window, QPoint(x, top + y)));
                worst = qMax(worst, distance(shown, reference.pixelColor(x, y)));
            }
        }
        return worst;
    };
    const double up = mismatch(0, QStringLiteral(":/scrollbar/resource/scrollbar/up_normal.png"));
    const double down = mismatch(bar->height() - 12, QStringLiteral(":/scrollbar/resource/scrollbar/down_normal.png"));
    QVERIFY2(up < 40, qPrintable(QString::number(up)));
    QVERIFY2(down < 40, qPrintable(QString::number(down)));
}

// The row the keys act on gets a thin orange outline over its state's
// background; the other rows and the inside of that row stay as they were.
void tst_DarkStyleSheet::keyboardFocusDrawsAnOutline()
{
    Host host;
    QVERIFY(host.exposed());
    host.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(host.window.get()));
    host.collect();
    SecondItem *first = host.children.at(0);
    RootItem *root = host.roots.at(1);
    QWidget *frame = host.list->getSignalTreeListFrame();
    const QPoint edge(first->width() / 2, 0);
    const QColor before = pixelOf(first, edge);

    frame->setFocus(Qt::TabFocusReason); // lands on the first row, root 0
    QTest::keyClick(frame, Qt::Key_Down);
    QCOMPARE(first->property("isKeyFocus").toBool(), true);
    COMPARE_COLOUR(pixelOf(first, edge), kOrange);
    COMPARE_COLOUR(pixelOf(first, quietSpot(first)), kPanel);
    saveShot(host.window.get(), QStringLiteral("dark-key-focus"));

    QTest::keyClick(frame, Qt::Key_End);
    QCOMPARE(root->property("isKeyFocus").toBool(), true);
    COMPARE_COLOUR(pixelOf(root, QPoint(root->width() / 2, 0)), kOrange);
    COMPARE_COLOUR(pixelOf(first, edge), before);
}

QTEST_MAIN(tst_DarkStyleSheet)
#include "tst_darkstylesheet.moc"
