// SPDX-License-Identifier: GPL-2.0-or-later
// Who the running server is, for the runs of the application that come after.
#pragma once

#include <QString>
#include <optional>

/// A process as nobody else can be it: numbers of processes are given again, with another start.
struct ServerRecord
{
    qint64 pid = 0;
    quint64 startTime = 0; ///< as platform::processStartTime() tells it
    QString program;       ///< the executable file that the system names
    QString marker;        ///< of its platform::ProcessTree; empty for a detached one

    friend bool operator==(const ServerRecord &, const ServerRecord &) = default;
};

/// The record of a process that runs now; nothing when there is none, or the system does not tell.
[[nodiscard]] std::optional<ServerRecord> recordOf(qint64 pid, const QString &marker);
/// Whether the very process of the record still runs.
[[nodiscard]] bool isRunning(const ServerRecord &record);

/// Nothing when there is no file, or it is damaged.
[[nodiscard]] std::optional<ServerRecord> readServerRecord(const QString &file);
/// Replaces the file. False when it cannot be written.
bool writeServerRecord(const QString &file, const ServerRecord &record);
