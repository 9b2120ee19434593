// SPDX-License-Identifier: GPL-2.0-or-later
// The states of the application's server, and what leads from one to the next.
#include "core/serverrun_p.h"

#include "core/startchild_p.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QUuid>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr QLatin1StringView kLockFile{"server.lock"};
constexpr QLatin1StringView kRecordFile{"server.json"};

constexpr auto kElsewherePause = 1000ms; ///< between two looks whether the other run has ended
constexpr auto kTick = 100ms;            ///< between two looks at what takes a moment
constexpr auto kPoliteTime = 5000ms;

QString shown(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

} // namespace

ServerProcess::Run::Run(ServerProcess &owner, ServerSettings settings, const QString &folder)
    : m_owner(owner), m_settings(std::move(settings)), m_folder(folder), m_log(folder, u"server"_s)
{
    m_clock.start();
    m_timer.setSingleShot(true);
}

ServerProcess::Run::~Run()
{
    if (!m_process)
        return;
    m_tree->kill();
    m_process->waitForFinished(1000); // it is killed: only to be collected
    QFile::remove(pathOf(kRecordFile));
}

void ServerProcess::Run::start()
{
    if (m_state != ServerState::Stopped && m_state != ServerState::Failed)
        return;
    m_error.clear();
    m_restarts = {};
    if (m_settings.program.isEmpty() || m_settings.devMode)
        return enter(ServerState::LeftAlone);
    tryToStart();
}

/// One run of the application at a time gets beyond the lock.
void ServerProcess::Run::tryToStart()
{
    if (!QDir().mkpath(m_folder))
        return fail(tr("The folder '%1' for the server cannot be made.").arg(shown(m_folder)));
    const QString lock = pathOf(kLockFile);
    if (!m_lock.tryLock(lock.toStdString())) {
        if (!QFileInfo(lock).isWritable())
            return fail(tr("The file '%1' for the server cannot be written.").arg(shown(lock)));
        callAfter(m_settings.startDetached ? kTick : kElsewherePause, &Run::tryToStart);
        return enter(m_settings.startDetached ? ServerState::Starting : ServerState::Elsewhere);
    }
    endLeftOver();
    if (m_settings.startDetached)
        findOrStartDetached();
    else
        startAttached();
}

/// What an earlier run left behind that could not end its server: it was killed itself.
void ServerProcess::Run::endLeftOver()
{
    const auto record = readServerRecord(pathOf(kRecordFile));
    if (!record || record->marker.isEmpty())
        return;
    const quint32 head = isRunning(*record) ? static_cast<quint32>(record->pid) : 0;
    platform::ProcessTree(head, record->marker.toStdString()).kill();
    QFile::remove(pathOf(kRecordFile));
}

void ServerProcess::Run::findOrStartDetached()
{
    m_record = readServerRecord(pathOf(kRecordFile));
    if (m_record && isRunning(*m_record)) {
        m_pid = m_record->pid;
        m_lock.unlock();
        return enter(ServerState::Ready);
    }
    QProcess process;
    setUp(process);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (!process.startDetached(&m_pid))
        return fail(notStarted(process.errorString()));
    takeDown(QString());
    m_lock.unlock();
    callAfter(readyAfter, &Run::becomeReady);
    enter(ServerState::Starting);
}

void ServerProcess::Run::startAttached()
{
    m_marker = QUuid::createUuid().toString(QUuid::WithoutBraces);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(platform::kTreeVariable), m_marker);
    m_process = std::make_unique<QProcess>();
    setUp(*m_process);
    startAsTreeHead(*m_process);
    m_process->setProcessEnvironment(environment);
    m_process->setProcessChannelMode(QProcess::MergedChannels);
    m_watch = readyLine.isEmpty() ? std::nullopt : std::optional<LineWatch>(readyLine);
    // Queued: a listener of ours may delete the process, which must not be in the middle of a call.
    const auto queued = Qt::QueuedConnection;
    connect(m_process.get(), &QProcess::started, this, &Run::onStarted, queued);
    connect(m_process.get(), &QProcess::readyRead, this, &Run::takeOutput, queued);
    connect(m_process.get(), &QProcess::errorOccurred, this, &Run::onError, queued);
    connect(m_process.get(), &QProcess::finished, this, &Run::onEnded, queued);
    m_process->start(QIODevice::ReadOnly);
    m_pid = m_process->processId();
    m_startedAt = now();
    m_tree = std::make_unique<platform::ProcessTree>(static_cast<quint32>(m_pid),
                                                     m_marker.toStdString());
    m_timer.stop();
    enter(ServerState::Starting);
}

