// SPDX-License-Identifier: GPL-2.0-or-later
// What a pie menu makes of pointer and keys, and how it shows itself.
#include <kelo_base/menus/QtPieMenu.h>

#include "menus/pieaccessible_p.h"
#include "menus/piegeometry_p.h"
#include "menus/piemenudata_p.h"
#include "menus/piepainter_p.h"
#include "menus/pietext_p.h"
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QPropertyAnimation>
#include <QStyle>
#include <QStyleOption>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

// Showing

void QtPieMenu::showEvent(QShowEvent *event)
{
    QtPieItem::showEvent(event);
    if (!testAttribute(Qt::WA_TranslucentBackground) && d->isMaskOutdated) {
        generateMask(&d->mask);
        setMask(d->mask);
        d->isMaskOutdated = false;
    }
    // The menu has moved since popup() looked; a pointer far away is not aiming at it yet, and one
    // with a button or key held has to move first.
    const QPoint pointer = QCursor::pos();
    const bool isHeld = d->keys.hasOpener() || QGuiApplication::mouseButtons() != Qt::NoButton;
    const int target = isInside(pointer) && !isHeld ? targetAt(pointer) : Data::kNone;
    setHighlightedItem(canChoose(target) ? target : Data::kJustOpened);
    d->pointer = pointer;
    d->isRightDown = false;
    awaitRest();
    if (d->isFading)
        fadeIn();
    pie::announceOpen(*this, true);
}

void QtPieMenu::fadeIn()
{
    const int duration = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    if (duration <= 0 || !QApplication::isEffectEnabled(Qt::UI_FadeMenu))
        return;
    auto *fade = new QPropertyAnimation(this, "windowOpacity", this);
    fade->setDuration(duration);
    fade->setStartValue(0.0);
    fade->setEndValue(1.0);
    fade->start(QAbstractAnimation::DeleteWhenStopped);
}

void QtPieMenu::hideEvent(QHideEvent *event)
{
    QtPieItem::hideEvent(event);
    d->hover.stop();
    d->rest.stop();
    d->releaseWait.stop();
    d->stroke = {};
    d->keys = {};
    d->isShaded = false;
    if (QtPieMenu *menu = subMenuAt(std::exchange(d->shownSubMenu, Data::kNone)))
        menu->hide();
    if (holder())
        holder()->subMenuHidden(*this);
    pie::announceOpen(*this, false);
}

void QtPieMenu::paintEvent(QPaintEvent *event)
{
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    pie::Picture picture{.layout = d->layoutOf(*this),
                         .cells = d->fittedCells(*this),
                         .palette = palette(),
                         .highlighted = d->highlighted,
                         .isSubMenu = !isTopLevelMenu(),
                         .isShaded = d->isShaded,
                         .direction = layoutDirection()};
    if (const QtPieMenu *menu = subMenuAt(d->shownSubMenu))
        picture.front = QRectF(menu->geometry()).translated(-pos());
    picture.underlinesLetters = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this);
    pie::paint(painter, picture, event->rect());
}

void QtPieMenu::changeEvent(QEvent *event)
{
    QtPieItem::changeEvent(event);
    const QEvent::Type what = event->type();
    if (what == QEvent::FontChange || what == QEvent::StyleChange || what == QEvent::EnabledChange)
        itemChanged();
}

bool QtPieMenu::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept(); // keys are ours while the menu is open, not the shortcuts' behind it
        return true;
    }
    if (event->type() != QEvent::ToolTip)
        return QtPieItem::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const int index = targetAt(help->globalPos());
    QString tip;
    if (const QtPieItem *item = itemAt(index)) {
        const bool isElided = d->fittedCells(*this)[static_cast<std::size_t>(index)].isElided;
        tip = item->toolTip();
        if (tip.isEmpty() && isElided)
            tip = pie::withoutMnemonic(item->text());
    }
    QToolTip::showText(help->globalPos(), tip, this);
    return true;
}

// Leaving

void QtPieMenu::closeEvent(QCloseEvent *event)
{
    event->accept();
    if (isVisible())
        cancelAllOpen();
}

void QtPieMenu::focusOutEvent(QFocusEvent *event)
{
    QtPieItem::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && isVisible())
        cancelAllOpen();
}

// Pointer

QPoint QtPieMenu::globalCentre() const
{
    return mapToGlobal(rect().center());
}

/// Whether a click there leaves the menu. A stroke that opened it reaches as far as it likes.
bool QtPieMenu::isAway(QPoint globalPos) const
{
    return d->cancelDistance > 0 && !d->stroke.isOpening() &&
           radiusAt(mapFromGlobal(globalPos)) > std::max(d->cancelDistance, d->outerRadius);
}

