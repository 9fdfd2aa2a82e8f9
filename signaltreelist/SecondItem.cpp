// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "SecondItem.h"

#include "HandlerGuard.h"
#include "LayoutInstall.h"
#include "RowTexts.h"
#include "StyleConstants.h"
#include "TextFit.h"

#include <QCoreApplication>
#include <QDebug>
#include <QEvent>
#include <QFile>
#include <QFont>
#include <QFontMetrics>
#include <QFrame>
#include <QHBoxLayout>
#include <QHash>
#include <QLabel>
#include <QPixmap>
#include <QResizeEvent>
#include <QStyle>
#include <QToolButton>
#include <QVariant>
#include <QVBoxLayout>

namespace {

// Size of the icon label; bigger pictures are scaled down into it.
constexpr int kIconWidth = 33;
constexpr int kIconHeight = 20;
// Gap that every visible hover button adds, and the frame's own padding.
constexpr int kButtonGap = 8;
// Room kept beside the text column besides the icon.
constexpr int kTextReserve = 28;
// The width the icon and both name lines share, whatever the row's width.
constexpr int kTextWidthBudget = 200;

// Several type numbers share one connector picture; anything unlisted
// (15, negatives, unknown future types) gets the "unknown" picture.
QString signalIconPath(int type, bool online)
{
    switch (type) {
    case 0:
    case 5:
    case 16:
        return online ? g_qsDVINormalImage : g_qsDVIDisableImage;
    case 1:
    case 6:
    case 9:
        return online ? g_qsHDMINormalImage : g_qsHDMIDisableImage;
    case 2:
        return online ? g_qsVGANormalImage : g_qsVGADisableImage;
    case 3:
    case 12:
    case 13:
        return online ? g_qsSDINormalImage : g_qsSDIDisableImage;
    case 4:
        return online ? g_qsCVBSNormalImage : g_qsCVBSDisableImage;
    case 7:
    case 8:
        return online ? g_qsDPNormalImage : g_qsDPDisableImage;
    case 10:
        return online ? g_qsUSBNormalImage : g_qsUSBDisableImage;
    case 11:
        return online ? g_qsWLanNormalImage : g_qsWLanDisableImage;
    case 14:
    case 18:
        return online ? g_qsDvimosicNormalImage : g_qsDvimosicDisableImage;
    case 17:
        return online ? g_qsOPTNormalImage : g_qsOPTDisableImage;
    default:
        return online ? g_qsUnknownNormalImage : g_qsUnknownDisableImage;
    }
}

// The double-size variant of a one-times picture, as the bundle names it:
// "X_2x.png" for most families, "X2x.png" for dvimosic and unknown,
// "X@2x.png" for OPT. Empty when there is none.
QString doubleSizePath(const QString &path)
{
    const QString base = path.left(path.size() - int(qstrlen(".png")));
    for (const char *suffix : {"_2x.png", "2x.png", "@2x.png"}) {
        const QString candidate = base + QLatin1String(suffix);
        if (QFile::exists(candidate))
            return candidate;
    }
    return QString();
}

// The picture at @p path for a screen of @p ratio: above 1 the double-size
// variant at ratio 2, which keeps the one-times picture's size on screen;
// otherwise the one-times picture itself.
QPixmap loadSignalPicture(const QString &path, qreal ratio)
{
    QPixmap picture;
    if (ratio > 1.0) {
        const QString sharp = doubleSizePath(path);
        if (!sharp.isEmpty() && picture.load(sharp))
            picture.setDevicePixelRatio(2.0);
    }
    if (picture.isNull())
        picture.load(path);
    const qreal dpr = picture.devicePixelRatio();
    if (picture.width() > kIconWidth * dpr || picture.height() > kIconHeight * dpr) {
        picture = picture.scaled(QSize(kIconWidth, kIconHeight) * dpr, Qt::KeepAspectRatio, Qt::FastTransformation);
        picture.setDevicePixelRatio(dpr);
    }
    return picture;
}

// The same, loaded once per picture and ratio: every row of a type shows
// one picture, and loading it asks the file system each time.
QPixmap signalPicture(const QString &path, qreal ratio)
{
    static QHash<QPair<QString, qreal>, QPixmap> loaded;
    const QPair<QString, qreal> key(path, ratio);
    auto it = loaded.constFind(key);
    if (it == loaded.constEnd())
        it = loaded.insert(key, loadSignalPicture(path, ratio));
    return *it;
}

} // namespace

