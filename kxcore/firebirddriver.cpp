// SPDX-License-Identifier: LGPL-2.1-or-later
// Firebird through its own client library (the isc_* interface). Each statement runs in a
// read-committed transaction of its own that commits when the statement is done: autocommit.
// Qt's driver for Firebird was the first choice; it looks up the precision of every scaled
// NUMERIC column of a result in the system tables, one query per column, which made a query
// over a table of amounts cost tens of milliseconds.
#include "kxerror.h"
#include "sqldialect.h"
#include "sqldriver.h"

#include <QDateTime>
#include <QIODevice>
#include <QScopeGuard>
#include <QSet>
#include <QThread>
#include <ibase.h>
#include <cmath>
#include <cstring>
#include <vector>

using namespace Qt::StringLiterals;

namespace kx {
namespace {

// The client library's message for a failed call, its lines joined.
QString errorText(const ISC_STATUS *status)
{
    QString text;
    const ISC_STATUS *vector = status;
    char buffer[1024];
    while (fb_interpret(buffer, sizeof buffer, &vector) > 0) {
        if (!text.isEmpty())
            text += u'\n';
        text += QString::fromUtf8(buffer);
    }
    return text;
}

// An output description with a buffer and a null indicator for every column.
class OutputRow
{
public:
    explicit OutputRow(short columns) { resize(columns); }
    ~OutputRow() { std::free(m_sqlda); }
    OutputRow(const OutputRow &) = delete;
    OutputRow &operator=(const OutputRow &) = delete;

    XSQLDA *sqlda() { return m_sqlda; }

    void resize(short columns)
    {
        std::free(m_sqlda);
        m_sqlda = static_cast<XSQLDA *>(std::calloc(1, XSQLDA_LENGTH(std::max<short>(columns, 1))));
        m_sqlda->version = SQLDA_VERSION1;
        m_sqlda->sqln = std::max<short>(columns, 1);
    }

    // Buffers for the described columns; every column gets a null indicator.
    void bind()
    {
        m_buffers.assign(m_sqlda->sqld, {});
        m_nulls.assign(m_sqlda->sqld, 0);
        for (short i = 0; i < m_sqlda->sqld; ++i) {
            XSQLVAR &var = m_sqlda->sqlvar[i];
            const int type = var.sqltype & ~1;
            m_buffers[i].resize(size_t(var.sqllen) + (type == SQL_VARYING ? sizeof(short) : 0) + 1);
            var.sqldata = m_buffers[i].data();
            var.sqltype = short(type | 1);
            var.sqlind = &m_nulls[i];
        }
    }

private:
    XSQLDA *m_sqlda = nullptr;
    std::vector<std::vector<char>> m_buffers;
    std::vector<short> m_nulls;
};

// A value of the column buffer (which need not be aligned for T).
template<class T>
T read(const char *data)
{
    T value;
    std::memcpy(&value, data, sizeof value);
    return value;
}

QString columnName(const XSQLVAR &var)
{
    return QString::fromUtf8(var.aliasname, var.aliasname_length).trimmed();
}

double scaled(qint64 value, short scale)
{
    return scale < 0 ? double(value) / std::pow(10.0, -scale) : double(value);
}

QVariant integer(qint64 value, short scale)
{
    return scale < 0 ? QVariant(scaled(value, scale)) : QVariant(qlonglong(value));
}

// A lock conflict or deadlock: the statement may succeed when tried again.
class ConflictError : public DatabaseError
{
public:
    using DatabaseError::DatabaseError;
};

class FirebirdDriver final : public SqlDriver
{
public:
    explicit FirebirdDriver(const ConnectionParameters &p)
    {
        // An IPv6 address stands in brackets: "[::1]/3050:/pfad/k.fdb".
        const QString host = p.host.contains(u':') ? u'[' + p.host + u']' : p.host;
        const QByteArray path = (host.isEmpty() ? QString() : host + (p.port > 0 ? u'/' + QString::number(p.port) : QString()) + u':').toUtf8()
            + p.database.toUtf8();
        QByteArray dpb;
        dpb.append(char(isc_dpb_version1));
        const auto add = [&dpb](char item, const QByteArray &value) {
            dpb.append(item).append(char(value.size())).append(value);
        };
        add(isc_dpb_user_name, p.user.toUtf8());
        add(isc_dpb_password, p.password.toUtf8());
        add(isc_dpb_lc_ctype, "UTF8");
        for (const auto &[name, value] : p.options) {
            if (name == u"role"_s) {
                add(isc_dpb_sql_role_name, value.toUtf8());
            } else if (name == u"connect_timeout"_s) {
                bool ok = false;
                const int seconds = value.toInt(&ok);
                if (!ok || seconds < 0)
                    throw DatabaseError(u"connect_timeout \"%1\" ist keine Zahl von Sekunden."_s.arg(value));
                dpb.append(char(isc_dpb_connect_timeout)).append(char(4));
                for (int shift = 0; shift < 32; shift += 8)
                    dpb.append(char((seconds >> shift) & 0xFF));
            } else {
                throw DatabaseError(u"Die Verbindungsoption \"%1\" gibt es für Firebird nicht (role, connect_timeout)."_s.arg(name));
            }
        }
        ISC_STATUS_ARRAY status;
        if (isc_attach_database(status, short(path.size()), path.constData(), &m_db, short(dpb.size()), dpb.constData())) {
            const QString native = errorText(status);
            m_db = 0;
            throw DatabaseError(u"Die Firebird-Datenbank \"%1\" auf %2 lässt sich nicht öffnen: %3"_s
                                    .arg(p.database, p.host, native),
                                {}, native);
        }
    }
    ~FirebirdDriver() override { close(); }

