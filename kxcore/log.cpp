// SPDX-License-Identifier: LGPL-2.1-or-later
#include "log.h"

#include "formatsettings.h"
#include "globals.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {
void appendLine(const QString &path, const QString &text)
{
    QFile file(path);
    if (!file.open(QIODevice::Append | QIODevice::Text))
        return; // a log that cannot be written must not stop the work it records
    const TCFormatSettings &f = FormatSettings();
    const QString stamp = QDateTime::currentDateTime().toString(f.ShortDateFormat + u' ' + f.LongTimeFormat);
    file.write((stamp + u' ' + text + u'\n').toUtf8());
}

QString workFolder()
{
    return cWorkPath.isEmpty() ? QDir::currentPath() : cWorkPath;
}
} // namespace

QString logFilePath()
{
    return QDir(workFolder()).filePath(u"kxcommon.log"_s);
}

QString errorLogFilePath()
{
    return QDir(workFolder()).filePath(u"kxcommon-error.log"_s);
}

void writeLog(const QString &text)
{
    appendLine(logFilePath(), text);
}

void writeErrorLog(const QString &text)
{
    appendLine(errorLogFilePath(), text);
}
