// SPDX-License-Identifier: GPL-2.0-or-later
// Starts the application's server, watches it, and ends it.
#pragma once

#include <kelo_base/core/Export.h>
#include <kelo_base/core/ServerSettings.h>

#include <QObject>
#include <chrono>
#include <memory>

enum class ServerState {
    Stopped,   ///< not wanted, or ended as wanted
    Starting,  ///< begun, not ready yet
    Ready,     ///< ours, or a detached one found again
    Elsewhere, ///< another run of the application has it; ours is started when that one ends
    Pausing,   ///< crashed, and to be started again
    Stopping,  ///< asked to end
    Failed,    ///< could not be started, or crashed too often: see ServerProcess::GetError()
    LeftAlone, ///< the settings name no server, or leave it to a developer
};

/// The application's one server process.
///
/// Attached (the default), it is a child: its output goes to a log of at most 5 files of 1 MiB and
/// to a signal; when it ends without having been asked to, in whatever way, it is started again
/// after 1, 2, 4 ... 60 s, and given up after five times within ten minutes; it ends with us, and
/// its own children with it. Detached, it outlives us and the next run finds it again.
///
/// However many runs of the application there are, one of them starts the server. Nothing here
/// waits; all is told through signals, which come from the event loop or from Start() and Stop().
/// A listener may call anything, and delete the object.
class KELO_BASE_EXPORT ServerProcess : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ServerProcess)

public:
    /// @param folder  where the log, the lock and the record of the running server go; created on
    ///                demand, the same for all runs of the application
    ServerProcess(ServerSettings settings, const QString &folder, QObject *parent = nullptr);
    /// Ends an attached server at once, without asking; call Stop() before, and wait for Stopped,
    /// where it shall have its time.
    ~ServerProcess() override;

    /// The server counts as ready when it has run for @p time (1 s at first).
    void SetReadyAfter(std::chrono::milliseconds time);
    /// An attached server counts as ready, instead, when a line of its output contains @p text.
    /// Empty: the time counts.
    void SetReadyLine(const QByteArray &text);

    /// No effect unless the state is Stopped or Failed.
    void Start();
    /// Asks an attached server to end and ends it five seconds later, its children too; a detached
    /// one is left running. The state is Stopping first, where there is something to wait for.
    void Stop();

    [[nodiscard]] ServerState GetState() const;
    /// Why the state is Failed, for people; empty otherwise.
    [[nodiscard]] QString GetError() const;
    /// Of our server, or of the detached one that was found; 0 when there is none.
    [[nodiscard]] qint64 GetProcessId() const;
    /// The newest file of the log.
    [[nodiscard]] QString GetLogFile() const;

signals:
    void stateChanged(ServerState state);
    /// Output and error output of an attached server as it comes, not parted into lines.
    void outputReceived(const QByteArray &output);

private:
    class Run;
    std::unique_ptr<Run> m_run;
};
