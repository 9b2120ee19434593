// SPDX-License-Identifier: GPL-2.0-or-later
// The running channel over real files, with a partner played by the test.
#include "ipc/exchangefiles_p.h"
#include "tests/support/MessageLog.h"
#include <QtTest>
#include <filesystem>
#include <kelo_base/ipc/KeloCommandData.h>
#include <kelo_base/ipc/KeloIPCCommand.h>
#include <kelo_base/ipc/KeloIPCCommandHandler.h>
#include <kelo_base/ipc/KeloIPCFacade.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

class Recorder : public KeloIPCCommandHandler
{
public:
    bool HandleCommand(const KeloCommandData &command, const KeloCommandOrigin &origin) override
    {
        received << command.commandType;
        lastOrigin = origin.sender + u'/' + QString::number(origin.number);
        if (then)
            then();
        return isAccepting;
    }
    [[nodiscard]] std::optional<quint64> GetLastNumber(const QString &) const override
    {
        return last;
    }
    QList<int> received;
    std::optional<quint64> last;
    QString lastOrigin;
    bool isAccepting = true;
    std::function<void()> then;
};

QByteArray integerCommand(int id, const QByteArray &rest = {})
{
    return "CommandType=IntegerCommand\nCommandId=" + QByteArray::number(id) + '\n' + rest;
}

QByteArray numbered(int id, int number)
{
    return integerCommand(id, "Sender=p\nSerialNumber=" + QByteArray::number(number) + "\n[End]\n");
}

} // namespace

class TestIPCFacade : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void servesSimplePartners();
    void answersByNumber();
    void deliversNothingTwice();
    void setsFaultyFilesAside_data();
    void setsFaultyFilesAside();
    void survivesObstacles();
    void survivesWhatHandlersDo();
    void sendsOneAfterTheOther();
    void tellsSilence();
    void placesDataFiles();
    void findsThePartner();

private:
    void activate() { QVERIFY(facade().Activate(m_dir->path(), *m_handler)); }
    static KeloIPCFacadeI &facade() { return KeloIPCFacadeI::Instance(); }
    [[nodiscard]] QString path(const QString &name) const { return m_dir->filePath(name); }
    void put(const QString &name, const QByteArray &bytes) const
    {
        QVERIFY(channel::writeFile(path(name), bytes));
    }
    [[nodiscard]] QByteArray content(const QString &name) const
    {
        return channel::readFile(path(name), 1 << 20).value_or("none");
    }
    void age(const QString &name, std::chrono::seconds by) const
    {
        const std::filesystem::path file = path(name).toStdString();
        std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) - by);
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Recorder> m_handler;
    QList<std::pair<quint64, KeloDelivery>> m_outcomes;
};

void TestIPCFacade::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    m_handler = std::make_unique<Recorder>();
    m_outcomes.clear();
    facade().SetTimes({.poll = 2ms, .partner = 5ms});
    connect(&facade(), &KeloIPCFacadeI::CommandAnswered, this,
            [this](quint64 number, KeloDelivery delivery) {
                m_outcomes.append({number, delivery});
            });
}

void TestIPCFacade::cleanup()
{
    KeloIPCFacadeI::Destroy();
}

void TestIPCFacade::servesSimplePartners()
{
    activate();
    for (const int id : {5, 6}) {
        put(u"kelo-in.txt"_s, integerCommand(id));
        QTRY_COMPARE(m_handler->received.value(m_handler->received.size() - 1), id);
        QCOMPARE(content(u"kelo-in.txt"_s), "none");
    }
    QCOMPARE(m_handler->lastOrigin, u"/0"_s);
    QCOMPARE(content(u"kelo-in-answers.txt"_s), "none"); // nobody would read it
    facade().Deactivate();
    QVERIFY(!facade().IsActive());
}

void TestIPCFacade::answersByNumber()
{
    activate();
    put(u"kelo-in.txt"_s, numbered(5, 1));
    QTRY_COMPARE(content(u"kelo-in-answers.txt"_s), "[p]\n1=accepted\n");
    QCOMPARE(m_handler->lastOrigin, u"p/1"_s);
    m_handler->isAccepting = false;
    m_handler->then = [this] { // the number is on disk before anything else happens
        QCOMPARE(content(u"kelo-in-answers.txt"_s), "[p]\n1=accepted\n2=taken\n");
    };
    put(u"kelo-in.txt"_s, numbered(6, 2));
    QTRY_COMPARE(content(u"kelo-in-answers.txt"_s), "[p]\n1=accepted\n2=refused\n");
}

