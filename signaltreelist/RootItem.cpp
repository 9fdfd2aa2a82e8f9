// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "RootItem.h"

#include "LayoutInstall.h"
#include "RowTexts.h"
#include "StyleConstants.h"

#include <QEvent>
#include <QCheckBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>
#include <QVariant>
#include <QVBoxLayout>

namespace {

// Width the upper line is elided to; the label itself is 150 pixels wide.
constexpr int kUpperTextWidth = 150;

} // namespace

RootItem::RootItem(QWidget *parent)
    : CLanguageTranslateFrame(parent)
    , m_pMainLayout(nullptr)
    , m_pTextLayout(nullptr)
    , m_pExpandBox(nullptr)
    , m_pOnlineBtn(nullptr)
    , m_qlUpper(nullptr)
    , m_qlDown(nullptr)
    , m_qlMainProperty(nullptr)
    , m_pEditBtn(nullptr)
    , m_pDeleteBtn(nullptr)
    , m_iItemType(0)
    , m_bIsOnline(false)
    , m_bShowDelete(false)
    , m_bShowEdit(false)
    , m_stNodeInfo()
    , m_iItemIndex(-1)
    , m_bIsPressed(false)
    , m_bIsSelected(false)
{
    setObjectName(QStringLiteral("RootItem"));
    setProperty("isTarn", true);
    setProperty("isRootItem", QStringLiteral("normal"));
    setProperty("isWin", true);
    m_guardSelf.repolish(this);

    setFixedHeight(kRowHeight);
    m_guardSelf.keepFixedHeight(kRowHeight);
    setAcceptDrops(true);
}

RootItem::~RootItem() = default;

void RootItem::initItem(int itemType, int itemIndex)
{
    m_iItemType = itemType;
    m_iItemIndex = itemIndex;

    m_pMainLayout = installLayout(this, new QHBoxLayout());
    m_pMainLayout->setSpacing(16);
    m_pMainLayout->setContentsMargins(0, 0, 0, 0);

    m_pTextLayout = new QVBoxLayout();
    m_pTextLayout->setSpacing(0);
    m_pTextLayout->setContentsMargins(0, 0, 0, 0);

    m_pExpandBox = new QCheckBox(this);
    m_pExpandBox->setFixedSize(16, 16);

    m_pOnlineBtn = new QToolButton(this);
    m_pOnlineBtn->setFixedSize(8, 8);
    m_pOnlineBtn->setProperty("isTarn", true);
    m_pOnlineBtn->setProperty("isOnlineBtn", true);

    m_qlUpper = new QLabel(this);
    m_qlUpper->setObjectName(QStringLiteral("m_qlUpper"));
    m_qlUpper->setFixedSize(kUpperTextWidth, 15);

    m_qlDown = new QLabel(this);
    m_qlDown->setObjectName(QStringLiteral("m_qlDown"));

    m_qlMainProperty = new QLabel(this);
    m_qlMainProperty->setFixedHeight(2);
    m_qlMainProperty->setProperty("isTarn", true);
    m_qlMainProperty->setProperty("isMainproperty", true);

    m_pEditBtn = new QToolButton(this);
    m_pEditBtn->setFixedSize(20, 20);
    m_pEditBtn->setProperty("isTarn", true);
    m_pEditBtn->setProperty("isEditBtn", true);

    m_pDeleteBtn = new QToolButton(this);
    m_pDeleteBtn->setFixedSize(20, 20);
    m_pDeleteBtn->setProperty("isTarn", true);
    m_pDeleteBtn->setProperty("isDelBtn", true);

    // The list is one tab stop: its frame takes the keys for every row.
    for (QWidget *pWidget : {static_cast<QWidget *>(m_pExpandBox), static_cast<QWidget *>(m_pOnlineBtn),
                             static_cast<QWidget *>(m_pEditBtn), static_cast<QWidget *>(m_pDeleteBtn)})
        pWidget->setFocusPolicy(Qt::NoFocus);

    m_pTextLayout->addWidget(m_qlUpper);
    m_pTextLayout->addWidget(m_qlDown);

    m_pMainLayout->addSpacing(18);
    m_pMainLayout->addWidget(m_pExpandBox);
    m_pMainLayout->addWidget(m_pOnlineBtn);
    m_pMainLayout->addLayout(m_pTextLayout);
    m_pMainLayout->addStretch();
    m_pMainLayout->addWidget(m_qlMainProperty);
    m_pMainLayout->addWidget(m_pEditBtn);
    m_pMainLayout->addWidget(m_pDeleteBtn);
    m_pMainLayout->addSpacing(18);

    setItemType(itemType);

    // Hosts may re-wire the box by signature, so it stays a string-based
    // connection.
    connect(m_pExpandBox, SIGNAL(clicked(bool)), this, SLOT(slot_OnCheckBoxClicked(bool)));
    connect(m_pEditBtn, &QToolButton::clicked, this, &RootItem::signal_OnEditBtnClicked);
    connect(m_pDeleteBtn, &QToolButton::clicked, this, &RootItem::signal_OnDeleteBtnClicked);

    m_pEditBtn->setVisible(m_bShowEdit);
    m_pDeleteBtn->setVisible(m_bShowDelete);

    m_qlUpper->setProperty("isTarn", true);
    m_qlUpper->setProperty("isUpOnline", false);

    m_qlMainProperty->hide();
    RootItem::reTranslateUI();
}

