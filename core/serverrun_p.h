// SPDX-License-Identifier: GPL-2.0-or-later
// The states of the application's server, and what leads from one to the next.
#pragma once

#include <kelo_base/core/ServerProcess.h>

#include "core/linewatch_p.h"
#include "core/platform/childprocess.h"
#include "core/platform/filelock.h"
#include "core/restartrule_p.h"
#include "core/rotatinglog_p.h"
#include "core/serverrecord_p.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>
#include <optional>

class ServerProcess::Run : public QObject
{
    Q_OBJECT

public:
    Run(ServerProcess &owner, ServerSettings settings, const QString &folder);
    ~Run() override;

    void start();
    void stop();

    [[nodiscard]] ServerState state() const { return m_state; }
    [[nodiscard]] QString error() const { return m_error; }
    [[nodiscard]] qint64 processId() const { return m_pid; }
    [[nodiscard]] QString logFile() const { return m_log.fileName(); }

    std::chrono::milliseconds readyAfter{1000};
    QByteArray readyLine;

private:
    void tryToStart();
    void endLeftOver();
    void findOrStartDetached();
    void startAttached();
    void onStarted();
    void onError(QProcess::ProcessError error);
    void takeOutput();
    void becomeReady();
    void onEnded();
    void onStopTick();
    void fail(const QString &error);
    void enter(ServerState state);
    void dropProcess();

    void setUp(QProcess &process) const;
    void takeDown(const QString &marker);
    void callAfter(std::chrono::milliseconds time, void (Run::*step)());
    [[nodiscard]] QString notStarted(const QString &why) const;
    [[nodiscard]] QString pathOf(QLatin1StringView file) const;
    [[nodiscard]] RestartRule::Time now() const;

    ServerProcess &m_owner;
    const ServerSettings m_settings;
    const QString m_folder;
    ServerState m_state = ServerState::Stopped;
    QString m_error;
    qint64 m_pid = 0;
    RotatingLog m_log;
    platform::FileLock m_lock; ///< held while ours runs, or while a detached one is looked for
    RestartRule m_restarts;
    RestartRule::Time m_startedAt{};
    RestartRule::Time m_killAt{};
    QElapsedTimer m_clock;
    QTimer m_timer;   ///< until the next step of the state
    QString m_marker; ///< of the tree of m_process
    std::unique_ptr<QProcess> m_process;
    std::unique_ptr<platform::ProcessTree> m_tree;
    std::optional<LineWatch> m_watch;
    std::optional<ServerRecord> m_record; ///< of ours, or of the detached one that was found
};
