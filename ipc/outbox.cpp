// SPDX-License-Identifier: GPL-2.0-or-later
// The sending end of the channel: one command after the other, and what became of each.
#include "ipc/outbox_p.h"

#include "ipc/channel_p.h"

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace channel {
namespace {

/// The longest time, in milliseconds, in which two versions of a file get the same time, and more:
/// some file systems count in steps of two seconds.
constexpr qint64 kCoarsestTime = 3000;

} // namespace

Outbox::Outbox(const QString &directory, const QString &sender, qint64 leftover, qint64 answer)
    : m_directory(directory),
      m_file(directory + u'/' + kOutgoingFile),
      m_answersFile(directory + u'/' + kOutgoingAnswersFile),
      m_sender(sender),
      m_leftover(leftover),
      m_answerLimit(answer)
{
    readAnswers(steadyNow());
    m_highest = m_answers.lastNumber(m_sender);
}

void Outbox::put(const Message &message, qint64 now)
{
    m_first = m_first == 0 ? message.number : m_first;
    m_highest = std::max(m_highest, message.number);
    m_queue.push_back({message, now});
    if (!m_lying && !fileExists(m_file))
        placeNext(now);
}

std::vector<Outbox::Outcome> Outbox::poll(qint64 now)
{
    if (m_queue.empty() && !m_lying && m_taken.empty())
        return {};
    readAnswers(now);
    lookAtFile(now);
    collectAnswers();
    collectSilence(now);
    return std::exchange(m_outcomes, {});
}

void Outbox::lookAtFile(qint64 now)
{
    if (!fileExists(m_file)) {
        if (m_lying)
            m_taken.push_back({m_lying->number, now});
        m_lying.reset();
        m_foreign.lookAtNothing(now);
        m_foreignSince.reset();
        m_faults.clear(m_file);
        placeNext(now);
    } else if (!m_lying) {
        lookAtForeignFile(now);
    } else if (now - m_lying->since > m_leftover) {
        withdraw(now);
    }
}

/// Takes back what nobody took.
void Outbox::withdraw(qint64 now)
{
    const Pending lying = *std::exchange(m_lying, std::nullopt);
    const FileContent content = lookInto(m_file, kFileLimit);
    const bool isOther =
        content.state == FileContent::State::NoFile ||
        (content.state == FileContent::State::Read && content.bytes != m_lyingText);
    if (isOther)
        return m_taken.push_back({lying.number, now}); // and somebody has put something there
    const bool isRemoved = removeFile(m_file);
    if (isRemoved)
        FaultLog::tell(m_file + u" lay too long"_s);
    else if (fileExists(m_file))
        m_faults.say(m_file, u"Cannot remove "_s + m_file);
    else
        return m_taken.push_back({lying.number, now}); // in this moment
    settle(lying.number, KeloDelivery::Silence);
}

/// One of an earlier life, or none of ours at all: it has its time as well.
void Outbox::lookAtForeignFile(qint64 now)
{
    const FileContent content = lookInto(m_file, kFileLimit);
    if (content.state == FileContent::State::NoFile)
        return m_faults.say(m_file, m_file + u" is no file"_s);
    m_foreign.lookAt(content.bytes, now);
    if (!m_foreignSince || m_foreign.unchanged(now) == 0) {
        const qint64 present = fileSystemNow(m_directory);
        const qint64 age = present - modifiedTime(m_file).value_or(present);
        m_foreignSince = now - m_foreign.age(age, now);
    }
    if (now - *m_foreignSince <= m_leftover)
        return;
    if (removeFile(m_file))
        FaultLog::tell(m_file + u" lay too long"_s);
    else if (fileExists(m_file))
        m_faults.say(m_file, u"Cannot remove "_s + m_file);
}

void Outbox::placeNext(qint64 now)
{
    if (m_queue.empty())
        return;
    const Message &next = m_queue.front().message;
    m_lyingText = encodeMessage(next);
    if (!writeFile(m_file, m_lyingText))
        return m_faults.say(m_file, u"Cannot write "_s + m_file);
    m_faults.clear(m_file);
    m_lying = {next.number, now};
    m_hasPlaced = true;
    m_queue.pop_front();
}

void Outbox::readAnswers(qint64 now)
{
    const auto time = modifiedTime(m_answersFile);
    if (!time && m_answersState != AnswersState::Unknown)
        return;
    const bool isUnchanged = time && std::exchange(m_answersTime, time) == time;
    if (!isUnchanged)
        m_answersChanged = now;
    if (isUnchanged && now - m_answersChanged > kCoarsestTime)
        return;
    const FileContent content = lookInto(m_answersFile, kFileLimit);
    switch (content.state) {
    case FileContent::State::Read:
        m_answers = Answers::decode(content.bytes);
        checkNumbers();
        m_answersState = AnswersState::Read;
        m_faults.clear(m_answersFile);
        break;
    case FileContent::State::Absent:
        if (m_answersState == AnswersState::Unknown)
            m_answersState = AnswersState::None;
        break;
    case FileContent::State::TooLarge:
    case FileContent::State::NoFile:
        m_faults.say(m_answersFile, u"Cannot read "_s + m_answersFile);
        break;
    case FileContent::State::Unreadable: // the directory may be away
        break;
    }
}

/// When the partner knows numbers that were never given, because the answers were away when this
/// sender began, its answers to the numbers in use are those to other commands.
void Outbox::checkNumbers()
{
    const quint64 last = m_answers.lastNumber(m_sender);
    const bool isFirstLook = m_answersState != AnswersState::Read && !m_hasPlaced;
    const bool isAhead = last > m_highest || (isFirstLook && last >= m_first);
    if (m_first == 0 || !isAhead)
        return;
    m_highest = std::max(m_highest, last);
    m_givenBefore = last;
    FaultLog::tell(u"numbers of "_s + m_sender + u" were given before"_s);
    if (m_lying && lookInto(m_file, kFileLimit).bytes == m_lyingText)
        removeFile(m_file);
    for (const Pending &taken : std::exchange(m_taken, {}))
        settle(taken.number, KeloDelivery::Silence);
    if (m_lying)
        settle(m_lying->number, KeloDelivery::Silence);
    for (const Queued &queued : std::exchange(m_queue, {}))
        settle(queued.message.number, KeloDelivery::Silence);
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

} // namespace channel
