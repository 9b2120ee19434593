// SPDX-License-Identifier: GPL-2.0-or-later
// Saves configuration files until it is killed, runs into a limit, or is done; saving_survives.py
// looks at what it leaves.
#include "tests/support/System.h"

#include <kelo_base/core/UserDataManager.h>

#include <QCoreApplication>
#include <QSettings>
#include <cstdio>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// One generation: each of 40 keys holds its number, odd ones a good deal more text.
void putGeneration(QSettings &settings, int generation)
{
    const QString text = u"%1 "_s.arg(generation) + u"x"_s.repeated(generation % 2 ? 400 : 40);
    for (int key = 0; key < 40; ++key)
        settings.setValue(u"G/k%1"_s.arg(key), text);
}

[[noreturn]] void saveForever(int generation)
{
    UserDataManagerI &manager = UserDataManager();
    for (;; ++generation) {
        putGeneration(manager.GetLayoutConfigFile(DataScopeUser, true), generation);
        putGeneration(manager.GetSettingsConfigFile(DataScopeUser, true), generation);
        manager.SaveUserConfigFiles();
        std::fputs("saved\n", stdout);
        std::fflush(stdout);
    }
}

/// Adds a key with each save.
void saveKeys(const QString &name, int count)
{
    QSettings &settings = UserDataManager().GetSettingsConfigFile(DataScopeUser, true);
    for (int i = 1; i <= count; ++i) {
        settings.setValue(name + u"/k%1"_s.arg(i), i);
        UserDataManager().SaveUserConfigFiles();
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(u"O"_s);
    QCoreApplication::setApplicationName(u"A"_s);
    const QStringList arguments = QCoreApplication::arguments();
    // Files beyond 8 KiB, as only odd generations want.
    std::optional<testsystem::ResourceLimit> fullDisk;
    if (arguments.value(1) == "limited"_L1)
        fullDisk.emplace(testsystem::ResourceLimit::FileSize, 8192);
    if (arguments.value(1) != "keys"_L1)
        saveForever(arguments.value(2).toInt());
    saveKeys(arguments.value(2), arguments.value(3).toInt());
}
