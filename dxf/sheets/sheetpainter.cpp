// SPDX-License-Identifier: GPL-2.0-or-later
// Paints a picture of sheets and saves it.
#include "dxf/sheets/sheetpainter_p.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QSvgGenerator>
#include <cmath>

namespace {

using Kind = SheetFigure::Kind;
using Mark = LegendEntry::Mark;

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
        PaintLegendMark(painter, entry, picture.legendTextHeight, look);
        const double gap =
            entry.mark == Mark::None ? 0 : entry.markWidth + picture.legendTextHeight / 2;
        painter.setFont(fontOf(look, picture.legendTextHeight, entry.isTitle));
        painter.setPen(look.ink);
        painter.drawText(entry.position + QPointF(gap, 0), entry.text);
    }
}

} // namespace

const SheetLook::Style &SheetLook::Of(SheetFigure::Kind kind) const
{
    switch (kind) {
    case Kind::Labelled:
        break;
    case Kind::Unlabelled:
        return unlabelled;
    case Kind::Unnumbered:
        return unnumbered;
    }
    return labelled;
}

QColor MixedColour(const QColor &a, const QColor &b, float part)
{
    return QColor::fromRgbF(std::lerp(a.redF(), b.redF(), part),
                            std::lerp(a.greenF(), b.greenF(), part),
                            std::lerp(a.blueF(), b.blueF(), part));
}

SheetLook PaperLook()
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

SheetLook ScreenLook(const QPalette &palette, const QFont &font)
{
    const QColor ground = palette.color(QPalette::Base);
    const QColor ink = palette.color(QPalette::Text);
    const bool isDark = ground.lightnessF() < ink.lightnessF();
    const QColor sheet = isDark ? MixedColour(ground, ink, 0.15F) : ground;
    const QColor red = isDark ? QColor(0xFF, 0x7B, 0x6E) : QColor(0xB8, 0x2E, 0x20);
    SheetLook look = PaperLook();
    look.page = isDark ? ground : MixedColour(palette.color(QPalette::Window), ink, 0.03F);
    look.ink = ink;
    look.labelled = {sheet, MixedColour(ground, ink, 0.6F), ink, Qt::SolidLine};
    look.unlabelled = {MixedColour(sheet, red, 0.24F), red,
                       isDark ? MixedColour(red, ink, 0.5F) : red, Qt::SolidLine};
    look.unnumbered = {MixedColour(look.page, ink, 0.09F), MixedColour(ground, ink, 0.45F), ink,
                       Qt::DashLine};
    if (isDark)
        look.corners = {QRgb{0xFF5F9DEB}, QRgb{0xFF35C4B2}, QRgb{0xFFFFC15C}, QRgb{0xFFC590DD}};
    look.font = font;
    return look;
}

void PaintSheetCorners(QPainter &painter, const SheetFigure &figure, const SheetLook &look)
{
    const std::array<QPointF, 4> &corners = figure.corners;
    if (corners[0] == corners[2])
        return;
    const auto side = [&corners](std::size_t from, std::size_t to) {
        const QPointF way = corners[to] - corners[from];
        return std::hypot(way.x(), way.y());
    };
    const double size = std::min(0.17 * std::min(side(0, 1), side(1, 2)), 26.0);
    painter.setPen(Qt::NoPen);
    for (std::size_t i = 0; i < 4; ++i) {
        const double own = i == 0 ? 1.7 * size : size;
        const QPointF corner = corners[i];
        painter.setBrush(look.corners[i]);
        painter.drawPolygon(QPolygonF{corner, along(corner, corners[(i + 1) % 4], own),
                                      along(corner, corners[(i + 3) % 4], own)});
    }
}

void PaintSheetNumber(QPainter &painter, const SheetFigure &figure, const SheetLook &look)
{
    if (figure.textHeight <= 0 || figure.number.isEmpty())
        return;
    painter.save();
    painter.translate(figure.centre);
    painter.rotate(figure.angle);
    painter.setFont(fontOf(look, figure.textHeight));
    painter.setPen(look.Of(figure.kind).text);
    const QRectF box(-2000, -figure.textHeight, 4000, 2 * figure.textHeight);
    painter.drawText(box, Qt::AlignCenter, figure.number);
    painter.restore();
}

void PaintSheetOutlines(QPainter &painter, const SheetFigure &figure, const SheetLook &look,
                        double lineWidth)
{
    const SheetLook::Style &style = look.Of(figure.kind);
    painter.setPen(QPen(style.line, lineWidth, style.pen, Qt::FlatCap, Qt::MiterJoin));
    for (const QPolygonF &points : figure.outlines) {
        painter.setBrush(points.isClosed() ? QBrush(style.fill) : QBrush(Qt::NoBrush));
        if (points.isClosed())
            painter.drawPolygon(points);
        else
            painter.drawPolyline(points);
    }
}

void PaintLegendMark(QPainter &painter, const LegendEntry &entry, double textHeight,
                     const SheetLook &look)
{
    const double height = 0.85 * textHeight;
    const QRectF box(entry.position.x(), entry.position.y() - height, entry.markWidth, height);
    const auto paintBox = [&](Kind kind) {
        painter.setPen(QPen(look.Of(kind).line, 1.2, look.Of(kind).pen));
        painter.setBrush(look.Of(kind).fill);
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

void PaintSheets(QPainter &painter, const SheetPicture &picture)
{
    const SheetLook look = PaperLook();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.fillRect(QRectF(QPointF(), picture.size), look.page);
    const double lineWidth = picture.figures.size() < 200 ? 1.5 : 0.8;
    for (const SheetFigure &figure : picture.figures)
        PaintSheetOutlines(painter, figure, look, lineWidth);
    // Above all frames, where sheets overlap.
    for (const SheetFigure &figure : picture.figures)
        PaintSheetCorners(painter, figure, look);
    for (const SheetFigure &figure : picture.figures)
        PaintSheetNumber(painter, figure, look);
    paintLegend(painter, picture, look);
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
