// SPDX-License-Identifier: GPL-2.0-or-later
// Backdrop first, then the sheets; what is too small to be seen becomes a dot, or nothing.
#include "ScenePainting.h"

#include "Backdrop.h"
#include "SheetLayer.h"
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPalette>
#include <cmath>
#include <numbers>
#include <utility>

namespace {

constexpr double kCapitals = 0.72;   ///< height of capitals, of the font's size
constexpr double kReadable = 3;      ///< logical pixels of a text's capitals
constexpr double kLargestFont = 200; ///< pixels; beyond, letters are scaled

QColor mixed(const QColor &ink, const QColor &paper, double share)
{
    const auto part = [share](int a, int b) { return qRound(a * share + b * (1 - share)); };
    return {part(ink.red(), paper.red()), part(ink.green(), paper.green()),
            part(ink.blue(), paper.blue())};
}

bool isDark(const QColor &paper)
{
    return qGray(paper.rgb()) < 128;
}

QPointF mapped(const QTransform &transform, QPointF direction)
{
    return transform.map(direction) - transform.map(QPointF());
}

} // namespace

SceneColors SceneColors::of(const QPalette &palette)
{
    const QColor paper = palette.color(QPalette::Base);
    const QColor ink = palette.color(QPalette::Text);
    if (isDark(paper))
        return {paper,
                mixed(ink, paper, 0.45),
                QColor(QRgb{0xFF68AAF0}),
                QColor(QRgb{0xFF9ECAFA}),
                {QRgb{0xFF5F9DEB}, QRgb{0xFF35C4B2}, QRgb{0xFFFFC15C}, QRgb{0xFFC590DD}}};
    return {paper,
            mixed(ink, paper, 0.45),
            QColor(QRgb{0xFF1F5FAE}),
            QColor(QRgb{0xFF1F4F96}),
            {QRgb{0xFF1D4F91}, QRgb{0xFF1E9E8F}, QRgb{0xFFEFA73A}, QRgb{0xFF9B6BB5}}};
}

ScenePainting::ScenePainting(const Scene &scene, const SceneColors &colors,
                             const QTransform &toPixels, QSize size, double unit)
    : m_scene(scene),
      m_colors(colors),
      m_toPixels(toPixels),
      m_pixelsPerMetre(std::sqrt(std::abs(toPixels.determinant()))),
      m_unit(unit),
      m_image(size, QImage::Format_RGB32)
{
    m_image.fill(colors.paper);
    m_painter.begin(&m_image);
    m_painter.setRenderHint(QPainter::Antialiasing);
    const double reach = 4 * unit; // of lines and marks beside their places
    const QRectF pixels = QRectF(QPointF(), QSizeF(size)).adjusted(-reach, -reach, reach, reach);
    const MapBounds area = MapBounds::of(toPixels.inverted().mapRect(pixels));
    if (scene.backdrop)
        for (std::uint32_t i = 0; i < scene.backdrop->packs().size(); ++i)
            if (scene.backdrop->packs()[i].bounds.meets(area))
                m_packs.push_back(i);
    if (scene.sheets) {
        scene.sheets->collect(area, m_sheets);
        std::ranges::sort(m_sheets); // as in the plan, whatever the piece
    }
}

QImage ScenePainting::takeImage()
{
    m_painter.end();
    return std::move(m_image);
}

/// Calls @p paint for what is left of the step; false when time ran out.
template <typename Paint>
bool ScenePainting::goThrough(std::size_t end, int between, const QDeadlineTimer &deadline,
                              Paint paint)
{
    int untilLook = between;
    for (; m_next < end; ++m_next) {
        if (--untilLook < 0) {
            if (deadline.hasExpired())
                return false;
            untilLook = between;
        }
        paint(m_next);
    }
    m_next = 0;
    ++m_step;
    return true;
}

bool ScenePainting::paint(const QDeadlineTimer &deadline)
{
    const Backdrop *backdrop = m_scene.backdrop;
    if (m_step == 0) {
        setPen(m_colors.backdrop, 1);
        const bool isWhole = goThrough(m_packs.size(), 1, deadline,
                                       [this](std::size_t i) { paintPack(m_packs[i]); });
        drawLines();
        if (!isWhole)
            return false;
    }
    if (m_step == 1) {
        setPen(m_colors.backdrop, 1);
        const bool isWhole = goThrough(backdrop ? backdrop->arcs().size() : 0, 512, deadline,
                                       [this](std::size_t i) { paintArc(i); });
        drawLines();
        if (!isWhole)
            return false;
    }
    if (m_step == 2 && !goThrough(backdrop ? backdrop->texts().size() : 0, 64, deadline,
                                  [this](std::size_t i) { paintText(i); }))
        return false;
    if (m_step == 3) {
        setPen(m_colors.sheet, 1);
        const bool isWhole = goThrough(m_sheets.size(), 32, deadline,
                                       [this](std::size_t i) { paintSheet(m_sheets[i]); });
        setPen(m_colors.sheet, 1);
        drawLines();
        return isWhole;
    }
    return true;
}

