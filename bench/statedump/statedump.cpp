// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// signaltreelist_statedump: drives a SignalTreeList through a fixed host
// scenario and prints, after every step, everything a host could observe:
// for every widget under the host window its class, object name, geometry,
// visibility, polish and laid-out flags, size limits, dynamic properties,
// font, palette, tool tip, label text and layout items; the signals and
// debug lines of the step; and a digest of the window's pixels.
//
//   signaltreelist_statedump none|sheet [STYLE_SHEET]
//
// bench/statediff.sh runs it against two builds of the library (for
// example before and after a performance change) and reports the steps
// whose dumps differ.
#include <SignalTreeList.h>

#include <QApplication>
#include <QCryptographicHash>
#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTextStream>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <cstdio>

namespace {

QTextStream out(stdout);
QWidget *host = nullptr;
SignalTreeList *list = nullptr;
QStringList seen; // signals and debug lines of the current step

QString describeLayout(QLayout *layout)
{
    if (!layout)
        return QStringLiteral("-");
    QStringList parts;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (QWidget *w = item->widget())
            parts << QStringLiteral("W:") + w->metaObject()->className() + QLatin1Char('/') + w->objectName();
        else if (item->layout())
            parts << QStringLiteral("L(") + describeLayout(item->layout()) + QLatin1Char(')');
        else
            parts << QStringLiteral("S%1x%2").arg(item->sizeHint().width()).arg(item->sizeHint().height());
    }
    return parts.join(QLatin1Char(','));
}

void dumpWidget(QWidget *w, int depth)
{
    QStringList props;
    for (const QByteArray &name : w->dynamicPropertyNames())
        props << QString::fromLatin1(name) + QLatin1Char('=') + w->property(name.constData()).toString();
    std::sort(props.begin(), props.end());
    const QPalette p = w->palette();
    out << QString(depth * 2, QLatin1Char(' ')) << w->metaObject()->className() << " '" << w->objectName()
        << "' geo=" << w->x() << ',' << w->y() << ',' << w->width() << 'x' << w->height()
        << " vis=" << w->isVisible() << " hid=" << w->isHidden()
        << " pol=" << w->testAttribute(Qt::WA_WState_Polished) << " laid=" << w->testAttribute(Qt::WA_LaidOut)
        << " min=" << w->minimumWidth() << 'x' << w->minimumHeight() << " max=" << w->maximumWidth() << 'x'
        << w->maximumHeight() << " props{" << props.join(QLatin1Char(';')) << "} font=" << w->font().toString()
        << " pal=" << p.color(QPalette::Window).name() << p.color(QPalette::WindowText).name()
        << p.color(QPalette::Base).name() << p.color(QPalette::Text).name() << p.color(QPalette::Button).name()
        << p.color(QPalette::ButtonText).name() << " tip='" << w->toolTip()
        << "' hover=" << w->testAttribute(Qt::WA_Hover) << " styled=" << w->testAttribute(Qt::WA_StyledBackground)
        << " autofill=" << w->autoFillBackground();
    if (QLabel *label = qobject_cast<QLabel *>(w))
        out << " text='" << label->text() << "' pixmap=" << !label->pixmap(Qt::ReturnByValue).isNull();
    out << " layout=[" << describeLayout(w->layout()) << "]\n";
    for (QObject *child : w->children()) {
        if (child->isWidgetType())
            dumpWidget(static_cast<QWidget *>(child), depth + 1);
    }
}

