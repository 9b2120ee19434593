// SPDX-License-Identifier: GPL-2.0-or-later
// The two kinds of exchange files as values: a command, and the answers of a receiver.
#include "ipc/message_p.h"

#include "ipc/channel_p.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <kelo_base/ipc/KeloCommandData.h>
#include <kelo_base/ipc/KeloIPCCommandParser.h>

using namespace Qt::Literals::StringLiterals;

namespace channel {
namespace {

constexpr QByteArrayView kByteOrderMark{"\xef\xbb\xbf"};
constexpr auto kGeneralSection = "[General]"_L1;
constexpr auto kEndSection = "[End]"_L1;
constexpr std::array kStateNames{"taken"_L1, "accepted"_L1, "refused"_L1};

bool isPlain(QChar c)
{
    return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == u'.' || c == u'_' || c == u'-');
}

QString decodeText(QByteArrayView bytes)
{
    if (bytes.startsWith(kByteOrderMark))
        bytes = bytes.sliced(kByteOrderMark.size());
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

/// A value as it stands in a file: in quotes unless every reader takes it as it is.
QString quoted(const QString &value)
{
    if (!value.isEmpty() && std::ranges::all_of(value, isPlain))
        return value;
    QString text(u'"');
    for (const QChar c : value) {
        if (c == u'"' || c == u'\\' || c == u'\n' || c == u'\r')
            text += u'\\';
        text += c == u'\n' ? QChar(u'n') : c == u'\r' ? QChar(u'r') : c;
    }
    return text + u'"';
}

/// Takes the hexadecimal digits in front of @p rest. Longer codes keep their low 16 bits.
QChar takeCode(QStringView &rest)
{
    const auto isDigit = [](QChar c) {
        const char16_t low = c.unicode() | 0x20;
        return (c >= u'0' && c <= u'9') || (low >= u'a' && low <= u'f');
    };
    uint code = 0;
    for (; !rest.isEmpty() && isDigit(rest.front()); rest = rest.sliced(1))
        code = code * 16 + rest.first(1).toUInt(nullptr, 16);
    return QChar(static_cast<char16_t>(code));
}

/// Takes what stands behind a backslash.
QChar takeEscaped(QStringView &rest)
{
    const QChar c = rest.front();
    rest = rest.sliced(1);
    switch (c.unicode()) {
    case u'n':
        return u'\n';
    case u'r':
        return u'\r';
    case u't':
        return u'\t';
    case u'x':
        return takeCode(rest);
    default:
        return c;
    }
}

/// The meaning of a value in a file; nothing when a quote or a backslash is left open.
std::optional<QString> unquoted(QStringView rest)
{
    QString text;
    bool isQuoted = false;
    while (!rest.isEmpty()) {
        const QChar c = rest.front();
        rest = rest.sliced(1);
        if (c == u'"')
            isQuoted = !isQuoted;
        else if (c != u'\\')
            text += c;
        else if (rest.isEmpty())
            return std::nullopt;
        else
            text += takeEscaped(rest);
    }
    return isQuoted ? std::nullopt : std::optional(text);
}

/// Lines without blanks around them, comments and empty ones left out.
std::vector<QStringView> linesOf(QStringView text)
{
    std::vector<QStringView> lines;
    for (const QStringView line : text.tokenize(u'\n')) {
        const QStringView trimmed = line.trimmed(); // takes the CR of a CR LF as well
        if (!trimmed.isEmpty() && trimmed.front() != u';' && trimmed.front() != u'#')
            lines.push_back(trimmed);
    }
    return lines;
}

struct KeyValue
{
    QStringView key;
    QString value;
};

std::optional<KeyValue> keyValueOf(QStringView line)
{
    const qsizetype equalSign = line.indexOf(u'=');
    if (equalSign <= 0)
        return std::nullopt;
    const auto value = unquoted(line.sliced(equalSign + 1).trimmed());
    if (!value)
        return std::nullopt;
    return KeyValue{line.first(equalSign).trimmed(), *value};
}

/// 0 when the text is no number from 1 on.
quint64 serialNumberOf(QStringView text)
{
    const bool isNumber = std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
    return isNumber ? text.toULongLong() : 0; // 0 as well for what is too large
}

/// False when the value cannot be.
bool takeKey(const KeyValue &entry, Message &message)
{
    if (entry.key == kCommandTypeKey)
        message.type = entry.value;
    else if (entry.key == kCommandIdKey)
        message.id = entry.value;
    else if (entry.key == kParametersKey)
        message.parameters = entry.value;
    else if (entry.key == kSenderKey && isSenderId(entry.value))
        message.sender = entry.value;
    else if (entry.key == kSerialNumberKey && serialNumberOf(entry.value) != 0)
        message.number = serialNumberOf(entry.value);
    else
        return entry.key != kSenderKey && entry.key != kSerialNumberKey;
    return true;
}

} // namespace

bool isSenderId(QStringView text)
{
    return !text.isEmpty() && text.size() <= 64 && std::ranges::all_of(text, isPlain);
}

QByteArray encodeMessage(const Message &message)
{
    QString text = kGeneralSection + u'\n';
    const auto add = [&text](QLatin1StringView key, const QString &value) {
        text += key + u'=' + quoted(value) + u'\n';
    };
    add(kCommandTypeKey, message.type);
    add(kCommandIdKey, message.id);
    add(kParametersKey, message.parameters);
    if (message.number != 0) {
        add(kSenderKey, message.sender);
        add(kSerialNumberKey, QString::number(message.number));
    }
    return (text + kEndSection + u'\n').toUtf8();
}

std::optional<Message> decodeMessage(QByteArrayView bytes)
{
    const QString text = decodeText(bytes);
    Message message;
    message.hasParameters = false;
    for (const QStringView line : linesOf(text)) {
        if (line == kGeneralSection)
            continue;
        if (line == kEndSection)
            break;
        const auto entry = keyValueOf(line);
        if (!entry || !takeKey(*entry, message))
            return std::nullopt;
        if (entry->key == kParametersKey)
            message.hasParameters = true;
    }
    const bool hasOneOfTwo = message.sender.isEmpty() != (message.number == 0);
    if (message.type.isEmpty() || message.id.isEmpty() || hasOneOfTwo)
        return std::nullopt;
    return message;
}

bool takesParameters(const Message &message)
{
    return message.type == kNamedCommand && message.id != kTestCommandName;
}

bool hasEndMark(QByteArrayView bytes)
{
    const QByteArrayView trimmed = bytes.trimmed();
    const auto mark = QByteArrayView(kEndSection.data(), kEndSection.size());
    const bool isLine =
        trimmed.size() > mark.size() && trimmed[trimmed.size() - mark.size() - 1] == '\n';
    return isLine && trimmed.endsWith(mark);
}

std::optional<KeloCommandData> commandDataOf(const Message &message)
{
    const KeloIPCCommandParser parser;
    KeloCommandData data;
    if (message.type == kNamedCommand) {
        QStringList lines;
        for (const QStringView line : QStringView(message.parameters).tokenize(kParameterSeparator))
            lines << line.trimmed().toString(); // some writers set a blank behind each comma
        parser.ProcessCommandString(message.id, lines, data);
        return data.commandType == kNothingReceived ? std::nullopt : std::optional(data);
    }
    bool isNumber = false;
    const int number = message.id.toInt(&isNumber);
    if (message.type != kIntegerCommand || !isNumber)
        return std::nullopt;
    parser.ProcessCommand(number, data);
    return data;
}

void Answers::set(const QString &sender, quint64 number, AnswerState state)
{
    const auto known = std::ranges::find(m_records, sender, &Record::sender);
    if (known != m_records.end())
        std::rotate(known, known + 1, m_records.end());
    else
        m_records.push_back({sender, {}});
    if (m_records.size() > kSenders)
        m_records.erase(m_records.begin());
    if (m_records.size() > kTalkingSenders) {
        auto &silent = (m_records.end() - kTalkingSenders - 1)->numbers;
        silent.erase(silent.begin(), std::prev(silent.end()));
    }
    auto &numbers = m_records.back().numbers;
    numbers[number] = state;
    if (numbers.size() > kNumbers)
        numbers.erase(numbers.begin());
}

const Answers::Record *Answers::find(const QString &sender) const
{
    const auto known = std::ranges::find(m_records, sender, &Record::sender);
    return known == m_records.end() ? nullptr : &*known;
}

std::optional<AnswerState> Answers::state(const QString &sender, quint64 number) const
{
    const Record *const record = find(sender);
    if (!record || !record->numbers.contains(number))
        return std::nullopt;
    return record->numbers.at(number);
}

quint64 Answers::lastNumber(const QString &sender) const
{
    const Record *const record = find(sender);
    return record ? record->numbers.rbegin()->first : 0;
}

quint64 Answers::lastAnswered(const QString &sender) const
{
    quint64 last = 0;
    if (const Record *const record = find(sender))
        for (const auto &[number, state] : record->numbers)
            if (state != AnswerState::Taken)
                last = number;
    return last;
}

QByteArray Answers::encode() const
{
    QString text;
    for (const Record &record : m_records) {
        text += u'[' + record.sender + "]\n"_L1;
        for (const auto &[number, state] : record.numbers)
            text += QString::number(number) + u'=' + kStateNames[static_cast<std::size_t>(state)] +
                    u'\n';
    }
    return text.toUtf8();
}

Answers Answers::decode(QByteArrayView bytes)
{
    Answers answers;
    const QString text = decodeText(bytes);
    QString sender;
    for (const QStringView line : linesOf(text)) {
        const bool isSection = line.front() == u'[' && line.back() == u']';
        if (isSection) {
            const QString name = line.sliced(1).chopped(1).toString();
            sender = isSenderId(name) ? name : QString();
            continue;
        }
        const auto entry = keyValueOf(line);
        const quint64 number = entry ? serialNumberOf(entry->key) : 0;
        const auto *const state =
            entry ? std::ranges::find(kStateNames, entry->value) : kStateNames.end();
        if (!sender.isEmpty() && number != 0 && state != kStateNames.end())
            answers.set(sender, number, static_cast<AnswerState>(state - kStateNames.begin()));
    }
    return answers;
}

} // namespace channel
