// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "KeyboardNavigator.h"

#include "DrawerControl.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "TabChain.h"
#include "TreeListFrame.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QFocusEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QToolButton>

namespace {

const char *const kKeyFocusProperty = "isKeyFocus";

void repolish(QWidget *widget)
{
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
    widget->update();
}

} // namespace

KeyboardNavigator::KeyboardNavigator(TreeListFrame *frame, QScrollArea *scrollArea)
    : QObject(frame)
    , m_pFrame(frame)
    , m_pScrollArea(scrollArea)
{
    setObjectName(QStringLiteral("KeyboardNavigator"));
    m_pFrame->setFocusPolicy(Qt::StrongFocus);
    // The scroll area would take the focus (and the arrow keys) itself.
    m_pScrollArea->setFocusPolicy(Qt::NoFocus);
    m_pScrollArea->viewport()->setFocusPolicy(Qt::NoFocus);
    TabChain::placeWith(m_pFrame->parentWidget(), {m_pFrame});
    m_pFrame->installEventFilter(this);
    // Presses on rows, which are created and deleted all the time, are seen
    // at the application; only the type is compared for other events.
    qApp->installEventFilter(this);
}

KeyboardNavigator::~KeyboardNavigator()
{
    qApp->removeEventFilter(this);
}

KeyboardNavigator *KeyboardNavigator::of(const QWidget *frame)
{
    return frame ? frame->findChild<KeyboardNavigator *>(QStringLiteral("KeyboardNavigator"),
                                                         Qt::FindDirectChildrenOnly)
                 : nullptr;
}

DrawerControl *KeyboardNavigator::drawerOf(const QWidget *row)
{
    for (QWidget *w = row ? row->parentWidget() : nullptr; w; w = w->parentWidget()) {
        if (auto *drawer = qobject_cast<DrawerControl *>(w))
            return drawer;
    }
    return nullptr;
}

TreeListFrame *KeyboardNavigator::frameOf(const QWidget *widget)
{
    for (QWidget *w = widget ? widget->parentWidget() : nullptr; w; w = w->parentWidget()) {
        if (auto *frame = qobject_cast<TreeListFrame *>(w))
            return frame;
    }
    return nullptr;
}

QList<QWidget *> KeyboardNavigator::rootRows(const TreeListFrame *frame)
{
    QList<QWidget *> rows;
    if (!frame)
        return rows;
    for (DrawerControl *drawer : frame->drawers()) {
        if (drawer && drawer->rootItem() && !drawer->isHidden())
            rows << drawer->rootItem();
    }
    return rows;
}

QList<QWidget *> KeyboardNavigator::visibleRows() const
{
    QList<QWidget *> rows;
    for (QWidget *root : rootRows(m_pFrame)) {
        rows << root;
        if (isExpanded(root)) {
            for (SecondItem *row : drawerOf(root)->secondItems())
                rows << row;
        }
    }
    return rows;
}

QWidget *KeyboardNavigator::focusRow() const
{
    QWidget *row = m_pFocusRow;
    return row && visibleRows().contains(row) ? row : nullptr;
}

void KeyboardNavigator::publish(QWidget *row, bool focused)
{
    if (!row || row->property(kKeyFocusProperty).toBool() == focused)
        return;
    row->setProperty(kKeyFocusProperty, focused);
    repolish(row);
}

