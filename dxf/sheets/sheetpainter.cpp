// SPDX-License-Identifier: GPL-2.0-or-later
// Paints a picture of sheets and saves it.
#include "dxf/sheets/sheetpainter_p.h"

#include "dxf/sheets/figurelayout_p.h"
#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using Mark = LegendEntry::Mark;

constexpr double kThick = 3;     ///< lines around selected sheets, in pixels
constexpr double kBoxRoom = 1.7; ///< beside a number for its box, in characters

QFont fontOf(const SheetLook &look, double height, bool isBold = false)
{
    QFont font = look.font;
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(height))));
    font.setBold(isBold);
    return font;
}

QPointF along(QPointF from, QPointF to, double length)
{
    const QPointF way = to - from;
    const double whole = std::hypot(way.x(), way.y());
    return whole > 0 ? from + way * (length / whole) : from;
}

void paintLegend(QPainter &painter, const SheetPicture &picture, const SheetLook &look)
{
    for (const LegendEntry &entry : picture.legend) {
        dxftools::paintLegendMark(painter, entry, picture.legendTextHeight, look);
        const double gap =
            entry.mark == Mark::None ? 0 : entry.markWidth + picture.legendTextHeight / 2;
        painter.setFont(fontOf(look, picture.legendTextHeight, entry.isTitle));
        painter.setPen(look.ink);
        painter.drawText(entry.position + QPointF(gap, 0), entry.text);
    }
}

bool areApart(const QRectF &a, const QRectF &b)
{
    return a.left() > b.right() || b.left() > a.right() || a.top() > b.bottom() ||
           b.top() > a.bottom();
}

QRectF inScene(const SheetScene &scene, const QRectF &bounds)
{
    return {scene.origin + bounds.topLeft() * scene.scale, bounds.size() * scene.scale};
}

double sideOf(const QRectF &bounds)
{
    return std::max(bounds.width(), bounds.height());
}

bool isSelected(const SheetScene &scene, std::size_t place)
{
    return scene.isSelected && (*scene.isSelected)[place];
}

/// Small sheets as pixels of an image: a million rectangles would take a painter seconds.
class Spots
{
public:
    Spots(const SheetScene &scene, double ratio)
        : m_scene(scene),
          m_ratio(ratio),
          m_image((scene.area.size() * ratio).toSize(), QImage::Format_ARGB32_Premultiplied)
    {
        m_image.fill(Qt::transparent);
        m_image.setDevicePixelRatio(ratio);
        for (std::size_t kind = 0; kind < m_inks.size(); ++kind)
            for (std::size_t state = 0; state < m_inks[kind].size(); ++state)
                m_inks[kind][state] = inkOf(
                    scene.look.of(static_cast<SheetKind>(kind), static_cast<SheetState>(state)));
    }

    /// A box with a faint rim: a full one would turn many into a dark mass.
    void add(const SheetPlace &place)
    {
        const Ink &ink =
            m_inks[static_cast<std::size_t>(place.kind)][static_cast<std::size_t>(place.state)];
        const QRect spot = spotOf(place.bounds);
        if (place.news != SheetNews::None)
            return fill(spot, m_scene.look.of(place.news).rgba());
        fill(spot, ink.rim);
        if (spot.width() > 2 && spot.height() > 2)
            fill(spot.adjusted(1, 1, -1, -1), ink.inside);
    }
    void addSelected(const SheetPlace &place)
    {
        fill(spotOf(place.bounds).adjusted(-1, -1, 1, 1), m_scene.highlight.rgba());
    }
    void paint(QPainter &painter) const { painter.drawImage(m_scene.area.topLeft(), m_image); }

private:
    struct Ink
    {
        QRgb rim = 0;
        QRgb inside = 0;
    };
    static Ink inkOf(const SheetLook::Style &style)
    {
        const QColor rim = dxftools::mixedColour(style.fill, style.line, 0.4F);
        return {.rim = rim.rgb(), .inside = style.fill.rgb()};
    }
    /// Whole pixels from edge to edge, so that neighbours have the line between them in common.
    [[nodiscard]] QRect spotOf(const QRectF &bounds) const
    {
        constexpr double kNudge = 0.02; // common edges differ in their last bits
        const QRectF box = inScene(m_scene, bounds).translated(-m_scene.area.topLeft());
        const auto pixel = [this](double edge) {
            return static_cast<int>(std::floor(edge * m_ratio + kNudge));
        };
        return {QPoint(pixel(box.left()), pixel(box.top())),
                QPoint(pixel(box.right()), pixel(box.bottom()))};
    }
    void fill(const QRect &spot, QRgb colour)
    {
        const QRect seen = spot & m_image.rect();
        for (int y = seen.top(); y <= seen.bottom(); ++y) {
            auto *line = reinterpret_cast<QRgb *>(m_image.scanLine(y));
            std::fill(line + seen.left(), line + seen.right() + 1, colour);
        }
    }

