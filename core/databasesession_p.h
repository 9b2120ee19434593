// SPDX-License-Identifier: GPL-2.0-or-later
// The connection of a Database: statements prepared on it, transactions, and what failed.
#pragma once

#include "core/databasefault_p.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <deque>
#include <kelo_base/core/Database.h>
#include <optional>
#include <unordered_map>

class QSqlError;

class DatabaseSession
{
    Q_DECLARE_TR_FUNCTIONS(DatabaseSession)

public:
    /// While it lives, meeting others is no failure yet: it is told at the end, unless all went
    /// well.
    class Patience
    {
    public:
        explicit Patience(DatabaseSession &session);
        ~Patience();
        Q_DISABLE_COPY_MOVE(Patience)

        /// @return true
        bool endWell();

    private:
        DatabaseSession &m_session;
        QString m_lastError;
    };

    using Fault = DatabaseFault;

    explicit DatabaseSession(DatabasePlace place);
    ~DatabaseSession();
    Q_DISABLE_COPY_MOVE(DatabaseSession)

    [[nodiscard]] const DatabasePlace &place() const { return m_place; }
    [[nodiscard]] const QString &lastError() const { return m_lastError; }
    [[nodiscard]] Fault lastFault() const { return m_lastFault; }
    void forgetFault() { m_lastFault = Fault::None; }
    [[nodiscard]] bool isOpen() const { return m_isWanted && !m_isLost && m_database.isOpen(); }
    [[nodiscard]] bool isInTransaction() const { return !m_levels.empty(); }

    bool open();
    void close();
    bool runTransaction(const std::function<bool()> &work);
    bool runRepeatable(const std::function<bool()> &work);
    /// @param bind  empty for a statement without values
    bool run(const QString &statement, const std::function<QString(DatabaseBinder &)> &bind);
    bool select(const QString &statement, const QVariantList &values,
                const std::function<bool(const DatabaseRow &)> &visit);

    /// The form of a module's tables: 0 when there are none, nothing when that cannot be read.
    std::optional<qint64> formOf(const QString &module);
    [[nodiscard]] bool isPrepared(const QString &module) const;
    void setPrepared(const QString &module);

    /// Keeps @p sentence, and writes one debug line.
    /// @return false
    bool tell(const char *function, Fault fault, const QString &sentence, const QString &detail);
    /// The same, and spoils the innermost transaction.
    bool fail(const char *function, Fault fault, const QString &sentence, const QString &detail);

private:
    class Stream;

    bool isUsable(const char *function);
    bool connectToPlace();
    bool connect(QString &reason);
    bool isWhole(bool isThorough);
    bool setDamagedFileAside(QString &reason);
    void forgetConnection();
    bool begin(const char *function);
    bool end(const char *function, bool isGood);
    bool command(const QString &text, QSqlError &error);
    std::optional<QSqlQuery> prepared(const QString &statement, QSqlError &error);
    std::optional<QSqlQuery> executed(const QString &statement, const QVariantList &values,
                                      QSqlError &error);
    void keep(const QString &statement, QSqlQuery &&query);
    void drainStreams();
    bool fail(const char *function, const QSqlError &error);
    [[nodiscard]] Fault faultOf(const QSqlError &error) const;
    [[nodiscard]] QString sentenceFor(Fault fault, const QString &detail) const;
    [[nodiscard]] QString withoutSecret(QString text) const;

    DatabasePlace m_place;
    QString m_connection; ///< its name
    QSqlDatabase m_database;
    QMetaObject::Connection m_atEndOfApplication;
    std::unordered_map<QString, QSqlQuery> m_prepared; ///< by text; one in use is taken out
    std::vector<Stream *> m_streams;                   ///< being read, the innermost last
    std::vector<bool> m_levels;                        ///< of transactions; true: spoiled
    QSet<QString> m_preparedModules;
    QString m_lastError;
    Fault m_lastFault = Fault::None;
    quint64 m_generation = 0; ///< of the connection
    int m_patience = 0;       ///< how many are at work
    QString m_untold;         ///< the line of what they met
    bool m_isWanted = false;  ///< opened and not closed
    bool m_isLost = false;
    bool m_isSuspect = false;  ///< the file proved damaged in use
    bool m_isOutdated = false; ///< what is prepared is forgotten before the next transaction
    QElapsedTimer m_sinceFailure;
    qint64 m_rest = 0; ///< milliseconds after a failure to open in which nothing is tried
};
