// SPDX-License-Identifier: GPL-2.0-or-later
// What the user asks to send, a command a line.
#pragma once

#include "exchange.h"

#include <QStringList>
#include <optional>

/// Reads "goto X Y [NORTH [HEIGHT]]", "find OBJECT", "test", "integer N", "raw NAME PARAMETERS",
/// each with "front" behind it or not. Nothing when it is none of these.
std::optional<Command> parseCommand(const QString &line);

/// The commands of all lines; empty lines and those with "#" in front are skipped.
/// @param fault  the first line that is no command
std::optional<QList<Command>> parseScript(const QStringList &lines, QString &fault);
