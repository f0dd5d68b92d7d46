// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QList>
#include <QString>

class TCDataAccess;

// Writes one "SysDef_DataLink" row per field of the definition that links to another table,
// then does the same for every child definition, depth first (grandchildren included).
KXCOMMON_CORE_EXPORT void InitModulDataLink(TCDataAccess *DataAccess);

// A module's one set-up call. Flags: character 1 "1" creates or alters the tables, writes their
// data links and enters them in the module registry; character 2 is read without effect;
// character 3 "1" registers the module's rights. ModulId "-1" belongs to no module: tables and
// data links only. Returns AlterOrCreateTable's result for the main table, false when the tables
// were not processed. A Flags text too short raises kx::RangeError where the character is read
// (character 1 before anything is done, characters 2 and 3 after the tables); a ModulId that is
// no whole number raises kx::ConvertError when the rights are registered.
KXCOMMON_CORE_EXPORT bool InitModulData(const QString &ModulId, const QString &Modulname, const QString &Flags, TCDataAccess *MainTable,
                   const QList<TCDataAccess *> &ChildTables, bool RightsFlag);

// One row of "SysDef_DataLink": Tablename.Fieldname is referred to by LinkTablename.Linkfieldname.
struct KXCOMMON_CORE_EXPORT TDataLinkRow
{
    QString Tablename;
    QString Fieldname;
    QString LinkTablename;
    QString Linkfieldname;
};
// The data links, ordered by target and referring table; with Table only the fields of other
// tables that point at it (compared in upper case).
KXCOMMON_CORE_EXPORT QList<TDataLinkRow> DataLink_Read(const QString &Table = {});
