// SPDX-License-Identifier: LGPL-2.1-or-later
// The command line as scripts use it: exit codes, text and JSON output, on each product.
#include "scratchfiles.h"
#include "testdatabase.h"
#include "wordtemplate.h"

#include <QDir>
#include <QFile>
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
        process.setWorkingDirectory(m_scratch.path()); // documents are made in the working folder
        process.start(QString::fromUtf8(KX_CLI_PROGRAM), args);
        process.waitForFinished(60000);
        return { process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                 QString::fromUtf8(process.readAllStandardError()) };
    }
};

// Whether Value has Shape (see tests/cli/json-shapes.json); the first difference in Where.
bool hasShape(const QJsonValue &value, const QJsonValue &shape, const QString &path, QString &where)
{
    if (shape.isString()) {
        static const QHash<QString, QJsonValue::Type> types{
            { u"string"_s, QJsonValue::String }, { u"number"_s, QJsonValue::Double }, { u"boolean"_s, QJsonValue::Bool },
            { u"null"_s, QJsonValue::Null },     { u"array"_s, QJsonValue::Array },   { u"object"_s, QJsonValue::Object } };
        for (const QString &type : shape.toString().split(u'|'))
            if (types.value(type, QJsonValue::Undefined) == value.type())
                return true;
        where = path + u": not "_s + shape.toString();
        return false;
    }
    if (shape.isArray()) {
        if (!value.isArray() || value.toArray().isEmpty()) {
            where = path + u": not a non-empty array"_s;
            return false;
        }
        const QJsonArray items = value.toArray();
        for (qsizetype i = 0; i < items.size(); ++i)
            if (!hasShape(items[i], shape.toArray()[0], path + u'/' + QString::number(i), where))
                return false;
        return true;
    }
    const QJsonObject keys = shape.toObject();
    if (!value.isObject() || value.toObject().keys() != keys.keys()) {
        where = path + u": keys "_s + (value.isObject() ? value.toObject().keys().join(u',') : u"(no object)"_s)
            + u" instead of "_s + keys.keys().join(u',');
        return false;
    }
    for (auto key = keys.begin(); key != keys.end(); ++key)
        if (!hasShape(value.toObject()[key.key()], key.value(), path + u'/' + key.key(), where))
            return false;
    return true;
}

QJsonValue at(QJsonValue value, const QString &path)
{
    for (const QString &part : path.split(u'/')) {
        bool index = false;
        const int i = part.toInt(&index);
        value = index ? value.toArray()[i] : value.toObject()[part];
    }
    return value;
}

