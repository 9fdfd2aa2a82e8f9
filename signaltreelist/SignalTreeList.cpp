// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "SignalTreeList.h"

#include "HandlerGuard.h"
#include "KeyboardNavigator.h"
#include "QtCompat.h"
#include "SignalTreeList_p.h"
#include "StyleConstants.h"
#include "TabChain.h"
#include "Translations.h"
#include "TreeListAccessible.h"
#include "TreeListFrame.h"

#include <QHBoxLayout>

SignalTreeList::SignalTreeList(QWidget *parent)
    : CLanguageTranslateFrame(parent)
    , m_pData(new SignalTreeListPrivate)
{
    m_pData->pTreeListFrame = nullptr;
    m_pData->pParentWidget = parent;
    TreeListAccessible::installFactory();
}

SignalTreeList::~SignalTreeList()
{
    if (m_pData->pTreeListFrame) {
        // Deleted from one of its own signals: the frame is taken off the
        // screen now and freed once the emitting handler has returned.
        if (!HandlerGuard::deferDeletion(m_pData->pTreeListFrame))
            delete m_pData->pTreeListFrame;
        m_pData->pTreeListFrame = nullptr;
    }
    delete m_pData->pOrphanLayout;
    delete m_pData;
    m_pData = nullptr;
}

void SignalTreeList::initControls()
{
    // The layout and the frame go on the host's parent widget, not on this
    // widget: hosts lay the list out through that parent.
    QHBoxLayout *pLayout = new QHBoxLayout(m_pData->pParentWidget);
    QtCompat::setMargin(pLayout, 0);
    pLayout->setSpacing(0);
    pLayout->setContentsMargins(0, 0, 0, 0);
    // Nothing owns the layout without a parent widget, nor when the parent
    // already has a layout (Qt refuses a second one with a warning).
    if (!m_pData->pParentWidget || m_pData->pParentWidget->layout() != pLayout) {
        delete m_pData->pOrphanLayout;
        m_pData->pOrphanLayout = pLayout;
    }

    TreeListFrame *pFrame = new TreeListFrame(m_pData->pParentWidget);
    m_pData->pTreeListFrame = pFrame;
    pFrame->initControls();
    // Keys and focus: the frame is the list's one tab stop.
    new KeyboardNavigator(pFrame, pFrame->scrollArea());
    pLayout->addWidget(pFrame);
    // The list and its frame are reached by Tab where the parent stands,
    // whenever the host created its other widgets. The list comes first so
    // that Tab out of the frame does not meet it again.
    TabChain::placeWith(m_pData->pParentWidget, {this, pFrame});
    // Focus given to the list goes to the frame, which takes the keys.
    setFocusProxy(pFrame);

    connect(pFrame, &TreeListFrame::signal_OnCurrentItemClicked, this,
            &SignalTreeList::signal_OnCurrentItemClicked);
    connect(pFrame, &TreeListFrame::signal_OnAddRootItem, this, &SignalTreeList::signal_OnAddRootItem);
    connect(pFrame, &TreeListFrame::signal_OnAddSecondItems, this,
            &SignalTreeList::signal_OnAddSecondItems);
    connect(pFrame, &TreeListFrame::signal_OnDeleteItem, this, &SignalTreeList::signal_OnDeleteItem);
    connect(pFrame, &TreeListFrame::signal_OnDeleteRootItem, this,
            &SignalTreeList::signal_OnDeleteRootItem);
    connect(pFrame, &TreeListFrame::signal_OnDeleteSecondItem, this,
            &SignalTreeList::signal_OnDeleteSecondItem);
    connect(pFrame, &TreeListFrame::signal_OnGetNewRootName, this,
            &SignalTreeList::signal_OnGetNewRootName);
    connect(pFrame, &TreeListFrame::signal_OnCaptureBtnClicked, this,
            &SignalTreeList::signal_OnCaptureBtnClicked);
    connect(pFrame, &TreeListFrame::signal_OnEditBtnClicked, this,
            &SignalTreeList::signal_OnEditBtnClicked);
    connect(pFrame, &TreeListFrame::signal_OnDeleteBtnClicked, this,
            &SignalTreeList::signal_OnDeleteBtnClicked);
}

