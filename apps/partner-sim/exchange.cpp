// SPDX-License-Identifier: GPL-2.0-or-later
// The exchange files as texts, and what is done with files.
#include "exchange.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>
#include <filesystem>

using namespace Qt::Literals::StringLiterals;

namespace {

QString quoted(QString value)
{
    value.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s);
    return u'"' + value.replace(u'\n', u"\\n"_s).replace(u'\r', u"\\r"_s) + u'"';
}

QString unquoted(QStringView value)
{
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] == u'\\' && i + 1 < value.size()) {
            const QChar escaped = value[++i];
            text += escaped == u'n' ? QChar(u'\n') : escaped == u'r' ? QChar(u'\r') : escaped;
        } else if (value[i] != u'"') {
            text += value[i];
        }
    }
    return text;
}

} // namespace

QByteArray commandText(const Command &command, const QString &sender, quint64 number)
{
    QString text = u"[General]\nCommandType=%1\nCommandId=%2\nParameters=%3\n"_s.arg(
        command.type, quoted(command.id), quoted(command.parameters));
    if (number != 0)
        text += u"Sender=%1\nSerialNumber=%2\n[End]\n"_s.arg(sender).arg(number);
    return text.toUtf8();
}

QMap<QString, QString> fieldsOf(const QByteArray &text)
{
    QMap<QString, QString> fields;
    QString section;
    for (const QByteArray &bytes : text.split('\n')) {
        const QString line = QString::fromUtf8(bytes).trimmed();
        const qsizetype equalSign = line.indexOf(u'=');
        if (line.startsWith(u'['))
            section = line == "[General]"_L1 ? QString() : line.sliced(1).chopped(1) + u'/';
        else if (equalSign > 0)
            fields[section + line.first(equalSign)] = unquoted(line.sliced(equalSign + 1));
    }
    return fields;
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    const bool isFile = QFileInfo(path).isFile(); // a pipe would be opened once somebody writes
    return isFile && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path + u".new"_s);
    file.remove(); // half a file of an earlier life, or a link or pipe that somebody put there
    const bool isWritten = file.open(QIODevice::WriteOnly | QIODevice::NewOnly) &&
                           file.write(bytes) == bytes.size() && file.flush();
    file.close();
    return isWritten && renameFile(file.fileName(), path);
}

bool renameFile(const QString &from, const QString &to)
{
    std::error_code error; // replaces what is there, other than QFile::rename()
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(),
                            QFileInfo(to).filesystemFilePath(), error);
    return !error;
}

void print(const QMap<QString, QString> &event, bool asJson)
{
    QByteArray line;
    if (asJson) {
        QJsonObject object;
        for (const auto &[key, value] : event.asKeyValueRange())
            object.insert(key, value);
        line = QJsonDocument(object).toJson(QJsonDocument::Compact);
    } else {
        line = QStringList(event.values()).join(u' ').trimmed().toUtf8();
    }
    std::printf("%s\n", line.constData());
    std::fflush(stdout); // somebody may be waiting for it at the end of a pipe
}
