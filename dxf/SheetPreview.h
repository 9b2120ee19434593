// SPDX-License-Identifier: GPL-2.0-or-later
// Draws the sheets of a plan with their numbers and corners.
#pragma once

#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <array>
#include <kelo_base/core/Export.h>
#include <kelo_base/dxf/DxfDrawing.h>
#include <span>
#include <vector>

class QIODevice;
class QPainter;

/// One sheet of a picture, in pixels of the page, y growing downwards.
struct SheetFigure
{
    enum class Kind {
        Labelled,   ///< has a frame with labelled corners
        Unlabelled, ///< has none; shown by what its block holds
        Unnumbered  ///< has no sheet number, so that an export skips it
    };
    Kind kind = Kind::Labelled;
    /// Which it stands for, as given to LayOutSheets(): several where sheets of one block lie on
    /// one place.
    std::vector<quint32> sheets;
    std::vector<QPolygonF> outlines;
    QRectF bounds;                  ///< of the outlines
    std::array<QPointF, 4> corners; ///< clockwise from top left; all equal when not labelled
    QString number;                 ///< several with commas between them; of many only the first
    QPointF centre;
    double angle = 0;      ///< of the number, in degrees clockwise; it reads along the lower edge
    double textHeight = 0; ///< of the number, in pixels; 0: too small to be read, not written
};

/// A piece of the legend: a mark at the left of its text, on one base line.
struct LegendEntry
{
    enum class Mark { None, Sheet, Unlabelled, Unnumbered, Corner, ScaleBar };
    Mark mark = Mark::None;
    int corner = 0; ///< which, counted as in SheetFigure::corners
    QPointF position;
    double markWidth = 0;
    QString text;
    bool isTitle = false;
};

/// A page with sheets to one scale and a legend below. Where the sheets lie apart in the plan they
/// lie so here; where they cover each other, or too far apart to be read, they stand in rows.
struct SheetPicture
{
    QSizeF size;
    bool isMap = false;
    double pixelsPerUnit = 0; ///< the scale; units are the drawing's
    double legendTextHeight = 0;
    std::vector<SheetFigure> figures;
    std::vector<LegendEntry> legend;
};

/// Lays a picture out; knows no painter and no fonts.
/// @param sheets  as SelectSheets() gives them; of very many only the first 20,000 are drawn
[[nodiscard]] KELO_BASE_EXPORT SheetPicture LayOutSheets(const DxfDrawing &drawing,
                                                         std::span<const quint32> sheets,
                                                         const QString &title);

KELO_BASE_EXPORT void PaintSheets(QPainter &painter, const SheetPicture &picture);

enum class PictureFormat { Svg, Png };

/// Wants an application object with fonts (QGuiApplication). False when the device failed.
KELO_BASE_EXPORT bool WriteSheetPicture(QIODevice &device, const SheetPicture &picture,
                                        PictureFormat format);
