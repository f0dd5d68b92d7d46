// SPDX-License-Identifier: LGPL-2.1-or-later
// The log: its files, the categories' switches and the host's handler.
#include "globals.h"
#include "log.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Line
{
    QtMsgType level;
    QString category;
    QString text;
    bool operator==(const Line &) const = default;
};

TEST(Log, FilesUnderTheWorkPathAndNeverTheCurrentFolder)
{
    QTemporaryDir work;
    QTemporaryDir current;
    const QString before = QDir::currentPath();
    QDir::setCurrent(current.path());
    cWorkPath = work.path();
    writeLog(u"Zeile 1"_s);
    writeErrorLog(kxLogImport(), u"Fehler 1"_s);
    EXPECT_TRUE(QFile::exists(work.filePath(u"kxcommon.log"_s)));
    EXPECT_TRUE(QFile::exists(work.filePath(u"kxcommon-error.log"_s)));
    cWorkPath.clear();
    writeLog(u"ohne Arbeitsordner"_s);
    EXPECT_FALSE(logFilePath().startsWith(current.path())) << logFilePath().toStdString();
    EXPECT_TRUE(QDir(current.path()).isEmpty());
    QFile::remove(logFilePath());
    QDir::setCurrent(before);
}

TEST(Log, TheHostsHandlerGetsTheLinesItsRulesLetThrough)
{
    QList<Line> lines;
    kx::setLogHandler([&lines](QtMsgType level, const char *category, const QString &text) {
        lines.append({ level, QString::fromLatin1(category), text });
    });
    QLoggingCategory::setFilterRules(u"kx.stock.info=false"_s);
    writeLog(u"allgemein"_s);
    writeErrorLog(kxLogImport(), u"Wert abgelehnt"_s);
    writeLog(kxLogStock(), u"ausgeschaltet"_s);
    writeErrorLog(kxLogStock(), u"Monatsbestand"_s);
    kx::writeDebugLog(kxLogDocuments(), u"aus, bis es eingeschaltet wird"_s);
    QLoggingCategory::setFilterRules(u"kx.documents.debug=true"_s);
    kx::writeDebugLog(kxLogDocuments(), u"eingeschaltet"_s);
    QLoggingCategory::setFilterRules({});
    kx::setLogHandler({});
    const QList<Line> expected{ { QtInfoMsg, u"kx.common"_s, u"allgemein"_s },
                                { QtWarningMsg, u"kx.import"_s, u"Wert abgelehnt"_s },
                                { QtWarningMsg, u"kx.stock"_s, u"Monatsbestand"_s },
                                { QtDebugMsg, u"kx.documents"_s, u"eingeschaltet"_s } };
    EXPECT_EQ(lines, expected);
}

} // namespace