    const SheetScene &m_scene;
    double m_ratio;
    QImage m_image;
    std::array<std::array<Ink, 3>, 3> m_inks;
};

QColor tinted(const QColor &highlight)
{
    QColor tint = highlight;
    tint.setAlphaF(0.28F);
    return tint;
}

void paintOutlines(QPainter &painter, const SheetFigure &figure)
{
    const QBrush inside = painter.brush();
    for (const QPolygonF &points : figure.outlines) {
        if (points.isClosed())
            painter.drawPolygon(points);
        else {
            painter.setBrush(Qt::NoBrush);
            painter.drawPolyline(points);
            painter.setBrush(inside);
        }
    }
}

void takeStyle(QPainter &painter, const SheetLook::Style &style, double lineWidth)
{
    painter.setPen(QPen(style.line, lineWidth, style.pen, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(style.fill);
}

/// A wedge in each labelled corner, inside the frame so that neighbours do not cover it; the top
/// left one is larger, so that it shows which way a sheet is turned even where colours do not.
/// @param take  gets the number of the corner and its wedge
template <typename Take>
void eachCorner(const SheetFigure &figure, Take take)
{
    const std::array<QPointF, 4> &corners = figure.corners;
    if (corners[0] == corners[2] || figure.state != SheetState::Exported)
        return;
    const auto side = [&corners](std::size_t from, std::size_t to) {
        const QPointF way = corners[to] - corners[from];
        return std::hypot(way.x(), way.y());
    };
    const double size = std::min(0.17 * std::min(side(0, 1), side(1, 2)), 26.0);
    for (std::size_t i = 0; i < 4; ++i) {
        const double own = i == 0 ? 1.7 * size : size;
        take(i, QPolygonF{corners[i], along(corners[i], corners[(i + 1) % 4], own),
                          along(corners[i], corners[(i + 3) % 4], own)});
    }
}

void paintMarkBox(QPainter &painter, const QRectF &box, const SheetFigure &figure,
                  const QColor &ink)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, 1));
    painter.drawRect(box);
    if (figure.state != SheetState::Exported)
        return;
    const auto at = [&box](double x, double y) {
        return box.topLeft() + QPointF(x * box.width(), y * box.height());
    };
    painter.setPen(QPen(ink, std::max(1.2, box.width() / 7)));
    painter.drawPolyline(QPolygonF{at(0.2, 0.5), at(0.42, 0.74), at(0.82, 0.24)});
}

void paintNumber(QPainter &painter, const SheetFigure &figure, const SheetScene &scene)
{
    if (figure.textHeight <= 0 || figure.number.isEmpty())
        return;
    const bool isTurned = figure.angle != 0;
    const QPointF centre = isTurned ? QPointF() : figure.centre;
    if (isTurned) {
        painter.save();
        painter.translate(figure.centre);
        painter.rotate(figure.angle);
    }
    const QColor ink = scene.look.of(figure.kind, figure.state).text;
    const auto mark = scene.hasBoxes ? dxftools::markBoxOf(figure) : std::nullopt;
    if (mark)
        paintMarkBox(painter, mark->box.translated(centre), figure, ink);
    painter.setFont(fontOf(scene.look, figure.textHeight));
    painter.setPen(ink);
    const QRectF box(centre.x() - 2000 + (mark ? mark->shift : 0), centre.y() - figure.textHeight,
                     4000, 2 * figure.textHeight);
    painter.drawText(box, Qt::AlignCenter, figure.number);
    if (isTurned)
        painter.restore();
}

