// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "DemoWindow.h"

#include "DemoData.h"

#include <SignalTreeList.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QDateTime>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QTextStream>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <cstdio>

namespace {

const char kTimeColour[] = "#6e7178";
const char kSignalColour[] = "rgb(226,100,12)";
const char kCallColour[] = "rgb(47,195,123)";
const char kTextColour[] = "rgb(230,230,230)";
const char kLookupColour[] = "rgb(152,153,155)";

QFrame *makeHeader(const QString &objectName, const QString &title, const QString &hint,
                   QWidget *extra = nullptr)
{
    auto *header = new QFrame;
    header->setObjectName(objectName);
    header->setFixedHeight(38);
    auto *layout = new QHBoxLayout(header);
    layout->setContentsMargins(12, 0, 10, 0);
    layout->setSpacing(10);
    auto *titleLabel = new QLabel(title);
    titleLabel->setObjectName(QStringLiteral("PanelTitle"));
    auto *hintLabel = new QLabel(hint);
    hintLabel->setObjectName(QStringLiteral("PanelHint"));
    layout->addWidget(titleLabel);
    layout->addWidget(hintLabel, 1);
    if (extra)
        layout->addWidget(extra);
    return header;
}

} // namespace

DemoWindow::DemoWindow(QWidget *parent)
    : QMainWindow(parent)
{
    setWindowTitle(QStringLiteral("Video wall inputs · signaltreelist demo"));
    buildUi();
    buildActions();
    connectList();
    updateStatus();
    resize(1200, 820);
}

DemoWindow::~DemoWindow() = default;

SignalTreeList *DemoWindow::list() const
{
    return m_pList;
}

QFrame *DemoWindow::panel() const
{
    return m_pPanel;
}

QStringList DemoWindow::logLines() const
{
    return m_lstLogLines;
}

void DemoWindow::setEchoToStdout(bool echo)
{
    m_bEcho = echo;
}

void DemoWindow::buildUi()
{
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setObjectName(QStringLiteral("DemoSplitter"));
    splitter->setHandleWidth(2);
    splitter->setChildrenCollapsible(false);

    // Left: the list. SignalTreeList is created on the panel; initControls()
    // installs a layout on that panel and lays the list out inside it.
    auto *left = new QWidget;
    auto *leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->setSpacing(0);
    leftLayout->addWidget(makeHeader(QStringLiteral("SignalPanelHeader"),
                                     QStringLiteral("Input signals"),
                                     QStringLiteral("double-click a source to open it")));
    m_pPanel = new QFrame;
    m_pPanel->setObjectName(QStringLiteral("SignalPanel"));
    leftLayout->addWidget(m_pPanel, 1);
    m_pList = new SignalTreeList(m_pPanel);
    m_pList->initControls();
    // The status bar names the row that has the keyboard focus: the list
    // tells assistive technology, and so the host, through QAccessible.
    m_pList->getSignalTreeListFrame()->installEventFilter(this);
    left->setMinimumWidth(360);

    // Right: the log of every signal.
    auto *right = new QFrame;
    right->setObjectName(QStringLiteral("LogPanel"));
    auto *rightLayout = new QVBoxLayout(right);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    rightLayout->setSpacing(0);
    auto *clearLog = new QPushButton(QStringLiteral("Clear log"));
    clearLog->setObjectName(QStringLiteral("ClearLog"));
    clearLog->setCursor(Qt::PointingHandCursor);
    rightLayout->addWidget(makeHeader(QStringLiteral("LogHeader"),
                                      QStringLiteral("Signals from the list"),
                                      QStringLiteral("path · what getItemSignalNode() answers"),
                                      clearLog));
    m_pLog = new QPlainTextEdit;
    m_pLog->setObjectName(QStringLiteral("SignalLog"));
    m_pLog->setReadOnly(true);
    m_pLog->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    m_pLog->document()->setDocumentMargin(10);
    QFont mono = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!QFontInfo(mono).fixedPitch()) {
        // Headless platforms may answer with a proportional font.
        mono.setFamily(QStringLiteral("DejaVu Sans Mono"));
        mono.setStyleHint(QFont::TypeWriter);
    }
    mono.setPointSize(9);
    m_pLog->setFont(mono);
    rightLayout->addWidget(m_pLog, 1);
    connect(clearLog, &QPushButton::clicked, this, [this] {
        m_pLog->clear();
        m_lstLogLines.clear();
    });

    splitter->addWidget(left);
    splitter->addWidget(right);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({380, 700});
    setCentralWidget(splitter);

    m_pStatus = new QLabel;
    statusBar()->addWidget(m_pStatus, 1);
    statusBar()->setSizeGripEnabled(false);
}

