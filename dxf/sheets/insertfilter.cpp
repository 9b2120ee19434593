// SPDX-License-Identifier: GPL-2.0-or-later
// A sheet filter put into the bytes of one drawing.
#include "dxf/sheets/insertfilter_p.h"
#include <algorithm>

std::optional<QByteArray> BytesIn(const DxfDrawing &drawing, const QString &text)
{
    if (drawing.HasUtf8Texts())
        return text.toUtf8();
    const auto isLatin1 = [](QChar c) { return c.unicode() < 0x100; };
    return std::ranges::all_of(text, isLatin1) ? std::optional(text.toLatin1()) : std::nullopt;
}

InsertFilter::InsertFilter(const SheetFilter &filter, const DxfDrawing &drawing)
    : m_drawing(drawing), m_includes(filter.include.has_value())
{
    if (filter.include) {
        m_includeTag = BytesIn(drawing, filter.include->tag);
        m_includeValue = BytesIn(drawing, filter.include->value);
    }
    if (filter.excludeTag)
        m_excludeTag = BytesIn(drawing, *filter.excludeTag);
}

bool InsertFilter::Passes(const DxfInsert &insert) const
{
    if (m_includes) {
        if (!m_includeTag || !m_includeValue)
            return false;
        if (m_drawing.FindAttribute(insert, ViewOf(*m_includeTag)) != ViewOf(*m_includeValue))
            return false;
    }
    return !m_excludeTag || !m_drawing.FindAttribute(insert, ViewOf(*m_excludeTag));
}

bool HasPolylines(const DxfDrawing &drawing, const DxfInsert &insert)
{
    const DxfBlock *block = drawing.BlockOf(insert);
    return block && block->polylineCount > 0;
}
