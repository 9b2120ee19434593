// SPDX-License-Identifier: GPL-2.0-or-later
// Files that lie beside the program.
#pragma once

#include <QCoreApplication>
#include <QString>

/// The defaults file of the menu configuration: for an application "viewer" that is
/// "config/viewer-menu.ini" in the application's directory.
[[nodiscard]] inline QString menuDefaultsFile()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/config/") +
           QCoreApplication::applicationName() + QStringLiteral("-menu.ini");
}

/// Where style sheets lie.
[[nodiscard]] inline QString styleSheetFolder()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/plugins/styles");
}