    // A statement that meets a row another transaction holds is tried again a few times: a
    // failed statement's transaction is rolled back, so trying again cannot book twice.
    template<class Work>
    auto retryingConflicts(const QString &sql, Work &&work)
    {
        for (int attempt = 1;; ++attempt) {
            try {
                return work();
            } catch (const ConflictError &e) {
                if (attempt == conflictAttempts)
                    throw DatabaseError(u"Die Daten sind von einem anderen Arbeitsplatz gesperrt; nach %1 Versuchen "
                                        u"aufgegeben: %2\n%3"_s.arg(attempt).arg(e.nativeText(), sql),
                                        sql, e.nativeText());
                QThread::msleep(20 * attempt);
            }
        }
    }

    SqlResult execute(const QString &sql) override
    {
        return retryingConflicts(sql, [&] { return executeOnce(sql); });
    }

    // One EXECUTE BLOCK is one statement, so all of it takes effect or none; prepared and run in
    // one round trip. A text too long for a block is left to the caller.
    bool executeGroup(const QStringList &statements) override
    {
        const QByteArray text = (u"EXECUTE BLOCK AS BEGIN\n"_s + statements.join(u";\n"_s) + u";\nEND"_s).toUtf8();
        if (text.size() > maxBlockText)
            return false;
        const QString sql = QString::fromUtf8(text);
        retryingConflicts(sql, [&] {
            inTransaction(sql, [&](isc_tr_handle &transaction, isc_stmt_handle &) {
                ISC_STATUS_ARRAY status;
                if (isc_dsql_execute_immediate(status, &m_db, &transaction, 0, text.constData(), SQL_DIALECT_V6, nullptr))
                    fail(status, sql);
            });
            return 0;
        });
        return true;
    }

