// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

// Append one line, stamped with date and time, to "kxcommon.log" or "kxcommon-error.log"
// in cWorkPath (the working folder when it is empty).
void writeLog(const QString &text);
void writeErrorLog(const QString &text);
QString logFilePath();
QString errorLogFilePath();
