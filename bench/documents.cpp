// SPDX-License-Identifier: LGPL-2.1-or-later
// Storing a 20 MB file in the database and extracting it again through the binary field
// (SaveBinaryData, ExtractBinaryData) against writing and reading the same bytes through the
// product's own client in the same run: SQLite's C library, libpq with a binary parameter, and
// for Firebird Qt's driver on its client library. Both sides read the file and write it back.
#include "benchsupport.h"
#include "clients.h"
#include "emptydatabase.h"
#include "scratchfiles.h"

#include "binarydata.h"
#include "dataaccess.h"
#include "sqlconnection.h"
#include "systables.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTextStream>
#include <QVariant>
#include <sqlite3.h>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype fileSize = 20 * 1024 * 1024;

// The same bytes in and out through a product's own client, in a table of its own.
class Baseline
{
public:
    virtual ~Baseline() = default;
    virtual void store(const QByteArray &bytes) = 0;
    virtual QByteArray load() = 0;
};

class SqliteBaseline final : public Baseline
{
public:
    explicit SqliteBaseline(const QString &path)
    {
        sqlite3_open(path.toUtf8().constData(), &m_db);
        sqlite3_exec(m_db, "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL", nullptr, nullptr, nullptr);
    }
    ~SqliteBaseline() override { sqlite3_close(m_db); }
    void store(const QByteArray &bytes) override
    {
        sqlite3_exec(m_db, "delete from BENCH_BLOB", nullptr, nullptr, nullptr);
        sqlite3_stmt *s = nullptr;
        sqlite3_prepare_v2(m_db, "insert into BENCH_BLOB (ID, DATA) values ('1', ?)", -1, &s, nullptr);
        sqlite3_bind_blob64(s, 1, bytes.constData(), sqlite3_uint64(bytes.size()), SQLITE_STATIC);
        sqlite3_step(s);
        sqlite3_finalize(s);
    }
    QByteArray load() override
    {
        sqlite3_stmt *s = nullptr;
        sqlite3_prepare_v2(m_db, "select DATA from BENCH_BLOB where ID='1'", -1, &s, nullptr);
        QByteArray bytes;
        if (sqlite3_step(s) == SQLITE_ROW)
            bytes = QByteArray(static_cast<const char *>(sqlite3_column_blob(s, 0)), sqlite3_column_bytes(s, 0));
        sqlite3_finalize(s);
        return bytes;
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
    void store(const QByteArray &bytes) override
    {
        PQclear(PQexec(m_client.connection(), "delete from bench_blob"));
        const char *values[] = { bytes.constData() };
        const int lengths[] = { int(bytes.size()) };
        const int formats[] = { 1 };
        PQclear(PQexecParams(m_client.connection(), "insert into bench_blob (id, data) values ('1', $1)", 1, nullptr, values,
                             lengths, formats, 0));
    }
    QByteArray load() override
    {
        PGresult *r = PQexecParams(m_client.connection(), "select data from bench_blob where id='1'", 0, nullptr, nullptr,
                                   nullptr, nullptr, 1);
        const QByteArray bytes(PQgetvalue(r, 0, 0), PQgetlength(r, 0, 0));
        PQclear(r);
        return bytes;
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
    void store(const QByteArray &bytes) override
    {
        QSqlQuery q(m_client.database());
        q.exec(u"delete from BENCH_BLOB"_s);
        q.prepare(u"insert into BENCH_BLOB (ID, DATA) values ('1', ?)"_s);
        q.addBindValue(bytes);
        q.exec();
    }
    QByteArray load() override
    {
        QSqlQuery q(m_client.database());
        q.exec(u"select DATA from BENCH_BLOB where ID='1'"_s);
        return q.next() ? q.value(0).toByteArray() : QByteArray();
    }

private:
    kxbench::FirebirdClient m_client;
};

void runProduct(const QString &product, QTextStream &out)
{
    QTemporaryDir scratch;
    const QString connection = kxbench::openProduct("documents", product, scratch.path(), out);
    if (connection.isEmpty())
        return;
    kxtest::emptyDatabase(*compSqlConnection);
    alterOrCreateTable(systables::BinaryData(), compSqlConnection);
    alterOrCreateTable({ u"BENCH_BLOB"_s, { { u"ID"_s, u"Varchar(33)"_s }, { u"DATA"_s, u"BLOB SUB_TYPE 0"_s } }, {}, {} },
                       compSqlConnection);
    std::unique_ptr<Baseline> baseline;
    if (product == u"sqlite"_s)
        baseline = std::make_unique<SqliteBaseline>(connection.mid(7));
    else if (product == u"postgres"_s)
        baseline = std::make_unique<PostgresBaseline>(TCSqlConnection::parseConnectionString(connection));
    else
        baseline = std::make_unique<FirebirdBaseline>(TCSqlConnection::parseConnectionString(connection));

    QByteArray bytes(fileSize, Qt::Uninitialized);
    QRandomGenerator(17).fillRange(reinterpret_cast<quint32 *>(bytes.data()), fileSize / 4);
    const QString file = scratch.filePath(u"Einsatzbericht.pdf"_s);
    kxtest::writeFile(file, bytes);
    const QString outKx = scratch.filePath(u"kx"_s), outBase = scratch.filePath(u"base"_s);
    QDir().mkpath(outKx);

    const int rounds = 11;
    std::vector<double> kxTimes, baseTimes;
    for (int r = 0; r < rounds + 1; ++r) {
        const double kx = kxbench::seconds([&] {
            SaveBinaryData(u"D1"_s, u"Fahrzeug_Dokumente"_s, u"DOKUMENT"_s, file);
            ExtractBinaryData(u"D1"_s, u"Fahrzeug_Dokumente"_s, u"DOKUMENT"_s, outKx);
        });
        const double base = kxbench::seconds([&] {
            baseline->store(kxtest::readFile(file));
            kxtest::writeFile(outBase, baseline->load());
        });
        if (kxtest::readFile(outKx + u"/Einsatzbericht.pdf"_s) != bytes || kxtest::readFile(outBase) != bytes) {
            out << "BENCH documents " << product << " invalid: the bytes came back changed\n";
            std::exit(1);
        }
        if (r > 0) { // the first round warms the caches
            kxTimes.push_back(kx);
            baseTimes.push_back(base);
        }
    }
    const double kx = kxbench::median(kxTimes), base = kxbench::median(baseTimes);
    out << "BENCH documents " << product << " ratio=" << QString::number(kx / base, 'f', 3)
        << " a 20 MB file stored and extracted through the binary field over the same bytes through the client "
           "library in one statement each: "
        << QString::number(kx * 1e3, 'f', 0) << " ms vs " << QString::number(base * 1e3, 'f', 0) << " ms (median of "
        << rounds << ")\n";
    out.flush();
    baseline.reset();
    compSqlConnection->Close();
}

} // namespace

int main(int argc, char *argv[])
{
    return kxbench::runEachProduct(argc, argv, runProduct);
}
