// SPDX-License-Identifier: GPL-2.0-or-later
// A document window that really moves, through one known transformation.
#pragma once

#include <QMouseEvent>
#include <QTransform>
#include <QWheelEvent>
#include <kelo_base/navigation/DocWindowXIfc.h>
#include <kelo_base/navigation/KView.h>
#include <map>

/// A view that tells what reaches it.
struct MapView : KView
{
    explicit MapView(QWidget *parent = nullptr) : KView(parent)
    {
        resize(800, 600);
        setFocusPolicy(Qt::StrongFocus);
    }

    QPointF middle{500'000, 5'600'000}; ///< on the map
    double metresPerPixel = 2;
    double turn = 0; ///< degrees, clockwise on screen
    bool isMirrored = false;
    int presses = 0, moves = 0, releases = 0, wheels = 0, repaints = 0;

    /// Map to pixels.
    [[nodiscard]] QTransform onScreen() const
    {
        QTransform transform;
        transform.translate(width() / 2.0, height() / 2.0);
        transform.rotate(turn);
        transform.scale((isMirrored ? -1 : 1) / metresPerPixel, -1 / metresPerPixel);
        transform.translate(-middle.x(), -middle.y());
        return transform;
    }
    [[nodiscard]] QPointF geoAt(QPointF pixel) const { return onScreen().inverted().map(pixel); }

protected:
    void mousePressEvent(QMouseEvent *) override { ++presses; }
    void mouseMoveEvent(QMouseEvent *) override { ++moves; }
    void mouseReleaseEvent(QMouseEvent *) override { ++releases; }
    void wheelEvent(QWheelEvent *) override { ++wheels; }
    void paintEvent(QPaintEvent *) override { ++repaints; }
    int metric(PaintDeviceMetric which) const override
    {
        return which == PdmPhysicalDpiX || which == PdmPhysicalDpiY ? 96 : KView::metric(which);
    }
};

/// Registered while it lives. The page, 1000 units wide and 700 high, covers a metre a unit.
struct MapWindow : DocWindowXIfc
{
    MapWindow() : view(new MapView) { SetHInstance(this); }
    ~MapWindow() override
    {
        SetHInstance(nullptr);
        delete view;
    }
    Q_DISABLE_COPY_MOVE(MapWindow)

    QPointer<MapView> view;
    bool isOnMap = true;
    bool knowsPage = true;
    std::map<PageSide, UDocItemList> neighbours;
    UDocItemList ownViews;
    UDocItem shown; ///< what ShowDocument() was asked for last
    std::function<void()> whenShown;
    mutable int conversions = 0, questions = 0;

    [[nodiscard]] static UDocItem item(const QString &title, int number = 1)
    {
        return {title + QStringLiteral(".tif"), title, {}, number, -1, 0, 1, {}};
    }
    [[nodiscard]] MapView &of(QWidget *widget) const { return *static_cast<MapView *>(widget); }
    static QTransform pageOnMap()
    {
        return QTransform(1, 0, 0, -1, 499'500, 5'600'350); // its top is in the north
    }

    KView *PrimaryView() const override { return view; }
    bool DeviceRect(QWidget *widget, QRect &rect) const override
    {
        rect = widget->rect();
        return true;
    }
    bool DocPageRect(QWidget *, QRectF &rect) const override
    {
        rect = {0, 0, 1000, 700};
        return true;
    }
    bool DeviceToGeo(QWidget *widget, UCoord &coord) const override
    {
        ++conversions;
        coord.geoPoint = of(widget).geoAt(coord.devicePoint);
        return isOnMap;
    }
    bool DeviceToDocument(QWidget *widget, UCoord &coord) const override
    {
        ++conversions;
        coord.docPoint = pageOnMap().inverted().map(of(widget).geoAt(coord.devicePoint));
        return true;
    }
    bool DocumentToDevice(QWidget *widget, UCoord &coord) const override
    {
        ++conversions;
        const QPointF pixel = of(widget).onScreen().map(pageOnMap().map(coord.docPoint));
        coord.devicePoint = pixel.toPoint();
        return knowsPage;
    }
    UDocItem CurrentDocument(QWidget *) const override { return item(QStringLiteral("Sheet 5")); }
    UDocItemList Neighbours(QWidget *, PageSide side) const override
    {
        ++questions;
        const auto found = neighbours.find(side);
        return found == neighbours.end() ? UDocItemList() : found->second;
    }
    UDocItemList StoredViews(QWidget *) const override { return ownViews; }
    bool ShowDocument(QWidget *widget, const UDocItem &wanted) override
    {
        shown = wanted;
        MapView &map = of(widget);
        if (wanted.position.IsValid(UCoord::ctGeo)) {
            map.middle = wanted.position.geoPoint;
            map.turn = wanted.rotation;
            map.metresPerPixel = wanted.scale * 0.0254 / 96;
        }
        if (whenShown)
            whenShown();
        else
            emit map.documentChanged();
        return true;
    }
    bool ShowWholePage(QWidget *widget, PageTurn turn) override
    {
        MapView &map = of(widget);
        map.middle = pageOnMap().map(QPointF(500, 350));
        if (turn == PageTurn::Upright)
            map.turn = 0;
        return moved(map);
    }
    bool MoveTo(QWidget *widget, const UCoord &middle) override
    {
        of(widget).middle =
            middle.IsValid(UCoord::ctGeo) ? middle.geoPoint : pageOnMap().map(middle.docPoint);
        return moved(of(widget));
    }
    bool ZoomBy(QWidget *widget, double ratio) override
    {
        of(widget).metresPerPixel *= ratio;
        return moved(of(widget));
    }
    bool TurnBy(QWidget *widget, double degrees) override
    {
        of(widget).turn += degrees;
        return moved(of(widget));
    }

private:
    static bool moved(MapView &map)
    {
        map.update();
        emit map.viewChanged();
        emit map.viewSettled();
        return true;
    }
};
