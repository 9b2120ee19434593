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
    void savesCommands();
    void writesNumbersAsCDoes();
    void readsCommands_data();
    void readsCommands();
};

/// The locale of the process must not show in any number.
void TestIPCCommand::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::German));
    std::setlocale(LC_ALL, "de_DE.UTF-8"); // where installed
}

void TestIPCCommand::savesCommands()
{
    const QTemporaryDir dir;
    QSettings settings(dir.filePath(u"a.ini"_s), QSettings::IniFormat);
    settings.beginGroup("Outgoing"_L1);
    MoveToObjectCommand object;
    object.SetObjectId(u"ABC"_s);
    object.SetClickPosition({10, 20});
    object.SaveToSettings(settings);
    QCOMPARE(settings.group(), u"Outgoing"_s);
    QCOMPARE(settings.allKeys().size(), 3);
    QCOMPARE(settings.value("CommandType"_L1), u"NamedCommand"_s);
    QCOMPARE(settings.value("CommandId"_L1), u"MoveToObject"_s);
    QCOMPARE(settings.value("Parameters"_L1),
             u"BringToFront:0,ObjectId:ABC,ClickPosition:10.000000;20.000000,"
             "NorthDeviationInDegrees:0.000000,ViewingHeight:0.000000"_s);

    MoveToPositionCommand command;
    command.SetTopLeft({1, 2});
    command.SetBottomRight({3, 4});
    command.SetCenter({2, 3});
    command.SetNorthDeviation(-12.5);
    command.SetViewingHeight(1e6);
    MoveToPositionCommand copy = command; // commands are copied as values
    copy.SetBringToFront(true);
    copy.SetPolygonFilename(u"/none/a.pol"_s); // cannot be read, but was asked for
    const QString own = u",TopLeft:1.000000;2.000000,BottomRight:3.000000;4.000000,"
                        "Center:2.000000;3.000000,NorthDeviationInDegrees:-12.500000,"
                        "ViewingHeight:1000000.000000"_s;
    QCOMPARE(command.GetCommandName(), u"MoveToPosition"_s);
    QCOMPARE(command.GetParameterText(), u"BringToFront:0"_s + own);
    QCOMPARE(copy.GetParameterText(), u"BringToFront:1"_s + own + u",PolygonFile:"_s);
    QCOMPARE(HighlightPolygonsCommand().GetCommandName(), u"HighlightPolygons"_s);
}

void TestIPCCommand::writesNumbersAsCDoes()
{
    std::setlocale(LC_NUMERIC, "C"); // for snprintf, which is the judge here
    QRandomGenerator random(7);
    QList<double> numbers{5e-7, 1.5e-6, -0.0, 5e-324, 2.5e-6, std::numeric_limits<double>::max()};
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
    QTest::addColumn<QString>("line"); // the name and the parameters, joined with |
    QTest::addColumn<KeloCommandData>("expected");
    const auto add = [](const char *row, const QString &line, const KeloCommandData &expected) {
        QTest::newRow(row) << line << expected;
    };
    const QString go = u"GotoCoordinates|"_s;
    add("all parameters",
        go + u"X:1.5|Y:-2e3|NorthDeviationInDegrees:12|ViewingHeight:.5|ObjectId:Ä b"_s,
        {1, u"Ä b"_s, 1.5, -2000, 12, 0.5, false});
    add("find", u"FindDocumentsForObject|ObjectId:ABC|X:7"_s, {2, u"ABC"_s, 7});
    add("test looks at no parameters", u"TestCommand|X:1|BringToFront:1"_s, {990, {}});
    add("other case is unknown", u"gotocoordinates|X:1"_s, {});
    add("one and three parts", go + u"Y|X:7|X:1:2|Y::3|ObjectId:a:b|BringToFront"_s, {1, {}, 7});
    add("the later one wins, even empty", go + u"X:1|X:2|Y:7|Y:"_s, {1, {}, 2});
    add("keys have a case", go + u"x:1|bringtofront:1| X:3"_s, {1, {}});
    // The flag is set by the key alone, for partners that write it only when they mean it.
    add("to front whatever the value", go + u"BringToFront:0"_s, {1, {}, 0, 0, 0, 0, true});
    add("a comma is no point", go + u"X:1,5|Y:1.5"_s, {1, {}, 0, 1.5});
    add("not finite", go + u"X:inf|Y:nan|ViewingHeight:1e999"_s, {1, {}});
}

void TestIPCCommand::readsCommands()
{
    QFETCH(const QString, line);
    QStringList lines = line.split(u'|');
    const QString name = lines.takeFirst();
    KeloCommandData data;
    KeloIPCCommandParser().ProcessCommandString(name, lines, data);
    QTEST(data, "expected");
}

QTEST_GUILESS_MAIN(TestIPCCommand)
#include "tst_ipccommand.moc"