    // A row of KX_LOCKS per name, updated in a transaction of its own that stays open while the
    // lock is held; another connection's update of the row waits for it. Releasing rolls the
    // transaction back, so the waiting update goes through instead of meeting a changed row.
    void acquireLock(const QString &name) override
    {
        const QString key = QString::number(lockKey(name));
        ensureLockRow(key);
        bool rechecked = false;
        for (int attempt = 1;; ++attempt) {
            ISC_STATUS_ARRAY status;
            if (isc_start_transaction(status, &m_lockTransaction, 1, &m_db, short(sizeof autocommitTpb), autocommitTpb))
                fail(status, name);
            isc_stmt_handle statement = 0;
            try {
                const QString update = u"update KX_LOCKS set NAME=NAME where NAME='"_s + key + u'\'';
                const qint64 locked = run(update, m_lockTransaction, statement).rowsAffected;
                isc_dsql_free_statement(status, &statement, DSQL_drop);
                if (locked == 0) // a row that is not there locks nothing
                    throw DatabaseError(u"Keine Sperrzeile"_s, update, u"KX_LOCKS ohne Zeile "_s + key);
                return;
            } catch (const DatabaseError &e) {
                ISC_STATUS_ARRAY ignored;
                if (statement)
                    isc_dsql_free_statement(ignored, &statement, DSQL_drop);
                releaseLock();
                const bool conflict = dynamic_cast<const ConflictError *>(&e) != nullptr;
                if (!conflict && !rechecked) { // the table or row may have gone since it was made
                    rechecked = true;
                    m_lockTableChecked = false;
                    m_lockRows.clear();
                    ensureLockRow(key);
                    continue;
                }
                if (!conflict || attempt == conflictAttempts)
                    throw DatabaseError(u"Die Sperre \"%1\" ist nicht zu bekommen: %2"_s.arg(name, e.nativeText()));
            }
        }
    }

    void releaseLock() override
    {
        if (m_lockTransaction) {
            ISC_STATUS_ARRAY status;
            isc_rollback_transaction(status, &m_lockTransaction);
            m_lockTransaction = 0;
        }
    }

    void beginTransaction() override
    {
        ISC_STATUS_ARRAY status;
        if (isc_start_transaction(status, &m_transaction, 1, &m_db, short(sizeof autocommitTpb), autocommitTpb)) {
            m_transaction = 0;
            fail(status, u"BEGIN"_s);
        }
    }

    void commitTransaction() override
    {
        ISC_STATUS_ARRAY status;
        if (m_transaction && isc_commit_transaction(status, &m_transaction)) {
            rollbackTransaction();
            fail(status, u"COMMIT"_s);
        }
        m_transaction = 0;
    }

    void rollbackTransaction() noexcept override
    {
        if (m_transaction) {
            ISC_STATUS_ARRAY status;
            isc_rollback_transaction(status, &m_transaction);
            m_transaction = 0;
        }
    }

    // The lock row updated inside the caller transaction: another connection's update of it
    // waits until that transaction ends. Where the holder committed, the waiting update meets a
    // changed row and is tried again; each failure means another posting has finished.
    void acquireTransactionLock(const QString &name) override
    {
        const QString key = QString::number(lockKey(name));
        ensureLockRow(key);
        const QString update = u"update KX_LOCKS set NAME=NAME where NAME='"_s + key + u'\'';
        for (int attempt = 1;; ++attempt) {
            try {
                if (executeOnce(update).rowsAffected == 0)
                    throw DatabaseError(u"Die Sperre \"%1\" hat keine Sperrzeile."_s.arg(name), update);
                return;
            } catch (const ConflictError &e) {
                if (attempt == transactionLockAttempts)
                    throw DatabaseError(u"Die Sperre \"%1\" ist nicht zu bekommen: %2"_s.arg(name, e.nativeText()));
            }
        }
    }

    void close() override
    {
        rollbackTransaction();
        releaseLock();
        if (m_db) {
            ISC_STATUS_ARRAY status;
            isc_detach_database(status, &m_db);
            m_db = 0;
        }
    }

    const SqlDialect &dialect() const override { return firebirdDialect(); }

