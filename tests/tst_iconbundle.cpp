// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// The compiled icon bundle: every picture is reachable under its resource
// path at its size, the storage flags are as the bundle promises, the
// double-size names are spelled exactly, and the bundle is built in rcc's
// format version 2.

#include <QFile>
#include <QImage>
#include <QResource>
#include <QSize>
#include <QStringList>
#include <QtTest>

#ifndef QRC_CPP
#error "QRC_CPP must name the rcc-generated source of the bundle"
#endif

namespace {

const QString kSignalDir = QStringLiteral(":/signaltype/resource/signaltype/");
const QString kRootDir = QStringLiteral(":/rootitem/resource/rootitem/");
const QString kOperateDir = QStringLiteral(":/operate/resource/operate/");
const QString kScrollDir = QStringLiteral(":/scrollbar/resource/scrollbar/");

struct Entry {
    QString path;
    QSize size;
};

// The bundle's contents as the library promises them, written out here on
// their own rather than read back from the resource list.
QList<Entry> bundleEntries()
{
    QList<Entry> entries;
    const QSize one(30, 18);
    const QSize oneTall(30, 20);
    const QSize two(60, 36);
    const QSize twoTall(60, 40);

    const QStringList names = {QStringLiteral("CVBS"), QStringLiteral("DP"), QStringLiteral("DVI"),
                               QStringLiteral("dvimosic"), QStringLiteral("HDMI"), QStringLiteral("OPT"),
                               QStringLiteral("SDI"), QStringLiteral("USB"), QStringLiteral("unknown"),
                               QStringLiteral("VGA"), QStringLiteral("WLan")};
    for (const QString &name : names) {
        const QSize size = name == QLatin1String("dvimosic") ? oneTall : one;
        entries.append({kSignalDir + name + QStringLiteral("_normal.png"), size});
        entries.append({kSignalDir + name + QStringLiteral("_disable.png"), size});
    }

    const QStringList underscore2x = {QStringLiteral("CVBS"), QStringLiteral("DP"), QStringLiteral("DVI"),
                                      QStringLiteral("HDMI"), QStringLiteral("SDI"), QStringLiteral("USB"),
                                      QStringLiteral("VGA"), QStringLiteral("WLan")};
    for (const QString &name : underscore2x) {
        entries.append({kSignalDir + name + QStringLiteral("_normal_2x.png"), two});
        entries.append({kSignalDir + name + QStringLiteral("_disable_2x.png"), two});
    }
    entries.append({kSignalDir + QStringLiteral("dvimosic_normal2x.png"), twoTall});
    entries.append({kSignalDir + QStringLiteral("dvimosic_disable2x.png"), twoTall});
    entries.append({kSignalDir + QStringLiteral("unknown_normal2x.png"), two});
    entries.append({kSignalDir + QStringLiteral("unknown_disable2x.png"), two});
    entries.append({kSignalDir + QStringLiteral("OPT_normal@2x.png"), two});
    entries.append({kSignalDir + QStringLiteral("OPT_disable@2x.png"), two});

    entries.append({kRootDir + QStringLiteral("rootitem_checkbox_normal.png"), QSize(64, 64)});
    entries.append({kRootDir + QStringLiteral("rootitem_checkbox_checked.png"), QSize(64, 64)});
    entries.append({kRootDir + QStringLiteral("rootitem_drag_tip_new.png"), QSize(112, 33)});
    entries.append({kRootDir + QStringLiteral("rootitem_drag_tip.png"), QSize(89, 30)});

    entries.append({kOperateDir + QStringLiteral("delete_normal.png"), QSize(20, 20)});
    entries.append({kOperateDir + QStringLiteral("delete_pressed.png"), QSize(20, 20)});
    entries.append({kOperateDir + QStringLiteral("settings_normal.png"), QSize(30, 30)});
    entries.append({kOperateDir + QStringLiteral("settings_pressed.png"), QSize(30, 30)});

    for (const char *stem : {"up", "down", "left", "right"}) {
        entries.append({kScrollDir + QLatin1String(stem) + QStringLiteral("_normal.png"), QSize(16, 16)});
        entries.append({kScrollDir + QLatin1String(stem) + QStringLiteral("_pressed.png"), QSize(16, 16)});
    }
    return entries;
}

bool isWLan(const QString &path)
{
    return path.startsWith(kSignalDir + QStringLiteral("WLan_"));
}

} // namespace

class tst_IconBundle : public QObject
{
    Q_OBJECT

private slots:
    void entryCount();
    void loadsAtSize_data();
    void loadsAtSize();
    void storage_data();
    void storage();
    void doubleSizeNames_data();
    void doubleSizeNames();
    void absentNames_data();
    void absentNames();
    void wlanNormalIsOneTimesAlthoughCompressed();
    void oneTimesTypePicturesFitTheIconLabel();
    void generatedCodeIsFormatVersion2();
};

void tst_IconBundle::entryCount()
{
    // 22 one-times type pictures, 22 double-size, 4 + 4 + 8 others.
    QCOMPARE(bundleEntries().size(), 60);
}

void tst_IconBundle::loadsAtSize_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");
    for (const Entry &entry : bundleEntries())
        QTest::newRow(qPrintable(entry.path)) << entry.path << entry.size;
}

