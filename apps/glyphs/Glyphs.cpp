// SPDX-License-Identifier: GPL-2.0-or-later
// An icon engine that strokes a few lines and circles.
#include "Glyphs.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace {

constexpr double kGrid = 24;

QPointF pointOf(const QString &text)
{
    return {text.section(u',', 0, 0).toDouble(), text.section(u',', 1, 1).toDouble()};
}

QPainterPath pathOf(const QString &glyph)
{
    QPainterPath path;
    for (const QString &stroke : glyph.split(u';')) {
        const QStringList words = stroke.split(u' ', Qt::SkipEmptyParts);
        if (words.value(0) == QLatin1StringView("o")) {
            const double radius = words.value(2).toDouble();
            path.addEllipse(pointOf(words.value(1)), radius, radius);
            continue;
        }
        path.moveTo(pointOf(words.value(0)));
        for (qsizetype i = 1; i < words.size(); ++i)
            path.lineTo(pointOf(words[i]));
    }
    return path;
}

class GlyphEngine : public QIconEngine
{
public:
    explicit GlyphEngine(const QPainterPath &path) : m_path(path) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const bool isOnHighlight = mode == QIcon::Active || mode == QIcon::Selected;
        const auto role = isOnHighlight ? QPalette::HighlightedText : QPalette::WindowText;
        const QColor color = QGuiApplication::palette().color(group, role);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kGrid, rect.height() / kGrid);
        painter->strokePath(m_path, QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->restore();
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    [[nodiscard]] QIconEngine *clone() const override { return new GlyphEngine(m_path); }
    bool isNull() override { return m_path.isEmpty(); }

private:
    QPainterPath m_path;
};

} // namespace

QIcon glyphIcon(const char *glyph)
{
    return QIcon(new GlyphEngine(pathOf(QString::fromLatin1(glyph)))); // the icon owns its engine
}
