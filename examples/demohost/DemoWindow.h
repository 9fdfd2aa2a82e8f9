// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_DEMO_DEMOWINDOW_H
#define SIGNALTREELIST_DEMO_DEMOWINDOW_H

#include <QList>
#include <QMainWindow>
#include <QString>
#include <QStringList>

class QAction;
class QFrame;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class SignalTreeList;

/**
 * The demo host: a video-wall operator's input panel.
 *
 * Left, the SignalTreeList filled from the embedded data set; right, a log
 * of every signal the list emits, with its path and what
 * getItemSignalNode() answers for it. The menus and the tool bar call
 * every public operation of the list.
 */
class DemoWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit DemoWindow(QWidget *parent = nullptr);
    ~DemoWindow() override;

    /// The list under demonstration.
    SignalTreeList *list() const;
    /// The panel that holds the list (the parent given to SignalTreeList).
    QFrame *panel() const;
    /// Every log line so far, as plain text.
    QStringList logLines() const;
    /// Also print every log line on standard output.
    void setEchoToStdout(bool echo);
    /// Fills the list from the embedded data set and expands the first roots.
    void fillFromDataSet();
    /// Fills the list with a generated room of @p roots boards of
    /// @p children inputs each, every board open when @p open.
    void fillRoom(int roots, int children, bool open);
    /// Writes a note line to the log.
    void logNote(const QString &text);

private slots:
    // One slot per signal of SignalTreeList, in its declaration order.
    void onDeleteItem(QList<int> path);
    void onDeleteRootItem(int root);
    void onDeleteSecondItem(int root, int child);
    void onAddRootItem(QString name);
    void onAddSecondItems(QList<int> source, QList<int> target);
    void onCurrentItemClicked(QList<int> path);
    void onGetNewRootName();
    void onEditBtnClicked(QList<int> path);
    void onDeleteBtnClicked(QList<int> path);
    void onCaptureBtnClicked(QList<int> path);

    // Operations called from the menus and the tool bar.
    void addSource();
    void addGroup();
    void addSignals();
    void deleteSelected();
    void deleteAtPath();
    void deleteRoot();
    void modifySelected();
    void selectPath();
    void expandRoot();
    void collapseRoot();
    void expandAll();
    void collapseAll();
    void setDragEnabled(bool enabled);
    void setListVisible(bool visible);
    void clearList();
    void rebuildList();
    void retranslate();
    void showAbout();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildUi();
    void buildActions();
    void connectList();
    /// One log line: @p kind is "signal", "call" or "note".
    void appendLog(const QString &kind, const QString &head, const QString &rest);
    void logSignal(const QString &name, const QString &args, const QString &lookup = QString());
    void logCall(const QString &operation, const QString &detail = QString());
    /// What getItemSignalNode() answers for @p path, as log text.
    QString lookup(const QList<int> &path);
    /// The path typed in the tool bar ("1,2" or "1"); empty when not a path.
    QList<int> typedPath(bool *ok = nullptr) const;
    /// The root that the typed path, or else the last click, names.
    int targetRoot() const;
    void updateStatus();
    /// The name of the row with the keyboard focus, empty when the list does
    /// not have the focus.
    QString focusedRowName() const;

    static QString pathText(const QList<int> &path);

    SignalTreeList *m_pList = nullptr;
    QFrame *m_pPanel = nullptr;
    QPlainTextEdit *m_pLog = nullptr;
    QLineEdit *m_pPathEdit = nullptr;
    QLineEdit *m_pGroupNameEdit = nullptr;
    QLabel *m_pStatus = nullptr;
    QAction *m_pDragAction = nullptr;
    QAction *m_pShowAction = nullptr;

    QStringList m_lstLogLines;
    QList<int> m_lstLastPath;   ///< path of the last clicked child row
    int m_iRootCount = 0;       ///< roots the demo has put into the list
    int m_iNextBoard = 6;       ///< number of the next board "Add source" adds
    int m_iNextGroup = 1;
    int m_iNextSignal = 40;
    bool m_bEcho = false;
};

#endif // SIGNALTREELIST_DEMO_DEMOWINDOW_H
