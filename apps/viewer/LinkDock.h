// SPDX-License-Identifier: GPL-2.0-or-later
// Which of the partner's objects are shown in which sheets.
#pragma once

#include <QDockWidget>
#include <kelo_base/ipc/LinkedObjects.h>
#include <kelo_base/navigation/DocWindowXIfc.h>
#include <memory>
#include <vector>

class Database;
class MainWindow;
class QLabel;
class QListWidget;
class QListWidgetItem;
struct SheetAddress;

/// The objects of the sheet under the middle, and the sheets of an object that was looked for.
class LinkDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit LinkDock(MainWindow &window);
    ~LinkDock() override;

    /// Without one, there are no links. Not owned; outlives this.
    void setDatabase(Database *database);

    /// Lists the sheets that show an object, and opens the first. False when there are none.
    bool find(const Tz::ObjectId &object);
    /// Links an object with the sheet under the middle, at this place. False when there is no
    /// sheet, or the database fails.
    bool link(const QString &object);
    /// Lists the objects of the sheet under the middle.
    void showObjects();
    /// The objects of the sheet under the middle, ordered by their names.
    [[nodiscard]] std::vector<KeloLinkedObject> objects() const;
    /// Other sheets that show objects of this one.
    [[nodiscard]] docwindow::UDocItemList linkedTo(const SheetAddress &sheet) const;

private:
    void askAndLink();
    bool open(const KeloLinkedObject &link);

    MainWindow &m_window;
    Database *m_database = nullptr;
    std::unique_ptr<LinkedObjects> m_links;
    std::vector<KeloLinkedObject> m_found;
    QString m_shownFor; ///< document whose objects are listed
    QListWidget *m_objectList;
    QListWidget *m_sheetList;
    QLabel *m_sheetTitle;
};
