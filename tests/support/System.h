// SPDX-License-Identifier: GPL-2.0-or-later
// What tests ask of the operating system; one source per family of systems.
#pragma once

#include <QByteArray>
#include <QString>

namespace testsystem {

/// Whether there are symbolic links, permissions, named pipes, devices in the tree, and limits; the
/// functions below that want them do nothing elsewhere.
bool isUnix();

/// Limits what the process may have while it lives.
class ResourceLimit
{
public:
    enum Kind { FileSize, OpenFiles };
    ResourceLimit(Kind kind, unsigned int limit);
    ~ResourceLimit();
    Q_DISABLE_COPY_MOVE(ResourceLimit)

private:
    Kind m_kind;
    quint64 m_old = 0;
};

/// Which permissions new files do not get while it lives.
class FileMask
{
public:
    explicit FileMask(unsigned int withheld);
    ~FileMask();
    Q_DISABLE_COPY_MOVE(FileMask)

private:
    unsigned int m_old = 0;
};

bool makePipe(const QString &path);
/// A device that takes nothing; false without the right to make one.
bool makeFullDevice(const QString &path);
/// While it lives, the process may do what everybody may, and no more.
class Nobody
{
public:
    Nobody();
    ~Nobody();
    Q_DISABLE_COPY_MOVE(Nobody)
};
/// As the system keeps it.
QByteArray threadName();
/// What the process takes of the memory, in bytes.
qint64 memoryBytes();

/// A command that runs for a minute, or until it is killed.
QString sleepCommand();
/// Starts a program and has it run for a minute; its number.
quint32 startSleeper(const QString &program);
/// Ends a process, which stays known to the system until whoever started it has taken note.
void end(quint32 process);
/// Takes note that a sleeper has ended.
bool takeNoteOf(quint32 sleeper);

} // namespace testsystem

/// Leaves a test that only Unix can run; why is for those who read the results elsewhere.
#define KELO_UNIX_ONLY(why)                                                                        \
    if (!testsystem::isUnix())                                                                     \
    QSKIP(why)
