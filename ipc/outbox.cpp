// SPDX-License-Identifier: GPL-2.0-or-later
// The sending end of the channel: one command after the other, and what became of each.
#include "ipc/outbox_p.h"

#include "ipc/channel_p.h"

#include <QDebug>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace channel {

Outbox::Outbox(const QString &directory, const QString &sender, qint64 leftover, qint64 answer)
    : m_file(directory + u'/' + kOutgoingFile),
      m_answersFile(directory + u'/' + kOutgoingAnswersFile),
      m_sender(sender),
      m_leftover(leftover),
      m_answerLimit(answer)
{
    readAnswers();
}

void Outbox::put(const Message &message, qint64 now)
{
    m_queue.push_back({message, now});
    if (!m_lying && stampOf(m_file).kind == FileStamp::Kind::Absent)
        placeNext(now);
}

std::vector<Outbox::Outcome> Outbox::poll(qint64 now)
{
    if (m_queue.empty() && !m_lying && m_taken.empty())
        return {};
    lookAtFile(now);
    readAnswers();
    collectAnswers();
    collectSilence(now);
    return std::exchange(m_outcomes, {});
}

void Outbox::lookAtFile(qint64 now)
{
    if (m_lying && now - m_lying->since <= m_leftover && fileExists(m_file))
        return; // the usual case
    const FileStamp stamp = stampOf(m_file);
    if (stamp.kind == FileStamp::Kind::Other) {
        say(m_file + u" is no file"_s);
    } else if (stamp.kind == FileStamp::Kind::File) {
        const qint64 since = m_lying ? m_lying->since : stamp.modified;
        const bool isLeftover = now - since > m_leftover;
        if (isLeftover && removeFile(m_file)) { // false when it was taken in this moment
            say(m_file + u" lay too long"_s);
            if (m_lying)
                settle(m_lying->number, KeloDelivery::Silence);
        }
    } else {
        if (m_lying)
            m_taken.push_back({m_lying->number, now});
        m_lying.reset();
        placeNext(now);
    }
}

void Outbox::placeNext(qint64 now)
{
    if (m_queue.empty())
        return;
    const Message &next = m_queue.front().message;
    if (!writeFile(m_file, encodeMessage(next)))
        return say(u"Cannot write "_s + m_file);
    m_lying = {next.number, now};
    m_queue.pop_front();
    m_lastLine.clear();
}

void Outbox::readAnswers()
{
    const FileStamp stamp = stampOf(m_answersFile);
    if (std::exchange(m_answersLook, stamp) == stamp)
        return;
    if (const auto bytes = readFile(m_answersFile, kFileLimit))
        m_answers = Answers::decode(*bytes);
}

void Outbox::collectAnswers()
{
    std::vector<quint64> open;
    for (const Pending &pending : m_taken)
        open.push_back(pending.number);
    if (m_lying)
        open.push_back(m_lying->number);
    for (const quint64 number : open) {
        const auto state = m_answers.state(m_sender, number);
        if (state == AnswerState::Accepted)
            settle(number, KeloDelivery::Accepted);
        else if (state == AnswerState::Refused)
            settle(number, KeloDelivery::Refused);
    }
}

void Outbox::collectSilence(qint64 now)
{
    while (!m_taken.empty() && now - m_taken.front().since > m_answerLimit)
        settle(m_taken.front().number, KeloDelivery::Silence);
    while (!m_queue.empty() && now - m_queue.front().since > m_leftover) {
        m_outcomes.push_back({m_queue.front().message.number, KeloDelivery::Silence});
        m_queue.pop_front();
    }
}

void Outbox::settle(quint64 number, KeloDelivery delivery)
{
    m_outcomes.push_back({number, delivery});
    std::erase_if(m_taken, [number](const Pending &taken) { return taken.number == number; });
    if (m_lying && m_lying->number == number)
        m_lying.reset();
}

/// One debug line; the same line is not repeated poll after poll.
void Outbox::say(const QString &line)
{
    if (std::exchange(m_lastLine, line) != line)
        qDebug() << "KeloIPCFacadeI::poll :" << qUtf8Printable(line);
}

} // namespace channel
