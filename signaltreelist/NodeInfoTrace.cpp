#include "NodeInfoTrace.h"

#include "StyleConstants.h"
#include "st_NodeInfoSignal.h"

QDebug writeNamelessNodeTrace(QDebug dbg, const st_NodeInfoSignal &node)
{
    dbg << "m_stSelNodeInfo.strNodeName.isEmpty"
        << ", strSourceName:" << node.strSourceName
        << ", isOnline:" << node.isOnline
        << ", iType:" << node.iType
        << ", eInputSourceType:" << node.eInputSourceType
        << ", showOpBtn:" << node.showOpBtn
        << ", iInputSourceNo:" << node.iInputSourceNo
        << ", iSignalGroupNo:" << node.iSignalGroupNo;
    return dbg;
}
