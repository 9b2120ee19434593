// SPDX-License-Identifier: GPL-2.0-or-later
// What repeated looks at a file tell: whether it is whole, and how long it has lain there.
#include "ipc/filewatch_p.h"

#include "ipc/message_p.h"

#include <algorithm>
#include <limits>

namespace channel {
namespace {

constexpr qint64 kPatience = 10; ///< times the time in which a file settles

bool seemsWhole(const QByteArray &bytes)
{
    if (!bytes.endsWith('\n'))
        return false; // "Y:58" of "Y:5800000"
    const auto message = decodeMessage(bytes);
    return message && (message->hasParameters || !takesParameters(*message));
}

} // namespace

Progress progressOf(const QByteArray &bytes, qint64 unchanged, qint64 settle)
{
    if (hasEndMark(bytes))
        return Progress::Whole;
    if (unchanged < settle)
        return Progress::Growing;
    if (seemsWhole(bytes))
        return Progress::Whole;
    return unchanged < kPatience * settle ? Progress::Growing : Progress::Abandoned;
}

void FileWatch::lookAtNothing(qint64 now)
{
    m_bytes.clear();
    m_since.reset();
    m_missing = now;
}

void FileWatch::lookAt(const QByteArray &bytes, qint64 now)
{
    if (m_since && m_bytes == bytes)
        return;
    m_bytes = bytes;
    m_since = now;
}

qint64 FileWatch::age(qint64 byFileTimes, qint64 now) const
{
    const qint64 atMost = m_missing ? now - *m_missing : std::numeric_limits<qint64>::max();
    return std::min(std::max(byFileTimes, unchanged(now)), atMost);
}

} // namespace channel
