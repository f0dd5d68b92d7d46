// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "dataaccess.h"

// Table definitions of the system tables, the stock log, the office mapping and binary data.
namespace systables {

KXCOMMON_CORE_EXPORT const QList<TCRight> &systemRights();

KXCOMMON_CORE_EXPORT const TCTableDef &SysDef_Dialog();
KXCOMMON_CORE_EXPORT const TCTableDef &SysDef_Replicate();
KXCOMMON_CORE_EXPORT const TCTableDef &SysDef_System();
KXCOMMON_CORE_EXPORT const TCTableDef &SysDef_GlobalReplicate();
KXCOMMON_CORE_EXPORT const TCTableDef &SysDef_DataLink();
KXCOMMON_CORE_EXPORT const TCTableDef &SysDef_Replicate2();
KXCOMMON_CORE_EXPORT const TCTableDef &SysDef_ReplicateLog2();
KXCOMMON_CORE_EXPORT const TCTableDef &SysDef_Replicate3();
KXCOMMON_CORE_EXPORT const TCTableDef &SysDef_Replicate3Clients();
KXCOMMON_CORE_EXPORT const TCTableDef &USBRel64Data();
KXCOMMON_CORE_EXPORT const TCTableDef &USBRel64Settings();
KXCOMMON_CORE_EXPORT const TCTableDef &LagerLog();
KXCOMMON_CORE_EXPORT const TCTableDef &OfficeTableMapping();
KXCOMMON_CORE_EXPORT const TCTableDef &LagerLogMonth();
KXCOMMON_CORE_EXPORT const TCTableDef &BinaryData();
// All of the above.
KXCOMMON_CORE_EXPORT QList<TCTableDef> allTables();

} // namespace systables
