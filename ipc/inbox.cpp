// SPDX-License-Identifier: GPL-2.0-or-later
// The receiving end of the channel: from a file that appears to a command that may be carried out.
#include "ipc/inbox_p.h"

#include "ipc/channel_p.h"

#include <QFileInfo>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace channel {
namespace {

using State = FileContent::State;

} // namespace

Verdict judge(const Message &message, const std::optional<KeloCommandData> &data, qint64 age,
              qint64 limit, quint64 last)
{
    if (message.number != 0 && message.number <= last)
        return Verdict::Repeat;
    if (age > limit)
        return Verdict::Leftover;
    return data ? Verdict::Deliver : Verdict::Unknown;
}

Inbox::Inbox(const QString &directory, qint64 settle, qint64 leftover)
    : m_directory(directory),
      m_file(directory + u'/' + kIncomingFile),
      m_claimed(m_file + kClaimedEnding),
      m_answersFile(directory + u'/' + kIncomingAnswersFile),
      m_settle(settle),
      m_leftover(leftover),
      m_hasClaim(lookInto(m_claimed, kFileLimit).state == State::Read)
{
    loadAnswers();
}

std::optional<Delivery> Inbox::poll(qint64 now, const KeloIPCCommandHandler &handler)
{
    if (!m_hasClaim && !claim(now))
        return std::nullopt;
    return takeClaimed(now, handler);
}

bool Inbox::claim(qint64 now)
{
    if (!fileExists(m_file)) {
        m_watch.lookAtNothing(now);
        m_faults.clear(m_file);
        return false;
    }
    const FileContent content = lookInto(m_file, kFileLimit);
    if (content.state == State::NoFile)
        m_faults.say(m_file, m_file + u" is no file"_s);
    if (content.state == State::NoFile || content.state == State::Absent)
        return false;
    m_watch.lookAt(content.bytes, now);
    if (progressOf(content.bytes, m_watch.unchanged(now), m_settle) == Progress::Growing)
        return false;
    // One that was left by an earlier life, while the directory was away, comes first.
    const State left = lookInto(m_claimed, kFileLimit).state;
    m_hasClaim = left == State::Read || left == State::TooLarge ||
                 (left == State::Absent && renameFile(m_file, m_claimed));
    if (m_hasClaim)
        m_faults.clear(m_file);
    else if (fileExists(m_file)) // and was not withdrawn in this moment
        refuseUnclaimed(content.bytes, now);
    return m_hasClaim;
}

/// What cannot be claimed is not carried out. Tried until it has lain too long, since others may
/// have the file open for a moment; then the sender is told.
void Inbox::refuseUnclaimed(const QByteArray &bytes, qint64 now)
{
    m_faults.say(m_file, u"Cannot claim "_s + m_file);
    const auto message = decodeMessage(bytes);
    if (age(m_file, now) <= m_leftover || !loadAnswers())
        return;
    if (message && lastNumber({message->sender, message->number}, {}) < message->number)
        record({message->sender, message->number}, AnswerState::Refused);
    if (moveAside(m_file))
        FaultLog::tell(m_file + u" lay too long"_s);
}

std::optional<Delivery> Inbox::takeClaimed(qint64 now, const KeloIPCCommandHandler &handler)
{
    const FileContent content = lookInto(m_claimed, kFileLimit);
    if (content.state == State::Absent)
        m_hasClaim = false; // someone has removed it
    if (content.state == State::Absent || (content.state == State::Unreadable && isAway()))
        return std::nullopt;
    m_watch.lookAt(content.bytes, now);
    const Progress progress = progressOf(content.bytes, m_watch.unchanged(now), m_settle);
    const auto message = decodeMessage(content.bytes);
    if (progress == Progress::Whole && message)
        return decide(*message, now, handler);
    if (content.state != State::Read)
        setAside(u"cannot be read, or has more than 1 MiB"_s);
    else if (progress != Progress::Growing) // else its writer still has it open
        setAside(u"is no whole command"_s);
    return std::nullopt;
}

