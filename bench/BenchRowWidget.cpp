// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "BenchRowWidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <QVariant>

namespace {

void repolish(QWidget *widget)
{
    QStyle *style = widget->style();
    style->unpolish(widget);
    style->polish(widget);
}

} // namespace

BenchRowWidget::BenchRowWidget(const QString &picture, const QString &upper,
                               const QString &lower, bool libraryWidgets, QWidget *parent)
    : QFrame(parent)
    , m_pIcon(new QLabel(this))
    , m_pUpper(new QLabel(upper, this))
    , m_pLower(new QLabel(lower, this))
{
    setObjectName(QStringLiteral("BenchRow"));
    setProperty("benchLook", QStringLiteral("normal"));
    setFixedHeight(40);

    m_pIcon->setFixedSize(33, 20);
    if (!picture.isEmpty())
        m_pIcon->setPixmap(QPixmap(picture)); // same cached pictures as the library
    m_pUpper->setObjectName(QStringLiteral("benchUpper"));
    m_pUpper->setProperty("benchLook", QStringLiteral("normal"));
    m_pLower->setObjectName(QStringLiteral("benchLower"));

    QHBoxLayout *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 0, 0, 0);
    row->setSpacing(10);
    QVBoxLayout *text = new QVBoxLayout();
    text->setContentsMargins(0, 5, 0, 4);
    text->setSpacing(0);
    text->addWidget(m_pUpper);
    text->addWidget(m_pLower);
    row->addWidget(m_pIcon);
    row->addLayout(text);
    row->addStretch();

    if (!libraryWidgets)
        return;
    QFrame *buttons = new QFrame(this);
    QHBoxLayout *buttonRow = new QHBoxLayout(buttons);
    buttonRow->setContentsMargins(0, 0, 0, 0);
    buttonRow->setSpacing(8);
    const char *const kinds[] = {"isDelBtn", "isEditBtn", "isDelBtn", "isDelBtn"};
    for (const char *kind : kinds) {
        QToolButton *button = new QToolButton(buttons);
        button->setFixedSize(20, 20);
        button->setProperty("isTarn", true);
        button->setProperty(kind, true);
        buttonRow->addWidget(button);
        button->setVisible(false);
    }
    buttons->hide();
}

void BenchRowWidget::setLook(const QString &look)
{
    if (property("benchLook").toString() == look)
        return;
    setProperty("benchLook", look);
    m_pUpper->setProperty("benchLook", look);
    repolish(this);
    repolish(m_pUpper);
}

void BenchRowWidget::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    emit pressed();
}
