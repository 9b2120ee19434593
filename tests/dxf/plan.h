// SPDX-License-Identifier: GPL-2.0-or-later
// Makes drawings for tests in few words.
#pragma once

#include "dxf/read/drawingbuilder_p.h"
#include <initializer_list>
#include <numeric>
#include <utility>

using Points = std::vector<DxfVertex>;
using Attributes = std::initializer_list<std::pair<std::string_view, std::string_view>>;

/// A frame of 3 x 2 that stands upright, from its lower left corner counter-clockwise.
inline const Points kFrame{{0, 0}, {3, 0}, {3, 2}, {0, 2}};

/// Adds a block; its polylines are closed by their flag.
inline void addBlock(DxfDrawingBuilder &plan, std::string_view name,
                     const std::vector<Points> &polylines, quint32 line = 0)
{
    plan.beginBlock(name, line);
    for (const Points &polyline : polylines) {
        plan.beginPolyline(true);
        for (const DxfVertex &vertex : polyline)
            plan.addVertex(vertex);
        plan.endPolyline();
    }
    plan.endBlock();
}

inline void addInsert(DxfDrawingBuilder &plan, std::string_view block, Attributes attributes,
                      quint32 line = 0)
{
    plan.beginInsert(block, line);
    for (const auto &[tag, value] : attributes)
        plan.addAttribute(tag, value);
    plan.endInsert();
}

/// All inserts of a drawing in file order.
inline std::vector<quint32> allInserts(const DxfDrawing &drawing)
{
    std::vector<quint32> all(drawing.Inserts().size());
    std::iota(all.begin(), all.end(), 0U);
    return all;
}
