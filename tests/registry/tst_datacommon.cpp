// SPDX-License-Identifier: LGPL-2.1-or-later
// Module data and data links on each product: the flag combinations, the error points, the
// link rows over three levels.
#include "dataaccess.h"
#include "datacommon.h"
#include "globals.h"
#include "kxerror.h"
#include "modulcommon.h"
#include "systables.h"
#include "goldentrace.h"
#include "testdatabase.h"

#include <optional>

using namespace Qt::StringLiterals;
using kxtest::rows;

namespace {

enum class Fails { No, Range, Convert, Database };

class DataCommonTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        alterOrCreateTable(systables::SysDef_DataLink(), compSqlConnection);
        mdef_CreateData();
    }

    // Fahrzeug (its field GERAETID links to Geraet) with the child Fahrzeug_Pruefung, whose own
    // child Pruefung_Detail links to Pruefer; an extra child table Fahrzeug_Log links to Fahrzeug.
    struct Tables
    {
        TCDataAccess main{ TCTableDef{ u"Fahrzeug"_s,
                                       { { u"ID"_s, u"Varchar(43)"_s, fIndex },
                                         TCFieldDef(u"GeraetId"_s, u"Varchar(33)"_s).link(u"Geraet"_s, u"id"_s),
                                         // a link table without a link field is no link
                                         TCFieldDef(u"Halter"_s, u"Varchar(33)"_s).link(u"Person"_s, {}) },
                                       {},
                                       standardRights() },
                           nullptr };
        TCDataAccess child{ TCTableDef{ u"Fahrzeug_Pruefung"_s,
                                        { { u"ID"_s, u"Varchar(43)"_s },
                                          TCFieldDef(u"IdParent"_s, u"Varchar(33)"_s).link(u"Fahrzeug"_s, u"ID"_s) } },
                            nullptr };
        TCDataAccess grandchild{ TCTableDef{ u"Pruefung_Detail"_s,
                                             { { u"ID"_s, u"Varchar(43)"_s },
                                               TCFieldDef(u"IdParent"_s, u"Varchar(33)"_s).link(u"Fahrzeug_Pruefung"_s, u"ID"_s),
                                               TCFieldDef(u"PrueferId"_s, u"Varchar(33)"_s).link(u"Pruefer"_s, u"ID"_s) } },
                                 nullptr };
        TCDataAccess log{ TCTableDef{ u"Fahrzeug_Log"_s,
                                      { { u"ID"_s, u"Varchar(43)"_s },
                                        TCFieldDef(u"IdFahrzeug"_s, u"Varchar(33)"_s).link(u"fahrzeug"_s, u"id"_s) } },
                          nullptr };
        Tables()
        {
            main.DataAccessChilds.Add(&child);
            main.DataAccessChilds.Add(nullptr);
            child.DataAccessChilds.Add(&grandchild);
        }
    };

    static QStringList links()
    {
        return rows(u"select TABLENAME, FIELDNAME, LINKTABLENAME, LINKFIELDNAME from SysDef_DataLink "
                    u"order by LINKTABLENAME, LINKFIELDNAME"_s);
    }
    static QStringList registry()
    {
        return rows(u"select MODULID, MODULTABLENAME, MODULISMAINTABLE from SYSDef_Module "
                    u"order by MODULISMAINTABLE desc, MODULTABLENAME"_s);
    }
    static int rights() { return rows(u"select count(*) from SYSUSR_RECHTE"_s).value(0).toInt(); }
};

const QStringList allLinks{ u"GERAET|ID|FAHRZEUG|GERAETID"_s, u"FAHRZEUG|ID|FAHRZEUG_LOG|IDFAHRZEUG"_s,
                            u"FAHRZEUG|ID|FAHRZEUG_PRUEFUNG|IDPARENT"_s, u"FAHRZEUG_PRUEFUNG|ID|PRUEFUNG_DETAIL|IDPARENT"_s,
                            u"PRUEFER|ID|PRUEFUNG_DETAIL|PRUEFERID"_s };

