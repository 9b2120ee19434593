// SPDX-License-Identifier: GPL-2.0-or-later
// What a file format must be able to take, after types and limits have been seen to.
#pragma once

#include <kelo_base/core/ReplacedFile.h>
#include <kelo_base/spreadsheet/TableWriter.h>

#include "spreadsheet/tablerules_p.h"

namespace spreadsheet {

/// What a format holds at most.
struct Limits
{
    qint64 rows = 0; ///< of a sheet, the header included
    qsizetype columns = 0;
    qsizetype characters = 0; ///< UTF-16 units of a text
    qint64 links = 0;         ///< of a sheet
    qsizetype linkCharacters = 0;
    bool hasTypes = true; ///< dates and long numbers are more than text
};

/// Cells come in order, each column of a row at most once; what is not put stays empty.
class Sink
{
public:
    virtual ~Sink() = default; ///< unfinished: nothing is left behind

    [[nodiscard]] virtual Limits limits() const = 0;
    /// @param sheet  with a legal name that is not taken
    virtual void beginSheet(const Sheet &sheet) = 0;
    virtual void putHeader(int column, const QString &title) = 0;
    virtual void putText(int column, const QString &text) = 0;
    virtual void putNumber(int column, double number) = 0;
    virtual void putInteger(int column, qint64 number) = 0;
    virtual void putBoolean(int column, bool value) = 0;
    virtual void putDate(int column, QDate date) = 0;
    virtual void putTime(int column, QTime time) = 0;
    virtual void putDateTime(int column, const QDateTime &time) = 0;
    virtual void putLink(int column, const Link &link) = 0;
    virtual void endRow() = 0;
    /// @param widths  of the sheet's columns in characters, for those that ask for it
    virtual void endSheet(const QList<double> &widths) = 0;
    /// Puts the file into its place. @return what went wrong; empty when nothing did
    [[nodiscard]] virtual QString finish(const std::function<bool()> &goesOn) = 0;
    /// Whether something went wrong on the way, so that going on makes no sense.
    [[nodiscard]] virtual bool hasFailed() const = 0;
};

[[nodiscard]] BackEndState libraryState();
[[nodiscard]] BackEndState automationState();

/// How a workbook spells what programs read differently.
struct WorkbookDialect
{
    DayCount dayCount = DayCount::OfFiles;
    /// False for LibreOffice, which makes formulas of booleans: numbers with a format that says so.
    bool hasBooleans = true;
};
[[nodiscard]] std::unique_ptr<Sink> makeXlsxSink(const Target &target,
                                                 WorkbookDialect dialect = {});
[[nodiscard]] std::unique_ptr<Sink> makeCsvSink(const Target &target);
[[nodiscard]] std::unique_ptr<Sink> makeAutomationSink(const Target &target);

/// Copies a finished file over @p target. @return what went wrong; empty when nothing did, and
/// when @p goesOn said no, which leaves the target as it was
[[nodiscard]] QString putInPlace(const QString &finished, const QString &target,
                                 const std::function<bool()> &goesOn);

/// "'FILE' cannot be written: WHY." for people.
[[nodiscard]] QString notWritten(const QString &file, const QString &why);
/// The same for what a file of ours says.
[[nodiscard]] QString notWritten(const QString &file, const FileFault &fault);

} // namespace spreadsheet
