// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "TreeText.h"

#include "BuiltRows.h"
#include "DrawerControl.h"
#include "SecondItem.h"
#include "TreeListFrame.h"

namespace TreeText {

QString pathText(const QList<int> &path)
{
    QStringList parts;
    for (int i : path)
        parts << QString::number(i);
    return parts.join(QLatin1Char(','));
}

QList<int> pathFromText(const QString &text)
{
    QList<int> path;
    for (const QString &part : text.split(QLatin1Char(','), Qt::SkipEmptyParts))
        path << part.toInt();
    return path;
}

QString rootName(DrawerControl *drawer)
{
    return drawer->getRootNodeInfo().strNodeName.value(0);
}

QStringList childNames(DrawerControl *drawer)
{
    QStringList names;
    for (SecondItem *item : builtRows(drawer))
        names << item->getNodeInfo().strNodeName.value(0);
    return names;
}

QStringList snapshot(TreeListFrame *frame)
{
    QStringList out;
    if (!frame)
        return out;
    for (DrawerControl *drawer : frame->drawers())
        out << rootName(drawer) + QLatin1Char(':') + childNames(drawer).join(QLatin1Char(','));
    return out;
}

} // namespace TreeText
