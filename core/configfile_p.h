// SPDX-License-Identifier: GPL-2.0-or-later
// Configuration files: INI text that is saved whole or not at all.
#pragma once

#include <QBasicTimer>
#include <QSettings>

/// A settings file of the same text as one of QSettings::IniFormat, which may read and write it
/// too. QSettings itself locks it, merges what other processes have saved, and renames a finished
/// file into place; this adds what it leaves out:
/// - A text that cannot be written to its last byte (full disk) replaces nothing. QSettings's own
///   formats rename a file whose last block was not written.
/// - A file that could not be read the last time is not written over: it is read first. QSettings
///   takes such a file for empty.
/// - A file that cannot be parsed is copied beside itself, as "name.broken-20261231-235959", before
///   the first write replaces it, and one debug line names the copy. Without the copy, no write.
/// - Each save has a later time than the one before. QSettings tells a file changed by others by
///   its size and its time in milliseconds alone, and two saves may fall within one.
/// - Where the name is a link, file and lock are those at its end: all who come by other links
///   then meet at one lock.
/// - A save waits at most two seconds for the lock. QSettings alone waits as long as another
/// process
///   stands still while it holds it, and half a minute for one that died while it took it.
///
/// Whatever makes QSettings write goes this way, the event loop and the destructor too; but sync()
/// called on the base class waits as long as QSettings does.
class ConfigFile : public QSettings
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ConfigFile)

public:
    explicit ConfigFile(const QString &name);
    ~ConfigFile() override = default;

    /// Writes what has changed and reads what others have written. False, and all still in memory,
    /// when the lock is not to be had or the file cannot be read, which one debug line says, or
    /// when it cannot be written; the event loop tries again in a while.
    bool save();

    /// Saves, and deletes @p file. Where that fails it is left to the event loop; opening the file
    /// again brings back what it holds.
    static void close(ConfigFile *file);

signals:
    /// Something could not be saved; told once until a save succeeds. Also when the event loop
    /// could not, unless it only met a lock.
    /// @param sentence  for people
    void saveFailed(const QString &sentence);

protected:
    bool event(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    bool saveWithin(int milliseconds);
    void saveAtLeisure();
    bool putOff(const QString &reason, bool isSilent);
    [[nodiscard]] bool isBehind() const;
    void retryLater();
    void tell(const QString &reason);

    QBasicTimer m_retryTimer;
    bool m_isUnread = false; ///< when QSettings looked last, it could not read the file
    bool m_isPutOff = false; ///< the last save() failed
    bool m_isLeft = false;   ///< closed, but not saved yet
    bool m_isTold = false;   ///< that a save failed
};
