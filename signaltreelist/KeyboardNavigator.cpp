// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "KeyboardNavigator.h"

#include "AccessibleRows.h"
#include "RowAccessible.h"
#include "DrawerControl.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "TabChain.h"
#include "TreeListFrame.h"

#include <QCoreApplication>
#include <QAccessible>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

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
    m_pFrame->setObserver(this, this);
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

RowRef KeyboardNavigator::focusRow() const
{
    return ShownRows::isShown(m_pFrame, m_focus) ? m_focus : RowRef();
}

void KeyboardNavigator::publish(const RowRef &row, bool focused)
{
    // A parked row loses the look where it is kept; one that gets it is
    // made a widget, as it is about to be scrolled into view.
    QWidget *widget = ShownRows::widget(row);
    if (!widget && !focused && row.drawer && !row.isRoot() && row.drawer->setParkedRowFocus(row.childIndex(), false))
        return;
    if (!widget)
        widget = ShownRows::realise(row);
    if (!widget || widget->property(kKeyFocusProperty).toBool() == focused)
        return;
    widget->setProperty(kKeyFocusProperty, focused);
    repolish(widget);
}

void KeyboardNavigator::setFocusRow(const RowRef &row, bool scroll)
{
    if (m_focus != row)
        publish(m_focus, false);
    m_focus = row;
    m_focusPlace = placeOf(row);
    if (!row.drawer)
        return;
    m_tabTarget = markOf(row);
    publish(row, m_pFrame->hasFocus());
    QWidget *widget = ShownRows::widget(row);
    if (scroll && m_pScrollArea && widget && widget->isVisible()) {
        // Scrolled to where the row is once the list's layouts have caught
        // up with the last change, not to where it was before: a layout
        // request climbs one level per pass, from the row's container up to
        // the frame (the host's own layouts keep their turn).
        QPointer<QWidget> guard(widget);
        for (int pass = 0; pass < 8 && guard; ++pass) {
            for (QWidget *w = guard->parentWidget(); w; w = w == m_pFrame ? nullptr : w->parentWidget())
                QCoreApplication::sendPostedEvents(w, QEvent::LayoutRequest);
        }
        if (guard && guard->isVisible())
            m_pScrollArea->ensureWidgetVisible(guard, 0, 0);
    }
    // Once per row and focus-in: a click on the focus row is no news.
    if (m_pFrame->hasFocus() && m_announcedFocus != row) {
        m_announcedFocus = row;
        if (QAccessibleInterface *iface = QAccessible::isActive() ? AccessibleRows::interfaceFor(row) : nullptr) {
            QAccessibleEvent event(iface, QAccessible::Focus);
            QAccessible::updateAccessibility(&event);
        }
    }
}

KeyboardNavigator::Place KeyboardNavigator::placeOf(const RowRef &row) const
{
    Place place;
    DrawerControl *drawer = row.drawer;
    if (!drawer || !row.exists())
        return place;
    place.drawer = drawer;
    place.rootPos = ShownRows::roots(m_pFrame).indexOf(RowRef::root(drawer));
    place.childPos = row.childIndex();
    return place;
}

RowRef KeyboardNavigator::nearest(const Place &place, const QList<RowRef> &rows) const
{
    if (place.rootPos < 0)
        return RowRef();
    DrawerControl *drawer = place.drawer;
    const RowRef root = RowRef::root(drawer);
    if (drawer && rows.contains(root)) {
        // The next row of the group (it moved up into the place), else the
        // previous one, else the group's root row.
        const int count = drawer->rowCount();
        if (place.childPos >= 0 && ShownRows::isExpanded(root) && count > 0)
            return RowRef::child(drawer, qMin(place.childPos, count - 1));
        return root;
    }
    // The whole group went: the root row now in its place, else the last.
    const QList<RowRef> roots = ShownRows::roots(m_pFrame);
    return roots.isEmpty() ? RowRef() : roots.at(qMin(place.rootPos, roots.size() - 1));
}

KeyboardNavigator::Mark KeyboardNavigator::markOf(const RowRef &row)
{
    Mark mark;
    mark.row = row;
    mark.stamp = ++m_clock;
    return mark;
}

RowRef KeyboardNavigator::lastSelectedRow() const
{
    return m_lastSelected.row.exists() ? m_lastSelected.row : RowRef();
}

void KeyboardNavigator::rowsChanged()
{
    scheduleSync();
}

void KeyboardNavigator::hostSelected(DrawerControl *drawer, int child)
{
    if (!drawer || !drawer->rootItem() || (child >= 0 && child >= drawer->rowCount()))
        return; // names no row
    m_lastSelected = markOf(child < 0 ? RowRef::root(drawer) : RowRef::child(drawer, child));
    m_tabTarget = m_lastSelected;
    scheduleSync();
}

RowRef KeyboardNavigator::entryRow(const QList<RowRef> &rows) const
{
    if (m_tabTarget.row.exists() && rows.contains(m_tabTarget.row))
        return m_tabTarget.row;
    const RowRef row = lastSelectedRow();
    if (row.drawer && rows.contains(row))
        return row;
    // Selected inside a closed group: the group's row.
    const RowRef root = RowRef::root(m_lastSelected.row.drawer);
    if (root.drawer && rows.contains(root))
        return root;
    return rows.value(0);
}

