// SPDX-License-Identifier: LGPL-2.1-or-later
// The embedded default: SQLite through its own C library, without a layer in between.
#include "kxerror.h"
#include "sqldialect.h"
#include "sqldriver.h"

#include <QDate>
#include <QDateTime>
#include <QIODevice>
#include <QScopeGuard>
#include <limits>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace kx {
namespace {

class SqliteDriver final : public SqlDriver
{
public:
    explicit SqliteDriver(const ConnectionParameters &parameters)
    {
        const QByteArray path = parameters.database.toUtf8();
        const int rc = sqlite3_open_v2(path.constData(), &m_db,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI, nullptr);
        if (rc != SQLITE_OK) {
            const QString native = m_db ? QString::fromUtf8(sqlite3_errmsg(m_db)) : QString();
            sqlite3_close(m_db);
            m_db = nullptr;
            throw DatabaseError(u"Die SQLite-Datenbank \"%1\" lässt sich nicht öffnen: %2"_s
                                    .arg(parameters.database, native),
                                {}, native);
        }
        sqlite3_busy_timeout(m_db, busyTimeoutMs);
        // WAL keeps readers and the single writer apart; FULL sync keeps every committed statement.
        execute(u"PRAGMA journal_mode=WAL"_s);
        execute(u"PRAGMA synchronous=FULL"_s);
    }
    ~SqliteDriver() override { close(); }
    static constexpr int lockAttempts = 3;
    static constexpr int busyTimeoutMs = 10000;

    SqlResult execute(const QString &sql) override
    {
        if (!m_db)
            throw DatabaseError(u"Keine Datenbankverbindung geöffnet."_s, sql);
        // SQLite ends a transaction by itself after some failures (a full disk, an I/O error);
        // what follows must not then run and commit on its own as if nothing had happened.
        if (m_inTransaction && sqlite3_get_autocommit(m_db))
            throw DatabaseError(u"SQL-Fehler: Die Transaktion wurde von der Datenbank abgebrochen; es wurde nichts "
                                u"gebucht.\n%1"_s.arg(sql), sql);
        sqlite3_stmt *statement = nullptr;
        const int rc = sqlite3_prepare16_v2(m_db, sql.utf16(), int(sql.size() * sizeof(char16_t)), &statement,
                                            nullptr);
        if (rc != SQLITE_OK)
            throw failure(sql);
        SqlResult result;
        const int columnCount = sqlite3_column_count(statement);
        for (int i = 0; i < columnCount; ++i)
            result.columns << QString::fromUtf16(static_cast<const char16_t *>(sqlite3_column_name16(statement, i)));
        int step;
        while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
            QVector<QVariant> row(columnCount);
            for (int i = 0; i < columnCount; ++i)
                row[i] = value(statement, i);
            result.rows.push_back(std::move(row));
        }
        if (step != SQLITE_DONE) {
            const DatabaseError error = failure(sql);
            sqlite3_finalize(statement);
            throw error;
        }
        result.rowsAffected = columnCount == 0 ? sqlite3_changes(m_db) : qint64(result.rows.size());
        sqlite3_finalize(statement);
        return result;
    }

    void close() override
    {
        if (m_db) {
            // SQLite's own advice: refresh the planner's statistics where this connection's
            // queries would profit (the AAO lookup needs them to use its index for the object).
            sqlite3_exec(m_db, "PRAGMA optimize", nullptr, nullptr, nullptr);
            sqlite3_close_v2(m_db);
            m_db = nullptr;
        }
    }

    const SqlDialect &dialect() const override { return sqliteDialect(); }

    // SQLite's incremental blob I/O: the value is sized with zeroblob, then written in place.
    void writeBlob(const BlobLocation &at, QIODevice &source) override
    {
        const qint64 size = source.size() - source.pos();
        if (size > std::numeric_limits<int>::max())
            throw DatabaseError(u"SQL-Fehler: %1 Bytes sind zu viel für einen SQLite-Wert (höchstens 2 GB)."_s.arg(size));
        // The page cache holds the whole value until the commit, so that its pages reach the log
        // once, not first as zeros and then again with the bytes.
        const qint64 cache = execute(u"PRAGMA cache_size"_s).rows.front().value(0).toLongLong();
        const qint64 needed = -(size / 1024 + 4096);
        if (cache > needed) // a positive setting counts pages and is replaced too
            execute(u"PRAGMA cache_size=%1"_s.arg(needed));
        const auto restoreCache = qScopeGuard([&] {
            sqlite3_exec(m_db, u"PRAGMA cache_size=%1"_s.arg(cache).toUtf8().constData(), nullptr, nullptr, nullptr);
        });
        if (!m_inTransaction)
            execute(u"BEGIN IMMEDIATE"_s);
        sqlite3_blob *blob = nullptr;
        try {
            if (execute(u"update %1 set %2=zeroblob(%3) where %4"_s.arg(at.table, at.column).arg(size).arg(at.where()))
                    .rowsAffected != 1)
                throw DatabaseError(u"SQL-Fehler: keine Zeile %1 in %2."_s.arg(at.where(), at.table));
            const qint64 rowid = execute(u"select rowid from %1 where %2"_s.arg(at.table, at.where())).rows.front().value(0).toLongLong();
            if (sqlite3_blob_open(m_db, "main", at.table.toUtf8().constData(), at.column.toUtf8().constData(), rowid, 1, &blob)
                != SQLITE_OK)
                throw failure(at.table + u'.' + at.column);
            for (qint64 offset = 0; offset < size;) {
                const QByteArray chunk = source.read(std::min(blobChunk, size - offset));
                if (chunk.isEmpty() || sqlite3_blob_write(blob, chunk.constData(), int(chunk.size()), int(offset)) != SQLITE_OK)
                    throw failure(at.table + u'.' + at.column);
                offset += chunk.size();
            }
            sqlite3_blob_close(blob);
            if (!m_inTransaction)
                execute(u"COMMIT"_s);
        } catch (...) {
            sqlite3_blob_close(blob);
            if (!m_inTransaction)
                sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
            throw;
        }
    }

