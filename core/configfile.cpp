// SPDX-License-Identifier: GPL-2.0-or-later
// Configuration files: INI text that is saved whole or not at all.
#include "core/configfile_p.h"

#include "core/initext_p.h"
#include "core/platform/platform.h"

#include <kelo_base/core/FileName.h>

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QHash>
#include <QLockFile>
#include <QSaveFile>
#include <QTimerEvent>
#include <optional>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLongestWait = 2000; ///< milliseconds for a lock
constexpr int kRetry = 1000;       ///< milliseconds from a save that failed to the next
constexpr int kAbandoned = 1000;   ///< milliseconds after which nobody writes into a new lock

// ---- What was read ---------------------------------------------------------------------------

/// What a file held when QSettings last read or wrote it here.
struct Seen
{
    QByteArray text;
    QDateTime time;
    bool isWhole = true;
};

/// By name. QSettings as well keeps what it read for the life of the process, and for all objects
/// with the same file.
QHash<QString, Seen> &seenFiles()
{
    static QHash<QString, Seen> files;
    return files;
}

/// The whole text; nothing when there is a file, but it cannot be read.
std::optional<QByteArray> wholeText(QIODevice &file)
{
    const QByteArray text = file.readAll();
    return text.size() == file.size() ? std::optional(text) : std::nullopt;
}

bool readConfigFile(QIODevice &device, QSettings::SettingsMap &values)
{
    const QString name = static_cast<QFileDevice &>(device).fileName();
    seenFiles().remove(name);
    const auto text = wholeText(device);
    if (!text)
        return false;
    auto parsed = initext::parse(*text);
    values = std::move(parsed.values);
    seenFiles().insert(name, {*text, QFileInfo(name).lastModified(), parsed.isWhole});
    return true; // damaged or not: QSettings would drop what can be read
}

/// Whether QSettings has read the file as it is now, or has nothing to read.
bool isSeen(const QString &name)
{
    const QFileInfo file(name);
    if (file.size() == 0)
        return true;
    const auto seen = seenFiles().constFind(name);
    return seen != seenFiles().constEnd() && seen->time == file.lastModified() &&
           seen->text.size() == file.size();
}

/// Makes QSettings read a file anew that it took for empty: it does so when the time has changed.
bool makeUnread(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly) &&
           file.setFileTime(file.fileTime(QFileDevice::FileModificationTime).addMSecs(1),
                            QFileDevice::FileModificationTime);
}

// ---- Writing ---------------------------------------------------------------------------------

/// Whether all bytes have left for the disk; what a device keeps in its buffer may still fail.
bool writeAll(QFileDevice &file, const QByteArray &bytes)
{
    return file.write(bytes) == bytes.size() && file.flush();
}

bool isCopied(const QFileInfo &original, const QByteArray &bytes)
{
    const QStringList pattern(original.fileName() + u".broken-*"_s);
    for (const QFileInfo &entry : original.dir().entryInfoList(pattern, QDir::Files)) {
        QFile copy(entry.filePath());
        if (entry.size() == bytes.size() && copy.open(QIODevice::ReadOnly) &&
            copy.readAll() == bytes)
            return true;
    }
    return false;
}

/// Copies the bytes of a damaged file to a new one beside it, which only the same people may read,
/// and waits until it is on the disk. False when that cannot be done.
bool setAside(const QFile &original, const QByteArray &bytes)
{
    if (isCopied(QFileInfo(original), bytes))
        return true;
    const QString now = QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
    QString name = original.fileName() + u".broken-"_s + now;
    for (int i = 2; QFileInfo::exists(name); ++i) // never over an earlier copy
        name = original.fileName() + u".broken-%1-%2"_s.arg(now).arg(i);
    QSaveFile copy(name);
    if (!copy.open(QIODevice::WriteOnly) || !copy.setPermissions(original.permissions()) ||
        !writeAll(copy, bytes) || !copy.commit())
        return false;
    qDebug() << "ConfigFile::save : Damaged configuration file kept as " << name;
    return true;
}

/// Gives the file a time after that of the one it replaces, should the clock not have moved on.
QDateTime setLaterTime(QFileDevice &file, const QFile &replaced)
{
    const QDateTime old = replaced.fileTime(QFileDevice::FileModificationTime);
    const QDateTime time = file.fileTime(QFileDevice::FileModificationTime);
    if (!old.isValid() || time > old)
        return time;
    file.setFileTime(old.addMSecs(1), QFileDevice::FileModificationTime);
    return file.fileTime(QFileDevice::FileModificationTime);
}

