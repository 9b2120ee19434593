// SPDX-License-Identifier: GPL-2.0-or-later
// The simulator's way of sending.
#include "sender.h"

#include <QFile>
#include <QThread>
#include <cstdlib>
#include <utility>

using namespace Qt::Literals::StringLiterals;

Sender::Sender(const Options &options, QList<Command> commands)
    : m_options(options),
      m_file(options.directory + u"/kelo-in.txt"_s),
      m_answersFile(options.directory + u"/kelo-in-answers.txt"_s),
      m_commands(std::move(commands))
{
    const auto answers = fieldsOf(readFile(m_answersFile));
    for (const auto &[key, state] : answers.asKeyValueRange())
        if (key.section(u'/', 0, 0) == m_options.sender && state != "taken"_L1)
            m_next = std::max(m_next, key.section(u'/', 1).toLongLong());
}

void Sender::poll()
{
    if (m_isWaiting)
        seeAnswer();
    else if (m_next < m_commands.size() && !QFile::exists(m_file))
        write(m_commands[m_next]);
}

void Sender::write(const Command &command)
{
    const bool isPlain = m_options.manner == Manner::Plain;
    const QByteArray text = commandText(command, m_options.sender, isPlain ? 0 : number());
    if (m_options.manner == Manner::Careful) {
        if (!writeFile(m_file, text))
            return; // the directory is gone: try again
    } else {
        QFile file(m_file);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return;
        for (qsizetype i = 0; i < text.size(); ++i) {
            file.write(text.constData() + i, 1);
            if (m_options.manner == Manner::Half && i > text.size() / 2)
                std::_Exit(3);
            if (m_options.manner == Manner::Bytes)
                QThread::msleep(5);
        }
    }
    m_isWaiting = true;
    m_sent.start();
}

void Sender::seeAnswer()
{
    const bool isTaken = !QFile::exists(m_file);
    const auto answers = fieldsOf(readFile(m_answersFile));
    const QString state = answers.value(m_options.sender + u'/' + QString::number(number()));
    if (m_options.manner == Manner::Plain && isTaken) {
        finish(u"taken"_s); // that is all one learns without numbers
    } else if (state == "accepted"_L1 || state == "refused"_L1) {
        finish(state);
    } else if (m_sent.hasExpired(m_options.silence)) {
        if (m_options.repeats)
            m_isWaiting = false; // the same number again
        else if (isTaken || QFile::remove(m_file))
            finish(u"silence"_s);
    }
}

void Sender::finish(const QString &outcome)
{
    print({{u"event"_s, outcome}, {u"number"_s, QString::number(number())}}, m_options.isJson);
    m_hasFailed |= outcome == "refused"_L1 || outcome == "silence"_L1;
    m_isWaiting = false;
    ++m_next;
}