/// Sheets of their own, each above those before it.
void paintFigures(QPainter &painter, const SheetScene &scene,
                  const std::vector<SheetFigure> &figures)
{
    for (const SheetFigure &figure : figures) {
        takeStyle(painter, scene.look.of(figure.kind, figure.state), scene.lineWidth);
        paintOutlines(painter, figure);
    }
    painter.setPen(Qt::NoPen);
    for (const SheetFigure &figure : figures) {
        if (sideOf(figure.bounds) >= scene.leastCornered)
            eachCorner(figure, [&](std::size_t corner, const QPolygonF &wedge) {
                painter.setBrush(scene.look.corners[corner]);
                painter.drawPolygon(wedge);
            });
    }
}

/// One path for each style and each corner.
void paintBundles(QPainter &painter, const SheetScene &scene,
                  const std::vector<SheetFigure> &figures)
{
    std::array<std::array<QPainterPath, 3>, 3> outlines;
    std::array<QPainterPath, 4> corners;
    for (const SheetFigure &figure : figures) {
        QPainterPath &path =
            outlines[static_cast<std::size_t>(figure.kind)][static_cast<std::size_t>(figure.state)];
        for (const QPolygonF &points : figure.outlines)
            path.addPolygon(points);
        if (sideOf(figure.bounds) >= scene.leastCornered)
            eachCorner(figure, [&](std::size_t corner, const QPolygonF &wedge) {
                corners[corner].addPolygon(wedge);
                corners[corner].closeSubpath();
            });
    }
    for (std::size_t kind = 0; kind < outlines.size(); ++kind) {
        for (std::size_t state = 0; state < outlines[kind].size(); ++state) {
            QPainterPath &path = outlines[kind][state];
            path.setFillRule(Qt::WindingFill);
            takeStyle(painter,
                      scene.look.of(static_cast<SheetKind>(kind), static_cast<SheetState>(state)),
                      scene.lineWidth);
            if (!path.isEmpty())
                painter.drawPath(path);
        }
    }
    painter.setPen(Qt::NoPen);
    for (std::size_t corner = 0; corner < corners.size(); ++corner) {
        painter.setBrush(scene.look.corners[corner]);
        if (!corners[corner].isEmpty())
            painter.drawPath(corners[corner]);
    }
}

