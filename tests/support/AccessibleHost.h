// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "NodeFactory.h"

#include <QAccessible>
#include <QList>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <memory>

class DrawerControl;
class SignalTreeList;
class TreeListFrame;

// A shown, active window holding a list: roots R0..R2 (sources S0..S2),
// three children each ("R1-2"); root 0 expanded; R1-1 offline; R2 has the
// two-line name "R2" / "second line".
struct AccessibleHost
{
    std::unique_ptr<QWidget> window;
    SignalTreeList *list = nullptr;

    TreeListFrame *frame() const;
    DrawerControl *drawer(int i) const;
    QAccessibleInterface *tree() const;
    // The accessible of the row named @p name ("R1", "R0-2").
    QAccessibleInterface *row(const QString &name) const;
    // The widget that shows the row of @p iface (null if none does).
    static QWidget *widgetOf(QAccessibleInterface *iface);

    static std::unique_ptr<AccessibleHost> make();
};

// Records the focus, selection and state events raised for rows while
// alive, as "Focus R0-1" or "SelectionAdd R0-1" (the row's first name line).
class AccessibleEvents
{
public:
    AccessibleEvents();
    ~AccessibleEvents();
    QStringList events;

private:
    static void handle(QAccessibleEvent *event);
    static AccessibleEvents *s_current;
    QAccessible::UpdateHandler m_previous;
};

// Whether Qt's accessibility is live (it is under Xvfb with an AT-SPI bus,
// tests/with_a11y_bus.sh; not on the offscreen platform), after giving the
// bridge a moment to come up the first time.
bool waitForLiveAccessibility();
