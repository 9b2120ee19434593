// SPDX-License-Identifier: GPL-2.0-or-later
// Documents and values under a name, for whoever needs no table of their own.
#include <kelo_base/core/DatabaseDocuments.h>

#include <QCoreApplication>
#include <QDataStream>
#include <QIODevice>
#include <kelo_base/core/DatabaseTable.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kValueFormat = QDataStream::Qt_6_0; // of what is stored: never changes

class Text
{
    Q_DECLARE_TR_FUNCTIONS(DatabaseDocuments)
};

struct Document
{
    QString name;
    QByteArray content;
};

using Documents = DatabaseTable<Document>;

const Documents &documentTable()
{
    static const auto table = Documents("KELO_DOCUMENTS")
                                  .Key("NAME", &Document::name)
                                  .Column("CONTENT", &Document::content);
    return table;
}

const Documents &valueTable()
{
    static const auto table =
        Documents("KELO_VALUES").Key("NAME", &Document::name).Column("CONTENT", &Document::content);
    return table;
}

bool prepare(Database &database)
{
    static const DatabaseModule module{
        u"documents"_s, {[](Database &made) {
            return made.Run(u"CREATE TABLE KELO_DOCUMENTS (NAME TEXT PRIMARY KEY, "
                            "CONTENT BYTEA NOT NULL)"_s) &&
                   made.Run(u"CREATE TABLE KELO_VALUES (NAME TEXT PRIMARY KEY, "
                            "CONTENT BYTEA NOT NULL)"_s);
        }}};
    return database.Prepare(module);
}

bool save(Database &database, const Documents &table, const Document &document)
{
    return prepare(database) && table.Replace(database, {&document, 1});
}

std::optional<QByteArray> load(Database &database, const Documents &table, const QString &name)
{
    if (!prepare(database))
        return std::nullopt;
    auto document = table.LoadByKey(database, name);
    return document ? std::optional(std::move(document->content)) : std::nullopt;
}

bool remove(Database &database, const Documents &table, const QString &name)
{
    const Document document{name, {}};
    return prepare(database) && table.Delete(database, {&document, 1});
}

} // namespace

bool DatabaseDocuments::SaveDocument(const QString &name, const QByteArray &content)
{
    return save(m_database, documentTable(), {name, content});
}

std::optional<QByteArray> DatabaseDocuments::LoadDocument(const QString &name)
{
    return load(m_database, documentTable(), name);
}

bool DatabaseDocuments::RemoveDocument(const QString &name)
{
    return remove(m_database, documentTable(), name);
}

std::optional<QStringList> DatabaseDocuments::DocumentNames(const QString &start)
{
    if (!prepare(m_database))
        return std::nullopt;
    QStringList names;
    const auto take = [&](const DatabaseRow &row) {
        const QString name = row.Value(0).toString();
        if (name.startsWith(start))
            names << name;
        return true;
    };
    // The contents stay where they are.
    if (!m_database.Select(u"SELECT NAME FROM KELO_DOCUMENTS"_s, {}, take))
        return std::nullopt;
    names.sort();
    return names;
}

bool DatabaseDocuments::SaveValue(const QString &name, const QVariant &value)
{
    const bool isOurs = value.isValid() && value.typeId() < QMetaType::User;
    QByteArray content;
    QDataStream stream(&content, QIODevice::WriteOnly);
    stream.setVersion(kValueFormat);
    if (!isOurs || !value.metaType().hasRegisteredDataStreamOperators())
        return m_database.Refuse(
            "DatabaseDocuments::SaveValue",
            Text::tr("The value \"%1\" is of a type that cannot be kept.").arg(name));
    stream << value;
    return save(m_database, valueTable(), {name, content});
}

QVariant DatabaseDocuments::LoadValue(const QString &name)
{
    const auto content = load(m_database, valueTable(), name);
    if (!content)
        return {};
    QDataStream stream(*content);
    stream.setVersion(kValueFormat);
    QVariant value;
    stream >> value;
    return stream.status() == QDataStream::Ok ? value : QVariant();
}

bool DatabaseDocuments::RemoveValue(const QString &name)
{
    return remove(m_database, valueTable(), name);
}