    bool readBlob(const BlobLocation &at, QIODevice &target) override
    {
        const SqlResult found = execute(u"select rowid, typeof(%1) from %2 where %3"_s.arg(at.column, at.table, at.where()));
        if (found.rows.empty() || found.rows.front().value(1).toString() == u"null"_s)
            return false;
        sqlite3_blob *blob = nullptr;
        if (sqlite3_blob_open(m_db, "main", at.table.toUtf8().constData(), at.column.toUtf8().constData(),
                              found.rows.front().value(0).toLongLong(), 0, &blob)
            != SQLITE_OK)
            throw failure(at.table + u'.' + at.column);
        const int size = sqlite3_blob_bytes(blob);
        QByteArray chunk;
        for (int offset = 0; offset < size; offset += int(chunk.size())) {
            chunk.resize(std::min<qint64>(blobChunk, size - offset));
            if (sqlite3_blob_read(blob, chunk.data(), int(chunk.size()), offset) != SQLITE_OK
                || target.write(chunk) != chunk.size()) {
                sqlite3_blob_close(blob);
                throw DatabaseError(u"SQL-Fehler: %1.%2 lässt sich nicht lesen oder schreiben: %3"_s
                                        .arg(at.table, at.column, target.errorString()));
            }
        }
        sqlite3_blob_close(blob);
        return true;
    }

    // The database's one write lock serves every name: BEGIN IMMEDIATE waits (busy timeout) while
    // another connection writes, and the statements up to the release commit together.
    void acquireLock(const QString &) override { beginImmediate(); }

    // Deliberate: commits also after a failed statement, so that rows already written stay
    // written, as they do outside a lock.
    void releaseLock() override
    {
        if (m_db && !sqlite3_get_autocommit(m_db))
            execute(u"COMMIT"_s);
    }

    // The write lock is taken at the start, so that two transactions never both read and then
    // wait for each other to write.
    void beginTransaction() override
    {
        beginImmediate();
        m_inTransaction = true;
    }

    void commitTransaction() override
    {
        m_inTransaction = false;
        if (sqlite3_get_autocommit(m_db))
            throw DatabaseError(u"SQL-Fehler: Die Transaktion wurde von der Datenbank abgebrochen; es wurde nichts gebucht."_s);
        try {
            execute(u"COMMIT"_s);
        } catch (...) {
            rollbackTransaction();
            throw;
        }
    }

    void rollbackTransaction() noexcept override
    {
        m_inTransaction = false;
        if (m_db && !sqlite3_get_autocommit(m_db))
            sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
    }

    // The transaction holds the database's one write lock already.
    void acquireTransactionLock(const QString &) override {}

private:
    // Waits for the write lock (busy timeout, a few times), then holds it until the commit.
    void beginImmediate()
    {
        for (int attempt = 1;; ++attempt) {
            try {
                execute(u"BEGIN IMMEDIATE"_s);
                return;
            } catch (const DatabaseError &) {
                const int code = sqlite3_errcode(m_db);
                if ((code != SQLITE_BUSY && code != SQLITE_LOCKED) || attempt == lockAttempts)
                    throw DatabaseError(u"Die Datenbank ist seit %1 Sekunden von einem anderen Arbeitsplatz gesperrt; "
                                        u"aufgegeben, ohne die Sperre zu bekommen."_s
                                            .arg(attempt * busyTimeoutMs / 1000));
            }
        }
    }

    DatabaseError failure(const QString &sql) const
    {
        const QString native = QString::fromUtf8(sqlite3_errmsg(m_db));
        return DatabaseError(u"SQL-Fehler: %1\n%2"_s.arg(native, sql), sql, native);
    }

    static QVariant value(sqlite3_stmt *statement, int column)
    {
        switch (sqlite3_column_type(statement, column)) {
        case SQLITE_INTEGER:
            return QVariant(qlonglong(sqlite3_column_int64(statement, column)));
        case SQLITE_FLOAT:
            return QVariant(sqlite3_column_double(statement, column));
        case SQLITE_BLOB:
            return QVariant(QByteArray(static_cast<const char *>(sqlite3_column_blob(statement, column)),
                                       sqlite3_column_bytes(statement, column)));
        case SQLITE_NULL:
            return QVariant();
        default:
            break;
        }
        const QString text = QString::fromUtf16(static_cast<const char16_t *>(sqlite3_column_text16(statement, column)),
                                                sqlite3_column_bytes16(statement, column) / 2);
        // SQLite keeps dates as ISO text; give them back as dates like the server products do.
        if (const char *declared = sqlite3_column_decltype(statement, column)) {
            if (qstricmp(declared, "DATE") == 0) {
                const QDate date = QDate::fromString(text.left(10), Qt::ISODate);
                if (date.isValid())
                    return QVariant(date);
            } else if (qstricmp(declared, "TIMESTAMP") == 0) {
                const QDateTime stamp = QDateTime::fromString(text, Qt::ISODate);
                if (stamp.isValid())
                    return QVariant(stamp);
            }
        }
        return QVariant(text);
    }

    sqlite3 *m_db = nullptr;
    bool m_inTransaction = false;
};

} // namespace

std::unique_ptr<SqlDriver> openSqliteDriver(const ConnectionParameters &parameters)
{
    return std::make_unique<SqliteDriver>(parameters);
}

} // namespace kx
