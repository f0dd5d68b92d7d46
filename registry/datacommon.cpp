// SPDX-License-Identifier: LGPL-2.1-or-later
#include "datacommon.h"

#include "dataaccess.h"
#include "kxerror.h"
#include "modulcommon.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "strtools.h"
#include "userrights.h"

using namespace Qt::StringLiterals;

namespace {
const QString noModule = u"-1"_s;
} // namespace

void InitModulDataLink(TCDataAccess *DataAccess)
{
    const QString tablename = DataAccess->Tablename.toUpper();
    for (int i = 0; i < DataAccess->Fields.Count(); ++i) {
        const TCFieldDef &field = DataAccess->Fields.GetItem(i);
        if (field.LinkField.isEmpty())
            continue;
        // Values are pasted unescaped; names come from design-time definitions.
        SqlExec(u"Insert into SysDef_DataLink (ID,Tablename,Fieldname,LinkTablename,Linkfieldname) Values ('"_s
                + sqlGenIdValue() + u"','"_s + sqlConvertString(field.LinkTable.toUpper()) + u"','"_s + sqlConvertString(field.LinkField.toUpper())
                + u"','"_s + sqlConvertString(tablename) + u"','"_s + sqlConvertString(field.Fieldname.toUpper()) + u"')"_s);
    }
    for (int i = 0; i < DataAccess->DataAccessChilds.Count(); ++i) {
        if (TCDataAccess *child = DataAccess->DataAccessChilds.GetItem(i).DataAccess)
            InitModulDataLink(child);
    }
}

bool InitModulData(const QString &ModulId, const QString &Modulname, const QString &Flags, TCDataAccess *MainTable,
                   const QList<TCDataAccess *> &ChildTables, bool RightsFlag)
{
    bool result = false;
    if (kx::charAt(Flags, 1) == u'1') {
        MainTable->Connection = compSqlConnection;
        result = MainTable->AlterOrCreateTable(true);
        if (ModulId != noModule)
            mdef_AddModul(ModulId, Modulname, MainTable);
        InitModulDataLink(MainTable);
        for (TCDataAccess *child : ChildTables) {
            child->Connection = compSqlConnection;
            child->AlterOrCreateTable(true);
            InitModulDataLink(child);
            if (ModulId != noModule)
                mdef_AddModulChild(ModulId, Modulname, child);
        }
    }
    kx::charAt(Flags, 2); // deliberate: read without effect, so a two-character text fails here
    if (kx::charAt(Flags, 3) == u'1' && ModulId != noModule) {
        const qint64 number = kx::strToInt64(ModulId);
        usr_AddModulRecht(number, Modulname, RightsFlag);
        usr_AddRechte(number, Modulname, MainTable, RightsFlag);
    }
    return result;
}

QList<TDataLinkRow> DataLink_Read(const QString &Table)
{
    TCSqlQuery query;
    query.Connection = compSqlConnection;
    query.SQL.Add(u"Select Tablename,Fieldname,LinkTablename,Linkfieldname from SysDef_DataLink"_s);
    if (!Table.isEmpty())
        query.SQL.Add(u"where Tablename="_s + kx::sqlQuoted(Table.toUpper()));
    query.SQL.Add(u"order by Tablename,Fieldname,LinkTablename,Linkfieldname"_s);
    query.Open();
    QList<TDataLinkRow> rows;
    for (; !query.Eof(); query.Next())
        rows << TDataLinkRow{ query.Fields(0).AsString(), query.Fields(1).AsString(), query.Fields(2).AsString(),
                              query.Fields(3).AsString() };
    return rows;
}
