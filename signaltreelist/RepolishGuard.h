// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_REPOLISHGUARD_H
#define SIGNALTREELIST_REPOLISHGUARD_H

// Internal: not installed, not part of the library's interface.

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <QVector>

class QWidget;

/**
 * Re-polishes one widget (its style's unpolish, then polish) so that a
 * style sheet that selects on dynamic properties is applied again, and
 * skips a re-polish that could not change anything.
 *
 * Under a style sheet, what a polish computes for a widget depends on the
 * sheets, the widget's class and, for it and each of its ancestors, the
 * object name and the dynamic properties (descendant selectors look at the
 * ancestors). Qt re-polishes by itself when a sheet, a style or a parent
 * changes. So when the object names, dynamic properties and parents of the
 * widget and its ancestors are what they were right after the previous
 * re-polish made through this guard, another one would compute the same
 * rules: it is skipped. A widget that Qt has not polished yet is skipped as
 * well: Qt polishes every widget before it is first shown or painted (and
 * the first show sends the resize that refits the rows' texts), with the
 * values of that moment, so what is recorded then is what that polish will
 * see unless something changes first. Otherwise the first re-polish always
 * runs, and so does every re-polish under a style that is not a style sheet
 * style, where it is cheap and the style's polish may depend on anything.
 *
 * Each guard serves one widget; keep one per widget that gets re-polished.
 */
class RepolishGuard
{
public:
    void repolish(QWidget *widget);

    /// The widget fixed its own height to @p height (-1: it did not).
    void keepFixedHeight(int height) { m_iFixedHeight = height; }
    /// Gives the widget its fixed height back where the style sheet no
    /// longer sets a minimum or maximum height: when a rule that did stops
    /// applying, Qt's style sheet style resets them to 0 and unbounded,
    /// which would let the row shrink to whatever its layout allows.
    void keepHeight(QWidget *widget) const;

private:
    /// One widget of the chain from the re-polished widget up to its window.
    struct Level
    {
        const QWidget *widget;
        QString objectName;
        int properties; ///< how many entries of m_properties are its own
    };
    struct Property
    {
        QByteArray name;
        QVariant value;
    };

    /// True when @p widget and its ancestors are as recorded.
    bool unchanged(const QWidget *widget) const;
    void record(const QWidget *widget);

    /// The chain as recorded after the last re-polish (or the last skip of
    /// a widget that is not polished yet); empty before. The dynamic
    /// properties of all levels follow each other in m_properties.
    QVector<Level> m_levels;
    QVector<Property> m_properties;
    int m_iFixedHeight = -1;
};

#endif // SIGNALTREELIST_REPOLISHGUARD_H
