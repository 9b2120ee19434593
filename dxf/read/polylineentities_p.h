// SPDX-License-Identifier: GPL-2.0-or-later
// Polylines of a block on their way through the gate, of the old kind and of the new.
#pragma once

#include "dxf/read/gatecontext_p.h"

/// Flags of a polyline or vertex; only the low bits mean anything.
class PolylineFlags
{
public:
    bool take(const DxfPair &pair, PairValues &values);
    [[nodiscard]] int value() const { return m_flags; }

private:
    int m_flags = 0;
};

/// A POLYLINE; its vertices are entities of their own behind it.
class PolylineHead
{
public:
    bool take(const DxfPair &pair, GateContext &context);
    bool end(GateContext &context) const;

private:
    PolylineFlags m_flags;
    Extrusion m_extrusion;
};

/// A VERTEX of a POLYLINE. Faces of a polyface mesh are no points.
class Vertex
{
public:
    bool take(const DxfPair &pair, GateContext &context);
    bool end(GateContext &context) const;

private:
    PolylineFlags m_flags;
    std::optional<double> m_x;
    std::optional<double> m_y;
};

/// A LWPOLYLINE, which holds its vertices itself: handed on as a POLYLINE with vertices.
class LwPolyline
{
public:
    bool take(const DxfPair &pair, GateContext &context);
    bool end(GateContext &context);

private:
    bool takeCount(const DxfPair &pair, PairValues &values);
    bool takeX(const DxfPair &pair, GateContext &context);
    bool takeY(const DxfPair &pair, GateContext &context);
    void giveHead(GateContext &context);
    [[nodiscard]] QString countFault() const;

    PolylineFlags m_flags;
    Extrusion m_extrusion;
    bool m_hasHead = false;    ///< the adapter was told of it
    std::optional<double> m_x; ///< of the vertex whose Y has not come yet
    qint64 m_vertices = 0;     ///< so far
    std::optional<qint64> m_announced;
};
