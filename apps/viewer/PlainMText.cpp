// SPDX-License-Identifier: GPL-2.0-or-later
// Takes formatting codes out of texts.
#include "PlainMText.h"

QByteArrayList plainLines(const QByteArray &text)
{
    QByteArrayList lines(1);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '{' || c == '}')
            continue;
        if (c != '\\' || i + 1 == text.size()) {
            lines.last() += c;
            continue;
        }
        const char code = text[++i];
        switch (code) {
        case 'P':
        case 'X':
            lines.append(QByteArray());
            break;
        case '~':
            lines.last() += ' ';
            break;
        case '\\':
        case '{':
        case '}':
            lines.last() += code;
            break;
        case 'U': // a character by its number, or by its place in a character set
        case 'M':
            lines.last() += '\\';
            lines.last() += code;
            break;
        case 'L': // lines under, over and through the words, on and off
        case 'l':
        case 'O':
        case 'o':
        case 'K':
        case 'k':
        case 'N':
            break;
        default: { // font, height, colour and so on, up to a semicolon
            const qsizetype end = text.indexOf(';', i);
            const QByteArray argument = end < 0 ? QByteArray() : text.mid(i + 1, end - i - 1);
            if (code == 'S') // a fraction
                lines.last() += QByteArray(argument).replace('^', '/').replace('#', '/');
            i = end < 0 ? text.size() : end;
        }
        }
    }
    return lines;
}
