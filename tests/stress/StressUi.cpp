// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Events on the shown control.

#include "StressRun.h"

namespace Stress {

// ------------------------------------------------- events on the control

void StressRun::uiOp(Op op)
{
    QCoreApplication::processEvents();
    EventSender::flushDeferredDeletes();
    const QList<QPair<int, int>> rows = visibleRows();
    const QList<int> roots = visibleRoots();

    switch (op) {
    case OpClickChild:
    case OpDoubleClickChild: {
        if (rows.isEmpty())
            break;
        const QPair<int, int> at = rows.at(m_rng.below(rows.size()));
        MDrawer &d = m.drawers[at.first];
        SecondItem *row = d.children.at(at.second).widget;
        const bool twice = op == OpDoubleClickChild;
        note(QStringLiteral("%1 row %2 of drawer %3 (stored %4)")
                 .arg(twice ? QStringLiteral("double-click") : QStringLiteral("click"))
                 .arg(at.second)
                 .arg(at.first)
                 .arg(d.stored));
        // Every press reports the row while it is in the list; a double
        // click is delivered as a press and, for a widget that does not
        // handle double clicks, a second press. The host may remove the row
        // or more from any of them.
        QPointer<SecondItem> target = row;
        const QPoint p = row->rect().center();
        m_activeRow = row;
        expectRowPress(row);
        sendMouse(row, QEvent::MouseButtonPress, p, Qt::LeftButton, Qt::LeftButton);
        if (target)
            sendMouse(target, QEvent::MouseButtonRelease, p, Qt::LeftButton, Qt::NoButton);
        if (twice) {
            for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick}) {
                if (!target)
                    break;
                expectRowPress(target);
                sendMouse(target, type, p, Qt::LeftButton, Qt::LeftButton);
            }
            if (target)
                sendMouse(target, QEvent::MouseButtonRelease, p, Qt::LeftButton, Qt::NoButton);
        }
        m_activeRow = nullptr;
        break;
    }
    case OpClickRoot:
    case OpDoubleClickRoot: {
        if (roots.isEmpty())
            break;
        const int i = roots.at(m_rng.below(roots.size()));
        MDrawer &d = m.drawers[i];
        RootItem *root = d.widget->rootItem();
        const bool twice = op == OpDoubleClickRoot;
        note(QStringLiteral("%1 root row of drawer %2 (stored %3)")
                 .arg(twice ? QStringLiteral("double-click") : QStringLiteral("click"))
                 .arg(i)
                 .arg(d.stored));
        if (twice)
            doubleClickAt(root, root->rect().center());
        else
            clickAt(root, root->rect().center());
        modelSelectRoot(d);
        if (twice)
            modelSetExpanded(d, !d.expanded);
        break;
    }
    case OpClickCheckBox: {
        if (roots.isEmpty())
            break;
        const int i = roots.at(m_rng.below(roots.size()));
        MDrawer &d = m.drawers[i];
        QCheckBox *box = d.widget->rootItem()->findChild<QCheckBox *>();
        if (!box || !box->isVisible())
            break;
        note(QStringLiteral("click the expand box of drawer %1").arg(i));
        clickAt(box, box->rect().center());
        modelSetExpanded(d, !d.expanded);
        break;
    }
    case OpDoubleClickDrawer: {
        if (roots.isEmpty())
            break;
        const int i = roots.at(m_rng.below(roots.size()));
        MDrawer &d = m.drawers[i];
        DrawerControl *drawer = d.widget;
        const QPoint p(3, drawer->rootItem()->geometry().center().y());
        if (drawer->childAt(p))
            break;
        note(QStringLiteral("double-click the margin of drawer %1").arg(i));
        doubleClickAt(drawer, p);
        d.dragStart = p;
        modelSetExpanded(d, !d.expanded);
        break;
    }
    case OpPressNearRow: {
        if (rows.isEmpty())
            break;
        const QPair<int, int> at = rows.at(m_rng.below(rows.size()));
        MDrawer &d = m.drawers[at.first];
        SecondItem *row = d.children.at(at.second).widget;
        QWidget *container = d.widget->childContainer();
        const QPoint rowPos = row->mapTo(container, QPoint(0, row->height() / 2));
        const QPoint p(rowPos.x() - 1 - m_rng.below(4), rowPos.y());
        if (p.x() < 0 || container->childAt(p))
            break;
        note(QStringLiteral("press beside row %1 of drawer %2").arg(at.second).arg(at.first));
        // The container ignores presses: the drawer gets it.
        clickAt(container, p);
        d.dragStart = container->mapTo(d.widget, p);
        break;
    }
    case OpHoverChild: {
        if (rows.isEmpty())
            break;
        const QPair<int, int> at = rows.at(m_rng.below(rows.size()));
        MDrawer &d = m.drawers[at.first];
        const MChild &c = d.children.at(at.second);
        SecondItem *row = c.widget;
        note(QStringLiteral("hover row %1 of drawer %2").arg(at.second).arg(at.first));
        sendPlain(row, QEvent::Enter);
        const bool shown[4] = {c.showCapture, c.showEdit, c.showDelete, c.showFourth};
        QList<int> clickable;
        for (int b = 0; b < 4; ++b) {
            QToolButton *button = rowButton(row, b);
            if (!button) {
                fail(QStringLiteral("row without its four buttons"));
                return;
            }
            if (button->isVisibleTo(row) != shown[b])
                fail(QStringLiteral("hover: button %1 of row %2 of drawer %3 visible %4, expected %5")
                         .arg(b)
                         .arg(at.second)
                         .arg(at.first)
                         .arg(button->isVisibleTo(row))
                         .arg(shown[b]));
            if (shown[b])
                clickable << b;
        }
        if (!clickable.isEmpty() && m_rng.chance(70)) {
            const int b = clickable.at(m_rng.below(clickable.size()));
            static const char *const names[] = {"capture", "edit", "delete", "fourth"};
            note(QStringLiteral("  click the %1 button").arg(QLatin1String(names[b])));
            QToolButton *button = rowButton(row, b);
            QPointer<SecondItem> target = row;
            if (b < 3) {
                // The button's own signal follows the item-clicked one unless
                // the host removed the row (or more) in between.
                static const char *const signal[] = {"Capture", "Edit", "Delete"};
                expectRowPress(row);
                m_followUp = {row, QLatin1String(signal[b])};
            }
            m_activeRow = row;
            clickAt(button, button->rect().center());
            m_activeRow = nullptr;
            if (m_followUp.row)
                fail(QStringLiteral("the button's click reported nothing"));
            m_followUp = FollowUp();
            if (!target || findRow(target).first < 0)
                break; // removed by the host: nothing to leave
        }
        sendPlain(row, QEvent::Leave);
        for (int b = 0; b < 4; ++b) {
            if (rowButton(row, b)->isVisibleTo(row))
                fail(QStringLiteral("leave: button %1 still visible").arg(b));
        }
        break;
    }
    case OpHoverRoot: {
        if (roots.isEmpty())
            break;
        const int i = roots.at(m_rng.below(roots.size()));
        MDrawer &d = m.drawers[i];
        RootItem *root = d.widget->rootItem();
        QToolButton *edit = rootButton(root, "isEditBtn");
        QToolButton *del = rootButton(root, "isDelBtn");
        if (!edit || !del) {
            fail(QStringLiteral("root row without its edit and delete buttons"));
            return;
        }
        note(QStringLiteral("hover root row of drawer %1").arg(i));
        sendPlain(root, QEvent::Enter);
        if (edit->isVisibleTo(root) != d.rootShowEdit || del->isVisibleTo(root) != d.rootShowDelete)
            fail(QStringLiteral("hover: root buttons visible %1/%2, expected %3/%4")
                     .arg(edit->isVisibleTo(root))
                     .arg(del->isVisibleTo(root))
                     .arg(d.rootShowEdit)
                     .arg(d.rootShowDelete));
        QList<QToolButton *> clickable;
        if (d.rootShowEdit)
            clickable << edit;
        if (d.rootShowDelete)
            clickable << del;
        if (!clickable.isEmpty() && m_rng.chance(70)) {
            QToolButton *button = clickable.at(m_rng.below(clickable.size()));
            note(QStringLiteral("  click the root's %1 button")
                     .arg(button == edit ? QStringLiteral("edit") : QStringLiteral("delete")));
            // The root's buttons report the drawer's current selection.
            expect(QStringLiteral("%1(%2)")
                       .arg(button == edit ? QStringLiteral("Edit") : QStringLiteral("Delete"),
                            pathText(d.selPath)));
            QPointer<DrawerControl> drawer = d.widget;
            clickAt(button, button->rect().center());
            bool stillListed = false;
            for (const MDrawer &x : qAsConst(m.drawers))
                stillListed = stillListed || (drawer && x.widget == drawer);
            if (!stillListed)
                break; // released by the host: nothing to leave
        }
        sendPlain(root, QEvent::Leave);
        if (edit->isVisibleTo(root) || del->isVisibleTo(root))
            fail(QStringLiteral("leave: root buttons still visible"));
        break;
    }
    case OpDrag:
        opDrag();
        break;
    default:
        break;
    }
}

} // namespace Stress