SecondItem::SecondItem(QWidget *parent)
    : CLanguageTranslateFrame(parent)
    , m_pMainLayout(nullptr)
    , m_qfBtns(nullptr)
    , m_qlIcon(nullptr)
    , m_qlUpper(nullptr)
    , m_qlDown(nullptr)
    , m_pCaptureBtn(nullptr)
    , m_pEditBtn(nullptr)
    , m_pDeleteBtn(nullptr)
    , m_pFourthBtn(nullptr)
    , m_bIsPressed(false)
    , m_stNodeInfo()
    , m_iRootIndex(0)
    , m_iChildIndex(0)
    , m_iTextWidthBudget(kTextWidthBudget)
    , m_strUpperText()
    , m_strDownText()
{
    setObjectName(QStringLiteral("SignalSecondItem"));
    setProperty("isTarn", true);
    setProperty("isSecondItem", QStringLiteral("normal"));
    setFixedHeight(kRowHeight);
    m_guardSelf.keepFixedHeight(kRowHeight);
}

SecondItem::~SecondItem() = default;

void SecondItem::initItem(int rootIndex, int childIndex)
{
    m_iRootIndex = rootIndex;
    m_iChildIndex = childIndex;

    m_pMainLayout = installLayout(this, new QHBoxLayout());
    m_pMainLayout->setSpacing(10);
    m_pMainLayout->setContentsMargins(0, 0, 0, 0);

    QVBoxLayout *textLayout = new QVBoxLayout();
    textLayout->setSpacing(0);
    textLayout->setContentsMargins(0, 5, 0, 4);

    m_qlIcon = new QLabel(this);
    m_qlIcon->setFixedSize(kIconWidth, kIconHeight);

    m_qlUpper = new QLabel(this);
    m_qlUpper->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_qlUpper->setObjectName(QStringLiteral("m_qlUpper"));
    m_qlDown = new QLabel(this);
    m_qlDown->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_qlDown->setObjectName(QStringLiteral("m_qlDown"));

    // The frame floats over the row's right edge, so it stays out of the
    // main layout and placeButtons() positions it.
    m_qfBtns = new QFrame(this);
    m_qfBtns->setObjectName(QStringLiteral("m_qfBtns"));
    QHBoxLayout *btnLayout = installLayout(m_qfBtns, new QHBoxLayout());
    btnLayout->setContentsMargins(0, 0, 0, 0);
    btnLayout->setSpacing(kButtonGap);

    m_pCaptureBtn = new QToolButton(m_qfBtns);
    m_pEditBtn = new QToolButton(m_qfBtns);
    m_pDeleteBtn = new QToolButton(m_qfBtns);
    m_pFourthBtn = new QToolButton(m_qfBtns);
    for (QToolButton *btn : {m_pCaptureBtn, m_pEditBtn, m_pDeleteBtn, m_pFourthBtn}) {
        btn->setFixedSize(20, 20);
        btn->setProperty("isTarn", true);
        // The list is one tab stop: its frame takes the keys for every row.
        btn->setFocusPolicy(Qt::NoFocus);
    }
    // Capture and the fourth button reuse the delete button's property: the
    // host style tells them apart by other means.
    m_pCaptureBtn->setProperty("isDelBtn", true);
    m_pEditBtn->setProperty("isEditBtn", true);
    m_pDeleteBtn->setProperty("isDelBtn", true);
    m_pFourthBtn->setProperty("isDelBtn", true);

    textLayout->addWidget(m_qlUpper);
    textLayout->addWidget(m_qlDown);

    m_pMainLayout->addSpacing(8);
    m_pMainLayout->addWidget(m_qlIcon);
    m_pMainLayout->addLayout(textLayout);
    m_pMainLayout->addStretch();

    btnLayout->addWidget(m_pCaptureBtn);
    btnLayout->addWidget(m_pEditBtn);
    btnLayout->addWidget(m_pDeleteBtn);
    btnLayout->addWidget(m_pFourthBtn);

    connect(m_pCaptureBtn, &QToolButton::clicked, this, &SecondItem::slot_OnCaptureBtnClicked);
    connect(m_pEditBtn, &QToolButton::clicked, this, &SecondItem::slot_OnEditBtnClicked);
    connect(m_pDeleteBtn, &QToolButton::clicked, this, &SecondItem::slot_OnDeleteBtnClicked);

    m_qfBtns->hide();
    m_pCaptureBtn->setVisible(m_buttons.capture);
    m_pEditBtn->setVisible(m_buttons.edit);
    m_pDeleteBtn->setVisible(m_buttons.remove);
    m_pFourthBtn->setVisible(m_buttons.fourth);

    m_qlUpper->setProperty("isTarn", true);
    m_qlUpper->setProperty("isUpOnline", true);
    // When the lines are polished decides their fonts (LookHistory).
    m_qlUpper->installEventFilter(this);
    m_qlDown->installEventFilter(this);
    SecondItem::reTranslateUI();
}

