// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_ROWMETRICS_H
#define SIGNALTREELIST_ROWMETRICS_H

// Internal: not installed, not part of the library's interface.

#include "LayoutSlots.h"

#include <QFont>
#include <QHash>
#include <QObject>
#include <QPair>
#include <QPointer>
#include <QRect>
#include <QSharedPointer>
#include <QString>
#include <QVector>

#include <functional>

class DrawerControl;
class QWidget;
class SecondItem;
struct ChildRowState;

/**
 * What a layout asks of rows, drawers and row containers in each look,
 * measured on prototypes: a drawer with a root row and one child row, kept
 * hidden inside the list's container, so that the style sheet reaches them
 * through the same ancestors as the list's own rows. Answers are kept per
 * look until forget().
 */
class RowMetrics : public QObject
{
public:
    /// A child row's look: its state properties and its name lines (shown,
    /// and the width they were fitted to; -1 when never fitted).
    struct ChildLook
    {
        QString state = QStringLiteral("normal");
        bool keyFocus = false;
        bool upperShown = false;
        bool lowerShown = false;
        int lineWidth = -1;
    };
    /// A root row's look: its state properties and the hover buttons shown.
    struct RootLook
    {
        QString state = QStringLiteral("normal");
        bool keyFocus = false;
        bool upperOnline = false;
        bool editShown = false;
        bool deleteShown = false;
    };

    /// Prototypes under @p container, made on first use; measured afresh
    /// whenever the container's style or font changes.
    explicit RowMetrics(QWidget *container);
    ~RowMetrics() override;

    SlotMetrics child(const ChildLook &look);
    /// The look of @p row as it is now.
    static ChildLook lookOf(const SecondItem *row);
    /// The look of a row kept as @p state.
    static ChildLook lookOf(const ChildRowState &state);
    /// The fonts of a child row's name lines (upper, lower) after the look
    /// history @p history (LookHistory::events()): a new row is put through
    /// that history among the prototypes.
    QPair<QFont, QFont> childFonts(const QByteArray &history);
    /// A child row of one shape of past (RowReplay), as it is once shown:
    /// its state apart from its names, the fonts of its lines at each fit
    /// of them, and its size before any layout placed it.
    struct ChildShape
    {
        QSharedPointer<ChildRowState> state;
        QVector<QPair<QFont, QFont>> fits;
        QSize size;
    };
    /// The shape named @p key: @p measure is given a row parent among the
    /// prototypes to measure it on, unless it is known.
    const ChildShape &childShape(const QByteArray &key, const std::function<ChildShape(QWidget *)> &measure);
    SlotMetrics root(const RootLook &look);
    BoxSlot::Frame drawerFrame();
    BoxSlot::Frame rowContainerFrame();
    /// Where widgets that were never laid out sit.
    QRect initialDrawer();
    QRect initialRowContainer();
    QRect initialRoot();
    QRect initialChild();
    /// Where rows made for a moment belong: among the prototypes, below
    /// the same ancestors as the list's rows.
    QWidget *prototypeRowParent();
    /// Measures afresh from now on (the style, a style sheet or the fonts
    /// changed).
    void forget();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ensurePrototypes();

    QPointer<QWidget> m_pContainer;
    QPointer<DrawerControl> m_pDrawer;
    SecondItem *m_pChild = nullptr;
    QRect m_initial[4];
    struct ChildKey
    {
        QString state;
        quint8 flags;
        int lineWidth;
        bool operator==(const ChildKey &other) const
        {
            return state == other.state && flags == other.flags && lineWidth == other.lineWidth;
        }
        friend auto qHash(const ChildKey &key, decltype(qHash(0)) seed = 0) -> decltype(qHash(0))
        {
            return qHash(key.state, seed) ^ (uint(key.flags) << 24) ^ uint(key.lineWidth);
        }
    };
    QHash<ChildKey, SlotMetrics> m_children;
    QHash<QString, SlotMetrics> m_roots;
    QHash<QByteArray, QPair<QFont, QFont>> m_fonts;
    QHash<QByteArray, ChildShape> m_shapes;
};

#endif // SIGNALTREELIST_ROWMETRICS_H
