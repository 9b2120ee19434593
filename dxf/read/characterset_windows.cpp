// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: the toolkit knows Unicode and Latin-1 alone, the system a number for each of the others.
#include "dxf/read/characterset_p.h"

#include <QStringDecoder>
#include <QStringEncoder>
#include <array>
#include <string_view>
#include <windows.h>

namespace characterset {
namespace {

struct Page
{
    std::string_view name; ///< in lower case
    UINT number;
};
constexpr std::array kNamed{
    Page{"windows-31j", 932},
    Page{"macintosh", 10000},
    Page{"koi8-r", 20866},
    Page{"koi8-u", 21866},
};
/// Before a number, and what is added to it.
constexpr std::array kNumbered{
    Page{"windows-", 0}, Page{"ibm-", 0}, Page{"ibm", 0}, Page{"cp", 0}, Page{"iso-8859-", 28590},
};

/// 0 when the system has none of that name.
UINT pageOf(const QByteArray &name)
{
    const QByteArray plain = name.toLower();
    for (const Page &page : kNamed)
        if (plain == QByteArrayView(page.name))
            return page.number;
    for (const Page &prefix : kNumbered) {
        if (!plain.startsWith(QByteArrayView(prefix.name)))
            continue;
        bool isNumber = false;
        const UINT number =
            plain.sliced(static_cast<qsizetype>(prefix.name.size())).toUInt(&isNumber);
        if (isNumber && IsValidCodePage(prefix.number + number))
            return prefix.number + number;
    }
    return 0;
}

bool isToolkits(const QByteArray &name)
{
    return QStringDecoder(name.constData()).isValid();
}

/// Nothing when there is anything in it that is no character.
QString wholeText(QByteArrayView bytes, UINT page)
{
    const int size = static_cast<int>(bytes.size());
    std::wstring wide(static_cast<std::size_t>(size), L'\0'); // no set needs more
    const int length =
        MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, bytes.data(), size, wide.data(), size);
    return QString::fromWCharArray(wide.data(), length);
}

/// Character by character.
QString readableText(QByteArrayView bytes, UINT page)
{
    QString text;
    while (!bytes.isEmpty()) {
        const bool isPair = IsDBCSLeadByteEx(page, static_cast<BYTE>(bytes[0])) && bytes.size() > 1;
        const QString character = wholeText(bytes.first(isPair ? 2 : 1), page);
        const bool isRead = !character.isEmpty();
        text += isRead ? character : QString(QChar(QChar::ReplacementCharacter));
        bytes = bytes.sliced(isRead && isPair ? 2 : 1);
    }
    return text;
}

} // namespace

bool isKnown(const QByteArray &name)
{
    return isToolkits(name) || pageOf(name) != 0;
}

QString decoded(QByteArrayView bytes, const QByteArray &name)
{
    if (isToolkits(name))
        return QStringDecoder(name.constData())(bytes);
    const UINT page = pageOf(name);
    if (page == 0 || bytes.isEmpty())
        return {};
    const QString whole = wholeText(bytes, page);
    return whole.isEmpty() ? readableText(bytes, page) : whole;
}

QByteArray encoded(const QString &text, const QByteArray &name)
{
    if (isToolkits(name))
        return QStringEncoder(name.constData())(text);
    const std::wstring wide = text.toStdWString();
    const int count = static_cast<int>(wide.size());
    QByteArray bytes(2 * wide.size(), Qt::Uninitialized); // no set needs more
    const int size =
        WideCharToMultiByte(pageOf(name), WC_NO_BEST_FIT_CHARS, wide.data(), count, bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.truncate(size);
    return bytes;
}

} // namespace characterset
