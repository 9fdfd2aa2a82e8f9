// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Where Tab reaches the list in its window: where its parent widget stands,
// once per round, whatever order the host created its widgets in, also in
// a form that uic built (setupUi) before the list existed.

#include "EventSender.h"
#include "NodeFactory.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"
#include "ui_tabchainform.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

namespace {

// Ways a host builds a window: a line edit "before", the list's panel, a
// line edit "after" and a button "button", the panel in layout order.
enum class Build {
    UicForm,          // setupUi first (the panel inside a group with "search"), the list after
    ListWithPanel,    // the list created right after its panel
    PanelFirst,       // the panel and the list first, the other widgets later
    ListLastInWindow, // everything, then a second panel created later holding the list
};

struct Window
{
    std::unique_ptr<QWidget> widget{new QWidget};
    SignalTreeList *list = nullptr;
    Ui::TabChainForm form{};

    QWidget *frame() const { return list->getSignalTreeListFrame(); }
};

void fill(SignalTreeList *list)
{
    const NodeFactory nodes;
    st_NodeInfoSignal root = nodes.node({QStringLiteral("R0")}, QStringLiteral("S0"));
    list->addRootItem(root, nodes.children(QStringLiteral("R0"), 2, QStringLiteral("S0")));
}

SignalTreeList *makeList(QWidget *panel)
{
    auto *list = new SignalTreeList(panel);
    list->initControls();
    fill(list);
    return list;
}

QLineEdit *lineEdit(QWidget *parent, const char *name)
{
    auto *edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(name));
    return edit;
}

std::unique_ptr<Window> build(Build how)
{
    auto window = std::make_unique<Window>();
    QWidget *w = window->widget.get();
    if (how == Build::UicForm) {
        window->form.setupUi(w);
        window->list = makeList(window->form.panel);
        return window;
    }
    auto *layout = new QVBoxLayout(w);
    const auto panel = [w] {
        auto *p = new QFrame(w);
        p->setObjectName(QStringLiteral("panel"));
        p->setMinimumHeight(200);
        return p;
    };
    const auto button = [w] {
        auto *b = new QPushButton(QStringLiteral("Apply"), w);
        b->setObjectName(QStringLiteral("button"));
        return b;
    };
    if (how == Build::ListWithPanel) {
        layout->addWidget(lineEdit(w, "before"));
        QFrame *p = panel();
        layout->addWidget(p);
        window->list = makeList(p);
        layout->addWidget(lineEdit(w, "after"));
        layout->addWidget(button());
    } else if (how == Build::PanelFirst) {
        QFrame *p = panel();
        layout->addWidget(p);
        window->list = makeList(p);
        layout->insertWidget(0, lineEdit(w, "before"));
        layout->addWidget(lineEdit(w, "after"));
        layout->addWidget(button());
    } else {
        layout->addWidget(lineEdit(w, "before"));
        QFrame *p = panel();
        layout->addWidget(p);
        layout->addWidget(lineEdit(w, "after"));
        layout->addWidget(button());
        // A second panel, made and filled after everything else, placed
        // between "before" and the first panel.
        QFrame *late = panel();
        late->setObjectName(QStringLiteral("late"));
        layout->insertWidget(1, late);
        window->list = makeList(late);
    }
    return window;
}

// The widget that has the focus, by name; the list's frame is "list".
QString focusName(const Window &window)
{
    QWidget *w = QApplication::focusWidget();
    if (!w)
        return QStringLiteral("(none)");
    return w == window.frame() ? QStringLiteral("list") : w->objectName();
}

QStringList walk(const Window &window, Qt::Key key, int steps)
{
    QStringList seen;
    for (int i = 0; i < steps; ++i) {
        QTest::keyClick(QApplication::focusWidget(), key);
        seen << focusName(window);
    }
    return seen;
}

} // namespace

Q_DECLARE_METATYPE(Build)

class tst_TabChain : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { EventSender::parkPointer(); }
    void tabRing_data();
    void tabRing();
    void listWithoutParent();
};

void tst_TabChain::tabRing_data()
{
    QTest::addColumn<Build>("how");
    QTest::addColumn<QStringList>("forward");

    // Forward from "before", twice round; backward is the same ring reversed.
    QTest::newRow("uic form, list made after setupUi")
        << Build::UicForm << QStringList{"search", "list", "after", "button", "before"};
    QTest::newRow("list made with its panel") << Build::ListWithPanel << QStringList{"list", "after", "button", "before"};
    // Creation order is Qt's tab order: the panel and the list came first.
    QTest::newRow("panel and list made first") << Build::PanelFirst << QStringList{"after", "button", "list", "before"};
    QTest::newRow("panel made last") << Build::ListLastInWindow << QStringList{"after", "button", "list", "before"};
}

void tst_TabChain::tabRing()
{
    QFETCH(Build, how);
    QFETCH(QStringList, forward);

    auto window = build(how);
    window->widget->resize(360, 520);
    window->widget->show();
    window->widget->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window->widget.get()));
    QWidget *before = window->widget->findChild<QWidget *>(QStringLiteral("before"));
    QVERIFY(before);

    before->setFocus(Qt::TabFocusReason);
    QCOMPARE(walk(*window, Qt::Key_Tab, 2 * forward.size()), forward + forward);

    // Backward from "before": the ring the other way round.
    before->setFocus(Qt::BacktabFocusReason);
    QStringList backward = forward;
    std::reverse(backward.begin(), backward.end());
    backward.removeFirst(); // "before" itself
    backward << QStringLiteral("before");
    QCOMPARE(walk(*window, Qt::Key_Backtab, 2 * backward.size()), backward + backward);

    // The list's own focus goes to its frame, still once per round.
    window->list->setFocus();
    QCOMPARE(focusName(*window), QStringLiteral("list"));
}

// Without a parent the list and its frame are windows of their own: nothing
// to place, nothing to break.
void tst_TabChain::listWithoutParent()
{
    SignalTreeList list(nullptr);
    list.initControls();
    fill(&list);
    QVERIFY(list.getSignalTreeListFrame());
    QCOMPARE(list.focusProxy(), list.getSignalTreeListFrame());
    delete list.getSignalTreeListFrame();
}

QTEST_MAIN(tst_TabChain)
#include "tst_tabchain.moc"
