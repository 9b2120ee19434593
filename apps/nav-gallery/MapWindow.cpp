// SPDX-License-Identifier: GPL-2.0-or-later
// A little map on sheets, and the window that moves it.
#include "MapWindow.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace {

constexpr double kSheet = 1000; // metres
constexpr int kAround = 2;      // sheets on each side of the middle one
constexpr int kColumns = 2 * kAround + 1;

QString nameOf(QPoint sheet)
{
    const QChar row(u'A' + kAround - sheet.y());
    return QStringLiteral("%1%2").arg(row).arg(sheet.x() + kAround + 1);
}

DocWindowXIfc::UDocItem itemOf(QPoint sheet)
{
    DocWindowXIfc::UDocItem item;
    const bool exists = std::abs(sheet.x()) <= kAround && std::abs(sheet.y()) <= kAround;
    if (!exists)
        return item;
    item.title = QCoreApplication::translate("NavGallery", "Sheet %1").arg(nameOf(sheet));
    item.fileName = nameOf(sheet) + QStringLiteral(".tif");
    item.documentNumber = (sheet.y() + kAround) * kColumns + sheet.x() + kAround + 1;
    return item;
}

QPoint sheetOf(int documentNumber)
{
    const int index = documentNumber - 1;
    return {index % kColumns - kAround, index / kColumns - kAround};
}

/// Metres from the middle of the sheet.
void paintSheet(QPainter &painter, QPoint sheet, const QColor &ink)
{
    QPen pen(ink, 0); // a pixel, however large
    painter.setPen(pen);
    painter.drawRect(QRectF(-kSheet / 2, -kSheet / 2, kSheet, kSheet));
    QPainterPath ways; // a river, roads, houses
    ways.moveTo(-500, 180);
    ways.cubicTo(-200, 320, 100, -120, 500, 180);
    ways.moveTo(-180, -500);
    ways.lineTo(-180, 500);
    ways.moveTo(-500, -260);
    ways.lineTo(500, -60);
    painter.setBrush(Qt::NoBrush);
    pen.setWidthF(9);
    painter.setPen(pen);
    painter.drawPath(ways);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    for (int x = -420; x < 420; x += 120)
        painter.drawRect(x, -400 + (x * 7 + 3000) % 110, 50, 36);
    // The name, and north by the map itself: its letters stand up to the north.
    painter.save();
    painter.scale(1, -1);
    QFont font = painter.font();
    font.setPixelSize(110);
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(QRectF(-kSheet / 2, -380, kSheet, 260), Qt::AlignCenter,
                     QStringLiteral("↑N %1").arg(nameOf(sheet)));
    painter.restore();
}

} // namespace

MapView::MapView(QWidget *parent) : KView(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(80, 80);
}

QTransform MapView::onScreen() const
{
    QTransform transform;
    transform.translate(width() / 2.0, height() / 2.0);
    transform.rotate(turn);
    transform.scale(1 / metresPerPixel, -1 / metresPerPixel);
    transform.translate(-middle.x(), -middle.y());
    return transform;
}

void MapView::moved()
{
    update();
    emit viewChanged();
}

void MapView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), paper);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(onScreen(), true);
    for (int number = 1; number <= kColumns * kColumns; ++number) {
        const QPoint at = sheetOf(number);
        painter.save();
        painter.translate(QPointF(at) * kSheet);
        QColor color = ink;
        if (at != sheet)
            color.setAlphaF(0.45F);
        paintSheet(painter, at, color);
        painter.restore();
    }
}

void MapView::mousePressEvent(QMouseEvent *event)
{
    m_start = event->position();
}

void MapView::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() != Qt::LeftButton)
        return;
    const QTransform onMap = onScreen().inverted();
    middle += onMap.map(m_start) - onMap.map(event->position());
    m_start = event->position();
    moved();
}

void MapView::mouseReleaseEvent(QMouseEvent *)
{
    emit viewSettled();
}

MapWindow::MapWindow(MapView &view) : m_view(view)
{
    SetHInstance(this);
}

