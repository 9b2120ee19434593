// SPDX-License-Identifier: GPL-2.0-or-later
// The database handlers, in the embedded database and in a server when KELO_POSTGRES names one.
#include "tests/support/DatabasePlaces.h"
#include "tests/support/FileBytes.h"
#include "tests/support/MessageLog.h"
#include "tests/support/System.h"
#include <QSettings>
#include <QTimeZone>
#include <bit>
#include <kelo_base/core/DatabaseDocuments.h>
#include <kelo_base/core/DatabaseTable.h>
#include <thread>

using namespace Qt::Literals::StringLiterals;
using Compare = DatabaseCompare;

namespace {

struct Road
{
    qint64 id = 0;
    QString name = {};
    double length = 0;
    std::optional<QString> note = {};
    QByteArray shape = {};
    QDateTime built = QDateTime(QDate(2000, 1, 1), QTime(), Qt::UTC);
    bool isOpen = false;
    std::optional<qint64> lanes = {};

    auto fields() const
    {
        return std::tuple(id, name, std::bit_cast<quint64>(length), note, shape, built,
                          built.timeSpec(), built.timeZone(), isOpen, lanes);
    }
    friend bool operator==(const Road &a, const Road &b) { return a.fields() == b.fields(); }
};
using Roads = std::vector<Road>;
using Query = DatabaseQuery<Road>;

const DatabaseTable<Road> &roadTable()
{
    static const auto table = DatabaseTable<Road>("ORDER") // a word of the language
                                  .Key("ID", &Road::id)
                                  .Column("NAME", &Road::name)
                                  .Column("LENGTH", &Road::length)
                                  .Column("NOTE", &Road::note)
                                  .Column("SHAPE", &Road::shape)
                                  .Column("BUILT", &Road::built)
                                  .Column("IS_OPEN", &Road::isOpen)
                                  .Column("LANES", &Road::lanes);
    return table;
}

/// A step of a module.
auto statement(const QString &text)
{
    return [text](Database &database) { return database.Run(text); };
}

DatabaseModule roadModule()
{
    return {u"roads"_s,
            {statement(u"CREATE TABLE \"order\" (ID BIGINT PRIMARY KEY, NAME TEXT NOT NULL, "
                       "LENGTH DOUBLE PRECISION NOT NULL, NOTE TEXT, SHAPE BYTEA NOT NULL, "
                       "BUILT TEXT NOT NULL, IS_OPEN BOOLEAN NOT NULL, LANES BIGINT)"_s)}};
}

Roads numbered(qint64 first, qint64 last)
{
    Roads roads;
    for (qint64 id = first; id <= last; ++id)
        roads.push_back({.id = id, .name = u"Nr. %1"_s.arg(id)});
    return roads;
}

/// The only value of a query's only row; -1 when it fails.
qint64 numberOf(Database &database, const QString &query)
{
    qint64 found = -1;
    const bool isRead = database.Select(query, {}, [&](const DatabaseRow &row) {
        found = row.Value(0).toLongLong();
        return true;
    });
    return isRead ? found : -1;
}

} // namespace

class TestDatabase : public DatabaseTest
{
    Q_OBJECT

private slots:
    void initTestCase_data() { addDatabaseKinds(); }
    void init()
    {
        makeEmptyDatabase();
        QVERIFY(m_database->Open());
        QVERIFY(m_database->Prepare(roadModule())); // an empty table
    }
    void cleanup() { m_database.reset(); }

