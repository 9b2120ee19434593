// SPDX-License-Identifier: GPL-2.0-or-later
// What can be said of a run of the program, for people who help its users.
#include <kelo_base/core/Environment.h>

#include "core/programfiles_p.h"
#include "core/secrets_p.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QScreen>
#include <QSettings>
#include <QSysInfo>
#include <algorithm>
#include <kelo_base/core/Database.h>
#include <kelo_base/core/ServerSettings.h>
#include <kelo_base/core/Translation.h>
#include <kelo_base/core/UserDataManager.h>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Environment)
};

/// Names of places in the record, and what people read.
struct PlaceName
{
    QLatin1StringView name;
    const char *title;
};
constexpr PlaceName kUserSettings{"userSettings"_L1,
                                  QT_TRANSLATE_NOOP("Environment", "User settings")};
constexpr PlaceName kUserLayout{"userLayout"_L1, QT_TRANSLATE_NOOP("Environment", "User layout")};
constexpr PlaceName kProjectSettings{"projectSettings"_L1,
                                     QT_TRANSLATE_NOOP("Environment", "Project settings")};
constexpr PlaceName kProjectLayout{"projectLayout"_L1,
                                   QT_TRANSLATE_NOOP("Environment", "Project layout")};
constexpr PlaceName kMenuDefaults{"menuDefaults"_L1,
                                  QT_TRANSLATE_NOOP("Environment", "Menu defaults")};
constexpr PlaceName kDatabase{"database"_L1, QT_TRANSLATE_NOOP("Environment", "Database")};
constexpr PlaceName kServerSettings{"serverSettings"_L1,
                                    QT_TRANSLATE_NOOP("Environment", "Server settings")};
constexpr const PlaceName *kPlaceNames[] = {&kUserSettings,  &kUserLayout,   &kProjectSettings,
                                            &kProjectLayout, &kMenuDefaults, &kDatabase,
                                            &kServerSettings};

QString titleOf(const QString &place)
{
    for (const PlaceName *name : kPlaceNames)
        if (place == name->name)
            return Texts::tr(name->title);
    return place;
}

/// Whether the file could be made: the nearest folder above it that exists takes files.
bool canBeCreated(const QFileInfo &file)
{
    QString folder = file.absolutePath();
    while (!QFileInfo::exists(folder) && folder != QFileInfo(folder).absolutePath())
        folder = QFileInfo(folder).absolutePath();
    const QFileInfo info(folder);
    return info.isDir() && info.isWritable();
}

EnvironmentPlace placeAt(const PlaceName &name, const QString &path)
{
    const QFileInfo file(path);
    const bool exists = file.exists();
    return {name.name, path, exists, exists && file.isReadable(),
            exists ? file.isWritable() : canBeCreated(file)};
}

QString serverSettingsFile()
{
    const QStringList files = ServerSettingsFiles();
    const auto found =
        std::ranges::find_if(files, [](const QString &file) { return QFile::exists(file); });
    return found == files.end() ? files.first() : *found;
}

/// A server is asked for nothing: whether it answers is known from its being open.
EnvironmentPlace placeOf(const Database &database)
{
    if (!database.IsServer())
        return placeAt(kDatabase, database.File());
    const bool isOpen = database.IsOpen();
    return {kDatabase.name, database.Text(), isOpen, isOpen, isOpen};
}

QList<EnvironmentPlace> places(const Database *database)
{
    const UserDataManagerI &data = UserDataManager();
    QList<EnvironmentPlace> result{
        placeAt(kUserSettings, data.MakeSettingsConfigFilename()),
        placeAt(kUserLayout, data.GetPathForUserSpecificFile(u"config/layout.ini"_s))};
    if (data.HasOpenProject()) {
        result << placeAt(kProjectSettings,
                          data.GetSettingsConfigFile(DataScopeProject, true).fileName())
               << placeAt(kProjectLayout,
                          data.GetLayoutConfigFile(DataScopeProject, true).fileName());
    }
    result << placeAt(kMenuDefaults, menuDefaultsFile());
    if (database)
        result << placeOf(*database);
    result << placeAt(kServerSettings, serverSettingsFile());
    return result;
}

QList<EnvironmentScreen> screens()
{
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return {};
    QList<EnvironmentScreen> result;
    for (const QScreen *screen : QGuiApplication::screens()) {
        result << EnvironmentScreen{screen->name(), screen->size(), screen->devicePixelRatio(),
                                    screen->logicalDotsPerInch(), screen->physicalDotsPerInch()};
    }
    return result;
}

