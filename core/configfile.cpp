// SPDX-License-Identifier: GPL-2.0-or-later
// The format of the configuration files: INI text that is saved whole or not at all.
#include "core/configfile_p.h"

#include "core/initext_p.h"

#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Whether all bytes have left for the disk; what a device keeps in its buffer may still fail.
bool writeAll(QFileDevice &file, const QByteArray &bytes)
{
    return file.write(bytes) == bytes.size() && file.flush();
}

/// Copies the bytes of a damaged file to a new file beside it. False when that cannot be done.
bool setAside(const QString &name, const QByteArray &bytes)
{
    const QString now = QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
    QFile copy(name + u".broken-"_s + now);
    for (int i = 2; copy.exists(); ++i) // never over an earlier copy
        copy.setFileName(name + u".broken-%1-%2"_s.arg(now).arg(i));
    if (!copy.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return false;
    if (!writeAll(copy, bytes)) {
        copy.remove();
        return false;
    }
    qDebug() << "UserDataManagerI"
             << ": Damaged configuration file kept as " << copy.fileName();
    return true;
}

/// Gives the file a time after that of the one it replaces, should the clock not have moved on.
void setLaterTime(QFileDevice &file, const QString &replacedName)
{
    const QDateTime replaced = QFileInfo(replacedName).lastModified();
    if (file.fileTime(QFileDevice::FileModificationTime) <= replaced)
        file.setFileTime(replaced.addMSecs(1), QFileDevice::FileModificationTime);
}

bool readConfigFile(QIODevice &device, QSettings::SettingsMap &values)
{
    auto parsed = initext::parse(device.readAll());
    if (!parsed)
        return false;
    values = std::move(parsed->values);
    return true; // damaged or not: QSettings would drop what can be read
}

/// @param device  the file that shall replace the one of its name. QSettings, which holds the lock,
///                renames it into place only when this returns true.
bool writeConfigFile(QIODevice &device, const QSettings::SettingsMap &values)
{
    auto &file = static_cast<QFileDevice &>(device);
    QFile old(file.fileName());
    if (old.open(QIODevice::ReadOnly)) {
        const QByteArray oldText = old.readAll();
        const auto oldValues = initext::parse(oldText);
        const bool isDamaged = oldValues && !oldValues->isWhole;
        if (!oldValues || (isDamaged && !setAside(old.fileName(), oldText)))
            return false;
    }
    const auto text = initext::textOf(values);
    if (!text || !writeAll(file, *text))
        return false;
    if (old.isOpen())
        setLaterTime(file, old.fileName());
    return true;
}

} // namespace

QSettings::Format configFileFormat()
{
    static const QSettings::Format format =
        QSettings::registerFormat(u"ini"_s, readConfigFile, writeConfigFile);
    return format;
}
