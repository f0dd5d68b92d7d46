// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QString>

class TCDataAccess;

// The user-rights store: the table "SYSUSR_RECHTE", one row per module access right and per
// numbered right of a module's table. Registering the same right again changes nothing.
// Flag: whether the right is granted to users by default.
KXCOMMON_CORE_EXPORT void usr_AddModulRecht(qint64 modulId, const QString &modulName, bool flag);
KXCOMMON_CORE_EXPORT void usr_AddRechte(qint64 modulId, const QString &modulName, TCDataAccess *mainTable, bool flag);
