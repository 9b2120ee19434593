// SPDX-License-Identifier: GPL-2.0-or-later
// Identifiers: 128-bit numbers written to base 36.
#pragma once

#include <kelo_base/core/Bits128.h>
#include <kelo_base/core/Export.h>

namespace Tz {

/// Writes @p value to base 36 with the digits A ... Z (0 ... 25) and 0 ... 9 (26 ... 35), the most
/// significant one first, filled up with 'A' in front.
/// @param out     room for @p digits characters and the NUL behind them; null: nothing is written
/// @param value   null gives an empty text
/// @param digits  1 ... 25; any other number, or a value that needs more digits, gives an empty
///                text. Every value fits into 25.
/// @return @p out
KELO_BASE_EXPORT char *CreateUid(char *out, const Bits128 *value, unsigned int digits);

/// Writes the 25 digits of a new GUID.
/// @param out  room for 26 characters
/// @return @p out
KELO_BASE_EXPORT char *CreateUid25(char *out);

/// Writes the 25 digits of the MD5 digest of @p length bytes: equal data, equal identifiers.
/// @param out   room for 26 characters
/// @param data  null is good for no bytes only; otherwise the text is empty
/// @return @p out
KELO_BASE_EXPORT char *CreateHashUid25(char *out, const void *data, unsigned int length);

} // namespace Tz
