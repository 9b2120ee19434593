// SPDX-License-Identifier: GPL-2.0-or-later
// What a plan draws around its sheets, compact and found by place.
#pragma once

#include "Packs.h"
#include <QByteArray>
#include <span>

/// A piece of a straight line, in metres from its pack's origin.
struct BackdropLine
{
    float x1 = 0;
    float y1 = 0;
    float x2 = 0;
    float y2 = 0;
};

/// Lines that lie near each other. Small numbers from an origin of their own keep the places exact,
/// be the map's numbers as large as they may.
struct BackdropPack
{
    QPointF origin;
    MapBounds bounds;
    std::uint32_t first = 0;
    std::uint32_t count = 0;
};

/// Counter-clockwise from one angle to the other, in radians; a circle from 0 to 2 pi.
struct BackdropArc
{
    QPointF centre;
    double radius = 0;
    double begin = 0;
    double end = 0;
};

/// One line of text.
struct BackdropText
{
    QPointF position;        ///< of the point that the alignment speaks of
    double height = 0;       ///< of capitals, in metres
    double angle = 0;        ///< radians, counter-clockwise
    std::uint32_t first = 0; ///< of its bytes
    std::uint32_t size = 0;
    float alignX = 0; ///< 0 left, 0.5 middle, 1 right
    float alignY = 0; ///< 0 base line, 1 top of capitals
};

/// Grows while the plan is read: each batch of lines is packed by itself, so that what is there can
/// be drawn and found at any time.
class Backdrop
{
public:
    void addLine(QPointF from, QPointF to);
    void addArc(const BackdropArc &arc);
    /// @param text  as the plan has it
    void addText(BackdropText place, const QByteArray &text);
    /// Packs what was added last; nothing of it is seen before.
    void flush();
    /// Nothing more will come: gives memory back that was held ready.
    void finish();

    [[nodiscard]] const MapBounds &bounds() const { return m_bounds; }
    [[nodiscard]] std::size_t lineCount() const { return m_lines.size(); }
    [[nodiscard]] std::size_t count() const
    {
        return m_lines.size() + m_arcs.size() + m_texts.size();
    }
    [[nodiscard]] std::size_t bytes() const; ///< of memory

    [[nodiscard]] std::span<const BackdropPack> packs() const { return m_packs; }
    [[nodiscard]] std::span<const BackdropLine> lines(const BackdropPack &pack) const
    {
        return std::span(m_lines).subspan(pack.first, pack.count);
    }
    [[nodiscard]] std::span<const BackdropArc> arcs() const { return m_arcs; }
    [[nodiscard]] std::span<const BackdropText> texts() const { return m_texts; }
    [[nodiscard]] QByteArray text(const BackdropText &text) const
    {
        return m_bytes.mid(text.first, text.size);
    }

private:
    struct NewLine
    {
        QPointF from;
        QPointF to;
    };
    static constexpr std::size_t kBatch = 65'536;
    static constexpr std::size_t kPack = 256;
    void pack(std::span<const NewLine> lines);

    std::vector<NewLine> m_new; ///< not packed yet
    std::vector<BackdropLine> m_lines;
    std::vector<BackdropPack> m_packs;
    std::vector<BackdropArc> m_arcs;
    std::vector<BackdropText> m_texts;
    QByteArray m_bytes;
    MapBounds m_bounds; ///< of all that is packed
    MapBounds m_newBounds;
};
