// SPDX-License-Identifier: GPL-2.0-or-later
// The simulator's way of sending.
#pragma once

#include "exchange.h"
#include "options.h"

#include <QElapsedTimer>
#include <QList>
#include <optional>

/// Puts one command after the other into "kelo-in.txt" and waits for the answer to each. Command k
/// of the list, from 1 on, has the number k; those answered in an earlier life are skipped.
class Sender
{
public:
    Sender(const Options &options, QList<Command> commands);

    void poll();
    [[nodiscard]] bool isDone() const { return m_next >= m_commands.size() && !m_isWaiting; }
    /// Whether a command was refused, or met silence.
    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

private:
    void write(const Command &command);
    void seeAnswer();
    void finish(const QString &outcome);
    [[nodiscard]] quint64 number() const { return static_cast<quint64>(m_next) + 1; }

    const Options &m_options;
    QString m_file;
    QString m_answersFile;
    QList<Command> m_commands;
    qsizetype m_next = 0; ///< index of the command that waits for its turn or its answer
    bool m_isWaiting = false;
    bool m_hasFailed = false;
    QElapsedTimer m_sent;
};
