// SPDX-License-Identifier: GPL-2.0-or-later
// What a GK2 file would hold, without writing one.
#pragma once

#include <kelo_base/dxf/DxfDrawing.h>
#include <span>

namespace dxftools {

/// What WriteGk2() counts when nothing hinders it.
[[nodiscard]] qint64 countGk2Records(const DxfDrawing &drawing, std::span<const quint32> sheets);
/// Whether that is more than none; looks no further than to the first.
[[nodiscard]] bool hasGk2Records(const DxfDrawing &drawing, std::span<const quint32> sheets);

} // namespace dxftools
