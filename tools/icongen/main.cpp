// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// signaltreelist_icongen: draws every picture of the library's icon bundle.
//
// Usage: signaltreelist_icongen <resource-root> <contact-sheet.png>
//
// Writes <resource-root>/signaltype/*.png, rootitem/, operate/ and
// scrollbar/, then one contact sheet that shows every picture at its own
// size on the list's dark background with its file name beneath.
//
// Everything is drawn with QPainter from fixed coordinates and a fixed font
// (DejaVu Sans, from fonts-dejavu-core), so the output is the same on every
// run and can be regenerated after a look change.

#include <QColor>
#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QFontInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QStringList>
#include <QVector>
#include <QtMath>

#include <cstdio>

namespace {

// The list's palette: backgrounds the pictures are seen on, and the text
// colours they have to sit next to.
const QColor kPanel(48, 50, 56);
const QColor kRowHover(79, 84, 92);
const QColor kRowDark(22, 23, 25);
const QColor kLight(230, 230, 230);
const QColor kLowText(152, 153, 155);
const QColor kOrange(226, 100, 12);

// Label ink on the coloured connector bodies: a near-black reads on every
// bright hue and on the disabled grey alike.
const QColor kLabelInk(24, 25, 28);
const QColor kDisabledBody(112, 113, 116);
const QColor kDisabledInk(30, 31, 34);

const char *const kFontFamily = "DejaVu Sans";

QFont labelFont(int pixelSize)
{
    QFont font(QString::fromLatin1(kFontFamily));
    font.setPixelSize(pixelSize);
    font.setBold(true);
    // The condensed face keeps four-letter names inside a 30 px body.
    font.setStretch(QFont::Condensed);
    font.setHintingPreference(QFont::PreferFullHinting);
    font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return font;
}

QFont captionFont(int pixelSize)
{
    QFont font(QString::fromLatin1(kFontFamily));
    font.setPixelSize(pixelSize);
    font.setHintingPreference(QFont::PreferFullHinting);
    font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return font;
}

QImage blankImage(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    return image;
}

void beginPainter(QPainter &painter, int scale)
{
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    painter.scale(scale, scale);
}

// Draws text with its ink centred on a point given in unscaled picture
// units. The text is laid out at the device size (not scaled by the
// painter) so the glyphs are hinted for the pixel grid at every scale.
void drawCentredLabel(QPainter &painter, const QString &text, QPointF centre, qreal maxWidth,
                      int basePixelSize, int scale, const QColor &ink)
{
    int pixelSize = basePixelSize * scale;
    QFont font = labelFont(pixelSize);
    const qreal deviceMax = maxWidth * scale;
    while (pixelSize > 6 * scale && QFontMetrics(font).tightBoundingRect(text).width() > deviceMax) {
        --pixelSize;
        font = labelFont(pixelSize);
    }
    const QFontMetrics metrics(font);
    const QRect inkRect = metrics.tightBoundingRect(text);
    // Centre caps rather than the ink of this very string, so "WLan" and
    // "DVI" share one baseline; round to whole pixels to keep stems crisp.
    const int capHeight = metrics.capHeight();
    const qreal cx = centre.x() * scale;
    const qreal cy = centre.y() * scale;
    const int x = qRound(cx - inkRect.left() - inkRect.width() / 2.0);
    const int baseline = qRound(cy + capHeight / 2.0);

    painter.save();
    painter.resetTransform();
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(QPoint(x, baseline), text);
    painter.restore();
}

QPainterPath polygonPath(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(QVector<QPointF>(points)));
    path.closeSubpath();
    return path;
}

