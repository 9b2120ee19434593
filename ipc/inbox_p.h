// SPDX-License-Identifier: GPL-2.0-or-later
// The receiving end of the channel: from a file that appears to a command that may be carried out.
#pragma once

#include "ipc/exchangefiles_p.h"
#include "ipc/message_p.h"

#include <kelo_base/ipc/KeloCommandData.h>
#include <kelo_base/ipc/KeloIPCCommandHandler.h>

namespace channel {

/// Whether a file may be claimed: it ends with the end mark, or has not changed since the look
/// before.
[[nodiscard]] bool isComplete(const FileStamp &now, const FileStamp &before, bool hasMark);

enum class Verdict {
    Deliver,
    Repeat,   ///< its number was delivered before
    Leftover, ///< it lay too long
    Unknown,  ///< no command of ours
};

/// @param data        what the message says; nothing when that is unknown
/// @param age, limit  in milliseconds
/// @param last        the highest number of its sender that was delivered
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
    /// @param leftover  milliseconds after which a command that lay is not carried out any more
    Inbox(const QString &directory, qint64 leftover);

    /// The next command, if one is there. It is recorded and gone from the disk: it does not come
    /// again, whatever happens. Costs a stat when there is nothing.
    /// @param now      milliseconds since 1970
    /// @param handler  asked for the numbers that took effect
    [[nodiscard]] std::optional<Delivery> poll(qint64 now, const KeloIPCCommandHandler &handler);
    /// Tells the sender what became of a delivery.
    void answer(const KeloCommandOrigin &origin, AnswerState state);

private:
    bool claim();
    std::optional<Delivery> takeClaimed(qint64 now, const KeloIPCCommandHandler &handler);
    bool record(const KeloCommandOrigin &origin, AnswerState state);
    bool dropClaimed();
    void setAside(const QString &reason);
    void say(const QString &line);

    QString m_file;
    QString m_claimed;
    QString m_answersFile;
    qint64 m_leftover;
    FileStamp m_lastLook;
    bool m_hasClaim; ///< a claimed file waits, of this process or of one that died
    Answers m_answers;
    QString m_lastLine;
};

} // namespace channel
