// SPDX-License-Identifier: GPL-2.0-or-later
// Reads and writes single configurations as INI files.
#include "actions/configuration/configurationfile_p.h"

#include "actions/menuconfig_p.h"
#include "core/settings_p.h"
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <kelo_base/actions/LayoutStorage.h>
#include <kelo_base/actions/MenuConfigManager.h>
#include <kelo_base/core/ReplacedFile.h>
#include <unordered_set>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

namespace {

constexpr qint64 kMostBytes = 16LL << 20;
constexpr qsizetype kLongestKeys = 200; ///< four strokes take less

struct FileTexts
{
    Q_DECLARE_TR_FUNCTIONS(MenuConfigFile)
};

QString shownName(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

/// What is wrong with an array; empty when nothing is.
/// @param areUnique  whether no id may come twice
QString faultOfArray(QSettings &settings, const QString &group, QLatin1StringView name,
                     bool areUnique)
{
    const SettingsGroup inside(settings, group);
    const QVariant stored = settings.value(name + "/size"_L1, 0);
    const QString claimed = stored.toString();
    bool isNumber = false;
    const int size = claimed.toInt(&isNumber);
    const bool isLikely =
        isNumber && size >= 0 &&
        size <= (areUnique ? SettingsReadArray::kUndoubtedElements * 2 : kMostSlots);
    if (!isLikely)
        return FileTexts::tr("%1 claims to have %2 elements").arg(name, claimed.left(20));
    std::unordered_set<int> ids;
    const SettingsReadArray array(settings, name);
    for (unsigned int i = 0; i < array.size(); ++i) {
        const int id = array.value(i, kActionIdKey).toInt();
        if (areUnique && !ids.insert(id).second)
            return FileTexts::tr("function %1 comes twice").arg(id);
        const QVariant keys = array.value(i, kKeySequenceKey);
        if (keys.toString().size() > kLongestKeys || keys.toStringList().size() > 5)
            return FileTexts::tr("the keys of function %1 are too long").arg(id);
    }
    return QString();
}

QString faultOf(QSettings &settings, const QString &group)
{
    const QString shortcuts = group + u'/' + kShortcutsGroup;
    for (const QLatin1StringView array : {kShortcutsArray, kClearedArray}) {
        if (const QString fault = faultOfArray(settings, shortcuts, array, true); !fault.isEmpty())
            return fault;
    }
    return faultOfArray(settings, group + u'/' + kLayoutGroup, kMenusArray, false);
}

ConfigurationFile failed(const QString &sentence)
{
    ConfigurationFile file;
    file.error = sentence;
    return file;
}

} // namespace

ConfigurationFile readConfigurationFile(const QString &path, const QString &name)
{
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly))
        return failed(
            FileTexts::tr("%1 cannot be read: %2.").arg(shownName(path), source.errorString()));
    ConfigurationFile file;
    file.bytes = source.read(kMostBytes + 1);
    if (file.bytes.size() > kMostBytes)
        return failed(FileTexts::tr("%1 is too large for a configuration.").arg(shownName(path)));
    // A copy: the toolkit would keep what it read of the file itself in memory.
    const QTemporaryDir folder;
    QFile copy(folder.filePath(u"copy.ini"_s));
    if (!copy.open(QIODevice::WriteOnly) || copy.write(file.bytes) != file.bytes.size())
        return failed(
            FileTexts::tr("%1 cannot be read: %2.").arg(shownName(path), copy.errorString()));
    copy.close();
    QSettings settings(copy.fileName(), QSettings::IniFormat);
    MenuConfigManager stored;
    stored.SetSettings(&settings);
    const QStringList names = stored.GetConfigNames();
    if (settings.status() != QSettings::NoError || names.isEmpty())
        return failed(FileTexts::tr("%1 holds no menu configuration.").arg(shownName(path)));
    stored.SetConfigName(names.contains(name) ? name : names.first());
    const QString fault = faultOf(settings, stored.GetConfigName());
    if (!fault.isEmpty())
        return failed(FileTexts::tr("%1 is damaged: %2.").arg(shownName(path), fault));
    ReadShortcutList(settings, stored.GetConfigName(), file.configuration.shortcuts);
    file.hasLayout =
        ReadContextMenuLayout(settings, stored.GetConfigName(), file.configuration.layout);
    return file;
}

QString writeConfigurationFile(const QString &path, const QString &name,
                               const MenuConfiguration &configuration)
{
    const QTemporaryDir folder;
    const QString draft = folder.filePath(u"draft.ini"_s);
    {
        QSettings settings(draft, QSettings::IniFormat);
        MenuConfigManager stored;
        stored.SetSettings(&settings);
        stored.SetConfigName(name);
        stored.AssignKeyboardShortcutList(configuration.shortcuts);
        stored.AssignContextMenuLayout(configuration.layout);
        stored.SaveToStorage();
    }
    QFile source(draft);
    ReplacedFile file(path);
    const bool isWritten = source.open(QIODevice::ReadOnly) && file.Open() &&
                           file.Device().write(source.readAll()) == source.size() && file.Commit();
    return isWritten ? QString() : FileTexts::tr("%1 cannot be written.").arg(shownName(path));
}

} // namespace menuconfig
