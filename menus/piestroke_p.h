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
    /// The menu pops up at @p press, perhaps with a button or key held.
    void open(QPoint press);
    /// A sub-menu opens under the pointer. It takes over what is still held, so that a stroke can
    /// go on through it; nothing of it is left here.
    [[nodiscard]] Stroke handOver(QPoint pointer);
    /// A button goes down on the open menu.
    void press(QPoint pointer, bool isOnItem);
    /// @param clickDistance  how far the pointer may move for a press and release to be a click
    void move(QPoint pointer, bool isOnItem, int clickDistance);
    /// The button is let go. A click that opened the menu leaves it open. After that an item is
    /// chosen where the pointer is; in the middle, a stroke that had been on an item and a click
    /// cancel, while a press on an item that is let go there is thought better of.
    [[nodiscard]] Verdict release(QPoint pointer, bool isOnItem, int clickDistance);
    /// A key that was not pressed on the open menu is let go: the one that opened it, if it is the
    /// first. A tap leaves the menu open.
    [[nodiscard]] Verdict releaseKey(bool isTap, bool isOnItem);

    /// The user has seen the menu, and so aims at what it shows.
    void seen() { m_isSeen = true; }
    /// From where directions count: the middle of the menu, @p centre. A stroke faster than the
    /// menu's first picture was not aimed at a menu that the screen's edge may have moved aside: it
    /// counts from the press.
    [[nodiscard]] QPoint origin(QPoint centre) const;

private:
    enum class Phase { Idle, Opening, Pressed };
    void follow(QPoint pointer, bool isOnItem, int clickDistance);

    Phase m_phase = Phase::Idle;
    QPoint m_press;
    bool m_isSeen = false;
    bool m_hasMoved = false; ///< further than a click may
    bool m_hasReachedItem = false;
};

} // namespace pie
