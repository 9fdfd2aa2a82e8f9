// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_ST_NODEINFOSIGNAL_H
#define SIGNALTREELIST_ST_NODEINFOSIGNAL_H

#include "signaltreelist_export.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

/**
 * The value record that describes one row of the signal tree, root or child.
 *
 * Field order and types are part of the binary interface: do not reorder.
 *
 * Index paths (QList<int>) address rows: [root] names a root row,
 * [root, child] a child row, both zero-based in display order; any other
 * length names no row.
 */
struct SIGNALTREELIST_EXPORT st_NodeInfoSignal
{
    /// Display lines: one entry is a one-line name, two are an upper and a
    /// lower line; an empty list means the node has no name.
    QStringList strNodeName;
    /// Name of the input source the node belongs to.
    QString strSourceName;
    /// Host value, carried bit for bit.
    qint64 nNodeData1;
    /// Online (normal look) or offline (disabled look).
    bool isOnline;
    /// Child rows: which hover buttons show, in the order edit, delete,
    /// capture, fourth. Lists of 1 to 4 entries are read; others are ignored.
    QList<bool> showOpBtn;
    /// Child rows: the signal type (selects the icon). Root rows: 1 marks a
    /// group that accepts dropped rows, 0 a root that does not.
    int iType;
    /// Host value, carried bit for bit.
    qint64 nNodeData2;
    /// Number of the signal group.
    int iSignalGroupNo;
    /// Type of the input source (the host's enumeration, stored as int).
    int eInputSourceType;
    /// Number of the input source.
    int iInputSourceNo;

    /// Empty names and lists, an empty (not null) source name, every number
    /// and flag zero or false.
    st_NodeInfoSignal();
    /// A copy of every field of @p other.
    st_NodeInfoSignal(const st_NodeInfoSignal &other);
    /// Copies every field of @p other, in declaration order; assigning a
    /// record to itself leaves it unchanged.
    st_NodeInfoSignal &operator=(const st_NodeInfoSignal &other);
    /// Frees the name and flag lists.
    ~st_NodeInfoSignal();

    /**
     * Orders records for use as QMap keys (SignalTreeList::updateTreeList
     * creates root rows in ascending key order). Records compare by
     * iInputSourceNo, then iSignalGroupNo, then strNodeName (line by line),
     * then strSourceName, then iType, eInputSourceType, nNodeData1,
     * nNodeData2, isOnline and showOpBtn. This is a strict weak ordering in
     * which two records are equivalent only when every field is equal, so
     * distinct records never collapse into one map entry.
     */
    bool operator<(const st_NodeInfoSignal &other) const;
};

#endif // SIGNALTREELIST_ST_NODEINFOSIGNAL_H
