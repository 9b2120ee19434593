// SPDX-License-Identifier: GPL-2.0-or-later
// Receives the DXF parser's callbacks and fills the drawing.
#include "dxf/read/dxfconvertcreationadapter_p.h"
#include "dxf/read/readertext_p.h"
#include "dxf/read/sheetnumber_p.h"
#include <algorithm>

namespace {

constexpr int kClosed = 1;        ///< polyline flag
constexpr int kSurface = 16 | 64; ///< polyline flags: polygon mesh, polyface mesh

} // namespace

void DxfConvertCreationAdapter::addBlock(const DL_BlockData &block)
{
    if (!m_builder.BeginBlock(block.name, storedPosition()))
        report(Severity::Warning, block.name,
               ReaderText::tr("Block '%1' is defined twice; the first definition holds")
                   .arg(m_builder.Drawing().DisplayText(block.name)));
}

void DxfConvertCreationAdapter::addPolyline(const DL_PolylineData &polyline)
{
    m_builder.EndPolyline();
    if ((polyline.flags & kSurface) == 0)
        m_builder.BeginPolyline((polyline.flags & kClosed) != 0);
}

void DxfConvertCreationAdapter::addVertex(const DL_VertexData &vertex)
{
    m_builder.AddVertex({vertex.x, vertex.y});
}

void DxfConvertCreationAdapter::addInsert(const DL_InsertData &insert)
{
    m_builder.BeginInsert(insert.name, storedPosition());
}

void DxfConvertCreationAdapter::addAttribute(const DL_AttributeData &attribute)
{
    const bool isTaken = m_builder.AddAttribute(attribute.tag, attribute.text);
    if (!isTaken && IsSheetNumberTag(attribute.tag))
        report(Severity::Warning, attribute.text,
               ReaderText::tr("The sheet number '%1' belongs to no insert")
                   .arg(m_builder.Drawing().DisplayText(attribute.text)));
}

void DxfConvertCreationAdapter::setVariableString(const std::string &key, const std::string &value,
                                                  int /*code*/)
{
    if (key == "$ACADVER")
        m_builder.SetVersion(value);
    else if (key == "$DWGCODEPAGE")
        m_builder.SetCodePage(value);
}

void DxfConvertCreationAdapter::report(Severity severity, std::string_view subject,
                                       const QString &text)
{
    m_diagnostics.push_back({.severity = severity,
                             .file = {},
                             .line = m_position,
                             .subject = m_builder.Drawing().DisplayText(subject),
                             .text = text});
}

/// Positions beyond 32 bits are all shown as the last one that fits.
quint32 DxfConvertCreationAdapter::storedPosition() const
{
    return static_cast<quint32>(std::min<qint64>(m_position, 0xFFFFFFFF));
}
