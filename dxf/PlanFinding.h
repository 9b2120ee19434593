// SPDX-License-Identifier: GPL-2.0-or-later
// Something about a plan that its user should know.
#pragma once

#include <QString>

struct PlanFinding
{
    enum class Severity { Note, Warning };
    Severity severity = Severity::Warning;
    QString file;
    qint64 line = 0; ///< counted from 1; 0 when it concerns the file as a whole, or this is binary
    qint64 offset = 0; ///< byte at which its cause begins in a binary file, which has no lines
    QString subject;   ///< the block or the sheet number concerned; empty when there is none
    QString text;      ///< one sentence for the user, without file and line
    friend bool operator==(const PlanFinding &, const PlanFinding &) = default;
};
