// SPDX-License-Identifier: GPL-2.0-or-later
// Linked objects in the embedded database, and in a server when KELO_POSTGRES names its socket.
#include "tests/support/MessageLog.h"
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>
#include <kelo_base/ipc/LinkedObjects.h>

using namespace Qt::Literals::StringLiterals;

using Links = std::vector<KeloLinkedObject>;

class TestLinkedObjects : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void cleanup();
    void findsDocumentsForObjects();
    void storesAllOrNothing();
    void keepsSettings();
    void migrates();
    void refusesTablesItDoesNotKnow();
    void outlivesALostConnection();
    void doesNotWaitForLocks();

private:
    [[nodiscard]] QSqlDatabase connect(const QString &name) const;
    void run(const QString &text) const
    {
        QSqlQuery query(QSqlDatabase::database(u"test"_s));
        QVERIFY2(query.exec(text), qPrintable(query.lastError().text()));
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    bool m_isServer = false;
};

void TestLinkedObjects::initTestCase_data()
{
    QTest::addColumn<bool>("isServer");
    QTest::newRow("SQLite") << false;
    if (qEnvironmentVariableIsSet("KELO_POSTGRES"))
        QTest::newRow("PostgreSQL") << true;
}

QSqlDatabase TestLinkedObjects::connect(const QString &name) const
{
    if (!m_isServer)
        return LinkedObjects::MakeDatabase(m_dir->filePath(u"a.db"_s), name);
    QSqlDatabase database = QSqlDatabase::addDatabase(u"QPSQL"_s, name);
    database.setHostName(qEnvironmentVariable("KELO_POSTGRES"));
    database.setUserName(u"kelo"_s);
    database.setDatabaseName(u"postgres"_s);
    database.setConnectOptions(u"options='-c lock_timeout=200'"_s);
    return database;
}

void TestLinkedObjects::init()
{
    QFETCH_GLOBAL(const bool, isServer);
    m_isServer = isServer;
    m_dir = std::make_unique<QTemporaryDir>();
    QSqlDatabase database = connect(u"test"_s);
    QVERIFY2(database.open(), qPrintable(database.lastError().text()));
    run(u"DROP TABLE IF EXISTS IPC_OBJECTS"_s);
    run(u"DROP TABLE IF EXISTS IPC_SETTINGS"_s);
}

void TestLinkedObjects::cleanup()
{
    QSqlDatabase::removeDatabase(u"test"_s);
}

void TestLinkedObjects::findsDocumentsForObjects()
{
    const Links links{{"A", u"plan 2"_s, {3500000.123456789, -1e-300}, 0.1, -359.9},
                      {"A", u"plan 10"_s, {1, 2}, 3, 4},
                      {"B", u"Größe'); --"_s, {5, 6}, 7, 8}};
    {
        LinkedObjects objects(QSqlDatabase::database(u"test"_s));
        QVERIFY(objects.Open());
        QVERIFY(objects.Store(links));
        QVERIFY(objects.Store({}));
    }
    LinkedObjects objects(QSqlDatabase::database(u"test"_s));
    QVERIFY(objects.Open()); // finds the tables as they are
    QCOMPARE(objects.DocumentsForObject("A"), Links({links[1], links[0]}));
    QCOMPARE(objects.DocumentsForObject("B"), Links({links[2]}));
    QCOMPARE(objects.DocumentsForObject("C"), Links());

    KeloLinkedObject moved = links[0];
    moved.position = {7, 8};
    moved.viewingHeight = 9;
    moved.northDeviation = 10;
    QVERIFY(objects.Store({&moved, 1}));
    QCOMPARE(objects.ObjectsInDocument(u"plan 2"_s), Links({moved}));
    QVERIFY(objects.RemoveDocument(u"plan 10"_s));
    QVERIFY(objects.RemoveDocument(u"none"_s));
    QCOMPARE(objects.DocumentsForObject("A"), Links({moved}));
}

void TestLinkedObjects::storesAllOrNothing()
{
    LinkedObjects objects(QSqlDatabase::database(u"test"_s));
    QVERIFY(objects.Open());
    const KeloLinkedObject good{"A", u"plan"_s, {1, 2}, 3, 4};
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const KeloLinkedObject &bad :
         {KeloLinkedObject{"", u"plan"_s, {1, 2}, 3, 4}, KeloLinkedObject{"B", {}, {1, 2}, 3, 4},
          KeloLinkedObject{"B", QString(256, u'x'), {1, 2}, 3, 4},
          KeloLinkedObject{"B", u"plan"_s, {nan, 2}, 3, 4},
          KeloLinkedObject{"B", u"plan"_s, {1, 2}, 3, -1 / 0.0}}) {
        const MessageLog log;
        QVERIFY(!objects.Store(Links{good, bad, good}));
        QCOMPARE(log.lines().size(), 1);
        QVERIFY(log.lines()[0].startsWith(u"LinkedObjects::Store : "_s));
        QCOMPARE(objects.DocumentsForObject("A"), Links());
    }
    QVERIFY(objects.Store({&good, 1}));
    run(u"DROP TABLE IPC_OBJECTS"_s);
    QVERIFY(!objects.Store({&good, 1}));
    QCOMPARE(objects.DocumentsForObject("A"), std::nullopt);
    QVERIFY(!objects.RemoveDocument(u"plan"_s));
    QVERIFY(objects.WriteSetting(u"a"_s, u"1"_s)); // that table is still there
}

