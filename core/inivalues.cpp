// SPDX-License-Identifier: GPL-2.0-or-later
// Values of settings as the one text that stands for each, and back.
#include "core/inivalues_p.h"

#include <QDataStream>
#include <QIODevice>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace initext {
namespace {

// How the toolkit marks values that are no plain text.
constexpr QLatin1StringView kInvalid{"@Invalid()"};
constexpr QLatin1StringView kString{"@String("};
constexpr QLatin1StringView kByteArray{"@ByteArray("};
constexpr QLatin1StringView kVariant{"@Variant("};
constexpr QLatin1StringView kDateTime{"@DateTime("};
constexpr QLatin1StringView kRect{"@Rect("};
constexpr QLatin1StringView kSize{"@Size("};
constexpr QLatin1StringView kPoint{"@Point("};
constexpr auto kVariantVersion = QDataStream::Qt_4_0;
constexpr auto kDateTimeVersion = QDataStream::Qt_5_6;

/// The number in front of each blank and ")": those of "@Size(3 -4)". As the toolkit does it, which
/// goes on with the same number behind a ")".
QList<int> numbersIn(QStringView marked, qsizetype from)
{
    QList<int> numbers;
    QString number;
    for (const QChar c : marked.sliced(from)) {
        if (c != u' ' && c != u')') {
            number += c;
            continue;
        }
        numbers << number.toInt();
        if (c == u' ')
            number.clear();
    }
    return numbers;
}

QByteArray bytesIn(QStringView marked, qsizetype from)
{
    return marked.sliced(from).chopped(1).toLatin1();
}

/// An invalid one when the bytes are not those of a value, or of one whose type nobody has made
/// known; then the text around them is not whole.
QVariant streamedValue(const QByteArray &bytes, QDataStream::Version version, bool &isWhole)
{
    QDataStream stream(bytes);
    stream.setVersion(version);
    QVariant value;
    stream >> value;
    isWhole = isWhole && stream.status() == QDataStream::Ok && value.isValid();
    return value;
}

/// The value of a text that begins with "@".
QVariant markedValue(const QString &text, bool &isWhole)
{
    const auto plain = [&] { return QVariant(text.startsWith("@@"_L1) ? text.sliced(1) : text); };
    if (!text.endsWith(u')'))
        return plain();
    if (text.startsWith(kByteArray))
        return bytesIn(text, kByteArray.size());
    if (text.startsWith(kString))
        return text.sliced(kString.size()).chopped(1);
    if (text.startsWith(kVariant))
        return streamedValue(bytesIn(text, kVariant.size()), kVariantVersion, isWhole);
    if (text.startsWith(kDateTime))
        return streamedValue(bytesIn(text, kDateTime.size()), kDateTimeVersion, isWhole);
    if (text.startsWith(kRect)) {
        const QList<int> n = numbersIn(text, kRect.size());
        return n.size() == 4 ? QVariant(QRect(n[0], n[1], n[2], n[3])) : plain();
    }
    if (text.startsWith(kSize)) {
        const QList<int> n = numbersIn(text, kSize.size());
        return n.size() == 2 ? QVariant(QSize(n[0], n[1])) : plain();
    }
    if (text.startsWith(kPoint)) {
        const QList<int> n = numbersIn(text, kPoint.size());
        return n.size() == 2 ? QVariant(QPoint(n[0], n[1])) : plain();
    }
    return text == kInvalid ? QVariant() : plain();
}

QString streamedText(const QVariant &value, QLatin1StringView mark, QDataStream::Version version)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(version);
    stream << value;
    return mark + QString::fromLatin1(bytes) + u')';
}

QString plainText(const QString &text)
{
    if (text.contains(QChar::Null))
        return kString + text + u')';
    return text.startsWith(u'@') ? u'@' + text : text;
}

} // namespace

QVariant valueOf(const QString &text, bool &isWhole)
{
    return text.startsWith(u'@') ? markedValue(text, isWhole) : QVariant(text);
}

QVariant valueOfList(const QStringList &texts, bool &isWhole)
{
    QVariantList values;
    bool isAllText = true;
    for (const QString &text : texts) {
        isAllText = isAllText && (!text.startsWith(u'@') || text.startsWith("@@"_L1));
        values << valueOf(text, isWhole);
    }
    return isAllText ? QVariant(QVariant(values).toStringList()) : QVariant(values);
}

QString textOfValue(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return kInvalid;
    case QMetaType::QByteArray:
        return kByteArray + QString::fromLatin1(value.toByteArray()) + u')';
    case QMetaType::QString:
    case QMetaType::QKeySequence:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Bool:
    case QMetaType::Float:
    case QMetaType::Double:
        return plainText(value.toString());
    case QMetaType::QRect: {
        const QRect r = value.toRect();
        return kRect + u"%1 %2 %3 %4)"_s.arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
    }
    case QMetaType::QSize: {
        const QSize s = value.toSize();
        return kSize + u"%1 %2)"_s.arg(s.width()).arg(s.height());
    }
    case QMetaType::QPoint: {
        const QPoint p = value.toPoint();
        return kPoint + u"%1 %2)"_s.arg(p.x()).arg(p.y());
    }
    case QMetaType::QDateTime:
        return streamedText(value, kDateTime, kDateTimeVersion);
    default:
        return streamedText(value, kVariant, kVariantVersion);
    }
}

} // namespace initext
