// SPDX-License-Identifier: GPL-2.0-or-later
// Names under which the plan dialog keeps its things in settings files.
#pragma once

#include <QLatin1StringView>

namespace dxftools {

inline constexpr QLatin1StringView kDialogGeometry{"DxfToolsDialog/Dialog_Geometry"};
inline constexpr QLatin1StringView kLastUsedFile{"DxfToolsDialog/LastUsedFile"};
/// Of the frame: the geometry has only that of its inside for sure.
inline constexpr QLatin1StringView kPosition{"DxfToolsDialog/Position"};
/// How the room is divided: steps and results, picture and findings; widths of the list's columns.
inline constexpr QLatin1StringView kSides{"DxfToolsDialog/Sides"};
inline constexpr QLatin1StringView kResults{"DxfToolsDialog/Results"};
inline constexpr QLatin1StringView kColumns{"DxfToolsDialog/Columns"};
inline constexpr QLatin1StringView kSortColumn{"DxfToolsDialog/SortColumn"}; ///< -1: none
inline constexpr QLatin1StringView kSortsDown{"DxfToolsDialog/SortsDown"};
inline constexpr QLatin1StringView kTolerance{"DxfToolsDialog/Tolerance"}; ///< units of the plan
inline constexpr QLatin1StringView kRecentFiles{"DxfToolsDialog/RecentFiles"};

} // namespace dxftools
