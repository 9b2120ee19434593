// SPDX-License-Identifier: GPL-2.0-or-later
// Texts that several parts of the configuration share.
#pragma once

#include <QCoreApplication>
#include <QKeySequence>
#include <QSettings>
#include <QString>

namespace menuconfig {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(MenuConfigTexts)

public:
    static QString functionNumber(int id) { return tr("Function %1").arg(id); }
    static QString contextGroup(int number) { return tr("group %1").arg(number); }
    static QString subContext(int number) { return tr("sub-context %1").arg(number); }
    static QString someModes() { return tr("some modes"); }
    static QString everywhere() { return tr("everywhere"); }
    static QString noShortcut() { return tr("none", "shortcut"); }
    static QString shortcut(const QKeySequence &sequence)
    {
        return sequence.isEmpty() ? noShortcut() : sequence.toString(QKeySequence::NativeText);
    }
    /// Brings to the disk what was done in the store; one sentence when that failed.
    static QString sync(QSettings &store)
    {
        store.sync();
        return store.status() == QSettings::NoError
                   ? QString()
                   : tr("%1 could not be written.").arg(store.fileName());
    }
};

} // namespace menuconfig
