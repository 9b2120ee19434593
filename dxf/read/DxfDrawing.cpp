// SPDX-License-Identifier: GPL-2.0-or-later
// Access to the compact arrays of a drawing.
#include <algorithm>
#include <kelo_base/dxf/DxfDrawing.h>

const DxfBlock *DxfDrawing::BlockOf(const DxfInsert &insert) const
{
    return insert.block == DxfInsert::kNoBlock ? nullptr : &m_blocks[insert.block];
}

std::span<const DxfPolyline> DxfDrawing::Polylines(const DxfBlock &block) const
{
    return std::span(m_polylines).subspan(block.firstPolyline, block.polylineCount);
}

std::span<const DxfVertex> DxfDrawing::Vertices(const DxfPolyline &polyline) const
{
    return std::span(m_vertices).subspan(polyline.firstVertex, polyline.vertexCount);
}

std::span<const DxfAttribute> DxfDrawing::Attributes(const DxfInsert &insert) const
{
    return std::span(m_attributes).subspan(insert.firstAttribute, insert.attributeCount);
}

std::optional<std::string_view> DxfDrawing::FindAttribute(const DxfInsert &insert,
                                                          std::string_view tag) const
{
    const auto attributes = Attributes(insert);
    const auto found = std::ranges::find(attributes, tag, [this](const auto &a) { return Tag(a); });
    return found == attributes.end() ? std::nullopt : std::optional(Value(*found));
}

std::string_view DxfDrawing::Value(const DxfAttribute &attribute) const
{
    return bytes(attribute.valueOffset, attribute.valueSize);
}

VtxPosition DxfDrawing::Corner(const DxfPolyline &polyline, quint32 vertex) const
{
    const std::size_t index = std::size_t{polyline.firstVertex} + vertex;
    return index < m_corners.size() ? static_cast<VtxPosition>(m_corners[index]) : vpUnknown;
}

void DxfDrawing::SetCorner(const DxfPolyline &polyline, quint32 vertex, VtxPosition position)
{
    m_corners.resize(static_cast<std::size_t>(m_vertices.size()));
    m_corners[polyline.firstVertex + vertex] = static_cast<quint8>(position);
}

bool DxfDrawing::HasUtf8Texts() const
{
    return m_version.starts_with("AC") && m_version >= "AC1021";
}

QString DxfDrawing::DisplayText(std::string_view text) const
{
    const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
    return HasUtf8Texts() ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

std::string_view DxfDrawing::text(quint32 number) const
{
    const TextRange &range = m_texts[number];
    return bytes(range.offset, range.size);
}

std::string_view DxfDrawing::bytes(quint32 offset, quint32 size) const
{
    return {m_bytes.constData() + offset, size};
}
