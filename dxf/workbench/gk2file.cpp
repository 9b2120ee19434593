// SPDX-License-Identifier: GPL-2.0-or-later
// Replaces a GK2 file as a whole, or not at all.
#include "dxf/sheets/gk2records_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/gk2file_p.h"
#include <QFileInfo>
#include <QRandomGenerator>
#include <filesystem>
#include <functional>
#include <kelo_base/core/FileName.h>
#include <kelo_base/dxf/Gk2Writer.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kMode =
    QIODevice::WriteOnly | QIODevice::Unbuffered; // the writer's blocks are large

std::filesystem::path systemPath(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

/// The file beside the target that takes its place in the end; gone when it did not.
class Replacement
{
public:
    explicit Replacement(const QString &target)
        : m_target(target),
          m_file(QFileInfo(target).path() + // not its name, which may be as long as names can be
                 u"/gk2-%1.tmp"_s.arg(QRandomGenerator::system()->generate(), 8, 16, QChar(u'0')))
    {
    }
    ~Replacement()
    {
        if (!m_isInPlace && m_isOpen)
            m_file.remove();
    }
    Q_DISABLE_COPY_MOVE(Replacement)

    bool open()
    {
        // Not QTemporaryFile: it would be readable for its owner only, new files are as the user
        // wants them.
        m_isOpen = m_file.open(kMode | QIODevice::NewOnly);
        return m_isOpen;
    }
    QFile &file() { return m_file; }
    /// Why it could not take the target's place; empty when it did.
    QString takePlace()
    {
        if (QFile::exists(m_target))
            m_file.setPermissions(QFile::permissions(m_target));
        m_file.close();
        if (m_file.error() != QFileDevice::NoError)
            return m_file.errorString();
        std::error_code error;
        std::filesystem::rename(systemPath(m_file.fileName()), systemPath(m_target), error);
        m_isInPlace = !error;
        return error ? QString::fromLocal8Bit(error.message().c_str()) : QString();
    }

private:
    QString m_target;
    QFile m_file;
    bool m_isOpen = false;
    bool m_isInPlace = false;
};

/// Writes to an open file. Gives why that failed; empty when it did not.
using Fill = std::function<QString(QFile &)>;

QString writeDirectly(const QString &path, const Fill &fill)
{
    QFile device(path);
    return device.open(kMode) ? fill(device) : device.errorString();
}

QString replace(const QString &target, const Fill &fill)
{
    Replacement replacement(target);
    if (!replacement.open())
        return replacement.file().errorString();
    const QString error = fill(replacement.file());
    return error.isEmpty() ? replacement.takePlace() : error;
}

} // namespace

Gk2FileResult ReplaceGk2File(const QString &path, const DxfDrawing &drawing,
                             std::span<const quint32> sheets)
{
    const QFileInfo info(path);
    Gk2FileResult result;
    const auto fill = [&](QFile &file) {
        const Gk2Result written = WriteGk2(file, drawing, sheets);
        result.written = written.written;
        return written.stored ? QString() : file.errorString();
    };
    if (info.isDir())
        result.error = DxfDialogTexts::IsAFolder();
    else if (info.exists() && !info.isWritable()) // renaming would not ask
        result.error = DxfDialogTexts::IsWriteProtected();
    else if (info.exists() && !info.isFile()) // a device or pipe cannot be replaced
        result.error = writeDirectly(path, fill);
    else
        result.error = replace(FollowLinks(path), fill);
    if (!result) {
        result.written = CountGk2Records(drawing, sheets);
        result.keptOlderFile = info.isFile();
    }
    return result;
}

bool AreSameFile(const QString &one, const QString &other)
{
    std::error_code error;
    return std::filesystem::equivalent(systemPath(one), systemPath(other), error);
}
