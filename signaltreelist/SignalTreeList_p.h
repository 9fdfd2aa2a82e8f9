// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_SIGNALTREELIST_P_H
#define SIGNALTREELIST_SIGNALTREELIST_P_H

// Internal: not installed, not part of the library's interface.

#include <QPointer>

class QLayout;
class QWidget;
class TreeListFrame;

class SignalTreeListPrivate
{
public:
    // Guarded: the frame lives on the host's parent widget, which may delete
    // it before this widget goes.
    QPointer<TreeListFrame> pTreeListFrame;
    QWidget *pParentWidget = nullptr;
    // The layout made by initControls() when no parent widget owns it (no
    // parent, or one that already had a layout); freed with the widget.
    QLayout *pOrphanLayout = nullptr;
};

#endif // SIGNALTREELIST_SIGNALTREELIST_P_H
