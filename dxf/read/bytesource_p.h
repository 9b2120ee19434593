// SPDX-License-Identifier: GPL-2.0-or-later
// Reads a device block by block, with progress, and keeps what is not yet used.
#pragma once

#include <kelo_base/dxf/DxfReader.h>
#include <memory>
#include <string_view>

class QIODevice;

/// The unread bytes of a device as one piece of memory, followed by line feeds so that a search for
/// the end of a line needs no look at the end of the memory.
class ByteSource
{
public:
    static constexpr std::size_t kBlock = std::size_t{256} * 1024;
    static constexpr std::size_t kPadding = 64;

    enum class State { Open, End, Failed, Cancelled };

    /// @param progress  may be empty; both must outlive the source
    ByteSource(QIODevice &device, const PlanProgress &progress);

    [[nodiscard]] const char *begin() const { return m_buffer.get() + m_begin; }
    [[nodiscard]] const char *end() const { return m_buffer.get() + m_end; }
    [[nodiscard]] std::string_view unread() const { return {begin(), m_end - m_begin}; }
    /// More unread bytes than this cannot be held; a line so long must be used piece by piece.
    [[nodiscard]] bool isFull() const { return m_end - m_begin >= kBlock; }
    void consume(std::size_t bytes) { m_begin += bytes; }
    void consumeTo(const char *position)
    {
        m_begin = static_cast<std::size_t>(position - m_buffer.get());
    }
    /// Offset of the first unread byte in the device.
    [[nodiscard]] qint64 offset() const { return m_read - static_cast<qint64>(m_end - m_begin); }

    /// Reads on. False when nothing was added: the source is full, or state() tells why.
    bool more();
    [[nodiscard]] State state() const { return m_state; }
    /// Whether the device gave all the bytes that it announced, and announces no other size now.
    [[nodiscard]] bool sizeIsUnchanged() const;

private:
    QIODevice &m_device;
    const PlanProgress &m_progress;
    std::unique_ptr<char[]> m_buffer;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    qint64 m_read = 0;
    qint64 m_size; ///< as announced at first; -1 when the device has none
    State m_state = State::Open;
};
