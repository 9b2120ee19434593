// SPDX-License-Identifier: GPL-2.0-or-later
// What tests ask of Unix.
#include "tests/support/System.h"

#include "tests/support/FileBytes.h"

#include <csignal>
#include <pthread.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

namespace testsystem {
namespace {

__rlimit_resource resourceOf(ResourceLimit::Kind kind)
{
    return kind == ResourceLimit::FileSize ? RLIMIT_FSIZE : RLIMIT_NOFILE;
}

} // namespace

bool isUnix()
{
    return true;
}

ResourceLimit::ResourceLimit(Kind kind, unsigned int limit) : m_kind(kind)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limits{};
    getrlimit(resourceOf(kind), &limits);
    m_old = limits.rlim_cur;
    limits.rlim_cur = limit;
    setrlimit(resourceOf(kind), &limits);
}

ResourceLimit::~ResourceLimit()
{
    rlimit limits{};
    getrlimit(resourceOf(m_kind), &limits);
    limits.rlim_cur = m_old;
    setrlimit(resourceOf(m_kind), &limits);
}

FileMask::FileMask(unsigned int withheld) : m_old(umask(withheld)) {}

FileMask::~FileMask()
{
    umask(m_old);
}

bool makePipe(const QString &path)
{
    return mkfifo(qPrintable(path), 0600) == 0;
}

bool makeFullDevice(const QString &path)
{
    return mknod(qPrintable(path), S_IFCHR | 0666, makedev(1, 7)) == 0;
}

Nobody::Nobody()
{
    if (getuid() == 0 && seteuid(65534) != 0)
        qFatal("cannot become nobody");
}

Nobody::~Nobody()
{
    if (getuid() == 0 && seteuid(0) != 0)
        qFatal("cannot be root again");
}

QByteArray threadName()
{
    char name[16] = "";
    pthread_getname_np(pthread_self(), name, sizeof name);
    return name;
}

qint64 memoryBytes()
{
    const QByteArrayList pages = bytesOf(QStringLiteral("/proc/self/statm")).split(' ');
    return pages.value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

QString sleepCommand()
{
    return QStringLiteral("sleep 60");
}

quint32 startSleeper(const QString &program)
{
    const QByteArray name = program.toUtf8();
    const pid_t pid = fork();
    if (pid != 0)
        return static_cast<quint32>(pid);
    execl(name.constData(), name.constData(), "60", nullptr);
    _exit(1);
}

void end(quint32 process)
{
    kill(static_cast<pid_t>(process), SIGKILL);
}

bool takeNoteOf(quint32 sleeper)
{
    return waitpid(static_cast<pid_t>(sleeper), nullptr, 0) == static_cast<pid_t>(sleeper);
}

} // namespace testsystem
