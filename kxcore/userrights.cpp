// SPDX-License-Identifier: LGPL-2.1-or-later
#include "userrights.h"

#include "dataaccess.h"
#include "sqlconnection.h"
#include "sqltool.h"

using namespace Qt::StringLiterals;

namespace {
const TCTableDef &rightsTable()
{
    static const TCTableDef table{ u"SYSUSR_RECHTE"_s,
                                   { { u"ID"_s, u"Varchar(43)"_s, fIndex },
                                     { u"MODULID"_s, u"Numeric(10,0)"_s, fIndex },
                                     { u"MODULNAME"_s, u"VarChar(50)"_s },
                                     { u"TABLENAME"_s, u"VarChar(50)"_s },
                                     { u"RECHTNR"_s, u"Numeric(10,0)"_s },
                                     { u"CAPTION"_s, u"VarChar(80)"_s },
                                     { u"DEFAULTGRANT"_s, u"Numeric(10,0)"_s } },
                                   { { u"SYSUSR_RECHTEKEYIDX"_s, true, u"MODULID,TABLENAME,RECHTNR"_s } },
                                   {} };
    return table;
}

void addRight(qint64 modulId, const QString &modulName, const QString &table, int number, const QString &caption,
              bool flag)
{
    const QString exists = u"select count(*) from SYSUSR_RECHTE where MODULID="_s + QString::number(modulId)
        + u" and TABLENAME='"_s + sqlConvertString(table) + u"' and RECHTNR="_s + QString::number(number);
    if (sqlGetValueInt(exists) > 0)
        return;
    kx::SqlValueList row;
    row.addText(u"ID"_s, sqlGenIdValue())
        .add(u"MODULID"_s, QString::number(modulId))
        .addText(u"MODULNAME"_s, modulName)
        .addText(u"TABLENAME"_s, table)
        .add(u"RECHTNR"_s, QString::number(number))
        .addText(u"CAPTION"_s, caption)
        .add(u"DEFAULTGRANT"_s, flag ? u"1"_s : u"0"_s);
    SqlExec(SqlBuildInsertSql(u"SYSUSR_RECHTE"_s, row.pairs()));
}
} // namespace

void usr_AddModulRecht(qint64 modulId, const QString &modulName, bool flag)
{
    alterOrCreateTable(rightsTable(), compSqlConnection);
    // The module's own access right: no table, number 0.
    addRight(modulId, modulName, QString(), 0, modulName, flag);
}

void usr_AddRechte(qint64 modulId, const QString &modulName, TCDataAccess *mainTable, bool flag)
{
    if (!mainTable)
        return;
    alterOrCreateTable(rightsTable(), compSqlConnection);
    const QString table = mainTable->Tablename.toUpper();
    for (const TCRight &right : mainTable->Rights)
        addRight(modulId, modulName, table, right.Number, right.Caption, flag);
}