void DemoWindow::buildActions()
{
    auto *toolBar = addToolBar(QStringLiteral("Operations"));
    toolBar->setObjectName(QStringLiteral("DemoToolBar"));
    toolBar->setMovable(false);
    toolBar->setToolButtonStyle(Qt::ToolButtonTextOnly);

    auto make = [this](const QString &text, const QString &tip, void (DemoWindow::*slot)(),
                       const QKeySequence &keys = QKeySequence()) {
        auto *action = new QAction(text, this);
        action->setToolTip(tip);
        action->setStatusTip(tip);
        if (!keys.isEmpty())
            action->setShortcut(keys);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };

    QAction *addSourceAct = make(QStringLiteral("Add source"),
                                 QStringLiteral("addRootItem(root, children): a new input board with two signals"),
                                 &DemoWindow::addSource, QKeySequence(QStringLiteral("Ctrl+N")));
    QAction *addGroupAct = make(QStringLiteral("Add group"),
                                QStringLiteral("addRootItem(root): an empty signal group (iType 1)"),
                                &DemoWindow::addGroup, QKeySequence(QStringLiteral("Ctrl+G")));
    QAction *addSignalsAct = make(QStringLiteral("Add signals"),
                                  QStringLiteral("addChildItem([root], children) under the typed or last clicked root"),
                                  &DemoWindow::addSignals, QKeySequence(QStringLiteral("Ctrl+I")));
    QAction *deleteAct = make(QStringLiteral("Delete"),
                              QStringLiteral("deleteChildeItem(last clicked path)"),
                              &DemoWindow::deleteSelected, QKeySequence(QKeySequence::Delete));
    QAction *deletePathAct = make(QStringLiteral("Delete typed path"),
                                  QStringLiteral("deleteChildeItem(typed path): [r] removes a root, [r, c] a child"),
                                  &DemoWindow::deleteAtPath);
    QAction *deleteRootAct = make(QStringLiteral("Delete root"),
                                  QStringLiteral("deleteRootItem(root of the typed or last clicked path)"),
                                  &DemoWindow::deleteRoot);
    QAction *modifyAct = make(QStringLiteral("Modify"),
                              QStringLiteral("modifyItemData(path, record): the control modifies root 0 only"),
                              &DemoWindow::modifySelected, QKeySequence(QStringLiteral("F2")));
    QAction *selectAct = make(QStringLiteral("Select"),
                              QStringLiteral("setCurSelItem(typed path)"), &DemoWindow::selectPath);
    QAction *expandAct = make(QStringLiteral("Expand"),
                              QStringLiteral("setIsShowChildItem(root, true)"), &DemoWindow::expandRoot);
    QAction *collapseAct = make(QStringLiteral("Collapse"),
                                QStringLiteral("setIsShowChildItem(root, false)"), &DemoWindow::collapseRoot);
    QAction *expandAllAct = make(QStringLiteral("Expand all"),
                                 QStringLiteral("setIsShowChildItem(r, true) for every root"),
                                 &DemoWindow::expandAll, QKeySequence(QStringLiteral("Ctrl++")));
    QAction *collapseAllAct = make(QStringLiteral("Collapse all"),
                                   QStringLiteral("setIsShowChildItem(r, false) for every root"),
                                   &DemoWindow::collapseAll, QKeySequence(QStringLiteral("Ctrl+-")));
    QAction *clearAct = make(QStringLiteral("Clear"), QStringLiteral("clearTree()"), &DemoWindow::clearList);
    QAction *rebuildAct = make(QStringLiteral("Rebuild"),
                               QStringLiteral("clearTree() then updateTreeList(data set)"),
                               &DemoWindow::rebuildList, QKeySequence(QStringLiteral("Ctrl+R")));
    QAction *retranslateAct = make(QStringLiteral("Re-apply texts"), QStringLiteral("reTranslateUI()"),
                                   &DemoWindow::retranslate);
    QAction *quitAct = new QAction(QStringLiteral("Quit"), this);
    quitAct->setShortcut(QKeySequence::Quit);
    connect(quitAct, &QAction::triggered, this, &QWidget::close);

    m_pDragAction = new QAction(QStringLiteral("Drag"), this);
    m_pDragAction->setCheckable(true);
    m_pDragAction->setToolTip(QStringLiteral("setIsDrag(on/off): drag a selected child row onto another row"));
    m_pDragAction->setStatusTip(m_pDragAction->toolTip());
    connect(m_pDragAction, &QAction::toggled, this, &DemoWindow::setDragEnabled);

    m_pShowAction = new QAction(QStringLiteral("Show list"), this);
    m_pShowAction->setCheckable(true);
    m_pShowAction->setChecked(true);
    m_pShowAction->setToolTip(QStringLiteral("setSignalTreeListFrameVisiable(on/off)"));
    m_pShowAction->setStatusTip(m_pShowAction->toolTip());
    connect(m_pShowAction, &QAction::toggled, this, &DemoWindow::setListVisible);

    m_pPathEdit = new QLineEdit;
    m_pPathEdit->setPlaceholderText(QStringLiteral("1,2"));
    m_pPathEdit->setText(QStringLiteral("1,2"));
    m_pPathEdit->setFixedWidth(64);
    m_pPathEdit->setToolTip(QStringLiteral("An index path: \"r\" for a root row, \"r,c\" for a child row"));
    connect(m_pPathEdit, &QLineEdit::returnPressed, this, &DemoWindow::selectPath);

    m_pGroupNameEdit = new QLineEdit;
    m_pGroupNameEdit->setText(QStringLiteral("Group A"));
    m_pGroupNameEdit->setFixedWidth(100);
    m_pGroupNameEdit->setToolTip(QStringLiteral(
        "Answer to signal_OnGetNewRootName(): passed to setSignalRootName(); empty = let the list name it"));

    // Menus: every operation.
    QMenu *listMenu = menuBar()->addMenu(QStringLiteral("&List"));
    listMenu->addActions({addSourceAct, addGroupAct, addSignalsAct});
    listMenu->addSeparator();
    listMenu->addActions({modifyAct, deleteAct, deletePathAct, deleteRootAct});
    listMenu->addSeparator();
    listMenu->addActions({clearAct, rebuildAct});
    listMenu->addSeparator();
    listMenu->addAction(quitAct);

    QMenu *viewMenu = menuBar()->addMenu(QStringLiteral("&View"));
    viewMenu->addActions({selectAct, expandAct, collapseAct, expandAllAct, collapseAllAct});
    viewMenu->addSeparator();
    viewMenu->addActions({m_pDragAction, m_pShowAction, retranslateAct});

    QMenu *helpMenu = menuBar()->addMenu(QStringLiteral("&Help"));
    helpMenu->addAction(QStringLiteral("About this demo"), this, &DemoWindow::showAbout);

    // Tool bar: the everyday ones.
    toolBar->addActions({addSourceAct, addSignalsAct, modifyAct, deleteAct});
    toolBar->addSeparator();
    toolBar->addWidget(new QLabel(QStringLiteral("Path")));
    toolBar->addWidget(m_pPathEdit);
    toolBar->addActions({selectAct, expandAct, collapseAct});
    toolBar->addSeparator();
    toolBar->addWidget(new QLabel(QStringLiteral("Next group")));
    toolBar->addWidget(m_pGroupNameEdit);
    toolBar->addActions({m_pDragAction});
    toolBar->addSeparator();
    toolBar->addActions({clearAct, rebuildAct});
}

