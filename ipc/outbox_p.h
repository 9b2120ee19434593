// SPDX-License-Identifier: GPL-2.0-or-later
// The sending end of the channel: one command after the other, and what became of each.
#pragma once

#include "ipc/exchangefiles_p.h"
#include "ipc/faultlog_p.h"
#include "ipc/filewatch_p.h"
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

    /// Whether the partner's answers can be read, or there are none yet.
    [[nodiscard]] bool knowsAnswers() const { return m_answersState != AnswersState::Unknown; }
    /// The number of the last command that the partner accepted or refused from this sender.
    [[nodiscard]] quint64 lastAnswered() const { return m_answers.lastAnswered(m_sender); }
    /// The highest number of this sender that turned out to be in use already; 0: none did.
    [[nodiscard]] quint64 givenBefore() const { return m_givenBefore; }

    /// Queues a command, and puts it out at once when nothing lies there.
    /// @param now  steadyNow()
    void put(const Message &message, qint64 now);
    /// Sees what was taken and answered and puts out what is next. Costs nothing when all is known,
    /// and two stats while something is not.
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
    enum class AnswersState { Unknown, None, Read };

    void readAnswers(qint64 now);
    void checkNumbers();
    void lookAtFile(qint64 now);
    void withdraw(qint64 now);
    void lookAtForeignFile(qint64 now);
    void placeNext(qint64 now);
    void settle(quint64 number, KeloDelivery delivery);
    void collectAnswers();
    void collectSilence(qint64 now);

    QString m_directory;
    QString m_file;
    QString m_answersFile;
    QString m_sender;
    qint64 m_leftover;
    qint64 m_answerLimit;
    std::deque<Queued> m_queue;
    std::optional<Pending> m_lying; ///< put out and not taken
    QByteArray m_lyingText;
    std::vector<Pending> m_taken; ///< and not answered
    std::vector<Outcome> m_outcomes;
    FileWatch m_foreign;                  ///< of a file that is not ours where ours shall be
    std::optional<qint64> m_foreignSince; ///< the moment by steadyNow() when it was written
    std::optional<qint64> m_answersTime;  ///< of the file when it was last read
    qint64 m_answersChanged = 0;          ///< when that time was seen first
    AnswersState m_answersState = AnswersState::Unknown;
    Answers m_answers;
    quint64 m_first = 0;   ///< the lowest number that was put; 0: none
    quint64 m_highest = 0; ///< that the partner may know
    quint64 m_givenBefore = 0;
    bool m_hasPlaced = false;
    FaultLog m_faults;
};

} // namespace channel