// Widths of the two lines' texts, remembered for the length of one
// setNodeInfo() call: it fits the lines twice (after the upper and after the
// lower text), and neither texts nor fonts can change in between.
struct SecondItem::TextWidthMemo
{
    QString text[2];
    QFont font[2];
    int width[2] = {0, 0};
    bool valid[2] = {false, false};
};

void SecondItem::setNodeInfo(const st_NodeInfoSignal &node)
{
    TextWidthMemo memo;
    m_pWidthMemo = &memo;
    setNodeInfoImpl(node);
    m_pWidthMemo = nullptr;
}

void SecondItem::setNodeInfoImpl(const st_NodeInfoSignal &node)
{
    m_stNodeInfo = node;

    const QStringList &names = node.strNodeName;
    if (names.size() == 2) {
        setUpperText(names.at(0));
        setDownText(names.at(1));
        if (m_qlUpper)
            m_qlUpper->show();
        if (m_qlDown)
            m_qlDown->show();
    } else if (names.size() == 1) {
        setUpperText(names.at(0));
        if (m_qlUpper)
            m_qlUpper->show();
        if (m_qlDown)
            m_qlDown->hide();
    } else {
        if (m_qlUpper)
            m_qlUpper->hide();
        if (m_qlDown)
            m_qlDown->hide();
    }

    setSignalIcon(node.iType, node.isOnline);
    setOpBtnShow(node.showOpBtn);
}

st_NodeInfoSignal SecondItem::getNodeInfo() const
{
    return m_stNodeInfo;
}

void SecondItem::setUpperText(QString text)
{
    if (!m_qlUpper)
        return;
    m_qlUpper->setText(text);
    m_strUpperText = text;
    fitTexts();
}

void SecondItem::setDownText(QString text)
{
    if (!m_qlDown)
        return;
    m_qlDown->setText(text);
    m_strDownText = text;
    fitTexts();
}

QString SecondItem::iconPathOf(int type, bool online)
{
    return signalIconPath(type, online);
}

void SecondItem::traceFits(QVector<QPair<QFont, QFont>> *trace)
{
    m_pFitTrace = trace;
}

void SecondItem::setSignalIcon(int type, bool online)
{
    if (!m_qlIcon)
        return;
    m_strIconPath = signalIconPath(type, online);
    showSignalPicture();
}

void SecondItem::screenChangedEvent(QScreen *screen)
{
    // Another screen may have another pixel ratio: pick the picture again.
    Q_UNUSED(screen)
    if (m_qlIcon && !m_strIconPath.isEmpty())
        showSignalPicture();
}

