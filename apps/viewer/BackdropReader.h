// SPDX-License-Identifier: GPL-2.0-or-later
// Reads what a plan draws around its sheets, in slices between the events of the user.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <memory>

class Backdrop;

/// Begins by itself with the event loop, and can be deleted at any time: that cancels.
class BackdropReader : public QObject
{
    Q_OBJECT

public:
    /// @param backdrop  gets what is read; not owned, and outlives this
    BackdropReader(const QString &path, Backdrop &backdrop, QObject *parent = nullptr);
    ~BackdropReader() override;

    [[nodiscard]] bool isDone() const { return !m_work; }
    /// 0 ... 1
    [[nodiscard]] double progress() const;
    /// Reads on for so many milliseconds; a negative number means to the end.
    void read(int milliseconds);
    /// How long a slice may take; less while the user moves something.
    void setSlice(int milliseconds) { m_slice = milliseconds; }

signals:
    /// There is more to be seen; comes twice a second at most.
    void grown();
    void finished();

private:
    struct Work;

    Backdrop &m_backdrop;
    std::unique_ptr<Work> m_work; ///< null when all is read
    QTimer m_timer;
    QElapsedTimer m_sinceGrown;
    int m_slice = 8;
};
