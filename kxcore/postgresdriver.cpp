// SPDX-License-Identifier: LGPL-2.1-or-later
// PostgreSQL through libpq: one round trip per statement, each in its own implicit transaction.
#include "kxerror.h"
#include "sqldialect.h"
#include "sqldriver.h"

#include <QDate>
#include <QDateTime>
#include <QIODevice>
#include <QtEndian>
#include <libpq-fe.h>

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace kx {
namespace {

// Type OIDs of the catalog pg_type that need a conversion from text.
enum PgType : Oid {
    PgBool = 16,
    PgBytea = 17,
    PgInt8 = 20,
    PgInt2 = 21,
    PgInt4 = 23,
    PgFloat4 = 700,
    PgFloat8 = 701,
    PgDate = 1082,
    PgTimestamp = 1114,
    PgNumeric = 1700,
};

QByteArray quoteConnectionValue(const QString &value)
{
    QString text = value;
    text.replace(u'\\', u"\\\\"_s).replace(u'\'', u"\\'"_s);
    return "'" + text.toUtf8() + "'";
}

// Pieces of 4 MiB: each is one round trip, and a few MB of client memory stay small beside a
// document of tens of megabytes.
constexpr qint64 pieceSize = 4 << 20;

// A value up to this size is sent as one binary parameter of one UPDATE: it costs its size in
// client memory once, and half the time of passing it through the temporary table (measured on
// 20 MB: about 120 ms against 250 ms). Larger values stream with the memory of one piece.
constexpr qint64 oneStatementSize = 32 << 20;

class PostgresDriver final : public SqlDriver
{
public:
    explicit PostgresDriver(const ConnectionParameters &p)
    {
        QByteArray info = "host=" + quoteConnectionValue(p.host) + " dbname=" + quoteConnectionValue(p.database)
            + " user=" + quoteConnectionValue(p.user) + " password=" + quoteConnectionValue(p.password)
            + " client_encoding=UTF8 connect_timeout=10";
        if (p.port > 0)
            info += " port=" + QByteArray::number(p.port);
        // The connection string's options go to the client as they are (sslmode, sslrootcert,
        // application_name, ...); a later one replaces the defaults above.
        for (const auto &[name, value] : p.options) {
            if (!std::all_of(name.cbegin(), name.cend(), [](QChar c) { return c.isLetterOrNumber() || c == u'_'; }))
                throw DatabaseError(u"Die Verbindungsoption \"%1\" ist kein Optionsname."_s.arg(name));
            info += ' ' + name.toUtf8() + '=' + quoteConnectionValue(value);
        }
        m_conn = PQconnectdb(info.constData());
        if (PQstatus(m_conn) != CONNECTION_OK) {
            const QString native = QString::fromUtf8(PQerrorMessage(m_conn)).trimmed();
            PQfinish(m_conn);
            m_conn = nullptr;
            throw DatabaseError(u"Die PostgreSQL-Datenbank \"%1\" auf %2 lässt sich nicht öffnen: %3"_s
                                    .arg(p.database, p.host, native),
                                {}, native);
        }
        // Notices (such as "there is no transaction in progress") are not errors here.
        PQsetNoticeProcessor(m_conn, [](void *, const char *) {}, nullptr);
        execute(u"SET datestyle TO ISO"_s);
        // The pieces of a streamed binary value gather in a temporary table; room for them in
        // the session's own buffers keeps them off the disk (settable only before the first use).
        execute(u"SET temp_buffers TO '64MB'"_s);
    }
    ~PostgresDriver() override { close(); }

    SqlResult execute(const QString &sql) override
    {
        if (!m_conn)
            throw DatabaseError(u"Keine Datenbankverbindung geöffnet."_s, sql);
        // Savepoints waiting to be set or released go first, in the same round trip.
        const QByteArray text = m_pending.isEmpty() ? sql.toUtf8() : (m_pending.join(u"; "_s) + u"; "_s + sql).toUtf8();
        m_pending.clear();
        PGresult *res = PQexec(m_conn, text.constData());
        const ExecStatusType status = PQresultStatus(res);
        if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) {
            const QString native = QString::fromUtf8(PQresultErrorMessage(res)).trimmed();
            PQclear(res);
            throw DatabaseError(u"SQL-Fehler: %1\n%2"_s.arg(native, sql), sql, native);
        }
        return take(res);
    }

    bool canSendAhead() const override { return true; }

    void sendAhead(const QStringList &statements) override
    {
        if (!m_conn)
            throw DatabaseError(u"Keine Datenbankverbindung geöffnet."_s);
        m_ahead = statements;
        const QByteArray text = ((m_pending.isEmpty() ? QString() : m_pending.join(u"; "_s) + u"; "_s)
                                 + statements.join(u";\n"_s)).toUtf8();
        if (!PQsendQuery(m_conn, text.constData()))
            throw DatabaseError(u"SQL-Fehler: %1"_s.arg(QString::fromUtf8(PQerrorMessage(m_conn)).trimmed()));
        // The savepoints' own results come first and are passed over when collected.
        m_aheadSkip = int(m_pending.size());
        m_pending.clear();
    }

    std::vector<SqlResult> collectAhead() override
    {
        std::vector<SqlResult> results;
        QString native;
        int index = -m_aheadSkip;
        while (PGresult *res = PQgetResult(m_conn)) {
            const ExecStatusType status = PQresultStatus(res);
            if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) {
                if (native.isEmpty())
                    native = QString::fromUtf8(PQresultErrorMessage(res)).trimmed();
                PQclear(res);
            } else if (index++ < 0) {
                PQclear(res);
            } else {
                results.push_back(take(res));
            }
        }
        const QStringList sent = std::exchange(m_ahead, {});
        if (!native.isEmpty()) {
            // The statement after the last one that gave a result is the one that failed.
            const QString failed = sent.value(qsizetype(results.size()));
            throw DatabaseError(u"SQL-Fehler: %1\n%2"_s.arg(native, failed), failed, native);
        }
        return results;
    }

    // The result's rows as values; frees it.
    static SqlResult take(PGresult *res)
    {
        SqlResult result;
        const int columnCount = PQnfields(res);
        const int rowCount = PQntuples(res);
        for (int c = 0; c < columnCount; ++c)
            result.columns << QString::fromUtf8(PQfname(res, c));
        result.rows.reserve(rowCount);
        for (int r = 0; r < rowCount; ++r) {
            QVector<QVariant> row(columnCount);
            for (int c = 0; c < columnCount; ++c)
                row[c] = value(res, r, c);
            result.rows.push_back(std::move(row));
        }
        const char *affected = PQcmdTuples(res);
        result.rowsAffected = (affected && *affected) ? QByteArray(affected).toLongLong() : rowCount;
        PQclear(res);
        return result;
    }

    // One message of several statements: outside a transaction the server runs it as one
    // transaction of its own; inside one a savepoint around it undoes the part before a failure.
    bool executeGroup(const QStringList &statements) override
    {
        const QString body = statements.join(u";\n"_s);
        if (!m_inTransaction) {
            execute(body);
            return true;
        }
        try {
            execute(u"SAVEPOINT KX_GROUP;\n"_s + body + u";\nRELEASE SAVEPOINT KX_GROUP"_s);
        } catch (const DatabaseError &) {
            execute(u"ROLLBACK TO SAVEPOINT KX_GROUP; RELEASE SAVEPOINT KX_GROUP"_s);
            throw;
        }
        return true;
    }

    // The result of a parameterised statement; throws (and frees it) when it failed.
    static PGresult *check(PGresult *res, const QByteArray &sql)
    {
        const ExecStatusType status = PQresultStatus(res);
        if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK)
            return res;
        const QString native = QString::fromUtf8(PQresultErrorMessage(res)).trimmed();
        PQclear(res);
        throw DatabaseError(u"SQL-Fehler: %1\n%2"_s.arg(native, QString::fromUtf8(sql)), QString::fromUtf8(sql), native);
    }

    void close() override
    {
        if (m_conn) {
            PQfinish(m_conn);
            m_conn = nullptr;
        }
    }

    const SqlDialect &dialect() const override { return postgresDialect(); }

    // A larger value is streamed into a temporary table as the one field of one row of a binary COPY,
    // in pieces, then one UPDATE sets it (appending piece by piece would rewrite the growing
    // value each time); all in one transaction. The table lives as long as the session and is
    // emptied at each commit, so a value costs no catalog changes. Reading takes the value back
    // piece by piece in binary result format.
    void writeBlob(const BlobLocation &at, QIODevice &source) override
    {
        const qint64 size = source.size() - source.pos();
        if (size <= oneStatementSize) {
            writeInOneStatement(at, source, size);
            return;
        }
        if (!m_piecesTable && !m_inTransaction) {
            execute(u"CREATE TEMPORARY TABLE IF NOT EXISTS kx_blob_value (value bytea) ON COMMIT DELETE ROWS"_s);
            // The value passes through once: no attempt to compress it.
            execute(u"ALTER TABLE kx_blob_value ALTER value SET STORAGE EXTERNAL"_s);
            m_piecesTable = true;
        }
        if (size > std::numeric_limits<qint32>::max())
            throw DatabaseError(u"SQL-Fehler: %1 Bytes sind zu viel für einen PostgreSQL-Wert (höchstens 1 GB)."_s.arg(size));
        execute(m_inTransaction ? u"SAVEPOINT KX_BLOB"_s : u"BEGIN"_s);
        try {
            if (!m_piecesTable) // made inside the caller's transaction, which may still roll it back
                execute(u"CREATE TEMPORARY TABLE IF NOT EXISTS kx_blob_value (value bytea) ON COMMIT DELETE ROWS"_s);
            copyIn(source, size);
            if (execute(u"update %1 set %2=(select value from kx_blob_value) where %3"_s.arg(at.table, at.column, at.where()))
                    .rowsAffected != 1)
                throw DatabaseError(u"SQL-Fehler: keine Zeile %1 in %2."_s.arg(at.where(), at.table));
            if (m_inTransaction) {
                execute(u"DELETE FROM kx_blob_value"_s); // the next value of the same transaction starts empty
                execute(u"RELEASE SAVEPOINT KX_BLOB"_s);
            } else {
                execute(u"COMMIT"_s);
            }
        } catch (...) {
            if (m_inTransaction) {
                PQclear(PQexec(m_conn, "ROLLBACK TO SAVEPOINT KX_BLOB"));
                PQclear(PQexec(m_conn, "RELEASE SAVEPOINT KX_BLOB"));
            } else {
                PQclear(PQexec(m_conn, "ROLLBACK"));
            }
            throw;
        }
    }

    void writeInOneStatement(const BlobLocation &at, QIODevice &source, qint64 size)
    {
        sendPending();
        const QByteArray value = source.read(size);
        if (value.size() != size)
            throw DatabaseError(u"SQL-Fehler: der Wert ließ sich nicht vollständig lesen: %1"_s.arg(source.errorString()));
        const QByteArray sql = u"update %1 set %2=$1 where %3"_s.arg(at.table, at.column, at.where()).toUtf8();
        const char *values[] = { value.constData() };
        const int lengths[] = { int(value.size()) };
        const int formats[] = { 1 };
        PGresult *res = check(PQexecParams(m_conn, sql.constData(), 1, nullptr, values, lengths, formats, 0), sql);
        const bool oneRow = QByteArray(PQcmdTuples(res)) == "1";
        PQclear(res);
        if (!oneRow)
            throw DatabaseError(u"SQL-Fehler: keine Zeile %1 in %2."_s.arg(at.where(), at.table));
    }

    // One row of one field in COPY's binary format: signature, flags, header extension, the
    // field count, the field's length, its bytes in pieces, the end mark.
    void copyIn(QIODevice &source, qint64 size)
    {
        sendPending();
        const QByteArray sql = "COPY kx_blob_value (value) FROM STDIN (FORMAT binary)";
        PGresult *res = PQexec(m_conn, sql.constData());
        const bool copying = PQresultStatus(res) == PGRES_COPY_IN;
        PQclear(copying ? res : check(res, sql));
        QByteArray head("PGCOPY\n\xFF\r\n\0", 11);
        char number[4];
        qToBigEndian<quint32>(0, number), head.append(number, 4); // flags
        head.append(number, 4);                                     // no header extension
        qToBigEndian<quint16>(1, number), head.append(number, 2);   // one field
        qToBigEndian<quint32>(quint32(size), number), head.append(number, 4);
        bool sent = PQputCopyData(m_conn, head.constData(), int(head.size())) == 1;
        qint64 left = size;
        while (sent && left > 0) {
            const QByteArray piece = source.read(std::min(left, pieceSize));
            if (piece.isEmpty())
                break;
            sent = PQputCopyData(m_conn, piece.constData(), int(piece.size())) == 1;
            left -= piece.size();
        }
        const QByteArray end("\xFF\xFF", 2);
        sent = sent && left == 0 && PQputCopyData(m_conn, end.constData(), 2) == 1;
        PQputCopyEnd(m_conn, sent ? nullptr : "the value could not be read");
        PQclear(check(PQgetResult(m_conn), sql));
        while (PGresult *rest = PQgetResult(m_conn))
            PQclear(rest);
        if (!sent)
            throw DatabaseError(u"SQL-Fehler: der Wert ließ sich nicht vollständig lesen oder senden: %1"_s.arg(source.errorString()));
    }

    bool readBlob(const BlobLocation &at, QIODevice &target) override
    {
        const SqlResult found = execute(u"select octet_length(%1) from %2 where %3"_s.arg(at.column, at.table, at.where()));
        if (found.rows.empty() || found.rows.front().value(0).isNull())
            return false;
        const qint64 size = found.rows.front().value(0).toLongLong();
        const QByteArray piece = u"select substring(%1 from $1::int for $2::int) from %2 where %3"_s
                                     .arg(at.column, at.table, at.where()).toUtf8();
        for (qint64 offset = 0; offset < size; offset += pieceSize) {
            const QByteArray from = QByteArray::number(offset + 1), count = QByteArray::number(pieceSize);
            const char *values[] = { from.constData(), count.constData() };
            PGresult *res = check(PQexecParams(m_conn, piece.constData(), 2, nullptr, values, nullptr, nullptr, 1), piece);
            const int length = PQntuples(res) == 1 ? PQgetlength(res, 0, 0) : 0;
            const bool written = target.write(PQgetvalue(res, 0, 0), length) == length;
            PQclear(res);
            if (!written)
                throw DatabaseError(u"SQL-Fehler: %1.%2 lässt sich nicht schreiben: %3"_s.arg(at.table, at.column, target.errorString()));
        }
        return true;
    }

    // A session advisory lock: held across the statements, each of which still commits on its
    // own; the server releases it when the connection ends. A deadlock it detects is retried.
    void acquireLock(const QString &name) override
    {
        m_lock = u"("_s + QString::number(lockKey(name)) + u')';
        for (int attempt = 1;; ++attempt) {
            try {
                execute(u"select pg_advisory_lock"_s + m_lock);
                return;
            } catch (const DatabaseError &e) {
                if (attempt == 3)
                    throw DatabaseError(u"Die Sperre \"%1\" ist nicht zu bekommen: %2"_s.arg(name, e.nativeText()));
            }
        }
    }

    void releaseLock() override
    {
        if (m_conn && !m_lock.isEmpty())
            execute(u"select pg_advisory_unlock"_s + m_lock);
        m_lock.clear();
    }

    void beginTransaction() override
    {
        execute(u"BEGIN"_s);
        m_inTransaction = true;
    }

    // A savepoint is set and released with the next statement that reaches the server: a guarded
    // statement then costs one round trip, not three. One set and released with no statement in
    // between is never sent.
    void setSavepoint(const QString &name) override { m_pending << u"SAVEPOINT "_s + name; }
    void releaseSavepoint(const QString &name) override
    {
        if (!m_pending.isEmpty() && m_pending.last() == u"SAVEPOINT "_s + name)
            m_pending.removeLast();
        else
            m_pending << u"RELEASE SAVEPOINT "_s + name;
    }
    void rollbackToSavepoint(const QString &name) override
    {
        if (const qsizetype unsent = m_pending.lastIndexOf(u"SAVEPOINT "_s + name); unsent >= 0) {
            m_pending.resize(unsent); // nothing since it reached the server
            return;
        }
        execute(u"ROLLBACK TO SAVEPOINT "_s + name);
        execute(u"RELEASE SAVEPOINT "_s + name);
    }

    // Sends what waits before a statement that cannot carry it (a parameterised one, COPY).
    void sendPending()
    {
        if (!m_pending.isEmpty())
            execute(u"SELECT 1"_s);
    }

    // A transaction in which a statement failed answers COMMIT with a rollback, not an error.
    // Savepoints still waiting are all released by then.
    void commitTransaction() override
    {
        m_inTransaction = false;
        m_pending.clear();
        PGresult *res = PQexec(m_conn, "COMMIT");
        const bool committed = PQresultStatus(res) == PGRES_COMMAND_OK && qstrcmp(PQcmdStatus(res), "COMMIT") == 0;
        const QString native = committed ? QString() : QString::fromUtf8(PQerrorMessage(m_conn)).trimmed();
        PQclear(res);
        if (!committed) {
            rollbackTransaction();
            throw DatabaseError(u"SQL-Fehler: Die Transaktion wurde nicht bestätigt, nichts davon ist gebucht. %1"_s
                                    .arg(native),
                                u"COMMIT"_s, native);
        }
    }

    void rollbackTransaction() noexcept override
    {
        m_inTransaction = false;
        m_pending.clear();
        if (m_conn && PQtransactionStatus(m_conn) != PQTRANS_IDLE)
            PQclear(PQexec(m_conn, "ROLLBACK"));
    }

    // A transaction-level advisory lock: the server frees it at the commit or the rollback, and
    // also when the connection is lost.
    void acquireTransactionLock(const QString &name) override
    {
        execute(u"select pg_advisory_xact_lock("_s + QString::number(lockKey(name)) + u')');
    }

