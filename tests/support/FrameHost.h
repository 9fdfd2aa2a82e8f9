// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "st_NodeInfoSignal.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>

class DrawerControl;
class QBoxLayout;
class QCheckBox;
class QScrollArea;
class QSpacerItem;
class SignalTreeList;
class TreeListFrame;

// Helpers of the tests of the scrolling tree container.
namespace FrameHost {

// A record with every field set, each from the name or the source, so that
// a record that reaches the host can be told from any other.
st_NodeInfoSignal makeNode(const QString &name, const QString &source, int type = 0);
// Child records "<prefix>-0", "<prefix>-1", ... all of input source @p source.
QList<st_NodeInfoSignal> makeChildren(const QString &prefix, int count, const QString &source);
// Every field of a record as one text, so that a mismatch names the field.
QString describe(const st_NodeInfoSignal &n);
bool isDefaultNode(const st_NodeInfoSignal &n);

// A host window with the list laid out in it, as a host application builds it.
struct Host
{
    std::unique_ptr<QWidget> parent;
    SignalTreeList *list = nullptr; // owned by parent
    TreeListFrame *frame = nullptr; // owned by parent

    QList<DrawerControl *> drawers() const;
    DrawerControl *drawer(int i) const;
};

std::unique_ptr<Host> makeHost();

QList<int> rootIndexes(TreeListFrame *frame);
QStringList rootIndexTexts(TreeListFrame *frame);
QCheckBox *expandBox(DrawerControl *d);
bool upperHighlighted(DrawerControl *d);
QScrollArea *scrollAreaOf(TreeListFrame *frame);
QBoxLayout *containerLayout(TreeListFrame *frame);

// Marker spacers that a test puts into the container layout are 1000 + n
// pixels wide; the stretch the container adds is an expanding spacer.
QSpacerItem *makeMarker(int n);

// The container layout as tokens: a drawer by its root name, "S" for a
// stretch, "M<n>" for a marker.
QStringList layoutTokens(TreeListFrame *frame);

// Lets a queued call that is already posted run, and nothing more.
void runPostedCalls();

// Root 0 "Source A" (plain source, iType 0) with A-0..A-2 from source "A";
// root 1 "Group B" (group, iType 1, source "B") with B-0, B-1;
// root 2 "Source C" (iType 0) with C-0, C-1 from source "C";
// root 3 "Other D" (iType 2, source "D") with D-0.
void addGroupingFixture(SignalTreeList *list);

// Plays the receiving drawer's drop and then the completion notice.
void dropAndComplete(Host *host, const QList<int> &src, const QList<int> &dst);

} // namespace FrameHost
