// SPDX-License-Identifier: GPL-2.0-or-later
// Starts what an application is made of in order, and stops it in reverse.
#pragma once

#include <kelo_base/core/Export.h>

#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>

class Database;
class ServerProcess;
class ServiceOrder;
class UserDataManagerI;
struct Environment;

/// A part of the application that is started and stopped with it.
struct CoreService
{
    QString name; ///< unique; people see it in the sentence about a failure
    /// Begins the work. On failure it returns false, with what was wrong in the text; an exception
    /// counts as failure, with its own text. Null: nothing to do.
    std::function<bool(QString &why)> start;
    /// Ends the work. Called exactly once for each start that succeeded. Null: nothing to do.
    std::function<void()> stop;
    QStringList needs; ///< names of services without which this one makes no sense
};

/// What the host of the library starts first and ends last. It owns the order of things; of the
/// things themselves only what lies below everything else, which are services, too, named as here:
///
///     "settings"  UserDataManagerI, with the user's files open
///     "database"  the application's Database
///     "server"    ServerProcess, as "KeloServer.ini" says; an attached server has five seconds to
///                 end at the stop, during which the event loop runs
///
/// Everything above joins. Services start in the order in which they joined and stop in reverse.
/// All settings are saved before the first one stops, while all can still put their state in, and
/// again, with what stopping left, before the database closes.
///
/// A host:
///
///     int main(int argc, char **argv)
///     {
///         QApplication app(argc, argv);
///         QApplication::setOrganizationName("organisation");
///         QApplication::setApplicationName("viewer");
///         CoreFacadeI &core = CoreFacadeI::Instance();
///         core.Join({"window", openWindow, closeWindow, {"settings"}});
///         core.Start();
///         const int status = QApplication::exec();
///         CoreFacadeI::Destroy();
///         return status;
///     }
///
/// For the GUI thread only, and while there is an application object. Everything may be called from
/// inside of a service's start or stop and from listeners.
class KELO_BASE_EXPORT CoreFacadeI : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CoreFacadeI)

public:
    /// Creates the facade on first use; nothing is started yet.
    static CoreFacadeI &Instance();
    /// Stops everything and deletes the facade, once the start or stop that is going on has
    /// returned. No effect when there is none.
    static void Destroy();

    /// Adds a service at the end; one that joins while the application runs is started at once, or
    /// right after the start that is going on. False when the name is empty or taken.
    bool Join(CoreService service);
    /// Stops the service, and before it those that need it, and forgets it; those that need it stay
    /// joined, stopped. One that leaves inside its own start is stopped when that has returned.
    /// False when there is no such service; the three of the facade itself cannot leave.
    bool Leave(const QString &name);

    /// Starts what is joined and does not run. A service that fails is reported, and what needs it
    /// is left out; everything else goes on.
    /// @return whether all run
    bool Start();
    /// Saves, and stops what runs, in reverse; no effect when nothing does. Happens by itself when
    /// the application quits.
    void Stop();

    [[nodiscard]] bool IsStarted(const QString &name) const;
    /// The sentences of serviceFailed() since the last start.
    [[nodiscard]] QStringList GetFailures() const;

    /// What can be said of this run, for people who help.
    [[nodiscard]] Environment GetEnvironment() const;
    /// Null before "database" is started and after it has stopped.
    [[nodiscard]] Database *GetDatabase() const;
    /// Null before "server" is started and after it has stopped.
    [[nodiscard]] ServerProcess *GetServer() const;

signals:
    /// Once for each failure. @p sentence is for people, and names what is left out with it. Also
    /// for what people must know though it goes on: a damaged database that was set aside, a server
    /// that was given up.
    void serviceFailed(const QString &name, const QString &sentence);

private:
    CoreFacadeI();
    ~CoreFacadeI() override;

    void joinOwn();
    bool startDatabase(QString &why);
    bool startServer(QString &why);
    void stopServer();
    void saveSettings();
    void reportFailure(const QString &name, const QString &why, const QStringList &leftOut);
    void tell(const QString &name, const QString &sentence);
    void destroyIfWanted();

    std::unique_ptr<ServiceOrder> m_services;
    std::unique_ptr<Database> m_database;
    std::unique_ptr<ServerProcess> m_server;
    QStringList m_failures;
    bool m_isDestroyWanted = false;
};
