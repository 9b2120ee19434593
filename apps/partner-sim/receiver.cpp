// SPDX-License-Identifier: GPL-2.0-or-later
// The simulator's way of receiving.
#include "receiver.h"

#include <QDateTime>
#include <QFileInfo>
#include <QTemporaryFile>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kKeptAnswers = 32;
constexpr qint64 kLeftoverSeconds = 60;

/// By the clock of the file system, which need not be this computer's.
qint64 ageInSeconds(const QString &path)
{
    const QFileInfo file(path);
    QTemporaryFile probe(file.path() + u"/kelo-data-clock-XXXXXX"_s);
    const QDateTime now = probe.open() ? probe.fileTime(QFileDevice::FileModificationTime)
                                       : QDateTime::currentDateTime();
    return file.lastModified().secsTo(now);
}

} // namespace

Receiver::Receiver(const Options &options)
    : m_options(options),
      m_file(options.directory + u"/kelo-out.txt"_s),
      m_answersFile(options.directory + u"/kelo-out-answers.txt"_s),
      m_journal(options.journal)
{
    const auto answers = fieldsOf(readFile(m_answersFile));
    for (const auto &[key, state] : answers.asKeyValueRange()) {
        const QString sender = key.section(u'/', 0, 0);
        const quint64 number = key.section(u'/', 1).toULongLong();
        m_answers[sender][number] = state;
        m_last[sender] = std::max(m_last[sender], number);
    }
    if (!options.journal.isEmpty() && m_journal.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        m_last = readJournal(m_journal);
}

void Receiver::poll()
{
    const QString claimed = m_file + u".claimed"_s;
    if (!QFile::exists(claimed) && !renameFile(m_file, claimed))
        return;
    QFile file(claimed);
    const bool isFile = QFileInfo(claimed).isFile(); // a pipe would be opened once somebody writes
    if (!isFile || !file.open(QIODevice::ReadOnly))
        return; // the directory is away: once it is back the command is, too
    const qint64 age = ageInSeconds(claimed);
    const auto fields = fieldsOf(file.readAll());
    file.close();
    const QString sender = fields.value(u"Sender"_s);
    const quint64 number = fields.value(u"SerialNumber"_s).toULongLong();
    const bool isRepeated = number != 0 && number <= m_last.value(sender);
    if (!isRepeated)
        answer(sender, number, u"taken"_s);
    QFile::remove(claimed);
    if (isRepeated && m_journal.isOpen())
        answer(sender, number, u"accepted"_s); // the answer may have been lost with this program
    if (isRepeated)
        return;
    const bool isRefused = m_options.refuses || age > kLeftoverSeconds;
    if (!isRefused)
        carryOut(fields);
    answer(sender, number, isRefused ? u"refused"_s : u"accepted"_s);
    m_last[sender] = number;
}

void Receiver::carryOut(const QMap<QString, QString> &fields)
{
    const QString id = fields.value(u"CommandId"_s);
    const QString parameters = fields.value(u"Parameters"_s);
    const QString number = fields.value(u"SerialNumber"_s);
    if (m_journal.isOpen())
        m_journal.write(
            (QStringList{fields.value(u"Sender"_s), number, id, parameters}.join(u' ') + u'\n')
                .toUtf8());
    print({{u"event"_s, u"received"_s},
           {u"id"_s, id},
           {u"number"_s, number},
           {u"parameters"_s, parameters}},
          m_options.isJson);
}

void Receiver::answer(const QString &sender, quint64 number, const QString &state)
{
    if (number == 0)
        return;
    auto &states = m_answers[sender];
    states[number] = state;
    while (states.size() > kKeptAnswers)
        states.erase(states.begin());
    QByteArray text;
    for (const auto &[name, numbers] : m_answers.asKeyValueRange()) {
        text += '[' + name.toUtf8() + "]\n";
        for (const auto &[key, value] : numbers.asKeyValueRange())
            text += QByteArray::number(key) + '=' + value.toUtf8() + '\n';
    }
    writeFile(m_answersFile, text);
}

QMap<QString, quint64> readJournal(QFile &journal)
{
    QMap<QString, quint64> last;
    const QByteArray text = journal.readAll();
    const qsizetype whole = text.lastIndexOf('\n') + 1;
    journal.resize(whole); // what follows was being written when this program died
    journal.seek(whole);
    for (const QByteArray &line : text.first(whole).split('\n')) {
        const QByteArrayList words = line.split(' ');
        if (words.size() >= 2)
            last[QString::fromUtf8(words[0])] = words[1].toULongLong();
    }
    return last;
}