QString shownScreen(const EnvironmentScreen &screen)
{
    return Texts::tr("%1: %2 × %3, scale factor %4, %5 DPI (the screen itself says %6)")
        .arg(screen.name)
        .arg(screen.size.width())
        .arg(screen.size.height())
        .arg(screen.scaleFactor)
        .arg(screen.logicalDpi)
        .arg(screen.physicalDpi, 0, 'f', 1);
}

QString shownRights(const EnvironmentPlace &place)
{
    if (place.isReadable && place.isWritable)
        return Texts::tr("can be read and written");
    if (place.isReadable)
        return Texts::tr("can be read");
    if (place.exists)
        return place.isWritable ? Texts::tr("can be written") : Texts::tr("cannot be read");
    return place.isWritable ? Texts::tr("does not exist yet")
                            : Texts::tr("does not exist and cannot be made");
}

} // namespace

Environment DescribeEnvironment(const Database *database)
{
    Environment record;
    record.applicationName = QCoreApplication::applicationName();
    record.applicationVersion = QCoreApplication::applicationVersion();
    record.organizationName = QCoreApplication::organizationName();
    record.applicationDirectory = QCoreApplication::applicationDirPath();
    record.commandLine = withoutSecrets(QCoreApplication::arguments());
    record.locale = QLocale().name();
    record.translation = InstalledTranslation();
    record.operatingSystem = QSysInfo::prettyProductName() + u", "_s + QSysInfo::kernelType() +
                             u' ' + QSysInfo::kernelVersion() + u", "_s +
                             QSysInfo::currentCpuArchitecture();
    record.libraryVersion = QStringLiteral(KELO_BASE_VERSION);
    record.qtVersion = QString::fromLatin1(qVersion());
    record.dxflibVersion = QStringLiteral(KELO_DXFLIB_VERSION);
    record.screens = screens();
    record.places = places(database);
    return record;
}

QString Environment::ToText() const
{
    QString text;
    const auto line = [&text](const QString &title, const QString &value) {
        text += Texts::tr("%1: %2").arg(title, value) + u'\n';
    };
    line(Texts::tr("Program"), applicationName + u' ' + applicationVersion);
    line(Texts::tr("Organisation"), organizationName);
    line(Texts::tr("Folder"), QDir::toNativeSeparators(applicationDirectory));
    line(Texts::tr("Command line"), commandLine.join(u' '));
    line(Texts::tr("Locale"), locale);
    line(Texts::tr("Language"), translation);
    line(Texts::tr("Operating system"), operatingSystem);
    line(u"kelo_base"_s, libraryVersion);
    line(u"Qt"_s, qtVersion);
    line(u"dxflib"_s, dxflibVersion);
    for (const EnvironmentScreen &screen : screens)
        line(Texts::tr("Screen"), shownScreen(screen));
    for (const EnvironmentPlace &place : places)
        line(titleOf(place.name),
             QDir::toNativeSeparators(place.path) + u" ("_s + shownRights(place) + u')');
    return text;
}

QByteArray Environment::ToJson() const
{
    QJsonArray screenList;
    for (const EnvironmentScreen &screen : screens) {
        screenList << QJsonObject{{u"name"_s, screen.name},
                                  {u"width"_s, screen.size.width()},
                                  {u"height"_s, screen.size.height()},
                                  {u"scaleFactor"_s, screen.scaleFactor},
                                  {u"logicalDpi"_s, screen.logicalDpi},
                                  {u"physicalDpi"_s, screen.physicalDpi}};
    }
    QJsonArray placeList;
    for (const EnvironmentPlace &place : places) {
        placeList << QJsonObject{{u"name"_s, place.name},
                                 {u"path"_s, place.path},
                                 {u"exists"_s, place.exists},
                                 {u"isReadable"_s, place.isReadable},
                                 {u"isWritable"_s, place.isWritable}};
    }
    const QJsonObject record{{u"applicationName"_s, applicationName},
                             {u"applicationVersion"_s, applicationVersion},
                             {u"organizationName"_s, organizationName},
                             {u"applicationDirectory"_s, applicationDirectory},
                             {u"commandLine"_s, QJsonArray::fromStringList(commandLine)},
                             {u"locale"_s, locale},
                             {u"translation"_s, translation},
                             {u"operatingSystem"_s, operatingSystem},
                             {u"libraryVersion"_s, libraryVersion},
                             {u"qtVersion"_s, qtVersion},
                             {u"dxflibVersion"_s, dxflibVersion},
                             {u"screens"_s, screenList},
                             {u"places"_s, placeList}};
    return QJsonDocument(record).toJson();
}
