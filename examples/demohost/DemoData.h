// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_DEMO_DEMODATA_H
#define SIGNALTREELIST_DEMO_DEMODATA_H

#include <st_NodeInfoSignal.h>

#include <QList>
#include <QMap>
#include <QString>

/**
 * The demo's embedded data set: the input boards and signal groups of a
 * small video-wall controller, as the records that SignalTreeList shows.
 *
 * Every signal type 0..18 occurs at least once; some sources and signals
 * are offline; two roots are groups (iType 1) that accept dropped rows.
 */
class DemoData
{
public:
    using Tree = QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>>;

    /// The whole default data set, keyed by root record (the map's order,
    /// the record's operator<, is the order of the root rows).
    static Tree defaultTree();

    /// A child record. @p upper and @p lower are the two display lines;
    /// an empty @p lower gives a one-line name.
    static st_NodeInfoSignal signal(const QString &upper, const QString &lower, int type,
                                    bool online, const QString &source,
                                    const QList<bool> &buttons);
    /// A root record: an input source (@p group false, iType 0) or a signal
    /// group (@p group true, iType 1).
    static st_NodeInfoSignal root(const QString &name, const QString &source, bool group,
                                  bool online, int sourceNo, int groupNo);

    /// A new input board numbered @p number, as the "Add source" action adds it.
    static st_NodeInfoSignal newSource(int number);
    /// Two new signals for board @p number.
    static QList<st_NodeInfoSignal> newSignals(int number);
    /// One new signal, cycling through the signal types by @p serial.
    static st_NodeInfoSignal newSignal(int serial, const QString &source);

    /// The display name of a record, its lines joined by " / ".
    static QString displayName(const st_NodeInfoSignal &node);
    /// The name of a signal type number (the icon family it selects).
    static QString typeName(int type);
};

#endif // SIGNALTREELIST_DEMO_DEMODATA_H
