// SPDX-License-Identifier: GPL-2.0-or-later
// What a DXF plan holds of its sheets: blocks with polylines, and inserts with attributes.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <kelo_base/core/Export.h>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Corner label of a sheet vertex.
enum VtxPosition : int { vpUnknown = 0, vpTopLeft, vpTopRight, vpBottomLeft, vpBottomRight };

/// A point in the units of the drawing, as read: no insertion point, scale or rotation applied.
struct DxfVertex
{
    double x = 0;
    double y = 0;
    friend bool operator==(const DxfVertex &, const DxfVertex &) = default;
};

/// A polyline of a block. Its vertices are DxfDrawing::Vertices().
struct DxfPolyline
{
    quint32 firstVertex = 0;
    quint32 vertexCount = 0;
    bool closed = false;   ///< flag 1; a doubled last vertex closes it for the eye only
    bool mirrored = false; ///< drawn from below: where it lies in the block, x has the other sign
};

/// A block definition. Its polylines are DxfDrawing::Polylines().
struct DxfBlock
{
    quint32 name = 0; ///< text number, see DxfDrawing::Name()
    quint32 firstPolyline = 0;
    quint32 polylineCount = 0;
    quint32 line = 0; ///< where it begins: line of the file, byte offset in a binary one
};

/// An attribute of an insert.
struct DxfAttribute
{
    quint32 tag = 0; ///< text number, see DxfDrawing::Tag()
    quint32 valueOffset = 0;
    quint32 valueSize = 0;
};

/// A block reference. Its attributes are DxfDrawing::Attributes().
struct DxfInsert
{
    static constexpr quint32 kNoBlock = 0xFFFFFFFF;

    quint32 blockName = 0;    ///< text number, see DxfDrawing::BlockName()
    quint32 block = kNoBlock; ///< index into DxfDrawing::Blocks()
    quint32 firstAttribute = 0;
    quint32 attributeCount = 0;
    quint32 line = 0;       ///< where it begins: line of the file, byte offset in a binary one
    bool exportMark = true; ///< admits the insert to the export
};

/// How an insert places its block, in the plane that the insert lies in.
struct DxfPlacement
{
    enum class Plane : quint8 {
        Upwards,   ///< the drawing's own
        Downwards, ///< seen from below: x has the other sign
        Tilted,    ///< any other: such an insert is not placed
        Unreadable ///< a number of the placement is none
    };
    static constexpr int kMostCells = 32'767; ///< in a row or a column

    DxfVertex position = {};
    double scaleX = 1;
    double scaleY = 1;
    double angle = 0; ///< in degrees, counter-clockwise
    double columnSpacing = 0;
    double rowSpacing = 0;
    quint16 columns = 1; ///< at least 1
    quint16 rows = 1;    ///< at least 1
    Plane plane = Plane::Upwards;
    friend bool operator==(const DxfPlacement &, const DxfPlacement &) = default;
};

/// The sheets of one plan: plain data, compact enough for a million of them. Texts are the bytes of
/// the file. Views and references stay valid until the drawing is changed or destroyed.
class KELO_BASE_EXPORT DxfDrawing
{
public:
    /// Block definitions in file order; of two with one name only the first is here.
    [[nodiscard]] std::span<const DxfBlock> Blocks() const { return m_blocks; }
    /// Inserts of model and paper space in file order.
    [[nodiscard]] std::span<const DxfInsert> Inserts() const { return m_inserts; }
    /// Inserts inside block definitions that carry a sheet number. They are no sheets.
    [[nodiscard]] std::span<const DxfInsert> NestedSheetInserts() const { return m_nestedInserts; }

    /// The definition that an insert refers to; null when there is none.
    [[nodiscard]] const DxfBlock *BlockOf(const DxfInsert &insert) const;
    [[nodiscard]] std::span<const DxfPolyline> Polylines(const DxfBlock &block) const;
    [[nodiscard]] std::span<const DxfVertex> Vertices(const DxfPolyline &polyline) const;
    /// In file order; each tag once.
    [[nodiscard]] std::span<const DxfAttribute> Attributes(const DxfInsert &insert) const;
    /// The value of the attribute with exactly this tag, if there is one.
    [[nodiscard]] std::optional<std::string_view> FindAttribute(const DxfInsert &insert,
                                                                std::string_view tag) const;

    /// How an insert, counted as in Inserts(), places its block.
    [[nodiscard]] DxfPlacement Placement(std::size_t insert) const;
    /// The point of a block that its inserts put onto their position.
    [[nodiscard]] DxfVertex BasePoint(const DxfBlock &block) const;
    /// Whether PlaceInserts() made this drawing, so that vertices lie where the inserts put them.
    [[nodiscard]] bool IsPlaced() const { return m_isPlaced; }

