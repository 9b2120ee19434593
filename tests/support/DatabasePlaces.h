// SPDX-License-Identifier: GPL-2.0-or-later
// An empty database for a test: a file of its own, and the server that KELO_POSTGRES names.
#pragma once

#include <QTemporaryDir>
#include <QtTest>
#include <kelo_base/core/Database.h>
#include <memory>

/// In initTestCase_data(): runs every test with each kind of database that is there.
inline void addDatabaseKinds()
{
    QTest::addColumn<bool>("isServer");
    QTest::newRow("SQLite") << false;
    if (qEnvironmentVariableIsSet("KELO_POSTGRES"))
        QTest::newRow("PostgreSQL") << true;
}

inline DatabasePlace serverPlace()
{
    DatabasePlace place;
    place.host = qEnvironmentVariable("KELO_POSTGRES");
    place.user = QStringLiteral("kelo");
    place.name = QStringLiteral("postgres");
    return place;
}

/// A place with nothing in it.
inline DatabasePlace emptyPlace(bool isServer, const QTemporaryDir &dir)
{
    DatabasePlace place = isServer ? serverPlace() : DatabasePlace();
    place.file = dir.filePath(QStringLiteral("new/a.sqlite"));
    if (isServer) {
        Database database(place);
        const bool isEmpty = database.Open() &&
                             database.Run(QStringLiteral("DROP SCHEMA public CASCADE")) &&
                             database.Run(QStringLiteral("CREATE SCHEMA public"));
        if (!isEmpty)
            qFatal("%s", qPrintable(database.LastError()));
    }
    return place;
}

/// A test whose functions each begin with an empty database, of every kind that is there.
class DatabaseTest : public QObject
{
protected:
    void makeEmptyDatabase()
    {
        QFETCH_GLOBAL(const bool, isServer);
        m_database.reset();
        m_dir = std::make_unique<QTemporaryDir>();
        m_place = emptyPlace(isServer, *m_dir);
        m_database = std::make_unique<Database>(m_place);
    }

    std::unique_ptr<QTemporaryDir> m_dir; ///< of the embedded database
    DatabasePlace m_place;
    std::unique_ptr<Database> m_database; ///< not open yet
};

/// Ends all other connections to the server, as its operator may.
inline bool endOtherConnections()
{
    Database database(serverPlace());
    return database.Open() &&
           database.Select(QStringLiteral("SELECT pg_terminate_backend(pid, 5000) "
                                          "FROM pg_stat_activity "
                                          "WHERE usename = 'kelo' AND pid <> pg_backend_pid()"),
                           {}, [](const DatabaseRow &) { return true; });
}
