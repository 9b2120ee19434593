// SPDX-License-Identifier: GPL-2.0-or-later
// What changed between two exports of a plan.
#pragma once

#include <kelo_base/core/Export.h>
#include <kelo_base/dxf/Gk2Reader.h>
#include <limits>
#include <span>
#include <vector>

/// One difference between an older and a newer list of sheets.
struct SheetChange
{
    enum class Kind {
        New,    ///< no older sheet has its number
        Gone,   ///< no newer sheet has its number
        Moved,  ///< the number is still there, but not the place
        Renamed ///< the place is still there, but not the number
    };
    static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

    Kind kind = Kind::New;
    std::size_t older = kNone; ///< index of the older sheet; kNone when it is new
    std::size_t newer = kNone; ///< index of the newer sheet; kNone when it is gone
    /// Of a moved sheet, how far the corner went that went farthest, in units of the drawing;
    /// infinite when it has more or fewer corners than before.
    double distance = 0;
    friend bool operator==(const SheetChange &, const SheetChange &) = default;
};

/// Half of the last decimal that is written: any other place is told.
inline constexpr double kDefaultTolerance = 0.005;

/// Sheets are the same by their number, byte for byte; where several have one number, first those
/// that lie where they lay, then in order. One that is gone and one that is new are one renamed
/// sheet when their corners, and no others' among these, are the same.
/// @param tolerance  a sheet whose corners went no farther than that has not moved; 0 or more
/// @return in the order of the newer sheets, then those that are gone
[[nodiscard]] KELO_BASE_EXPORT std::vector<SheetChange>
CompareSheets(std::span<const Gk2Record> older, std::span<const Gk2Record> newer,
              double tolerance = kDefaultTolerance);
