// SPDX-License-Identifier: GPL-2.0-or-later
// The running channel over real files, with a partner played by the test.
#include "core/platform/platform.h"
#include "ipc/exchangefiles_p.h"
#include "ipc/inbox_p.h"
#include "ipc/outbox_p.h"
#include "tests/support/MessageLog.h"
#include "tests/support/System.h"
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
    std::optional<quint64> GetLastNumber(const QString &) const override
    {
        if (whenAsked)
            whenAsked();
        return std::nullopt;
    }
    QList<int> received;
    QString lastOrigin;
    bool isAccepting = true;
    std::function<void()> then;
    std::function<void()> whenAsked;
};

const QString kIn = u"kelo-in.txt"_s;
const QString kInAnswers = u"kelo-in-answers.txt"_s;
const QString kOut = u"kelo-out.txt"_s;
const QString kOutAnswers = u"kelo-out-answers.txt"_s;
const QString kLock = u"kelo-viewer.lock"_s;

QByteArray integerCommand(int id)
{
    return "CommandType=IntegerCommand\nCommandId=" + QByteArray::number(id) + '\n';
}

QByteArray numbered(int number)
{
    return integerCommand(number) + "Sender=p\nSerialNumber=" + QByteArray::number(number) +
           "\n[End]\n";
}

#ifdef KELO_PARTNER_SIM
/// The status with which the simulator ends.
int runSimulator(const QString &directory, const QStringList &arguments)
{
    const QStringList place{directory, u"--poll"_s, u"5"_s};
    QProcess partner;
    partner.start(QStringLiteral(KELO_PARTNER_SIM), place + arguments);
    const auto isDone = [&partner] { return partner.state() == QProcess::NotRunning; };
    return QTest::qWaitFor(isDone, 30'000) ? partner.exitCode() : -1;
}
#endif

} // namespace

