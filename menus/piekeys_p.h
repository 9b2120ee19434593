// SPDX-License-Identifier: GPL-2.0-or-later
// Which keys are held on a menu: repetitions told from presses, the opening key from others.
#pragma once

#include <QtGlobal>
#include <optional>
#include <vector>

class QKeyEvent;

namespace pie {

/// A key by its place on the keyboard where the platform tells it, so that a modifier pressed
/// meanwhile does not make another one of it.
struct Key
{
    explicit Key(const QKeyEvent &event);
    quint32 scanCode; ///< 0: the platform does not tell
    int code;         ///< of Qt::Key; 0 when there is a scan code
    friend bool operator==(const Key &, const Key &) = default;
};

/// Begins to watch which keys go down in the application; harmless when repeated.
void watchKeys();
/// The key that is asking for a menu at this moment: the one that went down last, when it is still
/// down and no button was used since.
[[nodiscard]] std::optional<Key> keyJustPressed();

/// The keys held on an open menu. Some platforms send a release before each repetition, and not all
/// of them mark the pair; so a release counts only once it is settled, when no press of the same
/// key has followed.
class HeldKeys
{
public:
    enum class Press {
        New,
        Repeated, ///< of a key that was pressed on the menu
        Foreign   ///< of one that was down before, such as the opening key
    };

    HeldKeys() = default;
    /// @param opener  the key that opened the menu; none: something else did
    explicit HeldKeys(std::optional<Key> opener) : m_opener(opener) {}
    [[nodiscard]] bool hasOpener() const { return m_opener.has_value(); }

    /// @param time  of the event, in milliseconds; 0 with platforms that do not tell
    [[nodiscard]] Press press(Key key, quint64 time, bool isMarkedAsRepeated);
    void release(Key key, quint64 time);
    [[nodiscard]] bool isReleaseSettled() const { return !m_released; }
    /// Whether such a press takes back the release before it.
    [[nodiscard]] bool isRepetition(Key key, quint64 time) const;
    /// The release was one. Whether it was the opening key's, which happens once.
    [[nodiscard]] bool settle();

private:
    std::optional<Key> m_opener;
    std::optional<Key> m_released; ///< perhaps
    quint64 m_releaseTime = 0;
    std::vector<Key> m_down; ///< pressed on the menu
};

} // namespace pie
