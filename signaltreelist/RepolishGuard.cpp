// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RepolishGuard.h"

#include <QByteArray>
#include <QList>
#include <QStyle>
#include <QWidget>

namespace {

// Properties that Qt's style sheet style keeps on the widgets it polishes
// ("_q_stylesheet_..."): set by the polish itself, selected on by no sheet.
bool isInternal(const QByteArray &name)
{
    return name.startsWith("_q_");
}

bool sameValue(const QVariant &a, const QVariant &b)
{
    return a.userType() == b.userType() && a == b;
}

} // namespace

void RepolishGuard::repolish(QWidget *widget)
{
    if (!widget)
        return;
    QStyle *style = widget->style();
    const bool styleSheet = style->inherits("QStyleSheetStyle");
    if (styleSheet && !widget->testAttribute(Qt::WA_WState_Polished)) {
        // Its first polish is still to come and will see these values.
        record(widget);
        return;
    }
    if (styleSheet && !m_levels.isEmpty() && unchanged(widget))
        return;
    style->unpolish(widget);
    style->polish(widget);
    keepHeight(widget);
    if (styleSheet) {
        record(widget);
    } else {
        m_levels = QVector<Level>();
        m_properties = QVector<Property>();
    }
}

void RepolishGuard::keepHeight(QWidget *widget) const
{
    if (!widget || m_iFixedHeight < 0)
        return;
    if (!widget->property("_q_stylesheet_minh").toBool() && widget->minimumHeight() != m_iFixedHeight)
        widget->setMinimumHeight(m_iFixedHeight);
    if (!widget->property("_q_stylesheet_maxh").toBool() && widget->maximumHeight() != m_iFixedHeight)
        widget->setMaximumHeight(m_iFixedHeight);
}

bool RepolishGuard::unchanged(const QWidget *widget) const
{
    int level = 0;
    int property = 0;
    for (const QWidget *w = widget; w; w = w->parentWidget(), ++level) {
        if (level >= m_levels.size())
            return false;
        const Level &seen = m_levels.at(level);
        if (seen.widget != w || seen.objectName != w->objectName())
            return false;
        const int end = property + seen.properties;
        const QList<QByteArray> names = w->dynamicPropertyNames();
        for (const QByteArray &name : names) {
            if (isInternal(name))
                continue;
            if (property >= end)
                return false;
            const Property &seenProperty = m_properties.at(property++);
            if (seenProperty.name != name || !sameValue(seenProperty.value, w->property(name.constData())))
                return false;
        }
        if (property != end)
            return false;
    }
    return level == m_levels.size();
}

void RepolishGuard::record(const QWidget *widget)
{
    m_levels.clear();
    m_properties.clear();
    for (const QWidget *w = widget; w; w = w->parentWidget()) {
        Level level{w, w->objectName(), 0};
        const QList<QByteArray> names = w->dynamicPropertyNames();
        for (const QByteArray &name : names) {
            if (isInternal(name))
                continue;
            m_properties.append(Property{name, w->property(name.constData())});
            ++level.properties;
        }
        m_levels.append(level);
    }
    // Kept for the widget's life: no spare capacity.
    m_levels.squeeze();
    m_properties.squeeze();
}
