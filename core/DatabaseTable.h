// SPDX-License-Identifier: GPL-2.0-or-later
// Typed records to and from the rows of a table: one description, from which all else follows.
#pragma once

#include <kelo_base/core/Database.h>
#include <kelo_base/core/DatabaseQuery.h>
#include <kelo_base/core/DatabaseValue.h>
#include <kelo_base/core/Export.h>

#include <algorithm>
#include <concepts>
#include <span>
#include <tuple>

/// Names of a table and its columns, and the statements made of them.
class KELO_BASE_EXPORT DatabaseTableNames
{
public:
    enum class Conflict { Fails, Replaces };

    explicit DatabaseTableNames(const char *table);
    void AddColumn(const char *name, bool isKey, bool isText);

    /// Whether all names are letters, digits and "_", and there is a key.
    [[nodiscard]] bool IsValid() const;
    [[nodiscard]] QString Column(std::size_t column) const; ///< for people
    [[nodiscard]] bool IsKey(std::size_t column) const { return m_columns[column].isKey; }

    [[nodiscard]] QString InsertText(std::size_t rows, Conflict conflict) const;
    [[nodiscard]] QString DeleteText() const; ///< the row of one key
    [[nodiscard]] QString DeleteText(const std::vector<DatabaseTerm> &terms) const;
    [[nodiscard]] QString SelectText(const std::vector<DatabaseTerm> &terms,
                                     const std::vector<DatabaseOrder> &orders,
                                     std::optional<qint64> limit, bool isServer) const;
    /// The condition that a row has these values as its key, in the order of the key's columns.
    [[nodiscard]] std::vector<DatabaseTerm> KeyTerms(const QVariantList &values) const;
    /// Rows that one statement inserts: many at once are faster, and so few fit everywhere.
    [[nodiscard]] std::size_t RowsAtOnce() const;

    [[nodiscard]] QString CannotKeep(std::size_t column) const; ///< a sentence
    [[nodiscard]] QString CannotRead(std::size_t column) const; ///< a sentence
    [[nodiscard]] QString IsMisnamed() const;                   ///< a sentence

private:
    struct Names
    {
        QString name;
        bool isKey;
        bool isText;
    };

    [[nodiscard]] QString whereText(const std::vector<DatabaseTerm> &terms, bool isServer) const;
    [[nodiscard]] QString fullName(std::size_t column) const;

    QString m_table;
    std::vector<Names> m_columns;
};

/// Describes the records of a table, and saves and loads them. Made once per record type:
///
///     const DatabaseTable<Road> &roadTable()
///     {
///         static const auto table = DatabaseTable<Road>("ROADS")
///                                       .Key("ID", &Road::id)
///                                       .Column("NAME", &Road::name)
///                                       .Column("LENGTH", &Road::length);
///         return table;
///     }
///     roadTable().Replace(database, roads);
///     roadTable().Load(database, DatabaseQuery<Road>()
///                                    .Where(&Road::length, DatabaseCompare::Above, 5.0)
///                                    .OrderBy(&Road::name));
///
/// The table itself is made by the steps of a DatabaseModule. Names are those of the statement that
/// made it, in any case. Everything is saved as a whole or not at all, inside of a transaction as a
/// part of it. Failures are those of Database, and values that cannot be kept (see DatabaseValue).
template <class Record>
class DatabaseTable
{
public:
    explicit DatabaseTable(const char *table) : m_names(table) {}

    /// Adds a column of the primary key.
    template <class T>
    [[nodiscard]] DatabaseTable Key(const char *name, T Record::*member) &&
    {
        return std::move(*this).add(name, true, std::make_shared<Member<T>>(member));
    }
    template <class T>
    [[nodiscard]] DatabaseTable Column(const char *name, T Record::*member) &&
    {
        return std::move(*this).add(name, false, std::make_shared<Member<T>>(member));
    }
    /// A column that is no member of its own.
    /// @param get  value of a const Record &
    /// @param set  takes Record & and the value
    template <class Get, class Set>
    requires std::invocable<Get, const Record &>
    [[nodiscard]] DatabaseTable Column(const char *name, Get get, Set set) &&
    {
        return std::move(*this).add(
            name, false, std::make_shared<Part<Get, Set>>(std::move(get), std::move(set)));
    }

