// SPDX-License-Identifier: GPL-2.0-or-later
// The exchange files as texts, and what is done with files.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

struct Command
{
    QString type;
    QString id;
    QString parameters; ///< "Key:value,Key:value"
};

/// @param number  0 leaves out sender, number and end mark, as a simple partner does
QByteArray commandText(const Command &command, const QString &sender, quint64 number);

/// Key to value; keys of a section other than [General] as "Section/key".
QMap<QString, QString> fieldsOf(const QByteArray &text);

/// Empty when the file cannot be read.
QByteArray readFile(const QString &path);
/// By way of a temporary file, so that it is there whole or not at all.
bool writeFile(const QString &path, const QByteArray &bytes);
bool renameFile(const QString &from, const QString &to);

/// One line on standard output: a JSON object, or its values as text.
void print(const QMap<QString, QString> &event, bool asJson);