/// The viewer died over number 4, and before that with number 5 claimed.
void TestIPCFacade::deliversNothingTwice()
{
    put(u"kelo-in-answers.txt"_s, "[p]\n4=taken\n");
    put(u"kelo-in.txt.claimed"_s, numbered(5, 5));
    for (const int number : {4, 3, 6}) {
        activate();
        put(u"kelo-in.txt"_s, numbered(number, number));
        QTRY_COMPARE(content(u"kelo-in.txt"_s), "none");
        QTRY_COMPARE(content(u"kelo-in.txt.claimed"_s), "none");
    }
    QTRY_COMPARE(content(u"kelo-in-answers.txt"_s), "[p]\n4=taken\n5=accepted\n6=accepted\n");
    QCOMPARE(m_handler->received, QList<int>({5, 6}));

    // A handler that keeps the numbers itself: number 6 has no effect yet, number 5 no answer.
    put(u"kelo-in-answers.txt"_s, "[p]\n6=taken\n");
    m_handler->last = 5;
    for (const int number : {5, 6}) {
        activate();
        put(u"kelo-in.txt"_s, numbered(number, number));
        QTRY_VERIFY(
            content(u"kelo-in-answers.txt"_s).contains(QByteArray::number(number) + "=accepted"));
    }
    QCOMPARE(m_handler->received, QList<int>({5, 6, 6}));
}

void TestIPCFacade::setsFaultyFilesAside_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("age"); // in seconds
    QTest::addColumn<QString>("line");
    QTest::newRow("garbage") << QByteArray("\x01\xff\0junk", 7) << 0 << u"is no whole command"_s;
    QTest::newRow("half") << numbered(5, 1).chopped(14) << 0 << u"is no whole command"_s;
    QTest::newRow("huge") << QByteArray((1 << 20) + 1, 'x') << 0 << u"more than 1 MiB"_s;
    QTest::newRow("leftover") << numbered(5, 1) << 61 << u"lay too long"_s;
    QTest::newRow("unknown") << QByteArray("CommandType=NamedCommand\nCommandId=Dance\n[End]") << 0
                             << u"unknown command: Dance"_s;
}

void TestIPCFacade::setsFaultyFilesAside()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const int, age);
    QFETCH(const QString, line);
    put(u"kelo-in.txt"_s, bytes);
    this->age(u"kelo-in.txt"_s, std::chrono::seconds(age));
    const MessageLog log;
    activate();
    QTRY_VERIFY(QFile::exists(path(u"kelo-in.txt.rejected"_s)));
    QCOMPARE(QFileInfo(path(u"kelo-in.txt.rejected"_s)).size(), bytes.size());
    put(u"kelo-in.txt"_s, numbered(9, 2));
    QTRY_COMPARE(m_handler->received, QList<int>({9})); // and only this
    QCOMPARE(log.lines().size(), 1);
    QVERIFY2(log.lines()[0].contains(line), qPrintable(log.lines()[0]));
}

void TestIPCFacade::survivesObstacles()
{
    const MessageLog log;
    activate();
    QVERIFY(QDir(m_dir->path()).mkdir(u"kelo-in.txt"_s));
    QTRY_COMPARE(log.lines().size(), 1); // said once, not at each look
    QVERIFY(QDir(m_dir->path()).rmdir(u"kelo-in.txt"_s));

    QVERIFY(channel::renameFile(m_dir->path(), m_dir->path() + u".away"_s));
    QTRY_VERIFY(log.lines().last().endsWith(u"is gone"_s));
    QCOMPARE(facade().Send(MoveToObjectCommand()), 1U);
    QVERIFY(channel::renameFile(m_dir->path() + u".away"_s, m_dir->path()));
    QTRY_VERIFY(QFile::exists(path(u"kelo-out.txt"_s)));
    put(u"kelo-in.txt"_s, numbered(3, 1));
    QTRY_COMPARE(m_handler->received, QList<int>({3}));

    QVERIFY(!facade().Activate({}, *m_handler));
    QVERIFY(!facade().Activate(path(u"kelo-out.txt"_s), *m_handler));
    QVERIFY(!facade().IsActive());
    QCOMPARE(facade().Send(MoveToObjectCommand()), 0U);
}

void TestIPCFacade::survivesWhatHandlersDo()
{
    activate();
    m_handler->then = [this] { // an event loop must not let the next command in
        m_handler->then = nullptr;
        put(u"kelo-in.txt"_s, numbered(2, 2));
        QTest::qWait(20);
        QCOMPARE(m_handler->received, QList<int>({1}));
    };
    put(u"kelo-in.txt"_s, numbered(1, 1));
    QTRY_COMPARE(m_handler->received, QList<int>({1, 2}));
    m_handler->then = [] { KeloIPCFacadeI::Destroy(); };
    put(u"kelo-in.txt"_s, numbered(3, 3));
    QTRY_COMPARE(content(u"kelo-in-answers.txt"_s), "[p]\n1=accepted\n2=accepted\n3=accepted\n");
    QVERIFY(!facade().IsActive());
}

