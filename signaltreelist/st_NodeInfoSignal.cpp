// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "st_NodeInfoSignal.h"

#include <tuple>

st_NodeInfoSignal::st_NodeInfoSignal()
{
    strNodeName.clear();
    strSourceName = QString::fromLatin1("");
    nNodeData1 = 0;
    isOnline = false;
    showOpBtn.clear();
    iType = 0;
    nNodeData2 = 0;
    iSignalGroupNo = 0;
    eInputSourceType = 0;
    iInputSourceNo = 0;
}

st_NodeInfoSignal::st_NodeInfoSignal(const st_NodeInfoSignal &other)
    : strNodeName(other.strNodeName)
    , strSourceName(other.strSourceName)
    , nNodeData1(other.nNodeData1)
    , isOnline(other.isOnline)
    , showOpBtn(other.showOpBtn)
    , iType(other.iType)
    , nNodeData2(other.nNodeData2)
    , iSignalGroupNo(other.iSignalGroupNo)
    , eInputSourceType(other.eInputSourceType)
    , iInputSourceNo(other.iInputSourceNo)
{
}

st_NodeInfoSignal &st_NodeInfoSignal::operator=(const st_NodeInfoSignal &other)
{
    if (this == &other)
        return *this;
    // Hosts that watch the record field by field see this order; the group
    // number comes last.
    strNodeName = other.strNodeName;
    strSourceName = other.strSourceName;
    nNodeData1 = other.nNodeData1;
    isOnline = other.isOnline;
    showOpBtn = other.showOpBtn;
    iType = other.iType;
    nNodeData2 = other.nNodeData2;
    eInputSourceType = other.eInputSourceType;
    iInputSourceNo = other.iInputSourceNo;
    iSignalGroupNo = other.iSignalGroupNo;
    return *this;
}

st_NodeInfoSignal::~st_NodeInfoSignal() = default;

bool st_NodeInfoSignal::operator<(const st_NodeInfoSignal &other) const
{
    return std::tie(iInputSourceNo, iSignalGroupNo, strNodeName, strSourceName, iType,
                    eInputSourceType, nNodeData1, nNodeData2, isOnline, showOpBtn)
        < std::tie(other.iInputSourceNo, other.iSignalGroupNo, other.strNodeName,
                   other.strSourceName, other.iType, other.eInputSourceType,
                   other.nNodeData1, other.nNodeData2, other.isOnline, other.showOpBtn);
}
