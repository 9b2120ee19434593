// SPDX-License-Identifier: GPL-2.0-or-later
// Lets through to the DXF parser what sheets are made of, and only what cannot hurt it.
#include "dxf/read/plangate_p.h"
#include "dxf/read/readertext_p.h"
#include <algorithm>
#include <charconv>
#include <cmath>
#include <sstream>

namespace {

namespace code {
constexpr int kEntity = 0;
constexpr int kText = 1;
constexpr int kName = 2; ///< also a section's name and an attribute's tag
constexpr int kMoreText = 3;
constexpr int kVariable = 9;
constexpr int kX = 10;
constexpr int kY = 20;
constexpr int kFlags = 70;
constexpr int kCount = 90;
constexpr int kEmbeddedObject = 101;
constexpr int kComment = 999;
} // namespace code

constexpr int kClosed = 1;         ///< polyline flag
constexpr int kMeshVertex = 64;    ///< vertex flag
constexpr int kPolyfacePart = 128; ///< vertex flag; without kMeshVertex it is a face, no point
constexpr std::size_t kLongestText = 65'536;

bool isNeededVariable(std::string_view name)
{
    return name == "$ACADVER" || name == "$DWGCODEPAGE";
}

enum class Coordinate { Finite, Tiny, None };

/// Tells whether all of a text is a finite number; one too small for a double is as good as 0.
Coordinate judged(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    double number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (stop != text.data() + text.size())
        return Coordinate::None;
    if (error == std::errc::result_out_of_range)
        return text.find("e-") != std::string_view::npos ||
                       text.find("E-") != std::string_view::npos
                   ? Coordinate::Tiny
                   : Coordinate::None;
    return error == std::errc() && std::isfinite(number) ? Coordinate::Finite : Coordinate::None;
}

} // namespace

ParserFeed::ParserFeed(DxfConvertCreationAdapter &adapter) : m_adapter(adapter)
{
    // The parser's constructor leaves members unset that only reading from a stream sets.
    std::istringstream nothing("999\n\n");
    m_parser.in(nothing, &m_adapter);
}

void ParserFeed::give(int code, std::string_view value)
{
    m_value.assign(value);
    give(code, m_value);
}

void ParserFeed::give(int code, const std::string &value)
{
    m_given.set(static_cast<std::size_t>(code));
    m_parser.processDXFGroup(&m_adapter, code, value);
}

void ParserFeed::giveFlags(int flags)
{
    if (std::exchange(m_flags, flags) != flags)
        give(code::kFlags, std::to_string(flags));
}

void ParserFeed::giveIfMissing(int code)
{
    if (!isGiven(code))
        give(code, std::string_view());
}

PlanGate::PlanGate(DxfConvertCreationAdapter &adapter)
    : m_adapter(adapter),
      m_header(adapter),
      m_block(adapter),
      m_polyline(adapter),
      m_vertex(adapter),
      m_insert(adapter),
      m_attribute(adapter)
{
}

bool PlanGate::takeNeeded(const DxfPair &pair)
{
    if (pair.code == code::kEntity)
        return beginEntity(pair);
    if (pair.code == code::kComment)
        return true;
    switch (m_entity) {
    case Entity::Skipped:
        return true;
    case Entity::Section:
        return takeSectionName(pair);
    case Entity::Header:
        return takeHeader(pair);
    case Entity::Block:
        return takeName(m_block, pair);
    case Entity::Polyline:
        return takePolyline(pair);
    case Entity::LwPolyline:
        return takeLwPolyline(pair);
    case Entity::Vertex:
        return takeVertex(pair);
    case Entity::Insert:
        return takeName(m_insert, pair);
    case Entity::Attribute:
        return takeAttribute(pair);
    }
    return true;
}

