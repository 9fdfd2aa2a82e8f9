// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "ButtonFlags.h"

void ButtonFlags::apply(const QList<bool> &list)
{
    const int count = list.size();
    if (count < 1 || count > 4)
        return;
    edit = list.at(0);
    if (count >= 2)
        remove = list.at(1);
    if (count >= 3)
        capture = list.at(2);
    if (count >= 4)
        fourth = list.at(3);
}

QList<bool> ButtonFlags::toList() const
{
    return QList<bool>{edit, remove, capture, fourth};
}
