// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "st_NodeInfoSignal.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

// Builds the node records the tests hand to the widgets. Every record is
// online and carries the given name lines, source name and type; a test file
// that wants more fields filled in every record passes a payload, which runs
// last on each record the factory builds.
class NodeFactory
{
public:
    using Payload = std::function<void(st_NodeInfoSignal &)>;

    explicit NodeFactory(Payload payload = Payload());

    // The source name keeps the record's default.
    st_NodeInfoSignal node(const QStringList &names, int type = 0) const;
    // @p source is stored as given, a null string included.
    st_NodeInfoSignal node(const QStringList &names, const QString &source, int type = 0) const;

    // Records "<prefix>-0", "<prefix>-1", ... of input source @p source, of
    // types 1, 2, 3, 4, 5, 1, ...
    QList<st_NodeInfoSignal> children(const QString &prefix, int count, const QString &source) const;

private:
    st_NodeInfoSignal finish(st_NodeInfoSignal node) const;

    Payload m_payload;
};
