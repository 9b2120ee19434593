// SPDX-License-Identifier: GPL-2.0-or-later
// Pieces of the picture of sheets, in the colours of paper or of a palette.
#pragma once

#include <QColor>
#include <QFont>
#include <array>
#include <kelo_base/dxf/SheetPreview.h>

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
    QFont font; ///< of any size

    [[nodiscard]] const Style &Of(SheetFigure::Kind kind) const;
};

/// Of pictures that are saved: the same on every machine.
[[nodiscard]] SheetLook PaperLook();
/// Light on a light palette, dark on a dark one. Nothing shines through: it is quicker to paint.
[[nodiscard]] SheetLook ScreenLook(const QPalette &palette, const QFont &font);

/// @param part  how much of @p b there is in it, from 0 to 1
[[nodiscard]] QColor MixedColour(const QColor &a, const QColor &b, float part);

// What a figure consists of. Where sheets overlap, corners go above all outlines, and numbers above
// all corners.

void PaintSheetOutlines(QPainter &painter, const SheetFigure &figure, const SheetLook &look,
                        double lineWidth);
/// A wedge in each labelled corner, inside the frame so that neighbours do not cover it; the top
/// left one is larger, so that it shows which way a sheet is turned even where colours do not.
void PaintSheetCorners(QPainter &painter, const SheetFigure &figure, const SheetLook &look);
void PaintSheetNumber(QPainter &painter, const SheetFigure &figure, const SheetLook &look);
/// @param textHeight  of the text beside it, in pixels; the mark stands on the same base line
void PaintLegendMark(QPainter &painter, const LegendEntry &entry, double textHeight,
                     const SheetLook &look);