void DemoWindow::connectList()
{
    connect(m_pList, &SignalTreeList::signal_OnDeleteItem, this, &DemoWindow::onDeleteItem);
    connect(m_pList, &SignalTreeList::signal_OnDeleteRootItem, this, &DemoWindow::onDeleteRootItem);
    connect(m_pList, &SignalTreeList::signal_OnDeleteSecondItem, this, &DemoWindow::onDeleteSecondItem);
    connect(m_pList, &SignalTreeList::signal_OnAddRootItem, this, &DemoWindow::onAddRootItem);
    connect(m_pList, &SignalTreeList::signal_OnAddSecondItems, this, &DemoWindow::onAddSecondItems);
    connect(m_pList, &SignalTreeList::signal_OnCurrentItemClicked, this,
            &DemoWindow::onCurrentItemClicked);
    // Direct, so that setSignalRootName() runs before the list names the group.
    connect(m_pList, &SignalTreeList::signal_OnGetNewRootName, this, &DemoWindow::onGetNewRootName,
            Qt::DirectConnection);
    connect(m_pList, &SignalTreeList::signal_OnEditBtnClicked, this, &DemoWindow::onEditBtnClicked);
    connect(m_pList, &SignalTreeList::signal_OnDeleteBtnClicked, this, &DemoWindow::onDeleteBtnClicked);
    connect(m_pList, &SignalTreeList::signal_OnCaptureBtnClicked, this,
            &DemoWindow::onCaptureBtnClicked);
}

