// SPDX-License-Identifier: GPL-2.0-or-later
// Lets through what sheets are made of, and refuses what nobody could make sense of.
#include "dxf/read/plangate_p.h"
#include "dxf/read/readertext_p.h"
#include <sstream>

PlanGate::PlanGate(DxfConvertCreationAdapter &adapter) : m_context{adapter}
{
    // The parser's constructor leaves members unset that only reading from a stream sets.
    std::istringstream nothing("999\n\n");
    m_parser.in(nothing, &adapter);
}

bool PlanGate::takeNeeded(const DxfPair &pair)
{
    if (pair.code == groupcode::kEntity)
        return beginEntity(pair);
    if (pair.code == groupcode::kComment)
        return true;
    if (std::holds_alternative<SectionName>(m_entity))
        return takeSectionName(pair);
    return std::visit([&](auto &entity) { return entity.take(pair, m_context); }, m_entity);
}

bool PlanGate::takeSectionName(const DxfPair &pair)
{
    if (pair.code != groupcode::kName)
        return true;
    const auto text = m_context.values.text(pair);
    if (!text)
        return false;
    const std::string_view name = trimmed(*text);
    m_section = name == "TABLES"     ? Section::Tables
                : name == "BLOCKS"   ? Section::Blocks
                : name == "ENTITIES" ? Section::Entities
                                     : Section::Other;
    if (name == "HEADER")
        m_entity.emplace<HeaderVariables>(m_parser);
    else
        m_entity.emplace<SkippedEntity>();
    return true;
}

bool PlanGate::beginEntity(const DxfPair &pair)
{
    if (!endEntity())
        return false;
    const auto text = m_context.values.text(pair);
    if (!text)
        return false;
    const std::string_view name = trimmed(*text);
    m_context.position = pair.position;
    m_entity.emplace<SkippedEntity>();
    if (name == "SECTION") {
        beginSection();
    } else if (name == "ENDSEC") {
        endSection();
    } else if (name == "EOF") {
        endSection();
        m_isFinished = true;
        return false;
    } else {
        return beginInSection(name);
    }
    return true;
}

bool PlanGate::beginInSection(std::string_view name)
{
    switch (m_section) {
    case Section::Entities:
        beginInEntities(name);
        // Nothing of a lost section end must be lost without a word.
        return name != "BLOCK" ||
               m_context.values.refuse(
                   m_context.position,
                   ReaderText::tr("A block stands outside of the blocks section"));
    case Section::Blocks:
        beginInBlocks(name);
        return true;
    case Section::Tables:
        if (name == "BLOCK_RECORD")
            m_entity.emplace<BlockRecord>();
        return true;
    case Section::Other:
        return true;
    case Section::None:
        break;
    }
    return m_context.values.refuse(
        m_context.position,
        ReaderText::tr("'%1' stands outside of any section").arg(shownText(name)));
}

void PlanGate::beginSection()
{
    endSection(); // should its ENDSEC be missing
    m_hasSections = true;
    m_entity.emplace<SectionName>();
}

void PlanGate::endSection()
{
    endBlock(); // should its ENDBLK be missing
    m_context.adapter.endInsert();
    m_section = Section::None;
}

void PlanGate::beginInEntities(std::string_view name)
{
    if (name == "INSERT")
        m_entity.emplace<InsertHead>();
    else if (name == "ATTRIB")
        m_entity.emplace<Attribute>();
    else if (name == "SEQEND")
        m_context.adapter.endSequence(); // all else is skipped: sheets' frames stand in blocks
}

void PlanGate::beginInBlocks(std::string_view name)
{
    if (name == "BLOCK") {
        endBlock(); // should its ENDBLK be missing
        m_isInBlock = true;
        m_entity.emplace<BlockHead>();
        return;
    }
    if (name == "ENDBLK")
        endBlock();
    if (!m_isInBlock || m_dropsBlock)
        return;
    if (name == "VERTEX") {
        if (m_isInPolyline)
            m_entity.emplace<Vertex>();
        return;
    }
    endPolyline();
    if (name == "POLYLINE")
        m_entity.emplace<PolylineHead>();
    else if (name == "LWPOLYLINE")
        m_entity.emplace<LwPolyline>();
    else
        beginInEntities(name);
}

bool PlanGate::endEntity()
{
    if (skipsEntity())
        return true;
    m_context.adapter.setPosition(m_context.position);
    if (!std::visit([&](auto &entity) { return entity.end(m_context); }, m_entity))
        return false;
    if (const auto *block = std::get_if<BlockHead>(&m_entity))
        m_dropsBlock = !block->hasName();
    m_isInPolyline = m_isInPolyline || std::holds_alternative<PolylineHead>(m_entity);
    return !m_context.adapter.isFull() ||
           m_context.values.refuse(m_context.position,
                                   ReaderText::tr("The plan is too large: it has more than four "
                                                  "billion vertices or bytes of text"));
}

void PlanGate::endBlock()
{
    if (m_isInBlock)
        m_context.adapter.endBlock();
    m_isInBlock = false;
    m_dropsBlock = false;
    m_isInPolyline = false;
}

void PlanGate::endPolyline()
{
    if (m_isInPolyline)
        m_context.adapter.endEntity();
    m_isInPolyline = false;
}
