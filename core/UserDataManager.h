// SPDX-License-Identifier: GPL-2.0-or-later
// Where the user's and the project's data lie, and the configuration files among them.
#pragma once

#include <kelo_base/core/Export.h>
#include <kelo_base/core/ObjectId.h>

#include <QObject>
#include <QString>
#include <memory>

class ConfigFile;
class QSettings;

/// Whose configuration; any other number is never available.
enum DataScopeId : int {
    DataScopeUser = 0,    ///< the current user's, there as long as the user files are open
    DataScopeProject = 1, ///< that of the open project
};

/// Owns the storage tree below the user's documents folder and the four configuration files.
///
///     B = documents/organisation/application      (names are those of QCoreApplication)
///     B/config/layout.ini, settings.ini           the user's configuration
///     B/data/MODULE                               private folders of modules
///     P = B/ID or B/projects/ID                   a project's directory; an empty id counts as "0"
///     P/config/layout.ini, settings.ini, P/data/MODULE
///
/// Paths have "/" as separator, and the functions that compose them do not touch the disk unless
/// they say "prepare". Errors of directories are not reported, those of files by saveFailed()
/// alone, but a save is whole or not at all: what cannot be written stays in memory and the old
/// file as it was; a file that cannot be parsed is copied beside itself before it is replaced, and
/// one that cannot be read is not replaced. Changes that other processes saved in the meantime are
/// kept. A save waits for others at most two seconds a file; what it could not save then, the event
/// loop saves later, and one debug line says so.
///
/// For the GUI thread only.
class KELO_BASE_EXPORT UserDataManagerI : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UserDataManagerI)

public:
    /// Creates the manager on first use, with the user files open.
    static UserDataManagerI &Instance();
    /// Saves and closes everything and deletes the manager; Instance() then makes a new one.
    static void Destroy();

    /// Computes the base directory, without creating it, and opens the user files.
    void Initialize();
    /// Whether project directories lie below "projects". Affects paths composed from now on, not
    /// files that are open.
    void SetUseProjectSubDirectory(bool use);

    /// Closes and saves the user files, if open, and opens them anew. Makes INI the default format
    /// of settings.
    void OpenUserConfigFiles();
    /// Closes and saves the open project's files and opens those of @p id. Does not create the
    /// project's directory.
    void OpenProjectConfigFiles(const Tz::ObjectId &id);
    /// Announces the save, then writes both files. A listener may save again (which writes, but
    /// announces nothing), close the files or destroy the manager. What it throws goes to the
    /// caller, and the files stay unsaved and open; in the destructor it is logged, and all is
    /// saved.
    void SaveUserConfigFiles();
    void SaveProjectConfigFiles();
    /// Saves as above and closes; closed files are left alone.
    void CloseUserConfigFiles();
    void CloseProjectConfigFiles();
    /// Closes the project's files, then the user's. The manager stays.
    void CloseAll();
    /// The same as CloseAll().
    void Shutdown();
    [[nodiscard]] bool HasOpenProject() const { return m_projectOpen; }

    /// The file of the scope. When it is not available: the user's and one debug line, unless
    /// @p strict. Valid until the scope is closed.
    /// @throws std::runtime_error "Invalid Scope" when there is no file to return
    [[nodiscard]] QSettings &GetLayoutConfigFile(DataScopeId scope, bool strict) const;
    [[nodiscard]] QSettings &GetSettingsConfigFile(DataScopeId scope, bool strict) const;
    /// Full name of the user's settings file.
    [[nodiscard]] QString MakeSettingsConfigFilename() const;
    /// Full name of the project's settings file.
    [[nodiscard]] QString MakeSettingsConfigFilename(const Tz::ObjectId &id) const;

    /// B; created first if @p prepare.
    QString GetStorageBaseDirectory(bool prepare) const;
    void PrepareStorageBaseDirectory() const;
    /// B/name
    [[nodiscard]] QString GetPathForUserSpecificFile(const QString &name) const;

    /// P, made absolute.
    [[nodiscard]] QString GetStorageDirectoryForProject(const Tz::ObjectId &id) const;
    /// Creates B, then P.
    void PrepareStorageDirectoryForProject(const Tz::ObjectId &id) const;
    /// P/name
    [[nodiscard]] QString GetPathForProjectSpecificFile(const Tz::ObjectId &id,
                                                        const QString &name) const;

    /// B/data/module; created first if @p prepare.
    QString GetStorageDirectoryForModule(const QString &module, bool prepare) const;
    void PrepareStorageDirectoryForModule(const QString &module) const;
    /// B/data/module/name
    [[nodiscard]] QString GetPathForModuleSpecificFile(const QString &module,
                                                       const QString &name) const;

    /// P/data/module; created first if @p prepare.
    QString GetStorageDirectoryForProjectModule(const Tz::ObjectId &id, const QString &module,
                                                bool prepare) const;
    void PrepareStorageDirectoryForProjectModule(const Tz::ObjectId &id,
                                                 const QString &module) const;
    /// P/data/module/name
    [[nodiscard]] QString GetPathForProjectModuleSpecificFile(const Tz::ObjectId &id,
                                                              const QString &module,
                                                              const QString &name) const;

signals:
    /// The user's settings file is about to be written: put into it what shall be kept.
    void onSavingUserConfigFiles(QSettings &userSettings);
    /// The same for the open project's settings file.
    void onSavingProjectConfigFiles(QSettings &projectSettings);
    /// A file could not be saved, be it by a call or by the event loop. Told once a file until it
    /// could; what is not saved at the end of the program is lost.
    /// @param sentence  for people
    void saveFailed(const QString &sentence);

private:
    using SavingSignal = void (UserDataManagerI::*)(QSettings &);
    /// Shared for the time of a signal only: a listener may close the file it was given.
    using SharedFile = std::shared_ptr<ConfigFile>;

    UserDataManagerI();
    ~UserDataManagerI() override;

    [[nodiscard]] QString MakeStorageDirectoryForModulePath(const QString &module) const;
    [[nodiscard]] QString MakeStorageDirectoryForProjectModulePath(const Tz::ObjectId &id,
                                                                   const QString &module) const;
    [[nodiscard]] SharedFile openConfigFile(const QString &directory, QLatin1StringView file);
    bool save(const SharedFile &layout, const SharedFile &settings, SavingSignal announce,
              bool &isAnnouncing);

    QString m_baseDirectory; ///< clean and absolute
    bool m_useProjectSubDirectory = false;
    SharedFile m_userLayout;
    SharedFile m_projectLayout;
    SharedFile m_userSettings;
    SharedFile m_projectSettings;
    bool m_projectOpen = false;
    bool m_isAnnouncingUser = false;
    bool m_isAnnouncingProject = false;
};

/// The same as UserDataManagerI::Instance().
[[nodiscard]] KELO_BASE_EXPORT UserDataManagerI &UserDataManager();
