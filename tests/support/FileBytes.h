// SPDX-License-Identifier: GPL-2.0-or-later
// Reads and writes whole files for a test.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

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
