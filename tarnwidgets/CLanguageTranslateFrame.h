// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TARNWIDGETS_CLANGUAGETRANSLATEFRAME_H
#define TARNWIDGETS_CLANGUAGETRANSLATEFRAME_H

#include "tarnwidgets_export.h"

#include <QFrame>
#include <memory>

class QScreen;
class CLanguageTranslateFramePrivate;

/**
 * Base frame of every translatable widget of the tarn widget family.
 *
 * It calls reTranslateUI() whenever the application's language changes
 * (QEvent::LanguageChange, which Qt sends after
 * QCoreApplication::installTranslator()), and screenChangedEvent() whenever
 * the top-level window that holds it moves to another screen.
 */
class TARNWIDGETS_EXPORT CLanguageTranslateFrame : public QFrame
{
    Q_OBJECT
public:
    /// A frame inside @p parent; it starts watching the top-level window
    /// that holds it (again whenever it is re-parented or shown).
    explicit CLanguageTranslateFrame(QWidget *parent = nullptr);
    /// Stops watching the top-level window.
    ~CLanguageTranslateFrame() override;

    /// Re-applies every translated text. The base does nothing.
    virtual void reTranslateUI();

protected:
    /// Called after the frame's top-level window has moved to @p screen
    /// (for instance a different DPI). The base does nothing.
    virtual void screenChangedEvent(QScreen *screen);

    /// Calls reTranslateUI() on QEvent::LanguageChange, then passes
    /// @p event on to QFrame. Subclasses that override it call this one.
    void changeEvent(QEvent *event) override;
    /// Re-watches the top-level window when the frame is shown, re-parented
    /// or gets a native window, then passes @p event on to QFrame.
    bool event(QEvent *event) override;

private:
    void watchTopLevelWindow();

    std::unique_ptr<CLanguageTranslateFramePrivate> d;
};

#endif // TARNWIDGETS_CLANGUAGETRANSLATEFRAME_H
