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
    if (!message)
        return {};
    return QStringList{message->type, message->id, message->parameters, message->sender,
                       QString::number(message->number)}
        .join(u'|');
}

} // namespace

class TestIPCExchange : public QObject
{
    Q_OBJECT

private slots:
    void readsFiles_data();
    void readsFiles();
    void agreesWithSettings_data();
    void agreesWithSettings();
    void isIncompleteAtEveryCut();
    void knowsWholeFiles();
    void turnsMessagesIntoRecords();
    void judges_data();
    void judges();
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
    QTest::newRow("byte-order mark") << "\xef\xbb\xbf" + start + "Parameters=X:1,Y:2" << plain;
    QTest::newRow("behind the end mark") << start + "Parameters=X:1,Y:2\n[End]\ngarbage" << plain;
    for (const char *const text : {"Wei\xc3\x9f", "Wei\xdf", "\"Wei\\xdf\""}) // the last: an escape
        QTest::addRow("any encoding: %s", text)
            << start + "Parameters=" + text << u"NamedCommand|A|Weiß||0"_s;
    QTest::newRow("numbered") << start + "Sender=s-1\nSerialNumber=12"
                              << u"NamedCommand|A||s-1|12"_s;
    for (const char *const end :
         {"Sender=s", "SerialNumber=3", "Sender=s\nSerialNumber=0", "Sender=s\nSerialNumber=-1",
          "Sender=s\nSerialNumber=1x", "Sender=s\nSerialNumber=99999999999999999999",
          "Sender=a]b\nSerialNumber=1", "Parameters=\"X:1", "Parameters=X:1\\", "[Other]", "word",
          "=1", "CommandId="})
        QTest::addRow("refused: %s", end) << start + end << QString();
    QTest::newRow("empty") << QByteArray() << QString();
}

void TestIPCExchange::readsFiles()
{
    QFETCH(const QByteArray, bytes);
    QTEST(textOf(decodeMessage(bytes)), "expected");
}

void TestIPCExchange::agreesWithSettings_data()
{
    QTest::addColumn<QString>("value");
    for (const QString &value :
         {u"X:1,Y:2"_s, u"a=b;c"_s, u" outer blanks "_s, u"back\\slash and \"quotes\""_s,
          u"line\nend\r\t"_s, u"Straße 雪"_s, u"[End]\n[End]"_s})
        QTest::addRow("%s", qPrintable(value)) << value;
}

/// Partners use settings to write, and to read what is written here.
void TestIPCExchange::agreesWithSettings()
{
    QFETCH(const QString, value);
    const QTemporaryDir dir;
    const QString expected = u"NamedCommand|A|%1|s|7"_s.arg(value);
    {
        QSettings settings(dir.filePath(u"theirs"_s), QSettings::IniFormat);
        settings.setValue("CommandType"_L1, u"NamedCommand"_s);
        settings.setValue("CommandId"_L1, u"A"_s);
        settings.setValue("Parameters"_L1, value);
        settings.setValue("Sender"_L1, u"s"_s);
        settings.setValue("SerialNumber"_L1, 7);
    }
    const auto message = decodeMessage(*readFile(dir.filePath(u"theirs"_s), kFileLimit));
    QCOMPARE(textOf(message), expected);
    QVERIFY(writeFile(dir.filePath(u"ours"_s), encodeMessage(*message)));
    const QSettings settings(dir.filePath(u"ours"_s), QSettings::IniFormat);
    QCOMPARE(settings.value("Parameters"_L1).toString(), value);
    QCOMPARE(settings.value("SerialNumber"_L1).toULongLong(), 7U);
    QCOMPARE(textOf(decodeMessage(encodeMessage(*message))), expected);
}

void TestIPCExchange::isIncompleteAtEveryCut()
{
    const QByteArray text = encodeMessage({u"NamedCommand"_s, u"A"_s, u"X:1"_s, u"s"_s, 12});
    QVERIFY(hasEndMark(text.right(kEndMarkReach)));
    for (qsizetype size = 0; size < text.trimmed().size(); ++size)
        QVERIFY2(!hasEndMark(text.first(size).right(kEndMarkReach)), text.first(size).constData());
    QVERIFY(hasEndMark("x\r\n[End]\r\n"));
    QVERIFY(!hasEndMark("Parameters=[End]"));
}

