// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "PendingRows.h"

void PendingRows::addBatch(const QList<st_NodeInfoSignal> &nodes, int firstChild, int rootIndex,
                           const st_NodeInfoSignal &root, bool locked)
{
    Step step;
    step.kind = Step::Batch;
    step.nodes = nodes;
    step.index = firstChild;
    step.rootIndex = rootIndex;
    step.root = root;
    step.locked = locked;
    append(step);
    m_records.append(nodes);
}

void PendingRows::addSingle(const st_NodeInfoSignal &node, int rootIndex, int childIndex, bool locked)
{
    Step step;
    step.kind = Step::Single;
    step.node = node;
    step.index = childIndex;
    step.rootIndex = rootIndex;
    step.locked = locked;
    append(step);
    m_records.append(node);
}

void PendingRows::remove(int index)
{
    Step step;
    step.kind = Step::Delete;
    step.index = index;
    append(step);
    m_records.removeAt(index);
}

void PendingRows::modify(int index, const st_NodeInfoSignal &node, const st_NodeInfoSignal &root)
{
    Step step;
    step.kind = Step::Modify;
    step.index = index;
    step.node = node;
    step.root = root;
    append(step);
    m_records[index] = node;
}

void PendingRows::press(int index)
{
    Step step;
    step.kind = Step::Press;
    step.index = index;
    append(step);
}

void PendingRows::renumber()
{
    Step step;
    step.kind = Step::Renumber;
    append(step);
}

void PendingRows::polish()
{
    Step step;
    step.kind = Step::Polish;
    append(step);
}

void PendingRows::append(Step step)
{
    // A selection look, a renumbering or a polish is wholly redone by the
    // next one of its kind when nothing came between.
    if (!m_steps.isEmpty() && (step.kind == Step::Press || step.kind == Step::Renumber || step.kind == Step::Polish)
        && m_steps.constLast().kind == step.kind) {
        m_steps.last() = std::move(step);
        return;
    }
    m_steps.append(std::move(step));
}
