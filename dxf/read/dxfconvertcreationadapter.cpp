// SPDX-License-Identifier: GPL-2.0-or-later
// Receives the DXF parser's callbacks and fills the drawing.
#include "dxf/read/dxfconvertcreationadapter_p.h"
#include "dxf/read/readertext_p.h"
#include "dxf/read/sheetnumber_p.h"
#include <algorithm>
#include <cmath>

namespace {

constexpr int kClosed = 1;        ///< polyline flag
constexpr int kSurface = 16 | 64; ///< polyline flags: polygon mesh, polyface mesh

/// Tells apart the planes that a flat drawing has. A direction that is one of them but for the last
/// digits is that one.
DxfPlacement::Plane planeOf(const DL_Extrusion &extrusion)
{
    constexpr double kSlack = 1e-6;
    double direction[3]{};
    extrusion.getDirection(direction);
    const auto [x, y, z] = direction;
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(z))
        return DxfPlacement::Plane::Unreadable;
    if (!(std::hypot(x, y) <= kSlack * std::abs(z)))
        return DxfPlacement::Plane::Tilted;
    return z < 0 ? DxfPlacement::Plane::Downwards : DxfPlacement::Plane::Upwards;
}

quint16 cells(int count)
{
    return static_cast<quint16>(std::clamp(count, 1, DxfPlacement::kMostCells));
}

DxfPlacement placementOf(const DL_InsertData &insert, DxfPlacement::Plane plane)
{
    const double sum = insert.ipx + insert.ipy + insert.sx + insert.sy + insert.angle +
                       insert.colSp + insert.rowSp;
    if (std::isnan(sum) || plane == DxfPlacement::Plane::Unreadable)
        return {.plane = DxfPlacement::Plane::Unreadable};
    return {.position = {insert.ipx, insert.ipy},
            .scaleX = insert.sx,
            .scaleY = insert.sy,
            .angle = insert.angle,
            .columnSpacing = insert.colSp,
            .rowSpacing = insert.rowSp,
            .columns = cells(insert.cols),
            .rows = cells(insert.rows),
            .plane = plane};
}

} // namespace

void DxfConvertCreationAdapter::addBlock(const DL_BlockData &block)
{
    const bool hasBasePoint = std::isfinite(block.bpx) && std::isfinite(block.bpy);
    const DxfVertex basePoint = hasBasePoint ? DxfVertex{block.bpx, block.bpy} : DxfVertex();
    if (!m_builder.beginBlock(block.name, storedPosition(), basePoint))
        report(PlanFinding::Severity::Warning, block.name,
               ReaderText::tr("Block '%1' is defined twice; the first definition holds")
                   .arg(m_builder.Drawing().DisplayText(block.name)));
}

void DxfConvertCreationAdapter::addPolyline(const DL_PolylineData &polyline)
{
    m_builder.endPolyline();
    if ((polyline.flags & kSurface) != 0)
        return;
    m_builder.beginPolyline((polyline.flags & kClosed) != 0);
    completePolyline(false);
}

void DxfConvertCreationAdapter::completePolyline(bool isClosed)
{
    if (isClosed)
        m_builder.closePolyline();
    if (plane() == DxfPlacement::Plane::Downwards)
        m_builder.mirrorPolyline();
}

DxfPlacement::Plane DxfConvertCreationAdapter::plane() const
{
    return planeOf(*extrusion);
}

void DxfConvertCreationAdapter::addVertex(const DL_VertexData &vertex)
{
    m_builder.addVertex({vertex.x, vertex.y});
}

void DxfConvertCreationAdapter::addInsert(const DL_InsertData &insert)
{
    m_builder.beginInsert(insert.name, storedPosition(), placementOf(insert, plane()));
}

void DxfConvertCreationAdapter::addAttribute(const DL_AttributeData &attribute)
{
    const bool isTaken = m_builder.addAttribute(attribute.tag, attribute.text);
    if (!isTaken && isSheetNumberTag(m_builder.Drawing(), attribute.tag))
        report(PlanFinding::Severity::Warning, attribute.text,
               ReaderText::tr("The sheet number '%1' belongs to no insert")
                   .arg(m_builder.Drawing().DisplayText(attribute.text)));
}

void DxfConvertCreationAdapter::setVariableString(const std::string &key, const std::string &value,
                                                  int /*code*/)
{
    if (key == "$ACADVER")
        m_builder.setVersion(value);
    else if (key == "$DWGCODEPAGE")
        m_builder.setCodePage(value);
}

void DxfConvertCreationAdapter::report(PlanFinding::Severity severity, std::string_view subject,
                                       const QString &text)
{
    m_diagnostics.push_back({.severity = severity,
                             .file = {},
                             .line = m_position,
                             .subject = m_builder.Drawing().DisplayText(subject),
                             .text = text});
}

/// Positions beyond 32 bits are all shown as the last one that fits.
quint32 DxfConvertCreationAdapter::storedPosition() const
{
    return static_cast<quint32>(std::min<qint64>(m_position, 0xFFFFFFFF));
}
