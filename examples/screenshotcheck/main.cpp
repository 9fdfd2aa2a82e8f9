// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Checks that a PNG is a real picture, not an empty or single-colour one.
//
//   signaltreelist_pngcheck FILE MIN_WIDTH MIN_HEIGHT MAX_SIDE MIN_COLOURS
//
// Exits 0 when FILE loads as an image whose width and height are at least
// MIN_WIDTH and MIN_HEIGHT and at most MAX_SIDE, and which holds at least
// MIN_COLOURS distinct colours; otherwise prints why and exits 1.

#include <QCoreApplication>
#include <QImage>
#include <QSet>

#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 6) {
        std::fprintf(stderr, "usage: %s FILE MIN_WIDTH MIN_HEIGHT MAX_SIDE MIN_COLOURS\n",
                     qPrintable(args.value(0)));
        return 2;
    }
    const QString file = args.at(1);
    const int minWidth = args.at(2).toInt();
    const int minHeight = args.at(3).toInt();
    const int maxSide = args.at(4).toInt();
    const int minColours = args.at(5).toInt();

    QImage image;
    if (!image.load(file)) {
        std::fprintf(stderr, "FAIL: %s is not a readable image\n", qPrintable(file));
        return 1;
    }
    image = image.convertToFormat(QImage::Format_ARGB32);

    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            colours.insert(line[x]);
    }
    std::printf("%s: %dx%d, %d distinct colours\n", qPrintable(file), image.width(),
                image.height(), colours.size());

    bool ok = true;
    if (image.width() < minWidth || image.height() < minHeight) {
        std::fprintf(stderr, "FAIL: smaller than %dx%d\n", minWidth, minHeight);
        ok = false;
    }
    if (image.width() > maxSide || image.height() > maxSide) {
        std::fprintf(stderr, "FAIL: a side is longer than %d\n", maxSide);
        ok = false;
    }
    if (colours.size() < minColours) {
        std::fprintf(stderr, "FAIL: fewer than %d distinct colours\n", minColours);
        ok = false;
    }
    return ok ? 0 : 1;
}
