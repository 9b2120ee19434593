// SPDX-License-Identifier: GPL-2.0-or-later
// An unsigned 128-bit number, as identifiers are made of.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Tz {

/// A plain number in four words of 32 bits, the least significant word first.
struct Bits128
{
    std::uint32_t words[4] = {0, 0, 0, 0};

    /// Reads 16 bytes, the first being the least significant one, on every kind of processor.
    [[nodiscard]] static constexpr Bits128 FromBytes(const unsigned char (&bytes)[16])
    {
        Bits128 value;
        for (std::size_t i = 0; i < 16; ++i)
            value.words[i / 4] |= static_cast<std::uint32_t>(bytes[i]) << (8 * (i % 4));
        return value;
    }

    friend constexpr bool operator==(const Bits128 &, const Bits128 &) = default;
};

} // namespace Tz
