// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "TreeListFrame.h"

#include "DrawerControl.h"
#include "HandlerGuard.h"
#include "QtCompat.h"
#include "RowMetrics.h"
#include "RowRealiser.h"
#include "StyleConstants.h"
#include "TreeListObserver.h"

#include <ScrollBarEx.h>

#include <QDebug>
#include <QHBoxLayout>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QVBoxLayout>

#include <algorithm>

bool TreeListFrame::s_bRebuildEveryTime = false;

void TreeListFrame::setRebuildEveryTime(bool every)
{
    s_bRebuildEveryTime = every;
}

TreeListFrame::TreeListFrame(QWidget *parent)
    : CLanguageTranslateFrame(parent)
    , m_pDrawerContainer(nullptr)
    , m_pContainerLayout(nullptr)
    , m_pMainLayout(nullptr)
    , m_pScrollArea(nullptr)
    , m_bIsDrag(false)
{
    setObjectName(QStringLiteral("TreeListFrame"));
}

TreeListFrame::~TreeListFrame()
{
    qDebug() << "[Tarn]::TreeListFrame::~TreeListFrame()";
    // It asks this frame for its drawers: gone before the frame's members.
    delete m_pRealiser.data();
    clearTree();
    qDebug() << "[Tarn]::TreeListFrame::~TreeListFrame() end";
}

void TreeListFrame::initControls()
{
    m_pMainLayout = new QHBoxLayout(this);
    QtCompat::setMargin(m_pMainLayout, 0);
    m_pMainLayout->setSpacing(16);
    m_pMainLayout->setContentsMargins(0, 0, 0, 0);

    m_pDrawerContainer = new CLanguageTranslateFrame(this);
    m_pDrawerContainer->setObjectName(QStringLiteral("DrawerContainer"));

    m_pContainerLayout = new QVBoxLayout(m_pDrawerContainer);
    QtCompat::setMargin(m_pContainerLayout, 0);
    m_pContainerLayout->setSpacing(16);
    m_pContainerLayout->setContentsMargins(0, 0, 0, 0);

    m_pScrollArea = new QScrollArea();
    // The bars keep their look after the temporaries are gone.
    ScrollBarEx(m_pScrollArea->verticalScrollBar(), true).setTreeVerticalStyle();
    ScrollBarEx(m_pScrollArea->horizontalScrollBar(), true).setTreeHorizontalStyle();
    m_pScrollArea->setContentsMargins(10, 0, 0, 0);
    m_pScrollArea->setWidgetResizable(true);
    m_pScrollArea->setWidget(m_pDrawerContainer);
    m_pMainLayout->addWidget(m_pScrollArea);
    m_pRowMetrics.reset(new RowMetrics(m_pDrawerContainer));
    m_pRealiser = new RowRealiser(m_pScrollArea, [this] { return m_lstDrawers; });
}

void TreeListFrame::createDrawerControl(st_NodeInfoSignal rootNode,
                                        QList<st_NodeInfoSignal> childNodes, int position)
{
    if (!m_pContainerLayout)
        return;

    DrawerControl *pDrawer = new DrawerControl(m_pDrawerContainer);
    pDrawer->setRowMetrics(m_pRowMetrics.get());
    pDrawer->setRowsMovedHandler([realiser = m_pRealiser, pDrawer](bool now) {
        if (!realiser)
            return;
        // Only this drawer's rows just came on screen.
        if (now)
            realiser->pass(RowRealiser::Scrolled, pDrawer);
        realiser->schedule();
    });
    pDrawer->initRootItem(rootNode.iType == 0 ? 1 : 0, position);
    pDrawer->setIsDrag(m_bIsDrag);
    pDrawer->modifyRootItemData(rootNode);
    if (!childNodes.isEmpty())
        pDrawer->addSecondItems(childNodes);
    else
        pDrawer->setRootItemState(1);
    m_lstDrawers.insert(qBound(0, position, m_lstDrawers.size()), pDrawer);

    connect(pDrawer, &DrawerControl::signal_OnCurrentItemClicked, this,
            &TreeListFrame::signal_OnCurrentItemClicked);
    connect(pDrawer, &DrawerControl::signal_OnItemsIsDraged, this,
            &TreeListFrame::slot_OnItemsIsDraged);
    // Queued: the grouping must run after the drop handler has returned.
    connect(pDrawer, &DrawerControl::signal_OnCompleteDraged, this,
            &TreeListFrame::slot_OnCompleteDraged, Qt::QueuedConnection);
    connect(pDrawer, &DrawerControl::signal_OnCaptureBtnClicked, this,
            &TreeListFrame::signal_OnCaptureBtnClicked);
    connect(pDrawer, &DrawerControl::signal_OnEditBtnClicked, this,
            &TreeListFrame::signal_OnEditBtnClicked);
    connect(pDrawer, &DrawerControl::signal_OnDeleteBtnClicked, this,
            &TreeListFrame::signal_OnDeleteBtnClicked);

    if (s_bRebuildEveryTime || !insertIntoOrderedLayout(pDrawer))
        rebuildContainerLayout();
    noteRowsChanged();
}

