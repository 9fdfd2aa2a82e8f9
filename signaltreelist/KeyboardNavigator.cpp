// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "KeyboardNavigator.h"

#include "DrawerControl.h"
#include "RootItem.h"
#include "SecondItem.h"
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
    placeInTabOrder();
    m_pFrame->installEventFilter(this);
    // Presses on rows, which are created and deleted all the time, are seen
    // at the application; only the type is compared for other events.
    qApp->installEventFilter(this);
}

void KeyboardNavigator::placeInTabOrder()
{
    // A new widget joins its window's tab order at the end. Tab is to reach
    // the list where its parent widget stands: right after the last tab
    // stop before that parent.
    QWidget *parent = m_pFrame->parentWidget();
    if (!parent)
        return;
    for (QWidget *w = parent->previousInFocusChain(); w && w != parent && w != m_pFrame;
         w = w->previousInFocusChain()) {
        if ((w->focusPolicy() & Qt::TabFocus) && w->window() == m_pFrame->window()) {
            QWidget::setTabOrder(w, m_pFrame);
            return;
        }
    }
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
    if (!row)
        return;
    publish(row, m_pFrame->hasFocus());
    if (scroll && m_pScrollArea && row->isVisible())
        m_pScrollArea->ensureWidgetVisible(row, 0, 0);
    if (m_pFrame->hasFocus()) {
        QAccessibleEvent event(row, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
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
    return true;
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

void KeyboardNavigator::notifySelectionLater(QWidget *row)
{
    if (!QAccessible::isActive())
        return;
    // After the press has been handled: the row's selection is then set.
    const QPointer<QWidget> guard(row);
    QMetaObject::invokeMethod(
        this,
        [guard] {
            if (!guard)
                return;
            QAccessible::State changed;
            changed.selected = true;
            QAccessibleStateChangeEvent state(guard.data(), changed);
            QAccessible::updateAccessibility(&state);
            QAccessibleEvent selection(guard.data(), QAccessible::Selection);
            QAccessible::updateAccessibility(&selection);
        },
        Qt::QueuedConnection);
}

bool KeyboardNavigator::handleKey(QKeyEvent *event)
{
    const QList<QWidget *> rows = visibleRows();
    if (rows.isEmpty())
        return false;
    QWidget *row = focusRow();
    if (!row) {
        setFocusRow(rows.first());
        row = rows.first();
    }
    const int index = rows.indexOf(row);
    const bool isRoot = qobject_cast<RootItem *>(row) != nullptr;
    switch (event->key()) {
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
        m_pLastSelected = row;
        activate(row);
        return true;
    case Qt::Key_Right:
    case Qt::Key_Plus:
        if (isRoot && !isExpanded(row)) {
            setExpanded(row, true);
        } else if (isRoot && event->key() == Qt::Key_Right && index + 1 < rows.size()
                   && drawerOf(rows.at(index + 1)) == drawerOf(row)) {
            setFocusRow(rows.at(index + 1));
        }
        return true;
    case Qt::Key_Left:
    case Qt::Key_Minus:
        if (isRoot && isExpanded(row)) {
            setExpanded(row, false);
        } else if (!isRoot && event->key() == Qt::Key_Left) {
            if (DrawerControl *drawer = drawerOf(row))
                setFocusRow(drawer->rootItem());
        }
        return true;
    case Qt::Key_F2:
    case Qt::Key_Delete: {
        QToolButton *button = offeredButton(row, event->key() == Qt::Key_F2);
        if (!button)
            return false;
        m_pLastSelected = row;
        button->click();
        return true;
    }
    default:
        return false;
    }
}

void KeyboardNavigator::onFocusIn(int reason)
{
    if (reason == Qt::MouseFocusReason)
        return; // the press that follows names the row
    QWidget *row = focusRow();
    const QList<QWidget *> rows = visibleRows();
    if (!row)
        row = m_pLastSelected && rows.contains(m_pLastSelected) ? m_pLastSelected.data() : rows.value(0);
    setFocusRow(row);
}

bool KeyboardNavigator::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (watched->isWidgetType()) {
            if (QWidget *row = rowAt(watched)) {
                m_pLastSelected = row;
                if (!m_pFrame->hasFocus())
                    m_pFrame->setFocus(Qt::MouseFocusReason);
                setFocusRow(row, false);
                notifySelectionLater(row);
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
        if (watched == m_pFrame)
            publish(m_pFocusRow, false);
        return false;
    default:
        return false;
    }
}