void RootItem::setItemType(int itemType)
{
    m_iItemType = itemType;

    // The type does not change which children show: the online indicator
    // stays hidden unless the host style brings it back.
    if (m_pExpandBox)
        m_pExpandBox->show();
    if (m_pOnlineBtn)
        m_pOnlineBtn->hide();
    if (m_qlUpper)
        m_qlUpper->show();
    if (m_qlDown)
        m_qlDown->hide();
    if (m_pEditBtn)
        m_pEditBtn->hide();
    if (m_pDeleteBtn)
        m_pDeleteBtn->hide();
}

int RootItem::getItemType() const
{
    return m_iItemType;
}

void RootItem::setNodeInfo(const st_NodeInfoSignal &node)
{
    m_stNodeInfo = node;

    const QStringList &names = node.strNodeName;
    if (names.size() == 1) {
        setUpperText(names.at(0));
    } else if (names.size() == 2) {
        setUpperText(names.at(0));
        setDownText(names.at(1));
    }

    setOnline(node.isOnline);
    setOpBtnShow(node.showOpBtn);
}

st_NodeInfoSignal RootItem::getNodeInfo() const
{
    return m_stNodeInfo;
}

void RootItem::setUpperText(QString text)
{
    if (!m_qlUpper)
        return;
    // Only the elided text is kept; the node record holds the full name.
    const QFontMetrics metrics(m_qlUpper->font());
    m_qlUpper->setText(metrics.elidedText(text, Qt::ElideRight, kUpperTextWidth));
}

QString RootItem::getUpperText() const
{
    return m_qlUpper ? m_qlUpper->text() : QString();
}

void RootItem::setDownText(QString text)
{
    if (!m_qlDown)
        return;
    m_qlDown->setText(text);
}

QString RootItem::getDownText() const
{
    return m_qlDown ? m_qlDown->text() : QString();
}

void RootItem::setOnline(bool bIsOnline)
{
    m_bIsOnline = bIsOnline;
    if (!m_pOnlineBtn)
        return;
    m_pOnlineBtn->setProperty("isTarn", true);
    m_pOnlineBtn->setProperty("isOnlineBtn", bIsOnline);
    m_guardOnline.repolish(m_pOnlineBtn);
}

bool RootItem::isOnline() const
{
    return m_bIsOnline;
}

void RootItem::setOpBtnShow(QList<bool> lstShow)
{
    // Only the flags change; the buttons follow on the next hover.
    if (lstShow.size() == 1) {
        m_bShowEdit = lstShow.at(0);
    } else if (lstShow.size() == 2) {
        m_bShowEdit = lstShow.at(0);
        m_bShowDelete = lstShow.at(1);
    }
}

void RootItem::setItemIndex(int index)
{
    m_iItemIndex = index;
}

QString RootItem::getIndexText() const
{
    return QString::number(m_iItemIndex, 10);
}

void RootItem::setExpand(bool bIsExpand)
{
    if (m_pExpandBox)
        m_pExpandBox->setChecked(bIsExpand);
    slot_OnCheckBoxClicked(bIsExpand);
}

