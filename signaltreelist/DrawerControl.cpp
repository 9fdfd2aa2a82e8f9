// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "DrawerControl.h"

#include "HandlerGuard.h"
#include "LayoutInstall.h"
#include "PendingRows.h"
#include "QtCompat.h"
#include "RootItem.h"
#include "RowReplay.h"
#include "RowMetrics.h"
#include "RowSlot.h"
#include "SecondItem.h"
#include "StyleConstants.h"

#include <QDebug>
#include <QDrag>
#include <QFrame>
#include <QMouseEvent>
#include <QSet>
#include <QVBoxLayout>

bool DrawerControl::s_bDeferRows = true;

namespace {

// Keys of rows: never reused, so a key names one row for good.
quint64 nextRowKey()
{
    static quint64 next = 0;
    return ++next;
}

} // namespace

DrawerControl::DrawerControl(QWidget *parent)
    : CLanguageTranslateFrame(parent)
    , m_pRootItem(nullptr)
    , m_bIsLockSel(false)
    , m_bIsRootSel(true)
    , m_bIsRootAsChild(false)
    , m_bSpareFlag(false)
    , m_ptDragStart(0, 0)
    , m_iRootIndex(-1)
    , m_iCurSecondIndex(-1)
    , m_bIsDrag(false)
    , m_bIsShowChild(false)
    , m_pMainLayout(nullptr)
    , m_pChildLayout(nullptr)
    , m_pContainer(nullptr)
    , m_pDrag(nullptr)
    , m_pPending(s_bDeferRows ? std::make_unique<PendingRows>() : nullptr)
    , m_quRootKey(nextRowKey())
    , m_bRowSlots(false)
{
    setIsDrag(false);
}

DrawerControl::~DrawerControl()
{
    if (!m_bPrototype)
        qDebug() << "[Tarn]::DrawerControl::~DrawerControl()";
    // The toolkit owns the drag object once it has run; never delete it here.
    // If it is still our child it dies with us: its destroyed() must not
    // call back into a drawer that is already gone.
    if (m_pDrag)
        disconnect(m_pDrag, nullptr, this, nullptr);
    m_pDrag = nullptr;
}

void DrawerControl::initRootItem(int itemType, int rootIndex)
{
    m_iRootIndex = rootIndex;

    m_pMainLayout = installLayout(this, new QVBoxLayout());
    QtCompat::setMargin(m_pMainLayout, 0);
    m_pMainLayout->setSpacing(0);
    m_pMainLayout->setContentsMargins(10, 0, 10, 0);

    m_pRootItem = new RootItem(this);
    m_pRootItem->initItem(itemType, rootIndex);

    m_pContainer = new QFrame(this);
    m_pContainer->setObjectName(QStringLiteral("DrawerContainer"));
    m_pContainer->setAcceptDrops(true);

    m_pChildLayout = installLayout(m_pContainer, new QVBoxLayout());
    QtCompat::setMargin(m_pChildLayout, 0);
    m_pChildLayout->setSpacing(8);
    m_pChildLayout->setContentsMargins(24, 0, 0, 0);

    m_pMainLayout->addWidget(m_pRootItem);
    m_pMainLayout->addWidget(m_pContainer);

    connect(m_pRootItem, SIGNAL(signal_OnIsShowChildItems(bool)), this,
            SLOT(slot_OnIsShowChildItems(bool)));
    connect(m_pRootItem, SIGNAL(signal_OnSelectRootItem()), this, SLOT(slot_OnRootItemClicked()));
    connect(m_pRootItem, &RootItem::signal_OnEditBtnClicked, this,
            &DrawerControl::slot_OnEditBtnClicked);
    connect(m_pRootItem, &RootItem::signal_OnDeleteBtnClicked, this,
            &DrawerControl::slot_OnDeleteBtnClicked);
}

