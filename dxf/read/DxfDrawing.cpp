// SPDX-License-Identifier: GPL-2.0-or-later
// Access to the compact arrays of a drawing.
#include <kelo_base/dxf/DxfDrawing.h>

#include "dxf/read/textencoding_p.h"
#include <algorithm>

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
    // On the arrays themselves: an exported member is not inlined, and this is asked of all sheets.
    const DxfAttribute *attribute = m_attributes.constData() + insert.firstAttribute;
    const DxfAttribute *const end = attribute + insert.attributeCount;
    const TextRange *const texts = m_texts.constData();
    const char *const bytes = m_bytes.constData();
    for (; attribute != end; ++attribute) {
        const TextRange &range = texts[attribute->tag];
        if (std::string_view(bytes + range.offset, range.size) == tag)
            return std::string_view(bytes + attribute->valueOffset, attribute->valueSize);
    }
    return std::nullopt;
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

DxfPlacement DxfDrawing::Placement(std::size_t insert) const
{
    const auto index = static_cast<qsizetype>(insert);
    DxfPlacement placement = m_shapes[index < m_shapeOfInsert.size() ? m_shapeOfInsert[index] : 0];
    if (index < m_positions.size())
        placement.position = m_positions[index];
    return placement;
}

DxfVertex DxfDrawing::BasePoint(const DxfBlock &block) const
{
    return m_basePoints.value(&block - m_blocks.data());
}

bool DxfDrawing::SetEncoding(const QString &name)
{
    if (!name.isEmpty() && !textencoding::codecOf(name.toStdString()))
        return false;
    m_encoding = name;
    learnEncoding();
    return true;
}

void DxfDrawing::learnEncoding()
{
    const bool isNewPlan = m_version.starts_with("AC") && m_version >= "AC1021";
    m_codec = !m_encoding.isEmpty() ? textencoding::codecOf(m_encoding.toStdString()).value_or("")
              : isNewPlan           ? QByteArray(textencoding::kUtf8)
                                    : textencoding::codecOf(m_codePage).value_or("");
    m_hasUtf8Texts = m_codec == textencoding::kUtf8;
    m_characters =
        m_codec.isEmpty() || m_hasUtf8Texts ? QString() : textencoding::charactersOf(m_codec);
    m_numberTagBytes = EncodedText(m_numberTag).value_or(m_numberTag.toUtf8());
}

QString DxfDrawing::DisplayText(std::string_view text) const
{
    const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
    const QString shown = m_hasUtf8Texts ? QString::fromUtf8(bytes)
                                         : textencoding::decoded(text, m_codec, m_characters);
    return textencoding::withoutEscapes(shown);
}

std::optional<QByteArray> DxfDrawing::EncodedText(const QString &text) const
{
    return m_hasUtf8Texts ? std::optional(text.toUtf8()) : textencoding::encoded(text, m_codec);
}

quint32 DxfDrawing::shownName(quint32 name) const
{
    using Names = std::pair<quint32, quint32>;
    const auto found = std::ranges::lower_bound(m_shownNames, name, {}, &Names::first);
    return found != m_shownNames.end() && found->first == name ? found->second : name;
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
