// SPDX-License-Identifier: GPL-2.0-or-later
// Faults said once while they last, and again when they come back.
#pragma once

#include <QMap>
#include <QString>

namespace channel {

class FaultLog
{
public:
    /// One debug line, unless the fault of this file was said and has not gone since.
    void say(const QString &file, const QString &line);
    /// Nothing is wrong with the file any more.
    void clear(const QString &file) { m_standing.remove(file); }
    /// One debug line about what happened and is over.
    static void tell(const QString &line);

private:
    QMap<QString, QString> m_standing; ///< by file
};

} // namespace channel
