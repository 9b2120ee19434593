// SPDX-License-Identifier: GPL-2.0-or-later
// The sending end of the channel: one command after the other, and what became of each.
#pragma once

#include "ipc/exchangefiles_p.h"
#include "ipc/message_p.h"

#include <deque>
#include <kelo_base/ipc/KeloIPCFacade.h>
#include <vector>

namespace channel {

class Outbox
{
public:
    struct Outcome
    {
        quint64 number;
        KeloDelivery delivery;
    };

    /// @param sender    whose commands these are
    /// @param leftover  milliseconds after which a command that nobody took is withdrawn
    /// @param answer    milliseconds after which a taken command counts as unanswered
    Outbox(const QString &directory, const QString &sender, qint64 leftover, qint64 answer);

    /// The number of the last command that the partner accepted or refused from this sender.
    [[nodiscard]] quint64 lastAnswered() const { return m_answers.lastAnswered(m_sender); }

    /// Queues a command, and puts it out at once when nothing lies there.
    /// @param now  milliseconds since 1970
    void put(const Message &message, qint64 now);
    /// Sees what was taken and answered and puts out what is next. Costs nothing when all is known.
    [[nodiscard]] std::vector<Outcome> poll(qint64 now);

private:
    struct Pending
    {
        quint64 number;
        qint64 since; ///< of when it was put out or taken
    };
    struct Queued
    {
        Message message;
        qint64 since;
    };

    void readAnswers();
    void lookAtFile(qint64 now);
    void placeNext(qint64 now);
    void settle(quint64 number, KeloDelivery delivery);
    void collectAnswers();
    void collectSilence(qint64 now);
    void say(const QString &line);

    QString m_file;
    QString m_answersFile;
    QString m_sender;
    qint64 m_leftover;
    qint64 m_answerLimit;
    std::deque<Queued> m_queue;
    std::optional<Pending> m_lying; ///< put out and not taken
    std::vector<Pending> m_taken;   ///< and not answered
    std::vector<Outcome> m_outcomes;
    FileStamp m_answersLook;
    Answers m_answers;
    QString m_lastLine;
};

} // namespace channel
