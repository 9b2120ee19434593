// SPDX-License-Identifier: GPL-2.0-or-later
// Unix: a function of ours goes before the toolkit's of that name.
#include "tests/support/ScreenReader.h"

#include <QAccessible>
#include <QLabel>

using namespace Qt::Literals::StringLiterals;

QStringList &toldScreenReaders()
{
    static QStringList told;
    return told;
}

QStringList &readByScreenReaders()
{
    static QStringList read;
    return read;
}

/// Takes the place of the toolkit's, which tells nobody where the platform has no screen reader.
void QAccessible::updateAccessibility(QAccessibleEvent *event)
{
    QStringList &told = toldScreenReaders();
    const auto *label = qobject_cast<QLabel *>(event->object());
    if (event->type() == Alert && label)
        readByScreenReaders() << label->text();
    if (event->type() == NameChanged)
        told << u"name"_s;
    if (event->type() != StateChanged)
        return;
    const State changed = static_cast<QAccessibleStateChangeEvent *>(event)->changedStates();
    told << (changed.checked ? u"check"_s : changed.disabled ? u"enabled"_s : u"else"_s);
}