MapWindow::~MapWindow()
{
    SetHInstance(nullptr);
}

QTransform MapWindow::pageOnMap() const
{
    return {1, 0, 0, -1, (m_view.sheet.x() - 0.5) * kSheet, (m_view.sheet.y() + 0.5) * kSheet};
}

bool MapWindow::DeviceRect(QWidget *view, QRect &rect) const
{
    rect = view->rect();
    return true;
}

bool MapWindow::DocPageRect(QWidget *, QRectF &rect) const
{
    rect = {0, 0, kSheet, kSheet};
    return true;
}

bool MapWindow::DeviceToGeo(QWidget *, UCoord &coord) const
{
    coord.geoPoint = m_view.onScreen().inverted().map(QPointF(coord.devicePoint));
    return true;
}

bool MapWindow::GeoToDevice(QWidget *, UCoord &coord) const
{
    coord.devicePoint = m_view.onScreen().map(coord.geoPoint).toPoint();
    return true;
}

bool MapWindow::DeviceToDocument(QWidget *view, UCoord &coord) const
{
    const bool isOnMap = DeviceToGeo(view, coord);
    coord.docPoint = pageOnMap().inverted().map(coord.geoPoint);
    return isOnMap;
}

bool MapWindow::DocumentToDevice(QWidget *view, UCoord &coord) const
{
    coord.geoPoint = pageOnMap().map(coord.docPoint);
    return GeoToDevice(view, coord);
}

DocWindowXIfc::UDocItem MapWindow::CurrentDocument(QWidget *) const
{
    return itemOf(m_view.sheet);
}

DocWindowXIfc::UDocItemList MapWindow::Neighbours(QWidget *, PageSide side) const
{
    constexpr QPoint kSteps[] = {{0, 1},  {1, 1},   {1, 0},  {1, -1},
                                 {0, -1}, {-1, -1}, {-1, 0}, {-1, 1}};
    const UDocItem item = itemOf(m_view.sheet + kSteps[static_cast<int>(side)]);
    return item.IsValid() ? UDocItemList() << item : UDocItemList();
}

bool MapWindow::ShowDocument(QWidget *, const UDocItem &item)
{
    if (!item.IsValid() || item.documentNumber > kColumns * kColumns)
        return false;
    m_view.sheet = sheetOf(item.documentNumber);
    if (item.position.IsValid(UCoord::ctGeo)) {
        constexpr double kMetresPerInch = 0.0254;
        m_view.middle = item.position.geoPoint;
        m_view.turn = item.rotation;
        m_view.metresPerPixel = item.scale * kMetresPerInch / m_view.physicalDpiX();
    }
    m_view.moved();
    emit m_view.documentChanged();
    return true;
}

bool MapWindow::ShowWholePage(QWidget *, PageTurn turn)
{
    m_view.middle = QPointF(m_view.sheet) * kSheet;
    if (turn == PageTurn::Upright)
        m_view.turn = 0;
    const QRectF bounds = QTransform().rotate(m_view.turn).mapRect(QRectF(0, 0, kSheet, kSheet));
    m_view.metresPerPixel =
        std::max(bounds.width() / m_view.width(), bounds.height() / m_view.height());
    m_view.moved();
    emit m_view.viewSettled();
    return true;
}

bool MapWindow::MoveTo(QWidget *, const UCoord &middle)
{
    m_view.middle =
        middle.IsValid(UCoord::ctGeo) ? middle.geoPoint : pageOnMap().map(middle.docPoint);
    m_view.moved();
    emit m_view.viewSettled();
    return true;
}

bool MapWindow::ZoomBy(QWidget *, double ratio)
{
    m_view.metresPerPixel = std::clamp(m_view.metresPerPixel * ratio, 0.001, 1000.0);
    m_view.moved();
    emit m_view.viewSettled();
    return true;
}

bool MapWindow::TurnBy(QWidget *, double degrees)
{
    m_view.turn += degrees;
    m_view.moved();
    emit m_view.viewSettled();
    return true;
}
