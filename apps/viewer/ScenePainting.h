// SPDX-License-Identifier: GPL-2.0-or-later
// Paints a piece of a plan, a little at a time.
#pragma once

#include "Packs.h"
#include <QColor>
#include <QDeadlineTimer>
#include <QImage>
#include <QPainter>
#include <QTransform>
#include <array>
#include <functional>
#include <vector>

class Backdrop;
class QPalette;
class SheetLayer;

struct SceneColors
{
    QColor paper;
    QColor backdrop;
    QColor sheet;
    QColor number;
    std::array<QColor, 4> corners; ///< clockwise from top left

    [[nodiscard]] static SceneColors of(const QPalette &palette);
    friend bool operator==(const SceneColors &, const SceneColors &) = default;
};

/// What there is to be painted; nothing of it is owned.
struct Scene
{
    const SheetLayer *sheets = nullptr;
    const Backdrop *backdrop = nullptr;
    std::function<QString(const QByteArray &)> readable; ///< texts of the plan for people
};

/// One picture under way. Goes on wherever it was, also when the scene has grown meanwhile; a scene
/// whose sheets are built anew needs a new painting.
class ScenePainting
{
public:
    /// @param toPixels  from the map to pixels of the picture
    /// @param unit      pixels to a logical one, for widths of lines and sizes of texts
    ScenePainting(const Scene &scene, const SceneColors &colors, const QTransform &toPixels,
                  QSize size, double unit);
    /// True when the picture is complete.
    bool paint(const QDeadlineTimer &deadline);
    /// Ends the painting.
    [[nodiscard]] QImage takeImage();

private:
    struct Linear ///< x and y of the map to those of the picture, without the origin
    {
        double xx, xy, yx, yy;
    };
    void addLine(QPointF from, QPointF to);
    void drawLines();
    void putDot(QPointF pixel);
    [[nodiscard]] bool isOutside(QPointF pixel, double reach) const;
    void paintPack(std::size_t pack);
    void paintArc(std::size_t index);
    void paintText(std::size_t index);
    void paintSheet(quint32 sheet);
    void paintSmallSheet(const std::array<QPointF, 4> &corners);
    void paintEdge(QPointF from, QPointF to);
    void paintCorners(const std::array<QPointF, 4> &corners);
    void paintNumber(quint32 sheet, const std::array<QPointF, 4> &corners);
    void drawText(const QString &text, QPointF at, double capitals, double angle, double alignX,
                  double alignY);
    void setPen(const QColor &color, double width);
    template <typename Paint>
    bool goThrough(std::size_t end, int between, const QDeadlineTimer &deadline, Paint paint);

    const Scene &m_scene;
    SceneColors m_colors;
    QTransform m_toPixels;
    double m_pixelsPerMetre;
    double m_unit;
    QImage m_image;
    QPainter m_painter;
    std::vector<std::uint32_t> m_packs;
    std::vector<quint32> m_sheets;
    std::vector<QLineF> m_lines; ///< not drawn yet, all with one pen
    int m_step = 0;
    std::size_t m_next = 0; ///< within the step
};
