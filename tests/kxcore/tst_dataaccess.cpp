// SPDX-License-Identifier: LGPL-2.1-or-later
// Creating and altering tables from their definitions on each product.
#include "dataaccess.h"
#include "sqltool.h"
#include "testdatabase.h"

using namespace Qt::StringLiterals;
using kxtest::exec;
using kxtest::rows;

namespace {

class DataAccessTest : public kxtest::DatabaseTest
{
protected:
    static TCTableDef definition()
    {
        return { u"KXT_Artikel"_s,
                 { { u"ID"_s, u"Varchar(43)"_s, fIndex },
                   { u"NAME"_s, u"VarChar(50)"_s },
                   { u"BESTAND"_s, u"Numeric(15,2)"_s },
                   { u"NOTIZ"_s, u"BLOB SUB_TYPE TEXT SEGMENT SIZE 80"_s },
                   { u"BILD"_s, u"BLOB SUB_TYPE 0"_s },
                   { u"LDATE"_s, u"Date"_s, fIndex },
                   { u"NUMMER"_s, u"Numeric(10,0)"_s, fUniqueIndex | fUnique } },
                 { { u"KXT_ArtikelNameIDX"_s, false, u"Name,LDATE"_s } },
                 standardRights() };
    }

    static bool isDdl(const QString &sql)
    {
        return sql.startsWith(u"CREATE"_s, Qt::CaseInsensitive) || sql.startsWith(u"ALTER"_s, Qt::CaseInsensitive);
    }
};

TEST_F(DataAccessTest, CreatesColumnsInOrderWithIndexes)
{
    TCDataAccess table(definition(), nullptr);
    table.Connection = compSqlConnection;
    ASSERT_TRUE(table.AlterOrCreateTable(true));
    QStringList columns = compSqlConnection->GetFieldNames(u"KXT_Artikel"_s);
    for (QString &c : columns)
        c = c.toUpper();
    // In definition order; on SQLite binary columns come last.
    EXPECT_EQ(columns, kxtest::product() == u"sqlite"_s
                           ? (QStringList{ u"ID"_s, u"NAME"_s, u"BESTAND"_s, u"NOTIZ"_s, u"LDATE"_s, u"NUMMER"_s, u"BILD"_s })
                           : (QStringList{ u"ID"_s, u"NAME"_s, u"BESTAND"_s, u"NOTIZ"_s, u"BILD"_s, u"LDATE"_s, u"NUMMER"_s }));
    QStringList indexes = compSqlConnection->GetIndexNames(u"KXT_Artikel"_s);
    for (QString &i : indexes)
        i = i.toUpper();
    for (const QString &expected : { u"IX_KXT_ARTIKEL_ID"_s, u"IX_KXT_ARTIKEL_LDATE"_s, u"UX_KXT_ARTIKEL_NUMMER"_s,
                                     u"KXT_ARTIKELNAMEIDX"_s })
        EXPECT_TRUE(indexes.contains(expected)) << expected.toStdString();

    // The unique index holds; the columns take text, numbers, dates and blobs.
    exec(u"INSERT INTO KXT_Artikel (ID, NAME, BESTAND, NOTIZ, LDATE, NUMMER) "
         u"VALUES ('1', 'Schlauch B', 2.5, 'lange Notiz äöü', '2026-11-22', 1)"_s);
    EXPECT_THROW(SqlExec(u"INSERT INTO KXT_Artikel (ID, NUMMER) VALUES ('2', 1)"_s), kx::DatabaseError);
    EXPECT_EQ(rows(u"SELECT NAME, BESTAND, NOTIZ, LDATE FROM KXT_Artikel"_s),
              QStringList{ u"Schlauch B|2,5|lange Notiz äöü|22.11.2026"_s });
}

TEST_F(DataAccessTest, RunningAgainChangesNothing)
{
    TCDataAccess table(definition(), nullptr);
    table.Connection = compSqlConnection;
    table.AlterOrCreateTable(true);
    exec(u"INSERT INTO KXT_Artikel (ID, NAME) VALUES ('1', 'bleibt')"_s);
    kx::SqlTraceCapture trace;
    table.AlterOrCreateTable(true);
    for (const QString &sql : trace.statements())
        EXPECT_FALSE(isDdl(sql)) << sql.toStdString();
    EXPECT_EQ(rows(u"SELECT NAME FROM KXT_Artikel"_s), QStringList{ u"bleibt"_s });
}

TEST_F(DataAccessTest, AddsMissingColumnsToAnExistingTable)
{
    TCTableDef shorter = definition();
    shorter.Fields.resize(3);
    shorter.Indexes.clear();
    TCDataAccess first(shorter, nullptr);
    first.Connection = compSqlConnection;
    first.AlterOrCreateTable(true);
    exec(u"INSERT INTO KXT_Artikel (ID, NAME, BESTAND) VALUES ('1', 'alt', 3)"_s);

    TCDataAccess full(definition(), nullptr);
    full.Connection = compSqlConnection;
    kx::SqlTraceCapture trace;
    full.AlterOrCreateTable(true);
    QStringList added;
    for (const QString &sql : trace.statements()) {
        if (sql.startsWith(u"ALTER TABLE"_s))
            added << sql.section(u' ', 4, 4);
    }
    EXPECT_EQ(added, (QStringList{ u"NOTIZ"_s, u"BILD"_s, u"LDATE"_s, u"NUMMER"_s }));
    EXPECT_EQ(compSqlConnection->GetFieldNames(u"KXT_Artikel"_s).size(), 7);
    EXPECT_EQ(rows(u"SELECT NAME, BESTAND, LDATE FROM KXT_Artikel"_s), QStringList{ u"alt|3|"_s });
}

TEST_F(DataAccessTest, NoConnectionSetIsAClearError)
{
    TCDataAccess table(definition(), nullptr);
    EXPECT_THROW(table.AlterOrCreateTable(true), kx::DatabaseError);
}

TEST_F(DataAccessTest, GeneratorsCountFromTheirMinimum)
{
    EXPECT_EQ(SqlGetNextValue(u"KXT_Artikel"_s, u"NUMMER"_s, 1), 1);
    EXPECT_EQ(SqlGetNextValue(u"KXT_Artikel"_s, u"NUMMER"_s, 1), 2);
    EXPECT_EQ(SqlGetNextValue(u"KXT_Artikel"_s, u"NUMMER"_s, 100), 100);
    EXPECT_EQ(SqlGetNextValue(u"KXT_Artikel"_s, u"NUMMER"_s, 1), 101);
    EXPECT_EQ(SqlGetNextValue(u"KXT_Other"_s, u"NUMMER"_s, 0), 1); // generators are per table and field
    SqlAlterGen(u"KXT_Artikel"_s, u"NUMMER"_s, 1);
    EXPECT_EQ(SqlGetNextValue(u"KXT_Artikel"_s, u"NUMMER"_s, 0), 2);
}

} // namespace
