#include "BenchRowWidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QStyle>
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
                               const QString &lower, QWidget *parent)
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
