// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// DrawerControl, continued: child rows that are widgets only while they may
// be seen. A row laid out by a slot can be parked there as its state and
// made again, the same, when it comes near the screen or an operation
// needs the widget.

#include "DrawerControl.h"

#include "HandlerGuard.h"
#include "QuietAccessibility.h"
#include "RowMetrics.h"
#include "RowRealiser.h"
#include "RowReplay.h"
#include "RowSlot.h"
#include "SecondItem.h"

#include <QFrame>
#include <QGuiApplication>
#include <QVBoxLayout>

namespace {

// Showing a widget lays its ancestors out at once (QWidget::setVisible()
// activates every layout up the chain), where the widget that was there
// all along would have waited for the layouts' own turn: a row made again
// is shown with those layouts held.
class LayoutsHeld
{
public:
    explicit LayoutsHeld(QWidget *from)
    {
        for (QWidget *w = from; w; w = w->isWindow() ? nullptr : w->parentWidget()) {
            QLayout *layout = w->layout();
            if (layout && layout->isEnabled()) {
                layout->setEnabled(false);
                m_held.append(layout);
            }
        }
    }
    ~LayoutsHeld()
    {
        for (QLayout *layout : qAsConst(m_held))
            layout->setEnabled(true);
    }

private:
    Q_DISABLE_COPY(LayoutsHeld)
    QVector<QLayout *> m_held;
};

} // namespace

RowSlot *DrawerControl::newSlot(SecondItem *pItem)
{
    auto *pSlot = new RowSlot(pItem, m_pRowMetrics);
    pSlot->setPlacedHandler([this] { noteRowsMoved(); });
    return pSlot;
}

void DrawerControl::layOutRow(SecondItem *pItem)
{
    if (!m_bRowSlots) {
        m_pChildLayout->addWidget(pItem);
        return;
    }
    RowSlot *pSlot = newSlot(pItem);
    m_lstSlots.append(pSlot);
    m_pChildLayout->addItem(pSlot);
    RowSlot::showLater(pItem);
}

SecondItem *DrawerControl::realiseRow(int index)
{
    buildRows();
    if (index < 0 || index >= m_lstSecondItem.size())
        return nullptr;
    if (SecondItem *pItem = m_lstSecondItem.at(index))
        return pItem;
    RowSlot *pSlot = m_lstSlots.at(index);
    pSlot->applyRestyle();
    const QuietAccessibility quiet;
    const ChildRowState &state = *pSlot->parked();
    auto *pItem = new SecondItem(m_pContainer);
    pItem->initItem(state.rootIndex, state.childIndex);
    pItem->restoreState(state);
    pSlot->unpark(pItem);
    m_lstSecondItem[index] = pItem;
    connectRow(pItem);
    // Where the row was, shown as it was: it had been shown with its
    // container, so it shows again whenever the container does.
    pItem->placeRestored(pSlot->geometry());
    pItem->setAttribute(Qt::WA_LaidOut);
    const LayoutsHeld held(m_pContainer);
    pItem->setVisible(true);
    return pItem;
}

bool DrawerControl::parkable(int index) const
{
    const SecondItem *pItem = m_lstSecondItem.at(index);
    const RowSlot *pSlot = m_lstSlots.at(index);
    if (!pItem || !pSlot->laidOut())
        return false;
    // Only a row that is all it will be: shown (with its container), polished
    // and resized to its place, with no event of its own still to come.
    if (pItem->isHidden() || !pItem->testAttribute(Qt::WA_WState_Polished)
        || pItem->testAttribute(Qt::WA_PendingResizeEvent) || pItem->testAttribute(Qt::WA_PendingMoveEvent))
        return false;
    // Never under a running handler, the pointer, a press or a drag: Qt
    // still knows the widget there.
    return !HandlerGuard::isBusy(pItem) && !pItem->underMouse() && !m_pDrag;
}

void DrawerControl::parkRow(int index)
{
    const QuietAccessibility quiet;
    SecondItem *pItem = m_lstSecondItem.at(index);
    m_lstSlots.at(index)->park(std::make_unique<ChildRowState>(pItem->state()), pItem->size());
    m_lstSecondItem[index] = nullptr;
    disconnect(pItem, nullptr, this, nullptr);
    delete pItem;
}

