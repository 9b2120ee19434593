// SPDX-License-Identifier: GPL-2.0-or-later
// Fills a DxfDrawing in file order.
#pragma once

#include "dxf/read/textindex_p.h"
#include <kelo_base/dxf/DxfReader.h>
#include <string>
#include <string_view>

/// What a plan's tables tell of a block.
struct DxfBlockRecord
{
    quint64 handle = 0;
    std::string name;
    std::string trueName;    ///< the name that its draughtsman knows; empty when it is the name
    quint64 represented = 0; ///< handle of the dynamic block of which it is a variant; 0: of none
};

/// Takes the contents of a plan in the order of the file. Between beginBlock() and endBlock()
/// polylines and inserts belong to that block; outside, polylines are not kept.
class DxfDrawingBuilder
{
public:
    DxfDrawingBuilder() = default;
    Q_DISABLE_COPY_MOVE(DxfDrawingBuilder)

    void setVersion(std::string_view version);
    void setCodePage(std::string_view codePage);
    /// What the user knows better than the plan; a name of an encoding must be known.
    void setOptions(const DxfReadOptions &options);

    /// False when a block of this name exists: then all until endBlock() is dropped.
    bool beginBlock(std::string_view name, quint32 line, DxfVertex basePoint = {});
    void endBlock();
    void beginPolyline(bool closed);
    void addVertex(DxfVertex vertex);
    /// Marks the polyline begun last as closed, or as drawn from below.
    void closePolyline();
    void mirrorPolyline();
    void endPolyline() { m_inPolyline = false; }
    void beginInsert(std::string_view blockName, quint32 line, const DxfPlacement &placement = {});
    /// Adds to the insert begun last; a later value of a tag replaces an earlier one. False, and
    /// nothing done, when no insert is open.
    bool addAttribute(std::string_view tag, std::string_view value);
    void endInsert();

    void addBlockRecord(const DxfBlockRecord &record);

    /// Whether the drawing's 32-bit numbers may not suffice for another entity.
    [[nodiscard]] bool isFull() const;
    /// The drawing so far.
    [[nodiscard]] const DxfDrawing &Drawing() const { return m_drawing; }
    /// The drawing, with each insert's block looked up. The builder is empty afterwards.
    [[nodiscard]] DxfDrawing take();

private:
    void setPlacement(qsizetype insert, DxfPlacement placement);
    void nameVariants();
    quint32 textNumber(std::string_view text);
    quint32 appendBytes(std::string_view text);
    [[nodiscard]] quint32 blockNamed(quint32 name) const;

    DxfDrawing m_drawing;
    TextIndex m_numbers;
    struct KnownRecord
    {
        quint64 handle;
        quint32 name;
        friend auto operator<=>(const KnownRecord &, const KnownRecord &) = default;
    };
    struct Variant
    {
        quint32 name;
        quint64 represented;
    };
    std::vector<KnownRecord> m_records; ///< with the name to show
    std::vector<Variant> m_variants;    ///< of dynamic blocks
    std::vector<quint32> m_blockOfName; ///< by text number; DxfInsert::kNoBlock when none
    bool m_inBlock = false;
    bool m_dropsBlock = false;
    bool m_inPolyline = false;
    bool m_inInsert = false;
};