bool TreeListFrame::insertIntoOrderedLayout(DrawerControl *pDrawer)
{
    // The rebuild below leaves released drawers that are still alive first
    // (those it found among the first half of the items), then the drawers
    // in list order, then one stretch. While the layout is still of that
    // shape, rebuilding after one more drawer gives the same items as
    // dropping the released drawers past the first half and putting the new
    // one at its place: done so, instead of re-adding every drawer.
    const int count = m_pContainerLayout->count();
    DrawerControl *pFirst = nullptr;
    for (DrawerControl *pEntry : qAsConst(m_lstDrawers)) {
        if (pEntry != pDrawer) {
            pFirst = pEntry;
            break;
        }
    }
    // Drawers in front of the first live one count as released: were one of
    // them live after all, the check below would miss it among the rest (a
    // widget is in a layout once) and give up.
    int released = 0;
    while (released < count - 1) {
        QWidget *pWidget = m_pContainerLayout->itemAt(released)->widget();
        if (!qobject_cast<DrawerControl *>(pWidget) || pWidget == pFirst)
            break;
        ++released;
    }

    int position = -1;
    int item = released;
    for (DrawerControl *pEntry : qAsConst(m_lstDrawers)) {
        if (!pEntry)
            return false;
        if (pEntry == pDrawer) {
            position = item;
            continue;
        }
        if (item >= count - 1 || m_pContainerLayout->itemAt(item)->widget() != pEntry)
            return false;
        ++item;
    }
    QLayoutItem *pLast = count > 0 ? m_pContainerLayout->itemAt(count - 1) : nullptr;
    if (position < 0 || item != count - 1 || !pLast || !pLast->spacerItem())
        return false;
    // The rebuild keeps the first count / 2 items.
    const int kept = qMin(released, count / 2);
    for (int i = kept; i < released; ++i)
        delete m_pContainerLayout->takeAt(kept);
    delete m_pContainerLayout->takeAt(m_pContainerLayout->count() - 1);
    m_pContainerLayout->insertWidget(position - (released - kept), pDrawer);
    m_pContainerLayout->addStretch(0);
    return true;
}

void TreeListFrame::rebuildContainerLayout()
{
    // Only ceil(count/2) items go: the count is re-read on every pass.
    // Drawers still in the layout move to their new place when re-added.
    // Taking the last item and invalidating is what removeItem() does for
    // it, without removeItem()'s walk over every item of the layout.
    QSet<QWidget *> taken;
    if (m_pContainerLayout->count() > 0) {
        int i = 0;
        do {
            QLayoutItem *pLast = m_pContainerLayout->takeAt(m_pContainerLayout->count() - 1);
            m_pContainerLayout->invalidate();
            if (QWidget *pWidget = pLast->widget())
                taken.insert(pWidget);
            delete pLast; // the item only, never its widget
            ++i;
        } while (i < m_pContainerLayout->count());
    }
    for (DrawerControl *pEntry : qAsConst(m_lstDrawers)) {
        if (!pEntry)
            continue;
        // A drawer taken out above is in no layout. Qt searches the whole
        // layout for the old place of every widget flagged as laid out, and
        // addWidget() flags it again: clearing the flag spares that search.
        if (taken.contains(pEntry))
            pEntry->setAttribute(Qt::WA_LaidOut, false);
        m_pContainerLayout->addWidget(pEntry);
    }
    m_pContainerLayout->addStretch(0);
}

void TreeListFrame::addRootItem(st_NodeInfoSignal rootNode)
{
    createDrawerControl(rootNode, QList<st_NodeInfoSignal>(), m_lstDrawers.size());
}

void TreeListFrame::addRootItem(st_NodeInfoSignal rootNode, QList<st_NodeInfoSignal> childNodes)
{
    createDrawerControl(rootNode, childNodes, m_lstDrawers.size());
}

void TreeListFrame::addChildItem(int root, QList<st_NodeInfoSignal> childNodes)
{
    if (DrawerControl *pDrawer = drawerAt(root))
        pDrawer->addSecondItems(childNodes);
    noteRowsChanged();
}

