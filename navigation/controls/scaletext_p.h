// SPDX-License-Identifier: GPL-2.0-or-later
// Scales, lengths and angles as people write them, and the lengths of a scale bar.
#pragma once

#include <QLocale>
#include <QString>
#include <optional>

namespace navcontrols {

/// The denominator of a map scale: "1:5000", "5000", "1 : 5.000", "2:1" (which is 0.5). A point, a
/// comma, an apostrophe or a blank before groups of three digits separates thousands; another point
/// or comma is the decimal one. From 0.001 to 1e9; nothing else counts.
[[nodiscard]] std::optional<double> parseScale(QStringView text);
/// "1 : 5,000"; three digits that tell something at least, no more than one behind the point.
[[nodiscard]] QString scaleText(double scale, const QLocale &locale);

/// Metres: "500", "500 m", "1.5 km", in the locale's digits or with a point. Above 0, up to 1e9.
[[nodiscard]] std::optional<double> parseLength(QStringView text, const QLocale &locale);
/// "500 m", "12.3 km"; whole metres up to 9,999, three digits that tell something.
[[nodiscard]] QString lengthText(double metres, const QLocale &locale);

/// A number, behind which @p unit may stand. Finite.
[[nodiscard]] std::optional<double> parseQuantity(QStringView text, QStringView unit,
                                                  const QLocale &locale);

/// A length that is easy to reckon with.
struct ScaleBar
{
    double metres = 0; ///< 1, 2 or 5 times a power of ten
    double pixels = 0; ///< more than 2/5 of the room, and no more than it
};
/// @param metresPerPixel  above 0, else there is no bar
/// @param room            pixels, above 0
[[nodiscard]] std::optional<ScaleBar> scaleBar(double metresPerPixel, double room);
/// "500 m", "2 km": kilometres as soon as there is a whole one.
[[nodiscard]] QString scaleBarText(double metres, const QLocale &locale);

} // namespace navcontrols
