// SPDX-License-Identifier: GPL-2.0-or-later
// What changed between two exports of a plan.
#include <algorithm>
#include <cmath>
#include <kelo_base/dxf/SheetComparison.h>
#include <string>
#include <unordered_map>

namespace {

constexpr std::size_t kNone = SheetChange::kNone;
using Sheets = std::span<const Gk2Record>;
using KeyOf = std::string (*)(const Gk2Record &);

std::string numberKey(const Gk2Record &sheet)
{
    return sheet.number.toStdString();
}

/// The bytes of all coordinates: they are rounded alike, so that one place is one text.
std::string placeKey(const Gk2Record &sheet)
{
    const auto *bytes = reinterpret_cast<const char *>(sheet.corners.data());
    return {bytes, sheet.corners.size() * sizeof(DxfVertex)};
}

std::string wholeKey(const Gk2Record &sheet)
{
    return numberKey(sheet) + '\n' + placeKey(sheet); // a number has no line end
}

double distanceOf(const Gk2Record &older, const Gk2Record &newer)
{
    if (older.corners.size() != newer.corners.size())
        return std::numeric_limits<double>::infinity();
    double farthest = 0;
    for (std::size_t i = 0; i < older.corners.size(); ++i)
        farthest = std::max(farthest, std::hypot(newer.corners[i].x - older.corners[i].x,
                                                 newer.corners[i].y - older.corners[i].y));
    return farthest;
}

/// Which older sheet each newer one was.
class Pairing
{
public:
    Pairing(Sheets older, Sheets newer)
        : m_older(older), m_newer(newer), m_olderOf(newer.size(), kNone), m_isTaken(older.size())
    {
    }

    /// Pairs what is left and has one key, in order.
    void pairInOrder(KeyOf keyOf)
    {
        std::unordered_map<std::string, Queue> left = olderByKey(keyOf);
        for (std::size_t i = 0; i < m_newer.size(); ++i) {
            if (m_olderOf[i] != kNone)
                continue;
            const auto entry = left.find(keyOf(m_newer[i]));
            if (entry != left.end() && entry->second.next < entry->second.sheets.size())
                pair(entry->second.sheets[entry->second.next++], i);
        }
    }

    /// Pairs what is left and has one key, where that leaves no choice; gives the newer ones.
    std::vector<std::size_t> pairIfOnly(KeyOf keyOf)
    {
        const std::unordered_map<std::string, Queue> left = olderByKey(keyOf);
        std::unordered_map<std::string, std::vector<std::size_t>> candidates;
        for (std::size_t i = 0; i < m_newer.size(); ++i)
            if (m_olderOf[i] == kNone && !m_newer[i].corners.empty())
                candidates[keyOf(m_newer[i])].push_back(i);
        std::vector<std::size_t> paired;
        for (const auto &[key, newer] : candidates) {
            const auto entry = left.find(key);
            if (newer.size() != 1 || entry == left.end() || entry->second.sheets.size() != 1)
                continue;
            pair(entry->second.sheets.front(), newer.front());
            paired.push_back(newer.front());
        }
        return paired;
    }

    [[nodiscard]] std::size_t olderOf(std::size_t newer) const { return m_olderOf[newer]; }
    [[nodiscard]] bool isGone(std::size_t older) const { return !m_isTaken[older]; }

private:
    struct Queue
    {
        std::vector<std::size_t> sheets;
        std::size_t next = 0;
    };

    [[nodiscard]] std::unordered_map<std::string, Queue> olderByKey(KeyOf keyOf) const
    {
        std::unordered_map<std::string, Queue> left;
        for (std::size_t i = 0; i < m_older.size(); ++i)
            if (!m_isTaken[i])
                left[keyOf(m_older[i])].sheets.push_back(i);
        return left;
    }
    void pair(std::size_t older, std::size_t newer)
    {
        m_olderOf[newer] = older;
        m_isTaken[older] = true;
    }

    Sheets m_older;
    Sheets m_newer;
    std::vector<std::size_t> m_olderOf; ///< by newer sheet
    std::vector<bool> m_isTaken;        ///< by older sheet
};

} // namespace

std::vector<SheetChange> CompareSheets(Sheets older, Sheets newer, double tolerance)
{
    Pairing pairing(older, newer);
    pairing.pairInOrder(wholeKey);
    pairing.pairInOrder(numberKey);
    std::vector<bool> isRenamed(newer.size());
    for (const std::size_t i : pairing.pairIfOnly(placeKey))
        isRenamed[i] = true;

    using Kind = SheetChange::Kind;
    std::vector<SheetChange> changes;
    for (std::size_t i = 0; i < newer.size(); ++i) {
        const std::size_t before = pairing.olderOf(i);
        const double distance = before == kNone ? 0 : distanceOf(older[before], newer[i]);
        if (before == kNone)
            changes.push_back({Kind::New, kNone, i, 0});
        else if (isRenamed[i])
            changes.push_back({Kind::Renamed, before, i, 0});
        else if (distance > tolerance)
            changes.push_back({Kind::Moved, before, i, distance});
    }
    for (std::size_t i = 0; i < older.size(); ++i)
        if (pairing.isGone(i))
            changes.push_back({Kind::Gone, i, kNone, 0});
    return changes;
}