void TreeListFrame::releaseDrawer(DrawerControl *pDrawer)
{
    disconnect(pDrawer, &DrawerControl::signal_OnCurrentItemClicked, this,
               &TreeListFrame::signal_OnCurrentItemClicked);
    pDrawer->releaseSelf();
}

void TreeListFrame::clearTree()
{
    for (int i = 0; i < m_lstDrawers.size(); ++i) {
        if (DrawerControl *pDrawer = m_lstDrawers.at(i)) {
            releaseDrawer(pDrawer);
            m_lstDrawers[i] = nullptr;
        }
    }
    m_lstDrawers = QList<DrawerControl *>();
    noteRowsChanged();
}

void TreeListFrame::deleteRootItem(int root)
{
    DrawerControl *pDrawer = drawerAt(root);
    if (!pDrawer)
        return;
    pDrawer->hide();
    releaseDrawer(pDrawer);
    m_lstDrawers[root] = nullptr;
    m_lstDrawers.removeAt(root);
    noteRowsChanged();
}

void TreeListFrame::deleteChildeItem(int root, int child)
{
    if (DrawerControl *pDrawer = drawerAt(root))
        pDrawer->deleteSecondItem(child);
    noteRowsChanged();
}

void TreeListFrame::modifyItemData(QList<int> path, st_NodeInfoSignal node)
{
    if (path.size() == 1) {
        if (!m_lstDrawers.isEmpty() && path.at(0) == 0 && m_lstDrawers.first())
            m_lstDrawers.first()->modifyRootItemData(node);
    } else if (path.size() == 2) {
        // Root row 0 only, and then child c of every drawer: kept as hosts
        // have always seen it.
        for (DrawerControl *pDrawer : qAsConst(m_lstDrawers)) {
            if (pDrawer && path.at(0) == 0)
                pDrawer->modifySecondItemData(path.at(1), node);
        }
    }
}

std::pair<bool, st_NodeInfoSignal> TreeListFrame::getItemSignalNode(const QList<int> &path)
{
    bool bFlag = false;
    st_NodeInfoSignal node;
    if (path.size() == 1) {
        if (!m_lstDrawers.isEmpty() && path.at(0) == 0 && m_lstDrawers.first()) {
            node = m_lstDrawers.first()->getRootNodeInfo();
            bFlag = true;
        }
    } else if (path.size() == 2) {
        // The flag reports that some drawer lacked the child: an inverted
        // sense that hosts already depend on.
        for (DrawerControl *pDrawer : qAsConst(m_lstDrawers)) {
            if (pDrawer && path.at(0) == 0 && pDrawer->getSecondNodeInfo(path.at(1), node) == 0)
                bFlag = true;
        }
    }
    return std::make_pair(bFlag, node);
}

void TreeListFrame::setCurSelItem(QList<int> path)
{
    // The host may answer the signal this raises by changing or deleting
    // the list; the drawer is asked for again afterwards.
    QPointer<DrawerControl> selected;
    int child = -1;
    if (path.size() == 1) {
        const int root = path.at(0);
        for (int j = 0; j < m_lstDrawers.size(); ++j) {
            DrawerControl *pDrawer = m_lstDrawers.at(j);
            if (j < root) {
                if (pDrawer)
                    pDrawer->setRootItemSelected(false);
            } else if (j == root) {
                if (pDrawer)
                    pDrawer->setRootItemSelected(true);
                selected = pDrawer;
                break;
            }
        }
    } else if (path.size() == 2) {
        if (DrawerControl *pDrawer = drawerAt(path.at(0))) {
            selected = pDrawer;
            child = path.at(1);
            pDrawer->setCurSelSecondItem(child);
        }
    }
    if (m_pObserverLifetime && selected && m_lstDrawers.contains(selected.data()))
        m_pObserver->hostSelected(selected, child);
    noteRowsChanged();
}

void TreeListFrame::setIsDrag(bool bIsDrag)
{
    m_bIsDrag = bIsDrag;
    for (DrawerControl *pDrawer : qAsConst(m_lstDrawers)) {
        if (pDrawer)
            pDrawer->setIsDrag(bIsDrag);
    }
}

void TreeListFrame::setIsShowChildItem(int root, bool bIsShow)
{
    if (DrawerControl *pDrawer = drawerAt(root))
        pDrawer->setIsShowChildItem(bIsShow);
    noteRowsChanged();
}

void TreeListFrame::setSignalRootName(QString name)
{
    m_qlRootName.clear();
    m_qlRootName.append(name);
}

void TreeListFrame::reTranslateUI()
{
    for (DrawerControl *pDrawer : qAsConst(m_lstDrawers)) {
        if (pDrawer)
            pDrawer->reTranslateUI();
    }
}

