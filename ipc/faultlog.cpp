// SPDX-License-Identifier: GPL-2.0-or-later
// Faults said once while they last, and again when they come back.
#include "ipc/faultlog_p.h"

#include <QDebug>
#include <utility>

namespace channel {

void FaultLog::say(const QString &file, const QString &line)
{
    if (std::exchange(m_standing[file], line) != line)
        tell(line);
}

void FaultLog::tell(const QString &line)
{
    qDebug() << "KeloIPCFacadeI::poll :" << qUtf8Printable(line);
}

} // namespace channel
