// SPDX-License-Identifier: GPL-2.0-or-later
// Turns what the partner program wrote into a record.
#pragma once

#include <kelo_base/core/Export.h>

#include <QString>
#include <QStringList>

struct KeloCommandData;

/// Knows no files and keeps nothing between calls. Reports no errors: what it cannot read leaves
/// the record as it is.
class KELO_BASE_EXPORT KeloIPCCommandParser
{
public:
    /// Sets the type of @p out and, for "GotoCoordinates" and "FindDocumentsForObject", what the
    /// lines say; "TestCommand" takes no parameters. An unknown name changes nothing. Names and
    /// keys are compared with regard to case.
    /// @param parameterLines  each "Key:value"; lines with fewer or more colons and unknown keys
    /// are
    ///                        skipped, the later of two equal keys wins, and what is no finite
    ///                        number counts as 0. "BringToFront" sets the flag whatever its value.
    void ProcessCommandString(const QString &name, const QStringList &parameterLines,
                              KeloCommandData &out) const;
    /// Sets the type of @p out to @p number, and nothing else.
    void ProcessCommand(int number, KeloCommandData &out) const;

private:
    void ParseParameterBlock(const QStringList &parameterLines, KeloCommandData &out) const;
};
