// SPDX-License-Identifier: GPL-2.0-or-later
// Which service starts or stops next.
#include "core/serviceorder_p.h"

#include <QCoreApplication>
#include <QDebug>
#include <algorithm>
#include <exception>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CoreFacadeI)
};

/// Calls a service's start, whatever it does.
bool startOf(const CoreService &service, QString &why)
{
    if (!service.start)
        return true;
    try {
        return service.start(why);
    } catch (const std::exception &exception) {
        why = QString::fromLocal8Bit(exception.what());
    } catch (...) {
        why.clear();
    }
    return false;
}

} // namespace

bool ServiceOrder::join(CoreService service)
{
    if (service.name.isEmpty() || find(service.name))
        return false;
    m_entries.push_back(std::make_unique<Entry>(Entry{std::move(service)}));
    work();
    return true;
}

bool ServiceOrder::leave(const QString &name)
{
    Entry *const entry = find(name);
    if (!entry)
        return false;
    entry->leaves = true;
    work();
    return true;
}

void ServiceOrder::startAll()
{
    m_isWanted = true;
    for (const auto &entry : m_entries)
        if (entry->state == State::Failed || entry->state == State::LeftOut)
            entry->state = State::Idle;
    work();
}

void ServiceOrder::stopAll()
{
    m_isWanted = false;
    work();
}

bool ServiceOrder::isRunning(const QString &name) const
{
    const Entry *const entry = find(name);
    return entry && entry->state == State::Running;
}

bool ServiceOrder::isAnyRunning() const
{
    return std::ranges::any_of(m_entries,
                               [](const auto &entry) { return entry->state == State::Running; });
}

bool ServiceOrder::areAllRunning() const
{
    return std::ranges::all_of(m_entries,
                               [](const auto &entry) { return entry->state == State::Running; });
}

void ServiceOrder::work()
{
    if (m_isWorking)
        return;
    m_isWorking = true;
    while (takeStep())
        removeThoseThatLeft();
    removeThoseThatLeft();
    m_isWorking = false;
}

/// What must not run stops before anything else starts. False when all is as wanted.
bool ServiceOrder::takeStep()
{
    if (Entry *const entry = lastToStop())
        stop(*entry);
    else if (Entry *const next = nextToStart())
        start(*next);
    else if (Entry *const inVain = nextInVain())
        report(*inVain, Texts::tr("it needs '%1', which does not run").arg(missingNeed(*inVain)));
    else
        return false;
    return true;
}

void ServiceOrder::start(Entry &entry)
{
    entry.state = State::Starting;
    QString why;
    const bool isStarted = startOf(entry.service, why);
    entry.startNumber = ++m_starts;
    if (isStarted)
        entry.state = State::Running;
    else
        report(entry, why.isEmpty() ? Texts::tr("it did not say why") : why);
}

void ServiceOrder::stop(Entry &entry)
{
    // First, so that it is stopped once, whatever it calls.
    entry.state = m_isWanted && !entry.leaves ? State::LeftOut : State::Idle;
    if (!entry.service.stop)
        return;
    try {
        entry.service.stop();
    } catch (const std::exception &exception) {
        qDebug() << "CoreFacadeI::Stop"
                 << ": " << entry.service.name << exception.what();
    }
}

void ServiceOrder::report(Entry &entry, const QString &why)
{
    entry.state = State::Failed;
    m_failed(entry.service.name, why, dependentsOf(entry.service.name));
}

void ServiceOrder::removeThoseThatLeft()
{
    std::erase_if(m_entries, [](const auto &entry) {
        return entry->leaves && entry->state != State::Running;
    });
}

ServiceOrder::Entry *ServiceOrder::find(const QString &name) const
{
    const auto entry = std::ranges::find_if(m_entries, [&name](const auto &candidate) {
        return candidate->service.name == name && !candidate->leaves;
    });
    return entry == m_entries.end() ? nullptr : entry->get();
}

bool ServiceOrder::mayRun(const Entry &entry) const
{
    return m_isWanted && !entry.leaves &&
           std::ranges::all_of(entry.service.needs,
                               [this](const QString &need) { return isRunning(need); });
}

/// Of those that run and must not, the one that started last. What needs another one started after
/// it, so that those go first.
ServiceOrder::Entry *ServiceOrder::lastToStop() const
{
    QStringList stopping; // and what needs them
    for (const auto &entry : m_entries)
        if (entry->state == State::Running && !mayRun(*entry))
            stopping << entry->service.name << dependentsOf(entry->service.name);
    Entry *last = nullptr;
    for (const auto &entry : m_entries)
        if (entry->state == State::Running && stopping.contains(entry->service.name) &&
            (!last || entry->startNumber > last->startNumber))
            last = entry.get();
    return last;
}

ServiceOrder::Entry *ServiceOrder::nextToStart() const
{
    const auto next = std::ranges::find_if(m_entries, [this](const auto &entry) {
        return (entry->state == State::Idle || entry->state == State::LeftOut) && mayRun(*entry);
    });
    return next == m_entries.end() ? nullptr : next->get();
}

/// One that waits for a service which never joined, or which waits for it in turn. Those that wait
/// for one that failed were named when it did, and those left out had their time.
ServiceOrder::Entry *ServiceOrder::nextInVain() const
{
    QStringList excused;
    for (const auto &entry : m_entries)
        if (entry->state == State::Failed || entry->state == State::LeftOut)
            excused << dependentsOf(entry->service.name);
    const auto next = std::ranges::find_if(m_entries, [&](const auto &entry) {
        return m_isWanted && entry->state == State::Idle && !entry->leaves &&
               !excused.contains(entry->service.name);
    });
    return next == m_entries.end() ? nullptr : next->get();
}

QString ServiceOrder::missingNeed(const Entry &entry) const
{
    const auto missing = std::ranges::find_if(
        entry.service.needs, [this](const QString &need) { return !isRunning(need); });
    return missing == entry.service.needs.end() ? QString() : *missing;
}

/// Those that need the service, directly or through others, as they joined.
QStringList ServiceOrder::dependentsOf(const QString &name) const
{
    QStringList affected{name};
    for (bool isGrowing = true; isGrowing;) {
        isGrowing = false;
        for (const auto &entry : m_entries) {
            const CoreService &service = entry->service;
            const bool isNew = !affected.contains(service.name) &&
                               std::ranges::any_of(service.needs, [&affected](const QString &need) {
                                   return affected.contains(need);
                               });
            if (isNew)
                affected << service.name;
            isGrowing |= isNew;
        }
    }
    return affected.mid(1);
}
