// SPDX-License-Identifier: GPL-2.0-or-later
// What the user asks to send, a command a line.
#include "script.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

bool areNumbers(const QStringList &words)
{
    return std::all_of(words.begin(), words.end(), [](const QString &word) {
        bool isNumber = false;
        return std::isfinite(word.toDouble(&isNumber)) && isNumber;
    });
}

bool isInteger(const QString &word)
{
    bool isNumber = false;
    static_cast<void>(word.toInt(&isNumber));
    return isNumber;
}

/// Separators end a value.
bool isValue(const QString &word)
{
    return !word.contains(u',') && !word.contains(u':');
}

Command named(const QString &name, const QStringList &parameters)
{
    return {u"NamedCommand"_s, name, parameters.join(u',')};
}

std::optional<Command> gotoCommand(const QStringList &words)
{
    static const QStringList keys{u"X:"_s, u"Y:"_s, u"NorthDeviationInDegrees:"_s,
                                  u"ViewingHeight:"_s};
    if (words.size() < 2 || words.size() > keys.size() || !areNumbers(words))
        return std::nullopt;
    QStringList parameters;
    for (qsizetype i = 0; i < words.size(); ++i)
        parameters << keys[i] + words[i];
    return named(u"GotoCoordinates"_s, parameters);
}

} // namespace

std::optional<Command> parseCommand(const QString &line)
{
    QStringList words = line.split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return std::nullopt;
    const QString verb = words.takeFirst();
    const bool toFront = !words.isEmpty() && words.back() == "front"_L1;
    if (toFront)
        words.removeLast();
    std::optional<Command> command;
    if (verb == "goto"_L1)
        command = gotoCommand(words);
    else if (verb == "find"_L1 && words.size() == 1 && isValue(words[0]))
        command = named(u"FindDocumentsForObject"_s, {u"ObjectId:"_s + words[0]});
    else if (verb == "test"_L1 && words.isEmpty())
        command = named(u"TestCommand"_s, {});
    else if (verb == "integer"_L1 && words.size() == 1 && isInteger(words[0]))
        command = Command{u"IntegerCommand"_s, words[0], {}};
    else if (verb == "raw"_L1 && !words.isEmpty())
        command = named(words[0], {words.sliced(1).join(u' ')});
    if (command && toFront)
        command->parameters +=
            command->parameters.isEmpty() ? u"BringToFront:1"_s : u",BringToFront:1"_s;
    return command;
}

std::optional<QList<Command>> parseScript(const QStringList &lines, QString &fault)
{
    QList<Command> commands;
    for (const QString &line : lines) {
        const QString trimmed = line.trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(u'#'))
            continue;
        const auto command = parseCommand(trimmed);
        if (!command) {
            fault = trimmed;
            return std::nullopt;
        }
        commands << *command;
    }
    return commands;
}
