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
#include <kelo_base/dxf/SheetComparison.h>
#include <span>
#include <vector>

class QIODevice;
class QPainter;

enum class SheetKind : quint8 {
    Labelled,   ///< has a frame with labelled corners
    Unlabelled, ///< has none; shown by what its block holds
    Unnumbered  ///< has no sheet number, so that an export skips it
};

/// What becomes of a sheet.
enum class SheetState : quint8 {
    Exported,
    Unmarked,   ///< its export mark was taken away
    FilteredOut ///< not among the sheets chosen
};

/// How a sheet differs from an older file.
enum class SheetNews : quint8 { None, New, Moved, Renamed };

/// Where a sheet lies in a picture, or all sheets of one block that lie on one place. Small, for
/// there may be a million; what is seen of it is FigureOf().
struct SheetPlace
{
    QRectF bounds;          ///< pixels of the page, y growing downwards
    quint32 firstSheet = 0; ///< index into SheetPicture::sheets
    quint32 sheetCount = 0; ///< at least 1
    SheetKind kind = SheetKind::Labelled;
    SheetState state = SheetState::Exported;
    SheetNews news = SheetNews::None;
};

/// What is to be seen at a place, in pixels of the page, y growing downwards.
struct SheetFigure
{
    SheetKind kind = SheetKind::Labelled;
    SheetState state = SheetState::Exported;
    SheetNews news = SheetNews::None;
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
    enum class Mark {
        None,
        Sheet,
        Unlabelled,
        Unnumbered,
        Unmarked,
        FilteredOut,
        New,
        Moved,
        Renamed,
        Corner,
        ScaleBar
    };
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
    QString title;
    QSizeF size;
    bool isMap = false;
    bool isMoved = false;     ///< inserts move some of the sheets, which is not shown
    double pixelsPerUnit = 0; ///< the scale; units are the drawing's
    double legendTextHeight = 0;
    qint64 gone = 0; ///< sheets of an older file that are no more
    std::vector<SheetPlace> places;
    std::vector<quint32> sheets; ///< indices into DxfDrawing::Inserts(), ordered by places
    std::vector<LegendEntry> legend;

    [[nodiscard]] std::span<const quint32> SheetsAt(const SheetPlace &place) const
    {
        return std::span(sheets).subspan(place.firstSheet, place.sheetCount);
    }
};

/// Lays a picture out; knows no painter and no fonts. The page grows with the number of sheets up
/// to 4,000 pixels.
/// @param sheets  as SelectSheets() gives them
[[nodiscard]] KELO_BASE_EXPORT SheetPicture LayOutSheets(const DxfDrawing &drawing,
                                                         std::span<const quint32> sheets,
                                                         const QString &title);

/// Shows what becomes of each sheet, and counts it in the legend.
/// @param drawing  the one that was laid out; its export marks are looked at
/// @param chosen  those that the filter lets pass
KELO_BASE_EXPORT void ShowSheetStates(SheetPicture &picture, const DxfDrawing &drawing,
                                      std::span<const quint32> chosen);

/// A sheet that differs from an older file.
struct ChangedSheet
{
    quint32 sheet = 0;
    SheetNews news = SheetNews::None;
};
/// The changes that can be seen; sheets that are gone cannot.
/// @param written  the sheets of the newer records, as Gk2RecordsOf() gives them
[[nodiscard]] KELO_BASE_EXPORT std::vector<ChangedSheet>
ChangedSheetsOf(std::span<const SheetChange> changes, std::span<const quint32> written);
/// Shows what changed, and counts it in the legend; to be called before ShowSheetStates().
KELO_BASE_EXPORT void ShowSheetNews(SheetPicture &picture, std::span<const ChangedSheet> changed,
                                    qint64 gone);

/// @param drawing  the one that was laid out, with the same labels
[[nodiscard]] KELO_BASE_EXPORT SheetFigure FigureOf(const SheetPicture &picture,
                                                    const SheetPlace &place,
                                                    const DxfDrawing &drawing);

KELO_BASE_EXPORT void PaintSheets(QPainter &painter, const SheetPicture &picture,
                                  const DxfDrawing &drawing);

enum class SheetPictureFormat { Svg, Png };

/// Of very many sheets an SVG leaves details out, so that it stays below 5 MB. Wants an application
/// object with fonts (QGuiApplication). False when the device failed.
KELO_BASE_EXPORT bool WriteSheetPicture(QIODevice &device, const SheetPicture &picture,
                                        const DxfDrawing &drawing, SheetPictureFormat format);
