// SPDX-License-Identifier: LGPL-2.1-or-later
// The module registry on each product: exact statement texts and the rows that result.
#include "dataaccess.h"
#include "globals.h"
#include "modulcommon.h"
#include "goldentrace.h"
#include "testdatabase.h"

using namespace Qt::StringLiterals;
using kxtest::exec;
using kxtest::rows;

namespace {

const QString allRows = u"SELECT MODULID, MODULNAME, MODULTABLENAME, MODULISMAINTABLE FROM SYSDef_Module "
                        u"ORDER BY MODULISMAINTABLE DESC, MODULTABLENAME"_s;

int holdersLeft()
{
    return int(applicationOwner()->findChildren<TModulCommonForm *>(Qt::FindDirectChildrenOnly).size());
}

class ModulCommonTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override { mdef_CreateData(); }

    // A main definition with two children, one empty child item, and a grandchild.
    struct Tree
    {
        TCDataAccess main{ TCTableDef{ u"Fahrzeug"_s, {}, {}, {} }, nullptr };
        TCDataAccess child1{ TCTableDef{ u"fahrzeug_Geraete"_s, {}, {}, {} }, nullptr };
        TCDataAccess child2{ TCTableDef{ u"FAHRZEUG_Pruefung"_s, {}, {}, {} }, nullptr };
        TCDataAccess grandchild{ TCTableDef{ u"Pruefung_Detail"_s, {}, {}, {} }, nullptr };
        Tree()
        {
            main.DataAccessChilds.Add(&child1);
            main.DataAccessChilds.Add(nullptr);
            main.DataAccessChilds.Add(&child2);
            child2.DataAccessChilds.Add(&grandchild);
        }
    };
};

TEST_F(ModulCommonTest, GoldenRegistration)
{
    Tree tree;
    kx::SqlTraceCapture trace;
    mdef_CreateData();
    mdef_AddModul(u"0002"_s, u"Lager Ölwehr"_s, u"Artikel_Lager"_s, 1);
    mdef_AddModul(u"7010"_s, u"Fahrzeuge"_s, &tree.main);
    mdef_AddModulChild(u"7010"_s, u"Fahrzeuge"_s, &tree.child2);
    kxtest::expectGoldenTrace(u"registry-modules"_s, trace.statements());
    // Direct children only by definition, everything below as subordinate by child.
    EXPECT_EQ(rows(allRows), (QStringList{ u"2|Lager Ölwehr|ARTIKEL_LAGER|1"_s, u"7010|Fahrzeuge|FAHRZEUG|1"_s,
                                           u"7010|Fahrzeuge|FAHRZEUG_GERAETE|0"_s, u"7010|Fahrzeuge|FAHRZEUG_PRUEFUNG|0"_s,
                                           u"7010|Fahrzeuge|FAHRZEUG_PRUEFUNG|0"_s, u"7010|Fahrzeuge|PRUEFUNG_DETAIL|0"_s }));
    mdef_CreateData();
    EXPECT_TRUE(rows(allRows).isEmpty());
}

TEST_F(ModulCommonTest, RegisteringTwiceAddsRows)
{
    TCDataAccess lonely(TCTableDef{ u"Einzeln"_s, {}, {}, {} }, nullptr);
    mdef_AddModul(u"1"_s, u"Allein"_s, &lonely);
    mdef_AddModul(u"1"_s, u"Allein"_s, &lonely);
    EXPECT_EQ(rows(u"SELECT count(*) FROM SYSDef_Module WHERE MODULID=1"_s), QStringList{ u"2"_s });
}

// Names are stored as the texts they are, apostrophes included; a module number that is not a
// whole number is refused before any statement, and the failed call's holder stays with the owner.
TEST_F(ModulCommonTest, QuotedNamesAreStoredAndBadNumbersRefused)
{
    mdef_AddModul(u"0002"_s, u"Wehr's"_s, u"Auf'm_Kamp"_s, 1);
    const int before = holdersLeft();
    for (const QString &number : { u"3 or 1=1"_s, u"x'"_s, u""_s, u"99999999999999999999"_s })
        EXPECT_THROW(mdef_AddModul(number, u"Lager"_s, u"Artikel"_s, 1), kx::ConvertError) << number.toStdString();
    EXPECT_EQ(holdersLeft(), before + 4);
    mdef_AddModul(u"3000000000"_s, u"Atemschutz"_s, u"Geraet"_s, 1); // ten digits: Numeric(10,0)
    EXPECT_EQ(holdersLeft(), before + 4); // a successful call frees its own
    EXPECT_EQ(rows(u"SELECT MODULID, MODULNAME, MODULTABLENAME FROM SYSDef_Module ORDER BY MODULID"_s),
              (QStringList{ u"2|Wehr's|AUF'M_KAMP"_s, u"3000000000|Atemschutz|GERAET"_s }));
    EXPECT_EQ(mdef_ReadModules().last().ModulId, 3000000000LL);
    qDeleteAll(applicationOwner()->findChildren<TModulCommonForm *>(Qt::FindDirectChildrenOnly));
}

TEST_F(ModulCommonTest, ClosedConnectionReachesTheCaller)
{
    compSqlConnection->Close();
    EXPECT_THROW(mdef_CreateData(), kx::DatabaseError);
    EXPECT_THROW(mdef_AddModul(u"1"_s, u"x"_s, u"y"_s, 1), kx::DatabaseError);
    qDeleteAll(applicationOwner()->findChildren<TModulCommonForm *>(Qt::FindDirectChildrenOnly));
}

} // namespace
