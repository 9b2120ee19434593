// SPDX-License-Identifier: GPL-2.0-or-later
// A command received from the partner program.
#pragma once

#include <QString>

/// The names of the numbers in KeloCommandData::commandType. Any other number is an integer
/// command, taken over as it stands.
enum KeloCommandType : int {
    kGotoCoordinates = 1,
    kFindDocumentsForObject = 2,
    kTestCommand = 990,
    kNothingReceived = 999,
};

struct KeloCommandData
{
    int commandType = kNothingReceived;
    QString objectId;
    double x = 0.0; ///< map coordinates
    double y = 0.0;
    double northDeviationInDegrees = 0.0;
    double viewingHeight = 0.0;
    bool bringToFront = false;

    friend bool operator==(const KeloCommandData &, const KeloCommandData &) = default;
};
