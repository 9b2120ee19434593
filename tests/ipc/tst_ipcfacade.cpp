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

using Outcomes = QList<std::pair<quint64, KeloDelivery>>;

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
    QList<int> received;
    QString lastOrigin;
    bool isAccepting = true;
    std::function<void()> then;
};

QByteArray integerCommand(int id)
{
    return "CommandType=IntegerCommand\nCommandId=" + QByteArray::number(id) + '\n';
}

QByteArray numbered(int number)
{
    return integerCommand(number) + "Sender=p\nSerialNumber=" + QByteArray::number(number) +
           "\n[End]\n";
}

} // namespace

class TestIPCFacade : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_handler = {};
        m_outcomes.clear();
        facade().SetTimes({.poll = 2ms, .partner = 5ms});
        connect(&facade(), &KeloIPCFacadeI::CommandAnswered, this,
                [this](quint64 n, KeloDelivery what) {
                    m_outcomes.append({n, what});
                });
    }

    void cleanup() { KeloIPCFacadeI::Destroy(); }

    /// A file counts when it did not change between two looks, not before.
    void waitsForSlowWriters()
    {
        facade().SetTimes({.poll = 50ms});
        activate();
        QFile file(path(u"kelo-in.txt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        for (const char c : integerCommand(12345)) {
            file.write(&c, 1);
            QTest::qWait(3);
        }
        file.close();
        QTRY_COMPARE(m_handler.received, QList<int>({12345}));
    }

    void answersWhoCounts()
    {
        activate();
        receive(integerCommand(5));
        QTRY_COMPARE(m_handler.received, QList<int>({5}));
        QCOMPARE(m_handler.lastOrigin, u"/0"_s);
        QVERIFY(!has(u"kelo-in.txt"_s) && !has(u"kelo-in-answers.txt"_s)); // nobody would read it
        receive(numbered(1));
        QTRY_COMPARE(answers(), "[p]\n1=accepted\n");
        QCOMPARE(m_handler.lastOrigin, u"p/1"_s);
        m_handler.isAccepting = false;
        // The number is on disk before anything else happens.
        m_handler.then = [this] { QCOMPARE(answers(), "[p]\n1=accepted\n2=taken\n"); };
        receive(numbered(2));
        QTRY_COMPARE(answers(), "[p]\n1=accepted\n2=refused\n");
    }

    /// The viewer died over number 4, and before that with number 5 claimed.
    void deliversNothingTwice()
    {
        put(u"kelo-in-answers.txt"_s, "[p]\n4=taken\n");
        put(u"kelo-in.txt.claimed"_s, numbered(5));
        for (const int number : {4, 3, 6}) {
            activate();
            receive(numbered(number));
            QTRY_VERIFY(!has(u"kelo-in.txt"_s) && !has(u"kelo-in.txt.claimed"_s));
        }
        QTRY_COMPARE(answers(), "[p]\n4=taken\n5=accepted\n6=accepted\n");
        QCOMPARE(m_handler.received, QList<int>({5, 6}));
    }

    void setsFaultyFilesAside_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<std::chrono::seconds>("age");
        const auto add = [](const char *line, const QByteArray &bytes,
                            std::chrono::seconds age = 0s) { QTest::newRow(line) << bytes << age; };
        add("is no whole command", QByteArray("\x01\xff\0junk", 7));
        add("no whole", numbered(5).chopped(14));
        add("more than 1 MiB", QByteArray((1 << 20) + 1, 'x'));
        add("lay too long", numbered(1), 61s);
        add("unknown command: Dance", "CommandType=NamedCommand\nCommandId=Dance\n[End]");
    }

    void setsFaultyFilesAside()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const std::chrono::seconds, age);
        put(u"kelo-in.txt"_s, bytes, age);
        const MessageLog log;
        activate();
        QTRY_VERIFY(has(u"kelo-in.txt.rejected"_s));
        QCOMPARE(QFileInfo(path(u"kelo-in.txt.rejected"_s)).size(), bytes.size());
        receive(numbered(9));
        QTRY_COMPARE(m_handler.received, QList<int>({9})); // and only this
        QCOMPARE(log.lines().filter(QLatin1StringView(QTest::currentDataTag())), log.lines());
        QCOMPARE(log.lines().size(), 1);
    }

    void survivesObstacles()
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
        QTRY_VERIFY(has(u"kelo-out.txt"_s));
        receive(numbered(3));
        QTRY_COMPARE(m_handler.received, QList<int>({3}));

        for (const QString &none : {QString(), path(u"kelo-out.txt"_s)})
            QVERIFY(!facade().Activate(none, m_handler) && !facade().IsActive());
        QCOMPARE(facade().Send(MoveToObjectCommand()), 0U);
    }

    void survivesWhatHandlersDo()
    {
        activate();
        m_handler.then = [this] { // an event loop must not let the next command in
            m_handler.then = nullptr;
            receive(numbered(2));
            QTest::qWait(20);
            QCOMPARE(m_handler.received, QList<int>({1}));
        };
        receive(numbered(1));
        QTRY_COMPARE(m_handler.received, QList<int>({1, 2}));
        m_handler.then = [] { KeloIPCFacadeI::Destroy(); };
        receive(numbered(3));
        QTRY_COMPARE(answers(), "[p]\n1=accepted\n2=accepted\n3=accepted\n");
        QVERIFY(!facade().IsActive());
    }

    void sendsOneAfterTheOther()
    {
        activate();
        QVERIFY(facade().ContinueAs(u"no:sender"_s) == 0 && facade().ContinueAs(u"v"_s) == 0);
        MoveToObjectCommand command;
        command.SetObjectId(u"Grün"_s);
        QVERIFY(facade().Send(command) == 1 && facade().Send(command) == 2);
        QCOMPARE(content(u"kelo-out.txt"_s),
                 "[General]\nCommandType=NamedCommand\nCommandId=MoveToObject\n"
                 "Parameters=\"BringToFront:0,ObjectId:Gr\xc3\xbcn,ClickPosition:0.000000;0.000000,"
                 "NorthDeviationInDegrees:0.000000,ViewingHeight:0.000000\"\n"
                 "Sender=v\nSerialNumber=1\n[End]\n");
        for (const char *const number : {"Number=1\n", "Number=2\n"}) { // waits for no answers
            QTRY_VERIFY(content(u"kelo-out.txt"_s).contains(number));
            QFile::remove(path(u"kelo-out.txt"_s));
        }
        put(u"kelo-out-answers.txt"_s, "[v]\n1=accepted\n2=refused\n");
        QTRY_COMPARE(m_outcomes,
                     (Outcomes{{1, KeloDelivery::Accepted}, {2, KeloDelivery::Refused}}));

        put(u"kelo-out-answers.txt"_s, "[v]\n41=accepted\n42=taken\n[w]\n77=accepted\n");
        QCOMPARE(facade().ContinueAs(u"v"_s), 41U);
        QCOMPARE(facade().Send(command), 42U);
        QVERIFY(content(u"kelo-out.txt"_s).contains("SerialNumber=42"));
    }

    void tellsSilence()
    {
        facade().SetTimes({.poll = 2ms, .leftover = 100ms, .answer = 20ms});
        activate();
        facade().Send(MoveToObjectCommand()); // taken, and never answered
        QVERIFY(QFile::remove(path(u"kelo-out.txt"_s)));
        QTRY_COMPARE(m_outcomes, (Outcomes{{1, KeloDelivery::Silence}}));
        facade().Send(MoveToObjectCommand()); // never taken
        QTRY_COMPARE(m_outcomes.value(1), std::pair(quint64(2), KeloDelivery::Silence));
        QVERIFY(!has(u"kelo-out.txt"_s));
    }

    void placesDataFiles()
    {
        const QTemporaryDir source;
        const QString odd = source.filePath(u"a:b,c;d.pol"_s);
        const QString same = source.filePath(u"copy.x,y"_s);
        QVERIFY(channel::writeFile(odd, "1 2\n") && QFile::copy(odd, same));
        QVERIFY(KeloIPCFacadeI::MakeDataFileParameter(odd).isEmpty()); // no directory
        put(u"kelo-data-OLD"_s, "x", 2h);
        put(u"foreign"_s, "x", 2h);
        activate();
        QVERIFY(!has(u"kelo-data-OLD"_s) && has(u"foreign"_s));

        const QString name = KeloIPCFacadeI::MakeDataFileParameter(odd);
        QVERIFY(name.contains(QRegularExpression(u"^kelo-data-[A-Z0-9]{25}\\.pol$"_s)));
        QCOMPARE(content(name), "1 2\n");
        QCOMPARE(KeloIPCFacadeI::MakeDataFileParameter(same), name.chopped(4));
        put(name, "1 2\n", 2h);
        QCOMPARE(KeloIPCFacadeI::MakeDataFileParameter(odd), name); // as new again
        activate();
        QVERIFY(has(name));
        QCOMPARE(KeloIPCFacadeI::MakeDataFileParameter(path(u"none"_s)), QString());

        HighlightPolygonsCommand command;
        command.SetPolygonFilename(odd);
        QCOMPARE(command.GetParameterText(), u"BringToFront:0,PolygonFile:"_s + name);
    }

    void findsThePartner()
    {
        QList<bool> changes;
        connect(&facade(), &KeloIPCFacadeI::PartnerRunningChanged, this,
                [&changes](bool isRunning) { changes << isRunning; });
        activate();
        QVERIFY(!facade().StartPartner(u"/none/dapex.exe"_s) && !facade().StartPartner({}));
        // The directory's own program of that name: a shell that lives until its file is gone.
        const QString program = path(u"dapex.exe"_s);
        QVERIFY(QFile::copy(QStandardPaths::findExecutable(u"sh"_s), program));
        const QString line = u"\"%1\" -c \"while [ -e '%1' ]; do sleep 0.01; done\""_s;
        QVERIFY(facade().StartPartner(line.arg(program)));
        QTRY_VERIFY(facade().IsPartnerRunning());
        QVERIFY(QFile::remove(program));
        QTRY_VERIFY(!facade().IsPartnerRunning());
        QCOMPARE(changes, QList<bool>({true, false}));
    }

