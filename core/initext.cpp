// SPDX-License-Identifier: GPL-2.0-or-later
// Settings as the text of an INI file, and back: the toolkit's own, by way of temporary files.
#include "core/initext_p.h"

#include <QDir>
#include <QStringDecoder>
#include <QTemporaryFile>

namespace initext {
namespace {

constexpr QByteArrayView kByteOrderMark("\xEF\xBB\xBF");

/// Without the program's name, which may hold anything.
QString temporaryName()
{
    return QDir::tempPath() + QStringLiteral("/settings-XXXXXX.ini");
}

bool isUtf8(QByteArrayView text)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder.decode(text);
    return !decoder.hasError();
}

} // namespace

std::optional<Parsed> parse(QByteArrayView text)
{
    if (text.startsWith(kByteOrderMark)) // which the toolkit takes for part of the first line
        text = text.sliced(kByteOrderMark.size());
    QTemporaryFile file(temporaryName());
    if (!file.open() || file.write(text.data(), text.size()) != text.size() || !file.flush())
        return std::nullopt;
    const QSettings settings(file.fileName(), QSettings::IniFormat);
    Parsed parsed;
    for (const QString &key : settings.allKeys())
        parsed.values.insert(key, settings.value(key));
    parsed.isWhole = settings.status() == QSettings::NoError && isUtf8(text);
    return parsed;
}

std::optional<QByteArray> textOf(const QSettings::SettingsMap &values)
{
    QTemporaryFile file(temporaryName());
    if (!file.open())
        return std::nullopt;
    QSettings settings(file.fileName(), QSettings::IniFormat);
    for (auto value = values.begin(); value != values.end(); ++value)
        settings.setValue(value.key(), value.value());
    settings.sync();
    QFile written(file.fileName()); // another file than the one created: it was renamed into place
    if (settings.status() != QSettings::NoError || !written.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray text = written.readAll();
    // On a full disk the toolkit renames a file whose last block is missing, and reports nothing.
    const auto readBack = parse(text);
    const bool isComplete = readBack && readBack->values.keys() == values.keys();
    return isComplete ? std::optional(text) : std::nullopt;
}

} // namespace initext