TEST_F(DataCommonTest, FlagsDecideWhatIsDoneAndWhereItFails)
{
    // Module registry: the main table, its direct child, then the extra child table and its own rows.
    const QStringList registered{ u"7010|FAHRZEUG|1"_s, u"7010|FAHRZEUG_LOG|0"_s, u"7010|FAHRZEUG_PRUEFUNG|0"_s };
    const struct {
        const char *name;
        QString modulId, flags;
        Fails fails;
        bool result, mainTable;
        int links; // main, child, grandchild, extra child table
        QStringList registry;
        int rights; // the module right and the main table's twelve
    } cases[] = {
        { "100", u"7010"_s, u"100"_s, Fails::No, true, true, 5, registered, 0 },
        { "001", u"7010"_s, u"001"_s, Fails::No, false, false, 0, {}, 13 },
        { "111", u"7010"_s, u"111"_s, Fails::No, true, true, 5, registered, 13 },
        { "one character", u"7010"_s, u"1"_s, Fails::Range, true, true, 5, registered, 0 },
        { "two characters", u"7010"_s, u"11"_s, Fails::Range, true, true, 5, registered, 0 },
        { "empty", u"7010"_s, QString(), Fails::Range, false, false, 0, {}, 0 },
        { "no module", u"-1"_s, u"111"_s, Fails::No, true, true, 5, {}, 0 },
        // The registry row takes the number unquoted: it is refused before its statement, after the main table.
        { "id no number, tables", u"70a"_s, u"111"_s, Fails::Convert, false, true, 0, {}, 0 },
        { "ten-digit id", u"3000000000"_s, u"111"_s, Fails::No, true, true, 5,
          { u"3000000000|FAHRZEUG|1"_s, u"3000000000|FAHRZEUG_LOG|0"_s, u"3000000000|FAHRZEUG_PRUEFUNG|0"_s }, 13 },
        { "id no number, rights", u"70a"_s, u"001"_s, Fails::Convert, false, false, 0, {}, 0 },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        kxtest::emptyDatabase(*compSqlConnection);
        alterOrCreateTable(systables::SysDef_DataLink(), compSqlConnection);
        mdef_CreateData();
        Tables t;
        std::optional<bool> result;
        Fails failed = Fails::No;
        try {
            // The rights flag goes through unchanged: "granted by default" follows it.
            result = InitModulData(c.modulId, u"Fahrzeuge"_s, c.flags, &t.main, { &t.log }, c.flags != u"001"_s);
        } catch (const kx::RangeError &) {
            failed = Fails::Range;
        } catch (const kx::ConvertError &) {
            failed = Fails::Convert;
        } catch (const kx::DatabaseError &) {
            failed = Fails::Database;
        }
        EXPECT_EQ(failed, c.fails);
        if (c.fails == Fails::No) {
            EXPECT_EQ(result, c.result);
        }
        EXPECT_EQ(compSqlConnection->tableExists(u"Fahrzeug"_s), c.mainTable);
        EXPECT_EQ(compSqlConnection->tableExists(u"Fahrzeug_Log"_s), c.links == 5);
        EXPECT_EQ(links().size(), c.links);
        EXPECT_EQ(registry(), c.registry);
        EXPECT_EQ(compSqlConnection->tableExists(u"SYSUSR_RECHTE"_s) ? rights() : 0, c.rights);
        if (c.rights > 0) {
            EXPECT_EQ(rows(u"select distinct DEFAULTGRANT from SYSUSR_RECHTE"_s),
                      QStringList{ c.flags == u"001"_s ? u"0"_s : u"1"_s });
        }
    }
    qDeleteAll(applicationOwner()->findChildren<TModulCommonForm *>(Qt::FindDirectChildrenOnly));
}

TEST_F(DataCommonTest, GoldenLinksReachEveryLevelWhileTheRegistryGetsDirectChildren)
{
    Tables t;
    kx::SqlTraceCapture trace;
    InitModulDataLink(&t.main); // the link table without a link field writes nothing
    kxtest::expectGoldenTrace(u"registry-datalinks"_s, trace.statements());
    InitModulDataLink(&t.log);
    EXPECT_EQ(links(), allLinks);

    kxtest::exec(u"delete from SysDef_DataLink"_s);
    EXPECT_TRUE(InitModulData(u"0042"_s, u"Prüfung"_s, u"100"_s, &t.main, {}, false));
    EXPECT_EQ(links().size(), 4);
    EXPECT_EQ(registry(), (QStringList{ u"42|FAHRZEUG|1"_s, u"42|FAHRZEUG_PRUEFUNG|0"_s }));
    QStringList targets;
    for (const TDataLinkRow &row : DataLink_Read(u"fahrzeug"_s))
        targets << row.LinkTablename + u'.' + row.Linkfieldname;
    EXPECT_EQ(targets, QStringList{ u"FAHRZEUG_PRUEFUNG.IDPARENT"_s });
}

} // namespace
