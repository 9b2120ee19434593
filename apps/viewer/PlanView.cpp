// SPDX-License-Identifier: GPL-2.0-or-later
// Turns input into poses, and paints.
#include "PlanView.h"

#include "BackdropReader.h"
#include "Plan.h"
#include "ScenePainting.h"
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QPointer>
#include <QPointingDevice>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace {

constexpr int kSlice = 5;            ///< milliseconds that tiles may be painted between events
constexpr int kGestureEnd = 350;     ///< milliseconds after which a movement has ended
constexpr double kStep = 0.15;       ///< of the view, for a key that moves
constexpr double kTurnStep = 15;     ///< degrees
constexpr double kNotch = 120;       ///< of a wheel
constexpr double kNotchRatio = 1.25; ///< by which a notch zooms

double angleAround(QPointF middle, QPointF pixel)
{
    return std::atan2(pixel.y() - middle.y(), pixel.x() - middle.x()) * 180 / std::numbers::pi;
}

} // namespace

PlanView::PlanView(Plan &plan, QWidget *parent)
    : KView(parent), m_plan(plan), m_pictures(plan.scene())
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(120, 90);
    setAccessibleName(tr("Plan"));
    m_work.setSingleShot(true);
    connect(&m_work, &QTimer::timeout, this, [this] {
        if (m_pictures.work(kSlice))
            update();
        scheduleWork();
    });
    m_gestureEnd.setSingleShot(true);
    m_gestureEnd.setInterval(kGestureEnd);
    connect(&m_gestureEnd, &QTimer::timeout, this, [this] {
        if (!m_isKeyHeld)
            endGesture();
    });
    connect(&plan, &Plan::grown, this, [this] {
        m_pictures.refresh();
        scheduleWork();
    });
    connect(&plan, &Plan::backdropRead, this, [this] {
        m_pictures.refresh();
        scheduleWork();
    });
    connect(&plan, &Plan::renewed, this, &PlanView::renew);
    connect(&plan, &Plan::changed, this, [this] {
        m_pictures.forget();
        findCurrentSheet();
        update();
    });
}

/// False when a listener has deleted the view, as below.
bool PlanView::display(const ViewPose &pose)
{
    m_isPlaced = true;
    if (pose == m_pose)
        return true;
    const QPointer<PlanView> alive(this);
    m_pose = pose;
    findCurrentSheet();
    if (!alive)
        return false;
    update();
    emit viewChanged();
    return !alive.isNull();
}

void PlanView::place(const ViewPose &pose)
{
    if (display(pose))
        emit viewSettled();
}

void PlanView::moveTo(const ViewPose &pose)
{
    m_history.begin(m_pose);
    if (BackdropReader *reader = m_plan.backdropReader())
        reader->setSlice(2);
    if (display(pose))
        m_gestureEnd.start();
}

void PlanView::go(const ViewPose &pose)
{
    if (!endGesture())
        return;
    m_history.begin(m_pose);
    if (display(pose))
        endGesture();
}

bool PlanView::endGesture()
{
    m_gestureEnd.stop();
    if (BackdropReader *reader = m_plan.backdropReader())
        reader->setSlice(8);
    if (!m_history.isMoving() || m_drag != Drag::None)
        return true;
    const QPointer<PlanView> alive(this);
    m_history.end(m_pose);
    emit historyChanged();
    if (alive)
        emit viewSettled();
    return !alive.isNull();
}

void PlanView::goBack()
{
    if (endGesture())
        step(m_history.back(m_pose));
}

void PlanView::goForth()
{
    if (endGesture())
        step(m_history.forth(m_pose));
}

void PlanView::step(const ViewPose &pose)
{
    const QPointer<PlanView> alive(this);
    place(pose);
    if (alive)
        emit historyChanged();
}

ViewPose PlanView::wholePlan() const
{
    const QRectF all = m_plan.bounds();
    return ViewPose::showing({all.topLeft(), all.topRight(), all.bottomRight(), all.bottomLeft()},
                             m_pose.angle(), size());
}

ViewPose PlanView::wholeSheet(quint32 sheet, double angle) const
{
    const auto corners = m_plan.sheets().frame(sheet).corners();
    return ViewPose::showing({corners.begin(), corners.end()}, angle, size());
}

