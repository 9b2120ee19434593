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
    void initTestCase_data()
    {
        QTest::addColumn<bool>("isServer");
        QTest::newRow("SQLite") << false;
        if (qEnvironmentVariableIsSet("KELO_POSTGRES"))
            QTest::newRow("PostgreSQL") << true;
    }

    void init()
    {
        QFETCH_GLOBAL(const bool, isServer);
        m_isServer = isServer;
        m_dir = std::make_unique<QTemporaryDir>();
        connect(u"test"_s).open();
        for (const QString &table : {u"OBJECTS"_s, u"SETTINGS"_s})
            run(u"DROP TABLE IF EXISTS IPC_"_s + table);
        m_objects = std::make_unique<LinkedObjects>(QSqlDatabase::database(u"test"_s));
        QVERIFY(m_objects->Open());
    }

    void cleanup()
    {
        m_objects.reset();
        QSqlDatabase::removeDatabase(u"test"_s);
    }

    void findsDocumentsForObjects()
    {
        const Links links{{"A", u"plan 2"_s, {3500000.123456789, -1e-300}, 0.1, -359.9},
                          {"A", u"plan 10"_s, {1, 2}, 3, 4},
                          {"B", u"Größe'); --"_s, {5, 6}, 7, 8}};
        QVERIFY(m_objects->Store(links) && m_objects->Store({}));
        LinkedObjects objects(QSqlDatabase::database(u"test"_s));
        QVERIFY(objects.Open()); // finds the tables as they are
        QCOMPARE(objects.DocumentsForObject("A"), Links({links[1], links[0]}));
        QCOMPARE(objects.DocumentsForObject("B"), Links({links[2]}));
        QCOMPARE(objects.DocumentsForObject("C"), Links());

        const Links moved{{"A", u"plan 2"_s, {7, 8}, 9, 10}};
        QVERIFY(objects.Store(moved));
        QCOMPARE(objects.ObjectsInDocument(u"plan 2"_s), moved);
        QVERIFY(objects.RemoveDocument(u"plan 10"_s) && objects.RemoveDocument(u"none"_s));
        QCOMPARE(objects.DocumentsForObject("A"), moved);
    }

    void storesAllOrNothing()
    {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        for (const KeloLinkedObject &bad : Links{{"", u"plan"_s, {1, 2}, 3, 4},
                                                 {"B", {}, {1, 2}, 3, 4},
                                                 {"B", QString(256, u'x'), {1, 2}, 3, 4},
                                                 {"B", u"plan"_s, {nan, 2}, 3, 4},
                                                 {"B", u"plan"_s, {1, 2}, 3, -1 / 0.0}}) {
            const MessageLog log;
            QVERIFY(!m_objects->Store(Links{m_link[0], bad, m_link[0]}));
            QVERIFY(log.lines().size() == 1 &&
                    log.lines()[0].startsWith(u"LinkedObjects::Store : "_s));
            QCOMPARE(m_objects->DocumentsForObject("A"), Links());
        }
        QVERIFY(m_objects->Store(m_link));
        run(u"DROP TABLE IPC_OBJECTS"_s);
        QVERIFY(!m_objects->Store(m_link));
        QCOMPARE(m_objects->DocumentsForObject("A"), std::nullopt);
        QVERIFY(!m_objects->RemoveDocument(u"plan"_s));
    }

    void keepsSettings()
    {
        QCOMPARE(m_objects->ReadSetting(u"a"_s).value_or(u"none"_s), u"none"_s);
        for (const QString &value : {u"dapex.exe /x 'ü'"_s, QString()})
            QVERIFY(m_objects->WriteSetting(u"a"_s, value) &&
                    m_objects->ReadSetting(u"a"_s) == value);
        QVERIFY(!m_objects->WriteSetting(u"SchemaVersion"_s, u"0"_s));
    }

    /// Tables of the first version, with a link in them, get the index and keep the link. Later and
    /// foreign ones are refused.
    void migrates()
    {
        QVERIFY(m_objects->Store(m_link));
        run(u"DROP INDEX IPC_OBJECTS_BY_DOCUMENT"_s);
        run(u"UPDATE IPC_SETTINGS SET VALUE = '1' WHERE NAME = 'SchemaVersion'"_s);
        QVERIFY(m_objects->Open());
        QCOMPARE(m_objects->DocumentsForObject("A"), m_link);
        run(u"DROP INDEX IPC_OBJECTS_BY_DOCUMENT"_s); // fails when it is not there
        run(u"UPDATE IPC_SETTINGS SET VALUE = '3' WHERE NAME = 'SchemaVersion' AND VALUE = '2'"_s);
        QVERIFY(!m_objects->Open());
        run(u"DROP TABLE IPC_SETTINGS"_s); // the other table looks like a foreign one now
        QVERIFY(!m_objects->Open());
        run(u"CREATE TABLE IPC_SETTINGS (NAME INTEGER)"_s); // fails when it was left behind
    }

    void outlivesALostConnection()
    {
        QVERIFY(m_objects->Store(m_link));
        if (m_isServer) { // the server ends the connection, which shows at the next use
            QVERIFY(connect(u"other"_s).open());
            run(u"SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity "
                "WHERE usename = 'kelo' AND pid <> pg_backend_pid()"_s,
                u"other"_s);
            QSqlDatabase::removeDatabase(u"other"_s);
            QVERIFY(!m_objects->Store(m_link));
        } else {
            QSqlDatabase::database(u"test"_s).close();
        }
        QCOMPARE(m_objects->DocumentsForObject("A"), m_link);
    }

    void doesNotWaitForLocks()
    {
        QVERIFY(connect(u"other"_s).open());
        run(m_isServer ? u"BEGIN; LOCK TABLE IPC_OBJECTS"_s : u"BEGIN EXCLUSIVE"_s, u"other"_s);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!m_objects->Store(m_link));
        QVERIFY(timer.elapsed() < 5000); // far below any default
        run(u"ROLLBACK"_s, u"other"_s);
        QSqlDatabase::removeDatabase(u"other"_s);
        QVERIFY(m_objects->Store(m_link));
    }

private:
    [[nodiscard]] QSqlDatabase connect(const QString &name) const
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

    static void run(const QString &text, const QString &connection = u"test"_s)
    {
        QSqlQuery query(QSqlDatabase::database(connection));
        QVERIFY2(query.exec(text), qPrintable(query.lastError().text()));
    }

    const Links m_link{{"A", u"plan"_s, {1, 2}, 3, 4}};
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<LinkedObjects> m_objects; ///< open, on empty tables
    bool m_isServer = false;
};

QTEST_GUILESS_MAIN(TestLinkedObjects)
#include "tst_linkedobjects.moc"