    void keepsValues()
    {
        QByteArray allBytes;
        for (int i = 0; i < 256; ++i)
            allBytes += static_cast<char>(i);
        const QDateTime moment(QDate(2026, 10, 25), QTime(0, 30, 15, 123), Qt::UTC);
        const double least = std::numeric_limits<double>::denorm_min();
        const double infinite = std::numeric_limits<double>::infinity();
        const QString special = u"Größe'); -- \\ \"?\" :a 😀\n"_s;
        const Roads roads{
            {std::numeric_limits<qint64>::min(), special, 0.1, u""_s, allBytes, moment, true},
            {(1LL << 53) + 1, u""_s, least, {}, ""_ba, moment.toLocalTime(), false, -1},
            {3, u" "_s, -1e308, u"\\x41"_s, "\\x41"_ba, moment.toOffsetFromUtc(-12'600), false, {}},
            // The hour that the clock shows twice
            {4, u"NULL"_s, 1 / 3.0, u"null"_s, "'"_ba,
             moment.toTimeZone(QTimeZone("Europe/Berlin")), true, 0},
            {5, u"5"_s, infinite, u"1e3"_s, "5"_ba, moment.addYears(-2000), true, 1},
            {6, u"-0"_s, 4503599627370497.5, u"0x"_s, "0"_ba, moment, true,
             std::numeric_limits<qint64>::max()}};
        QVERIFY(roadTable().Insert(*m_database, roads));
        for (const Road &road : roads)
            QCOMPARE(roadTable().LoadByKey(*m_database, road.id), std::optional(road));
    }

    void refusesValues_data()
    {
        QTest::addColumn<Road>("bad");
        QTest::newRow("a text with NUL") << Road{.id = 9, .name = QString(QChar(0))};
        QTest::newRow("half a character") << Road{.id = 9, .note = QString(QChar(0xD800))};
        QTest::newRow("no number") << Road{.id = 9, .length = std::nan("")};
        QTest::newRow("no time") << Road{.id = 9, .built = {}};
        QTest::newRow("a key that is there") << Road{.id = 1};
    }

    void refusesValues()
    {
        QFETCH(const Road, bad);
        Roads roads = numbered(1, 120);
        roads.back() = bad;
        const MessageLog log;
        QVERIFY(!roadTable().Insert(*m_database, roads));
        QCOMPARE(log.lines().size(), 1);
        QVERIFY(!m_database->LastError().isEmpty());
        QCOMPARE(count(), 0);
    }

    void savesAllOrNothing()
    {
        Roads roads = numbered(1, 123);
        QVERIFY(roadTable().Insert(*m_database, roads));
        roads[7] = {.id = 1, .name = u"later"_s}; // twice in one statement
        QVERIFY(replace(roads) && replace({}));
        QCOMPARE(roadTable().LoadByKey(*m_database, 1)->name, u"later"_s);
        QCOMPARE(count(), 123);
        QVERIFY(roadTable().Delete(*m_database, numbered(100, 200)));
        QVERIFY(roadTable().Delete(*m_database, Query().Where(&Road::id, Compare::AtMost, 9)));
        QCOMPARE(count(), 90);
        QVERIFY(m_database->Run(u"DROP TABLE \"order\""_s));
        QVERIFY(!replace(roads));
        QCOMPARE(roadTable().Load(*m_database), std::nullopt);
    }

    void finds_data()
    {
        QTest::addColumn<Query>("query");
        QTest::addColumn<QString>("ids");
        const auto where = [](auto member, Compare how, const auto &value) {
            return Query().OrderBy(&Road::id).Where(member, how, value);
        };
        const auto add = [](const char *row, const Query &query, const QString &ids) {
            QTest::newRow(row) << query << ids;
        };
        add("none is none", Query().Limit(0), u""_s);
        add("texts by code points", Query().OrderBy(&Road::name), u"2 1 3 4"_s);
        add("nothing first, then downwards", Query().OrderBy(&Road::lanes).OrderBy(&Road::id, true),
            u"4 3 2 1"_s);
        add("nothing last", Query().OrderBy(&Road::lanes, true).Limit(2), u"1 2"_s);
        add("equal to nothing", where(&Road::lanes, Compare::Equal, std::nullopt), u"3 4"_s);
        add("not nothing", where(&Road::lanes, Compare::NotEqual, std::nullopt), u"1 2"_s);
        add("nothing is not two", where(&Road::lanes, Compare::NotEqual, 2), u"1 3 4"_s);
        add("more", where(&Road::lanes, Compare::Above, 2), u"1"_s);
        add("both hold", where(&Road::id, Compare::AtLeast, 2).Where(&Road::id, Compare::Below, 4),
            u"2 3"_s);
        add("texts after", where(&Road::name, Compare::AtLeast, u"a"_s), u"1 3 4"_s);
        add("quotes", where(&Road::name, Compare::Equal, u"Ä' OR 1=1 --"_s), u"4"_s);
        const QDateTime early(QDate(2001, 1, 1), {}, Qt::UTC);
        add("moments before", where(&Road::built, Compare::Below, early), u"1 2 3"_s);
        add("what cannot be", where(&Road::name, Compare::AtMost, QString(QChar(0))), u""_s);
    }

    void finds()
    {
        const QDateTime late(QDate(2001, 1, 1), QTime(0, 30), Qt::OffsetFromUTC, 1800);
        QVERIFY(replace({{.id = 1, .name = u"a"_s, .lanes = 3},
                         {.id = 2, .name = u"B"_s, .lanes = 2},
                         {.id = 3, .name = u"z"_s},
                         {.id = 4, .name = u"Ä' OR 1=1 --"_s, .built = late}}));
        QFETCH(const Query, query);
        const auto found = roadTable().Load(*m_database, query);
        QVERIFY(found);
        QStringList ids;
        for (const Road &road : *found)
            ids << QString::number(road.id);
        QTEST(ids.join(u' '), "ids");
    }

    /// The server's connection carries one result at a time.
    void streamsWhileVisitorsWork()
    {
        QVERIFY(replace(numbered(1, 200)));
        qint64 sum = 0;
        QVERIFY(roadTable().ForEach(*m_database, Query().OrderBy(&Road::id), [&](const Road &road) {
            if (road.id > 1) // the first ones are read while nothing else runs
                sum += roadTable().LoadByKey(*m_database, road.id).value_or(Road()).id;
            if (road.id % 100 == 50)
                return roadTable().ForEach(*m_database, Query(),
                                           [&](const Road &) { return ++sum > 0; });
            return road.id < 150;
        }));
        QCOMPARE(sum, 151 * 152 / 2 - 1 + 2 * 200);
        QVERIFY(replace(numbered(1, 300)));
        QCOMPARE(count(), 300);
    }

    void outlivesCallbacks()
    {
        QVERIFY(replace(numbered(1, 100)));
        for (const bool isDeleted : {false, true}) {
            const auto end = [&] {
                if (isDeleted)
                    m_database.reset();
                else
                    m_database->Close();
                return true;
            };
            const auto openAgain = [&] {
                m_database = std::make_unique<Database>(m_place);
                QVERIFY(m_database->Open());
                QCOMPARE(count(), 100);
            };
            QVERIFY(!roadTable().ForEach(*m_database, {}, [&](const Road &) { return end(); }));
            openAgain();
            QVERIFY(!m_database->RunTransaction([&] {
                return m_database->RunTransaction(
                    [&] { return replace(numbered(101, 102)) && end(); });
            }));
            openAgain();
            QVERIFY(!m_database->Prepare({u"m"_s, {[&](Database &) { return end(); }}}));
            openAgain();
        }
        m_database->Close();
        QVERIFY(!replace(numbered(101, 102)) && !m_database->IsOpen());
        QVERIFY(m_database->Open() && m_database->Open());
        QCOMPARE(count(), 100);
    }

    void undoesTransactions()
    {
        Database &database = *m_database;
        const auto put = [&](qint64 id) { return replace(numbered(id, id)); };
        const auto no = [&](qint64 id) {
            return database.RunTransaction([&] { return put(id) && false; });
        };
        QVERIFY(database.RunTransaction([&] {
            return put(1) && !no(2) && database.RunTransaction([&] { return put(3) && !no(4); }) &&
                   !roadTable().Insert(database, numbered(1, 60)) && put(5);
        }));
        QCOMPARE(count(), 3); // 1, 3, 5
        QVERIFY(!database.RunTransaction(
            [&] { return put(6) && database.RunTransaction([&] { return put(7); }) && false; }));
        const auto fail = [&]() -> bool { throw std::runtime_error(put(8) ? "enough" : ""); };
        QVERIFY_EXCEPTION_THROWN(static_cast<void>(database.RunTransaction(fail)),
                                 std::runtime_error);
        QVERIFY(!database.IsInTransaction());
        const MessageLog log;
        QVERIFY(!database.RunTransaction([&] { // what comes after a failure is not tried
            return put(9) && (database.Run(u"nonsense"_s) || true) && !put(10);
        }));
        QCOMPARE(log.lines().size(), 1);
        QCOMPARE(count(), 3);
    }

    void migrates()
    {
        DatabaseModule module{u"m"_s,
                              {statement(u"CREATE TABLE M (A BIGINT)"_s), [](Database &database) {
                                   return database.Run(u"INSERT INTO M VALUES (?)"_s, {1}) &&
                                          database.Run(u"nonsense"_s);
                               }}};
        const auto sum = [&] {
            return numberOf(*m_database, u"SELECT COALESCE(SUM(A), 0) FROM M"_s);
        };
        QVERIFY(!m_database->Prepare(module) && !m_database->Prepare(module));
        QCOMPARE(sum(), 0); // the first step stays, the second left no trace
        module.steps[1] = statement(u"INSERT INTO M VALUES (2)"_s);
        QVERIFY(m_database->Prepare(module) && m_database->Prepare(module) && sum() == 2);

        // Undone with what is around it
        module.steps.emplace_back(statement(u"INSERT INTO M VALUES (3)"_s));
        Database other(m_place);
        QVERIFY(other.Open());
        QVERIFY(!other.RunTransaction([&] { return other.Prepare(module) && false; }));
        QVERIFY(sum() == 2 && other.Prepare(module) && sum() == 5);

        module.steps.resize(1);
        Database old(m_place);
        QVERIFY(old.Open());
        QVERIFY(!old.Prepare(module) && old.LastError().contains(u"later version"_s) && sum() == 5);
    }

    void migratesOnce()
    {
        constexpr int kPrograms = 8;
        const DatabaseModule module{
            u"m"_s,
            {statement(u"CREATE TABLE M (A BIGINT)"_s), statement(u"INSERT INTO M VALUES (1)"_s)}};
        if (!m_place.IsServer())
            m_place.file = m_dir->filePath(u"together/b.sqlite"_s);
        std::atomic<int> prepared = 0;
        const auto prepare = [&] {
            Database database(m_place);
            prepared += database.Open() && database.Prepare(module);
        };
        std::vector<std::jthread> programs;
        programs.reserve(kPrograms);
        for (int i = 0; i < kPrograms; ++i)
            programs.emplace_back(prepare);
        programs.clear(); // waits for all
        QCOMPARE(prepared.load(), kPrograms);
        Database database(m_place);
        QVERIFY(database.Open());
        QCOMPARE(numberOf(database, u"SELECT COUNT(*) FROM M"_s), 1);
    }

    void opensWhileOthersWrite()
    {
        QVERIFY(m_database->RunTransaction([&] {
            Database other(m_place);
            const bool isReady =
                replace(numbered(1, 10)) && other.Open() && other.Prepare(roadModule());
            const bool isLocked = m_place.IsServer() || !roadTable().Insert(other, numbered(1, 1));
            return isReady && isLocked &&
                   count(other) == 0; // nor waits for ever, nor sees half of it
        }));
        QCOMPARE(count(), 10);
        if (m_place.IsServer())
            return;
        KELO_UNIX_ONLY("about permissions of folders");
        m_database->Close();
        const auto folder = QFileInfo(m_place.file).path();
        const auto all = QFile::Permissions(0x5555); // read and enter
        for (const QString &name : {m_place.file, folder, m_dir->path()})
            QVERIFY(QFile::setPermissions(name, all));
        std::optional<testsystem::Nobody> nobody(std::in_place); // root may write everywhere
        const bool isRead =
            m_database->Open() && m_database->Prepare(roadModule()) && count() == 10;
        const bool isWritten = replace(numbered(1, 1));
        const QString sentence = m_database->LastError();
        nobody.reset();
        for (const QString &name : {m_dir->path(), folder}) // so that they can be removed
            QVERIFY(QFile::setPermissions(name, all | QFile::WriteOwner));
        QVERIFY(isRead && !isWritten);
        QVERIFY2(sentence.contains(u"cannot be written"_s), qPrintable(sentence));
    }

    void opensAgain()
    {
        QVERIFY(replace(numbered(1, 10)));
        if (m_place.IsServer()) {
            QVERIFY(endOtherConnections());
            QCOMPARE(count(), 10); // reading does not even notice
            QVERIFY(endOtherConnections());
            QVERIFY(replace(numbered(11, 20))); // nor does a transaction that begins
            QCOMPARE(count(), 20);
        } else {
            KELO_UNIX_ONLY("what is open cannot be removed");
            QVERIFY(QFile::remove(m_place.file));
            QVERIFY(!replace(numbered(11, 20))); // not into the file that nobody will find
            QVERIFY(m_database->Prepare(roadModule()) && replace(numbered(1, 5)));
            QCOMPARE(count(), 5);
        }
        DatabasePlace nowhere;
        nowhere.file = QCoreApplication::applicationFilePath() + u"/below a file"_s;
        Database none(nowhere);
        QVERIFY(!none.Open() && !none.Run(u"SELECT 1"_s) && !none.IsOpen());
    }

    void staysOutAfterALoss()
    {
        if (!m_place.IsServer())
            QSKIP("only a server goes away in the middle");
        const auto lose = [] { return endOtherConnections(); };
        const auto put = [&] { return replace(numbered(1, 10)); };
        const std::function<bool()> deeds[] = {
            // The second half does not go in alone.
            [&] { return put() && lose() && (put() || true) && !put(); },
            [&] { return m_database->RunTransaction([&] { return put() && lose(); }) || true; },
            [&] { return put() && lose(); }};
        for (const auto &deed : deeds) {
            QVERIFY(!m_database->RunTransaction(deed));
            QCOMPARE(count(), 0);
        }
        QVERIFY(replace(numbered(1, 100)));
        int seen = 0;
        QVERIFY(roadTable().ForEach(*m_database, Query(), [&](const Road &) {
            return ++seen > 1 || lose(); // so few have come over long since
        }));
        QCOMPARE(seen, 100);
    }

    void setsDamagedFilesAside_data()
    {
        QTest::addColumn<qint64>("at");
        QTest::newRow("no database at all") << 0LL;
        QTest::newRow("a page in the middle") << 4 * 4096LL;
    }

    void setsDamagedFilesAside()
    {
        if (m_place.IsServer())
            QSKIP("the server looks after its files itself");
        QFETCH(const qint64, at);
        QVERIFY(replace(numbered(1, 1000)));
        m_database->Close();
        QByteArray damaged = bytesOf(m_place.file);
        writeBytes(m_place.file, damaged.replace(at, 4096, QByteArray(4096, 'x')));

        Database other(m_place);
        QVERIFY(m_database->Open() && other.Open());
        if (at > 0) { // noticed in use, not when it is opened
            KELO_UNIX_ONLY("what others have open cannot be set aside");
            QCOMPARE(count(), -1);
            QVERIFY(m_database->LastError().contains(u"damaged"_s));
            QCOMPARE(count(other), -1);
        }
        QVERIFY(m_database->Prepare(roadModule()) && replace(numbered(1, 3)));
        QVERIFY(other.Prepare(roadModule()));
        QCOMPARE(count(other), 3); // one was set aside, not the new one after it

        const QFileInfo place(m_place.file);
        const QStringList kept = place.dir().entryList({u"*.damaged-*"_s});
        QCOMPARE(kept.size(), 1);
        QVERIFY(m_database->LastError().contains(kept[0]));
        QCOMPARE(bytesOf(place.dir().filePath(kept[0])), damaged);
    }

    void keepsDocuments()
    {
        DatabaseDocuments documents(*m_database);
        QCOMPARE(documents.LoadDocument(u"a/1"_s), std::nullopt);
        QCOMPARE(documents.LoadValue(u"a/1"_s), QVariant());
        const QByteArray content("\0\xff'", 3);
        for (const QByteArray &saved : {content, QByteArray()}) {
            QVERIFY(documents.SaveDocument(u"a/ü"_s, saved));
            QCOMPARE(documents.LoadDocument(u"a/ü"_s), saved);
        }
        QVERIFY(documents.SaveDocument(u"a/1"_s, content) &&
                documents.SaveDocument(u"b"_s, content));
        QCOMPARE(documents.DocumentNames(u"a/"_s), QStringList({u"a/1"_s, u"a/ü"_s}));
        QVERIFY(documents.RemoveDocument(u"a/1"_s));
        QCOMPARE(documents.DocumentNames(), QStringList({u"a/ü"_s, u"b"_s}));
        for (const QVariant &value : {QVariant(1LL << 60), QVariant(0.1), QVariant(QPointF(1, -2)),
                                      QVariant(QStringList{u"a"_s, u"ß"_s})}) {
            QVERIFY(documents.SaveValue(u"a/ü"_s, value));
            QCOMPARE(documents.LoadValue(u"a/ü"_s), value);
        }
        QVERIFY(!documents.SaveValue(u"v"_s, {}));
        QVERIFY(!documents.SaveValue(u"v"_s, QVariant::fromValue<QObject *>(this)));
        QVERIFY(documents.RemoveValue(u"a/ü"_s) && !documents.LoadValue(u"a/ü"_s).isValid());
    }

    void readsThePlace()
    {
        QSettings settings(m_dir->filePath(u"settings.ini"_s), QSettings::IniFormat);
        QCOMPARE(ReadDatabasePlace(settings, u"/b/a.sqlite"_s).Text(),
                 QDir::toNativeSeparators(u"/b/a.sqlite"_s));
        settings.setValue(u"database/file"_s, u"../c.sqlite"_s);
        QCOMPARE(ReadDatabasePlace(settings, u"/b/a.sqlite"_s).Text(),
                 QDir::toNativeSeparators(u"/c.sqlite"_s));
        settings.setValue(u"database/host"_s, u"db"_s);
        settings.setValue(u"database/name"_s, u"plans"_s);
        settings.setValue(u"database/port"_s, u"none"_s);
        QCOMPARE(ReadDatabasePlace(settings, {}).Text(), u"postgresql://db:5432/plans"_s);
        settings.setValue(u"database/user"_s, u"me"_s);
        settings.setValue(u"database/password"_s, QStringList{u"a"_s, u"b"_s}); // a comma in it
        settings.setValue(u"database/port"_s, 99);
        const DatabasePlace place = ReadDatabasePlace(settings, {});
        QCOMPARE(place.Text(), u"postgresql://me:***@db:99/plans"_s);
        QCOMPARE(place.password, u"a,b"_s);
    }

    void neverShowsThePassword()
    {
        DatabasePlace place = serverPlace();
        place.host = m_dir->path(); // where no server is
        place.password = u"s3cret"_s;
        place.name = u"s3cret"_s; // the driver's text is likely to name it
        Database database(place);
        const MessageLog log;
        QVERIFY(!database.Open());
        QVERIFY(!log.lines().isEmpty());
        const QStringList texts = log.lines() << database.LastError().remove(database.Text());
        for (const QString &text : texts)
            QVERIFY2(!text.contains(u"s3cret"_s), qPrintable(text));
    }

private:
    bool replace(const Roads &roads) { return roadTable().Replace(*m_database, roads); }
    qint64 count(Database &database)
    {
        return numberOf(database, u"SELECT COUNT(*) FROM \"order\""_s);
    }
    qint64 count() { return count(*m_database); }
};

QTEST_GUILESS_MAIN(TestDatabase)
#include "tst_database.moc"
