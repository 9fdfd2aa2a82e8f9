// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "StyleConstants.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

#ifndef STYLE_CONSTANTS_HEADER
#error "STYLE_CONSTANTS_HEADER must name the constants header"
#endif

namespace {

const QString kTypeFolder = QStringLiteral(":/signaltype/resource/signaltype/");

// The root-row variants share everything after the root's own rule.
const QString kRootItemTail = QStringLiteral(
    "QLabel{color:rgb(230,230,230);}QCheckBox{background:transparent;color:rgb(255,255,255);}"
    "QCheckBox::indicator:unchecked{border-image: url(:/rootitem/resource/rootitem/rootitem_checkbox_normal.png);}"
    "QCheckBox::indicator:checked {border-image: url(:/rootitem/resource/rootitem/rootitem_checkbox_checked.png);}");

struct PictureRow
{
    const char *constant;
    QString value;
    const char *picture;
    const char *state;
};

// The 22 signal-type pictures in header order: four normal, eleven disable,
// seven normal.
QList<PictureRow> pictureRows()
{
    return {
        { "g_qsCVBSNormalImage", g_qsCVBSNormalImage, "CVBS", "normal" },
        { "g_qsDPNormalImage", g_qsDPNormalImage, "DP", "normal" },
        { "g_qsDVINormalImage", g_qsDVINormalImage, "DVI", "normal" },
        { "g_qsDvimosicNormalImage", g_qsDvimosicNormalImage, "dvimosic", "normal" },
        { "g_qsCVBSDisableImage", g_qsCVBSDisableImage, "CVBS", "disable" },
        { "g_qsDPDisableImage", g_qsDPDisableImage, "DP", "disable" },
        { "g_qsDVIDisableImage", g_qsDVIDisableImage, "DVI", "disable" },
        { "g_qsDvimosicDisableImage", g_qsDvimosicDisableImage, "dvimosic", "disable" },
        { "g_qsHDMIDisableImage", g_qsHDMIDisableImage, "HDMI", "disable" },
        { "g_qsOPTDisableImage", g_qsOPTDisableImage, "OPT", "disable" },
        { "g_qsSDIDisableImage", g_qsSDIDisableImage, "SDI", "disable" },
        { "g_qsUSBDisableImage", g_qsUSBDisableImage, "USB", "disable" },
        { "g_qsUnknownDisableImage", g_qsUnknownDisableImage, "unknown", "disable" },
        { "g_qsVGADisableImage", g_qsVGADisableImage, "VGA", "disable" },
        { "g_qsWLanDisableImage", g_qsWLanDisableImage, "WLan", "disable" },
        { "g_qsHDMINormalImage", g_qsHDMINormalImage, "HDMI", "normal" },
        { "g_qsOPTNormalImage", g_qsOPTNormalImage, "OPT", "normal" },
        { "g_qsSDINormalImage", g_qsSDINormalImage, "SDI", "normal" },
        { "g_qsUSBNormalImage", g_qsUSBNormalImage, "USB", "normal" },
        { "g_qsUnknownNormalImage", g_qsUnknownNormalImage, "unknown", "normal" },
        { "g_qsVGANormalImage", g_qsVGANormalImage, "VGA", "normal" },
        { "g_qsWLanNormalImage", g_qsWLanNormalImage, "WLan", "normal" },
    };
}

// Names of the constants in the order the header must define them.
QStringList expectedHeaderOrder()
{
    QStringList names{
        QStringLiteral("g_qsDeleteBtnStyle"),     QStringLiteral("g_qsSquareGreyStyle"),
        QStringLiteral("g_qsDragTipImage"),       QStringLiteral("g_qsDrawerContainerStyle"),
        QStringLiteral("g_qsDrawerStyle"),        QStringLiteral("g_qsSettingsBtnStyle"),
        QStringLiteral("g_qsTreeListFrameStyle"), QStringLiteral("g_qsStitchingName"),
        QStringLiteral("g_qsGreyDotStyle"),       QStringLiteral("g_qsGreenDotStyle"),
        QStringLiteral("g_qsRootItemGreyStyle"),  QStringLiteral("g_qsDownTextStyle"),
        QStringLiteral("g_qsUpperOrangeStyle"),   QStringLiteral("g_qsUpperLightStyle"),
        QStringLiteral("g_qsRootItemDarkStyle"),  QStringLiteral("g_qsRootItemClearStyle"),
        QStringLiteral("g_qsSecondItemGreyStyle"), QStringLiteral("g_qsDownNameStyle"),
        QStringLiteral("g_qsUperNameOrangeStyle"), QStringLiteral("g_qsUperNameLightStyle"),
        QStringLiteral("g_qsSecondItemBlackStyle"), QStringLiteral("g_qsSecondItemPanelStyle"),
    };
    for (const PictureRow &row : pictureRows())
        names << QString::fromLatin1(row.constant);
    return names;
}

QStringList allValues()
{
    QStringList values{
        g_qsDeleteBtnStyle,     g_qsSquareGreyStyle,    g_qsDragTipImage,
        g_qsDrawerContainerStyle, g_qsDrawerStyle,      g_qsSettingsBtnStyle,
        g_qsTreeListFrameStyle, g_qsStitchingName,      g_qsGreyDotStyle,
        g_qsGreenDotStyle,      g_qsRootItemGreyStyle,  g_qsDownTextStyle,
        g_qsUpperOrangeStyle,   g_qsUpperLightStyle,    g_qsRootItemDarkStyle,
        g_qsRootItemClearStyle, g_qsSecondItemGreyStyle, g_qsDownNameStyle,
        g_qsUperNameOrangeStyle, g_qsUperNameLightStyle, g_qsSecondItemBlackStyle,
        g_qsSecondItemPanelStyle,
    };
    for (const PictureRow &row : pictureRows())
        values << row.value;
    return values;
}

} // namespace

