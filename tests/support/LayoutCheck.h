// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "RowMetrics.h"
#include "TreeLayout.h"

#include <QPointer>
#include <QStringList>

#include <memory>

class SignalTreeList;

// The layout model beside a list whose rows are all widgets: it is given
// what the drawers and rows are (their looks measured on prototypes, not
// read from the widgets' sizes), lays them out as the list's container is
// laid out, and is compared with where the widgets are. Keep one per list:
// the model keeps its slots from one check to the next, as the list keeps
// its widgets.
class LayoutCheck
{
public:
    explicit LayoutCheck(SignalTreeList *list);
    ~LayoutCheck();

    // Where the model and the widgets disagree, one line each: every shown
    // drawer, root row, row container and child row, and the container's
    // minimum size and size hint. Empty when they agree.
    QStringList differences();
    // Rectangles the last check compared.
    int compared() const { return m_compared; }
    // Child rows whose name lines have other fonts than a new row put
    // through the same look history gets, one line each. Empty when all
    // agree.
    QStringList fontDifferences();
    // Child rows that, put away as their state and made again from it, come
    // back other than they are, one line for each difference. Empty when
    // all come back the same.
    QStringList roundTripDifferences();

private:
    int m_compared = 0;
    QPointer<SignalTreeList> m_list;
    std::unique_ptr<RowMetrics> m_metrics;
    TreeLayout m_layout;
};
