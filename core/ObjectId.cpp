// SPDX-License-Identifier: GPL-2.0-or-later
// The identifier of projects and linked objects.
#include <kelo_base/core/ObjectId.h>

#include <kelo_base/core/Uid.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace Tz {

ObjectId::ObjectId(ObjectIdInit init) // NOLINT: kNoInit promises to write nothing
{
    if (init == kCreateNew)
        CreateId();
}

ObjectId::ObjectId(const char *text)
{
    Init(text, text ? std::strlen(text) : 0);
}

ObjectId::ObjectId(const std::string &text)
{
    Init(text.data(), text.size());
}

ObjectId::ObjectId(const std::u16string &text)
{
    Init(reinterpret_cast<const unsigned short *>(text.c_str()));
}

void ObjectId::Init(const char *text, std::size_t length)
{
    char *end = m_id;
    for (std::size_t i = 0; i < std::min<std::size_t>(length, SIZE_OF_OID) && text[i]; ++i)
        *end++ = text[i];
    std::fill(end, std::end(m_id), '\0');
}

void ObjectId::Init(const unsigned short *text)
{
    char narrow[SIZE_OF_OID];
    std::size_t length = 0;
    for (; length < SIZE_OF_OID && text[length]; ++length)
        narrow[length] = static_cast<char>(text[length] & 0xFF);
    Init(narrow, length);
}

void ObjectId::CreateId()
{
    CreateUid25(m_id);
}

void ObjectId::CreateHashId(const void *data, unsigned int length)
{
    *this = ObjectId(); // the result may be empty, which alone would leave old bytes behind its NUL
    CreateHashUid25(m_id, data, length);
}

std::u16string ObjectId::as_wstring() const
{
    std::u16string text(std::strlen(m_id), u'\0');
    std::ranges::transform(m_id, m_id + text.size(), text.begin(),
                           [](char c) { return static_cast<unsigned char>(c); });
    return text;
}

std::strong_ordering operator<=>(const ObjectId &a, const ObjectId &b) noexcept
{
    return std::memcmp(a.m_id, b.m_id, sizeof a.m_id) <=> 0;
}

std::size_t ObjectId::Hash::operator()(const ObjectId &id) const noexcept
{
    return std::hash<std::string_view>()({id.m_id, sizeof id.m_id});
}

ObjectId CreateRandomId()
{
    return ObjectId(kCreateNew);
}

} // namespace Tz
