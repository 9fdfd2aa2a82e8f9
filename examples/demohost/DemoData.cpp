// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "DemoData.h"

#include <QStringList>

namespace {

// Which hover buttons a child row shows: edit, delete, capture, fourth.
const QList<bool> kAllButtons{true, true, true};
const QList<bool> kEditDelete{true, true};
const QList<bool> kEditOnly{true};
const QList<bool> kCaptureOnly{false, false, true};

} // namespace

st_NodeInfoSignal DemoData::signal(const QString &upper, const QString &lower, int type,
                                   bool online, const QString &source,
                                   const QList<bool> &buttons)
{
    st_NodeInfoSignal node;
    node.strNodeName << upper;
    if (!lower.isEmpty())
        node.strNodeName << lower;
    node.strSourceName = source;
    node.iType = type;
    node.isOnline = online;
    node.showOpBtn = buttons;
    return node;
}

st_NodeInfoSignal DemoData::root(const QString &name, const QString &source, bool group,
                                 bool online, int sourceNo, int groupNo)
{
    st_NodeInfoSignal node;
    node.strNodeName << name;
    node.strSourceName = source;
    node.iType = group ? 1 : 0;
    node.isOnline = online;
    node.iInputSourceNo = sourceNo;
    node.iSignalGroupNo = groupNo;
    node.showOpBtn = kEditDelete;
    return node;
}

DemoData::Tree DemoData::defaultTree()
{
    Tree tree;

    // Roots are ordered by the record's operator<: input source number
    // first, then group number. Boards use 1..5, groups 90 and up.
    const QString b1 = QStringLiteral("board-1");
    tree.insert(root(QStringLiteral("Input board 1 · 4K"), b1, false, true, 1, 0),
                {signal(QStringLiteral("HDMI 1"), QStringLiteral("3840x2160@30"), 1, true, b1, kAllButtons),
                 signal(QStringLiteral("DVI 1"), QStringLiteral("1920x1200@60"), 0, true, b1, kAllButtons),
                 signal(QStringLiteral("DisplayPort 1 (control room PC)"), QStringLiteral("2560x1440@60"), 7, true, b1, kAllButtons),
                 signal(QStringLiteral("Lobby camera, north entrance, PTZ preset 3"),
                        QStringLiteral("1920x1080@50i"), 3, false, b1, kCaptureOnly)});

    const QString b2 = QStringLiteral("board-2");
    tree.insert(root(QStringLiteral("Input board 2 · DVI / DP / HDMI"), b2, false, true, 2, 0),
                {signal(QStringLiteral("DVI 2"), QStringLiteral("1280x1024@60"), 5, true, b2, kAllButtons),
                 signal(QStringLiteral("DVI dual link"), QStringLiteral("2560x1600@60"), 16, false, b2, kEditDelete),
                 signal(QStringLiteral("DisplayPort 2"), QStringLiteral("3840x2160@60"), 8, true, b2, kAllButtons),
                 signal(QStringLiteral("HDMI 2"), QStringLiteral("1920x1080@60"), 6, true, b2, kAllButtons),
                 signal(QStringLiteral("HDMI 3 (media player)"), QStringLiteral("1920x1080@50"), 9, true, b2, kEditDelete)});

    const QString b3 = QStringLiteral("board-3");
    tree.insert(root(QStringLiteral("Input board 3 · SDI cameras and broadcast feeds"), b3, false, true, 3, 0),
                {signal(QStringLiteral("SDI 1 studio camera"), QStringLiteral("1920x1080@50i"), 3, true, b3, kAllButtons),
                 signal(QStringLiteral("3G-SDI 2"), QStringLiteral("1920x1080@60"), 12, true, b3, kAllButtons),
                 signal(QStringLiteral("12G-SDI 3"), QStringLiteral("3840x2160@60"), 13, false, b3, kAllButtons),
                 signal(QStringLiteral("Conference room camera, north wall, PTZ preset 3"),
                        QStringLiteral("720x576@50 (PAL)"), 4, true, b3, kCaptureOnly)});

    const QString b4 = QStringLiteral("board-4");
    tree.insert(root(QStringLiteral("Input board 4 · VGA / network"), b4, false, true, 4, 0),
                {signal(QStringLiteral("VGA 1"), QStringLiteral("1280x1024@60"), 2, true, b4, kEditOnly),
                 signal(QStringLiteral("USB capture 1"), QStringLiteral("1920x1080@30"), 10, true, b4, kAllButtons),
                 signal(QStringLiteral("Wireless presenter"), QStringLiteral("1920x1080@30"), 11, true, b4, kAllButtons),
                 signal(QStringLiteral("Fibre receiver 1"), QStringLiteral("3840x2160@60"), 17, true, b4, {true, true, true, true}),
                 signal(QStringLiteral("Unknown signal"), QStringLiteral("format not detected"), 15, false, b4, kEditDelete)});

    const QString b5 = QStringLiteral("board-5");
    tree.insert(root(QStringLiteral("Input board 5 (offline)"), b5, false, false, 5, 0),
                {signal(QStringLiteral("HDMI 1"), QStringLiteral("no signal"), 1, false, b5, kAllButtons),
                 signal(QStringLiteral("SDI 1"), QStringLiteral("no signal"), 3, false, b5, kAllButtons),
                 signal(QStringLiteral("CVBS 1"), QString(), 4, false, b5, kEditOnly)});

    const QString g1 = QStringLiteral("group-mosaic");
    tree.insert(root(QStringLiteral("Group · Control room mosaic"), g1, true, true, 90, 1),
                {signal(QStringLiteral("Mosaic 2x2 (DVI)"), QStringLiteral("3840x2160@60"), 14, true, g1, kAllButtons),
                 signal(QStringLiteral("Mosaic 3x1 panorama"), QStringLiteral("5760x1080@60"), 18, true, g1, kAllButtons)});

    const QString g2 = QStringLiteral("group-lobby");
    tree.insert(root(QStringLiteral("Group · Lobby screens and meeting room displays, east wing"), g2, true, true, 91, 2),
                {signal(QStringLiteral("Welcome loop"), QStringLiteral("1920x1080@60"), 6, true, g2, kAllButtons)});

    return tree;
}