void DrawerControl::addSecondItems(QList<st_NodeInfoSignal> nodes)
{
    if (!m_pRootItem)
        return;

    const int n = m_lstSecondNodeInfo.size();
    m_lstSecondNodeInfo.append(nodes);
    for (int i = 0; i < nodes.size(); ++i)
        m_lstRowKeys.append(nextRowKey());
    const int rootIndex = m_pRootItem->getIndexText().toInt(nullptr, 10);
    const st_NodeInfoSignal rootNode = m_pRootItem->getNodeInfo();
    // A drawer that was never expanded ends this call collapsed: its rows
    // wait for the first expansion.
    if (m_pPending) {
        m_pPending->addBatch(nodes, n, rootIndex, rootNode, m_bIsLockSel);
        notePolishOfNewRows();
        buildRowsIfDue();
    } else {
        createBatch(nodes, n, rootIndex, rootNode, m_bIsLockSel);
    }
    slot_OnIsShowChildItems(m_bIsShowChild);
}

void DrawerControl::createBatch(const QList<st_NodeInfoSignal> &nodes, int n, int rootIndex,
                                const st_NodeInfoSignal &rootNode, bool locked)
{
    for (int i = 0; i < nodes.size(); ++i) {
        const st_NodeInfoSignal &node = nodes.at(i);
        SecondItem *pItem = new SecondItem(m_pContainer);
        pItem->initItem(rootIndex, n);
        pItem->setNodeInfo(node);
        if (rootNode.iType == 1)
            pItem->setTipShow(true);
        // Rows of a group show the group's name; rows of a plain source show
        // their own source name (modifySecondItemData mirrors this rule).
        if (rootNode.iType == 1)
            pItem->setToolTip(rootNode.strNodeName.value(0));
        else if (rootNode.iType == 0)
            pItem->setToolTip(node.strSourceName);
        m_lstSecondItem.append(pItem);
        if (m_bRowSlots)
            m_lstSlots.append(newSlot(pItem));
        connectRow(pItem);
        pItem->setPressed(i == 0);
        ++n;
    }

    // Only ceil(count/2) items go: the count is re-read on every pass. The
    // spacers left behind accumulate one 8-pixel gap per call, which hosts
    // see and rely on. Re-added rows leave their old place on their own.
    // Taking the last item and invalidating is what removeItem() does for
    // it, without removeItem()'s walk over every item of the layout.
    const int laidOut = m_pChildLayout->count();
    m_iSpacings = qMin(m_iSpacings, laidOut / 2) + 1;
    QSet<QWidget *> taken;
    for (int i = 0; i < m_pChildLayout->count(); ++i) {
        QLayoutItem *pLast = m_pChildLayout->takeAt(m_pChildLayout->count() - 1);
        m_pChildLayout->invalidate();
        if (QWidget *pWidget = pLast->widget())
            taken.insert(pWidget);
        if (!dynamic_cast<RowSlot *>(pLast))
            delete pLast; // the item only, never its widget; slots are kept
    }
    if (m_bRowSlots) {
        // Rows still in the layout go to the end when re-added, as widgets
        // re-added to a layout leave their old place.
        for (int i = m_pChildLayout->count() - 1; i >= 0; --i) {
            if (dynamic_cast<RowSlot *>(m_pChildLayout->itemAt(i)))
                m_pChildLayout->takeAt(i);
        }
    }
    m_pChildLayout->addSpacing(8);
    for (int i = 0; i < m_lstSecondItem.size(); ++i) {
        SecondItem *pItem = m_lstSecondItem.at(i);
        if (m_bRowSlots) {
            m_pChildLayout->addItem(m_lstSlots.at(i));
            if (pItem)
                RowSlot::showLater(pItem);
            continue;
        }
        // A row taken out above is in no layout. Qt searches the whole
        // layout for the old place of every widget flagged as laid out, and
        // addWidget() flags it again: clearing the flag spares that search.
        if (taken.contains(pItem))
            pItem->setAttribute(Qt::WA_LaidOut, false);
        m_pChildLayout->addWidget(pItem);
    }

    if (!locked)
        pressRow(m_lstSecondItem.size() - 1);
}

void DrawerControl::addSecondItem(st_NodeInfoSignal node, int rootIndex, int childIndex)
{
    if (!m_pContainer)
        return;

    m_lstRowKeys.append(nextRowKey());
    // Rows wait only while nobody can see them.
    if (m_pPending && m_pContainer->isHidden()) {
        m_pPending->addSingle(node, rootIndex, childIndex, m_bIsLockSel);
        notePolishOfNewRows();
        buildRowsIfDue();
    } else {
        buildRows();
        createSingle(node, rootIndex, childIndex, m_bIsLockSel);
    }
    m_iCurSecondIndex = rowCount() - 1;
}

