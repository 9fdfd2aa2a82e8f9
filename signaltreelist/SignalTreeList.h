// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_SIGNALTREELIST_H
#define SIGNALTREELIST_SIGNALTREELIST_H

#include "signaltreelist_export.h"
#include "st_NodeInfoSignal.h"

#include <CLanguageTranslateFrame.h>

#include <QList>
#include <QLocale>
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
 * initControls() once: a layout is installed on that parent widget and the
 * list is laid out inside it (give the parent no layout of its own). Before
 * initControls() every operation does nothing and getItemSignalNode()
 * answers (false, default record).
 *
 * Rows are addressed by index paths (QList<int>): [root] names a root row,
 * [root, child] a child row, both zero-based in display order. A path of
 * any other length, or one that names no row, makes an operation do
 * nothing; no operation reports an error.
 *
 * User actions reach the host as the signals below, carrying the same
 * paths. A click on a root row only selects it; the host is not told.
 *
 * Removing a root row does not renumber the root rows below it: their rows
 * keep reporting the old root index in signals, while operations address
 * root rows by their current position. Rebuild (clearTree() and
 * updateTreeList()) to bring both back in line. Child rows always report
 * their current position.
 *
 * The looks come from the host's application style sheet: the rows publish
 * their state as dynamic properties ("isRootItem", "isSecondItem" =
 * "normal", "hover" or "press", ...). The library ships a reference dark
 * sheet, signaltreelist-dark.qss.
 */
class SIGNALTREELIST_EXPORT SignalTreeList : public CLanguageTranslateFrame
{
    Q_OBJECT
public:
    /// Builds no child widget yet; call initControls() next. @p parent is
    /// the widget that will hold the list.
    explicit SignalTreeList(QWidget *parent = nullptr);
    /// Deletes the list's inner frame, and with it every row.
    ~SignalTreeList() override;

    /// Installs a layout on the parent widget given to the constructor and
    /// puts the list into it. Call once: a second call builds a second list.
    void initControls();

