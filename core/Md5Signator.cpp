// SPDX-License-Identifier: GPL-2.0-or-later
// The MD5 digest of data that arrives in pieces.
#include <kelo_base/core/Md5Signator.h>

#include <algorithm>

namespace Tz {

Md5Signator::Md5Signator() : m_hash(QCryptographicHash::Md5) {}

bool Md5Signator::Add(const char *data, unsigned int length)
{
    if (m_isFinished)
        return false;
    if (data)
        m_hash.addData({data, static_cast<qsizetype>(length)});
    return true;
}

const void *Md5Signator::Signature(char *const out)
{
    if (!m_isFinished) {
        std::ranges::copy(m_hash.resultView(), m_digest.begin());
        m_isFinished = true;
    }
    std::ranges::copy(m_digest, out);
    return out;
}

} // namespace Tz
