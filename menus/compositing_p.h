// SPDX-License-Identifier: GPL-2.0-or-later
// Whether windows may have transparent pixels.
#pragma once

namespace pie {

/// True when the desktop blends windows with what is behind them. It does everywhere but on X11
/// without a compositing manager, where transparent pixels would show as black.
[[nodiscard]] bool compositesWindows();

} // namespace pie
