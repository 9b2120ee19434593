// SPDX-License-Identifier: GPL-2.0-or-later
// Settings as the text of an INI file, and back.
#pragma once

#include <QByteArray>
#include <QSettings>

/// Reads and writes the same text as QSettings::IniFormat, so that either may open files of the
/// other.
namespace initext {

struct Parsed
{
    QSettings::SettingsMap values; ///< what could be read, by full key ("Group/key")
    /// False when something could not: a line that is neither comment, section nor "key=value", or
    /// bytes that are no UTF-8. Writing the values again would lose it.
    bool isWhole = true;
};

[[nodiscard]] Parsed parse(QByteArrayView text);

/// UTF-8 with LF line ends; sections and keys in the order of the map, those without a section
/// first.
[[nodiscard]] QByteArray textOf(const QSettings::SettingsMap &values);

} // namespace initext
