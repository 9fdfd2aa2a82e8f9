// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "PendingRows.h"

#include <algorithm>

namespace {

using Event = PendingRows::Event;

int lineCount(const Event &event)
{
    return event.node.strNodeName.size();
}

// A record with one or two name lines sets texts and fits them; any other
// count only hides both lines.
bool setsLines(int lines)
{
    return lines == 1 || lines == 2;
}

// Of selections with nothing between them only the last counts: the row is
// repolished with the same properties either way.
void mergePresses(QVector<Event> &events)
{
    for (int i = events.size() - 1; i > 0; --i) {
        if (events.at(i).kind == Event::Press && events.at(i - 1).kind == Event::Press)
            events.remove(i - 1);
    }
}

} // namespace

int PendingRows::eventCount() const
{
    int count = 0;
    for (const Row &row : m_rows)
        count += row.events.size();
    return count;
}

void PendingRows::addBatch(const QList<st_NodeInfoSignal> &nodes, int firstChild, int rootIndex,
                           const st_NodeInfoSignal &root, bool locked)
{
    // The call takes the last half of the layout's items (rounded up), adds
    // one spacing and then every row: the spacings in the first half stay.
    const int items = m_iSpacings + m_rows.size();
    m_iSpacings = std::min(m_iSpacings, items / 2) + 1;

    for (int i = 0; i < nodes.size(); ++i) {
        const st_NodeInfoSignal &node = nodes.at(i);
        Row row;
        row.rootIndex = rootIndex;
        row.childIndex = firstChild + i;
        setTexts(row, node);
        // Rows of a group show the group's name, rows of a plain source
        // their own source name.
        if (root.iType == 1) {
            row.toolTip = root.strNodeName.value(0);
            row.hasToolTip = true;
        } else if (root.iType == 0) {
            row.toolTip = node.strSourceName;
            row.hasToolTip = true;
        }
        setPressed(row, i == 0);
        m_rows.append(row);
    }
    if (!locked)
        press(m_rows.size() - 1);
}

void PendingRows::addSingle(const st_NodeInfoSignal &node, int rootIndex, int childIndex, bool locked)
{
    Row row;
    row.rootIndex = rootIndex;
    row.childIndex = childIndex;
    setTexts(row, node);
    m_rows.append(row);
    if (!locked)
        press(m_rows.size() - 1);
}

void PendingRows::remove(int index)
{
    m_rows.removeAt(index);
}

void PendingRows::modify(int index, const st_NodeInfoSignal &node, const st_NodeInfoSignal &root)
{
    Row &row = m_rows[index];
    setTexts(row, node);
    // The mirror image of the rule for new rows; a plain source's row shows
    // its upper line as it stands after this record (maybe an older one).
    row.toolTip = root.iType == 0 ? row.upperText : node.strSourceName;
    row.hasToolTip = true;
    noteSize(row);
}

void PendingRows::press(int index)
{
    for (int i = 0; i < m_rows.size(); ++i) {
        setPressed(m_rows[i], i == index);
        noteSize(m_rows.at(i));
    }
}

void PendingRows::renumber()
{
    for (int i = 0; i < m_rows.size(); ++i)
        m_rows[i].childIndex = i;
}

void PendingRows::polish()
{
    for (Row &row : m_rows) {
        if (row.polished)
            continue;
        row.polished = true;
        // The look goes before the polish, which sees its properties.
        if (row.unpolishedPress >= 0)
            appendPress(row, row.unpolishedPress == 1);
        row.unpolishedPress = -1;
        Event event;
        event.kind = Event::Polish;
        row.events.append(event);
    }
}

void PendingRows::setTexts(Row &row, const st_NodeInfoSignal &node)
{
    QVector<Event> &events = row.events;
    const int lines = node.strNodeName.size();

    // A record without lines to set is undone by any later record: it only
    // hid the lines, and its icon, record and tool tip are replaced.
    for (int i = events.size() - 1; i >= 0; --i) {
        if (events.at(i).kind != Event::Texts)
            continue;
        if (!setsLines(lineCount(events.at(i))))
            events.remove(i);
        break;
    }

    // A fit elides a line only when that line alone is too wide for the
    // label's font of the moment; a fit that finds both lines fitting leaves
    // them as they are. So what a record leaves depends on earlier records
    // only through lines elided under other fonts.
    if (lines == 2) {
        // Both lines are set afresh: the upper one is elided exactly when it
        // is too wide now, the lower one after this record's own fit.
        for (int i = events.size() - 1; i >= 0; --i) {
            if (events.at(i).kind == Event::Texts)
                events.remove(i);
        }
        mergePresses(events);
    } else if (lines == 1 && !events.isEmpty() && events.constLast().kind == Event::Texts
               && lineCount(events.constLast()) == 1) {
        // A one-line record fitted with the same fonts just before: its
        // upper line is replaced, and its fit elided the lower line exactly
        // as this record's fit will.
        events.removeLast();
    }

    Event event;
    event.kind = Event::Texts;
    event.node = node;
    events.append(event);

    if (setsLines(lines))
        row.upperText = node.strNodeName.at(0);
    row.buttons.apply(node.showOpBtn);
    row.record = node;
}

void PendingRows::setPressed(Row &row, bool pressed)
{
    row.pressed = pressed;
    if (!row.polished) {
        row.unpolishedPress = pressed ? 1 : 0;
        return;
    }
    QVector<Event> &events = row.events;
    if (!events.isEmpty() && events.constLast().kind == Event::Press)
        events.last().pressed = pressed;
    else
        appendPress(row, pressed);
}

void PendingRows::appendPress(Row &row, bool pressed)
{
    Event event;
    event.kind = Event::Press;
    event.pressed = pressed;
    row.events.append(event);
}

void PendingRows::noteSize(const Row &row)
{
    if (row.events.size() > kMostEvents)
        m_bWantsWidgets = true;
}