class tst_StyleConstants : public QObject
{
    Q_OBJECT

private slots:
    void styleTexts_data();
    void styleTexts();
    void signalTypePictures_data();
    void signalTypePictures();
    void headerOrder();
    void picturesExistInBundle_data();
    void picturesExistInBundle();
    void styleUrlsExistInBundle();
    void textsAreAscii();
};

void tst_StyleConstants::styleTexts_data()
{
    QTest::addColumn<QString>("actual");
    QTest::addColumn<QString>("expected");

    QTest::newRow("g_qsDeleteBtnStyle") << g_qsDeleteBtnStyle
        << QStringLiteral("QToolButton{border-image: url(:/operate/resource/operate/delete_normal.png);}"
                          "QToolButton:hover{border-image: url(:/operate/resource/operate/delete_pressed.png);}");
    QTest::newRow("g_qsSquareGreyStyle") << g_qsSquareGreyStyle
        << QStringLiteral("background:rgb(83,83,83);border-radius:0px;");
    QTest::newRow("g_qsDragTipImage") << g_qsDragTipImage
        << QStringLiteral(":/rootitem/resource/rootitem/rootitem_drag_tip_new.png");
    QTest::newRow("g_qsDrawerContainerStyle") << g_qsDrawerContainerStyle
        << QStringLiteral("#DrawerContainer{background:rgb(48,50,56);}");
    QTest::newRow("g_qsDrawerStyle") << g_qsDrawerStyle
        << QStringLiteral("#Drawer{background:rgb(48,50,56);}");
    QTest::newRow("g_qsSettingsBtnStyle") << g_qsSettingsBtnStyle
        << QStringLiteral("QToolButton{border-image: url(:/operate/resource/operate/settings_normal.png);}"
                          "QToolButton:hover{border-image: url(:/operate/resource/operate/settings_pressed.png);}");
    QTest::newRow("g_qsTreeListFrameStyle") << g_qsTreeListFrameStyle
        << QStringLiteral("#TreeListFrame{background:rgb(48,50,56);}");
    QTest::newRow("g_qsStitchingName") << g_qsStitchingName << QStringLiteral("Stitching");
    QTest::newRow("g_qsGreyDotStyle") << g_qsGreyDotStyle
        << QStringLiteral("background:rgb(102,102,102);border-radius:2px;");
    QTest::newRow("g_qsGreenDotStyle") << g_qsGreenDotStyle
        << QStringLiteral("background:rgb(47,195,123);border-radius:2px;");
    QTest::newRow("g_qsRootItemGreyStyle") << g_qsRootItemGreyStyle
        << QStringLiteral("#RootItem{background:rgb(79,84,92);border:none; border-radius:5px;}") + kRootItemTail;
    QTest::newRow("g_qsDownTextStyle") << g_qsDownTextStyle
        << QStringLiteral("#m_qlDown{color:rgb(152,153,155);}");
    QTest::newRow("g_qsUpperOrangeStyle") << g_qsUpperOrangeStyle
        << QStringLiteral("#m_qlUpper{color:rgb(226,100,12);}");
    QTest::newRow("g_qsUpperLightStyle") << g_qsUpperLightStyle
        << QStringLiteral("#m_qlUpper{color:rgb(230,230,230);}");
    QTest::newRow("g_qsRootItemDarkStyle") << g_qsRootItemDarkStyle
        << QStringLiteral("#RootItem{background:rgb(36,38,40);border:none; border-radius:5px;}") + kRootItemTail;
    QTest::newRow("g_qsRootItemClearStyle") << g_qsRootItemClearStyle
        << QStringLiteral("#RootItem{background:transparent;border:none;}") + kRootItemTail;
    QTest::newRow("g_qsSecondItemGreyStyle") << g_qsSecondItemGreyStyle
        << QStringLiteral("#SecondItem{background:rgb(79,84,92);border-radius:2px;}"
                          "#m_qfBtns{background:transparent;}QLabel{color:rgb(230,230,230);}");
    QTest::newRow("g_qsDownNameStyle") << g_qsDownNameStyle
        << QStringLiteral("#m_qlDownName{color:rgb(152,153,155);}");
    QTest::newRow("g_qsUperNameOrangeStyle") << g_qsUperNameOrangeStyle
        << QStringLiteral("#m_qlUperName{color:rgb(226,100,12);}");
    QTest::newRow("g_qsUperNameLightStyle") << g_qsUperNameLightStyle
        << QStringLiteral("#m_qlUperName{color:rgb(230,230,230);}");
    QTest::newRow("g_qsSecondItemBlackStyle") << g_qsSecondItemBlackStyle
        << QStringLiteral("#SecondItem{background:rgb(22,23,25);border-radius:2px;}"
                          "#m_qfBtns{background:transparent;}QLabel{color:rgb(230,230,230);}");
    QTest::newRow("g_qsSecondItemPanelStyle") << g_qsSecondItemPanelStyle
        << QStringLiteral("#SecondItem{background:rgb(48,50,56);border-radius:2px;}"
                          "#m_qfBtns{background:transparent;}QLabel{color:rgb(230,230,230);}");
}

