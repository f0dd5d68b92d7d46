// The command line as scripts use it: exit codes, text and JSON output, on each product.
#include "testdatabase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

struct CliRun
{
    int exitCode;
    QString out;
    QString err;
};

class CliTest : public kxtest::DatabaseTest
{
protected:
    CliRun invoke(QStringList args, bool withDatabase = true)
    {
        if (withDatabase)
            args = QStringList{ u"--db"_s, m_connectionString } + args;
        QProcess process;
        process.start(QString::fromUtf8(KX_CLI_PROGRAM), args);
        process.waitForFinished(60000);
        return { process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                 QString::fromUtf8(process.readAllStandardError()) };
    }
};

TEST_F(CliTest, InitAddAndListModules)
{
    EXPECT_EQ(invoke({ u"init"_s }).exitCode, 0);
    EXPECT_EQ(invoke({ u"modules"_s, u"add"_s, u"7010"_s, u"Fahrzeuge"_s, u"fahrzeug"_s, u"--main"_s }).exitCode, 0);
    // After "--" a text may begin with "-".
    EXPECT_EQ(invoke({ u"modules"_s, u"add"_s, u"--"_s, u"7010"_s, u"-Geräte-"_s, u"geraet"_s }).exitCode, 0);
    const CliRun listed = invoke({ u"--json"_s, u"modules"_s });
    ASSERT_EQ(listed.exitCode, 0) << listed.err.toStdString();
    const QJsonArray rows = QJsonDocument::fromJson(listed.out.toUtf8()).array();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0].toObject()[u"tableName"_s].toString(), u"FAHRZEUG"_s);
    EXPECT_TRUE(rows[0].toObject()[u"isMainTable"_s].toBool());
    EXPECT_EQ(rows[1].toObject()[u"modulName"_s].toString(), u"-Geräte-"_s);
    EXPECT_EQ(rows[1].toObject()[u"modulId"_s].toInt(), 7010);
    const CliRun text = invoke({ u"modules"_s });
    EXPECT_TRUE(text.out.contains(u"Haupttabelle"_s)) << text.out.toStdString();
}

TEST_F(CliTest, ErrorsGoToStandardErrorWithExitCodes)
{
    const struct {
        QStringList args;
        bool withDatabase;
        int exitCode;
        QString errContains;
    } cases[] = {
        { { u"gibtsnicht"_s }, true, 2, u"unbekannter Befehl"_s },
        { { u"modules"_s, u"add"_s, u"x7"_s, u"A"_s, u"B"_s }, true, 2, u"keine Dezimalzahl"_s },
        { { u"modules"_s, u"add"_s, u"7"_s }, true, 2, u"erwartet"_s },
        { { u"--db"_s, u"mysql://a:b@c:1/d"_s, u"modules"_s }, false, 1, u"Unbekanntes Datenbanksystem"_s },
        { { u"modules"_s, u"add"_s, u"7"_s, u"Wehr's"_s, u"T"_s }, true, 1, u"SQL-Fehler"_s },
    };
    invoke({ u"init"_s });
    for (const auto &c : cases) {
        const CliRun r = invoke(c.args, c.withDatabase);
        EXPECT_EQ(r.exitCode, c.exitCode) << c.args.join(u' ').toStdString();
        EXPECT_TRUE(r.err.contains(c.errContains)) << r.err.toStdString();
        EXPECT_TRUE(r.out.isEmpty()) << r.out.toStdString();
    }
}

TEST_F(CliTest, SystemTablesOnceThenTheSeedsRefuse)
{
    const CliRun first = invoke({ u"sys"_s, u"init"_s });
    EXPECT_EQ(first.exitCode, 0) << first.err.toStdString();
    const CliRun second = invoke({ u"sys"_s, u"init"_s });
    EXPECT_EQ(second.exitCode, 1);
    EXPECT_TRUE(second.err.contains(u"USBRel64Data"_s)) << second.err.toStdString();
    const CliRun mapped = invoke({ u"--json"_s, u"sys"_s, u"office-map"_s });
    EXPECT_EQ(mapped.exitCode, 0) << mapped.err.toStdString();
    EXPECT_TRUE(QJsonDocument::fromJson(mapped.out.toUtf8()).object()[u"done"_s].toBool());
}

TEST_F(CliTest, HelpEverywhere)
{
    const CliRun general = invoke({ u"--help"_s }, false);
    EXPECT_EQ(general.exitCode, 0);
    EXPECT_TRUE(general.out.contains(u"modules add"_s));
    const CliRun one = invoke({ u"modules"_s, u"add"_s, u"--help"_s }, false);
    EXPECT_EQ(one.exitCode, 0);
    EXPECT_TRUE(one.out.contains(u"MODULNUMMER NAME TABELLE"_s));
}

} // namespace
