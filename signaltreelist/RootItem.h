// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_ROOTITEM_H
#define SIGNALTREELIST_ROOTITEM_H

#include "QtCompat.h"
#include "RepolishGuard.h"
#include "st_NodeInfoSignal.h"

#include <CLanguageTranslateFrame.h>

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QToolButton;
class QVBoxLayout;

/**
 * The first-level row of the list: one signal group or input source.
 *
 * Shows an expand check box, an online indicator, two text lines, a
 * main-property marker and, while hovered, an edit and a delete button. The
 * row sets no style sheet: it publishes its state in dynamic properties
 * ("isRootItem" = "normal" / "hover" / "press", "isUpOnline" on m_qlUpper,
 * "isOnlineBtn" on the indicator) and re-polishes, so the host's style
 * sheet gives the states their looks.
 */
class RootItem : public CLanguageTranslateFrame
{
    Q_OBJECT
public:
    /// The row's fixed height.
    static constexpr int kRowHeight = 45;

    explicit RootItem(QWidget *parent = nullptr);
    ~RootItem() override;

    /// Builds the child widgets; call once, right after construction.
    void initItem(int itemType, int itemIndex);

    /// Stores the type and resets which children show (the value itself is
    /// only stored and returned).
    void setItemType(int itemType);
    int getItemType() const;

    /// Stores the record and shows its names, online state and button flags.
    void setNodeInfo(const st_NodeInfoSignal &node);
    st_NodeInfoSignal getNodeInfo() const;

    /// Shows @p text on the upper line, elided at the right to 150 pixels.
    void setUpperText(QString text);
    QString getUpperText() const;
    /// Shows @p text on the lower line as it is.
    void setDownText(QString text);
    QString getDownText() const;

    void setOnline(bool bIsOnline);
    bool isOnline() const;

    /// Element 0: edit button shows on hover; element 1: delete button.
    /// Lists of other sizes change nothing.
    void setOpBtnShow(QList<bool> lstShow);

    void setItemIndex(int index);
    /// The root row index as plain decimal text.
    QString getIndexText() const;

    /// Checks or unchecks the expand box and runs the check-box slot.
    void setExpand(bool bIsExpand);
    /// Selects or deselects the row; always expands or collapses it too.
    void setSelected(bool bIsSelected);

    void reTranslateUI() override;

    // For the keyboard and the accessibility interface, which press these
    // as a click would, and only when the flag shows them on hover.
    QToolButton *editButton() const;
    QToolButton *deleteButton() const;
    bool showsEditButton() const;
    bool showsDeleteButton() const;
    QCheckBox *expandBox() const;
    /// Whether the last selecting act was a press or setSelected(true)
    /// rather than setSelected(false). The look cannot tell: a deselected
    /// root keeps "press", and an expand or collapse highlights the name.
    bool isSelected() const;

signals:
    void signal_OnIsShowChildItems(bool bIsShow);
    void signal_OnSelectRootItem();
    void signal_OnEditBtnClicked();
    void signal_OnDeleteBtnClicked();

public slots:
    void slot_OnCheckBoxClicked(bool bIsShow);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void enterEvent(QtCompat::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool event(QEvent *event) override;

private:
    /// Press look: "isRootItem" = "press" and the upper line highlighted.
    void applyPressLook();

    QHBoxLayout *m_pMainLayout;
    QVBoxLayout *m_pTextLayout;
    QCheckBox *m_pExpandBox;
    QToolButton *m_pOnlineBtn;
    QLabel *m_qlUpper;
    QLabel *m_qlDown;
    QLabel *m_qlMainProperty;
    QToolButton *m_pEditBtn;
    QToolButton *m_pDeleteBtn;
    qint32 m_iItemType;
    bool m_bIsOnline;
    bool m_bShowDelete;
    bool m_bShowEdit;
    st_NodeInfoSignal m_stNodeInfo;
    int m_iItemIndex;
    bool m_bIsPressed;
    bool m_bIsSelected;
    // Every look change re-polishes the widgets concerned; these skip the
    // re-polishes that could not change anything.
    RepolishGuard m_guardSelf;
    RepolishGuard m_guardUpper;
    RepolishGuard m_guardOnline;
};

#endif // SIGNALTREELIST_ROOTITEM_H