    // Firebird's own blobs: written segment by segment into a new blob, whose id the UPDATE then
    // stores; read segment by segment from the id the SELECT returns. Each in one transaction.
    void writeBlob(const BlobLocation &at, QIODevice &source) override
    {
        const QString sql = u"update %1 set %2=? where %3"_s.arg(at.table, at.column, at.where());
        inTransaction(sql, [&](isc_tr_handle &transaction, isc_stmt_handle &statement) {
            ISC_STATUS_ARRAY status;
            isc_blob_handle blob = 0;
            ISC_QUAD id{};
            if (isc_create_blob2(status, &m_db, &transaction, &blob, &id, 0, nullptr))
                fail(status, sql);
            for (QByteArray chunk = source.read(segmentSize); !chunk.isEmpty(); chunk = source.read(segmentSize)) {
                if (isc_put_segment(status, &blob, static_cast<unsigned short>(chunk.size()), chunk.constData())) {
                    ISC_STATUS_ARRAY ignored;
                    isc_cancel_blob(ignored, &blob);
                    fail(status, sql);
                }
            }
            if (isc_close_blob(status, &blob))
                fail(status, sql);
            OutputRow parameters(1);
            const QByteArray text = sql.toUtf8();
            if (isc_dsql_allocate_statement(status, &m_db, &statement)
                || isc_dsql_prepare(status, &transaction, &statement, 0, text.constData(), SQL_DIALECT_V6, nullptr)
                || isc_dsql_describe_bind(status, &statement, SQL_DIALECT_V6, parameters.sqlda()))
                fail(status, sql);
            short notNull = 0;
            XSQLVAR &var = parameters.sqlda()->sqlvar[0];
            var.sqltype = SQL_BLOB | 1;
            var.sqldata = reinterpret_cast<char *>(&id);
            var.sqlind = &notNull;
            if (isc_dsql_execute(status, &transaction, &statement, SQL_DIALECT_V6, parameters.sqlda()))
                fail(status, sql);
            if (rowsAffected(statement) != 1)
                throw DatabaseError(u"SQL-Fehler: keine Zeile %1 in %2."_s.arg(at.where(), at.table), sql);
        });
    }

    bool readBlob(const BlobLocation &at, QIODevice &target) override
    {
        const QString sql = u"select %1 from %2 where %3"_s.arg(at.column, at.table, at.where());
        bool found = false;
        inTransaction(sql, [&](isc_tr_handle &transaction, isc_stmt_handle &statement) {
            ISC_STATUS_ARRAY status;
            OutputRow row(1);
            const QByteArray text = sql.toUtf8();
            if (isc_dsql_allocate_statement(status, &m_db, &statement)
                || isc_dsql_prepare(status, &transaction, &statement, 0, text.constData(), SQL_DIALECT_V6, row.sqlda()))
                fail(status, sql);
            row.bind();
            if (isc_dsql_execute(status, &transaction, &statement, SQL_DIALECT_V6, nullptr))
                fail(status, sql);
            const XSQLVAR &var = row.sqlda()->sqlvar[0];
            if (isc_dsql_fetch(status, &statement, SQL_DIALECT_V6, row.sqlda()) != 0 || *var.sqlind < 0)
                return;
            if ((var.sqltype & ~1) != SQL_BLOB)
                throw DatabaseError(u"SQL-Fehler: %1.%2 ist kein Blob."_s.arg(at.table, at.column), sql);
            ISC_QUAD id = read<ISC_QUAD>(var.sqldata);
            isc_blob_handle blob = 0;
            if (isc_open_blob2(status, &m_db, &transaction, &blob, &id, 0, nullptr))
                fail(status, sql);
            char segment[segmentSize];
            unsigned short length = 0;
            for (;;) {
                const ISC_STATUS rc = isc_get_segment(status, &blob, &length, sizeof segment, segment);
                if (rc != 0 && status[1] != isc_segment)
                    break;
                if (target.write(segment, length) != length) {
                    ISC_STATUS_ARRAY ignored;
                    isc_close_blob(ignored, &blob);
                    throw DatabaseError(u"SQL-Fehler: %1.%2 lässt sich nicht schreiben: %3"_s
                                            .arg(at.table, at.column, target.errorString()), sql);
                }
            }
            const bool ended = status[1] == isc_segstr_eof;
            ISC_STATUS_ARRAY closing;
            isc_close_blob(closing, &blob);
            if (!ended)
                fail(status, sql);
            found = true;
        });
        return found;
    }

private:
    static constexpr int conflictAttempts = 5;
    // Well below the server's limit on a statement's text and on the compiled block.
    static constexpr qsizetype maxBlockText = 48 * 1024;
    static constexpr int transactionLockAttempts = 100;
    static constexpr char autocommitTpb[] = { isc_tpb_version3, isc_tpb_write, isc_tpb_read_committed,
                                              isc_tpb_rec_version, isc_tpb_wait };