bool PlanGate::beginEntity(const DxfPair &pair)
{
    std::string_view name;
    if (!endEntity() || !readText(pair, name))
        return false;
    name = trimmed(name);
    m_entityPosition = pair.position;
    m_entity = Entity::Skipped;
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
        m_entity = beginInEntities(name);
        // Nothing of a lost section end must be lost without a word.
        return name != "BLOCK" ||
               refuse(m_entityPosition,
                      ReaderText::tr("A block stands outside of the blocks section"));
    case Section::Blocks:
        m_entity = beginInBlocks(name);
        return true;
    case Section::Header:
    case Section::Other:
        return true;
    case Section::None:
        break;
    }
    return refuse(m_entityPosition,
                  ReaderText::tr("'%1' stands outside of any section").arg(shownText(name)));
}

void PlanGate::beginSection()
{
    endSection(); // should its ENDSEC be missing
    m_hasSections = true;
    m_entity = Entity::Section;
}

void PlanGate::endSection()
{
    endBlock(); // should its ENDBLK be missing
    m_adapter.endInsert();
    m_section = Section::None;
}

PlanGate::Entity PlanGate::beginInEntities(std::string_view name)
{
    if (name == "INSERT")
        return beginKept(Entity::Insert, m_insert);
    if (name == "ATTRIB")
        return beginKept(Entity::Attribute, m_attribute);
    if (name == "SEQEND")
        m_insert->endSequence(&m_adapter);
    return Entity::Skipped; // sheets' frames stand in blocks
}

PlanGate::Entity PlanGate::beginInBlocks(std::string_view name)
{
    if (name == "BLOCK") {
        endBlock(); // should its ENDBLK be missing
        m_isInBlock = true;
        return beginKept(Entity::Block, m_block);
    }
    if (name == "ENDBLK")
        endBlock();
    if (!m_isInBlock || m_dropsBlock)
        return Entity::Skipped;
    if (name == "VERTEX")
        return m_isInPolyline ? beginKept(Entity::Vertex, m_vertex) : Entity::Skipped;
    endPolyline();
    if (name == "POLYLINE")
        return beginKept(Entity::Polyline, m_polyline);
    if (name == "LWPOLYLINE")
        return beginKept(Entity::LwPolyline, m_polyline);
    return beginInEntities(name);
}

PlanGate::Entity PlanGate::beginKept(Entity entity, ParserFeed &feed)
{
    feed.begin();
    m_flags = 0;
    m_hasHead = false;
    m_wantsY = false;
    m_vertices = 0;
    m_announcedVertices = kNotAnnounced;
    m_isEmbedded = false;
    m_hasOwnText = false;
    m_embeddedText.clear();
    return entity;
}

bool PlanGate::endEntity()
{
    m_adapter.setPosition(m_entityPosition);
    switch (m_entity) {
    case Entity::Skipped:
    case Entity::Section:
    case Entity::Header:
        return true;
    case Entity::Block:
        endBlockHead();
        break;
    case Entity::Polyline:
        endPolylineHead();
        break;
    case Entity::LwPolyline:
        if (!endLwPolyline())
            return false;
        break;
    case Entity::Vertex:
        if (!endVertex())
            return false;
        break;
    case Entity::Insert:
        endInsertHead();
        break;
    case Entity::Attribute:
        endAttribute();
        break;
    }
    return !m_adapter.isFull() ||
           refuse(m_entityPosition, ReaderText::tr("The plan is too large: it has more than four "
                                                   "billion vertices or bytes of text"));
}

bool PlanGate::takeSectionName(const DxfPair &pair)
{
    std::string_view name;
    if (pair.code != code::kName)
        return true;
    if (!readText(pair, name))
        return false;
    name = trimmed(name);
    m_entity = Entity::Skipped;
    m_section = Section::Other;
    if (name == "HEADER") {
        m_section = Section::Header;
        m_entity = Entity::Header;
    } else if (name == "BLOCKS") {
        m_section = Section::Blocks;
    } else if (name == "ENTITIES") {
        m_section = Section::Entities;
    }
    return true;
}

bool PlanGate::takeHeader(const DxfPair &pair)
{
    std::string_view text;
    const bool isName = pair.code == code::kVariable;
    if (!isName && !m_wantsVariable)
        return true;
    if (!readText(pair, text))
        return false;
    if (isName) {
        m_wantsVariable = isNeededVariable(text);
        if (m_wantsVariable)
            m_header->processDXFGroup(&m_adapter, code::kVariable, std::string(text));
        return true;
    }
    m_wantsVariable = false;
    if (pair.code >= code::kVariable)
        return true; // no text
    m_header.give(pair.code, text);
    m_header->addSetting(&m_adapter);
    return true;
}

