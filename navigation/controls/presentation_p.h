// SPDX-License-Identifier: GPL-2.0-or-later
// Stored views shown one after the other in one view.
#pragma once

#include "navigation/controls/blankscreen_p.h"
#include "navigation/controls/storedviews_p.h"
#include <QPointer>
#include <QTimer>
#include <kelo_base/navigation/KView.h>

namespace navcontrols {

class Presentation : public QObject
{
    Q_OBJECT

public:
    static constexpr int kLeastSeconds = 1;
    static constexpr int kMostSeconds = 3600;

    Presentation(KView *view, StoredViews &stored, QObject *parent);
    ~Presentation() override;

    /// The viewer's views, then those that people stored.
    [[nodiscard]] UDocItemList views() const;
    /// Of views(); -1 when none has been shown.
    [[nodiscard]] int index() const { return m_index; }
    bool show(int index);
    bool step(int steps);

    void setInterval(int seconds);
    void setPlaying(bool isPlaying);
    [[nodiscard]] bool isPlaying() const { return m_timer.isActive(); }
    void setFullScreen(bool isFull);
    [[nodiscard]] bool isFullScreen() const { return m_isFull; }
    void setBlank(bool isBlank);
    [[nodiscard]] bool isBlank() const { return !m_blank.isNull(); }
    /// It plays, or fills the screen.
    [[nodiscard]] bool isPresenting() const { return isPlaying() || m_isFull; }
    void leave();
    /// Acts on a key pressed over the document; false when it means nothing now.
    bool useKey(int key);

    bool eventFilter(QObject *window, QEvent *event) override;

signals:
    /// What the functions above answer is different.
    void changed();
    void presentingChanged(bool isPresenting);

private:
    void announce(bool wasPresenting);
    void endFullScreen();

    QPointer<KView> m_view;
    StoredViews &m_stored;
    int m_index = -1;
    int m_interval = 5; ///< seconds
    QTimer m_timer;
    bool m_isFull = false;
    Qt::WindowStates m_stateBefore;
    QPointer<QWidget> m_window; ///< that fills the screen
    QPointer<BlankScreen> m_blank;
};

} // namespace navcontrols