/// What becomes of a claimed command.
std::optional<Delivery> Inbox::decide(const Message &message, qint64 now,
                                      const KeloIPCCommandHandler &handler)
{
    const KeloCommandOrigin origin{.sender = message.sender, .number = message.number};
    const qint64 lain = age(m_claimed, now);
    if (origin.number != 0 && !loadAnswers() && lain <= m_leftover)
        return std::nullopt; // it may have been carried out before
    const auto data = commandDataOf(message);
    const auto done = handler.GetLastNumber(origin.sender);
    switch (judge(message, data, lain, m_leftover, lastNumber(origin, done))) {
    case Verdict::Deliver:
        // In this order: whatever breaks off here, nothing is carried out twice.
        if (!record(origin, AnswerState::Taken))
            break;
        if (dropClaimed())
            return Delivery{*data, origin};
        record(origin, AnswerState::Refused);
        break;
    case Verdict::Repeat:
        if (done && stateOf(origin) != AnswerState::Refused)
            record(origin, AnswerState::Accepted); // the answer may have died with a process
        if (dropClaimed())
            FaultLog::tell(u"number %1 came again from "_s.arg(origin.number) + origin.sender);
        break;
    case Verdict::Leftover:
        record(origin, AnswerState::Refused);
        setAside(u"lay too long"_s);
        break;
    case Verdict::Unknown:
        record(origin, AnswerState::Refused);
        setAside(u"holds an unknown command: "_s + message.id);
        break;
    }
    return std::nullopt;
}

void Inbox::answer(const KeloCommandOrigin &origin, AnswerState state)
{
    record(origin, state);
}

std::optional<AnswerState> Inbox::stateOf(const KeloCommandOrigin &origin) const
{
    return m_answers ? m_answers->state(origin.sender, origin.number) : std::nullopt;
}

/// @param done  what the handler says of its sender
quint64 Inbox::lastNumber(const KeloCommandOrigin &origin, std::optional<quint64> done) const
{
    if (stateOf(origin) == AnswerState::Refused)
        return origin.number; // a promise, whatever took effect
    return done.value_or(m_answers ? m_answers->lastNumber(origin.sender) : 0);
}

/// For how many milliseconds a file has lain there, under whatever name.
qint64 Inbox::age(const QString &path, qint64 now) const
{
    const qint64 present = fileSystemNow(m_directory);
    return m_watch.age(present - modifiedTime(path).value_or(present), now);
}

bool Inbox::isAway() const
{
    return !QFileInfo(m_directory).isDir();
}

/// Whether the numbers that came before are known: none, or those on disk.
bool Inbox::loadAnswers()
{
    if (m_answers)
        return true;
    const FileContent content = lookInto(m_answersFile, kFileLimit);
    if (content.state == State::Read)
        m_answers = Answers::decode(content.bytes);
    else if (content.state == State::Absent)
        m_answers = Answers();
    else if (!isAway())
        m_faults.say(m_answersFile, u"Cannot read "_s + m_answersFile);
    return m_answers.has_value();
}

/// Whether the record is on disk; trivially for commands without numbers.
bool Inbox::record(const KeloCommandOrigin &origin, AnswerState state)
{
    if (origin.number == 0)
        return true;
    if (!loadAnswers())
        return false;
    Answers answers = *m_answers;
    answers.set(origin.sender, origin.number, state);
    if (!writeFile(m_answersFile, answers.encode())) {
        m_faults.say(m_answersFile, u"Cannot write "_s + m_answersFile);
        return false;
    }
    m_faults.clear(m_answersFile);
    m_answers = std::move(answers);
    return true;
}

bool Inbox::dropClaimed()
{
    const bool isDropped = removeFile(m_claimed);
    m_hasClaim = fileExists(m_claimed);
    noteRemoval(!m_hasClaim);
    return isDropped;
}

/// Keeps a claimed file that is not carried out, for whoever wrote it to look at.
void Inbox::setAside(const QString &reason)
{
    m_hasClaim = !moveAside(m_claimed);
    noteRemoval(!m_hasClaim);
    if (!m_hasClaim)
        FaultLog::tell(m_file + u' ' + reason);
}

bool Inbox::moveAside(const QString &path) const
{
    return renameFile(path, m_file + kRejectedEnding) || removeFile(path);
}

void Inbox::noteRemoval(bool isGone)
{
    if (!isGone)
        return m_faults.say(m_claimed, u"Cannot remove "_s + m_claimed);
    m_faults.clear(m_claimed);
    m_watch.forget(); // the next file may hold the same
}

} // namespace channel
