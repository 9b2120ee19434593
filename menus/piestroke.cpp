// SPDX-License-Identifier: GPL-2.0-or-later
// Judges presses and releases on a pie menu.
#include "menus/piestroke_p.h"

#include <utility>

namespace pie {

void Stroke::open(QPoint press)
{
    *this = Stroke();
    m_phase = Phase::Opening;
    m_press = press;
}

Stroke Stroke::handOver(QPoint pointer)
{
    const bool isHeld = std::exchange(m_phase, Phase::Idle) != Phase::Idle;
    Stroke next;
    next.m_phase = isHeld ? Phase::Opening : Phase::Idle;
    next.m_press = pointer;
    return next;
}

void Stroke::press(QPoint pointer, bool isOnItem)
{
    m_phase = Phase::Pressed;
    m_press = pointer;
    m_hasMoved = false;
    m_hasReachedItem = isOnItem;
}

void Stroke::follow(QPoint pointer, bool isOnItem, int clickDistance)
{
    m_hasMoved |= (pointer - m_press).manhattanLength() >= clickDistance;
    m_hasReachedItem |= isOnItem && m_phase == Phase::Opening;
}

void Stroke::move(QPoint pointer, bool isOnItem, int clickDistance)
{
    follow(pointer, isOnItem, clickDistance);
}

Verdict Stroke::release(QPoint pointer, bool isOnItem, int clickDistance)
{
    follow(pointer, isOnItem, clickDistance);
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
    const Phase phase = std::exchange(m_phase, Phase::Idle);
    if (phase != Phase::Opening || isTap)
        return Verdict::KeepOpen;
    return isOnItem ? Verdict::Choose : Verdict::Cancel;
}

QPoint Stroke::origin(QPoint centre) const
{
    return m_phase == Phase::Opening && !m_isSeen ? m_press : centre;
}

} // namespace pie
