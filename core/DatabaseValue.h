// SPDX-License-Identifier: GPL-2.0-or-later
// The types of C++ that a database keeps, and what they are there.
#pragma once

#include <kelo_base/core/Export.h>
#include <kelo_base/core/ObjectId.h>

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QVariant>
#include <limits>
#include <optional>

/// How values of a type are kept, to the last bit. A type of your own gets a specialisation.
///
///     bool BOOLEAN, int and qint64 BIGINT, double DOUBLE PRECISION (no NaN; -0.0 becomes 0.0),
///     QString TEXT (whole characters, no NUL; a null text is kept as an empty one), QByteArray
///     BYTEA, QDateTime TEXT, Tz::ObjectId VARCHAR(25), std::optional of any of them NULL when
///     there is none
template <class T>
struct DatabaseValue;

/// What most types have in common: all values can be kept, and QVariant takes them.
template <class T>
struct DatabasePlainValue
{
    static constexpr bool kIsText = false; ///< ordered by code points
    static bool IsStorable(const T &) { return true; }
    static QVariant ToStored(const T &value) { return QVariant(value); }
};

template <>
struct DatabaseValue<bool> : DatabasePlainValue<bool>
{
    static std::optional<bool> FromStored(const QVariant &stored) { return stored.toBool(); }
};

template <>
struct DatabaseValue<qint64> : DatabasePlainValue<qint64>
{
    static std::optional<qint64> FromStored(const QVariant &stored)
    {
        bool isNumber = false;
        const qint64 value = stored.toLongLong(&isNumber);
        return isNumber ? std::optional(value) : std::nullopt;
    }
};

template <>
struct DatabaseValue<int> : DatabasePlainValue<int>
{
    static std::optional<int> FromStored(const QVariant &stored)
    {
        const auto value = DatabaseValue<qint64>::FromStored(stored);
        const bool isInRange = value && *value >= std::numeric_limits<int>::min() &&
                               *value <= std::numeric_limits<int>::max();
        return isInRange ? std::optional(static_cast<int>(*value)) : std::nullopt;
    }
};

template <>
struct DatabaseValue<double> : DatabasePlainValue<double>
{
    static bool IsStorable(double value) { return value == value; }
    /// The embedded database keeps no sign of zero, so that nobody does.
    static QVariant ToStored(double value) { return value == 0 ? 0.0 : value; }
    static std::optional<double> FromStored(const QVariant &stored)
    {
        bool isNumber = false;
        const double value = stored.toDouble(&isNumber);
        return isNumber ? std::optional(value) : std::nullopt;
    }
};

template <>
struct DatabaseValue<QString>
{
    static constexpr bool kIsText = true;
    static bool IsStorable(const QString &value)
    {
        return value.isValidUtf16() && !value.contains(QChar::Null);
    }
    static QVariant ToStored(const QString &value)
    {
        return value.isNull() ? QString(QLatin1StringView("")) : value;
    }
    static std::optional<QString> FromStored(const QVariant &stored) { return stored.toString(); }
};

template <>
struct DatabaseValue<QByteArray> : DatabasePlainValue<QByteArray>
{
    static QVariant ToStored(const QByteArray &value)
    {
        return value.isNull() ? QByteArray("") : value;
    }
    static std::optional<QByteArray> FromStored(const QVariant &stored)
    {
        return stored.toByteArray();
    }
};

/// "2026-11-25T08:41:43.123Z Europe/Berlin": the moment in UTC, which orders them, then what the
/// time was given in: nothing for UTC, "local", an offset in seconds, or the name of a zone, which
/// counts as UTC where nobody knows it. Years 0 ... 9999.
template <>
struct KELO_BASE_EXPORT DatabaseValue<QDateTime>
{
    static constexpr bool kIsText = true;
    static bool IsStorable(const QDateTime &value);
    static QVariant ToStored(const QDateTime &value);
    static std::optional<QDateTime> FromStored(const QVariant &stored);
};

template <>
struct DatabaseValue<Tz::ObjectId>
{
    static constexpr bool kIsText = true;
    static bool IsStorable(const Tz::ObjectId &) { return true; }
    static QVariant ToStored(const Tz::ObjectId &value)
    {
        return QString::fromLatin1(value.c_str());
    }
    static std::optional<Tz::ObjectId> FromStored(const QVariant &stored)
    {
        return Tz::ObjectId(stored.toString().toLatin1().constData());
    }
};

template <class T>
struct DatabaseValue<std::optional<T>>
{
    static constexpr bool kIsText = DatabaseValue<T>::kIsText;
    static bool IsStorable(const std::optional<T> &value)
    {
        return !value || DatabaseValue<T>::IsStorable(*value);
    }
    static QVariant ToStored(const std::optional<T> &value)
    {
        return value ? DatabaseValue<T>::ToStored(*value) : QVariant();
    }
    /// Never asked about NULL.
    static std::optional<std::optional<T>> FromStored(const QVariant &stored)
    {
        const auto value = DatabaseValue<T>::FromStored(stored);
        return value ? std::optional(value) : std::nullopt;
    }
};
