// SPDX-License-Identifier: GPL-2.0-or-later
// Shows how far long work has come, and lets the window live meanwhile.
#pragma once

#include "dxf/workbench/remainingtime_p.h"
#include <QElapsedTimer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

/// A bar with the time left and a button to cancel. The work runs in the GUI thread and reports
/// here; events are handled in between.
class ReadingBar : public QWidget
{
    Q_OBJECT

public:
    struct Pace ///< milliseconds
    {
        int shownAfter = 300; ///< shorter work is over before anybody could read
        int eventsEvery = 33;
    };
    enum class Unit { Bytes, Items };

    explicit ReadingBar(QWidget *parent = nullptr);

    void setPace(Pace pace) { m_pace = pace; }
    /// A new work; nothing is shown yet.
    void begin();
    /// The next step of the work.
    void beginStep(const QString &title, Unit unit);
    /// Reports and, when it is time, handles events. This object may be gone afterwards.
    /// @param total  -1 when it is not known
    /// @return false when the work shall end: it was cancelled, or this object is gone
    bool advance(qint64 done, qint64 total);

public slots:
    void cancel() { m_isCancelled = true; }

signals:
    /// The work takes long enough to be shown: whatever must not be used meanwhile gets disabled.
    void becameLong();

private:
    void showState(qint64 done, qint64 total);

    Pace m_pace;
    Unit m_unit = Unit::Bytes;
    QElapsedTimer m_time;
    QElapsedTimer m_stepTime;
    RemainingTime m_remaining;
    qint64 m_nextEvents = 0;
    bool m_isLong = false;
    bool m_isCancelled = false;
    QString m_title;
    QLabel *m_step; ///< as much of the title as fits
    QLabel *m_left; ///< time
    QProgressBar *m_bar;
    QPushButton *m_cancel;
};
