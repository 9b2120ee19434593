// SPDX-License-Identifier: GPL-2.0-or-later
// The two kinds of exchange files as values: a command, and the answers of a receiver.
#pragma once

#include <QByteArray>
#include <QString>
#include <map>
#include <optional>
#include <vector>

struct KeloCommandData;

namespace channel {

inline constexpr qint64 kFileLimit = 1 << 20; ///< bytes; larger files are not read

/// A command as it stands in a file.
struct Message
{
    QString type;              ///< "NamedCommand" or "IntegerCommand"
    QString id;                ///< name or number
    QString parameters;        ///< as one text
    QString sender;            ///< 1 ... 64 of A-Z a-z 0-9 . _ -; empty without numbers
    quint64 number = 0;        ///< from 1 on; 0 without numbers
    bool hasParameters = true; ///< whether a line says so, be they none

    friend bool operator==(const Message &, const Message &) = default;
};

[[nodiscard]] bool isSenderId(QStringView text);

/// In UTF-8, closed by the end mark.
[[nodiscard]] QByteArray encodeMessage(const Message &message);

/// @param bytes  UTF-8, or Latin-1 where they are no UTF-8; a byte-order mark is skipped
/// @return nothing when a line is none of the format, a quote stays open, type or id is missing, or
///         only one of sender and number is there
[[nodiscard]] std::optional<Message> decodeMessage(QByteArrayView bytes);

/// Whether a file ends with the end mark, so that nothing is missing.
[[nodiscard]] bool hasEndMark(QByteArrayView bytes);

/// Whether commands of that name have parameters.
[[nodiscard]] bool takesParameters(const Message &message);

/// The record of a command; nothing when its name is unknown or its number is none.
[[nodiscard]] std::optional<KeloCommandData> commandDataOf(const Message &message);

/// What a receiver says about one command.
enum class AnswerState {
    Taken, ///< about to be carried out; nothing comes after it when the receiver died over it
    Accepted,
    Refused,
};

/// What a receiver remembers: the last numbers of the senders heard last, and of many more the very
/// last one, so that no old command runs again. It is recorded in a file, which the sender reads.
class Answers
{
public:
    static constexpr std::size_t kSenders = 4000; ///< then the one heard longest ago is forgotten
    static constexpr std::size_t kTalkingSenders = 16; ///< of which more than one number is kept
    static constexpr std::size_t kNumbers = 32;        ///< of each of these

    void set(const QString &sender, quint64 number, AnswerState state);
    [[nodiscard]] std::optional<AnswerState> state(const QString &sender, quint64 number) const;
    /// 0: none. The second form counts only what is accepted or refused.
    [[nodiscard]] quint64 lastNumber(const QString &sender) const;
    [[nodiscard]] quint64 lastAnswered(const QString &sender) const;

    [[nodiscard]] QByteArray encode() const;
    /// Skips what it does not understand.
    [[nodiscard]] static Answers decode(QByteArrayView bytes);

    friend bool operator==(const Answers &, const Answers &) = default;

private:
    struct Record
    {
        QString sender;
        std::map<quint64, AnswerState> numbers;

        friend bool operator==(const Record &, const Record &) = default;
    };
    [[nodiscard]] const Record *find(const QString &sender) const;

    std::vector<Record> m_records; ///< the sender heard last comes last
};

} // namespace channel