void DemoWindow::fillFromDataSet()
{
    const DemoData::Tree tree = DemoData::defaultTree();
    m_pList->updateTreeList(tree);
    m_iRootCount = tree.size();
    logCall(QStringLiteral("updateTreeList"),
            QStringLiteral("%1 roots in key order, %2 signals")
                .arg(tree.size())
                .arg([&tree] {
                    int n = 0;
                    for (const auto &children : tree)
                        n += children.size();
                    return n;
                }()));
    // New roots start collapsed; open the first board and the mosaic group.
    for (int root : {0, 5}) {
        if (root < m_iRootCount) {
            m_pList->setIsShowChildItem(root, true);
            logCall(QStringLiteral("setIsShowChildItem"), QStringLiteral("%1, true").arg(root));
        }
    }
    updateStatus();
}

void DemoWindow::fillRoom(int roots, int children, bool open)
{
    // A generated control room, one call per board, as a host loading a
    // large installation would fill it.
    for (int r = 0; r < roots; ++r) {
        st_NodeInfoSignal board;
        board.strNodeName = QStringList{QStringLiteral("Board %1").arg(r + 1)};
        board.iType = 1;
        QList<st_NodeInfoSignal> inputs;
        for (int c = 0; c < children; ++c) {
            st_NodeInfoSignal input;
            input.strNodeName = QStringList{QStringLiteral("Board %1 input %2").arg(r + 1).arg(c + 1),
                                            QStringLiteral("1920x1080@60")};
            input.iType = c % 5;
            input.isOnline = (r + c) % 7 != 0;
            inputs << input;
        }
        m_pList->addRootItem(board, inputs);
        if (open)
            m_pList->setIsShowChildItem(r, true);
    }
    m_iRootCount += roots;
    logCall(QStringLiteral("addRootItem"), QStringLiteral("%1 boards of %2 inputs%3")
                                               .arg(roots)
                                               .arg(children)
                                               .arg(open ? QStringLiteral(", every board open") : QString()));
    updateStatus();
}

// ---- log ----------------------------------------------------------------

QString DemoWindow::pathText(const QList<int> &path)
{
    QStringList parts;
    for (int index : path)
        parts << QString::number(index);
    return QLatin1Char('[') + parts.join(QStringLiteral(", ")) + QLatin1Char(']');
}