void ServerProcess::Run::onStarted()
{
    if (!m_process || m_state != ServerState::Starting)
        return;
    takeDown(m_marker);
    if (!m_watch)
        callAfter(readyAfter, &Run::becomeReady);
}

void ServerProcess::Run::onError(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart || !m_process)
        return; // whatever ends it is told as its end
    const QString why = m_process->errorString();
    dropProcess();
    if (m_state == ServerState::Stopping)
        return enter(ServerState::Stopped);
    fail(notStarted(why));
}

void ServerProcess::Run::takeOutput()
{
    const QByteArray output = m_process ? m_process->readAll() : QByteArray();
    if (output.isEmpty())
        return;
    m_log.write(output);
    const bool isReadyNow = m_state == ServerState::Starting && m_watch && m_watch->feed(output);
    const QPointer<Run> alive(this);
    emit m_owner.outputReceived(output);
    if (alive && isReadyNow && m_state == ServerState::Starting)
        becomeReady();
}

void ServerProcess::Run::becomeReady()
{
    if (m_settings.startDetached && !(m_record && isRunning(*m_record)))
        return fail(notStarted(tr("it ended at once")));
    enter(ServerState::Ready);
}

void ServerProcess::Run::onEnded()
{
    const QPointer<Run> alive(this);
    takeOutput();
    if (!alive || !m_process)
        return;
    if (m_state == ServerState::Stopping)
        return onStopTick();
    m_tree->kill(); // its children would stand in the way of the next one
    dropProcess();
    const auto pause = m_restarts.crashed(m_startedAt, now());
    if (!pause)
        return fail(tr("The server '%1' ended five times within ten minutes and is not started "
                       "again. Its output is in '%2'.")
                        .arg(shown(m_settings.program), shown(logFile())));
    callAfter(*pause, &Run::startAttached);
    enter(ServerState::Pausing);
}

void ServerProcess::Run::stop()
{
    if (m_state == ServerState::Stopped || m_state == ServerState::Stopping)
        return;
    m_timer.stop();
    if (!m_process) {
        m_pid = 0;
        m_lock.unlock();
        return enter(ServerState::Stopped);
    }
    m_tree->askToEnd();
    m_killAt = now() + kPoliteTime;
    callAfter(kTick, &Run::onStopTick);
    enter(ServerState::Stopping);
}

void ServerProcess::Run::onStopTick()
{
    if (m_process->state() == QProcess::NotRunning && !m_tree->isRunning()) {
        dropProcess();
        m_lock.unlock();
        return enter(ServerState::Stopped);
    }
    if (now() >= m_killAt)
        m_tree->kill();
    callAfter(kTick, &Run::onStopTick);
}

void ServerProcess::Run::fail(const QString &error)
{
    m_error = error;
    m_pid = 0;
    m_timer.stop();
    m_lock.unlock();
    enter(ServerState::Failed);
}

/// The last step of whoever calls it: a listener may delete us.
void ServerProcess::Run::enter(ServerState state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit m_owner.stateChanged(state);
}

void ServerProcess::Run::dropProcess()
{
    m_process.reset();
    m_tree.reset();
    m_pid = 0;
    m_timer.stop();
    QFile::remove(pathOf(kRecordFile));
}

/// What attached and detached servers have in common.
void ServerProcess::Run::setUp(QProcess &process) const
{
    process.setProgram(m_settings.program);
    setServerArguments(process, m_settings.arguments);
    process.setWorkingDirectory(QFileInfo(m_settings.program).path());
    process.setStandardInputFile(QProcess::nullDevice());
}

/// Writes down who runs now, for the runs of the application that come after.
void ServerProcess::Run::takeDown(const QString &marker)
{
    m_record = recordOf(m_pid, marker);
    if (m_record && !writeServerRecord(pathOf(kRecordFile), *m_record))
        qDebug() << "ServerProcess::Start"
                 << ": Cannot write" << pathOf(kRecordFile);
}

void ServerProcess::Run::callAfter(std::chrono::milliseconds time, void (Run::*step)())
{
    m_timer.disconnect();
    m_timer.callOnTimeout(this, step);
    m_timer.start(time);
}

QString ServerProcess::Run::notStarted(const QString &why) const
{
    return tr("The server '%1' cannot be started: %2.").arg(shown(m_settings.program), why);
}

QString ServerProcess::Run::pathOf(QLatin1StringView file) const
{
    return m_folder + u'/' + file;
}

RestartRule::Time ServerProcess::Run::now() const
{
    return RestartRule::Time(m_clock.elapsed());
}
