// SPDX-License-Identifier: GPL-2.0-or-later
// What must be set on a process object before it starts a server; one source per system.
#pragma once

#include <QStringList>

class QProcess;

/// Gives @p process its arguments, each to arrive exactly as it stands.
void setServerArguments(QProcess &process, const QStringList &arguments);

/// Makes the process that is started next the head of a platform::ProcessTree.
void startAsTreeHead(QProcess &process);
