// SPDX-License-Identifier: GPL-2.0-or-later
// The receiving end of the channel: from a file that appears to a command that may be carried out.
#include "ipc/inbox_p.h"

#include "ipc/channel_p.h"

#include <QDebug>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace channel {

bool isComplete(const FileStamp &now, const FileStamp &before, bool hasMark)
{
    return now.kind == FileStamp::Kind::File && (hasMark || now == before);
}

Verdict judge(const Message &message, const std::optional<KeloCommandData> &data, qint64 age,
              qint64 limit, quint64 last)
{
    if (message.number != 0 && message.number <= last)
        return Verdict::Repeat;
    if (age > limit)
        return Verdict::Leftover;
    return data ? Verdict::Deliver : Verdict::Unknown;
}

Inbox::Inbox(const QString &directory, qint64 leftover)
    : m_file(directory + u'/' + kIncomingFile),
      m_claimed(m_file + kClaimedEnding),
      m_answersFile(directory + u'/' + kIncomingAnswersFile),
      m_leftover(leftover),
      m_hasClaim(stampOf(m_claimed).kind == FileStamp::Kind::File),
      m_answers(Answers::decode(readFile(m_answersFile, kFileLimit).value_or(QByteArray())))
{
}

std::optional<Delivery> Inbox::poll(qint64 now, const KeloIPCCommandHandler &handler)
{
    if (!m_hasClaim && !claim())
        return std::nullopt;
    return takeClaimed(now, handler);
}

bool Inbox::claim()
{
    const FileStamp stamp = stampOf(m_file);
    const FileStamp before = std::exchange(m_lastLook, stamp);
    if (stamp.kind == FileStamp::Kind::Other)
        say(m_file + u" is no file"_s);
    if (stamp.kind != FileStamp::Kind::File)
        return false;
    const auto isMarked = [](const QString &path) {
        return hasEndMark(readTail(path, kEndMarkReach));
    };
    if (!isComplete(stamp, before, isMarked(m_file)) || !renameFile(m_file, m_claimed))
        return false;
    m_hasClaim = true;
    m_lastLook = {};
    // Another file may have come in place of the one that was looked at.
    if (!isComplete(stampOf(m_claimed), stamp, isMarked(m_claimed)))
        setAside(u"changed while it was claimed"_s);
    return m_hasClaim;
}

std::optional<Delivery> Inbox::takeClaimed(qint64 now, const KeloIPCCommandHandler &handler)
{
    const FileStamp stamp = stampOf(m_claimed);
    const auto bytes = readFile(m_claimed, kFileLimit);
    const auto message = bytes ? decodeMessage(*bytes) : std::nullopt;
    if (!message) {
        setAside(bytes ? u"is no whole command"_s : u"cannot be read, or has more than 1 MiB"_s);
        return std::nullopt;
    }
    const KeloCommandOrigin origin{.sender = message->sender, .number = message->number};
    const auto data = commandDataOf(*message);
    const auto done = handler.GetLastNumber(origin.sender);
    const quint64 last = done.value_or(m_answers.lastNumber(origin.sender));
    switch (judge(*message, data, now - stamp.modified, m_leftover, last)) {
    case Verdict::Deliver:
        // In this order: whatever breaks off here, nothing is carried out twice.
        if (record(origin, AnswerState::Taken) && dropClaimed())
            return Delivery{*data, origin};
        break;
    case Verdict::Repeat:
        say(u"number %1 came again from "_s.arg(origin.number) + origin.sender);
        if (done && m_answers.state(origin.sender, origin.number) != AnswerState::Refused)
            record(origin, AnswerState::Accepted); // the answer may have died with a process
        dropClaimed();
        break;
    case Verdict::Leftover:
        answer(origin, AnswerState::Refused);
        setAside(u"lay too long"_s);
        break;
    case Verdict::Unknown:
        answer(origin, AnswerState::Refused);
        setAside(u"holds an unknown command: "_s + message->id);
        break;
    }
    return std::nullopt;
}

void Inbox::answer(const KeloCommandOrigin &origin, AnswerState state)
{
    record(origin, state);
}

/// Whether the record is on disk; trivially for commands without numbers.
bool Inbox::record(const KeloCommandOrigin &origin, AnswerState state)
{
    if (origin.number == 0)
        return true;
    Answers answers = m_answers;
    answers.set(origin.sender, origin.number, state);
    if (!writeFile(m_answersFile, answers.encode())) {
        say(u"Cannot write "_s + m_answersFile);
        return false;
    }
    m_answers = std::move(answers);
    return true;
}

bool Inbox::dropClaimed()
{
    const bool isDropped = removeFile(m_claimed);
    m_hasClaim = stampOf(m_claimed).kind == FileStamp::Kind::File;
    if (m_hasClaim)
        say(u"Cannot remove "_s + m_claimed);
    return isDropped;
}

/// Keeps a file that is not carried out, for whoever wrote it to look at.
void Inbox::setAside(const QString &reason)
{
    say(m_file + u' ' + reason);
    if (renameFile(m_claimed, m_file + kRejectedEnding))
        m_hasClaim = false;
    else
        dropClaimed();
}

/// One debug line; the same line is not repeated poll after poll.
void Inbox::say(const QString &line)
{
    if (std::exchange(m_lastLine, line) != line)
        qDebug() << "KeloIPCFacadeI::poll :" << qUtf8Printable(line);
}

} // namespace channel
