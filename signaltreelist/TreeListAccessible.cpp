// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "TreeListAccessible.h"

#include "KeyboardNavigator.h"
#include "RowAccessible.h"
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
    if (key == QLatin1String("RootItem") || key == QLatin1String("SecondItem"))
        return new RowAccessible(static_cast<QWidget *>(object));
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
    return KeyboardNavigator::rootRows(frame()).size();
}

QAccessibleInterface *TreeListAccessible::child(int index) const
{
    QWidget *row = KeyboardNavigator::rootRows(frame()).value(index);
    return row ? QAccessible::queryAccessibleInterface(row) : nullptr;
}

int TreeListAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    return child ? KeyboardNavigator::rootRows(frame()).indexOf(qobject_cast<QWidget *>(child->object())) : -1;
}

QAccessibleInterface *TreeListAccessible::focusChild() const
{
    TreeListFrame *f = frame();
    const KeyboardNavigator *keys = KeyboardNavigator::of(f);
    QWidget *row = f && f->hasFocus() && keys ? keys->focusRow() : nullptr;
    return row ? QAccessible::queryAccessibleInterface(row) : nullptr;
}
