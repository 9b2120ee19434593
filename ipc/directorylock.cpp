// SPDX-License-Identifier: GPL-2.0-or-later
// One viewer at a time in an exchange directory.
#include "ipc/directorylock_p.h"

#include "core/platform/platform.h"
#include "ipc/channel_p.h"
#include "ipc/exchangefiles_p.h"

#include <QFile>
#include <QSysInfo>

namespace channel {
namespace {

constexpr qint64 kContentLimit = 1024;
constexpr qint64 kRenewedWithin = 60'000; ///< milliseconds

/// Gives the file the time of now, by the file system's clock, whose it stays.
void renew(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        file.write(content);
}

} // namespace

DirectoryLock::DirectoryLock(const QString &directory)
    : m_directory(directory), m_file(directory + u'/' + kLockFile)
{
    const std::uint32_t process = platform::currentProcess();
    m_own = QByteArray::number(process) + ' ' +
            QByteArray::number(quint64{platform::processStartTime(process)}) + ' ' +
            QSysInfo::machineHostName().toUtf8() + '\n';
}

DirectoryLock::Result DirectoryLock::take() const
{
    constexpr int kAttempts = 6; // more than one only when others come and go in this moment
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const FileContent found = lookInto(m_file, kContentLimit);
        if (found.state == FileContent::State::Absent) {
            // Read again in the next round: another may have put it away, taking it for unfinished.
            if (!writeNewFile(m_file, m_own) && !fileExists(m_file))
                return Result::Failed;
            continue;
        }
        if (found.state != FileContent::State::Read)
            return Result::Failed;
        if (found.bytes == m_own) {
            renew(m_file, m_own);
            return Result::Ours;
        }
        if (isHeld(found.bytes))
            return Result::Another;
        putAway(found.bytes);
    }
    return lookInto(m_file, kContentLimit).bytes == m_own ? Result::Ours : Result::Failed;
}

void DirectoryLock::release() const
{
    if (lookInto(m_file, kContentLimit).bytes == m_own)
        removeFile(m_file);
}

bool DirectoryLock::isHeld(const QByteArray &content) const
{
    const QByteArrayList words = content.trimmed().split(' ');
    if (words.size() != 3)
        return false; // its process died while it wrote
    if (words[2] != m_own.trimmed().split(' ')[2]) {
        const qint64 now = fileSystemNow(m_directory);
        return now - modifiedTime(m_file).value_or(now) < kRenewedWithin;
    }
    return platform::isStillRunning(words[0].toUInt(), words[1].toULongLong());
}

/// Removes a lock that holds nobody off, but not one that has just come in its place.
void DirectoryLock::putAway(const QByteArray &content) const
{
    const QString aside = m_file + kTemporaryEnding;
    if (!renameFile(m_file, aside))
        return;
    if (lookInto(aside, kContentLimit).bytes == content || fileExists(m_file))
        removeFile(aside);
    else
        static_cast<void>(renameFile(aside, m_file));
}

} // namespace channel
