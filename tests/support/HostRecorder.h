// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QStringList>

class SignalTreeList;

// Records every host-facing signal of a list, in emission order, as texts
// such as "DeleteSecondItem(0,2)" or "AddSecondItems(0,1|1,0)".
class HostRecorder : public QObject
{
public:
    explicit HostRecorder(SignalTreeList *list);

    QStringList events;

    // The signatures of those ten signals in declaration order, as both the
    // list and its tree container declare them.
    static QList<QByteArray> signalSignatures();
};
