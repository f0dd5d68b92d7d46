// SPDX-License-Identifier: LGPL-2.1-or-later
// System tables and the office field mapping on each product.
#include "dataaccess.h"
#include "globals.h"
#include "syscommon.h"
#include "systables.h"
#include "goldentrace.h"
#include "testdatabase.h"

using namespace Qt::StringLiterals;
using kxtest::exec;
using kxtest::rows;

namespace {

QStringList upper(QStringList names)
{
    for (QString &n : names)
        n = n.toUpper();
    return names;
}

class SysCommonTest : public kxtest::DatabaseTest
{
};

TEST_F(SysCommonTest, GoldenTablesOfItsKindAndSeeds)
{
    kx::SqlTraceCapture trace;
    Sys_CreateData();
    kxtest::expectGoldenTrace(u"registry-system-tables"_s, trace.statements());
    QStringList expected{ u"SYSDEF_DIALOG"_s, u"SYSDEF_REPLICATE2"_s, u"SYSDEF_REPLICATELOG2"_s, u"SYSDEF_REPLICATE"_s,
                          u"SYSDEF_SYSTEM"_s, u"SYSDEF_GLOBALREPLICATE"_s, u"SYSDEF_DATALINK"_s, u"USBREL64DATA"_s,
                          u"USBREL64SETTINGS"_s, u"LAGERLOG"_s, u"LAGERLOGMONTH"_s, u"OFFICETABLEMAPPING"_s,
                          u"BINARYDATA"_s };
    if (cDBSystem == 0) // the replication tables exist on the first database kind only
        expected << u"SYSDEF_REPLICATE3"_s << u"SYSDEF_REPLICATE3CLIENTS"_s;
    expected.sort();
    QStringList tables = upper(compSqlConnection->GetTableNames());
    tables.removeAll(u"KX_GENERATORS"_s);
    tables.sort();
    EXPECT_EQ(tables, expected);
    EXPECT_EQ(rows(u"SELECT ID, RVALUE FROM USBRel64Data ORDER BY ID"_s),
              (QStringList{ u"1|0"_s, u"2|0"_s, u"Last1|0"_s, u"Last2|0"_s }));
}

TEST_F(SysCommonTest, SecondRunEmptiesDataLinksThenFailsAtTheSeeds)
{
    Sys_CreateData();
    exec(u"Insert into SysDef_DataLink (ID,Tablename,Fieldname,LinkTablename,Linkfieldname) "
         u"Values ('1','ARTIKEL','ID','LAGER','IDARTIKEL')"_s);
    EXPECT_THROW(Sys_CreateData(), kx::DatabaseError);
    EXPECT_TRUE(rows(u"SELECT ID FROM SysDef_DataLink"_s).isEmpty());
    EXPECT_EQ(rows(u"SELECT count(*) FROM USBRel64Data"_s), QStringList{ u"4"_s });
    qDeleteAll(applicationOwner()->findChildren<TSysCommonForm *>(Qt::FindDirectChildrenOnly));
}

TEST_F(SysCommonTest, GoldenOfficeMappingNamesEveryColumnOnce)
{
    Sys_CreateData();
    exec(u"CREATE TABLE AAA_ERSTE (ID VARCHAR(10), NAME VARCHAR(10))"_s);
    {
        kx::SqlTraceCapture trace;
        CreateTableOfficeDefinition();
        // The first table of the listing, up to the next table's number.
        const QStringList &all = trace.statements();
        const auto first = std::find_if(all.begin(), all.end(), [](const QString &sql) { return sql.contains(u"AAA_ERSTE"_s); });
        const auto next = std::find_if(first + 2, all.end(), [](const QString &sql) { return sql.contains(u"max(TableNO)"_s); });
        kxtest::expectGoldenTrace(u"registry-office-mapping"_s, QStringList(first, next));
    }
    // The first table of the listing gets number 1, its first column field number 1.
    const QString first = upper(compSqlConnection->GetTableNames()).first();
    const QString firstField = upper(compSqlConnection->GetFieldNames(first)).first();
    EXPECT_EQ(rows(u"SELECT OFFICENAME FROM OfficeTableMapping WHERE TABLENAME='"_s + first + u"' AND FIELDNAME='"_s
                   + firstField + u'\''),
              QStringList{ u"T1_F1"_s });
    int columns = 0;
    for (const QString &table : compSqlConnection->GetTableNames())
        columns += int(compSqlConnection->GetFieldNames(table).size());
    EXPECT_EQ(rows(u"SELECT count(*), count(distinct OFFICENAME) FROM OfficeTableMapping"_s),
              QStringList{ u"%1|%1"_s.arg(columns) });

    kx::SqlTraceCapture trace;
    CreateTableOfficeDefinition(); // complete: inserts nothing
    for (const QString &sql : trace.statements())
        EXPECT_FALSE(sql.startsWith(u"insert"_s, Qt::CaseInsensitive)) << sql.toStdString();

    // A column added later gets a new table number.
    const QString maxTable = rows(u"SELECT max(TABLENO) FROM OfficeTableMapping"_s).value(0);
    exec(u"ALTER TABLE AAA_ERSTE ADD SPAETER VARCHAR(10)"_s);
    CreateTableOfficeDefinition();
    EXPECT_EQ(rows(u"SELECT OFFICENAME FROM OfficeTableMapping WHERE FIELDNAME='SPAETER'"_s),
              QStringList{ u"T%1_F3"_s.arg(maxTable.toInt() + 1) });
}

} // namespace