void paintSelected(QPainter &painter, const SheetScene &scene, const SheetFigure &figure)
{
    painter.setPen(QPen(scene.highlight, kThick, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(tinted(scene.highlight));
    paintOutlines(painter, figure);
}

/// A frame inside of the sheet's own.
void paintNews(QPainter &painter, const SheetScene &scene, const SheetFigure &figure)
{
    if (figure.news == SheetNews::None)
        return;
    constexpr double kLine = 3;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(
        QPen(scene.look.of(figure.news), kLine, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    paintOutlines(painter, figure);
}

void paintSpots(QPainter &painter, const SheetScene &scene, const std::vector<quint32> &spots)
{
    if (spots.empty())
        return;
    Spots image(scene, painter.device()->devicePixelRatio());
    for (const quint32 i : spots)
        if (!isSelected(scene, i))
            image.add(scene.picture.places[i]);
    for (const quint32 i : spots)
        if (isSelected(scene, i))
            image.addSelected(scene.picture.places[i]);
    image.paint(painter);
}

void paintLarge(QPainter &painter, const SheetScene &scene, const std::vector<quint32> &large)
{
    std::vector<SheetFigure> figures;
    figures.reserve(large.size());
    for (const quint32 i : large)
        figures.push_back(dxftools::figureIn(scene, scene.picture.places[i]));
    if (scene.isBundled)
        paintBundles(painter, scene, figures);
    else
        paintFigures(painter, scene, figures);
    for (std::size_t i = 0; i < large.size(); ++i)
        if (isSelected(scene, large[i]))
            paintSelected(painter, scene, figures[i]);
    for (const SheetFigure &figure : figures)
        paintNews(painter, scene, figure);
    for (const SheetFigure &figure : figures)
        paintNumber(painter, figure, scene);
}

} // namespace

SheetLook::Style SheetLook::of(SheetKind kind, SheetState state) const
{
    Style style = kind == SheetKind::Unlabelled   ? unlabelled
                  : kind == SheetKind::Unnumbered ? unnumbered
                                                  : labelled;
    if (state == SheetState::Exported)
        return style;
    const bool isOut = state == SheetState::FilteredOut;
    style.fill = dxftools::mixedColour(page, style.fill, isOut ? 0.0F : 0.25F);
    style.line = dxftools::mixedColour(page, style.line, isOut ? 0.3F : 0.6F);
    style.text = dxftools::mixedColour(page, style.text, isOut ? 0.35F : 0.6F);
    style.pen = isOut ? Qt::DotLine : style.pen;
    return style;
}

QColor dxftools::mixedColour(const QColor &a, const QColor &b, float part)
{
    return QColor::fromRgbF(std::lerp(a.redF(), b.redF(), part),
                            std::lerp(a.greenF(), b.greenF(), part),
                            std::lerp(a.blueF(), b.blueF(), part));
}

SheetLook dxftools::paperLook()
{
    SheetLook look{
        .page = QRgb{0xFFF3F1EA},
        .ink = QRgb{0xFF26323F},
        .labelled = {QColor(0xFF, 0xFF, 0xFF, 0xD8), QColor(0x5B, 0x6B, 0x7B),
                     QColor(QRgb{0xFF26323F}), Qt::SolidLine},
        .unlabelled = {QColor(0xF7, 0xC9, 0xC3, 0xD8), QColor(0xC0, 0x39, 0x2B),
                       QColor(0x8E, 0x1F, 0x14), Qt::SolidLine},
        .unnumbered = {QColor(0xDD, 0xDD, 0xD8, 0x90), QColor(0x9A, 0x9A, 0x95),
                       QColor(QRgb{0xFF26323F}), Qt::DashLine},
        .corners = {QRgb{0xFF1D4F91}, QRgb{0xFF1E9E8F}, QRgb{0xFFEFA73A}, QRgb{0xFF9B6BB5}},
        .font = QFont(QStringLiteral("DejaVu Sans"))};
    look.font.setStyleHint(QFont::SansSerif);
    return look;
}

SheetLook dxftools::screenLook(const QPalette &palette, const QFont &font)
{
    const QColor ground = palette.color(QPalette::Base);
    const QColor ink = palette.color(QPalette::Text);
    const bool isDark = ground.lightnessF() < ink.lightnessF();
    const QColor sheet = isDark ? dxftools::mixedColour(ground, ink, 0.15F) : ground;
    const QColor red = isDark ? QColor(0xFF, 0x7B, 0x6E) : QColor(0xB8, 0x2E, 0x20);
    SheetLook look = dxftools::paperLook();
    look.page =
        isDark ? ground : dxftools::mixedColour(palette.color(QPalette::Window), ink, 0.03F);
    look.ink = ink;
    look.labelled = {sheet, dxftools::mixedColour(ground, ink, 0.6F), ink, Qt::SolidLine};
    look.unlabelled = {dxftools::mixedColour(sheet, red, 0.24F), red,
                       isDark ? dxftools::mixedColour(red, ink, 0.5F) : red, Qt::SolidLine};
    look.unnumbered = {dxftools::mixedColour(look.page, ink, 0.09F),
                       dxftools::mixedColour(ground, ink, 0.45F), ink, Qt::DashLine};
    if (isDark)
        look.corners = {QRgb{0xFF5F9DEB}, QRgb{0xFF35C4B2}, QRgb{0xFFFFC15C}, QRgb{0xFFC590DD}};
    look.font = font;
    return look;
}

std::optional<MarkBox> dxftools::markBoxOf(const SheetFigure &figure)
{
    constexpr double kLeastText = 9; // smaller boxes cannot be told apart
    const bool hasBox = figure.kind != SheetKind::Unnumbered &&
                        figure.state != SheetState::FilteredOut && figure.textHeight >= kLeastText;
    if (!hasBox)
        return std::nullopt;
    const double side = std::min(0.75 * figure.textHeight, 16.0);
    const double gap = 0.3 * figure.textHeight;
    const double text = kCharacterWidth * figure.textHeight *
                        static_cast<double>(std::max<qsizetype>(figure.number.size(), 1));
    const double left = -(side + gap + text) / 2;
    return MarkBox{.box = {left, -side / 2, side, side}, .shift = (side + gap) / 2};
}

SheetFigure dxftools::figureIn(const SheetScene &scene, const SheetPlace &place)
{
    SheetFigure figure = FigureOf(scene.picture, place, scene.drawing);
    dxftools::moveFigure(figure, {}, scene.scale, scene.origin);
    dxftools::placeNumber(figure, scene.leastText, scene.mostText, scene.hasBoxes ? kBoxRoom : 0);
    return figure;
}

void dxftools::paintScene(QPainter &painter, const SheetScene &scene)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.fillRect(scene.area, scene.look.page);
    const QRectF reach = scene.area.adjusted(-kThick, -kThick, kThick, kThick);
    std::vector<quint32> spots;
    std::vector<quint32> large;
    for (quint32 i = 0; i < scene.picture.places.size(); ++i) {
        const QRectF bounds = inScene(scene, scene.picture.places[i].bounds);
        if (!areApart(bounds, reach))
            (sideOf(bounds) < scene.leastOutlined ? spots : large).push_back(i);
    }
    paintSpots(painter, scene, spots);
    paintLarge(painter, scene, large);
}

void dxftools::paintLegendMark(QPainter &painter, const LegendEntry &entry, double textHeight,
                               const SheetLook &look)
{
    const double height = 0.85 * textHeight;
    const QRectF box(entry.position.x(), entry.position.y() - height, entry.markWidth, height);
    const auto paintBox = [&](SheetKind kind, SheetState state = SheetState::Exported) {
        const SheetLook::Style style = look.of(kind, state);
        painter.setPen(QPen(style.line, 1.2, style.pen));
        painter.setBrush(style.fill);
        painter.drawRect(box);
    };
    switch (entry.mark) {
    case Mark::None:
        break;
    case Mark::Sheet:
        paintBox(SheetKind::Labelled);
        break;
    case Mark::Unlabelled:
        paintBox(SheetKind::Unlabelled);
        break;
    case Mark::Unnumbered:
        paintBox(SheetKind::Unnumbered);
        break;
    case Mark::Unmarked:
        paintBox(SheetKind::Labelled, SheetState::Unmarked);
        break;
    case Mark::FilteredOut:
        paintBox(SheetKind::Labelled, SheetState::FilteredOut);
        break;
    case Mark::New:
    case Mark::Moved:
    case Mark::Renamed: {
        const int kind = static_cast<int>(entry.mark) - static_cast<int>(Mark::New) + 1;
        paintBox(SheetKind::Labelled);
        painter.setPen(QPen(look.of(static_cast<SheetNews>(kind)), 2.5));
        painter.drawRect(box);
        break;
    }
    case Mark::Corner: {
        const std::array corners{box.topLeft(), box.topRight(), box.bottomRight(),
                                 box.bottomLeft()};
        const auto i = static_cast<std::size_t>(entry.corner);
        paintBox(SheetKind::Labelled);
        painter.setPen(Qt::NoPen);
        painter.setBrush(look.corners[i]);
        painter.drawPolygon(QPolygonF{corners[i],
                                      along(corners[i], corners[(i + 1) % 4], 0.7 * height),
                                      along(corners[i], corners[(i + 3) % 4], 0.7 * height)});
        break;
    }
    case Mark::ScaleBar:
        painter.setPen(QPen(look.ink, 1.5, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        painter.drawPolyline(QPolygonF{box.topLeft() + QPointF(0, height / 2), box.bottomLeft(),
                                       box.bottomRight(), box.topRight() + QPointF(0, height / 2)});
        break;
    }
}

namespace {

/// How much of the sheets a page shows; each step shows less.
enum class PageDetail { All, NoNumbers, NoCorners, Spots };

void paintPage(QPainter &painter, const SheetPicture &picture, const DxfDrawing &drawing,
               PageDetail detail)
{
    constexpr std::size_t kMany = 2'000;
    constexpr double kNever = 1e9;
    const SheetLook look = dxftools::paperLook();
    const bool areMany = picture.places.size() > kMany;
    SheetScene scene{.picture = picture, .drawing = drawing, .look = look};
    scene.area = QRectF(QPointF(), picture.size);
    scene.leastOutlined = detail == PageDetail::Spots ? kNever : areMany ? scene.leastOutlined : 0;
    scene.leastCornered = detail >= PageDetail::NoCorners ? kNever
                          : areMany                       ? scene.leastCornered
                                                          : 0;
    scene.leastText = detail >= PageDetail::NoNumbers ? kNever : dxftools::leastTextHeight(picture);
    scene.mostText = 140;
    scene.lineWidth = picture.places.size() < 200 ? 1.5 : 0.8;
    scene.isBundled = areMany;
    dxftools::paintScene(painter, scene);
    paintLegend(painter, picture, look);
}

void writePng(QBuffer &buffer, const SheetPicture &picture, const DxfDrawing &drawing)
{
    QImage image(picture.size.toSize(), QImage::Format_RGB32);
    QPainter painter(&image);
    PaintSheets(painter, picture, drawing);
    painter.end();
    image.save(&buffer, "PNG");
}

QByteArray svgOf(const SheetPicture &picture, const DxfDrawing &drawing, PageDetail detail)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(picture.size.toSize());
    generator.setViewBox(QRect(QPoint(), picture.size.toSize()));
    generator.setTitle(picture.title);
    QPainter painter(&generator);
    paintPage(painter, picture, drawing, detail);
    painter.end();
    return bytes;
}

/// As many details as go into 5 MB, which browsers still show without a wait.
QByteArray svgOf(const SheetPicture &picture, const DxfDrawing &drawing)
{
    constexpr qsizetype kLargest = 5'000'000;
    constexpr std::size_t kMostOutlines = 50'000; // beyond, their paths alone would be larger
    if (picture.places.size() > kMostOutlines)
        return svgOf(picture, drawing, PageDetail::Spots);
    for (const auto detail : {PageDetail::All, PageDetail::NoNumbers, PageDetail::NoCorners})
        if (const QByteArray bytes = svgOf(picture, drawing, detail); bytes.size() < kLargest)
            return bytes;
    return svgOf(picture, drawing, PageDetail::Spots);
}

} // namespace

void PaintSheets(QPainter &painter, const SheetPicture &picture, const DxfDrawing &drawing)
{
    paintPage(painter, picture, drawing, PageDetail::All);
}

bool WriteSheetPicture(QIODevice &device, const SheetPicture &picture, const DxfDrawing &drawing,
                       SheetPictureFormat format)
{
    QByteArray bytes; // neither writer tells when its device fails
    if (format == SheetPictureFormat::Svg) {
        bytes = svgOf(picture, drawing);
    } else {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        writePng(buffer, picture, drawing);
    }
    return !bytes.isEmpty() && device.write(bytes) == bytes.size();
}
