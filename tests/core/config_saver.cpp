// SPDX-License-Identifier: GPL-2.0-or-later
// Saves configuration files until it is killed, runs into a limit, or is done; saving_survives.py
// looks at what it leaves.
#include <kelo_base/core/UserDataManager.h>

#include <QCoreApplication>
#include <QSettings>
#include <csignal>
#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kKeys = 40;

/// One generation: every key holds its number, odd ones a good deal more text.
void putGeneration(QSettings &settings, int generation)
{
    const QString text = u"%1 "_s.arg(generation) + u"x"_s.repeated(generation % 2 ? 400 : 40);
    for (int key = 0; key < kKeys; ++key)
        settings.setValue(u"G/k%1"_s.arg(key), text);
}

[[noreturn]] void saveForever(int generation)
{
    UserDataManagerI &manager = UserDataManager();
    QObject::connect(&manager, &UserDataManagerI::onSavingUserConfigFiles,
                     [&generation](QSettings &settings) { putGeneration(settings, generation); });
    for (;; ++generation) {
        putGeneration(manager.GetLayoutConfigFile(DataScopeUser, true), generation);
        manager.SaveUserConfigFiles();
        std::puts("saved");
        std::fflush(stdout);
    }
}

/// A full disk: files may not grow beyond 8 KiB, which only the even generations do not want to.
void limitFileSize()
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{8192, 8192};
    setrlimit(RLIMIT_FSIZE, &limit);
}

/// Adds a key with each save, and counts in another one whose text is always equally long.
void saveKeys(const QString &name, int count)
{
    QSettings &settings = UserDataManager().GetSettingsConfigFile(DataScopeUser, true);
    for (int i = 1; i <= count; ++i) {
        settings.setValue(name + u"/k%1"_s.arg(i), i);
        UserDataManager().SaveUserConfigFiles();
        settings.setValue(name + u"/count"_s, 1000 + i);
        UserDataManager().SaveUserConfigFiles();
    }
}

/// Whether a value outlives saves that cannot succeed. Root may write anywhere, so becomes nobody.
bool keepsWhatCannotBeSaved()
{
    if (geteuid() == 0 && setuid(65534) != 0)
        return false;
    QSettings &settings = UserDataManager().GetSettingsConfigFile(DataScopeUser, true);
    settings.setValue("G/new"_L1, 7);
    UserDataManager().SaveUserConfigFiles();
    const bool isKept = settings.value("G/new"_L1) == 7 && settings.contains("G/k0"_L1);
    UserDataManagerI::Destroy();
    return isKept;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(u"O"_s);
    QCoreApplication::setApplicationName(u"A"_s);
    const QStringList arguments = QCoreApplication::arguments();
    const QString mode = arguments.value(1);
    if (mode == "limited"_L1)
        limitFileSize();
    if (mode == "limited"_L1 || mode == "forever"_L1)
        saveForever(arguments.value(2).toInt());
    if (mode == "keys"_L1)
        saveKeys(arguments.value(2), arguments.value(3).toInt());
    return mode == "readonly"_L1 && !keepsWhatCannotBeSaved() ? 1 : 0;
}
