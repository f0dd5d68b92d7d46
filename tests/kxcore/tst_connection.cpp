// SPDX-License-Identifier: LGPL-2.1-or-later
// The connection on each product: autocommit, the one-statement rule, the trace, value types.
#include "formatsettings.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "testdatabase.h"

using namespace Qt::StringLiterals;
using kxtest::exec;
using kxtest::rows;

namespace {

class ConnectionTest : public kxtest::DatabaseTest
{
};

TEST_F(ConnectionTest, EveryStatementIsCommittedOnItsOwn)
{
    exec(u"CREATE TABLE KXT_A (ID VARCHAR(10), N NUMERIC(10,0))"_s);
    exec(u"INSERT INTO KXT_A (ID, N) VALUES ('a', 1)"_s);
    EXPECT_THROW(SqlExec(u"INSERT INTO KXT_MISSING (ID) VALUES ('b')"_s), kx::DatabaseError);
    exec(u"Commit"_s); // never fails for want of a transaction
    // A second connection sees the row: it was committed, not merely kept in an open transaction.
    TCSqlConnection other;
    other.Open(m_connectionString);
    const kx::SqlResult seen = other.execute(u"SELECT ID FROM KXT_A"_s);
    ASSERT_EQ(seen.rows.size(), 1u);
    EXPECT_EQ(seen.rows.front().value(0).toString(), u"a"_s);
}

TEST_F(ConnectionTest, ASecondStatementIsRefusedAndNotRun)
{
    exec(u"CREATE TABLE KXT_B (ID VARCHAR(10))"_s);
    kx::SqlTraceCapture trace;
    EXPECT_THROW(SqlExec(u"INSERT INTO KXT_B (ID) VALUES ('x'); DROP TABLE KXT_B"_s), kx::DatabaseError);
    EXPECT_EQ(rows(u"SELECT count(*) FROM KXT_B"_s), QStringList{ u"0"_s });
    EXPECT_TRUE(compSqlConnection->tableExists(u"KXT_B"_s));
    EXPECT_EQ(trace.statements().first(), u"INSERT INTO KXT_B (ID) VALUES ('x'); DROP TABLE KXT_B"_s);
}

// Each product's own quote and comment forms: a second statement hidden behind them is refused
// and not run, and a ";" inside them is no reason to refuse.
TEST_F(ConnectionTest, ProductQuotingHidesNoSecondStatement)
{
    exec(u"CREATE TABLE KXT_H (ID VARCHAR(10))"_s);
    exec(u"INSERT INTO KXT_H (ID) VALUES ('kept')"_s);
    QStringList hidden;
    QStringList single;
    if (kxtest::product() == u"postgres"_s) {
        hidden = { u"select $$'$$; delete from KXT_H; select $$'$$"_s,
                   u"select $q$'$q$; delete from KXT_H; select $q$'$q$"_s,
                   uR"(select E'\''; delete from KXT_H; select '''')"_s,
                   u"select 1 /* /* */ ' */; delete from KXT_H; -- '"_s };
        single = { u"select $$a;b$$"_s, u"select $x$a;$$;b$x$"_s, uR"(select E'a\';b')"_s,
                   u"select 1 /* /* ; */ ; */"_s };
    } else if (kxtest::product() == u"firebird"_s) {
        hidden = { u"select q'{'}' from rdb$database; delete from KXT_H; select '}' from rdb$database"_s,
                   u"select q'!'!' from rdb$database; delete from KXT_H; -- '"_s };
        single = { u"select q'{a;b}' from rdb$database"_s, u"select q'<a;'b>' from rdb$database"_s };
    } else {
        hidden = { u"select [']; delete from KXT_H; -- ']"_s, u"select `'`; delete from KXT_H; -- '`"_s };
        single = { u"select 1 as [a;b]"_s, u"select 1 as `a;b`"_s };
    }
    for (const QString &sql : hidden) {
        EXPECT_TRUE(kxtest::raised<kx::DatabaseError>([&] { SqlExec(sql); }).contains(u"zweite Anweisung"_s));
        EXPECT_EQ(rows(u"SELECT ID FROM KXT_H"_s), QStringList{ u"kept"_s }) << sql.toStdString();
    }
    for (const QString &sql : single)
        EXPECT_NO_THROW(SqlExec(sql)) << sql.toStdString();
}

TEST_F(ConnectionTest, FailureCarriesTheNativeText)
{
    try {
        SqlExec(u"SELECT * FROM KXT_NOWHERE"_s);
        FAIL() << "no error";
    } catch (const kx::DatabaseError &e) {
        EXPECT_FALSE(e.nativeText().isEmpty());
        EXPECT_EQ(e.statement(), u"SELECT * FROM KXT_NOWHERE"_s);
        EXPECT_TRUE(e.message().contains(e.nativeText()));
    }
}

TEST_F(ConnectionTest, ValuesReadBackAlikeOnEveryProduct)
{
    exec(u"CREATE TABLE KXT_T (ID VARCHAR(43), N NUMERIC(10,0), P NUMERIC(15,2), D DATE, S VARCHAR(50))"_s);
    exec(u"INSERT INTO KXT_T (ID, N, P, D, S) VALUES ('1', 7010, 12.5, '2026-11-22', 'Ölwehr ß')"_s);
    exec(u"INSERT INTO KXT_T (ID) VALUES ('2')"_s);
    TCSqlQuery query;
    query.Connection = compSqlConnection;
    query.SQL.Add(u"SELECT ID, N, P, D, S FROM KXT_T ORDER BY ID"_s);
    query.Open();
    ASSERT_EQ(query.RecordCount(), 2);
    EXPECT_EQ(query.FieldByName(u"n"_s).AsInteger(), 7010);
    EXPECT_EQ(query.FieldByName(u"N"_s).AsString(), u"7010"_s);
    EXPECT_DOUBLE_EQ(query.FieldByName(u"P"_s).AsFloat(), 12.5);
    EXPECT_EQ(query.FieldByName(u"P"_s).AsString(), u"12,5"_s);
    EXPECT_EQ(query.FieldByName(u"D"_s).AsString(), u"22.11.2026"_s);
    EXPECT_EQ(sqlConvertDate(query.FieldByName(u"D"_s).AsString()), u"2026-11-22"_s);
    EXPECT_EQ(query.FieldByName(u"S"_s).AsString(), u"Ölwehr ß"_s);
    query.Next();
    EXPECT_FALSE(query.Eof());
    EXPECT_TRUE(query.FieldByName(u"N"_s).IsNull());
    EXPECT_EQ(query.FieldByName(u"D"_s).AsString(), QString());
    query.Next();
    EXPECT_TRUE(query.Eof());
    EXPECT_THROW(query.FieldByName(u"NICHTDA"_s), kx::DatabaseError);
}

TEST_F(ConnectionTest, SingleValueLookups)
{
    exec(u"CREATE TABLE KXT_V (ID VARCHAR(10), N NUMERIC(10,0))"_s);
    EXPECT_EQ(sqlGetValue(u"SELECT ID FROM KXT_V"_s), QString());
    EXPECT_EQ(sqlGetValueInt(u"SELECT max(N) FROM KXT_V"_s), 0);
    exec(u"INSERT INTO KXT_V (ID, N) VALUES ('x', 41)"_s);
    exec(u"INSERT INTO KXT_V (ID) VALUES ('y')"_s);
    EXPECT_EQ(sqlGetValueInt(u"SELECT max(N) FROM KXT_V"_s) + 1, 42);
    EXPECT_EQ(sqlGetValue(u"SELECT N FROM KXT_V WHERE ID='y'"_s), QString());
    EXPECT_EQ(sqlGetValue(u"SELECT ID FROM KXT_V WHERE N=41"_s), u"x"_s);
}

} // namespace