void SecondItem::showSignalPicture()
{
    m_rIconRatio = devicePixelRatioF();
    m_qlIcon->setPixmap(signalPicture(m_strIconPath, m_rIconRatio));
}

ChildRowState SecondItem::state() const
{
    ChildRowState state;
    state.record = m_stNodeInfo;
    state.rootIndex = m_iRootIndex;
    state.childIndex = m_iChildIndex;
    state.fullText[0] = m_strUpperText;
    state.fullText[1] = m_strDownText;
    const QLabel *const labels[2] = {m_qlUpper, m_qlDown};
    for (int i = 0; i < 2; ++i) {
        if (!labels[i])
            continue;
        state.lines.shown[i] = labels[i]->text();
        const bool fixed = labels[i]->minimumWidth() == labels[i]->maximumWidth();
        state.lines.width[i] = fixed ? labels[i]->minimumWidth() : -1;
        state.lineShown[i] = !labels[i]->isHidden();
    }
    state.buttons = m_buttons;
    state.pressed = m_bIsPressed;
    state.history = m_lookHistory;
    state.look = property("isSecondItem").toString();
    state.upperOnline = m_qlUpper && m_qlUpper->property("isUpOnline").toBool();
    state.iconPath = m_strIconPath;
    state.iconRatio = m_rIconRatio;
    state.toolTip = toolTip();
    const QToolButton *const buttons[4] = {m_pCaptureBtn, m_pEditBtn, m_pDeleteBtn, m_pFourthBtn};
    for (int i = 0; i < 4; ++i)
        state.buttonShown[i] = buttons[i] && !buttons[i]->isHidden();
    state.buttonFrameShown = m_qfBtns && !m_qfBtns->isHidden();
    state.buttonFrame = m_qfBtns ? m_qfBtns->geometry() : QRect();
    return state;
}

void SecondItem::restoreState(const ChildRowState &state)
{
    if (!m_qlUpper || !m_qlDown || !m_qlIcon)
        return;
    m_stNodeInfo = state.record;
    m_iRootIndex = state.rootIndex;
    m_iChildIndex = state.childIndex;
    m_strUpperText = state.fullText[0];
    m_strDownText = state.fullText[1];
    m_buttons = state.buttons;
    m_strIconPath = state.iconPath;
    m_rIconRatio = state.iconRatio;
    if (!m_strIconPath.isEmpty())
        m_qlIcon->setPixmap(signalPicture(m_strIconPath, m_rIconRatio));
    // The fonts: the same changes of look and polishes, in the same order.
    goThrough(state.history.events());
    m_bIsPressed = state.pressed;
    setProperty("isSecondItem", state.look);
    m_qlUpper->setProperty("isUpOnline", state.upperOnline);
    m_guardSelf.repolish(this);
    m_guardUpper.repolish(m_qlUpper);
    // Shown only now: showing a line polishes it.
    m_qlUpper->setVisible(state.lineShown[0]);
    m_qlDown->setVisible(state.lineShown[1]);

    // The lines as they were fitted, with the fonts of that moment.
    QLabel *const labels[2] = {m_qlUpper, m_qlDown};
    for (int i = 0; i < 2; ++i) {
        labels[i]->setText(state.lines.shown[i]);
        if (state.lines.width[i] >= 0)
            labels[i]->setFixedWidth(state.lines.width[i]);
    }
    setToolTip(state.toolTip);
    // The hover buttons as the last hover left them, placed for the width
    // the row had then.
    QToolButton *const buttons[4] = {m_pCaptureBtn, m_pEditBtn, m_pDeleteBtn, m_pFourthBtn};
    for (int i = 0; i < 4; ++i)
        buttons[i]->setVisible(state.buttonShown[i]);
    if (state.buttonFrameShown)
        m_qfBtns->setGeometry(state.buttonFrame);
    m_qfBtns->setVisible(state.buttonFrameShown);
}

