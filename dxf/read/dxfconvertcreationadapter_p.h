// SPDX-License-Identifier: GPL-2.0-or-later
// Receives the DXF parser's callbacks and fills the drawing.
#pragma once

#include "dxf/read/drawingbuilder_p.h"
#include <QString>
#include <dl_creationadapter.h>
#include <kelo_base/dxf/PlanFinding.h>
#include <vector>

class DxfConvertCreationAdapter final : public DL_CreationAdapter
{
public:
    /// Where the next callbacks come from: line of the file, or byte offset in a binary one.
    void setPosition(qint64 position) { m_position = position; }
    void setOptions(const DxfReadOptions &options) { m_builder.setOptions(options); }
    /// A LWPOLYLINE may tell behind its vertices that it is closed, or which way it faces.
    void completePolyline(bool isClosed);
    /// The parser knows no records of blocks.
    void addBlockRecord(const DxfBlockRecord &record) { m_builder.addBlockRecord(record); }
    /// A reference without a name is none: its attributes belong to nobody.
    void endInsert() { m_builder.endInsert(); }
    /// Whether the drawing can take no more.
    [[nodiscard]] bool isFull() const { return m_builder.isFull(); }

    [[nodiscard]] DxfDrawing takeDrawing() { return m_builder.take(); }
    /// What did not hinder reading; without file names.
    [[nodiscard]] std::vector<PlanFinding> takeDiagnostics() { return std::move(m_diagnostics); }
    /// Adds to the diagnostics, at the position set last.
    void note(const QString &text) { report(PlanFinding::Severity::Note, {}, text); }

    void addBlock(const DL_BlockData &block) override;
    void endBlock() override { m_builder.endBlock(); }
    void addPolyline(const DL_PolylineData &polyline) override;
    void addVertex(const DL_VertexData &vertex) override;
    void endEntity() override { m_builder.endPolyline(); }
    void addInsert(const DL_InsertData &insert) override;
    void addAttribute(const DL_AttributeData &attribute) override;
    void endSequence() override { m_builder.endInsert(); }
    void setVariableString(const std::string &key, const std::string &value, int code) override;
    using DL_CreationAdapter::setVariableString;

private:
    [[nodiscard]] DxfPlacement::Plane plane() const;
    void report(PlanFinding::Severity severity, std::string_view subject, const QString &text);
    [[nodiscard]] quint32 storedPosition() const;

    DxfDrawingBuilder m_builder;
    std::vector<PlanFinding> m_diagnostics;
    qint64 m_position = 0;
};
