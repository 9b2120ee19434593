// SPDX-License-Identifier: GPL-2.0-or-later
// Settings as the text of an INI file, and back.
#pragma once

#include <QByteArray>
#include <QSettings>
#include <optional>

/// The text is that of QSettings::IniFormat, read and written by QSettings itself, so that either
/// may open files of the other.
namespace initext {

struct Parsed
{
    QSettings::SettingsMap values; ///< what could be read, by full key ("Group/key")
    /// False when something could not: a line that is neither comment, section nor "key=value", or
    /// bytes that are no UTF-8. Writing the values again would lose it.
    bool isWhole = true;
};

/// Nothing when the system has no room for a temporary file.
[[nodiscard]] std::optional<Parsed> parse(QByteArrayView text);

/// Nothing when the system has no room for a temporary file.
[[nodiscard]] std::optional<QByteArray> textOf(const QSettings::SettingsMap &values);

} // namespace initext
