// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_NODEINFOTRACE_H
#define SIGNALTREELIST_NODEINFOTRACE_H

#include <QDebug>

struct st_NodeInfoSignal;

// Writes the trace of a record that has no name (the drawer refuses to drag
// such a row) into @p dbg: every field but the name and the two host values.
QDebug writeNamelessNodeTrace(QDebug dbg, const st_NodeInfoSignal &node);

#endif // SIGNALTREELIST_NODEINFOTRACE_H
