// SPDX-License-Identifier: GPL-2.0-or-later
// Sheet addresses as texts; a "#" in a file's name is written "%23", and "%" as "%25".
#include "SheetAddress.h"

using namespace Qt::Literals::StringLiterals;

QString SheetAddress::toText() const
{
    QString text = plan;
    text.replace(u'%', "%25"_L1).replace(u'#', "%23"_L1);
    return sheet.isEmpty() ? text : text + u'#' + sheet;
}

SheetAddress SheetAddress::fromText(const QString &text)
{
    const qsizetype mark = text.indexOf(u'#');
    SheetAddress address{text.left(mark), mark < 0 ? QString() : text.mid(mark + 1)};
    address.plan.replace("%23"_L1, "#"_L1).replace("%25"_L1, "%"_L1);
    return address;
}
