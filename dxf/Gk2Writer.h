// SPDX-License-Identifier: GPL-2.0-or-later
// Writes sheets as GK2, the text format in which sheet corners go to other programs.
#pragma once

#include <QString>
#include <kelo_base/core/Export.h>
#include <kelo_base/dxf/DxfDrawing.h>
#include <kelo_base/dxf/SheetSelection.h>
#include <span>
#include <string>

class QIODevice;

struct [[nodiscard]] Gk2Result
{
    qint64 written = 0;     ///< records formatted
    bool stored = true;     ///< false when the device failed; its errorString() tells why
    bool cancelled = false; ///< the caller's progress function said so; the output is incomplete
    explicit operator bool() const { return stored && !cancelled; }
};

/// Writes the header and a record for each sheet, in the order given. Inserts without block,
/// polyline, sheet number or export mark are skipped. Stops at the first failure.
/// @param device  open for writing; gets few large blocks, so it need not buffer
KELO_BASE_EXPORT Gk2Result WriteGk2(QIODevice &device, const DxfDrawing &drawing,
                                    std::span<const quint32> sheets,
                                    const PlanProgress &progress = {});

/// Replaces the file's contents by the sheets. Failures are neither tested nor reported: the result
/// counts records formatted, not bytes stored. Use WriteGk2() where the user has to be told.
KELO_BASE_EXPORT qint64 ExportGk2File(const QString &path, const DxfDrawing &drawing,
                                      std::span<const quint32> sheets);

/// Appends a coordinate as "%7.2lf" gives it in the C locale, but with a comma: two decimals, the
/// exact binary value rounded half to even, right-aligned in at least seven columns.
KELO_BASE_EXPORT void AppendGk2Coordinate(std::string &text, double coordinate);