// Every command's JSON output has the shape the repository keeps for it (tests/cli/json-shapes.json).
TEST_F(CliTest, EveryCommandsJsonHasItsShape)
{
    QFile shapesFile(QStringLiteral(KX_CLI_SHAPES));
    ASSERT_TRUE(shapesFile.open(QIODevice::ReadOnly));
    const QJsonArray steps = QJsonDocument::fromJson(shapesFile.readAll()).object()[u"steps"_s].toArray();
    ASSERT_GT(steps.size(), 40);
    const QDir scratch(m_scratch.path());
    kxtest::writeFile(scratch.filePath(u"orte.csv"_s), "64285;Musterstadt;Altstadt;Am Markt\r\n");
    kxtest::writeFile(scratch.filePath(u"orte.iDef"_s), "PLZ.ORTE=1\r\nORT.ORTE=2\r\nORTSTEIL.ORTE=3\r\nSTRASSE.ORTE=4\r\n");
    scratch.mkpath(u"symbole/Fahrzeuge"_s);
    kxtest::writeFile(scratch.filePath(u"symbole/Fahrzeuge/LF.svg"_s),
                      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"8\" height=\"8\"><rect width=\"8\" height=\"8\"/></svg>");
    kxtest::writeFile(scratch.filePath(u"bericht.txt"_s), "Einsatzbericht\r\n");
    scratch.mkpath(u"ablage"_s);
    QHash<QString, QString> captured{ { u"SCRATCH"_s, m_scratch.path() } };
    for (const QJsonValue &step : steps) {
        QStringList args{ u"--json"_s };
        for (const QJsonValue &arg : step[u"run"_s].toArray()) {
            QString text = arg.toString();
            for (auto c = captured.begin(); c != captured.end(); ++c)
                text.replace(u'{' + c.key() + u'}', c.value());
            args << text;
        }
        SCOPED_TRACE(args.join(u' ').toStdString());
        const CliRun run = invoke(args);
        ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
        QJsonParseError error{};
        const QJsonDocument output = QJsonDocument::fromJson(run.out.toUtf8(), &error);
        ASSERT_EQ(error.error, QJsonParseError::NoError) << run.out.toStdString();
        const QJsonValue value = output.isArray() ? QJsonValue(output.array()) : QJsonValue(output.object());
        QString where;
        EXPECT_TRUE(hasShape(value, step[u"shape"_s], QString(), where)) << where.toStdString() << "\n" << run.out.toStdString();
        const QJsonObject equals = step[u"equals"_s].toObject();
        for (auto e = equals.begin(); e != equals.end(); ++e)
            EXPECT_EQ(value[e.key()], e.value()) << e.key().toStdString();
        const QJsonObject capture = step[u"capture"_s].toObject();
        for (auto c = capture.begin(); c != capture.end(); ++c)
            captured.insert(c.key(), at(value, c.value().toString()).toString());
    }
}

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
        { { u"modules"_s, u"add"_s, u"7 or 1=1"_s, u"A"_s, u"B"_s }, true, 2, u"keine Dezimalzahl"_s },
        { { u"modules"_s, u"add"_s, u"99999999999999999999"_s, u"A"_s, u"B"_s }, true, 2, u"keine Dezimalzahl"_s },
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
    const CliRun second = invoke({ u"--verbose"_s, u"sys"_s, u"init"_s });
    EXPECT_EQ(second.exitCode, 1);
    EXPECT_TRUE(second.err.contains(u"USBRel64Data"_s)) << second.err.toStdString();
    const CliRun third = invoke({ u"sys"_s, u"init"_s }); // the statement only with --verbose
    EXPECT_TRUE(third.err.contains(u"abgelehnt"_s) && !third.err.contains(u"Insert into"_s)) << third.err.toStdString();
    const CliRun mapped = invoke({ u"--json"_s, u"sys"_s, u"office-map"_s });
    EXPECT_EQ(mapped.exitCode, 0) << mapped.err.toStdString();
    EXPECT_TRUE(QJsonDocument::fromJson(mapped.out.toUtf8()).object()[u"done"_s].toBool());
}

// Every command's own help explains each argument and option of its usage line.
TEST_F(CliTest, HelpEverywhere)
{
    const CliRun general = invoke({ u"--help"_s }, false);
    ASSERT_EQ(general.exitCode, 0);
    const QStringList lines = general.out.section(u"Befehle:\n"_s, 1).split(u'\n', Qt::SkipEmptyParts);
    int commands = 0;
    for (const QString &line : lines) {
        if (line.startsWith(u"      "_s))
            continue; // the summary
        QStringList name, usage;
        for (const QString &word : line.split(u' ', Qt::SkipEmptyParts))
            (usage.isEmpty() && word == word.toLower() && !word.startsWith(u'[') && !word.contains(u'|') ? name : usage)
                << word;
        ++commands;
        const CliRun help = invoke(name + QStringList{ u"--help"_s }, false);
        ASSERT_EQ(help.exitCode, 0) << line.toStdString();
        const QString details = help.out.section(u"\n\n"_s, 1).section(u"Allgemeine Optionen:"_s, 0, 0);
        if (usage.isEmpty()) {
            EXPECT_TRUE(details.contains(u"Keine Argumente"_s)) << help.out.toStdString();
        }
        bool afterOption = false; // a word after an option is its value, named in the option's line
        for (QString word : usage) {
            word.remove(u'[').remove(u']').remove(u"..."_s);
            const bool option = word.startsWith(u"--"_s);
            for (const QString &part : word.split(u'|', Qt::SkipEmptyParts)) {
                if (option || !afterOption) {
                    EXPECT_TRUE(details.contains(part)) << name.join(u' ').toStdString() << ": " << part.toStdString();
                }
            }
            afterOption = option;
        }
    }
    EXPECT_GE(commands, 30);
}

} // namespace

