// SPDX-License-Identifier: GPL-2.0-or-later
// A sheet filter put into the bytes of one drawing.
#include "dxf/sheets/insertfilter_p.h"
#include <algorithm>

namespace {

std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

std::optional<QByteArray> latin1Of(const QString &text)
{
    const auto isLatin1 = [](QChar c) { return c.unicode() < 0x100; };
    return std::ranges::all_of(text, isLatin1) ? std::optional(text.toLatin1()) : std::nullopt;
}

} // namespace

WantedText::WantedText(const DxfDrawing &drawing, const QString &text)
    : m_drawing(drawing),
      m_text(text),
      m_latin1(drawing.HasUtf8Texts() ? std::nullopt : latin1Of(text)),
      m_encoded(drawing.EncodedText(text))
{
}

bool WantedText::matches(std::string_view bytes) const
{
    if ((m_encoded && bytes == viewOf(*m_encoded)) || (m_latin1 && bytes == viewOf(*m_latin1)))
        return true;
    constexpr std::size_t kEscapeAtLeast = 7; // bytes for one character
    const bool mayHaveEscape =
        bytes.size() + 1 >= static_cast<std::size_t>(m_text.size()) + kEscapeAtLeast &&
        bytes.find('\\') != std::string_view::npos;
    const bool hasEscape = mayHaveEscape && (bytes.find("\\U+") != std::string_view::npos ||
                                             bytes.find("\\M+") != std::string_view::npos);
    return hasEscape && m_drawing.DisplayText(bytes) == m_text;
}

bool WantedText::matchesTag(const DxfAttribute &attribute) const
{
    for (const KnownTag &known : m_knownTags)
        if (known.tag == attribute.tag)
            return known.matches;
    const KnownTag found{attribute.tag, matches(m_drawing.Tag(attribute))};
    if (m_knownTags.size() < kMostKnownTags)
        m_knownTags.push_back(found);
    return found.matches;
}

std::optional<std::string_view> WantedText::valueIn(const DxfInsert &insert) const
{
    for (const DxfAttribute &attribute : m_drawing.Attributes(insert))
        if (matchesTag(attribute))
            return m_drawing.Value(attribute);
    return std::nullopt;
}

InsertFilter::InsertFilter(const SheetFilter &filter, const DxfDrawing &drawing)
{
    if (filter.include) {
        m_includeTag.emplace(drawing, filter.include->tag);
        m_includeValue.emplace(drawing, filter.include->value);
    }
    if (filter.excludeTag)
        m_excludeTag.emplace(drawing, *filter.excludeTag);
}

bool InsertFilter::passes(const DxfInsert &insert) const
{
    if (m_includeTag) {
        const auto value = m_includeTag->valueIn(insert);
        if (!value || !m_includeValue->matches(*value))
            return false;
    }
    return !m_excludeTag || !m_excludeTag->valueIn(insert);
}

bool dxftools::hasPolylines(const DxfDrawing &drawing, const DxfInsert &insert)
{
    const DxfBlock *block = drawing.BlockOf(insert);
    return block && block->polylineCount > 0;
}
