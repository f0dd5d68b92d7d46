// SPDX-License-Identifier: LGPL-2.1-or-later
// AAO lookup, district lookup and settings names on each product.
#include "aaocommon.h"
#include "dispatchdata.h"
#include "formatsettings.h"
#include "sqltool.h"
#include "sqlconnection.h"
#include "goldentrace.h"
#include "testdatabase.h"

#include <QRegularExpression>
#include <functional>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class AaoTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override { dispatch_CreateTables(); }
};

// Adds a rule for the keyword with that name, as Set makes it; returns its key.
QString addRule(const QString &kuerzel, const QString &name, const std::function<void(AaoRule &)> &set = {})
{
    AaoRule r;
    r.alarmkuerzel = kuerzel;
    r.bezeichnung = name;
    if (set)
        set(r);
    return dispatch_AddRule(r);
}

QString nameOf(const QString &id)
{
    return id.isEmpty() ? u"-"_s : sqlGetValue(u"select BEZEICHNUNG from AAO where ID='"_s + id + u"'"_s);
}

// The rule columns of the weekdays, Monday first, as the statement writes them.
const QString columns[] = { u"ES_MO"_s, u"ES_DI"_s, u"ES_Mi"_s, u"ES_DO"_s, u"ES_Fr"_s, u"ES_Sa"_s, u"ES_So"_s };

// 23.11.2026 is a Monday.
QString dayText(int offset)
{
    return QDate(2026, 11, 23).addDays(offset).toString(u"dd.MM.yyyy"_s);
}

TEST_F(AaoTest, WeekdayColumnForEveryDay)
{
    addRule(u"B1"_s, u"immer"_s);
    for (int d = 0; d < 7; ++d)
        addRule(u"B1"_s, u"Tag %1"_s.arg(d), [d](AaoRule &r) {
            r.restricted = true;
            for (int k = 0; k < 7; ++k)
                r.weekdays[k] = k == d;
        });
    for (int d = 0; d < 7; ++d) {
        kx::SqlTraceCapture trace;
        EXPECT_EQ(nameOf(aaoGetID(u"x"_s, u"y"_s, u"B1"_s, dayText(d), u"12:00:00"_s)), u"Tag %1"_s.arg(d));
        EXPECT_TRUE(trace.statements().first().contains(u"EXTENDEDSETTINGS=1 and "_s + columns[d] + u"=1 "_s));
    }
}

TEST_F(AaoTest, TimeAndDateWindows)
{
    // The unrestricted rule written before or after the restricted one: the restricted one is asked first.
    addRule(u"T"_s, u"immer"_s);
    addRule(u"T"_s, u"Tagdienst"_s, [](AaoRule &r) { r.restricted = true; r.fromTime = u"08:00:00"_s; r.toTime = u"16:00:00"_s; });
    addRule(u"D"_s, u"November"_s, [](AaoRule &r) { r.restricted = true; r.fromDate = { 2026, 11, 1 }; r.toDate = { 2026, 11, 30 }; });
    addRule(u"D"_s, u"immer"_s);
    // A start date without an end never applies; without a start date the end date is not looked at.
    addRule(u"O"_s, u"ab 2026"_s, [](AaoRule &r) { r.restricted = true; r.fromDate = { 2026, 1, 1 }; });
    addRule(u"O"_s, u"immer"_s);
    addRule(u"P"_s, u"bis 2020"_s, [](AaoRule &r) { r.restricted = true; r.toDate = { 2020, 12, 31 }; });
    addRule(u"P"_s, u"immer"_s);

    const struct {
        QString kuerzel, date, time, expected;
    } cases[] = {
        { u"T"_s, dayText(2), u"12:00:00"_s, u"Tagdienst"_s }, { u"T"_s, dayText(2), u"08:00:00"_s, u"Tagdienst"_s },
        { u"T"_s, dayText(2), u"16:00:00"_s, u"Tagdienst"_s }, { u"T"_s, dayText(2), u"07:59:59"_s, u"immer"_s },
        { u"T"_s, dayText(2), u"17:00:00"_s, u"immer"_s },     { u"T"_s, dayText(2), u"16:00:01"_s, u"immer"_s },
        { u"D"_s, u"01.11.2026"_s, u"10:00:00"_s, u"November"_s }, { u"D"_s, u"30.11.2026"_s, u"10:00:00"_s, u"November"_s },
        { u"D"_s, u"31.10.2026"_s, u"10:00:00"_s, u"immer"_s },  { u"D"_s, u"01.12.2026"_s, u"10:00:00"_s, u"immer"_s },
        { u"O"_s, dayText(0), u"10:00:00"_s, u"immer"_s },       { u"P"_s, dayText(0), u"10:00:00"_s, u"bis 2020"_s },
        // A time built to open every window is compared as the text it is.
        { u"T"_s, dayText(2), u"17:00:00' or '1'='1"_s, u"immer"_s },
    };
    for (const auto &c : cases)
        EXPECT_EQ(nameOf(aaoGetID(u"x"_s, u"y"_s, c.kuerzel, c.date, c.time)), c.expected)
            << c.kuerzel.toStdString() << " " << c.date.toStdString() << " " << c.time.toStdString();
}

