// SPDX-License-Identifier: GPL-2.0-or-later
// Reads and writes whole files for a test, and limits what it may have.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <csignal>
#include <sys/resource.h>

/// Nothing where the file cannot be read.
inline QByteArray bytesOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Makes the folder as well.
inline void writeBytes(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    if (!QDir().mkpath(QFileInfo(fileName).path()) || !file.open(QIODevice::WriteOnly) ||
        file.write(bytes) != bytes.size())
        qFatal("%s: %s", qPrintable(fileName), qPrintable(file.errorString()));
}

/// Limits what the process may have while it lives.
class ResourceLimit
{
public:
    ResourceLimit(__rlimit_resource resource, rlim_t limit) : m_resource(resource)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(resource, &m_old);
        const rlimit limited{limit, m_old.rlim_max};
        setrlimit(resource, &limited);
    }
    ~ResourceLimit() { setrlimit(m_resource, &m_old); }
    Q_DISABLE_COPY_MOVE(ResourceLimit)

private:
    __rlimit_resource m_resource;
    rlimit m_old{};
};
