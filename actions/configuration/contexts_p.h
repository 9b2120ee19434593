// SPDX-License-Identifier: GPL-2.0-or-later
// Where a function is offered, and whether two can be offered at once.
#pragma once

#include <QtGlobal>
#include <compare>

namespace menuconfig {

/// The contexts of a function as FilterByContextId reads them. A program is in one context group,
/// one sub-context and one mode of the mask at a time, or in no group, or no sub-context.
struct Contexts
{
    static constexpr quint32 kAny = 0x1FFFF; ///< all sixteen, and the lack of them
    quint32 groups = kAny;
    quint32 subs = kAny;
    quint32 modes = 0xFFFFFFFF;

    [[nodiscard]] static constexpr Contexts of(int contextId, int contextMask)
    {
        const auto id = static_cast<quint32>(contextId);
        const quint32 groups = id >> 16;
        const quint32 subs = id & 0xFFFF;
        return {groups == 0 ? kAny : groups, subs == 0 ? kAny : subs,
                static_cast<quint32>(contextMask)};
    }
    /// Whether there is a context in which both are offered.
    [[nodiscard]] constexpr bool meets(const Contexts &other) const
    {
        return (groups & other.groups) != 0 && (subs & other.subs) != 0 &&
               (modes & other.modes) != 0;
    }
    /// Whether all of its contexts are among those of the other.
    [[nodiscard]] constexpr bool isWithin(const Contexts &other) const
    {
        return (groups & ~other.groups) == 0 && (subs & ~other.subs) == 0 &&
               (modes & ~other.modes) == 0;
    }
    friend constexpr auto operator<=>(const Contexts &, const Contexts &) = default;
};

} // namespace menuconfig
