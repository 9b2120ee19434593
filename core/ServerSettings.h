// SPDX-License-Identifier: GPL-2.0-or-later
// How the application's server is started, as "KeloServer.ini" says.
#pragma once

#include <kelo_base/core/Export.h>

#include <QString>
#include <QStringList>

/// What "KeloServer.ini" holds.
struct ServerSettings
{
    QString file;    ///< that was read; empty when there is none
    QString program; ///< absolute, from "server/serverApplication"; empty: there is no server
    /// From "server/serverArguments": a list is taken as it stands, one text is taken apart like a
    /// command line (see SplitServerArguments()).
    QStringList arguments;
    bool startDetached = false; ///< "server/startDetached": the server outlives the application
    bool devMode = false;       ///< "config/devMode": somebody starts and ends it by hand

    friend bool operator==(const ServerSettings &, const ServerSettings &) = default;
};

/// Where "KeloServer.ini" is looked for, the first choice first: the user's configuration folder,
/// then the folder "config" beside the program.
[[nodiscard]] KELO_BASE_EXPORT QStringList ServerSettingsFiles();

/// Reads the first of ServerSettingsFiles() that exists. A relative program is relative to the
/// application's directory. Without a file, and with one that cannot be read: no program.
[[nodiscard]] KELO_BASE_EXPORT ServerSettings ReadServerSettings();

/// Takes a command line apart: blanks part, double quotes hold together ("" is an empty argument),
/// and a quote doubled inside of quotes is a quote. Everything else, backslashes too, is itself.
[[nodiscard]] KELO_BASE_EXPORT QStringList SplitServerArguments(QStringView line);
