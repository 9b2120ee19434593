// SPDX-License-Identifier: GPL-2.0-or-later
// Views of plans under names, in the application's database.
#pragma once

#include "ViewPose.h"
#include <QStringList>
#include <kelo_base/navigation/DocWindowXIfc.h>
#include <vector>

class Database;

struct StoredPlanView
{
    QString plan; ///< full name of its file
    QString name; ///< unique for a plan
    qint64 position = 0;
    double x = 0; ///< of the middle, on the map
    double y = 0;
    double metresPerPixel = 1;
    double angle = 0;

    [[nodiscard]] ViewPose pose() const { return {{x, y}, metresPerPixel, angle}; }
};

/// Failures leave a sentence in the database's LastError().
class ViewStore
{
public:
    /// @param database  not owned; outlives this
    explicit ViewStore(Database &database) : m_database(database) {}

    /// In their order; none when the database fails.
    [[nodiscard]] std::vector<StoredPlanView> views(const QString &plan);
    /// Adds a view at the end, or replaces the one of that name at its place.
    [[nodiscard]] bool store(const QString &plan, const QString &name, const ViewPose &pose);
    [[nodiscard]] bool rename(const QString &plan, const QString &name, const QString &newName);
    [[nodiscard]] bool remove(const QString &plan, const QString &name);

private:
    [[nodiscard]] bool isReady();

    Database &m_database;
};
