// SPDX-License-Identifier: GPL-2.0-or-later
// Starts what an application is made of in order, and stops it in reverse.
#include <kelo_base/core/CoreFacade.h>

#include "core/serviceorder_p.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>
#include <kelo_base/core/Database.h>
#include <kelo_base/core/Environment.h>
#include <kelo_base/core/ServerProcess.h>
#include <kelo_base/core/UserDataManager.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr QLatin1StringView kSettings{"settings"};
constexpr QLatin1StringView kDatabase{"database"};
constexpr QLatin1StringView kServer{"server"};

CoreFacadeI *s_instance = nullptr;

/// Ends the server in its time. The application's event loop may have ended already.
void waitForStop(ServerProcess &server)
{
    server.Stop();
    const QDeadlineTimer end(10s); // twice what it takes to ask and to end it
    QTimer tick;                   // not all that happens ends a wait, on Windows
    tick.start(50ms);
    while (server.GetState() == ServerState::Stopping && !end.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents |
                                        QEventLoop::ExcludeUserInputEvents);
}

} // namespace

CoreFacadeI &CoreFacadeI::Instance()
{
    if (!s_instance)
        s_instance = new CoreFacadeI;
    return *s_instance;
}

void CoreFacadeI::Destroy()
{
    if (!s_instance)
        return;
    s_instance->m_isDestroyWanted = true;
    s_instance->Stop(); // which also deletes it, now or when the work that goes on has returned
}

CoreFacadeI::CoreFacadeI()
    : m_services(std::make_unique<ServiceOrder>(
          [this](const QString &name, const QString &why, const QStringList &leftOut) {
              reportFailure(name, why, leftOut);
          }))
{
    joinOwn();
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &CoreFacadeI::Stop);
}

CoreFacadeI::~CoreFacadeI() = default;

bool CoreFacadeI::Join(CoreService service)
{
    const bool isNew = m_services->join(std::move(service));
    destroyIfWanted();
    return isNew;
}

bool CoreFacadeI::Leave(const QString &name)
{
    if (name == kSettings || name == kDatabase || name == kServer)
        return false;
    const bool wasThere = m_services->leave(name);
    destroyIfWanted();
    return wasThere;
}

bool CoreFacadeI::Start()
{
    if (m_isDestroyWanted)
        return false;
    if (!m_services->isWorking())
        m_failures.clear();
    m_services->startAll();
    const bool isWhole = m_services->areAllRunning();
    destroyIfWanted();
    return isWhole;
}

void CoreFacadeI::Stop()
{
    if (m_services->isRunning(kSettings))
        saveSettings();
    m_services->stopAll();
    destroyIfWanted();
}

bool CoreFacadeI::IsStarted(const QString &name) const
{
    return m_services->isRunning(name);
}

QStringList CoreFacadeI::GetFailures() const
{
    return m_failures;
}

Environment CoreFacadeI::GetEnvironment() const
{
    return DescribeEnvironment(m_database.get());
}

Database *CoreFacadeI::GetDatabase() const
{
    return m_database.get();
}

ServerProcess *CoreFacadeI::GetServer() const
{
    return m_server.get();
}

void CoreFacadeI::joinOwn()
{
    m_services->join({kSettings,
                      [](QString &) {
                          static_cast<void>(UserDataManager());
                          return true;
                      },
                      [] { UserDataManagerI::Destroy(); },
                      {}});
    m_services->join({kDatabase,
                      [this](QString &why) { return startDatabase(why); },
                      [this] {
                          saveSettings(); // what stopping left, while all of it is still there
                          m_database.reset();
                      },
                      {kSettings}});
    m_services->join({kServer,
                      [this](QString &why) { return startServer(why); },
                      [this] { stopServer(); },
                      {kSettings}});
}

bool CoreFacadeI::startDatabase(QString &why)
{
    auto database = std::make_unique<Database>(UserDatabasePlace());
    const bool isOpen = database->Open();
    const QString sentence = database->LastError();
    if (!isOpen) {
        why = sentence;
        return false;
    }
    m_database = std::move(database);
    if (!sentence.isEmpty())
        tell(kDatabase, sentence);
    return true;
}

bool CoreFacadeI::startServer(QString &why)
{
    m_server = std::make_unique<ServerProcess>(
        ReadServerSettings(), UserDataManager().GetStorageDirectoryForModule(kServer, false));
    m_server->Start();
    if (m_server->GetState() == ServerState::Failed) {
        why = m_server->GetError();
        m_server.reset();
        return false;
    }
    connect(m_server.get(), &ServerProcess::stateChanged, this, [this](ServerState state) {
        if (state == ServerState::Failed) // later, while the application runs
            tell(kServer, m_server->GetError());
    });
    return true;
}

void CoreFacadeI::stopServer()
{
    waitForStop(*m_server);
    m_server.reset();
}

void CoreFacadeI::saveSettings()
{
    UserDataManager().SaveProjectConfigFiles();
    UserDataManager().SaveUserConfigFiles();
}

void CoreFacadeI::reportFailure(const QString &name, const QString &why, const QStringList &leftOut)
{
    QString sentence = tr("'%1' could not be started: %2.").arg(name, why);
    if (sentence.endsWith(".."_L1)) // the reason was a sentence of its own
        sentence.chop(1);
    if (!leftOut.isEmpty())
        sentence += u' ' + tr("What needs it is left out: %1.").arg(leftOut.join(u", "_s));
    tell(name, sentence);
}

void CoreFacadeI::tell(const QString &name, const QString &sentence)
{
    m_failures << sentence;
    emit serviceFailed(name, sentence);
}

void CoreFacadeI::destroyIfWanted()
{
    if (!m_isDestroyWanted || m_services->isWorking() || this != s_instance)
        return; // work that goes on up the stack comes here when it is done
    s_instance = nullptr;
    delete this;
}
