// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "TabChain.h"

#include <QWidget>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

bool inside(const QList<QWidget *> &widgets, const QWidget *w)
{
    return std::any_of(widgets.cbegin(), widgets.cend(),
                       [w](const QWidget *b) { return b == w || b->isAncestorOf(w); });
}

// Lets setTabOrder() see a widget that takes no focus; restores the policy.
class PolicyForCall
{
public:
    explicit PolicyForCall(QWidget *widget)
        : m_pWidget(widget)
        , m_policy(widget->focusPolicy())
    {
        if (m_policy == Qt::NoFocus)
            m_pWidget->setFocusPolicy(Qt::TabFocus);
    }
    ~PolicyForCall()
    {
        if (m_policy == Qt::NoFocus)
            m_pWidget->setFocusPolicy(Qt::NoFocus);
    }
    PolicyForCall(const PolicyForCall &) = delete;
    PolicyForCall &operator=(const PolicyForCall &) = delete;

private:
    QWidget *m_pWidget;
    Qt::FocusPolicy m_policy;
};

} // namespace

void TabChain::placeWith(QWidget *parent, const QList<QWidget *> &widgets)
{
    if (!parent || widgets.isEmpty())
        return;
    // The end of the run that starts with the parent and goes on with the
    // widgets inside it created right after it.
    QWidget *anchor = parent;
    for (QWidget *w = parent->nextInFocusChain(); w && w != parent && parent->isAncestorOf(w) && !inside(widgets, w);
         w = w->nextInFocusChain()) {
        anchor = w;
    }
    // setTabOrder() follows a focus proxy of its first widget into that
    // proxy's children: start after the nearest widget without one. Only the
    // order of widgets that take the focus matters, so that is the same place.
    QWidget *first = anchor;
    while (first->focusProxy() || inside(widgets, first)) {
        if (first->isWindow())
            return;
        first = first->previousInFocusChain();
    }
    // setTabOrder() ignores widgets that take no focus; the policies are
    // theirs again before anyone can see them.
    const PolicyForCall firstPolicy(first);
    std::vector<std::unique_ptr<PolicyForCall>> policies;
    QWidget *previous = first;
    for (QWidget *w : widgets) {
        policies.push_back(std::make_unique<PolicyForCall>(w));
        QWidget::setTabOrder(previous, w);
        previous = w;
    }
}
