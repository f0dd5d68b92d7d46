// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "holder.h"

#include <QPointer>

class TCDataAccess;
class TCSqlQuery;

// Holder of the system tables: one definition per table and two queries, in declaration order.
class KXCOMMON_CORE_EXPORT TSysCommonForm : public THolderForm
{
    Q_OBJECT

public:
    explicit TSysCommonForm(QObject *owner);

    TCDataAccess *SysDef_Dialog;
    TCDataAccess *SysDef_Replicate;
    TCDataAccess *SysDef_System;
    TCDataAccess *SysDef_GlobalReplicate;
    TCDataAccess *SysDef_DataLink;
    TCSqlQuery *Dataquery;
    TCDataAccess *SysDef_Replicate2;
    TCDataAccess *SysDef_ReplicateLog2;
    TCDataAccess *SysDef_Replicate3;
    TCDataAccess *SysDef_Replicate3Clients;
    TCDataAccess *USBRel64Data;
    TCDataAccess *USBRel64Settings;
    TCDataAccess *cdtcs_LagerLog;
    TCDataAccess *OfficeTableMapping;
    TCSqlQuery *DataQuery1;
    TCDataAccess *cdtcs_LagerLogMonth;
    TCDataAccess *cdaBinaryData;
};

extern KXCOMMON_CORE_EXPORT QPointer<TSysCommonForm> SysCommonForm;

// Creates or alters all system tables, empties the data links and seeds USBRel64Data.
KXCOMMON_CORE_EXPORT void Sys_CreateData();
// Gives every column of every table that has none yet its office name "T<table>_F<field>".
KXCOMMON_CORE_EXPORT void CreateTableOfficeDefinition();
