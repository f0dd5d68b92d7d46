// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QString>

// Append one line, stamped with date and time, to "kxcommon.log" or "kxcommon-error.log"
// in cWorkPath (the working folder when it is empty).
KXCOMMON_CORE_EXPORT void writeLog(const QString &text);
KXCOMMON_CORE_EXPORT void writeErrorLog(const QString &text);
KXCOMMON_CORE_EXPORT QString logFilePath();
KXCOMMON_CORE_EXPORT QString errorLogFilePath();
