// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_BENCH_BENCHCONTENT_H
#define SIGNALTREELIST_BENCH_BENCHCONTENT_H

#include <st_NodeInfoSignal.h>

#include <QList>
#include <QMap>
#include <QString>

/**
 * The rows every design under test holds: @c roots root rows with
 * @c children child rows each, as node records, plus the same content as
 * plain texts and picture paths for Qt's own widgets.
 */
class BenchContent
{
public:
    BenchContent(int roots, int children);

    int roots() const { return m_iRoots; }
    int children() const { return m_iChildren; }
    /// Root rows plus child rows.
    int rows() const { return m_iRoots + m_iRoots * m_iChildren; }
    /// "256x16".
    QString sizeText() const;

    const st_NodeInfoSignal &rootNode(int root) const { return m_lstRoots.at(root); }
    const QList<st_NodeInfoSignal> &childNodes(int root) const { return m_lstChildren.at(root); }
    /// The same tree as a map; its key order is the root order.
    const QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> &map() const { return m_map; }

    /// Upper and lower text line of a row as a host would show them.
    static QString upperText(const st_NodeInfoSignal &node);
    static QString lowerText(const st_NodeInfoSignal &node);
    /// The bundle picture that a child row of @p node shows.
    static QString picturePath(const st_NodeInfoSignal &node);

    /// Parses "RxC" (for example "256x16"); false when malformed.
    static bool parseSize(const QString &text, int *roots, int *children);

private:
    int m_iRoots;
    int m_iChildren;
    QList<st_NodeInfoSignal> m_lstRoots;
    QList<QList<st_NodeInfoSignal>> m_lstChildren;
    QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> m_map;
};

#endif // SIGNALTREELIST_BENCH_BENCHCONTENT_H
