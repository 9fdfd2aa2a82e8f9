// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RowMetrics.h"

#include "ChildRowState.h"

#include "DrawerControl.h"
#include "QuietAccessibility.h"
#include "RepolishGuard.h"
#include "RootItem.h"
#include "SecondItem.h"

#include <QFrame>
#include <QStyle>
#include <QLabel>
#include <QToolButton>
#include <QWidgetItem>

namespace {

enum Initial { DrawerRect, ContainerRect, RootRect, ChildRect };

// Re-polishes @p widget as the rows do, fixed height kept where no rule
// sets one.
void repolish(QWidget *widget, int fixedHeight)
{
    RepolishGuard guard;
    guard.keepFixedHeight(fixedHeight);
    guard.repolish(widget);
}

SlotMetrics measure(QWidget *widget)
{
    const QWidgetItem item(widget);
    SlotMetrics metrics;
    metrics.minimum = item.minimumSize();
    metrics.hint = item.sizeHint();
    metrics.maximum = item.maximumSize();
    metrics.expanding = item.expandingDirections();
    metrics.widgetMinimum = widget->minimumSize();
    metrics.widgetMaximum = widget->maximumSize();
    return metrics;
}

BoxSlot::Frame frameOf(const QWidget *widget)
{
    BoxSlot::Frame frame;
    frame.margins = widget->contentsMargins();
    frame.minimum = widget->minimumSize();
    frame.maximum = widget->maximumSize();
    frame.policy = widget->sizePolicy();
    return frame;
}

void setLineWidth(QLabel *label, int width)
{
    if (width >= 0) {
        label->setFixedWidth(width);
    } else {
        label->setMinimumWidth(0);
        label->setMaximumWidth(QWIDGETSIZE_MAX);
    }
}

} // namespace

RowMetrics::RowMetrics(QWidget *container)
    : m_pContainer(container)
{
    if (container)
        container->installEventFilter(this);
}

bool RowMetrics::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::StyleChange:
    case QEvent::FontChange:
    case QEvent::ApplicationFontChange:
        forget();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

RowMetrics::~RowMetrics()
{
    delete m_pDrawer.data();
}

void RowMetrics::ensurePrototypes()
{
    if (m_pDrawer || !m_pContainer)
        return;
    // Hidden before anything can show it: a prototype is never on screen,
    // in no layout, and no host hears of it.
    auto *drawer = new DrawerControl(m_pContainer);
    drawer->setPrototype();
    drawer->setVisible(false);
    m_initial[DrawerRect] = drawer->geometry();
    drawer->initRootItem(0, 0);
    m_initial[ContainerRect] = drawer->childContainer()->geometry();
    m_initial[RootRect] = drawer->rootItem()->geometry();
    m_pChild = new SecondItem(drawer->childContainer());
    m_pChild->initItem(0, 0);
    m_initial[ChildRect] = m_pChild->geometry();
    st_NodeInfoSignal node;
    node.strNodeName = QStringList{QStringLiteral("x"), QStringLiteral("x")};
    m_pChild->setNodeInfo(node);
    drawer->ensurePolished();
    m_pDrawer = drawer;
}

SlotMetrics RowMetrics::child(const ChildLook &look)
{
    // Asked for by every row's slot at every layout: a key without text.
    const ChildKey key{look.state, quint8(look.keyFocus | look.upperShown << 1 | look.lowerShown << 2), look.lineWidth};
    const auto known = m_children.constFind(key);
    if (known != m_children.constEnd())
        return *known;
    ensurePrototypes();
    if (!m_pChild)
        return SlotMetrics();
    SecondItem *row = m_pChild;
    row->setProperty("isTarn", true);
    row->setProperty("isSecondItem", look.state);
    row->setProperty("isKeyFocus", look.keyFocus);
    repolish(row, SecondItem::kRowHeight);
    for (QLabel *label : row->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (label->objectName() == QLatin1String("m_qlUpper")) {
            label->setVisible(look.upperShown);
            setLineWidth(label, look.lineWidth);
        } else if (label->objectName() == QLatin1String("m_qlDown")) {
            label->setVisible(look.lowerShown);
            setLineWidth(label, look.lineWidth);
        }
    }
    const SlotMetrics metrics = measure(row);
    m_children.insert(key, metrics);
    return metrics;
}

