// SPDX-License-Identifier: GPL-2.0-or-later
// Saves into a database until it is killed, runs into a limit, or is done; database_survives.py
// looks at what it leaves. FILE may be the socket's folder of a server.
#include "tests/support/System.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QThread>
#include <cstdio>
#include <kelo_base/core/DatabaseDocuments.h>
#include <kelo_base/core/DatabaseTable.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kRows = 120; // more than one statement inserts

struct Row
{
    qint64 id = 0;
    qint64 generation = 0;
    QString filling;
};

const DatabaseTable<Row> &rowTable()
{
    static const auto table = DatabaseTable<Row>("ROWS_OF_GENERATION")
                                  .Key("ID", &Row::id)
                                  .Column("GENERATION", &Row::generation)
                                  .Column("FILLING", &Row::filling);
    return table;
}

std::vector<Row> rowsOf(qint64 generation)
{
    std::vector<Row> rows;
    for (qint64 id = 0; id < kRows; ++id)
        rows.push_back({id, generation, u"x"_s.repeated(generation % 2 ? 4000 : 40)});
    return rows;
}

/// Each step makes a table and fills it with the one before.
bool createStep(Database &database, int step)
{
    const QString name = u"STEP_%1"_s.arg(step);
    bool isGood = database.Run(u"CREATE TABLE "_s + name + u" (A BIGINT NOT NULL)"_s);
    for (int i = 0; isGood && i < 40; ++i)
        isGood = database.Run(u"INSERT INTO "_s + name + u" VALUES (?)"_s, {i});
    return isGood && (step == 0 || database.Run(u"DROP TABLE STEP_%1"_s.arg(step - 1)));
}

DatabaseModule savingModule()
{
    const auto create = [](Database &database) {
        return database.Run(u"CREATE TABLE ROWS_OF_GENERATION (ID BIGINT PRIMARY KEY, "
                            "GENERATION BIGINT NOT NULL, FILLING TEXT NOT NULL)"_s);
    };
    return {u"saving"_s, {create}};
}

DatabaseModule steppingModule()
{
    DatabaseModule module{u"stepping"_s, {}};
    for (int step = 0; step < 6; ++step)
        module.steps.emplace_back(
            [step](Database &database) { return createStep(database, step); });
    return module;
}

void tell(const QString &line)
{
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

/// One generation replaces the other, in table and documents.
bool saveGeneration(Database &database, qint64 generation)
{
    DatabaseDocuments documents(database);
    return database.Prepare(savingModule()) && database.RunRepeatable([&] {
        return rowTable().Replace(database, rowsOf(generation)) &&
               documents.SaveDocument(u"generation"_s, QByteArray::number(generation));
    });
}

[[noreturn]] void saveForever(Database &database, qint64 generation)
{
    for (;; ++generation) {
        const bool isSaved = saveGeneration(database, generation);
        tell((isSaved ? u"saved %1"_s : u"failed %1"_s).arg(generation));
        if (!isSaved)
            QThread::msleep(20);
    }
}

/// The one generation that is there, 0 when there is none, and the number of the step's table with
/// its rows; or what is not whole.
QString stateOf(Database &database)
{
    DatabaseDocuments documents(database);
    const auto rows = rowTable().Load(database);
    const qint64 generation = documents.LoadDocument(u"generation"_s).value_or("0").toLongLong();
    if (!rows || static_cast<qint64>(rows->size()) != (generation ? kRows : 0))
        return u"not the rows of %1"_s.arg(generation);
    for (const Row &row : *rows)
        if (row.generation != generation || row.filling.size() != (generation % 2 ? 4000 : 40))
            return u"a row of %1 among those of %2"_s.arg(row.generation).arg(generation);
    return u"generation %1"_s.arg(generation);
}

/// Whether the form that is told and the table that is there agree.
QString stepsOf(Database &database)
{
    qint64 number = 0;
    const auto take = [&number](const DatabaseRow &row) {
        number = row.Value(0).toLongLong();
        return true;
    };
    const QString query = u"SELECT FORM FROM KELO_MODULES WHERE NAME = ?"_s;
    if (!database.Select(query, {u"stepping"_s}, take) || number == 0)
        return u"steps 0"_s; // killed before the first
    const qint64 form = number;
    if (!database.Select(u"SELECT COUNT(*) FROM STEP_%1"_s.arg(form - 1), {}, take))
        return u"no table of form %1"_s.arg(form);
    return number == 40 ? u"steps %1"_s.arg(form) : u"%1 rows"_s.arg(number);
}

/// All of one moment: the server may still be at work for the one that was killed.
QString wholeState(Database &database)
{
    QString state = u"cannot be read"_s;
    const bool isRead = database.Prepare(savingModule()) && database.RunTransaction([&] {
        state = stateOf(database) + u"; "_s + stepsOf(database);
        return true;
    });
    return isRead ? state : state + u": "_s + database.LastError();
}

/// Adds to one number that others add to, and its own rows.
bool addTogether(Database &database, int name, int count)
{
    DatabaseDocuments documents(database);
    bool isGood =
        database.Prepare(savingModule()) && documents.LoadDocument(u"-"_s) == std::nullopt;
    for (int i = 0; isGood && i < count; ++i) {
        const Row row{1000 + name * 100'000 + i, name, {}};
        isGood = database.RunRepeatable([&] {
            const int sum = documents.LoadDocument(u"sum"_s).value_or("0").toInt() + 1;
            return documents.SaveDocument(u"sum"_s, QByteArray::number(sum)) &&
                   rowTable().Insert(database, {&row, 1});
        });
    }
    return isGood;
}

QString sumOf(Database &database)
{
    const auto rows = rowTable().Load(database);
    const QByteArray sum = DatabaseDocuments(database).LoadDocument(u"sum"_s).value_or("none");
    return u"sum %1 of %2"_s.arg(QLatin1StringView(sum)).arg(rows ? rows->size() : 0);
}

} // namespace

int main(int argc, char **argv)
{
    static std::unique_ptr<Database> database; // outlives the application
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString task = arguments.value(1);
    DatabasePlace place;
    place.file = arguments.value(2);
    if (QFileInfo(place.file).isDir()) {
        place.host = place.file;
        place.user = u"kelo"_s;
        place.name = arguments.value(3);
    }
    const int number = arguments.value(4).toInt();
    // No room for more than even generations need.
    std::optional<testsystem::ResourceLimit> fullDisk;
    if (task == "limited"_L1)
        fullDisk.emplace(testsystem::ResourceLimit::FileSize, 200'000);
    if (task == "add"_L1 || task == "ask"_L1)
        place.lockWait = 30'000;
    database = std::make_unique<Database>(place);
    const auto tellDone = [](bool isDone) {
        tell(isDone ? u"done"_s : database->LastError());
        return isDone ? 0 : 1;
    };
    if (!database->Open())
        return tellDone(false);
    if (task == "save"_L1 || task == "limited"_L1)
        saveForever(*database, number);
    if (task == "steps"_L1)
        return tellDone(database->Prepare(steppingModule()));
    if (task == "open"_L1)
        return tellDone(database->Prepare(steppingModule()) && database->Prepare(savingModule()));
    if (task == "add"_L1)
        return tellDone(addTogether(*database, number, arguments.value(5).toInt()));
    if (task == "state"_L1)
        tell(wholeState(*database));
    else if (task == "sum"_L1)
        tell(sumOf(*database));
    else if (task == "ask"_L1) // makes a database in the server
        return tellDone(database->Run(u"DROP SCHEMA public CASCADE"_s) &&
                        database->Run(u"CREATE SCHEMA public"_s));
    return 0;
}