    /// Adds new records; fails when one has the key of a row that is there.
    [[nodiscard]] bool Insert(Database &database, std::span<const Record> records) const
    {
        return save(database, records, DatabaseTableNames::Conflict::Fails);
    }
    /// Adds records, or replaces those with the same key; of two with one key the later one stays.
    [[nodiscard]] bool Replace(Database &database, std::span<const Record> records) const
    {
        return save(database, records, DatabaseTableNames::Conflict::Replaces);
    }
    /// Deletes the rows with the keys of these records, if they are there.
    [[nodiscard]] bool Delete(Database &database, std::span<const Record> records) const
    {
        if (!m_names.IsValid())
            return database.Refuse("DatabaseTable::Delete", m_names.IsMisnamed());
        const QString statement = m_names.DeleteText();
        return database.RunRepeatable([&] {
            return std::ranges::all_of(records, [&](const Record &record) {
                return database.Run(
                    statement, [&](DatabaseBinder &binder) { return bind(record, binder, true); });
            });
        });
    }
    /// Deletes the rows that the query finds; order and limit do not count.
    [[nodiscard]] bool Delete(Database &database, const DatabaseQuery<Record> &query) const
    {
        const auto resolved = resolve(query);
        if (!resolved)
            return database.Refuse("DatabaseTable::Delete", m_names.IsMisnamed());
        return database.Run(m_names.DeleteText(resolved->terms), resolved->Values());
    }

    /// All records that the query finds; nothing when the database fails.
    [[nodiscard]] std::optional<std::vector<Record>>
    Load(Database &database, const DatabaseQuery<Record> &query = {}) const
    {
        std::vector<Record> records;
        const bool isWhole = ForEach(database, query, [&records](Record &&record) {
            records.push_back(std::move(record));
            return true;
        });
        return isWhole ? std::optional(std::move(records)) : std::nullopt;
    }
    /// The record with the key; nothing when it is not there or the database fails.
    /// @param key  values of the key's columns, in their order and of their types
    template <class... Key>
    [[nodiscard]] std::optional<Record> LoadByKey(Database &database, const Key &...key) const
    {
        if (!(DatabaseValue<Key>::IsStorable(key) && ...))
            return std::nullopt;
        std::optional<Record> found;
        const auto take = [&found](Record &&record) {
            found = std::move(record);
            return false;
        };
        const Terms resolved{m_names.KeyTerms({DatabaseValue<Key>::ToStored(key)...}), {}, {}};
        return read(database, resolved, take) ? std::move(found) : std::nullopt;
    }
    /// Hands the records that the query finds to @p visit one by one, without holding them all,
    /// until it returns false. It may use the database.
    template <class Visit>
    [[nodiscard]] bool ForEach(Database &database, const DatabaseQuery<Record> &query,
                               Visit visit) const
    {
        const auto resolved = resolve(query);
        return resolved ? read(database, *resolved, visit)
                        : database.Refuse("DatabaseTable::ForEach", m_names.IsMisnamed());
    }

private:
    struct Field
    {
        virtual ~Field() = default;
        /// False for a value that cannot be kept.
        virtual bool bind(const Record &record, DatabaseBinder &binder) const = 0;
        /// False for a value of another type.
        virtual bool read(Record &record, const QVariant &stored) const = 0;
        [[nodiscard]] virtual bool isEqual(const Record &a, const Record &b) const = 0;
        [[nodiscard]] virtual bool isText() const = 0;
        [[nodiscard]] virtual bool isOf(const DatabaseMember<Record> &) const { return false; }
    };
    template <class T>
    struct Typed : Field
    {
        static bool bindValue(const T &value, DatabaseBinder &binder)
        {
            if (!DatabaseValue<T>::IsStorable(value))
                return false;
            binder.Bind(DatabaseValue<T>::ToStored(value));
            return true;
        }
        static std::optional<T> valueOf(const QVariant &stored)
        {
            if (!stored.isNull())
                return DatabaseValue<T>::FromStored(stored);
            if constexpr (requires {
                              typename T::value_type;
                              T(std::nullopt);
                          })
                return std::optional<T>(std::in_place, std::nullopt);
            else
                return std::nullopt;
        }
        [[nodiscard]] bool isText() const override { return DatabaseValue<T>::kIsText; }
    };
    template <class T>
    struct Member : Typed<T>
    {
        explicit Member(T Record::*of) : member(of) {}
        bool bind(const Record &record, DatabaseBinder &binder) const override
        {
            return Typed<T>::bindValue(record.*member, binder);
        }
        bool read(Record &record, const QVariant &stored) const override
        {
            auto value = Typed<T>::valueOf(stored);
            if (!value)
                return false;
            record.*member = *std::move(value);
            return true;
        }
        [[nodiscard]] bool isEqual(const Record &a, const Record &b) const override
        {
            return DatabaseValue<T>::ToStored(a.*member) == DatabaseValue<T>::ToStored(b.*member);
        }
        [[nodiscard]] bool isOf(const DatabaseMember<Record> &wanted) const override
        {
            return wanted.template Is<T>(member);
        }
        T Record::*member;
    };
    template <class Get, class Set>
    struct Part : Typed<std::decay_t<std::invoke_result_t<Get, const Record &>>>
    {
        using T = std::decay_t<std::invoke_result_t<Get, const Record &>>;
        Part(Get getter, Set setter) : get(std::move(getter)), set(std::move(setter)) {}
        bool bind(const Record &record, DatabaseBinder &binder) const override
        {
            return Typed<T>::bindValue(get(record), binder);
        }
        bool read(Record &record, const QVariant &stored) const override
        {
            auto value = Typed<T>::valueOf(stored);
            if (!value)
                return false;
            set(record, *std::move(value));
            return true;
        }
        [[nodiscard]] bool isEqual(const Record &a, const Record &b) const override
        {
            return DatabaseValue<T>::ToStored(get(a)) == DatabaseValue<T>::ToStored(get(b));
        }
        Get get;
        Set set;
    };
    /// A query in the words of this table.
    struct Terms
    {
        std::vector<DatabaseTerm> terms;
        std::vector<DatabaseOrder> orders;
        std::optional<qint64> limit;
        [[nodiscard]] QVariantList Values() const { return DatabaseValuesOf(terms); }
    };

