// SPDX-License-Identifier: GPL-2.0-or-later
// Tells strokes from clicks and holds from taps: what pressing and letting go on a menu amounts to.
#pragma once

#include <QPoint>

namespace pie {

enum class Verdict : int { KeepOpen, Choose, Cancel };

/// What happens between pressing a button or key and letting it go. The press is either the one
/// that popped the menu up, or one on the open menu. It knows no widget and no clock; positions are
/// in pixels of the screen.
class Stroke
{
public:
    /// The menu pops up, perhaps with a button or key held.
    /// @param origin   where it was asked for
    /// @param pointer  where the pointer is at that moment
    void open(QPoint origin, QPoint pointer);
    /// A sub-menu opens. It takes over what is still held, so that a stroke can go on through it;
    /// nothing of it is left here.
    /// @param origin  from where the stroke goes on
    [[nodiscard]] Stroke handOver(QPoint origin, QPoint pointer);
    /// A button goes down on the open menu.
    void press(QPoint pointer, bool isOnItem);
    /// @param clickDistance  how far the pointer may move for a press and release to be a click
    void move(QPoint pointer, bool isOnItem, int clickDistance);
    /// The button is let go where the pointer moved last. A click that opened the menu leaves it
    /// open. After that an item is chosen where the pointer is; in the middle, a stroke that had
    /// been on an item and a click cancel, while a press on an item that is let go there is thought
    /// better of.
    [[nodiscard]] Verdict release(bool isOnItem);
    /// The key that opened the menu is let go. A tap leaves the menu open.
    [[nodiscard]] Verdict releaseKey(bool isTap, bool isOnItem);

    /// The pointer has rested: the user sees the menu, and aims at what it shows.
    void rest() { m_hasRested = true; }
    [[nodiscard]] bool isHeld() const { return m_phase != Phase::Idle; }
    /// Whether the press that opened the menu goes on.
    [[nodiscard]] bool isOpening() const { return m_phase == Phase::Opening; }
    /// Whether letting go may choose an item. A pointer that has not moved since the menu opened
    /// under it points at nothing.
    [[nodiscard]] bool isAiming() const { return !isOpening() || m_hasMoved; }
    /// From where directions count: the middle of the menu, @p centre. The screen's edge may have
    /// moved it aside from where the menu was asked for, and a stroke that goes on without a rest
    /// was not aimed at what it shows: it counts from there.
    [[nodiscard]] QPoint origin(QPoint centre) const;

private:
    enum class Phase { Idle, Opening, Pressed };

    Phase m_phase = Phase::Idle;
    QPoint m_origin;
    QPoint m_press;
    bool m_hasRested = false;
    bool m_hasMoved = false; ///< further than a click may
    bool m_hasReachedItem = false;
};

} // namespace pie
