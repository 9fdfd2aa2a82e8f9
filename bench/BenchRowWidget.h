// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_BENCH_BENCHROWWIDGET_H
#define SIGNALTREELIST_BENCH_BENCHROWWIDGET_H

#include <QFrame>

class QLabel;

/**
 * The row widget of the widget-per-row comparisons: an icon label and two
 * text labels in a row of the child row's height, nothing else. Its look
 * state is a dynamic property ("benchLook") applied by re-polishing, the
 * least a widget-per-row design with style-sheet looks has to do.
 *
 * With @p libraryWidgets it also carries the rest of the widget set of the
 * library's child row, bare: a hidden frame with its own layout and four
 * hidden 20x20 tool buttons that carry the library's button properties.
 */
class BenchRowWidget : public QFrame
{
    Q_OBJECT
public:
    BenchRowWidget(const QString &picture, const QString &upper, const QString &lower,
                   bool libraryWidgets, QWidget *parent = nullptr);

    /// "normal" or "press": sets the property and re-polishes the row and
    /// its upper line when the value changes.
    void setLook(const QString &look);

signals:
    void pressed();

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    QLabel *m_pIcon;
    QLabel *m_pUpper;
    QLabel *m_pLower;
};

#endif // SIGNALTREELIST_BENCH_BENCHROWWIDGET_H