void drain()
{
    for (int i = 0; i < 20; ++i) {
        QApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void dump(const QString &step)
{
    out << "=== " << step << '\n';
    dumpWidget(host, 0);
    out << "seen: " << seen.join(QStringLiteral(" | ")) << '\n';
    seen.clear();
    if (host->isVisible()) {
        const QImage image = host->grab().toImage();
        const QByteArray bytes(reinterpret_cast<const char *>(image.constBits()), int(image.sizeInBytes()));
        out << "pixels " << QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex() << '\n';
    }
    out.flush();
}

st_NodeInfoSignal node(const QStringList &names, int source, int type, bool online = true)
{
    st_NodeInfoSignal n;
    n.strNodeName = names;
    n.strSourceName = QStringLiteral("src%1").arg(source);
    n.iInputSourceNo = source;
    n.iType = type;
    n.isOnline = online;
    n.showOpBtn = QList<bool>() << true << true << true;
    return n;
}

QList<QWidget *> named(const char *name)
{
    return host->findChildren<QWidget *>(QString::fromLatin1(name));
}

void click(QWidget *w)
{
    const QPoint pos(w->width() - 3, 3);
    QMouseEvent press(QEvent::MouseButtonPress, pos, w->mapToGlobal(pos), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(w, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, pos, w->mapToGlobal(pos), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QApplication::sendEvent(w, &release);
}

void hover(QWidget *w, bool in)
{
    QEvent event(in ? QEvent::Enter : QEvent::Leave);
    QApplication::sendEvent(w, &event);
}

QString path(const QList<int> &p)
{
    QStringList parts;
    for (int i : p)
        parts << QString::number(i);
    return parts.join(QLatin1Char(','));
}

} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &message) {
        if (type == QtDebugMsg)
            seen << QStringLiteral("debug:") + message;
        else if (!message.contains(QLatin1String("propagateSizeHints")))
            std::fprintf(stderr, "%s\n", qPrintable(message));
    });
    int qtArgc = 1;
    QApplication app(qtArgc, argv);
    const QString look = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("none");
    QString sheet;
    if (look != QLatin1String("none")) {
        QFile file(argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString());
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
            std::fprintf(stderr, "statedump: cannot read the style sheet\n");
            return 1;
        }
        // Plus rules that depend on a font, on an ancestor's state and on a
        // property of the host window, the cases a skipped re-polish could
        // get wrong.
        sheet = QString::fromUtf8(file.readAll())
            + QStringLiteral("\nSecondItem { font-size: 15px; }\n#m_qlUpper { font-size: 13px; }\n"
                             "SecondItem[isSecondItem=\"hover\"] #m_qlUpper { color: rgb(1,2,3); }\n"
                             "QWidget[theme=\"x\"] SecondItem[isSecondItem=\"press\"] { background: rgb(9,8,7); }\n"
                             "QWidget[theme=\"x\"] RootItem[isRootItem=\"press\"] { background: rgb(7,8,9); }\n");
        app.setStyleSheet(sheet);
    }

    host = new QWidget;
    host->setObjectName(QStringLiteral("host"));
    host->resize(360, 700);
    list = new SignalTreeList(host);
    list->initControls();
    QObject::connect(list, &SignalTreeList::signal_OnCurrentItemClicked,
                     [](QList<int> p) { seen << QStringLiteral("clicked(") + path(p) + QLatin1Char(')'); });
    QObject::connect(list, &SignalTreeList::signal_OnEditBtnClicked,
                     [](QList<int> p) { seen << QStringLiteral("edit(") + path(p) + QLatin1Char(')'); });

    QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree;
    for (int r = 0; r < 5; ++r) {
        QList<st_NodeInfoSignal> kids;
        for (int c = 0; c < 4; ++c) {
            const QString upper = QStringLiteral("Signal %1-%2 %3").arg(r).arg(c).arg(c == 2 ? QString(40, QLatin1Char('W')) : QString());
            const QString lower = c == 1 ? QString(30, QLatin1Char('x')) : QStringLiteral("1920x1080");
            kids << node(QStringList() << upper << lower, r, (r + c) % 19, c % 2);
        }
        tree.insert(node(QStringList() << QStringLiteral("Board %1").arg(r), r, r % 2), kids);
    }
    list->updateTreeList(tree);
    dump(QStringLiteral("after updateTreeList (before the event loop)"));
    st_NodeInfoSignal changed = node(QStringList() << QString(50, QLatin1Char('M')) << QStringLiteral("second"), 0, 3);
    list->modifyItemData(QList<int>() << 0 << 1, changed);
    dump(QStringLiteral("after modifyItemData (before the event loop)"));
    drain();
    dump(QStringLiteral("after the event loop, hidden"));
    host->show();
    drain();
    dump(QStringLiteral("shown"));
    for (int r = 0; r < 5; ++r)
        list->setIsShowChildItem(r, true);
    drain();
    dump(QStringLiteral("expanded"));

    const QList<QWidget *> kids = named("SignalSecondItem");
    const QList<QWidget *> roots = named("RootItem");
    click(kids.at(1)); drain(); dump(QStringLiteral("click child 1"));
    click(kids.at(2)); drain(); dump(QStringLiteral("click child 2"));
    click(kids.at(6)); drain(); dump(QStringLiteral("click child 6"));
    hover(kids.at(2), true); drain(); dump(QStringLiteral("enter pressed child 2"));
    hover(kids.at(2), false); drain(); dump(QStringLiteral("leave child 2"));
    hover(kids.at(3), true); drain(); dump(QStringLiteral("enter child 3"));
    hover(kids.at(3), false); drain(); dump(QStringLiteral("leave child 3"));
    hover(roots.at(1), true); drain(); dump(QStringLiteral("enter root 1"));
    hover(roots.at(1), false); drain(); dump(QStringLiteral("leave root 1"));
    click(roots.at(2)); drain(); dump(QStringLiteral("press root 2"));
    list->setCurSelItem(QList<int>() << 2); drain(); dump(QStringLiteral("setCurSelItem [2]"));
    list->setCurSelItem(QList<int>() << 1 << 2); drain(); dump(QStringLiteral("setCurSelItem [1,2]"));

    // A host theme through a dynamic property of its own window; the host
    // re-polishes only that window.
    host->setProperty("theme", QStringLiteral("x"));
    host->style()->unpolish(host);
    host->style()->polish(host);
    hover(kids.at(2), true); hover(kids.at(2), false); drain();
    dump(QStringLiteral("theme, then hover over a pressed child"));
    hover(roots.at(2), true); hover(roots.at(2), false); drain();
    dump(QStringLiteral("theme, then hover over a pressed root"));

    for (int r = 0; r < 3; ++r) {
        st_NodeInfoSignal root = node(QStringList() << QStringLiteral("Added %1").arg(r), 10 + r, 1);
        list->addRootItem(root, QList<st_NodeInfoSignal>()
                                    << node(QStringList() << QStringLiteral("a") << QStringLiteral("b"), 10 + r, 2)
                                    << node(QStringList() << QStringLiteral("c"), 10 + r, 4));
    }
    drain(); dump(QStringLiteral("addRootItem x3"));
    list->addChildItem(QList<int>() << 5, QList<st_NodeInfoSignal>() << node(QStringList() << QStringLiteral("late") << QStringLiteral("child"), 10, 1));
    drain(); dump(QStringLiteral("addChildItem"));
    list->deleteRootItem(1); drain(); dump(QStringLiteral("deleteRootItem 1"));
    list->deleteChildeItem(QList<int>() << 0 << 1); drain(); dump(QStringLiteral("deleteChildeItem [0,1]"));
    for (int r = 0; r < 7; ++r)
        list->setIsShowChildItem(r, r % 2);
    drain(); dump(QStringLiteral("collapse the odd roots"));
    if (!sheet.isEmpty()) {
        app.setStyleSheet(sheet + QStringLiteral("\nQLabel { font-size: 11px; }\n"));
        drain(); dump(QStringLiteral("style sheet changed"));
        app.setStyleSheet(sheet);
        drain(); dump(QStringLiteral("style sheet back"));
    }
    QScrollArea *area = host->findChild<QScrollArea *>();
    area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
    drain(); dump(QStringLiteral("scrolled to the end"));
    list->clearTree(); drain(); dump(QStringLiteral("cleared"));
    delete host;
    return 0;
}