bool QtPieMenu::isInside(QPoint globalPos) const
{
    return radiusAt(mapFromGlobal(globalPos)) <= d->outerRadius;
}

int QtPieMenu::targetAt(QPoint globalPos) const
{
    if (isAway(globalPos))
        return Data::kNone;
    return pie::targetAt(d->layoutOf(*this), globalPos - d->stroke.origin(globalCentre()));
}

/// Highlights what letting go would pick.
void QtPieMenu::light(QPoint globalPos)
{
    d->pointer = globalPos;
    const int index = d->stroke.isAiming() ? targetAt(globalPos) : Data::kNone;
    setHighlightedItem(canChoose(index) ? index : Data::kNone);
}

void QtPieMenu::pointTo(QPoint globalPos)
{
    light(globalPos);
    const int index = d->stroke.isAiming() ? targetAt(globalPos) : Data::kNone;
    if (index == d->pointerOver)
        return;
    d->pointerOver = index;
    d->hover.stop();
    if (!subMenuAt(index) || !canChoose(index))
        return;
    if (d->autoActivates)
        hoverAlert();
    else
        d->hover.start();
}

void QtPieMenu::hoverAlert()
{
    if (subMenuAt(d->pointerOver))
        openSubMenu(d->pointerOver, d->pointer);
}

void QtPieMenu::awaitRest()
{
    if (d->stroke.isOpening())
        d->rest.start();
}

void QtPieMenu::pointerRested()
{
    d->stroke.rest();
    if (d->stroke.isOpening() && d->stroke.isAiming())
        pointTo(d->pointer);
}

void QtPieMenu::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint pointer = event->globalPosition().toPoint();
    const bool isOnItem = targetAt(pointer) != Data::kNone;
    d->stroke.move(pointer, isOnItem, QApplication::startDragDistance());
    awaitRest();
    pointTo(pointer);
}

void QtPieMenu::mousePressEvent(QMouseEvent *event)
{
    const QPoint pointer = event->globalPosition().toPoint();
    if (event->button() == Qt::LeftButton)
        d->stroke.press(pointer, targetAt(pointer) != Data::kNone);
    d->isRightDown |= event->button() == Qt::RightButton;
    pointTo(pointer);
}

void QtPieMenu::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::RightButton && std::exchange(d->isRightDown, false))
        return cancelLevel();
    if (!d->stroke.isHeld())
        return;
    const QPoint pointer = event->globalPosition().toPoint();
    const bool isOnItem = targetAt(pointer) != Data::kNone;
    d->stroke.move(pointer, isOnItem, QApplication::startDragDistance());
    if (pointer != d->pointer)
        light(pointer);
    const int lit = d->highlighted; // perhaps by a key
    const bool wasOpening = d->stroke.isOpening();
    const pie::Verdict verdict = d->stroke.release(isOnItem || lit >= 0);
    if (wasOpening && verdict == pie::Verdict::KeepOpen)
        light(pointer); // directions count from the middle now
    carryOut(verdict, lit);
}

void QtPieMenu::carryOut(pie::Verdict verdict, int target)
{
    d->rest.stop();
    if (verdict == pie::Verdict::Choose)
        activateItem(target);
    else if (verdict == pie::Verdict::Cancel && isAway(d->pointer))
        cancelAllOpen();
    else if (verdict == pie::Verdict::Cancel)
        cancelLevel();
}

// Keys

void QtPieMenu::keyPressEvent(QKeyEvent *event)
{
    if (!isVisible())
        return;
    const pie::Key key(*event);
    const QPointer<QtPieMenu> alive(this);
    if (!d->keys.isReleaseSettled() && !d->keys.isRepetition(key, event->timestamp()))
        releaseSettled();
    if (!alive || !isVisible())
        return;
    d->releaseWait.stop();
    const pie::HeldKeys::Press press =
        d->keys.press(key, event->timestamp(), event->isAutoRepeat());
    if (press == pie::HeldKeys::Press::Foreign)
        return;
    d->hover.stop();
    if (!steerByKey(event->key()) && press == pie::HeldKeys::Press::New)
        pickByKey(*event);
}

void QtPieMenu::keyReleaseEvent(QKeyEvent *event)
{
    if (!isVisible() || event->isAutoRepeat())
        return;
    const QPointer<QtPieMenu> alive(this);
    if (!d->keys.isReleaseSettled())
        releaseSettled();
    if (!alive || !isVisible())
        return;
    d->keys.release(pie::Key(*event), event->timestamp());
    d->isTap = d->sinceOpening.elapsed() < d->tapThreshold;
    d->releaseWait.start(Data::kRepetition);
}

