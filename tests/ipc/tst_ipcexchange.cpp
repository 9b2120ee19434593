// SPDX-License-Identifier: GPL-2.0-or-later
// The exchange files as values, and what is decided from them, without files or clocks.
#include "fuzz/checkexchange.h"
#include "ipc/inbox_p.h"
#include "ipc/message_p.h"
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using namespace channel;

namespace {

/// "type|id|parameters|sender|number"; empty for what was refused.
QString textOf(const std::optional<Message> &message)
{
    return message ? u"%1|%2|%3|%4|%5"_s.arg(message->type, message->id, message->parameters,
                                             message->sender, QString::number(message->number))
                   : QString();
}

} // namespace

class TestIPCExchange : public QObject
{
    Q_OBJECT

private slots:
    void readsFiles_data();
    void readsFiles();
    void agreesWithSettings();
    void isIncompleteAtEveryCut();
    void turnsMessagesIntoRecords();
    void neverRepeatsWhateverElseHolds();
    void remembersAnswers();
    void keepsThePromisesOfTheFuzzer();
};

void TestIPCExchange::readsFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    const QByteArray start = "CommandType=NamedCommand\nCommandId=A\n";
    const QString plain = u"NamedCommand|A|X:1,Y:2||0"_s;
    QTest::newRow("three bare keys") << start + "Parameters=X:1,Y:2" << plain;
    QTest::newRow("other line ends, section, comments, blanks, unknown keys")
        << QByteArray("; x\r\n[General]\r\n\r\nCommandType = NamedCommand \r\nCommandId=A\r\n"
                      "# y\r\nColour=red\r\nParameters=\"X:1,Y:2\"\r\n[End]\r\n")
        << plain;
    QTest::newRow("marks: byte order in front, garbage behind the end")
        << "\xef\xbb\xbf" + start + "Parameters=X:1,Y:2\n[End]\ngarbage" << plain;
    for (const char *const text : {"Wei\xc3\x9f", "Wei\xdf", "\"Wei\\xdf\""}) // the last: an escape
        QTest::addRow("any encoding: %s", text)
            << start + "Parameters=" + text << u"NamedCommand|A|Weiß||0"_s;
    for (const char *const end :
         {"Sender=s", "SerialNumber=3", "Sender=s\nSerialNumber=0", "Sender=s\nSerialNumber=-1",
          "Sender=s\nSerialNumber=1x", "Sender=s\nSerialNumber=99999999999999999999",
          "Sender=a]b\nSerialNumber=1", "Parameters=\"X:1", "Parameters=X:1\\", "[Other]", "word",
          "=1", "CommandId="})
        QTest::addRow("refused: %s", end) << start + end << QString();
}

void TestIPCExchange::readsFiles()
{
    QFETCH(const QByteArray, bytes);
    QTEST(textOf(decodeMessage(bytes)), "expected");
}

/// Partners use settings to write, and to read what is written here.
void TestIPCExchange::agreesWithSettings()
{
    for (const QString &value :
         {u"X:1,Y:2"_s, u"a=b;c"_s, u" outer blanks "_s, u"back\\slash and \"quotes\""_s,
          u"line\nend\r\t"_s, u"Straße 雪"_s, u"[End]\n[End]"_s}) {
        const QTemporaryDir dir;
        QSettings theirs(dir.filePath(u"theirs"_s), QSettings::IniFormat);
        theirs.setValue("CommandType"_L1, u"NamedCommand"_s);
        theirs.setValue("CommandId"_L1, u"A"_s);
        theirs.setValue("Parameters"_L1, value);
        theirs.setValue("Sender"_L1, u"s"_s);
        theirs.setValue("SerialNumber"_L1, 7);
        theirs.sync();
        const auto message = decodeMessage(*readFile(theirs.fileName(), kFileLimit));
        QCOMPARE(textOf(message), u"NamedCommand|A|%1|s|7"_s.arg(value));
        QCOMPARE(decodeMessage(encodeMessage(*message)), message);
        QVERIFY(writeFile(dir.filePath(u"ours"_s), encodeMessage(*message)));
        const QSettings ours(dir.filePath(u"ours"_s), QSettings::IniFormat);
        QCOMPARE(ours.value("Parameters"_L1).toString(), value);
        QCOMPARE(ours.value("SerialNumber"_L1).toULongLong(), 7U);
    }
}

