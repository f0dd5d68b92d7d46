// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "dataaccess.h"
#include "holder.h"

#include <QPointer>
#include <QString>

class TCDataAccess;
class TCSqlQuery;

// Holder of the module registry: the definition of "SYSDef_Module" and the query.
class KXCOMMON_CORE_EXPORT TModulCommonForm : public THolderForm
{
    Q_OBJECT

public:
    explicit TModulCommonForm(QObject *owner);

    TCDataAccess *SysDefModuleDataAccess;
    TCSqlQuery *DataQuery;
};

extern KXCOMMON_CORE_EXPORT QPointer<TModulCommonForm> ModulCommonForm;

// One row of "SYSDef_Module".
struct KXCOMMON_CORE_EXPORT TModulRow
{
    QString Id;
    qint64 ModulId = 0;
    QString Modulname;
    QString ModulTablename;
    int ModulIsMainTable = 0;
};

// Makes sure "SYSDef_Module" exists in its current form and empties it.
KXCOMMON_CORE_EXPORT void mdef_CreateData();
// The definition of "SYSDef_Module".
KXCOMMON_CORE_EXPORT const TCTableDef &mdef_Table();
// Adds one row for one named table.
KXCOMMON_CORE_EXPORT void mdef_AddModul(const QString &ModulId, const QString &Modulname, const QString &Tablename, int IsMainTable);
// Adds a main-table row for the definition's table and a subordinate row for each direct child.
KXCOMMON_CORE_EXPORT void mdef_AddModul(const QString &ModulId, const QString &Modulname, TCDataAccess *DataAccess);
// As mdef_AddModul, with the definition's own table entered as a subordinate table too.
KXCOMMON_CORE_EXPORT void mdef_AddModulChild(const QString &ModulId, const QString &Modulname, TCDataAccess *DataAccess);
// The registry's rows, by module number, main tables first.
KXCOMMON_CORE_EXPORT QList<TModulRow> mdef_ReadModules();
