// SPDX-License-Identifier: GPL-2.0-or-later
// Names under which the plan dialog keeps its things in settings files.
#pragma once

#include <QLatin1StringView>

namespace dxftools {
inline constexpr QLatin1StringView kDialogGeometry{"DxfToolsDialog/Dialog_Geometry"};
inline constexpr QLatin1StringView kLastUsedFile{"DxfToolsDialog/LastUsedFile"};
inline constexpr QLatin1StringView kRecentFiles{"DxfToolsDialog/RecentFiles"};
} // namespace dxftools
