// SPDX-License-Identifier: GPL-2.0-or-later
// The types of C++ that a database keeps, and what they are there.
#include <kelo_base/core/DatabaseValue.h>

#include <QTimeZone>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype kMomentLength = 24; // 2026-11-25T08:41:43.123Z
constexpr QLatin1StringView kLocal{"local"};

QString givenIn(const QDateTime &value)
{
    switch (value.timeSpec()) {
    case Qt::LocalTime:
        return kLocal;
    case Qt::UTC:
        return {};
    case Qt::OffsetFromUTC:
        return QString::number(value.offsetFromUtc());
    case Qt::TimeZone:
        return QString::fromLatin1(value.timeZone().id());
    }
    return {};
}

} // namespace

bool DatabaseValue<QDateTime>::IsStorable(const QDateTime &value)
{
    const int year = value.toUTC().date().year();
    return value.isValid() && year >= 0 && year <= 9999;
}

QVariant DatabaseValue<QDateTime>::ToStored(const QDateTime &value)
{
    const QString moment = value.toUTC().toString(Qt::ISODateWithMs);
    const QString zone = givenIn(value);
    return zone.isEmpty() ? moment : QString(moment + u' ' + zone);
}

std::optional<QDateTime> DatabaseValue<QDateTime>::FromStored(const QVariant &stored)
{
    const QString text = stored.toString();
    const QDateTime moment = QDateTime::fromString(text.left(kMomentLength), Qt::ISODateWithMs);
    if (!moment.isValid())
        return std::nullopt;
    const QString zone = text.mid(kMomentLength + 1);
    if (zone == kLocal)
        return moment.toLocalTime();
    bool isOffset = false;
    const int offset = zone.toInt(&isOffset);
    if (isOffset)
        return moment.toOffsetFromUtc(offset);
    const QTimeZone named(zone.toLatin1());
    return zone.isEmpty() || !named.isValid() ? moment.toUTC() : moment.toTimeZone(named);
}
