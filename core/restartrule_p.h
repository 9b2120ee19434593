// SPDX-License-Identifier: GPL-2.0-or-later
// When a server that crashed is started again.
#pragma once

#include <chrono>
#include <deque>
#include <optional>

/// Pauses of 1, 2, 4 ... 60 s before one start after the other; none after five crashes within ten
/// minutes. A run of ten minutes makes the next pause 1 s again.
class RestartRule
{
public:
    using Time = std::chrono::milliseconds; ///< on a steady clock, from any origin

    static constexpr std::size_t kMostCrashes = 5;
    static constexpr Time kPeriod = std::chrono::minutes(10);
    static constexpr Time kLongestPause = std::chrono::seconds(60);

    /// Takes down a crash of the server that was started at @p started.
    /// @return how long to wait before the next start; nothing when there is to be none
    [[nodiscard]] std::optional<Time> crashed(Time started, Time now)
    {
        if (now - started >= kPeriod)
            m_pause = kFirstPause;
        m_crashes.push_back(now);
        while (now - m_crashes.front() > kPeriod)
            m_crashes.pop_front();
        if (m_crashes.size() >= kMostCrashes)
            return std::nullopt;
        const Time pause = m_pause;
        m_pause = std::min(2 * m_pause, kLongestPause);
        return pause;
    }

private:
    static constexpr Time kFirstPause = std::chrono::seconds(1);

    std::deque<Time> m_crashes; ///< those of the last ten minutes
    Time m_pause = kFirstPause;
};
