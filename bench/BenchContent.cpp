// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "BenchContent.h"

#include <QStringList>

namespace {

// Picture names by signal type, as the rows of the library choose them.
QString pictureName(int type)
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

} // namespace

BenchContent::BenchContent(int roots, int children)
    : m_iRoots(roots)
    , m_iChildren(children)
{
    for (int r = 0; r < roots; ++r) {
        st_NodeInfoSignal root;
        root.strNodeName = QStringList() << QStringLiteral("Input board %1").arg(r + 1);
        root.strSourceName = QStringLiteral("board-%1").arg(r + 1);
        root.iType = r % 2; // sources and groups alternate
        root.iInputSourceNo = r; // map order = root order
        root.isOnline = true;
        root.showOpBtn = QList<bool>() << true << true;

        QList<st_NodeInfoSignal> kids;
        for (int c = 0; c < children; ++c) {
            st_NodeInfoSignal child;
            const int type = (r + c) % 19;
            child.strNodeName = QStringList() << QStringLiteral("Signal %1-%2").arg(r + 1).arg(c + 1)
                                              << QStringLiteral("1920x1080@60");
            child.strSourceName = root.strSourceName;
            child.iType = type;
            child.isOnline = (c % 3) != 0;
            child.iInputSourceNo = r;
            child.showOpBtn = QList<bool>() << true << true << true;
            kids.append(child);
        }
        m_lstRoots.append(root);
        m_lstChildren.append(kids);
        m_map.insert(root, kids);
    }
}

QString BenchContent::sizeText() const
{
    return QStringLiteral("%1x%2").arg(m_iRoots).arg(m_iChildren);
}

QString BenchContent::upperText(const st_NodeInfoSignal &node)
{
    return node.strNodeName.value(0);
}

QString BenchContent::lowerText(const st_NodeInfoSignal &node)
{
    return node.strNodeName.value(1);
}

QString BenchContent::picturePath(const st_NodeInfoSignal &node)
{
    return QStringLiteral(":/signaltype/resource/signaltype/%1_%2.png")
        .arg(pictureName(node.iType), node.isOnline ? QStringLiteral("normal") : QStringLiteral("disable"));
}

bool BenchContent::parseSize(const QString &text, int *roots, int *children)
{
    const QStringList parts = text.split(QLatin1Char('x'));
    if (parts.size() != 2)
        return false;
    bool ok1 = false;
    bool ok2 = false;
    *roots = parts.at(0).toInt(&ok1);
    *children = parts.at(1).toInt(&ok2);
    return ok1 && ok2 && *roots >= 0 && *children >= 0;
}
