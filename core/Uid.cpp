// SPDX-License-Identifier: GPL-2.0-or-later
// Identifiers: 128-bit numbers written to base 36.
#include <kelo_base/core/Uid.h>

#include <kelo_base/core/Md5Signator.h>

#include <QUuid>
#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr unsigned int kMaxDigits = 25; // 36^25 exceeds 2^128
constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr std::uint32_t kPairs = 36 * 36;
constexpr std::uint32_t kSixDigits = 36U * 36 * 36 * 36 * 36 * 36; // the last power below 2^32

/// All numbers of two digits: halves the divisions, and a pair is one store.
constexpr auto kPairTexts = [] {
    std::array<std::array<char, 2>, kPairs> texts{};
    for (std::size_t i = 0; i < kPairs; ++i)
        texts[i] = {kAlphabet[i / 36], kAlphabet[i % 36]};
    return texts;
}();

/// Divides the lowest @p count words by 36^6 in place. Returns the remainder.
template <std::size_t count>
inline std::uint32_t takeSixDigits(std::uint32_t (&words)[4])
{
    std::uint64_t remainder = 0;
    for (std::size_t i = count; i-- > 0;) {
        const std::uint64_t part = remainder << 32 | words[i];
        words[i] = static_cast<std::uint32_t>(part / kSixDigits);
        remainder = part % kSixDigits;
    }
    return static_cast<std::uint32_t>(remainder);
}

inline void writeSixDigits(char *out, std::uint32_t value)
{
    std::memcpy(out + 4, kPairTexts[value % kPairs].data(), 2);
    value /= kPairs;
    std::memcpy(out + 2, kPairTexts[value % kPairs].data(), 2);
    std::memcpy(out, kPairTexts[value / kPairs].data(), 2);
}

/// Exact for all 2^128 values. After 6, 12 and 18 digits the rest is below 2^97, 2^66 and 2^35.
void writeAllDigits(char *out, Tz::Bits128 rest)
{
    writeSixDigits(out + 19, takeSixDigits<4>(rest.words));
    writeSixDigits(out + 13, takeSixDigits<4>(rest.words));
    writeSixDigits(out + 7, takeSixDigits<3>(rest.words));
    writeSixDigits(out + 1, takeSixDigits<2>(rest.words));
    *out = kAlphabet[rest.words[0]];
}

/// The GUID as it lies in the memory of its structure, whose first three fields are little-endian.
Tz::Bits128 numberOf(const QUuid &guid)
{
    const auto word = [&guid](std::size_t first) {
        return static_cast<std::uint32_t>(guid.data4[first]) |
               static_cast<std::uint32_t>(guid.data4[first + 1]) << 8 |
               static_cast<std::uint32_t>(guid.data4[first + 2]) << 16 |
               static_cast<std::uint32_t>(guid.data4[first + 3]) << 24;
    };
    const auto fields = static_cast<std::uint32_t>(guid.data3) << 16 | guid.data2;
    return {{guid.data1, fields, word(0), word(4)}};
}

} // namespace

char *Tz::CreateUid(char *out, const Bits128 *value, unsigned int digits)
{
    if (!out)
        return out;
    *out = '\0';
    if (!value || digits == 0 || digits > kMaxDigits)
        return out;
    char text[kMaxDigits];
    writeAllDigits(text, *value);
    const char *const wanted = text + (kMaxDigits - digits);
    const bool fits = std::all_of(std::cbegin(text), wanted, [](char c) { return c == 'A'; });
    if (fits) {
        std::memcpy(out, wanted, digits);
        out[digits] = '\0';
    }
    return out;
}

char *Tz::CreateUid25(char *out)
{
    const Bits128 value = numberOf(QUuid::createUuid());
    return CreateUid(out, &value, kMaxDigits);
}

char *Tz::CreateHashUid25(char *out, const void *data, unsigned int length)
{
    if (!data && length > 0)
        return CreateUid(out, nullptr, kMaxDigits);
    Md5Signator signator;
    signator.Add(static_cast<const char *>(data), length);
    unsigned char digest[16];
    signator.Signature(reinterpret_cast<char *>(digest));
    const Bits128 value = Bits128::FromBytes(digest);
    return CreateUid(out, &value, kMaxDigits);
}
