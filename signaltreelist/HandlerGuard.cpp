// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "HandlerGuard.h"

#include <QObject>
#include <QPointer>
#include <QVector>
#include <QWidget>

namespace {

struct Registry
{
    // The owners of the running guards, innermost last. An owner that its
    // own parent deleted meanwhile reads as null.
    QVector<QPointer<QObject>> running;
    // Widgets whose deletion waits for the guards inside them.
    QVector<QPointer<QWidget>> doomed;
};

Registry &registry()
{
    static Registry instance;
    return instance;
}

} // namespace

HandlerGuard::HandlerGuard(QObject *owner)
{
    Registry &r = registry();
    m_iDepth = r.running.size();
    r.running.append(owner);
}

HandlerGuard::~HandlerGuard()
{
    Registry &r = registry();
    // Guards live on the stack, so they end in the reverse order of their
    // start, nested event loops included.
    Q_ASSERT(r.running.size() == m_iDepth + 1);
    r.running.resize(m_iDepth);

    for (int i = 0; i < r.doomed.size();) {
        QWidget *pWidget = r.doomed.at(i);
        if (pWidget && isBusy(pWidget)) {
            ++i;
            continue;
        }
        r.doomed.removeAt(i);
        // Not at once: this guard's handler is still on the stack, and
        // Qt's event delivery goes on after it returns.
        if (pWidget)
            pWidget->deleteLater();
    }
}

bool HandlerGuard::isBusy(const QObject *object)
{
    if (!object)
        return false;
    for (const QPointer<QObject> &owner : qAsConst(registry().running)) {
        for (const QObject *o = owner.data(); o; o = o->parent()) {
            if (o == object)
                return true;
        }
    }
    return false;
}

bool HandlerGuard::deferDeletion(QWidget *widget)
{
    if (!isBusy(widget))
        return false;
    Registry &r = registry();
    if (!r.doomed.contains(widget)) {
        widget->hide();
        widget->setParent(nullptr);
        widget->blockSignals(true);
        r.doomed.append(widget);
    }
    return true;
}
