// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "dataaccess.h"

#include <QString>

// The tenant tables in the columns the tenant fragment and the tenant frame read: "Mandanten",
// "Mandanten_sub", "User_GruppenMandantLink", "User_GruppenLink", "User_User"; and the writes
// that fill them (for the command line, the demo, the window host, the tests and the benchmark).

KXCOMMON_CORE_EXPORT void tenants_CreateTables();
// The definitions of the tenant tables.
KXCOMMON_CORE_EXPORT QList<TCTableDef> tenants_Tables();

// A tenant: its numeric key, its code and its names.
KXCOMMON_CORE_EXPORT void tenants_AddMandant(int id, const QString &mandantId, const QString &name1, const QString &name2 = {},
                        const QString &name3 = {});
// Makes tenant SubId a sub-tenant of ParentId; the link row keeps the code MandantId.
KXCOMMON_CORE_EXPORT void tenants_AddSub(int parentId, int subId, const QString &mandantId);
// Lets the user group see the tenant.
KXCOMMON_CORE_EXPORT void tenants_LinkGroup(const QString &groupId, int mandantId);
// Makes the user a member of the group.
KXCOMMON_CORE_EXPORT void tenants_AddToGroup(const QString &userId, const QString &groupId);
// A user with the home tenant's name and code.
KXCOMMON_CORE_EXPORT void tenants_AddUser(const QString &userId, const QString &name, const QString &hMandant, const QString &hMandantId);

// The sample data, of the project's own making: a district association with two brigades and
// their platoons; the user "demo" sees the Musterstadt brigade and its platoons.
KXCOMMON_CORE_EXPORT void tenants_AddSampleData();
// The sample user's record as the logon would fill it ("[2:150]" may change the tenant).
KXCOMMON_CORE_EXPORT void tenants_SignInSampleUser();