// Rules written by other programs may hold null where this package writes 0 or the empty text.
// Null sorts as the lowest value on every product, so the same rule wins everywhere.
TEST_F(AaoTest, CompetingRulesWithNullsGiveTheSameRuleOnEveryProduct)
{
    const auto add = [](const QString &kuerzel, const QString &name, const QString &columns, const QString &values) {
        SqlExec(u"insert into AAO (ID, ALARMKUERZEL, BEZEICHNUNG, ES_MO, ES_DI, ES_MI, ES_DO, ES_FR, ES_SA, ES_SO, "_s
                + columns + u") values ('"_s + sqlGenIdValue() + u"', '"_s + kuerzel + u"', '"_s + name
                + u"', 1, 1, 1, 1, 1, 1, 1, "_s + values + u")"_s);
    };
    const QString restricted = u"EXTENDEDSETTINGS, ALARMOBJEKT, EINSATZORT, ES_FROMTIME, ES_TOTIME, ES_FROMDATE, ES_TODATE"_s;
    add(u"N1"_s, u"offen"_s, restricted, u"null, null, null, null, null, null, null"_s);
    add(u"N1"_s, u"beschränkt"_s, restricted, u"1, null, null, null, null, null, null"_s);
    add(u"N2"_s, u"November"_s, restricted, u"1, '', '', '', '', '2026-11-01', '2026-11-30'"_s);
    add(u"N2"_s, u"ohne Beginn"_s, restricted, u"1, '', '', '', '', null, null"_s);
    add(u"N3"_s, u"ab acht"_s, restricted, u"1, '', '', '08:00:00', '16:00:00', null, null"_s);
    add(u"N3"_s, u"ohne Zeit"_s, restricted, u"1, '', '', null, '16:00:00', null, null"_s);
    add(u"N4"_s, u"bis 16"_s, restricted, u"1, '', '', '08:00:00', '16:00:00', null, null"_s);
    add(u"N4"_s, u"ohne Ende"_s, restricted, u"1, '', '', '08:00:00', null, null, null"_s);
    add(u"N5"_s, u"jedes Objekt"_s, restricted, u"0, null, '', null, null, null, null"_s);
    add(u"N5"_s, u"Rathaus"_s, restricted, u"0, 'Rathaus', '', null, null, null, null"_s);
    add(u"N6"_s, u"Objekt null"_s, restricted, u"0, null, '', null, null, null, null"_s);
    add(u"N6"_s, u"Objekt leer"_s, restricted, u"0, '', '', null, null, null, null"_s);
    add(u"N7"_s, u"jeder Ort"_s, restricted, u"0, '', null, null, null, null, null"_s);
    add(u"N7"_s, u"Mitte"_s, restricted, u"0, '', 'Mitte', null, null, null, null"_s);
    const std::pair<QString, QString> expected[] = {
        { u"N1"_s, u"beschränkt"_s },  { u"N2"_s, u"ohne Beginn"_s }, { u"N3"_s, u"ohne Zeit"_s },
        { u"N4"_s, u"ohne Ende"_s },   { u"N5"_s, u"Rathaus"_s },     { u"N6"_s, u"Objekt leer"_s },
        { u"N7"_s, u"Mitte"_s },
    };
    for (const auto &[kuerzel, winner] : expected)
        EXPECT_EQ(nameOf(aaoGetID(u"Rathaus"_s, u"Mitte"_s, kuerzel, u"25.11.2026"_s, u"12:00:00"_s)), winner)
            << kuerzel.toStdString();
}

