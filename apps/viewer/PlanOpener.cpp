// SPDX-License-Identifier: GPL-2.0-or-later
// Opens a plan's session, and words its failures.
#include "PlanOpener.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <kelo_base/dxf/PlanSession.h>

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(PlanOpener)

public:
    static QString NotRead(const QString &path, const DxfReadError &error)
    {
        if (error.message.contains(path))
            return error.message;
        const QString name = QFileInfo(path).fileName();
        return error.line > 0 ? tr("%1, line %2: %3").arg(name).arg(error.line).arg(error.message)
                              : tr("%1: %2").arg(name, error.message);
    }
    static QString TooLarge(const QString &path)
    {
        return tr("%1: there is not enough memory").arg(QFileInfo(path).fileName());
    }
};

} // namespace

std::unique_ptr<PlanSession> PlanOpener::open(const QString &path, QString &why)
{
    if (m_isReading)
        return nullptr;
    m_isReading = true;
    m_isCancelled = false;
    emit readingChanged(true);
    m_sinceEvents.start();
    const QPointer<PlanOpener> alive(this);
    PlanOpening opening = PlanSession::Open(path, {}, {reporter(), reporter()});
    if (!alive)
        return nullptr;
    m_isReading = false;
    emit readingChanged(false);
    switch (opening.outcome) {
    case PlanOpening::Outcome::Opened:
        return std::move(opening.session);
    case PlanOpening::Outcome::NotRead:
        why = Texts::NotRead(path, *opening.error);
        break;
    case PlanOpening::Outcome::NotAnalysed:
        why = opening.error ? Texts::NotRead(path, *opening.error) : Texts::TooLarge(path);
        break;
    case PlanOpening::Outcome::Cancelled:
        break;
    }
    return nullptr;
}

/// Short plans are read without a look at the events.
PlanProgress PlanOpener::reporter()
{
    return [alive = QPointer<PlanOpener>(this)](qint64 done, qint64 total) {
        constexpr int kEventsEvery = 50; // milliseconds
        if (!alive || alive->m_isCancelled)
            return false;
        if (alive->m_sinceEvents.elapsed() < kEventsEvery)
            return true;
        emit alive->progress(total > 0 ? static_cast<double>(done) / static_cast<double>(total)
                                       : -1);
        QCoreApplication::processEvents();
        if (alive)
            alive->m_sinceEvents.restart();
        return alive && !alive->m_isCancelled;
    };
}
