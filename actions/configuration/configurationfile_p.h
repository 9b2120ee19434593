// SPDX-License-Identifier: GPL-2.0-or-later
// A configuration in a file that people hand on.
#pragma once

#include "actions/configuration/menuconfiguration_p.h"
#include <QByteArray>
#include <QString>

namespace menuconfig {

struct [[nodiscard]] ConfigurationFile
{
    MenuConfiguration configuration; ///< empty when there is an error
    bool hasLayout = false;
    QByteArray bytes; ///< of which it was read
    QString error;    ///< one sentence; empty when all is well
};

/// Takes the configuration called @p name, or else the first. A file with sizes that cannot be, ids
/// that come twice, or keys that nobody could press is refused as a whole.
ConfigurationFile readConfigurationFile(const QString &path, const QString &name);

/// Replaces the file, or leaves it as it was. A sentence when that fails; else empty.
[[nodiscard]] QString writeConfigurationFile(const QString &path, const QString &name,
                                             const MenuConfiguration &configuration);

} // namespace menuconfig
