// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers of a plan, in every spelling that the DXF parser understands.
#include "dxf/read/pair_p.h"
#include "dxf/read/realnumber_p.h"
#include <algorithm>
#include <cmath>
#include <string>

namespace {

/// Of a number beyond the range of a double: whether it is too small, and not too large. Tells by
/// the place of its first digit that is no zero.
bool isTiny(std::string_view text)
{
    const std::size_t mark = std::min(text.find_first_of("eE"), text.size());
    const std::string_view mantissa = text.substr(0, mark);
    std::string_view power = text.substr(std::min(mark + 1, text.size()));
    if (power.starts_with('+'))
        power.remove_prefix(1);
    std::ptrdiff_t exponent = 0;
    const auto error = std::from_chars(power.data(), power.data() + power.size(), exponent).ec;
    if (error == std::errc::result_out_of_range)
        return power.starts_with('-');
    const auto point = static_cast<std::ptrdiff_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto digit = static_cast<std::ptrdiff_t>(mantissa.find_first_of("123456789"));
    return exponent < digit - point;
}

/// @param text  without blanks around it, with a decimal point
std::optional<double> plainNumber(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    double number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (stop != text.data() + text.size())
        return std::nullopt;
    if (error == std::errc::result_out_of_range && isTiny(text))
        return text.starts_with('-') ? -0.0 : 0.0;
    return error == std::errc() && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

} // namespace

std::optional<double> realNumber(std::string_view text)
{
    text = trimmed(text);
    if (text.find(',') == std::string_view::npos)
        return plainNumber(text);
    std::string pointed(text);
    std::ranges::replace(pointed, ',', '.');
    return plainNumber(pointed);
}
