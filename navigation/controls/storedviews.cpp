// SPDX-License-Identifier: GPL-2.0-or-later
// The views that people have stored: edits of their list, and where it is kept.
#include "navigation/controls/storedviews_p.h"

#include "core/settings_p.h"
#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <algorithm>
#include <kelo_base/core/DatabaseDocuments.h>
#include <kelo_base/core/UserDataManager.h>

using namespace Qt::Literals::StringLiterals;

namespace navcontrols {

namespace {

// Names in files and databases: a format, never changed.
constexpr QLatin1StringView kGroup{"NavigationControls"};
constexpr QLatin1StringView kArray{"StoredViews"};
constexpr QLatin1StringView kFileName{"FileName"};
constexpr QLatin1StringView kTitle{"Title"};
constexpr QLatin1StringView kDescription{"Description"};
constexpr QLatin1StringView kDocument{"DocumentNumber"};
constexpr QLatin1StringView kPage{"Page"};
constexpr QLatin1StringView kRotation{"Rotation"};
constexpr QLatin1StringView kScale{"Scale"};
constexpr QLatin1StringView kPageX{"PageX"};
constexpr QLatin1StringView kPageY{"PageY"};
constexpr QLatin1StringView kEast{"East"};
constexpr QLatin1StringView kNorth{"North"};
constexpr QLatin1StringView kDocumentName{"navigation/views/"};
constexpr int kMostViews = 10'000;

/// Pixels are left out: they mean nothing at another time.
QVariantMap toMap(const UDocItem &item)
{
    return {{kFileName, item.fileName},
            {kTitle, item.title},
            {kDescription, item.description},
            {kDocument, item.documentNumber},
            {kPage, item.pageNumber},
            {kRotation, item.rotation},
            {kScale, item.scale},
            {kPageX, item.position.docPoint.x()},
            {kPageY, item.position.docPoint.y()},
            {kEast, item.position.geoPoint.x()},
            {kNorth, item.position.geoPoint.y()}};
}

/// @param value  gives what is stored under a key, or something invalid
template <typename Value>
UDocItem itemFrom(const Value &value)
{
    const auto whole = [&value](QLatin1StringView key, qint32 fallback) {
        bool isNumber = false;
        const qint32 number = value(key).toInt(&isNumber);
        return isNumber ? number : fallback;
    };
    const auto point = [&value](QLatin1StringView x, QLatin1StringView y) {
        const QPointF read(value(x).toDouble(), value(y).toDouble());
        return qIsFinite(read.x()) && qIsFinite(read.y()) ? read : QPointF();
    };
    UDocItem item;
    item.fileName = value(kFileName).toString();
    item.title = value(kTitle).toString();
    item.description = value(kDescription).toString();
    item.documentNumber = whole(kDocument, item.documentNumber);
    item.pageNumber = whole(kPage, item.pageNumber);
    item.rotation = whole(kRotation, item.rotation);
    item.scale = whole(kScale, item.scale);
    item.position.docPoint = point(kPageX, kPageY);
    item.position.geoPoint = point(kEast, kNorth);
    return item;
}

/// All that is kept of an item.
QByteArray keyOf(const UDocItem &item)
{
    return QJsonDocument(QJsonObject::fromVariantMap(toMap(item))).toJson(QJsonDocument::Compact);
}

QSet<QByteArray> keysOf(const UDocItemList &list)
{
    QSet<QByteArray> keys;
    for (const UDocItem &item : list)
        keys.insert(keyOf(item));
    return keys;
}

/// Empty when there is no such document; nothing when the database fails.
std::optional<QByteArray> contentOf(DatabaseDocuments &documents, const QString &name)
{
    const auto names = documents.DocumentNames(name);
    if (!names)
        return std::nullopt;
    return names->contains(name) ? documents.LoadDocument(name) : QByteArray();
}

} // namespace

QString freeTitle(const UDocItemList &list, const QString &wanted)
{
    const auto isTaken = [&list](const QString &title) {
        return std::any_of(list.begin(), list.end(),
                           [&](const UDocItem &item) { return item.title == title; });
    };
    QString title = wanted;
    for (int number = 2; isTaken(title); ++number)
        title = wanted + u" (%1)"_s.arg(number);
    return title;
}

bool renameItem(UDocItemList &list, int index, const QString &title)
{
    const QString wanted = title.simplified();
    UDocItem item = list[index];
    if (wanted.isEmpty() || index < 0 || index >= list.Size())
        return false;
    if (wanted == item.title)
        return true;
    item.title = freeTitle(list, wanted);
    return list.Replace(index, item);
}

bool moveItem(UDocItemList &list, int from, int to)
{
    if (from < 0 || from >= list.Size() || to < 0 || to >= list.Size())
        return false;
    const bool isCurrent = list.currentIndex == from;
    const UDocItem item = list[from];
    if (!list.Remove(from) || !list.Insert(to, item))
        return false;
    if (isCurrent)
        list.currentIndex = to;
    return true;
}

int steppedIndex(int index, int steps, int size)
{
    if (size <= 0)
        return -1;
    if (index < 0 || index >= size)
        index = steps > 0 ? -1 : 0;
    const int next = (index + steps % size) % size;
    return next < 0 ? next + size : next;
}

QByteArray toJson(const UDocItemList &list)
{
    QJsonArray array;
    for (const UDocItem &item : list)
        array.append(QJsonObject::fromVariantMap(toMap(item)));
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::optional<UDocItemList> fromJson(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray())
        return std::nullopt;
    UDocItemList list;
    for (const QJsonValue value : document.array()) {
        const QJsonObject object = value.toObject();
        const auto item =
            itemFrom([&object](QLatin1StringView key) { return object.value(key).toVariant(); });
        if (item.IsValid() && list.Size() < kMostViews)
            list << item;
    }
    return list;
}

void writeViews(QSettings &settings, const UDocItemList &list)
{
    SettingsWriteArray array(settings, kArray);
    for (const UDocItem &item : list) {
        array.nextElement();
        const QVariantMap map = toMap(item);
        for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
            array.setValue(entry.key(), entry.value());
    }
}

UDocItemList readViews(QSettings &settings)
{
    const SettingsReadArray array(settings, kArray, kMostViews);
    UDocItemList list;
    for (unsigned int i = 0; i < array.size(); ++i) {
        const auto item = itemFrom([&](QLatin1StringView key) { return array.value(i, key); });
        if (item.IsValid())
            list << item;
    }
    return list;
}

UDocItemList merged(const UDocItemList &base, UDocItemList mine, const UDocItemList &theirs)
{
    const QSet<QByteArray> known = keysOf(base);
    const QSet<QByteArray> present = keysOf(theirs);
    for (int i = mine.Size() - 1; i >= 0; --i) {
        const QByteArray key = keyOf(mine[i]);
        if (known.contains(key) && !present.contains(key))
            mine.Remove(i);
    }
    const QSet<QByteArray> own = keysOf(mine);
    for (const UDocItem &item : theirs) {
        const QByteArray key = keyOf(item);
        if (!known.contains(key) && !own.contains(key))
            mine << item;
    }
    return mine;
}

void StoredViews::setDatabase(Database *database, const QString &project)
{
    m_database = database;
    m_project = project;
    m_source.clear();
    m_list.Clear();
    m_base.Clear();
    emit changed();
}

QString StoredViews::document() const
{
    return kDocumentName + m_project;
}

const UDocItemList &StoredViews::list()
{
    load();
    return m_list;
}

void StoredViews::load()
{
    if (m_database) {
        if (m_source == document())
            return;
        DatabaseDocuments documents(*m_database);
        const auto stored = contentOf(documents, document());
        // Without an answer the next call asks again: a connection may come back.
        if (stored || m_database->IsOpen())
            m_source = document();
        if (!stored)
            return tellLater(m_database->LastError());
        const UDocItemList theirs = fromJson(*stored).value_or(UDocItemList());
        m_list = merged(m_base, m_list, theirs);
        m_base = theirs;
        return;
    }
    const UserDataManagerI &data = UserDataManager();
    const auto scope = data.HasOpenProject() ? DataScopeProject : DataScopeUser;
    QSettings *layout = nullptr;
    try {
        layout = &data.GetLayoutConfigFile(scope, true);
    } catch (const std::runtime_error &) {
        return; // files are closed: the list stays what it was
    }
    if (m_source == layout->fileName())
        return;
    m_source = layout->fileName();
    const SettingsGroup group(*layout, kGroup);
    m_list = readViews(*layout);
}

void StoredViews::set(const UDocItemList &list)
{
    load();
    m_list = list;
    if (m_database)
        saveToDatabase();
    emit changed();
}

/// Others may have changed the document since it was read. Where this fails, the list stays as
/// people see it, and the next change is another attempt.
void StoredViews::saveToDatabase()
{
    const QString name = document();
    const QString now = QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss-zzz"_s);
    const QString aside = name + u".broken-"_s + now;
    UDocItemList together;
    bool isBroken = false;
    const bool isKept = m_database->RunRepeatable([&] {
        DatabaseDocuments documents(*m_database);
        const auto stored = contentOf(documents, name);
        if (!stored)
            return false;
        const auto theirs = fromJson(*stored);
        isBroken = !theirs && !stored->isEmpty();
        together = theirs ? merged(m_base, m_list, *theirs) : m_list;
        return (!isBroken || documents.SaveDocument(aside, *stored)) &&
               documents.SaveDocument(name, toJson(together));
    });
    if (!isKept)
        return tellLater(m_database->LastError());
    m_base = m_list = together;
    m_source = name;
    if (isBroken)
        tellLater(tr("The views that were stored before cannot be read. They are kept in the "
                     "database as the document \"%1\".")
                      .arg(aside));
}

/// A listener may do anything.
void StoredViews::tellLater(const QString &sentence)
{
    QMetaObject::invokeMethod(
        this, [this, sentence] { emit failed(sentence); }, Qt::QueuedConnection);
}

void StoredViews::save(const UserDataManagerI &data, bool isProject)
{
    QSettings &layout =
        data.GetLayoutConfigFile(isProject ? DataScopeProject : DataScopeUser, true);
    if (m_database || m_source != layout.fileName())
        return; // another project's, or never looked at
    const SettingsGroup group(layout, kGroup);
    writeViews(layout, m_list);
}

} // namespace navcontrols
