// SPDX-License-Identifier: GPL-2.0-or-later
// Reads key sequences that people type, and the events of those they press.
#include "actions/configuration/keytext_p.h"

#include <QKeyEvent>
#include <QStringList>
#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

namespace {

constexpr qsizetype kLongestText = 200; ///< four strokes take less in any language

struct Modifier
{
    Qt::KeyboardModifier flag;
    QLatin1StringView name; ///< folded, in the order of stored text
};
constexpr Modifier kModifiers[] = {{Qt::MetaModifier, "meta"_L1},
                                   {Qt::ControlModifier, "ctrl"_L1},
                                   {Qt::AltModifier, "alt"_L1},
                                   {Qt::ShiftModifier, "shift"_L1},
                                   {Qt::KeypadModifier, "num"_L1}};

struct Alias
{
    QLatin1StringView other;
    QLatin1StringView name; ///< as in stored text, folded
};
constexpr Alias kAliases[] = {
    {"control"_L1, "ctrl"_L1},    {"ctl"_L1, "ctrl"_L1},   {"escape"_L1, "esc"_L1},
    {"delete"_L1, "del"_L1},      {"insert"_L1, "ins"_L1}, {"pageup"_L1, "pgup"_L1},
    {"pagedown"_L1, "pgdown"_L1}, {"win"_L1, "meta"_L1},   {"windows"_L1, "meta"_L1},
    {"super"_L1, "meta"_L1},      {"option"_L1, "alt"_L1},
};

/// Letters that are no base with an accent, though people type them so.
constexpr std::pair<char16_t, char16_t> kBaseLetters[] = {
    {u'ø', u'o'}, {u'ł', u'l'}, {u'đ', u'd'}, {u'ı', u'i'}, {u'ħ', u'h'}};

/// The modifier's name in the user's language, folded.
QString nativeName(Qt::KeyboardModifier modifier)
{
    const QKeySequence sequence(QKeyCombination(modifier, Qt::Key_A));
    QString text = sequence.toString(QKeySequence::NativeText);
    text.chop(1);
    return folded(text.endsWith(u'+') ? text.chopped(1) : text);
}

std::optional<Modifier> modifierNamed(const QString &name)
{
    const auto *found =
        std::find_if(std::begin(kModifiers), std::end(kModifiers), [&](const Modifier &modifier) {
            return name == modifier.name || name == nativeName(modifier.flag);
        });
    return found == std::end(kModifiers) ? std::nullopt : std::optional(*found);
}

/// A folded name of a key or modifier as stored text has it.
QString withoutAlias(const QString &name)
{
    const auto *found = std::find_if(std::begin(kAliases), std::end(kAliases),
                                     [&](const Alias &alias) { return name == alias.other; });
    return found == std::end(kAliases) ? name : QString(found->name);
}

/// The parts of one stroke. "+" and "," are keys where nothing stands before them.
using Stroke = QStringList;

std::vector<Stroke> strokesIn(const QString &text)
{
    std::vector<Stroke> strokes;
    Stroke stroke;
    QString part;
    bool isJoined = false; // behind a "+" that joins
    const auto endPart = [&] {
        if (const QString name = part.trimmed(); !name.isEmpty())
            stroke << name;
        part.clear();
    };
    for (const QChar c : text) {
        const bool isFirst = part.trimmed().isEmpty();
        const bool isKey = isFirst && (isJoined || stroke.isEmpty());
        if ((c != u'+' && c != u',') || isKey) {
            part += c;
            isJoined = isJoined && c.isSpace();
            continue;
        }
        endPart();
        isJoined = c == u'+';
        if (c == u',')
            strokes.push_back(std::exchange(stroke, Stroke()));
    }
    endPart();
    if (isJoined)
        stroke << QString(); // "Ctrl+" is not finished
    if (!stroke.isEmpty())
        strokes.push_back(stroke);
    return strokes;
}

/// The key called so in English, else in the user's language.
std::optional<Qt::Key> keyNamed(const QString &name)
{
    const QString known = withoutAlias(folded(name));
    for (const auto format : {QKeySequence::PortableText, QKeySequence::NativeText}) {
        for (const QString &spelling : {known, name}) {
            const auto sequence = QKeySequence::fromString(spelling, format);
            if (sequence.count() == 1 && sequence[0].key() != Qt::Key_unknown &&
                sequence[0].keyboardModifiers() == Qt::NoModifier)
                return sequence[0].key();
        }
    }
    return std::nullopt;
}

std::optional<QKeyCombination> strokeFrom(const Stroke &parts)
{
    Qt::KeyboardModifiers modifiers;
    for (const QString &name : parts.first(parts.size() - 1)) {
        const auto modifier = modifierNamed(withoutAlias(folded(name)));
        if (!modifier)
            return std::nullopt;
        modifiers |= modifier->flag;
    }
    const auto key = parts.last().isEmpty() ? std::nullopt : keyNamed(parts.last());
    return key ? std::optional(QKeyCombination(modifiers, *key)) : std::nullopt;
}

bool isShiftOfCharacter(const QKeyEvent &event)
{
    const QString text = event.text();
    return !text.isEmpty() && text[0].isPrint() && !text[0].isLetterOrNumber() &&
           !text[0].isSpace();
}

bool hasMeaning(int key)
{
    switch (key) {
    case 0:
    case Qt::Key_unknown:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
    case Qt::Key_Multi_key:
    case Qt::Key_Mode_switch:
        return false;
    default:
        return key < Qt::Key_Dead_Grave || key > Qt::Key_Dead_Longsolidusoverlay;
    }
}

} // namespace