bool PlanGate::takeName(ParserFeed &feed, const DxfPair &pair)
{
    return pair.code != code::kName || giveText(feed, pair);
}

bool PlanGate::takePolyline(const DxfPair &pair)
{
    qint64 flags = 0;
    if (pair.code != code::kFlags)
        return true;
    if (!readInteger(pair, flags))
        return false;
    m_flags = static_cast<int>(flags & 0xFFFF); // only the low bits mean anything
    return true;
}

bool PlanGate::takeLwPolyline(const DxfPair &pair)
{
    switch (pair.code) {
    case code::kFlags:
        return takePolyline(pair);
    case code::kCount:
        return readInteger(pair, m_announcedVertices) &&
               (m_announcedVertices >= 0 ||
                refuse(
                    pair.valuePosition,
                    ReaderText::tr("A polyline cannot have %1 vertices").arg(m_announcedVertices)));
    case code::kX:
        if (m_wantsY)
            return refuse(pair.position, ReaderText::tr("A vertex without Y"));
        if (!m_hasHead)
            endPolylineHead();
        m_wantsY = true;
        return giveCoordinate(pair);
    case code::kY:
        if (!m_wantsY)
            return refuse(pair.position, ReaderText::tr("A vertex without X"));
        if (!giveCoordinate(pair))
            return false;
        m_wantsY = false;
        ++m_vertices;
        m_vertex.giveFlags(0);
        m_vertex->addVertex(&m_adapter);
        return true;
    default:
        return true;
    }
}

bool PlanGate::takeVertex(const DxfPair &pair)
{
    if (pair.code == code::kX || pair.code == code::kY)
        return giveCoordinate(pair);
    return takePolyline(pair);
}

bool PlanGate::takeAttribute(const DxfPair &pair)
{
    if (pair.code == code::kEmbeddedObject)
        m_isEmbedded = true;
    if (m_isEmbedded)
        return takeEmbeddedText(pair);
    if (pair.code == code::kName)
        return giveText(m_attribute, pair);
    if (pair.code != code::kText)
        return true;
    std::string_view text;
    if (!readText(pair, text))
        return false;
    m_hasOwnText = !text.empty();
    m_attribute.give(code::kText, text);
    return true;
}

/// A long text comes in pieces: all but the last under a code of their own.
bool PlanGate::takeEmbeddedText(const DxfPair &pair)
{
    std::string_view text;
    if (pair.code != code::kText && pair.code != code::kMoreText)
        return true;
    if (!readText(pair, text))
        return false;
    m_embeddedText.append(text);
    return m_embeddedText.size() <= kLongestText || refuseLongText(pair);
}

bool PlanGate::giveText(ParserFeed &feed, const DxfPair &pair)
{
    std::string_view text;
    if (!readText(pair, text))
        return false;
    feed.give(pair.code, text);
    return true;
}

bool PlanGate::giveCoordinate(const DxfPair &pair)
{
    std::string_view text;
    if (!readRaw(pair, text))
        return false;
    m_number = trimmed(text);
    std::ranges::replace(m_number, ',', '.'); // as the parser does
    switch (judged(m_number)) {
    case Coordinate::Finite:
        break;
    case Coordinate::Tiny:
        m_number.assign(1, '0');
        break;
    case Coordinate::None:
        return refuse(pair.valuePosition,
                      ReaderText::tr("'%1' is no coordinate").arg(shownText(text)));
    }
    m_vertex.give(pair.code, m_number);
    return true;
}

/// The value as text, whatever bytes it holds.
bool PlanGate::readRaw(const DxfPair &pair, std::string_view &text)
{
    text = pair.text(m_scratch);
    return (!pair.isTooLong && text.size() <= kLongestText) || refuseLongText(pair);
}

bool PlanGate::refuseLongText(const DxfPair &pair)
{
    return refuse(pair.valuePosition,
                  ReaderText::tr("The text has more than %1 bytes").arg(kLongestText));
}

