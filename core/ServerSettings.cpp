// SPDX-License-Identifier: GPL-2.0-or-later
// How the application's server is started, as "KeloServer.ini" says.
#include <kelo_base/core/ServerSettings.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <algorithm>
#include <kelo_base/core/UserDataManager.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QLatin1StringView kFile{"KeloServer.ini"};
constexpr QLatin1StringView kProgramKey{"server/serverApplication"};
constexpr QLatin1StringView kArgumentsKey{"server/serverArguments"};
constexpr QLatin1StringView kDetachedKey{"server/startDetached"};
constexpr QLatin1StringView kDevModeKey{"config/devMode"};

/// A list in the file is one already: several values, parted by commas.
QStringList storedArguments(const QVariant &value)
{
    const bool isList = value.typeId() == QMetaType::QStringList;
    return isList ? value.toStringList() : SplitServerArguments(value.toString());
}

/// Unquoted commas make a list of a path as well.
QString storedPath(const QVariant &value)
{
    return value.toStringList().join(u", "_s);
}

} // namespace

QStringList ServerSettingsFiles()
{
    const QString beside = QCoreApplication::applicationDirPath() + u"/config/"_s + kFile;
    return {UserDataManager().GetPathForUserSpecificFile(u"config/"_s + kFile), beside};
}

ServerSettings ReadServerSettings()
{
    ServerSettings result;
    const QStringList files = ServerSettingsFiles();
    const auto file =
        std::ranges::find_if(files, [](const QString &f) { return QFile::exists(f); });
    if (file == files.end())
        return result;
    const QSettings settings(*file, QSettings::IniFormat);
    const QString program = storedPath(settings.value(kProgramKey));
    result.file = *file;
    if (!program.isEmpty())
        result.program =
            QDir::cleanPath(QDir(QCoreApplication::applicationDirPath()).absoluteFilePath(program));
    result.arguments = storedArguments(settings.value(kArgumentsKey));
    result.startDetached = settings.value(kDetachedKey).toBool();
    result.devMode = settings.value(kDevModeKey).toBool();
    return result;
}

QStringList SplitServerArguments(QStringView line)
{
    QStringList arguments;
    QString argument;
    bool hasArgument = false; // an empty one is one, too, once it was quoted
    bool isQuoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        const bool isDoubled = isQuoted && c == u'"' && line.sliced(i + 1).startsWith(u'"');
        if (isDoubled) {
            argument += line[++i];
        } else if (c == u'"') {
            isQuoted = !isQuoted;
            hasArgument = true;
        } else if (isQuoted || !c.isSpace()) {
            argument += c;
            hasArgument = true;
        } else if (hasArgument) {
            arguments << std::exchange(argument, QString());
            hasArgument = false;
        }
    }
    if (hasArgument)
        arguments << argument;
    return arguments;
}
