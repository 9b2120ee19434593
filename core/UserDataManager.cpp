// SPDX-License-Identifier: GPL-2.0-or-later
// Where the user's and the project's data lie, and the configuration files among them.
#include <kelo_base/core/UserDataManager.h>

#include "core/configfile_p.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QPointer>
#include <QStandardPaths>
#include <QStringBuilder>
#include <stdexcept>
#include <utility>

namespace {

constexpr QLatin1StringView kSeparator{"/"};
constexpr QLatin1StringView kConfigFolder{"config"};
constexpr QLatin1StringView kDataFolder{"data"};
constexpr QLatin1StringView kProjectsFolder{"projects"};
constexpr QLatin1StringView kLayoutFile{"layout.ini"};
constexpr QLatin1StringView kSettingsFile{"settings.ini"};
constexpr QLatin1StringView kEmptyProjectId{"0"};

UserDataManagerI *s_instance = nullptr;

QString configFileName(const QString &directory, QLatin1StringView file)
{
    return directory % kSeparator % kConfigFolder % kSeparator % file;
}

/// Sets a flag while it lives; the flag may be gone before it.
class Announcement
{
public:
    Announcement(const QObject *owner, bool &flag) : m_owner(owner), m_flag(flag) { flag = true; }
    ~Announcement()
    {
        if (m_owner)
            m_flag = false;
    }
    Q_DISABLE_COPY_MOVE(Announcement)
    [[nodiscard]] bool isOwnerAlive() const { return !m_owner.isNull(); }

private:
    QPointer<const QObject> m_owner;
    bool &m_flag;
};

/// Whether the directory exists in the end.
bool prepareDirectory(const QString &path)
{
    const QDir directory(path);
    return directory.exists() || directory.mkpath(QStringLiteral("."));
}

/// The file that answers for the scope.
/// @param function  whom the debug line names
QSettings &fileOfScope(DataScopeId scope, bool strict, QSettings *user, QSettings *project,
                       const char *function)
{
    QSettings *const file = scope == DataScopeUser      ? user
                            : scope == DataScopeProject ? project
                                                        : nullptr;
    if (file)
        return *file;
    if (!strict) {
        qDebug() << function << ": Requested data scope " << static_cast<int>(scope)
                 << "not available";
        if (user)
            return *user;
    }
    throw std::runtime_error("Invalid Scope");
}

} // namespace

UserDataManagerI &UserDataManager()
{
    return UserDataManagerI::Instance();
}

UserDataManagerI &UserDataManagerI::Instance()
{
    if (!s_instance)
        s_instance = new UserDataManagerI;
    return *s_instance;
}

void UserDataManagerI::Destroy()
{
    static bool isDestroying = false;
    if (std::exchange(isDestroying, true))
        return;        // a listener to the last save
    delete s_instance; // known to all until it is gone, for listeners ask it
    s_instance = nullptr;
    isDestroying = false;
}

UserDataManagerI::UserDataManagerI()
{
    Initialize();
}

UserDataManagerI::~UserDataManagerI()
{
    for (const auto close :
         {&UserDataManagerI::CloseProjectConfigFiles, &UserDataManagerI::CloseUserConfigFiles}) {
        try {
            (this->*close)();
        } catch (...) { // the files save themselves
            qDebug() << "UserDataManagerI::~UserDataManagerI : A listener to the last save threw";
        }
    }
}

void UserDataManagerI::Initialize()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    m_baseDirectory =
        QDir::cleanPath(documents % kSeparator % QCoreApplication::organizationName() % kSeparator %
                        QCoreApplication::applicationName());
    OpenUserConfigFiles();
}

UserDataManagerI::SharedFile UserDataManagerI::openConfigFile(const QString &directory,
                                                              QLatin1StringView file)
{
    SharedFile opened(new ConfigFile(configFileName(directory, file)), ConfigFile::close);
    connect(opened.get(), &ConfigFile::saveFailed, this, &UserDataManagerI::saveFailed);
    return opened;
}

void UserDataManagerI::SetUseProjectSubDirectory(bool use)
{
    m_useProjectSubDirectory = use;
}

void UserDataManagerI::OpenUserConfigFiles()
{
    const QPointer<UserDataManagerI> alive(this);
    CloseUserConfigFiles();
    if (!alive)
        return;
    m_userLayout = openConfigFile(m_baseDirectory, kLayoutFile);
    m_userSettings = openConfigFile(m_baseDirectory, kSettingsFile);
    QSettings::setDefaultFormat(QSettings::IniFormat);
}

void UserDataManagerI::OpenProjectConfigFiles(const Tz::ObjectId &id)
{
    const QPointer<UserDataManagerI> alive(this);
    CloseProjectConfigFiles();
    if (!alive)
        return;
    const QString directory = GetStorageDirectoryForProject(id);
    m_projectLayout = openConfigFile(directory, kLayoutFile);
    m_projectSettings = openConfigFile(directory, kSettingsFile);
    m_projectOpen = true;
}

void UserDataManagerI::SaveUserConfigFiles()
{
    save(m_userLayout, m_userSettings, &UserDataManagerI::onSavingUserConfigFiles,
         m_isAnnouncingUser);
}

void UserDataManagerI::SaveProjectConfigFiles()
{
    save(m_projectLayout, m_projectSettings, &UserDataManagerI::onSavingProjectConfigFiles,
         m_isAnnouncingProject);
}

