// SPDX-License-Identifier: GPL-2.0-or-later
// How long a work will still take, told so that one can read it.
#pragma once

#include <QString>

/// Tells the time left of one work: seconds near the end, before that steps of five seconds and of
/// minutes. It does not rise because the estimate wavers.
class RemainingTime
{
public:
    /// @param elapsed      since the work began, in milliseconds
    /// @param done, total  amounts of the work; a total of 0 or less means that it is not known
    /// @return "about 12 s left"; empty in the first half second, and when there is no telling
    [[nodiscard]] QString Text(qint64 elapsed, qint64 done, qint64 total);

private:
    qint64 m_shown = 0; ///< seconds; 0 before anything was shown
};

namespace dxftools {

/// The seconds to show for a time left, at least 1, rounded up to a step of 1 below 10 seconds, of
/// 5 below a minute, of 60 above.
/// @param remaining  milliseconds
/// @param shown      the answer before, which stays while the time exceeds it by a tenth and half a
///                   second at most; 0 when there was none
[[nodiscard]] qint64 steadySeconds(qint64 remaining, qint64 shown);

} // namespace dxftools
