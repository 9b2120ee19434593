// SPDX-License-Identifier: GPL-2.0-or-later
// The application's server: its settings, its restarts, and real processes that misbehave.
#include "core/platform/childprocess.h"
#include "core/platform/platform.h"
#include "core/platform/windowsquoting.h"
#include "core/restartrule_p.h"
#include "core/rotatinglog_p.h"
#include "core/serverrecord_p.h"
#include "tests/support/FileBytes.h"
#include "tests/support/System.h"
#include "tests/support/TemporaryHome.h"

#include <QProcess>
#include <QSettings>
#include <kelo_base/core/ServerProcess.h>
#include <kelo_base/core/UserDataManager.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr bool kKeepsFreedMemory = true;
#else
constexpr bool kKeepsFreedMemory = false;
#endif

/// Whether what a process takes of the memory tells what was waiting for the log at once.
bool showsWhatWaited()
{
    return !kKeepsFreedMemory && testsystem::isUnix(); // elsewhere the toolkit reads ahead
}

bool isAlive(qint64 pid)
{
    return platform::processStartTime(static_cast<quint32>(pid)) != 0;
}

} // namespace

class TestServer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(u"O"_s);
        QCoreApplication::setApplicationName(u"A"_s);
    }

    void init()
    {
        m_home.reset(); // which gives back the home that was before
        m_home = std::make_unique<TemporaryHome>();
        m_pids = m_home->filePath(u"pids"_s);
    }

    /// Whatever a test did, nothing is left running after it.
    void cleanup()
    {
        for (const qint64 pid : pids())
            QTRY_VERIFY2(!isAlive(pid), qPrintable(u"%1 is left"_s.arg(pid)));
    }

    void takesCommandLinesApart_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("nothing") << u"  "_s << QStringList();
        QTest::newRow("blanks part") << u" -p  80\t-v "_s << QStringList{u"-p"_s, u"80"_s, u"-v"_s};
        QTest::newRow("quotes within a word") << u"--n=\"Ä ö\"x"_s << QStringList{u"--n=Ä öx"_s};
        QTest::newRow("an empty one") << u"a \"\" b"_s << QStringList{u"a"_s, QString(), u"b"_s};
        QTest::newRow("a doubled quote") << u"\"say \"\"hi\"\"\""_s << QStringList{u"say \"hi\""_s};
        QTest::newRow("backslashes are themselves")
            << u"C:\\d\\ \"\\\\x\\\""_s << QStringList{u"C:\\d\\"_s, u"\\\\x\\"_s};
        QTest::newRow("a quote left open") << u"a \"b c"_s << QStringList{u"a"_s, u"b c"_s};
    }

    void takesCommandLinesApart()
    {
        QFETCH(const QString, line);
        QTEST(SplitServerArguments(line), "arguments");
    }

    void quotesForWindows_data()
    {
        QTest::addColumn<QString>("argument");
        QTest::addColumn<QString>("quoted");
        QTest::newRow("a plain one") << u"C:\\x"_s << u"C:\\x"_s;
        QTest::newRow("an empty one") << u""_s << u"\"\""_s;
        QTest::newRow("a quote") << u"a\"b"_s << u"\"a\\\"b\""_s;
        QTest::newRow("a backslash before a quote") << u"a\\\"b"_s << u"\"a\\\\\\\"b\""_s;
        QTest::newRow("a blank and a last backslash") << u"C:\\a b\\"_s << u"\"C:\\a b\\\\\""_s;
        QTest::newRow("backslashes elsewhere") << u"\\\\h\\a b"_s << u"\"\\\\h\\a b\""_s;
    }

    void quotesForWindows()
    {
        QFETCH(const QString, argument);
        const std::u16string ours = platform::windowsQuoted(argument.toStdU16String());
        QTEST(QString::fromStdU16String(ours), "quoted");
    }

    void readsItsSettings_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QStringList>("list");
        const QString relative = QCoreApplication::applicationDirPath() + u"/srv/kelo"_s;
        QTest::newRow("a relative program, a line")
            << u"srv/kelo"_s << "-p 80"_ba << relative << QStringList{u"-p"_s, u"80"_s};
        QTest::newRow("an absolute program, a list with blanks, quotes, umlauts and nothing")
            << u"/opt/kelo"_s << "--name, \"Ä ö\", \"\", \"\\\"q\\\"\""_ba
            << QFileInfo(u"/opt/kelo"_s).absoluteFilePath()
            << QStringList{u"--name"_s, u"Ä ö"_s, QString(), u"\"q\""_s};
        QTest::newRow("no program") << u""_s << ""_ba << u""_s << QStringList();
    }

    void readsItsSettings()
    {
        QFETCH(const QString, program);
        QFETCH(const QByteArray, arguments);
        const QString path = ServerSettingsFiles().constFirst();
        const QByteArray others = "startDetached=true\n[config]\ndevMode=1\n";
        writeBytes(path, "[server]\nserverApplication=" + program.toUtf8() +
                             "\nserverArguments=" + arguments + '\n' + others);
        const ServerSettings settings = ReadServerSettings();
        UserDataManagerI::Destroy();
        QCOMPARE(settings.file, path);
        QTEST(settings.program, "path");
        QTEST(settings.arguments, "list");
        QVERIFY(settings.startDetached && settings.devMode);
    }

    void pausesLongerAndGivesUp()
    {
        RestartRule rule;
        QList<qint64> pauses;
        RestartRule::Time now = 0s;
        // Each runs three minutes, so that five never fall within ten.
        for (int i = 0; i < 8; ++i, now += 3min)
            pauses << rule.crashed(now, now + 3min).value_or(0s).count() / 1000;
        QCOMPARE(pauses, (QList<qint64>{1, 2, 4, 8, 16, 32, 60, 60}));
        QCOMPARE(rule.crashed(now, now + 10min), 1s); // it has run long enough to be trusted again

        RestartRule strict;
        for (int i = 0; i < 4; ++i)
            QVERIFY(strict.crashed(0s, 0s));
        RestartRule later = strict;
        QVERIFY(!strict.crashed(0s, 10min));
        QVERIFY(later.crashed(0s, 10min + 1s));
    }

    void keepsItsLogSmall()
    {
        RotatingLog log(folder(), u"server"_s);
        const QByteArray line = QByteArray(99'999, 'x') + '\n';
        for (int i = 0; i < 100; ++i)
            log.write(line);
        log.write("the last line\n");
        const QFileInfoList files = QDir(folder()).entryInfoList(QDir::Files);
        QCOMPARE(files.size(), RotatingLog::kFiles);
        for (const QFileInfo &file : files)
            QVERIFY(file.size() <= RotatingLog::kFileBytes);
        QVERIFY(bytesOf(log.fileName()).endsWith("x\nthe last line\n"));
    }

    void passesArgumentsAsWritten()
    {
        ServerSettings wanted = settings(u"arguments"_s);
        const QStringList given{u"a b"_s, u""_s, u"\"q\" 'x'"_s, u"Ä€"_s, u"\\"_s, u"$HOME *"_s};
        wanted.arguments += given;
        ServerProcess server(wanted, folder());
        server.Start();
        QTRY_COMPARE(bytesOf(m_pids).count('\n'), given.size());
        QCOMPARE(QString::fromUtf8(bytesOf(m_pids)), given.join(u'\n') + u'\n');
        QFile::remove(m_pids);
    }

    void becomesReady_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<std::chrono::milliseconds>("after");
        QTest::newRow("when its line appears, in two pieces") << "is ready"_ba << 60'000ms;
        QTest::newRow("when it has run for a while") << ""_ba << 50ms;
    }

    void becomesReady()
    {
        QFETCH(const QByteArray, line);
        QFETCH(const std::chrono::milliseconds, after);
        ServerProcess server(settings(u"serve"_s), folder());
        server.SetReadyLine(line);
        server.SetReadyAfter(after);
        QByteArray output;
        connect(&server, &ServerProcess::outputReceived, this,
                [&output](const QByteArray &piece) { output += piece; });
        server.Start();
        QCOMPARE(server.GetState(), ServerState::Starting);
        QTRY_COMPARE(server.GetState(), ServerState::Ready);
        QTRY_VERIFY(output.contains("ready now"));
        QCOMPARE(bytesOf(server.GetLogFile()), output);
    }

    void startsAgainAfterACrash_data()
    {
        QTest::addColumn<QString>("mode");
        QTest::newRow("of one that aborts") << u"crash"_s;
        QTest::newRow("of one that just ends") << u"exit"_s;
    }

    void startsAgainAfterACrash()
    {
        QFETCH(const QString, mode);
        ServerProcess server(settings(mode), folder());
        server.SetReadyAfter(30s); // however long the program takes to begin
        QList<ServerState> states;
        connect(&server, &ServerProcess::stateChanged, this,
                [&states](ServerState state) { states << state; });
        server.Start();
        QTRY_COMPARE(pids().size(), 2); // a second later
        using enum ServerState;
        QCOMPARE(states.first(3), QList({Starting, Pausing, Starting}));
        QVERIFY(server.GetError().isEmpty());
        server.Stop();
        QTRY_COMPARE(server.GetState(), Stopped);
        QCOMPARE(pids().size(), 2);
    }

    void endsPolitelyThenFirmly_data()
    {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<int>("processes");
        QTest::newRow("one that hears") << u"serve"_s << 1;
        QTest::newRow("one that does not") << u"hang"_s << 1;
        QTest::newRow("one with children in all places") << u"fork"_s << 4;
    }

    void endsPolitelyThenFirmly()
    {
        QFETCH(const QString, mode);
        QFETCH(const int, processes);
        ServerProcess server(settings(mode), folder());
        server.Start();
        QTRY_COMPARE(pids().size(), processes);
        server.Stop();
        QCOMPARE(server.GetState(), ServerState::Stopping);
        QTRY_COMPARE_WITH_TIMEOUT(server.GetState(), ServerState::Stopped, 10'000);
        for (const qint64 pid : pids())
            QTRY_VERIFY(!isAlive(pid)); // the system takes its time with orphans
        QCOMPARE(QDir(folder()).entryList({u"*.json"_s}, QDir::Files), QStringList());
    }

    void staysFlatUnderAFlood()
    {
        ServerProcess server(settings(u"flood"_s), folder());
        server.SetReadyLine("flood is ready");
        server.Start();
        const qint64 before = testsystem::memoryBytes();
        QTRY_COMPARE_WITH_TIMEOUT(server.GetState(), ServerState::Ready, 60'000);
        const qint64 grown = testsystem::memoryBytes() - before;
        QVERIFY2(!showsWhatWaited() || grown < 20LL * 1024 * 1024,
                 qPrintable(u"by %1 bytes"_s.arg(grown)));
        QCOMPARE(QDir(folder()).entryList({u"server*.log"_s}, QDir::Files).size(), 5);
    }

    void saysWhyItCannotStart()
    {
        ServerSettings wanted = settings(u"serve"_s);
        wanted.program = m_home->filePath(u"no such server"_s);
        for (const bool isDetached : {false, true}) {
            wanted.startDetached = isDetached;
            ServerProcess server(wanted, folder());
            server.Start();
            QTRY_COMPARE(server.GetState(), ServerState::Failed);
            QVERIFY(server.GetError().contains(QDir::toNativeSeparators(wanted.program)));
        }
    }

    void isLeftToDevelopers()
    {
        ServerSettings wanted = settings(u"serve"_s);
        wanted.devMode = true;
        ServerProcess server(wanted, folder());
        server.Start();
        QCOMPARE(server.GetState(), ServerState::LeftAlone);
        QVERIFY(!QFile::exists(folder()));
    }

    void isStartedByOneOfMany()
    {
        std::vector<std::unique_ptr<ServerProcess>> runs;
        for (int i = 0; i < 5; ++i) {
            runs.push_back(std::make_unique<ServerProcess>(settings(u"serve"_s), folder()));
            runs.back()->SetReadyAfter(0ms);
            runs.back()->Start();
        }
        QTRY_COMPARE(runs[0]->GetState(), ServerState::Ready);
        for (int i = 1; i < 5; ++i)
            QCOMPARE(runs[static_cast<std::size_t>(i)]->GetState(), ServerState::Elsewhere);
        QTRY_COMPARE(pids().size(), 1);
        runs.erase(runs.begin()); // the next one takes over
        QTRY_COMPARE(pids().size(), 2);
    }

    void findsADetachedOneAgain()
    {
        ServerSettings wanted = settings(u"serve"_s);
        wanted.startDetached = true;
        qint64 pid = 0;
        {
            ServerProcess server(wanted, folder());
            server.SetReadyAfter(10ms);
            server.Start();
            QTRY_COMPARE(server.GetState(), ServerState::Ready);
            pid = server.GetProcessId();
            server.Stop();
            QCOMPARE(server.GetState(), ServerState::Stopped);
        }
        QVERIFY(isAlive(pid));
        ServerProcess next(wanted, folder());
        next.Start();
        QCOMPARE(next.GetState(), ServerState::Ready);
        QCOMPARE(next.GetProcessId(), pid);
        QTRY_COMPARE(pids().size(), 1);
        testsystem::end(static_cast<quint32>(pid));
    }

    /// The number of the server is another process's now.
    void takesNoStrangerForItsServer()
    {
        QProcess stranger;
        stranger.start(u"" FAKE_SERVER ""_s, {u"serve"_s, m_home->filePath(u"stranger"_s)});
        QVERIFY(stranger.waitForReadyRead());
        ServerRecord record = recordOf(stranger.processId(), u"some marker"_s).value();
        --record.startTime;
        leaveRecord(record);
        ServerProcess server(settings(u"serve"_s), folder());
        server.SetReadyAfter(10ms);
        server.Start();
        QTRY_COMPARE(server.GetState(), ServerState::Ready);
        QVERIFY(server.GetProcessId() != stranger.processId());
        QVERIFY(stranger.state() == QProcess::Running && isAlive(stranger.processId()));
        stranger.kill();
        QVERIFY(stranger.waitForFinished());
    }

    void endsWhatAKilledRunLeft()
    {
        KELO_UNIX_ONLY("the system ends them with the run");
        const QString marker = u"left over"_s;
        QProcess left;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1(platform::kTreeVariable), marker);
        left.setProcessEnvironment(environment);
        left.start(u"" FAKE_SERVER ""_s, {u"fork"_s, m_pids});
        QTRY_COMPARE(pids().size(), 4);
        leaveRecord(recordOf(left.processId(), marker).value());
        left.kill(); // its children live on
        QVERIFY(left.waitForFinished());
        ServerProcess server(settings(u"serve"_s), folder());
        server.Start();
        for (const qint64 pid : pids().first(4))
            QTRY_VERIFY(!isAlive(pid));
    }

    void mayBeDeletedByItsListeners()
    {
        using enum ServerState;
        for (const ServerState state : {Starting, Ready, Stopping, Stopped}) {
            const QPointer server(new ServerProcess(settings(u"serve"_s), folder()));
            server->SetReadyAfter(10ms);
            connect(server, &ServerProcess::stateChanged, this, [=](ServerState now) {
                if (now == state)
                    delete server;
                else if (now == Ready)
                    server->Stop();
            });
            server->Start();
            QTRY_VERIFY_WITH_TIMEOUT(!server, 15'000);
        }
        const QPointer server(new ServerProcess(settings(u"serve"_s), folder()));
        connect(server, &ServerProcess::outputReceived, this, [server] { delete server; });
        server->Start();
        QTRY_VERIFY_WITH_TIMEOUT(!server, 15'000);
    }

private:
    ServerSettings settings(const QString &mode) const
    {
        return {QString(), u"" FAKE_SERVER ""_s, {mode, m_pids}, false, false};
    }
    QString folder() const { return m_home->filePath(u"server"_s); }
    void leaveRecord(const ServerRecord &record) const
    {
        QVERIFY(QDir().mkpath(folder()));
        QVERIFY(writeServerRecord(folder() + u"/server.json"_s, record));
    }
    QList<qint64> pids() const
    {
        QList<qint64> result;
        for (const QByteArray &line : bytesOf(m_pids).split('\n'))
            if (!line.isEmpty())
                result << line.toLongLong();
        return result;
    }

    std::unique_ptr<TemporaryHome> m_home;
    QString m_pids;
};

QTEST_GUILESS_MAIN(TestServer)
#include "tst_server.moc"
