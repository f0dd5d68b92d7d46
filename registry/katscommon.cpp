// SPDX-License-Identifier: LGPL-2.1-or-later
#include "katscommon.h"

#include "dataaccess.h"
#include "datacommon.h"
#include "kxerror.h"
#include "modulcommon.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "treedata.h"

using namespace Qt::StringLiterals;

QPointer<TKatsCommonData> KatsCommonData;

namespace {

const TCTableDef &sysDefKatsTable()
{
    static const TCTableDef table{ u"SYSDef_Kats"_s,
                                   { { u"ID"_s, u"Varchar(43)"_s, fIndex },
                                     { u"MODULNR"_s, u"Numeric(10,0)"_s, fIndex },
                                     { u"MODULNAME"_s, u"Varchar(50)"_s },
                                     { u"MODULMAINTABLE"_s, u"Varchar(50)"_s },
                                     { u"MODULKATSTABLE"_s, u"Varchar(50)"_s },
                                     { u"MODULFIELDS"_s, u"Varchar(250)"_s },
                                     { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
                                     { u"UID"_s, u"Varchar(33)"_s, fIndex },
                                     { u"SID"_s, u"Varchar(33)"_s, fIndex } },
                                   {},
                                   standardRights() };
    return table;
}

} // namespace

const TCTableDef &Kats_Table()
{
    return sysDefKatsTable();
}

TCTableDef katsLinkTable()
{
    TCTableDef table{ u"Standard_Kats"_s,
                      { { u"ID"_s, u"Varchar(43)"_s, fIndex },
                        { u"IDPARENT"_s, u"Varchar(33)"_s },
                        { u"TREEID"_s, u"Varchar(33)"_s },
                        { u"TREECHECKSTATE"_s, u"Numeric(10,0)"_s },
                        { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex },
                        { u"UID"_s, u"Varchar(33)"_s, fIndex },
                        { u"SID"_s, u"Varchar(33)"_s, fIndex } },
                      {},
                      standardRights() };
    table.Fields[2].link(u"KATS"_s, u"TREEID"_s);
    return table;
}

TKatsCommonData::TKatsCommonData(QObject *owner)
    : THolderForm(owner)
    , KatsLinkDataAccess(new TCDataAccess(katsLinkTable(), this))
    , DataQuery(new TCSqlQuery(this))
{
    KatsLinkDataAccess->setObjectName(u"KatsLinkDataAccess"_s);
    DataQuery->setObjectName(u"DataQuery"_s);
    DataQuery->Connection = compSqlConnection;
}

void Kats_CreateData()
{
    alterOrCreateTable(sysDefKatsTable(), compSqlConnection);
    alterOrCreateTable(TCTreeData::tableDefinition(u"KATS"_s), compSqlConnection);
}

void Kats_AddModul(const QString &ModulName, int ModulNr, const QString &MainTable, const QString &KatsTable,
                   const QString &Fields)
{
    const QString mainTable = MainTable.toUpper();
    const QString katsTable = KatsTable.toUpper();
    runInHolder(KatsCommonData, [&](TKatsCommonData &form) {
        // Values are placed without quote escaping.
        form.DataQuery->SQL.Clear();
        form.DataQuery->SQL.Add(u"Insert Into SYSDef_Kats (Id,ModulNr,ModulName,ModulMainTable,ModulKatsTable,ModulFields) Values "_s
                                + u"('"_s + sqlGenIdValue() + u"',"_s + QString::number(ModulNr) + u","_s + u"'"_s
                                + sqlConvertString(ModulName) + u"',"_s + u"'"_s + sqlConvertString(mainTable) + u"',"_s + u"'"_s + sqlConvertString(katsTable) + u"',"_s
                                + u"'"_s + sqlConvertString(Fields) + u"')"_s);
        form.DataQuery->ExecSQL(false);
        TCDataAccess &link = *form.KatsLinkDataAccess;
        link.Connection = compSqlConnection;
        link.Tablename = katsTable;
        link.AlterOrCreateTable(true);
        link.GetFieldFromName(u"IdParent"_s)->link(mainTable, u"ID"_s);
        InitModulDataLink(&link);
    });
    mdef_AddModul(QString::number(ModulNr), ModulName, katsTable, 0);
}

TCTreeData Kats_ReadTree()
{
    TCTreeData tree;
    tree.load(compSqlConnection, u"KatS"_s, u"KatS"_s);
    return tree;
}

TCTreeData Kats_ReadCheckState(const QString &ID, const QString &Modul)
{
    TCTreeData tree = Kats_ReadTree();
    tree.setCheckedIds(TCTreeData::loadCheckState(compSqlConnection, ID, Modul));
    return tree;
}

TCTreeData Kats_WriteCheckState(const QString &ID, const QString &Modul, const QStringList &TreeIds)
{
    TCTreeData tree = Kats_ReadTree();
    for (const QString &id : TreeIds) {
        if (tree.indexOf(id) == TCTreeData::Root)
            throw kx::Error(u"Die Kategorie \"%1\" gibt es im Baum \"KATS\" nicht."_s.arg(id));
    }
    tree.setCheckedIds(QSet<QString>(TreeIds.begin(), TreeIds.end()));
    tree.saveCheckState(compSqlConnection, ID, Modul, true);
    return tree;
}
