// SPDX-License-Identifier: GPL-2.0-or-later
// Lays out the sheets of a plan as a picture.
#include <kelo_base/dxf/SheetPreview.h>

#include "dxf/read/sheetnumber_p.h"
#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/sheets/figurelayout_p.h"
#include <QLocale>
#include <algorithm>
#include <cmath>
#include <kelo_base/dxf/SheetCorners.h>
#include <kelo_base/dxf/SheetPlacing.h>
#include <limits>
#include <numbers>
#include <unordered_map>
#include <utility>

namespace {

constexpr std::size_t kMostPoints = 400; ///< of one sheet without labels

using Mark = LegendEntry::Mark;

/// Where the sheets go: scaled by pixelsPerUnit after being moved by this much.
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

/// What of a block is drawn: the frame; without one, as much as shows what the block holds instead.
struct Drawn
{
    struct Part
    {
        const DxfPolyline *polyline;
        std::size_t points;
    };
    std::vector<Part> parts;
    bool isFrame = false;
};

Drawn drawnOf(const DxfDrawing &drawing, const DxfBlock &block)
{
    Drawn drawn;
    std::size_t room = kMostPoints;
    for (const DxfPolyline &polyline : drawing.Polylines(block)) {
        const std::size_t count = polyline.vertexCount;
        if (count >= 4 && drawing.Corner(polyline, 0) != vpUnknown)
            return {.parts = {{&polyline, std::min<std::size_t>(count, 5)}}, .isFrame = true};
        if (count > 0 && room > 0)
            drawn.parts.push_back({&polyline, std::min(count, room)});
        room -= std::min(count, room);
    }
    return drawn;
}

QRectF boundsOf(const DxfDrawing &drawing, const Drawn &drawn)
{
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    QPointF low(kInfinite, kInfinite);
    QPointF high = -low;
    for (const Drawn::Part &part : drawn.parts) {
        for (const DxfVertex &vertex : drawing.Vertices(*part.polyline).first(part.points)) {
            const QPointF p = point(vertex);
            low = {std::min(low.x(), p.x()), std::min(low.y(), p.y())};
            high = {std::max(high.x(), p.x()), std::max(high.y(), p.y())};
        }
    }
    return low.x() <= high.x() ? QRectF(low, high) : QRectF();
}

/// The sheets before they have their places: bounds in units of the drawing, y growing downwards.
std::vector<SheetPlace> draftPlaces(const DxfDrawing &drawing, std::span<const quint32> sheets)
{
    std::vector<SheetPlace> places;
    places.reserve(sheets.size());
    const DxfBlock *last = nullptr; // most plans have a block for each sheet, or one for all
    SheetPlace ofBlock;
    for (quint32 i = 0; i < sheets.size(); ++i) {
        const DxfInsert &insert = drawing.Inserts()[sheets[i]];
        const DxfBlock *block = drawing.BlockOf(insert);
        if (block != last) {
            const Drawn drawn = drawnOf(drawing, *block);
            ofBlock.kind = drawn.isFrame ? SheetKind::Labelled : SheetKind::Unlabelled;
            ofBlock.bounds = boundsOf(drawing, drawn);
            last = block;
        }
        SheetPlace &place = places.emplace_back(ofBlock);
        place.firstSheet = i;
        place.sheetCount = 1;
        if (!dxftools::sheetNumberAttribute(drawing, insert))
            place.kind = SheetKind::Unnumbered;
    }
    return places;
}

/// The usual length of a sheet's short side; more than 0.
double usualSide(const std::vector<SheetPlace> &places)
{
    std::vector<double> sides;
    sides.reserve(places.size());
    for (const SheetPlace &place : places)
        if (const double side = std::min(place.bounds.width(), place.bounds.height()); side > 0)
            sides.push_back(side);
    if (sides.empty())
        return 1;
    const auto middle = sides.begin() + static_cast<std::ptrdiff_t>(sides.size() / 2);
    std::ranges::nth_element(sides, middle);
    return *middle;
}

/// How many different ones there are.
template <typename T>
std::size_t countDifferent(std::vector<T> items)
{
    std::ranges::sort(items);
    items.erase(std::unique(items.begin(), items.end()), items.end());
    return items.size();
}

/// Whether most sheets share a block, or blocks lie on top of each other, as they do when each
/// begins at the origin.
bool areStacked(const std::vector<SheetPlace> &places, const std::vector<quint32> &blocks,
                double side)
{
    static constexpr double kMostCells = 1e9; // beyond, they are so small that it does not matter
    const auto cell = [side](double centre) {
        const double number = std::floor(centre / side * 2);
        return static_cast<qint64>(std::clamp(number, -kMostCells, kMostCells));
    };
    const std::size_t differentBlocks = countDifferent(blocks);
    if (differentBlocks * 2 < places.size())
        return true;
    std::vector<qint64> cells;
    cells.reserve(places.size());
    for (const SheetPlace &place : places) {
        const QPointF centre = place.bounds.center();
        cells.push_back(cell(centre.x()) * qint64{4'000'000'007} + cell(centre.y()));
    }
    return countDifferent(std::move(cells)) * 10 < differentBlocks * 9;
}

QRectF boundsOf(const std::vector<SheetPlace> &places)
{
    QRectF all = places.front().bounds; // QRectF::united() would leave out what has no area
    for (const SheetPlace &place : places) {
        all.setLeft(std::min(all.left(), place.bounds.left()));
        all.setRight(std::max(all.right(), place.bounds.right()));
        all.setTop(std::min(all.top(), place.bounds.top()));
        all.setBottom(std::max(all.bottom(), place.bounds.bottom()));
    }
    return all;
}

Placement placeAsMap(const std::vector<SheetPlace> &places)
{
    const QRectF all = boundsOf(places);
    return {std::vector(places.size(), -all.topLeft()), all.size()};
}

/// Calls @p take with the shift of each sheet. Gives the size of all.
template <typename Take>
QSizeF walkInRows(const std::vector<SheetPlace> &places, double rowWidth, double gap, Take take)
{
    QPointF next(0, 0);
    double rowHeight = 0;
    double width = 0;
    for (const SheetPlace &place : places) {
        if (next.x() > 0 && next.x() + place.bounds.width() > rowWidth) {
            next = {0, next.y() + rowHeight + gap};
            rowHeight = 0;
        }
        take(next - place.bounds.topLeft());
        next.rx() += place.bounds.width();
        width = std::max(width, next.x());
        next.rx() += gap;
        rowHeight = std::max(rowHeight, place.bounds.height());
    }
    return {width, next.y() + rowHeight};
}

/// Rows that together are about as wide as a page in landscape.
Placement placeInRows(const std::vector<SheetPlace> &places, double side)
{
    constexpr double kAspect = 1.45;
    const double gap = side / 8;
    double total = 0;
    double narrowest = 0;
    for (const SheetPlace &place : places) {
        total += place.bounds.width() + gap;
        narrowest = std::max(narrowest, place.bounds.width());
    }
    double widest = std::max(total, narrowest);
    const int rounds = places.size() < 10'000 ? 40 : 16; // so many that a row does not show
    for (int round = 0; round < rounds; ++round) {
        const double middle = narrowest + (widest - narrowest) / 2;
        const QSizeF size = walkInRows(places, middle, gap, [](QPointF) {});
        (size.width() < kAspect * size.height() ? narrowest : widest) = middle;
    }
    Placement placement;
    placement.shifts.reserve(places.size());
    placement.size =
        walkInRows(places, widest, gap, [&](QPointF shift) { placement.shifts.push_back(shift); });
    return placement;
}

/// The drawing's part of the page: enough for each sheet, in the shape of what it has to hold.
QSizeF pageFor(const Placement &placement, std::size_t figures)
{
    constexpr double kCell = 50;      // pixels for a sheet among many
    constexpr double kLargest = 3600; // with margins and legend below 4,000
    const double side = std::max(kCell * std::sqrt(static_cast<double>(figures)), 800.0);
    const double width = placement.size.width();
    const double height = placement.size.height();
    const double shape = width > 0 && height > 0 ? width / height : width > 0 ? 3.0 : 1.0;
    const double stretch = std::sqrt(std::clamp(shape, 0.4, 3.0));
    const double fits = std::min(1.0, kLargest / (side * std::max(stretch, 1 / stretch)));
    return {side * stretch * fits, side / stretch * fits};
}

double scaleFor(const Placement &placement, QSizeF page)
{
    const double x = placement.size.width() > 0 ? page.width() / placement.size.width() : 0;
    const double y = placement.size.height() > 0 ? page.height() / placement.size.height() : 0;
    const double scale = x > 0 && y > 0 ? std::min(x, y) : std::max(x, y);
    return scale > 0 && std::isfinite(scale) ? scale : 1;
}

/// Sheets of one block lie on one place in a map: one place for all of them.
void joinBlocks(SheetPicture &picture, const DxfDrawing &drawing)
{
    constexpr quint32 kNone = 0xFFFFFFFF;
    std::vector<quint32> placeOfBlock(drawing.Blocks().size(), kNone);
    std::vector<SheetPlace> joined;
    std::vector<quint32> placeOf(picture.places.size()); // of each sheet
    for (quint32 i = 0; i < picture.places.size(); ++i) {
        const SheetPlace &own = picture.places[i];
        quint32 &place = placeOfBlock[drawing.Inserts()[picture.sheets[i]].block];
        if (place == kNone) {
            place = static_cast<quint32>(joined.size());
            joined.push_back(own);
            joined.back().sheetCount = 0;
        } else if (joined[place].kind == SheetKind::Unnumbered) {
            joined[place].kind = own.kind; // one with a number speaks for all
        }
        placeOf[i] = place;
        ++joined[place].sheetCount;
    }
    quint32 first = 0;
    std::vector<quint32> next(joined.size());
    for (std::size_t i = 0; i < joined.size(); ++i) {
        joined[i].firstSheet = next[i] = first;
        first += joined[i].sheetCount;
    }
    std::vector<quint32> sheets(picture.sheets.size());
    for (std::size_t i = 0; i < placeOf.size(); ++i)
        sheets[next[placeOf[i]]++] = picture.sheets[i];
    picture.sheets = std::move(sheets);
    picture.places = std::move(joined);
}

/// The number, or several with commas between them; of many only the first.
QString numberText(const SheetPicture &picture, const SheetPlace &place, const DxfDrawing &drawing)
{
    constexpr QChar kMore(0x2026); // an ellipsis
    QString text;
    for (const quint32 sheet : picture.SheetsAt(place)) {
        const auto number = dxftools::sheetNumberAttribute(drawing, drawing.Inserts()[sheet]);
        if (!number)
            continue;
        if (text.size() > 20)
            return text + QLatin1String(", ") + kMore;
        if (!text.isEmpty())
            text += QLatin1String(", ");
        text += drawing.DisplayText(number->substr(0, 60)).simplified();
    }
    return text;
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

struct StateCounts ///< in sheets
{
    qint64 unlabelled = 0;
    qint64 unnumbered = 0;
    qint64 unmarked = 0;
    qint64 filteredOut = 0;
};

/// How many places have some news.
qint64 countNews(const SheetPicture &picture, SheetNews news)
{
    return std::ranges::count(picture.places, news, &SheetPlace::news);
}

/// The state of a place: the best one of its sheets.
StateCounts countStates(SheetPicture &picture, const DxfDrawing &drawing,
                        const std::vector<bool> &isChosen)
{
    StateCounts counts;
    for (SheetPlace &place : picture.places) {
        place.state = SheetState::FilteredOut;
        for (const quint32 sheet : picture.SheetsAt(place)) {
            const DxfInsert &insert = drawing.Inserts()[sheet];
            const bool isNumbered =
                place.kind != SheetKind::Unnumbered &&
                (place.sheetCount == 1 || dxftools::sheetNumberAttribute(drawing, insert));
            SheetState state = SheetState::Exported;
            if (!isChosen[sheet])
                ++counts.filteredOut, state = SheetState::FilteredOut;
            else if (!isNumbered)
                ++counts.unnumbered;
            else if (!insert.exportMark)
                ++counts.unmarked, state = SheetState::Unmarked;
            else if (place.kind == SheetKind::Unlabelled)
                ++counts.unlabelled;
            place.state = std::min(place.state, state);
        }
    }
    return counts;
}

/// @param hasStates  room is kept for states that no sheet has, so that nothing moves when one has
void writeLegend(SheetPicture &picture, double margin, double top, const StateCounts &counts,
                 bool hasStates)
{
    picture.legend.clear();
    LegendWriter legend(picture, margin, top, std::clamp(picture.size.width() / 75, 13.0, 34.0));
    legend.Add({.position = {}, .text = picture.title, .isTitle = true});
    legend.Add(Mark::None, DxfToolTexts::SheetsDrawn(static_cast<qint64>(picture.sheets.size())));
    legend.Add(Mark::None, !picture.isMap    ? DxfToolTexts::DrawnInRows()
                           : picture.isMoved ? DxfToolTexts::DrawnWithoutPlacement()
                                             : DxfToolTexts::DrawnInPlace());
    legend.Break();
    legend.Add(Mark::Sheet, DxfToolTexts::SheetInPreview());
    const QStringList corners = DxfToolTexts::CornersInPreview();
    for (int corner = 0; corner < 4; ++corner)
        legend.Add(Mark::Corner, corners[corner], corner);
    if (counts.unlabelled > 0)
        legend.Add(Mark::Unlabelled, DxfToolTexts::UnlabelledInPreview(counts.unlabelled));
    if (counts.unnumbered > 0)
        legend.Add(Mark::Unnumbered, DxfToolTexts::UnnumberedInPreview(counts.unnumbered));
    if (counts.unmarked > 0 || hasStates)
        legend.Add(Mark::Unmarked, DxfToolTexts::UnmarkedInPreview(counts.unmarked));
    if (counts.filteredOut > 0 || hasStates)
        legend.Add(Mark::FilteredOut, DxfToolTexts::FilteredOutInPreview(counts.filteredOut));
    if (const qint64 count = countNews(picture, SheetNews::New); count > 0)
        legend.Add(Mark::New, DxfToolTexts::NewInPreview(count));
    if (const qint64 count = countNews(picture, SheetNews::Moved); count > 0)
        legend.Add(Mark::Moved, DxfToolTexts::MovedInPreview(count));
    if (const qint64 count = countNews(picture, SheetNews::Renamed); count > 0)
        legend.Add(Mark::Renamed, DxfToolTexts::RenamedInPreview(count));
    if (picture.gone > 0)
        legend.Add(Mark::None, DxfToolTexts::GoneInPreview(picture.gone));
    const double length = dxftools::roundLength(picture.size.width() / 7 / picture.pixelsPerUnit);
    if (!picture.places.empty() && std::isnormal(length))
        legend.Add({.mark = Mark::ScaleBar,
                    .position = {},
                    .markWidth = length * picture.pixelsPerUnit,
                    .text = DxfToolTexts::UnitsInPreview(QLocale::c().toString(length, 'g', 6))});
    picture.size.setHeight(std::ceil(legend.Bottom() + margin / 2));
}

double marginOf(const SheetPicture &picture)
{
    return std::max(24.0, picture.size.width() / 45);
}

/// Where the legend begins: below all sheets.
double legendTop(const SheetPicture &picture)
{
    const double margin = marginOf(picture);
    const double sheets = picture.places.empty() ? 0 : boundsOf(picture.places).height();
    return sheets + 2 * margin;
}

void showStates(SheetPicture &picture, const DxfDrawing &drawing, std::span<const quint32> chosen,
                bool hasStates)
{
    std::vector<bool> isChosen(drawing.Inserts().size());
    for (const quint32 sheet : chosen)
        isChosen[sheet] = true;
    const StateCounts counts = countStates(picture, drawing, isChosen);
    writeLegend(picture, marginOf(picture), legendTop(picture), counts, hasStates);
}

} // namespace

double dxftools::leastTextHeight(const SheetPicture &picture)
{
    constexpr std::size_t kMany = 2'000;
    return picture.places.size() > kMany ? 7 : 4; // a few may be zoomed into, but no crowd is
}

void dxftools::moveFigure(SheetFigure &figure, QPointF shift, double scale, QPointF origin)
{
    const auto moved = [=](QPointF p) { return origin + (p + shift) * scale; };
    for (QPolygonF &points : figure.outlines)
        for (QPointF &p : points)
            p = moved(p);
    for (QPointF &p : figure.corners)
        p = figure.outlines.empty() ? QPointF() : moved(p);
    figure.bounds = QRectF(moved(figure.bounds.topLeft()), moved(figure.bounds.bottomRight()));
}

void dxftools::placeNumber(SheetFigure &figure, double least, double most, double beside)
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
    const double characters =
        static_cast<double>(std::max<qsizetype>(figure.number.size(), 1)) + beside;
    const double fits = std::min(0.42 * height, 0.78 * width / (kCharacterWidth * characters));
    figure.textHeight = fits < least ? 0 : std::min(fits, most);
    figure.centre = figure.bounds.center();
}

double dxftools::roundLength(double most)
{
    const double power = std::pow(10.0, std::floor(std::log10(most)));
    return most >= 5 * power ? 5 * power : most >= 2 * power ? 2 * power : power;
}

SheetPicture LayOutSheets(const DxfDrawing &drawing, std::span<const quint32> sheets,
                          const QString &title)
{
    SheetPicture picture;
    picture.title = title;
    std::ranges::copy_if(sheets, std::back_inserter(picture.sheets), [&](quint32 sheet) {
        return drawing.BlockOf(drawing.Inserts()[sheet]) != nullptr;
    });
    picture.places = draftPlaces(drawing, picture.sheets);
    QSizeF page(800, 300); // of no sheets
    Placement placement;
    if (!picture.sheets.empty()) {
        std::vector<quint32> blocks;
        blocks.reserve(picture.sheets.size());
        for (const quint32 sheet : picture.sheets)
            blocks.push_back(drawing.Inserts()[sheet].block);
        const double side = usualSide(picture.places);
        picture.isMap = !areStacked(picture.places, blocks, side);
        placement = placeInRows(picture.places, side);
        if (picture.isMap) {
            Placement map = placeAsMap(picture.places);
            const double inRows = scaleFor(placement, pageFor(placement, picture.sheets.size()));
            const double inMap = scaleFor(map, pageFor(map, picture.sheets.size()));
            picture.isMap = inMap >= inRows / 3;
        }
        if (picture.isMap) {
            joinBlocks(picture, drawing);
            placement = placeAsMap(picture.places);
        }
        page = pageFor(placement, picture.places.size());
    }
    picture.pixelsPerUnit = scaleFor(placement, page);
    const QSizeF used = placement.size * picture.pixelsPerUnit;
    const double margin = std::max(24.0, page.width() / 45);
    constexpr double kNarrowest = 900; // for the legend
    picture.size = {std::ceil(std::max(used.width() + 2 * margin, kNarrowest)), 0};
    const QPointF origin((picture.size.width() - used.width()) / 2, margin);
    for (std::size_t i = 0; i < picture.places.size(); ++i) {
        QRectF &bounds = picture.places[i].bounds;
        bounds = {origin + (bounds.topLeft() + placement.shifts[i]) * picture.pixelsPerUnit,
                  bounds.size() * picture.pixelsPerUnit};
    }
    picture.isMoved =
        std::ranges::any_of(picture.sheets, [&](quint32 sheet) { return IsMoved(drawing, sheet); });
    showStates(picture, drawing, sheets, false);
    return picture;
}

void ShowSheetStates(SheetPicture &picture, const DxfDrawing &drawing,
                     std::span<const quint32> chosen)
{
    showStates(picture, drawing, chosen, true);
}

std::vector<ChangedSheet> ChangedSheetsOf(std::span<const SheetChange> changes,
                                          std::span<const quint32> written)
{
    constexpr std::array kNews{SheetNews::New, SheetNews::None, SheetNews::Moved,
                               SheetNews::Renamed}; // by SheetChange::Kind
    std::vector<ChangedSheet> changed;
    for (const SheetChange &change : changes)
        if (change.newer != SheetChange::kNone)
            changed.push_back(
                {written[change.newer], kNews[static_cast<std::size_t>(change.kind)]});
    return changed;
}

void ShowSheetNews(SheetPicture &picture, std::span<const ChangedSheet> changed, qint64 gone)
{
    std::unordered_map<quint32, SheetNews> newsOf;
    for (const ChangedSheet &change : changed)
        newsOf.emplace(change.sheet, change.news);
    picture.gone = gone;
    for (SheetPlace &place : picture.places) {
        place.news = SheetNews::None;
        for (const quint32 sheet : picture.SheetsAt(place))
            if (const auto news = newsOf.find(sheet); news != newsOf.end())
                place.news = news->second;
    }
}

SheetFigure FigureOf(const SheetPicture &picture, const SheetPlace &place,
                     const DxfDrawing &drawing)
{
    SheetFigure figure;
    figure.kind = place.kind;
    figure.state = place.state;
    figure.news = place.news;
    figure.bounds = place.bounds;
    const DxfInsert &insert = drawing.Inserts()[picture.sheets[place.firstSheet]];
    const DxfBlock &block = *drawing.BlockOf(insert);
    const Drawn drawn = drawnOf(drawing, block);
    const QPointF from = boundsOf(drawing, drawn).topLeft();
    const auto placed = [&](const DxfVertex &vertex) {
        return place.bounds.topLeft() + (point(vertex) - from) * picture.pixelsPerUnit;
    };
    for (const Drawn::Part &part : drawn.parts) {
        QPolygonF &outline = figure.outlines.emplace_back();
        for (const DxfVertex &vertex : drawing.Vertices(*part.polyline).first(part.points))
            outline << placed(vertex);
        if (part.polyline->closed)
            outline << QPointF(outline.first());
    }
    const SheetCorners corners =
        drawn.isFrame ? CornersOf(drawing, *drawn.parts.front().polyline) : SheetCorners();
    for (std::size_t i = 0; i < corners.size(); ++i)
        if (corners[i])
            figure.corners[i] = placed(*corners[i]);
    figure.number = numberText(picture, place, drawing);
    dxftools::placeNumber(figure, dxftools::leastTextHeight(picture), 140);
    return figure;
}
