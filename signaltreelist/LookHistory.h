// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_LOOKHISTORY_H
#define SIGNALTREELIST_LOOKHISTORY_H

// Internal: not installed, not part of the library's interface.

#include <QByteArray>

/**
 * The changes of look and polish a child row went through, in order: what,
 * under a style sheet, decides the fonts of its name lines.
 *
 * A sheet may give a selected, hovered or focused row other fonts, and Qt
 * derives a label's font from its row's look and font at the moment the
 * label is polished (when it is first shown, or with the row), and again
 * whenever the row's font changes: the same row can end up with other fonts
 * after other pasts. Two rows with the same history have the same fonts, so
 * the history names them. Until the row is polished, a change of look only
 * counts through the polishes that see it, and a change to the look the row
 * already has changes nothing: neither is kept.
 */
class LookHistory
{
public:
    enum Event : char {
        Polish = 'P',  ///< Qt polished the row (and then its labels)
        UpperPolish = 'U', ///< Qt polished the upper name line
        LowerPolish = 'D', ///< Qt polished the lower name line
        Press = 'S',   ///< the selected look
        Release = 's', ///< the normal look
        Enter = 'E',   ///< the pointer came in
        Leave = 'L',   ///< the pointer went
        FocusOn = 'F', ///< the keyboard focus look
        FocusOff = 'f',
    };

    void add(Event event);
    /// The events, one byte each, oldest first.
    const QByteArray &events() const { return m_events; }
    bool polished() const { return m_polished; }
    /// Whether the row has the keyboard focus look now.
    bool focusLook() const;
    /// The style changed under the row (a new sheet): Qt polished it and
    /// its labels anew, with the look they have now, and its past no longer
    /// counts. The history becomes that of a row polished with this look.
    void restyled();

private:
    struct Look
    {
        bool pressed = false;
        bool hovered = false;
        bool focused = false;
        bool operator==(const Look &other) const
        {
            return pressed == other.pressed && hovered == other.hovered && focused == other.focused;
        }
    };
    /// The longest round of look changes looked for twice in a row.
    static constexpr int kLongestRound = 16;
    /// Writes the changes from the look last written to the look now.
    void writeLook();
    /// The look the events leave.
    Look lookNow() const;
    /// The look the first @p count events leave (from the first polish on).
    Look lookAt(int count) const;
    static void apply(Look &look, Event event);
    /// Drops the last round of look changes when it repeats the one before.
    void dropRepeatedCycle();

    QByteArray m_events;
    bool m_polished = false;
    QByteArray m_polishes; // the polish events already had
    // Before the row's polish: the look now, and the look last written.
    Look m_look;
    Look m_written;
};

#endif // SIGNALTREELIST_LOOKHISTORY_H
