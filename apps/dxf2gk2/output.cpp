// SPDX-License-Identifier: GPL-2.0-or-later
// Files that are complete or not there at all, and standard output.
#include "output.h"
#include "options.h"
#include "system.h"
#include "text.h"
#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>
#include <cstdio>
#include <filesystem>
#include <kelo_base/core/FileName.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype kBuffer = qsizetype{64} * 1024;

std::filesystem::path systemPath(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

std::filesystem::path streamPath(const QString &path, const char *standardStream)
{
    return path == kStandardStream ? std::filesystem::path(standardStream) : systemPath(path);
}

} // namespace

OutputFile::OutputFile(const QString &path) : m_path(path), m_target(FollowLinks(path)) {}

OutputFile::~OutputFile() = default;

bool OutputFile::open()
{
    constexpr auto mode = QIODevice::WriteOnly | QIODevice::Unbuffered;
    const QFileInfo info(m_path);
    if (m_path == kStandardStream) {
        auto file = std::make_unique<QFile>();
        if (!file->open(fileno(stdout), mode, QFileDevice::DontCloseHandle))
            m_error = file->errorString();
        m_device = std::move(file);
    } else if (info.isDir()) {
        m_error = Text::tr("it is a folder");
    } else if (info.exists() && !info.isFile()) { // a device or pipe cannot be replaced
        m_device = std::make_unique<QFile>(m_path);
    } else {
        m_device = std::make_unique<QTemporaryFile>(m_target + u".XXXXXX"_s);
    }
    if (m_error.isEmpty() && !m_device->isOpen() && !m_device->open(mode))
        m_error = m_device->errorString();
    return m_error.isEmpty();
}

bool OutputFile::commit()
{
    if (m_device->error() != QFileDevice::NoError) {
        m_error = m_device->errorString();
        return false;
    }
    if (auto *file = qobject_cast<QTemporaryFile *>(m_device.get()))
        return replaceTarget(*file);
    m_device->close();
    return true;
}

bool OutputFile::replaceTarget(QTemporaryFile &file)
{
    const bool isNew = !QFile::exists(m_target);
    file.setPermissions(isNew ? systemcalls::newFilePermissions() : QFile::permissions(m_target));
    // Until asked for its name it has none, so that even a killed run leaves nothing behind. It is
    // not forced to disk: that would take longer than most conversions.
    const std::filesystem::path name = systemPath(file.fileName());
    std::error_code error;
    std::filesystem::rename(name, systemPath(m_target), error);
    if (error)
        m_error = QString::fromStdString(error.message());
    else
        file.setAutoRemove(false);
    return !error;
}

QString OutputFile::error() const
{
    const QString why = m_error.isEmpty() && m_device ? m_device->errorString() : m_error;
    return m_path == kStandardStream ? Text::tr("cannot write to standard output: %1").arg(why)
                                     : Text::tr("cannot write '%1': %2").arg(m_path, why);
}

bool isSameFile(const QString &input, const QString &output)
{
    const std::filesystem::path from = streamPath(input, "/dev/stdin");
    const std::filesystem::path to = streamPath(output, "/dev/stdout");
    std::error_code error;
    return std::filesystem::is_regular_file(to, error) &&
           std::filesystem::equivalent(from, to, error);
}

QString placeOf(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists())
        return info.canonicalFilePath();
    const QString folder = QDir(info.path()).canonicalPath();
    return folder.isEmpty() ? QDir::cleanPath(info.absoluteFilePath())
                            : folder + u'/' + info.fileName();
}

StandardOutput::StandardOutput()
{
    if (!m_file.open(fileno(stdout), QIODevice::WriteOnly | QIODevice::Unbuffered,
                     QFileDevice::DontCloseHandle))
        m_error = m_file.errorString();
}

void StandardOutput::write(QByteArrayView text)
{
    m_text.append(text);
    if (m_text.size() >= kBuffer)
        flush();
}

bool StandardOutput::flush()
{
    if (!hasFailed() && m_file.write(m_text) != m_text.size())
        m_error = m_file.errorString();
    m_text.clear();
    return !hasFailed();
}
