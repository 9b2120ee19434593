// SPDX-License-Identifier: GPL-2.0-or-later
// Where results go: files that are told apart, and standard output.
#pragma once

#include <QByteArrayView>
#include <QFile>
#include <filesystem>

/// Whether both names lead to one regular file, by whatever links or spellings; "-" as an input or
/// output is what the standard stream was redirected to.
bool isSameFile(const QString &input, const QString &output);

/// The file's place in the tree, links in the way to it resolved; it need not exist. Two targets of
/// one place are one file.
std::filesystem::path placeOf(const QString &path);

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
