// SPDX-License-Identifier: GPL-2.0-or-later
// What a GK2 file would hold, without writing one.
#pragma once

#include <kelo_base/dxf/DxfDrawing.h>
#include <span>

/// What WriteGk2() counts when nothing hinders it.
[[nodiscard]] qint64 CountGk2Records(const DxfDrawing &drawing, std::span<const quint32> sheets);
/// Whether that is more than none; looks no further than to the first.
[[nodiscard]] bool HasGk2Records(const DxfDrawing &drawing, std::span<const quint32> sheets);
