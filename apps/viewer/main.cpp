// SPDX-License-Identifier: GPL-2.0-or-later
// The viewer: a host of the library to try, and to copy from.
#include "CommandLine.h"
#include "Viewer.h"
#include <Console.h>
#include <QApplication>
#include <QIcon>
#include <kelo_base/core/Translation.h>

int main(int argc, char **argv)
{
    PrepareConsole();
    if (needsNoScreen(argc, argv) && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        NeedNoScreen();
    const QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("kelo"));
    QApplication::setApplicationName(QStringLiteral("kelo-viewer"));
    QApplication::setApplicationVersion(QStringLiteral(VIEWER_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("kelo-viewer"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/viewer/kelo-viewer.svg")));
    InstallTranslation();
    const CommandLine line = CommandLine::parse(QApplication::arguments());
    if (!line.screenshot.isEmpty()) // a storage tree that is never written: the same everywhere
        QApplication::setApplicationName(QStringLiteral("kelo-viewer-picture"));
    return Viewer(line).run();
}
