// SPDX-License-Identifier: GPL-2.0-or-later
// Packs lines by place, a batch at a time.
#include "Backdrop.h"

#include <limits>
#include <utility>

namespace {

bool isFinite(QPointF point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

/// Lines of one order of length are packed together, lest a long one widens a pack of short ones.
std::uint64_t lengthClass(QPointF from, QPointF to, double whole)
{
    const double length = std::max(std::abs(to.x() - from.x()), std::abs(to.y() - from.y()));
    return length > whole / 16 ? 2 : length > whole / 256 ? 1 : 0;
}

} // namespace

void Backdrop::addLine(QPointF from, QPointF to)
{
    if (!isFinite(from) || !isFinite(to))
        return;
    m_new.push_back({from, to});
    m_newBounds.add(from);
    m_newBounds.add(to);
    if (m_new.size() == kBatch)
        flush();
}

void Backdrop::addArc(const BackdropArc &arc)
{
    if (!isFinite(arc.centre) || !std::isfinite(arc.radius) || !std::isfinite(arc.begin) ||
        !std::isfinite(arc.end) || arc.radius <= 0)
        return;
    m_arcs.push_back(arc);
    const QPointF reach(arc.radius, arc.radius);
    m_newBounds.add(arc.centre - reach);
    m_newBounds.add(arc.centre + reach);
}

void Backdrop::addText(BackdropText place, const QByteArray &text)
{
    constexpr auto kMost = std::numeric_limits<std::uint32_t>::max() / 2;
    const bool isSound = isFinite(place.position) && std::isfinite(place.angle) &&
                         std::isfinite(place.height) && place.height > 0;
    if (!isSound || text.isEmpty() || m_bytes.size() + text.size() > qsizetype{kMost})
        return;
    place.first = static_cast<std::uint32_t>(m_bytes.size());
    place.size = static_cast<std::uint32_t>(text.size());
    m_bytes += text;
    m_texts.push_back(place);
    m_newBounds.add(place.position);
}

void Backdrop::flush()
{
    pack(m_new);
    m_new.clear();
    m_new.shrink_to_fit();
    m_bounds.add(m_newBounds);
    m_newBounds = {};
}

void Backdrop::finish()
{
    flush();
    m_lines.shrink_to_fit();
    m_packs.shrink_to_fit();
    m_arcs.shrink_to_fit();
    m_texts.shrink_to_fit();
    m_bytes.squeeze();
}

void Backdrop::pack(std::span<const NewLine> lines)
{
    const double whole =
        std::max(m_newBounds.right - m_newBounds.left, m_newBounds.top - m_newBounds.bottom);
    std::vector<std::pair<std::uint64_t, std::uint32_t>> order;
    order.reserve(lines.size());
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
        const NewLine &line = lines[i];
        const std::uint64_t place = curvePlace((line.from + line.to) / 2, m_newBounds);
        order.emplace_back(lengthClass(line.from, line.to, whole) << 32 | place, i);
    }
    std::ranges::sort(order);
    for (std::size_t begin = 0; begin < order.size(); begin += kPack) {
        const auto batch = std::span(order).subspan(begin, std::min(kPack, order.size() - begin));
        BackdropPack pack;
        for (const auto &[place, i] : batch) {
            pack.bounds.add(lines[i].from);
            pack.bounds.add(lines[i].to);
        }
        pack.origin = pack.bounds.centre();
        pack.first = static_cast<std::uint32_t>(m_lines.size());
        pack.count = static_cast<std::uint32_t>(batch.size());
        for (const auto &[place, i] : batch) {
            const QPointF from = lines[i].from - pack.origin;
            const QPointF to = lines[i].to - pack.origin;
            m_lines.push_back({static_cast<float>(from.x()), static_cast<float>(from.y()),
                               static_cast<float>(to.x()), static_cast<float>(to.y())});
        }
        m_packs.push_back(pack);
    }
}

std::size_t Backdrop::bytes() const
{
    return m_new.capacity() * sizeof(NewLine) + m_lines.capacity() * sizeof(BackdropLine) +
           m_packs.capacity() * sizeof(BackdropPack) + m_arcs.capacity() * sizeof(BackdropArc) +
           m_texts.capacity() * sizeof(BackdropText) + static_cast<std::size_t>(m_bytes.capacity());
}
