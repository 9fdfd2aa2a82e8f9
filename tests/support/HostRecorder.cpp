// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "HostRecorder.h"

#include "SignalTreeList.h"
#include "TreeText.h"

using TreeText::pathText;

HostRecorder::HostRecorder(SignalTreeList *list)
{
    connect(list, &SignalTreeList::signal_OnDeleteItem, this,
            [this](QList<int> p) { events << QStringLiteral("DeleteItem(%1)").arg(pathText(p)); });
    connect(list, &SignalTreeList::signal_OnDeleteRootItem, this,
            [this](int r) { events << QStringLiteral("DeleteRootItem(%1)").arg(r); });
    connect(list, &SignalTreeList::signal_OnDeleteSecondItem, this, [this](int r, int c) {
        events << QStringLiteral("DeleteSecondItem(%1,%2)").arg(r).arg(c);
    });
    connect(list, &SignalTreeList::signal_OnAddRootItem, this,
            [this](QString name) { events << QStringLiteral("AddRootItem(%1)").arg(name); });
    connect(list, &SignalTreeList::signal_OnAddSecondItems, this, [this](QList<int> s, QList<int> d) {
        events << QStringLiteral("AddSecondItems(%1|%2)").arg(pathText(s), pathText(d));
    });
    connect(list, &SignalTreeList::signal_OnCurrentItemClicked, this, [this](QList<int> p) {
        events << QStringLiteral("CurrentItemClicked(%1)").arg(pathText(p));
    });
    connect(list, &SignalTreeList::signal_OnGetNewRootName, this,
            [this] { events << QStringLiteral("GetNewRootName()"); });
    connect(list, &SignalTreeList::signal_OnEditBtnClicked, this,
            [this](QList<int> p) { events << QStringLiteral("EditBtnClicked(%1)").arg(pathText(p)); });
    connect(list, &SignalTreeList::signal_OnDeleteBtnClicked, this, [this](QList<int> p) {
        events << QStringLiteral("DeleteBtnClicked(%1)").arg(pathText(p));
    });
    connect(list, &SignalTreeList::signal_OnCaptureBtnClicked, this, [this](QList<int> p) {
        events << QStringLiteral("CaptureBtnClicked(%1)").arg(pathText(p));
    });
}

QList<QByteArray> HostRecorder::signalSignatures()
{
    return {
        "signal_OnDeleteItem(QList<int>)",
        "signal_OnDeleteRootItem(int)",
        "signal_OnDeleteSecondItem(int,int)",
        "signal_OnAddRootItem(QString)",
        "signal_OnAddSecondItems(QList<int>,QList<int>)",
        "signal_OnCurrentItemClicked(QList<int>)",
        "signal_OnGetNewRootName()",
        "signal_OnEditBtnClicked(QList<int>)",
        "signal_OnDeleteBtnClicked(QList<int>)",
        "signal_OnCaptureBtnClicked(QList<int>)",
    };
}
