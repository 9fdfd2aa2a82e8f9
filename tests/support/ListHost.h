// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "st_NodeInfoSignal.h"

#include <QList>
#include <QMetaType>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QWidget>

#include <functional>
#include <memory>

class DrawerControl;
class SignalTreeList;
class TreeListFrame;

// Helpers of the tests of the exported widget, as a host uses it.
namespace ListHost {

// A record named @p name, its host value made from the name.
st_NodeInfoSignal makeNode(const QString &name, const QString &source, int type = 0, int inputNo = 0);
// @p count child records "<prefix>-<c>".
QList<st_NodeInfoSignal> makeChildren(const QString &prefix, int count, const QString &source);
// Whether @p n is the record a default constructor makes.
bool isDefaultNode(const st_NodeInfoSignal &n);

TreeListFrame *frameOf(SignalTreeList *list);

struct Host
{
    std::unique_ptr<QWidget> parent;
    QPointer<SignalTreeList> list; // owned by parent
    TreeListFrame *frame() const { return frameOf(list); }
    DrawerControl *drawer(int i) const;
};

// A 400 x 600 parent (not shown) with a list on it, initialised unless
// @p init is false.
std::unique_ptr<Host> makeHost(bool init = true);

// Root "R<i>" (source "S<i>") with @p children child rows "R<i>-<c>".
void addRoots(SignalTreeList *list, int count, int children);

// The child rows under @p parent, counted as widgets (the rows of groups
// never expanded are built first).
int secondItemCount(QWidget *parent);

// Signal arguments as "type:value" texts (QVariant cannot compare lists).
QStringList typedTexts(const QVariantList &values);

// An operation a test runs on the list.
using Op = std::function<void(SignalTreeList *)>;

} // namespace ListHost

Q_DECLARE_METATYPE(ListHost::Op)
