// SPDX-License-Identifier: GPL-2.0-or-later
// One viewer at a time in an exchange directory.
#pragma once

#include <QByteArray>
#include <QString>

namespace channel {

/// A file with number and start of the process that has the directory, and the computer on which it
/// runs. One left by a process that died holds nobody off; one from another computer does until it
/// was not renewed for a minute.
class DirectoryLock
{
public:
    enum class Result {
        Ours,
        Another, ///< a viewer that runs has it
        Failed,  ///< the file cannot be written
    };

    explicit DirectoryLock(const QString &directory);

    /// Takes the lock, or renews it when it is this process's already.
    [[nodiscard]] Result take() const;
    /// Removes the file if it is this process's.
    void release() const;

private:
    [[nodiscard]] bool isHeld(const QByteArray &content) const;
    void putAway(const QByteArray &content) const;

    QString m_directory;
    QString m_file;
    QByteArray m_own; ///< what stands in the file when the lock is this process's
};

} // namespace channel
