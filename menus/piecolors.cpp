// SPDX-License-Identifier: GPL-2.0-or-later
// Mixes the colours of a pie menu from the palette.
#include "menus/piecolors_p.h"

#include "core/contrast_p.h"
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

using colors::contrast;
using colors::kReadableContrast;
using colors::luminance;
using colors::mixed;

namespace pie {

namespace {

constexpr double kTintOfColorful = 0.45; ///< leaves an icon of many colours what it shows
constexpr int kSameColor = 40;           ///< of 255 in each of red, green and blue

/// Palettes for people who need it put everything on plain black or white.
bool isHighContrast(const QPalette &palette)
{
    const QColor window = palette.color(QPalette::Window);
    const bool isPlain = window == QColor(Qt::black) || window == QColor(Qt::white);
    return isPlain && contrast(window, palette.color(QPalette::WindowText)) > 12;
}

bool hasOneColor(const QImage &image)
{
    QRgb first = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = line[x];
            if (qAlpha(pixel) < 128)
                continue; // soft edges
            if (qAlpha(first) == 0)
                first = pixel;
            const int apart = std::max({std::abs(qRed(pixel) - qRed(first)),
                                        std::abs(qGreen(pixel) - qGreen(first)),
                                        std::abs(qBlue(pixel) - qBlue(first))});
            if (apart > kSameColor)
                return false;
        }
    }
    return true;
}

} // namespace

QColor readableFill(const QColor &fill, const QColor &text)
{
    constexpr double kMiddle = 0.179; // as far from black as from white, by contrast
    const QColor end = luminance(text) > kMiddle ? Qt::black : Qt::white;
    QColor result = fill;
    for (int percent = 2; contrast(result, text) < kReadableContrast && percent <= 100;
         percent += 2)
        result = mixed(fill, end, percent / 100.0);
    return result;
}

Colors::Colors(const QPalette &palette)
    : ring(palette.color(QPalette::Window)),
      highlightedText(palette.color(QPalette::HighlightedText))
{
    const QColor ink = palette.color(QPalette::WindowText);
    const bool isStrong = isHighContrast(palette);
    separator = mixed(ring, ink, isStrong ? 0.6 : 0.22);
    rim = mixed(ring, ink, isStrong ? 1 : 0.45);
    sign = mixed(ring, ink, isStrong ? 1 : 0.6);
    digit = mixed(ring, ink, isStrong ? 0.75 : 0.5);
    highlight = readableFill(palette.color(QPalette::Highlight), highlightedText);
    veil = ring;
    veil.setAlphaF(isStrong ? 0.72F : 0.6F);
    lineWidth = isStrong ? 1.5 : 1;
}

QPixmap tinted(const QPixmap &icon, const QColor &color)
{
    QImage image = icon.toImage().convertToFormat(QImage::Format_ARGB32);
    QColor tint = color;
    if (!hasOneColor(image))
        tint.setAlphaF(static_cast<float>(kTintOfColorful));
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop); // the shape stays
    painter.fillRect(QRectF(QPointF(), image.deviceIndependentSize()), tint);
    painter.end();
    return QPixmap::fromImage(std::move(image));
}

} // namespace pie
