// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

// Collects every message while alive and still hands each one on to the
// handler that was installed before (the test framework's, so that
// QTest::ignoreMessage keeps working). One capture at a time.
class MessageCapture
{
public:
    MessageCapture();
    ~MessageCapture();
    MessageCapture(const MessageCapture &) = delete;
    MessageCapture &operator=(const MessageCapture &) = delete;

    QStringList lines() const;
    // The lines that start with @p prefix, in order.
    QStringList linesStartingWith(const QString &prefix) const;

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &msg);

    static MessageCapture *s_current;
    QtMessageHandler m_previous = nullptr;
    QStringList m_lines;
};
