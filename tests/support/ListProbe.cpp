// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "ListProbe.h"

#include "BuiltRows.h"
#include "DrawerControl.h"
#include "KeyboardNavigator.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"
#include "TreeText.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QScrollArea>
#include <QScreen>
#include <QScrollBar>

#include <utility>

namespace {

QString rectText(const QRect &r)
{
    return QStringLiteral("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

QString recordText(const st_NodeInfoSignal &n)
{
    QStringList flags;
    for (bool b : n.showOpBtn)
        flags << (b ? QStringLiteral("1") : QStringLiteral("0"));
    return QStringLiteral("[%1] src=%2 on=%3 type=%4 btn=%5 data=%6/%7 grp=%8 in=%9/%10")
        .arg(n.strNodeName.join(u'|'), n.strSourceName)
        .arg(n.isOnline)
        .arg(n.iType)
        .arg(flags.join(QString()))
        .arg(n.nNodeData1)
        .arg(n.nNodeData2)
        .arg(n.iSignalGroupNo)
        .arg(n.eInputSourceType)
        .arg(n.iInputSourceNo);
}

// One widget: what it is, where it is relative to @p origin, what it shows.
QString widgetText(const QWidget *w, const QWidget *origin)
{
    // By name: the order Qt keeps them in is the order they were first set,
    // which no host sees.
    QStringList props;
    for (const QByteArray &name : w->dynamicPropertyNames())
        props << QStringLiteral("%1=%2").arg(QString::fromLatin1(name), w->property(name.constData()).toString());
    props.sort();
    // Nor has it a text on screen: a label is always given its text anew
    // before it is shown again.
    const bool shown = w->isVisibleTo(origin);
    QString text;
    if (!shown)
        text = QStringLiteral("(hidden)");
    else if (auto *label = qobject_cast<const QLabel *>(w))
        text = label->text();
    else if (auto *button = qobject_cast<const QAbstractButton *>(w))
        text = button->text() + (button->isChecked() ? QStringLiteral(" checked") : QString());
    // A hidden widget has no place on screen: Qt leaves whatever geometry it
    // had, or never laid it out.
    return QStringLiteral("%1 '%2' %3 {%4} tip='%5' text='%6' name='%7'")
        .arg(QString::fromLatin1(w->metaObject()->className()), w->objectName(),
             shown ? rectText(QRect(w->mapTo(origin, QPoint(0, 0)), w->size())) : QStringLiteral("hidden"),
             props.join(u' '), w->toolTip(), text, w->accessibleName());
}

// A row and every widget inside it.
void dumpRow(QStringList &out, const QString &key, QWidget *row, const QWidget *frame)
{
    out << key + QStringLiteral(": ") + widgetText(row, frame);
    for (QWidget *child : row->findChildren<QWidget *>())
        out << key + QStringLiteral("  ") + widgetText(child, row);
}

QString stateText(const QAccessible::State &s)
{
    const std::pair<bool, const char *> flags[] = {{s.selected, "selected"},     {s.focused, "focused"},
                                                   {s.expandable, "expandable"}, {s.expanded, "expanded"},
                                                   {s.collapsed, "collapsed"},   {s.invisible, "invisible"}};
    QStringList on;
    for (const auto &flag : flags) {
        if (flag.first)
            on << QLatin1String(flag.second);
    }
    return on.join(u',');
}

void dumpAccessible(QStringList &out, QAccessibleInterface *iface, const QString &indent)
{
    if (!iface)
        return;
    QString actions;
    if (QAccessibleActionInterface *a = iface->actionInterface())
        actions = a->actionNames().join(u',');
    out << QStringLiteral("a11y %1%2 '%3' '%4' [%5] (%6)")
               .arg(indent)
               .arg(iface->role())
               .arg(iface->text(QAccessible::Name), iface->text(QAccessible::Description),
                    stateText(iface->state()), actions);
    for (int i = 0; i < iface->childCount(); ++i)
        dumpAccessible(out, iface->child(i), indent + QStringLiteral("  "));
}

} // namespace

QStringList ListProbe::dump(SignalTreeList *list)
{
    QStringList out;
    auto *frame = qobject_cast<TreeListFrame *>(list->getSignalTreeListFrame());
    if (!frame)
        return out << QStringLiteral("no frame");
    if (auto *area = frame->findChild<QScrollArea *>()) {
        const QScrollBar *v = area->verticalScrollBar();
        const QScrollBar *h = area->horizontalScrollBar();
        out << QStringLiteral("scroll v %1..%2 at %3 page %4, h %5..%6 at %7")
                   .arg(v->minimum())
                   .arg(v->maximum())
                   .arg(v->value())
                   .arg(v->pageStep())
                   .arg(h->minimum())
                   .arg(h->maximum())
                   .arg(h->value());
    }
    const KeyboardNavigator *keys = KeyboardNavigator::of(frame);
    QString focus = QStringLiteral("none");
    const QList<DrawerControl *> drawers = frame->drawers();
    for (int r = 0; r < drawers.size(); ++r) {
        DrawerControl *d = drawers.at(r);
        if (!d) {
            out << QStringLiteral("%1: null").arg(r);
            continue;
        }
        const QString key = QString::number(r);
        out << key + QStringLiteral(" drawer ") + widgetText(d, frame)
                   + QStringLiteral(" sel=[%1] rootSel=%2 shown=%3 drag=%4")
                         .arg(TreeText::pathText(d->selIndex()))
                         .arg(d->getIsRootSel())
                         .arg(d->isShowChild())
                         .arg(d->acceptDrops());
        dumpRow(out, key, d->rootItem(), frame);
        if (keys && keys->focusRow() == RowRef::root(d))
            focus = key;
        if (!d->showsChildren())
            continue;
        // Rows off screen may be parked: made again, they show what they
        // keep, which must be what the widgets would show.
        const QList<SecondItem *> rows = builtRows(d);
        for (int c = 0; c < rows.size(); ++c) {
            dumpRow(out, QStringLiteral("%1,%2").arg(r).arg(c), rows.at(c), frame);
            if (keys && keys->focusRow() == RowRef::child(d, c))
                focus = QStringLiteral("%1,%2").arg(r).arg(c);
        }
    }
    out << QStringLiteral("focus %1 list has focus %2").arg(focus).arg(frame->hasFocus());
    const QList<QList<int>> probes{{}, {0}, {1}, {0, 0}, {0, 1}, {0, 2}, {0, 9}, {1, 0}, {0, 0, 0}};
    for (const QList<int> &path : probes) {
        const auto answer = list->getItemSignalNode(path);
        out << QStringLiteral("node [%1] %2 %3").arg(TreeText::pathText(path)).arg(answer.first).arg(recordText(answer.second));
    }
    dumpAccessible(out, QAccessible::queryAccessibleInterface(frame), QString());
    // The rows made again for the dump go back to being parked.
    frame->placeRowsNow();
    return out;
}

QImage ListProbe::picture(SignalTreeList *list)
{
    // What the window shows, read from the platform: QWidget::grab() would
    // render, and rendering delivers the pending resize events of hidden
    // rows, which refits their texts.
    QWidget *frame = list->getSignalTreeListFrame();
    QScreen *screen = frame ? frame->screen() : nullptr;
    if (!screen || !frame->isVisible())
        return QImage();
    const QPoint at = frame->mapTo(frame->window(), QPoint(0, 0));
    return screen->grabWindow(frame->window()->winId(), at.x(), at.y(), frame->width(), frame->height()).toImage();
}
