// SPDX-License-Identifier: GPL-2.0-or-later
// A log that never grows beyond a few files.
#pragma once

#include <QByteArrayView>
#include <QFile>
#include <QString>

/// Appends to "folder/name.log"; when that is full it becomes "name.1.log", that one "name.2.log"
/// and so on, and the oldest goes. What cannot be written is dropped, and said once as a debug
/// line.
class RotatingLog
{
public:
    static constexpr qint64 kFileBytes = 1024LL * 1024;
    static constexpr int kFiles = 5; ///< the one that is written included

    /// @param folder  created with the first text
    RotatingLog(const QString &folder, const QString &name);

    void write(QByteArrayView text);
    /// The file that is written now.
    [[nodiscard]] QString fileName() const { return pathOf(0); }

private:
    [[nodiscard]] QString pathOf(int age) const;
    [[nodiscard]] bool open();
    void rotate();
    void complain();

    QString m_folder;
    QString m_name;
    QFile m_file;
    bool m_hasComplained = false;
};
