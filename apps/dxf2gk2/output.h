// SPDX-License-Identifier: GPL-2.0-or-later
// Files that are complete or not there at all, and standard output.
#pragma once

#include <QByteArrayView>
#include <QFile>
#include <memory>

class QTemporaryFile;

/// A file being written. Until commit() an older file of that name stays as it was, and without it
/// nothing is left behind. A link stays a link; devices, pipes and "-" are written to directly.
class OutputFile
{
public:
    explicit OutputFile(const QString &path);
    ~OutputFile();
    Q_DISABLE_COPY_MOVE(OutputFile)

    /// False when it cannot be written; error() tells why.
    bool open();
    [[nodiscard]] QIODevice &device() { return *m_device; }
    bool commit();
    /// For the user, with the file's name.
    [[nodiscard]] QString error() const;

private:
    bool replaceTarget(QTemporaryFile &file);

    QString m_path;
    QString m_target; ///< m_path, links resolved
    std::unique_ptr<QFileDevice> m_device;
    QString m_error;
};

/// Whether both names lead to one regular file, by whatever links or spellings; "-" as an input or
/// output is what the standard stream was redirected to.
bool isSameFile(const QString &input, const QString &output);

/// The file's place in the tree, links in the way to it resolved; it need not exist. Two targets of
/// one place are one file.
QString placeOf(const QString &path);

/// Standard output for lists: buffered, and once it failed it stays failed.
class StandardOutput
{
public:
    StandardOutput();
    void write(QByteArrayView text);
    /// False when anything written so far did not arrive.
    bool flush();
    [[nodiscard]] bool hasFailed() const { return !m_error.isEmpty(); }
    [[nodiscard]] QString error() const { return m_error; }

private:
    QFile m_file;
    QByteArray m_text;
    QString m_error;
};
