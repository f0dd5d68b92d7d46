#include "demodata.h"

#include "katscommon.h"
#include "katsdata.h"
#include "modulcommon.h"
#include "sqlconnection.h"
#include "syscommon.h"
#include "tenantdata.h"

using namespace Qt::StringLiterals;

void createDemoData()
{
    if (!compSqlConnection->tableExists(u"SysDef_DataLink"_s))
        Sys_CreateData();
    if (!compSqlConnection->tableExists(u"SYSDef_Module"_s))
        mdef_CreateData();
    if (!compSqlConnection->tableExists(u"SYSDef_Kats"_s)) {
        Kats_CreateData();
        Kats_AddSampleTree();
        Kats_AddModul(demoModule, 7010, u"Fahrzeug"_s, u"Fahrzeug_Kats"_s, u"KENNZEICHEN,TYP"_s);
        Kats_WriteCheckState(demoVehicle, demoModule, { u"FZ-LF"_s, u"GE-AS-PA"_s, u"GE-SL"_s, u"EA-B"_s, u"EA-TH"_s });
    }
    if (!compSqlConnection->tableExists(u"Mandanten"_s)) {
        tenants_CreateTables();
        tenants_AddSampleData();
    }
    tenants_SignInSampleUser();
}
