// SPDX-License-Identifier: GPL-2.0-or-later
// Fills a DxfDrawing in file order.
#include "dxf/read/drawingbuilder_p.h"
#include "dxf/read/sheetnumber_p.h"
#include <algorithm>

void DxfDrawingBuilder::setVersion(std::string_view version)
{
    m_drawing.m_version = version;
    m_drawing.learnEncoding();
}

void DxfDrawingBuilder::setCodePage(std::string_view codePage)
{
    m_drawing.m_codePage = codePage;
    m_drawing.learnEncoding();
}

void DxfDrawingBuilder::setOptions(const DxfReadOptions &options)
{
    m_drawing.m_numberTag = options.numberTag;
    m_drawing.m_encoding = options.encoding;
    m_drawing.learnEncoding();
}

bool DxfDrawingBuilder::beginBlock(std::string_view name, quint32 line, DxfVertex basePoint)
{
    endBlock();
    m_inBlock = true;
    const quint32 number = textNumber(name);
    m_dropsBlock = blockNamed(number) != DxfInsert::kNoBlock;
    if (m_dropsBlock)
        return false;
    m_blockOfName.resize(static_cast<std::size_t>(m_drawing.m_texts.size()), DxfInsert::kNoBlock);
    m_blockOfName[number] = static_cast<quint32>(m_drawing.m_blocks.size());
    if (basePoint != DxfVertex{}) {
        m_drawing.m_basePoints.resize(m_drawing.m_blocks.size());
        m_drawing.m_basePoints.push_back(basePoint);
    }
    m_drawing.m_blocks.push_back(
        {.name = number,
         .firstPolyline = static_cast<quint32>(m_drawing.m_polylines.size()),
         .polylineCount = 0,
         .line = line});
    return true;
}

void DxfDrawingBuilder::endBlock()
{
    endInsert();
    endPolyline();
    m_inBlock = false;
    m_dropsBlock = false;
}

void DxfDrawingBuilder::beginPolyline(bool closed)
{
    m_inPolyline = m_inBlock && !m_dropsBlock;
    if (!m_inPolyline)
        return;
    m_drawing.m_polylines.push_back(
        {.firstVertex = static_cast<quint32>(m_drawing.m_vertices.size()),
         .vertexCount = 0,
         .closed = closed});
    ++m_drawing.m_blocks.back().polylineCount;
}

void DxfDrawingBuilder::addVertex(DxfVertex vertex)
{
    if (!m_inPolyline)
        return;
    m_drawing.m_vertices.push_back(vertex);
    ++m_drawing.m_polylines.back().vertexCount;
}

void DxfDrawingBuilder::closePolyline()
{
    if (m_inPolyline)
        m_drawing.m_polylines.back().closed = true;
}

void DxfDrawingBuilder::mirrorPolyline()
{
    if (m_inPolyline)
        m_drawing.m_polylines.back().mirrored = true;
}

void DxfDrawingBuilder::beginInsert(std::string_view blockName, quint32 line,
                                    const DxfPlacement &placement)
{
    endInsert();
    m_inInsert = true;
    auto &inserts = m_inBlock ? m_drawing.m_nestedInserts : m_drawing.m_inserts;
    if (!m_inBlock)
        setPlacement(inserts.size(), placement);
    inserts.push_back({.blockName = textNumber(blockName),
                       .block = DxfInsert::kNoBlock,
                       .firstAttribute = static_cast<quint32>(m_drawing.m_attributes.size()),
                       .attributeCount = 0,
                       .line = line,
                       .exportMark = true});
}

bool DxfDrawingBuilder::addAttribute(std::string_view tag, std::string_view value)
{
    if (!m_inInsert)
        return false;
    DxfInsert &insert = (m_inBlock ? m_drawing.m_nestedInserts : m_drawing.m_inserts).back();
    const DxfAttribute attribute{.tag = textNumber(tag),
                                 .valueOffset = appendBytes(value),
                                 .valueSize = static_cast<quint32>(value.size())};
    const auto begin = m_drawing.m_attributes.begin() + insert.firstAttribute;
    const auto earlier = std::find_if(begin, m_drawing.m_attributes.end(), [&](const auto &other) {
        return other.tag == attribute.tag;
    });
    if (earlier != m_drawing.m_attributes.end()) {
        *earlier = attribute;
        return true;
    }
    m_drawing.m_attributes.push_back(attribute);
    ++insert.attributeCount;
    return true;
}