bool PlanGate::readText(const DxfPair &pair, std::string_view &text)
{
    if (!readRaw(pair, text))
        return false;
    const bool isBroken =
        text.find('\0') != std::string_view::npos || text.find('\n') != std::string_view::npos;
    return !isBroken ||
           refuse(pair.valuePosition, ReaderText::tr("The text holds a NUL or a line feed"));
}

bool PlanGate::readInteger(const DxfPair &pair, qint64 &number)
{
    std::string_view text;
    if (!readText(pair, text))
        return false;
    const std::string_view digits = trimmed(text);
    const auto [stop, error] = std::from_chars(digits.begin(), digits.end(), number);
    return (error == std::errc() && stop == digits.end()) ||
           refuse(pair.valuePosition,
                  ReaderText::tr("'%1' is no whole number").arg(shownText(text)));
}

void PlanGate::endBlockHead()
{
    m_block.giveIfMissing(code::kName);
    m_dropsBlock = m_block->getStringValue(code::kName, {}).empty();
    if (m_dropsBlock)
        m_adapter.note(ReaderText::tr("A block without a name is left out"));
    else
        m_block->addBlock(&m_adapter);
}

/// Also of a LWPOLYLINE: its vertices follow as if they were entities of their own.
void PlanGate::endPolylineHead()
{
    m_polyline.giveFlags(m_flags);
    m_polyline->addPolyline(&m_adapter);
    m_isInPolyline = true;
    m_hasHead = true;
}

bool PlanGate::endLwPolyline()
{
    if (m_wantsY)
        return refuse(m_entityPosition, ReaderText::tr("A vertex without Y"));
    const bool isCounted =
        m_announcedVertices == kNotAnnounced || m_announcedVertices == m_vertices;
    if (!isCounted)
        return refuse(m_entityPosition,
                      (m_announcedVertices == 1
                           ? ReaderText::tr("A polyline announces 1 vertex and has %1")
                           : ReaderText::tr("A polyline announces %1 vertices and has %2", nullptr,
                                            textAmount(m_announcedVertices))
                                 .arg(m_announcedVertices))
                          .arg(m_vertices));
    if (!m_hasHead)
        endPolylineHead();
    if ((m_flags & kClosed) != 0)
        m_adapter.closePolyline(); // should the flag stand behind the vertices
    endPolyline();
    return true;
}

bool PlanGate::endVertex()
{
    const bool isFace = (m_flags & kPolyfacePart) != 0 && (m_flags & kMeshVertex) == 0;
    if (isFace)
        return true;
    if (!m_vertex.isGiven(code::kX) || !m_vertex.isGiven(code::kY))
        return refuse(m_entityPosition, m_vertex.isGiven(code::kX)
                                            ? ReaderText::tr("A vertex without Y")
                                            : ReaderText::tr("A vertex without X"));
    m_vertex.giveFlags(m_flags);
    m_vertex->addVertex(&m_adapter);
    return true;
}

void PlanGate::endInsertHead()
{
    m_insert.giveIfMissing(code::kName);
    m_adapter.endInsert(); // the one before, should this one have no name
    if (m_insert->getStringValue(code::kName, {}).empty())
        m_adapter.note(ReaderText::tr("An insert without a block name is left out"));
    m_insert->addInsert(&m_adapter);
}

void PlanGate::endAttribute()
{
    m_attribute.giveIfMissing(code::kName);
    if (!m_hasOwnText)
        m_attribute.give(code::kText, m_embeddedText);
    m_attribute->addAttribute(&m_adapter);
}

void PlanGate::endBlock()
{
    if (m_isInBlock)
        m_block->endBlock(&m_adapter);
    m_isInBlock = false;
    m_dropsBlock = false;
    m_isInPolyline = false;
}

void PlanGate::endPolyline()
{
    if (m_isInPolyline)
        m_polyline->endEntity(&m_adapter);
    m_isInPolyline = false;
}

bool PlanGate::refuse(qint64 position, const QString &message)
{
    m_errorPosition = position;
    m_errorMessage = message;
    return false;
}
