// SPDX-License-Identifier: GPL-2.0-or-later
// Reads a device block by block, with progress, and keeps what is not yet used.
#include "dxf/read/bytesource_p.h"
#include <QIODevice>
#include <cstring>

ByteSource::ByteSource(QIODevice &device, const PlanProgress &progress)
    : m_device(device),
      m_progress(progress),
      m_buffer(std::make_unique_for_overwrite<char[]>(2 * kBlock + kPadding)),
      m_size(device.isSequential() ? -1 : device.size())
{
    std::memset(m_buffer.get(), '\n', kPadding);
}

bool ByteSource::more()
{
    if (m_state != State::Open || isFull())
        return false;
    std::memmove(m_buffer.get(), begin(), m_end - m_begin);
    m_end -= m_begin;
    m_begin = 0;
    const qint64 got = m_device.read(m_buffer.get() + m_end, kBlock);
    if (got <= 0) {
        // A device for which the end is an error (as some sequential ones do) says so in words.
        m_state = got == 0 || m_device.atEnd() ? State::End : State::Failed;
        return false;
    }
    m_end += static_cast<std::size_t>(got);
    m_read += got;
    std::memset(m_buffer.get() + m_end, '\n', kPadding);
    if (m_progress && !m_progress(m_read, m_size)) {
        m_state = State::Cancelled;
        return false;
    }
    return true;
}

bool ByteSource::sizeIsUnchanged() const
{
    if (m_size < 0)
        return true;
    const bool gaveAll = m_state != State::End || m_read >= m_size;
    return gaveAll && m_device.size() == m_size;
}
