// SPDX-License-Identifier: GPL-2.0-or-later
// Turns mouse, wheel and keys into views and choices, and paints by way of a pixmap.
#include "dxf/workbench/sheetpictureview_p.h"

#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/workbench/picturelegend_p.h"
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kStep = 1.25;     ///< zoom of one click of the wheel or one key
constexpr double kTolerance = 4;   ///< pixels beside a line that count as on it
constexpr double kCloseness = 0.5; ///< of a usual sheet's side fills the window at the largest zoom

constexpr quint32 kNowhere = 0xFFFFFFFF;

/// What fills the window at the largest zoom: half of a sheet of the usual size.
double detailOf(const std::vector<SheetPlace> &places)
{
    std::vector<double> sides;
    sides.reserve(places.size());
    for (const SheetPlace &place : places)
        sides.push_back(std::max(place.bounds.width(), place.bounds.height()));
    if (sides.empty())
        return 1;
    const auto middle = sides.begin() + static_cast<std::ptrdiff_t>(sides.size() / 2);
    std::ranges::nth_element(sides, middle);
    return *middle > 0 ? *middle * kCloseness : 1;
}

QRectF boundsOf(const std::vector<SheetPlace> &places)
{
    if (places.empty())
        return {0, 0, 1, 1};
    QPointF low = places.front().bounds.topLeft();
    QPointF high = low;
    for (const SheetPlace &place : places) {
        low = {std::min(low.x(), place.bounds.left()), std::min(low.y(), place.bounds.top())};
        high = {std::max(high.x(), place.bounds.right()),
                std::max(high.y(), place.bounds.bottom())};
    }
    return {low, high};
}

/// Ascending. Of a million, looking at each insert once is quicker than comparing.
void sortSheets(std::vector<quint32> &sheets)
{
    constexpr std::size_t kMany = 10'000;
    if (std::ranges::is_sorted(sheets))
        return;
    if (sheets.size() < kMany) {
        std::ranges::sort(sheets);
        return;
    }
    std::vector<bool> isThere(std::size_t{*std::ranges::max_element(sheets)} + 1);
    for (const quint32 sheet : sheets)
        isThere[sheet] = true;
    sheets.clear();
    for (quint32 sheet = 0; sheet < isThere.size(); ++sheet)
        if (isThere[sheet])
            sheets.push_back(sheet);
}

/// Sheets are what people look for; most of the room is theirs.
bool hasRoomForLegend(double legend, double whole)
{
    return legend < 0.3 * whole;
}

} // namespace

SheetPictureView::SheetPictureView(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true); // for the cursor
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(DxfToolTexts::PictureName());
}

void SheetPictureView::setSheets(const DxfDrawing &drawing, std::span<const quint32> sheets,
                                 const QString &title)
{
    m_message.clear();
    setAccessibleDescription(DxfToolTexts::PictureHelp());
    m_drawing = &drawing;
    m_picture = LayOutSheets(drawing, sheets, title);
    m_legend = m_picture.legend;
    m_placeOfSheet.assign(drawing.Inserts().size(), kNowhere);
    for (quint32 place = 0; place < m_picture.places.size(); ++place)
        for (const quint32 sheet : m_picture.SheetsAt(m_picture.places[place]))
            m_placeOfSheet[sheet] = place;
    m_drag = Drag::None;
    setSelectedSheets({});
    changeView(
        [this] { m_zoom.setPicture(boundsOf(m_picture.places), detailOf(m_picture.places)); });
    layOut();
}

void SheetPictureView::showStates(std::span<const quint32> chosen)
{
    if (!m_drawing)
        return;
    ShowSheetStates(m_picture, *m_drawing, chosen);
    m_legend = m_picture.legend;
    layOut();
}

void SheetPictureView::showNews(std::span<const ChangedSheet> changed, qint64 gone)
{
    ShowSheetNews(m_picture, changed, gone);
}

void SheetPictureView::clear(const QString &message)
{
    const DxfDrawing none;
    setSheets(none, {}, {});
    m_drawing = nullptr;
    m_legend.clear();
    m_message = message;
    if (!message.isEmpty())
        setAccessibleDescription(message);
    layOut();
}

void SheetPictureView::setSelectedSheets(std::vector<quint32> sheets)
{
    sortSheets(sheets);
    if (sheets.empty() && m_selected.empty() && m_isSelected.size() == m_picture.places.size())
        return;
    m_selected = std::move(sheets);
    m_isSelected.assign(m_picture.places.size(), false);
    for (const quint32 sheet : m_selected)
        if (sheet < m_placeOfSheet.size() && m_placeOfSheet[sheet] != kNowhere)
            m_isSelected[m_placeOfSheet[sheet]] = true;
    repaintAll();
}

