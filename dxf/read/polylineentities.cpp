// SPDX-License-Identifier: GPL-2.0-or-later
// Polylines of a block on their way through the gate, of the old kind and of the new.
#include "dxf/read/polylineentities_p.h"
#include "dxf/read/readertext_p.h"

namespace {

constexpr int kClosed = 1;         ///< polyline flag
constexpr int kMeshVertex = 64;    ///< vertex flag
constexpr int kPolyfacePart = 128; ///< vertex flag; without kMeshVertex it is a face, no point

} // namespace

bool PolylineFlags::take(const DxfPair &pair, PairValues &values)
{
    const auto flags = values.integer(pair);
    m_flags = static_cast<int>(flags.value_or(0) & 0xFFFF);
    return flags.has_value();
}

bool PolylineHead::take(const DxfPair &pair, GateContext &context)
{
    if (pair.code == groupcode::kFlags)
        return m_flags.take(pair, context.values);
    m_extrusion.take(pair, context.values);
    return true;
}

bool PolylineHead::end(GateContext &context) const
{
    m_extrusion.giveTo(context.adapter);
    context.adapter.addPolyline({0, 0, 0, m_flags.value()});
    return true;
}

bool Vertex::take(const DxfPair &pair, GateContext &context)
{
    switch (pair.code) {
    case groupcode::kX:
        return (m_x = context.values.coordinate(pair)).has_value();
    case groupcode::kY:
        return (m_y = context.values.coordinate(pair)).has_value();
    case groupcode::kFlags:
        return m_flags.take(pair, context.values);
    default:
        return true;
    }
}

bool Vertex::end(GateContext &context) const
{
    const int flags = m_flags.value();
    const bool isFace = (flags & kPolyfacePart) != 0 && (flags & kMeshVertex) == 0;
    if (isFace)
        return true;
    if (!m_x || !m_y)
        return context.values.refuse(context.position, m_x ? ReaderText::tr("A vertex without Y")
                                                           : ReaderText::tr("A vertex without X"));
    context.adapter.addVertex({*m_x, *m_y});
    return true;
}

bool LwPolyline::take(const DxfPair &pair, GateContext &context)
{
    switch (pair.code) {
    case groupcode::kX:
        return takeX(pair, context);
    case groupcode::kY:
        return takeY(pair, context);
    case groupcode::kFlags:
        return m_flags.take(pair, context.values);
    case groupcode::kCount:
        return takeCount(pair, context.values);
    default:
        m_extrusion.take(pair, context.values);
        return true;
    }
}

bool LwPolyline::takeCount(const DxfPair &pair, PairValues &values)
{
    m_announced = values.integer(pair);
    if (!m_announced)
        return false;
    return *m_announced >= 0 ||
           values.refuse(pair.valuePosition,
                         ReaderText::tr("A polyline cannot have %1 vertices").arg(*m_announced));
}

bool LwPolyline::takeX(const DxfPair &pair, GateContext &context)
{
    if (m_x)
        return context.values.refuse(pair.position, ReaderText::tr("A vertex without Y"));
    giveHead(context);
    return (m_x = context.values.coordinate(pair)).has_value();
}

bool LwPolyline::takeY(const DxfPair &pair, GateContext &context)
{
    if (!m_x)
        return context.values.refuse(pair.position, ReaderText::tr("A vertex without X"));
    const auto y = context.values.coordinate(pair);
    if (!y)
        return false;
    context.adapter.addVertex({*m_x, *y});
    m_x.reset();
    ++m_vertices;
    return true;
}

void LwPolyline::giveHead(GateContext &context)
{
    if (m_hasHead)
        return;
    m_hasHead = true;
    m_extrusion.giveTo(context.adapter);
    context.adapter.addPolyline({0, 0, 0, m_flags.value()});
}

bool LwPolyline::end(GateContext &context)
{
    if (m_x)
        return context.values.refuse(context.position, ReaderText::tr("A vertex without Y"));
    if (m_announced && *m_announced != m_vertices)
        return context.values.refuse(context.position, countFault());
    giveHead(context);
    // Should flag or direction stand behind the vertices.
    m_extrusion.giveTo(context.adapter);
    context.adapter.completePolyline((m_flags.value() & kClosed) != 0);
    context.adapter.endEntity();
    return true;
}

QString LwPolyline::countFault() const
{
    return (m_announced == 1 ? ReaderText::tr("A polyline announces 1 vertex and has %1")
                             : ReaderText::tr("A polyline announces %1 vertices and has %2",
                                              nullptr, textAmount(*m_announced))
                                   .arg(*m_announced))
        .arg(m_vertices);
}
