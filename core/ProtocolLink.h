// SPDX-License-Identifier: GPL-2.0-or-later
// Links whose targets are no files: "shell:" for the system, "ipc:" for the command channel.
#pragma once

#include <kelo_base/core/Export.h>

#include <QString>

/// "shell:"
[[nodiscard]] KELO_BASE_EXPORT const QString &GetShellTargetPrefix();
/// "ipc:"
[[nodiscard]] KELO_BASE_EXPORT const QString &GetIPCTargetPrefix();

/// Whether the text begins with "shell:", in whatever case.
[[nodiscard]] KELO_BASE_EXPORT bool IsShellLink(const QString &text);
/// Whether the text begins with "ipc:", in whatever case.
[[nodiscard]] KELO_BASE_EXPORT bool IsIPCLink(const QString &text);
/// Whether the text is either of them.
[[nodiscard]] KELO_BASE_EXPORT bool IsProtocolLink(const QString &text);

/// Removes everything up to and including the first ":", be it a known prefix or not (so "C:" goes
/// as well). A text without ":" stays as it is.
KELO_BASE_EXPORT void RemoveProtocolPrefix(QString &text);