TEST_F(AaoTest, ObjectPlaceAndPlaceList)
{
    addRule(u"B2"_s, u"allgemein"_s);
    addRule(u"B2"_s, u"Rathaus"_s, [](AaoRule &r) { r.objekt = u"Rathaus"_s; });
    dispatch_AddRulePlace(addRule(u"B2"_s, u"Nord"_s, [](AaoRule &r) { r.einsatzort = u"Nordstadt"_s; }), u"Neudorf"_s);
    addRule(u"K9"_s, u"Alt - Neu"_s, [](AaoRule &r) { r.objekt = u"Alt - Neu"_s; });

    const QString today = QDate::currentDate().toString(u"dd.MM.yyyy"_s);
    EXPECT_EQ(nameOf(aaoGetID(u"Rathaus"_s, u"Musterstadt"_s, u"B2"_s)), u"Rathaus"_s);
    EXPECT_EQ(nameOf(aaoGetID(u"Schule"_s, u"Nordstadt"_s, u"B2"_s)), u"Nord"_s);
    EXPECT_EQ(nameOf(aaoGetID(u"Schule"_s, u"Musterstadt"_s, u"B2"_s)), u"allgemein"_s);
    EXPECT_EQ(nameOf(aaoGetID(u"Schule"_s, u"Musterstadt"_s, u"B3"_s)), u"-"_s);
    // A place listed in AAO_Orte counts with a date and time only.
    EXPECT_EQ(nameOf(aaoGetID(u"Schule"_s, u"Neudorf"_s, u"B2"_s, today, u"10:00:00"_s)), u"Nord"_s);
    EXPECT_EQ(nameOf(aaoGetID(u"Schule"_s, u"Neudorf"_s, u"B2"_s)), u"allgemein"_s);
    // The object's name without its prefix is asked a second time; its answer stands, also when empty.
    EXPECT_EQ(nameOf(aaoGetID(u"Musterort - Rathaus"_s, u"Musterstadt"_s, u"B2"_s, false)), u"allgemein"_s);
    EXPECT_EQ(nameOf(aaoGetID(u"Musterort - Rathaus"_s, u"Musterstadt"_s, u"B2"_s, true)), u"Rathaus"_s);
    EXPECT_EQ(nameOf(aaoGetID(u"Musterort - Rathaus"_s, u"x"_s, u"B2"_s, today, u"10:00:00"_s, true)), u"Rathaus"_s);
    EXPECT_EQ(nameOf(aaoGetID(u"Alt - Neu"_s, u"x"_s, u"K9"_s, false)), u"Alt - Neu"_s);
    EXPECT_EQ(nameOf(aaoGetID(u"Alt - Neu"_s, u"x"_s, u"K9"_s, true)), u"-"_s);
}

// A rule by place and date, then without object, place and date (now, and no place list), then
// a district by street and number, then the per-machine settings.
TEST_F(AaoTest, GoldenStatementTexts)
{
    kx::SqlTraceCapture trace;
    aaoGetID(u"Rathaus"_s, u"Neudorf"_s, u"B2"_s, u"25.11.2026"_s, u"12:00:00"_s);
    aaoGetID(QString(), QString(), u"B2"_s);
    AaoFindOrtsteil(u"64287"_s, u"Musterstadt"_s, u"Eichenweg"_s, u"7"_s);
    IsDefaultSettingsAlreadyCopiedForLocalMachine();
    IsLumironDefaultSettingsAlreadyCopiedForLocalMachine();
    QStringList statements = trace.statements();
    static const QRegularExpression day(u"EXTENDEDSETTINGS=1 and ES_..=1"_s);
    statements[1] = kxtest::withoutClock({ statements[1] }).front().replace(day, u"EXTENDEDSETTINGS=1 and ES_<day>=1"_s);
    kxtest::expectGoldenTrace(u"dispatch-lookups"_s, statements, { { GetComputerName(), u"<host>"_s } });
}

