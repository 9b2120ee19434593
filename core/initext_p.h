// SPDX-License-Identifier: GPL-2.0-or-later
// Settings as the text of an INI file, and back, in memory.
#pragma once

#include <QByteArray>
#include <QSettings>

/// The text is that of QSettings::IniFormat: each reads what the other has written, key by key and
/// type by type. QSettings itself offers it for files only, and a file needs room on a disk.
namespace initext {

struct Parsed
{
    QSettings::SettingsMap values; ///< what could be read, by full key ("Group/key")
    /// False when something could not, so that writing the values again would lose it: a line that
    /// is neither comment, section nor "key=value", text behind a section's "]", a line that ends
    /// inside of quotes, a value of a type unknown here, bytes that are no UTF-8.
    bool isWhole = true;
};

[[nodiscard]] Parsed parse(QByteArrayView text);

/// Lines end with "\n" on every system. Keys without a group come first, the others in their order.
[[nodiscard]] QByteArray textOf(const QSettings::SettingsMap &values);

} // namespace initext
