// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "dataaccess.h"

// Table definitions of the system tables, the stock log, the office mapping and binary data.
namespace systables {

const QList<TCRight> &systemRights();

const TCTableDef &SysDef_Dialog();
const TCTableDef &SysDef_Replicate();
const TCTableDef &SysDef_System();
const TCTableDef &SysDef_GlobalReplicate();
const TCTableDef &SysDef_DataLink();
const TCTableDef &SysDef_Replicate2();
const TCTableDef &SysDef_ReplicateLog2();
const TCTableDef &SysDef_Replicate3();
const TCTableDef &SysDef_Replicate3Clients();
const TCTableDef &USBRel64Data();
const TCTableDef &USBRel64Settings();
const TCTableDef &LagerLog();
const TCTableDef &OfficeTableMapping();
const TCTableDef &LagerLogMonth();
const TCTableDef &BinaryData();
// All of the above.
QList<TCTableDef> allTables();

} // namespace systables
