// SPDX-License-Identifier: GPL-2.0-or-later
// Typed records to and from the rows of a table: one description, from which all else follows.
#include <kelo_base/core/DatabaseTable.h>

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>
#include <ranges>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::size_t kRowsAtOnce = 50;
constexpr std::size_t kValuesAtOnce = 900; // the least that any embedded database takes

class Text
{
    Q_DECLARE_TR_FUNCTIONS(DatabaseTable)
};

/// Lower case, for the server does so with names that stand alone. Quoted, for a name may be a
/// word of the language.
QString quoted(const QString &name)
{
    return u'"' + name.toLower() + u'"';
}

bool isName(const QString &name)
{
    static const QRegularExpression allowed(u"^[A-Za-z_][A-Za-z0-9_]{0,62}$"_s);
    return allowed.match(name).hasMatch();
}

QLatin1StringView operatorOf(DatabaseCompare compare)
{
    switch (compare) {
    case DatabaseCompare::Equal:
        return " = "_L1;
    case DatabaseCompare::NotEqual:
        return " <> "_L1;
    case DatabaseCompare::Below:
        return " < "_L1;
    case DatabaseCompare::AtMost:
        return " <= "_L1;
    case DatabaseCompare::Above:
        return " > "_L1;
    case DatabaseCompare::AtLeast:
        return " >= "_L1;
    }
    return {};
}

bool isOrdering(DatabaseCompare compare)
{
    return compare != DatabaseCompare::Equal && compare != DatabaseCompare::NotEqual;
}

} // namespace

QVariantList DatabaseValuesOf(const std::vector<DatabaseTerm> &terms)
{
    QVariantList values;
    for (const DatabaseTerm &term : terms)
        if (!term.value.isNull())
            values << term.value;
    return values;
}

DatabaseTableNames::DatabaseTableNames(const char *table) : m_table(QString::fromLatin1(table)) {}

void DatabaseTableNames::AddColumn(const char *name, bool isKey, bool isText)
{
    m_columns.push_back({QString::fromLatin1(name), isKey, isText});
}

bool DatabaseTableNames::IsValid() const
{
    return isName(m_table) && std::ranges::any_of(m_columns, &Names::isKey) &&
           std::ranges::all_of(m_columns, isName, &Names::name);
}

QString DatabaseTableNames::Column(std::size_t column) const
{
    return m_table + u'.' + m_columns[column].name;
}

/// With the table in front: the embedded database would take an unknown name in quotes for a text.
QString DatabaseTableNames::fullName(std::size_t column) const
{
    return quoted(m_table) + u'.' + quoted(m_columns[column].name);
}

std::size_t DatabaseTableNames::RowsAtOnce() const
{
    return std::clamp<std::size_t>(kValuesAtOnce / m_columns.size(), 1, kRowsAtOnce);
}

QString DatabaseTableNames::InsertText(std::size_t rows, Conflict conflict) const
{
    QStringList names;
    QStringList keys;
    QStringList changes;
    for (const Names &column : m_columns) {
        const QString name = quoted(column.name);
        names << name;
        if (column.isKey)
            keys << name;
        else
            changes << name + u" = excluded."_s + name;
    }
    const QString row = u'(' + QStringList(names.size(), u"?"_s).join(u", ") + u')';
    QString text = u"INSERT INTO "_s + quoted(m_table) + u" ("_s + names.join(u", ") +
                   u") VALUES "_s + QStringList(static_cast<qsizetype>(rows), row).join(u", ");
    if (conflict == Conflict::Fails)
        return text;
    text += u" ON CONFLICT ("_s + keys.join(u", ") + u") DO "_s;
    return text + (changes.isEmpty() ? u"NOTHING"_s : u"UPDATE SET "_s + changes.join(u", "));
}

QString DatabaseTableNames::DeleteText() const
{
    QStringList conditions;
    for (std::size_t column = 0; column < m_columns.size(); ++column)
        if (m_columns[column].isKey)
            conditions << fullName(column) + u" = ?"_s;
    return u"DELETE FROM "_s + quoted(m_table) + u" WHERE "_s + conditions.join(u" AND ");
}

QString DatabaseTableNames::DeleteText(const std::vector<DatabaseTerm> &terms) const
{
    return u"DELETE FROM "_s + quoted(m_table) + whereText(terms, false);
}

QString DatabaseTableNames::SelectText(const std::vector<DatabaseTerm> &terms,
                                       const std::vector<DatabaseOrder> &orders,
                                       std::optional<qint64> limit, bool isServer) const
{
    QStringList names;
    for (std::size_t column = 0; column < m_columns.size(); ++column)
        names << fullName(column);
    QString text = u"SELECT "_s + names.join(u", ") + u" FROM "_s + quoted(m_table) +
                   whereText(terms, isServer);
    QStringList order;
    for (const auto &[column, isDescending] : orders) {
        const bool isForeign = isServer && m_columns[column].isText;
        // Nothing stored comes first, as in the embedded database.
        order << fullName(column) + (isForeign ? u" COLLATE \"C\""_s : QString()) +
                     (isDescending ? u" DESC NULLS LAST"_s : u" NULLS FIRST"_s);
    }
    if (!order.isEmpty())
        text += u" ORDER BY "_s + order.join(u", ");
    return limit ? text + u" LIMIT "_s + QString::number(std::max<qint64>(*limit, 0)) : text;
}

QString DatabaseTableNames::whereText(const std::vector<DatabaseTerm> &terms, bool isServer) const
{
    QStringList conditions;
    for (const auto &[column, compare, value] : terms) {
        const bool isForeign = isServer && m_columns[column].isText && isOrdering(compare);
        const QString name = fullName(column) + (isForeign ? u" COLLATE \"C\""_s : QString());
        if (!value.isNull())
            conditions << (compare == DatabaseCompare::NotEqual
                               ? u"("_s + name + u" <> ? OR "_s + name + u" IS NULL)"_s
                               : name + operatorOf(compare) + u'?');
        else if (isOrdering(compare))
            conditions << u"1 = 0"_s;
        else
            conditions << name + (compare == DatabaseCompare::Equal ? u" IS NULL"_s
                                                                    : u" IS NOT NULL"_s);
    }
    return conditions.isEmpty() ? QString() : u" WHERE "_s + conditions.join(u" AND ");
}

std::vector<DatabaseTerm> DatabaseTableNames::KeyTerms(const QVariantList &values) const
{
    std::vector<DatabaseTerm> terms;
    qsizetype next = 0;
    for (std::size_t column = 0; column < m_columns.size(); ++column)
        if (m_columns[column].isKey)
            terms.push_back({column, DatabaseCompare::Equal, values.value(next++)});
    return terms;
}

QString DatabaseTableNames::CannotKeep(std::size_t column) const
{
    return Text::tr("%1 cannot hold the value.").arg(Column(column));
}

QString DatabaseTableNames::CannotRead(std::size_t column) const
{
    return Text::tr("%1 holds a value of another type.").arg(Column(column));
}

QString DatabaseTableNames::IsMisnamed() const
{
    return Text::tr("The description of the table %1 is wrong.").arg(m_table);
}