void DrawerControl::createSingle(const st_NodeInfoSignal &node, int rootIndex, int childIndex, bool locked)
{
    SecondItem *pItem = new SecondItem(m_pContainer);
    pItem->initItem(rootIndex, childIndex);
    pItem->setNodeInfo(node);
    adoptRow(pItem);
    if (!locked)
        pressRow(m_lstSecondItem.size() - 1);
}

void DrawerControl::buildRows()
{
    buildRowsAs(false);
}

void DrawerControl::buildRowsAs(bool parked)
{
    if (!m_pPending)
        return;
    // From here on the rows are built: the helpers below act on them.
    const std::unique_ptr<PendingRows> pending = std::move(m_pPending);
    // The layout the calls would have left: their spacings, then every row.
    m_iSpacings = pending->spacings();
    for (int i = 0; i < pending->spacings(); ++i)
        m_pChildLayout->addSpacing(8);
    for (const PendingRows::Row &row : pending->rows()) {
        if (parked && adoptParkedRow(row))
            continue;
        SecondItem *pItem = new SecondItem(m_pContainer);
        pItem->initItem(row.rootIndex, row.childIndex);
        RowReplay::replay(pItem, row);
        adoptRow(pItem);
    }
}

void DrawerControl::adoptRow(SecondItem *pItem)
{
    layOutRow(pItem);
    m_lstSecondItem.append(pItem);
    connectRow(pItem);
}

void DrawerControl::connectRow(SecondItem *pItem)
{
    connect(pItem, &SecondItem::signal_OnItemClicked, this, &DrawerControl::slot_OnSecondItemClicked);
    connectSecondItemButtons(pItem);
}

void DrawerControl::buildRowsIfDue()
{
    // A host that keeps renaming rows of a closed group between selections
    // outgrows what the rows keep without widgets.
    if (m_pPending && m_pPending->wantsWidgets())
        buildRows();
}

bool DrawerControl::rowsDeferred() const
{
    return m_pPending != nullptr;
}

void DrawerControl::setDeferRows(bool defer)
{
    s_bDeferRows = defer;
}

int DrawerControl::rowCount() const
{
    return m_pPending ? m_pPending->rowCount() : m_lstSecondItem.size();
}

void DrawerControl::connectSecondItemButtons(SecondItem *pItem)
{
    connect(pItem, &SecondItem::signal_OnCaptureBtnClicked, this,
            &DrawerControl::slot_OnSecondItemCaptureBtnClicked);
    connect(pItem, &SecondItem::signal_OnEditBtnClicked, this, &DrawerControl::slot_OnEditBtnClicked);
    connect(pItem, &SecondItem::signal_OnDeleteBtnClicked, this,
            &DrawerControl::slot_OnDeleteBtnClicked);
}

void DrawerControl::deleteSecondItem(int childIndex)
{
    if (childIndex < 0 || childIndex >= rowCount())
        return;
    m_lstRowKeys.remove(childIndex);
    if (m_pPending) {
        m_pPending->remove(childIndex);
        return;
    }
    SecondItem *pItem = m_lstSecondItem.takeAt(childIndex);
    RowSlot *pSlot = m_bRowSlots ? m_lstSlots.takeAt(childIndex) : nullptr;
    if (!pItem) {
        // Parked: no widget leaves, so the layout is told as it would be.
        m_pChildLayout->removeItem(pSlot);
        delete pSlot;
        return;
    }
    // A row removed from inside its own handler leaves the screen now and
    // is freed when that handler returns; its slot goes with it.
    if (!HandlerGuard::deferDeletion(pItem))
        delete pItem;
}

st_NodeInfoSignal DrawerControl::getRootNodeInfo()
{
    return m_pRootItem ? m_pRootItem->getNodeInfo() : st_NodeInfoSignal();
}

QList<st_NodeInfoSignal> DrawerControl::getSecondNodeInfos()
{
    return m_lstSecondNodeInfo;
}

int DrawerControl::getSecondNodeInfo(int childIndex, st_NodeInfoSignal &out)
{
    if (childIndex < 0 || childIndex >= rowCount())
        return 0;
    out = rowRecord(childIndex);
    return 1;
}