void KeyboardNavigator::noteActedOn(const RowRef &row)
{
    m_actedOn = row;
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
    if (KeyboardNavigator *keys = of(qobject_cast<const TreeListFrame *>(widget) ? widget : ShownRows::frameOf(widget)))
        keys->scheduleSync();
}

void KeyboardNavigator::sync()
{
    m_bSyncPending = false;
    const QList<RowRef> rows = ShownRows::rows(m_pFrame);
    if (m_actedOn.drawer) {
        if (rows.contains(m_actedOn) && ShownRows::isSelected(m_actedOn)) {
            m_lastSelected = markOf(m_actedOn);
            m_lastSelected.stamp = m_actedStamp;
            if (m_actedStamp > m_tabTarget.stamp)
                m_tabTarget = m_lastSelected;
        }
        m_actedOn = RowRef();
    }
    if (m_focus.drawer && rows.contains(m_focus)) {
        m_focusPlace = placeOf(m_focus);
    } else if (m_pFrame->hasFocus() && m_focusPlace.rootPos >= 0) {
        // The focus row was removed or hidden under the user's eyes: the
        // focus stays in the list, on the nearest row.
        setFocusRow(nearest(m_focusPlace, rows));
    } else {
        // Away from the list a removed row is simply forgotten; Tab picks
        // the row to land on. A hidden row keeps no focus look.
        publish(m_focus, false);
    }

    QVector<SelectionAnnouncer::Row> states;
    if (QAccessible::isActive()) {
        states.reserve(rows.size());
        for (const RowRef &row : rows)
            states.append({row, ShownRows::isSelected(row)});
        AccessibleRows::sweep();
    }
    m_announcer.update(states);
}

RowRef KeyboardNavigator::rowAt(QObject *object) const
{
    for (QObject *o = object; o && o != m_pFrame; o = o->parent()) {
        if (qobject_cast<RootItem *>(o) || qobject_cast<SecondItem *>(o)) {
            QWidget *row = static_cast<QWidget *>(o);
            return m_pFrame->isAncestorOf(row) ? ShownRows::of(row) : RowRef();
        }
    }
    return RowRef();
}

RowRef KeyboardNavigator::pageStep(const RowRef &from, int direction) const
{
    const QList<RowRef> rows = ShownRows::rows(m_pFrame);
    const int page = m_pScrollArea ? m_pScrollArea->viewport()->height() : 0;
    const int start = rows.indexOf(from);
    const int top = ShownRows::screenRect(from).y();
    RowRef target = rows.value(start + direction, from);
    for (int i = start + direction; i >= 0 && i < rows.size(); i += direction) {
        const int distance = (ShownRows::screenRect(rows.at(i)).y() - top) * direction;
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
    const QList<RowRef> rows = ShownRows::rows(m_pFrame);
    if (rows.isEmpty())
        return false;
    const RowRef row = focusRow();
    if (!row.drawer) {
        // No row has the focus yet (the list was empty, or the row went while
        // the list was away): the first key only shows where the focus is.
        setFocusRow(key == Qt::Key_Home ? rows.first() : key == Qt::Key_End ? rows.last() : entryRow(rows));
        return true;
    }
    const int index = rows.indexOf(row);
    const bool isRoot = row.isRoot();
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
        ShownRows::activate(row); // the host may delete the list from here on
        return true;
    case Qt::Key_Right:
    case Qt::Key_Plus:
        if (isRoot && !ShownRows::isExpanded(row)) {
            if (ShownRows::setExpanded(row, true))
                scheduleSync();
        } else if (isRoot && key == Qt::Key_Right && index + 1 < rows.size()
                   && rows.at(index + 1).drawer == row.drawer) {
            setFocusRow(rows.at(index + 1));
        }
        return true;
    case Qt::Key_Left:
    case Qt::Key_Minus:
        if (isRoot && ShownRows::isExpanded(row)) {
            if (ShownRows::setExpanded(row, false))
                scheduleSync();
        } else if (!isRoot && key == Qt::Key_Left) {
            setFocusRow(RowRef::root(row.drawer));
        }
        return true;
    default: { // F2, Delete
        const bool edit = key == Qt::Key_F2;
        if (!ShownRows::offersButton(row, edit))
            return false;
        noteActedOn(row);
        ShownRows::clickButton(row, edit); // the host may delete the list from here on
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
    setFocusRow(entryRow(ShownRows::rows(m_pFrame)));
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
            const RowRef row = rowAt(watched);
            if (row.drawer) {
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
    case QEvent::LanguageChange:
        if (watched == m_pFrame)
            RowAccessible::announceDescriptions(ShownRows::rows(m_pFrame));
        return false;
    case QEvent::FocusIn:
        if (watched == m_pFrame)
            onFocusIn(static_cast<QFocusEvent *>(event)->reason());
        return false;
    case QEvent::FocusOut:
        if (watched == m_pFrame) {
            publish(m_focus, false);
            m_announcedFocus = RowRef();
        }
        return false;
    default:
        return false;
    }
}
