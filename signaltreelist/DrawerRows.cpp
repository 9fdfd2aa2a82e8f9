// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// DrawerControl, continued: child rows that are widgets only while they may
// be seen. A row laid out by a slot can be parked there as its state and
// made again, the same, when it comes near the screen or an operation
// needs the widget.

#include "DrawerControl.h"

#include "HandlerGuard.h"
#include "RowMetrics.h"
#include "RowSlot.h"
#include "SecondItem.h"

#include <QFrame>
#include <QGuiApplication>
#include <QVBoxLayout>

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
    SecondItem *pItem = m_lstSecondItem.at(index);
    m_lstSlots.at(index)->park(std::make_unique<ChildRowState>(pItem->state()), pItem->size());
    m_lstSecondItem[index] = nullptr;
    disconnect(pItem, nullptr, this, nullptr);
    delete pItem;
}

void DrawerControl::placeRows(const QRect &band, bool shown, bool park)
{
    if (!m_bRowSlots || m_pPending)
        return;
    park = park && QGuiApplication::mouseButtons() == Qt::NoButton;
    for (int i = 0; i < m_lstSecondItem.size(); ++i) {
        const RowSlot *pSlot = m_lstSlots.at(i);
        if (!pSlot->laidOut())
            continue;
        const bool near = shown && pSlot->geometry().intersects(band);
        if (near && !m_lstSecondItem.at(i))
            realiseRow(i);
        else if (!near && park && parkable(i))
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
    ChildRowState *state = m_bRowSlots && index >= 0 && index < m_lstSlots.size() ? m_lstSlots.at(index)->parked() : nullptr;
    if (!state || !m_pRowMetrics)
        return false;
    // As the property: set to what it is, it changes nothing.
    if (state->history.focusLook() == focused)
        return true;
    // A look with other size bounds resizes the widget at once, which fits
    // its lines by fonts half way through the change: only a widget knows.
    const SlotMetrics before = m_pRowMetrics->child(RowMetrics::lookOf(*state));
    ChildRowState after = *state;
    after.history.add(focused ? LookHistory::FocusOn : LookHistory::FocusOff);
    const SlotMetrics now = m_pRowMetrics->child(RowMetrics::lookOf(after));
    if (before.widgetMinimum != now.widgetMinimum || before.widgetMaximum != now.widgetMaximum)
        return false;
    state->history = after.history;
    if (before.hint != now.hint || before.minimum != now.minimum || before.maximum != now.maximum)
        m_pChildLayout->invalidate();
    return true;
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

void DrawerControl::setRowsMovedHandler(std::function<void()> handler)
{
    m_rowsMoved = std::move(handler);
}

void DrawerControl::noteRowsMoved()
{
    if (m_rowsMoved)
        m_rowsMoved();
}
