// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_DRAWERCONTROL_H
#define SIGNALTREELIST_DRAWERCONTROL_H

#include "PendingRows.h"
#include "st_NodeInfoSignal.h"

#include <CLanguageTranslateFrame.h>

#include <QList>
#include <QPoint>
#include <QPointer>
#include <QVector>

#include <functional>
#include <memory>

class PendingRows;
class RowMetrics;
class QDrag;
class QFrame;
class QPixmap;
class QVBoxLayout;
class RootItem;
class RowSlot;
struct ChildRowState;
class SecondItem;

/**
 * One drawer of the tree list: a root row with a container of child rows
 * below it.
 *
 * The drawer keeps the row widgets and their records, the selection as an
 * index path ([root] or [root, child]), shows and hides its children and
 * reports clicks and button presses as signals carrying that path. A
 * selected child row can be dragged onto another drawer, which reports the
 * source and target paths in signal_OnItemsIsDraged().
 *
 * Until the drawer is first expanded its child rows are not widgets: it
 * keeps what it needs to build them as they would have been
 * (PendingRows) and builds them on the first expansion. Every operation
 * answers as if they existed.
 */
class DrawerControl : public CLanguageTranslateFrame
{
    Q_OBJECT
public:
    explicit DrawerControl(QWidget *parent = nullptr);
    ~DrawerControl() override;

    /// Builds the root row and the child container; call once.
    void initRootItem(int itemType, int rootIndex);

    /// Appends one child row per record, re-lays every row and marks the
    /// last one selected.
    void addSecondItems(QList<st_NodeInfoSignal> nodes);
    /// Appends one child row with the indices as given.
    void addSecondItem(st_NodeInfoSignal node, int rootIndex, int childIndex);
    /// Deletes the row widget at once; other rows keep their indices.
    void deleteSecondItem(int childIndex);

    st_NodeInfoSignal getRootNodeInfo();
    QList<st_NodeInfoSignal> getSecondNodeInfos();
    /// Copies the record of row @p childIndex into @p out; returns 1 when the
    /// row exists, 0 (leaving @p out untouched) when it does not.
    int getSecondNodeInfo(int childIndex, st_NodeInfoSignal &out);

    void modifyRootItemData(const st_NodeInfoSignal &node);
    void modifySecondItemData(int childIndex, const st_NodeInfoSignal &node);

    /// Marks row @p childIndex selected and reports [root, childIndex].
    void setCurSelSecondItem(int childIndex);
    void setRootItemSelected(bool bIsSelected);

    void setRootItemState(int state);
    void setRootItemText(QString text);
    void setRootItemName(QString name);

    /// Enables dragging and, with it, accepting drops.
    void setIsDrag(bool bIsDrag);
    /// Expands or collapses through the root row's check box.
    void setIsShowChildItem(bool bIsShow);
    /// Renumbers the drawer, its root row and its child rows.
    void setRootIndex(int index);

    /// Deletes the drawer later, or, while its own drag runs, detaches it
    /// and lets it delete itself once the drag object is gone.
    void releaseSelf();

    bool getIsRootAsChild() const;
    bool getIsRootSel() const;
    bool getIsNotRootSel() const;
    bool getSpareFlag() const;
    void setIsLockSel(bool bIsLockSel);

    void reTranslateUI() override;

    /// Selects row @p index in look only, unless the selection is locked.
    void markSelSecondItem(int index);
    /// Builds the child rows that wait for the first expansion (expanding
    /// does it; tests and diagnostics may ask earlier). Once built, a no-op.
    void buildRows();
    /// Whether the child rows wait for the first expansion.
    bool rowsDeferred() const;
    /// Test switch: drawers created afterwards build their rows at once, as
    /// the list did before it deferred them. On by default.
    static void setDeferRows(bool defer);

    /// Index of the child row under @p globalPos (screen coordinates), or -1.
    int secondItemIndexAt(const QPoint &globalPos);
    /// Builds and runs the drag of the current selection.
    void startDrag();

