#ifndef SIGNALTREELIST_SIGNALTREELIST_H
#define SIGNALTREELIST_SIGNALTREELIST_H

#include "signaltreelist_export.h"
#include "st_NodeInfoSignal.h"

#include <CLanguageTranslateFrame.h>

#include <QList>
#include <QMap>
#include <QString>
#include <utility>

class QFrame;
class SignalTreeListPrivate;

/**
 * A two-level list of video input signals: root rows (input sources or
 * signal groups) with child rows (the signals under them).
 *
 * Create it with the host widget that is to hold the list, then call
 * initControls() once: the list is laid out inside that parent widget.
 * Before initControls() every operation does nothing.
 *
 * Rows are addressed by index paths: [root] names a root row, [root, child]
 * a child row, both zero-based in display order. A path of any other
 * length, or one that names no row, makes an operation do nothing.
 *
 * User actions reach the host as signals carrying the same paths.
 */
class SIGNALTREELIST_EXPORT SignalTreeList : public CLanguageTranslateFrame
{
    Q_OBJECT
public:
    /// Builds no child widget yet; call initControls() next.
    explicit SignalTreeList(QWidget *parent = nullptr);
    ~SignalTreeList() override;

    /// Installs a layout on the parent widget given to the constructor and
    /// puts the list into it. Call once.
    void initControls();

    /// Appends a root row for @p node (a group when node.iType is 1).
    void addRootItem(st_NodeInfoSignal &node);
    /// Appends a root row with its child rows.
    void addRootItem(st_NodeInfoSignal &node, QList<st_NodeInfoSignal> children);
    /// Appends child rows under root path[0]; other elements are ignored,
    /// an empty path does nothing.
    void addChildItem(QList<int> path, QList<st_NodeInfoSignal> children);
    /// Removes every row.
    void clearTree();
    /// Removes one root row with its children; the rows below keep their
    /// stored indices until the next renumbering.
    void deleteRootItem(int root);
    /// [root] removes the root row, [root, child] one child row.
    void deleteChildeItem(QList<int> path);
    /// Reads a record back. Only root row 0 is read: [0] gives (true, root
    /// 0's record); [0, c] gives child c's record, with true when some root
    /// row lacks a child c. Anything else gives (false, default record).
    std::pair<bool, st_NodeInfoSignal> getItemSignalNode(const QList<int> &path);
    /// The inner frame that holds the list (null before initControls()).
    QFrame *getSignalTreeListFrame();
    /// Replaces a record. Only root row 0 can be modified: [0] rewrites root
    /// 0, [0, c] rewrites child c under every root row.
    void modifyItemData(QList<int> path, st_NodeInfoSignal &node);
    /// Re-applies translated texts.
    void reTranslateUI() override;
    /// [root] selects that root row (expanding it) and deselects (collapses)
    /// the ones above it; [root, child] selects a child row and emits
    /// signal_OnCurrentItemClicked.
    void setCurSelItem(QList<int> path);
    /// Enables dragging a selected child row onto another row.
    void setIsDrag(bool bIsDrag);
    /// Expands or collapses one root row.
    void setIsShowChildItem(int root, bool show);
    /// Names the next group that a drag creates; call it from a slot
    /// connected directly to signal_OnGetNewRootName().
    void setSignalRootName(QString name);
    /// Shows or hides the list.
    void setSignalTreeListFrameVisiable(bool bIsVisible);
    /// Appends one root row per map entry, in ascending key order, each
    /// with the entry's children. Existing rows stay.
    void updateTreeList(QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree);

signals:
    /// Declared for hosts; the list never emits it.
    void signal_OnDeleteItem(QList<int> lstIndex);
    /// Declared for hosts; the list never emits it.
    void signal_OnDeleteRootItem(int root);
    /// Declared for hosts; the list never emits it.
    void signal_OnDeleteSecondItem(int root, int child);
    /// A drag created a new group root named @p name (at the end).
    void signal_OnAddRootItem(QString name);
    /// A drag placed the row at @p lstSrc under the root at @p lstDst.
    void signal_OnAddSecondItems(QList<int> lstSrc, QList<int> lstDst);
    /// A child row was clicked or selected: its [root, child] path.
    void signal_OnCurrentItemClicked(QList<int> lstIndex);
    /// A drag is about to create a group: answer with setSignalRootName().
    void signal_OnGetNewRootName();
    /// An edit button was clicked; carries the current selection's path.
    void signal_OnEditBtnClicked(QList<int> lstIndex);
    /// A delete button was clicked; carries the current selection's path.
    void signal_OnDeleteBtnClicked(QList<int> lstIndex);
    /// A capture button was clicked; carries the current selection's path.
    void signal_OnCaptureBtnClicked(QList<int> lstIndex);

private:
    SignalTreeListPrivate *m_pData;
};

#endif // SIGNALTREELIST_SIGNALTREELIST_H