void TestIPCFacade::sendsOneAfterTheOther()
{
    activate();
    QCOMPARE(facade().ContinueAs(u"no:sender"_s), 0U);
    QCOMPARE(facade().ContinueAs(u"v"_s), 0U);
    MoveToObjectCommand command;
    command.SetObjectId(u"Grün"_s);
    QCOMPARE(facade().Send(command), 1U);
    QCOMPARE(facade().Send(command), 2U);
    QCOMPARE(content(u"kelo-out.txt"_s),
             "[General]\nCommandType=NamedCommand\nCommandId=MoveToObject\n"
             "Parameters=\"BringToFront:0,ObjectId:Gr\xc3\xbcn,ClickPosition:0.000000;0.000000,"
             "NorthDeviationInDegrees:0.000000,ViewingHeight:0.000000\"\n"
             "Sender=v\nSerialNumber=1\n[End]\n");
    for (const QByteArray &number :
         {QByteArray("1"), QByteArray("2")}) { // without waiting for answers
        QTRY_VERIFY(content(u"kelo-out.txt"_s).contains("SerialNumber=" + number));
        QFile::remove(path(u"kelo-out.txt"_s));
    }
    put(u"kelo-out-answers.txt"_s, "[v]\n1=accepted\n2=refused\n");
    const QList<std::pair<quint64, KeloDelivery>> expected{{1, KeloDelivery::Accepted},
                                                           {2, KeloDelivery::Refused}};
    QTRY_COMPARE(m_outcomes, expected);

    put(u"kelo-out-answers.txt"_s, "[v]\n41=accepted\n42=taken\n[w]\n77=accepted\n");
    QCOMPARE(facade().ContinueAs(u"v"_s), 41U);
    QCOMPARE(facade().Send(command), 42U);
    QVERIFY(content(u"kelo-out.txt"_s).contains("SerialNumber=42"));
}

void TestIPCFacade::tellsSilence()
{
    facade().SetTimes({.poll = 2ms, .leftover = 100ms, .answer = 20ms});
    activate();
    facade().Send(MoveToObjectCommand()); // taken, and never answered
    QVERIFY(QFile::remove(path(u"kelo-out.txt"_s)));
    QTRY_COMPARE(m_outcomes.size(), 1);
    facade().Send(MoveToObjectCommand()); // never taken
    QTRY_COMPARE(m_outcomes.size(), 2);
    QVERIFY(!QFile::exists(path(u"kelo-out.txt"_s)));
    QCOMPARE(m_outcomes[0].second, KeloDelivery::Silence);
    QCOMPARE(m_outcomes[1], std::pair(quint64(2), KeloDelivery::Silence));
}

void TestIPCFacade::placesDataFiles()
{
    const QTemporaryDir source;
    const QString odd = source.filePath(u"a:b,c;d.pol"_s);
    const QString same = source.filePath(u"copy.x,y"_s);
    QVERIFY(channel::writeFile(odd, "1 2\n") && channel::writeFile(same, "1 2\n"));
    QCOMPARE(KeloIPCFacadeI::MakeDataFileParameter(odd), QString()); // no directory to put it into
    put(u"kelo-data-OLD"_s, "x");
    age(u"kelo-data-OLD"_s, 2h);
    put(u"foreign"_s, "x");
    age(u"foreign"_s, 2h);
    activate();
    QVERIFY(!QFile::exists(path(u"kelo-data-OLD"_s)));
    QVERIFY(QFile::exists(path(u"foreign"_s)));

    const QString name = KeloIPCFacadeI::MakeDataFileParameter(odd);
    QVERIFY2(QRegularExpression(u"^kelo-data-[A-Z0-9]{25}\\.pol$"_s).match(name).hasMatch(),
             qPrintable(name));
    QCOMPARE(content(name), "1 2\n");
    QCOMPARE(KeloIPCFacadeI::MakeDataFileParameter(same), name.chopped(4));
    age(name, 50min);
    QCOMPARE(KeloIPCFacadeI::MakeDataFileParameter(odd), name); // as new again
    age(name, 50min);
    activate();
    QVERIFY(QFile::exists(path(name)));
    QCOMPARE(KeloIPCFacadeI::MakeDataFileParameter(path(u"none"_s)), QString());

    HighlightPolygonsCommand command;
    command.SetPolygonFilename(odd);
    QCOMPARE(command.GetParameterText(), u"BringToFront:0,PolygonFile:"_s + name);
}

void TestIPCFacade::findsThePartner()
{
    QList<bool> changes;
    connect(&facade(), &KeloIPCFacadeI::PartnerRunningChanged, this,
            [&changes](bool isRunning) { changes << isRunning; });
    activate();
    QVERIFY(!facade().StartPartner(u"/none/dapex.exe"_s));
    QVERIFY(!facade().StartPartner({}));
    // The directory's own program of that name: a shell that lives until its file is gone.
    const QString program = path(u"dapex.exe"_s);
    QVERIFY(QFile::copy(QStandardPaths::findExecutable(u"sh"_s), program));
    put(u"lives"_s, {});
    QVERIFY(facade().StartPartner(
        u"\"%1\" -c \"while [ -e '%2' ]; do sleep 0.01; done\""_s.arg(program, path(u"lives"_s))));
    QTRY_VERIFY(facade().IsPartnerRunning());
    QVERIFY(QFile::remove(path(u"lives"_s)));
    QTRY_VERIFY(!facade().IsPartnerRunning());
    QCOMPARE(changes, QList<bool>({true, false}));
}

QTEST_GUILESS_MAIN(TestIPCFacade)
#include "tst_ipcfacade.moc"