void DrawerControl::modifyRootItemData(const st_NodeInfoSignal &node)
{
    if (m_pRootItem)
        m_pRootItem->setNodeInfo(node);
}

void DrawerControl::modifySecondItemData(int childIndex, const st_NodeInfoSignal &node)
{
    if (childIndex < 0 || childIndex >= rowCount())
        return;
    if (m_pPending) {
        m_pPending->modify(childIndex, node, getRootNodeInfo());
        buildRowsIfDue();
    } else {
        applyRecord(childIndex, node, getRootNodeInfo());
    }
}

void DrawerControl::applyRecord(int childIndex, const st_NodeInfoSignal &node, const st_NodeInfoSignal &rootNode)
{
    SecondItem *pItem = realiseRow(childIndex);
    if (!pItem)
        return;
    pItem->setNodeInfo(node);
    // The mirror image of the rule in addSecondItems, on purpose.
    if (rootNode.iType == 0)
        pItem->setTipShow(true);
    else
        pItem->setToolTip(node.strSourceName);
}

void DrawerControl::setCurSelSecondItem(int childIndex)
{
    // Unlike markSelSecondItem, whatever the lock says.
    showSelectedLook(childIndex);
    m_iCurSecondIndex = childIndex;
    m_lstSelIndex = QList<int>() << m_iRootIndex << childIndex;
    reportSelection(&DrawerControl::signal_OnCurrentItemClicked);
}

void DrawerControl::setRootItemSelected(bool bIsSelected)
{
    if (m_pRootItem)
        m_pRootItem->setSelected(bIsSelected);
}

void DrawerControl::setRootItemState(int state)
{
    if (m_pRootItem)
        m_pRootItem->setItemType(state);
}

void DrawerControl::setRootItemText(QString text)
{
    if (m_pRootItem)
        m_pRootItem->setUpperText(text);
}

void DrawerControl::setRootItemName(QString name)
{
    if (m_pRootItem)
        m_pRootItem->setDownText(name);
}

void DrawerControl::setIsDrag(bool bIsDrag)
{
    m_bIsDrag = bIsDrag;
    setAcceptDrops(bIsDrag);
}

void DrawerControl::setIsShowChildItem(bool bIsShow)
{
    if (m_pRootItem)
        m_pRootItem->setExpand(bIsShow);
}

void DrawerControl::setRootIndex(int index)
{
    m_iRootIndex = index;
    if (m_pRootItem)
        m_pRootItem->setItemIndex(index);
    if (m_pPending)
        m_pPending->renumber();
    else
        renumberRows();
}

void DrawerControl::renumberRows()
{
    for (int i = 0; i < m_lstSecondItem.size(); ++i) {
        if (SecondItem *pItem = m_lstSecondItem.at(i))
            pItem->setChildIndex(i);
        else
            m_lstSlots.at(i)->parked()->childIndex = i;
    }
}

void DrawerControl::releaseSelf()
{
    qDebug() << "[Tarn]::DrawerControl::releaseSelf";
    if (!m_pDrag) {
        // Released from inside a handler of this drawer or of one of its
        // rows (a host slot, maybe in a nested event loop): off the screen
        // now, freed once that handler has returned.
        if (!HandlerGuard::deferDeletion(this))
            deleteLater();
        qDebug() << "[Tarn]::DrawerControl::releaseSelf delete";
    } else {
        // Our own drag is still running inside mouseMoveEvent: dying now
        // would pull the stack from under it. slot_releaseDrag finishes.
        setParent(nullptr);
    }
}

bool DrawerControl::getIsRootAsChild() const
{
    return m_bIsRootAsChild;
}

bool DrawerControl::getIsRootSel() const
{
    return m_bIsRootSel;
}

bool DrawerControl::getIsNotRootSel() const
{
    return !m_bIsRootSel;
}

bool DrawerControl::getSpareFlag() const
{
    return m_bSpareFlag;
}

void DrawerControl::setIsLockSel(bool bIsLockSel)
{
    m_bIsLockSel = bIsLockSel;
}

void DrawerControl::reTranslateUI()
{
    if (m_pRootItem)
        m_pRootItem->reTranslateUI();
    for (SecondItem *pItem : qAsConst(m_lstSecondItem)) {
        if (pItem)
            pItem->reTranslateUI();
    }
}

