// SPDX-License-Identifier: LGPL-2.1-or-later
// Settings store and user rights on each product. (Keys are UUIDs; the golden traces check their
// 32-character form.)
#include "dataaccess.h"
#include "globals.h"
#include "parameter.h"
#include "sqltool.h"
#include "testdatabase.h"
#include "userrights.h"

using namespace Qt::StringLiterals;
using kxtest::rows;

namespace {

class PlatformStoreTest : public kxtest::DatabaseTest
{
};

TEST_F(PlatformStoreTest, ParametersAreSharedRowsPerScope)
{
    TCParameter parameter;
    EXPECT_EQ(parameter.Read(u"Scanner"_s, u"Busy"_s, u"frei"_s), u"frei"_s);
    parameter.Write(u"Scanner"_s, u"Busy"_s, u"O'Neill"_s);
    parameter.Write(u"Scanner"_s, u"Busy"_s, u"Wache 1"_s);
    parameter.WriteBool(u"Scanner"_s, u"Busy"_s, true, TCParameterScope::Computer);
    EXPECT_EQ(parameter.Read(u"Scanner"_s, u"Busy"_s), u"Wache 1"_s);
    EXPECT_TRUE(parameter.ReadBool(u"Scanner"_s, u"Busy"_s, false, TCParameterScope::Computer));
    EXPECT_FALSE(parameter.ReadBool(u"Scanner"_s, u"Busy"_s, false, TCParameterScope::User));
    // Another store object (another workstation) sees the same rows.
    TCParameter other;
    EXPECT_EQ(other.Read(u"scanner"_s, u"Busy"_s, u"?"_s), u"?"_s); // sections compare exactly
    EXPECT_EQ(other.Read(u"Scanner"_s, u"Busy"_s), u"Wache 1"_s);
    EXPECT_EQ(rows(u"SELECT count(*) FROM SYSPARAMETER"_s), QStringList{ u"2"_s });
}

TEST_F(PlatformStoreTest, RightsAreRegisteredOnce)
{
    TCDataAccess table(TCTableDef{ u"KXT_Fahrzeuge"_s, { { u"ID"_s, u"Varchar(43)"_s } }, {}, standardRights() }, nullptr);
    usr_AddModulRecht(7010, u"Fahrzeuge"_s, true);
    usr_AddRechte(7010, u"Fahrzeuge"_s, &table, true);
    usr_AddRechte(7010, u"Fahrzeuge"_s, &table, true);
    EXPECT_EQ(rows(u"SELECT count(*) FROM SYSUSR_RECHTE"_s), QStringList{ u"13"_s });
    EXPECT_EQ(rows(u"SELECT CAPTION FROM SYSUSR_RECHTE WHERE RECHTNR=40"_s), QStringList{ u"Ändern"_s });
    EXPECT_EQ(rows(u"SELECT TABLENAME FROM SYSUSR_RECHTE WHERE RECHTNR=45"_s), QStringList{ u"KXT_FAHRZEUGE"_s });
}

} // namespace