    [[noreturn]] static void fail(const ISC_STATUS *status, const QString &sql)
    {
        const QString native = errorText(status);
        const QString message = u"SQL-Fehler: %1\n%2"_s.arg(native, sql);
        const ISC_STATUS code = status[1];
        if (code == isc_deadlock || code == isc_lock_conflict || code == isc_update_conflict)
            throw ConflictError(message, sql, native);
        throw DatabaseError(message, sql, native);
    }

    static constexpr unsigned short segmentSize = 32768;

    // Runs Work with a statement handle in the caller transaction while one is open, otherwise in
    // a transaction of its own that is committed when Work returns and rolled back when it throws.
    template<class Work>
    void inTransaction(const QString &sql, Work &&work)
    {
        if (!m_db)
            throw DatabaseError(u"Keine Datenbankverbindung geöffnet."_s, sql);
        if (m_transaction) {
            isc_stmt_handle statement = 0;
            const auto drop = qScopeGuard([&] {
                ISC_STATUS_ARRAY ignored;
                if (statement)
                    isc_dsql_free_statement(ignored, &statement, DSQL_drop);
            });
            work(m_transaction, statement);
            return;
        }
        inOwnTransaction(sql, std::forward<Work>(work));
    }

    template<class Work>
    void inOwnTransaction(const QString &sql, Work &&work)
    {
        if (!m_db)
            throw DatabaseError(u"Keine Datenbankverbindung geöffnet."_s, sql);
        ISC_STATUS_ARRAY status;
        isc_tr_handle transaction = 0;
        if (isc_start_transaction(status, &transaction, 1, &m_db, short(sizeof autocommitTpb), autocommitTpb))
            fail(status, sql);
        isc_stmt_handle statement = 0;
        try {
            work(transaction, statement);
            if (statement)
                isc_dsql_free_statement(status, &statement, DSQL_drop);
            if (isc_commit_transaction(status, &transaction))
                fail(status, sql);
        } catch (...) {
            ISC_STATUS_ARRAY ignored;
            if (statement)
                isc_dsql_free_statement(ignored, &statement, DSQL_drop);
            if (transaction)
                isc_rollback_transaction(ignored, &transaction);
            throw;
        }
    }

    SqlResult executeOnce(const QString &sql)
    {
        SqlResult result;
        inTransaction(sql, [&](isc_tr_handle &transaction, isc_stmt_handle &statement) {
            result = run(sql, transaction, statement);
        });
        return result;
    }

    // Committed on its own also while a caller transaction is open.
    SqlResult executeAutocommit(const QString &sql)
    {
        SqlResult result;
        inOwnTransaction(sql, [&](isc_tr_handle &transaction, isc_stmt_handle &statement) {
            result = run(sql, transaction, statement);
        });
        return result;
    }



