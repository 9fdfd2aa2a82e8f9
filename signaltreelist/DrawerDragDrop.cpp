// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// DrawerControl, continued: dragging a selected row onto another drawer, and
// taking such a drop.

#include "DrawerControl.h"

#include "NodeInfoTrace.h"
#include "PendingRows.h"
#include "RootItem.h"
#include "SecondItem.h"
#include "StyleConstants.h"

#include <QApplication>
#include <QDebug>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QFont>
#include <QFrame>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>
#include <QPixmap>

namespace {

// The size of a child row that was built but never laid out.
QSize newRowSize()
{
    static const QSize size = [] {
        QWidget parent;
        SecondItem probe(&parent);
        probe.initItem(0, 0);
        probe.setNodeInfo(st_NodeInfoSignal());
        return probe.size();
    }();
    return size;
}

} // namespace

void DrawerControl::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() & Qt::LeftButton) {
        const int distance = (event->pos() - m_ptDragStart).manhattanLength();
        const int index = secondItemIndexAt(mapToGlobal(event->pos()));
        if (m_bIsDrag && distance >= QApplication::startDragDistance() && index != -1)
            startDrag();
    }
    CLanguageTranslateFrame::mouseMoveEvent(event);
}

bool DrawerControl::acceptsDragFrom(QObject *source) const
{
    DrawerControl *pSource = qobject_cast<DrawerControl *>(source);
    return pSource && pSource != this;
}

void DrawerControl::dragEnterEvent(QDragEnterEvent *event)
{
    if (acceptsDragFrom(event->source())) {
        event->setDropAction(Qt::MoveAction);
        event->accept();
    }
}

void DrawerControl::dragMoveEvent(QDragMoveEvent *event)
{
    if (acceptsDragFrom(event->source())) {
        event->setDropAction(Qt::MoveAction);
        event->accept();
    }
}

void DrawerControl::dropEvent(QDropEvent *event)
{
    if (!acceptsDragFrom(event->source()))
        return;

    const QStringList parts = event->mimeData()->text().split(QLatin1Char(','), Qt::KeepEmptyParts,
                                                              Qt::CaseSensitive);
    const QPoint globalPos = mapToGlobal(event->pos());
    event->setDropAction(Qt::MoveAction);
    event->accept();

    QList<int> lstSrc;
    for (const QString &part : parts)
        lstSrc.append(part.toInt(nullptr, 10));
    QList<int> lstDst;
    lstDst.append(m_iRootIndex);
    const int index = secondItemIndexAt(globalPos);
    if (index >= 0)
        lstDst.append(index);
    emit signal_OnItemsIsDraged(lstSrc, lstDst);
}

int DrawerControl::secondItemIndexAt(const QPoint &globalPos)
{
    if (m_pPending) {
        // Rows of a never-expanded drawer were never laid out: each would
        // sit at the container's origin with the size of a new row, so the
        // first one would answer.
        if (rowCount() == 0 || !m_pContainer)
            return -1;
        return QRect(m_pContainer->mapToGlobal(QPoint(0, 0)), newRowSize()).contains(globalPos) ? 0 : -1;
    }
    if (!m_pContainer)
        return -1;
    const QPoint inContainer = m_pContainer->mapFromGlobal(globalPos);
    for (int i = 0; i < m_lstSecondItem.size(); ++i) {
        if (rowGeometry(i).contains(inContainer))
            return i;
    }
    return -1;
}

void DrawerControl::startDrag()
{
    if (m_bIsRootSel)
        return;
    if (m_stSelNodeInfo.strNodeName.isEmpty()) {
        writeNamelessNodeTrace(qDebug(), m_stSelNodeInfo);
        return;
    }

    QString strCaption;
    QString strText;
    if (m_lstSelIndex.size() == 1 || m_lstSelIndex.size() == 2)
        strCaption = m_stSelNodeInfo.strNodeName.first();
    const QString strRootIndex = m_pRootItem ? m_pRootItem->getIndexText() : QString();
    if (m_lstSelIndex.size() == 1)
        strText = strRootIndex;
    else if (m_lstSelIndex.size() == 2)
        strText = strRootIndex + QLatin1Char(',') + QString::number(m_iCurSecondIndex, 10);
    if (strCaption.length() > 9)
        strCaption = strCaption.left(6) + QStringLiteral("...");

    QMimeData *pMimeData = new QMimeData;
    pMimeData->setText(strText);
    m_pDrag = new QDrag(this);
    m_pDrag->setMimeData(pMimeData);

    m_pDrag->setPixmap(dragPicture(strCaption, devicePixelRatioF()));

    connect(m_pDrag, &QObject::destroyed, this, &DrawerControl::slot_releaseDrag);
    m_pDrag->exec(Qt::MoveAction);
}

QPixmap DrawerControl::dragPicture(const QString &caption, qreal ratio)
{
    QPixmap pixmap(g_qsDragTipImage);
    if (ratio > 1.0) {
        // Painted at the screen's ratio: the caption is sharp and the
        // picture keeps its size on screen. At 1 nothing changes.
        const QPixmap picture = pixmap;
        pixmap = QPixmap(picture.size() * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter scaler(&pixmap);
        scaler.setRenderHint(QPainter::SmoothPixmapTransform);
        scaler.drawPixmap(QRectF(QPointF(0, 0), QSizeF(picture.size())), picture, QRectF(picture.rect()));
    }
    QPainter painter(&pixmap);
    // Weight 50 on Qt 5's scale: QFont::Normal on both flavours.
    QFont font(QStringLiteral("Arial"), 9, QFont::Normal, false);
    painter.setFont(font);
    painter.setPen(QPen(QBrush(Qt::white, Qt::SolidPattern), 1.0, Qt::SolidLine, Qt::SquareCap,
                        Qt::BevelJoin));
    painter.drawText(QRectF(25.0, 7.0, 100.0, 18.0), caption, QTextOption());
    painter.end();
    return pixmap;
}

void DrawerControl::slot_releaseDrag()
{
    qDebug() << "[Tarn]::DrawerControl::slot_releaseDrag";
    m_pDrag = nullptr;
    if (!parentWidget()) {
        qDebug() << "[Tarn]::DrawerControl::slot_releaseDrag deleteLater";
        deleteLater();
        qDebug() << "[Tarn]::DrawerControl::slot_releaseDrag deleteLater end";
    }
    qDebug() << "[Tarn]::DrawerControl::slot_releaseDrag end";
}
