// SPDX-License-Identifier: GPL-2.0-or-later
// Paints a picture of sheets and saves it.
#include <kelo_base/dxf/SheetPreview.h>

#include <QBuffer>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <cmath>

namespace {

using Kind = SheetFigure::Kind;
using Mark = LegendEntry::Mark;

constexpr QRgb kPage = 0xFFF3F1EA;
constexpr QRgb kInk = 0xFF26323F;
/// Clockwise from top left; they differ in brightness too, for those who do not see all hues.
constexpr std::array<QRgb, 4> kCornerColours{0xFF1D4F91, 0xFF1E9E8F, 0xFFEFA73A, 0xFF9B6BB5};

struct Style
{
    QColor fill;
    QColor line;
    QColor text;
    Qt::PenStyle pen;
};

Style styleOf(Kind kind)
{
    switch (kind) {
    case Kind::Labelled:
        return {QColor(0xFF, 0xFF, 0xFF, 0xD8), QColor(0x5B, 0x6B, 0x7B), QColor(kInk),
                Qt::SolidLine};
    case Kind::Unlabelled:
        return {QColor(0xF7, 0xC9, 0xC3, 0xD8), QColor(0xC0, 0x39, 0x2B), QColor(0x8E, 0x1F, 0x14),
                Qt::SolidLine};
    case Kind::Unnumbered:
        return {QColor(0xDD, 0xDD, 0xD8, 0x90), QColor(0x9A, 0x9A, 0x95), QColor(kInk),
                Qt::DashLine};
    }
    return {};
}

QFont fontOf(double height, bool isBold = false)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
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

/// A wedge in each corner, inside the frame so that neighbours do not cover it; the top left one is
/// larger, so that it shows which way a sheet is turned even where colours do not.
void paintCorners(QPainter &painter, const std::array<QPointF, 4> &corners)
{
    const auto side = [&corners](std::size_t from, std::size_t to) {
        const QPointF way = corners[to] - corners[from];
        return std::hypot(way.x(), way.y());
    };
    const double size = std::min(0.17 * std::min(side(0, 1), side(1, 2)), 26.0);
    painter.setPen(Qt::NoPen);
    for (std::size_t i = 0; i < 4; ++i) {
        const double own = i == 0 ? 1.7 * size : size;
        const QPointF corner = corners[i];
        painter.setBrush(QColor(kCornerColours[i]));
        painter.drawPolygon(QPolygonF{corner, along(corner, corners[(i + 1) % 4], own),
                                      along(corner, corners[(i + 3) % 4], own)});
    }
}

void paintNumber(QPainter &painter, const SheetFigure &figure)
{
    if (figure.textHeight <= 0 || figure.number.isEmpty())
        return;
    painter.save();
    painter.translate(figure.centre);
    painter.rotate(figure.angle);
    painter.setFont(fontOf(figure.textHeight));
    painter.setPen(styleOf(figure.kind).text);
    const QRectF box(-2000, -figure.textHeight, 4000, 2 * figure.textHeight);
    painter.drawText(box, Qt::AlignCenter, figure.number);
    painter.restore();
}

void paintFigure(QPainter &painter, const SheetFigure &figure, double lineWidth)
{
    const Style style = styleOf(figure.kind);
    painter.setPen(QPen(style.line, lineWidth, style.pen, Qt::FlatCap, Qt::MiterJoin));
    for (const QPolygonF &points : figure.outlines) {
        painter.setBrush(points.isClosed() ? QBrush(style.fill) : QBrush(Qt::NoBrush));
        if (points.isClosed())
            painter.drawPolygon(points);
        else
            painter.drawPolyline(points);
    }
}

void paintLegendMark(QPainter &painter, const LegendEntry &entry, double textHeight)
{
    const double height = 0.85 * textHeight;
    const QRectF box(entry.position.x(), entry.position.y() - height, entry.markWidth, height);
    const auto paintBox = [&](Kind kind) {
        painter.setPen(QPen(styleOf(kind).line, 1.2, styleOf(kind).pen));
        painter.setBrush(styleOf(kind).fill);
        painter.drawRect(box);
    };
    switch (entry.mark) {
    case Mark::None:
        break;
    case Mark::Sheet:
        paintBox(Kind::Labelled);
        break;
    case Mark::Unlabelled:
        paintBox(Kind::Unlabelled);
        break;
    case Mark::Unnumbered:
        paintBox(Kind::Unnumbered);
        break;
    case Mark::Corner: {
        const std::array corners{box.topLeft(), box.topRight(), box.bottomRight(),
                                 box.bottomLeft()};
        const auto i = static_cast<std::size_t>(entry.corner);
        paintBox(Kind::Labelled);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(kCornerColours[i]));
        painter.drawPolygon(QPolygonF{corners[i],
                                      along(corners[i], corners[(i + 1) % 4], 0.7 * height),
                                      along(corners[i], corners[(i + 3) % 4], 0.7 * height)});
        break;
    }
    case Mark::ScaleBar:
        painter.setPen(QPen(QColor(kInk), 1.5, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        painter.drawPolyline(QPolygonF{box.topLeft() + QPointF(0, height / 2), box.bottomLeft(),
                                       box.bottomRight(), box.topRight() + QPointF(0, height / 2)});
        break;
    }
}

void paintLegend(QPainter &painter, const SheetPicture &picture)
{
    for (const LegendEntry &entry : picture.legend) {
        paintLegendMark(painter, entry, picture.legendTextHeight);
        const double gap =
            entry.mark == Mark::None ? 0 : entry.markWidth + picture.legendTextHeight / 2;
        painter.setFont(fontOf(picture.legendTextHeight, entry.isTitle));
        painter.setPen(QColor(kInk));
        painter.drawText(entry.position + QPointF(gap, 0), entry.text);
    }
}

} // namespace

void PaintSheets(QPainter &painter, const SheetPicture &picture)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.fillRect(QRectF(QPointF(), picture.size), QColor(kPage));
    const double lineWidth = picture.figures.size() < 200 ? 1.5 : 0.8;
    for (const SheetFigure &figure : picture.figures)
        paintFigure(painter, figure, lineWidth);
    // Above all frames, where sheets overlap.
    for (const SheetFigure &figure : picture.figures)
        if (figure.corners[0] != figure.corners[2])
            paintCorners(painter, figure.corners);
    for (const SheetFigure &figure : picture.figures)
        paintNumber(painter, figure);
    paintLegend(painter, picture);
}

bool WriteSheetPicture(QIODevice &device, const SheetPicture &picture, PictureFormat format)
{
    // By way of memory: neither writer tells when its device fails.
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const QSize size = picture.size.toSize();
    if (format == PictureFormat::Png) {
        QImage image(size, QImage::Format_RGB32);
        QPainter painter(&image);
        PaintSheets(painter, picture);
        painter.end();
        if (!image.save(&buffer, "PNG"))
            return false;
    } else {
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setSize(size);
        generator.setViewBox(QRect(QPoint(), size));
        generator.setTitle(picture.legend.empty() ? QString() : picture.legend.front().text);
        QPainter painter(&generator);
        PaintSheets(painter, picture);
    }
    return device.write(bytes) == bytes.size();
}