void DrawerControl::markSelSecondItem(int index)
{
    if (m_bIsLockSel || rowCount() == 0)
        return;
    showSelectedLook(index);
}

void DrawerControl::showSelectedLook(int index)
{
    if (m_pPending) {
        m_pPending->press(index);
        buildRowsIfDue();
    } else {
        pressRow(index);
    }
}

void DrawerControl::pressRow(int index)
{
    for (int i = 0; i < m_lstSecondItem.size(); ++i) {
        // A parked row that already looks so stays parked.
        const ChildRowState *parked = m_lstSecondItem.at(i) ? nullptr : m_lstSlots.at(i)->parked();
        if (parked && SecondItem::pressKeeps(*parked, i == index))
            continue;
        if (SecondItem *pItem = realiseRow(i))
            pItem->setPressed(i == index);
    }
}

quint64 DrawerControl::rowKey(int index) const
{
    return m_lstRowKeys.value(index, 0);
}

quint64 DrawerControl::rootKey() const
{
    return m_quRootKey;
}

int DrawerControl::rowIndexOfKey(quint64 key) const
{
    return key == 0 ? -1 : m_lstRowKeys.indexOf(key);
}

st_NodeInfoSignal DrawerControl::rowRecord(int index) const
{
    if (index < 0 || index >= rowCount())
        return st_NodeInfoSignal();
    if (m_pPending)
        return m_pPending->record(index);
    if (const SecondItem *pItem = m_lstSecondItem.at(index))
        return pItem->getNodeInfo();
    return m_lstSlots.at(index)->parked()->record;
}

bool DrawerControl::rowLooksSelected(int index) const
{
    if (index < 0 || index >= rowCount())
        return false;
    if (m_pPending)
        return m_pPending->rows().at(index).pressed;
    if (const SecondItem *pItem = m_lstSecondItem.at(index))
        return pItem->property("isSecondItem").toString() == QLatin1String("press");
    return m_lstSlots.at(index)->parked()->look == QLatin1String("press");
}

bool DrawerControl::rowOffersButton(int index, bool edit) const
{
    if (index < 0) {
        if (!m_pRootItem)
            return false;
        return edit ? m_pRootItem->showsEditButton() : m_pRootItem->showsDeleteButton();
    }
    if (index >= rowCount())
        return false;
    if (const SecondItem *pItem = m_pPending ? nullptr : m_lstSecondItem.at(index))
        return edit ? pItem->showsEditButton() : pItem->showsDeleteButton();
    // Waiting for the first expansion, or parked.
    const ButtonFlags &flags =
        m_pPending ? m_pPending->rows().at(index).buttons : m_lstSlots.at(index)->parked()->buttons;
    return edit ? flags.edit : flags.remove;
}

SecondItem *DrawerControl::builtRow(int index) const
{
    return m_pPending ? nullptr : m_lstSecondItem.value(index);
}

int DrawerControl::childSpacings() const
{
    return m_pPending ? m_pPending->spacings() : m_iSpacings;
}

void DrawerControl::setRowMetrics(RowMetrics *metrics)
{
    // Decided before any row exists: only drawers that wait for their
    // first expansion (the list as shipped) lay their rows out by slots.
    m_pRowMetrics = metrics;
    m_bRowSlots = metrics && m_pPending && m_pPending->rowCount() == 0 && m_lstSecondItem.isEmpty();
}

void DrawerControl::setPrototype()
{
    m_bPrototype = true;
}

bool DrawerControl::isPrototype() const
{
    return m_bPrototype;
}

bool DrawerControl::showsChildren() const
{
    return m_pContainer && !m_pContainer->isHidden() && m_bIsShowChild;
}

RootItem *DrawerControl::rootItem() const
{
    return m_pRootItem;
}

QList<SecondItem *> DrawerControl::secondItems() const
{
    return m_lstSecondItem;
}

QFrame *DrawerControl::childContainer() const
{
    return m_pContainer;
}

QVBoxLayout *DrawerControl::childLayout() const
{
    return m_pChildLayout;
}

QList<int> DrawerControl::selIndex() const
{
    return m_lstSelIndex;
}

st_NodeInfoSignal DrawerControl::selNodeInfo() const
{
    return m_stSelNodeInfo;
}

int DrawerControl::rootIndex() const
{
    return m_iRootIndex;
}