namespace {

TEST_F(CliTest, StockPostingAndLog)
{
    const QString two = QDate::currentDate().addDays(-2).toString(u"dd.MM.yyyy"_s);
    const QString one = QDate::currentDate().addDays(-1).toString(Qt::ISODate);
    const QList<QStringList> steps = {
        { u"sys"_s, u"init"_s },
        { u"stock"_s, u"init"_s },
        { u"stock"_s, u"article"_s, u"4711"_s, u"Druckschlauch C"_s },
        { u"stock"_s, u"line"_s, u"LAGERBELEG_POS"_s, u"WE-1"_s, u"4711"_s, u"10"_s, u"--preis"_s, u"38,50"_s },
        { u"stock"_s, u"post"_s, u"LAGERBELEG_POS"_s, u"WE-1"_s, u"--date"_s, two, u"--belegnummer"_s, u"1"_s },
        { u"stock"_s, u"line"_s, u"LAGERBELEG_POS"_s, u"WE-2"_s, u"4711"_s, u"5"_s, u"--preis"_s, u"41.25"_s },
        { u"stock"_s, u"post"_s, u"LAGERBELEG_POS"_s, u"WE-2"_s, u"--date"_s, one },
        { u"stock"_s, u"line"_s, u"LAGERBELEG_POS"_s, u"AUS-1"_s, u"4711"_s, u"12"_s },
        { u"stock"_s, u"post"_s, u"LAGERBELEG_POS"_s, u"AUS-1"_s, u"--action"_s, u"sub"_s, u"--mode"_s, u"out"_s },
        { u"stock"_s, u"line"_s, u"Bestellungen_artikel"_s, u"B-1"_s, u"4711"_s, u"20"_s },
        { u"stock"_s, u"order"_s, u"Bestellungen_artikel"_s, u"B-1"_s },
    };
    for (const QStringList &step : steps) {
        const CliRun r = invoke(step);
        ASSERT_EQ(r.exitCode, 0) << step.join(u' ').toStdString() << ": " << r.err.toStdString();
    }

    const CliRun log = invoke({ u"--json"_s, u"stock"_s, u"log"_s, u"4711"_s });
    ASSERT_EQ(log.exitCode, 0) << log.err.toStdString();
    const QJsonObject result = QJsonDocument::fromJson(log.out.toUtf8()).object();
    EXPECT_EQ(result[u"artikel"_s][u"bestand"_s].toDouble(), 3);
    EXPECT_EQ(result[u"artikel"_s][u"countbestellt"_s].toDouble(), 20);
    const QJsonArray rows = result[u"log"_s].toArray();
    ASSERT_EQ(rows.size(), 4);
    const struct
    {
        double anzahl;
        int llmode;
        double preis;
        int fromRow; // -1: a receipt
        double rest;
    } expected[] = { { 10, 0, 38.5, -1, 0 }, { 5, 0, 41.25, -1, 3 }, { 10, 1, 38.5, 0, 0 }, { 2, 1, 41.25, 1, 0 } };
    for (int i = 0; i < 4; ++i) {
        const QJsonObject row = rows[i].toObject();
        EXPECT_EQ(row[u"anzahl"_s].toDouble(), expected[i].anzahl) << i;
        EXPECT_EQ(row[u"llmode"_s].toInt(), expected[i].llmode) << i;
        EXPECT_EQ(row[u"preis"_s].toDouble(), expected[i].preis) << i;
        EXPECT_EQ(row[u"incountavail"_s].toDouble(), expected[i].rest) << i;
        if (expected[i].fromRow >= 0) {
            EXPECT_EQ(row[u"out_idin"_s].toString(), rows[expected[i].fromRow].toObject()[u"id"_s].toString());
        }
    }
    EXPECT_EQ(result[u"monate"_s].toArray().size(), 1);
    EXPECT_TRUE(invoke({ u"stock"_s, u"log"_s, u"4711"_s }).out.contains(u"Nr. 2"_s));

    const CliRun avail = invoke({ u"--json"_s, u"stock"_s, u"avail"_s, u"4711"_s });
    EXPECT_EQ(QJsonDocument::fromJson(avail.out.toUtf8()).object()[u"maxAvail"_s].toDouble(), 3);
    const CliRun unknown = invoke({ u"--json"_s, u"stock"_s, u"avail"_s, u"4712"_s });
    EXPECT_EQ(QJsonDocument::fromJson(unknown.out.toUtf8()).object()[u"maxAvail"_s].toDouble(), -280772);

    const struct
    {
        QStringList args;
        int exitCode;
        QString errContains;
    } failures[] = {
        { { u"stock"_s, u"post"_s, u"LAGERBELEG_POS"_s, u"X"_s, u"--action"_s, u"plus"_s }, 2, u"reset-add"_s },
        { { u"stock"_s, u"post"_s, u"LAGERBELEG_POS"_s }, 2, u"TABELLE BELEG"_s },
        { { u"stock"_s, u"avail"_s, u"99999999999999999999"_s }, 2, u"64-Bit-Bereich"_s },
        { { u"stock"_s, u"post"_s, u"LAGERBELEG_POS"_s, u"X"_s, u"--date"_s, u"31.02.2026"_s }, 2, u"kein Datum"_s },
        { { u"stock"_s, u"line"_s, u"LAGERBELEG_POS"_s, u"X"_s, u"4711"_s, u"zehn"_s }, 2, u"keine Zahl"_s },
        { { u"stock"_s, u"post"_s, u"KEINE_TABELLE"_s, u"X"_s }, 1, u"gibt es nicht"_s },
        { { u"stock"_s, u"post"_s, u"LAGERBELEG_POS"_s, u"X"_s }, 1, u"keine Zeilen"_s },
        { { u"stock"_s, u"log"_s, u"4712"_s }, 1, u"nicht vorhanden"_s },
    };
    for (const auto &f : failures) {
        const CliRun r = invoke(f.args);
        EXPECT_EQ(r.exitCode, f.exitCode) << f.args.join(u' ').toStdString();
        EXPECT_TRUE(r.err.contains(f.errContains)) << r.err.toStdString();
    }
}

} // namespace