TEST_F(AaoTest, DateTextsAsTheShortDateFormatReadsThem)
{
    kx::SqlTraceCapture trace;
    // The date reads as the short date format gives it; what does not read is today's.
    const QDate today = QDate::currentDate();
    const struct {
        TCFormatSettings settings;
        QString datum;
        QDate expected;
    } dates[] = {
        { TCFormatSettings::german(), u"kein Datum"_s, today },
        { TCFormatSettings::german(), u"25.11"_s, QDate(today.year(), 11, 25) },
        { TCFormatSettings::german(), u"25.11.2026"_s, QDate(2026, 11, 25) },
        // A format with blanks, loadable from the settings, must not upset the weekday.
        { { u"d. M. yyyy"_s, u"hh:mm:ss"_s, u',', u'.' }, u"25. 11. 2026"_s, QDate(2026, 11, 25) },
        { { u"d. M. yyyy"_s, u"hh:mm:ss"_s, u',', u'.' }, u"kein Datum"_s, today },
        { { u"d-M"_s, u"hh:mm:ss"_s, u',', u'.' }, u"25-11"_s, today },
    };
    const TCFormatSettings saved = FormatSettings();
    for (const auto &c : dates) {
        FormatSettings() = c.settings;
        trace.clear();
        aaoGetID(u"x"_s, u"y"_s, u"B2"_s, c.datum, u"10:00:00"_s);
        FormatSettings() = saved;
        const QString sent = trace.statements().first();
        EXPECT_TRUE(sent.contains(u"ES_FromDate<='"_s + c.expected.toString(Qt::ISODate))) << c.datum.toStdString();
        EXPECT_TRUE(sent.contains(columns[c.expected.dayOfWeek() - 1] + u"=1"_s)) << c.datum.toStdString();
    }

    // Without a keyword the statement is not valid SQL; the database's error reaches the caller.
    EXPECT_THROW(aaoGetID(u"x"_s, u"y"_s, QString()), kx::DatabaseError);
}

