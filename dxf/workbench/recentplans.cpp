// SPDX-License-Identifier: GPL-2.0-or-later
// The plans used last, newest first.
#include "dxf/workbench/dxftoolskeys_p.h"
#include "dxf/workbench/recentplans_p.h"
#include <QDir>
#include <QSettings>
#include <algorithm>
#include <kelo_base/core/History.h>

namespace {

QString oneSpelling(const QString &path)
{
    return QDir::cleanPath(QDir::fromNativeSeparators(path));
}

} // namespace

void RecentPlans::Add(const QString &path)
{
    if (path.isEmpty())
        return;
    Remove(path);
    m_paths.prepend(oneSpelling(path));
    m_paths.resize(std::min(m_paths.size(), kMost));
}

void RecentPlans::Remove(const QString &path)
{
    m_paths.removeOne(oneSpelling(path));
}

RecentPlans dxftools::readRecentPlans(QSettings &settings)
{
    QStringList paths;
    ReadHistoryFromFile(settings, dxftools::kRecentFiles, paths);
    RecentPlans plans;
    for (qsizetype i = paths.size() - 1; i >= 0; --i)
        plans.Add(paths[i]);
    return plans;
}

void dxftools::writeRecentPlans(QSettings &settings, const RecentPlans &plans)
{
    WriteHistoryToFile(settings, dxftools::kRecentFiles, plans.Paths());
}
