// SPDX-License-Identifier: GPL-2.0-or-later
// Shows where north is, and turns the view.
#pragma once

#include "navigation/controls/halo_p.h"
#include <QPointer>
#include <QWidget>
#include <kelo_base/navigation/KView.h>
#include <optional>

namespace navcontrols {

class Readout;

class NorthArrow : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kExtent = 80; ///< pixels

    /// @param view  the parent
    NorthArrow(Readout &readout, KView *view);

    /// Where it points: degrees clockwise from the top, 0 without geo reference.
    [[nodiscard]] double angle() const;
    /// "15°"
    [[nodiscard]] QString angleText() const;
    /// Turns the view until the arrow points there.
    void turnTo(double degrees);

signals:
    /// Somebody wants to type an angle.
    void angleWanted();

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    struct Drag
    {
        QPointF start;
        double startAngle;
        bool isMoving = false;
    };
    void step(int steps, Qt::KeyboardModifiers modifiers);
    [[nodiscard]] QPointF middle() const { return QRectF(rect()).center(); }

    Readout &m_readout;
    QPointer<KView> m_view;
    std::optional<Drag> m_drag;
    double m_angleBeforeClick = 0;
    int m_wheelAngle = 0; ///< turned, but not yet a whole step
    HaloText m_letter;
};

} // namespace navcontrols
