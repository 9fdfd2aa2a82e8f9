#ifndef SIGNALTREELIST_BENCH_BENCHROWWIDGET_H
#define SIGNALTREELIST_BENCH_BENCHROWWIDGET_H

#include <QFrame>

class QLabel;

/**
 * The row widget of the widget-per-row comparisons: an icon label and two
 * text labels in a row of the child row's height, nothing else. Its look
 * state is a dynamic property ("benchLook") applied by re-polishing, the
 * least a widget-per-row design with style-sheet looks has to do.
 */
class BenchRowWidget : public QFrame
{
    Q_OBJECT
public:
    BenchRowWidget(const QString &picture, const QString &upper, const QString &lower,
                   QWidget *parent = nullptr);

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
