// SPDX-License-Identifier: GPL-2.0-or-later
// A log that never grows beyond a few files.
#include "core/rotatinglog_p.h"

#include <QDebug>
#include <QDir>
#include <utility>

using namespace Qt::Literals::StringLiterals;

RotatingLog::RotatingLog(const QString &folder, const QString &name)
    : m_folder(folder), m_name(name)
{
}

void RotatingLog::write(QByteArrayView text)
{
    while (!text.isEmpty()) {
        if (!m_file.isOpen() && !open())
            return complain();
        const qsizetype room = qMax<qint64>(kFileBytes - m_file.size(), 0);
        const QByteArrayView piece = text.first(qMin(room, text.size()));
        if (m_file.write(piece.data(), piece.size()) != piece.size())
            return complain();
        text = text.sliced(piece.size());
        if (!text.isEmpty())
            rotate();
    }
}

QString RotatingLog::pathOf(int age) const
{
    const QString suffix = age == 0 ? u".log"_s : u".%1.log"_s.arg(age);
    return m_folder + u'/' + m_name + suffix;
}

bool RotatingLog::open()
{
    m_file.setFileName(pathOf(0));
    return QDir().mkpath(m_folder) &&
           m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
}

void RotatingLog::rotate()
{
    m_file.close();
    QFile::remove(pathOf(kFiles - 1));
    for (int age = kFiles - 1; age > 0; --age)
        QFile::rename(pathOf(age - 1), pathOf(age));
    // Where that failed (another program holds a file), the log begins anew rather than grow.
    if (QFile::exists(pathOf(0)) && !QFile::resize(pathOf(0), 0))
        complain();
}

void RotatingLog::complain()
{
    if (!std::exchange(m_hasComplained, true))
        qDebug() << "RotatingLog::write"
                 << ": Cannot write" << pathOf(0) << m_file.errorString();
}