void PlanView::findCurrentSheet()
{
    const auto sheet = m_plan.sheets().sheetAt(m_pose.middle());
    if (sheet == m_currentSheet)
        return;
    m_currentSheet = sheet;
    update();
    emit documentChanged();
}

/// Pose and history stay, and the picture until it is painted anew.
void PlanView::renew()
{
    m_pictures.renew();
    m_areSheetsShown = false;
    m_currentSheet = m_plan.sheets().sheetAt(m_pose.middle());
    update();
    emit documentChanged();
}

void PlanView::completePicture()
{
    m_pictures.setColors(SceneColors::of(palette()));
    m_pictures.setView(m_pose, size(), devicePixelRatioF());
    m_pictures.work(-1);
    update();
}

void PlanView::scheduleWork()
{
    const int wait = m_pictures.untilWork();
    if (wait >= 0)
        m_work.start(wait);
}

void PlanView::paintEvent(QPaintEvent *)
{
    m_pictures.setColors(SceneColors::of(palette()));
    m_pictures.setView(m_pose, size(), devicePixelRatioF());
    QPainter painter(this);
    m_pictures.paint(painter);
    paintCurrentSheet(painter);
    scheduleWork();
    if (!m_areSheetsShown && m_pictures.isComplete()) {
        m_areSheetsShown = true;
        emit sheetsShown();
    }
}

void PlanView::paintCurrentSheet(QPainter &painter) const
{
    if (!m_currentSheet)
        return;
    QPolygonF polygon;
    const SheetFrame frame = m_plan.sheets().frame(*m_currentSheet);
    for (const QPointF &corner : frame.corners())
        polygon << m_pose.toPixel(corner, size());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(
        QPen(palette().color(QPalette::Highlight), 3, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawPolygon(polygon);
}

void PlanView::resizeEvent(QResizeEvent *event)
{
    if (!m_isPlaced && !size().isEmpty()) {
        m_pose = wholePlan();
        findCurrentSheet();
    }
    KView::resizeEvent(event);
    const QPointer<PlanView> alive(this);
    emit viewChanged();
    if (alive)
        emit viewSettled();
}

void PlanView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        update();
    KView::changeEvent(event);
}

void PlanView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::RightButton && m_drag == Drag::None) {
        emit menuWanted(event->globalPosition().toPoint());
        return;
    }
    const bool isLeft = event->button() == Qt::LeftButton;
    if (!isLeft && event->button() != Qt::MiddleButton)
        return;
    endGesture();
    m_drag = isLeft && event->modifiers().testFlag(Qt::ShiftModifier) ? Drag::Turn : Drag::Move;
    m_dragFrom = event->position();
}

void PlanView::mouseMoveEvent(QMouseEvent *event)
{
    const QPointer<PlanView> alive(this);
    if (m_drag != Drag::None)
        dragTo(event->position());
    if (alive)
        emit pointerMoved(m_pose.toMap(event->position(), size()));
}

void PlanView::dragTo(QPointF pixel)
{
    setCursor(Qt::ClosedHandCursor);
    const QPointF from = std::exchange(m_dragFrom, pixel);
    if (m_drag == Drag::Move)
        moveTo(m_pose.moved(pixel - from));
    else
        moveTo(m_pose.turned(angleAround(middle(), pixel) - angleAround(middle(), from), middle(),
                             size()));
}

void PlanView::mouseReleaseEvent(QMouseEvent *)
{
    m_drag = Drag::None;
    unsetCursor();
    endGesture();
}

void PlanView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const auto sheet = m_plan.sheets().sheetAt(m_pose.toMap(event->position(), size()));
    if (event->button() == Qt::LeftButton && sheet)
        go(wholeSheet(*sheet, m_pose.angle()));
}

void PlanView::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        emit menuWanted(mapToGlobal(middle().toPoint()));
}

