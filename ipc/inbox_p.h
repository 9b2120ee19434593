// SPDX-License-Identifier: GPL-2.0-or-later
// The receiving end of the channel: from a file that appears to a command that may be carried out.
#pragma once

#include "ipc/exchangefiles_p.h"
#include "ipc/faultlog_p.h"
#include "ipc/filewatch_p.h"
#include "ipc/message_p.h"

#include <kelo_base/ipc/KeloCommandData.h>
#include <kelo_base/ipc/KeloIPCCommandHandler.h>

namespace channel {

enum class Verdict {
    Deliver,
    Repeat,   ///< its number was delivered or refused before
    Leftover, ///< it lay too long
    Unknown,  ///< no command of ours
};

/// @param data        what the message says; nothing when that is unknown
/// @param age, limit  in milliseconds
/// @param last        the highest number of its sender that was delivered or refused
[[nodiscard]] Verdict judge(const Message &message, const std::optional<KeloCommandData> &data,
                            qint64 age, qint64 limit, quint64 last);

/// A command that may be carried out.
struct Delivery
{
    KeloCommandData command;
    KeloCommandOrigin origin;
};

/// Looks at the incoming file, claims it by renaming, reads, records its number.
class Inbox
{
public:
    /// @param settle    milliseconds that a file without end mark must keep its bytes
    /// @param leftover  milliseconds after which a command that lay is not carried out any more
    Inbox(const QString &directory, qint64 settle, qint64 leftover);

    /// The next command, if one is there. It is recorded and gone from the disk: it does not come
    /// again, whatever happens. Costs a stat when there is nothing.
    /// @param now      steadyNow()
    /// @param handler  asked for the numbers that took effect
    [[nodiscard]] std::optional<Delivery> poll(qint64 now, const KeloIPCCommandHandler &handler);
    /// Tells the sender what became of a delivery.
    void answer(const KeloCommandOrigin &origin, AnswerState state);

private:
    bool claim(qint64 now);
    void refuseUnclaimed(const QByteArray &bytes, qint64 now);
    std::optional<Delivery> takeClaimed(qint64 now, const KeloIPCCommandHandler &handler);
    std::optional<Delivery> decide(const Message &message, qint64 now,
                                   const KeloIPCCommandHandler &handler);
    [[nodiscard]] std::optional<AnswerState> stateOf(const KeloCommandOrigin &origin) const;
    [[nodiscard]] quint64 lastNumber(const KeloCommandOrigin &origin,
                                     std::optional<quint64> done) const;
    [[nodiscard]] qint64 age(const QString &path, qint64 now) const;
    [[nodiscard]] bool isAway() const;
    bool loadAnswers();
    bool record(const KeloCommandOrigin &origin, AnswerState state);
    bool dropClaimed();
    void setAside(const QString &reason);
    [[nodiscard]] bool moveAside(const QString &path) const;
    void noteRemoval(bool isGone);

    QString m_directory;
    QString m_file;
    QString m_claimed;
    QString m_answersFile;
    qint64 m_settle;
    qint64 m_leftover;
    FileWatch m_watch;                ///< of the file, under the one name or the other
    bool m_hasClaim;                  ///< a claimed file waits, of this process or of one that died
    std::optional<Answers> m_answers; ///< nothing until they could be read
    FaultLog m_faults;
};

} // namespace channel