void SecondItem::goThrough(const QByteArray &events)
{
    if (!m_qlUpper || !m_qlDown)
        return;
    for (const char event : events) {
        switch (LookHistory::Event(event)) {
        case LookHistory::Polish:
            ensurePolished();
            break;
        case LookHistory::UpperPolish:
            m_qlUpper->ensurePolished();
            break;
        case LookHistory::LowerPolish:
            m_qlDown->ensurePolished();
            break;
        case LookHistory::Press:
        case LookHistory::Release:
            setPressed(event == LookHistory::Press);
            break;
        case LookHistory::Enter:
        case LookHistory::Leave: {
            QEvent crossing(event == LookHistory::Enter ? QEvent::Enter : QEvent::Leave);
            QCoreApplication::sendEvent(this, &crossing);
            break;
        }
        case LookHistory::FocusOn:
        case LookHistory::FocusOff:
            setProperty("isKeyFocus", event == LookHistory::FocusOn);
            style()->unpolish(this);
            style()->polish(this);
            break;
        }
    }
}

void SecondItem::placeRestored(const QRect &rect)
{
    // The resize that places the row would fit its lines with the fonts of
    // now; they were fitted when the row last changed size, and stay so.
    m_bKeepLines = true;
    setGeometry(rect);
    if (testAttribute(Qt::WA_PendingResizeEvent)) {
        QResizeEvent resize(size(), QSize());
        QCoreApplication::sendEvent(this, &resize);
        setAttribute(Qt::WA_PendingResizeEvent, false);
    }
    m_bKeepLines = false;
}

void SecondItem::fitState(ChildRowState &state, const QFont &upper, const QFont &lower)
{
    const int limit = kTextWidthBudget - kTextReserve - kIconWidth;
    const QFontMetrics upperMetrics(upper);
    const QFontMetrics downMetrics(lower);
    const QFontMetrics *const metrics[2] = {&upperMetrics, &downMetrics};
    const int widths[2] = {upperMetrics.horizontalAdvance(state.fullText[0]),
                           downMetrics.horizontalAdvance(state.fullText[1])};
    TextFit::fit(state.lines, state.fullText, widths, metrics, limit);
}

void SecondItem::refitState(ChildRowState &state, const QFont &upper, const QFont &lower)
{
    state.lines.shown[0] = state.fullText[0];
    state.lines.shown[1] = state.fullText[1];
    fitState(state, upper, lower);
}

bool SecondItem::pressKeeps(const ChildRowState &state, bool pressed)
{
    return state.pressed == pressed && state.upperOnline == pressed
        && state.look == (pressed ? QLatin1String("press") : QLatin1String("normal"));
}

void SecondItem::setOpBtnShow(QList<bool> lstShow)
{
    // Only the flags change; the buttons follow on the next hover.
    m_buttons.apply(lstShow);
}

void SecondItem::setPressed(bool bIsPressed)
{
    m_lookHistory.add(bIsPressed ? LookHistory::Press : LookHistory::Release);
    m_bIsPressed = bIsPressed;
    setProperty("isTarn", true);
    setProperty("isSecondItem", bIsPressed ? QStringLiteral("press") : QStringLiteral("normal"));
    if (m_qlUpper) {
        m_qlUpper->setProperty("isTarn", true);
        m_qlUpper->setProperty("isUpOnline", bIsPressed);
    }
    m_guardSelf.repolish(this);
    m_guardUpper.repolish(m_qlUpper);
}

void SecondItem::setChildIndex(int index)
{
    m_iChildIndex = index;
}

QString SecondItem::getIndexText() const
{
    return QString::number(m_iRootIndex) + QLatin1Char('-') + QString::number(m_iChildIndex);
}

void SecondItem::setTipShow(bool bIsShow)
{
    setToolTip(bIsShow ? m_strUpperText : QString());
}

void SecondItem::reTranslateUI()
{
    // Only what assistive technology reads: the row shows no text of its own.
    RowTexts::nameButtons(m_pEditBtn, m_pDeleteBtn, nullptr, m_pCaptureBtn, m_pFourthBtn);
}

