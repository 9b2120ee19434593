// SPDX-License-Identifier: GPL-2.0-or-later
// A sheet filter put into the bytes of one drawing.
#pragma once

#include <QByteArray>
#include <kelo_base/dxf/SheetSelection.h>
#include <optional>
#include <string_view>

class InsertFilter
{
public:
    /// @p drawing must outlive the filter.
    InsertFilter(const SheetFilter &filter, const DxfDrawing &drawing);
    [[nodiscard]] bool Passes(const DxfInsert &insert) const;

private:
    const DxfDrawing &m_drawing;
    bool m_includes = false;
    // Nothing where the drawing cannot hold the text, so that nothing matches it.
    std::optional<QByteArray> m_includeTag;
    std::optional<QByteArray> m_includeValue;
    std::optional<QByteArray> m_excludeTag;
};

/// A text as it would stand in the drawing: UTF-8 or Latin-1; nothing when that cannot hold it.
std::optional<QByteArray> BytesIn(const DxfDrawing &drawing, const QString &text);

inline std::string_view ViewOf(const QByteArray &bytes)
{
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

/// Whether the insert's block exists and has something to frame a sheet with.
bool HasPolylines(const DxfDrawing &drawing, const DxfInsert &insert);