    // The lock table and the name's row, made by whichever connection needs them first.
    void ensureLockRow(const QString &key)
    {
        if (!m_lockTableChecked) {
            if (executeAutocommit(u"select count(*) from rdb$relations where rdb$relation_name='KX_LOCKS'"_s)
                    .rows.front().value(0).toInt() == 0) {
                try {
                    executeAutocommit(u"CREATE TABLE KX_LOCKS (NAME VARCHAR(20) NOT NULL PRIMARY KEY)"_s);
                } catch (const DatabaseError &) { // made at the same moment by another connection
                }
            }
            m_lockTableChecked = true;
        }
        if (m_lockRows.contains(key))
            return;
        try {
            executeAutocommit(u"insert into KX_LOCKS (NAME) select '"_s + key
                    + u"' from rdb$database where not exists (select 1 from KX_LOCKS where NAME='"_s + key + u"')"_s);
        } catch (const DatabaseError &) { // inserted at the same moment by another connection
        }
        m_lockRows.insert(key);
    }

    SqlResult run(const QString &sql, isc_tr_handle &transaction, isc_stmt_handle &statement)
    {
        ISC_STATUS_ARRAY status;
        if (isc_dsql_allocate_statement(status, &m_db, &statement))
            fail(status, sql);
        OutputRow row(20);
        const QByteArray text = sql.toUtf8();
        if (isc_dsql_prepare(status, &transaction, &statement, 0, text.constData(), SQL_DIALECT_V6, row.sqlda()))
            fail(status, sql);
        if (row.sqlda()->sqld > row.sqlda()->sqln) {
            row.resize(row.sqlda()->sqld);
            if (isc_dsql_describe(status, &statement, SQL_DIALECT_V6, row.sqlda()))
                fail(status, sql);
        }
        row.bind();
        if (isc_dsql_execute(status, &transaction, &statement, SQL_DIALECT_V6, nullptr))
            fail(status, sql);

        SqlResult result;
        const XSQLDA *out = row.sqlda();
        if (out->sqld == 0) {
            result.rowsAffected = rowsAffected(statement);
            return result;
        }
        for (short c = 0; c < out->sqld; ++c)
            result.columns << columnName(out->sqlvar[c]);
        ISC_STATUS fetched = 0;
        while ((fetched = isc_dsql_fetch(status, &statement, SQL_DIALECT_V6, row.sqlda())) == 0) {
            QVector<QVariant> values(out->sqld);
            for (short c = 0; c < out->sqld; ++c)
                values[c] = value(out->sqlvar[c], transaction, sql);
            result.rows.push_back(std::move(values));
        }
        if (fetched != 100)
            fail(status, sql);
        result.rowsAffected = qint64(result.rows.size());
        return result;
    }

