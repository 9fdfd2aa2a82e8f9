// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "TreeListAccessible.h"

#include "AccessibleRows.h"
#include "KeyboardNavigator.h"
#include "ShownRows.h"
#include "TreeListFrame.h"

#include <QCoreApplication>

namespace {

// The public widget draws nothing and passes its focus on to the tree frame
// (its focus proxy): assistive technology is to find the focus there only.
class FocusProxyAccessible : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessible::State state() const override
    {
        QAccessible::State s = QAccessibleWidget::state();
        s.focused = false;
        s.focusable = false;
        s.invisible = true;
        return s;
    }
};

QAccessibleInterface *createInterface(const QString &key, QObject *object)
{
    if (key == QLatin1String("SignalTreeList"))
        return new FocusProxyAccessible(static_cast<QWidget *>(object));
    if (key == QLatin1String("TreeListFrame"))
        return new TreeListAccessible(static_cast<TreeListFrame *>(object));
    // The rows have interfaces of their own, which do not hang on widgets
    // (AccessibleRows): a row widget is one of the frames inside the list.
    return nullptr;
}

} // namespace

TreeListAccessible::TreeListAccessible(TreeListFrame *frame)
    : QAccessibleWidget(frame, QAccessible::Tree)
{
}

void TreeListAccessible::installFactory()
{
    static bool installed = false;
    if (installed)
        return;
    installed = true;
    QAccessible::installFactory(createInterface);
}

TreeListFrame *TreeListAccessible::frame() const
{
    return qobject_cast<TreeListFrame *>(object());
}

QString TreeListAccessible::text(QAccessible::Text t) const
{
    if (t == QAccessible::Name && widget() && widget()->accessibleName().isEmpty())
        return QCoreApplication::translate("SignalTreeList", "Input signals", "accessible name of the list");
    return QAccessibleWidget::text(t);
}

QAccessible::State TreeListAccessible::state() const
{
    QAccessible::State s = QAccessibleWidget::state();
    s.focusable = true;
    return s;
}

int TreeListAccessible::childCount() const
{
    return ShownRows::roots(frame()).size();
}

QAccessibleInterface *TreeListAccessible::child(int index) const
{
    return AccessibleRows::interfaceFor(ShownRows::roots(frame()).value(index));
}

int TreeListAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const RowRef row = AccessibleRows::rowOf(child);
    return row.drawer.isNull() ? -1 : ShownRows::roots(frame()).indexOf(row);
}

QAccessibleInterface *TreeListAccessible::childAt(int x, int y) const
{
    for (const RowRef &row : ShownRows::roots(frame())) {
        if (ShownRows::screenRect(row).contains(x, y))
            return AccessibleRows::interfaceFor(row);
    }
    return nullptr;
}

QAccessibleInterface *TreeListAccessible::focusChild() const
{
    TreeListFrame *f = frame();
    const KeyboardNavigator *keys = KeyboardNavigator::of(f);
    return f && f->hasFocus() && keys ? AccessibleRows::interfaceFor(keys->focusRow()) : nullptr;
}
