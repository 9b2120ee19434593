// SPDX-License-Identifier: GPL-2.0-or-later
// The spreadsheet program that is installed; one source per family of systems.
#pragma once

#include "spreadsheet/sink_p.h"

namespace spreadsheet {

struct OfficeProgram
{
    QString name;    ///< as people call it
    QString path;    ///< what is started; on Windows the name under which it answers
    QString version; ///< its first number, "7"; empty when it does not tell
    QString fault;   ///< why it cannot be used, a sentence for people; empty when it can
};

/// Looks for it, and starts nothing.
[[nodiscard]] OfficeProgram findOfficeProgram();

/// How a workbook has to be spelled for the program to make @p format of it.
[[nodiscard]] WorkbookDialect dialectFor(Format format);

/// Has the program read the workbook @p source and write it as @p target, which does not exist. It
/// is ended with all it started when it takes longer than @p seconds or @p goesOn says no.
/// @return why @p target was not written; empty when it was, and when it was cancelled
[[nodiscard]] QString convertTable(const OfficeProgram &program, const QString &source,
                                   const QString &target, Format format, int seconds,
                                   const std::function<bool()> &goesOn);

} // namespace spreadsheet
