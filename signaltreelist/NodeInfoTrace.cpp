// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "NodeInfoTrace.h"

#include "StyleConstants.h"
#include "st_NodeInfoSignal.h"

#include <QStringList>

namespace {

// "(true, false)": the list form of Qt 5's debug stream, which Qt 6 writes
// as "QList(true, false)". Written by hand so that both read the same.
QString flagListText(const QList<bool> &flags)
{
    QStringList parts;
    for (bool flag : flags)
        parts << QLatin1String(flag ? "true" : "false");
    return QLatin1Char('(') + parts.join(QLatin1String(", ")) + QLatin1Char(')');
}

} // namespace

QDebug writeNamelessNodeTrace(QDebug dbg, const st_NodeInfoSignal &node)
{
    dbg << "m_stSelNodeInfo.strNodeName.isEmpty"
        << ", strSourceName:" << node.strSourceName
        << ", isOnline:" << node.isOnline
        << ", iType:" << node.iType
        << ", eInputSourceType:" << node.eInputSourceType
        << ", showOpBtn:";
    dbg.noquote() << flagListText(node.showOpBtn);
    dbg.quote() << ", iInputSourceNo:" << node.iInputSourceNo
                << ", iSignalGroupNo:" << node.iSignalGroupNo;
    return dbg;
}
