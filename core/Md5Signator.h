// SPDX-License-Identifier: GPL-2.0-or-later
// The MD5 digest of data that arrives in pieces.
#pragma once

#include <kelo_base/core/Export.h>

#include <QCryptographicHash>
#include <array>

namespace Tz {

/// Collects data until the digest is taken for the first time; from then on it is finished. MD5
/// names contents; it protects nothing.
class KELO_BASE_EXPORT Md5Signator
{
public:
    Md5Signator();

    /// Feeds @p length bytes; null feeds nothing.
    /// @return false, and the bytes are ignored, once the digest has been taken
    bool Add(const char *data, unsigned int length);

    /// Copies the 16 bytes of the digest to @p out; later calls give the same ones.
    /// @return @p out
    const void *Signature(char *const out);

private:
    QCryptographicHash m_hash;
    std::array<char, 16> m_digest{};
    bool m_isFinished = false;
};

} // namespace Tz
