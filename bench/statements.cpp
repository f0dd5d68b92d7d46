// SPDX-License-Identifier: LGPL-2.1-or-later
// Cost of simple statements through kxcore against the same statements through the product's
// own client in the same run: SQLite's C library, libpq, and for Firebird Qt's driver directly.
// Rounds alternate between the two paths; each figure is the median of the rounds.
#include "benchsupport.h"
#include "clients.h"

#include "sqlconnection.h"
#include "sqltool.h"

#include <QCoreApplication>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTextStream>
#include <sqlite3.h>
#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct Statements
{
    std::vector<QString> inserts, updates, selects;
};

Statements makeStatements(int n, const QString &table)
{
    Statements s;
    for (int i = 0; i < n; ++i) {
        const QString id = u"ID%1"_s.arg(i, 8, 10, QChar(u'0'));
        s.inserts.push_back(u"INSERT INTO "_s + table + u" (ID, N, NAME) VALUES ('"_s + id + u"', "_s
                            + QString::number(i) + u", 'Schlauch B "_s + QString::number(i) + u"')"_s);
        s.updates.push_back(u"UPDATE "_s + table + u" SET N=N+1 WHERE ID='"_s + id + u'\'');
        s.selects.push_back(u"SELECT NAME FROM "_s + table + u" WHERE ID='"_s + id + u'\'');
    }
    return s;
}

// The baseline: one product's own client, no layer in between.
class Baseline
{
public:
    virtual ~Baseline() = default;
    virtual void exec(const QString &sql) = 0;
    virtual QString value(const QString &sql) = 0;
};

class SqliteBaseline final : public Baseline
{
public:
    explicit SqliteBaseline(const QString &path)
    {
        sqlite3_open(path.toUtf8().constData(), &m_db);
        exec(u"PRAGMA journal_mode=WAL"_s);
        exec(u"PRAGMA synchronous=FULL"_s);
    }
    ~SqliteBaseline() override { sqlite3_close(m_db); }
    void exec(const QString &sql) override
    {
        sqlite3_stmt *st = nullptr;
        sqlite3_prepare16_v2(m_db, sql.utf16(), int(sql.size() * 2), &st, nullptr);
        while (sqlite3_step(st) == SQLITE_ROW) {
        }
        sqlite3_finalize(st);
    }
    QString value(const QString &sql) override
    {
        sqlite3_stmt *st = nullptr;
        sqlite3_prepare16_v2(m_db, sql.utf16(), int(sql.size() * 2), &st, nullptr);
        QString result;
        if (sqlite3_step(st) == SQLITE_ROW)
            result = QString::fromUtf16(static_cast<const char16_t *>(sqlite3_column_text16(st, 0)));
        sqlite3_finalize(st);
        return result;
    }

private:
    sqlite3 *m_db = nullptr;
};

class PostgresBaseline final : public Baseline
{
public:
    explicit PostgresBaseline(const kx::ConnectionParameters &p)
        : m_client(p)
    {
    }
    void exec(const QString &sql) override { PQclear(PQexec(m_client.connection(), sql.toUtf8().constData())); }
    QString value(const QString &sql) override
    {
        PGresult *res = PQexec(m_client.connection(), sql.toUtf8().constData());
        const QString result = PQntuples(res) > 0 ? QString::fromUtf8(PQgetvalue(res, 0, 0)) : QString();
        PQclear(res);
        return result;
    }

private:
    kxbench::PostgresClient m_client;
};

class FirebirdBaseline final : public Baseline
{
public:
    explicit FirebirdBaseline(const kx::ConnectionParameters &p)
        : m_client(p)
    {
    }
    void exec(const QString &sql) override
    {
        QSqlQuery q(m_client.database());
        q.exec(sql);
    }
    QString value(const QString &sql) override
    {
        QSqlQuery q(m_client.database());
        q.setForwardOnly(true);
        q.exec(sql);
        return q.next() ? q.value(0).toString() : QString();
    }

private:
    kxbench::FirebirdClient m_client;
};

struct Times
{
    std::vector<double> baseline, kxcore;
};