void QtPieMenu::releaseUnrepeated()
{
    // Behind a pause of this program the repetition may still wait in the queue: look once more.
    if (d->releaseWait.interval() > 0)
        d->releaseWait.start(0);
    else
        releaseSettled();
}

void QtPieMenu::releaseSettled()
{
    d->releaseWait.stop();
    if (!d->keys.settle())
        return;
    const pie::Verdict verdict = d->stroke.releaseKey(d->isTap, canChoose(d->highlighted));
    if (verdict == pie::Verdict::KeepOpen && d->highlighted < 0 && isInside(d->pointer))
        light(d->pointer); // a pointer elsewhere has no part in what is done by keys
    carryOut(verdict, d->highlighted);
}

bool QtPieMenu::steerByKey(int key)
{
    std::vector<bool> open(static_cast<std::size_t>(count()));
    for (int i = 0; i < count(); ++i)
        open[static_cast<std::size_t>(i)] = canChoose(i);
    const int current = d->highlighted;
    switch (key) {
    case Qt::Key_Right:
        return steerTowards(open, 0), true;
    case Qt::Key_Up:
        return steerTowards(open, pie::kTop), true;
    case Qt::Key_Left:
        return steerTowards(open, pie::kTurn / 2), true;
    case Qt::Key_Down:
        return steerTowards(open, -pie::kTop), true;
    case Qt::Key_Tab:
        return setHighlightedItem(pie::stepAlong(open, current, 1)), true;
    case Qt::Key_Backtab:
        return setHighlightedItem(pie::stepAlong(open, current, -1)), true;
    case Qt::Key_Home:
        return setHighlightedItem(pie::stepAlong(open, Data::kNone, 1)), true;
    case Qt::Key_End:
        return setHighlightedItem(pie::stepAlong(open, Data::kNone, -1)), true;
    default:
        return false;
    }
}

void QtPieMenu::steerTowards(const std::vector<bool> &open, double direction)
{
    const std::vector<double> &borders = d->layoutOf(*this).borders;
    const int next = pie::stepTowards(borders, open, d->highlighted, direction);
    if (next != d->highlighted)
        return setHighlightedItem(next);
    // Onwards in the item's own direction lies its sub-menu.
    if (subMenuAt(next) && std::cos(direction - pie::middleOf(borders, next)) > 0.5)
        activateByKey(next);
}

void QtPieMenu::pickByKey(const QKeyEvent &event)
{
    const int key = event.key();
    switch (key) {
    case Qt::Key_Enter:
    case Qt::Key_Return:
    case Qt::Key_Select:
    case Qt::Key_Space:
        return activateByKey(d->highlighted);
    case Qt::Key_Escape:
    case Qt::Key_Cancel:
        return cancelLevel();
    case Qt::Key_Backspace:
    case Qt::Key_Back:
        return isTopLevelMenu() ? void() : cancelLevel();
    default:
        break;
    }
    constexpr auto kNotPlain = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool isPlain = (event.modifiers() & kNotPlain) == Qt::NoModifier;
    if (isPlain && key >= Qt::Key_0 && key <= Qt::Key_9)
        return activateByKey(key == Qt::Key_0 ? 9 : key - Qt::Key_1);
    if (!event.text().isEmpty())
        pickByLetter(event.text().front());
}

void QtPieMenu::pickByLetter(QChar letter)
{
    std::vector<bool> matching(static_cast<std::size_t>(count()));
    for (int i = 0; i < count(); ++i) {
        const bool isMarked = pie::mnemonicOf(itemAt(i)->text()) == letter.toCaseFolded();
        matching[static_cast<std::size_t>(i)] = isMarked && canChoose(i);
    }
    const auto matches = std::count(matching.begin(), matching.end(), true);
    const int next = pie::stepAlong(matching, d->highlighted, 1);
    if (matches == 1)
        activateByKey(next);
    else if (matches > 1) // the letter walks from one to the next
        setHighlightedItem(next);
}

void QtPieMenu::activateByKey(int index)
{
    if (!canChoose(index))
        return;
    if (subMenuAt(index)) {
        const pie::Layout &layout = d->layoutOf(*this);
        const double radius = (layout.innerRadius + layout.outerRadius) / 2;
        const QPointF place = layout.pointIn(index, radius) - QPointF(0.5, 0.5); // a pixel's corner
        return openSubMenu(index, mapToGlobal(place.toPoint()));
    }
    activateItem(index);
}
