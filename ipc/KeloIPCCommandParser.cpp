// SPDX-License-Identifier: GPL-2.0-or-later
// Turns what the partner program wrote into a record.
#include <kelo_base/ipc/KeloIPCCommandParser.h>

#include "ipc/channel_p.h"

#include <cmath>
#include <kelo_base/ipc/KeloCommandData.h>

using namespace Qt::Literals::StringLiterals;

namespace {

double finiteNumber(QStringView text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber); // in the C locale
    return isNumber && std::isfinite(number) ? number : 0.0;
}

void takeParameter(QStringView key, QStringView value, KeloCommandData &out)
{
    if (key == channel::kObjectId)
        out.objectId = value.toString();
    else if (key == "X"_L1)
        out.x = finiteNumber(value);
    else if (key == "Y"_L1)
        out.y = finiteNumber(value);
    else if (key == channel::kNorthDeviation)
        out.northDeviationInDegrees = finiteNumber(value);
    else if (key == channel::kViewingHeight)
        out.viewingHeight = finiteNumber(value);
    else if (key == channel::kBringToFront)
        out.bringToFront = true; // whatever the value, on purpose: "BringToFront:0" sets it as well
}

} // namespace

void KeloIPCCommandParser::ProcessCommandString(const QString &name,
                                                const QStringList &parameterLines,
                                                KeloCommandData &out) const
{
    if (name == "GotoCoordinates"_L1) {
        out.commandType = kGotoCoordinates;
        ParseParameterBlock(parameterLines, out);
    } else if (name == "FindDocumentsForObject"_L1) {
        out.commandType = kFindDocumentsForObject;
        ParseParameterBlock(parameterLines, out);
    } else if (name == channel::kTestCommandName) {
        out.commandType = kTestCommand;
    }
}

void KeloIPCCommandParser::ProcessCommand(int number, KeloCommandData &out) const
{
    out.commandType = number;
}

void KeloIPCCommandParser::ParseParameterBlock(const QStringList &parameterLines,
                                               KeloCommandData &out) const
{
    for (const QString &line : parameterLines) {
        const qsizetype separator = line.indexOf(channel::kKeyValueSeparator);
        const bool hasTwoParts =
            separator >= 0 && separator == line.lastIndexOf(channel::kKeyValueSeparator);
        if (hasTwoParts)
            takeParameter(QStringView(line).first(separator),
                          QStringView(line).sliced(separator + 1), out);
    }
}
