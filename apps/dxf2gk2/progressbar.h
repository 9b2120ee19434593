// SPDX-License-Identifier: GPL-2.0-or-later
// A bar on standard error that shows how far a long conversion has come.
#pragma once

#include "options.h"
#include <QElapsedTimer>

class ProgressBar
{
public:
    /// In mode Auto the bar shows on a terminal only, and only when the work takes more than half a
    /// second.
    explicit ProgressBar(ProgressMode mode);
    ~ProgressBar() { clear(); }
    Q_DISABLE_COPY_MOVE(ProgressBar)

    /// @param step         what is being done: "reading"
    /// @param done, total  of the step; a total of 0 or less is not known
    void show(QStringView step, qint64 done, qint64 total);
    /// Makes room for other text.
    void clear();

private:
    bool m_isOn;
    qint64 m_showsFrom; ///< milliseconds
    qint64 m_nextAt = 0;
    bool m_isShown = false;
    QElapsedTimer m_time;
};

/// "reading  [#####               ]  25 %"
QString progressLine(QStringView step, qint64 done, qint64 total);