class TestIPCFacade : public QObject
{
    Q_OBJECT

private:
    void activate() { QVERIFY(facade().Activate(m_dir->path(), m_handler)); }
    static KeloIPCFacadeI &facade() { return KeloIPCFacadeI::Instance(); }
    QString path(const QString &name) const { return m_dir->filePath(name); }
    bool has(const QString &name) const { return QFile::exists(path(name)); }
    void put(const QString &name, const QByteArray &bytes, std::chrono::seconds age = 0s) const
    {
        QVERIFY(channel::writeFile(path(name), bytes));
        const std::filesystem::path file = path(name).toStdString();
        std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) - age);
    }
    /// Acts while the directory is not there.
    void whileAway(const std::function<void()> &act) const
    {
        QVERIFY(channel::renameFile(m_dir->path(), m_dir->path() + u".away"_s));
        act();
        QVERIFY(channel::renameFile(m_dir->path() + u".away"_s, m_dir->path()));
    }
    static quint64 send() { return facade().Send(MoveToObjectCommand()); }
    void receive(const QByteArray &bytes) const { put(kIn, bytes); }
    QByteArray content(const QString &name) const
    {
        return channel::readFile(path(name), 1 << 20).value_or("none");
    }
    QByteArray answers() const { return content(kInAnswers); }

    std::unique_ptr<QTemporaryDir> m_dir;
    Recorder m_handler;
    Outcomes m_outcomes;

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_handler = {};
        m_outcomes.clear();
        facade().SetTimes({.poll = 2ms, .settle = 4ms, .partner = 5ms});
        connect(&facade(), &KeloIPCFacadeI::CommandAnswered, this,
                [this](quint64 n, KeloDelivery what) { m_outcomes << std::pair(n, what); });
    }

    void cleanup() { KeloIPCFacadeI::Destroy(); }

    void answersWhoCounts()
    {
        activate();
        receive(integerCommand(5));
        QTRY_COMPARE(m_handler.received, QList({5}));
        QCOMPARE(m_handler.lastOrigin, u"/0"_s);
        QVERIFY(!has(kIn) && !has(kInAnswers)); // nobody would read it
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
        put(kInAnswers, "[p]\n4=taken\n");
        put(u"kelo-in.txt.claimed"_s, numbered(5));
        for (const int number : {4, 3, 6}) {
            activate();
            receive(numbered(number));
            QTRY_VERIFY(!has(kIn) && !has(u"kelo-in.txt.claimed"_s));
        }
        QTRY_COMPARE(answers(), "[p]\n4=taken\n5=accepted\n6=accepted\n");
        QCOMPARE(m_handler.received, QList({5, 6}));
    }

    void setsFaultyFilesAside_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<std::chrono::seconds>("age");
        QTest::newRow("is no whole command") << QByteArray("\x01\xff\0junk", 7) << 0s;
        QTest::newRow("no whole") << numbered(5).chopped(14) << 0s;
        QTest::newRow("more than 1 MiB") << QByteArray((1 << 20) + 1, 'x') << 0s;
        QTest::newRow("lay too long") << numbered(1) << 61s;
        QTest::newRow("unknown command: Dance")
            << "CommandType=NamedCommand\nCommandId=Dance\n[End]"_ba << 0s;
    }

    void setsFaultyFilesAside()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const std::chrono::seconds, age);
        put(kIn, bytes, age);
        const MessageLog log;
        activate();
        QTRY_VERIFY(has(u"kelo-in.txt.rejected"_s));
        QCOMPARE(QFileInfo(path(u"kelo-in.txt.rejected"_s)).size(), bytes.size());
        receive(numbered(9));
        QTRY_COMPARE(m_handler.received, QList({9})); // and only this
        QCOMPARE(log.lines().filter(QLatin1StringView(QTest::currentDataTag())), log.lines());
        QCOMPARE(log.lines().size(), 1);
    }

    void survivesObstacles()
    {
        const MessageLog log;
        activate();
        for (const int times : {1, 2}) { // said once, not at each look, and again when it is back
            QVERIFY(QDir(m_dir->path()).mkdir(kIn));
            QTRY_COMPARE(log.lines().size(), times);
            QVERIFY(QDir(m_dir->path()).rmdir(kIn));
            receive(numbered(times));
            QTRY_COMPARE(m_handler.received.size(), times);
        }
        whileAway([&log] {
            QTRY_VERIFY(log.lines().last().endsWith(u"is gone"_s));
            QCOMPARE(send(), 1U);
        });
        QTRY_VERIFY(has(kOut));
        receive(numbered(3));
        QTRY_COMPARE(m_handler.received, QList({1, 2, 3}));

        const QString half(QChar(0xD800)); // of a surrogate pair
        const QString atNul = path(u"a"_s) + QChar::Null;
        for (const QString &none : {QString(), path(kOut), path(half), atNul})
            QVERIFY(!facade().Activate(none, m_handler) && !facade().IsActive());
        QCOMPARE(send(), 0U);
        QVERIFY(!has(u"a"_s) && !has(u"?"_s));
    }

    /// Nothing is opened that others put under the names of temporary files.
    void keepsOutOfLinksAndPipes()
    {
        KELO_UNIX_ONLY("there are neither links nor pipes of that kind");
        const QTemporaryDir outside;
        QVERIFY(channel::writeFile(outside.filePath(u"precious"_s), "mine"));
        QVERIFY(QFile::link(outside.filePath(u"precious"_s), path(u"kelo-out.txt.new"_s)));
        for (const QString &name : {u"kelo-in-answers.txt.new"_s, kOutAnswers})
            QVERIFY(testsystem::makePipe(path(name)));
        activate();
        QVERIFY(!facade().ContinueAs(u"v"_s)); // a pipe holds no answers
        receive(numbered(1));
        QTRY_COMPARE(answers(), "[p]\n1=accepted\n");
        send();
        QTRY_VERIFY(content(kOut).contains("MoveToObject"));
        QCOMPARE(*channel::readFile(outside.filePath(u"precious"_s), 9), "mine");
    }

    void tellsSendersWhatItCannotTake_data()
    {
        QTest::addColumn<QString>("obstacle");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QByteArray>("told");
        QTest::newRow("claimed") << u"kelo-in.txt.claimed/x"_s << u"claim"_s
                                 << "[p]\n1=refused\n"_ba;
        // Not told, since nothing can be written; but not carried out either, and kept.
        QTest::newRow("answers") << u"kelo-in-answers.txt/x"_s << u"read"_s << "none"_ba;
    }

    void tellsSendersWhatItCannotTake()
    {
        QFETCH(const QString, obstacle);
        QFETCH(const QString, line);
        QVERIFY(QDir(m_dir->path()).mkpath(obstacle)); // a directory that cannot be replaced
        facade().SetTimes({.poll = 2ms, .settle = 4ms, .partner = 5ms, .leftover = 60ms});
        const MessageLog log;
        activate();
        receive(numbered(1));
        QTRY_VERIFY(has(u"kelo-in.txt.rejected"_s));
        QTEST(answers(), "told");
        QVERIFY(m_handler.received.isEmpty());
        QCOMPARE(log.lines().filter(u"Cannot %1 "_s.arg(line)).size(), 1);
        QCOMPARE(log.lines().filter(u"lay too long"_s).size(), 1);
        QCOMPARE(log.lines().size(), 2);
    }

    /// The lock of another process.
    void keepsOffOtherViewers_data()
    {
        QTest::addColumn<QString>("lock"); // %1 and %2: number and start of a process that runs
        QTest::addColumn<std::chrono::seconds>("age");
        QTest::addColumn<bool>("isFree");
        const QString here = QSysInfo::machineHostName();
        QTest::newRow("runs") << u"%1 %2 "_s + here << 9000s << false;
        QTest::newRow("another got its number") << u"%1 7%2 "_s + here << 0s << true;
        QTest::newRow("ended") << u"2147483000 %2 "_s + here << 0s << true;
        QTest::newRow("died while writing") << u""_s << 0s << true;
        QTest::newRow("another computer") << u"1 1 elsewhere"_s << 0s << false;
        QTest::newRow("another computer, silent") << u"1 1 elsewhere"_s << 120s << true;
    }

    void keepsOffOtherViewers()
    {
        QFETCH(const QString, lock);
        QFETCH(const std::chrono::seconds, age);
        QFETCH(const bool, isFree);
        QProcess other;
        other.startCommand(testsystem::sleepCommand());
        QVERIFY(other.waitForStarted());
        const auto process = static_cast<std::uint32_t>(other.processId());
        const QString start = QString::number(quint64{platform::processStartTime(process)});
        const QString text = QString(lock).replace(u"%1"_s, QString::number(process));
        put(kLock, QString(text).replace(u"%2"_s, start).toUtf8(), age);
        const MessageLog log;
        QCOMPARE(facade().Activate(m_dir->path(), m_handler), isFree);
        QCOMPARE(log.lines().filter(u"Another viewer"_s).size(), isFree ? 0 : 1);
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files).size(), 1); // nothing left beside it
        if (isFree) {
            put(kLock, "1 1 elsewhere"); // came while this one slept
            QTRY_VERIFY(!facade().IsActive());
            QVERIFY(has(kLock));
            QFile::remove(path(kLock));
            activate();
        }
        facade().Deactivate();
        QCOMPARE(has(kLock), !isFree);
        other.kill();
        other.waitForFinished();
    }

    void survivesWhatHandlersDo()
    {
        activate();
        m_handler.then = [this] { // an event loop must not let the next command in
            m_handler.then = nullptr;
            receive(numbered(2));
            QTest::qWait(20);
            QCOMPARE(m_handler.received, QList({1}));
        };
        receive(numbered(1));
        QTRY_COMPARE(m_handler.received, QList({1, 2}));
        m_handler.then = [this] { // switched on anew, the channel knows what became of it
            m_handler.then = nullptr;
            activate();
        };
        receive(numbered(3));
        QTRY_COMPARE(m_handler.received.size(), 3);
        receive(numbered(4));
        QTRY_COMPARE(answers(), "[p]\n1=accepted\n2=accepted\n3=accepted\n4=accepted\n");
        m_handler.whenAsked = [this] { // after the command was taken, before it is handed over
            m_handler.whenAsked = nullptr;
            QMetaObject::invokeMethod(&facade(), &KeloIPCFacadeI::Deactivate, Qt::QueuedConnection);
        };
        receive(numbered(5));
        QTRY_VERIFY(answers().endsWith("5=refused\n"));
        activate();
        m_handler.then = [] { KeloIPCFacadeI::Destroy(); };
        receive(numbered(6));
        QTRY_VERIFY(answers().endsWith("6=accepted\n"));
        QVERIFY(!facade().IsActive() && !has(kLock));
        QCOMPARE(m_handler.received, QList({1, 2, 3, 4, 6}));
    }

    void sendsOneAfterTheOther()
    {
        activate();
        QVERIFY(!facade().ContinueAs(u"no:sender"_s) && facade().ContinueAs(u"v"_s) == 0U);
        MoveToObjectCommand command;
        command.SetObjectId(u"Grün"_s);
        QVERIFY(facade().Send(command) == 1 && facade().Send(command) == 2);
        QCOMPARE(content(kOut),
                 "[General]\nCommandType=NamedCommand\nCommandId=MoveToObject\n"
                 "Parameters=\"BringToFront:0,ObjectId:Gr\xc3\xbcn,ClickPosition:0.000000;0.000000,"
                 "NorthDeviationInDegrees:0.000000,ViewingHeight:0.000000\"\n"
                 "Sender=v\nSerialNumber=1\n[End]\n");
        for (const char *const number : {"Number=1\n", "Number=2\n"}) { // waits for no answers
            QTRY_VERIFY(content(kOut).contains(number));
            QFile::remove(path(kOut));
        }
        put(kOutAnswers, "[v]\n1=accepted\n2=refused\n");
        QTRY_COMPARE(m_outcomes,
                     (Outcomes{{1, KeloDelivery::Accepted}, {2, KeloDelivery::Refused}}));

        put(kOutAnswers, "[v]\n41=accepted\n42=taken\n[w]\n77=accepted\n");
        QCOMPARE(facade().ContinueAs(u"v"_s), 41U);
        QCOMPARE(send(), 42U);
        QVERIFY(content(kOut).contains("SerialNumber=42"));

        QFile::remove(path(kOutAnswers));
        QCOMPARE(facade().ContinueAs(u"v"_s), 41U);     // remembered
        QCOMPARE(facade().ContinueAs(u"new"_s, 5), 5U); // as the application says
        whileAway([] {
            QCOMPARE(facade().ContinueAs(u"v"_s), std::nullopt); // there may be answers
            QCOMPARE(send(), 6U);
        });
        QCOMPARE(facade().ContinueAs(u"v"_s), 41U);
    }

    /// What is answered under a number that was given before is the answer to another command.
    void noticesNumbersGivenBefore()
    {
        activate();
        QCOMPARE(facade().ContinueAs(u"v"_s), 0U); // the partner's answers are away
        QCOMPARE(send(), 1U);
        QCOMPARE(send(), 2U);
        put(kOutAnswers, "[v]\n1=accepted\n2=accepted\n3=accepted\n");
        QTRY_COMPARE(m_outcomes,
                     (Outcomes{{1, KeloDelivery::Silence}, {2, KeloDelivery::Silence}}));
        QVERIFY(!has(kOut));
        QCOMPARE(send(), 4U);
        put(kOutAnswers, "[v]\n4=accepted\n");
        QTRY_COMPARE(m_outcomes.value(2), std::pair(quint64(4), KeloDelivery::Accepted));
    }

    /// A listener that continues anew wants to hear nothing of what it has forgotten.
    void forgetsWhenContinuing()
    {
        facade().SetTimes({.poll = 2ms, .leftover = 20ms});
        activate();
        connect(&facade(), &KeloIPCFacadeI::CommandAnswered, this,
                [] { QCOMPARE(facade().ContinueAs(u"v"_s), 0U); });
        for (int i = 0; i < 3; ++i)
            send();
        QTRY_COMPARE(m_outcomes.size(), 1);
        QTest::qWait(50);
        QCOMPARE(m_outcomes.size(), 1);

        connect(&facade(), &KeloIPCFacadeI::CommandAnswered, this, &KeloIPCFacadeI::Destroy);
        for (int i = 0; i < 3; ++i)
            send();
        QTRY_COMPARE(m_outcomes.size(), 2);
        QVERIFY(!facade().IsActive());
    }

    void goesByLooksWhereClocksJump()
    {
        const auto isTaken = [this](bool isSeenMissing, std::chrono::seconds age) {
            m_dir = std::make_unique<QTemporaryDir>();
            channel::Inbox inbox(m_dir->path(), 1000, 60'000);
            if (isSeenMissing && inbox.poll(0, m_handler))
                qFatal("there is no file yet");
            put(kIn, numbered(1), age);
            return inbox.poll(1000, m_handler).has_value();
        };
        QVERIFY(isTaken(true, 7200s)); // its clock is behind
        QVERIFY(isTaken(true, -7200s));
        QVERIFY(!isTaken(false, 7200s)); // nobody looked, and it is old
        QVERIFY(isTaken(false, 0s));
    }

    /// A file without end mark has to keep its bytes from look to look, whatever its time and size.
    void waitsUntilFilesSettle()
    {
        channel::Inbox inbox(m_dir->path(), 1000, 60'000);
        receive(integerCommand(1));
        const auto time = channel::modifiedTime(path(kIn));
        QVERIFY(!inbox.poll(0, m_handler));
        receive(integerCommand(2));
        channel::setModifiedTime(path(kIn), *time);
        QVERIFY(!inbox.poll(1000, m_handler) && !inbox.poll(1999, m_handler));
        QVERIFY(inbox.poll(2000, m_handler));
        receive(integerCommand(2)); // the same once more
        QVERIFY(!inbox.poll(2500, m_handler) && inbox.poll(3500, m_handler));
    }

    void readsAnswersOfTheSameSizeAndTime()
    {
        channel::Outbox outbox(m_dir->path(), u"v"_s, 60'000, 10'000);
        for (const quint64 number : {1U, 2U}) {
            outbox.put({u"NamedCommand"_s, u"A"_s, {}, u"v"_s, number}, 0);
            QVERIFY(QFile::remove(path(kOut)));
            QVERIFY(outbox.poll(0).empty());
            put(kOutAnswers, "[v]\n" + QByteArray::number(number) + "=accepted\n");
            channel::setModifiedTime(path(kOutAnswers), 1'700'000'000'000);
            QCOMPARE(outbox.poll(1000).size(), 1U);
        }
    }

    void tellsSilence()
    {
        facade().SetTimes({.poll = 2ms, .leftover = 100ms, .answer = 20ms});
        activate();
        send(); // taken, and never answered
        QVERIFY(QFile::remove(path(kOut)));
        QTRY_COMPARE(m_outcomes, (Outcomes{{1, KeloDelivery::Silence}}));
        send(); // never taken
        QTRY_COMPARE(m_outcomes.value(1), std::pair(quint64(2), KeloDelivery::Silence));
        QVERIFY(!has(kOut));
    }

    void placesDataFiles()
    {
        KELO_UNIX_ONLY("about names that the system does not take");
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
        put(name, "3 4\n"); // as large, but not the same
        QCOMPARE(KeloIPCFacadeI::MakeDataFileParameter(odd), name);
        QCOMPARE(content(name), "1 2\n");
        const QString half(QChar(0xD800)); // of a surrogate pair
        for (const QString &none :
             {path(u"none"_s), half, path(half), odd + QChar::Null, path(u""_s)})
            QCOMPARE(KeloIPCFacadeI::MakeDataFileParameter(none), QString());

        HighlightPolygonsCommand command;
        command.SetPolygonFilename(odd);
        QCOMPARE(command.GetParameterText(), u"BringToFront:0,PolygonFile:"_s + name);
    }

    void findsThePartner()
    {
        KELO_UNIX_ONLY("the partner is a shell");
        QList<bool> changes;
        const auto note = [&changes](bool isRunning) {
            changes << isRunning;
            if (!isRunning) // deleted in its own signal
                KeloIPCFacadeI::Destroy();
        };
        connect(&facade(), &KeloIPCFacadeI::PartnerRunningChanged, this, note);
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
        QCOMPARE(changes, QList({true, false}));
    }

#ifdef KELO_PARTNER_SIM
    void servesCarelessPartners()
    {
        const QMap<QString, qsizetype> received{{u"plain"_s, 2}, {u"bytes"_s, 2}, {u"half"_s, 0}};
        facade().SetTimes({.poll = 50ms, .settle = 300ms});
        activate();
        for (const QString &manner : received.keys()) {
            m_handler.received.clear();
            const QString two = u"--clumsy|%1|goto 1 0 0 12345.678|goto 2 0 0 12345.678"_s;
            runSimulator(m_dir->path(), two.arg(manner).split(u'|'));
            QTRY_VERIFY(!has(kIn));
            QCOMPARE(m_handler.received.size(), received[manner]);
        }
    }

    void simulatorTellsByItsStatus()
    {
        facade().SetTimes({.poll = 20ms});
        activate();
        const auto check = [this](const QString &arguments, int status) {
            QVERIFY2(runSimulator(m_dir->path(), arguments.split(u'|')) == status,
                     qPrintable(arguments));
        };
        check(u"test|integer 3"_s, 0);
        check(u"test|raw Dance"_s, 1);
        check(u"--silence|1|--clumsy|plain|test"_s, 1); // before the viewer looks twice
        for (const QString &wrong :
             {u"--poll|0"_s, u"--silence|1s"_s, u"--sender|a b"_s, u"--journal|/none/x"_s,
              u"goto 1 nan"_s, u"integer 1.5"_s, u"find a:b"_s, u"--clumsy|very"_s, u"--poll"_s,
              u"--unknown"_s})
            check(wrong, 2);
    }
#endif
};

QTEST_GUILESS_MAIN(TestIPCFacade)
#include "tst_ipcfacade.moc"