QString folded(QStringView text)
{
    const bool isPlain =
        std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    if (isPlain)
        return text.toString().toLower();
    QString result;
    for (const QChar c : text.toString().normalized(QString::NormalizationForm_KD).toCaseFolded()) {
        const bool isAccent = c.category() == QChar::Mark_NonSpacing;
        const auto *base = std::find_if(std::begin(kBaseLetters), std::end(kBaseLetters),
                                        [&](const auto &pair) { return c == pair.first; });
        if (c == u'ß')
            result += "ss"_L1;
        else if (base != std::end(kBaseLetters))
            result += QChar(base->second);
        else if (!isAccent)
            result += c;
    }
    return result;
}

std::optional<QKeySequence> sequenceFromText(const QString &text)
{
    if (text.size() > kLongestText)
        return std::nullopt;
    const std::vector<Stroke> strokes = strokesIn(text);
    if (strokes.size() > 4)
        return std::nullopt;
    QKeySequence sequence;
    for (const Stroke &stroke : strokes) {
        const auto combination = stroke.isEmpty() ? std::nullopt : strokeFrom(stroke);
        if (!combination)
            return std::nullopt;
        sequence = withStroke(sequence, *combination);
    }
    return sequence;
}

QString keyWord(const QString &foldedWord)
{
    QStringList modifiers;
    QStringList keys;
    for (const QString &part : foldedWord.split(u'+')) {
        const QString name = withoutAlias(part);
        const auto modifier = modifierNamed(name);
        (modifier ? modifiers : keys) << (modifier ? QString(modifier->name) : name);
    }
    QStringList parts;
    for (const Modifier &modifier : kModifiers) {
        if (modifiers.contains(modifier.name))
            parts << modifier.name;
    }
    return (parts + keys).join(u'+');
}

QString searchableKeys(const QKeySequence &sequence)
{
    if (sequence.isEmpty())
        return QString();
    return folded(sequence.toString(QKeySequence::PortableText)) + u'\n' +
           folded(sequence.toString(QKeySequence::NativeText));
}

std::optional<QKeyCombination> strokeOf(const QKeyEvent &event)
{
    if (!hasMeaning(event.key()))
        return std::nullopt;
    Qt::KeyboardModifiers modifiers = event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier |
                                                           Qt::AltModifier | Qt::MetaModifier);
    if (isShiftOfCharacter(event))
        modifiers &= ~Qt::ShiftModifier;
    if (event.key() == Qt::Key_Backtab) // how the toolkit calls Shift+Tab
        return QKeyCombination(modifiers | Qt::ShiftModifier, Qt::Key_Tab);
    return QKeyCombination(modifiers, static_cast<Qt::Key>(event.key()));
}

QKeySequence withStroke(const QKeySequence &sequence, QKeyCombination stroke)
{
    std::array<int, 4> keys{};
    const auto count = static_cast<std::size_t>(sequence.count());
    for (std::size_t i = 0; i < count; ++i)
        keys.at(i) = sequence[static_cast<uint>(i)].toCombined();
    if (count < keys.size())
        keys.at(count) = stroke.toCombined();
    return {keys[0], keys[1], keys[2], keys[3]};
}

} // namespace menuconfig
