// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "LayoutCheck.h"

#include "DrawerControl.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "TreeListFrame.h"

#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QLayout>
#include <QScrollArea>
#include <QToolButton>

namespace {

QString rectText(const QRect &r)
{
    return QStringLiteral("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

QWidget *containerOf(SignalTreeList *list)
{
    QWidget *frame = list ? list->getSignalTreeListFrame() : nullptr;
    auto *area = frame ? frame->findChild<QScrollArea *>() : nullptr;
    return area ? area->widget() : nullptr;
}

RowMetrics::RootLook rootLook(const RootItem *row)
{
    RowMetrics::RootLook look;
    look.state = row->property("isRootItem").toString();
    look.keyFocus = row->property("isKeyFocus").toBool();
    const auto *upper = row->findChild<QLabel *>(QStringLiteral("m_qlUpper"));
    look.upperOnline = upper && upper->property("isUpOnline").toBool();
    look.editShown = row->editButton() && !row->editButton()->isHidden();
    look.deleteShown = row->deleteButton() && !row->deleteButton()->isHidden();
    return look;
}

QImage pictureOf(const QLabel *label)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return label->pixmap().toImage();
#else
    return label->pixmap(Qt::ReturnByValue).toImage();
#endif
}

// What a user or a host can see of @p w, a row or a widget inside @p row
// (but not where the row itself is: the copy is not laid out).
QString seenOf(const QWidget *w, const QWidget *row)
{
    QStringList props;
    for (const QByteArray &name : w->dynamicPropertyNames()) {
        if (!name.startsWith("_q_"))
            props << QStringLiteral("%1=%2").arg(QString::fromLatin1(name), w->property(name.constData()).toString());
    }
    props.sort();
    QString text = QStringLiteral("%1 '%2' {%3} tip='%4' name='%5' font=%6 width=%7..%8")
                       .arg(QString::fromLatin1(w->metaObject()->className()), w->objectName(), props.join(u' '),
                            w->toolTip(), w->accessibleName(), w->font().toString())
                       .arg(w->minimumWidth())
                       .arg(w->maximumWidth());
    if (w != row) {
        const bool shown = w->isVisibleTo(row);
        text += shown ? QStringLiteral(" shown") : QStringLiteral(" hidden");
        if (shown && w->objectName() == QLatin1String("m_qfBtns"))
            text += QStringLiteral(" at %1").arg(rectText(w->geometry()));
    }
    if (auto *label = qobject_cast<const QLabel *>(w)) {
        text += QStringLiteral(" text='%1'").arg(label->text());
        const QImage picture = pictureOf(label);
        if (!picture.isNull())
            text += QStringLiteral(" picture=%1").arg(picture.cacheKey() ? qHashBits(picture.constBits(), size_t(picture.sizeInBytes())) : 0);
    }
    return text;
}

QStringList seenOfRow(const SecondItem *row)
{
    QStringList out{seenOf(row, row)};
    for (const QWidget *child : row->findChildren<QWidget *>())
        out << seenOf(child, row);
    return out;
}

} // namespace

LayoutCheck::LayoutCheck(SignalTreeList *list)
    : m_list(list)
    , m_metrics(new RowMetrics(containerOf(list)))
{
}

LayoutCheck::~LayoutCheck() = default;

QStringList LayoutCheck::fontDifferences()
{
    QStringList out;
    auto *frame = m_list ? qobject_cast<TreeListFrame *>(m_list->getSignalTreeListFrame()) : nullptr;
    if (!frame)
        return out;
    const QList<DrawerControl *> drawers = frame->drawers();
    for (int r = 0; r < drawers.size(); ++r) {
        DrawerControl *d = drawers.at(r);
        if (!d)
            continue;
        const QList<SecondItem *> rows = d->secondItems();
        for (int c = 0; c < rows.size(); ++c) {
            const SecondItem *row = rows.at(c);
            if (!row)
                continue; // parked: no fonts of its own
            const QByteArray history = row->lookHistory().events();
            const QPair<QFont, QFont> fonts = m_metrics->childFonts(history);
            const auto *upper = row->findChild<QLabel *>(QStringLiteral("m_qlUpper"));
            const auto *lower = row->findChild<QLabel *>(QStringLiteral("m_qlDown"));
            if (fonts.first.toString() != upper->font().toString() || fonts.second.toString() != lower->font().toString()) {
                out << QStringLiteral("fonts of row %1,%2 after '%3': model %4 / %5, widget %6 / %7")
                           .arg(r)
                           .arg(c)
                           .arg(QString::fromLatin1(history), fonts.first.toString(), fonts.second.toString(),
                                upper->font().toString(), lower->font().toString());
            }
        }
    }
    return out;
}

QStringList LayoutCheck::roundTripDifferences()
{
    QStringList out;
    auto *frame = m_list ? qobject_cast<TreeListFrame *>(m_list->getSignalTreeListFrame()) : nullptr;
    QWidget *parent = m_metrics->prototypeRowParent();
    if (!frame || !parent)
        return out;
    const QList<DrawerControl *> drawers = frame->drawers();
    for (int r = 0; r < drawers.size(); ++r) {
        DrawerControl *d = drawers.at(r);
        if (!d)
            continue;
        const QList<SecondItem *> rows = d->secondItems();
        for (int c = 0; c < rows.size(); ++c) {
            if (!rows.at(c))
                continue; // parked already
            const ChildRowState state = rows.at(c)->state();
            SecondItem copy(parent);
            copy.initItem(state.rootIndex, state.childIndex);
            copy.restoreState(state);
            const QStringList was = seenOfRow(rows.at(c));
            const QStringList is = seenOfRow(&copy);
            for (int i = 0; i < qMax(was.size(), is.size()); ++i) {
                if (was.value(i) != is.value(i)) {
                    out << QStringLiteral("row %1,%2 after '%3': was %4, made again %5")
                               .arg(r)
                               .arg(c)
                               .arg(QString::fromLatin1(state.history.events()), was.value(i), is.value(i));
                }
            }
        }
    }
    return out;
}

QStringList LayoutCheck::differences()
{
    QStringList out;
    QWidget *container = containerOf(m_list);
    if (!container || !container->layout())
        return out;
    RowMetrics &metrics = *m_metrics;

    // The frame's column as its layout holds it: released drawers that are
    // still there included.
    QVector<TreeLayout::Drawer> column;
    for (int i = 0; i < container->layout()->count(); ++i) {
        auto *d = qobject_cast<DrawerControl *>(container->layout()->itemAt(i)->widget());
        if (!d || !d->rootItem())
            continue;
        TreeLayout::Drawer drawer;
        drawer.key = d->rootKey();
        drawer.empty = d->isHidden();
        drawer.frame = metrics.drawerFrame();
        drawer.initial = metrics.initialDrawer();
        drawer.root.key = d->rootKey();
        drawer.root.metrics = metrics.root(rootLook(d->rootItem()));
        drawer.root.empty = d->rootItem()->isHidden();
        drawer.root.initial = metrics.initialRoot();
        drawer.containerEmpty = d->childContainer()->isHidden();
        drawer.containerFrame = metrics.rowContainerFrame();
        drawer.containerInitial = metrics.initialRowContainer();
        drawer.spacings = d->childSpacings();
        const QList<SecondItem *> rows = d->secondItems();
        for (int c = 0; c < d->rowCount(); ++c) {
            TreeLayout::Row row;
            row.key = d->rowKey(c);
            row.initial = metrics.initialChild();
            if (const SecondItem *item = rows.value(c)) {
                row.metrics = metrics.child(RowMetrics::lookOf(item));
                row.empty = item->isHidden();
            } else if (const ChildRowState *parked = d->parkedRow(c)) {
                row.metrics = metrics.child(RowMetrics::lookOf(*parked));
            }
            drawer.rows << row;
        }
        column << drawer;
    }
    m_layout.sync(column);
    BoxSlot::Frame containerFrame;
    containerFrame.margins = container->contentsMargins();
    containerFrame.minimum = container->minimumSize();
    containerFrame.maximum = container->maximumSize();
    containerFrame.policy = container->sizePolicy();
    m_layout.setContainerFrame(containerFrame);
    m_layout.layout(container->size());

    const QSize minimum = m_layout.minimumSize();
    const QSize hint = m_layout.sizeHint();
    if (minimum != container->minimumSizeHint() || hint != container->sizeHint()) {
        out << QStringLiteral("container: model minimum %1x%2 hint %3x%4, widgets %5x%6 and %7x%8")
                   .arg(minimum.width())
                   .arg(minimum.height())
                   .arg(hint.width())
                   .arg(hint.height())
                   .arg(container->minimumSizeHint().width())
                   .arg(container->minimumSizeHint().height())
                   .arg(container->sizeHint().width())
                   .arg(container->sizeHint().height());
    }
    m_compared = 0;
    const auto compareRect = [this, &out](const QString &what, const QRect &model, const QRect &actual) {
        ++m_compared;
        if (model != actual)
            out << QStringLiteral("%1: model %2, widget %3").arg(what, rectText(model), rectText(actual));
    };
    const auto compare = [&compareRect](const QString &what, const QRect &model, const QWidget *widget) {
        compareRect(what, model, widget->geometry());
    };
    auto *frame = qobject_cast<TreeListFrame *>(m_list->getSignalTreeListFrame());
    const QList<DrawerControl *> drawers = frame->drawers();
    for (int r = 0; r < drawers.size(); ++r) {
        DrawerControl *d = drawers.at(r);
        if (!d || d->isHidden() || !d->rootItem())
            continue;
        const QString name = QString::number(r);
        compare(QStringLiteral("drawer %1").arg(name), m_layout.drawerRect(d->rootKey()), d);
        compare(QStringLiteral("root %1").arg(name), m_layout.rootRect(d->rootKey()), d->rootItem());
        if (d->childContainer()->isHidden())
            continue;
        compare(QStringLiteral("rows of %1").arg(name), m_layout.rowContainerRect(d->rootKey()), d->childContainer());
        const QList<SecondItem *> rows = d->secondItems();
        for (int c = 0; c < rows.size(); ++c) {
            if (!rows.at(c)) // parked: where its slot is
                compareRect(QStringLiteral("row %1,%2").arg(name).arg(c), m_layout.rowRect(d->rootKey(), d->rowKey(c)),
                            d->rowGeometry(c));
            else if (!rows.at(c)->isHidden())
                compare(QStringLiteral("row %1,%2").arg(name).arg(c), m_layout.rowRect(d->rootKey(), d->rowKey(c)), rows.at(c));
        }
    }
    return out;
}
