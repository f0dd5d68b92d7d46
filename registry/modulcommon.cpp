// SPDX-License-Identifier: LGPL-2.1-or-later
#include "modulcommon.h"

#include "dataaccess.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"

using namespace Qt::StringLiterals;

QPointer<TModulCommonForm> ModulCommonForm;

namespace {

const TCTableDef &sysDefModuleTable()
{
    static const TCTableDef table{ u"SYSDef_Module"_s,
                                   { { u"ID"_s, u"Varchar(43)"_s, fIndex },
                                     { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
                                     { u"MODULID"_s, u"Numeric(10,0)"_s, fIndex },
                                     { u"MODULNAME"_s, u"VarChar(50)"_s },
                                     { u"MODULTABLENAME"_s, u"VarChar(50)"_s },
                                     { u"MODULISMAINTABLE"_s, u"Numeric(10,0)"_s },
                                     { u"UID"_s, u"Varchar(33)"_s, fIndex },
                                     { u"SID"_s, u"Varchar(33)"_s, fIndex } },
                                   {},
                                   standardRights() };
    return table;
}

// Deliberate: the two overloads write the key column as "ID" and as "Id"; both texts are kept.
const QString headByName = u"Insert Into SYSDEF_MODULE (ID,ModulId,Modulname,ModulTablename,ModulisMainTable) Values"_s;
const QString headByDefinition = u"Insert Into SYSDEF_MODULE (Id,ModulId,Modulname,ModulTablename,ModulisMainTable) Values"_s;

// The module number goes in unquoted, checked to be a whole number; names between single quotes.
QString valueLine(const QString &modulId, const QString &modulname, const QString &tablename, const QString &isMain)
{
    return u"('"_s + sqlGenIdValue() + u"',"_s + kx::sqlWholeNumber(modulId, u"Die Modulnummer"_s) + u",'"_s
        + sqlConvertString(modulname) + u"','"_s + sqlConvertString(tablename.toUpper()) + u"',"_s + isMain + u')';
}

void insertRow(TCSqlQuery &query, const QString &head, const QString &values)
{
    query.SQL.Clear();
    query.SQL.Add(head);
    query.SQL.Add(values);
    query.ExecSQL(false);
}

// The definition's own row with the given main-table mark, then one subordinate row per direct child.
void addDefinition(const QString &modulId, const QString &modulname, TCDataAccess *dataAccess, const QString &ownMark)
{
    runInHolder(ModulCommonForm, [&](TModulCommonForm &form) {
        TCSqlQuery &query = *form.DataQuery;
        query.Connection = compSqlConnection;
        insertRow(query, headByDefinition, valueLine(modulId, modulname, dataAccess->Tablename, ownMark));
        for (int i = 0; i < dataAccess->DataAccessChilds.Count(); ++i) {
            const TCDataAccess *child = dataAccess->DataAccessChilds.GetItem(i).DataAccess;
            if (child)
                insertRow(query, headByDefinition, valueLine(modulId, modulname, child->Tablename, u"0"_s));
        }
    });
}

} // namespace

const TCTableDef &mdef_Table()
{
    return sysDefModuleTable();
}

TModulCommonForm::TModulCommonForm(QObject *owner)
    : THolderForm(owner)
    , SysDefModuleDataAccess(new TCDataAccess(sysDefModuleTable(), this))
    , DataQuery(new TCSqlQuery(this))
{
    SysDefModuleDataAccess->setObjectName(u"SysDefModuleDataAccess"_s);
    DataQuery->setObjectName(u"DataQuery"_s);
}

void mdef_CreateData()
{
    runInHolder(ModulCommonForm, [](TModulCommonForm &form) {
        form.SysDefModuleDataAccess->Connection = compSqlConnection;
        form.SysDefModuleDataAccess->AlterOrCreateTable(true);
        form.DataQuery->Connection = compSqlConnection;
        form.DataQuery->SQL.Clear();
        form.DataQuery->SQL.Add(u"Delete from SYSDef_Module"_s);
        form.DataQuery->ExecSQL(false);
    });
}

void mdef_AddModul(const QString &ModulId, const QString &Modulname, const QString &Tablename, int IsMainTable)
{
    runInHolder(ModulCommonForm, [&](TModulCommonForm &form) {
        form.DataQuery->Connection = compSqlConnection;
        insertRow(*form.DataQuery, headByName, valueLine(ModulId, Modulname, Tablename, QString::number(IsMainTable)));
    });
}

void mdef_AddModul(const QString &ModulId, const QString &Modulname, TCDataAccess *DataAccess)
{
    addDefinition(ModulId, Modulname, DataAccess, u"1"_s);
}

void mdef_AddModulChild(const QString &ModulId, const QString &Modulname, TCDataAccess *DataAccess)
{
    addDefinition(ModulId, Modulname, DataAccess, u"0"_s);
}

QList<TModulRow> mdef_ReadModules()
{
    return runInHolder(ModulCommonForm, [](TModulCommonForm &form) {
        TCSqlQuery &query = *form.DataQuery;
        query.Connection = compSqlConnection;
        query.SQL.Clear();
        query.SQL.Add(u"Select ID,MODULID,MODULNAME,MODULTABLENAME,MODULISMAINTABLE from SYSDef_Module"
                      u" order by MODULID,MODULISMAINTABLE desc,MODULTABLENAME"_s);
        query.Open();
        QList<TModulRow> rows;
        for (; !query.Eof(); query.Next()) {
            rows << TModulRow{ query.FieldByName(u"ID"_s).AsString(), query.FieldByName(u"MODULID"_s).AsLargeInt(),
                               query.FieldByName(u"MODULNAME"_s).AsString(),
                               query.FieldByName(u"MODULTABLENAME"_s).AsString(),
                               query.FieldByName(u"MODULISMAINTABLE"_s).AsInteger() };
        }
        return rows;
    });
}
