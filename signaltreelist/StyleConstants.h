// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_STYLECONSTANTS_H
#define SIGNALTREELIST_STYLECONSTANTS_H

// The look and resource constants of the library, in one place.
//
// Every source file includes this header and keeps its own copy of each
// value (const objects at namespace scope have internal linkage); they are
// built from ASCII text when the library is loaded. Code uses only the
// signal-type picture paths, the drag picture and the "Stitching" stem: the
// style-sheet texts record the dark palette that a host style sheet
// realises through the widgets' dynamic properties.

#include <QString>

const QString g_qsDeleteBtnStyle = QString::fromLatin1("QToolButton{border-image: url(:/operate/resource/operate/delete_normal.png);}QToolButton:hover{border-image: url(:/operate/resource/operate/delete_pressed.png);}");
const QString g_qsSquareGreyStyle = QString::fromLatin1("background:rgb(83,83,83);border-radius:0px;");
const QString g_qsDragTipImage = QString::fromLatin1(":/rootitem/resource/rootitem/rootitem_drag_tip_new.png");
const QString g_qsDrawerContainerStyle = QString::fromLatin1("#DrawerContainer{background:rgb(48,50,56);}");
const QString g_qsDrawerStyle = QString::fromLatin1("#Drawer{background:rgb(48,50,56);}");
const QString g_qsSettingsBtnStyle = QString::fromLatin1("QToolButton{border-image: url(:/operate/resource/operate/settings_normal.png);}QToolButton:hover{border-image: url(:/operate/resource/operate/settings_pressed.png);}");
const QString g_qsTreeListFrameStyle = QString::fromLatin1("#TreeListFrame{background:rgb(48,50,56);}");
const QString g_qsStitchingName = QString::fromLatin1("Stitching");
const QString g_qsGreyDotStyle = QString::fromLatin1("background:rgb(102,102,102);border-radius:2px;");
const QString g_qsGreenDotStyle = QString::fromLatin1("background:rgb(47,195,123);border-radius:2px;");
const QString g_qsRootItemGreyStyle = QString::fromLatin1("#RootItem{background:rgb(79,84,92);border:none; border-radius:5px;}QLabel{color:rgb(230,230,230);}QCheckBox{background:transparent;color:rgb(255,255,255);}QCheckBox::indicator:unchecked{border-image: url(:/rootitem/resource/rootitem/rootitem_checkbox_normal.png);}QCheckBox::indicator:checked {border-image: url(:/rootitem/resource/rootitem/rootitem_checkbox_checked.png);}");
const QString g_qsDownTextStyle = QString::fromLatin1("#m_qlDown{color:rgb(152,153,155);}");
const QString g_qsUpperOrangeStyle = QString::fromLatin1("#m_qlUpper{color:rgb(226,100,12);}");
const QString g_qsUpperLightStyle = QString::fromLatin1("#m_qlUpper{color:rgb(230,230,230);}");
const QString g_qsRootItemDarkStyle = QString::fromLatin1("#RootItem{background:rgb(36,38,40);border:none; border-radius:5px;}QLabel{color:rgb(230,230,230);}QCheckBox{background:transparent;color:rgb(255,255,255);}QCheckBox::indicator:unchecked{border-image: url(:/rootitem/resource/rootitem/rootitem_checkbox_normal.png);}QCheckBox::indicator:checked {border-image: url(:/rootitem/resource/rootitem/rootitem_checkbox_checked.png);}");
const QString g_qsRootItemClearStyle = QString::fromLatin1("#RootItem{background:transparent;border:none;}QLabel{color:rgb(230,230,230);}QCheckBox{background:transparent;color:rgb(255,255,255);}QCheckBox::indicator:unchecked{border-image: url(:/rootitem/resource/rootitem/rootitem_checkbox_normal.png);}QCheckBox::indicator:checked {border-image: url(:/rootitem/resource/rootitem/rootitem_checkbox_checked.png);}");
const QString g_qsSecondItemGreyStyle = QString::fromLatin1("#SecondItem{background:rgb(79,84,92);border-radius:2px;}#m_qfBtns{background:transparent;}QLabel{color:rgb(230,230,230);}");
const QString g_qsDownNameStyle = QString::fromLatin1("#m_qlDownName{color:rgb(152,153,155);}");
const QString g_qsUperNameOrangeStyle = QString::fromLatin1("#m_qlUperName{color:rgb(226,100,12);}");
const QString g_qsUperNameLightStyle = QString::fromLatin1("#m_qlUperName{color:rgb(230,230,230);}");
const QString g_qsSecondItemBlackStyle = QString::fromLatin1("#SecondItem{background:rgb(22,23,25);border-radius:2px;}#m_qfBtns{background:transparent;}QLabel{color:rgb(230,230,230);}");
const QString g_qsSecondItemPanelStyle = QString::fromLatin1("#SecondItem{background:rgb(48,50,56);border-radius:2px;}#m_qfBtns{background:transparent;}QLabel{color:rgb(230,230,230);}");
const QString g_qsCVBSNormalImage = QString::fromLatin1(":/signaltype/resource/signaltype/CVBS_normal.png");
const QString g_qsDPNormalImage = QString::fromLatin1(":/signaltype/resource/signaltype/DP_normal.png");
const QString g_qsDVINormalImage = QString::fromLatin1(":/signaltype/resource/signaltype/DVI_normal.png");
const QString g_qsDvimosicNormalImage = QString::fromLatin1(":/signaltype/resource/signaltype/dvimosic_normal.png");
const QString g_qsCVBSDisableImage = QString::fromLatin1(":/signaltype/resource/signaltype/CVBS_disable.png");
const QString g_qsDPDisableImage = QString::fromLatin1(":/signaltype/resource/signaltype/DP_disable.png");
const QString g_qsDVIDisableImage = QString::fromLatin1(":/signaltype/resource/signaltype/DVI_disable.png");
const QString g_qsDvimosicDisableImage = QString::fromLatin1(":/signaltype/resource/signaltype/dvimosic_disable.png");
const QString g_qsHDMIDisableImage = QString::fromLatin1(":/signaltype/resource/signaltype/HDMI_disable.png");
const QString g_qsOPTDisableImage = QString::fromLatin1(":/signaltype/resource/signaltype/OPT_disable.png");
const QString g_qsSDIDisableImage = QString::fromLatin1(":/signaltype/resource/signaltype/SDI_disable.png");
const QString g_qsUSBDisableImage = QString::fromLatin1(":/signaltype/resource/signaltype/USB_disable.png");
const QString g_qsUnknownDisableImage = QString::fromLatin1(":/signaltype/resource/signaltype/unknown_disable.png");
const QString g_qsVGADisableImage = QString::fromLatin1(":/signaltype/resource/signaltype/VGA_disable.png");
const QString g_qsWLanDisableImage = QString::fromLatin1(":/signaltype/resource/signaltype/WLan_disable.png");
const QString g_qsHDMINormalImage = QString::fromLatin1(":/signaltype/resource/signaltype/HDMI_normal.png");
const QString g_qsOPTNormalImage = QString::fromLatin1(":/signaltype/resource/signaltype/OPT_normal.png");
const QString g_qsSDINormalImage = QString::fromLatin1(":/signaltype/resource/signaltype/SDI_normal.png");
const QString g_qsUSBNormalImage = QString::fromLatin1(":/signaltype/resource/signaltype/USB_normal.png");
const QString g_qsUnknownNormalImage = QString::fromLatin1(":/signaltype/resource/signaltype/unknown_normal.png");
const QString g_qsVGANormalImage = QString::fromLatin1(":/signaltype/resource/signaltype/VGA_normal.png");
const QString g_qsWLanNormalImage = QString::fromLatin1(":/signaltype/resource/signaltype/WLan_normal.png");

#endif // SIGNALTREELIST_STYLECONSTANTS_H