void DemoWindow::appendLog(const QString &kind, const QString &head, const QString &rest)
{
    const QString time = QTime::currentTime().toString(QStringLiteral("hh:mm:ss.zzz"));
    const QString plain = QStringLiteral("%1 %2 %3 %4").arg(time, kind, head, rest).trimmed();
    m_lstLogLines << plain;
    if (m_bEcho) {
        std::fputs(plain.toLocal8Bit().constData(), stdout);
        std::fputc('\n', stdout);
        std::fflush(stdout);
    }

    QString html = QStringLiteral("<span style=\"color:%1\">%2</span>&nbsp;").arg(QLatin1String(kTimeColour), time);
    if (kind == QLatin1String("signal")) {
        html += QStringLiteral("<span style=\"color:%1;font-weight:bold\">%2</span>")
                    .arg(QLatin1String(kSignalColour), head.toHtmlEscaped());
    } else if (kind == QLatin1String("call")) {
        html += QStringLiteral("<span style=\"color:%1\">&#9656; %2</span>")
                    .arg(QLatin1String(kCallColour), head.toHtmlEscaped());
    } else {
        html += QStringLiteral("<span style=\"color:%1;font-style:italic\">%2</span>")
                    .arg(QLatin1String(kLookupColour), head.toHtmlEscaped());
    }
    if (!rest.isEmpty()) {
        const QString colour = kind == QLatin1String("note") ? QLatin1String(kLookupColour)
                                                              : QLatin1String(kTextColour);
        // What getItemSignalNode() answered follows the separator; it is
        // shown dimmer, after an arrow.
        const int split = rest.indexOf(QStringLiteral("  -> "));
        const QString main = split >= 0 ? rest.left(split) : rest;
        html += QStringLiteral("&nbsp;<span style=\"color:%1\">%2</span>").arg(colour, main.toHtmlEscaped());
        if (split >= 0) {
            html += QStringLiteral("&nbsp;&nbsp;<span style=\"color:%1\">&#8594; %2</span>")
                        .arg(QLatin1String(kLookupColour), rest.mid(split + 5).toHtmlEscaped());
        }
    }
    m_pLog->appendHtml(html);
}

void DemoWindow::logSignal(const QString &name, const QString &args, const QString &lookupText)
{
    appendLog(QStringLiteral("signal"), name,
              lookupText.isEmpty() ? args : args + QStringLiteral("  -> ") + lookupText);
}

void DemoWindow::logCall(const QString &operation, const QString &detail)
{
    appendLog(QStringLiteral("call"), operation + QStringLiteral("(") + detail + QStringLiteral(")"),
              QString());
}

void DemoWindow::logNote(const QString &text)
{
    appendLog(QStringLiteral("note"), text, QString());
}

QString DemoWindow::lookup(const QList<int> &path)
{
    const std::pair<bool, st_NodeInfoSignal> answer = m_pList->getItemSignalNode(path);
    const QString record = answer.second.strNodeName.isEmpty()
        ? QStringLiteral("empty record")
        : QLatin1Char('"') + DemoData::displayName(answer.second) + QLatin1Char('"');
    QString text = QStringLiteral("getItemSignalNode: (%1, %2)")
                       .arg(answer.first ? QStringLiteral("true") : QStringLiteral("false"), record);
    if (!path.isEmpty() && path.first() != 0)
        text += QStringLiteral(", answers for root 0 only");
    else if (path.size() == 2 && !answer.second.strNodeName.isEmpty())
        text += QStringLiteral(", child %1 of the last root that has one").arg(path.last());
    return text;
}

// ---- the ten signals --------------------------------------------------------

void DemoWindow::onDeleteItem(QList<int> path)
{
    logSignal(QStringLiteral("signal_OnDeleteItem"), pathText(path), lookup(path));
}

void DemoWindow::onDeleteRootItem(int root)
{
    logSignal(QStringLiteral("signal_OnDeleteRootItem"), QString::number(root));
}