TEST_F(AaoTest, DistrictByFourStrategies)
{
    dispatch_AddOrt({ u"64285"_s, u"Musterstadt"_s, u"Altstadt"_s, u"Hauptstraße"_s, 2, 40, 1, 41 });
    dispatch_AddOrt({ u"64285"_s, u"Musterstadt"_s, u"Neustadt"_s, u"Hauptstraße"_s, 42, 120, 43, 121 });
    dispatch_AddOrt({ u"64285"_s, u"Musterstadt"_s, u"Altstadt"_s, u"Am Markt"_s, {}, {}, {}, {} });
    dispatch_AddOrt({ u"64289"_s, u"Musterstadt"_s, u"Mühltal"_s, u"Mühlweg 7"_s, {}, {}, {}, {} });
    dispatch_AddOrt({ u"64289"_s, u"Musterstadt"_s, u"Bergfeld"_s, u"Mühlweg"_s, 2, 20, 1, 21 });
    dispatch_AddOrt({ u"64287"_s, u"Musterstadt"_s, u"Oberfeld"_s, u"Lindenweg"_s, 2, {}, {}, {} });
    dispatch_AddOrt({ u"64287"_s, u"Musterstadt"_s, u"Niederfeld"_s, u"Lindenweg"_s, 50, 80, {}, {} });
    dispatch_AddOrt({ u"64287"_s, u"Musterstadt"_s, u"Unterfeld"_s, u"Eichenweg"_s, 2, 20, {}, {} });
    dispatch_AddOrt({ u"64287"_s, u"Musterstadt"_s, u"Ost"_s, u"Straße des 17. Juni"_s, {}, {}, {}, {} });
    dispatch_AddOrt({ u"64287"_s, u"Musterstadt"_s, u"West"_s, u"Ringstraße"_s, {}, {}, {}, {} });
    dispatch_AddOrt({ u"64287"_s, u"Musterstadt"_s, u"Süd"_s, u"Ringstraße"_s, {}, {}, {}, {} });

    const struct {
        QString plz, ort, strasse, nummer, expected;
    } cases[] = {
        { u"64285"_s, u"Musterstadt"_s, u"Hauptstr."_s, u"7"_s, u"Altstadt"_s },     // odd range
        { u"64285"_s, u"Musterstadt"_s, u"Hauptstraße"_s, u"44b"_s, u"Neustadt"_s }, // even range, digits only
        { QString(), u"MUSTERSTADT"_s, u"haupt-strasse"_s, u"121"_s, u"Neustadt"_s },
        { u"64285"_s, u"Musterstadt"_s, u"Hauptstraße"_s, u"200"_s, QString() },      // street twice, no range fits
        { u"64289"_s, u"Musterstadt"_s, u"Mühlweg"_s, u"7"_s, u"Mühltal"_s },        // street with number first
        { u"64289"_s, u"Musterstadt"_s, u"Mühlweg"_s, u"9"_s, u"Bergfeld"_s },
        { u"64287"_s, u"Musterstadt"_s, u"Lindenweg"_s, u"7"_s, u"Oberfeld"_s },      // the other parity's open range
        { u"64287"_s, u"Musterstadt"_s, u"Eichenweg"_s, u"7"_s, u"Unterfeld"_s },     // complete even range only: by the street alone
        { u"64287"_s, u"Musterstadt"_s, u"Str. des 17. Juni"_s, QString(), u"Ost"_s },
        { u"64287"_s, u"Musterstadt"_s, u"Ringstraße"_s, QString(), QString() },      // in two districts
        { u"64287"_s, u"Musterstadt"_s, u"Ringstraße"_s, u"a"_s, QString() },
        { u"64285"_s, u"Musterstadt"_s, u"Am Markt"_s, u"99999999999"_s, u"Altstadt"_s },
        { u"99999"_s, u"Musterstadt"_s, u"Am Markt"_s, u"3"_s, QString() },
        { u"64285"_s, u"Musterstadt"_s, u"Auf'm Hügel"_s, u"1"_s, QString() },
    };
    for (const auto &c : cases)
        EXPECT_EQ(AaoFindOrtsteil(c.plz, c.ort, c.strasse, c.nummer), c.expected)
            << c.strasse.toStdString() << " " << c.nummer.toStdString();
}

TEST_F(AaoTest, SettingsNames)
{
    // The host name as the system reports it, read here without the package.
    char buffer[256] = {};
    ASSERT_EQ(gethostname(buffer, sizeof buffer - 1), 0);
    const QString host = QString::fromLocal8Bit(buffer);
    ASSERT_FALSE(host.isEmpty());
    EXPECT_EQ(GetComputerName(), host);
    EXPECT_EQ(GetFMSMonitorLocalParamValue(), u"FMSMonitor_"_s + host);
    EXPECT_EQ(GetFMSMonitorParamValue(), u"FMSMonitor"_s);
    EXPECT_EQ(GetLumironParamValue(), u"Lumiron"_s);

    // The situation map follows the status monitor's per-machine settings, not its own.
    dispatch_AddSysparam(u"Lumiron_"_s + host);
    EXPECT_TRUE(IsLumironDefaultSettingsAlreadyCopiedForLocalMachine());
    EXPECT_FALSE(IsDefaultSettingsAlreadyCopiedForLocalMachine());
    EXPECT_EQ(GetLumironParamValue(), u"Lumiron"_s);

    dispatch_AddSysparam(u"FMSMonitor_"_s + host);
    EXPECT_EQ(GetFMSMonitorParamValue(), u"FMSMonitor_"_s + host);
    EXPECT_EQ(GetLumironParamValue(), u"Lumiron_"_s + host);
}

} // namespace
