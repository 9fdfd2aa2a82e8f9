// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_TREELISTFRAME_H
#define SIGNALTREELIST_TREELISTFRAME_H

#include "st_NodeInfoSignal.h"

#include <CLanguageTranslateFrame.h>

#include <QList>
#include <QPointer>
#include <QStringList>
#include <memory>
#include <utility>

class DrawerControl;
class QHBoxLayout;
class RowMetrics;
class RowRealiser;
class TreeListObserver;
class QScrollArea;
class QVBoxLayout;

/**
 * The scrolling container of the whole two-level list: one drawer per root
 * row, stacked in a scroll area. It forwards every tree operation to the
 * drawer named by the index path, relays the drawers' notifications as its
 * own signals and turns a completed drag into a grouping.
 */
class TreeListFrame : public CLanguageTranslateFrame
{
    Q_OBJECT
public:
    explicit TreeListFrame(QWidget *parent = nullptr);
    ~TreeListFrame() override;

    /// Builds the layouts and the scroll area; call once.
    void initControls();

    /// Creates, wires and inserts one drawer at @p position (clamped to the
    /// list), then rebuilds the container layout.
    void createDrawerControl(st_NodeInfoSignal rootNode, QList<st_NodeInfoSignal> childNodes,
                             int position);
    void addRootItem(st_NodeInfoSignal rootNode);
    void addRootItem(st_NodeInfoSignal rootNode, QList<st_NodeInfoSignal> childNodes);
    void addChildItem(int root, QList<st_NodeInfoSignal> childNodes);
    void clearTree();
    void deleteRootItem(int root);
    void deleteChildeItem(int root, int child);
    /// Only root row 0 can be modified: [0] rewrites root 0, [0, c] rewrites
    /// child c of every drawer.
    void modifyItemData(QList<int> path, st_NodeInfoSignal node);
    /// Only root row 0 is read. For [0, c] the flag is true when some drawer
    /// lacks child c.
    std::pair<bool, st_NodeInfoSignal> getItemSignalNode(const QList<int> &path);
    void setCurSelItem(QList<int> path);
    void setIsDrag(bool bIsDrag);
    void setIsShowChildItem(int root, bool bIsShow);
    /// Stores the name of the next root that a drag creates.
    void setSignalRootName(QString name);
    void reTranslateUI() override;

    /// Test switch: containers rebuild their layout the long way on every
    /// new drawer, as the list did before it inserted it in one step. Off
    /// by default.
    static void setRebuildEveryTime(bool every);

    /// Tells @p observer, for as long as @p lifetime exists, what becomes of
    /// the rows (the keyboard and accessibility follow them so).
    void setObserver(TreeListObserver *observer, QObject *lifetime);
    /// The scroll area that shows the drawers (null before initControls).
    QScrollArea *scrollArea() const;
    /// Decides now, not in the next turn of the event loop, which child
    /// rows are widgets: those in or near the viewport.
    void placeRowsNow();

    // Read access for tests and diagnostics.
    QList<DrawerControl *> drawers() const;
    QList<int> dragSource() const;
    QList<int> dragDestination() const;
    QStringList pendingRootName() const;

signals:
    void signal_OnDeleteItem(QList<int> lstIndex);
    void signal_OnDeleteRootItem(int root);
    void signal_OnDeleteSecondItem(int root, int child);
    void signal_OnAddRootItem(QString name);
    void signal_OnAddSecondItems(QList<int> lstSrc, QList<int> lstDst);
    void signal_OnCurrentItemClicked(QList<int> lstIndex);
    void signal_OnGetNewRootName();
    void signal_OnEditBtnClicked(QList<int> lstIndex);
    void signal_OnDeleteBtnClicked(QList<int> lstIndex);
    void signal_OnCaptureBtnClicked(QList<int> lstIndex);

private slots:
    void slot_OnItemsIsDraged(QList<int> lstSrc, QList<int> lstDst);
    void slot_OnCompleteDraged();

private:
    DrawerControl *drawerAt(int root) const;
    /// Puts @p pDrawer, just inserted into the list, into its place in the
    /// container layout when that gives what a rebuild would; false if not.
    bool insertIntoOrderedLayout(DrawerControl *pDrawer);
    /// Half-clears the container layout, re-adds every drawer and a stretch.
    void rebuildContainerLayout();
    void releaseDrawer(DrawerControl *pDrawer);
    void getNodeByIndex(const QList<int> &path, st_NodeInfoSignal &node);
    st_NodeInfoSignal getNewRootNode();
    QStringList createDefaultRootName();
    void updateDrawerIndexes();
    /// Tells the observer that rows changed.
    void noteRowsChanged();

    CLanguageTranslateFrame *m_pDrawerContainer;
    QVBoxLayout *m_pContainerLayout;
    QHBoxLayout *m_pMainLayout;
    QScrollArea *m_pScrollArea;
    QList<DrawerControl *> m_lstDrawers;
    bool m_bIsDrag;
    QList<int> m_lstDragSrc;
    QList<int> m_lstDragDst;
    QStringList m_qlRootName;
    TreeListObserver *m_pObserver = nullptr;
    /// What rows of each look measure, for the drawers' layouts.
    std::unique_ptr<RowMetrics> m_pRowMetrics;
    QPointer<RowRealiser> m_pRealiser;
    QPointer<QObject> m_pObserverLifetime;
    static bool s_bRebuildEveryTime;
};

#endif // SIGNALTREELIST_TREELISTFRAME_H