    // The rows as the keyboard and accessibility see them, built or not.
    // Every row has a key that stays with it while others come and go; no
    // two rows, nor a row and a drawer, ever share one.
    /// Child rows, built or waiting.
    int rowCount() const;
    /// The key of child row @p index, or 0 when there is none.
    quint64 rowKey(int index) const;
    /// The key of the root row, the drawer's own.
    quint64 rootKey() const;
    /// The position of the child row with @p key, or -1.
    int rowIndexOfKey(quint64 key) const;
    /// The record of child row @p index (a default one when there is none).
    st_NodeInfoSignal rowRecord(int index) const;
    /// Whether child row @p index shows the selected look.
    bool rowLooksSelected(int index) const;
    /// Whether child row @p index (-1: the root row) shows its edit (@p edit)
    /// or delete button on hover.
    bool rowOffersButton(int index, bool edit) const;
    /// Child row @p index as a widget, or null while it is not one.
    SecondItem *builtRow(int index) const;
    /// Whether the children show: expanded, and the container not hidden.
    bool showsChildren() const;
    /// Spacings at the top of the child layout, before the rows.
    int childSpacings() const;

    /// Makes this a prototype that row metrics are measured on: it is no
    /// drawer of the list, and goes without a word.
    void setPrototype();
    bool isPrototype() const;
    /// Lays the child rows out by the metrics of their looks (RowSlot)
    /// rather than by asking the widgets; drawers that build their rows at
    /// once (the test switch) keep asking them.
    void setRowMetrics(RowMetrics *metrics);

    // Rows laid out by slots are widgets only while they may be seen: the
    // others are parked in their slots as their state.
    /// Child row @p index as a widget: built if it waits for the first
    /// expansion, made again if it is parked; null when there is none.
    SecondItem *realiseRow(int index);
    /// Realises the child rows that touch @p realise and parks those that
    /// are clear of @p keep and can go (both in the container's
    /// coordinates). With @p shown false (the children are not on screen)
    /// every row that can go is parked; with @p park false none is.
    void placeRows(const QRect &realise, const QRect &keep, bool shown, bool park = true);
    /// Where child row @p index is, in the container's coordinates.
    QRect rowGeometry(int index) const;
    /// Child rows that are widgets now.
    int realisedRows() const;
    /// Gives a parked row the keyboard focus look, or takes it away, as the
    /// "isKeyFocus" property does to the widget; false when the row is no
    /// parked one or the look would resize it (then the widget must do it).
    bool setParkedRowFocus(int index, bool focused);
    /// The style changed: the parked rows take it as widgets would.
    void restyleParkedRows();
    /// Child row @p index as it is kept while parked, or null.
    const ChildRowState *parkedRow(int index) const;
    /// Called when a row was placed anew or the children were shown or
    /// hidden: what is on screen may have changed. With true, the rows on
    /// screen are to be made at once (the children just showed, parked).
    void setRowsMovedHandler(std::function<void(bool)> handler);

