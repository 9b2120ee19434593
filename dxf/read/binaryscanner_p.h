// SPDX-License-Identifier: GPL-2.0-or-later
// Walks the pairs of a binary DXF file.
#pragma once

#include "dxf/read/bytesource_p.h"
#include "dxf/read/pair_p.h"
#include <QString>

/// What every binary DXF file begins with.
inline constexpr std::string_view kBinarySentinel{"AutoCAD Binary DXF\r\n\x1a\0", 22};

/// Gives the pairs of a binary file, with codes of one byte (to R12) or two (since). Positions are
/// byte offsets in the file.
class BinaryScanner
{
public:
    /// Begins at the source's first unread byte, where the sentinel must stand.
    explicit BinaryScanner(ByteSource &source);

    ScanResult next(DxfPair &pair);
    /// The next pair that begins an entity, a section or the end.
    ScanResult nextEntity(DxfPair &pair);

    [[nodiscard]] qint64 errorPosition() const { return m_errorOffset; }
    [[nodiscard]] QString errorMessage() const { return m_errorMessage; }
    [[nodiscard]] qint64 position() const { return m_source.offset(); }

private:
    [[nodiscard]] bool has(std::size_t bytes);
    template <typename Number>
    Number take();
    bool takeCode(int &code);
    ScanResult takeText(DxfPair &pair);
    ScanResult takeChunk(DxfPair &pair);
    template <typename Number>
    ScanResult takeInteger(DxfPair &pair);
    ScanResult takeReal(DxfPair &pair);
    ScanResult cutShort();
    ScanResult fail(qint64 offset, const QString &message);

    ByteSource &m_source;
    bool m_codesAreWide = false;
    qint64 m_errorOffset = 0;
    QString m_errorMessage;
};
