// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_QTCOMPAT_H
#define SIGNALTREELIST_QTCOMPAT_H

// Internal: not installed. The places where Qt 5 and Qt 6 differ in what
// the library uses, kept in one room so that the classes read the same on
// both.

#include <QLayout>
#include <QtGlobal>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QEnterEvent>
#else
#include <QEvent>
#endif

namespace QtCompat {

// The argument type of QWidget::enterEvent().
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
using EnterEvent = QEnterEvent;
#else
using EnterEvent = QEvent;
#endif

// QLayout::setMargin(), which Qt 6 dropped: the same margin on all sides.
inline void setMargin(QLayout *layout, int margin)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    layout->setContentsMargins(margin, margin, margin, margin);
#else
    layout->setMargin(margin);
#endif
}

} // namespace QtCompat

#endif // SIGNALTREELIST_QTCOMPAT_H
