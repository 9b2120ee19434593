// SPDX-License-Identifier: GPL-2.0-or-later
// Fills a DxfDrawing in file order.
#pragma once

#include "dxf/read/textindex_p.h"
#include <kelo_base/dxf/DxfDrawing.h>
#include <string_view>

/// Takes the contents of a plan in the order of the file. Between BeginBlock() and EndBlock()
/// polylines and inserts belong to that block; outside, polylines are not kept.
class DxfDrawingBuilder
{
public:
    DxfDrawingBuilder() = default;
    Q_DISABLE_COPY_MOVE(DxfDrawingBuilder)

    void SetVersion(std::string_view version) { m_drawing.m_version = version; }
    void SetCodePage(std::string_view codePage) { m_drawing.m_codePage = codePage; }

    /// False when a block of this name exists: then all until EndBlock() is dropped.
    bool BeginBlock(std::string_view name, quint32 line);
    void EndBlock();
    void BeginPolyline(bool closed);
    void AddVertex(DxfVertex vertex);
    /// Marks the polyline begun last as closed.
    void ClosePolyline();
    void EndPolyline() { m_inPolyline = false; }
    void BeginInsert(std::string_view blockName, quint32 line);
    /// Adds to the insert begun last; a later value of a tag replaces an earlier one. False, and
    /// nothing done, when no insert is open.
    bool AddAttribute(std::string_view tag, std::string_view value);
    void EndInsert();

    /// Whether the drawing's 32-bit numbers may not suffice for another entity.
    [[nodiscard]] bool IsFull() const;
    /// The drawing so far.
    [[nodiscard]] const DxfDrawing &Drawing() const { return m_drawing; }
    /// The drawing, with each insert's block looked up. The builder is empty afterwards.
    [[nodiscard]] DxfDrawing Take();

private:
    quint32 textNumber(std::string_view text);
    quint32 appendBytes(std::string_view text);
    [[nodiscard]] quint32 blockNamed(quint32 name) const;

    DxfDrawing m_drawing;
    TextIndex m_numbers;
    std::vector<quint32> m_blockOfName; ///< by text number; DxfInsert::kNoBlock when none
    bool m_inBlock = false;
    bool m_dropsBlock = false;
    bool m_inPolyline = false;
    bool m_inInsert = false;
};
