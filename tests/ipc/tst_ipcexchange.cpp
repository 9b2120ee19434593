// SPDX-License-Identifier: GPL-2.0-or-later
// The exchange files as values, and what is decided from them, without files or clocks.
#include "ipc/inbox_p.h"
#include "ipc/message_p.h"
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using namespace channel;

Q_DECLARE_METATYPE(channel::Message)

namespace {

Message message(const QString &type, const QString &id, const QString &parameters = {})
{
    return {type, id, parameters, QString(), 0};
}

KeloCommandData record(int type, double x = 0, double y = 0)
{
    return {type, QString(), x, y, 0, 0, false};
}

} // namespace

class TestIPCExchange : public QObject
{
    Q_OBJECT

private slots:
    void readsFiles_data();
    void readsFiles();
    void readsWhatSettingsWrite_data();
    void readsWhatSettingsWrite();
    void isIncompleteAtEveryCut();
    void knowsWholeFiles();
    void turnsMessagesIntoRecords();
    void judges_data();
    void judges();
    void remembersAnswers();
};

void TestIPCExchange::readsFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Message>("expected"); // without type: refused
    const Message plain = message(u"NamedCommand"_s, u"A"_s, u"X:1,Y:2"_s);
    const QByteArray start = "CommandType=NamedCommand\nCommandId=A\n";
    QTest::newRow("three bare keys") << start + "Parameters=X:1,Y:2" << plain;
    QTest::newRow("other line ends, section, comments, blanks, unknown keys")
        << QByteArray("; x\r\n[General]\r\n\r\nCommandType = NamedCommand \r\nCommandId=A\r\n"
                      "# y\r\nColour=red\r\nParameters=\"X:1,Y:2\"\r\n[End]\r\n")
        << plain;
    QTest::newRow("byte-order mark") << "\xef\xbb\xbf" + start + "Parameters=X:1,Y:2" << plain;
    QTest::newRow("behind the end mark") << start + "Parameters=X:1,Y:2\n[End]\ngarbage" << plain;
    Message umlaut = plain;
    umlaut.parameters = u"ObjectId:Weiß"_s;
    QTest::newRow("UTF-8") << start + "Parameters=ObjectId:Wei\xc3\x9f" << umlaut;
    QTest::newRow("Latin-1") << start + "Parameters=ObjectId:Wei\xdf" << umlaut;
    QTest::newRow("old escapes") << start + "Parameters=\"ObjectId:Wei\\xdf\"" << umlaut;
    const Message numbered{plain.type, plain.id, plain.parameters, u"s-1"_s, 12};
    QTest::newRow("numbered") << start + "Parameters=X:1,Y:2\nSender=s-1\nSerialNumber=12"
                              << numbered;
    QTest::newRow("no parameters") << start << message(plain.type, plain.id);

    for (const char *const end :
         {"Sender=s", "SerialNumber=3", "Sender=s\nSerialNumber=0", "Sender=s\nSerialNumber=-1",
          "Sender=s\nSerialNumber=1x", "Sender=s\nSerialNumber=99999999999999999999",
          "Sender=a]b\nSerialNumber=1", "Parameters=\"X:1", "Parameters=X:1\\", "[Other]", "word",
          "=1"})
        QTest::addRow("refused: %s", end) << start + end << Message();
    QTest::newRow("empty") << QByteArray() << Message();
    QTest::newRow("no id") << QByteArray("CommandType=NamedCommand\n") << Message();
    QTest::newRow("wide characters") << QByteArray("\xff\xfe"
                                                   "C\0o\0",
                                                   6)
                                     << Message();
}

void TestIPCExchange::readsFiles()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const Message, expected);
    const auto decoded = decodeMessage(bytes);
    QCOMPARE(decoded.has_value(), !expected.type.isEmpty());
    if (decoded)
        QCOMPARE(*decoded, expected);
}

void TestIPCExchange::readsWhatSettingsWrite_data()
{
    QTest::addColumn<QString>("value");
    for (const QString &value :
         {u"X:1,Y:2"_s, u"a=b;c"_s, u" outer blanks "_s, u"back\\slash and \"quotes\""_s,
          u"line\nend\r\t"_s, u"Straße 雪"_s, u"\u00e4bc"_s, u"[End]\n[End]"_s})
        QTest::addRow("%s", qPrintable(value)) << value;
}

/// Partners use settings to write, and to read what is written here.
void TestIPCExchange::readsWhatSettingsWrite()
{
    QFETCH(const QString, value);
    const QTemporaryDir dir;
    const Message written{u"NamedCommand"_s, u"A"_s, value, u"s"_s, 7};
    {
        QSettings settings(dir.filePath(u"theirs"_s), QSettings::IniFormat);
        settings.setValue("CommandType"_L1, written.type);
        settings.setValue("CommandId"_L1, written.id);
        settings.setValue("Parameters"_L1, value);
        settings.setValue("Sender"_L1, written.sender);
        settings.setValue("SerialNumber"_L1, written.number);
    }
    QCOMPARE(decodeMessage(*readFile(dir.filePath(u"theirs"_s), kFileLimit)), written);
    QVERIFY(writeFile(dir.filePath(u"ours"_s), encodeMessage(written)));
    const QSettings settings(dir.filePath(u"ours"_s), QSettings::IniFormat);
    QCOMPARE(settings.value("Parameters"_L1).toString(), value);
    QCOMPARE(settings.value("SerialNumber"_L1).toULongLong(), 7U);
    QCOMPARE(decodeMessage(encodeMessage(written)), written);
}