// With noSync, SQLite skips the disk flush on both paths: what is left is the CPU cost.
void runProduct(const QString &product, int n, int rounds, QTextStream &out, bool noSync = false)
{
    QTemporaryDir scratch;
    const QString connection = kxbench::openProduct("statements", product, scratch.path(), out);
    if (connection.isEmpty())
        return;
    std::unique_ptr<Baseline> baseline;
    if (product == u"sqlite"_s)
        baseline = std::make_unique<SqliteBaseline>(TCSqlConnection::parseConnectionString(connection).database);
    else if (product == u"postgres"_s)
        baseline = std::make_unique<PostgresBaseline>(TCSqlConnection::parseConnectionString(connection));
    else
        baseline = std::make_unique<FirebirdBaseline>(TCSqlConnection::parseConnectionString(connection));

    if (noSync) {
        SqlExec(u"PRAGMA synchronous=OFF"_s);
        baseline->exec(u"PRAGMA synchronous=OFF"_s);
    }

    Times times;
    for (int round = 0; round < rounds; ++round) {
        // Fresh tables each round; the baseline and kxcore write to tables of their own.
        const QString baseTable = u"BENCH_BASE%1"_s.arg(round);
        const QString kxTable = u"BENCH_KX%1"_s.arg(round);
        for (const QString &table : { baseTable, kxTable }) {
            if (compSqlConnection->tableExists(table))
                SqlExec(u"DROP TABLE "_s + table);
            SqlExec(u"CREATE TABLE "_s + table + u" (ID VARCHAR(43), N NUMERIC(10,0), NAME VARCHAR(50))"_s);
            SqlExec(u"CREATE INDEX IX_"_s + table + u" ON "_s + table + u" (ID)"_s);
        }
        const Statements base = makeStatements(n, baseTable);
        const Statements kx = makeStatements(n, kxTable);
        auto runBaseline = [&] {
            for (int i = 0; i < n; ++i)
                baseline->exec(base.inserts[i]);
            for (int i = 0; i < n; ++i)
                baseline->exec(base.updates[i]);
            for (int i = 0; i < n; ++i)
                baseline->value(base.selects[i]);
        };
        auto runKxcore = [&] {
            for (int i = 0; i < n; ++i)
                SqlExec(kx.inserts[i]);
            for (int i = 0; i < n; ++i)
                SqlExec(kx.updates[i]);
            for (int i = 0; i < n; ++i)
                sqlGetValue(kx.selects[i]);
        };
        // Alternate which path goes first, so that neither always meets a warmer cache.
        if (round % 2 == 0) {
            times.baseline.push_back(kxbench::seconds(runBaseline));
            times.kxcore.push_back(kxbench::seconds(runKxcore));
        } else {
            times.kxcore.push_back(kxbench::seconds(runKxcore));
            times.baseline.push_back(kxbench::seconds(runBaseline));
        }
        // Both paths must have done the same work, or the figure means nothing.
        for (const QString &table : { baseTable, kxTable }) {
            const QString check = u"SELECT count(*), sum(N) FROM "_s + table;
            const kx::SqlResult result = compSqlConnection->execute(check);
            const qint64 rows = result.rows.front().value(0).toLongLong();
            const qint64 sum = result.rows.front().value(1).toLongLong();
            if (rows != n || sum != qint64(n) * (n + 1) / 2) {
                out << "BENCH statements " << product << " invalid: " << table << " holds " << rows << " rows\n";
                std::exit(1);
            }
        }
    }
    for (int round = 0; round < rounds; ++round) {
        SqlExec(u"DROP TABLE BENCH_BASE%1"_s.arg(round));
        SqlExec(u"DROP TABLE BENCH_KX%1"_s.arg(round));
    }
    const double base = kxbench::median(times.baseline);
    const double kx = kxbench::median(times.kxcore);
    const int statements = 3 * n;
    out << (noSync ? "  detail: statements " : "BENCH statements ") << product
        << (noSync ? " without disk flushes (synchronous=OFF on both) ratio=" : " ratio=") << QString::number(kx / base, 'f', 3)
        << " kxcore over the product's own client; " << statements << " statements (" << n << " INSERT, " << n
        << " UPDATE, " << n << " single-value SELECT) per round, median of " << rounds << " rounds: kxcore "
        << QString::number(kx * 1e6 / statements, 'f', 1) << " us/statement, baseline "
        << QString::number(base * 1e6 / statements, 'f', 1) << " us/statement\n";
    out.flush();
    compSqlConnection->Close();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const int n = qEnvironmentVariableIntValue("KX_BENCH_N") > 0 ? qEnvironmentVariableIntValue("KX_BENCH_N") : 1000;
    const int rounds = 5;
    for (const QString &product : kxbench::products(app.arguments().mid(1))) {
        runProduct(product, n, rounds, out);
        if (product == u"sqlite"_s)
            runProduct(product, n, rounds, out, true);
    }
    return 0;
}
