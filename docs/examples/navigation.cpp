// SPDX-License-Identifier: GPL-2.0-or-later
// What a viewer tells of its view, and what the library then knows.
#include <QApplication>
#include <cmath>
#include <kelo_base/navigation/DocWindowXIfc.h>
#include <kelo_base/navigation/KView.h>
#include <kelo_base/navigation/ViewGeometry.h>

//! [window]
/// One view, half a metre a pixel, the map's north at the top.
class Window : public DocWindowXIfc
{
public:
    Window() { SetHInstance(this); }
    ~Window() override { SetHInstance(nullptr); }

    KView *PrimaryView() const override { return &m_view; }
    bool DeviceRect(QWidget *view, QRect &rect) const override
    {
        rect = view->rect();
        return true;
    }
    bool DocPageRect(QWidget *, QRectF &rect) const override
    {
        rect = {0, 0, 594, 420};
        return true;
    }
    bool DeviceToGeo(QWidget *, UCoord &coord) const override
    {
        const QPoint pixel = coord.devicePoint; // y grows downwards, north upwards
        coord.geoPoint = QPointF(3500000 + 0.5 * pixel.x(), 5800000 - 0.5 * pixel.y());
        return true;
    }

private:
    mutable KView m_view;
};
//! [window]

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    Window window;
    window.PrimaryView()->resize(800, 600);

    //! [geometry]
    const docwindow::UGeoArea shown(nullptr, QRect(0, 0, 800, 600)); // null: the primary view
    double angle = 0;
    NorthAngle(nullptr, angle);                   // 0: north is at the top
    const double denominator = MapScale(nullptr); // about 1900 for 1 : 1900, by the screen
    //! [geometry]
    const bool isArea = shown.IsRect() && std::abs(shown.QSzGeo().width() - 400) < 1;
    return isArea && std::abs(angle) < 1e-6 && denominator > 0 ? 0 : 1;
}
