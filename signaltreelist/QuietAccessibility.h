// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_QUIETACCESSIBILITY_H
#define SIGNALTREELIST_QUIETACCESSIBILITY_H

// Internal: not installed, not part of the library's interface.

#include <QAccessible>

/**
 * While one lives, Qt's accessibility events go nowhere; the handler in
 * place before comes back with its end.
 *
 * For the widgets the list makes and takes away on its own: a row made
 * again as it comes near the screen, parked as it leaves, or made for a
 * moment among the prototypes to be measured. Assistive technology knows
 * the rows themselves, which stay the same throughout; the names, shows and
 * hides of the widgets inside them would be news about objects it cannot
 * place in the tree.
 */
class QuietAccessibility
{
public:
    QuietAccessibility()
        : m_previous(QAccessible::installUpdateHandler(&drop))
    {
    }
    ~QuietAccessibility() { QAccessible::installUpdateHandler(m_previous); }

private:
    Q_DISABLE_COPY(QuietAccessibility)
    static void drop(QAccessibleEvent *) {}
    QAccessible::UpdateHandler m_previous;
};

#endif // SIGNALTREELIST_QUIETACCESSIBILITY_H