void DrawerControl::placeRows(const QRect &realise, const QRect &keep, bool shown, bool park)
{
    if (!m_bRowSlots || m_pPending)
        return;
    park = park && QGuiApplication::mouseButtons() == Qt::NoButton;
    // A new style has reached everything by now: parked rows fit to it.
    if (m_bRestylePending) {
        m_bRestylePending = false;
        bool restyled = false;
        for (RowSlot *pSlot : qAsConst(m_lstSlots))
            restyled = pSlot->applyRestyle() || restyled;
        if (restyled)
            m_pChildLayout->invalidate();
    }
    for (int i = 0; i < m_lstSecondItem.size(); ++i) {
        const RowSlot *pSlot = m_lstSlots.at(i);
        if (!pSlot->laidOut())
            continue;
        const QRect place = pSlot->geometry();
        if (shown && place.intersects(realise) && !m_lstSecondItem.at(i))
            realiseRow(i);
        else if ((!shown || !place.intersects(keep)) && park && parkable(i))
            parkRow(i);
    }
}

QRect DrawerControl::rowGeometry(int index) const
{
    if (index < 0 || index >= m_lstSecondItem.size())
        return QRect();
    if (const SecondItem *pItem = m_lstSecondItem.at(index))
        return pItem->geometry();
    return m_lstSlots.at(index)->geometry();
}

bool DrawerControl::setParkedRowFocus(int index, bool focused)
{
    RowSlot *pSlot = m_bRowSlots && index >= 0 && index < m_lstSlots.size() ? m_lstSlots.at(index) : nullptr;
    ChildRowState *state = pSlot ? pSlot->parked() : nullptr;
    if (!state || !m_pRowMetrics)
        return false;
    // As the property: set to what it is, it changes nothing.
    if (state->history.focusLook() == focused)
        return true;
    const LookHistory::Event change = focused ? LookHistory::FocusOn : LookHistory::FocusOff;
    // A window that is hidden, or going away (focus leaves it as it goes),
    // is no place to measure or make widgets in: the look is only noted.
    if (window()->isHidden()) {
        state->history.add(change);
        return true;
    }
    // A look whose size bounds leave out the row's size resizes the widget
    // at once, which fits its lines by fonts half way through the change:
    // only a widget knows them.
    const SlotMetrics before = m_pRowMetrics->child(RowMetrics::lookOf(*state));
    ChildRowState after = *state;
    after.history.add(change);
    const SlotMetrics now = m_pRowMetrics->child(RowMetrics::lookOf(after));
    const QSize size = pSlot->parkedSize();
    if (size.expandedTo(now.widgetMinimum).boundedTo(now.widgetMaximum) != size)
        return false;
    state->history = after.history;
    if (before.hint != now.hint || before.minimum != now.minimum || before.maximum != now.maximum)
        m_pChildLayout->invalidate();
    return true;
}

void DrawerControl::restyleParkedRows()
{
    for (RowSlot *pSlot : qAsConst(m_lstSlots))
        pSlot->restyle();
    m_bRestylePending = true;
}

const ChildRowState *DrawerControl::parkedRow(int index) const
{
    if (!m_bRowSlots || index < 0 || index >= m_lstSlots.size())
        return nullptr;
    return m_lstSlots.at(index)->parked();
}

int DrawerControl::realisedRows() const
{
    return int(m_lstSecondItem.size() - m_lstSecondItem.count(nullptr));
}

void DrawerControl::setRowsMovedHandler(std::function<void(bool)> handler)
{
    m_rowsMoved = std::move(handler);
}

void DrawerControl::noteRowsMoved(bool now)
{
    if (m_rowsMoved)
        m_rowsMoved(now);
}

bool DrawerControl::rowsMayPark() const
{
    return m_bRowSlots && m_pRowMetrics && RowRealiser::parking();
}

bool DrawerControl::adoptParkedRow(const PendingRows::Row &row)
{
    auto state = std::make_unique<ChildRowState>();
    QSize size;
    if (!RowReplay::shownState(*m_pRowMetrics, row, devicePixelRatioF(), *state, size))
        return false;
    RowSlot *pSlot = newSlot(nullptr);
    pSlot->park(std::move(state), size);
    m_lstSlots.append(pSlot);
    m_pChildLayout->addItem(pSlot);
    m_lstSecondItem.append(nullptr);
    return true;
}