int DrawerControl::curSecondIndex() const
{
    return m_iCurSecondIndex;
}

bool DrawerControl::isShowChild() const
{
    return m_bIsShowChild;
}

bool DrawerControl::isDragging() const
{
    return m_pDrag != nullptr;
}

void DrawerControl::slot_OnRootItemClicked()
{
    m_bIsRootSel = true;
    m_stSelNodeInfo = getRootNodeInfo();
    m_lstSelIndex = QList<int>() << m_iRootIndex;
}

void DrawerControl::slot_OnSecondItemClicked()
{
    SecondItem *pSender = qobject_cast<SecondItem *>(sender());
    const int index = pSender ? m_lstSecondItem.indexOf(pSender) : -1;
    if (index >= 0) {
        m_bIsRootSel = false;
        markSelSecondItem(index);
        m_iCurSecondIndex = index;
        m_stSelNodeInfo = pSender->getNodeInfo();
    }
    m_lstSelIndex = QList<int>() << m_iRootIndex << m_iCurSecondIndex;
    reportSelection(&DrawerControl::signal_OnCurrentItemClicked);
}

void DrawerControl::slot_OnSecondItemCaptureBtnClicked()
{
    reportSelection(&DrawerControl::signal_OnCaptureBtnClicked);
}

void DrawerControl::slot_OnIsShowChildItems(bool bIsShow)
{
    // Rows that will be parked once out of sight are built parked, as the
    // state their widgets would have once shown: those of a drawer Qt has
    // yet to polish when Qt polishes it (their widgets would be polished
    // with it), the others now if the drawer is on screen (the rows in view
    // are made right after).
    const bool mayPark = bIsShow && m_pPending && rowsMayPark();
    const bool parkNow = mayPark && testAttribute(Qt::WA_WState_Polished) && isVisible();
    if (bIsShow && (!mayPark || testAttribute(Qt::WA_WState_Polished)))
        buildRowsAs(parkNow);
    m_bIsShowChild = bIsShow;
    if (m_pContainer) {
        // Showing or hiding the rows lays out every layout above at once;
        // the column of drawers, as long as the list, waits for its own
        // turn (opening every group would lay it out once per group).
        QLayout *column = parentWidget() ? parentWidget()->layout() : nullptr;
        const bool hold = column && column->isEnabled();
        if (hold)
            column->setEnabled(false);
        m_pContainer->setVisible(bIsShow);
        if (hold)
            column->setEnabled(true);
    }
    noteRowsMoved(parkNow);
}

void DrawerControl::slot_OnEditBtnClicked()
{
    reportSelection(&DrawerControl::signal_OnEditBtnClicked);
}

void DrawerControl::slot_OnDeleteBtnClicked()
{
    reportSelection(&DrawerControl::signal_OnDeleteBtnClicked);
}

void DrawerControl::reportSelection(void (DrawerControl::*signal)(QList<int>))
{
    // Every path that reaches the host leaves through here. The host may
    // release this drawer from its slot; the guard keeps the drawer, and the
    // root row button whose click led here, alive until the slot returns.
    const HandlerGuard guard(this);
    emit(this->*signal)(m_lstSelIndex);
}

void DrawerControl::notePolishOfNewRows()
{
    // Rows added to a drawer Qt has polished are polished in the event loop's
    // next turn, when the container's layout asks them for their sizes: the
    // calls made after that fit their texts with the style sheet's fonts.
    if (!testAttribute(Qt::WA_WState_Polished))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_pPending)
                m_pPending->polish();
        },
        Qt::QueuedConnection);
}

bool DrawerControl::event(QEvent *event)
{
    // Qt polishes the rows with the drawer, the first time it is shown: the
    // rows waiting to be built note when, to be polished at that point.
    if (event->type() == QEvent::Polish && m_pPending) {
        m_pPending->polish();
        if (m_bIsShowChild && rowsMayPark())
            buildRowsAs(true);
    }
    return CLanguageTranslateFrame::event(event);
}

void DrawerControl::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_ptDragStart = event->pos();
    CLanguageTranslateFrame::mousePressEvent(event);
}

void DrawerControl::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (m_pRootItem)
        m_pRootItem->setExpand(!m_bIsShowChild);
    CLanguageTranslateFrame::mouseDoubleClickEvent(event);
}