// The host may remove this row from its slot for the first signal; the
// guard keeps it alive until the handler returns, and a row that has left
// its drawer has its signals blocked, so the second signal then goes nowhere.
void SecondItem::slot_OnCaptureBtnClicked()
{
    const HandlerGuard guard(this);
    // Capturing does not select the row.
    emit signal_OnItemClicked();
    emit signal_OnCaptureBtnClicked();
}

void SecondItem::slot_OnEditBtnClicked()
{
    const HandlerGuard guard(this);
    setPressed(true);
    emit signal_OnItemClicked();
    emit signal_OnEditBtnClicked();
}

void SecondItem::slot_OnDeleteBtnClicked()
{
    const HandlerGuard guard(this);
    setPressed(true);
    emit signal_OnItemClicked();
    emit signal_OnDeleteBtnClicked();
}

void SecondItem::mousePressEvent(QMouseEvent *event)
{
    Q_UNUSED(event)
    const HandlerGuard guard(this);
    qDebug() << "enter";
    m_lookHistory.add(LookHistory::Press);
    m_bIsPressed = true;
    setProperty("isTarn", true);
    setProperty("isSecondItem", QStringLiteral("press"));
    if (m_qlUpper) {
        m_qlUpper->setProperty("isTarn", true);
        m_qlUpper->setProperty("isUpOnline", true);
    }
    m_guardSelf.repolish(this);
    m_guardUpper.repolish(m_qlUpper);
    emit signal_OnItemClicked();
}

bool SecondItem::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Polish:
        m_lookHistory.add(LookHistory::Polish);
        break;
    case QEvent::StyleChange:
        // A new style: the fonts are the new look's, and the lines are fitted
        // to them afresh. Qt restyles the row and its lines in an order of
        // its own, resizing the row on the way; fitting the full names again
        // whenever one of them has its new style leaves the same lines
        // whatever that order was.
        m_guardSelf.keepHeight(this); // a new sheet that no longer sizes the row
        if (testAttribute(Qt::WA_WState_Polished)) {
            m_lookHistory.restyled();
            refitTexts();
        }
        break;
    case QEvent::DynamicPropertyChange:
        // The keyboard's focus look, which re-polishes the row.
        if (static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName() == "isKeyFocus")
            m_lookHistory.add(property("isKeyFocus").toBool() ? LookHistory::FocusOn : LookHistory::FocusOff);
        break;
    default:
        break;
    }
    return CLanguageTranslateFrame::event(event);
}

bool SecondItem::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::StyleChange && testAttribute(Qt::WA_WState_Polished)
        && (watched == m_qlUpper || watched == m_qlDown))
        refitTexts();
    if (event->type() == QEvent::Polish) {
        if (watched == m_qlUpper)
            m_lookHistory.add(LookHistory::UpperPolish);
        else if (watched == m_qlDown)
            m_lookHistory.add(LookHistory::LowerPolish);
    }
    return CLanguageTranslateFrame::eventFilter(watched, event);
}

void SecondItem::enterEvent(QtCompat::EnterEvent *event)
{
    Q_UNUSED(event)
    m_lookHistory.add(LookHistory::Enter);
    setProperty("isTarn", true);
    setProperty("isSecondItem", m_bIsPressed ? QStringLiteral("press") : QStringLiteral("hover"));
    if (m_qlUpper) {
        m_qlUpper->setProperty("isTarn", true);
        m_qlUpper->setProperty("isUpOnline", m_bIsPressed);
    }
    if (m_pCaptureBtn)
        m_pCaptureBtn->setVisible(m_buttons.capture);
    if (m_pEditBtn)
        m_pEditBtn->setVisible(m_buttons.edit);
    if (m_pDeleteBtn)
        m_pDeleteBtn->setVisible(m_buttons.remove);
    if (m_pFourthBtn)
        m_pFourthBtn->setVisible(m_buttons.fourth);
    m_guardSelf.repolish(this);
    m_guardUpper.repolish(m_qlUpper);
    placeButtons();
}

