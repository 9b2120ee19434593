// SPDX-License-Identifier: GPL-2.0-or-later
// Reads plans, and lets the user go on meanwhile.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <kelo_base/dxf/PlanProgress.h>
#include <memory>

class PlanSession;

/// One plan at a time. While it is read, events are handled, and it can be cancelled.
class PlanOpener : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Null when it could not be read: @p why tells the user, in one sentence, unless it was
    /// cancelled. Also null, without a word, while another plan is being read.
    [[nodiscard]] std::unique_ptr<PlanSession> open(const QString &path, QString &why);
    [[nodiscard]] bool isReading() const { return m_isReading; }
    void cancel() { m_isCancelled = true; }

signals:
    void readingChanged(bool isReading);
    /// @param part  0 ... 1; below 0 when it is not known
    void progress(double part);

private:
    [[nodiscard]] PlanProgress reporter();

    bool m_isReading = false;
    bool m_isCancelled = false;
    QElapsedTimer m_sinceEvents;
};