void tst_StyleConstants::styleTexts()
{
    QFETCH(QString, actual);
    QFETCH(QString, expected);
    QCOMPARE(actual, expected);
}

void tst_StyleConstants::signalTypePictures_data()
{
    QTest::addColumn<QString>("actual");
    QTest::addColumn<QString>("expected");

    // Written out in full rather than built, so a slip in the folder or the
    // suffix shows up.
    const QStringList expected{
        QStringLiteral(":/signaltype/resource/signaltype/CVBS_normal.png"),
        QStringLiteral(":/signaltype/resource/signaltype/DP_normal.png"),
        QStringLiteral(":/signaltype/resource/signaltype/DVI_normal.png"),
        QStringLiteral(":/signaltype/resource/signaltype/dvimosic_normal.png"),
        QStringLiteral(":/signaltype/resource/signaltype/CVBS_disable.png"),
        QStringLiteral(":/signaltype/resource/signaltype/DP_disable.png"),
        QStringLiteral(":/signaltype/resource/signaltype/DVI_disable.png"),
        QStringLiteral(":/signaltype/resource/signaltype/dvimosic_disable.png"),
        QStringLiteral(":/signaltype/resource/signaltype/HDMI_disable.png"),
        QStringLiteral(":/signaltype/resource/signaltype/OPT_disable.png"),
        QStringLiteral(":/signaltype/resource/signaltype/SDI_disable.png"),
        QStringLiteral(":/signaltype/resource/signaltype/USB_disable.png"),
        QStringLiteral(":/signaltype/resource/signaltype/unknown_disable.png"),
        QStringLiteral(":/signaltype/resource/signaltype/VGA_disable.png"),
        QStringLiteral(":/signaltype/resource/signaltype/WLan_disable.png"),
        QStringLiteral(":/signaltype/resource/signaltype/HDMI_normal.png"),
        QStringLiteral(":/signaltype/resource/signaltype/OPT_normal.png"),
        QStringLiteral(":/signaltype/resource/signaltype/SDI_normal.png"),
        QStringLiteral(":/signaltype/resource/signaltype/USB_normal.png"),
        QStringLiteral(":/signaltype/resource/signaltype/unknown_normal.png"),
        QStringLiteral(":/signaltype/resource/signaltype/VGA_normal.png"),
        QStringLiteral(":/signaltype/resource/signaltype/WLan_normal.png"),
    };
    const QList<PictureRow> rows = pictureRows();
    QCOMPARE(rows.size(), 22);
    QCOMPARE(expected.size(), 22);
    for (int i = 0; i < rows.size(); ++i)
        QTest::newRow(rows.at(i).constant) << rows.at(i).value << expected.at(i);
}