void ScenePainting::setPen(const QColor &color, double width)
{
    QPen pen(color, width * m_unit, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    pen.setCosmetic(true);
    m_painter.setPen(pen);
}

bool ScenePainting::isOutside(QPointF pixel, double reach) const
{
    return pixel.x() < -reach || pixel.y() < -reach || pixel.x() > m_image.width() + reach ||
           pixel.y() > m_image.height() + reach;
}

/// Many in one place are one dot.
void ScenePainting::putDot(QPointF pixel)
{
    if (isOutside(pixel, -0.5))
        return;
    const auto x = static_cast<int>(pixel.x());
    const auto y = static_cast<int>(pixel.y());
    if (m_image.valid(x, y))
        m_image.setPixel(x, y, mixed(m_colors.backdrop, m_colors.paper, 0.7).rgb());
}

void ScenePainting::addLine(QPointF from, QPointF to)
{
    const double width = m_image.width();
    const double height = m_image.height();
    if ((from.x() < 0 && to.x() < 0) || (from.y() < 0 && to.y() < 0) ||
        (from.x() > width && to.x() > width) || (from.y() > height && to.y() > height))
        return;
    if (std::abs(from.x() - to.x()) < 1 && std::abs(from.y() - to.y()) < 1)
        return putDot((from + to) / 2);
    m_lines.emplace_back(from, to);
}

void ScenePainting::drawLines()
{
    m_painter.drawLines(m_lines.data(), static_cast<int>(m_lines.size()));
    m_lines.clear();
}

void ScenePainting::paintPack(std::size_t index)
{
    const BackdropPack &pack = m_scene.backdrop->packs()[index];
    const QPointF origin = m_toPixels.map(pack.origin);
    const Linear linear{m_toPixels.m11(), m_toPixels.m21(), m_toPixels.m12(), m_toPixels.m22()};
    for (const BackdropLine &line : m_scene.backdrop->lines(pack)) {
        const double x1 = line.x1;
        const double y1 = line.y1;
        const double x2 = line.x2;
        const double y2 = line.y2;
        addLine({origin.x() + linear.xx * x1 + linear.xy * y1,
                 origin.y() + linear.yx * x1 + linear.yy * y1},
                {origin.x() + linear.xx * x2 + linear.xy * y2,
                 origin.y() + linear.yx * x2 + linear.yy * y2});
    }
    drawLines();
}

void ScenePainting::paintArc(std::size_t index)
{
    const BackdropArc &arc = m_scene.backdrop->arcs()[index];
    const QPointF centre = m_toPixels.map(arc.centre);
    const double radius = arc.radius * m_pixelsPerMetre;
    if (isOutside(centre, radius))
        return;
    if (radius < 0.7)
        return putDot(centre);
    constexpr double kError = 0.2; // pixels between an arc and the lines that stand for it
    const double step = 2 * std::acos(std::max(1 - kError / radius, -0.5));
    const int pieces = std::clamp(static_cast<int>((arc.end - arc.begin) / step) + 1, 2, 4096);
    QPointF before;
    for (int i = 0; i <= pieces; ++i) {
        const double angle = arc.begin + (arc.end - arc.begin) * i / pieces;
        const QPointF offset(std::cos(angle) * arc.radius, std::sin(angle) * arc.radius);
        const QPointF point = m_toPixels.map(arc.centre + offset);
        if (i > 0)
            addLine(before, point);
        before = point;
    }
}

void ScenePainting::paintText(std::size_t index)
{
    const BackdropText &text = m_scene.backdrop->texts()[index];
    const QPointF at = m_toPixels.map(text.position);
    const double capitals = text.height * m_pixelsPerMetre;
    if (capitals < kReadable * m_unit / 2 || isOutside(at, 2 * capitals * text.size))
        return;
    const QPointF along =
        mapped(m_toPixels, QPointF(std::cos(text.angle), std::sin(text.angle))) / m_pixelsPerMetre;
    setPen(m_colors.backdrop, 1);
    if (capitals < kReadable * m_unit) { // a line for the words
        const QPointF words = along * (0.6 * capitals * text.size);
        const QPointF begin = at - words * static_cast<double>(text.alignX);
        m_painter.drawLine(begin, begin + words);
        return;
    }
    drawText(m_scene.readable(m_scene.backdrop->text(text)), at, capitals,
             std::atan2(along.y(), along.x()), static_cast<double>(text.alignX),
             static_cast<double>(text.alignY));
}

/// @param capitals  their height in pixels
/// @param angle     clockwise, in radians
void ScenePainting::drawText(const QString &text, QPointF at, double capitals, double angle,
                             double alignX, double alignY)
{
    QFont font = QGuiApplication::font();
    const double size = capitals / kCapitals;
    const double shown = std::clamp(std::round(size), 1.0, kLargestFont);
    font.setPixelSize(static_cast<int>(shown));
    m_painter.save();
    m_painter.setFont(font);
    m_painter.translate(at);
    m_painter.rotate(angle * 180 / std::numbers::pi);
    if (size > kLargestFont)
        m_painter.scale(size / shown, size / shown);
    const double width = QFontMetricsF(font).horizontalAdvance(text);
    m_painter.drawText(QPointF(-width * alignX, kCapitals * shown * alignY), text);
    m_painter.restore();
}

void ScenePainting::paintSheet(quint32 sheet)
{
    const SheetFrame frame = m_scene.sheets->frame(sheet);
    std::array<QPointF, 4> corners;
    for (std::size_t i = 0; i < corners.size(); ++i)
        corners[i] = m_toPixels.map(frame.corners()[i]);
    const double height = frame.pageSize().height() * m_pixelsPerMetre;
    const double width = frame.pageSize().width() * m_pixelsPerMetre;
    const double smaller = std::min(width, height) / m_unit;
    constexpr double kSmall = 12; // pixels
    if (smaller < kSmall)
        return paintSmallSheet(corners);
    const bool isLabelled = m_scene.sheets->labelledFrame(sheet).has_value();
    setPen(m_colors.sheet, smaller > 80 ? 1.6 : 1);
    for (const QPolygonF &line : m_scene.sheets->outlines(sheet))
        m_painter.drawPolyline(m_toPixels.map(line));
    if (isLabelled && smaller > 24)
        paintCorners(corners);
    paintNumber(sheet, corners);
}

/// Of very many, nothing but the frame; the lines of turned ones are drawn together at last.
void ScenePainting::paintSmallSheet(const std::array<QPointF, 4> &corners)
{
    for (std::size_t i = 0; i < corners.size(); ++i)
        paintEdge(corners[i], corners[(i + 1) % 4]);
}

void ScenePainting::paintEdge(QPointF from, QPointF to)
{
    constexpr double kFar = 1e6; // beyond, pixels have no whole numbers
    const bool isLevel = std::abs(from.y() - to.y()) < 0.5;
    const bool isUpright = std::abs(from.x() - to.x()) < 0.5;
    if ((!isLevel && !isUpright) || isOutside(from, kFar) || isOutside(to, kFar)) {
        m_lines.emplace_back(from, to);
        return;
    }
    const QRect line = QRect(QPoint(static_cast<int>(std::floor(std::min(from.x(), to.x()))),
                                    static_cast<int>(std::floor(std::min(from.y(), to.y())))),
                             QPoint(static_cast<int>(std::floor(std::max(from.x(), to.x()))),
                                    static_cast<int>(std::floor(std::max(from.y(), to.y())))));
    const QRect run = QRect(line.topLeft(), QSize(isUpright && !isLevel ? 1 : line.width(),
                                                  isLevel ? 1 : line.height())) &
                      m_image.rect();
    const QRgb ink = m_colors.sheet.rgb();
    for (int y = run.top(); y <= run.bottom(); ++y) {
        auto *pixels = reinterpret_cast<QRgb *>(m_image.scanLine(y));
        std::fill(pixels + run.left(), pixels + run.right() + 1, ink);
    }
}

/// A triangle in the colour of each corner; the top left one is larger.
void ScenePainting::paintCorners(const std::array<QPointF, 4> &corners)
{
    m_painter.setPen(Qt::NoPen);
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const double share = i == 0 ? 0.16 : 0.1;
        const double most = (i == 0 ? 14 : 9) * m_unit;
        const auto toward = [&](QPointF other) {
            const QPointF way = other - corners[i];
            const double length = std::hypot(way.x(), way.y());
            return corners[i] + (length > 0 ? way / length * std::min(length * share, most) : way);
        };
        m_painter.setBrush(m_colors.corners[i]);
        m_painter.drawPolygon(
            QPolygonF{{corners[i], toward(corners[(i + 1) % 4]), toward(corners[(i + 3) % 4])}});
    }
    m_painter.setBrush(Qt::NoBrush);
}

/// Along the page's lower edge, but never upside down.
void ScenePainting::paintNumber(quint32 sheet, const std::array<QPointF, 4> &corners)
{
    const QPointF along = corners[1] - corners[0];
    const QPointF down = corners[3] - corners[0];
    const double width = std::hypot(along.x(), along.y());
    const double height = std::hypot(down.x(), down.y());
    const double largest = std::min(height * 0.3, 26 * m_unit);
    if (largest < 6 * m_unit)
        return;
    const QString text = m_scene.sheets->number(sheet);
    if (text.isEmpty())
        return;
    const double capitals = std::min(largest, width / static_cast<double>(text.size()));
    double angle = std::atan2(along.y(), along.x());
    if (std::abs(angle) > std::numbers::pi / 2 + 1e-9)
        angle += std::numbers::pi;
    setPen(m_colors.number, 1);
    drawText(text, (corners[0] + corners[2]) / 2, capitals, angle, 0.5, 0.5);
}