void TestIPCExchange::isIncompleteAtEveryCut()
{
    const QByteArray text = encodeMessage({u"NamedCommand"_s, u"A"_s, u"X:1"_s, u"s"_s, 12});
    for (qsizetype size = 0; size < text.trimmed().size(); ++size)
        QVERIFY2(!hasEndMark(text.first(size).right(kEndMarkReach)), text.first(size).constData());
    QVERIFY(hasEndMark("x\r\n[End]\r\n"));
    QVERIFY(!hasEndMark("Parameters=[End]"));
}

void TestIPCExchange::turnsMessagesIntoRecords()
{
    const auto recordOf = [](const QString &type, const QString &id) {
        return commandDataOf({type, id, u"X:1, Y:2,,"_s, QString(), 0});
    };
    // A blank behind the comma is some writers' habit; integer commands have no parameters.
    QCOMPARE(recordOf(u"NamedCommand"_s, u"GotoCoordinates"_s), (KeloCommandData{1, {}, 1, 2}));
    for (const int id : {-1, 0, 1, 999, 4711})
        QCOMPARE(recordOf(u"IntegerCommand"_s, QString::number(id)), (KeloCommandData{id, {}}));
    for (const QString &id : {u"1.5"_s, u"3000000000"_s, u"TestCommand"_s, u""_s})
        QCOMPARE(recordOf(u"IntegerCommand"_s, id), std::nullopt);
    QCOMPARE(recordOf(u"NamedCommand"_s, u"12"_s), std::nullopt);
    QCOMPARE(recordOf(u"OtherCommand"_s, u"TestCommand"_s), std::nullopt);
}

void TestIPCExchange::neverRepeatsWhateverElseHolds()
{
    const auto verdict = [](quint64 number, bool isKnown, qint64 age) {
        const auto data = isKnown ? std::optional(KeloCommandData()) : std::nullopt;
        return judge({{}, {}, {}, {}, number}, data, age, 60, 5);
    };
    QCOMPARE(verdict(6, true, 60), Verdict::Deliver);
    QCOMPARE(verdict(9, true, -99), Verdict::Deliver); // others left out, written in the future
    QCOMPARE(verdict(0, true, 0), Verdict::Deliver);
    QCOMPARE(verdict(5, true, 0), Verdict::Repeat);
    QCOMPARE(verdict(4, false, 99), Verdict::Repeat);
    QCOMPARE(verdict(0, false, 61), Verdict::Leftover);
}

void TestIPCExchange::remembersAnswers()
{
    Answers answers =
        Answers::decode("1=taken\n[a]\r\n7=accepted\n9=refused\nx\n8=maybe\n10=taken\n[]\n1=taken");
    QCOMPARE(answers.encode(), "[a]\n7=accepted\n9=refused\n10=taken\n");
    QCOMPARE(answers.lastNumber(u"a"_s), 10U);
    QCOMPARE(answers.lastAnswered(u"a"_s), 9U);
    QCOMPARE(answers.state(u"a"_s, 8), std::nullopt);
    for (quint64 number = 1; number <= 1000; ++number) // a long life stays small
        answers.set(QString::number(number % 20), number, AnswerState::Accepted);
    QVERIFY(answers.encode().size() < 20'000);
    QCOMPARE(answers.lastNumber(u"19"_s), 999U);
    QCOMPARE(answers.lastNumber(u"a"_s), 0U);
}

void TestIPCExchange::keepsThePromisesOfTheFuzzer()
{
    const auto seeds = QDir(QStringLiteral(KELO_EXCHANGE_CORPUS)).entryInfoList(QDir::Files);
    QVERIFY(!seeds.isEmpty());
    for (const QFileInfo &seed : seeds) {
        qInfo("%s", qPrintable(seed.fileName())); // the last one named is the one that failed
        const std::string bytes = readFile(seed.filePath(), kFileLimit)->toStdString();
        for (std::size_t size = 0; size <= bytes.size(); ++size)
            checkExchange({bytes.data(), size});
    }
}

QTEST_GUILESS_MAIN(TestIPCExchange)
#include "tst_ipcexchange.moc"
