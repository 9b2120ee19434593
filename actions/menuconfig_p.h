// SPDX-License-Identifier: GPL-2.0-or-later
// Names in the users' menu configuration: a format, never translated and never changed.
#pragma once

#include <QLatin1StringView>

namespace menuconfig {

inline constexpr QLatin1StringView kConfigGroup{"MenuConfig"};
inline constexpr QLatin1StringView kDefaultConfigName{"Default"};

inline constexpr QLatin1StringView kShortcutsGroup{"KeyboardShortcuts"};
inline constexpr QLatin1StringView kShortcutsArray{"ShortcutList"};
inline constexpr QLatin1StringView kClearedArray{"ClearedList"};
inline constexpr QLatin1StringView kLayoutGroup{"ContextMenuLayout"};
inline constexpr QLatin1StringView kMenusArray{"Menus"};
inline constexpr QLatin1StringView kActionIdKey{"ActionId"};
inline constexpr QLatin1StringView kKeySequenceKey{"KeySequence"};

/// A context menu that claims more slots is damaged.
inline constexpr int kMostSlots = 1000;

} // namespace menuconfig
