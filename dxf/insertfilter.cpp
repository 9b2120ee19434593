// SPDX-License-Identifier: GPL-2.0-or-later
// A sheet filter put into the bytes of one drawing.
#include "dxf/insertfilter_p.h"
#include <algorithm>

namespace {

/// A text as the drawing's bytes; nothing when the drawing cannot hold it.
std::optional<QByteArray> bytesOf(const QString &text, const DxfDrawing &drawing)
{
    if (drawing.HasUtf8Texts())
        return text.toUtf8();
    const auto isLatin1 = [](QChar c) { return c.unicode() < 0x100; };
    return std::ranges::all_of(text, isLatin1) ? std::optional(text.toLatin1()) : std::nullopt;
}

std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

} // namespace

InsertFilter::InsertFilter(const SheetFilter &filter, const DxfDrawing &drawing)
    : m_drawing(drawing), m_includes(filter.include.has_value())
{
    if (filter.include) {
        m_includeTag = bytesOf(filter.include->tag, drawing);
        m_includeValue = bytesOf(filter.include->value, drawing);
    }
    if (filter.excludeTag)
        m_excludeTag = bytesOf(*filter.excludeTag, drawing);
}

bool InsertFilter::Passes(const DxfInsert &insert) const
{
    if (m_includes) {
        if (!m_includeTag || !m_includeValue)
            return false;
        if (m_drawing.FindAttribute(insert, viewOf(*m_includeTag)) != viewOf(*m_includeValue))
            return false;
    }
    return !m_excludeTag || !m_drawing.FindAttribute(insert, viewOf(*m_excludeTag));
}

bool HasPolylines(const DxfDrawing &drawing, const DxfInsert &insert)
{
    const DxfBlock *block = drawing.BlockOf(insert);
    return block && block->polylineCount > 0;
}
