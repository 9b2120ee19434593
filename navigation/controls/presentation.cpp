// SPDX-License-Identifier: GPL-2.0-or-later
// Stored views shown one after the other in one view.
#include "navigation/controls/presentation_p.h"

#include "navigation/controls/viewmoves_p.h"
#include "navigation/viewaccess_p.h"
#include <QKeyEvent>
#include <algorithm>

namespace navcontrols {

namespace {
constexpr int kMilliseconds = 1000;
} // namespace

Presentation::Presentation(KView *view, StoredViews &stored, QObject *parent)
    : QObject(parent), m_view(view), m_stored(stored)
{
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (!step(1))
            setPlaying(false); // nothing to show, or it cannot be shown
    });
    connect(&stored, &StoredViews::changed, this, &Presentation::changed);
}

Presentation::~Presentation()
{
    delete m_blank;
    if (m_window && m_isFull)
        m_window->setWindowState(m_stateBefore);
}

UDocItemList Presentation::views() const
{
    DocWindowXIfc *const window = m_view ? ViewAccess(m_view).window() : nullptr;
    UDocItemList all = window ? window->StoredViews(m_view) : UDocItemList();
    for (const UDocItem &item : m_stored.list())
        all << item;
    return all;
}

/// The index counts before the view is shown: who listens to the view asks for it.
bool Presentation::show(int index)
{
    const UDocItemList all = views();
    if (index < 0 || index >= all.Size() || !m_view)
        return false;
    const int before = std::exchange(m_index, index);
    const QPointer<Presentation> alive(this);
    const bool isShown = showItem(m_view, all[index]);
    if (!alive)
        return isShown;
    if (!isShown)
        m_index = before;
    emit changed();
    return isShown;
}

bool Presentation::step(int steps)
{
    return show(steppedIndex(m_index, steps, views().Size()));
}

void Presentation::setInterval(int seconds)
{
    m_interval = std::clamp(seconds, kLeastSeconds, kMostSeconds);
    if (m_timer.isActive())
        m_timer.start(m_interval * kMilliseconds);
}

void Presentation::announce(bool wasPresenting)
{
    const QPointer<Presentation> alive(this);
    emit changed();
    if (alive && wasPresenting != isPresenting())
        emit presentingChanged(isPresenting());
}

void Presentation::setPlaying(bool isPlaying)
{
    const bool hasViews = isPlaying && views().Size() > 0;
    if (hasViews == this->isPlaying())
        return;
    const bool wasPresenting = isPresenting();
    if (hasViews)
        m_timer.start(m_interval * kMilliseconds);
    else
        m_timer.stop();
    announce(wasPresenting);
}

void Presentation::setFullScreen(bool isFull)
{
    if (isFull == m_isFull || !m_view)
        return;
    if (!isFull)
        return endFullScreen();
    const bool wasPresenting = isPresenting();
    m_window = m_view->window();
    m_stateBefore = m_window->windowState() & ~Qt::WindowFullScreen;
    m_isFull = true;
    m_window->setWindowState(m_stateBefore | Qt::WindowFullScreen);
    m_window->installEventFilter(this);
    announce(wasPresenting);
}

void Presentation::endFullScreen()
{
    const bool wasPresenting = isPresenting();
    m_isFull = false;
    if (m_window) {
        m_window->removeEventFilter(this);
        m_window->setWindowState(m_stateBefore);
    }
    announce(wasPresenting);
}

/// People may end it by the window system's own means, or by Esc wherever the keyboard is.
bool Presentation::eventFilter(QObject *window, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && window == m_window && m_isFull &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        leave();
        return true;
    }
    if (event->type() == QEvent::WindowStateChange && window == m_window && m_isFull &&
        !m_window->windowState().testFlag(Qt::WindowFullScreen))
        endFullScreen();
    return false;
}

void Presentation::setBlank(bool isBlank)
{
    if (isBlank == this->isBlank() || !m_view)
        return;
    if (isBlank) {
        m_blank = new BlankScreen(m_view->window());
        connect(m_blank, &BlankScreen::ended, this, [this] {
            m_blank = nullptr;
            if (m_view)
                m_view->setFocus();
            emit changed();
        });
    } else {
        delete m_blank;
        m_view->setFocus();
    }
    emit changed();
}

void Presentation::leave()
{
    const QPointer<Presentation> alive(this);
    setBlank(false);
    if (alive)
        setPlaying(false);
    if (alive)
        setFullScreen(false);
}

bool Presentation::useKey(int key)
{
    if (!isPresenting())
        return false;
    switch (key) {
    case Qt::Key_Escape:
        leave();
        return true;
    case Qt::Key_PageDown:
    case Qt::Key_Space:
        step(1);
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_Backspace:
        step(-1);
        return true;
    case Qt::Key_B:
    case Qt::Key_Period:
        setBlank(true);
        return true;
    default:
        return false;
    }
}

} // namespace navcontrols
