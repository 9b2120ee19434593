// SPDX-License-Identifier: GPL-2.0-or-later
// A bar as long on screen as a round length is on the map.
#include "navigation/controls/scalebarwidget_p.h"

#include "navigation/controls/readout_p.h"
#include "navigation/controls/scaletext_p.h"
#include <QPainter>

namespace navcontrols {

namespace {
constexpr double kInset = 5; // pixels
constexpr double kTick = 5;
} // namespace

ScaleBarWidget::ScaleBarWidget(Readout &readout, QWidget *parent)
    : QWidget(parent), m_readout(readout)
{
    setAccessibleName(tr("Scale bar"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QString ScaleBarWidget::lengthText() const
{
    const auto bar = scaleBar(m_readout.metresPerPixel(), width() - 2 * kInset);
    return bar ? scaleBarText(bar->metres, locale()) : QString();
}

QRectF ScaleBarWidget::barRect() const
{
    const auto bar = scaleBar(m_readout.metresPerPixel(), width() - 2 * kInset);
    if (!bar)
        return {};
    const double left =
        layoutDirection() == Qt::RightToLeft ? width() - kInset - bar->pixels : kInset;
    return {left, height() - kTick - 4, bar->pixels, kTick};
}

void ScaleBarWidget::paintEvent(QPaintEvent *)
{
    const QRectF bar = barRect();
    if (bar.isNull())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Halo halo(palette());
    QPainterPath path(bar.topLeft());
    path.lineTo(bar.bottomLeft());
    path.lineTo(bar.bottomRight());
    path.lineTo(bar.topRight());
    strokeWithHalo(painter, path, halo, 2);
    m_label.set(lengthText(), font());
    m_label.paint(
        painter,
        {bar.center().x() - m_label.size().width() / 2, bar.bottom() - m_label.size().height() - 3},
        halo);
}

} // namespace navcontrols
