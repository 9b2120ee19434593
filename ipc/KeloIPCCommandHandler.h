// SPDX-License-Identifier: GPL-2.0-or-later
// Whom the command channel hands received commands to.
#pragma once

#include <kelo_base/core/Export.h>

#include <QString>
#include <optional>

struct KeloCommandData;

/// Who sent a command, and as which number.
struct KeloCommandOrigin
{
    QString sender;     ///< the sender's identifier; empty when the partner gives no numbers
    quint64 number = 0; ///< from 1 on, growing with each command of that sender; 0 without numbers
};

/// Implemented by the application. Called on the GUI thread; may use the channel, switch it off or
/// destroy it, and may run an event loop of its own: no further command comes before it returns.
class KELO_BASE_EXPORT KeloIPCCommandHandler
{
public:
    virtual ~KeloIPCCommandHandler();

    /// Carries out a command. Each comes once: its number is on disk before this is called, so that
    /// a process that dies in here never sees the command again, and the sender learns nothing.
    /// @return whether it is accepted; the sender is told
    virtual bool HandleCommand(const KeloCommandData &command, const KeloCommandOrigin &origin) = 0;

    /// For handlers that write the effect of a command and its number in one step, and so get each
    /// command exactly once: the highest number of @p sender that took effect, 0 for none. The
    /// channel then goes by this, and a command on which the process died comes again when the
    /// sender repeats it. The default, nothing, leaves the numbers to the channel.
    [[nodiscard]] virtual std::optional<quint64> GetLastNumber(const QString &sender) const;
};