    // Read access for the container's diagnostics and for tests.
    RootItem *rootItem() const;
    /// The built child rows (none while they wait for the first expansion).
    QList<SecondItem *> secondItems() const;
    QFrame *childContainer() const;
    QVBoxLayout *childLayout() const;
    QList<int> selIndex() const;
    st_NodeInfoSignal selNodeInfo() const;
    int rootIndex() const;
    int curSecondIndex() const;
    bool isShowChild() const;
    bool isDragging() const;

signals:
    void signal_OnCurrentItemClicked(QList<int> lstIndex);
    void signal_OnItemsIsDraged(QList<int> lstSrc, QList<int> lstDst);
    void signal_OnCompleteDraged();
    void signal_OnItemIsDoubleClicked(bool bIsDoubleClicked);
    void signal_OnEditBtnClicked(QList<int> lstIndex);
    void signal_OnDeleteBtnClicked(QList<int> lstIndex);
    void signal_OnCaptureBtnClicked(QList<int> lstIndex);

private slots:
    void slot_OnRootItemClicked();
    void slot_OnSecondItemClicked();
    void slot_OnSecondItemCaptureBtnClicked();
    void slot_OnIsShowChildItems(bool bIsShow);
    void slot_OnEditBtnClicked();
    void slot_OnDeleteBtnClicked();
    void slot_releaseDrag();

protected:
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    // The widget work of the operations on built rows.
    void createBatch(const QList<st_NodeInfoSignal> &nodes, int n, int rootIndex,
                     const st_NodeInfoSignal &rootNode, bool locked);
    void createSingle(const st_NodeInfoSignal &node, int rootIndex, int childIndex, bool locked);
    void applyRecord(int childIndex, const st_NodeInfoSignal &node, const st_NodeInfoSignal &rootNode);
    /// The end of one row's creation: laid out last, listed, connected.
    void adoptRow(SecondItem *pItem);
    /// Adds @p pItem at the end of the child layout.
    void layOutRow(SecondItem *pItem);
    void connectRow(SecondItem *pItem);
    RowSlot *newSlot(SecondItem *pItem);
    /// Whether row @p index is a widget that may be parked now.
    bool parkable(int index) const;
    void parkRow(int index);
    /// Tells the frame that what is on screen may have changed; @p now: rows
    /// that show must be made before anything is painted.
    void noteRowsMoved(bool now = false);
    void pressRow(int index);
    /// The selected look on row @p index, built or waiting.
    void showSelectedLook(int index);
    void notePolishOfNewRows();
    void buildRowsIfDue();
    /// Builds the waiting rows, as widgets or (@p parked) parked where they
    /// can be.
    void buildRowsAs(bool parked);
    /// Whether rows are parked once out of sight: laid out by slots, with
    /// parking on.
    bool rowsMayPark() const;
    /// Lays out @p row parked as the state its widget would have once
    /// shown; false when it cannot be (then it must be a widget).
    bool adoptParkedRow(const PendingRows::Row &row);
    void renumberRows();
    void connectSecondItemButtons(SecondItem *pItem);
    /// Emits @p signal with a copy of the selection path.
    void reportSelection(void (DrawerControl::*signal)(QList<int>));
    bool acceptsDragFrom(QObject *source) const;
    /// The drag picture with @p caption painted on it, for a screen of @p ratio.
    static QPixmap dragPicture(const QString &caption, qreal ratio);

    RootItem *m_pRootItem;
    QList<SecondItem *> m_lstSecondItem;
    bool m_bIsLockSel;
    bool m_bIsRootSel;
    bool m_bIsRootAsChild;
    bool m_bSpareFlag;
    QPoint m_ptDragStart;
    st_NodeInfoSignal m_stSelNodeInfo;
    QList<st_NodeInfoSignal> m_lstSecondNodeInfo;
    int m_iRootIndex;
    int m_iCurSecondIndex;
    bool m_bIsDrag;
    bool m_bIsShowChild;
    QVBoxLayout *m_pMainLayout;
    QVBoxLayout *m_pChildLayout;
    QFrame *m_pContainer;
    QList<int> m_lstSelIndex;
    QDrag *m_pDrag;
    /// The rows while they wait for the first expansion; null once built.
    std::unique_ptr<PendingRows> m_pPending;
    /// Keys of the child rows, in row order; m_quRootKey the root row's.
    QVector<quint64> m_lstRowKeys;
    quint64 m_quRootKey;
    /// Spacings at the top of the child layout of built rows.
    int m_iSpacings = 0;
    bool m_bPrototype = false;
    /// Rows laid out by slots (the list as shipped), with these metrics.
    bool m_bRowSlots;
    QPointer<RowMetrics> m_pRowMetrics;
    /// The slot of every child row, in row order (rows laid out by slots).
    QVector<RowSlot *> m_lstSlots;
    std::function<void(bool)> m_rowsMoved;
    /// Parked rows have a new style to fit to (restyleParkedRows()).
    bool m_bRestylePending = false;
    static bool s_bDeferRows;
};

#endif // SIGNALTREELIST_DRAWERCONTROL_H
