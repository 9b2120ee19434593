// SPDX-License-Identifier: GPL-2.0-or-later
// Judges presses and releases on a pie menu.
#include "menus/piestroke_p.h"

#include <utility>

namespace pie {

void Stroke::open(QPoint origin, QPoint pointer)
{
    *this = Stroke();
    m_phase = Phase::Opening;
    m_origin = origin;
    m_press = pointer;
}

Stroke Stroke::handOver(QPoint origin, QPoint pointer)
{
    Stroke next;
    if (std::exchange(m_phase, Phase::Idle) != Phase::Idle)
        next.open(origin, pointer);
    return next;
}

void Stroke::press(QPoint pointer, bool isOnItem)
{
    m_phase = Phase::Pressed;
    m_press = pointer;
    m_hasMoved = false;
    m_hasReachedItem = isOnItem;
}

void Stroke::move(QPoint pointer, bool isOnItem, int clickDistance)
{
    m_hasMoved |= (pointer - m_press).manhattanLength() >= clickDistance;
    m_hasReachedItem |= isOnItem && isOpening();
}

Verdict Stroke::release(bool isOnItem)
{
    const Phase phase = std::exchange(m_phase, Phase::Idle);
    const bool isOpeningClick = phase == Phase::Opening && !m_hasMoved;
    if (phase == Phase::Idle || isOpeningClick)
        return Verdict::KeepOpen;
    if (isOnItem)
        return Verdict::Choose;
    // A stroke that never left the middle was an unsteady click.
    const bool isBack = phase == Phase::Opening ? m_hasReachedItem : !m_hasReachedItem;
    return isBack ? Verdict::Cancel : Verdict::KeepOpen;
}

Verdict Stroke::releaseKey(bool isTap, bool isOnItem)
{
    if (!isOpening()) // a button has taken over
        return Verdict::KeepOpen;
    m_phase = Phase::Idle;
    if (isTap)
        return Verdict::KeepOpen;
    return isOnItem ? Verdict::Choose : Verdict::Cancel;
}

QPoint Stroke::origin(QPoint centre) const
{
    return isOpening() && !m_hasRested ? m_origin : centre;
}

} // namespace pie
