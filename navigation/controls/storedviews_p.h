// SPDX-License-Identifier: GPL-2.0-or-later
// The views that people have stored: edits of their list, and where it is kept.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <kelo_base/navigation/UDocItem.h>
#include <optional>

class Database;
class QSettings;
class UserDataManagerI;

namespace navcontrols {

using docwindow::UDocItem;
using docwindow::UDocItemList;

// Edits fail, and change nothing, when there is no such index.

/// @p wanted, or with " (2)" and so on behind it when another item has that title.
[[nodiscard]] QString freeTitle(const UDocItemList &list, const QString &wanted);
/// An empty title changes nothing; one that another item has gets a number.
bool renameItem(UDocItemList &list, int index, const QString &title);
/// The item goes from one index to another, and stays the current one if it is.
bool moveItem(UDocItemList &list, int from, int to);
/// The index that is @p steps on, round at the ends; the first, or going back the last, from none.
[[nodiscard]] int steppedIndex(int index, int steps, int size);

[[nodiscard]] QByteArray toJson(const UDocItemList &list);
/// Nothing when it is no such list; items that are not valid are left out.
[[nodiscard]] std::optional<UDocItemList> fromJson(const QByteArray &json);
/// Mine, with what others have added since @p base and without what they have removed.
[[nodiscard]] UDocItemList merged(const UDocItemList &base, UDocItemList mine,
                                  const UDocItemList &theirs);
/// As an array in the group they are given.
void writeViews(QSettings &settings, const UDocItemList &list);
[[nodiscard]] UDocItemList readViews(QSettings &settings);

/// The list of the open project, taken anew whenever that is another one. In files it is written
/// when they are saved, in a database at once, together with what others have stored there
/// meanwhile.
class StoredViews : public QObject
{
    Q_OBJECT

public:
    explicit StoredViews(QObject *parent) : QObject(parent) {}

    /// @param database  null: the project's layout, without a project the user's
    void setDatabase(Database *database, const QString &project);
    [[nodiscard]] const UDocItemList &list();
    void set(const UDocItemList &list);
    /// Puts the list into the layout that is about to be written, if it is the list's.
    void save(const UserDataManagerI &data, bool isProject);

signals:
    void changed();
    /// The database could not be read or written, or what it held was no such list.
    /// @param sentence  for people
    void failed(const QString &sentence);

private:
    [[nodiscard]] QString document() const;
    void load();
    void saveToDatabase();
    void tellLater(const QString &sentence);

    Database *m_database = nullptr;
    QString m_project;
    UDocItemList m_list;
    UDocItemList m_base; ///< what the database held when it was looked at last
    QString m_source;    ///< the file or document that the list was taken from
};

} // namespace navcontrols
