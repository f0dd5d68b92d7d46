// SPDX-License-Identifier: LGPL-2.1-or-later
// Table creation statements per product, compared with the expected texts; no server needed.
#include "dataaccess.h"
#include "sqldialect.h"
#include "testdatabase.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const TCTableDef sample{ u"SysDef_Replicate3Clients"_s,
                         { { u"ID"_s, u"Varchar(33)"_s, fIndex },
                           { u"DATA"_s, u"BLOB SUB_TYPE TEXT SEGMENT SIZE 80"_s },
                           { u"RAW"_s, u"BLOB SUB_TYPE 0"_s },
                           { u"NOTE"_s, u"TEXT"_s },
                           { u"SORTID"_s, u"Numeric(15,0)"_s, fUniqueIndex | fNotNull },
                           { u"LDATE"_s, u"Date"_s },
                           { u"ANZAHL"_s, u"Numeric(15,2) "_s } },
                         { { u"SysDef_Replicate3ClientsMainIDX"_s, true, u"ID, SORTID"_s } },
                         {} };

TEST(Ddl, CreateStatementsPerProduct)
{
    const struct {
        const kx::SqlDialect &dialect;
        QStringList expected;
    } cases[] = {
        { kx::sqliteDialect(),
          // binary columns last: SQLite expands a streamed value that is not the record's last
          { u"CREATE TABLE SysDef_Replicate3Clients (ID Varchar(33), DATA TEXT, NOTE TEXT, "
            u"SORTID Numeric(15,0) NOT NULL, LDATE Date, ANZAHL Numeric(15,2), RAW BLOB)"_s,
            u"CREATE INDEX IX_SYSDEF_REPLICATE3CLIENTS_ID ON SysDef_Replicate3Clients (ID)"_s,
            u"CREATE UNIQUE INDEX UX_SYSDEF_REPLICATE3CL_9C70875A ON SysDef_Replicate3Clients (SORTID)"_s,
            u"CREATE UNIQUE INDEX SYSDEF_REPLICATE3CLIENTSMAINIDX ON SysDef_Replicate3Clients (ID,SORTID)"_s } },
        { kx::postgresDialect(),
          { u"CREATE TABLE SysDef_Replicate3Clients (ID Varchar(33), DATA TEXT, RAW BYTEA, NOTE TEXT, "
            u"SORTID Numeric(15,0) NOT NULL, LDATE Date, ANZAHL Numeric(15,2))"_s,
            u"CREATE INDEX IX_SYSDEF_REPLICATE3CLIENTS_ID ON SysDef_Replicate3Clients (ID)"_s,
            u"CREATE UNIQUE INDEX UX_SYSDEF_REPLICATE3CLIENTS_SORTID ON SysDef_Replicate3Clients (SORTID)"_s,
            u"CREATE UNIQUE INDEX SYSDEF_REPLICATE3CLIENTSMAINIDX ON SysDef_Replicate3Clients (ID,SORTID)"_s } },
        { kx::firebirdDialect(),
          { u"CREATE TABLE SysDef_Replicate3Clients (ID Varchar(33), DATA BLOB SUB_TYPE TEXT SEGMENT SIZE 80, "
            u"RAW BLOB SUB_TYPE 0, NOTE BLOB SUB_TYPE TEXT, SORTID Numeric(15,0) NOT NULL, LDATE Date, "
            u"ANZAHL Numeric(15,2))"_s,
            u"CREATE INDEX IX_SYSDEF_REPLICATE3CLIENTS_ID ON SysDef_Replicate3Clients (ID)"_s,
            u"CREATE UNIQUE INDEX UX_SYSDEF_REPLICATE3CL_9C70875A ON SysDef_Replicate3Clients (SORTID)"_s,
            u"CREATE UNIQUE INDEX SYSDEF_REPLICATE3CLIENTSMAINIDX ON SysDef_Replicate3Clients (ID,SORTID)"_s } },
    };
    for (const auto &c : cases) {
        TCDataAccess definition(sample, nullptr);
        EXPECT_EQ(definition.createStatements(c.dialect), c.expected) << c.dialect.productName().toStdString();
    }
}

TEST(Ddl, ShortNamesFitAndStayDistinct)
{
    const kx::SqlDialect &firebird = kx::firebirdDialect();
    const QString a = firebird.shortName(u"IX_SYSDEF_REPLICATE3CLIENTS_IDPARENT"_s);
    const QString b = firebird.shortName(u"IX_SYSDEF_REPLICATE3CLIENTS_CLIENTID"_s);
    EXPECT_LE(a.size(), 31);
    EXPECT_LE(b.size(), 31);
    EXPECT_NE(a, b);
    EXPECT_EQ(a, firebird.shortName(u"ix_SysDef_Replicate3Clients_IDPARENT"_s)); // case does not matter
    EXPECT_EQ(firebird.shortName(u"IX_LAGERLOG_ID"_s), u"IX_LAGERLOG_ID"_s);
}

} // namespace
