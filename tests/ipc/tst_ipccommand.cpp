// SPDX-License-Identifier: GPL-2.0-or-later
// Commands as they are written into settings and read from names and lines.
#include <QtTest>
#include <clocale>
#include <cstdio>
#include <kelo_base/ipc/KeloCommandData.h>
#include <kelo_base/ipc/KeloIPCCommand.h>
#include <kelo_base/ipc/KeloIPCCommandParser.h>

using namespace Qt::Literals::StringLiterals;

class TestIPCCommand : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void savesObjectCommands();
    void savesPositionCommands();
    void alwaysNamesAPolygonFileToHighlight();
    void writesNumbersAsCDoes();
    void readsCommands_data();
    void readsCommands();
    void takesIntegerCommandsAsTheyAre();
};

/// The locale of the process must not show in any number.
void TestIPCCommand::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::German));
    std::setlocale(LC_ALL, "de_DE.UTF-8"); // where installed
}

void TestIPCCommand::savesObjectCommands()
{
    const QTemporaryDir dir;
    {
        QSettings settings(dir.filePath(u"a.ini"_s), QSettings::IniFormat);
        settings.beginGroup("Outgoing"_L1);
        MoveToObjectCommand command;
        command.SetObjectId(u"ABC"_s);
        command.SetClickPosition({10, 20});
        command.SaveToSettings(settings);
        QCOMPARE(settings.group(), u"Outgoing"_s);
    }
    const QSettings settings(dir.filePath(u"a.ini"_s), QSettings::IniFormat);
    QCOMPARE(settings.allKeys().size(), 3);
    QCOMPARE(settings.value("Outgoing/CommandType"_L1), u"NamedCommand"_s);
    QCOMPARE(settings.value("Outgoing/CommandId"_L1), u"MoveToObject"_s);
    QCOMPARE(settings.value("Outgoing/Parameters"_L1),
             u"BringToFront:0,ObjectId:ABC,ClickPosition:10.000000;20.000000,"
             "NorthDeviationInDegrees:0.000000,ViewingHeight:0.000000"_s);
}

void TestIPCCommand::savesPositionCommands()
{
    MoveToPositionCommand command;
    command.SetTopLeft({1, 2});
    command.SetBottomRight({3, 4});
    command.SetCenter({2, 3});
    command.SetNorthDeviation(-12.5);
    command.SetViewingHeight(1e6);
    MoveToPositionCommand copy = command; // commands are copied as values
    copy.SetBringToFront(true);
    const QString own = u",TopLeft:1.000000;2.000000,BottomRight:3.000000;4.000000,"
                        "Center:2.000000;3.000000,NorthDeviationInDegrees:-12.500000,"
                        "ViewingHeight:1000000.000000"_s;
    QCOMPARE(command.GetCommandName(), u"MoveToPosition"_s);
    QCOMPARE(command.GetParameterText(), u"BringToFront:0"_s + own);
    QCOMPARE(copy.GetParameterText(), u"BringToFront:1"_s + own);
    copy.SetPolygonFilename(u"/none/a.pol"_s); // cannot be read, but was asked for
    QCOMPARE(copy.GetParameterText(), u"BringToFront:1"_s + own + u",PolygonFile:"_s);
}

void TestIPCCommand::alwaysNamesAPolygonFileToHighlight()
{
    QCOMPARE(HighlightPolygonsCommand().GetCommandName(), u"HighlightPolygons"_s);
    QCOMPARE(HighlightPolygonsCommand().GetParameterText(), u"BringToFront:0,PolygonFile:"_s);
}

void TestIPCCommand::writesNumbersAsCDoes()
{
    std::setlocale(LC_NUMERIC, "C"); // for snprintf, which is the judge here
    QRandomGenerator random(7);
    QList<double> numbers{0.0000005,
                          0.0000015,
                          -0.0,
                          5e-324,
                          0.1,
                          2.5e-6,
                          1.7976931348623157e308,
                          std::nextafter(1e15, 0)};
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

void TestIPCCommand::readsCommands_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("lines"); // joined with |
    QTest::addColumn<KeloCommandData>("expected");
    const auto record = [](int type, double x = 0, double y = 0, bool toFront = false) {
        return KeloCommandData{type, QString(), x, y, 0, 0, toFront};
    };
    const QString goName = u"GotoCoordinates"_s;
    QTest::newRow("no parameters") << goName << QString() << record(1);
    QTest::newRow("all parameters")
        << goName << u"X:1.5|Y:-2e3|NorthDeviationInDegrees:12|ViewingHeight:.5|ObjectId:Ä b"_s
        << KeloCommandData{1, u"Ä b"_s, 1.5, -2000, 12, 0.5, false};
    QTest::newRow("find") << u"FindDocumentsForObject"_s << u"ObjectId:ABC|X:7"_s
                          << KeloCommandData{2, u"ABC"_s, 7};
    QTest::newRow("test looks at no parameters")
        << u"TestCommand"_s << u"X:1|BringToFront:1"_s << record(990);
    QTest::newRow("other case is unknown") << u"gotocoordinates"_s << u"X:1"_s << KeloCommandData{};
    QTest::newRow("three parts") << goName << u"X:1:2|Y::3|ViewingHeight:4:"_s << record(1);
    QTest::newRow("one part") << goName << u"X|1|BringToFront"_s << record(1);
    QTest::newRow("empty value") << goName << u"X:7|X:"_s << record(1);
    QTest::newRow("the later one wins") << goName << u"X:1|X:2"_s << record(1, 2);
    QTest::newRow("keys have a case") << goName << u"x:1|bringtofront:1| X:3"_s << record(1);
    // The flag is set by the key alone, for partners that write it only when they mean it.
    QTest::newRow("to front whatever the value")
        << goName << u"BringToFront:0"_s << record(1, 0, 0, true);
    QTest::newRow("a comma is no point") << goName << u"X:1,5|Y:1.5"_s << record(1, 0, 1.5);
    QTest::newRow("not finite") << goName << u"X:inf|Y:nan|ViewingHeight:1e999"_s << record(1);
}

void TestIPCCommand::readsCommands()
{
    QFETCH(const QString, name);
    QFETCH(const QString, lines);
    QFETCH(const KeloCommandData, expected);
    KeloCommandData data;
    KeloIPCCommandParser().ProcessCommandString(name, lines.split(u'|'), data);
    QCOMPARE(data, expected);
}

void TestIPCCommand::takesIntegerCommandsAsTheyAre()
{
    for (const int number : {-1, 0, 1, 999, 4711}) {
        const KeloCommandData before{5, u"A"_s, 1, 2, 3, 4, true};
        KeloCommandData data = before;
        KeloIPCCommandParser().ProcessCommand(number, data);
        KeloCommandData expected = before;
        expected.commandType = number;
        QCOMPARE(data, expected);
    }
}

QTEST_GUILESS_MAIN(TestIPCCommand)
#include "tst_ipccommand.moc"
