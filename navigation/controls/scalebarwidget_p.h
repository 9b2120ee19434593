// SPDX-License-Identifier: GPL-2.0-or-later
// A bar as long on screen as a round length is on the map.
#pragma once

#include "navigation/controls/halo_p.h"
#include <QWidget>

namespace navcontrols {

class Readout;

class ScaleBarWidget : public QWidget
{
    Q_OBJECT

public:
    ScaleBarWidget(Readout &readout, QWidget *parent);
    /// "500 m"; empty without geo reference.
    [[nodiscard]] QString lengthText() const;
    /// In pixels of this widget; null without geo reference.
    [[nodiscard]] QRectF barRect() const;

    [[nodiscard]] QSize sizeHint() const override { return {140, 30}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Readout &m_readout;
    HaloText m_label;
};

} // namespace navcontrols
