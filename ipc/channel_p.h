// SPDX-License-Identifier: GPL-2.0-or-later
// The fixed words of the command channel. Other programs read and write them: never change one.
#pragma once

#include <QLatin1StringView>

namespace channel {

// Keys of a command
inline constexpr QLatin1StringView kCommandTypeKey{"CommandType"};
inline constexpr QLatin1StringView kCommandIdKey{"CommandId"};
inline constexpr QLatin1StringView kParametersKey{"Parameters"};
inline constexpr QLatin1StringView kSenderKey{"Sender"};
inline constexpr QLatin1StringView kSerialNumberKey{"SerialNumber"};

// The command that has no parameters
inline constexpr QLatin1StringView kTestCommandName{"TestCommand"};

// Values of "CommandType"
inline constexpr QLatin1StringView kNamedCommand{"NamedCommand"};
inline constexpr QLatin1StringView kIntegerCommand{"IntegerCommand"};

// "Parameters" is a list of key and value
inline constexpr char16_t kParameterSeparator = u',';
inline constexpr char16_t kKeyValueSeparator = u':';

// Keys of parameters that go both ways
inline constexpr QLatin1StringView kBringToFront{"BringToFront"};
inline constexpr QLatin1StringView kNorthDeviation{"NorthDeviationInDegrees"};
inline constexpr QLatin1StringView kObjectId{"ObjectId"};
inline constexpr QLatin1StringView kViewingHeight{"ViewingHeight"};

// Files in the exchange directory
inline constexpr QLatin1StringView kIncomingFile{"kelo-in.txt"};
inline constexpr QLatin1StringView kIncomingAnswersFile{"kelo-in-answers.txt"};
inline constexpr QLatin1StringView kOutgoingFile{"kelo-out.txt"};
inline constexpr QLatin1StringView kOutgoingAnswersFile{"kelo-out-answers.txt"};
inline constexpr QLatin1StringView kTemporaryEnding{".new"};
inline constexpr QLatin1StringView kClaimedEnding{".claimed"};
inline constexpr QLatin1StringView kRejectedEnding{".rejected"};
inline constexpr QLatin1StringView kDataFilePrefix{"kelo-data-"};
inline constexpr QLatin1StringView kLockFile{"kelo-viewer.lock"};

inline constexpr QLatin1StringView kPartnerProgram{"dapex.exe"};

} // namespace channel
