// SPDX-License-Identifier: GPL-2.0-or-later
// Fills the shape of an image with the ink of the palette.
#include "dxf/workbench/inkicon_p.h"
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace {

class InkEngine : public QIconEngine
{
public:
    explicit InkEngine(const QIcon &shape) : m_shape(shape) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const double scale = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, scaledPixmap(rect.size() * scale, mode, state, scale));
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1);
    }
    /// @param size  in pixels of the device
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State, double) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        QPixmap pixmap = m_shape.pixmap(size, 1.0);
        QPainter painter(&pixmap);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), QGuiApplication::palette().color(group, kInk));
        return pixmap;
    }
    [[nodiscard]] QIconEngine *clone() const override { return new InkEngine(m_shape); }

private:
    static constexpr QPalette::ColorRole kInk = QPalette::ButtonText;
    QIcon m_shape;
};

} // namespace

QIcon dxftools::inkIcon(const QString &file)
{
    return QIcon(new InkEngine(QIcon(file))); // the icon owns its engine
}