void SecondItem::leaveEvent(QEvent *event)
{
    Q_UNUSED(event)
    m_lookHistory.add(LookHistory::Leave);
    setProperty("isTarn", true);
    setProperty("isSecondItem", m_bIsPressed ? QStringLiteral("press") : QStringLiteral("normal"));
    for (QToolButton *btn : {m_pCaptureBtn, m_pEditBtn, m_pDeleteBtn, m_pFourthBtn}) {
        if (btn)
            btn->hide();
    }
    m_guardSelf.repolish(this);
    m_guardUpper.repolish(m_qlUpper);
    placeButtons();
}

void SecondItem::resizeEvent(QResizeEvent *event)
{
    // The text budget is fixed, so a resize refits against the same limit
    // whatever the new width is.
    Q_UNUSED(event)
    if (!m_qlUpper || !m_qlDown || m_bKeepLines)
        return;
    fitTexts();
}

void SecondItem::fitTexts()
{
    if (!m_qlUpper || !m_qlDown || !m_qlIcon)
        return;

    const int limit = m_iTextWidthBudget - kTextReserve - m_qlIcon->width();
    QLabel *const labels[2] = {m_qlUpper, m_qlDown};
    const QString full[2] = {m_strUpperText, m_strDownText};
    // Each text is measured once.
    const int widths[2] = {textWidth(0, labels[0], full[0]), textWidth(1, labels[1], full[1])};
    const QFontMetrics upperMetrics = m_qlUpper->fontMetrics();
    const QFontMetrics downMetrics = m_qlDown->fontMetrics();
    const QFontMetrics *const metrics[2] = {&upperMetrics, &downMetrics};
    TextFit::Lines lines;
    lines.shown[0] = m_qlUpper->text();
    lines.shown[1] = m_qlDown->text();
    TextFit::fit(lines, full, widths, metrics, limit);
    if (m_pFitTrace)
        m_pFitTrace->append(qMakePair(m_qlUpper->font(), m_qlDown->font()));
    for (int i = 0; i < 2; ++i) {
        if (labels[i]->text() != lines.shown[i])
            labels[i]->setText(lines.shown[i]);
        labels[i]->setFixedWidth(lines.width[i]);
    }
}

void SecondItem::refitTexts()
{
    if (!m_qlUpper || !m_qlDown)
        return;
    m_qlUpper->setText(m_strUpperText);
    m_qlDown->setText(m_strDownText);
    fitTexts();
}

int SecondItem::textWidth(int line, const QLabel *label, const QString &text) const
{
    TextWidthMemo *memo = m_pWidthMemo;
    if (memo && memo->valid[line] && memo->text[line] == text && memo->font[line] == label->font())
        return memo->width[line];
    const int width = label->fontMetrics().horizontalAdvance(text);
    if (memo) {
        memo->text[line] = text;
        memo->font[line] = label->font();
        memo->width[line] = width;
        memo->valid[line] = true;
    }
    return width;
}

void SecondItem::placeButtons()
{
    if (!m_qfBtns)
        return;

    // isHidden(), not isVisible(): the buttons sit in a frame that is itself
    // hidden until this places it.
    int total = 0;
    for (QToolButton *btn : {m_pCaptureBtn, m_pEditBtn, m_pDeleteBtn, m_pFourthBtn}) {
        if (btn && !btn->isHidden())
            total += btn->width() + kButtonGap;
    }

    if (total > 0) {
        const int frameWidth = total + kButtonGap;
        const int frameHeight = m_qfBtns->height();
        m_qfBtns->setGeometry(width() - frameWidth, (height() - frameHeight) / 2, frameWidth, frameHeight);
        m_qfBtns->show();
    } else {
        m_qfBtns->hide();
    }
}

QToolButton *SecondItem::editButton() const
{
    return m_pEditBtn;
}

QToolButton *SecondItem::deleteButton() const
{
    return m_pDeleteBtn;
}

bool SecondItem::showsEditButton() const
{
    return m_buttons.edit;
}

bool SecondItem::showsDeleteButton() const
{
    return m_buttons.remove;
}