void TestIPCExchange::knowsWholeFiles()
{
    using Kind = FileStamp::Kind;
    const FileStamp file{Kind::File, 10, 1000};
    QVERIFY(isComplete(file, {}, true));
    QVERIFY(isComplete(file, file, false));
    for (const FileStamp &before :
         {FileStamp(), FileStamp{Kind::File, 9, 1000}, FileStamp{Kind::File, 10, 999}})
        QVERIFY(!isComplete(file, before, false));
    QVERIFY(!isComplete({Kind::Other, 0, 0}, {Kind::Other, 0, 0}, true));
}

void TestIPCExchange::turnsMessagesIntoRecords()
{
    const auto typeOf = [](const QString &type, const QString &id) {
        const auto data = commandDataOf({type, id, u"X:1, Y:2,,"_s, QString(), 0});
        // A blank behind the comma is some writers' habit; integer commands have no parameters.
        const bool isRead = !data || data->y == (data->commandType == 1 ? 2 : 0);
        return data && isRead ? data->commandType : -7;
    };
    QCOMPARE(typeOf(u"NamedCommand"_s, u"GotoCoordinates"_s), 1);
    QCOMPARE(typeOf(u"IntegerCommand"_s, u"12"_s), 12);
    QCOMPARE(typeOf(u"IntegerCommand"_s, u"999"_s), 999);
    for (const QString &id : {u"1.5"_s, u"3000000000"_s, u"TestCommand"_s, u""_s})
        QCOMPARE(typeOf(u"IntegerCommand"_s, id), -7);
    QCOMPARE(typeOf(u"NamedCommand"_s, u"12"_s), -7);
    QCOMPARE(typeOf(u"OtherCommand"_s, u"TestCommand"_s), -7);
}

void TestIPCExchange::judges_data()
{
    QTest::addColumn<quint64>("number");
    QTest::addColumn<bool>("isKnown");
    QTest::addColumn<int>("age");
    QTest::addColumn<Verdict>("expected"); // with limit 60, and 5 as the last number delivered
    QTest::newRow("next") << quint64(6) << true << 60 << Verdict::Deliver;
    QTest::newRow("numbers may be left out") << quint64(9) << true << 0 << Verdict::Deliver;
    QTest::newRow("written in the future") << quint64(6) << true << -99 << Verdict::Deliver;
    QTest::newRow("no number") << quint64(0) << true << 0 << Verdict::Deliver;
    QTest::newRow("again") << quint64(5) << true << 0 << Verdict::Repeat;
    QTest::newRow("again, old and unknown") << quint64(4) << false << 99 << Verdict::Repeat;
    QTest::newRow("old") << quint64(6) << true << 61 << Verdict::Leftover;
    QTest::newRow("old without number") << quint64(0) << true << 61 << Verdict::Leftover;
    QTest::newRow("unknown") << quint64(6) << false << 0 << Verdict::Unknown;
}

void TestIPCExchange::judges()
{
    QFETCH(const quint64, number);
    QFETCH(const bool, isKnown);
    QFETCH(const int, age);
    Message message;
    message.number = number;
    const auto data = isKnown ? std::optional(KeloCommandData()) : std::nullopt;
    QTEST(judge(message, data, age, 60, 5), "expected");
}

void TestIPCExchange::remembersAnswers()
{
    Answers answers =
        Answers::decode("1=taken\n[a]\r\n7=accepted\n9=refused\nx\n8=maybe\n10=taken\n[]\n1=taken");
    QCOMPARE(answers.encode(), "[a]\n7=accepted\n9=refused\n10=taken\n");
    QCOMPARE(answers.lastNumber(u"a"_s), 10U);
    QCOMPARE(answers.lastAnswered(u"a"_s), 9U);
    QCOMPARE(answers.state(u"a"_s, 8), std::nullopt);
    QCOMPARE(answers.lastNumber(u"b"_s), 0U);
    for (quint64 number = 1; number <= 1000; ++number) // a long life stays small
        answers.set(QString::number(number % 10), number, AnswerState::Accepted);
    QVERIFY(answers.encode().size() < 8'000);
    QCOMPARE(answers.lastNumber(u"9"_s), 999U);
    for (int sender = 100; sender < 1000; ++sender)
        answers.set(QString::number(sender), 1, AnswerState::Accepted);
    QVERIFY(answers.encode().size() < 8'000);
    QCOMPARE(answers.lastNumber(u"999"_s), 1U);
    QCOMPARE(answers.lastNumber(u"a"_s), 0U);
}

void TestIPCExchange::keepsThePromisesOfTheFuzzer()
{
    const QFileInfoList seeds =
        QDir(QStringLiteral(KELO_EXCHANGE_CORPUS)).entryInfoList(QDir::Files);
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
