// SPDX-License-Identifier: GPL-2.0-or-later
// The system's own character sets; one source per family of systems.
#pragma once

#include <QByteArrayView>
#include <QString>

/// Under the names that the toolkit has where it knows them all: "windows-1252", "IBM850",
/// "ISO-8859-5", "macintosh", "windows-31j", "ibm-1361".
namespace characterset {

[[nodiscard]] bool isKnown(const QByteArray &name);
/// U+FFFD for what is no character. Nothing of a set that is not known.
[[nodiscard]] QString decoded(QByteArrayView bytes, const QByteArray &name);
/// Some other byte for a character that the set lacks.
[[nodiscard]] QByteArray encoded(const QString &text, const QByteArray &name);

} // namespace characterset
