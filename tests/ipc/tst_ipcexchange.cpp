// SPDX-License-Identifier: GPL-2.0-or-later
// Commands and exchange files as values, and what is decided from them, without a channel.
#include "fuzz/checkexchange.h"
#include "ipc/exchangefiles_p.h"
#include "ipc/filewatch_p.h"
#include "ipc/message_p.h"
#include <QtTest>
#include <clocale>
#include <cstdio>
#include <kelo_base/ipc/KeloCommandData.h>
#include <kelo_base/ipc/KeloIPCCommand.h>
#include <kelo_base/ipc/KeloIPCCommandParser.h>

using namespace Qt::Literals::StringLiterals;
using namespace channel;

namespace {

/// "type|id|parameters|sender|number"; empty for what was refused.
QString textOf(const std::optional<Message> &m)
{
    return m ? u"%1|%2|%3|%4|%5"_s.arg(m->type, m->id, m->parameters, m->sender).arg(m->number)
             : u""_s;
}

} // namespace

class TestIPCExchange : public QObject
{
    Q_OBJECT

private slots:
    /// The locale of the process must not show in any number.
    void initTestCase()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        std::setlocale(LC_ALL, "de_DE.UTF-8"); // where installed
    }

    void savesCommands()
    {
        const QTemporaryDir dir;
        QSettings settings(dir.filePath(u"a.ini"_s), QSettings::IniFormat);
        settings.beginGroup("Outgoing"_L1);
        MoveToPositionCommand command;
        command.SetTopLeft({1, 2});
        command.SetBottomRight({3, 4});
        command.SetCenter({2, 3});
        command.SetNorthDeviation(-12.5);
        command.SetViewingHeight(1e6);
        command.SetBringToFront(true);
        command.SetPolygonFilename(u"/none/a.pol"_s); // cannot be read, but was asked for
        command.SaveToSettings(settings);
        QCOMPARE(settings.group(), u"Outgoing"_s);
        QCOMPARE(settings.value("CommandType"_L1), u"NamedCommand"_s);
        QCOMPARE(settings.value("CommandId"_L1), u"MoveToPosition"_s);
        QCOMPARE(settings.value("Parameters"_L1),
                 u"BringToFront:1,TopLeft:1.000000;2.000000,BottomRight:3.000000;4.000000,"
                 "Center:2.000000;3.000000,NorthDeviationInDegrees:-12.500000,"
                 "ViewingHeight:1000000.000000,PolygonFile:"_s);
        QCOMPARE(HighlightPolygonsCommand().GetCommandName(), u"HighlightPolygons"_s);
    }

    void writesNumbersAsCDoes()
    {
        std::setlocale(LC_NUMERIC, "C"); // for snprintf, which is the judge here
        QRandomGenerator random(7);
        QList<double> numbers{5e-7,   1.5e-6, -0.0,
                              5e-324, 2.5e-6, std::numeric_limits<double>::max()};
        for (int i = 0; i < 2000; ++i) {
            numbers << (random.generateDouble() - 0.5) * std::pow(10, random.bounded(20));
            numbers << random.bounded(1 << 20) / 128.0 / 1024; // many are exact halves
        }
        for (const double number : numbers) {
            char expected[400];
            std::snprintf(expected, sizeof expected, "%lf", number);
            MoveToObjectCommand command;
            command.SetViewingHeight(number);
            QCOMPARE(command.GetParameterText().section(u':', -1), QLatin1StringView(expected));
        }
    }

    void readsCommands_data()
    {
        QTest::addColumn<QString>("line"); // the name and the parameters, joined with |
        QTest::addColumn<KeloCommandData>("expected");
        const auto add = [](const QString &line, const KeloCommandData &expected) {
            QTest::newRow(qPrintable(line)) << line << expected;
        };
        const QString go = u"GotoCoordinates|"_s;
        add(go + u"X:1.5|Y:-2e3|NorthDeviationInDegrees:12|ViewingHeight:.5|ObjectId:Ä b"_s,
            {1, u"Ä b"_s, 1.5, -2000, 12, 0.5, false});
        add(u"FindDocumentsForObject|ObjectId:ABC|X:7"_s, {2, u"ABC"_s, 7});
        add(u"TestCommand|X:1|BringToFront:1"_s, {990, {}}); // looks at no parameters
        add(u"gotocoordinates|X:1"_s, {});
        add(go + u"Y|X:7|X:1:2|Y::3|ObjectId:a:b|BringToFront"_s, {1, {}, 7}); // not two parts
        add(go + u"X:1|X:2|Y:7|Y:"_s, {1, {}, 2}); // the later one wins, even empty
        add(go + u"x:1|bringtofront:1| X:3"_s, {1, {}});
        // The flag is set by the key alone, for partners that write it only when they mean it.
        add(go + u"BringToFront:0"_s, {1, {}, 0, 0, 0, 0, true});
        add(go + u"X:1,5|Y:1.5"_s, {1, {}, 0, 1.5}); // a comma is no point
        add(go + u"X:inf|Y:nan|ViewingHeight:1e999"_s, {1, {}});
    }

    void readsCommands()
    {
        QFETCH(const QString, line);
        const QStringList parameters = line.split(u'|').mid(1);
        KeloCommandData data;
        KeloIPCCommandParser().ProcessCommandString(line.section(u'|', 0, 0), parameters, data);
        QTEST(data, "expected");
    }

    void readsFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("expected");
        const QByteArray start = "CommandType=NamedCommand\nCommandId=A\n";
        QTest::newRow("line ends, sections, comments, blanks, unknown keys, marks, garbage")
            << "\uFEFF; x\r\n[General]\r\n\r\nCommandType = NamedCommand \r\nCommandId=A\r\n# y\r\n"
               "Colour=red\r\nParameters=\"X:1,Y:2\"\r\n[End]\nz"_ba
            << u"NamedCommand|A|X:1,Y:2||0"_s;
        for (const char *const text :
             {"Wei\xc3\x9f", "Wei\xdf", "\"Wei\\xdf\""}) // the last: an escape
            QTest::addRow("any encoding: %s", text)
                << start + "Parameters=" + text << u"NamedCommand|A|Weiß||0"_s;
        for (const char *const end :
             {"Sender=s", "SerialNumber=3", "Sender=s\nSerialNumber=0", "Sender=s\nSerialNumber=-1",
              "Sender=s\nSerialNumber=1x", "Sender=s\nSerialNumber=99999999999999999999",
              "Sender=a]b\nSerialNumber=1", "Parameters=\"X:1", "Parameters=X:1\\", "[Other]",
              "word", "=1", "CommandId="})
            QTest::addRow("refused: %s", end) << start + end << QString();
    }

    void readsFiles()
    {
        QFETCH(const QByteArray, bytes);
        QTEST(textOf(decodeMessage(bytes)), "expected");
    }

    /// Partners use settings to write, and to read what is written here.
    void agreesWithSettings()
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
            QVERIFY(hasEndMark(encodeMessage(*message)) && !hasEndMark("Parameters=[End]"));
            QVERIFY(writeFile(dir.filePath(u"ours"_s), encodeMessage(*message)));
            const QSettings ours(dir.filePath(u"ours"_s), QSettings::IniFormat);
            QCOMPARE(ours.value("Parameters"_L1).toString(), value);
        }
    }

    void turnsMessagesIntoRecords()
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
        QCOMPARE(recordOf(u"OtherCommand"_s, u"TestCommand"_s), std::nullopt);
    }

    void remembersAnswers()
    {
        Answers answers = Answers::decode(
            "1=taken\n[a]\r\n7=accepted\n9=refused\nx\n8=maybe\n10=taken\n[]\n1=taken");
        QCOMPARE(answers.encode(), "[a]\n7=accepted\n9=refused\n10=taken\n");
        QCOMPARE(answers.lastNumber(u"a"_s), 10U);
        QCOMPARE(answers.lastAnswered(u"a"_s), 9U);
        for (quint64 number = 1; number <= 1000; ++number) // a long life stays small
            answers.set(QString::number(number % 20), number, AnswerState::Accepted);
        QVERIFY(answers.encode().size() < 10'000);
        QCOMPARE(answers.lastNumber(u"19"_s), 999U);
        QCOMPARE(answers.lastNumber(u"a"_s), 10U); // an old number must not run again
        for (int sender = 0; sender < 5000; ++sender)
            answers.set(QString(64 - 4, u'x') + QString::number(sender), ~0ULL, AnswerState::Taken);
        QVERIFY(answers.encode().size() < kFileLimit / 2);
        QCOMPARE(answers.lastNumber(u"a"_s), 0U);
    }

    void knowsWholeFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("wholeAfter"); // milliseconds; -1: never
        const QByteArray go = "CommandType=NamedCommand\nCommandId=GotoCoordinates\n";
        const QByteArray parameters = "Parameters=X:3500000,Y:5800000";
        QTest::newRow("settled, with CR") << go + parameters + "\r\n" << 1000;
        QTest::newRow("cut within a number") << go + parameters.chopped(5) << -1;
        QTest::newRow("cut before the parameters") << go << -1;
        QTest::newRow("cut behind the sender") << go + parameters + "\nSender=s\n" << -1;
        QTest::newRow("no parameters, and marked") << go + "[End]" << 0;
        QTest::newRow("needs no parameters")
            << "CommandType=NamedCommand\nCommandId=TestCommand\n"_ba << 1000;
        QTest::newRow("an integer") << "CommandId=7\nCommandType=IntegerCommand\n"_ba << 1000;
    }

    void knowsWholeFiles()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const int, wholeAfter);
        const bool isNever = wholeAfter < 0;
        const int after = isNever ? 10'000 : wholeAfter;
        if (after > 0)
            QCOMPARE(progressOf(bytes, after - 1, 1000), Progress::Growing);
        QCOMPARE(progressOf(bytes, after, 1000), isNever ? Progress::Abandoned : Progress::Whole);
    }

    void keepsThePromisesOfTheFuzzer()
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
};

QTEST_GUILESS_MAIN(TestIPCExchange)
#include "tst_ipcexchange.moc"
