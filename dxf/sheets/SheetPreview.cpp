// SPDX-License-Identifier: GPL-2.0-or-later
// Lays out the sheets of a plan as a picture.
#include <kelo_base/dxf/SheetPreview.h>

#include "dxf/read/sheetnumber_p.h"
#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/sheets/sheetpicture_p.h"
#include <QLocale>
#include <algorithm>
#include <cmath>
#include <kelo_base/dxf/SheetCorners.h>
#include <kelo_base/dxf/SheetPlacing.h>
#include <numbers>
#include <unordered_map>
#include <unordered_set>

namespace {

constexpr std::size_t kMostFigures = 20'000;
constexpr std::size_t kMostPoints = 400; ///< of one sheet without labels

using Kind = SheetFigure::Kind;
using Mark = LegendEntry::Mark;

/// A sheet before it has its place: coordinates of the drawing, but y growing downwards.
struct Draft
{
    SheetFigure figure;
    quint32 block = 0;
};

/// Where a draft goes: scaled by pixelsPerUnit after being moved by this much.
struct Placement
{
    std::vector<QPointF> shifts;
    QSizeF size; ///< of all, in units of the drawing
};

QPointF point(const DxfVertex &vertex)
{
    constexpr double kFarthest = 1e100; // so that sums and products stay finite
    return {std::clamp(vertex.x, -kFarthest, kFarthest),
            -std::clamp(vertex.y, -kFarthest, kFarthest)};
}

QPolygonF outline(const DxfDrawing &drawing, const DxfPolyline &polyline, std::size_t most)
{
    QPolygonF points;
    const auto vertices = drawing.Vertices(polyline);
    for (const DxfVertex &vertex : vertices.first(std::min(vertices.size(), most)))
        points << point(vertex);
    if (polyline.closed && !points.isEmpty())
        points << points.first();
    return points;
}

/// Takes the frame; without one, as much as shows what the block holds instead.
void takeOutlines(Draft &draft, const DxfDrawing &drawing, const DxfBlock &block)
{
    std::size_t room = kMostPoints;
    for (const DxfPolyline &polyline : drawing.Polylines(block)) {
        const bool isFrame = polyline.vertexCount >= 4 && drawing.Corner(polyline, 0) != vpUnknown;
        if (isFrame) {
            draft.figure.kind = Kind::Labelled;
            draft.figure.outlines = {outline(drawing, polyline, 5)};
            const SheetCorners corners = CornersOf(drawing, polyline);
            for (std::size_t i = 0; i < corners.size(); ++i)
                if (corners[i])
                    draft.figure.corners[i] = point(*corners[i]);
            return;
        }
        if (polyline.vertexCount > 0 && room > 0) {
            draft.figure.outlines.push_back(outline(drawing, polyline, room));
            room -= std::min<std::size_t>(room, polyline.vertexCount);
        }
    }
    draft.figure.kind = Kind::Unlabelled;
}

QRectF boundsOf(const std::vector<QPolygonF> &outlines)
{
    QRectF bounds;
    for (bool isFirst = true; const QPolygonF &points : outlines) {
        const QRectF own = points.boundingRect();
        bounds = isFirst ? own
                         : QRectF(QPointF(std::min(bounds.left(), own.left()),
                                          std::min(bounds.top(), own.top())),
                                  QPointF(std::max(bounds.right(), own.right()),
                                          std::max(bounds.bottom(), own.bottom())));
        isFirst = false; // QRectF::united() would leave out what has no area
    }
    return bounds;
}

std::vector<Draft> draftSheets(const DxfDrawing &drawing, std::span<const quint32> sheets)
{
    std::vector<Draft> drafts;
    for (const quint32 sheet : sheets.first(std::min(sheets.size(), kMostFigures))) {
        const DxfInsert &insert = drawing.Inserts()[sheet];
        const DxfBlock *block = drawing.BlockOf(insert);
        if (!block)
            continue;
        Draft draft;
        draft.figure.sheets = {sheet};
        takeOutlines(draft, drawing, *block);
        if (const auto number = SheetNumberAttribute(drawing, insert))
            draft.figure.number = drawing.DisplayText(number->substr(0, 60)).simplified();
        else
            draft.figure.kind = Kind::Unnumbered;
        draft.figure.bounds = boundsOf(draft.figure.outlines);
        draft.block = insert.block;
        drafts.push_back(std::move(draft));
    }
    return drafts;
}

/// The usual length of a sheet's short side; more than 0.
double usualSide(const std::vector<Draft> &drafts)
{
    std::vector<double> sides;
    for (const Draft &draft : drafts)
        if (const double side = std::min(draft.figure.bounds.width(), draft.figure.bounds.height());
            side > 0)
            sides.push_back(side);
    if (sides.empty())
        return 1;
    const auto middle = sides.begin() + static_cast<std::ptrdiff_t>(sides.size() / 2);
    std::ranges::nth_element(sides, middle);
    return *middle;
}

/// Whether most sheets share a block, or blocks lie on top of each other, as they do when each
/// begins at the origin.
bool areStacked(const std::vector<Draft> &drafts, double side)
{
    static constexpr double kMostCells = 1e9; // beyond, they are so small that it does not matter
    const auto cell = [side](double centre) {
        const double number = std::floor(centre / side * 2);
        return static_cast<qint64>(std::clamp(number, -kMostCells, kMostCells));
    };
    std::unordered_set<quint32> blocks;
    std::unordered_set<qint64> places;
    for (const Draft &draft : drafts) {
        const QPointF centre = draft.figure.bounds.center();
        blocks.insert(draft.block);
        places.insert(cell(centre.x()) * qint64{4'000'000'007} + cell(centre.y()));
    }
    return blocks.size() * 2 < drafts.size() || places.size() * 10 < blocks.size() * 9;
}

Placement placeAsMap(const std::vector<Draft> &drafts)
{
    QRectF all = drafts.front().figure.bounds;
    for (const Draft &draft : drafts) {
        all.setLeft(std::min(all.left(), draft.figure.bounds.left()));
        all.setRight(std::max(all.right(), draft.figure.bounds.right()));
        all.setTop(std::min(all.top(), draft.figure.bounds.top()));
        all.setBottom(std::max(all.bottom(), draft.figure.bounds.bottom()));
    }
    return {std::vector(drafts.size(), -all.topLeft()), all.size()};
}

Placement placeInRows(const std::vector<Draft> &drafts, double rowWidth, double gap)
{
    Placement placement;
    QPointF next(0, 0);
    double rowHeight = 0;
    double width = 0;
    for (const Draft &draft : drafts) {
        if (next.x() > 0 && next.x() + draft.figure.bounds.width() > rowWidth) {
            next = {0, next.y() + rowHeight + gap};
            rowHeight = 0;
        }
        placement.shifts.push_back(next - draft.figure.bounds.topLeft());
        next.rx() += draft.figure.bounds.width();
        width = std::max(width, next.x());
        next.rx() += gap;
        rowHeight = std::max(rowHeight, draft.figure.bounds.height());
    }
    placement.size = {width, next.y() + rowHeight};
    return placement;
}

/// Rows that together are about as wide as a page in landscape.
Placement placeInRows(const std::vector<Draft> &drafts, double side)
{
    constexpr double kAspect = 1.45;
    const double gap = side / 8;
    double total = 0;
    double narrowest = 0;
    for (const Draft &draft : drafts) {
        total += draft.figure.bounds.width() + gap;
        narrowest = std::max(narrowest, draft.figure.bounds.width());
    }
    double widest = std::max(total, narrowest);
    for (int round = 0; round < 40; ++round) {
        const double middle = narrowest + (widest - narrowest) / 2;
        const QSizeF size = placeInRows(drafts, middle, gap).size;
        (size.width() < kAspect * size.height() ? narrowest : widest) = middle;
    }
    return placeInRows(drafts, widest, gap);
}

/// The drawing's part of the page: enough for each sheet, in the shape of what it has to hold.
QSizeF pageFor(const Placement &placement, std::size_t figures)
{
    constexpr double kCell = 50; // pixels for a sheet among many
    const double side = std::clamp(kCell * std::sqrt(static_cast<double>(figures)), 800.0, 2600.0);
    const double width = placement.size.width();
    const double height = placement.size.height();
    const double shape = width > 0 && height > 0 ? width / height : width > 0 ? 3.0 : 1.0;
    const double stretch = std::sqrt(std::clamp(shape, 0.4, 3.0));
    return {side * stretch, side / stretch};
}

double scaleFor(const Placement &placement, QSizeF page)
{
    const double x = placement.size.width() > 0 ? page.width() / placement.size.width() : 0;
    const double y = placement.size.height() > 0 ? page.height() / placement.size.height() : 0;
    const double scale = x > 0 && y > 0 ? std::min(x, y) : std::max(x, y);
    return scale > 0 && std::isfinite(scale) ? scale : 1;
}

/// Sheets of one block lie on one place in a map: one figure for all of them.
void joinBlocks(std::vector<Draft> &drafts)
{
    constexpr QChar kMore(0x2026); // an ellipsis
    std::unordered_map<quint32, std::size_t> figureOfBlock;
    std::vector<Draft> joined;
    for (Draft &draft : drafts) {
        const auto [entry, isNew] = figureOfBlock.try_emplace(draft.block, joined.size());
        if (isNew) {
            joined.push_back(std::move(draft));
            continue;
        }
        SheetFigure &figure = joined[entry->second].figure;
        figure.sheets.push_back(draft.figure.sheets.front());
        if (draft.figure.kind == Kind::Unnumbered || figure.number.endsWith(kMore))
            continue;
        const bool hasNumber = figure.kind != Kind::Unnumbered;
        if (hasNumber && figure.number.size() > 20)
            draft.figure.number = kMore;
        draft.figure.number.prepend(hasNumber ? figure.number + QLatin1String(", ") : QString());
        draft.figure.sheets = std::move(figure.sheets);
        figure = std::move(draft.figure);
    }
    drafts = std::move(joined);
}

/// Writes the legend from left to right and top to bottom.
class LegendWriter
{
public:
    LegendWriter(SheetPicture &picture, double margin, double top, double textHeight)
        : m_picture(picture),
          m_margin(margin),
          m_height(textHeight),
          m_next(margin, top + textHeight)
    {
        picture.legendTextHeight = textHeight;
    }

    void Add(LegendEntry entry)
    {
        const double mark = entry.mark == Mark::None ? 0 : entry.markWidth + m_height / 2;
        const double width = mark + kCharacterWidth * m_height * (entry.isTitle ? 1.25 : 1) *
                                        static_cast<double>(entry.text.size());
        if (m_next.x() > m_margin && m_next.x() + width > m_picture.size.width() - m_margin)
            Break();
        entry.position = m_next;
        m_next.rx() += width + 1.6 * m_height;
        m_picture.legend.push_back(std::move(entry));
    }
    void Add(Mark mark, const QString &text, int corner = 0)
    {
        Add({.mark = mark,
             .corner = corner,
             .position = {},
             .markWidth = 1.2 * m_height,
             .text = text});
    }
    void Break() { m_next = {m_margin, m_next.y() + 1.7 * m_height}; }
    [[nodiscard]] double Bottom() const { return m_next.y() + 0.9 * m_height; }

private:
    SheetPicture &m_picture;
    double m_margin;
    double m_height;
    QPointF m_next;
};

/// @param isMoved  inserts move some of the sheets, which is not shown
void writeLegend(SheetPicture &picture, double margin, double top, const QString &title,
                 std::size_t sheets, bool isMoved)
{
    const auto count = [&picture](Kind kind) {
        return std::ranges::count(picture.figures, kind, &SheetFigure::kind);
    };
    LegendWriter legend(picture, margin, top, std::clamp(picture.size.width() / 75, 13.0, 34.0));
    legend.Add({.position = {}, .text = title, .isTitle = true});
    legend.Add(Mark::None, DxfToolTexts::SheetsDrawn(static_cast<qint64>(sheets),
                                                     std::min(sheets, kMostFigures)));
    legend.Add(Mark::None, !picture.isMap ? DxfToolTexts::DrawnInRows()
                           : isMoved      ? DxfToolTexts::DrawnWithoutPlacement()
                                          : DxfToolTexts::DrawnInPlace());
    legend.Break();
    legend.Add(Mark::Sheet, DxfToolTexts::SheetInPreview());
    const QStringList corners = DxfToolTexts::CornersInPreview();
    for (int corner = 0; corner < 4; ++corner)
        legend.Add(Mark::Corner, corners[corner], corner);
    if (count(Kind::Unlabelled) > 0)
        legend.Add(Mark::Unlabelled, DxfToolTexts::UnlabelledInPreview(count(Kind::Unlabelled)));
    if (count(Kind::Unnumbered) > 0)
        legend.Add(Mark::Unnumbered, DxfToolTexts::UnnumberedInPreview(count(Kind::Unnumbered)));
    const double length = RoundLength(picture.size.width() / 7 / picture.pixelsPerUnit);
    if (!picture.figures.empty() && std::isnormal(length))
        legend.Add({.mark = Mark::ScaleBar,
                    .position = {},
                    .markWidth = length * picture.pixelsPerUnit,
                    .text = DxfToolTexts::UnitsInPreview(QLocale::c().toString(length, 'g', 6))});
    picture.size.setHeight(std::ceil(legend.Bottom() + margin / 2));
}

} // namespace

void MoveFigure(SheetFigure &figure, QPointF shift, double scale, QPointF origin)
{
    const auto moved = [=](QPointF p) { return origin + (p + shift) * scale; };
    for (QPolygonF &points : figure.outlines)
        for (QPointF &p : points)
            p = moved(p);
    for (QPointF &p : figure.corners)
        p = figure.outlines.empty() ? QPointF() : moved(p);
    figure.bounds = QRectF(moved(figure.bounds.topLeft()), moved(figure.bounds.bottomRight()));
}

void PlaceNumber(SheetFigure &figure, double least, double most)
{
    double width = figure.bounds.width();
    double height = figure.bounds.height();
    const QPointF run = figure.corners[2] - figure.corners[3];
    const QPointF rise = figure.corners[0] - figure.corners[3];
    if (!run.isNull()) {
        width = std::hypot(run.x(), run.y());
        height = std::hypot(rise.x(), rise.y());
        const double turned = std::atan2(run.y(), run.x()) * 180 / std::numbers::pi;
        figure.angle = turned > 90 ? turned - 180 : turned <= -90 ? turned + 180 : turned;
    }
    const auto characters = static_cast<double>(std::max<qsizetype>(figure.number.size(), 1));
    const double fits = std::min(0.42 * height, 0.78 * width / (kCharacterWidth * characters));
    figure.textHeight = fits < least ? 0 : std::min(fits, most);
    figure.centre = figure.bounds.center();
}

double RoundLength(double most)
{
    const double power = std::pow(10.0, std::floor(std::log10(most)));
    return most >= 5 * power ? 5 * power : most >= 2 * power ? 2 * power : power;
}

SheetPicture LayOutSheets(const DxfDrawing &drawing, std::span<const quint32> sheets,
                          const QString &title)
{
    std::vector<Draft> drafts = draftSheets(drawing, sheets);
    SheetPicture picture;
    QSizeF page(800, 300); // of no sheets
    Placement placement;
    if (!drafts.empty()) {
        const double side = usualSide(drafts);
        placement = placeInRows(drafts, side);
        const Placement map = placeAsMap(drafts);
        const double inRows = scaleFor(placement, pageFor(placement, drafts.size()));
        const double inMap = scaleFor(map, pageFor(map, drafts.size()));
        picture.isMap = !areStacked(drafts, side) && inMap >= inRows / 3;
        if (picture.isMap) {
            joinBlocks(drafts);
            placement = placeAsMap(drafts);
        }
        page = pageFor(placement, drafts.size());
    }
    picture.pixelsPerUnit = scaleFor(placement, page);
    const QSizeF used = placement.size * picture.pixelsPerUnit;
    const double margin = std::max(24.0, page.width() / 45);
    constexpr double kNarrowest = 900; // for the legend
    const double width = std::ceil(std::max(used.width() + 2 * margin, kNarrowest));
    const QPointF origin((width - used.width()) / 2, margin);
    picture.figures.reserve(drafts.size());
    for (std::size_t i = 0; i < drafts.size(); ++i) {
        SheetFigure &figure = picture.figures.emplace_back(std::move(drafts[i].figure));
        MoveFigure(figure, placement.shifts[i], picture.pixelsPerUnit, origin);
        constexpr double kLeast = 4;
        constexpr double kMost = 140;
        PlaceNumber(figure, kLeast, kMost);
    }
    picture.size = {width, 0};
    const auto isMoved = [&](quint32 sheet) { return IsMoved(drawing, sheet); };
    writeLegend(picture, margin, used.height() + 2 * margin, title, sheets.size(),
                std::ranges::any_of(sheets, isMoved));
    return picture;
}
