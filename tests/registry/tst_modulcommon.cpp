// SPDX-License-Identifier: LGPL-2.1-or-later
// The module registry on each product: exact statement texts and the rows that result.
#include "dataaccess.h"
#include "globals.h"
#include "modulcommon.h"
#include "testdatabase.h"

#include <QRegularExpression>

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

// The statement texts with the generated keys replaced by "<id>".
QStringList withoutKeys(const QStringList &statements)
{
    static const QRegularExpression key(u"\\('[0-9A-F]{32}',"_s);
    QStringList result;
    for (QString sql : statements)
        result << sql.replace(key, u"('<id>',"_s);
    return result;
}

class ModulCommonTest : public kxtest::DatabaseTest
{
protected:
    void SetUp() override
    {
        kxtest::DatabaseTest::SetUp();
        if (!IsSkipped() && !HasFailure())
            mdef_CreateData();
    }

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

TEST_F(ModulCommonTest, CreateDataEmptiesTheRegistry)
{
    mdef_AddModul(u"0002"_s, u"Lager"_s, u"Artikel"_s, 1);
    kx::SqlTraceCapture trace;
    mdef_CreateData();
    EXPECT_TRUE(trace.statements().contains(u"Delete from SYSDef_Module"_s));
    EXPECT_TRUE(rows(allRows).isEmpty());
    mdef_CreateData();
    EXPECT_TRUE(rows(allRows).isEmpty());
}

TEST_F(ModulCommonTest, AddByNameWritesTheIdHeadAndUpperCasesTheTable)
{
    kx::SqlTraceCapture trace;
    mdef_AddModul(u"0002"_s, u"Lager Ölwehr"_s, u"Artikel_Lager"_s, 1);
    mdef_AddModul(u"7010"_s, u"Fahrzeuge"_s, u"fahrzeug"_s, 0);
    EXPECT_EQ(withoutKeys(trace.statements()),
              (QStringList{ u"Insert Into SYSDEF_MODULE (ID,ModulId,Modulname,ModulTablename,ModulisMainTable) Values\n"
                            u"('<id>',0002,'Lager Ölwehr','ARTIKEL_LAGER',1)"_s,
                            u"Insert Into SYSDEF_MODULE (ID,ModulId,Modulname,ModulTablename,ModulisMainTable) Values\n"
                            u"('<id>',7010,'Fahrzeuge','FAHRZEUG',0)"_s }));
    EXPECT_EQ(rows(allRows), (QStringList{ u"2|Lager Ölwehr|ARTIKEL_LAGER|1"_s, u"7010|Fahrzeuge|FAHRZEUG|0"_s }));
}

TEST_F(ModulCommonTest, AddByDefinitionEntersDirectChildrenOnly)
{
    Tree tree;
    kx::SqlTraceCapture trace;
    mdef_AddModul(u"7010"_s, u"Fahrzeuge"_s, &tree.main);
    const QString head = u"Insert Into SYSDEF_MODULE (Id,ModulId,Modulname,ModulTablename,ModulisMainTable) Values\n"_s;
    EXPECT_EQ(withoutKeys(trace.statements()),
              (QStringList{ head + u"('<id>',7010,'Fahrzeuge','FAHRZEUG',1)"_s,
                            head + u"('<id>',7010,'Fahrzeuge','FAHRZEUG_GERAETE',0)"_s,
                            head + u"('<id>',7010,'Fahrzeuge','FAHRZEUG_PRUEFUNG',0)"_s }));
    EXPECT_EQ(rows(allRows), (QStringList{ u"7010|Fahrzeuge|FAHRZEUG|1"_s, u"7010|Fahrzeuge|FAHRZEUG_GERAETE|0"_s,
                                           u"7010|Fahrzeuge|FAHRZEUG_PRUEFUNG|0"_s }));
}

TEST_F(ModulCommonTest, AddChildEntersEverythingAsSubordinate)
{
    Tree tree;
    mdef_AddModulChild(u"7010"_s, u"Fahrzeuge"_s, &tree.child2);
    EXPECT_EQ(rows(allRows), (QStringList{ u"7010|Fahrzeuge|FAHRZEUG_PRUEFUNG|0"_s, u"7010|Fahrzeuge|PRUEFUNG_DETAIL|0"_s }));
    TCDataAccess lonely(TCTableDef{ u"Einzeln"_s, {}, {}, {} }, nullptr);
    mdef_AddModul(u"1"_s, u"Allein"_s, &lonely);
    EXPECT_EQ(rows(u"SELECT count(*) FROM SYSDef_Module WHERE MODULID=1"_s), QStringList{ u"1"_s });
    // Nothing prevents registering twice: each call adds rows.
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

TEST_F(ModulCommonTest, TableHasItsColumnsAndRights)
{
    TModulCommonForm form(nullptr);
    QStringList columns;
    for (const TCFieldDef &field : form.SysDefModuleDataAccess->Fields.items())
        columns << field.Fieldname;
    EXPECT_EQ(columns, (QStringList{ u"ID"_s, u"MANDANTID"_s, u"MODULID"_s, u"MODULNAME"_s, u"MODULTABLENAME"_s,
                                     u"MODULISMAINTABLE"_s, u"UID"_s, u"SID"_s }));
    QList<int> numbers;
    for (const TCRight &right : form.SysDefModuleDataAccess->Rights)
        numbers << right.Number;
    EXPECT_EQ(numbers, (QList<int>{ 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 75, 45 }));
    QStringList onDatabase = compSqlConnection->GetFieldNames(u"SYSDef_Module"_s);
    for (QString &c : onDatabase)
        c = c.toUpper();
    EXPECT_EQ(onDatabase, columns);
}

} // namespace