void DemoWindow::onDeleteSecondItem(int root, int child)
{
    logSignal(QStringLiteral("signal_OnDeleteSecondItem"), QStringLiteral("%1, %2").arg(root).arg(child));
}

void DemoWindow::onAddRootItem(QString name)
{
    ++m_iRootCount;
    logSignal(QStringLiteral("signal_OnAddRootItem"), QLatin1Char('"') + name + QLatin1Char('"'));
    updateStatus();
}

void DemoWindow::onAddSecondItems(QList<int> source, QList<int> target)
{
    logSignal(QStringLiteral("signal_OnAddSecondItems"),
              pathText(source) + QStringLiteral(" under ") + pathText(target));
}

void DemoWindow::onCurrentItemClicked(QList<int> path)
{
    m_lstLastPath = path;
    logSignal(QStringLiteral("signal_OnCurrentItemClicked"), pathText(path), lookup(path));
    updateStatus();
}

void DemoWindow::onGetNewRootName()
{
    const QString name = m_pGroupNameEdit->text().trimmed();
    if (name.isEmpty()) {
        logSignal(QStringLiteral("signal_OnGetNewRootName"), QString(),
                  QStringLiteral("no answer: the list makes up a name"));
        return;
    }
    m_pList->setSignalRootName(name);
    logSignal(QStringLiteral("signal_OnGetNewRootName"), QString(),
              QStringLiteral("answered setSignalRootName(\"%1\")").arg(name));
}

void DemoWindow::onEditBtnClicked(QList<int> path)
{
    logSignal(QStringLiteral("signal_OnEditBtnClicked"), pathText(path), lookup(path));
}

void DemoWindow::onDeleteBtnClicked(QList<int> path)
{
    logSignal(QStringLiteral("signal_OnDeleteBtnClicked"), pathText(path), lookup(path));
}

void DemoWindow::onCaptureBtnClicked(QList<int> path)
{
    logSignal(QStringLiteral("signal_OnCaptureBtnClicked"), pathText(path), lookup(path));
}

// ---- operations -------------------------------------------------------------

QList<int> DemoWindow::typedPath(bool *ok) const
{
    QList<int> path;
    const QStringList parts = m_pPathEdit->text().split(QLatin1Char(','), Qt::KeepEmptyParts);
    bool valid = !m_pPathEdit->text().trimmed().isEmpty();
    for (const QString &part : parts) {
        bool partOk = false;
        const int value = part.trimmed().toInt(&partOk, 10);
        valid = valid && partOk;
        path << value;
    }
    if (ok)
        *ok = valid;
    return valid ? path : QList<int>();
}

int DemoWindow::targetRoot() const
{
    bool ok = false;
    const QList<int> path = typedPath(&ok);
    if (ok && !path.isEmpty())
        return path.first();
    if (!m_lstLastPath.isEmpty())
        return m_lstLastPath.first();
    return 0;
}

void DemoWindow::addSource()
{
    st_NodeInfoSignal root = DemoData::newSource(m_iNextBoard);
    const QList<st_NodeInfoSignal> children = DemoData::newSignals(m_iNextBoard);
    ++m_iNextBoard;
    m_pList->addRootItem(root, children);
    ++m_iRootCount;
    logCall(QStringLiteral("addRootItem"), QStringLiteral("\"%1\", %2 children")
                                               .arg(DemoData::displayName(root))
                                               .arg(children.size()));
    updateStatus();
}

void DemoWindow::addGroup()
{
    st_NodeInfoSignal group = DemoData::root(QStringLiteral("Group · New group %1").arg(m_iNextGroup),
                                             QStringLiteral("group-new-%1").arg(m_iNextGroup), true,
                                             true, 200 + m_iNextGroup, 100 + m_iNextGroup);
    ++m_iNextGroup;
    m_pList->addRootItem(group);
    ++m_iRootCount;
    logCall(QStringLiteral("addRootItem"), QStringLiteral("\"%1\"").arg(DemoData::displayName(group)));
    updateStatus();
}

