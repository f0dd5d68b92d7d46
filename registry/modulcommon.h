// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "dataaccess.h"
#include "holder.h"

#include <QPointer>
#include <QString>

class TCDataAccess;
class TCSqlQuery;

// Holder of the module registry: the definition of "SYSDef_Module" and the query.
class TModulCommonForm : public THolderForm
{
    Q_OBJECT

public:
    explicit TModulCommonForm(QObject *owner);

    TCDataAccess *SysDefModuleDataAccess;
    TCSqlQuery *DataQuery;
};

extern QPointer<TModulCommonForm> ModulCommonForm;

// One row of "SYSDef_Module".
struct TModulRow
{
    QString Id;
    qint64 ModulId = 0;
    QString Modulname;
    QString ModulTablename;
    int ModulIsMainTable = 0;
};

// Makes sure "SYSDef_Module" exists in its current form and empties it.
void mdef_CreateData();
// The definition of "SYSDef_Module".
const TCTableDef &mdef_Table();
// Adds one row for one named table.
void mdef_AddModul(const QString &ModulId, const QString &Modulname, const QString &Tablename, int IsMainTable);
// Adds a main-table row for the definition's table and a subordinate row for each direct child.
void mdef_AddModul(const QString &ModulId, const QString &Modulname, TCDataAccess *DataAccess);
// As mdef_AddModul, with the definition's own table entered as a subordinate table too.
void mdef_AddModulChild(const QString &ModulId, const QString &Modulname, TCDataAccess *DataAccess);
// The registry's rows, by module number, main tables first.
QList<TModulRow> mdef_ReadModules();
