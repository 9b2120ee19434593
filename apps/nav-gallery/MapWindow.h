// SPDX-License-Identifier: GPL-2.0-or-later
// A little map on sheets, and the window that moves it: what controls are tried over.
#pragma once

#include <QColor>
#include <QPoint>
#include <QPointF>
#include <QTransform>
#include <kelo_base/navigation/DocWindowXIfc.h>
#include <kelo_base/navigation/KView.h>

/// Sheets of 1000 by 1000 metres in five columns and rows; the middle one lies around (0, 0).
class MapView : public KView
{
    Q_OBJECT

public:
    explicit MapView(QWidget *parent = nullptr);

    /// Map to pixels.
    [[nodiscard]] QTransform onScreen() const;
    void moved();

    QPointF middle; ///< on the map, in metres
    double metresPerPixel = 1;
    double turn = 0; ///< degrees, clockwise on screen
    QPoint sheet;    ///< columns to the east, rows to the north; the middle one is (0, 0)
    QColor paper{250, 248, 240};
    QColor ink{70, 90, 120};

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QPointF m_start; ///< of a drag
};

/// Registered while it lives.
class MapWindow : public DocWindowXIfc
{
public:
    explicit MapWindow(MapView &view);
    ~MapWindow() override;
    Q_DISABLE_COPY_MOVE(MapWindow)

    [[nodiscard]] KView *PrimaryView() const override { return &m_view; }
    [[nodiscard]] bool DeviceRect(QWidget *view, QRect &rect) const override;
    [[nodiscard]] bool DocPageRect(QWidget *view, QRectF &rect) const override;
    [[nodiscard]] bool DeviceToGeo(QWidget *view, UCoord &coord) const override;
    [[nodiscard]] bool GeoToDevice(QWidget *view, UCoord &coord) const override;
    [[nodiscard]] bool DeviceToDocument(QWidget *view, UCoord &coord) const override;
    [[nodiscard]] bool DocumentToDevice(QWidget *view, UCoord &coord) const override;
    [[nodiscard]] UDocItem CurrentDocument(QWidget *view) const override;
    [[nodiscard]] UDocItemList Neighbours(QWidget *view, PageSide side) const override;
    bool ShowDocument(QWidget *view, const UDocItem &item) override;
    bool ShowWholePage(QWidget *view, PageTurn turn) override;
    bool MoveTo(QWidget *view, const UCoord &middle) override;
    bool ZoomBy(QWidget *view, double ratio) override;
    bool TurnBy(QWidget *view, double degrees) override;

private:
    [[nodiscard]] QTransform pageOnMap() const;

    MapView &m_view;
};
