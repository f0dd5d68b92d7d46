// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "holder.h"
#include "treedata.h"

#include <QPointer>
#include <QString>

class TCDataAccess;
class TCSqlQuery;
class TKatsCommonForm;

// The category registry. The tree is the shared category tree "KATS" (root caption
// "Kats-Plan"); each module that tags its records with categories has a link table of its own.

// The link-table template "Standard_Kats"; Kats_AddModul names the table and the main table
// that IDPARENT points at.
KXCOMMON_CORE_EXPORT TCTableDef katsLinkTable();

// The non-visual part of the category form: the link-table definition (template "Standard_Kats")
// and the query. Kats_AddModul runs in it, so that modules register without a window system.
class KXCOMMON_CORE_EXPORT TKatsCommonData : public THolderForm
{
    Q_OBJECT

public:
    explicit TKatsCommonData(QObject *owner);

    TCDataAccess *KatsLinkDataAccess;
    TCSqlQuery *DataQuery;
};

extern KXCOMMON_CORE_EXPORT QPointer<TKatsCommonData> KatsCommonData;

// Creates "SYSDef_Kats" and the tree table "KATS" where they are missing; rows stay.
KXCOMMON_CORE_EXPORT void Kats_CreateData();
// The definition of "SYSDef_Kats".
KXCOMMON_CORE_EXPORT const TCTableDef &Kats_Table();
// Enters the module in "SYSDef_Kats", creates its link table KatsTable, writes the link table's
// data links and registers the link table in the module registry.
KXCOMMON_CORE_EXPORT void Kats_AddModul(const QString &ModulName, int ModulNr, const QString &MainTable, const QString &KatsTable,
                   const QString &Fields);

// The same without a window (the command line): the whole tree; the tree with the ticks stored
// for a record of the module; the ticks of the given nodes stored for the record (unknown keys
// raise kx::Error before anything is written).
KXCOMMON_CORE_EXPORT TCTreeData Kats_ReadTree();
KXCOMMON_CORE_EXPORT TCTreeData Kats_ReadCheckState(const QString &ID, const QString &Modul);
KXCOMMON_CORE_EXPORT TCTreeData Kats_WriteCheckState(const QString &ID, const QString &Modul, const QStringList &TreeIds);

// The form with the tree for one module; shown modally for one record at a time (widgets layer).
KXCOMMON_CORE_EXPORT TKatsCommonForm *Kats_Init(const QString &Modul);
// Builds the tree on the first call, loads the record's ticks unless they are loaded, shows the
// form modally. An empty ID is "-1".
KXCOMMON_CORE_EXPORT void Kats_ShowKats(TKatsCommonForm *Form, const QString &ID);
// Stores the ticks for the record, only when they were loaded.
KXCOMMON_CORE_EXPORT void Kats_SaveKats(TKatsCommonForm *Form, const QString &ID);
// Forgets that the ticks were loaded: the next show loads them for its record.
KXCOMMON_CORE_EXPORT void Kats_ResetKats(TKatsCommonForm *Form);
KXCOMMON_CORE_EXPORT void Kats_DeInit(TKatsCommonForm *Form);