void tst_StyleConstants::signalTypePictures()
{
    QFETCH(QString, actual);
    QFETCH(QString, expected);
    QCOMPARE(actual, expected);
}

void tst_StyleConstants::headerOrder()
{
    QFile header(QStringLiteral(STYLE_CONSTANTS_HEADER));
    QVERIFY2(header.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(header.fileName()));
    const QString text = QString::fromUtf8(header.readAll());

    // Every definition of a g_qs constant, in the order it stands.
    QStringList defined;
    QRegularExpression definition(QStringLiteral("\\b(g_qs\\w+)\\s*="));
    auto it = definition.globalMatch(text);
    while (it.hasNext())
        defined << it.next().captured(1);

    QCOMPARE(defined, expectedHeaderOrder());
    QCOMPARE(defined.size(), 44);
    QCOMPARE(text.count(kTypeFolder), 22);
}

void tst_StyleConstants::picturesExistInBundle_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("g_qsDragTipImage") << g_qsDragTipImage;
    for (const PictureRow &row : pictureRows())
        QTest::newRow(row.constant) << row.value;
}

void tst_StyleConstants::picturesExistInBundle()
{
    QFETCH(QString, path);
    QVERIFY2(QFile::exists(path), qPrintable(path));
    QImage image(path);
    QVERIFY2(!image.isNull(), qPrintable(path));
}

void tst_StyleConstants::styleUrlsExistInBundle()
{
    // The checkbox pictures serve all three root variants; delete and
    // settings take their pressed picture on hover.
    QRegularExpression url(QStringLiteral("url\\(([^)]*)\\)"));
    QStringList found;
    for (const QString &value : allValues()) {
        auto it = url.globalMatch(value);
        while (it.hasNext())
            found << it.next().captured(1);
    }
    QCOMPARE(found.size(), 10);
    for (const QString &path : found)
        QVERIFY2(QFile::exists(path), qPrintable(path));
}

void tst_StyleConstants::textsAreAscii()
{
    for (const QString &value : allValues()) {
        QVERIFY(!value.isEmpty());
        for (QChar c : value)
            QVERIFY2(c.unicode() >= 0x20 && c.unicode() < 0x7f, qPrintable(value));
    }
}

QTEST_MAIN(tst_StyleConstants)
#include "tst_styleconstants.moc"
