// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "LookHistory.h"

void LookHistory::add(Event event)
{
    if (!m_polished) {
        switch (event) {
        case Press:
        case Release:
            m_pressed = event == Press;
            return;
        case Enter:
        case Leave:
            m_hovered = event == Enter;
            return;
        case FocusOn:
        case FocusOff:
            m_focused = event == FocusOn;
            return;
        case Polish:
            break;
        }
        // The look the polish sees, then the polish.
        if (m_pressed)
            m_events.append(char(Press));
        if (m_hovered)
            m_events.append(char(Enter));
        if (m_focused)
            m_events.append(char(FocusOn));
        m_events.append(char(Polish));
        m_polished = true;
        return;
    }
    if (event == Polish)
        return; // once only
    // The same look again: nothing is re-polished.
    if (!m_events.isEmpty() && m_events.back() == char(event) && event != Enter && event != Leave)
        return;
    m_events.append(char(event));
}
