// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "ShownRows.h"

#include "DrawerControl.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "TreeListFrame.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QToolButton>

RowRef RowRef::root(DrawerControl *drawer)
{
    RowRef row;
    row.drawer = drawer;
    row.key = drawer ? drawer->rootKey() : 0;
    return row;
}

RowRef RowRef::child(DrawerControl *drawer, int index)
{
    RowRef row;
    row.drawer = drawer;
    row.key = drawer ? drawer->rowKey(index) : 0;
    return row;
}

bool RowRef::operator==(const RowRef &other) const
{
    return drawer == other.drawer && key == other.key;
}

bool RowRef::isRoot() const
{
    return drawer && key == drawer->rootKey();
}

bool RowRef::exists() const
{
    return drawer && key != 0 && (key == drawer->rootKey() || drawer->rowIndexOfKey(key) >= 0);
}

int RowRef::childIndex() const
{
    return drawer ? drawer->rowIndexOfKey(key) : -1;
}

namespace ShownRows {

QList<RowRef> roots(const TreeListFrame *frame)
{
    QList<RowRef> rows;
    if (!frame)
        return rows;
    for (DrawerControl *drawer : frame->drawers()) {
        if (drawer && drawer->rootItem() && !drawer->isHidden())
            rows << RowRef::root(drawer);
    }
    return rows;
}

QList<RowRef> children(const RowRef &root)
{
    QList<RowRef> rows;
    if (!root.isRoot() || !isExpanded(root))
        return rows;
    DrawerControl *drawer = root.drawer;
    const int count = drawer->rowCount();
    rows.reserve(count);
    for (int i = 0; i < count; ++i)
        rows << RowRef::child(drawer, i);
    return rows;
}

QList<RowRef> rows(const TreeListFrame *frame)
{
    QList<RowRef> out;
    for (const RowRef &root : roots(frame)) {
        out << root;
        out << children(root);
    }
    return out;
}

bool isShown(const TreeListFrame *frame, const RowRef &row)
{
    DrawerControl *drawer = row.drawer;
    if (!frame || !drawer || !drawer->rootItem() || drawer->isHidden() || !frame->drawers().contains(drawer))
        return false;
    if (row.isRoot())
        return true;
    return row.childIndex() >= 0 && drawer->showsChildren();
}

RowRef of(const QWidget *widget)
{
    DrawerControl *drawer = drawerOf(widget);
    if (!drawer)
        return RowRef();
    if (widget == drawer->rootItem())
        return RowRef::root(drawer);
    const int index = drawer->secondItems().indexOf(qobject_cast<SecondItem *>(const_cast<QWidget *>(widget)));
    return index >= 0 ? RowRef::child(drawer, index) : RowRef();
}

QWidget *widget(const RowRef &row)
{
    DrawerControl *drawer = row.drawer;
    if (!drawer)
        return nullptr;
    if (row.isRoot())
        return drawer->rootItem();
    return drawer->builtRow(row.childIndex());
}

QWidget *realise(const RowRef &row)
{
    DrawerControl *drawer = row.drawer;
    if (!row.exists())
        return nullptr;
    if (!row.isRoot())
        return drawer->realiseRow(row.childIndex());
    return widget(row);
}

st_NodeInfoSignal record(const RowRef &row)
{
    DrawerControl *drawer = row.drawer;
    if (!drawer)
        return st_NodeInfoSignal();
    return row.isRoot() ? drawer->getRootNodeInfo() : drawer->rowRecord(row.childIndex());
}

bool isExpanded(const RowRef &row)
{
    return row.isRoot() && row.drawer->showsChildren();
}

bool isSelected(const RowRef &row)
{
    DrawerControl *drawer = row.drawer;
    if (!drawer)
        return false;
    if (row.isRoot()) {
        // The drawer's selection is the root row, and the root was selected
        // (a deselection by code leaves the drawer at [root] too).
        return drawer->getIsRootSel() && drawer->selIndex().size() == 1 && drawer->rootItem()
            && drawer->rootItem()->isSelected();
    }
    return drawer->rowLooksSelected(row.childIndex());
}

bool offersButton(const RowRef &row, bool edit)
{
    DrawerControl *drawer = row.drawer;
    if (!row.exists())
        return false;
    return drawer->rowOffersButton(row.isRoot() ? -1 : row.childIndex(), edit);
}

QRect screenRect(const RowRef &row)
{
    if (const QWidget *w = widget(row))
        return QRect(w->mapToGlobal(QPoint(0, 0)), w->size());
    // A row that is no widget now is where its slot is.
    const QRect place = row.drawer && !row.isRoot() ? row.drawer->rowGeometry(row.childIndex()) : QRect();
    if (place.isNull() || !row.drawer->childContainer())
        return QRect();
    return QRect(row.drawer->childContainer()->mapToGlobal(place.topLeft()), place.size());
}

void activate(const RowRef &row)
{
    // The very events a click delivers: the rows' own handlers run.
    const QPointer<QWidget> guard(realise(row));
    if (!guard)
        return;
    QWidget *w = guard;
    const QPoint at(w->width() / 2, w->height() / 2);
    QMouseEvent press(QEvent::MouseButtonPress, at, w->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(w, &press);
    if (!guard)
        return;
    QMouseEvent release(QEvent::MouseButtonRelease, at, w->mapToGlobal(at), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(w, &release);
}

bool setExpanded(const RowRef &row, bool expand)
{
    auto *item = row.isRoot() ? row.drawer->rootItem() : nullptr;
    if (!item || !item->expandBox() || isExpanded(row) == expand)
        return false;
    // The expand box's own click: checked state, press look, children.
    if (item->expandBox()->isChecked() == expand)
        item->expandBox()->setChecked(!expand);
    item->expandBox()->click();
    return true;
}

bool clickButton(const RowRef &row, bool edit)
{
    if (!offersButton(row, edit))
        return false;
    QWidget *w = realise(row);
    QToolButton *button = nullptr;
    if (auto *root = qobject_cast<RootItem *>(w))
        button = edit ? root->editButton() : root->deleteButton();
    else if (auto *child = qobject_cast<SecondItem *>(w))
        button = edit ? child->editButton() : child->deleteButton();
    if (!button)
        return false;
    button->click(); // the host may delete the list from here on
    return true;
}

DrawerControl *drawerOf(const QWidget *widget)
{
    for (QWidget *w = widget ? widget->parentWidget() : nullptr; w; w = w->parentWidget()) {
        if (auto *drawer = qobject_cast<DrawerControl *>(w))
            return drawer;
    }
    return nullptr;
}

TreeListFrame *frameOf(const QWidget *widget)
{
    for (QWidget *w = widget ? widget->parentWidget() : nullptr; w; w = w->parentWidget()) {
        if (auto *frame = qobject_cast<TreeListFrame *>(w))
            return frame;
    }
    return nullptr;
}

} // namespace ShownRows
