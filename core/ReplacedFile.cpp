// SPDX-License-Identifier: GPL-2.0-or-later
// A file that is written as a whole, or not at all.
#include <kelo_base/core/ReplacedFile.h>

#include "core/platform/platform.h"

#include <QFile>
#include <QRandomGenerator>
#include <cerrno>
#include <kelo_base/core/FileName.h>

namespace fs = std::filesystem;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kMode = QIODevice::WriteOnly | QIODevice::Unbuffered;

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

/// A name that nobody has yet, in the target's folder: only there can it take the target's place.
/// Nothing of the target's own name, which may be as long as names can be.
fs::path nameBeside(const fs::path &target)
{
    const quint32 number = QRandomGenerator::system()->generate();
    return target.parent_path() / u".kelo-%1.tmp"_s.arg(number, 8, 16, QChar(u'0')).toStdString();
}

fs::path folderOf(const fs::path &file)
{
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

/// Three bits each for owner, group and others; the toolkit spreads them to a digit each.
QFileDevice::Permissions permissionsOf(const fs::file_status &status)
{
    const auto bits = static_cast<int>(status.permissions());
    return QFileDevice::Permissions((bits >> 6 & 7) << 12 | (bits >> 3 & 7) << 4 | (bits & 7));
}

/// Stores all of what is written or says why not: a plain file stays silent about a last part that
/// found no room.
class WholeFile : public QFile
{
protected:
    qint64 writeData(const char *data, qint64 size) override
    {
        for (qint64 done = 0; done < size;) {
            const qint64 stored = QFile::writeData(data + done, size - done);
            if (stored <= 0)
                return -1;
            done += stored;
        }
        return size;
    }
};

} // namespace

ReplacedFile::ReplacedFile(const QString &path)
    : m_target(SystemPath(FollowLinks(path))), m_file(std::make_unique<WholeFile>())
{
}

ReplacedFile::~ReplacedFile()
{
    m_file->close();
    std::error_code ignored;
    if (!m_name.empty())
        fs::remove(m_name, ignored);
}

bool ReplacedFile::Open()
{
    std::error_code ignored;
    const fs::file_status status = fs::status(m_target, ignored);
    m_hasOlder = fs::is_regular_file(status);
    m_isDirect = fs::exists(status) && !m_hasOlder;
    if (fs::is_directory(status))
        return fail(FileFault::Kind::IsFolder);
    if (fs::exists(status) && !platform::isWritable(m_target)) // renaming would not ask
        return fail(FileFault::Kind::IsWriteProtected);
    if (fs::is_symlink(fs::symlink_status(m_target, ignored)))
        return fail(std::make_error_code(std::errc::too_many_symbolic_link_levels));
    if (!m_isDirect)
        return openNew();
    m_file->setFileName(QString::fromStdU16String(m_target.u16string()));
    return m_file->open(kMode);
}

QIODevice &ReplacedFile::Device()
{
    return *m_file;
}

bool ReplacedFile::openNew()
{
    int descriptor = platform::createNamelessFile(folderOf(m_target));
    while (descriptor < 0) {
        m_name = nameBeside(m_target);
        descriptor = platform::createFile(m_name);
        if (descriptor < 0 && errno != EEXIST) {
            m_name.clear();
            return fail(lastError());
        }
    }
    if (!m_file->open(descriptor, kMode, QFileDevice::AutoCloseHandle))
        return false;
    std::error_code ignored;
    if (m_hasOlder) // now, before there is anything in it to read
        m_file->setPermissions(permissionsOf(fs::status(m_target, ignored)));
    return true;
}

bool ReplacedFile::Commit()
{
    if (m_fault.kind != FileFault::Kind::None || m_file->error() != QFileDevice::NoError)
        return false;
    if (m_isDirect) {
        m_file->close();
        return m_file->error() == QFileDevice::NoError;
    }
    // It is not forced to disk: that would take longer than most of what is written here.
    if (m_name.empty()) {
        const fs::path name = nameBeside(m_target);
        if (!platform::nameFile(m_file->handle(), name))
            return fail(lastError());
        m_name = name;
    }
    m_file->close();
    if (m_file->error() != QFileDevice::NoError)
        return false;
    if (const std::error_code error = platform::renameOver(m_name, m_target))
        return fail(error);
    m_name.clear();
    return true;
}

FileFault ReplacedFile::Fault() const
{
    if (m_fault.kind != FileFault::Kind::None || m_file->error() == QFileDevice::NoError)
        return m_fault;
    return {FileFault::Kind::System, m_file->errorString()};
}

bool ReplacedFile::fail(const std::error_code &error)
{
    m_fault = {FileFault::Kind::System, QString::fromLocal8Bit(error.message().c_str())};
    return false;
}

bool ReplacedFile::fail(FileFault::Kind kind)
{
    m_fault = {kind, {}};
    return false;
}
