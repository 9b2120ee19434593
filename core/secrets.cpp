// SPDX-License-Identifier: GPL-2.0-or-later
// Takes out of command lines what others must not read.
#include "core/secrets_p.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QLatin1StringView kHidden{"***"};

/// An option whose value is the next argument.
bool namesSecret(const QString &argument)
{
    static const QRegularExpression option(
        uR"(^[-/]{1,2}[\w.-]*(pass(word|wd|phrase)?|pwd|secret|token|api-?key)$)"_s,
        QRegularExpression::CaseInsensitiveOption);
    return option.match(argument).hasMatch();
}

QString withoutSecretsInside(QString argument)
{
    static const QRegularExpression setting(
        uR"(((?:pass(?:word|wd|phrase)?|pwd|secret|token|api[-_]?key)\s*[=:]\s*)('[^']*'|"[^"]*"|[^\s;&]+))"_s,
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression inUrl(uR"((\w://[^/\s:@]*:)[^/\s]*(?=@))"_s);
    argument.replace(setting, u"\\1"_s + kHidden);
    argument.replace(inUrl, u"\\1"_s + kHidden);
    return argument;
}

} // namespace

QStringList withoutSecrets(const QStringList &arguments)
{
    QStringList result;
    bool isSecret = false;
    for (const QString &argument : arguments) {
        result << (isSecret ? QString(kHidden) : withoutSecretsInside(argument));
        isSecret = namesSecret(argument);
    }
    return result;
}