void TestLinkedObjects::keepsSettings()
{
    LinkedObjects objects(QSqlDatabase::database(u"test"_s));
    QVERIFY(objects.Open());
    QCOMPARE(objects.ReadSetting(u"Partner"_s), std::nullopt);
    for (const QString &value : {u"dapex.exe /x 'ü'"_s, QString(), u"2"_s}) {
        QVERIFY(objects.WriteSetting(u"Partner"_s, value));
        QCOMPARE(objects.ReadSetting(u"Partner"_s).value_or(u"none"_s), value);
    }
    QVERIFY(!objects.WriteSetting(u"SchemaVersion"_s, u"0"_s));
    QVERIFY(objects.Open());
}

/// Tables of the first version, with a link in them, get the index and keep the link.
void TestLinkedObjects::migrates()
{
    const KeloLinkedObject link{"A", u"plan"_s, {1, 2}, 3, 4};
    {
        LinkedObjects objects(QSqlDatabase::database(u"test"_s));
        QVERIFY(objects.Open() && objects.Store({&link, 1}));
    }
    run(u"DROP INDEX IPC_OBJECTS_BY_DOCUMENT"_s);
    run(u"UPDATE IPC_SETTINGS SET VALUE = '1' WHERE NAME = 'SchemaVersion'"_s);
    LinkedObjects objects(QSqlDatabase::database(u"test"_s));
    QVERIFY(objects.Open());
    QCOMPARE(objects.ReadSetting(u"SchemaVersion"_s), u"2"_s);
    QCOMPARE(objects.DocumentsForObject("A"), Links({link}));
    run(u"DROP INDEX IPC_OBJECTS_BY_DOCUMENT"_s); // fails when it is not there
}

void TestLinkedObjects::refusesTablesItDoesNotKnow()
{
    LinkedObjects objects(QSqlDatabase::database(u"test"_s));
    run(u"CREATE TABLE IPC_OBJECTS (FOREIGN_COLUMN INTEGER)"_s);
    QVERIFY(!objects.Open());
    QVERIFY(!QSqlDatabase::database(u"test"_s).tables().contains(u"IPC_SETTINGS"_s,
                                                                 Qt::CaseInsensitive));
    run(u"DROP TABLE IPC_OBJECTS"_s);
    QVERIFY(objects.Open());
    run(u"UPDATE IPC_SETTINGS SET VALUE = '3' WHERE NAME = 'SchemaVersion'"_s);
    QVERIFY(!objects.Open());
}

void TestLinkedObjects::outlivesALostConnection()
{
    LinkedObjects objects(QSqlDatabase::database(u"test"_s));
    QVERIFY(objects.Open());
    const KeloLinkedObject link{"A", u"plan"_s, {1, 2}, 3, 4};
    QVERIFY(objects.Store({&link, 1}));
    if (m_isServer) {
        static_cast<void>(QSqlQuery(QSqlDatabase::database(u"test"_s))
                              .exec(u"SELECT pg_terminate_backend(pg_backend_pid())"_s));
        QVERIFY(!objects.Store({&link, 1}));
    } else {
        QSqlDatabase::database(u"test"_s).close();
    }
    QCOMPARE(objects.DocumentsForObject("A"), Links({link}));
    QVERIFY(objects.Store({&link, 1}));
}

void TestLinkedObjects::doesNotWaitForLocks()
{
    LinkedObjects objects(QSqlDatabase::database(u"test"_s));
    QVERIFY(objects.Open());
    const KeloLinkedObject link{"A", u"plan"_s, {1, 2}, 3, 4};
    {
        QSqlDatabase other = connect(u"other"_s);
        QVERIFY(other.open());
        QSqlQuery query(other);
        QVERIFY(query.exec(m_isServer ? u"BEGIN"_s : u"BEGIN EXCLUSIVE"_s));
        QVERIFY(!m_isServer || query.exec(u"LOCK TABLE IPC_OBJECTS"_s));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!objects.Store({&link, 1}));
        QVERIFY(timer.elapsed() < 5000); // far below any default
        QVERIFY(query.exec(u"ROLLBACK"_s));
    }
    QSqlDatabase::removeDatabase(u"other"_s);
    QCOMPARE(objects.DocumentsForObject("A"), Links());
    QVERIFY(objects.Store({&link, 1}));
}

QTEST_GUILESS_MAIN(TestLinkedObjects)
#include "tst_linkedobjects.moc"