    QVariant value(const XSQLVAR &var, isc_tr_handle &transaction, const QString &sql)
    {
        if (*var.sqlind < 0)
            return QVariant();
        const char *data = var.sqldata;
        switch (var.sqltype & ~1) {
        case SQL_VARYING:
            return QString::fromUtf8(data + sizeof(short), read<short>(data));
        case SQL_TEXT: {
            // CHAR columns come padded with blanks to their length.
            QString text = QString::fromUtf8(data, var.sqllen);
            while (text.endsWith(u' '))
                text.chop(1);
            return text;
        }
        case SQL_SHORT:
            return integer(read<short>(data), var.sqlscale);
        case SQL_LONG:
            return integer(read<ISC_LONG>(data), var.sqlscale);
        case SQL_INT64:
            return integer(read<ISC_INT64>(data), var.sqlscale);
        case SQL_FLOAT:
            return double(read<float>(data));
        case SQL_DOUBLE:
        case SQL_D_FLOAT:
            return read<double>(data);
        case SQL_TYPE_DATE: {
            const ISC_DATE v = read<ISC_DATE>(data);
            struct tm t = {};
            isc_decode_sql_date(&v, &t);
            return QDate(t.tm_year + 1900, t.tm_mon + 1, t.tm_mday);
        }
        case SQL_TYPE_TIME: {
            const ISC_TIME v = read<ISC_TIME>(data);
            struct tm t = {};
            isc_decode_sql_time(&v, &t);
            return QTime(t.tm_hour, t.tm_min, t.tm_sec, int(v % 10000) / 10);
        }
        case SQL_TIMESTAMP: {
            const ISC_TIMESTAMP v = read<ISC_TIMESTAMP>(data);
            struct tm t = {};
            isc_decode_timestamp(&v, &t);
            return QDateTime(QDate(t.tm_year + 1900, t.tm_mon + 1, t.tm_mday),
                             QTime(t.tm_hour, t.tm_min, t.tm_sec, int(v.timestamp_time % 10000) / 10));
        }
        case SQL_BOOLEAN:
            return bool(read<FB_BOOLEAN>(data));
        case SQL_BLOB: {
            const QByteArray bytes = readBlob(read<ISC_QUAD>(data), transaction, sql);
            return var.sqlsubtype == 1 ? QVariant(QString::fromUtf8(bytes)) : QVariant(bytes);
        }
        default:
            throw DatabaseError(u"SQL-Fehler: Spaltentyp %1 von \"%2\" wird nicht unterstützt.\n%3"_s
                                    .arg(var.sqltype & ~1)
                                    .arg(columnName(var), sql),
                                sql);
        }
    }

    QByteArray readBlob(ISC_QUAD id, isc_tr_handle &transaction, const QString &sql)
    {
        ISC_STATUS_ARRAY status;
        isc_blob_handle blob = 0;
        if (isc_open_blob2(status, &m_db, &transaction, &blob, &id, 0, nullptr))
            fail(status, sql);
        QByteArray bytes;
        char segment[16384];
        unsigned short length = 0;
        for (;;) {
            const ISC_STATUS rc = isc_get_segment(status, &blob, &length, sizeof segment, segment);
            if (rc != 0 && status[1] != isc_segment)
                break; // the end of the blob (or a failure, reported by the close below)
            bytes.append(segment, length);
        }
        const bool ended = status[1] == isc_segstr_eof;
        ISC_STATUS_ARRAY closing;
        isc_close_blob(closing, &blob);
        if (!ended)
            fail(status, sql);
        return bytes;
    }

    // The rows an INSERT, UPDATE or DELETE touched; -1 for other statements.
    static qint64 rowsAffected(isc_stmt_handle &statement)
    {
        ISC_STATUS_ARRAY status;
        const char items[] = { isc_info_sql_records };
        char buffer[64] = {};
        if (isc_dsql_sql_info(status, &statement, sizeof items, items, sizeof buffer, buffer) || buffer[0] != isc_info_sql_records)
            return -1;
        qint64 count = 0;
        bool any = false;
        const char *p = buffer + 3;
        while (*p != isc_info_end && p < buffer + sizeof buffer - 3) {
            const char item = *p++;
            const short length = short(isc_vax_integer(p, 2));
            p += 2;
            const qint64 value = isc_vax_integer(p, length);
            p += length;
            if (item == isc_info_req_insert_count || item == isc_info_req_update_count
                || item == isc_info_req_delete_count) {
                count += value;
                any = true;
            }
        }
        return any ? count : -1;
    }

    isc_db_handle m_db = 0;
    isc_tr_handle m_lockTransaction = 0;
    isc_tr_handle m_transaction = 0; // the caller transaction while one is open
    bool m_lockTableChecked = false;
    QSet<QString> m_lockRows; // the lock rows known to exist, so that a lock costs one update
};

} // namespace

std::unique_ptr<SqlDriver> openFirebirdDriver(const ConnectionParameters &parameters)
{
    return std::make_unique<FirebirdDriver>(parameters);
}

} // namespace kx