/// @param layout, settings  references to the members, for a listener may close or reopen them
/// @return false when a listener destroyed the manager
bool UserDataManagerI::save(const SharedFile &layout, const SharedFile &settings,
                            SavingSignal announce, bool &isAnnouncing)
{
    if (settings && !isAnnouncing) {
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        const SharedFile announced = settings; // lives until the last listener is done
        const Announcement announcement(this, isAnnouncing);
        emit(this->*announce)(*announced);
        if (!announcement.isOwnerAlive())
            return false;
    }
    const QPointer<UserDataManagerI> alive(this);
    for (const SharedFile &file : {layout, settings}) {
        if (file)
            file->save();
    }
    return !alive.isNull();
}

void UserDataManagerI::CloseUserConfigFiles()
{
    if (!save(m_userLayout, m_userSettings, &UserDataManagerI::onSavingUserConfigFiles,
              m_isAnnouncingUser))
        return;
    m_userLayout.reset();
    m_userSettings.reset();
}

void UserDataManagerI::CloseProjectConfigFiles()
{
    if (!save(m_projectLayout, m_projectSettings, &UserDataManagerI::onSavingProjectConfigFiles,
              m_isAnnouncingProject))
        return;
    m_projectOpen = false;
    m_projectLayout.reset();
    m_projectSettings.reset();
}

void UserDataManagerI::CloseAll()
{
    const QPointer<UserDataManagerI> alive(this);
    CloseProjectConfigFiles();
    if (alive)
        CloseUserConfigFiles();
}

void UserDataManagerI::Shutdown()
{
    CloseAll();
}

QSettings &UserDataManagerI::GetLayoutConfigFile(DataScopeId scope, bool strict) const
{
    return fileOfScope(scope, strict, m_userLayout.get(),
                       m_projectOpen ? m_projectLayout.get() : nullptr,
                       "UserDataManagerI::GetLayoutConfigFile");
}

QSettings &UserDataManagerI::GetSettingsConfigFile(DataScopeId scope, bool strict) const
{
    return fileOfScope(scope, strict, m_userSettings.get(),
                       m_projectOpen ? m_projectSettings.get() : nullptr,
                       "UserDataManagerI::GetSettingsConfigFile");
}

QString UserDataManagerI::MakeSettingsConfigFilename() const
{
    return configFileName(m_baseDirectory, kSettingsFile);
}

QString UserDataManagerI::MakeSettingsConfigFilename(const Tz::ObjectId &id) const
{
    return configFileName(GetStorageDirectoryForProject(id), kSettingsFile);
}

QString UserDataManagerI::GetStorageBaseDirectory(bool prepare) const
{
    if (prepare)
        PrepareStorageBaseDirectory();
    return m_baseDirectory;
}

void UserDataManagerI::PrepareStorageBaseDirectory() const
{
    prepareDirectory(m_baseDirectory);
}

QString UserDataManagerI::GetPathForUserSpecificFile(const QString &name) const
{
    return m_baseDirectory % kSeparator % name;
}

QString UserDataManagerI::GetStorageDirectoryForProject(const Tz::ObjectId &id) const
{
    const QLatin1StringView idText = id.IsEmpty() ? kEmptyProjectId : QLatin1StringView(id.c_str());
    QString path = m_baseDirectory % kSeparator;
    if (m_useProjectSubDirectory)
        path += kProjectsFolder % kSeparator;
    path += idText;
    return QDir(path).absolutePath();
}

void UserDataManagerI::PrepareStorageDirectoryForProject(const Tz::ObjectId &id) const
{
    PrepareStorageBaseDirectory();
    prepareDirectory(GetStorageDirectoryForProject(id));
}

QString UserDataManagerI::GetPathForProjectSpecificFile(const Tz::ObjectId &id,
                                                        const QString &name) const
{
    return GetStorageDirectoryForProject(id) % kSeparator % name;
}

QString UserDataManagerI::MakeStorageDirectoryForModulePath(const QString &module) const
{
    return m_baseDirectory % kSeparator % kDataFolder % kSeparator % module;
}

QString UserDataManagerI::GetStorageDirectoryForModule(const QString &module, bool prepare) const
{
    if (prepare)
        PrepareStorageDirectoryForModule(module);
    return MakeStorageDirectoryForModulePath(module);
}

void UserDataManagerI::PrepareStorageDirectoryForModule(const QString &module) const
{
    prepareDirectory(MakeStorageDirectoryForModulePath(module));
}

QString UserDataManagerI::GetPathForModuleSpecificFile(const QString &module,
                                                       const QString &name) const
{
    return MakeStorageDirectoryForModulePath(module) % kSeparator % name;
}

QString UserDataManagerI::MakeStorageDirectoryForProjectModulePath(const Tz::ObjectId &id,
                                                                   const QString &module) const
{
    return GetStorageDirectoryForProject(id) % kSeparator % kDataFolder % kSeparator % module;
}

QString UserDataManagerI::GetStorageDirectoryForProjectModule(const Tz::ObjectId &id,
                                                              const QString &module,
                                                              bool prepare) const
{
    if (prepare)
        PrepareStorageDirectoryForProjectModule(id, module);
    return MakeStorageDirectoryForProjectModulePath(id, module);
}

void UserDataManagerI::PrepareStorageDirectoryForProjectModule(const Tz::ObjectId &id,
                                                               const QString &module) const
{
    prepareDirectory(MakeStorageDirectoryForProjectModulePath(id, module));
}

QString UserDataManagerI::GetPathForProjectModuleSpecificFile(const Tz::ObjectId &id,
                                                              const QString &module,
                                                              const QString &name) const
{
    return MakeStorageDirectoryForProjectModulePath(id, module) % kSeparator % name;
}
