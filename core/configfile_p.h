// SPDX-License-Identifier: GPL-2.0-or-later
// The format of the configuration files: INI text that is saved whole or not at all.
#pragma once

#include <QSettings>

/// Files of this format hold the same text as those of QSettings::IniFormat, which may read and
/// write them too. QSettings itself locks them, merges what other processes have saved, and renames
/// a finished file into place; this format adds what it leaves out:
/// - A text that cannot be written to its last byte (full disk) replaces nothing. QSettings's own
///   formats rename a file whose last block was not written.
/// - A file that cannot be parsed is copied beside itself, as "name.broken-20261231-235959", before
///   the first write replaces it, and one debug line names the copy. Without the copy, no write.
/// - Each save has a later time than the one before. QSettings tells a file changed by others by
///   its size and its time in milliseconds alone, and two saves may fall within one.
///
/// Whatever makes QSettings write goes this way: sync(), the event loop, the destructor.
[[nodiscard]] QSettings::Format configFileFormat();
