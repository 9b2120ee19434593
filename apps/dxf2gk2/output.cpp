// SPDX-License-Identifier: GPL-2.0-or-later
// Where results go: files that are told apart, and standard output.
#include "output.h"
#include "options.h"
#include <cstdio>
#include <kelo_base/core/FileName.h>

namespace {

constexpr qsizetype kBuffer = qsizetype{64} * 1024;

std::filesystem::path streamPath(const QString &path, const char *standardStream)
{
    return path == kStandardStream ? std::filesystem::path(standardStream) : SystemPath(path);
}

} // namespace

bool isSameFile(const QString &input, const QString &output)
{
    const std::filesystem::path from = streamPath(input, "/dev/stdin");
    const std::filesystem::path to = streamPath(output, "/dev/stdout");
    std::error_code error;
    return std::filesystem::is_regular_file(to, error) &&
           std::filesystem::equivalent(from, to, error);
}

std::filesystem::path placeOf(const QString &path)
{
    std::error_code error;
    const std::filesystem::path place =
        std::filesystem::weakly_canonical(std::filesystem::absolute(SystemPath(path)), error);
    return error ? SystemPath(path) : place;
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
    for (qsizetype done = 0; !hasFailed() && done < m_text.size();) {
        // After a part, only the next refusal tells why there was no more.
        const qint64 stored = m_file.write(m_text.constData() + done, m_text.size() - done);
        if (stored <= 0)
            m_error = m_file.errorString();
        done += stored;
    }
    m_text.clear();
    return !hasFailed();
}
