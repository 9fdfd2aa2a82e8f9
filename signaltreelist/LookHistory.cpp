// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "LookHistory.h"

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
        switch (event) {
        case Press:
        case Release:
            m_look.pressed = event == Press;
            break;
        case Enter:
        case Leave:
            m_look.hovered = event == Enter;
            break;
        case FocusOn:
        case FocusOff:
            m_look.focused = event == FocusOn;
            break;
        default:
            break;
        }
        return;
    }
    // The same look again: nothing is re-polished.
    if (!m_events.isEmpty() && m_events.back() == char(event) && event != Enter && event != Leave)
        return;
    m_events.append(char(event));
}

bool LookHistory::focusLook() const
{
    return lookNow().focused;
}

LookHistory::Look LookHistory::lookNow() const
{
    if (!m_polished)
        return m_look;
    Look look;
    for (const char event : m_events) {
        switch (Event(event)) {
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
    return look;
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
