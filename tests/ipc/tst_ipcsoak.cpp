// SPDX-License-Identifier: GPL-2.0-or-later
// Simulator and facade together. They exchange commands while each is killed at random and started
// again: every command takes effect exactly once, in order. KELO_SOAK sets how many go each way.
#include <QtTest>
#include <kelo_base/ipc/KeloCommandData.h>
#include <kelo_base/ipc/KeloIPCCommandHandler.h>
#include <kelo_base/ipc/KeloIPCFacade.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kShortSoak = 150;

/// Lines of a journal that end; what is being written does not count.
QByteArrayList linesOf(const QString &journal)
{
    QFile file(journal);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArrayList lines = file.readAll().split('\n');
    lines.removeLast();
    return lines;
}

class Recorder : public KeloIPCCommandHandler
{
public:
    bool HandleCommand(const KeloCommandData &command, const KeloCommandOrigin &) override
    {
        positions << command.x;
        heights << command.viewingHeight;
        return true;
    }
    QList<double> positions;
    QList<double> heights;
};

/// A program that is killed and started again, until it is told to end.
class Victim
{
public:
    Victim(const QString &program, const QStringList &arguments)
    {
        m_process.setProgram(program);
        m_process.setArguments(arguments);
        m_process.setStandardOutputFile(QProcess::nullDevice());
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start();
    }
    ~Victim() { kill(); }
    Q_DISABLE_COPY_MOVE(Victim)

    void killAndRestart()
    {
        kill();
        m_process.start();
        ++kills;
    }
    int kills = 0;

private:
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    QProcess m_process;
};

} // namespace

class TestIPCSoak : public QObject
{
    Q_OBJECT

private slots:
    void servesCarelessPartners_data();
    void servesCarelessPartners();
    void deliversExactlyOnce();
};

void TestIPCSoak::servesCarelessPartners_data()
{
    QTest::addColumn<QString>("manner");
    QTest::addColumn<QList<double>>("received"); // x of each command
    QTest::newRow("without numbers") << u"plain"_s << QList<double>{1, 2};
    QTest::newRow("byte by byte") << u"bytes"_s << QList<double>{1, 2};
    QTest::newRow("dying half way") << u"half"_s << QList<double>{};
}

void TestIPCSoak::servesCarelessPartners()
{
    QFETCH(const QString, manner);
    QFETCH(const QList<double>, received);
    const QTemporaryDir dir;
    Recorder recorder;
    KeloIPCFacadeI &facade = KeloIPCFacadeI::Instance();
    facade.SetTimes({.poll = 50ms});
    QVERIFY(facade.Activate(dir.path(), recorder));
    QProcess partner;
    partner.start(QStringLiteral(KELO_PARTNER_SIM),
                  {dir.path(), u"--clumsy"_s, manner, u"--poll"_s, u"5"_s,
                   u"goto 1 0 0 12345.678"_s, u"goto 2 0 0 12345.678"_s});
    QTRY_COMPARE(partner.state(), QProcess::NotRunning);
    QTRY_VERIFY(!QFile::exists(dir.filePath(u"kelo-in.txt"_s)));
    QCOMPARE(recorder.positions, received);
    QCOMPARE(recorder.heights, QList<double>(received.size(), 12345.678)); // none was cut off
    KeloIPCFacadeI::Destroy();
}

void TestIPCSoak::deliversExactlyOnce()
{
    const int count = std::max(kShortSoak, qEnvironmentVariableIntValue("KELO_SOAK"));
    const QTemporaryDir dir;
    const QString exchange = dir.filePath(u"exchange"_s);
    QVERIFY(QDir().mkpath(exchange));
    const QString in = dir.filePath(u"in"_s);
    const QString out = dir.filePath(u"out"_s);
    QFile script(dir.filePath(u"script"_s));
    QVERIFY(script.open(QIODevice::WriteOnly));
    for (int i = 1; i <= count; ++i)
        script.write("goto " + QByteArray::number(i) + " 0\n");
    script.close();

    Victim viewer(QStringLiteral(KELO_SOAK_VIEWER), {exchange, in, QString::number(count)});
    Victim partner(QStringLiteral(KELO_PARTNER_SIM),
                   {exchange, u"--script"_s, script.fileName(), u"--journal"_s, out, u"--sender"_s,
                    u"sim"_s, u"--poll"_s, u"1"_s, u"--silence"_s, u"100"_s, u"--repeat"_s,
                    u"--listen"_s});
    QRandomGenerator random(17);
    QElapsedTimer sinceProgress;
    sinceProgress.start();
    for (qsizetype done = 0; linesOf(in).size() < count || linesOf(out).size() < count;) {
        // A kill comes within the next commands, wherever the exchange may then be.
        QTest::qWait(20 + random.bounded(200));
        (random.bounded(2) == 0 ? viewer : partner).killAndRestart();
        const qsizetype now = linesOf(in).size() + linesOf(out).size();
        if (std::exchange(done, now) != now)
            sinceProgress.start();
        QVERIFY2(!sinceProgress.hasExpired(60'000), qPrintable(QString::number(now)));
    }
    qInfo("%d commands each way, %d and %d kills", count, viewer.kills, partner.kills);
    QVERIFY(viewer.kills > 0 && partner.kills > 0);
    QVERIFY(!QFile::exists(exchange + u"/kelo-in.txt.rejected"_s));
    const QByteArrayList received = linesOf(in);
    const QByteArrayList sent = linesOf(out);
    QCOMPARE(received.size(), count);
    QCOMPARE(sent.size(), count);
    for (int i = 1; i <= count; ++i) {
        const QByteArray number = QByteArray::number(i);
        QCOMPARE(received[i - 1], number + ' ' + number);
        QCOMPARE(sent[i - 1].first(sent[i - 1].indexOf(",Click")),
                 "viewer " + number + " MoveToObject BringToFront:0,ObjectId:" + number);
    }
}

QTEST_GUILESS_MAIN(TestIPCSoak)
#include "tst_ipcsoak.moc"
