// SPDX-License-Identifier: GPL-2.0-or-later
// Simulator and facade together. They exchange commands while each is killed at random and started
// again, the directory goes away and comes back, and answers are deleted: every command takes
// effect exactly once, in order. Effects are counted by what a command says, not by its number.
// KELO_SOAK sets how many go each way.
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What is being written does not count, nor a file that is not there yet.
QByteArrayList linesOf(const QString &journal)
{
    QFile file(journal);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArrayList lines = file.readAll().split('\n');
    lines.removeLast();
    return lines;
}

/// Kills the program, if it runs, and starts it again.
void restart(QProcess &program)
{
    program.kill();
    program.waitForFinished();
    program.start();
}

/// What the commands in a journal were about.
QByteArrayList keysOf(const QString &journal)
{
    static const QRegularExpression key(u"[a-z]+-[0-9]+"_s);
    QByteArrayList keys;
    for (const QByteArray &line : linesOf(journal))
        keys << key.match(QString::fromLatin1(line)).captured().toLatin1();
    return keys;
}

/// Waits until a further command has come through each way, if one is left; a minute at most.
void awaitProgress(const QString &in, const QString &out, qsizetype count)
{
    for (const QString &journal : {in, out}) {
        const qsizetype wanted = std::min(count, linesOf(journal).size() + 1);
        static_cast<void>(
            QTest::qWaitFor([&] { return linesOf(journal).size() >= wanted; }, 60'000));
    }
}

} // namespace

class TestIPCSoak : public QObject
{
    Q_OBJECT

private slots:
    void deliversExactlyOnce()
    {
        const int count = std::max(400, qEnvironmentVariableIntValue("KELO_SOAK"));
        const QTemporaryDir dir;
        const QString exchange = dir.filePath(u"exchange"_s);
        QVERIFY(QDir().mkpath(exchange));
        const QString in = dir.filePath(u"in"_s);
        const QString out = dir.filePath(u"out"_s);
        QFile script(dir.filePath(u"script"_s));
        QVERIFY(script.open(QIODevice::WriteOnly));
        QByteArrayList received;
        QByteArrayList sent;
        for (int i = 1; i <= count; ++i) {
            received << "item-" + QByteArray::number(i);
            sent << "key-" + QByteArray::number(i);
            script.write("find " + received.last() + '\n');
        }
        script.close();

        QProcess viewer;
        viewer.setProgram(QStringLiteral(KELO_SOAK_VIEWER));
        viewer.setArguments({exchange, in, dir.filePath(u"told"_s), QString::number(count)});
        const QString options = u"%1 --script %2 --journal %3 --sender sim --poll 1 --silence 2000 "
                                "--repeat --listen"_s;
        QProcess partner;
        partner.setProgram(QStringLiteral(KELO_PARTNER_SIM));
        partner.setArguments(options.arg(exchange, script.fileName(), out).split(u' '));
        restart(viewer);
        restart(partner);
        QRandomGenerator random(17);
        QElapsedTimer sinceProgress;
        sinceProgress.start();
        for (qsizetype done = 0; linesOf(in).size() < count || linesOf(out).size() < count;) {
            // It comes within the next commands, wherever the exchange may then be.
            QTest::qWait(20 + random.bounded(200));
            switch (random.bounded(6)) {
            case 0:
                awaitProgress(in, out, count); // who only starts would make the directory anew
                QVERIFY(QDir().rename(exchange, exchange + u".away"_s));
                QTest::qWait(random.bounded(100));
                QVERIFY(QDir().rename(exchange + u".away"_s, exchange));
                break;
            case 1:
                // Who starts while they are gone has no memory of what was done: both sides have to
                // live from before until they are there again.
                awaitProgress(in, out, count);
                QFile::remove(exchange + u"/kelo-in-answers.txt"_s);
                QFile::remove(exchange + u"/kelo-out-answers.txt"_s);
                awaitProgress(in, out, count);
                break;
            default:
                restart(random.bounded(2) == 0 ? viewer : partner);
            }
            const qsizetype now = linesOf(in).size() + linesOf(out).size();
            if (std::exchange(done, now) != now)
                sinceProgress.start();
            QVERIFY2(!sinceProgress.hasExpired(60'000), qPrintable(QString::number(now)));
        }
        QVERIFY(!QFile::exists(exchange + u"/kelo-in.txt.rejected"_s));
        QCOMPARE(keysOf(in), received);
        QCOMPARE(keysOf(out), sent);
    }
};

QTEST_GUILESS_MAIN(TestIPCSoak)
#include "tst_ipcsoak.moc"
