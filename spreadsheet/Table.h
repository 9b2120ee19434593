// SPDX-License-Identifier: GPL-2.0-or-later
// What a table in a spreadsheet file consists of: values only.
#pragma once

#include <kelo_base/core/Export.h>

#include <QDateTime>
#include <QList>
#include <QString>
#include <variant>

namespace spreadsheet {

enum class ColumnType { Text, Integer, Number, Date, Time, DateTime, Boolean, Link };

/// A column and how its cells look. A cell is always written as what it is; see TableWriter.
struct Column
{
    QString title = {};
    ColumnType type = ColumnType::Text;
    int decimals = 2; ///< of a Number, 0 ... 30
    double width = 0; ///< in characters of the default font; 0: from the content
    /// A number format in the notation of spreadsheet files ("0.0%"); empty: that of the type.
    QString format = {};

    friend bool operator==(const Column &, const Column &) = default;
};

struct Sheet
{
    /// Made legal where it is not (31 characters, none of []:*?/\); empty: "Sheet", translated.
    QString name;
    QList<Column> columns;
    bool hasHeader = true;      ///< the titles as first row
    bool isHeaderFrozen = true; ///< it stays when one scrolls
    bool hasFilter = true;      ///< buttons in it choose rows
    bool repeatsHeader = true;  ///< it stands on every printed page

    friend bool operator==(const Sheet &, const Sheet &) = default;
};

/// Of the document as a whole; plain files (CSV) have none.
struct Properties
{
    QString title;
    QString subject;
    QString author;
    QString company;
    QString keywords;
    QString comments;

    friend bool operator==(const Properties &, const Properties &) = default;
};

struct Link
{
    QString target; ///< an URL or a path
    QString text;   ///< what is shown; empty: the target

    friend bool operator==(const Link &, const Link &) = default;
};

/// Empty, or a value. Dates with time are written as their own clock shows them: spreadsheets know
/// no zones.
using Cell =
    std::variant<std::monostate, QString, qint64, double, bool, QDate, QTime, QDateTime, Link>;

/// What could not be written as it was given. Nothing of the kind happens without being counted.
enum class FindingKind {
    TextCut,          ///< more than 32,767 characters
    TextMended,       ///< characters that no file can hold, replaced
    TextGuarded,      ///< CSV: a text that programs would take for a formula, after an apostrophe
    LinkAsText,       ///< beyond 65,530 links in a sheet, or longer than 2,079 characters
    LongNumberAsText, ///< an integer of more than 15 digits
    NumberLeftOut,    ///< infinite or not a number: the cell is empty
    DateAsText,       ///< before 1900 or after 9999
    SheetContinued,   ///< beyond the last row that a sheet can have: the next sheet goes on
    SheetRenamed,     ///< its name was not allowed, or taken
    ColumnsLeftOut,   ///< beyond 16,384
};

struct Finding
{
    FindingKind kind;
    qint64 count = 0;
    QString first; ///< where it happened first: "Sheet!B7", or the name of the sheet

    friend bool operator==(const Finding &, const Finding &) = default;
};

/// The finding as a sentence for people.
[[nodiscard]] KELO_BASE_EXPORT QString Sentence(const Finding &finding);

} // namespace spreadsheet
