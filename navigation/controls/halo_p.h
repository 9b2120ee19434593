// SPDX-License-Identifier: GPL-2.0-or-later
// Ink with a rim of the opposite brightness, so that it is read over any map without a box.
#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPalette>
#include <QStaticText>

class QPainter;
class QWidget;

namespace navcontrols {

inline constexpr double kHaloWidth =
    2.25; ///< pixels around the ink: one of them whole, wherever it lies

/// The palette's text and window, drawn apart where that takes: each map, be it white, black or
/// grey, has a readable contrast to one of the two, and they have it to each other.
struct Halo
{
    explicit Halo(const QPalette &palette, bool isEnabled = true);
    QColor ink;
    QColor rim;
    QColor focus; ///< of the outline around what has the keyboard
};

/// Strokes a path in ink.
void strokeWithHalo(QPainter &painter, const QPainterPath &path, const Halo &halo, double width);
/// Fills a path with ink.
void fillWithHalo(QPainter &painter, const QPainterPath &path, const Halo &halo);
/// Marks what has the keyboard.
void outlineFocus(QPainter &painter, const QRectF &rect, const Halo &halo);

/// A line of text that is laid out but once.
class HaloText
{
public:
    /// Cuts what is wider than @p room pixels, if that is above 0.
    void set(const QString &text, const QFont &font, int room = 0);
    [[nodiscard]] QSizeF size() const { return m_text.size(); }
    void paint(QPainter &painter, QPointF topLeft, const Halo &halo) const;

private:
    QString m_given;
    QFont m_font;
    int m_room = 0;
    QStaticText m_text;
};

} // namespace navcontrols
