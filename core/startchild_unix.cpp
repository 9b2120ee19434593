// SPDX-License-Identifier: GPL-2.0-or-later
// Linux and macOS: arguments are a list there, and a new process prepares itself.
#include "core/startchild_p.h"

#include "core/platform/childprocess.h"

#include <QProcess>

void setServerArguments(QProcess &process, const QStringList &arguments)
{
    process.setArguments(arguments);
}

void startAsTreeHead(QProcess &process)
{
    process.setChildProcessModifier([] { platform::becomeTreeHead(); });
}