void RootItem::setSelected(bool bIsSelected)
{
    m_bIsPressed = bIsSelected;
    m_bIsSelected = bIsSelected;
    // setExpand takes the press path, so a deselected root keeps its press
    // look; only the upper line follows the selection.
    setExpand(bIsSelected);
    if (m_qlUpper) {
        m_qlUpper->setProperty("isTarn", true);
        m_qlUpper->setProperty("isUpOnline", bIsSelected);
    }
    emit signal_OnSelectRootItem();
    m_guardSelf.repolish(this);
    m_guardUpper.repolish(m_qlUpper);
}

void RootItem::reTranslateUI()
{
    // Only what assistive technology reads: the row shows no text of its own.
    RowTexts::nameButtons(m_pEditBtn, m_pDeleteBtn, m_pExpandBox, nullptr, nullptr);
}

void RootItem::slot_OnCheckBoxClicked(bool bIsShow)
{
    m_bIsPressed = true;
    applyPressLook();
    emit signal_OnIsShowChildItems(bIsShow);
}

void RootItem::mousePressEvent(QMouseEvent *event)
{
    Q_UNUSED(event)
    m_bIsPressed = true;
    m_bIsSelected = true;
    applyPressLook();
    emit signal_OnSelectRootItem();
}

void RootItem::mouseDoubleClickEvent(QMouseEvent *event)
{
    Q_UNUSED(event)
    m_bIsPressed = true;
    applyPressLook();
    // The press before every double click has already reported the
    // selection; the double click only toggles the children.
    setExpand(!(m_pExpandBox && m_pExpandBox->isChecked()));
}

void RootItem::enterEvent(QtCompat::EnterEvent *event)
{
    Q_UNUSED(event)
    if (m_pEditBtn)
        m_pEditBtn->setVisible(m_bShowEdit);
    if (m_pDeleteBtn)
        m_pDeleteBtn->setVisible(m_bShowDelete);

    if (!m_bIsPressed) {
        setProperty("isTarn", true);
        setProperty("isRootItem", QStringLiteral("hover"));
        if (m_qlUpper) {
            m_qlUpper->setProperty("isTarn", true);
            m_qlUpper->setProperty("isUpOnline", false);
        }
    }
    m_guardSelf.repolish(this);
    m_guardUpper.repolish(m_qlUpper);
}

void RootItem::leaveEvent(QEvent *event)
{
    Q_UNUSED(event)
    if (m_pEditBtn)
        m_pEditBtn->hide();
    if (m_pDeleteBtn)
        m_pDeleteBtn->hide();

    if (!m_bIsPressed) {
        setProperty("isTarn", true);
        setProperty("isRootItem", QStringLiteral("normal"));
        if (m_qlUpper)
            m_qlUpper->setProperty("isUpOnline", false);
    }
    m_guardSelf.repolish(this);
    m_guardUpper.repolish(m_qlUpper);
}

bool RootItem::event(QEvent *event)
{
    // A new sheet that no longer sizes the row: its own height again.
    if (event->type() == QEvent::StyleChange)
        m_guardSelf.keepHeight(this);
    return CLanguageTranslateFrame::event(event);
}

void RootItem::resizeEvent(QResizeEvent *event)
{
    // The layout places everything; nothing depends on the width.
    Q_UNUSED(event)
}

void RootItem::applyPressLook()
{
    setProperty("isTarn", true);
    setProperty("isRootItem", QStringLiteral("press"));
    if (m_qlUpper) {
        m_qlUpper->setProperty("isTarn", true);
        m_qlUpper->setProperty("isUpOnline", true);
    }
    m_guardSelf.repolish(this);
    m_guardUpper.repolish(m_qlUpper);
}

QToolButton *RootItem::editButton() const
{
    return m_pEditBtn;
}

QToolButton *RootItem::deleteButton() const
{
    return m_pDeleteBtn;
}

bool RootItem::showsEditButton() const
{
    return m_bShowEdit;
}

bool RootItem::showsDeleteButton() const
{
    return m_bShowDelete;
}

QCheckBox *RootItem::expandBox() const
{
    return m_pExpandBox;
}

bool RootItem::isSelected() const
{
    return m_bIsSelected;
}
