// SPDX-License-Identifier: LGPL-2.1-or-later
#include "log.h"

#include "formatsettings.h"
#include "globals.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(kxLogCommon, "kx.common", QtInfoMsg)
Q_LOGGING_CATEGORY(kxLogStock, "kx.stock", QtInfoMsg)
Q_LOGGING_CATEGORY(kxLogImport, "kx.import", QtInfoMsg)
Q_LOGGING_CATEGORY(kxLogDocuments, "kx.documents", QtInfoMsg)

namespace {

QMutex handlerMutex;
kx::LogHandler &handler()
{
    static kx::LogHandler installed;
    return installed;
}

void appendLine(const QString &path, const QString &text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::Append | QIODevice::Text))
        return; // a log that cannot be written must not stop the work it records
    const TCFormatSettings &f = FormatSettings();
    const QString stamp = QDateTime::currentDateTime().toString(f.ShortDateFormat + u' ' + f.LongTimeFormat);
    file.write((stamp + u' ' + text + u'\n').toUtf8());
}

QString logFolder()
{
    if (!cWorkPath.isEmpty())
        return cWorkPath;
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
}

void write(QtMsgType level, const QLoggingCategory &category, const QString &text)
{
    if (!category.isEnabled(level))
        return;
    kx::LogHandler host;
    {
        const QMutexLocker lock(&handlerMutex);
        host = handler();
    }
    if (host)
        host(level, category.categoryName(), text);
    else
        appendLine(level == QtDebugMsg || level == QtInfoMsg ? logFilePath() : errorLogFilePath(), text);
}

} // namespace

QString logFilePath()
{
    return QDir(logFolder()).filePath(u"kxcommon.log"_s);
}

QString errorLogFilePath()
{
    return QDir(logFolder()).filePath(u"kxcommon-error.log"_s);
}

void writeLog(const QString &text)
{
    write(QtInfoMsg, kxLogCommon(), text);
}

void writeErrorLog(const QString &text)
{
    write(QtWarningMsg, kxLogCommon(), text);
}

void writeLog(const QLoggingCategory &category, const QString &text)
{
    write(QtInfoMsg, category, text);
}

void writeErrorLog(const QLoggingCategory &category, const QString &text)
{
    write(QtWarningMsg, category, text);
}

namespace kx {

void writeDebugLog(const QLoggingCategory &category, const QString &text)
{
    write(QtDebugMsg, category, text);
}

void setLogHandler(LogHandler handler)
{
    const QMutexLocker lock(&handlerMutex);
    ::handler() = std::move(handler);
}

void logThroughQt(QtMsgType level, const char *category, const QString &text)
{
    const QMessageLogger logger(nullptr, 0, nullptr, category);
    switch (level) {
    case QtDebugMsg:
        logger.debug("%s", qUtf8Printable(text));
        break;
    case QtInfoMsg:
        logger.info("%s", qUtf8Printable(text));
        break;
    case QtWarningMsg:
        logger.warning("%s", qUtf8Printable(text));
        break;
    case QtCriticalMsg:
    case QtFatalMsg: // never fatal: a log line must not end the program
        logger.critical("%s", qUtf8Printable(text));
        break;
    }
}

} // namespace kx
