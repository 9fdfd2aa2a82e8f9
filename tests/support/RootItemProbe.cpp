// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RootItemProbe.h"

#include "RootItem.h"

#include <QCheckBox>
#include <QLabel>
#include <QToolButton>
#include <QtTest>

namespace RootItemProbe {

RootParts partsOf(RootItem *item)
{
    RootParts p;
    p.expandBox = item->findChild<QCheckBox *>();
    const auto buttons = item->findChildren<QToolButton *>();
    for (QToolButton *btn : buttons) {
        if (btn->property("isOnlineBtn").isValid())
            p.onlineBtn = btn;
        else if (btn->property("isEditBtn").isValid())
            p.editBtn = btn;
        else if (btn->property("isDelBtn").isValid())
            p.deleteBtn = btn;
    }
    p.upper = item->findChild<QLabel *>(QStringLiteral("m_qlUpper"));
    p.down = item->findChild<QLabel *>(QStringLiteral("m_qlDown"));
    const auto labels = item->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        if (label->property("isMainproperty").isValid())
            p.marker = label;
    }
    return p;
}

void Recorder::attach(RootItem *item)
{
    QObject::connect(item, &RootItem::signal_OnIsShowChildItems, [this](bool b) {
        events << QStringLiteral("show(%1)").arg(b ? QStringLiteral("true") : QStringLiteral("false"));
    });
    QObject::connect(item, &RootItem::signal_OnSelectRootItem, [this] { events << QStringLiteral("select"); });
    QObject::connect(item, &RootItem::signal_OnEditBtnClicked, [this] { events << QStringLiteral("edit"); });
    QObject::connect(item, &RootItem::signal_OnDeleteBtnClicked, [this] { events << QStringLiteral("delete"); });
}

bool EventCounter::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == m_type)
        ++count;
    return false;
}

QString prop(QObject *o, const char *name)
{
    return o->property(name).toString();
}

std::unique_ptr<RootItem> makeShownItem(int type, int index)
{
    std::unique_ptr<RootItem> item(new RootItem(nullptr));
    item->initItem(type, index);
    item->resize(400, 45);
    item->show();
    if (!QTest::qWaitForWindowExposed(item.get()))
        return nullptr;
    return item;
}

QPoint freeSpot(RootItem *item)
{
    return QPoint(item->width() - 60, 3);
}

} // namespace RootItemProbe