namespace {

// The caller transaction: nothing is seen by another connection before the commit; a scope left
// without commit rolls back; an inner one is a savepoint that fails alone, also on PostgreSQL,
// where a failed statement would otherwise end the transaction.
TEST_F(ConnectionTest, CallerTransactionsCommitRollBackAndNest)
{
    exec(u"CREATE TABLE KXT_T (ID VARCHAR(10))"_s);
    TCSqlConnection other;
    other.Open(m_connectionString);
    const auto seen = [&other] {
        QStringList ids;
        for (const auto &row : other.execute(u"SELECT ID FROM KXT_T ORDER BY ID"_s).rows)
            ids << row.value(0).toString();
        return ids.join(u',');
    };
    {
        kx::SqlTransaction outer;
        SqlExec(u"INSERT INTO KXT_T (ID) VALUES ('a')"_s);
        {
            kx::SqlTransaction inner;
            SqlExec(u"INSERT INTO KXT_T (ID) VALUES ('b')"_s);
        } // rolled back alone
        {
            kx::SqlTransaction inner(kx::SqlTransaction::Outside::Nothing);
            EXPECT_THROW(SqlExec(u"INSERT INTO KXT_MISSING (ID) VALUES ('c')"_s), kx::DatabaseError);
        }
        {
            kx::SqlTransaction inner;
            SqlExec(u"INSERT INTO KXT_T (ID) VALUES ('d')"_s);
            inner.commit();
        }
        EXPECT_EQ(seen(), QString());
        outer.commit();
    }
    EXPECT_EQ(seen(), u"a,d"_s);
    try {
        kx::SqlTransaction failing;
        SqlExec(u"INSERT INTO KXT_T (ID) VALUES ('e')"_s);
        SqlExec(u"INSERT INTO KXT_MISSING (ID) VALUES ('f')"_s);
        failing.commit();
    } catch (const kx::DatabaseError &) {
    }
    EXPECT_FALSE(compSqlConnection->inTransaction());
    EXPECT_EQ(seen(), u"a,d"_s);
    { // outside a transaction a guard does nothing: the statement commits on its own
        kx::SqlTransaction guard(kx::SqlTransaction::Outside::Nothing);
        SqlExec(u"INSERT INTO KXT_T (ID) VALUES ('g')"_s);
    }
    EXPECT_EQ(seen(), u"a,d,g"_s);
}

// Deferred writes go as one unit: all of it lands or, when one is refused, none, and the
// transaction around goes on. The trace shows each text once, in order, when its unit has gone.
TEST_F(ConnectionTest, DeferredWritesLandWholeOrNotAtAll)
{
    using Units = kx::DeferredWrites::Units;
    exec(u"CREATE TABLE KXT_D (ID VARCHAR(10) NOT NULL PRIMARY KEY)"_s);
    const auto insert = [](const char *id) { return u"INSERT INTO KXT_D (ID) VALUES ('%1')"_s.arg(QLatin1StringView(id)); };
    const QString count = u"SELECT COUNT(*) FROM KXT_D WHERE ID='f'"_s;
    kx::SqlTraceCapture trace;
    {
        kx::SqlTransaction batch;
        {
            kx::DeferredWrites writes(Units::One);
            exec(insert("a"));
            exec(insert("b"));
            EXPECT_TRUE(trace.statements().isEmpty());
            writes.finish();
        }
        {
            kx::DeferredWrites writes(Units::One);
            exec(insert("c"));
            exec(insert("a"));
            EXPECT_THROW(writes.finish(), kx::DatabaseError);
        }
        { // one unit only: a read after waiting writes is refused before anything is sent
            kx::DeferredWrites writes(Units::One);
            exec(insert("e"));
            EXPECT_THROW(compSqlConnection->execute(count), kx::DeferredWritesBroken);
        }
        { // several units: the read sees the writes before it
            kx::DeferredWrites writes(Units::Many);
            exec(insert("f"));
            EXPECT_EQ(compSqlConnection->execute(count).rows.front().value(0).toInt(), 1);
            exec(insert("g"));
            writes.finish();
        }
        {
            kx::DeferredWrites unfinished(Units::One);
            exec(insert("h"));
        }
        { // a rollback inside the scope takes what waits with it, as it takes what was sent
            kx::SqlTransaction line;
            kx::DeferredWrites writes(Units::Many);
            exec(insert("i"));
            line.rollback();
            writes.finish();
        }
        batch.commit();
    }
    { // outside a transaction a unit is a transaction of its own
        kx::DeferredWrites writes(Units::One);
        exec(insert("x"));
        exec(insert("b"));
        EXPECT_THROW(writes.finish(), kx::DatabaseError);
    }
    EXPECT_EQ(trace.statements(), (QStringList{ insert("a"), insert("b"), insert("f"), count, insert("g") }));
    EXPECT_EQ(rows(u"SELECT ID FROM KXT_D ORDER BY ID"_s), (QStringList{ u"a"_s, u"b"_s, u"f"_s, u"g"_s }));
}

// Options of the connection string reach the client; one the client does not know is refused.
TEST_F(ConnectionTest, ConnectionOptionsReachTheClient)
{
    if (kxtest::product() == u"sqlite"_s)
        return; // a file path, no options
    TCSqlConnection other;
    if (kxtest::product() == u"postgres"_s) {
        other.Open(m_connectionString + u"?application_name=Wache%201"_s);
        EXPECT_EQ(other.execute(u"select current_setting('application_name')"_s).rows.front().value(0).toString(), u"Wache 1"_s);
    } else {
        other.Open(m_connectionString + u"?connect_timeout=5"_s);
        EXPECT_TRUE(other.Connected());
    }
    TCSqlConnection refused;
    EXPECT_THROW(refused.Open(m_connectionString + u"?gibtsnicht=1"_s), kx::DatabaseError);
}

} // namespace