/// Two fingers on a touch pad move; a wheel zooms, and with Control both do, in small steps.
void PlanView::wheelEvent(QWheelEvent *event)
{
    const bool isPad = event->device()->type() == QInputDevice::DeviceType::TouchPad ||
                       event->phase() != Qt::NoScrollPhase;
    const bool isFine = event->modifiers().testFlag(Qt::ControlModifier);
    if (isPad && !isFine && !event->pixelDelta().isNull()) {
        moveTo(m_pose.moved(event->pixelDelta()));
    } else {
        const double notches = (event->angleDelta().y() + event->angleDelta().x()) / kNotch;
        const double step = isFine ? std::pow(kNotchRatio, 0.2) : kNotchRatio;
        moveTo(m_pose.zoomed(std::pow(step, -notches), event->position(), size()));
    }
    event->accept();
}

bool PlanView::nativeGesture(const QNativeGestureEvent &event)
{
    switch (event.gestureType()) {
    case Qt::ZoomNativeGesture:
        moveTo(m_pose.zoomed(1 / std::max(1 + event.value(), 0.1), event.position(), size()));
        return true;
    case Qt::RotateNativeGesture: // clockwise
        moveTo(m_pose.turned(event.value(), event.position(), size()));
        return true;
    case Qt::PanNativeGesture:
        moveTo(m_pose.moved(event.delta()));
        return true;
    default:
        return false;
    }
}

bool PlanView::event(QEvent *event)
{
    if (event->type() == QEvent::NativeGesture &&
        nativeGesture(*static_cast<QNativeGestureEvent *>(event)))
        return true;
    if (event->type() == QEvent::ShortcutOverride) // comes before any key, those of shortcuts too
        noteKey(*static_cast<QKeyEvent *>(event));
    return KView::event(event);
}

std::optional<ViewPose> PlanView::poseByKey(int key, bool isFine) const
{
    const double part = isFine ? kStep / 10 : kStep;
    const double ratio = isFine ? std::pow(kNotchRatio, 0.2) : kNotchRatio;
    const double degrees = isFine ? 1 : kTurnStep;
    switch (key) {
    case Qt::Key_Left:
        return m_pose.moved({width() * part, 0});
    case Qt::Key_Right:
        return m_pose.moved({-width() * part, 0});
    case Qt::Key_Up:
        return m_pose.moved({0, height() * part});
    case Qt::Key_Down:
        return m_pose.moved({0, -height() * part});
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return m_pose.zoomed(1 / ratio, middle(), size());
    case Qt::Key_Minus:
    case Qt::Key_Underscore:
        return m_pose.zoomed(ratio, middle(), size());
    case Qt::Key_PageUp:
        return m_pose.turned(-degrees, middle(), size());
    case Qt::Key_PageDown:
        return m_pose.turned(degrees, middle(), size());
    case Qt::Key_Home:
        return wholePlan();
    default:
        return std::nullopt;
    }
}

/// Systems wait longer before they repeat a key than a gesture pauses.
void PlanView::noteKey(const QKeyEvent &event)
{
    constexpr std::array kModifiers{Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta};
    const bool isModifier = std::ranges::find(kModifiers, event.key()) != kModifiers.end();
    if (isModifier || event.isAutoRepeat())
        return;
    m_isKeyHeld = event.type() != QEvent::KeyRelease;
    if (!m_isKeyHeld && m_history.isMoving())
        m_gestureEnd.start();
}

void PlanView::keyReleaseEvent(QKeyEvent *event)
{
    noteKey(*event);
    KView::keyReleaseEvent(event);
}

void PlanView::focusOutEvent(QFocusEvent *event)
{
    m_isKeyHeld = false;
    if (m_history.isMoving())
        m_gestureEnd.start();
    KView::focusOutEvent(event);
}

void PlanView::keyPressEvent(QKeyEvent *event)
{
    constexpr Qt::KeyboardModifiers kFine = Qt::ShiftModifier | Qt::KeypadModifier;
    const bool isPlain = (event->modifiers() & ~kFine) == Qt::NoModifier;
    const bool isFine = event->modifiers().testFlag(Qt::ShiftModifier);
    const auto pose = isPlain ? poseByKey(event->key(), isFine) : std::nullopt;
    if (pose)
        moveTo(*pose);
    else if (isPlain && event->key() == Qt::Key_Backspace)
        isFine ? goForth() : goBack();
    else
        KView::keyPressEvent(event);
}