namespace {

QJsonObject jsonOf(const CliRun &run)
{
    return QJsonDocument::fromJson(run.out.toUtf8()).object();
}

TEST_F(CliTest, FeesAndDispatch)
{
    ASSERT_EQ(invoke({ u"fee"_s, u"init"_s, u"--sample"_s }).exitCode, 0);
    ASSERT_EQ(invoke({ u"dispatch"_s, u"init"_s, u"--sample"_s }).exitCode, 0);

    const QJsonObject fee = jsonOf(invoke({ u"--json"_s, u"fee"_s, u"MUSTERSTADT"_s, u"brand"_s, u"--hours"_s, u"1"_s,
                                            u"--minutes"_s, u"20"_s, u"--km"_s, u"10"_s }));
    EXPECT_EQ(fee[u"costFwaFw"_s].toDouble(), 125); // 25 flat, 90 for 90 minutes, two surcharges of 5
    // 45.50 an hour for 90 minutes, two flat surcharges of 2.50, one of 7.50, 1.20 a km for 10 km.
    EXPECT_DOUBLE_EQ(fee[u"costFwSvgv"_s].toDouble(), 45.5 * 1.5 + 2.5 * 2 + 7.5 + 12);
    EXPECT_EQ(invoke({ u"fee"_s, u"MUSTERSTADT"_s, u"BRAND"_s, u"--quantity"_s, u"2,5"_s }).out.split(u'\n').size(), 4);

    const QJsonObject street = jsonOf(invoke({ u"--json"_s, u"split-street"_s, u"Am Markt 3/5/7"_s }, false));
    EXPECT_EQ(street, (QJsonObject{ { u"Strasse"_s, u"Am Markt"_s }, { u"Hausnummer"_s, u"3"_s },
                                    { u"HausnummerZusatz"_s, QString() }, { u"Zusatz"_s, u"5/7"_s } }));
    const QJsonObject object = jsonOf(invoke({ u"--json"_s, u"split-object"_s, u"--"_s, u"- Rathaus"_s }, false));
    EXPECT_EQ(object, (QJsonObject{ { u"Prefix"_s, QString() }, { u"Name"_s, u"Rathaus"_s } }));

    const QJsonObject rule = jsonOf(invoke({ u"--json"_s, u"aao"_s, u"Musterstadt - Rathaus"_s, u"Musterstadt"_s,
                                             u"B2"_s, u"--use-name"_s, u"--explain"_s, u"--date"_s, u"25.11.2026"_s,
                                             u"--time"_s, u"12:00:00"_s })); // by day: the night rule must not apply
    EXPECT_FALSE(rule[u"id"_s].toString().isEmpty());
    EXPECT_EQ(rule[u"statements"_s].toArray().size(), 2);
    const QJsonObject night = jsonOf(invoke({ u"--json"_s, u"aao"_s, u"Schule"_s, u"Neudorf"_s, u"B2"_s, u"--date"_s,
                                              u"25.11.2026"_s, u"--time"_s, u"03:00:00"_s }));
    EXPECT_NE(night[u"id"_s].toString(), rule[u"id"_s].toString());

    EXPECT_EQ(jsonOf(invoke({ u"--json"_s, u"district"_s, u"64285"_s, u"Musterstadt"_s, u"Hauptstr."_s, u"45"_s }))
                  [u"ortsteil"_s].toString(),
              u"Neustadt"_s);
    EXPECT_EQ(invoke({ u"settings-name"_s, u"fms"_s }).out, u"FMSMonitor\n"_s);

    const struct
    {
        QStringList args;
        int exitCode;
        QString errContains;
    } failures[] = {
        { { u"fee"_s, u"MUSTERSTADT"_s, u"BRAND"_s, u"--minutes"_s, u"zwanzig"_s }, 2, u"keine ganze Zahl"_s },
        { { u"fee"_s, u"MUSTERSTADT"_s, u"BRAND"_s, u"--days"_s, u"2000000"_s }, 1, u"Überlauf"_s },
        { { u"aao"_s, u"x"_s, u"y"_s, u"B2"_s, u"--date"_s, u"25.11.2026"_s }, 2, u"gehören zusammen"_s },
        { { u"aao"_s, u"x"_s, u"y"_s, u"B2"_s, u"--date"_s, u"25.11.2026"_s, u"--time"_s, u"x' or '1'='1"_s }, 2, u"keine Uhrzeit"_s },
        { { u"fee"_s, u"MUSTERSTADT"_s, u"BRAND"_s, u"--km"_s, u"nan"_s }, 2, u"keine Zahl"_s },
        { { u"fee"_s, u"MUSTERSTADT"_s, u"BRAND"_s, u"--km"_s, u"inf"_s }, 2, u"keine Zahl"_s },
        { { u"fee"_s, u"MUSTERSTADT"_s, u"BRAND"_s, u"--km"_s, u"-5"_s }, 1, u"nicht negativ"_s },
        { { u"settings-name"_s, u"karte"_s }, 2, u"weder fms noch lumiron"_s },
        { { u"split-street"_s }, 2, u"TEXT"_s },
    };
    for (const auto &f : failures) {
        const CliRun r = invoke(f.args);
        EXPECT_EQ(r.exitCode, f.exitCode) << f.args.join(u' ').toStdString();
        EXPECT_TRUE(r.err.contains(f.errContains)) << r.err.toStdString();
    }
}

TEST_F(CliTest, CategoriesAndTenantFragment)
{
    for (const QStringList &args : { QStringList{ u"init"_s }, QStringList{ u"sys"_s, u"init"_s },
                                      QStringList{ u"kats"_s, u"init"_s, u"--sample"_s },
                                      QStringList{ u"kats"_s, u"add"_s, u"Fahrzeuge"_s, u"7010"_s, u"Fahrzeug"_s,
                                                   u"Fahrzeug_Kats"_s, u"KENNZEICHEN"_s },
                                      QStringList{ u"tenants"_s, u"init"_s, u"--sample"_s } }) {
        const CliRun r = invoke(args);
        ASSERT_EQ(r.exitCode, 0) << args.join(u' ').toStdString() << ": " << r.err.toStdString();
    }
    const CliRun links = invoke({ u"--json"_s, u"datalinks"_s, u"fahrzeug"_s });
    const QJsonArray linkRows = QJsonDocument::fromJson(links.out.toUtf8()).array();
    ASSERT_EQ(linkRows.size(), 1) << links.out.toStdString();
    EXPECT_EQ(linkRows[0].toObject()[u"linktablename"_s].toString(), u"FAHRZEUG_KATS"_s);

    // An unknown category writes nothing; then the ticks are stored and shown with grayed parents.
    EXPECT_EQ(invoke({ u"kats"_s, u"set"_s, u"FZ-1"_s, u"Fahrzeuge"_s, u"FZ-LF"_s, u"XX"_s }).exitCode, 1);
    EXPECT_EQ(invoke({ u"kats"_s, u"set"_s, u"FZ-1"_s, u"Fahrzeuge"_s, u"FZ-LF"_s, u"EA"_s }).exitCode, 0);
    const CliRun shown = invoke({ u"--json"_s, u"kats"_s, u"show"_s, u"FZ-1"_s, u"Fahrzeuge"_s });
    const QJsonArray top = QJsonDocument::fromJson(shown.out.toUtf8()).object()[u"children"_s].toArray();
    ASSERT_EQ(top.size(), 3) << shown.out.toStdString();
    EXPECT_EQ(top[0].toObject()[u"state"_s].toString(), u"partlyChecked"_s);
    EXPECT_EQ(top[1].toObject()[u"state"_s].toString(), u"unchecked"_s);
    EXPECT_EQ(top[2].toObject()[u"state"_s].toString(), u"checked"_s);
    EXPECT_TRUE(invoke({ u"kats"_s, u"show"_s, u"FZ-1"_s, u"Fahrzeuge"_s }).out.contains(u"  [-] Fahrzeuge\n    [x] Löschfahrzeuge\n"_s));

    const CliRun fragment = invoke({ u"--json"_s, u"tenant-filter"_s, u"Fahrzeug"_s, u"FFM-N"_s, u"--user"_s, u"demo"_s });
    ASSERT_EQ(fragment.exitCode, 0) << fragment.err.toStdString();
    EXPECT_TRUE(fragment.out.contains(u"\"fragment\": \" and ( 1=2 \\r\\n or FAHRZEUG.MandantId='FFM-N' \\r\\n)\\r\\n\""_s))
        << fragment.out.toStdString();
    const CliRun text = invoke({ u"tenant-filter"_s, u"Fahrzeug"_s, u"FFM-N"_s, u"--user"_s, u"demo"_s });
    EXPECT_EQ(text.out, u" and ( 1=2 \r\n or FAHRZEUG.MandantId='FFM-N' \r\n)\r\n"_s);
    EXPECT_EQ(invoke({ u"tenant-filter"_s, u"Fahrzeug"_s, u"FFM"_s, u"--unrestricted"_s }).out, QString());
    EXPECT_EQ(invoke({ u"tenant-filter"_s, u"Fahrzeug"_s, u"FFM"_s }).exitCode, 2);
    // A code with a quote is looked up as the text it is: no such tenant, so no restriction.
    const CliRun quoted = invoke({ u"tenant-filter"_s, u"Fahrzeug"_s, u"F'M"_s, u"--user"_s, u"demo"_s });
    EXPECT_EQ(quoted.exitCode, 0) << quoted.err.toStdString();
    EXPECT_EQ(quoted.out, QString());
}

TEST_F(CliTest, OpenAndMerge)
{
    const CliRun missing = invoke({ u"open"_s, u"fehlt.pdf"_s, u"--show-error"_s }, false);
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(missing.err.contains(u"Datei wurde nicht gefunden."_s)) << missing.err.toStdString();
    EXPECT_EQ(invoke({ u"open"_s, u"fehlt.pdf"_s }, false).exitCode, 0); // silent without --show-error

    ASSERT_EQ(invoke({ u"sys"_s, u"init"_s }).exitCode, 0);
    kxtest::exec(u"create table PERSONEN (ID varchar(10), NAME varchar(40), ORT varchar(40))"_s);
    kxtest::exec(u"insert into PERSONEN (ID, NAME, ORT) values ('1', 'Weber', 'Reinheim')"_s);
    kxtest::exec(u"insert into PERSONEN (ID, NAME, ORT) values ('2', 'Lang', 'Dieburg')"_s);
    kxtest::exec(u"insert into OfficeTableMapping (ID, TABLENAME, FIELDNAME, OFFICENAME) values ('p1', 'PERSONEN', 'NAME', 'Name1')"_s);
    const QString vorlagen = m_scratch.filePath(u"vorlagen"_s);
    QDir().mkpath(vorlagen);
    writeTemplate(vorlagen + u"/Brief.docx"_s, "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml");
    const CliRun merged = invoke({ u"--json"_s, u"merge"_s, u"Brief.docx"_s, u"PERSONEN"_s,
                                   u"select NAME from PERSONEN order by ID"_s, u"--no-open"_s, u"--search-path"_s, vorlagen });
    ASSERT_EQ(merged.exitCode, 0) << merged.err.toStdString();
    const QJsonArray documents = QJsonDocument::fromJson(merged.out.toUtf8()).object()[u"documents"_s].toArray();
    ASSERT_EQ(documents.size(), 2) << merged.out.toStdString();
    EXPECT_EQ(documents[1].toString(), m_scratch.filePath(u"Brief-2.docx"_s));
    EXPECT_TRUE(zipEntry(documents[1].toString(), u"word/document.xml"_s).contains(">Lang</w:t>"));
}

} // namespace
