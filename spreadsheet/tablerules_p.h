// SPDX-License-Identifier: GPL-2.0-or-later
// What spreadsheet files allow, and how values are spelled in them.
#pragma once

#include <kelo_base/spreadsheet/Table.h>

#include <QSet>
#include <optional>

namespace spreadsheet {

/// The name as it may stand in a workbook that has @p taken already (in lower case): forbidden
/// signs become "_", 31 UTF-16 units, unique in whatever case by a number at the end.
[[nodiscard]] QString legalSheetName(const QString &name, const QSet<QString> &taken);
/// The name of the sheet that goes on after @p name: "Sheet 2" after "Sheet", "Sheet 3" and so on.
[[nodiscard]] QString continuedName(const QString &name, int number);

/// "B7" for column 1, row 6; columns and rows are counted from 0.
[[nodiscard]] QString cellName(qint64 row, int column);

/// Whether programs that keep 15 digits would change it.
[[nodiscard]] constexpr bool isTooLong(qint64 number)
{
    constexpr qint64 kMost = 999'999'999'999'999;
    return number > kMost || number < -kMost;
}

enum class DayCount {
    OfFiles, ///< 1 is 1900-01-01, and 60 a day that never was, as in files of the first program
    True,    ///< the same from 1900-03-01 on, and one more before: how other programs read them
};

/// Days as spreadsheets count them; nothing before 1900-01-01 and after 9999-12-31.
[[nodiscard]] std::optional<double> serialOf(QDate date, DayCount count = DayCount::OfFiles);
/// Part of a day.
[[nodiscard]] double serialOf(QTime time);

/// @p text without what XML cannot hold: the replacement character instead of each. Nothing when
/// nothing had to be replaced.
[[nodiscard]] std::optional<QString> mended(const QString &text);

/// Cut to @p characters, no surrogate pair halved.
[[nodiscard]] QString cut(const QString &text, qsizetype characters);

/// Whether programs would take the text for a formula.
[[nodiscard]] bool looksLikeFormula(QStringView text);

/// ISO 8601, which sorts and reads everywhere; nothing for an invalid one.
[[nodiscard]] QString isoText(QDate date);
[[nodiscard]] QString isoText(QTime time);
[[nodiscard]] QString isoText(const QDateTime &time);

} // namespace spreadsheet
