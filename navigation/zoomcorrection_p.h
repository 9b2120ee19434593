// SPDX-License-Identifier: GPL-2.0-or-later
// The table of zoom-factor corrections: where it comes from, and what it says of a scale.
#pragma once

#include <QString>
#include <map>

namespace zoomcorrection {

/// Factors by map scale denominator; all scales finite.
using Table = std::map<double, int>;

/// "config/settings.ini" beside the running program; needs the application object.
[[nodiscard]] QString settingsFile();

/// The table of a settings file in INI format, which is empty when the file has none; the built-in
/// one when there is no such file. Elements without a finite scale or without a number as factor
/// are left out; of equal scales the last one counts.
[[nodiscard]] Table loadTable(const QString &file);

/// Interpolated between the entries around @p scale and cut toward zero; the smallest entry's
/// factor below it, -1 above the largest.
[[nodiscard]] int factorFor(const Table &table, double scale);

} // namespace zoomcorrection