void SheetPictureView::showSheet(quint32 sheet)
{
    if (const SheetPlace *place = placeOf(sheet))
        changeView([&] { m_zoom.bringInSight(place->bounds); });
}

void SheetPictureView::zoomIn()
{
    changeView([this] { m_zoom.zoomBy(kStep, QRectF(canvas()).center()); });
}

void SheetPictureView::zoomOut()
{
    changeView([this] { m_zoom.zoomBy(1 / kStep, QRectF(canvas()).center()); });
}

void SheetPictureView::zoomToFit()
{
    changeView([this] { m_zoom.showAll(); });
}

QSize SheetPictureView::sizeHint() const
{
    return {480, 360};
}

QSize SheetPictureView::minimumSizeHint() const
{
    return {160, 120};
}

template <typename Change>
void SheetPictureView::changeView(Change change)
{
    const double before = zoom();
    change();
    const bool isChanged = zoom() != before;
    repaintAll();
    if (isChanged)
        emit zoomChanged(zoom());
}

void SheetPictureView::layOut()
{
    m_legendHeight = std::ceil(layOutLegend());
    if (!hasRoomForLegend(m_legendHeight, height()))
        m_legendHeight = 0;
    changeView([this] { m_zoom.setWindow(canvas().size()); });
}

double SheetPictureView::layOutLegend()
{
    return dxftools::layOutLegend(m_legend, QFontMetricsF(font()), width(),
                                  m_picture.pixelsPerUnit * m_zoom.scale(), layoutDirection());
}

void SheetPictureView::repaintAll()
{
    m_cache = {};
    update();
}

QRect SheetPictureView::canvas() const
{
    return {0, 0, width(), height() - static_cast<int>(m_legendHeight)};
}

std::optional<std::size_t> SheetPictureView::placeAt(QPointF pos) const
{
    if (!m_drawing || !QRectF(canvas()).contains(pos))
        return std::nullopt;
    const double tolerance = kTolerance / m_zoom.scale();
    const QPointF point = m_zoom.toPicture(pos);
    const QRectF near(point - QPointF(tolerance, tolerance), 2 * QSizeF(tolerance, tolerance));
    for (std::size_t i = m_picture.places.size(); i-- > 0;) { // the one painted last
        const SheetPlace &place = m_picture.places[i];
        if (dxftools::touch(place.bounds, near) &&
            dxftools::isAt(FigureOf(m_picture, place, *m_drawing), point, tolerance))
            return i;
    }
    return std::nullopt;
}

std::vector<std::size_t> SheetPictureView::placesIn(const QRectF &area) const
{
    std::vector<std::size_t> places;
    for (std::size_t i = 0; m_drawing && i < m_picture.places.size(); ++i) {
        const SheetPlace &place = m_picture.places[i];
        const bool touches = dxftools::touch(place.bounds, area) &&
                             (area.contains(place.bounds) ||
                              dxftools::touches(FigureOf(m_picture, place, *m_drawing), area));
        if (touches)
            places.push_back(i);
    }
    return places;
}

SheetScene SheetPictureView::sceneWith(const SheetLook &look) const
{
    SheetScene scene{.picture = m_picture, .drawing = *m_drawing, .look = look};
    scene.scale = m_zoom.scale();
    scene.origin = m_zoom.origin();
    scene.area = canvas();
    scene.hasBoxes = true;
    scene.highlight = palette().color(QPalette::Highlight);
    scene.isSelected = &m_isSelected;
    return scene;
}

bool SheetPictureView::isOnNumber(std::size_t place, QPointF pos) const
{
    const SheetLook look = dxftools::screenLook(palette(), font());
    const SheetFigure figure = dxftools::figureIn(sceneWith(look), m_picture.places[place]);
    return dxftools::markBoxOf(figure) && dxftools::isOnNumber(figure, pos);
}

const SheetPlace *SheetPictureView::placeOf(quint32 sheet) const
{
    const bool isShown = sheet < m_placeOfSheet.size() && m_placeOfSheet[sheet] != kNowhere;
    return isShown ? &m_picture.places[m_placeOfSheet[sheet]] : nullptr;
}

std::vector<quint32> SheetPictureView::sheetsAt(const std::vector<std::size_t> &places) const
{
    std::vector<quint32> sheets;
    for (const std::size_t i : places) {
        const auto own = m_picture.SheetsAt(m_picture.places[i]);
        sheets.insert(sheets.end(), own.begin(), own.end());
    }
    std::ranges::sort(sheets);
    return sheets;
}