void TestIPCExchange::isIncompleteAtEveryCut()
{
    const QByteArray text = encodeMessage({u"NamedCommand"_s, u"A"_s, u"X:1"_s, u"s"_s, 12});
    const QByteArray trimmed = text.trimmed();
    QVERIFY(hasEndMark(text.right(kEndMarkReach)));
    for (qsizetype size = 0; size < trimmed.size(); ++size)
        QVERIFY2(!hasEndMark(trimmed.first(size).right(kEndMarkReach)),
                 qPrintable(QString::number(size)));
    QVERIFY(hasEndMark("x\r\n[End]\r\n"));
    QVERIFY(!hasEndMark("Parameters=[End]"));
}

void TestIPCExchange::knowsWholeFiles()
{
    using Kind = FileStamp::Kind;
    const FileStamp file{Kind::File, 10, 1000};
    QVERIFY(isComplete(file, {}, true));
    QVERIFY(isComplete(file, file, false));
    QVERIFY(!isComplete(file, {}, false));
    QVERIFY(!isComplete(file, {Kind::File, 9, 1000}, false));
    QVERIFY(!isComplete(file, {Kind::File, 10, 999}, false));
    QVERIFY(!isComplete({}, {}, false));
    QVERIFY(!isComplete({Kind::Other, 0, 0}, {Kind::Other, 0, 0}, true));
}

void TestIPCExchange::turnsMessagesIntoRecords()
{
    const auto of = [](const QString &type, const QString &id, const QString &parameters) {
        return commandDataOf(message(type, id, parameters)).value_or(record(-7));
    };
    const KeloCommandData unknown = record(-7);
    QCOMPARE(of(u"NamedCommand"_s, u"GotoCoordinates"_s, u"X:1, Y:2,,"_s), record(1, 1, 2));
    QCOMPARE(of(u"NamedCommand"_s, u"12"_s, {}), unknown);
    QCOMPARE(of(u"IntegerCommand"_s, u"12"_s, u"X:1"_s), record(12));
    QCOMPARE(of(u"IntegerCommand"_s, u"999"_s, {}), record(999));
    QCOMPARE(of(u"IntegerCommand"_s, u"1.5"_s, {}), unknown);
    QCOMPARE(of(u"IntegerCommand"_s, u"3000000000"_s, {}), unknown);
    QCOMPARE(of(u"OtherCommand"_s, u"TestCommand"_s, {}), unknown);
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
    QTest::newRow("again, and old") << quint64(4) << false << 99 << Verdict::Repeat;
    QTest::newRow("old") << quint64(6) << true << 61 << Verdict::Leftover;
    QTest::newRow("old without number") << quint64(0) << true << 61 << Verdict::Leftover;
    QTest::newRow("unknown") << quint64(6) << false << 0 << Verdict::Unknown;
}

void TestIPCExchange::judges()
{
    QFETCH(const quint64, number);
    QFETCH(const bool, isKnown);
    QFETCH(const int, age);
    const auto data = isKnown ? std::optional(KeloCommandData()) : std::nullopt;
    Message judged;
    judged.number = number;
    QTEST(judge(judged, data, age, 60, 5), "expected");
}

void TestIPCExchange::remembersAnswers()
{
    Answers answers;
    answers.set(u"a"_s, 7, AnswerState::Accepted);
    answers.set(u"a"_s, 9, AnswerState::Refused);
    answers.set(u"a"_s, 10, AnswerState::Taken);
    QCOMPARE(answers.lastNumber(u"a"_s), 10U);
    QCOMPARE(answers.lastAnswered(u"a"_s), 9U);
    QCOMPARE(answers.state(u"a"_s, 8), std::nullopt);
    QCOMPARE(answers.lastNumber(u"b"_s), 0U);
    QCOMPARE(
        Answers::decode("1=taken\n[a]\r\n7=accepted\n9=refused\nx\n8=maybe\n10=taken\n[]\n1=taken"),
        answers);
    QCOMPARE(Answers::decode(answers.encode()), answers);

    for (quint64 number = 1; number <= 1000; ++number) // a long life stays small
        answers.set(QString::number(number % 20), number, AnswerState::Accepted);
    QVERIFY(answers.encode().size() < 20'000);
    QCOMPARE(answers.lastNumber(u"19"_s), 999U);
    QCOMPARE(answers.lastNumber(u"a"_s), 0U);
}

QTEST_GUILESS_MAIN(TestIPCExchange)
#include "tst_ipcexchange.moc"