QPainterPath roundedRectPath(const QRectF &rect, qreal radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

// ---- signal type pictures -------------------------------------------------

enum class Connector {
    Hdmi,     // wide plug, lower corners cut
    DSub,     // trapezoid body with a screw post either side (DVI, VGA)
    DisplayPort, // one corner cut
    Usb,      // flat rectangle
    Bnc,      // round body with bayonet lugs (SDI)
    Rca,      // round-ended body (composite video)
    Toslink,  // upper corners cut (optical)
    Wireless, // body with an antenna
    Mosaic,   // body with a 2 x 2 tile grid (DVI mosaic wall)
    Unknown   // plain body with a question mark
};

struct SignalLook {
    const char *name;   // file name stem, exact case
    const char *label;  // text on the picture
    QColor hue;         // body colour when the signal is online
    Connector connector;
    int height;         // one-times height in pixels (width is always 30)
    const char *normal2x;  // the double-size file names do not follow one pattern
    const char *disable2x;
};

const SignalLook kSignalLooks[] = {
    {"CVBS", "CVBS", QColor(236, 196, 40), Connector::Rca, 18, "CVBS_normal_2x.png", "CVBS_disable_2x.png"},
    {"DP", "DP", QColor(232, 96, 176), Connector::DisplayPort, 18, "DP_normal_2x.png", "DP_disable_2x.png"},
    {"DVI", "DVI", QColor(72, 148, 250), Connector::DSub, 18, "DVI_normal_2x.png", "DVI_disable_2x.png"},
    {"dvimosic", "MOS", QColor(120, 176, 255), Connector::Mosaic, 20, "dvimosic_normal2x.png", "dvimosic_disable2x.png"},
    {"HDMI", "HDMI", QColor(236, 112, 24), Connector::Hdmi, 18, "HDMI_normal_2x.png", "HDMI_disable_2x.png"},
    {"OPT", "OPT", QColor(240, 82, 82), Connector::Toslink, 18, "OPT_normal@2x.png", "OPT_disable@2x.png"},
    {"SDI", "SDI", QColor(40, 196, 226), Connector::Bnc, 18, "SDI_normal_2x.png", "SDI_disable_2x.png"},
    {"USB", "USB", QColor(60, 200, 150), Connector::Usb, 18, "USB_normal_2x.png", "USB_disable_2x.png"},
    {"unknown", "?", QColor(196, 198, 204), Connector::Unknown, 18, "unknown_normal2x.png", "unknown_disable2x.png"},
    {"VGA", "VGA", QColor(156, 120, 246), Connector::DSub, 18, "VGA_normal_2x.png", "VGA_disable_2x.png"},
    {"WLan", "WLan", QColor(150, 210, 60), Connector::Wireless, 18, "WLan_normal_2x.png", "WLan_disable_2x.png"},
};

const int kSignalWidth = 30;
const int kLabelPixelSize = 9;

QImage drawSignal(const SignalLook &look, bool online, int scale)
{
    QImage image = blankImage(kSignalWidth * scale, look.height * scale);
    QPainter painter(&image);
    beginPainter(painter, scale);

    const QColor body = online ? look.hue : kDisabledBody;
    const QColor ink = online ? kLabelInk : kDisabledInk;
    const QString label = QString::fromLatin1(look.label);

    // Bodies span x 1..29 and y 3..15 (centre 9) unless the connector needs
    // room for a feature; whole-pixel edges keep the 1x picture sharp.
    QPainterPath shape;
    QPointF labelCentre(15, 9);
    qreal labelWidth = 26;

    switch (look.connector) {
    case Connector::Hdmi:
        shape = polygonPath({{1, 3}, {29, 3}, {29, 11}, {25, 15}, {5, 15}, {1, 11}});
        labelCentre = QPointF(15, 8.5);
        break;
    case Connector::DSub: {
        shape = polygonPath({{4, 3}, {26, 3}, {24, 15}, {6, 15}});
        // screw posts either side of the shell
        shape.addEllipse(QPointF(1.75, 9), 1.75, 1.75);
        shape.addEllipse(QPointF(28.25, 9), 1.75, 1.75);
        labelWidth = 19;
        break;
    }
    case Connector::DisplayPort:
        shape = polygonPath({{1, 3}, {29, 3}, {29, 15}, {6, 15}, {1, 10}});
        labelCentre = QPointF(16, 9);
        break;
    case Connector::Usb:
        shape = roundedRectPath(QRectF(1, 4, 28, 11), 1);
        labelCentre = QPointF(15, 9.5);
        break;
    case Connector::Bnc:
        shape = roundedRectPath(QRectF(4, 3, 22, 12), 3);
        shape.addRect(QRectF(1, 7, 3.5, 4));
        shape.addRect(QRectF(25.5, 7, 3.5, 4));
        labelWidth = 20;
        break;
    case Connector::Rca:
        shape = roundedRectPath(QRectF(1, 3, 28, 12), 5);
        break;
    case Connector::Toslink:
        shape = polygonPath({{1, 7}, {5, 3}, {25, 3}, {29, 7}, {29, 15}, {1, 15}});
        labelCentre = QPointF(15, 9.5);
        break;
    case Connector::Wireless: {
        shape = roundedRectPath(QRectF(1, 5, 28, 12), 2);
        labelCentre = QPointF(15, 11);
        break;
    }
    case Connector::Mosaic:
        shape = roundedRectPath(QRectF(1, 3, 28, 14), 1.5);
        labelCentre = QPointF(19, 10);
        labelWidth = 18;
        break;
    case Connector::Unknown:
        shape = roundedRectPath(QRectF(7, 2, 16, 14), 3);
        break;
    }

    painter.setPen(Qt::NoPen);
    painter.setBrush(body);
    painter.drawPath(shape.simplified());

    if (look.connector == Connector::Wireless) {
        // antenna mast and tip above the body
        painter.setPen(QPen(body, 1.5, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(24.5, 5), QPointF(24.5, 1.5));
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(QPointF(24.5, 1.75), 1.5, 1.5);
    }

    if (look.connector == Connector::Mosaic) {
        // 2 x 2 wall of screens in the label ink, level with the caps
        painter.setBrush(ink);
        for (int row = 0; row < 2; ++row) {
            for (int col = 0; col < 2; ++col)
                painter.drawRect(QRectF(2 + col * 4, 7 + row * 4, 3, 3));
        }
    }

    drawCentredLabel(painter, label, labelCentre, labelWidth,
                     look.connector == Connector::Unknown ? 12 : kLabelPixelSize, scale, ink);
    painter.end();
    return image;
}

// ---- root item pictures ---------------------------------------------------

// The expand box: a chevron, right when collapsed, down when expanded. It is
// shown shrunk to the check-box indicator size, so the stroke is heavy.
QImage drawChevron(bool expanded)
{
    QImage image = blankImage(64, 64);
    QPainter painter(&image);
    beginPainter(painter, 1);
    QPen pen(kLight, 9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    QPolygonF chevron;
    if (expanded)
        chevron << QPointF(16, 24) << QPointF(32, 40) << QPointF(48, 24);
    else
        chevron << QPointF(24, 16) << QPointF(40, 32) << QPointF(24, 48);
    painter.drawPolyline(chevron);
    painter.end();
    return image;
}

// The drag picture: a dark translucent bubble with a grip at the left. The
// drawer writes the dragged row's name at x 25..125, y 7..25, so that area
// stays plain.
QImage drawDragTip(int width, int height)
{
    QImage image = blankImage(width, height);
    QPainter painter(&image);
    beginPainter(painter, 1);
    const QRectF bubble(0.5, 0.5, width - 1, height - 1);
    painter.setPen(QPen(QColor(226, 100, 12, 210), 1));
    painter.setBrush(QColor(22, 23, 25, 215));
    painter.drawRoundedRect(bubble, 6, 6);

    // grip: two columns of three 2 px dots on whole pixels, vertically centred
    painter.setPen(Qt::NoPen);
    painter.setBrush(kLowText);
    const int midY = height / 2;
    for (int row = -1; row <= 1; ++row) {
        for (int col = 0; col < 2; ++col)
            painter.drawRect(QRectF(9 + col * 5, midY - 1 + row * 5, 2, 2));
    }
    painter.end();
    return image;
}

// ---- operate pictures -----------------------------------------------------

// A waste bin built from whole-pixel rectangles, so it stays sharp at 20 px.
QImage drawDelete(bool hover)
{
    QImage image = blankImage(20, 20);
    QPainter painter(&image);
    beginPainter(painter, 1);
    const QColor ink = hover ? QColor(255, 128, 56) : QColor(224, 98, 92);
    QPainterPath bin;
    // handle
    bin.addRect(QRectF(7, 2, 6, 1));
    bin.addRect(QRectF(7, 3, 1, 1));
    bin.addRect(QRectF(12, 3, 1, 1));
    // lid
    bin.addRect(QRectF(3, 4, 14, 2));
    // can: 2 px walls and floor, two ribs inside
    QPainterPath can;
    can.addRect(QRectF(4, 7, 12, 11));
    QPainterPath hollow;
    hollow.addRect(QRectF(6, 7, 8, 9));
    bin.addPath(can.subtracted(hollow));
    bin.addRect(QRectF(8, 9, 1, 5));
    bin.addRect(QRectF(11, 9, 1, 5));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawPath(bin.simplified());
    painter.end();
    return image;
}

QImage drawGear(bool hover)
{
    QImage image = blankImage(30, 30);
    QPainter painter(&image);
    beginPainter(painter, 1);
    const QColor ink = hover ? kOrange : QColor(200, 201, 204);
    const QPointF centre(15, 15);
    const int teeth = 8;
    const qreal outer = 13.5;
    const qreal inner = 10;
    QPainterPath gear;
    // Each tooth spans a quarter of its period at the tip and a little more
    // at the root, which reads as a gear rather than a star at 30 px.
    for (int i = 0; i < teeth; ++i) {
        const qreal base = 2 * M_PI * i / teeth;
        const qreal period = 2 * M_PI / teeth;
        const qreal angles[4] = {base - period * 0.24, base - period * 0.15,
                                 base + period * 0.15, base + period * 0.24};
        const qreal radii[4] = {inner, outer, outer, inner};
        for (int k = 0; k < 4; ++k) {
            const QPointF point(centre.x() + radii[k] * qCos(angles[k]),
                                centre.y() + radii[k] * qSin(angles[k]));
            if (i == 0 && k == 0)
                gear.moveTo(point);
            else
                gear.lineTo(point);
        }
        // root arc to the next tooth
        const qreal nextStart = base + period * 0.76;
        const int steps = 4;
        for (int s = 1; s <= steps; ++s) {
            const qreal a = base + period * 0.24 + (nextStart - base - period * 0.24) * s / steps;
            gear.lineTo(centre.x() + inner * qCos(a), centre.y() + inner * qSin(a));
        }
    }
    gear.closeSubpath();
    gear.addEllipse(centre, 4.5, 4.5);
    gear.setFillRule(Qt::OddEvenFill);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawPath(gear);
    painter.end();
    return image;
}

// ---- scroll bar arrows ----------------------------------------------------

enum class Direction { Up, Down, Left, Right };

QImage drawArrow(Direction direction, bool pressed)
{
    QImage image = blankImage(16, 16);
    QPainter painter(&image);
    beginPainter(painter, 1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(pressed ? kOrange : QColor(190, 191, 194));
    QPolygonF triangle;
    switch (direction) {
    case Direction::Up:    triangle << QPointF(3, 11) << QPointF(13, 11) << QPointF(8, 5); break;
    case Direction::Down:  triangle << QPointF(3, 5) << QPointF(13, 5) << QPointF(8, 11); break;
    case Direction::Left:  triangle << QPointF(11, 3) << QPointF(11, 13) << QPointF(5, 8); break;
    case Direction::Right: triangle << QPointF(5, 3) << QPointF(5, 13) << QPointF(11, 8); break;
    }
    painter.drawPolygon(triangle);
    painter.end();
    return image;
}

// ---- output ---------------------------------------------------------------

struct Picture {
    QString folder;
    QString file;
    QImage image;
};

bool isStoredCompressed(const QString &file)
{
    return file.startsWith(QLatin1String("WLan_"));
}

bool savePicture(const QString &root, const Picture &picture)
{
    const QString dir = root + QLatin1Char('/') + picture.folder;
    if (!QDir().mkpath(dir))
        return false;
    const QString path = dir + QLatin1Char('/') + picture.file;
    // The bundle deflates the WLan pictures itself; rcc keeps that only if it
    // is smaller, which needs a PNG that is not deflated already.
    const int quality = isStoredCompressed(picture.file) ? 100 : -1;
    return picture.image.save(path, "PNG", quality);
}

QImage contactSheet(const QVector<Picture> &pictures)
{
    const int cellWidth = 172;
    const int columns = 6;
    const int margin = 16;
    const int gap = 4;
    const QFont nameFont = captionFont(10);
    const QFont headFont = [] { QFont f = captionFont(13); f.setBold(true); return f; }();
    const QFontMetrics nameMetrics(nameFont);
    const QFontMetrics headMetrics(headFont);

    // Lay out first (folder heading, then rows of cells), paint second.
    struct Placed { int index; QPoint topLeft; };
    struct Heading { QString text; int y; };
    QVector<Placed> placed;
    QVector<Heading> headings;
    int y = margin;
    QString folder;
    int column = 0;
    int rowHeight = 0;
    auto finishRow = [&] {
        if (column > 0) {
            y += rowHeight + nameMetrics.height() + gap + 14;
            column = 0;
            rowHeight = 0;
        }
    };
    for (int i = 0; i < pictures.size(); ++i) {
        const Picture &picture = pictures.at(i);
        if (picture.folder != folder) {
            finishRow();
            folder = picture.folder;
            headings.append({folder, y});
            y += headMetrics.height() + 8;
        }
        placed.append({i, QPoint(margin + column * cellWidth, y)});
        rowHeight = qMax(rowHeight, picture.image.height());
        if (++column == columns)
            finishRow();
    }
    finishRow();

    // One extra strip: the one-times type pictures on the row backgrounds
    // they are really shown on (hover grey, selected black).
    const int stripTop = y;
    QVector<int> oneTimes;
    for (int i = 0; i < pictures.size(); ++i) {
        const Picture &p = pictures.at(i);
        if (p.folder == QLatin1String("signaltype") && p.image.width() == kSignalWidth)
            oneTimes.append(i);
    }
    const int stripRow = 28;
    y += headMetrics.height() + 8 + 2 * stripRow + margin;

    QImage sheet(margin * 2 + columns * cellWidth, y, QImage::Format_ARGB32);
    sheet.fill(kPanel);
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::TextAntialiasing, true);

    painter.setFont(headFont);
    painter.setPen(kLight);
    for (const Heading &heading : headings)
        painter.drawText(QPoint(margin, heading.y + headMetrics.ascent()), heading.text + QLatin1Char('/'));

    painter.setFont(nameFont);
    for (const Placed &item : placed) {
        const Picture &picture = pictures.at(item.index);
        painter.drawImage(item.topLeft, picture.image);
        // find the tallest picture of this row so every name sits on one line
        int tallest = 0;
        for (const Placed &other : placed) {
            if (other.topLeft.y() == item.topLeft.y())
                tallest = qMax(tallest, pictures.at(other.index).image.height());
        }
        painter.setPen(kLowText);
        painter.drawText(QPoint(item.topLeft.x(), item.topLeft.y() + tallest + gap + nameMetrics.ascent()),
                         picture.file);
    }

    painter.setFont(headFont);
    painter.setPen(kLight);
    painter.drawText(QPoint(margin, stripTop + headMetrics.ascent()),
                     QStringLiteral("signaltype 1x on row backgrounds rgb(79,84,92) and rgb(22,23,25)"));
    const int stripY = stripTop + headMetrics.height() + 8;
    const QColor rowColours[2] = {kRowHover, kRowDark};
    for (int r = 0; r < 2; ++r) {
        const QRect band(margin, stripY + r * stripRow, oneTimes.size() * 40 + 8, stripRow - 4);
        painter.setPen(Qt::NoPen);
        painter.setBrush(rowColours[r]);
        painter.drawRect(band);
        for (int k = 0; k < oneTimes.size(); ++k) {
            const QImage &image = pictures.at(oneTimes.at(k)).image;
            painter.drawImage(QPoint(band.left() + 6 + k * 40, band.top() + (band.height() - image.height()) / 2),
                              image);
        }
    }
    painter.end();
    return sheet;
}

} // namespace

int main(int argc, char **argv)
{
    // Painting needs a GUI application for fonts; no window is ever shown.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);

    const QStringList args = app.arguments();
    if (args.size() != 3) {
        std::fprintf(stderr, "usage: %s <resource-root> <contact-sheet.png>\n", argv[0]);
        return 2;
    }
    const QString root = args.at(1);
    const QString sheetPath = args.at(2);

    const QFontInfo used(labelFont(kLabelPixelSize));
    if (used.family() != QLatin1String(kFontFamily)) {
        std::fprintf(stderr, "font \"%s\" not found (got \"%s\"); install fonts-dejavu-core\n",
                     kFontFamily, qPrintable(used.family()));
        return 1;
    }

    QVector<Picture> pictures;
    const QString signalFolder = QStringLiteral("signaltype");
    for (const SignalLook &look : kSignalLooks) {
        const QString stem = QString::fromLatin1(look.name);
        pictures.append({signalFolder, stem + QLatin1String("_normal.png"), drawSignal(look, true, 1)});
        pictures.append({signalFolder, stem + QLatin1String("_disable.png"), drawSignal(look, false, 1)});
    }
    for (const SignalLook &look : kSignalLooks) {
        pictures.append({signalFolder, QString::fromLatin1(look.normal2x), drawSignal(look, true, 2)});
        pictures.append({signalFolder, QString::fromLatin1(look.disable2x), drawSignal(look, false, 2)});
    }

    const QString rootFolder = QStringLiteral("rootitem");
    pictures.append({rootFolder, QStringLiteral("rootitem_checkbox_normal.png"), drawChevron(false)});
    pictures.append({rootFolder, QStringLiteral("rootitem_checkbox_checked.png"), drawChevron(true)});
    pictures.append({rootFolder, QStringLiteral("rootitem_drag_tip_new.png"), drawDragTip(112, 33)});
    pictures.append({rootFolder, QStringLiteral("rootitem_drag_tip.png"), drawDragTip(89, 30)});

    const QString operateFolder = QStringLiteral("operate");
    pictures.append({operateFolder, QStringLiteral("delete_normal.png"), drawDelete(false)});
    pictures.append({operateFolder, QStringLiteral("delete_pressed.png"), drawDelete(true)});
    pictures.append({operateFolder, QStringLiteral("settings_normal.png"), drawGear(false)});
    pictures.append({operateFolder, QStringLiteral("settings_pressed.png"), drawGear(true)});

    const QString scrollFolder = QStringLiteral("scrollbar");
    const struct { const char *stem; Direction direction; } arrows[] = {
        {"up", Direction::Up}, {"down", Direction::Down}, {"left", Direction::Left}, {"right", Direction::Right}};
    for (const auto &arrow : arrows) {
        const QString stem = QString::fromLatin1(arrow.stem);
        pictures.append({scrollFolder, stem + QLatin1String("_normal.png"), drawArrow(arrow.direction, false)});
        pictures.append({scrollFolder, stem + QLatin1String("_pressed.png"), drawArrow(arrow.direction, true)});
    }

    for (const Picture &picture : pictures) {
        if (!savePicture(root, picture)) {
            std::fprintf(stderr, "cannot write %s/%s/%s\n", qPrintable(root),
                         qPrintable(picture.folder), qPrintable(picture.file));
            return 1;
        }
    }

    const QFileInfo sheetInfo(sheetPath);
    QDir().mkpath(sheetInfo.absolutePath());
    if (!contactSheet(pictures).save(sheetPath, "PNG")) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(sheetPath));
        return 1;
    }
    std::printf("wrote %d pictures under %s and %s\n", int(pictures.size()), qPrintable(root),
                qPrintable(sheetPath));
    return 0;
}
