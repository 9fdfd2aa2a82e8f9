// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class QFrame;
class QLabel;
class QObject;
class QToolButton;
class SecondItem;

// Helpers of the child row's tests.
namespace SecondItemProbe {

// Limit of the text lines: budget 200, minus 28, minus the 33-pixel icon
// label.
constexpr int kTextLimit = 200 - 28 - 33;

// Every child the row builds, found the way a host style sheet sees them.
struct SecondParts
{
    QLabel *icon = nullptr;
    QLabel *upper = nullptr;
    QLabel *down = nullptr;
    QFrame *frame = nullptr;
    // In frame order.
    QToolButton *capture = nullptr;
    QToolButton *edit = nullptr;
    QToolButton *del = nullptr;
    QToolButton *fourth = nullptr;
};

SecondParts partsOf(SecondItem *item);

// Records every signal of a row, in emission order, in one list.
struct Recorder
{
    QStringList events;
    void attach(SecondItem *item);
};

QString prop(QObject *o, const char *name);

// A built row (root 1, child 2), @p width x 40 pixels on screen (null if it
// never shows).
std::unique_ptr<SecondItem> makeShownItem(int width = 320);

} // namespace SecondItemProbe
