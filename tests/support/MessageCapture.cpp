// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MessageCapture.h"

MessageCapture *MessageCapture::s_current = nullptr;

MessageCapture::MessageCapture()
{
    s_current = this;
    m_previous = qInstallMessageHandler(&MessageCapture::handle);
}

MessageCapture::~MessageCapture()
{
    qInstallMessageHandler(m_previous);
    s_current = nullptr;
}

QStringList MessageCapture::lines() const
{
    return m_lines;
}

QStringList MessageCapture::linesStartingWith(const QString &prefix) const
{
    QStringList result;
    for (const QString &line : m_lines) {
        if (line.startsWith(prefix))
            result << line;
    }
    return result;
}

void MessageCapture::handle(QtMsgType type, const QMessageLogContext &context, const QString &msg)
{
    if (!s_current)
        return;
    s_current->m_lines << msg;
    if (s_current->m_previous)
        s_current->m_previous(type, context, msg);
}
