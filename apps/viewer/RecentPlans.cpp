// SPDX-License-Identifier: GPL-2.0-or-later
// Reads and writes the history when it is asked for: other windows may have changed it.
#include "RecentPlans.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <kelo_base/core/History.h>
#include <kelo_base/core/UserDataManager.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kGroup = u"viewer/recentPlans"_s;

QSettings &settings()
{
    return UserDataManager().GetSettingsConfigFile(DataScopeUser, true);
}

} // namespace

RecentPlans::RecentPlans(QWidget *parent) : QMenu(tr("Open rec&ent"), parent)
{
    connect(this, &QMenu::aboutToShow, this, &RecentPlans::fill);
}

QStringList RecentPlans::plans() const
{
    QStringList plans;
    if (m_isKept)
        ReadHistoryFromFile(settings(), kGroup, plans);
    return plans;
}

void RecentPlans::add(const QString &path)
{
    if (!m_isKept || path.isEmpty())
        return;
    QStringList all = plans();
    all.removeAll(path);
    all.prepend(path);
    WriteHistoryToFile(settings(), kGroup, all.mid(0, kMost));
}

void RecentPlans::fill()
{
    clear();
    int number = 0;
    for (const QString &path : plans()) {
        const QFileInfo file(path);
        const QString text = file.fileName() + " - "_L1 + QDir::toNativeSeparators(file.path());
        QAction *entry =
            addAction(u"&%1 "_s.arg(++number % 10) + QString(text).replace(u'&', "&&"_L1));
        entry->setEnabled(file.exists());
        connect(entry, &QAction::triggered, this, [this, path] { emit chosen(path); });
    }
    if (isEmpty())
        addAction(tr("None yet"))->setEnabled(false);
}
