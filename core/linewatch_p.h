// SPDX-License-Identifier: GPL-2.0-or-later
// Looks for a text in the lines of a stream, without holding more than one line.
#pragma once

#include <QByteArray>

class LineWatch
{
public:
    /// Longer lines are looked at in pieces of this size.
    static constexpr qsizetype kMostBytes = 64LL * 1024;

    explicit LineWatch(const QByteArray &wanted) : m_wanted(wanted) {}

    /// Whether a line that @p output ends, or has so far, contains the text; true once for each.
    [[nodiscard]] bool feed(QByteArrayView output)
    {
        m_line.append(output);
        const bool isFound = m_line.contains(m_wanted);
        // What may still become the text goes on: the last line, or the end of a long one.
        m_line.remove(0, m_line.lastIndexOf('\n') + 1);
        if (isFound || m_line.size() > kMostBytes)
            m_line = isFound ? QByteArray() : m_line.last(m_wanted.size());
        return isFound;
    }

private:
    QByteArray m_wanted;
    QByteArray m_line; ///< the part of the last line that has come
};