private:
    bool m_inTransaction = false;
    QStringList m_pending; // savepoint statements not sent yet
    QStringList m_ahead;   // statements sent ahead, not collected yet
    int m_aheadSkip = 0;   // results of savepoint statements sent with them
    bool m_piecesTable = false; // kx_blob_value is made for this session
    QString m_lock; // the key of the lock held, in brackets

    static QVariant value(PGresult *res, int row, int column)
    {
        if (PQgetisnull(res, row, column))
            return QVariant();
        const char *raw = PQgetvalue(res, row, column);
        const QByteArray bytes(raw, PQgetlength(res, row, column));
        switch (PQftype(res, column)) {
        case PgBool:
            return QVariant(bytes == "t");
        case PgInt2:
        case PgInt4:
        case PgInt8:
            return QVariant(bytes.toLongLong());
        case PgNumeric:
            if (!bytes.contains('.'))
                return QVariant(bytes.toLongLong());
            return QVariant(bytes.toDouble());
        case PgFloat4:
        case PgFloat8:
            return QVariant(bytes.toDouble());
        case PgDate:
            return QVariant(QDate::fromString(QString::fromLatin1(bytes), Qt::ISODate));
        case PgTimestamp:
            return QVariant(QDateTime::fromString(QString::fromLatin1(bytes).replace(u' ', u'T'), Qt::ISODate));
        case PgBytea: {
            size_t length = 0;
            unsigned char *data = PQunescapeBytea(reinterpret_cast<const unsigned char *>(raw), &length);
            QByteArray blob(reinterpret_cast<const char *>(data), qsizetype(length));
            PQfreemem(data);
            return QVariant(blob);
        }
        default:
            return QVariant(QString::fromUtf8(bytes));
        }
    }

    PGconn *m_conn = nullptr;
};

} // namespace

std::unique_ptr<SqlDriver> openPostgresDriver(const ConnectionParameters &parameters)
{
    return std::make_unique<PostgresDriver>(parameters);
}

} // namespace kx