st_NodeInfoSignal DemoData::newSource(int number)
{
    return root(QStringLiteral("Input board %1 · new").arg(number),
                QStringLiteral("board-%1").arg(number), false, true, number, 0);
}

QList<st_NodeInfoSignal> DemoData::newSignals(int number)
{
    const QString source = QStringLiteral("board-%1").arg(number);
    return {newSignal(number * 2, source), newSignal(number * 2 + 1, source)};
}

st_NodeInfoSignal DemoData::newSignal(int serial, const QString &source)
{
    static const char *const kResolutions[] = {"1920x1080@60", "3840x2160@30", "1280x720@60",
                                               "2560x1440@60"};
    const int type = serial % 19;
    return signal(QStringLiteral("%1 input %2").arg(typeName(type)).arg(serial),
                  QLatin1String(kResolutions[serial % 4]), type, serial % 5 != 4, source,
                  kAllButtons);
}

QString DemoData::displayName(const st_NodeInfoSignal &node)
{
    return node.strNodeName.join(QStringLiteral(" / "));
}

QString DemoData::typeName(int type)
{
    switch (type) {
    case 0: case 5: case 16: return QStringLiteral("DVI");
    case 1: case 6: case 9: return QStringLiteral("HDMI");
    case 2: return QStringLiteral("VGA");
    case 3: case 12: case 13: return QStringLiteral("SDI");
    case 4: return QStringLiteral("CVBS");
    case 7: case 8: return QStringLiteral("DP");
    case 10: return QStringLiteral("USB");
    case 11: return QStringLiteral("WLan");
    case 14: case 18: return QStringLiteral("dvimosic");
    case 17: return QStringLiteral("OPT");
    default: return QStringLiteral("unknown");
    }
}
