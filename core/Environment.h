// SPDX-License-Identifier: GPL-2.0-or-later
// What can be said of a run of the program, for people who help its users.
#pragma once

#include <kelo_base/core/Export.h>

#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>

class Database;

/// One screen, as the toolkit sees it.
struct EnvironmentScreen
{
    QString name;
    QSize size;             ///< in device-independent pixels
    double scaleFactor = 1; ///< device pixels to one of them
    double logicalDpi = 96; ///< for sizes of fonts
    double physicalDpi = 0; ///< as the screen says itself

    friend bool operator==(const EnvironmentScreen &, const EnvironmentScreen &) = default;
};

/// A file or folder that the program uses, whether it exists or not.
struct EnvironmentPlace
{
    QString name; ///< "userSettings", "database" ...; see DescribeEnvironment()
    QString path; ///< or, for a database on a server, where that is; without password
    bool exists = false;
    bool isReadable = false;
    bool isWritable = false; ///< or could be created

    friend bool operator==(const EnvironmentPlace &, const EnvironmentPlace &) = default;
};

/// A plain record; nothing in it is secret.
struct Environment
{
    QString applicationName;
    QString applicationVersion;
    QString organizationName;
    QString applicationDirectory;
    QStringList commandLine; ///< passwords and the like shown as "***"
    QString locale;          ///< of numbers and dates, "de_DE"
    QString translation;     ///< language of the texts, "de"; "en" when there is no catalogue
    QString operatingSystem;
    QString libraryVersion;           ///< of kelo_base
    QString qtVersion;                ///< of the toolkit that runs
    QString dxflibVersion;            ///< of the DXF parser that the library was built with
    QList<EnvironmentScreen> screens; ///< none without a GUI
    QList<EnvironmentPlace> places;

    friend bool operator==(const Environment &, const Environment &) = default;

    /// A line a fact, in the user's language, ended by a line break.
    [[nodiscard]] KELO_BASE_EXPORT QString ToText() const;
    /// One object, the same in every language: the members by their names.
    [[nodiscard]] KELO_BASE_EXPORT QByteArray ToJson() const;
};

/// Looks around, in less than 5 ms and without touching the network. The places:
///
///     "userSettings", "userLayout"         the user's configuration files
///     "projectSettings", "projectLayout"   those of the open project, if one is open
///     "menuDefaults"                       the defaults file of the menu configuration
///     "database"                           where @p database lies, if there is one
///     "serverSettings"                     "KeloServer.ini": the one that counts, else the user's
///
/// Wants an application object with its names set.
[[nodiscard]] KELO_BASE_EXPORT Environment DescribeEnvironment(const Database *database = nullptr);
