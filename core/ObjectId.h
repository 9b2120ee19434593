// SPDX-License-Identifier: GPL-2.0-or-later
// The identifier of projects and linked objects.
#pragma once

#include <kelo_base/core/Export.h>

#include <compare>
#include <cstddef>
#include <functional>
#include <string>

namespace Tz {

/// What the constructor of ObjectId does.
enum ObjectIdInit : int {
    kNoInit = 0,    ///< leave the characters as they are in memory
    kCreateNew = 1, ///< make a new identifier
};

/// Up to 25 characters in a fixed array, nothing on the heap; new ones are upper-case letters and
/// digits, taken ones whatever they were taken from. Texts end at their first NUL, and what goes
/// beyond 25 characters is cut off without a word. Identifiers order and hash by their bytes, so
/// they are keys for std::map, std::unordered_map and QHash.
class KELO_BASE_EXPORT ObjectId
{
public:
    static constexpr unsigned int SIZE_OF_OID = 25;

    /// Hash for containers; std::hash<Tz::ObjectId> is the same.
    struct Hash
    {
        [[nodiscard]] KELO_BASE_EXPORT std::size_t operator()(const ObjectId &id) const noexcept;
    };

    /// Empty.
    ObjectId() noexcept : m_id{} {}
    /// A new identifier for kCreateNew. With any other value the characters stay uninitialised, on
    /// purpose: assign the identifier before reading it.
    explicit ObjectId(ObjectIdInit init);
    /// Null gives an empty identifier.
    ObjectId(const char *text);
    ObjectId(const std::string &text);
    /// Keeps the low byte of each character; a low byte of 0 ends the text.
    ObjectId(const std::u16string &text);

    /// Replaces the identifier by a new one.
    void CreateId();
    /// Replaces it by the one that follows from the data; null with a length above 0 empties it.
    void CreateHashId(const void *data, unsigned int length);

    [[nodiscard]] bool IsEmpty() const noexcept { return m_id[0] == '\0'; }
    /// Valid as long as the identifier lives.
    [[nodiscard]] const char *c_str() const noexcept { return m_id; }
    /// Each character by its code, so 0 ... 255.
    [[nodiscard]] std::u16string as_wstring() const;

    friend bool operator==(const ObjectId &, const ObjectId &) noexcept = default;
    KELO_BASE_EXPORT friend std::strong_ordering operator<=>(const ObjectId &a,
                                                             const ObjectId &b) noexcept;

private:
    void Init(const char *text, std::size_t length);
    void Init(const unsigned short *text);

    char m_id[SIZE_OF_OID + 1]; ///< all NUL behind the text, so that equal texts are equal bytes
};

/// A new identifier.
[[nodiscard]] KELO_BASE_EXPORT ObjectId CreateRandomId();

/// For QHash and QSet.
[[nodiscard]] inline std::size_t qHash(const ObjectId &id, std::size_t seed = 0) noexcept
{
    return ObjectId::Hash()(id) ^ seed;
}

} // namespace Tz

template <>
struct std::hash<Tz::ObjectId> : Tz::ObjectId::Hash
{
};
