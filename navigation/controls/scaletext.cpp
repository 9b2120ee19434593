// SPDX-License-Identifier: GPL-2.0-or-later
// Scales, lengths and angles as people write them, and the lengths of a scale bar.
#include "navigation/controls/scaletext_p.h"

#include <QRegularExpression>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace navcontrols {

namespace {

constexpr double kLeastScale = 0.001;
constexpr double kMostScale = 1e9;
constexpr double kMostMetres = 1e9;

/// The number of a scale, whatever the country: what separates thousands is seen by its groups.
std::optional<double> scalePart(QStringView text)
{
    static const QRegularExpression grouped(
        uR"(^[0-9]{1,3}(?<mark>[.,'\x{2019}\x{00A0}\x{202F} ])[0-9]{3}(\k<mark>[0-9]{3})*$)"_s);
    static const QRegularExpression marks(uR"([.,'\x{2019}\x{00A0}\x{202F} ])"_s);
    QString plain = text.trimmed().toString();
    if (grouped.match(plain).hasMatch())
        plain.remove(marks);
    plain.replace(u',', u'.');
    static const QRegularExpression number(uR"(^[0-9]+(\.[0-9]*)?$)"_s);
    bool isNumber = number.match(plain).hasMatch();
    const double value = isNumber ? plain.toDouble(&isNumber) : 0;
    return isNumber && value > 0 ? std::optional(value) : std::nullopt;
}

/// By the locale's rules, else by those of programs.
std::optional<double> localeNumber(const QString &text, const QLocale &locale)
{
    bool isNumber = false;
    double value = locale.toDouble(text, &isNumber);
    if (!isNumber)
        value = QLocale::c().toDouble(text, &isNumber);
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// So many decimals that @p digits digits tell something.
int decimalsFor(double value, int digits)
{
    const double size = value > 0 ? std::floor(std::log10(value)) : 0;
    return static_cast<int>(std::clamp(digits - 1 - size, 0.0, 6.0));
}

/// Without the noughts that tell nothing behind the point.
QString shortNumber(double value, const QLocale &locale, int digits)
{
    QString text = locale.toString(value, 'f', decimalsFor(value, digits));
    if (const QString point = locale.decimalPoint(); text.contains(point)) {
        while (text.endsWith(locale.zeroDigit()))
            text.chop(locale.zeroDigit().size());
        if (text.endsWith(point))
            text.chop(point.size());
    }
    return text;
}

} // namespace

std::optional<double> parseScale(QStringView text)
{
    const qsizetype colon = text.indexOf(u':');
    const auto left = colon < 0 ? std::optional(1.0) : scalePart(text.left(colon));
    const auto right = scalePart(text.mid(colon + 1));
    if (!left || !right)
        return std::nullopt;
    const double scale = *right / *left;
    return scale >= kLeastScale && scale <= kMostScale ? std::optional(scale) : std::nullopt;
}

QString scaleText(double scale, const QLocale &locale)
{
    return u"1 : "_s + shortNumber(scale, locale, 3);
}

std::optional<double> parseQuantity(QStringView text, QStringView unit, const QLocale &locale)
{
    text = text.trimmed();
    if (!unit.isEmpty() && text.endsWith(unit, Qt::CaseInsensitive))
        text = text.chopped(unit.size()).trimmed();
    return localeNumber(text.toString(), locale);
}

std::optional<double> parseLength(QStringView text, const QLocale &locale)
{
    const bool isKilometres = text.trimmed().endsWith(u"km", Qt::CaseInsensitive);
    const auto number = parseQuantity(text, isKilometres ? u"km" : u"m", locale);
    if (!number)
        return std::nullopt;
    const double metres = isKilometres ? *number * 1000 : *number;
    return metres > 0 && metres <= kMostMetres ? std::optional(metres) : std::nullopt;
}

QString lengthText(double metres, const QLocale &locale)
{
    constexpr double kFirstInKilometres = 9'999.5; // the least that would round to five figures
    if (metres >= kFirstInKilometres)
        return shortNumber(metres / 1000, locale, 3) + u" km"_s;
    return shortNumber(metres, locale, 3) + u" m"_s;
}

std::optional<ScaleBar> scaleBar(double metresPerPixel, double room)
{
    const double most = metresPerPixel * room;
    if (!(metresPerPixel > 0) || !(most > 0) || !std::isfinite(most))
        return std::nullopt;
    constexpr double kRounding = 1 + 1e-9; // 1000 may come as 999.9999999
    const double power = std::pow(10, std::floor(std::log10(most * kRounding)));
    double metres = power;
    for (const double factor : {2.0, 5.0})
        if (factor * power <= most * kRounding)
            metres = factor * power;
    return ScaleBar{metres, metres / metresPerPixel};
}

QString scaleBarText(double metres, const QLocale &locale)
{
    constexpr double kFirstInKilometres = 999.5;
    const bool isLong = metres >= kFirstInKilometres;
    return shortNumber(isLong ? metres / 1000 : metres, locale, 1) + (isLong ? u" km"_s : u" m"_s);
}

} // namespace navcontrols
