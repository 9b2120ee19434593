// SPDX-License-Identifier: GPL-2.0-or-later
// Linked objects in the embedded database, and in a server when KELO_POSTGRES names one.
#include "tests/support/DatabasePlaces.h"
#include "tests/support/MessageLog.h"
#include <kelo_base/ipc/LinkedObjects.h>

using namespace Qt::Literals::StringLiterals;

using Links = std::vector<KeloLinkedObject>;

class TestLinkedObjects : public DatabaseTest
{
    Q_OBJECT

private slots:
    void initTestCase_data() { addDatabaseKinds(); }

    void init()
    {
        makeEmptyDatabase();
        m_objects = std::make_unique<LinkedObjects>(*m_database);
        QVERIFY(m_objects->Open());
    }

    void cleanup()
    {
        m_objects.reset();
        m_database.reset();
    }

    void findsDocumentsForObjects()
    {
        const Links links{{"A", u"plan 2"_s, {3500000.123456789, -1e-300}, 0.1, -359.9},
                          {"A", u"plan 10"_s, {1, 2}, 3, 4},
                          {"B", u"Größe'); --"_s, {5, 6}, 7, 8}};
        QVERIFY(m_objects->Store(links) && m_objects->Store({}));
        Database database(m_place);
        LinkedObjects objects(database);
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
            QCOMPARE(log.lines().size(), 1);
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
    }

    /// Tables from before forms were kept get the index and keep the link.
    void takesOverEarlierTables()
    {
        QVERIFY(m_objects->Store(m_link));
        run(u"DROP INDEX IPC_OBJECTS_BY_DOCUMENT"_s);
        run(u"DROP TABLE KELO_MODULES"_s);
        Database database(m_place);
        LinkedObjects objects(database);
        QVERIFY(objects.Open());
        QCOMPARE(objects.DocumentsForObject("A"), m_link);
        run(u"DROP INDEX IPC_OBJECTS_BY_DOCUMENT"_s); // fails when it is not there
    }

    void leavesLaterTablesAlone()
    {
        QVERIFY(m_objects->Store(m_link));
        run(u"UPDATE KELO_MODULES SET FORM = 3 WHERE NAME = 'ipc' AND FORM = 2"_s);
        Database database(m_place);
        LinkedObjects objects(database);
        QVERIFY(!objects.Open() && !objects.Store(m_link) && !objects.RemoveDocument(u"plan"_s));
        QVERIFY(!objects.WriteSetting(u"a"_s, u"b"_s) && !objects.DocumentsForObject("A"));
        QCOMPARE(m_objects->DocumentsForObject("A"), m_link); // as it was
    }

    void storesInsideOfTheApplicationsTransaction()
    {
        QVERIFY(!m_database->RunTransaction([this] {
            return m_objects->Store(m_link) && m_objects->WriteSetting(u"a"_s, u"b"_s) && false;
        }));
        QCOMPARE(m_objects->DocumentsForObject("A"), Links());
        QVERIFY(m_database->RunTransaction([this] {
            return m_objects->Store(m_link) && !m_objects->Store(Links{{"B", {}, {1, 2}, 3, 4}});
        }));
        QCOMPARE(m_objects->DocumentsForObject("A"), m_link);
    }

private:
    void run(const QString &text)
    {
        Database database(m_place);
        QVERIFY2(database.Open() && database.Run(text), qPrintable(database.LastError()));
    }

    const Links m_link{{"A", u"plan"_s, {1, 2}, 3, 4}};
    std::unique_ptr<LinkedObjects> m_objects; ///< open, on empty tables
};

QTEST_GUILESS_MAIN(TestLinkedObjects)
#include "tst_linkedobjects.moc"
