// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RowReplay.h"

#include "QuietAccessibility.h"
#include "RowMetrics.h"
#include "SecondItem.h"

namespace RowReplay {

void replay(SecondItem *item, const PendingRows::Row &row)
{
    for (const PendingRows::Event &event : row.events) {
        switch (event.kind) {
        case PendingRows::Event::Texts:
            item->setNodeInfo(event.node);
            break;
        case PendingRows::Event::Press:
            item->setPressed(event.pressed);
            break;
        case PendingRows::Event::Polish:
            item->ensurePolished();
            break;
        }
    }
    if (row.unpolishedPress >= 0)
        item->setPressed(row.unpolishedPress == 1);
    item->setOpBtnShow(row.buttons.toList());
    if (row.hasToolTip)
        item->setToolTip(row.toolTip);
}

namespace {

// The name of @p row's shape.
QByteArray shapeOf(const PendingRows::Row &row)
{
    QByteArray shape;
    for (const PendingRows::Event &event : row.events) {
        switch (event.kind) {
        case PendingRows::Event::Texts:
            // Only how many lines show matters: showing a line polishes it.
            shape += 'T';
            shape += char('0' + qMin(int(event.node.strNodeName.size()), 3));
            break;
        case PendingRows::Event::Press:
            shape += event.pressed ? 'S' : 's';
            break;
        case PendingRows::Event::Polish:
            shape += 'P';
            break;
        }
    }
    shape += '|';
    shape += char('0' + (row.unpolishedPress + 1));
    return shape;
}

// A row of @p row's shape made under @p parent and shown as its container
// would show it (showing a row polishes it and its lines).
RowMetrics::ChildShape measure(const PendingRows::Row &row, QWidget *parent)
{
    RowMetrics::ChildShape shape;
    if (!parent)
        return shape;
    const QuietAccessibility quiet;
    SecondItem item(parent);
    item.initItem(row.rootIndex, row.childIndex);
    item.traceFits(&shape.fits);
    replay(&item, row);
    item.ensurePolished();
    item.traceFits(nullptr);
    shape.state.reset(new ChildRowState(item.state()));
    shape.size = item.size();
    return shape;
}

} // namespace

bool shownState(RowMetrics &metrics, const PendingRows::Row &row, qreal ratio, ChildRowState &out, QSize &size)
{
    const RowMetrics::ChildShape &shape =
        metrics.childShape(shapeOf(row), [&row](QWidget *parent) { return measure(row, parent); });
    if (!shape.state)
        return false;
    ChildRowState state = *shape.state;
    // The names, as setNodeInfo() sets and fits them: the upper line, then
    // the lower, each fitted with the fonts the lines had then.
    state.fullText[0].clear();
    state.fullText[1].clear();
    state.lines = TextFit::Lines();
    int fit = 0;
    const auto setLine = [&](int line, const QString &text) {
        state.fullText[line] = text;
        state.lines.shown[line] = text;
        const QPair<QFont, QFont> &fonts = shape.fits.value(fit++);
        SecondItem::fitState(state, fonts.first, fonts.second);
    };
    for (const PendingRows::Event &event : row.events) {
        if (event.kind != PendingRows::Event::Texts)
            continue;
        const QStringList &names = event.node.strNodeName;
        if (names.size() == 1 || names.size() == 2)
            setLine(0, names.at(0));
        if (names.size() == 2)
            setLine(1, names.at(1));
        state.record = event.node;
        state.iconPath = SecondItem::iconPathOf(event.node.iType, event.node.isOnline);
    }
    state.rootIndex = row.rootIndex;
    state.childIndex = row.childIndex;
    state.buttons = row.buttons;
    state.toolTip = row.hasToolTip ? row.toolTip : QString();
    state.iconRatio = ratio;
    if (fit != shape.fits.size())
        return false;
    out = std::move(state);
    size = shape.size;
    return true;
}

} // namespace RowReplay
