// SPDX-License-Identifier: GPL-2.0-or-later
// A file that is written as a whole, or not at all.
#pragma once

#include <QString>
#include <filesystem>
#include <kelo_base/core/Export.h>
#include <memory>

class QFile;
class QIODevice;

/// Why a file was not written.
struct FileFault
{
    enum class Kind {
        None,
        IsFolder,
        IsWriteProtected, ///< for its user, or for everybody
        System            ///< what the system says
    };
    Kind kind = Kind::None;
    QString reason; ///< the system's words with Kind::System; empty with the others
};

/// Takes the place of an older file when it is complete; until then that stays as it was, and where
/// there was none, nothing is left behind. A link stays a link, and the new file has the
/// permissions of the older one. Devices and pipes cannot be replaced: they are written to
/// directly.
///
///     ReplacedFile file(path);
///     const bool isThere = file.Open() && write(file.Device()) && file.Commit();
class KELO_BASE_EXPORT ReplacedFile
{
public:
    /// @param path  may be as FileNameFromBytes() gives it
    explicit ReplacedFile(const QString &path);
    ~ReplacedFile();
    Q_DISABLE_COPY_MOVE(ReplacedFile)

    /// False when it cannot be written.
    bool Open();
    /// Open for writing, and unbuffered: give it large blocks.
    [[nodiscard]] QIODevice &Device();
    /// Puts the file in its place. False when that failed, or a write before.
    bool Commit();

    /// Why Open(), Commit() or a write failed.
    [[nodiscard]] FileFault Fault() const;
    /// Whether a regular file was there when this one was opened.
    [[nodiscard]] bool HasOlder() const { return m_hasOlder; }

private:
    bool openNew();
    bool fail(const std::error_code &error);
    bool fail(FileFault::Kind kind);

    std::filesystem::path m_target;
    std::filesystem::path m_name;  ///< beside the target; empty while it has none
    std::unique_ptr<QFile> m_file; ///< never null
    FileFault m_fault;
    bool m_hasOlder = false;
    bool m_isDirect = false; ///< a device
};
