// SPDX-License-Identifier: GPL-2.0-or-later
// A sheet filter put into the bytes of one drawing.
#pragma once

#include <QByteArray>
#include <kelo_base/dxf/SheetSelection.h>
#include <optional>
#include <string_view>
#include <vector>

/// A text that a user looks for among the drawing's. It matches the bytes that stand for it in
/// Latin-1 or in the drawing's own encoding, and what is shown as it because of an escape.
class WantedText
{
public:
    /// @p drawing must outlive the object.
    WantedText(const DxfDrawing &drawing, const QString &text);
    [[nodiscard]] bool matches(std::string_view bytes) const;
    /// False when the drawing cannot hold the text but by way of escapes.
    [[nodiscard]] bool isPossible() const { return m_latin1.has_value() || m_encoded.has_value(); }
    /// The value of the first attribute whose tag matches, if there is one.
    [[nodiscard]] std::optional<std::string_view> valueIn(const DxfInsert &insert) const;

private:
    /// Plans repeat few tags very often.
    struct KnownTag
    {
        quint32 tag;
        bool matches;
    };
    static constexpr std::size_t kMostKnownTags = 16;
    [[nodiscard]] bool matchesTag(const DxfAttribute &attribute) const;

    const DxfDrawing &m_drawing;
    mutable std::vector<KnownTag> m_knownTags;
    QString m_text;
    std::optional<QByteArray> m_latin1; ///< nothing in a drawing whose texts are UTF-8
    std::optional<QByteArray> m_encoded;
};

class InsertFilter
{
public:
    /// @p drawing must outlive the filter.
    InsertFilter(const SheetFilter &filter, const DxfDrawing &drawing);
    [[nodiscard]] bool passes(const DxfInsert &insert) const;

private:
    std::optional<WantedText> m_includeTag;
    std::optional<WantedText> m_includeValue;
    std::optional<WantedText> m_excludeTag;
};

namespace dxftools {

/// Whether the insert's block exists and has something to frame a sheet with.
bool hasPolylines(const DxfDrawing &drawing, const DxfInsert &insert);

} // namespace dxftools
