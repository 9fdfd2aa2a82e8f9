// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_LAYOUTINSTALL_H
#define SIGNALTREELIST_LAYOUTINSTALL_H

// Internal: not installed, not part of the library's interface.

#include <QLayout>
#include <QWidget>

/**
 * Installs a new, parentless @p layout on @p widget and returns it: the same
 * layout on the same widget as constructing the layout with the widget as
 * its parent, minus the LayoutRequest event that a new layout posts to its
 * widget.
 *
 * That event is only ever acted on once the widget is visible, and showing
 * the widget activates its layout anyway. Posting it is what costs: the
 * widget still has its own PolishRequest pending from its construction, and
 * Qt then compares the new event with every event posted in the thread, so
 * that building many rows before the event loop runs grows with the square
 * of the rows. A layout that is invalidated while it has no widget marks
 * itself as waiting for activation without posting anything; installing it
 * then posts nothing either.
 */
template <typename Layout>
Layout *installLayout(QWidget *widget, Layout *layout)
{
    layout->invalidate();
    widget->setLayout(layout);
    return layout;
}

#endif // SIGNALTREELIST_LAYOUTINSTALL_H