    /// Appends a root row for @p node, without children (a group when
    /// node.iType is 1, a plain source when it is 0).
    void addRootItem(st_NodeInfoSignal &node);
    /// Appends a root row for @p node with one child row per record of
    /// @p children; the last child row shows the selected look.
    void addRootItem(st_NodeInfoSignal &node, QList<st_NodeInfoSignal> children);
    /// Appends child rows under root row path[0]; further elements are
    /// ignored. An empty path, or a root index that names no row, does
    /// nothing.
    void addChildItem(QList<int> path, QList<st_NodeInfoSignal> children);
    /// Removes every row.
    void clearTree();
    /// Removes root row @p root with its children; an index that names no
    /// row does nothing. The roots below keep reporting their old index.
    void deleteRootItem(int root);
    /// [root] removes that root row (as deleteRootItem()), [root, child] one
    /// child row. A path of another length, or one that names no row, does
    /// nothing.
    void deleteChildeItem(QList<int> path);
    /// Reads a record back. Only root row 0 is read: [0] gives (true, root
    /// 0's record); [0, c] looks at child c under every root row and gives
    /// the record of the last root row that has one, with true when some
    /// root row lacks a child c (false when all have one). Any other path
    /// gives (false, default record).
    std::pair<bool, st_NodeInfoSignal> getItemSignalNode(const QList<int> &path);
    /// The inner frame that holds the list (null before initControls()).
    QFrame *getSignalTreeListFrame();
    /// Replaces a record and its row's texts, icon and buttons. Only root
    /// row 0 can be modified: [0] rewrites root 0, [0, c] rewrites child c
    /// under every root row that has one. Any other path does nothing.
    void modifyItemData(QList<int> path, st_NodeInfoSignal &node);
    /// Passes a language change on to every row.
    void reTranslateUI() override;
    /// Translates the texts the list itself hands out (to assistive
    /// technology: the list's name, "offline", the names of the rows'
    /// actions and buttons) into @p locale's language, from catalogues
    /// built into the library (German and French so far). Replaces the
    /// catalogue a previous call installed; a language without one (English
    /// among them) falls back to English. Returns whether a catalogue is
    /// installed. Every open list follows at once: the application sends
    /// QEvent::LanguageChange and each row runs reTranslateUI(). The
    /// host's own texts (row names, group names) are never translated.
    /// Needs the application object; without one it does nothing.
    static bool installTranslations(const QLocale &locale = QLocale());
    /// [root] selects that root row, which expands it, and deselects and
    /// collapses every root row above it (those below stay as they are); a
    /// root index past the end collapses them all and selects none.
    /// [root, child] marks that child row selected and emits
    /// signal_OnCurrentItemClicked([root, child]) (the child index is not
    /// checked); a root index that names no row does nothing. Other path
    /// lengths do nothing.
    void setCurSelItem(QList<int> path);
    /// Enables (or disables) dragging a selected child row onto a row of
    /// another root, for the rows there are and those added later. A drop
    /// records the source and target paths. This version does not complete
    /// the drag yet: the grouping and its signals (signal_OnGetNewRootName(),
    /// signal_OnAddRootItem(), signal_OnAddSecondItems()) are wired but a
    /// drop does not start them.
    void setIsDrag(bool bIsDrag);
    /// Expands (@p show true) or collapses root row @p root; the root row
    /// keeps its pressed look afterwards. An index that names no row does
    /// nothing.
    void setIsShowChildItem(int root, bool show);
    /// Names the next group that a drag creates (used once). Call it from a
    /// slot connected directly to signal_OnGetNewRootName(); without an
    /// answer the group is named "Stitching" and the first free number.
    void setSignalRootName(QString name);
    /// Shows or hides the list's inner frame.
    void setSignalTreeListFrameVisiable(bool bIsVisible);
    /// Appends one root row per map entry, in ascending key order (the
    /// record's operator<), each with the entry's children. Existing rows
    /// stay: call clearTree() first to replace the contents. New root rows
    /// start collapsed.
    void updateTreeList(QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree);

signals:
    /// Declared for hosts; the list never emits it.
    void signal_OnDeleteItem(QList<int> lstIndex);
    /// Declared for hosts; the list never emits it.
    void signal_OnDeleteRootItem(int root);
    /// Declared for hosts; the list never emits it.
    void signal_OnDeleteSecondItem(int root, int child);
    /// A drag created a new group root named @p name, appended at the end.
    void signal_OnAddRootItem(QString name);
    /// A drag placed a copy of the row at @p lstSrc under the root row at
    /// @p lstDst ([root]). The row stays at its old place too: the host
    /// decides what to delete.
    void signal_OnAddSecondItems(QList<int> lstSrc, QList<int> lstDst);
    /// A child row was clicked (also through its edit, delete or capture
    /// button) or selected by setCurSelItem(): its [root, child] path.
    void signal_OnCurrentItemClicked(QList<int> lstIndex);
    /// A drag is about to create a group: answer with setSignalRootName()
    /// from a directly connected slot.
    void signal_OnGetNewRootName();
    /// An edit button (root or child row) was clicked. Carries the current
    /// selection path of that root: [root] or [root, child], empty when
    /// nothing under that root was selected yet. A child row's button
    /// selects its row first, so it reports that row's [root, child].
    void signal_OnEditBtnClicked(QList<int> lstIndex);
    /// A delete button (root or child row) was clicked; the list removes
    /// nothing. Carries the current selection path of that root, as
    /// signal_OnEditBtnClicked().
    void signal_OnDeleteBtnClicked(QList<int> lstIndex);
    /// A child row's capture button was clicked. Carries the current
    /// selection path of that root, as signal_OnEditBtnClicked().
    void signal_OnCaptureBtnClicked(QList<int> lstIndex);

private:
    SignalTreeListPrivate *m_pData;
};

#endif // SIGNALTREELIST_SIGNALTREELIST_H