#ifdef KELO_PARTNER_SIM
    void servesCarelessPartners()
    {
        const QMap<QString, qsizetype> received{{u"plain"_s, 2}, {u"bytes"_s, 2}, {u"half"_s, 0}};
        facade().SetTimes({.poll = 50ms});
        activate();
        for (const QString &manner : received.keys()) {
            m_handler.received.clear();
            QProcess partner;
            partner.start(QStringLiteral(KELO_PARTNER_SIM),
                          {m_dir->path(), u"--clumsy"_s, manner, u"--poll"_s, u"5"_s,
                           u"goto 1 0 0 12345.678"_s, u"goto 2 0 0 12345.678"_s});
            QTRY_COMPARE(partner.state(), QProcess::NotRunning);
            QTRY_VERIFY(!has(u"kelo-in.txt"_s));
            QCOMPARE(m_handler.received.size(), received[manner]);
        }
    }
#endif

private:
    void activate()
    {
        QVERIFY(facade().Activate(m_dir->path(), m_handler));
    }
    static KeloIPCFacadeI &facade()
    {
        return KeloIPCFacadeI::Instance();
    }
    QString path(const QString &name) const
    {
        return m_dir->filePath(name);
    }
    bool has(const QString &name) const
    {
        return QFile::exists(path(name));
    }
    void put(const QString &name, const QByteArray &bytes, std::chrono::seconds age = 0s) const
    {
        QVERIFY(channel::writeFile(path(name), bytes));
        const std::filesystem::path file = path(name).toStdString();
        std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) - age);
    }
    void receive(const QByteArray &bytes) const
    {
        put(u"kelo-in.txt"_s, bytes);
    }
    QByteArray content(const QString &name) const
    {
        return channel::readFile(path(name), 1 << 20).value_or("none");
    }
    QByteArray answers() const
    {
        return content(u"kelo-in-answers.txt"_s);
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    Recorder m_handler;
    Outcomes m_outcomes;
};

QTEST_GUILESS_MAIN(TestIPCFacade)
#include "tst_ipcfacade.moc"
