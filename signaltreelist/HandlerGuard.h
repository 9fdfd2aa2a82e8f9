// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_HANDLERGUARD_H
#define SIGNALTREELIST_HANDLERGUARD_H

// Internal: not installed, not part of the library's interface.

#include <QtGlobal>

class QObject;
class QWidget;

/**
 * Keeps a widget alive while one of its handlers runs.
 *
 * Hosts answer the list's signals from directly connected slots, and from
 * there may call any operation, spin a nested event loop (a modal dialog)
 * or delete the list. A handler that emits towards the host holds a guard
 * on its object for as long as it runs; guards nest, strictly in stack
 * order, across nested event loops too.
 *
 * Whatever removes a widget first asks deferDeletion(). While a guarded
 * handler of the widget or of anything inside it is running, the widget is
 * taken off the screen and out of its parent at once, its signals are
 * blocked (the host hears nothing more from it), and it is deleted
 * (deleteLater) as soon as the last of those handlers has returned. Otherwise
 * the caller removes it as it always did.
 *
 * GUI thread only.
 */
class HandlerGuard
{
public:
    explicit HandlerGuard(QObject *owner);
    ~HandlerGuard();

    /// True while a guarded handler of @p object, or of an object inside
    /// it, is running.
    static bool isBusy(const QObject *object);

    /// When @p widget is busy: hides it, detaches it from its parent, blocks
    /// its signals, deletes it once it is idle again, and returns true.
    /// Otherwise does nothing and returns false.
    static bool deferDeletion(QWidget *widget);

private:
    Q_DISABLE_COPY(HandlerGuard)

    int m_iDepth;
};

#endif // SIGNALTREELIST_HANDLERGUARD_H
