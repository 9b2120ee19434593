// SPDX-License-Identifier: GPL-2.0-or-later
// What the program says: one line for each fault, tables, JSON.
#pragma once

#include "conversion.h"
#include <QString>

class StandardOutput;

/// "dxf2gk2: PLAN: line N: what was wrong", without what is empty or 0, in one line whatever the
/// texts hold. What stands before the text is the same in every language, "warning:" too: scripts
/// look for it.
QString faultLine(const QString &plan, qint64 line, const QString &what);
QString warningLine(const QString &plan, const PlanFinding &diagnostic);
/// "PLAN: 12 sheets written to FILE, 1 skipped, 2 warnings"
QString summaryLine(const Conversion &conversion);
/// "PLAN compared with OLD: 1 new, 2 moved"
QString comparisonLine(const Conversion &conversion, const Options &options);
/// "12 sheets written to FILE"; only counted when they were not written.
QString sheetsText(const Conversion &conversion);

/// The sheets as a table: number, value, block and corners.
void printSheets(StandardOutput &out, const Conversion &conversion);
/// The attribute tags as a table, most used first.
void printTags(StandardOutput &out, const Conversion &conversion);

/// What --compare found as a table; nothing when there is no change.
void printChanges(StandardOutput &out, const Conversion &conversion);

/// One plan as a JSON object; with the lists that the options ask for.
void printJson(StandardOutput &out, const Conversion &conversion, const Options &options);
/// A failure that concerns no plan, as the one JSON object printed.
QByteArray jsonFailure(const QString &message);
