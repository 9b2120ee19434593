// SPDX-License-Identifier: GPL-2.0-or-later
// Lets through to the DXF parser what sheets are made of, and only what cannot hurt it.
#pragma once

#include "dxf/read/dxfconvertcreationadapter_p.h"
#include "dxf/read/pair_p.h"
#include <QString>
#include <bitset>
#include <dl_dxf.h>
#include <string>

/// One kind of entity on its way through the parser. Each kind has a parser of its own, so that no
/// value of one kind is read by another: the parser keeps values until told otherwise.
class ParserFeed
{
public:
    explicit ParserFeed(DxfConvertCreationAdapter &adapter);

    void begin() { m_given.reset(); }
    /// Codes below 128.
    void give(int code, std::string_view value);
    void give(int code, const std::string &value);
    /// An empty value, if none came since begin().
    void giveIfMissing(int code);
    /// Flags of a polyline or vertex, which the parser keeps from one to the next.
    void giveFlags(int flags);
    [[nodiscard]] bool isGiven(int code) const
    {
        return m_given.test(static_cast<std::size_t>(code));
    }
    [[nodiscard]] DL_Dxf *operator->() { return &m_parser; }

private:
    DL_Dxf m_parser;
    DxfConvertCreationAdapter &m_adapter;
    std::bitset<128> m_given; ///< codes that came since begin()
    int m_flags = 0;          ///< the parser's; 0 when it was not told any
    std::string m_value;      ///< kept for its memory
};

/// Takes the pairs of a plan in order. After a refusal the drawing must not be used.
class PlanGate
{
public:
    explicit PlanGate(DxfConvertCreationAdapter &adapter);

    /// False when the plan is at its end, or refused.
    bool take(const DxfPair &pair)
    {
        const bool isOfNoUse = pair.code != 0 && m_entity == Entity::Skipped;
        return isOfNoUse || takeNeeded(pair);
    }
    [[nodiscard]] bool isFinished() const { return m_isFinished; }
    [[nodiscard]] bool hasSections() const { return m_hasSections; }
    [[nodiscard]] qint64 errorPosition() const { return m_errorPosition; }
    [[nodiscard]] QString errorMessage() const { return m_errorMessage; }

private:
    static constexpr qint64 kNotAnnounced = -1;

    enum class Section { None, Header, Blocks, Entities, Other };
    enum class Entity {
        Skipped,
        Section,
        Header,
        Block,
        Polyline,
        LwPolyline,
        Vertex,
        Insert,
        Attribute
    };

    bool takeNeeded(const DxfPair &pair);
    bool beginEntity(const DxfPair &pair);
    bool beginInSection(std::string_view name);
    void beginSection();
    void endSection();
    Entity beginInBlocks(std::string_view name);
    Entity beginInEntities(std::string_view name);
    Entity beginKept(Entity entity, ParserFeed &feed);
    bool endEntity();

    bool takeSectionName(const DxfPair &pair);
    bool takeHeader(const DxfPair &pair);
    bool takePolyline(const DxfPair &pair);
    bool takeLwPolyline(const DxfPair &pair);
    bool takeVertex(const DxfPair &pair);
    bool takeAttribute(const DxfPair &pair);
    bool takeEmbeddedText(const DxfPair &pair);
    bool takeName(ParserFeed &feed, const DxfPair &pair);
    bool giveText(ParserFeed &feed, const DxfPair &pair);
    bool giveCoordinate(const DxfPair &pair);
    bool readRaw(const DxfPair &pair, std::string_view &text);
    bool readText(const DxfPair &pair, std::string_view &text);
    bool readInteger(const DxfPair &pair, qint64 &number);

    void endBlockHead();
    void endPolylineHead();
    bool endLwPolyline();
    bool endVertex();
    void endInsertHead();
    void endAttribute();
    void endBlock();
    void endPolyline();

    bool refuseLongText(const DxfPair &pair);
    bool refuse(qint64 position, const QString &message);

    DxfConvertCreationAdapter &m_adapter;
    ParserFeed m_header;
    ParserFeed m_block;
    ParserFeed m_polyline;
    ParserFeed m_vertex;
    ParserFeed m_insert;
    ParserFeed m_attribute;

    Section m_section = Section::None;
    Entity m_entity = Entity::Skipped;
    qint64 m_entityPosition = 0;
    bool m_isInBlock = false;
    bool m_dropsBlock = false; ///< the block at hand has no name
    bool m_isInPolyline = false;
    bool m_hasSections = false;
    bool m_isFinished = false;
    bool m_wantsVariable = false; ///< the value of the header variable named last
    int m_flags = 0;              ///< of the polyline or vertex at hand
    bool m_hasHead = false;       ///< the parser was told of the LWPOLYLINE at hand
    bool m_wantsY = false;        ///< a LWPOLYLINE's X came, its Y not yet
    qint64 m_vertices = 0;        ///< of the LWPOLYLINE at hand, so far
    qint64 m_announcedVertices = kNotAnnounced;
    bool m_isEmbedded = false;  ///< inside the embedded object of an attribute
    bool m_hasOwnText = false;  ///< the attribute's own text is not empty
    std::string m_embeddedText; ///< of the attribute at hand
    DxfPair::Scratch m_scratch{};
    std::string m_number; ///< kept for its memory
    qint64 m_errorPosition = 0;
    QString m_errorMessage;
};
