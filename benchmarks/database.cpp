// SPDX-License-Identifier: GPL-2.0-or-later
// A million records saved and loaded beside the bare query, and the documents of an object among a
// million links.
#include "benchmarks/ratio.h"
#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <kelo_base/core/DatabaseTable.h>
#include <kelo_base/ipc/LinkedObjects.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kRecords = 1'000'000;
constexpr int kRowsAtOnce = 50; // the bare query is no faster with more, and slower with fewer
constexpr int kColumns = 6;

struct Road
{
    qint64 id = 0;
    QString name;
    double x = 0;
    double y = 0;
    int lanes = 0;
    QByteArray shape;
};

const DatabaseTable<Road> &roadTable()
{
    static const auto table = DatabaseTable<Road>("ROADS")
                                  .Key("ID", &Road::id)
                                  .Column("NAME", &Road::name)
                                  .Column("X", &Road::x)
                                  .Column("Y", &Road::y)
                                  .Column("LANES", &Road::lanes)
                                  .Column("SHAPE", &Road::shape);
    return table;
}

QString createRoads()
{
    return u"CREATE TABLE ROADS (ID BIGINT PRIMARY KEY, NAME TEXT NOT NULL, "
           "X DOUBLE PRECISION NOT NULL, Y DOUBLE PRECISION NOT NULL, LANES BIGINT NOT NULL, "
           "SHAPE BYTEA NOT NULL)"_s;
}

const std::vector<Road> &roads()
{
    static const auto all = [] {
        std::vector<Road> made;
        for (qint64 id = 0; id < kRecords; ++id) {
            const auto number = static_cast<double>(id);
            made.push_back({id, u"Straße %1"_s.arg(id), number * 1.1, number / 3,
                            static_cast<int>(id % 17), QByteArray::number(id)});
        }
        return made;
    }();
    return all;
}

DatabasePlace placeIn(const QTemporaryDir &dir)
{
    DatabasePlace place;
    place.file = dir.filePath(u"a.sqlite"_s);
    return place;
}

void saveOurs(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        const QTemporaryDir dir;
        Database database(placeIn(dir));
        const bool isReady = database.Open() && database.Run(createRoads());
        const auto &all = roads();
        state.ResumeTiming();
        if (!isReady || !roadTable().Insert(database, all))
            state.SkipWithError("the records cannot be saved");
    }
}

/// Runs with a bare connection to a file of its own.
template <class Work>
void withBareDatabase(Work work)
{
    const QTemporaryDir dir;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"bare"_s);
        database.setDatabaseName(dir.filePath(u"a.sqlite"_s));
        database.open();
        QSqlQuery(database).exec(createRoads());
        work(database);
    }
    QSqlDatabase::removeDatabase(u"bare"_s);
}

/// Many rows a statement: the fastest of the bare ways. execBatch() takes 1.3 times as long, a
/// statement for each row 1.6 times.
bool saveBare(QSqlDatabase &database)
{
    const QString row = u"(?, ?, ?, ?, ?, ?)"_s;
    QSqlQuery query(database);
    query.prepare(u"INSERT INTO ROADS VALUES "_s + QStringList(kRowsAtOnce, row).join(u','));
    bool isSaved = database.transaction();
    int position = 0;
    for (const Road &road : roads()) {
        query.bindValue(position++, road.id);
        query.bindValue(position++, road.name);
        query.bindValue(position++, road.x);
        query.bindValue(position++, road.y);
        query.bindValue(position++, road.lanes);
        query.bindValue(position++, road.shape);
        if (position < kRowsAtOnce * kColumns)
            continue;
        position = 0;
        isSaved = query.exec() && isSaved;
    }
    return database.commit() && isSaved;
}

void savePeer(benchmark::State &state)
{
    roads();
    for (auto _ : state) {
        state.PauseTiming();
        withBareDatabase([&](QSqlDatabase &database) {
            state.ResumeTiming();
            if (!saveBare(database))
                state.SkipWithError("the records cannot be saved");
            state.PauseTiming();
        });
        state.ResumeTiming();
    }
}

void loadOurs(benchmark::State &state)
{
    const QTemporaryDir dir;
    Database database(placeIn(dir));
    if (!database.Open() || !database.Run(createRoads()) || !roadTable().Insert(database, roads()))
        state.SkipWithError("the records cannot be saved");
    for (auto _ : state) {
        const auto loaded = roadTable().Load(database);
        if (!loaded || loaded->size() != kRecords || loaded->back().shape != roads().back().shape)
            state.SkipWithError("not all records were loaded");
    }
}

void loadPeer(benchmark::State &state)
{
    withBareDatabase([&state](QSqlDatabase &database) {
        if (!saveBare(database))
            state.SkipWithError("the records cannot be saved");
        for (auto _ : state) {
            QSqlQuery query(database);
            query.setForwardOnly(true);
            query.exec(u"SELECT ID, NAME, X, Y, LANES, SHAPE FROM ROADS"_s);
            std::vector<Road> loaded;
            while (query.next())
                loaded.push_back({query.value(0).toLongLong(), query.value(1).toString(),
                                  query.value(2).toDouble(), query.value(3).toDouble(),
                                  query.value(4).toInt(), query.value(5).toByteArray()});
            if (loaded.size() != kRecords || loaded.back().shape != roads().back().shape)
                state.SkipWithError("not all records were loaded");
        }
    });
}

Tz::ObjectId objectName(int number)
{
    Tz::ObjectId id;
    id.CreateHashId(&number, sizeof number);
    return id;
}

/// A million links, of which each object has ten.
void documentsForObject(benchmark::State &state)
{
    const QTemporaryDir dir;
    Database database(placeIn(dir));
    LinkedObjects objects(database);
    std::vector<KeloLinkedObject> links(kRecords);
    for (int i = 0; i < kRecords; ++i)
        links[static_cast<std::size_t>(i)] = {objectName(i / 10), QString::number(i % 997),
                                              QPointF(i, -i), 250, 12.5};
    if (!objects.Open() || !objects.Store(links))
        state.SkipWithError("the links cannot be stored");
    for (int i = 0; auto _ : state) {
        i = (i + 7919) % (static_cast<int>(kRecords) / 10); // all over the table
        const auto found = objects.DocumentsForObject(objectName(i));
        if (!found || found->size() != 10)
            state.SkipWithError("not the ten documents");
    }
}

} // namespace
BENCHMARK(saveOurs)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(savePeer)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(loadOurs)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(loadPeer)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(documentsForObject)->Unit(benchmark::kMicrosecond)->Iterations(20'000);

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv); // the drivers ask for one
    return ratio::run(argc, argv);
}
