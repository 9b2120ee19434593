// SPDX-License-Identifier: GPL-2.0-or-later
// Counts the records of a GK2 file without writing one.
#pragma once

#include <kelo_base/dxf/DxfDrawing.h>
#include <span>

/// What WriteGk2() counts when nothing hinders it.
qint64 CountGk2Records(const DxfDrawing &drawing, std::span<const quint32> sheets);
