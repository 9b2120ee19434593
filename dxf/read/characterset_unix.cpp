// SPDX-License-Identifier: GPL-2.0-or-later
// Unix: the toolkit knows all character sets.
#include "dxf/read/characterset_p.h"

#include <QStringDecoder>
#include <QStringEncoder>

namespace characterset {

bool isKnown(const QByteArray &name)
{
    return QStringDecoder(name.constData()).isValid();
}

QString decoded(QByteArrayView bytes, const QByteArray &name)
{
    QStringDecoder decoder(name.constData());
    return decoder.isValid() ? QString(decoder(bytes)) : QString();
}

QByteArray encoded(const QString &text, const QByteArray &name)
{
    return QStringEncoder(name.constData())(text);
}

} // namespace characterset