void DxfDrawingBuilder::endInsert()
{
    if (!m_inInsert)
        return;
    m_inInsert = false;
    if (!m_inBlock)
        return;
    // Of inserts inside blocks only those are kept that someone may have meant as sheets.
    const DxfInsert nested = m_drawing.m_nestedInserts.back();
    if (!m_dropsBlock && dxftools::sheetNumberAttribute(m_drawing, nested))
        return;
    m_drawing.m_nestedInserts.pop_back();
    m_drawing.m_attributes.resize(nested.firstAttribute);
}

void DxfDrawingBuilder::setPlacement(qsizetype insert, DxfPlacement placement)
{
    const DxfVertex position = std::exchange(placement.position, DxfVertex());
    if (position != DxfVertex{}) {
        m_drawing.m_positions.resize(insert);
        m_drawing.m_positions.push_back(position);
    }
    if (placement == m_drawing.m_shapes.front())
        return;
    if (placement != m_drawing.m_shapes.back()) // neighbours are often drawn alike
        m_drawing.m_shapes.push_back(placement);
    m_drawing.m_shapeOfInsert.resize(insert);
    m_drawing.m_shapeOfInsert.push_back(static_cast<quint32>(m_drawing.m_shapes.size() - 1));
}

void DxfDrawingBuilder::addBlockRecord(const DxfBlockRecord &record)
{
    const quint32 name = textNumber(record.name);
    if (record.represented != 0)
        m_variants.push_back({name, record.represented});
    m_records.push_back(
        {record.handle, record.trueName.empty() ? name : textNumber(record.trueName)});
}

/// Variants may stand before the block that they are variants of, so that this comes last.
void DxfDrawingBuilder::nameVariants()
{
    std::ranges::sort(m_records);
    for (const Variant &variant : m_variants) {
        const auto block =
            std::ranges::lower_bound(m_records, variant.represented, {}, &KnownRecord::handle);
        if (block != m_records.end() && block->handle == variant.represented)
            m_drawing.m_shownNames.emplace_back(variant.name, block->name);
    }
    std::ranges::sort(m_drawing.m_shownNames);
    m_records = {};
    m_variants = {};
}

bool DxfDrawingBuilder::isFull() const
{
    // Room for the longest single entity that the reader lets through.
    constexpr qsizetype kLimit = 0xFFFFFFFF - 0x01000000;
    return m_drawing.m_bytes.size() > kLimit || m_drawing.m_vertices.size() > kLimit;
}

DxfDrawing DxfDrawingBuilder::take()
{
    endBlock();
    nameVariants();
    m_blockOfName.resize(static_cast<std::size_t>(m_drawing.m_texts.size()), DxfInsert::kNoBlock);
    for (auto *inserts : {&m_drawing.m_inserts, &m_drawing.m_nestedInserts})
        for (DxfInsert &insert : *inserts)
            insert.block = m_blockOfName[insert.blockName];
    m_numbers = {};
    m_blockOfName.clear();
    return std::exchange(m_drawing, DxfDrawing());
}

quint32 DxfDrawingBuilder::textNumber(std::string_view text)
{
    const quint32 known =
        m_numbers.find(text, [this](quint32 number) { return m_drawing.text(number); });
    if (known != TextIndex::kUnknown)
        return known;
    const auto number = static_cast<quint32>(m_drawing.m_texts.size());
    const quint32 offset = appendBytes(text);
    m_drawing.m_texts.push_back({offset, static_cast<quint32>(text.size())});
    m_numbers.add(text, number);
    return number;
}

quint32 DxfDrawingBuilder::appendBytes(std::string_view text)
{
    const auto offset = static_cast<quint32>(m_drawing.m_bytes.size());
    m_drawing.m_bytes.append(text.data(), static_cast<qsizetype>(text.size()));
    return offset;
}

quint32 DxfDrawingBuilder::blockNamed(quint32 name) const
{
    return name < m_blockOfName.size() ? m_blockOfName[name] : DxfInsert::kNoBlock;
}
