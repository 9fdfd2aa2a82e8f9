// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "LookHistory.h"

#include <cstring>

void LookHistory::add(Event event)
{
    const bool isPolish = event == Polish || event == UpperPolish || event == LowerPolish;
    if (isPolish) {
        if (m_polishes.contains(char(event)))
            return; // once only
        m_polishes.append(char(event));
        if (!m_polished)
            writeLook(); // what this polish sees
        m_events.append(char(event));
        if (event == Polish)
            m_polished = true;
        return;
    }
    if (!m_polished) {
        apply(m_look, event);
        return;
    }
    // The same look again: nothing is re-polished.
    if (!m_events.isEmpty() && m_events.back() == char(event) && event != Enter && event != Leave)
        return;
    m_events.append(char(event));
    dropRepeatedCycle();
}

void LookHistory::dropRepeatedCycle()
{
    // Labels take their fonts when they are polished and whenever the row's
    // font changes, which follows the row's look. A run of look changes that
    // leads back to the look it started from, gone through twice in a row,
    // leaves the fonts as going through it once did: the second time every
    // change finds what the first time left. So a row hovered or selected
    // again and again keeps a history of the length of one round.
    const int size = m_events.size();
    for (int length = 1; 2 * length <= size && length <= kLongestRound; ++length) {
        const char *last = m_events.constData() + size - length;
        if (memcmp(last, last - length, size_t(length)) != 0)
            continue;
        bool polishes = false;
        for (int i = 0; i < length; ++i)
            polishes = polishes || last[i] == char(Polish) || last[i] == char(UpperPolish) || last[i] == char(LowerPolish);
        // Only a round: from the look it started at back to that look. (Run
        // again from another look, the same changes pass other looks.)
        if (polishes || !(lookAt(size - 2 * length) == lookAt(size - length)))
            continue;
        m_events.chop(length);
        return;
    }
}

LookHistory::Look LookHistory::lookAt(int count) const
{
    Look look;
    for (int i = 0; i < count && i < m_events.size(); ++i)
        apply(look, Event(m_events.at(i)));
    return look;
}

void LookHistory::apply(Look &look, Event event)
{
    switch (event) {
    case Press:
    case Release:
        look.pressed = event == Press;
        break;
    case Enter:
    case Leave:
        look.hovered = event == Enter;
        break;
    case FocusOn:
    case FocusOff:
        look.focused = event == FocusOn;
        break;
    default:
        break;
    }
}

bool LookHistory::focusLook() const
{
    return lookNow().focused;
}

LookHistory::Look LookHistory::lookNow() const
{
    return m_polished ? lookAt(m_events.size()) : m_look;
}

void LookHistory::restyled()
{
    if (!m_polished)
        return; // polished later, under the new style: nothing to forget
    m_look = lookNow();
    m_written = Look();
    m_events.clear();
    writeLook();
    // The row first, then the lines it had polished.
    m_events.append(char(Polish));
    for (const char polish : qAsConst(m_polishes)) {
        if (polish != char(Polish))
            m_events.append(polish);
    }
}

void LookHistory::writeLook()
{
    if (m_look.pressed != m_written.pressed)
        m_events.append(char(m_look.pressed ? Press : Release));
    if (m_look.hovered != m_written.hovered)
        m_events.append(char(m_look.hovered ? Enter : Leave));
    if (m_look.focused != m_written.focused)
        m_events.append(char(m_look.focused ? FocusOn : FocusOff));
    m_written = m_look;
}
