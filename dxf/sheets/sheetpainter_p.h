// SPDX-License-Identifier: GPL-2.0-or-later
// Pieces of the picture of sheets, in the colours of paper or of a palette.
#pragma once

#include <QColor>
#include <QFont>
#include <array>
#include <kelo_base/dxf/SheetPreview.h>
#include <optional>

class QPalette;

struct SheetLook
{
    struct Style
    {
        QColor fill;
        QColor line;
        QColor text;
        Qt::PenStyle pen;
    };
    QColor page;
    QColor ink; ///< of the legend
    Style labelled;
    Style unlabelled;
    Style unnumbered;
    /// Clockwise from top left; they differ in brightness too, for those who do not see all hues.
    std::array<QColor, 4> corners;
    /// Of frames around sheets that are new, moved and renamed.
    std::array<QColor, 3> news{QColor(0x1A, 0x7F, 0x37), QColor(0xD9, 0x6A, 0x00),
                               QColor(0x8A, 0x3F, 0xC8)};
    QFont font = {}; ///< of any size

    [[nodiscard]] QColor of(SheetNews kind) const
    {
        return news[static_cast<std::size_t>(kind) - 1];
    }

    /// Sheets that are not exported are fainter than others, those that are not chosen most.
    [[nodiscard]] Style of(SheetKind kind, SheetState state) const;
};

namespace dxftools {

/// Of pictures that are saved: the same on every machine.
[[nodiscard]] SheetLook paperLook();
/// Light on a light palette, dark on a dark one. Nothing shines through: it is quicker to paint.
[[nodiscard]] SheetLook screenLook(const QPalette &palette, const QFont &font);

/// @param part  how much of @p b there is in it, from 0 to 1
[[nodiscard]] QColor mixedColour(const QColor &a, const QColor &b, float part);

} // namespace dxftools

/// Boxes that are ticked stand beside numbers where marks can be set.
struct MarkBox
{
    QRectF box;       ///< before it is turned with the number about the figure's centre
    double shift = 0; ///< by which the number makes room
};
namespace dxftools {

[[nodiscard]] std::optional<MarkBox> markBoxOf(const SheetFigure &figure);

} // namespace dxftools

/// How a picture is painted. Points of the picture times the scale plus the origin are pixels.
struct SheetScene
{
    const SheetPicture &picture;
    const DxfDrawing &drawing;
    const SheetLook &look;
    double scale = 1;
    QPointF origin = {};
    QRectF area = {};          ///< in pixels; what lies outside is not painted
    double leastOutlined = 12; ///< pixels; smaller sheets are spots
    double leastCornered = 22; ///< smaller ones have no marks in their corners
    double leastText = 7;      ///< heights of numbers: smaller ones cannot be read,
    double mostText = 60;      ///< larger ones say no more
    double lineWidth = 1;
    bool hasBoxes = false; ///< beside the numbers
    bool isBundled =
        false; ///< few paths instead of many: short to write, but overlaps run together
    QColor highlight = {};
    const std::vector<bool> *isSelected = nullptr; ///< one for each place
};

namespace dxftools {

/// A figure as large as in the scene, with its number where it can be read.
[[nodiscard]] SheetFigure figureIn(const SheetScene &scene, const SheetPlace &place);

/// Paints the page and the sheets. The smaller they are, the less of them is painted: from numbers
/// and corners down to a spot, so that a million take no longer than some thousands. Corners go
/// above all outlines, numbers above all corners. Selected ones have a thick outline and a tint.
void paintScene(QPainter &painter, const SheetScene &scene);

/// @param textHeight  of the text beside it, in pixels; the mark stands on the same base line
void paintLegendMark(QPainter &painter, const LegendEntry &entry, double textHeight,
                     const SheetLook &look);

} // namespace dxftools