void DemoWindow::addSignals()
{
    const int root = targetRoot();
    const QString source = QStringLiteral("board-extra-%1").arg(root);
    const QList<st_NodeInfoSignal> children{DemoData::newSignal(m_iNextSignal, source),
                                            DemoData::newSignal(m_iNextSignal + 1, source)};
    m_iNextSignal += 2;
    m_pList->addChildItem({root}, children);
    logCall(QStringLiteral("addChildItem"), QStringLiteral("[%1], %2 children").arg(root).arg(children.size()));
}

void DemoWindow::deleteSelected()
{
    if (m_lstLastPath.isEmpty()) {
        logNote(QStringLiteral("Nothing selected: click a child row first (root clicks are not reported)."));
        return;
    }
    const QList<int> path = m_lstLastPath;
    m_pList->deleteChildeItem(path);
    if (path.size() == 1)
        --m_iRootCount;
    m_lstLastPath.clear();
    logCall(QStringLiteral("deleteChildeItem"), pathText(path));
    updateStatus();
}

void DemoWindow::deleteAtPath()
{
    bool ok = false;
    const QList<int> path = typedPath(&ok);
    if (!ok) {
        logNote(QStringLiteral("Type a path first, e.g. 1,2 or 3."));
        return;
    }
    m_pList->deleteChildeItem(path);
    if (path.size() == 1 && path.first() >= 0 && path.first() < m_iRootCount)
        --m_iRootCount;
    m_lstLastPath.clear();
    logCall(QStringLiteral("deleteChildeItem"), pathText(path));
    updateStatus();
}

void DemoWindow::deleteRoot()
{
    const int root = targetRoot();
    m_pList->deleteRootItem(root);
    if (root >= 0 && root < m_iRootCount)
        --m_iRootCount;
    m_lstLastPath.clear();
    logCall(QStringLiteral("deleteRootItem"), QString::number(root));
    updateStatus();
}

void DemoWindow::modifySelected()
{
    bool ok = false;
    QList<int> path = m_lstLastPath;
    if (path.isEmpty())
        path = typedPath(&ok);
    if (path.isEmpty()) {
        logNote(QStringLiteral("Nothing to modify: click a child row or type a path."));
        return;
    }
    st_NodeInfoSignal node = m_pList->getItemSignalNode(path).second;
    if (node.strNodeName.isEmpty()) {
        node = path.size() == 1
            ? DemoData::root(QStringLiteral("Edited source"), QStringLiteral("board-edited"), false, true, 0, 0)
            : DemoData::signal(QStringLiteral("Edited signal"), QStringLiteral("1920x1080@60"), 1, true,
                               QStringLiteral("board-edited"), {true, true, true});
    }
    QInputDialog dialog(this);
    dialog.setWindowTitle(QStringLiteral("Modify %1").arg(pathText(path)));
    dialog.setLabelText(QStringLiteral("New name for %1:").arg(pathText(path)));
    dialog.setTextValue(node.strNodeName.first() + QStringLiteral(" (edited)"));
    dialog.resize(360, dialog.sizeHint().height());
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString name = dialog.textValue();
    node.strNodeName[0] = name;
    m_pList->modifyItemData(path, node);
    logCall(QStringLiteral("modifyItemData"), pathText(path) + QStringLiteral(", \"") + name + QLatin1Char('"'));
    if (path.first() != 0)
        logNote(QStringLiteral("The list modifies root 0 only: [0] rewrites root 0, [0, c] child c under every root."));
}

void DemoWindow::selectPath()
{
    bool ok = false;
    const QList<int> path = typedPath(&ok);
    if (!ok) {
        logNote(QStringLiteral("Not an index path: \"%1\" (type r or r,c).").arg(m_pPathEdit->text()));
        return;
    }
    logCall(QStringLiteral("setCurSelItem"), pathText(path));
    m_pList->setCurSelItem(path);
}

