// SPDX-License-Identifier: GPL-2.0-or-later
// Collects what is logged while it lives.
#pragma once

#include <QStringList>
#include <QtGlobal>

/// Only one at a time; messages are collected instead of printed.
class MessageLog
{
public:
    MessageLog()
    {
        s_lines.clear();
        m_previous = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &line) { s_lines << line; });
    }
    ~MessageLog() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY_MOVE(MessageLog)

    [[nodiscard]] QStringList lines() const { return s_lines; }

private:
    inline static QStringList s_lines;
    QtMessageHandler m_previous;
};