/// What a click with Ctrl finds selected it takes away; everything else adds, or begins anew.
void SheetPictureView::pick(const std::vector<std::size_t> &places, Qt::KeyboardModifiers modifiers,
                            bool isBand)
{
    std::vector<quint32> picked = sheetsAt(places);
    const bool hasControl = modifiers.testFlag(Qt::ControlModifier);
    const bool keeps = hasControl || (!isBand && modifiers.testFlag(Qt::ShiftModifier));
    if (keeps) {
        const bool takesAway =
            hasControl && !isBand && !places.empty() && m_isSelected[places.front()];
        std::vector<quint32> all;
        if (takesAway)
            std::ranges::set_difference(m_selected, picked, std::back_inserter(all));
        else
            std::ranges::set_union(m_selected, picked, std::back_inserter(all));
        picked = std::move(all);
    }
    setSelectedSheets(picked);
    emit sheetsPicked(picked);
}

bool SheetPictureView::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        return showToolTip(help->pos(), help->globalPos());
    }
    if (event->type() == QEvent::NativeGesture) {
        const auto *gesture = static_cast<QNativeGestureEvent *>(event);
        if (gesture->gestureType() != Qt::ZoomNativeGesture)
            return false;
        changeView([&] { m_zoom.zoomBy(1 + gesture->value(), gesture->position()); });
        return true;
    }
    return QWidget::event(event);
}

bool SheetPictureView::showToolTip(const QPoint &pos, const QPoint &globalPos)
{
    const auto place = placeAt(pos);
    const QString text = !m_drawing ? QString()
                         : !place   ? DxfToolTexts::PictureMouseHelp()
                                    : toolTipOf(*place);
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(globalPos, u"<qt>"_s + text.toHtmlEscaped(), this);
    return true;
}

QString SheetPictureView::toolTipOf(std::size_t place) const
{
    const SheetPlace &shown = m_picture.places[place];
    const QString number = FigureOf(m_picture, shown, *m_drawing).number;
    if (number.isEmpty())
        return DxfToolTexts::NoNumberInPreview();
    switch (shown.state) {
    case SheetState::Exported:
        break;
    case SheetState::Unmarked:
        return DxfToolTexts::UnmarkedSheet(number);
    case SheetState::FilteredOut:
        return DxfToolTexts::FilteredOutSheet(number);
    }
    return number;
}

void SheetPictureView::resizeEvent(QResizeEvent *)
{
    layOut();
}

void SheetPictureView::changeEvent(QEvent *event)
{
    layOut(); // palette, font, direction: all of them show
    QWidget::changeEvent(event);
}

void SheetPictureView::wheelEvent(QWheelEvent *event)
{
    // A click of a wheel is 120; touchpads send fractions of it, or only pixels.
    constexpr double kClick = 120;
    const int way =
        event->angleDelta().isNull() ? event->pixelDelta().y() : event->angleDelta().y();
    if (way == 0)
        return event->ignore();
    changeView([&] { m_zoom.zoomBy(std::pow(kStep, way / kClick), event->position()); });
    updateCursor(event->position());
}

void SheetPictureView::mousePressEvent(QMouseEvent *event)
{
    const bool isMiddle = event->button() == Qt::MiddleButton;
    const bool drags = (isMiddle || event->button() == Qt::LeftButton) && m_drag == Drag::None &&
                       canvas().contains(event->pos());
    if (!drags)
        return QWidget::mousePressEvent(event);
    m_drag = isMiddle ? Drag::Pan : Drag::Pending;
    m_pressed = m_last = event->pos();
    updateCursor(m_last);
}

void SheetPictureView::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint pos = event->pos();
    const bool begins = m_drag == Drag::Pending &&
                        (pos - m_pressed).manhattanLength() >= QApplication::startDragDistance();
    if (begins)
        m_drag = event->modifiers().testFlag(Qt::ShiftModifier) ? Drag::RubberBand : Drag::Pan;
    if (m_drag == Drag::Pan)
        changeView([&] { m_zoom.panBy(pos - m_last); });
    else if (m_drag == Drag::RubberBand)
        update();
    if (m_drag != Drag::Pending)
        m_last = pos;
    updateCursor(pos);
}

void SheetPictureView::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_drag == Drag::None || event->buttons().testAnyFlags(Qt::LeftButton | Qt::MiddleButton))
        return QWidget::mouseReleaseEvent(event);
    const Drag drag = std::exchange(m_drag, Drag::None);
    updateCursor(event->position());
    if (drag == Drag::RubberBand) {
        update();
        const QRectF band = QRectF(m_pressed, event->pos()).normalized();
        pick(placesIn(m_zoom.toPicture(band)), event->modifiers(), true);
    } else if (drag == Drag::Pending) {
        click(event->modifiers());
    }
}