RowMetrics::ChildLook RowMetrics::lookOf(const SecondItem *row)
{
    ChildLook look;
    look.state = row->property("isSecondItem").toString();
    look.keyFocus = row->property("isKeyFocus").toBool();
    const auto *upper = row->findChild<QLabel *>(QStringLiteral("m_qlUpper"));
    const auto *lower = row->findChild<QLabel *>(QStringLiteral("m_qlDown"));
    look.upperShown = upper && !upper->isHidden();
    look.lowerShown = lower && !lower->isHidden();
    // The width the last text fit gave the lines (-1: never fitted).
    look.lineWidth = upper && upper->minimumWidth() == upper->maximumWidth() ? upper->minimumWidth() : -1;
    return look;
}

RowMetrics::ChildLook RowMetrics::lookOf(const ChildRowState &state)
{
    ChildLook look;
    look.state = state.look;
    look.keyFocus = state.history.focusLook();
    look.upperShown = state.lineShown[0];
    look.lowerShown = state.lineShown[1];
    look.lineWidth = state.lines.width[0];
    return look;
}

QPair<QFont, QFont> RowMetrics::childFonts(const QByteArray &history)
{
    const auto known = m_fonts.constFind(history);
    if (known != m_fonts.constEnd())
        return *known;
    ensurePrototypes();
    if (!m_pDrawer)
        return {};
    // A row of its own, made as the drawers make theirs, put through the
    // same changes the same way.
    const QuietAccessibility quiet;
    SecondItem row(m_pDrawer->childContainer());
    row.initItem(0, 0);
    st_NodeInfoSignal node;
    node.strNodeName = QStringList{QStringLiteral("x"), QStringLiteral("x")};
    row.setNodeInfo(node);
    row.setPressed(false);
    row.goThrough(history);
    const auto *upper = row.findChild<QLabel *>(QStringLiteral("m_qlUpper"));
    const auto *lower = row.findChild<QLabel *>(QStringLiteral("m_qlDown"));
    const QPair<QFont, QFont> fonts(upper ? upper->font() : QFont(), lower ? lower->font() : QFont());
    m_fonts.insert(history, fonts);
    return fonts;
}

SlotMetrics RowMetrics::root(const RootLook &look)
{
    const QString key = QStringLiteral("%1|%2|%3|%4|%5")
                            .arg(look.state)
                            .arg(look.keyFocus)
                            .arg(look.upperOnline)
                            .arg(look.editShown)
                            .arg(look.deleteShown);
    const auto known = m_roots.constFind(key);
    if (known != m_roots.constEnd())
        return *known;
    ensurePrototypes();
    RootItem *row = m_pDrawer ? m_pDrawer->rootItem() : nullptr;
    if (!row)
        return SlotMetrics();
    row->setProperty("isTarn", true);
    row->setProperty("isRootItem", look.state);
    row->setProperty("isKeyFocus", look.keyFocus);
    repolish(row, RootItem::kRowHeight);
    if (QLabel *upper = row->findChild<QLabel *>(QStringLiteral("m_qlUpper"))) {
        upper->setProperty("isUpOnline", look.upperOnline);
        repolish(upper, -1);
    }
    if (row->editButton())
        row->editButton()->setVisible(look.editShown);
    if (row->deleteButton())
        row->deleteButton()->setVisible(look.deleteShown);
    const SlotMetrics metrics = measure(row);
    m_roots.insert(key, metrics);
    return metrics;
}

BoxSlot::Frame RowMetrics::drawerFrame()
{
    ensurePrototypes();
    return m_pDrawer ? frameOf(m_pDrawer) : BoxSlot::Frame();
}

BoxSlot::Frame RowMetrics::rowContainerFrame()
{
    ensurePrototypes();
    return m_pDrawer ? frameOf(m_pDrawer->childContainer()) : BoxSlot::Frame();
}

QRect RowMetrics::initialDrawer()
{
    ensurePrototypes();
    return m_initial[DrawerRect];
}

QRect RowMetrics::initialRowContainer()
{
    ensurePrototypes();
    return m_initial[ContainerRect];
}

QRect RowMetrics::initialRoot()
{
    ensurePrototypes();
    return m_initial[RootRect];
}

QRect RowMetrics::initialChild()
{
    ensurePrototypes();
    return m_initial[ChildRect];
}

QWidget *RowMetrics::prototypeRowParent()
{
    ensurePrototypes();
    return m_pDrawer ? m_pDrawer->childContainer() : nullptr;
}

const RowMetrics::ChildShape &RowMetrics::childShape(const QByteArray &key,
                                                    const std::function<ChildShape(QWidget *)> &measure)
{
    auto known = m_shapes.constFind(key);
    if (known == m_shapes.constEnd())
        known = m_shapes.insert(key, measure(prototypeRowParent()));
    return *known;
}

void RowMetrics::forget()
{
    m_fonts.clear();
    m_shapes.clear();
    m_children.clear();
    m_roots.clear();
}
