// SPDX-License-Identifier: GPL-2.0-or-later
// Where a database lies: in an SQLite file, or in a PostgreSQL server when a host is named.
#include <kelo_base/core/DatabasePlace.h>

#include "core/settings_p.h"

#include <QDir>
#include <QFileInfo>
#include <kelo_base/core/UserDataManager.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QLatin1StringView kGroup{"database"};
constexpr QLatin1StringView kFile{"file"};
constexpr QLatin1StringView kHost{"host"};
constexpr QLatin1StringView kPort{"port"};
constexpr QLatin1StringView kName{"name"};
constexpr QLatin1StringView kUser{"user"};
constexpr QLatin1StringView kPassword{"password"};
constexpr QLatin1StringView kLockWait{"lockWait"};

constexpr int kLongestLockWait = 60'000;

/// A text with a comma that nobody quoted arrives as a list.
QString textOf(const QSettings &settings, QLatin1StringView key)
{
    return settings.value(key).toStringList().join(u',');
}

int numberOf(const QSettings &settings, QLatin1StringView key, int least, int most, int otherwise)
{
    bool isNumber = false;
    const int number = settings.value(key).toInt(&isNumber);
    return isNumber && number >= least && number <= most ? number : otherwise;
}

} // namespace

QString DatabasePlace::Text() const
{
    if (!IsServer())
        return QDir::toNativeSeparators(file);
    const QString secret = password.isEmpty() ? QString() : u":***"_s;
    const QString who = user.isEmpty() ? QString() : user + secret + u'@';
    return u"postgresql://"_s + who + host + u':' + QString::number(port) + u'/' + name;
}

DatabasePlace ReadDatabasePlace(QSettings &settings, const QString &defaultFile)
{
    const SettingsGroup group(settings, kGroup);
    DatabasePlace place;
    const QString file = textOf(settings, kFile);
    place.file = file.isEmpty()
                     ? defaultFile
                     : QDir::cleanPath(QFileInfo(defaultFile).dir().absoluteFilePath(file));
    place.host = textOf(settings, kHost);
    place.port = numberOf(settings, kPort, 1, 65535, place.port);
    place.name = textOf(settings, kName);
    place.user = textOf(settings, kUser);
    place.password = textOf(settings, kPassword);
    place.lockWait = numberOf(settings, kLockWait, 0, kLongestLockWait, place.lockWait);
    return place;
}

DatabasePlace UserDatabasePlace()
{
    UserDataManagerI &manager = UserDataManager();
    const QString file = manager.GetPathForModuleSpecificFile(u"database"_s, u"database.sqlite"_s);
    return ReadDatabasePlace(manager.GetSettingsConfigFile(DataScopeUser, true), file);
}
