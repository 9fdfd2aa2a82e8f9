// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QEvent>
#include <QObject>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <memory>

class QCheckBox;
class QLabel;
class QToolButton;
class RootItem;

// Helpers of the root row's tests.
namespace RootItemProbe {

// Every child the row builds, found the way a host style sheet sees them:
// by type, object name and dynamic property.
struct RootParts
{
    QCheckBox *expandBox = nullptr;
    QToolButton *onlineBtn = nullptr;
    QToolButton *editBtn = nullptr;
    QToolButton *deleteBtn = nullptr;
    QLabel *upper = nullptr;
    QLabel *down = nullptr;
    QLabel *marker = nullptr;
};

RootParts partsOf(RootItem *item);

// Records every signal of a row, in emission order, in one list.
struct Recorder
{
    QStringList events;
    void attach(RootItem *item);
};

// Counts the events of one type that reach an object.
class EventCounter : public QObject
{
public:
    explicit EventCounter(QEvent::Type type)
        : m_type(type)
    {
    }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override;

private:
    QEvent::Type m_type;
};

QString prop(QObject *o, const char *name);

// A built, shown row: 400 x 45 pixels on screen (null if it never shows).
std::unique_ptr<RootItem> makeShownItem(int type = 0, int index = 0);

// A point on the row itself, outside every child that takes the mouse.
QPoint freeSpot(RootItem *item);

} // namespace RootItemProbe
