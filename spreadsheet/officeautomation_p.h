// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: has the installed spreadsheet program read one workbook and write it anew, by automation
// alone. No Qt, so that it is compiled and tried wherever there is a Windows compiler.
#pragma once

#include <functional>
#include <string>

namespace officeautomation {

enum class Kind { Workbook, OpenDocument, Pdf };

struct Conversion
{
    std::wstring programId; ///< the name under which the program answers, "Excel.Application"
    std::wstring source;    ///< both with their folders
    std::wstring target;    ///< does not exist; ends in the suffix of its kind
    Kind kind = Kind::Workbook;
    int seconds = 60;
    /// Asked every few hundredths of a second, in this thread. A "no" waits until a program that is
    /// only starting has started, so that it can be ended.
    std::function<bool()> goesOn;
};

enum class Outcome {
    Written,
    Cancelled,
    NotInstalled,
    NotStarted, ///< description tells why
    TimedOut,
    Failed,         ///< description is the program's own
    NothingWritten, ///< though it said that all is well
};

struct [[nodiscard]] Result
{
    Outcome outcome = Outcome::Written;
    std::wstring description = {};
};

/// Whether a program answers to the name. Starts nothing.
[[nodiscard]] bool isInstalled(const std::wstring &programId);
/// The number of its current version, "16"; empty when it does not tell.
[[nodiscard]] std::wstring versionOf(const std::wstring &programId);

/// Starts a program of its own, which is gone afterwards whatever came of it; one that ran before
/// for the user is neither ended nor told to quit. Calls wait in this thread, which has to be a
/// single-threaded apartment or none yet; its message filter is replaced meanwhile.
Result convert(const Conversion &wanted);

} // namespace officeautomation
