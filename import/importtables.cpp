// SPDX-License-Identifier: LGPL-2.1-or-later
// The tables the import can write into: the package's own definitions first, the database's
// catalog for any other table.
#include "importcommon.h"

#include "dataaccess.h"
#include "dispatchdata.h"
#include "feedata.h"
#include "katscommon.h"
#include "kxerror.h"
#include "modulcommon.h"
#include "sqlconnection.h"
#include "stockdata.h"
#include "systables.h"
#include "tenantdata.h"

using namespace Qt::StringLiterals;

namespace {

QList<TCTableDef> knownTables()
{
    QList<TCTableDef> tables = systables::allTables();
    tables << mdef_Table() << Kats_Table() << tenants_Tables() << stock_Tables() << fee_Tables() << dispatch_Tables();
    return tables;
}

} // namespace

TCDataAccess *importTableDefinition(const QString &table, QObject *owner)
{
    for (const TCTableDef &definition : knownTables()) {
        if (definition.Tablename.compare(table, Qt::CaseInsensitive) == 0) {
            auto *access = new TCDataAccess(definition, owner);
            access->Connection = compSqlConnection;
            return access;
        }
    }
    const QList<std::pair<QString, QString>> columns = compSqlConnection->GetFieldTypes(table);
    if (columns.isEmpty())
        throw kx::Error(u"Die Tabelle \"%1\" gibt es in der Datenbank nicht."_s.arg(table));
    auto *access = new TCDataAccess(owner);
    access->Tablename = table;
    access->Connection = compSqlConnection;
    for (const auto &[name, type] : columns)
        access->Fields.Add(TCFieldDef(name, type));
    return access;
}

TNotifyImportAfterUpdateRecord importAfterUpdateHook(const QString &table)
{
    if (table.compare(u"ORTE"_s, Qt::CaseInsensitive) == 0)
        return [](QObject *, const QString &id) { dispatch_UpdateOrtSelect(id); };
    return {};
}
