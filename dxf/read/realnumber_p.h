// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers of a plan, in every spelling that the DXF parser understands.
#pragma once

#include <optional>
#include <string_view>

/// The number that all of the text spells, to the bit what the DXF parser makes of it: blanks
/// around it, a plus sign and a decimal comma do no harm, and one too small for a double is a zero
/// of its sign. Nothing when it is no number, or none that is finite.
[[nodiscard]] std::optional<double> realNumber(std::string_view text);
