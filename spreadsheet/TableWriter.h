// SPDX-License-Identifier: GPL-2.0-or-later
// Writes tables to spreadsheet files, row after row, through whichever back end can.
#pragma once

#include <kelo_base/core/Export.h>
#include <kelo_base/spreadsheet/Table.h>

#include <functional>
#include <memory>
#include <span>

class QAbstractItemModel;

namespace spreadsheet {

enum class Format { Xlsx, Ods, Pdf, Csv };

/// By the suffix of the file's name (.xlsx, .ods, .pdf, .csv), in whatever case; nothing for
/// others.
[[nodiscard]] KELO_BASE_EXPORT std::optional<Format> FormatOf(const QString &file);

/// The ways to a file. They differ in the formats they can write and in what they need.
enum class BackEnd {
    Library,    ///< the writing library: .xlsx
    Automation, ///< the spreadsheet program that is installed: .xlsx, .ods, .pdf
    Plain,      ///< no program needed: .csv
};

struct BackEndState
{
    BackEnd backEnd = BackEnd::Plain;
    QList<Format> formats; ///< empty when it cannot be used here
    QString sentence;      ///< what it is, with its version, or why it cannot be used; for people
};

/// All back ends, the first choice first. Looks for programs, and starts none.
[[nodiscard]] KELO_BASE_EXPORT QList<BackEndState> BackEnds();

/// How CSV is spelled.
struct CsvStyle
{
    char separator = ',';
    char decimalPoint = '.';
    bool hasByteOrderMark = false;
    bool isGuarded = false; ///< texts that begin with = + - @ get an apostrophe before them

    /// RFC 4180 in UTF-8, with points: for programs.
    [[nodiscard]] static CsvStyle Plain() { return {}; }
    /// As this machine's spreadsheet program expects it: byte-order mark, the separator and the
    /// decimal sign of the locale, and texts guarded.
    [[nodiscard]] KELO_BASE_EXPORT static CsvStyle ForThisMachine();

    friend bool operator==(const CsvStyle &, const CsvStyle &) = default;
};

struct Target
{
    QString file;
    Format format = Format::Xlsx;
    std::optional<BackEnd> backEnd; ///< nothing: the first that can write the format
    Properties properties;
    CsvStyle csv = CsvStyle::Plain();
    /// Asked at least ten times a second, with the number of rows so far; false cancels.
    std::function<bool(qint64 rows)> goesOn;
};

struct [[nodiscard]] Result
{
    QString error; ///< a sentence that names the file; empty when it was written
    bool isCancelled = false;
    qint64 rows = 0;
    QList<Finding> findings; ///< one of each kind at most

    explicit operator bool() const { return error.isEmpty() && !isCancelled; }
};

class Sink;

/// Writes one file: any number of sheets, one after the other, each row by row.
///
/// A cell is written as what it is, whatever the column says of it: a text "007" stays a text, and
/// the type of the column chooses the format and what becomes of an empty variant. The file appears
/// whole, in place of an older one, when Finish() succeeds; until then, and after a failure or a
/// cancel, the older one is as it was and nothing lies beside it.
///
/// For one thread at a time, any of them.
class KELO_BASE_EXPORT TableWriter
{
public:
    explicit TableWriter(Target target);
    ~TableWriter(); ///< unfinished: as if cancelled
    TableWriter(const TableWriter &) = delete;
    TableWriter &operator=(const TableWriter &) = delete;

    /// Begins the first or the next sheet. False once something went wrong; Finish() then says
    /// what.
    bool BeginSheet(const Sheet &sheet);
    /// The next row of the sheet; cells beyond its columns are ignored, missing ones empty. False
    /// once something went wrong, or the user cancelled.
    bool AddRow(std::span<const Cell> cells);
    /// Puts the file in its place.
    Result Finish();

private:
    class Work;
    std::unique_ptr<Work> m_work;
};

/// What ExportModel() takes of a model.
struct ModelChoice
{
    QString sheetName;
    int role = Qt::DisplayRole;    ///< of the cells; titles are the header's texts
    QList<int> hiddenColumns;      ///< left out
    QList<ColumnType> columnTypes; ///< of the columns that remain; missing: from the first rows
};

/// Writes a table model (its top level) in one call.
KELO_BASE_EXPORT Result ExportModel(const QAbstractItemModel &model, const ModelChoice &choice,
                                    Target target);

} // namespace spreadsheet
