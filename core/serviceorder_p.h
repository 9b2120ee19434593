// SPDX-License-Identifier: GPL-2.0-or-later
// Which service starts or stops next.
#pragma once

#include <kelo_base/core/CoreFacade.h>

#include <vector>

/// Services that start in the order in which they joined, once what they need runs, and stop in
/// reverse. Every call may come from inside of a service: it then only says what is wanted, and the
/// call that is at work sees to it.
class ServiceOrder
{
public:
    /// @param leftOut  names of those that do not start because this one did not
    using Failed =
        std::function<void(const QString &name, const QString &why, const QStringList &leftOut)>;

    explicit ServiceOrder(Failed failed) : m_failed(std::move(failed)) {}

    bool join(CoreService service);
    bool leave(const QString &name);
    /// Tries again those that failed, or were left out, before.
    void startAll();
    void stopAll();

    [[nodiscard]] bool isRunning(const QString &name) const;
    [[nodiscard]] bool isAnyRunning() const;
    [[nodiscard]] bool areAllRunning() const;
    /// Whether a call is at work further up the stack.
    [[nodiscard]] bool isWorking() const { return m_isWorking; }

private:
    enum class State {
        Idle,
        Starting,
        Running,
        Failed,
        LeftOut, ///< stopped because what it needs went; starts again with that
    };
    struct Entry
    {
        CoreService service;
        State state = State::Idle;
        bool leaves = false;
        int startNumber = 0; ///< counts all starts, so that stops can go backwards
    };

    void work();
    bool takeStep();
    void start(Entry &entry);
    void stop(Entry &entry);
    void report(Entry &entry, const QString &why);
    void removeThoseThatLeft();

    [[nodiscard]] Entry *find(const QString &name) const;
    [[nodiscard]] bool mayRun(const Entry &entry) const;
    [[nodiscard]] Entry *lastToStop() const;
    [[nodiscard]] Entry *nextToStart() const;
    [[nodiscard]] Entry *nextInVain() const;
    [[nodiscard]] QString missingNeed(const Entry &entry) const;
    [[nodiscard]] QStringList dependentsOf(const QString &name) const;

    Failed m_failed;
    std::vector<std::unique_ptr<Entry>> m_entries; ///< as they joined
    bool m_isWanted = false;                       ///< that services run
    bool m_isWorking = false;
    int m_starts = 0;
};
