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
    if (styleSheet && !m_seen.isEmpty() && unchanged(widget))
        return;
    style->unpolish(widget);
    style->polish(widget);
    if (styleSheet)
        record(widget);
    else
        m_seen.clear();
}

bool RepolishGuard::unchanged(const QWidget *widget) const
{
    int i = 0;
    const int size = m_seen.size();
    for (const QWidget *w = widget; w; w = w->parentWidget()) {
        if (i + 3 > size)
            return false;
        if (m_seen.at(i++).value<quintptr>() != quintptr(w))
            return false;
        if (m_seen.at(i++).toString() != w->objectName())
            return false;
        const int count = m_seen.at(i++).toInt();
        int seenCount = 0;
        const QList<QByteArray> names = w->dynamicPropertyNames();
        for (const QByteArray &name : names) {
            if (isInternal(name))
                continue;
            if (++seenCount > count || i + 2 > size)
                return false;
            if (m_seen.at(i++).toByteArray() != name)
                return false;
            if (!sameValue(m_seen.at(i++), w->property(name.constData())))
                return false;
        }
        if (seenCount != count)
            return false;
    }
    return i == size;
}

void RepolishGuard::record(const QWidget *widget)
{
    m_seen.clear();
    for (const QWidget *w = widget; w; w = w->parentWidget()) {
        m_seen.append(QVariant::fromValue<quintptr>(quintptr(w)));
        m_seen.append(w->objectName());
        const int countAt = m_seen.size();
        m_seen.append(0);
        int count = 0;
        const QList<QByteArray> names = w->dynamicPropertyNames();
        for (const QByteArray &name : names) {
            if (isInternal(name))
                continue;
            m_seen.append(name);
            m_seen.append(w->property(name.constData()));
            ++count;
        }
        m_seen[countAt] = count;
    }
}
