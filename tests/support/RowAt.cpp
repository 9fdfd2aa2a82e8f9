// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RowAt.h"

#include "DrawerControl.h"
#include "ShownRows.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"

#include <QScrollArea>

namespace RowAt {

QWidget *shown(SignalTreeList *list, const QList<int> &path)
{
    auto *frame = list ? qobject_cast<TreeListFrame *>(list->getSignalTreeListFrame()) : nullptr;
    if (!frame || path.isEmpty() || path.size() > 2)
        return nullptr;
    DrawerControl *drawer = frame->drawers().value(path.at(0));
    if (!drawer)
        return nullptr;
    const RowRef row = path.size() == 1 ? RowRef::root(drawer) : RowRef::child(drawer, path.at(1));
    if (!row.exists() || !ShownRows::isShown(frame, row))
        return nullptr;
    QWidget *widget = ShownRows::realise(row);
    if (widget && widget->isVisible() && frame->scrollArea())
        frame->scrollArea()->ensureWidgetVisible(widget, 0, 0);
    return widget;
}

} // namespace RowAt
