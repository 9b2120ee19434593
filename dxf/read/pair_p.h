// SPDX-License-Identifier: GPL-2.0-or-later
// One group of a DXF file: a code and its value.
#pragma once

#include <QtGlobal>
#include <charconv>
#include <string_view>

/// Lives until the scanner that gave it reads on.
struct DxfPair
{
    enum class Kind { Text, Real, Integer };

    int code = 0;
    Kind kind = Kind::Text;
    bool isTooLong = false; ///< longer than a scanner can hold; the text is not here
    std::string_view value; ///< of kind Text: the bytes without line end
    double real = 0;        ///< of kind Real (binary files)
    qint64 integer = 0;     ///< of kind Integer (binary files)
    qint64 position = 0;    ///< of the code: line from 1, or byte offset in a binary file
    qint64 valuePosition = 0;

    /// Room for any number as text.
    using Scratch = char[32];

    /// The value as it would stand in an ASCII file; a number is written into @p scratch.
    [[nodiscard]] std::string_view text(Scratch &scratch) const
    {
        if (kind == Kind::Text)
            return value;
        const auto written = kind == Kind::Real
                                 ? std::to_chars(scratch, scratch + sizeof scratch, real)
                                 : std::to_chars(scratch, scratch + sizeof scratch, integer);
        return {scratch, written.ptr};
    }
};

/// What a scanner says of the next pair.
enum class ScanResult { Pair, End, Error };

/// Without the blanks and tabs around it.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}
