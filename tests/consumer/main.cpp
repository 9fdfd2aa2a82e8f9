// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// A tiny host: fills the list from a map, clicks a child row, reads a record
// back and loads a picture of the bundle. Exits non-zero on any mismatch.
#include <SignalTreeList.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QWidget>

#include <cstdio>

static int fail(const char *what)
{
    std::fprintf(stderr, "consumer: %s\n", what);
    return 1;
}

static st_NodeInfoSignal node(const QString &name, int sourceNo, int type)
{
    st_NodeInfoSignal n;
    n.strNodeName = QStringList() << name;
    n.strSourceName = QStringLiteral("source %1").arg(sourceNo);
    n.iInputSourceNo = sourceNo;
    n.iType = type;
    n.isOnline = true;
    return n;
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);

    const QImage picture(QStringLiteral(":/signaltype/resource/signaltype/HDMI_normal.png"));
    if (picture.isNull())
        return fail("the bundle's HDMI picture does not load");

    QWidget host;
    SignalTreeList list(&host);
    list.initControls();

    QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree;
    tree.insert(node(QStringLiteral("Board 2"), 2, 0),
                { node(QStringLiteral("HDMI 1"), 2, 1), node(QStringLiteral("HDMI 2"), 2, 1),
                  node(QStringLiteral("SDI 3"), 2, 3) });
    tree.insert(node(QStringLiteral("Board 1"), 1, 0), { node(QStringLiteral("DVI 1"), 1, 0) });
    list.updateTreeList(tree);
    host.resize(320, 480);
    host.show();
    QApplication::processEvents();

    QList<int> clicked;
    QObject::connect(&list, &SignalTreeList::signal_OnCurrentItemClicked,
                     [&clicked](QList<int> path) { clicked = path; });

    // Board 2 sorts after Board 1 (source number 2): its third signal is [1, 2].
    list.setIsShowChildItem(1, true);
    QList<QWidget *> rows; // in creation order, which is display order
    for (QWidget *w : host.findChildren<QWidget *>(QStringLiteral("SignalSecondItem"))) {
        if (w->toolTip() == QLatin1String("source 2"))
            rows.append(w);
    }
    if (rows.size() != 3)
        return fail("expected three child rows under Board 2");
    QWidget *third = rows.at(2);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(third->mapToGlobal(QPoint(5, 5))),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(third, &press);
    if (clicked != QList<int>({ 1, 2 }))
        return fail("clicking the third child of root 1 did not report [1, 2]");

    const std::pair<bool, st_NodeInfoSignal> root = list.getItemSignalNode({ 0 });
    if (!root.first || root.second.strNodeName != QStringList(QStringLiteral("Board 1")))
        return fail("getItemSignalNode([0]) did not return Board 1");

    // The catalogues travel inside the library: no file to ship.
    if (!SignalTreeList::installTranslations(QLocale(QLocale::German)))
        return fail("the German catalogue is not in the library");
    if (SignalTreeList::installTranslations(QLocale(QLocale::English)))
        return fail("English must fall back to the built-in texts");

    std::printf("consumer: ok\n");
    return 0;
}
