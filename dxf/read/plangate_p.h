// SPDX-License-Identifier: GPL-2.0-or-later
// Lets through what sheets are made of, and refuses what nobody could make sense of.
#pragma once

#include "dxf/read/blockentities_p.h"
#include "dxf/read/headervariables_p.h"
#include "dxf/read/insertentities_p.h"
#include "dxf/read/polylineentities_p.h"
#include <variant>

/// Takes the pairs of a plan in order. After a refusal the drawing must not be used.
class PlanGate
{
public:
    explicit PlanGate(DxfConvertCreationAdapter &adapter);

    /// False when the plan is at its end, or refused.
    bool take(const DxfPair &pair) { return skips(pair.code) || takeNeeded(pair); }
    /// Whether nothing is of interest before the next entity begins.
    [[nodiscard]] bool skipsEntity() const { return m_entity.index() == 0; }
    [[nodiscard]] bool isFinished() const { return m_isFinished; }
    [[nodiscard]] bool hasSections() const { return m_hasSections; }
    [[nodiscard]] qint64 errorPosition() const { return m_context.values.errorPosition(); }
    [[nodiscard]] QString errorMessage() const { return m_context.values.errorMessage(); }

private:
    /// The name of the section that begins.
    struct SectionName
    {
        static bool take(const DxfPair & /*pair*/, GateContext & /*context*/) { return true; }
        static bool end(GateContext & /*context*/) { return true; }
    };
    enum class Section { None, Tables, Blocks, Entities, Other };
    using Entity = std::variant<SkippedEntity, SectionName, HeaderVariables, BlockRecord, BlockHead,
                                PolylineHead, LwPolyline, Vertex, InsertHead, Attribute>;

    [[nodiscard]] bool skips(int code) const { return code != groupcode::kEntity && skipsEntity(); }
    bool takeNeeded(const DxfPair &pair);
    bool takeSectionName(const DxfPair &pair);
    bool beginEntity(const DxfPair &pair);
    bool beginInSection(std::string_view name);
    void beginSection();
    void endSection();
    void beginInBlocks(std::string_view name);
    void beginInEntities(std::string_view name);
    bool endEntity();
    void endBlock();
    void endPolyline();

    GateContext m_context;
    DL_Dxf m_parser;
    Entity m_entity;
    Section m_section = Section::None;
    bool m_isInBlock = false;
    bool m_dropsBlock = false;   ///< the block at hand has no name
    bool m_isInPolyline = false; ///< vertices may come
    bool m_hasSections = false;
    bool m_isFinished = false;
};