void DemoWindow::expandRoot()
{
    const int root = targetRoot();
    m_pList->setIsShowChildItem(root, true);
    logCall(QStringLiteral("setIsShowChildItem"), QStringLiteral("%1, true").arg(root));
}

void DemoWindow::collapseRoot()
{
    const int root = targetRoot();
    m_pList->setIsShowChildItem(root, false);
    logCall(QStringLiteral("setIsShowChildItem"), QStringLiteral("%1, false").arg(root));
}

void DemoWindow::expandAll()
{
    for (int root = 0; root < m_iRootCount; ++root)
        m_pList->setIsShowChildItem(root, true);
    logCall(QStringLiteral("setIsShowChildItem"), QStringLiteral("0..%1, true").arg(m_iRootCount - 1));
}

void DemoWindow::collapseAll()
{
    for (int root = 0; root < m_iRootCount; ++root)
        m_pList->setIsShowChildItem(root, false);
    logCall(QStringLiteral("setIsShowChildItem"), QStringLiteral("0..%1, false").arg(m_iRootCount - 1));
}

void DemoWindow::setDragEnabled(bool enabled)
{
    m_pList->setIsDrag(enabled);
    logCall(QStringLiteral("setIsDrag"), enabled ? QStringLiteral("true") : QStringLiteral("false"));
    if (enabled)
        logNote(QStringLiteral("Select a child row, then drag it onto a row of another root. The list "
                               "records the drop; this version does not complete the drag, so no "
                               "grouping signal follows."));
    updateStatus();
}

void DemoWindow::setListVisible(bool visible)
{
    m_pList->setSignalTreeListFrameVisiable(visible);
    logCall(QStringLiteral("setSignalTreeListFrameVisiable"),
            visible ? QStringLiteral("true") : QStringLiteral("false"));
}

void DemoWindow::clearList()
{
    m_pList->clearTree();
    m_iRootCount = 0;
    m_lstLastPath.clear();
    logCall(QStringLiteral("clearTree"));
    updateStatus();
}

void DemoWindow::rebuildList()
{
    clearList();
    fillFromDataSet();
}

void DemoWindow::retranslate()
{
    m_pList->reTranslateUI();
    logCall(QStringLiteral("reTranslateUI"));
}

void DemoWindow::showAbout()
{
    QMessageBox::about(this, QStringLiteral("About this demo"),
                       QStringLiteral("<p><b>signaltreelist demo host</b></p>"
                                      "<p>The list on the left is a SignalTreeList filled from an "
                                      "embedded data set. Every signal it emits is logged on the "
                                      "right with its index path; the menus call every public "
                                      "operation.</p>"));
}

bool DemoWindow::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::MouseButtonPress:
        // After the list has handled it.
        QTimer::singleShot(0, this, &DemoWindow::updateStatus);
        break;
    default:
        break;
    }
    return QMainWindow::eventFilter(watched, event);
}

QString DemoWindow::focusedRowName() const
{
    QFrame *frame = m_pList ? m_pList->getSignalTreeListFrame() : nullptr;
    QAccessibleInterface *tree = frame ? QAccessible::queryAccessibleInterface(frame) : nullptr;
    QAccessibleInterface *row = tree ? tree->focusChild() : nullptr;
    return row ? row->text(QAccessible::Name) : QString();
}

void DemoWindow::updateStatus()
{
    if (!m_pStatus)
        return;
    const QString focused = focusedRowName();
    m_pStatus->setText(QStringLiteral("Roots: %1   ·   Last clicked: %2   ·   Drag: %3   ·   Keyboard focus: %4")
                           .arg(m_iRootCount)
                           .arg(m_lstLastPath.isEmpty() ? QStringLiteral("none") : pathText(m_lstLastPath))
                           .arg(m_pDragAction && m_pDragAction->isChecked() ? QStringLiteral("on")
                                                                           : QStringLiteral("off"))
                           .arg(focused.isEmpty() ? QStringLiteral("not in the list") : focused));
}