void tst_IconBundle::loadsAtSize()
{
    QFETCH(QString, path);
    QFETCH(QSize, size);
    QVERIFY2(QFile::exists(path), qPrintable(path));
    const QImage image(path);
    QVERIFY2(!image.isNull(), qPrintable(path));
    QCOMPARE(image.size(), size);
}

void tst_IconBundle::storage_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("compressed");
    for (const Entry &entry : bundleEntries())
        QTest::newRow(qPrintable(entry.path)) << entry.path << isWLan(entry.path);
}

void tst_IconBundle::storage()
{
    QFETCH(QString, path);
    QFETCH(bool, compressed);
    const QResource resource(path);
    QVERIFY2(resource.isValid(), qPrintable(path));
    QCOMPARE(resource.compressionAlgorithm(),
             compressed ? QResource::ZlibCompression : QResource::NoCompression);
    if (compressed) {
        // Stored smaller than the picture it unpacks to.
        QVERIFY(resource.size() < resource.uncompressedSize());
    } else {
        QCOMPARE(resource.size(), resource.uncompressedSize());
    }
}

void tst_IconBundle::doubleSizeNames_data()
{
    QTest::addColumn<QString>("file");
    const char *const files[] = {
        "CVBS_normal_2x.png", "CVBS_disable_2x.png", "DP_normal_2x.png", "DP_disable_2x.png",
        "DVI_normal_2x.png", "DVI_disable_2x.png", "HDMI_normal_2x.png", "HDMI_disable_2x.png",
        "SDI_normal_2x.png", "SDI_disable_2x.png", "USB_normal_2x.png", "USB_disable_2x.png",
        "VGA_normal_2x.png", "VGA_disable_2x.png", "WLan_normal_2x.png", "WLan_disable_2x.png",
        "dvimosic_normal2x.png", "dvimosic_disable2x.png", "unknown_normal2x.png",
        "unknown_disable2x.png", "OPT_normal@2x.png", "OPT_disable@2x.png"};
    for (const char *file : files)
        QTest::newRow(file) << QString::fromLatin1(file);
}

void tst_IconBundle::doubleSizeNames()
{
    QFETCH(QString, file);
    const QString path = kSignalDir + file;
    QVERIFY2(QFile::exists(path), qPrintable(path));
    const QImage image(path);
    // Double-size pictures are the only ones larger than the 33 x 20 label.
    QVERIFY(image.width() > 33 || image.height() > 20);
}

void tst_IconBundle::absentNames_data()
{
    QTest::addColumn<QString>("path");
    // The regular spelling of an irregular name, and the other way round.
    const char *const files[] = {
        "OPT_normal_2x.png", "OPT_disable_2x.png", "OPT_normal2x.png",
        "dvimosic_normal_2x.png", "dvimosic_disable_2x.png",
        "unknown_normal_2x.png", "unknown_disable_2x.png", "unknown_normal@2x.png",
        "HDMI_normal2x.png", "HDMI_normal@2x.png", "WLan_normal2x.png",
        "wlan_normal.png", "Dvimosic_normal.png", "Unknown_normal.png"};
    for (const char *file : files)
        QTest::newRow(file) << kSignalDir + QString::fromLatin1(file);
    QTest::newRow("no root-level signaltype folder")
        << QStringLiteral(":/signaltype/HDMI_normal.png");
}

void tst_IconBundle::absentNames()
{
    QFETCH(QString, path);
    QVERIFY2(!QFile::exists(path), qPrintable(path));
    QVERIFY(!QResource(path).isValid());
}

void tst_IconBundle::wlanNormalIsOneTimesAlthoughCompressed()
{
    const QString path = kSignalDir + QStringLiteral("WLan_normal.png");
    QCOMPARE(QResource(path).compressionAlgorithm(), QResource::ZlibCompression);
    const QImage image(path);
    QCOMPARE(image.size(), QSize(30, 18));
}

void tst_IconBundle::oneTimesTypePicturesFitTheIconLabel()
{
    const QStringList names = {QStringLiteral("CVBS"), QStringLiteral("DP"), QStringLiteral("DVI"),
                               QStringLiteral("dvimosic"), QStringLiteral("HDMI"), QStringLiteral("OPT"),
                               QStringLiteral("SDI"), QStringLiteral("USB"), QStringLiteral("unknown"),
                               QStringLiteral("VGA"), QStringLiteral("WLan")};
    int loaded = 0;
    for (const QString &name : names) {
        for (const QString &state : {QStringLiteral("_normal.png"), QStringLiteral("_disable.png")}) {
            const QImage image(kSignalDir + name + state);
            QVERIFY2(!image.isNull(), qPrintable(name + state));
            QVERIFY2(image.width() <= 33 && image.height() <= 20, qPrintable(name + state));
            ++loaded;
        }
    }
    QCOMPARE(loaded, 22);
}

void tst_IconBundle::generatedCodeIsFormatVersion2()
{
    QFile source(QStringLiteral(QRC_CPP));
    QVERIFY2(source.open(QIODevice::ReadOnly), QRC_CPP);
    const QByteArray code = source.readAll();
    QVERIFY(code.contains("int version = 2;"));
    QVERIFY(code.contains("qRegisterResourceData"));
    QVERIFY(code.contains("qUnregisterResourceData"));
}

QTEST_MAIN(tst_IconBundle)
#include "tst_iconbundle.moc"
