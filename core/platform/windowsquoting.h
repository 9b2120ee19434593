// SPDX-License-Identifier: GPL-2.0-or-later
// How Windows programs take their one command line apart, turned around; no Qt, for every system.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// One argument as it has to stand in a command line of Windows, so that the usual start-up code
/// (and CommandLineToArgvW) gives back exactly @p argument, which holds no NUL.
///
/// A backslash is only itself, unless backslashes stand before a quote: there they count in pairs.
inline std::u16string windowsQuoted(std::u16string_view argument)
{
    const bool isPlain =
        !argument.empty() && argument.find_first_of(u" \t\n\v\"") == std::u16string_view::npos;
    if (isPlain)
        return std::u16string(argument);
    std::u16string quoted = u"\"";
    std::size_t backslashes = 0;
    for (const char16_t c : argument) {
        if (c == u'"') // those before it doubled, and one for itself
            quoted.append(backslashes + 1, u'\\');
        backslashes = c == u'\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    quoted.append(backslashes, u'\\'); // before the closing quote
    return quoted + u'"';
}

} // namespace platform
