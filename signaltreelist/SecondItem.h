// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_SECONDITEM_H
#define SIGNALTREELIST_SECONDITEM_H

#include "ButtonFlags.h"
#include "ChildRowState.h"
#include "LookHistory.h"
#include "QtCompat.h"
#include "RepolishGuard.h"
#include "st_NodeInfoSignal.h"

#include <CLanguageTranslateFrame.h>

#include <QFont>
#include <QPair>
#include <QVector>

class QFrame;
class QHBoxLayout;
class QLabel;
class QToolButton;

/**
 * The second-level row: one signal under a root.
 *
 * Shows the signal-type icon, two text lines shortened with "..." to a
 * fixed budget and, while hovered, up to four buttons in the frame m_qfBtns
 * placed by hand at the right edge. Object name "SignalSecondItem"; state in
 * "isSecondItem" = "normal" / "hover" / "press" and "isUpOnline" on
 * m_qlUpper, applied by re-polishing, never by a style sheet of its own.
 */
class SecondItem : public CLanguageTranslateFrame
{
    Q_OBJECT
public:
    /// The row's fixed height.
    static constexpr int kRowHeight = 40;

    explicit SecondItem(QWidget *parent = nullptr);
    ~SecondItem() override;

    /// Builds the child widgets; call once, right after construction.
    void initItem(int rootIndex, int childIndex);

    /// Stores the record and shows its names, type icon and button flags.
    void setNodeInfo(const st_NodeInfoSignal &node);
    st_NodeInfoSignal getNodeInfo() const;

    void setUpperText(QString text);
    void setDownText(QString text);

    /// Shows the picture of signal @p type, in colour when @p online.
    void setSignalIcon(int type, bool online);

    /// Flags in the order edit, delete, capture, fourth; 1 to 4 entries are
    /// read, other sizes change nothing. They take effect on the next hover.
    void setOpBtnShow(QList<bool> lstShow);

    void setPressed(bool bIsPressed);

    void setChildIndex(int index);
    /// "root-child" in decimal, e.g. "2-5".
    QString getIndexText() const;

    /// true: the tool tip shows the full upper text; false: no tool tip.
    void setTipShow(bool bIsShow);

    void reTranslateUI() override;

    // For the keyboard and the accessibility interface, which press these
    // as a click would, and only when the flag shows them on hover.
    QToolButton *editButton() const;
    QToolButton *deleteButton() const;
    bool showsEditButton() const;
    bool showsDeleteButton() const;

    /// The changes of look and polish this row went through.
    const LookHistory &lookHistory() const { return m_lookHistory; }

    /// What the row shows and keeps, to be made again with restoreState().
    ChildRowState state() const;
    /// Makes this row, new and just through initItem(), what @p state
    /// says: the look history is gone through again (it decides the fonts),
    /// then the lines are shown as they were fitted.
    void restoreState(const ChildRowState &state);
    /// Goes through the changes of look and polishes @p events names
    /// (LookHistory::events()), in order, as the row first went through
    /// them: a new row comes out of it with the same fonts.
    void goThrough(const QByteArray &events);
    /// Puts a row just made again with restoreState() at @p rect, its
    /// place in the layout: its lines stay as they were fitted for it.
    void placeRestored(const QRect &rect);
    /// Fits the name lines of a row kept as @p state, as a resize of the
    /// widget fits them with these fonts.
    static void fitState(ChildRowState &state, const QFont &upper, const QFont &lower);
    /// The same after a new style: the full names are fitted afresh.
    static void refitState(ChildRowState &state, const QFont &upper, const QFont &lower);
    /// Whether setPressed(@p pressed) would leave a row kept as @p state
    /// looking as it does.
    static bool pressKeeps(const ChildRowState &state, bool pressed);
    /// The connector picture of signal @p type, in colour when @p online.
    static QString iconPathOf(int type, bool online);
    /// Notes the fonts of the name lines (upper, lower) at every fit of
    /// them into @p trace, until called with null.
    void traceFits(QVector<QPair<QFont, QFont>> *trace);

signals:
    void signal_OnItemClicked();
    void signal_OnEditBtnClicked();
    void signal_OnDeleteBtnClicked();
    void signal_OnCaptureBtnClicked();

private slots:
    void slot_OnCaptureBtnClicked();
    void slot_OnEditBtnClicked();
    void slot_OnDeleteBtnClicked();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void enterEvent(QtCompat::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void screenChangedEvent(QScreen *screen) override;

private:
    struct TextWidthMemo;

    void setNodeInfoImpl(const st_NodeInfoSignal &node);
    void fitTexts();
    /// Fits the full names afresh, as a new record would be.
    void refitTexts();
    /// Width of @p text in @p label's font (@p line: 0 upper, 1 lower).
    int textWidth(int line, const QLabel *label, const QString &text) const;
    void placeButtons();
    /// The picture of m_strIconPath for this row's screen.
    void showSignalPicture();

    QHBoxLayout *m_pMainLayout;
    QFrame *m_qfBtns;
    QLabel *m_qlIcon;
    QLabel *m_qlUpper;
    QLabel *m_qlDown;
    QToolButton *m_pCaptureBtn;
    QToolButton *m_pEditBtn;
    QToolButton *m_pDeleteBtn;
    QToolButton *m_pFourthBtn;
    bool m_bIsPressed;
    ButtonFlags m_buttons;
    st_NodeInfoSignal m_stNodeInfo;
    int m_iRootIndex;
    int m_iChildIndex;
    int m_iTextWidthBudget;
    QString m_strUpperText;
    QString m_strDownText;
    // The one-times picture shown; the screen's pixel ratio picks its variant.
    QString m_strIconPath;
    qreal m_rIconRatio = 1.0;
    // Every look change re-polishes the item and its upper line; these skip
    // the re-polishes that could not change anything.
    RepolishGuard m_guardSelf;
    RepolishGuard m_guardUpper;
    LookHistory m_lookHistory;
    // Set only while setNodeInfo() runs.
    TextWidthMemo *m_pWidthMemo = nullptr;
    // Set while a row made again is put in its place.
    bool m_bKeepLines = false;
    QVector<QPair<QFont, QFont>> *m_pFitTrace = nullptr;
};

#endif // SIGNALTREELIST_SECONDITEM_H
