// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef SIGNALTREELIST_BENCH_BENCHSUBJECT_H
#define SIGNALTREELIST_BENCH_BENCHSUBJECT_H

#include <QObject>
#include <QPoint>
#include <QString>

class BenchContent;
class BenchRowWidget;
class QScrollBar;
class QWidget;

/**
 * One design under test: a top-level host window that holds the rows of a
 * BenchContent, driven through the operations a host would use.
 *
 * Subclasses emit clicked() when a press on a row has been answered (the
 * design's own "row clicked" notification).
 */
class BenchSubject : public QObject
{
    Q_OBJECT
public:
    /// Where a press lands: the widget that gets the event and the point.
    struct ClickTarget
    {
        QWidget *widget = nullptr;
        QPoint pos;
    };

    ~BenchSubject() override;

    /// Short key used on the command line and in result lines.
    virtual QString key() const = 0;
    /// Name used in the report tables.
    virtual QString title() const = 0;

    /// Creates the host window (not shown) with no rows.
    virtual void createEmpty() = 0;
    /// Adds every row of @p content in one go (the design's bulk call).
    virtual void fillBulk(const BenchContent &content) = 0;
    /// Adds the root rows one by one, each with its children.
    virtual void fillOneByOne(const BenchContent &content) = 0;
    /// Expands (true) or collapses (false) group @p root.
    virtual void setExpanded(int root, bool expanded) = 0;
    /// How many groups (root rows) the design holds.
    virtual int groupCount() const = 0;
    /// Expands or collapses every group, one call per group.
    void setAllExpanded(bool expanded);
    virtual QScrollBar *scrollBar() const = 0;
    /// The widget to repaint after each scroll step.
    virtual QWidget *scrollViewport() const = 0;
    /// Scrolls child row @p child of root @p root into view and tells where
    /// to press on it.
    virtual ClickTarget revealRow(int root, int child) = 0;

    QWidget *window() const { return m_pWindow; }
    /// Deletes the host window and everything in it.
    void destroyWindow();

    /// Delivers every posted event, deferred deletions included, until none
    /// is left (bounded).
    static void drainEvents();
    /// The resident set now (VmRSS of /proc/self/status), in kB; -1 if
    /// unknown.
    static long residentKiB();
    /// Shows the window at the bench size and waits until it is exposed.
    void showAndExpose();

signals:
    void clicked();

protected:
    /// A top-level host window of the bench size, without a layout.
    QWidget *createHostWindow();
    /// Row widget for a widget-per-row design: a press selects it (the
    /// previous row returns to "normal", this one shows "press") and then
    /// emits clicked().
    BenchRowWidget *createRow(const QString &picture, const QString &upper, const QString &lower,
                              QWidget *parent);
    /// Whether createRow() builds rows with the library's widget set.
    bool m_bLibraryWidgets = false;

    QWidget *m_pWindow = nullptr;
    BenchRowWidget *m_pCurrentRow = nullptr;
};

#endif // SIGNALTREELIST_BENCH_BENCHSUBJECT_H