    /// Names as the plan has them; see ShownName() for those to show.
    [[nodiscard]] std::string_view Name(const DxfBlock &block) const { return text(block.name); }
    [[nodiscard]] std::string_view BlockName(const DxfInsert &insert) const
    {
        return text(insert.blockName);
    }
    /// The name that the draughtsman knows: a variant of a dynamic block ("*U12") has the dynamic
    /// block's, as far as the plan tells.
    [[nodiscard]] std::string_view ShownName(const DxfBlock &block) const
    {
        return text(shownName(block.name));
    }
    [[nodiscard]] std::string_view ShownBlockName(const DxfInsert &insert) const
    {
        return text(shownName(insert.blockName));
    }
    [[nodiscard]] std::string_view Tag(const DxfAttribute &attribute) const
    {
        return text(attribute.tag);
    }
    [[nodiscard]] std::string_view Value(const DxfAttribute &attribute) const;

    /// Label of a vertex, counted from 0 within its polyline; unknown until SetCorner() was called.
    [[nodiscard]] VtxPosition Corner(const DxfPolyline &polyline, quint32 vertex) const;
    void SetCorner(const DxfPolyline &polyline, quint32 vertex, VtxPosition position);
    /// Takes all labels away.
    void ClearCorners() { m_corners.clear(); }

    void SetExportMark(std::size_t insert, bool mark)
    {
        m_inserts[static_cast<qsizetype>(insert)].exportMark = mark;
    }

    /// Whether the plan is a binary one, so that lines of blocks and inserts are byte offsets.
    [[nodiscard]] bool IsBinary() const { return m_isBinary; }
    void SetBinary(bool isBinary) { m_isBinary = isBinary; }
    /// $ACADVER, for example "AC1015"; empty when the plan does not say.
    [[nodiscard]] std::string_view Version() const { return m_version; }
    /// $DWGCODEPAGE, for example "ANSI_1252"; empty when the plan does not say.
    [[nodiscard]] std::string_view CodePage() const { return m_codePage; }
    /// Takes the plan's texts for this encoding, whatever the plan says. Names are those of
    /// $DWGCODEPAGE ("ANSI_1251", "dos850") and of character sets ("windows-1251", "UTF-8"); an
    /// empty one is what the plan says. False, and nothing changed, when the name is not known.
    bool SetEncoding(const QString &name);
    /// Whether the plan's texts are UTF-8: so from AC1021 on. Older ones have the code page that
    /// the plan names; without one that is known they are Latin-1.
    [[nodiscard]] bool HasUtf8Texts() const { return m_hasUtf8Texts; }
    /// A text of the plan for people to read: "\U+00DC" and "\M+1889F" are characters.
    [[nodiscard]] QString DisplayText(std::string_view text) const;
    /// The text as the plan's encoding would have it; nothing when that lacks a character.
    [[nodiscard]] std::optional<QByteArray> EncodedText(const QString &text) const;

    /// The tag under which alone a sheet's number is looked for, as reading was told; empty: under
    /// "BL_NR", then "Bl_Nr".
    [[nodiscard]] std::string_view NumberTag() const
    {
        return {m_numberTagBytes.constData(), static_cast<std::size_t>(m_numberTagBytes.size())};
    }

private:
    friend class DxfDrawingBuilder;
    friend class InsertPlacer;
    struct TextRange
    {
        quint32 offset = 0;
        quint32 size = 0;
    };
    [[nodiscard]] std::string_view text(quint32 number) const;
    [[nodiscard]] quint32 shownName(quint32 name) const;
    void learnEncoding();
    [[nodiscard]] std::string_view bytes(quint32 offset, quint32 size) const;

    // Lists and not vectors: they grow in place, and so leave no holes in memory behind.
    QList<DxfBlock> m_blocks;
    QList<DxfPolyline> m_polylines;
    QList<DxfVertex> m_vertices;
    QList<DxfVertex> m_basePoints; ///< of the blocks; of those behind its end, the origin
    std::vector<quint8> m_corners; ///< VtxPosition of each vertex; empty while none is labelled
    QList<DxfInsert> m_inserts;
    // Of the inserts: of those behind an end, the origin and the first shape. Most plans need only
    // the positions, and those of blocks at their place not even these.
    QList<DxfVertex> m_positions;
    QList<quint32> m_shapeOfInsert;
    QList<DxfPlacement> m_shapes =
        QList<DxfPlacement>(1); ///< placements with the origin as their position
    QList<DxfInsert> m_nestedInserts;
    QList<DxfAttribute> m_attributes;
    QList<TextRange> m_texts;                              ///< names and tags, each once
    QByteArray m_bytes;                                    ///< all texts one after the other
    std::vector<std::pair<quint32, quint32>> m_shownNames; ///< text numbers, sorted by the first
    std::string m_version;
    std::string m_codePage;
    QString m_encoding; ///< as set; empty: what the plan says
    bool m_hasUtf8Texts = false;
    QByteArray m_codec;   ///< of texts that are not UTF-8; empty: Latin-1
    QString m_characters; ///< of its 256 bytes, where each byte is one
    QString m_numberTag;  ///< empty: the usual ones
    QByteArray m_numberTagBytes;
    bool m_isBinary = false;
    bool m_isPlaced = false;
};