void KeyboardNavigator::setFocusRow(QWidget *row, bool scroll)
{
    if (m_pFocusRow != row)
        publish(m_pFocusRow, false);
    m_pFocusRow = row;
    m_focusPlace = placeOf(row);
    if (!row)
        return;
    m_tabTarget = markOf(row);
    publish(row, m_pFrame->hasFocus());
    if (scroll && m_pScrollArea && row->isVisible())
        m_pScrollArea->ensureWidgetVisible(row, 0, 0);
    // Once per row and focus-in: a click on the focus row is no news.
    if (m_pFrame->hasFocus() && m_pAnnouncedFocus != row) {
        m_pAnnouncedFocus = row;
        QAccessibleEvent event(row, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

KeyboardNavigator::Place KeyboardNavigator::placeOf(QWidget *row) const
{
    Place place;
    DrawerControl *drawer = drawerOf(row);
    if (!drawer)
        return place;
    place.drawer = drawer;
    place.rootPos = rootRows(m_pFrame).indexOf(drawer->rootItem());
    place.childPos = drawer->secondItems().indexOf(qobject_cast<SecondItem *>(row));
    return place;
}

QWidget *KeyboardNavigator::nearest(const Place &place, const QList<QWidget *> &rows) const
{
    if (place.rootPos < 0)
        return nullptr;
    DrawerControl *drawer = place.drawer;
    if (drawer && rows.contains(drawer->rootItem())) {
        // The next row of the group (it moved up into the place), else the
        // previous one, else the group's root row.
        if (place.childPos >= 0 && isExpanded(drawer->rootItem())) {
            const QList<SecondItem *> children = drawer->secondItems();
            if (place.childPos < children.size())
                return children.at(place.childPos);
            if (!children.isEmpty())
                return children.last();
        }
        return drawer->rootItem();
    }
    // The whole group went: the root row now in its place, else the last.
    const QList<QWidget *> roots = rootRows(m_pFrame);
    return roots.isEmpty() ? nullptr : roots.at(qMin(place.rootPos, roots.size() - 1));
}

KeyboardNavigator::Mark KeyboardNavigator::markOf(QWidget *row)
{
    Mark mark;
    mark.drawer = drawerOf(row);
    mark.row = row;
    mark.built = row != nullptr;
    mark.child = mark.drawer ? mark.drawer->secondItems().indexOf(qobject_cast<SecondItem *>(row)) : -1;
    mark.stamp = ++m_clock;
    return mark;
}

QWidget *KeyboardNavigator::resolve(const Mark &mark) const
{
    if (mark.row)
        return drawerOf(mark.row) == mark.drawer ? mark.row.data() : nullptr;
    if (mark.built || !mark.drawer)
        return nullptr; // that row is gone
    // Named before its rows were built.
    return mark.child < 0 ? static_cast<QWidget *>(mark.drawer->rootItem()) : mark.drawer->secondItems().value(mark.child);
}

QWidget *KeyboardNavigator::lastSelectedRow() const
{
    return resolve(m_lastSelected);
}

void KeyboardNavigator::noteHostSelection(DrawerControl *drawer, int child)
{
    st_NodeInfoSignal unused;
    if (!drawer || !drawer->rootItem() || (child >= 0 && drawer->getSecondNodeInfo(child, unused) == 0))
        return; // names no row
    QWidget *row = child < 0 ? static_cast<QWidget *>(drawer->rootItem()) : drawer->secondItems().value(child);
    m_lastSelected = markOf(row);
    // A row not built yet (its group was never opened) goes by its place.
    m_lastSelected.drawer = drawer;
    m_lastSelected.child = child;
    m_tabTarget = m_lastSelected;
    scheduleSync();
}

QWidget *KeyboardNavigator::entryRow(const QList<QWidget *> &rows) const
{
    QWidget *target = resolve(m_tabTarget);
    if (target && rows.contains(target))
        return target;
    QWidget *row = lastSelectedRow();
    if (row && rows.contains(row))
        return row;
    // Selected inside a closed group: the group's row.
    DrawerControl *drawer = m_lastSelected.drawer;
    if (drawer && rows.contains(drawer->rootItem()))
        return drawer->rootItem();
    return rows.value(0);
}

void KeyboardNavigator::noteActedOn(QWidget *row)
{
    m_pActedOn = row;
    m_actedStamp = ++m_clock;
    scheduleSync();
}

void KeyboardNavigator::scheduleSync()
{
    if (m_bSyncPending)
        return;
    m_bSyncPending = true;
    QMetaObject::invokeMethod(this, &KeyboardNavigator::sync, Qt::QueuedConnection);
}

void KeyboardNavigator::rowsChanged(const QWidget *widget)
{
    if (KeyboardNavigator *keys = of(qobject_cast<const TreeListFrame *>(widget) ? widget : frameOf(widget)))
        keys->scheduleSync();
}

void KeyboardNavigator::sync()
{
    m_bSyncPending = false;
    const QList<QWidget *> rows = visibleRows();
    if (m_pActedOn) {
        if (rows.contains(m_pActedOn) && isSelected(m_pActedOn)) {
            m_lastSelected = markOf(m_pActedOn);
            m_lastSelected.stamp = m_actedStamp;
            if (m_actedStamp > m_tabTarget.stamp)
                m_tabTarget = m_lastSelected;
        }
        m_pActedOn = nullptr;
    }
    if (m_pFocusRow && rows.contains(m_pFocusRow)) {
        m_focusPlace = placeOf(m_pFocusRow);
    } else if (m_pFrame->hasFocus() && m_focusPlace.rootPos >= 0) {
        // The focus row was removed or hidden under the user's eyes: the
        // focus stays in the list, on the nearest row.
        setFocusRow(nearest(m_focusPlace, rows));
    } else {
        // Away from the list a removed row is simply forgotten; Tab picks
        // the row to land on. A hidden row keeps no focus look.
        publish(m_pFocusRow, false);
    }

    QVector<SelectionAnnouncer::Row> states;
    if (QAccessible::isActive()) {
        states.reserve(rows.size());
        for (QWidget *row : rows)
            states.append({row, isSelected(row)});
    }
    m_announcer.update(states);
}

void KeyboardNavigator::activate(QWidget *row)
{
    // The very events a click delivers: the rows' own handlers run.
    const QPointer<QWidget> guard(row);
    const QPoint at(row->width() / 2, row->height() / 2);
    QMouseEvent press(QEvent::MouseButtonPress, at, row->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(row, &press);
    if (!guard)
        return;
    QMouseEvent release(QEvent::MouseButtonRelease, at, row->mapToGlobal(at), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(row, &release);
}

bool KeyboardNavigator::isExpanded(const QWidget *root)
{
    const DrawerControl *drawer = drawerOf(root);
    return drawer && qobject_cast<const RootItem *>(root) && drawer->childContainer()
        && !drawer->childContainer()->isHidden() && drawer->isShowChild();
}

bool KeyboardNavigator::setExpanded(QWidget *root, bool expand)
{
    auto *item = qobject_cast<RootItem *>(root);
    if (!item || !item->expandBox() || isExpanded(root) == expand)
        return false;
    // The expand box's own click: checked state, press look, children.
    if (item->expandBox()->isChecked() == expand)
        item->expandBox()->setChecked(!expand);
    item->expandBox()->click();
    rowsChanged(root);
    return true;
}

bool KeyboardNavigator::isSelected(const QWidget *row)
{
    if (auto *root = qobject_cast<const RootItem *>(row)) {
        // The drawer's selection is the root row, and the root was selected
        // (a deselection by code leaves the drawer at [root] too).
        const DrawerControl *drawer = drawerOf(row);
        return drawer && drawer->getIsRootSel() && drawer->selIndex().size() == 1 && root->isSelected();
    }
    return qobject_cast<const SecondItem *>(row) && row->property("isSecondItem").toString() == QLatin1String("press");
}

QToolButton *KeyboardNavigator::offeredButton(const QWidget *row, bool edit)
{
    if (auto *root = qobject_cast<const RootItem *>(row)) {
        if (edit ? root->showsEditButton() : root->showsDeleteButton())
            return edit ? root->editButton() : root->deleteButton();
    } else if (auto *child = qobject_cast<const SecondItem *>(row)) {
        if (edit ? child->showsEditButton() : child->showsDeleteButton())
            return edit ? child->editButton() : child->deleteButton();
    }
    return nullptr;
}

QWidget *KeyboardNavigator::rowAt(QObject *object) const
{
    for (QObject *o = object; o && o != m_pFrame; o = o->parent()) {
        if (qobject_cast<RootItem *>(o) || qobject_cast<SecondItem *>(o)) {
            QWidget *row = static_cast<QWidget *>(o);
            return m_pFrame->isAncestorOf(row) ? row : nullptr;
        }
    }
    return nullptr;
}

QWidget *KeyboardNavigator::pageStep(QWidget *from, int direction) const
{
    const QList<QWidget *> rows = visibleRows();
    const int page = m_pScrollArea ? m_pScrollArea->viewport()->height() : 0;
    const int start = rows.indexOf(from);
    const int top = from->mapTo(m_pFrame, QPoint(0, 0)).y();
    QWidget *target = rows.value(start + direction, from);
    for (int i = start + direction; i >= 0 && i < rows.size(); i += direction) {
        const int distance = (rows.at(i)->mapTo(m_pFrame, QPoint(0, 0)).y() - top) * direction;
        if (distance > page)
            break;
        target = rows.at(i);
    }
    return target;
}

bool KeyboardNavigator::handleKey(QKeyEvent *event)
{
    static const QList<int> used{Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Home,  Qt::Key_End,   Qt::Key_PageUp,
                                 Qt::Key_PageDown, Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Right,
                                 Qt::Key_Plus,   Qt::Key_Left,  Qt::Key_Minus, Qt::Key_F2,    Qt::Key_Delete};
    const int key = event->key();
    if (!used.contains(key))
        return false;
    // A key acts from where the focus is after what happened before it,
    // even when the event loop has not run in between.
    if (m_bSyncPending)
        sync();
    const QList<QWidget *> rows = visibleRows();
    if (rows.isEmpty())
        return false;
    QWidget *row = focusRow();
    if (!row) {
        // No row has the focus yet (the list was empty, or the row went while
        // the list was away): the first key only shows where the focus is.
        setFocusRow(key == Qt::Key_Home ? rows.first() : key == Qt::Key_End ? rows.last() : entryRow(rows));
        return true;
    }
    const int index = rows.indexOf(row);
    const bool isRoot = qobject_cast<RootItem *>(row) != nullptr;
    switch (key) {
    case Qt::Key_Up:
        setFocusRow(rows.at(qMax(0, index - 1)));
        return true;
    case Qt::Key_Down:
        setFocusRow(rows.at(qMin(rows.size() - 1, index + 1)));
        return true;
    case Qt::Key_Home:
        setFocusRow(rows.first());
        return true;
    case Qt::Key_End:
        setFocusRow(rows.last());
        return true;
    case Qt::Key_PageUp:
        setFocusRow(pageStep(row, -1));
        return true;
    case Qt::Key_PageDown:
        setFocusRow(pageStep(row, 1));
        return true;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        activate(row); // the host may delete the list from here on
        return true;
    case Qt::Key_Right:
    case Qt::Key_Plus:
        if (isRoot && !isExpanded(row)) {
            setExpanded(row, true);
        } else if (isRoot && key == Qt::Key_Right && index + 1 < rows.size()
                   && drawerOf(rows.at(index + 1)) == drawerOf(row)) {
            setFocusRow(rows.at(index + 1));
        }
        return true;
    case Qt::Key_Left:
    case Qt::Key_Minus:
        if (isRoot && isExpanded(row)) {
            setExpanded(row, false);
        } else if (!isRoot && key == Qt::Key_Left) {
            if (DrawerControl *drawer = drawerOf(row))
                setFocusRow(drawer->rootItem());
        }
        return true;
    default: { // F2, Delete
        QToolButton *button = offeredButton(row, key == Qt::Key_F2);
        if (!button)
            return false;
        noteActedOn(row);
        button->click(); // the host may delete the list from here on
        return true;
    }
    }
}

void KeyboardNavigator::onFocusIn(int reason)
{
    if (reason == Qt::MouseFocusReason)
        return; // the press that follows names the row
    // A focus row that went while the list was away is not handed on: Tab
    // lands by its own rule.
    m_focusPlace = Place();
    sync();
    setFocusRow(entryRow(visibleRows()));
}

bool KeyboardNavigator::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        if (watched->isWidgetType() && m_pFrame->isAncestorOf(static_cast<QWidget *>(watched))) {
            // Whatever the click changes is caught up with once it is handled.
            scheduleSync();
            if (QWidget *row = rowAt(watched)) {
                noteActedOn(row);
                if (event->type() != QEvent::MouseButtonRelease) {
                    if (!m_pFrame->hasFocus())
                        m_pFrame->setFocus(Qt::MouseFocusReason);
                    setFocusRow(row, false);
                }
            }
        }
        return false;
    case QEvent::KeyPress:
        return watched == m_pFrame && handleKey(static_cast<QKeyEvent *>(event));
    case QEvent::FocusIn:
        if (watched == m_pFrame)
            onFocusIn(static_cast<QFocusEvent *>(event)->reason());
        return false;
    case QEvent::FocusOut:
        if (watched == m_pFrame) {
            publish(m_pFocusRow, false);
            m_pAnnouncedFocus = nullptr;
        }
        return false;
    default:
        return false;
    }
}
