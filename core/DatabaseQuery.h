// SPDX-License-Identifier: GPL-2.0-or-later
// Which records of a table are wanted, and in which order.
#pragma once

#include <kelo_base/core/DatabaseValue.h>
#include <kelo_base/core/Export.h>

#include <QVariant>
#include <any>
#include <optional>
#include <type_traits>
#include <vector>

/// Texts compare by code points, the same everywhere; moments by time, then by zone.
enum class DatabaseCompare { Equal, NotEqual, Below, AtMost, Above, AtLeast };

/// A member of a record, whatever its type.
template <class Record>
class DatabaseMember
{
public:
    template <class T>
    explicit DatabaseMember(T Record::*member) : m_member(member)
    {
    }
    template <class T>
    [[nodiscard]] bool Is(T Record::*member) const
    {
        auto *const own = std::any_cast<T Record::*>(&m_member);
        return own && *own == member;
    }

private:
    std::any m_member;
};

/// All conditions hold together; without any, every record is wanted.
template <class Record>
class DatabaseQuery
{
public:
    /// Where nothing is stored, nothing but Equal to std::nullopt (or NotEqual to a value) holds.
    template <class T>
    DatabaseQuery &Where(T Record::*member, DatabaseCompare compare,
                         const std::type_identity_t<T> &value)
    {
        // A value that cannot be kept is nowhere: nothing compares to it.
        if (!DatabaseValue<T>::IsStorable(value) && compare != DatabaseCompare::NotEqual)
            m_terms.push_back({DatabaseMember<Record>(member), DatabaseCompare::Below, {}});
        else if (DatabaseValue<T>::IsStorable(value))
            m_terms.push_back(
                {DatabaseMember<Record>(member), compare, DatabaseValue<T>::ToStored(value)});
        return *this;
    }
    /// The first call counts most.
    template <class T>
    DatabaseQuery &OrderBy(T Record::*member, bool isDescending = false)
    {
        m_orders.push_back({DatabaseMember<Record>(member), isDescending});
        return *this;
    }
    /// At most so many.
    DatabaseQuery &Limit(qint64 count)
    {
        m_limit = count;
        return *this;
    }

private:
    template <class>
    friend class DatabaseTable;

    struct Term
    {
        DatabaseMember<Record> member;
        DatabaseCompare compare;
        QVariant value;
    };
    struct Order
    {
        DatabaseMember<Record> member;
        bool isDescending;
    };

    std::vector<Term> m_terms;
    std::vector<Order> m_orders;
    std::optional<qint64> m_limit;
};

/// A condition on a column, counted from 0; no value for NULL.
struct DatabaseTerm
{
    std::size_t column;
    DatabaseCompare compare;
    QVariant value;
};

/// The values that the "?" of the conditions stand for.
[[nodiscard]] KELO_BASE_EXPORT QVariantList
DatabaseValuesOf(const std::vector<DatabaseTerm> &terms);

struct DatabaseOrder
{
    std::size_t column;
    bool isDescending;
};
