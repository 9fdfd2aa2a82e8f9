// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "NodeFactory.h"

#include <utility>

NodeFactory::NodeFactory(Payload payload)
    : m_payload(std::move(payload))
{
}

st_NodeInfoSignal NodeFactory::node(const QStringList &names, int type) const
{
    return node(names, st_NodeInfoSignal().strSourceName, type);
}

st_NodeInfoSignal NodeFactory::node(const QStringList &names, const QString &source, int type) const
{
    st_NodeInfoSignal node;
    node.strNodeName = names;
    node.strSourceName = source;
    node.iType = type;
    node.isOnline = true;
    return finish(node);
}

QList<st_NodeInfoSignal> NodeFactory::children(const QString &prefix, int count, const QString &source) const
{
    QList<st_NodeInfoSignal> children;
    for (int i = 0; i < count; ++i)
        children << node({QStringLiteral("%1-%2").arg(prefix).arg(i)}, source, 1 + i % 5);
    return children;
}

st_NodeInfoSignal NodeFactory::finish(st_NodeInfoSignal node) const
{
    if (m_payload)
        m_payload(node);
    return node;
}
