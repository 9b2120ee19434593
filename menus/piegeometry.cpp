// SPDX-License-Identifier: GPL-2.0-or-later
// Shares the ring out, finds sectors by direction, and places a menu on its screen.
#include "menus/piegeometry_p.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

/// The items' shares of the ring, with the odd cases settled: none negative, not all 0.
class Shares
{
public:
    explicit Shares(std::span<const int> weights) : m_weights(weights)
    {
        for (const int weight : weights)
            m_total += std::max(weight, 0);
        m_isEqual = m_total == 0;
        if (m_isEqual)
            m_total = static_cast<std::int64_t>(weights.size());
    }
    [[nodiscard]] std::int64_t of(std::size_t i) const
    {
        return m_isEqual ? 1 : std::max(m_weights[i], 0);
    }
    [[nodiscard]] double total() const { return static_cast<double>(m_total); }

private:
    std::span<const int> m_weights;
    std::int64_t m_total = 0;
    bool m_isEqual = false;
};

double raised(double angle)
{
    return angle < 0 ? angle + pie::kTurn : angle;
}

/// How far it is from the middle of a sector to a direction: above 0 counter-clockwise.
double turnTo(std::span<const double> borders, int sector, double direction)
{
    return std::remainder(direction - pie::middleOf(borders, sector), pie::kTurn);
}

int nearestTo(std::span<const double> borders, const std::vector<bool> &open, double direction)
{
    int nearest = -1;
    for (int i = 0; i < static_cast<int>(open.size()); ++i) {
        const auto distance = [&](int sector) {
            return std::abs(turnTo(borders, sector, direction));
        };
        if (open[static_cast<std::size_t>(i)] &&
            (nearest < 0 || distance(i) < distance(nearest) - 1e-9)) // of two alike the first
            nearest = i;
    }
    return nearest;
}

} // namespace

namespace pie {

double radiusOf(double dx, double dy)
{
    return std::sqrt(dx * dx + dy * dy);
}

double angleOf(double dx, double dy)
{
    const double angle = std::acos(dx / radiusOf(dx, dy));
    return dy >= 0 ? kTurn - angle : angle; // level to the right: 2 pi, on purpose
}

std::vector<double> centredBorders(std::span<const int> weights)
{
    if (weights.empty())
        return {};
    const Shares shares(weights);
    const double first = static_cast<double>(shares.of(0)) / shares.total();
    const double start = raised(kTop - kTurn * first / 2);
    std::vector<double> borders{start};
    borders.reserve(weights.size() + 1);
    std::int64_t sum = 0; // whole numbers, so that the last border is a whole turn to the bit
    for (std::size_t i = 0; i < weights.size(); ++i) {
        sum += shares.of(i);
        borders.push_back(start + kTurn * (static_cast<double>(sum) / shares.total()));
    }
    return borders;
}

int sectorAt(std::span<const double> borders, double angle)
{
    if (borders.empty())
        return -1;
    if (angle < borders.front())
        angle += kTurn;
    if (!(angle >= borders.front() && angle <= borders.back())) // this way round also for NaN
        return -1;
    auto end = std::upper_bound(borders.begin(), borders.end(), angle);
    if (end == borders.end())
        end = std::lower_bound(borders.begin(), borders.end(), borders.back());
    return static_cast<int>(end - borders.begin()) - 1;
}

double middleOf(std::span<const double> borders, int sector)
{
    const auto i = static_cast<std::size_t>(sector);
    return (borders[i] + borders[i + 1]) / 2;
}

double borderAngle(std::span<const int> weights, int index, int count, bool middle)
{
    count = std::max(count, 1);
    index = index % count + (index % count < 0 ? count : 0);
    const Shares shares(weights);
    const double unit = kTurn / (weights.empty() ? count : shares.total());
    const auto first = static_cast<double>(weights.empty() ? 1 : shares.of(0));
    const double start = middle ? raised(kTop - first * unit / 2) : kTop;
    const std::size_t known = std::min(static_cast<std::size_t>(index), weights.size());
    std::int64_t before = index - static_cast<int>(known);
    for (std::size_t i = 0; i < known; ++i)
        before += shares.of(i);
    return std::fmod(start + static_cast<double>(before) * unit, kTurn);
}

QPoint placeOnScreen(QPoint centre, QSize size, const QRect &screen)
{
    const auto place = [](int middle, int length, int first, int last) {
        const int start = std::max(middle - length / 2, first); // cut, where QSize / 2 would round
        return std::min(start, last + 1 - length);
    };
    return {place(centre.x(), size.width(), screen.left(), screen.right()),
            place(centre.y(), size.height(), screen.top(), screen.bottom())};
}

int stepTowards(std::span<const double> borders, const std::vector<bool> &open, int current,
                double direction)
{
    const int count = static_cast<int>(open.size());
    if (current < 0 || current >= count)
        return nearestTo(borders, open, direction);
    const double turn = turnTo(borders, current, direction);
    const double across = std::numbers::pi - (borders[static_cast<std::size_t>(current) + 1] -
                                              borders[static_cast<std::size_t>(current)]) /
                                                 2;
    if (std::abs(turn) > across) // the current item is the one on the opposite side
        return nearestTo(borders, open, direction);
    const int step = turn > 0 ? 1 : count - 1;
    for (int i = (current + step) % count; i != current; i = (i + step) % count) {
        if (std::abs(turnTo(borders, i, direction)) > std::abs(turn) - 1e-9)
            break; // past the direction
        if (open[static_cast<std::size_t>(i)])
            return i;
    }
    return current;
}

int stepAlong(const std::vector<bool> &open, int current, int step)
{
    const int count = static_cast<int>(open.size());
    if (current < 0 || current >= count)
        current = step > 0 ? -1 : count;
    for (int i = 0; i < count; ++i) {
        current = (current + step + count) % count;
        if (open[static_cast<std::size_t>(current)])
            return current;
    }
    return -1;
}

} // namespace pie
