// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RowTexts.h"

#include <QCoreApplication>
#include <QWidget>

namespace RowTexts {

QString editButton()
{
    return QCoreApplication::translate("SignalTreeList", "Edit", "button of a row: edit the signal or group");
}

QString deleteButton()
{
    return QCoreApplication::translate("SignalTreeList", "Delete", "button of a row: delete the signal or group");
}

QString expandBox()
{
    return QCoreApplication::translate("SignalTreeList", "Show signals",
                                       "check box of a group row: show or hide its signals");
}

QString captureButton()
{
    return QCoreApplication::translate("SignalTreeList", "Capture",
                                       "button of a signal row: capture a picture of the signal");
}

QString fourthButton()
{
    // The library gives the fourth button no action of its own; hosts give
    // it a picture and a meaning through their style.
    return QCoreApplication::translate("SignalTreeList", "More",
                                       "fourth button of a signal row, whose meaning the application gives");
}

void nameButtons(QWidget *edit, QWidget *del, QWidget *expand, QWidget *capture, QWidget *fourth)
{
    const auto name = [](QWidget *button, const QString &text) {
        if (button)
            button->setAccessibleName(text);
    };
    name(edit, editButton());
    name(del, deleteButton());
    name(expand, expandBox());
    name(capture, captureButton());
    name(fourth, fourthButton());
}

} // namespace RowTexts
