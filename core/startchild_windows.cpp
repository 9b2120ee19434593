// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: arguments are one text there, and a console group of its own can be asked to end.
#include "core/startchild_p.h"

#include "core/platform/windowsquoting.h"

#include <QProcess>
#include <windows.h>

void setServerArguments(QProcess &process, const QStringList &arguments)
{
    QString line;
    for (const QString &argument : arguments) {
        if (!line.isEmpty())
            line += u' ';
        line += QString::fromStdU16String(platform::windowsQuoted(argument.toStdU16String()));
    }
    process.setNativeArguments(line);
}

void startAsTreeHead(QProcess &process)
{
    process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments *arguments) {
        arguments->flags |= CREATE_NEW_PROCESS_GROUP;
    });
}
