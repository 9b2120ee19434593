// SPDX-License-Identifier: GPL-2.0-or-later
// Whom the command channel hands received commands to.
#include <kelo_base/ipc/KeloIPCCommandHandler.h>

KeloIPCCommandHandler::~KeloIPCCommandHandler() = default;

std::optional<quint64> KeloIPCCommandHandler::GetLastNumber(const QString & /*sender*/) const
{
    return std::nullopt;
}
