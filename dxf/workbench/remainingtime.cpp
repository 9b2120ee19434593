// SPDX-License-Identifier: GPL-2.0-or-later
// How long a work will still take, told so that one can read it.
#include "dxf/workbench/remainingtime_p.h"
#include <QCoreApplication>
#include <algorithm>

namespace {

class TimeTexts
{
    Q_DECLARE_TR_FUNCTIONS(RemainingTime)

public:
    static QString seconds(int count)
    {
        return count == 1 ? tr("about 1 second left") : tr("about %n seconds left", nullptr, count);
    }
    static QString minutes(int count)
    {
        return count == 1 ? tr("about 1 minute left") : tr("about %n minutes left", nullptr, count);
    }
    static QString hours(int count)
    {
        return count == 1 ? tr("about 1 hour left") : tr("about %n hours left", nullptr, count);
    }
};

constexpr qint64 kMinute = 60;
constexpr qint64 kHour = 60 * kMinute;

qint64 stepBelow(qint64 seconds)
{
    if (seconds <= 10)
        return 1;
    return seconds <= kMinute ? 5 : kMinute;
}

qint64 roundedUp(qint64 value, qint64 step)
{
    return (value + step - 1) / step * step;
}

QString textOf(qint64 seconds)
{
    const auto in = [seconds](qint64 unit) {
        return static_cast<int>(roundedUp(seconds, unit) / unit);
    };
    if (seconds < kMinute)
        return TimeTexts::seconds(in(1));
    return seconds < 2 * kHour ? TimeTexts::minutes(in(kMinute)) : TimeTexts::hours(in(kHour));
}

} // namespace

qint64 dxftools::steadySeconds(qint64 remaining, qint64 shown)
{
    constexpr qint64 kSlack = 500;
    const qint64 seconds = std::max(roundedUp(remaining, 1000) / 1000, qint64{1});
    const qint64 fresh = roundedUp(seconds, stepBelow(seconds));
    const bool isBarelyLonger = fresh > shown && remaining <= shown * 1100 + kSlack;
    return isBarelyLonger ? shown : fresh;
}

QString RemainingTime::Text(qint64 elapsed, qint64 done, qint64 total)
{
    constexpr qint64 kTooEarly = 500;
    const bool isKnown = elapsed >= kTooEarly && done > 0 && total > done;
    if (!isKnown)
        return {};
    const double rest = static_cast<double>(total - done) / static_cast<double>(done);
    constexpr double kMost = 1e12; // 30 years, and fits everywhere
    const double remaining = std::min(static_cast<double>(elapsed) * rest, kMost);
    m_shown = dxftools::steadySeconds(static_cast<qint64>(remaining), m_shown);
    return textOf(m_shown);
}
