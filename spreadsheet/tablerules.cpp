// SPDX-License-Identifier: GPL-2.0-or-later
// What spreadsheet files allow, and how values are spelled in them.
#include "spreadsheet/tablerules_p.h"

#include <QCoreApplication>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace spreadsheet {
namespace {

constexpr qsizetype kNameLength = 31;
constexpr QStringView kForbidden = u"[]:*?/\\";
constexpr int kMillisecondsOfDay = 24 * 60 * 60 * 1000;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Spreadsheet)
};

/// @p name with @p end behind it, as much of the name as there is room for.
QString withEnd(const QString &name, const QString &end)
{
    return cut(name, kNameLength - end.size()).trimmed() + end;
}

bool isAllowed(char32_t c)
{
    const bool isControl = c < 0x20 && c != '\t' && c != '\n' && c != '\r';
    return !isControl && c != 0xFFFE && c != 0xFFFF;
}

} // namespace

QString legalSheetName(const QString &name, const QSet<QString> &taken)
{
    QString legal = mended(name).value_or(name).simplified();
    for (QChar &c : legal)
        if (kForbidden.contains(c))
            c = u'_';
    // An apostrophe quotes names in formulas, and "History" is the programs' own.
    if (legal.startsWith(u'\''))
        legal[0] = u'_';
    legal = cut(legal, kNameLength).trimmed();
    if (legal.endsWith(u'\''))
        legal.back() = u'_';
    if (legal.isEmpty())
        legal = Texts::tr("Sheet");
    if (legal.compare("History"_L1, Qt::CaseInsensitive) == 0)
        legal += u'_';
    QString unique = legal;
    for (int number = 2; taken.contains(unique.toLower()); ++number)
        unique = withEnd(legal, u" (%1)"_s.arg(number));
    return unique;
}

QString continuedName(const QString &name, int number)
{
    return withEnd(name, u" %1"_s.arg(number));
}

QString cellName(qint64 row, int column)
{
    QString letters;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / 26)
        letters.prepend(QChar(u'A' + (rest - 1) % 26));
    return letters + QString::number(row + 1);
}

std::optional<double> serialOf(QDate date, DayCount count)
{
    static const QDate first(1900, 1, 1);
    static const QDate last(9999, 12, 31);
    static const QDate afterTheGap(1900, 3, 1); // the first program took 1900 for a leap year
    if (!date.isValid() || date < first || date > last)
        return std::nullopt;
    const qint64 days = first.daysTo(date) + 1;
    const bool skipsTheGap = date >= afterTheGap || count == DayCount::True;
    return static_cast<double>(skipsTheGap ? days + 1 : days);
}

double serialOf(QTime time)
{
    return double(time.msecsSinceStartOfDay()) / kMillisecondsOfDay;
}

std::optional<QString> mended(const QString &text)
{
    const auto isSuspect = [](QChar c) { return c < u' ' || c >= QChar(0xD800); };
    if (std::ranges::none_of(text, isSuspect))
        return std::nullopt;
    QString whole;
    bool isWhole = true;
    for (const char32_t c : text.toUcs4()) {
        const bool isGood = isAllowed(c) && !QChar::isSurrogate(c);
        whole += isGood ? QString::fromUcs4(&c, 1) : QString(QChar::ReplacementCharacter);
        isWhole &= isGood;
    }
    return isWhole && whole == text ? std::nullopt : std::optional(whole);
}

QString cut(const QString &text, qsizetype characters)
{
    if (text.size() <= characters)
        return text;
    qsizetype length = std::max<qsizetype>(characters, 0);
    if (length > 0 && text[length].isLowSurrogate())
        --length;
    return text.first(length);
}

bool looksLikeFormula(QStringView text)
{
    constexpr QStringView kBegins = u"=+-@\t\r";
    return !text.isEmpty() && kBegins.contains(text.front());
}

QString isoText(QDate date)
{
    return date.toString(Qt::ISODate);
}

QString isoText(QTime time)
{
    return time.toString(time.msec() == 0 ? Qt::ISODate : Qt::ISODateWithMs);
}

QString isoText(const QDateTime &time)
{
    return time.isValid() ? isoText(time.date()) + u' ' + isoText(time.time()) : QString();
}

QString Sentence(const Finding &finding)
{
    const int n = static_cast<int>(std::min<qint64>(finding.count, INT_MAX));
    QString sentence;
    switch (finding.kind) {
    case FindingKind::TextCut:
        sentence = n == 1
                       ? Texts::tr("A text of more than 32,767 characters was cut")
                       : Texts::tr("%n texts of more than 32,767 characters were cut", nullptr, n);
        break;
    case FindingKind::TextMended:
        sentence = n == 1
                       ? Texts::tr("A text held characters that a file cannot hold")
                       : Texts::tr("%n texts held characters that a file cannot hold", nullptr, n);
        break;
    case FindingKind::TextGuarded:
        sentence =
            n == 1 ? Texts::tr("A text that looks like a formula got an apostrophe")
                   : Texts::tr("%n texts that look like formulas got an apostrophe", nullptr, n);
        break;
    case FindingKind::LinkAsText:
        sentence = n == 1 ? Texts::tr("A link that the sheet has no room for is plain text")
                          : Texts::tr("%n links that the sheet has no room for are plain text",
                                      nullptr, n);
        break;
    case FindingKind::LongNumberAsText:
        sentence = n == 1 ? Texts::tr("A number of more than 15 digits was written as text")
                          : Texts::tr("%n numbers of more than 15 digits were written as text",
                                      nullptr, n);
        break;
    case FindingKind::NumberLeftOut:
        sentence =
            n == 1 ? Texts::tr("A value that is no finite number was left empty")
                   : Texts::tr("%n values that are no finite numbers were left empty", nullptr, n);
        break;
    case FindingKind::DateAsText:
        sentence = n == 1 ? Texts::tr("A date before 1900 or after 9999 was written as text")
                          : Texts::tr("%n dates before 1900 or after 9999 were written as text",
                                      nullptr, n);
        break;
    case FindingKind::SheetContinued:
        sentence = n == 1 ? Texts::tr("A sheet was full and goes on in another one")
                          : Texts::tr("Full sheets go on in %n others", nullptr, n);
        break;
    case FindingKind::SheetRenamed:
        sentence = n == 1 ? Texts::tr("The name of a sheet was not allowed and was changed")
                          : Texts::tr("The names of %n sheets were not allowed and were changed",
                                      nullptr, n);
        break;
    case FindingKind::ColumnsLeftOut:
        sentence = n == 1 ? Texts::tr("A column beyond the last one of a sheet was left out")
                          : Texts::tr("%n columns beyond the last one of a sheet were left out",
                                      nullptr, n);
        break;
    }
    return Texts::tr("%1 (%2).").arg(sentence, finding.first);
}

} // namespace spreadsheet
