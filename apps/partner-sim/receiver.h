// SPDX-License-Identifier: GPL-2.0-or-later
// The simulator's way of receiving.
#pragma once

#include "exchange.h"
#include "options.h"

#include <QFile>

/// Claims "kelo-out.txt", prints what it says and answers.
///
/// With a journal, effect and number are written in one step: each command gets in there exactly
/// once, whenever this program or the other one dies.
class Receiver
{
public:
    explicit Receiver(const Options &options);

    void poll();

private:
    void carryOut(const QMap<QString, QString> &fields);
    void answer(const QString &sender, quint64 number, const QString &state);

    const Options &m_options;
    QString m_file;
    QString m_answersFile;
    QFile m_journal;
    QMap<QString, quint64> m_last;                   ///< the highest number that took effect
    QMap<QString, QMap<quint64, QString>> m_answers; ///< by sender and number
};

/// The highest number of each sender in a journal, of which a last line without an end is cut off.
QMap<QString, quint64> readJournal(QFile &journal);
