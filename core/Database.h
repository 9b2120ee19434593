// SPDX-License-Identifier: GPL-2.0-or-later
// The application's database: opened, opened again after a loss, with transactions and migrations.
#pragma once

#include <kelo_base/core/DatabasePlace.h>
#include <kelo_base/core/Export.h>

#include <QString>
#include <QVariant>
#include <functional>
#include <memory>
#include <vector>

class Database;
class DatabaseSession;
class QSqlQuery;

/// Leads a module's tables from one form to the next; false undoes what it did. Types that both
/// kinds of database understand: BIGINT, DOUBLE PRECISION, BOOLEAN, TEXT, VARCHAR(n), BYTEA.
using DatabaseStep = std::function<bool(Database &)>;

/// The tables of one part of the program, and how they came to be what they are.
struct DatabaseModule
{
    QString name;                    ///< 1 ... 64 characters, unlike that of any other module
    std::vector<DatabaseStep> steps; ///< from form 0 on. Never change one that has shipped: add one
};

/// A row that a statement found; good until the visitor returns.
class KELO_BASE_EXPORT DatabaseRow
{
public:
    /// @param column  counted from 0, in the order in which the statement names them
    [[nodiscard]] QVariant Value(int column) const;

private:
    friend class DatabaseSession;
    explicit DatabaseRow(const QSqlQuery *query) : m_query(query) {}
    explicit DatabaseRow(const std::vector<QVariant> *values) : m_values(values) {}

    const QSqlQuery *m_query = nullptr;
    const std::vector<QVariant> *m_values = nullptr;
};

/// Takes the values for the "?" of a statement, from the first to the last.
class KELO_BASE_EXPORT DatabaseBinder
{
public:
    void Bind(const QVariant &value);

private:
    friend class DatabaseSession;
    explicit DatabaseBinder(QSqlQuery &query) : m_query(query) {}

    QSqlQuery &m_query;
    int m_position = 0;
};

/// One connection. Records go in and out by DatabaseTable, which most users need alone.
///
/// Whatever fails gives false and one debug line, and leaves a sentence for people in LastError().
/// A connection that was lost is opened again by the next call outside of a transaction; until then
/// a server that does not answer is left in peace for a while, so that it does not hold up the
/// program at each call.
///
/// For one thread, and while there is a QCoreApplication, whose end closes it. Callbacks may close
/// or even delete the database; what runs then gives false.
class KELO_BASE_EXPORT Database
{
public:
    /// Touches nothing yet.
    explicit Database(DatabasePlace place);
    /// Closes. Handlers that refer to it must not be used any more.
    ~Database();
    Q_DISABLE_COPY_MOVE(Database)

    /// True when it is open already, too. The folder of an SQLite file is created on demand. A file
    /// that is damaged is kept under another name beside the old one and a new one begun:
    /// LastError() tells so though the result is true.
    [[nodiscard]] bool Open();
    /// Ends open transactions without their changes. Nothing but Open() opens it again.
    void Close();
    [[nodiscard]] bool IsOpen() const;

    /// Where it lies, for people, with "***" for a password.
    [[nodiscard]] QString Text() const;
    [[nodiscard]] bool IsServer() const;
    /// The SQLite file; empty for a server.
    [[nodiscard]] QString File() const;
    /// What went wrong last, as a translated sentence; empty when nothing did since Open().
    [[nodiscard]] QString LastError() const;

    /// Brings the module's tables to their present form, each step in a transaction of its own.
    /// Waits up to 10 s while others do the same. False for tables of a later form, which are left
    /// alone. Costs nothing when done before, so that it may stand before each use: after a loss
    /// the tables may be others.
    [[nodiscard]] bool Prepare(const DatabaseModule &module);

    /// Runs @p work as a whole: its changes stay when it returns true and nothing failed inside,
    /// otherwise none does, nor when it throws. Inside of another transaction it is a part of it
    /// that may be undone alone. A failed statement spoils the innermost transaction around it. A
    /// connection that breaks while the server confirms counts as failure, though the server may
    /// have kept the changes.
    [[nodiscard]] bool RunTransaction(const std::function<bool()> &work);
    /// The same for work that may be done twice because it has no effects outside of the database:
    /// it is repeated when it met the changes of others. So a value that is read, changed and
    /// written back loses none of theirs.
    [[nodiscard]] bool RunRepeatable(const std::function<bool()> &work);
    [[nodiscard]] bool IsInTransaction() const;

    /// Runs one statement as a whole. Values never stand in it, but are bound to its "?".
    [[nodiscard]] bool Run(const QString &statement, const QVariantList &values = {});
    /// The same for many values.
    /// @param bind  returns why a value cannot be stored, or nothing
    [[nodiscard]] bool Run(const QString &statement,
                           const std::function<QString(DatabaseBinder &)> &bind);
    /// Hands the rows to @p visit one by one, until it returns false. It may use the database.
    [[nodiscard]] bool Select(const QString &statement, const QVariantList &values,
                              const std::function<bool(const DatabaseRow &)> &visit);
    /// Reports a failure of a handler: one debug line, and the sentence for LastError().
    /// @param function  qualified name of the function that failed
    /// @return false
    bool Refuse(const char *function, const QString &reason);

private:
    std::shared_ptr<DatabaseSession> m_session; ///< shared for the time of a callback
};