void TreeListFrame::setObserver(TreeListObserver *observer, QObject *lifetime)
{
    m_pObserver = observer;
    m_pObserverLifetime = lifetime;
}

void TreeListFrame::placeRowsNow()
{
    if (m_pRealiser)
        m_pRealiser->pass();
}

QScrollArea *TreeListFrame::scrollArea() const
{
    return m_pScrollArea;
}

void TreeListFrame::noteRowsChanged()
{
    if (m_pObserverLifetime)
        m_pObserver->rowsChanged();
}

QList<DrawerControl *> TreeListFrame::drawers() const
{
    return m_lstDrawers;
}

QList<int> TreeListFrame::dragSource() const
{
    return m_lstDragSrc;
}

QList<int> TreeListFrame::dragDestination() const
{
    return m_lstDragDst;
}

QStringList TreeListFrame::pendingRootName() const
{
    return m_qlRootName;
}

DrawerControl *TreeListFrame::drawerAt(int root) const
{
    return root >= 0 && root < m_lstDrawers.size() ? m_lstDrawers.at(root) : nullptr;
}

void TreeListFrame::slot_OnItemsIsDraged(QList<int> lstSrc, QList<int> lstDst)
{
    m_lstDragSrc = lstSrc;
    m_lstDragDst = lstDst;
}

void TreeListFrame::slot_OnCompleteDraged()
{
    // The host hears three signals from here and may delete the list from
    // any of them: the frame stays until this slot has returned.
    const HandlerGuard guard(this);
    st_NodeInfoSignal src;
    st_NodeInfoSignal dst;
    getNodeByIndex(m_lstDragSrc, src);
    getNodeByIndex(m_lstDragDst, dst);

    // Same source, or both lookups failed: nothing to group. The stored
    // paths stay until the next drop overwrites them.
    if (src.strSourceName == dst.strSourceName) {
        updateDrawerIndexes();
        return;
    }

    if (m_lstDragDst.size() == 1) {
        if (dst.iType == 0) {
            updateDrawerIndexes();
            return;
        }
        if (dst.iType == 1) {
            addChildItem(m_lstDragDst.at(0), QList<st_NodeInfoSignal>() << src);
            emit signal_OnAddSecondItems(m_lstDragSrc, m_lstDragDst);
        }
    } else if (m_lstDragDst.size() == 2) {
        const QList<st_NodeInfoSignal> children = QList<st_NodeInfoSignal>() << src << dst;
        const st_NodeInfoSignal root = getNewRootNode();
        createDrawerControl(root, children, m_lstDrawers.size());
        m_qlRootName.clear();
        const QList<int> newPath = QList<int>() << m_lstDrawers.size() - 1;
        emit signal_OnAddRootItem(root.strNodeName.value(0));
        emit signal_OnAddSecondItems(m_lstDragSrc, newPath);
        emit signal_OnAddSecondItems(m_lstDragDst, newPath);
    }

    m_lstDragSrc.clear();
    m_lstDragDst.clear();
    updateDrawerIndexes();
}

void TreeListFrame::getNodeByIndex(const QList<int> &path, st_NodeInfoSignal &node)
{
    if (path.size() == 1) {
        if (DrawerControl *pDrawer = drawerAt(path.at(0)))
            node = pDrawer->getRootNodeInfo();
    } else if (path.size() == 2) {
        if (DrawerControl *pDrawer = drawerAt(path.at(0)))
            pDrawer->getSecondNodeInfo(path.at(1), node);
    }
}

st_NodeInfoSignal TreeListFrame::getNewRootNode()
{
    // A host slot connected directly may answer with setSignalRootName()
    // before this emission returns.
    emit signal_OnGetNewRootName();
    st_NodeInfoSignal node;
    node.strNodeName = m_qlRootName.isEmpty() ? createDefaultRootName() : m_qlRootName;
    return node;
}

QStringList TreeListFrame::createDefaultRootName()
{
    QList<QStringList> names;
    for (DrawerControl *pDrawer : qAsConst(m_lstDrawers)) {
        if (pDrawer)
            names.append(pDrawer->getRootNodeInfo().strNodeName);
    }
    for (int n = 1;; ++n) {
        const QString candidate = g_qsStitchingName + QString::number(n, 10);
        const bool taken = std::any_of(names.cbegin(), names.cend(), [&candidate](const QStringList &list) {
            return list.contains(candidate, Qt::CaseSensitive);
        });
        if (!taken)
            return QStringList() << candidate;
    }
}

void TreeListFrame::updateDrawerIndexes()
{
    for (int i = 0; i < m_lstDrawers.size(); ++i) {
        if (DrawerControl *pDrawer = m_lstDrawers.at(i))
            pDrawer->setRootIndex(i);
    }
}
