// SPDX-License-Identifier: GPL-2.0-or-later
// Processes, thread names, histories, cursors.
#include <kelo_base/core/History.h>
#include <kelo_base/core/Process.h>
#include <kelo_base/core/ScopedOverrideCursor.h>
#include <kelo_base/core/ThreadName.h>

#include <QGuiApplication>
#include <QtTest>
#include <pthread.h>
#include <thread>

using namespace Qt::Literals::StringLiterals;

class TestServices : public QObject
{
    Q_OBJECT

private slots:
    void findsProcesses();
    void namesThreads_data();
    void namesThreads();
    void keepsHistories();
    void readsDamagedHistories_data();
    void readsDamagedHistories();
    void popsOneCursorMoreAfterRestoring();
};

void TestServices::findsProcesses()
{
    const QString own = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
    QVERIFY(IsProcessRunning(own.toUpper()));
    QVERIFY(IsProcessRunning(own.sliced(1).chopped(1)));
    QVERIFY(!IsProcessRunning(u"no such program 4711"_s));

    // The kernel knows 15 characters of this name only, and the second argument must not count.
    const QTemporaryDir dir;
    const QString program = dir.filePath(u"a_name_of_more_than_15_letters.exe"_s);
    QVERIFY(QFile::link(u"/bin/sh"_s, program));
    QProcess process;
    process.start(program, {u"-c"_s, u"read line; : no_such_argument_4711"_s});
    QVERIFY(process.waitForStarted());
    QTRY_VERIFY(IsProcessRunning(u"than_15_letters.EXE"_s));
    QVERIFY(!IsProcessRunning(u"no_such_argument_4711"_s));
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QVERIFY(!IsProcessRunning(u"than_15_letters"_s));
}

void TestServices::namesThreads_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("kept");
    QTest::newRow("short") << "worker"_ba
                           << "worker"_ba;
    QTest::newRow("longer than the kernel keeps") << "a long worker name"_ba
                                                  << "a long worker n"_ba;
    QTest::newRow("never half a character") << "a long worker ü"_ba
                                            << "a long worker "_ba;
    QTest::newRow("none") << QByteArray() << "before"_ba;
}

void TestServices::namesThreads()
{
    QFETCH(const QByteArray, name);
    char kept[16] = "";
    std::thread([&] {
        SetThreadName("before");
        SetThreadName(name.isNull() ? nullptr : name.constData());
        pthread_getname_np(pthread_self(), kept, sizeof kept);
    }).join();
    QTEST(QByteArray(kept), "kept");
}

void TestServices::keepsHistories()
{
    const QTemporaryDir dir;
    QSettings settings(dir.filePath(u"a.ini"_s), QSettings::IniFormat);
    settings.setValue("H/foreign"_L1, 1);
    WriteHistoryToFile(settings, u"H"_s, {u"a, b"_s, u""_s, u"ü\n"_s, u"d"_s});
    const QStringList shorter{u"x, y"_s, u""_s, u"ü\n@"_s};
    WriteHistoryToFile(settings, u"H"_s, shorter);
    QStringList entries{u"kept"_s};
    ReadHistoryFromFile(settings, u"none"_s, entries);
    ReadHistoryFromFile(settings, u"H"_s, entries);
    QCOMPARE(entries, QStringList(u"kept"_s) + shorter);
    QVERIFY(settings.contains("H/foreign"_L1) && !settings.contains("H/MRU.Array/4/Text"_L1));
    QCOMPARE(settings.value("H/MRU.Array/3/Text"_L1), QVariant(shorter.last()));
    WriteHistoryToFile(settings, u"H"_s, {});
    ReadHistoryFromFile(settings, u"H"_s, entries = {});
    QVERIFY(entries.isEmpty() && settings.group().isEmpty());
}

void TestServices::readsDamagedHistories_data()
{
    QTest::addColumn<QVariant>("size");
    QTest::addColumn<QStringList>("entries");
    QTest::newRow("missing in between") << QVariant(3) << QStringList({u"a"_s, u""_s, u"c"_s});
    QTest::newRow("cut") << QVariant(1) << QStringList({u"a"_s});
    QTest::newRow("negative") << QVariant(-1) << QStringList();
    QTest::newRow("two billion") << QVariant(2'000'000'000) << QStringList({u"a"_s, u""_s, u"c"_s});
    QTest::newRow("no number") << QVariant(u"x"_s) << QStringList();
}

void TestServices::readsDamagedHistories()
{
    QFETCH(const QVariant, size);
    const QTemporaryDir dir;
    QSettings settings(dir.filePath(u"a.ini"_s), QSettings::IniFormat);
    settings.setValue("H/MRU.Array/1/Text"_L1, u"a"_s);
    settings.setValue("H/MRU.Array/3/Text"_L1, u"c"_s);
    settings.setValue("H/MRU.Array/size"_L1, size);
    QStringList entries;
    ReadHistoryFromFile(settings, u"H"_s, entries);
    QTEST(entries, "entries");
}

void TestServices::popsOneCursorMoreAfterRestoring()
{
    const auto shape = [] {
        const QCursor *const cursor = QGuiApplication::overrideCursor();
        return cursor ? cursor->shape() : Qt::ArrowCursor;
    };
    const qor::QtScopedOverrideCursor outer(Qt::CrossCursor);
    qor::QtScopedOverrideCursor other(Qt::SizeAllCursor);
    other = outer;
    {
        qor::QtScopedOverrideCursor cursor(Qt::WaitCursor);
        QGuiApplication::setOverrideCursor(Qt::BusyCursor);
        cursor.RestoreCursor();
        QCOMPARE(shape(), Qt::WaitCursor);
    }
    QCOMPARE(shape(), Qt::SizeAllCursor);
}

QTEST_MAIN(TestServices)
#include "tst_services.moc"
