// SPDX-License-Identifier: GPL-2.0-or-later
// The language in which the library and the toolkit speak to people.
#pragma once

#include <QLocale>
#include <kelo_base/core/Export.h>

/// Makes the texts of the library, of its programs and of the toolkit those of the first language
/// of @p locale there is; the application owns the catalogues. What an earlier call installed is
/// taken away in any case. English needs no catalogue, and is what remains for languages unknown.
/// Where the toolkit's own catalogue is not on the machine, its texts alone stay English.
///
/// The system's locale is the language of messages; when the environment says "C" or "POSIX", that
/// is English even beside a LANGUAGE, so that scripts can rely on it.
///
/// Wants an application object, and the main thread.
/// @return whether a catalogue was installed; when not, all texts are English
KELO_BASE_EXPORT bool InstallTranslation(const QLocale &locale = QLocale::system());

/// The language of the catalogue that is installed, as in "de"; "en" when there is none.
[[nodiscard]] KELO_BASE_EXPORT QString InstalledTranslation();
