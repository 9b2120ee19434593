// SPDX-License-Identifier: GPL-2.0-or-later
// Starts the application's server, watches it, and ends it.
#include <kelo_base/core/ServerProcess.h>

#include "core/serverrun_p.h"

ServerProcess::ServerProcess(ServerSettings settings, const QString &folder, QObject *parent)
    : QObject(parent), m_run(new Run(*this, std::move(settings), folder))
{
}

ServerProcess::~ServerProcess() = default;

void ServerProcess::SetReadyAfter(std::chrono::milliseconds time)
{
    m_run->readyAfter = time;
}

void ServerProcess::SetReadyLine(const QByteArray &text)
{
    m_run->readyLine = text;
}

void ServerProcess::Start()
{
    m_run->start();
}

void ServerProcess::Stop()
{
    m_run->stop();
}

ServerState ServerProcess::GetState() const
{
    return m_run->state();
}

QString ServerProcess::GetError() const
{
    return m_run->error();
}

qint64 ServerProcess::GetProcessId() const
{
    return m_run->processId();
}

QString ServerProcess::GetLogFile() const
{
    return m_run->logFile();
}