void SignalTreeList::addRootItem(st_NodeInfoSignal &node)
{
    if (m_pData && m_pData->pTreeListFrame)
        m_pData->pTreeListFrame->addRootItem(node);
}

void SignalTreeList::addRootItem(st_NodeInfoSignal &node, QList<st_NodeInfoSignal> children)
{
    if (m_pData && m_pData->pTreeListFrame)
        m_pData->pTreeListFrame->addRootItem(node, children);
}

void SignalTreeList::addChildItem(QList<int> path, QList<st_NodeInfoSignal> children)
{
    if (m_pData && m_pData->pTreeListFrame && !path.isEmpty())
        m_pData->pTreeListFrame->addChildItem(path.first(), children);
}

void SignalTreeList::clearTree()
{
    if (m_pData && m_pData->pTreeListFrame)
        m_pData->pTreeListFrame->clearTree();
}

void SignalTreeList::deleteRootItem(int root)
{
    if (m_pData && m_pData->pTreeListFrame)
        m_pData->pTreeListFrame->deleteRootItem(root);
}

void SignalTreeList::deleteChildeItem(QList<int> path)
{
    if (!m_pData || !m_pData->pTreeListFrame)
        return;
    if (path.size() == 1)
        m_pData->pTreeListFrame->deleteRootItem(path.first());
    else if (path.size() == 2)
        m_pData->pTreeListFrame->deleteChildeItem(path.first(), path.last());
}

std::pair<bool, st_NodeInfoSignal> SignalTreeList::getItemSignalNode(const QList<int> &path)
{
    std::pair<bool, st_NodeInfoSignal> result(false, st_NodeInfoSignal());
    if (m_pData && m_pData->pTreeListFrame)
        result = m_pData->pTreeListFrame->getItemSignalNode(path);
    return result;
}

QFrame *SignalTreeList::getSignalTreeListFrame()
{
    return m_pData ? m_pData->pTreeListFrame : nullptr;
}

void SignalTreeList::modifyItemData(QList<int> path, st_NodeInfoSignal &node)
{
    if (m_pData && m_pData->pTreeListFrame)
        m_pData->pTreeListFrame->modifyItemData(path, node);
}

void SignalTreeList::reTranslateUI()
{
    if (m_pData && m_pData->pTreeListFrame)
        m_pData->pTreeListFrame->reTranslateUI();
}

bool SignalTreeList::installTranslations(const QLocale &locale)
{
    return Translations::install(locale);
}

void SignalTreeList::setCurSelItem(QList<int> path)
{
    if (m_pData && m_pData->pTreeListFrame)
        m_pData->pTreeListFrame->setCurSelItem(path);
}

void SignalTreeList::setIsDrag(bool bIsDrag)
{
    if (m_pData && m_pData->pTreeListFrame)
        m_pData->pTreeListFrame->setIsDrag(bIsDrag);
}

void SignalTreeList::setIsShowChildItem(int root, bool show)
{
    if (m_pData && m_pData->pTreeListFrame)
        m_pData->pTreeListFrame->setIsShowChildItem(root, show);
}

void SignalTreeList::setSignalRootName(QString name)
{
    if (m_pData && m_pData->pTreeListFrame)
        m_pData->pTreeListFrame->setSignalRootName(name);
}

void SignalTreeList::setSignalTreeListFrameVisiable(bool bIsVisible)
{
    if (m_pData && m_pData->pTreeListFrame)
        m_pData->pTreeListFrame->setVisible(bIsVisible);
}

void SignalTreeList::updateTreeList(QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree)
{
    if (!m_pData || !m_pData->pTreeListFrame)
        return;
    int position = 0;
    for (auto it = tree.cbegin(); it != tree.cend(); ++it) {
        m_pData->pTreeListFrame->createDrawerControl(it.key(), it.value(), position);
        ++position;
    }
}
