// SPDX-License-Identifier: GPL-2.0-or-later
// Follows the keys that are held on a pie menu, and those that might open one.
#include "menus/piekeys_p.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>
#include <algorithm>
#include <utility>

namespace pie {

namespace {

/// Sees every key and button of the application before it gets where it belongs.
class KeyWatch : public QObject
{
public:
    using QObject::QObject;
    [[nodiscard]] std::optional<Key> latest() const { return m_latest; }

    bool eventFilter(QObject *, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::ShortcutOverride: // all that is seen of a key that is a shortcut
        case QEvent::KeyPress:
            if (const auto *key = static_cast<QKeyEvent *>(event); !key->isAutoRepeat())
                m_latest = Key(*key);
            break;
        case QEvent::KeyRelease:
            if (const auto *key = static_cast<QKeyEvent *>(event);
                !key->isAutoRepeat() && m_latest == Key(*key))
                m_latest.reset();
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::TabletPress:
        case QEvent::TouchBegin:
            m_latest.reset();
            break;
        default:
            break;
        }
        return false;
    }

private:
    std::optional<Key> m_latest;
};

QPointer<KeyWatch> watch; // dies with the application object

} // namespace

Key::Key(const QKeyEvent &event)
    : scanCode(event.nativeScanCode()), code(scanCode != 0 ? 0 : event.key())
{
}

void watchKeys()
{
    if (watch)
        return;
    watch = new KeyWatch(qApp);
    qApp->installEventFilter(watch);
}

std::optional<Key> keyJustPressed()
{
    return watch ? watch->latest() : std::nullopt;
}

void HeldKeys::release(Key key, quint64 time)
{
    m_released = key;
    m_releaseTime = time;
}

bool HeldKeys::isRepetition(Key key, quint64 time) const
{
    constexpr quint64 kMost = 5; // a finger is not that fast
    return m_released == key && time - m_releaseTime <= kMost;
}

HeldKeys::Press HeldKeys::press(Key key, quint64 time, bool isMarkedAsRepeated)
{
    const bool followsRelease = isRepetition(key, time);
    if (followsRelease)
        m_released.reset();
    if (m_opener == key)
        return Press::Foreign;
    const bool isRepeated = isMarkedAsRepeated || followsRelease;
    const bool isOurs = std::find(m_down.begin(), m_down.end(), key) != m_down.end();
    if (isRepeated)
        return isOurs ? Press::Repeated : Press::Foreign;
    if (!isOurs)
        m_down.push_back(key);
    return Press::New;
}

bool HeldKeys::settle()
{
    const std::optional<Key> key = std::exchange(m_released, std::nullopt);
    if (!key || std::erase(m_down, *key) > 0 || m_opener != key)
        return false;
    m_opener.reset();
    return true;
}

} // namespace pie