    DatabaseTable add(const char *name, bool isKey, std::shared_ptr<const Field> field) &&
    {
        m_names.AddColumn(name, isKey, field->isText());
        m_fields.push_back(std::move(field));
        return std::move(*this);
    }

    /// Nothing when the description is wrong, or lacks what the query asks for.
    std::optional<Terms> resolve(const DatabaseQuery<Record> &query) const
    {
        if (!m_names.IsValid())
            return std::nullopt;
        Terms resolved{{}, {}, query.m_limit};
        for (const auto &[member, compare, value] : query.m_terms) {
            const auto column = find(member);
            if (!column)
                return std::nullopt;
            resolved.terms.push_back({*column, compare, value});
        }
        for (const auto &[member, isDescending] : query.m_orders) {
            const auto column = find(member);
            if (!column)
                return std::nullopt;
            resolved.orders.push_back({*column, isDescending});
        }
        return resolved;
    }
    std::optional<std::size_t> find(const DatabaseMember<Record> &member) const
    {
        for (std::size_t column = 0; column < m_fields.size(); ++column)
            if (m_fields[column]->isOf(member))
                return column;
        return std::nullopt;
    }

    QString bind(const Record &record, DatabaseBinder &binder, bool isKeyAlone) const
    {
        for (std::size_t column = 0; column < m_fields.size(); ++column)
            if ((!isKeyAlone || m_names.IsKey(column)) && !m_fields[column]->bind(record, binder))
                return m_names.CannotKeep(column);
        return {};
    }
    bool save(Database &database, std::span<const Record> records,
              DatabaseTableNames::Conflict conflict) const
    {
        if (!m_names.IsValid())
            return database.Refuse("DatabaseTable::Save", m_names.IsMisnamed());
        const std::size_t most = m_names.RowsAtOnce();
        const QString many = m_names.InsertText(most, conflict);
        const QString single = m_names.InsertText(1, conflict);
        // The server's statement may not replace one row twice.
        const bool isWary =
            conflict == DatabaseTableNames::Conflict::Replaces && database.IsServer();
        return database.RunRepeatable([&] {
            for (auto left = records; !left.empty();) {
                const auto next = left.first(std::min(most, left.size()));
                const bool isMany = next.size() == most && !(isWary && hasDoubleKey(next));
                const std::size_t step = isMany ? most : 1;
                const auto rows = next.first(step);
                if (!database.Run(isMany ? many : single,
                                  [&](DatabaseBinder &binder) { return bindRows(rows, binder); }))
                    return false;
                left = left.subspan(step);
            }
            return true;
        });
    }
    QString bindRows(std::span<const Record> rows, DatabaseBinder &binder) const
    {
        for (const Record &record : rows)
            if (QString refusal = bind(record, binder, false); !refusal.isEmpty())
                return refusal;
        return {};
    }
    bool hasDoubleKey(std::span<const Record> rows) const
    {
        const auto isSameKey = [this](const Record &a, const Record &b) {
            for (std::size_t column = 0; column < m_fields.size(); ++column)
                if (m_names.IsKey(column) && !m_fields[column]->isEqual(a, b))
                    return false;
            return true;
        };
        for (std::size_t i = 0; i < rows.size(); ++i)
            for (std::size_t k = 0; k < i; ++k)
                if (isSameKey(rows[i], rows[k]))
                    return true;
        return false;
    }

    template <class Visit>
    bool read(Database &database, const Terms &query, Visit &visit) const
    {
        const QString statement =
            m_names.SelectText(query.terms, query.orders, query.limit, database.IsServer());
        std::optional<std::size_t> unreadable;
        const bool isRead = database.Select(statement, query.Values(), [&](const DatabaseRow &row) {
            Record record{};
            for (std::size_t column = 0; column < m_fields.size(); ++column) {
                if (!m_fields[column]->read(record, row.Value(static_cast<int>(column)))) {
                    unreadable = column;
                    return false;
                }
            }
            return static_cast<bool>(visit(std::move(record)));
        });
        return isRead && (!unreadable ||
                          database.Refuse("DatabaseTable::Load", m_names.CannotRead(*unreadable)));
    }

    DatabaseTableNames m_names;
    std::vector<std::shared_ptr<const Field>> m_fields;
};