/// @param device  the file that shall replace the one of its name. QSettings, which holds the lock,
///                renames it into place only when this returns true.
bool writeConfigFile(QIODevice &device, const QSettings::SettingsMap &values)
{
    auto &file = static_cast<QFileDevice &>(device);
    const QString name = file.fileName();
    const QByteArray text = initext::textOf(values);
    QFile old(name);
    const bool isReadable = old.open(QIODevice::ReadOnly);
    if (!isReadable && old.exists())
        return false;
    if (isReadable && old.size() > 0) {
        const auto oldText = wholeText(old);
        const Seen seen = seenFiles().value(name);
        if (!oldText || *oldText != seen.text) { // the values lack what it holds
            seenFiles().remove(name);
            return false;
        }
        // The copy comes last, when nothing else can fail any more: no copies of failed saves.
        if (!writeAll(file, text) || (!seen.isWhole && !setAside(old, *oldText)))
            return false;
    } else if (!writeAll(file, text)) {
        return false;
    }
    seenFiles().insert(name, {text, setLaterTime(file, old)});
    return true;
}

QSettings::Format configFileFormat()
{
    static const QSettings::Format format = QSettings::registerFormat(
        u"ini"_s, readConfigFile, writeConfigFile,
        Qt::CaseSensitive); // on every system: ignoring it would write all keys in lower case
    return format;
}

// ---- Locking ---------------------------------------------------------------------------------

/// Whom to blame for the lock, for a debug line.
QString holderOf(const QLockFile &lock)
{
    qint64 process = 0;
    QString host;
    QString application;
    return lock.getLockInfo(&process, &host, &application)
               ? u"process %1 (%2)"_s.arg(process).arg(application)
               : u"an unknown process"_s;
}

/// Whether QSettings will get the lock of the file at once. Takes away the locks of the dead: those
/// that name a process which is gone, and those that name none and are no longer new. A living
/// process cannot be robbed, however long it takes: the system guards its lock as well.
/// @param holder  who has it, when it is not free
bool isLockFree(const QString &fileName, int milliseconds, QString &holder)
{
    const QString name = fileName + u".lock"_s;
    if (!QFileInfo::exists(name))
        return true;
    QLockFile lock(name);
    lock.setStaleLockTime(kAbandoned);
    if (lock.tryLock(milliseconds) || lock.error() != QLockFile::LockFailedError)
        return true; // other errors are those of the directory, and QSettings meets them too
    holder = holderOf(lock);
    return false;
}

} // namespace

ConfigFile::ConfigFile(const QString &name)
    : QSettings(FollowLinks(name), configFileFormat()), m_isUnread(!isSeen(fileName()))
{
}

bool ConfigFile::save()
{
    return saveWithin(kLongestWait);
}

void ConfigFile::close(ConfigFile *file)
{
    file->m_isLeft = !file->saveWithin(file->m_isPutOff ? 0 : kLongestWait);
    if (!file->m_isLeft)
        delete file;
}

bool ConfigFile::event(QEvent *event)
{
    if (event->type() != QEvent::UpdateRequest)
        return QSettings::event(event);
    saveAtLeisure(); // what was set a moment ago
    return true;
}

void ConfigFile::timerEvent(QTimerEvent *)
{
    m_retryTimer.stop();
    saveAtLeisure();
}

/// Without any wait. A file that is closed is needed no longer than this.
void ConfigFile::saveAtLeisure()
{
    if (saveWithin(0) && m_isLeft)
        deleteLater();
}

/// @param milliseconds  for the lock; failing without any wait is no news
bool ConfigFile::saveWithin(int milliseconds)
{
    const bool isSilent = milliseconds == 0;
    QString holder;
    if (!isLockFree(fileName(), milliseconds, holder))
        return putOff(u"is locked by "_s + holder, isSilent);
    // Once more when the file turned out to be another than the one that QSettings had read.
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (m_isUnread && !isSeen(fileName()) && !makeUnread(fileName()))
            break;
        sync();
        m_isUnread = !isSeen(fileName());
        if (!m_isUnread && isBehind()) {
            retryLater();
            tell(tr("the file cannot be written"));
            return false;
        }
        if (!m_isUnread) {
            m_isPutOff = m_isTold = false;
            return true;
        }
    }
    return putOff(u"cannot be read"_s, isSilent);
}

/// Whether something is in memory alone. An error that QSettings has met once it names for ever, so
/// the file is looked at.
bool ConfigFile::isBehind() const
{
    if (status() != AccessError || !group().isEmpty())
        return false;
    SettingsMap values;
    for (const QString &key : allKeys())
        values.insert(key, value(key));
    QFile file(fileName());
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    return initext::textOf(values) != initext::textOf(initext::parse(text).values);
}

bool ConfigFile::putOff(const QString &reason, bool isSilent)
{
    retryLater();
    if (isSilent)
        return false;
    m_isPutOff = true;
    qDebug().noquote() << "ConfigFile::save : Not saved, for it" << reason << ":" << fileName();
    tell(tr("the file cannot be read, or others have it open"));
    return false;
}

void ConfigFile::retryLater()
{
    if (!m_retryTimer.isActive())
        m_retryTimer.start(kRetry, this);
}

void ConfigFile::tell(const QString &reason)
{
    if (!std::exchange(m_isTold, true))
        emit saveFailed(tr("Settings were not saved in %1: %2")
                            .arg(QDir::toNativeSeparators(fileName()), reason));
}
