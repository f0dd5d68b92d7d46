// SPDX-License-Identifier: LGPL-2.1-or-later
#include "syscommon.h"

#include "dataaccess.h"
#include "globals.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "systables.h"

using namespace Qt::StringLiterals;

QPointer<TSysCommonForm> SysCommonForm;

namespace {

TCDataAccess *definition(const TCTableDef &table, QObject *owner, const QString &name)
{
    auto *dataAccess = new TCDataAccess(table, owner);
    dataAccess->setObjectName(name);
    return dataAccess;
}

void alterOrCreate(TCDataAccess *table)
{
    table->Connection = compSqlConnection;
    table->AlterOrCreateTable(true);
}

} // namespace

TSysCommonForm::TSysCommonForm(QObject *owner)
    : THolderForm(owner)
    , SysDef_Dialog(definition(systables::SysDef_Dialog(), this, u"SysDef_Dialog"_s))
    , SysDef_Replicate(definition(systables::SysDef_Replicate(), this, u"SysDef_Replicate"_s))
    , SysDef_System(definition(systables::SysDef_System(), this, u"SysDef_System"_s))
    , SysDef_GlobalReplicate(definition(systables::SysDef_GlobalReplicate(), this, u"SysDef_GlobalReplicate"_s))
    , SysDef_DataLink(definition(systables::SysDef_DataLink(), this, u"SysDef_DataLink"_s))
    , Dataquery(new TCSqlQuery(this))
    , SysDef_Replicate2(definition(systables::SysDef_Replicate2(), this, u"SysDef_Replicate2"_s))
    , SysDef_ReplicateLog2(definition(systables::SysDef_ReplicateLog2(), this, u"SysDef_ReplicateLog2"_s))
    , SysDef_Replicate3(definition(systables::SysDef_Replicate3(), this, u"SysDef_Replicate3"_s))
    , SysDef_Replicate3Clients(definition(systables::SysDef_Replicate3Clients(), this, u"SysDef_Replicate3Clients"_s))
    , USBRel64Data(definition(systables::USBRel64Data(), this, u"USBRel64Data"_s))
    , USBRel64Settings(definition(systables::USBRel64Settings(), this, u"USBRel64Settings"_s))
    , cdtcs_LagerLog(definition(systables::LagerLog(), this, u"cdtcs_LagerLog"_s))
    , OfficeTableMapping(definition(systables::OfficeTableMapping(), this, u"OfficeTableMapping"_s))
    , DataQuery1(new TCSqlQuery(this))
    , cdtcs_LagerLogMonth(definition(systables::LagerLogMonth(), this, u"cdtcs_LagerLogMonth"_s))
    , cdaBinaryData(definition(systables::BinaryData(), this, u"cdaBinaryData"_s))
{
    Dataquery->setObjectName(u"Dataquery"_s);
    DataQuery1->setObjectName(u"DataQuery1"_s);
    Dataquery->Connection = compSqlConnection;
    DataQuery1->Connection = compSqlConnection;
}

void Sys_CreateData()
{
    runInHolder(SysCommonForm, [](TSysCommonForm &form) {
        for (TCDataAccess *table : { form.SysDef_Dialog, form.SysDef_Replicate2, form.SysDef_ReplicateLog2,
                                     form.SysDef_Replicate, form.SysDef_System, form.SysDef_GlobalReplicate,
                                     form.SysDef_DataLink })
            alterOrCreate(table);

        // Every module registers its data links afresh after this.
        form.Dataquery->SQL.Clear();
        form.Dataquery->SQL.Add(u"Delete from SysDef_DataLink"_s);
        form.Dataquery->ExecSQL(false);

        if (cDBSystem == 1) {
            if (TCFieldDef *data = form.SysDef_Replicate3->GetFieldFromName(u"Data"_s))
                data->SQLType = u"TEXT"_s;
        }
        if (cDBSystem == 0 || cDBSystem == 1) {
            alterOrCreate(form.SysDef_Replicate3);
            alterOrCreate(form.SysDef_Replicate3Clients);
        }

        alterOrCreate(form.USBRel64Data);
        alterOrCreate(form.USBRel64Settings);
        // Deliberate: no test for existing rows; on a second run the unique index refuses them.
        SqlExec(u"Insert into USBRel64Data (id,rvalue) values ('1',0)"_s);
        SqlExec(u"Insert into USBRel64Data (id,rvalue) values ('2',0)"_s);
        SqlExec(u"Insert into USBRel64Data (id,rvalue) values ('Last1',0)"_s);
        SqlExec(u"Insert into USBRel64Data (id,rvalue) values ('Last2',0)"_s);

        for (TCDataAccess *table : { form.cdtcs_LagerLog, form.cdtcs_LagerLogMonth, form.OfficeTableMapping,
                                     form.cdaBinaryData })
            alterOrCreate(table);
    });
}

void CreateTableOfficeDefinition()
{
    runInHolder(SysCommonForm, [](TSysCommonForm &form) {
        const QStringList tables = cDBSystem == 1 ? GetTablenamesMSSql() : compSqlConnection->GetTableNames();
        TCSqlQuery &insert = *form.Dataquery;
        insert.SQL.Clear();
        insert.SQL.Add(u"insert into  OfficeTableMapping (ID, TABLENAME, FIELDNAME,TABLENO,FIELDNO,OFFICENAME) "
                       u"values(:ID, :TABLENAME, :FIELDNAME, :TABLENO, :FIELDNO, :OFFICENAME)"_s);
        TCSqlQuery &lookup = *form.DataQuery1;
        lookup.SQL.Clear();
        lookup.SQL.Add(u"Select ID from OfficeTableMapping where Tablename=:Tablename and Fieldname=:Fieldname"_s);

        for (const QString &table : tables) {
            const QStringList fields = cDBSystem == 1 ? GetFieldnamesMSSql(table) : compSqlConnection->GetFieldNames(table);
            // Taken afresh for every table: a table that gains a column later gets a new number.
            const qint64 tableNo = sqlGetValueInt(u"Select max(TableNO) from OfficeTableMapping"_s) + 1;
            const QString upperTable = table.toUpper();
            for (const QString &field : fields) {
                const QString upperField = field.toUpper();
                lookup.ParamByName(u"Tablename"_s).setAsString(upperTable);
                lookup.ParamByName(u"Fieldname"_s).setAsString(upperField);
                lookup.Open();
                const bool mapped = !lookup.IsEmpty();
                lookup.Close();
                if (mapped)
                    continue;
                const qint64 fieldNo = sqlGetValueInt(u"Select max(FIELDNO) from OfficeTableMapping where Tablename='"_s
                                                   + sqlConvertString(upperTable) + u'\'') + 1;
                insert.ParamByName(u"ID"_s).setAsString(sqlGenIdValue());
                insert.ParamByName(u"TABLENAME"_s).setAsString(upperTable);
                insert.ParamByName(u"FIELDNAME"_s).setAsString(upperField);
                insert.ParamByName(u"TABLENO"_s).setAsInteger(tableNo);
                insert.ParamByName(u"FIELDNO"_s).setAsInteger(fieldNo);
                insert.ParamByName(u"OFFICENAME"_s).setAsString(u"T%1_F%2"_s.arg(tableNo).arg(fieldNo));
                insert.ExecSQLNoReplicate(false);
            }
        }
    });
}
