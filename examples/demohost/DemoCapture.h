// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_DEMO_DEMOCAPTURE_H
#define SIGNALTREELIST_DEMO_DEMOCAPTURE_H

#include <QString>

class DemoWindow;
class QWidget;

/**
 * Renders the demo to PNG files without a person at the controls: the
 * whole window after a click and a hover, and close-ups of a root row and a
 * child row in each look state. Works with any Qt platform, including the
 * headless "offscreen" one.
 */
class DemoCapture
{
public:
    /// Shows @p window, clicks child rows [5, 0] and then [0, 2] (pressed,
    /// their paths logged), hovers child row [0, 0], and saves the window to
    /// @p file.
    static bool renderWindow(DemoWindow &window, const QString &file);

    /// Writes rootitem-{normal,hover,press}.png and
    /// seconditem-{normal,hover,press}.png into @p directory, each row
    /// rendered at @p scale times its size on a strip of panel background.
    static bool renderCloseups(const QString &directory, int scale);

    /// Sends a left-button press and release to the centre of @p widget.
    static void click(QWidget *widget);
    /// Sends the pointer-enter event that a real pointer would.
    static void hover(QWidget *widget);

private:
    /// Lets layouts, polish and deferred deletions run.
    static void settle(QWidget *window);
    /// Renders @p rowWidget on its top-level widget, with @p margin pixels of
    /// surroundings, at @p scale, into @p file.
    static bool saveRow(QWidget *rowWidget, int margin, int scale, const QString &file);
};

#endif // SIGNALTREELIST_DEMO_DEMOCAPTURE_H
