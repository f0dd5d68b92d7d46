// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QLoggingCategory>
#include <QString>
#include <functional>

// The subsystems' log categories. Qt's logging rules switch them by name and level, e.g.
// QT_LOGGING_RULES="kx.import.info=false" or "kx.*.debug=true"; debug lines are off by default.
KXCOMMON_CORE_EXPORT Q_DECLARE_LOGGING_CATEGORY(kxLogCommon)
KXCOMMON_CORE_EXPORT Q_DECLARE_LOGGING_CATEGORY(kxLogStock)
KXCOMMON_CORE_EXPORT Q_DECLARE_LOGGING_CATEGORY(kxLogImport)
KXCOMMON_CORE_EXPORT Q_DECLARE_LOGGING_CATEGORY(kxLogDocuments)

// Appends one line, stamped with date and time: writeLog to "kxcommon.log" (level info),
// writeErrorLog to "kxcommon-error.log" (level warning). The files are in cWorkPath; without a
// work path in the program's data folder (~/.local/share/PROGRAM), never the current folder. A
// handler set by the host (kx::setLogHandler) receives the lines instead of the files.
KXCOMMON_CORE_EXPORT void writeLog(const QString &text);
KXCOMMON_CORE_EXPORT void writeErrorLog(const QString &text);
KXCOMMON_CORE_EXPORT void writeLog(const QLoggingCategory &category, const QString &text);
KXCOMMON_CORE_EXPORT void writeErrorLog(const QLoggingCategory &category, const QString &text);
KXCOMMON_CORE_EXPORT QString logFilePath();
KXCOMMON_CORE_EXPORT QString errorLogFilePath();

namespace kx {

// A line for the developer, written to "kxcommon.log" only where its category's debug level is on.
KXCOMMON_CORE_EXPORT void writeDebugLog(const QLoggingCategory &category, const QString &text);

// Receives every line whose category and level are switched on, instead of the files.
using LogHandler = std::function<void(QtMsgType level, const char *category, const QString &text)>;
// Installs the host's handler; an empty one restores the files.
KXCOMMON_CORE_EXPORT void setLogHandler(LogHandler handler);
// A handler that passes each line on to Qt's message handling (and so to the host's Qt message
// handler, or standard error).
KXCOMMON_CORE_EXPORT void logThroughQt(QtMsgType level, const char *category, const QString &text);

} // namespace kx
