// SPDX-License-Identifier: GPL-2.0-or-later
// The table VIEWER_VIEWS.
#include "ViewStore.h"

#include <algorithm>
#include <kelo_base/core/Database.h>
#include <kelo_base/core/DatabaseTable.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const DatabaseTable<StoredPlanView> &viewTable()
{
    static const auto table = DatabaseTable<StoredPlanView>("VIEWER_VIEWS")
                                  .Key("PLAN", &StoredPlanView::plan)
                                  .Key("NAME", &StoredPlanView::name)
                                  .Column("POSITION", &StoredPlanView::position)
                                  .Column("X", &StoredPlanView::x)
                                  .Column("Y", &StoredPlanView::y)
                                  .Column("SCALE", &StoredPlanView::metresPerPixel)
                                  .Column("ANGLE", &StoredPlanView::angle);
    return table;
}

const DatabaseModule &viewModule()
{
    static const DatabaseModule module{
        u"viewer"_s,
        {[](Database &database) {
            return database.Run(u"CREATE TABLE VIEWER_VIEWS (PLAN TEXT NOT NULL, "
                                "NAME TEXT NOT NULL, POSITION BIGINT NOT NULL, "
                                "X DOUBLE PRECISION NOT NULL, Y DOUBLE PRECISION NOT NULL, "
                                "SCALE DOUBLE PRECISION NOT NULL, ANGLE DOUBLE PRECISION NOT NULL, "
                                "PRIMARY KEY (PLAN, NAME))"_s);
        }}};
    return module;
}

} // namespace

bool ViewStore::isReady()
{
    return m_database.Open() && m_database.Prepare(viewModule());
}

std::vector<StoredPlanView> ViewStore::views(const QString &plan)
{
    if (!isReady())
        return {};
    return viewTable()
        .Load(m_database, DatabaseQuery<StoredPlanView>()
                              .Where(&StoredPlanView::plan, DatabaseCompare::Equal, plan)
                              .OrderBy(&StoredPlanView::position))
        .value_or(std::vector<StoredPlanView>());
}

bool ViewStore::store(const QString &plan, const QString &name, const ViewPose &pose)
{
    if (!isReady())
        return false;
    return m_database.RunRepeatable([&] {
        const std::vector<StoredPlanView> all = views(plan);
        const auto older =
            std::ranges::find_if(all, [&](const auto &view) { return view.name == name; });
        const qint64 end = all.empty() ? 0 : all.back().position + 1;
        const StoredPlanView view{plan,
                                  name,
                                  older == all.end() ? end : older->position,
                                  pose.middle().x(),
                                  pose.middle().y(),
                                  pose.metresPerPixel(),
                                  pose.angle()};
        return viewTable().Replace(m_database, {&view, 1});
    });
}

bool ViewStore::rename(const QString &plan, const QString &name, const QString &newName)
{
    if (!isReady())
        return false;
    return m_database.RunRepeatable([&] {
        auto view = viewTable().LoadByKey(m_database, plan, name);
        if (!view || !viewTable().Delete(m_database, {&*view, 1}))
            return false;
        view->name = newName;
        return viewTable().Insert(m_database, {&*view, 1});
    });
}

bool ViewStore::remove(const QString &plan, const QString &name)
{
    const StoredPlanView view{plan, name};
    return isReady() && viewTable().Delete(m_database, {&view, 1});
}