void SheetPictureView::click(Qt::KeyboardModifiers modifiers)
{
    const auto place = placeAt(m_pressed);
    const bool marks = place && modifiers == Qt::NoModifier && isOnNumber(*place, m_pressed);
    if (marks)
        emit marksToggled(sheetsAt({*place}));
    else
        pick(place ? std::vector{*place} : std::vector<std::size_t>(), modifiers, false);
}

void SheetPictureView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return mousePressEvent(event);
    const auto place = placeAt(event->position());
    if (place && isOnNumber(*place, event->position()))
        return mousePressEvent(event); // two quick marks
    if (!place)
        return zoomToFit();
    changeView([&] { m_zoom.zoomTo(m_picture.places[*place].bounds); });
    updateCursor(event->position());
}

void SheetPictureView::keyPressEvent(QKeyEvent *event)
{
    const double step = std::min(canvas().width(), canvas().height()) / 6.0;
    const auto pan = [&](double x, double y) {
        changeView([&] { m_zoom.panBy(QPointF(x, y) * step); });
    };
    switch (event->key()) {
    case Qt::Key_Left:
        return pan(1, 0);
    case Qt::Key_Right:
        return pan(-1, 0);
    case Qt::Key_Up:
        return pan(0, 1);
    case Qt::Key_Down:
        return pan(0, -1);
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the same key without Shift on many keyboards
        return zoomIn();
    case Qt::Key_Minus:
        return zoomOut();
    case Qt::Key_Home:
    case Qt::Key_0:
        return zoomToFit();
    case Qt::Key_Space:
        if (!m_selected.empty())
            emit marksToggled(m_selected);
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void SheetPictureView::updateCursor(QPointF pos)
{
    const bool isOnCanvas = QRectF(canvas()).contains(pos) && m_message.isEmpty();
    if (m_drag == Drag::Pan)
        setCursor(Qt::ClosedHandCursor);
    else if (m_drag == Drag::RubberBand)
        setCursor(Qt::CrossCursor);
    else if (placeAt(pos))
        setCursor(Qt::PointingHandCursor);
    else
        setCursor(isOnCanvas && !m_zoom.showsAll() ? Qt::OpenHandCursor : Qt::ArrowCursor);
}

void SheetPictureView::paintEvent(QPaintEvent *)
{
    const bool isOther = m_cache.devicePixelRatio() != devicePixelRatio(); // another screen's
    if (m_cache.isNull() || isOther) {
        m_cache = QPixmap(size() * devicePixelRatio());
        m_cache.setDevicePixelRatio(devicePixelRatio());
        QPainter painter(&m_cache);
        paintPicture(painter);
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_cache);
    if (m_drag == Drag::RubberBand)
        paintBand(painter);
    paintFrame(painter);
}

void SheetPictureView::paintPicture(QPainter &painter)
{
    const SheetLook look = dxftools::screenLook(palette(), font());
    painter.setClipRect(canvas());
    if (m_drawing)
        dxftools::paintScene(painter, sceneWith(look));
    else
        painter.fillRect(canvas(), look.page);
    painter.setClipping(false);
    paintMessage(painter);
    if (m_legendHeight <= 0)
        return;
    const QRect strip = rect().adjusted(0, canvas().height(), 0, 0);
    painter.fillRect(strip, palette().color(QPalette::Window));
    painter.translate(strip.topLeft());
    painter.setFont(font());
    layOutLegend(); // the scale bar follows the zoom
    dxftools::paintLegend(painter, m_legend, look, layoutDirection());
}

void SheetPictureView::paintMessage(QPainter &painter) const
{
    constexpr int kMargin = 24;
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(canvas().adjusted(kMargin, kMargin, -kMargin, -kMargin),
                     Qt::AlignCenter | Qt::TextWordWrap, m_message);
}

void SheetPictureView::paintBand(QPainter &painter) const
{
    QColor tint = palette().color(QPalette::Highlight);
    painter.setPen(QPen(tint, 1, Qt::DashLine));
    tint.setAlphaF(0.15F);
    painter.setBrush(tint);
    painter.drawRect(QRect(m_pressed, m_last).normalized());
}

/// A rim that tells whether keys go here.
void SheetPictureView::paintFrame(QPainter &painter) const
{
    const int line = hasFocus() ? 2 : 1;
    const QPalette::ColorRole role = hasFocus() ? QPalette::Highlight : QPalette::Mid;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(role), line, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    const double half = line / 2.0;
    painter.drawRect(QRectF(rect()).adjusted(half, half, -half, -half));
}
