// SPDX-License-Identifier: LGPL-2.1-or-later
// Sub-commands of fees and dispatch: fee calculation, AAO lookup, street and object splitting,
// district lookup and the settings names.
#include "command.h"

#include "aaocommon.h"
#include "dispatchdata.h"
#include "feedata.h"
#include "gscommon.h"
#include "formatsettings.h"
#include "kxerror.h"
#include "sqltool.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

CliOutput feeInit(const CliContext &context)
{
    const CliArguments args(context, {}, { u"sample"_s });
    args.positional(0, u"keine Argumente"_s);
    fee_CreateTables();
    QString schedule;
    if (args.has(u"sample"_s))
        schedule = fee_AddSampleSchedule();
    return { QJsonObject{ { u"schedule"_s, cliTextOrNull(schedule) } },
             schedule.isEmpty() ? u"Gebührentabellen angelegt bzw. angepasst.\n"_s
                                : u"Gebührentabellen angelegt; Beispielsatzung %1 eingetragen.\n"_s.arg(schedule) };
}

// The schedule's key as stored, the given one read without regard to case, as the event is.
QString scheduleKey(const QString &given)
{
    if (fee_ScheduleExists(given))
        return given;
    for (const FeeSchedule &schedule : fee_ReadSchedules())
        if (schedule.id.compare(given, Qt::CaseInsensitive) == 0)
            return schedule.id;
    throw CliInputError{ u"Gebührensatzung \"%1\" gibt es nicht (kxcommon fee schedules listet sie)."_s.arg(given) };
}

CliOutput fee(const CliContext &context)
{
    const CliArguments args(context, { u"days"_s, u"hours"_s, u"minutes"_s, u"quantity"_s, u"km"_s }, {});
    const QStringList &p = args.positional(2, u"SATZUNG EREIGNIS"_s);
    const int32_t days = cliWholeNumber(args.value(u"days"_s, u"0"_s), u"Tage"_s);
    const int32_t hours = cliWholeNumber(args.value(u"hours"_s, u"0"_s), u"Stunden"_s);
    const int32_t minutes = cliWholeNumber(args.value(u"minutes"_s, u"0"_s), u"Minuten"_s);
    const double quantity = cliNumber(args.value(u"quantity"_s, u"0"_s), u"Die Menge"_s);
    const double km = cliNumber(args.value(u"km"_s, u"0"_s), u"Die Kilometerzahl"_s);
    if (days < 0 || hours < 0 || minutes < 0 || quantity < 0 || km < 0)
        throw CliInputError{ u"Dauer, Menge und Kilometer dürfen nicht negativ sein."_s };
    const QString schedule = scheduleKey(p[0]);
    double a = 0, b = 0, c = 0;
    if (args.has(u"km"_s))
        CalcGebuhren(schedule, p[1], days, hours, minutes, quantity, km, a, b, c);
    else
        CalcGebuhren(schedule, p[1], days, hours, minutes, quantity, a, b, c);
    return { QJsonObject{ { u"costFwaFw"_s, a }, { u"costFwSvgv"_s, b }, { u"costSvgvKt"_s, c } },
             u"FWA --> FW:    %1\nFW --> SV/GV:  %2\nSV/GV --> KT:  %3\n"_s.arg(cliAmount(a), cliAmount(b), cliAmount(c)) };
}

CliOutput dispatchInit(const CliContext &context)
{
    return cliInitTables(context, dispatch_CreateTables, dispatch_AddSampleData,
                         u"AAO, AAO_Orte, ORTE und sysparam angelegt bzw. angepasst."_s,
                         u"AAO, AAO_Orte, ORTE und sysparam angelegt; Beispielregeln und -straßen eingetragen."_s);
}

CliOutput aao(const CliContext &context)
{
    const CliArguments args(context, { u"date"_s, u"time"_s }, { u"use-name"_s, u"explain"_s });
    const QStringList &p = args.positional(3, u"OBJEKT EINSATZORT ALARMKUERZEL"_s);
    const bool dated = args.has(u"date"_s) || args.has(u"time"_s);
    if (dated && !(args.has(u"date"_s) && args.has(u"time"_s)))
        throw CliUsageError{ u"--date und --time gehören zusammen."_s };
    const bool useName = args.has(u"use-name"_s);
    QString date = args.value(u"date"_s);
    const QString time = args.value(u"time"_s);
    // The rules' time windows are compared as text: only a time of day in their own form fits.
    if (dated && !QTime::fromString(time, u"HH:mm:ss"_s).isValid() && !QTime::fromString(time, u"HH:mm"_s).isValid())
        throw CliUsageError{ u"Die Uhrzeit \"%1\" ist keine Uhrzeit (SS:MM oder SS:MM:SS, z. B. 14:30:00)."_s.arg(time) };
    // The lookup's statement has no condition for an empty keyword, nor with a date for an empty
    // place: the database would refuse it. Said here in words instead.
    if (p[2].trimmed().isEmpty())
        throw CliInputError{ u"Ohne Alarmkürzel gibt es keine AAO-Regel; bitte ein Alarmkürzel angeben."_s };
    if (dated && p[1].trimmed().isEmpty())
        throw CliInputError{ u"Mit --date und --time braucht die Suche einen Einsatzort."_s };
    if (dated) {
        const QDate iso = QDate::fromString(date, Qt::ISODate);
        if (iso.isValid())
            date = iso.toString(FormatSettings().ShortDateFormat);
        else if (!kx::strToDate(date).isValid())
            throw CliInputError{ u"Das Datum \"%1\" ist nicht lesbar (TT.MM.JJJJ oder JJJJ-MM-TT)."_s.arg(date) };
    }
    const QString id = dated ? aaoGetID(p[0], p[1], p[2], date, time, useName) : aaoGetID(p[0], p[1], p[2], useName);

    const QString name = dispatch_RuleName(id);
    QJsonObject json{ { u"id"_s, cliTextOrNull(id) }, { u"bezeichnung"_s, cliTextOrNull(name) } };
    QString text = id.isEmpty() ? u"Keine AAO-Regel gefunden.\n"_s : u"AAO-Regel: %1 (%2)\n"_s.arg(id, name);
    if (args.has(u"explain"_s)) {
        QStringList statements{ dated ? aaoStatement(p[0], p[1], p[2], date, time) : aaoStatement(p[0], p[1], p[2]) };
        const QString objectName = AaoSplitObjektName(p[0]).Name;
        if (useName && objectName.compare(p[0], Qt::CaseInsensitive) != 0)
            statements << (dated ? aaoStatement(objectName, p[1], p[2], date, time)
                                 : aaoStatement(objectName, p[1], p[2]));
        json.insert(u"statements"_s, QJsonArray::fromStringList(statements));
        for (const QString &s : statements)
            text += u"\n"_s + s + u"\n"_s;
    }
    return { json, text };
}

CliOutput feeSchedules(const CliContext &context)
{
    CliArguments(context, {}, {}).positional(0, u"keine Argumente"_s);
    QJsonArray json;
    QString text;
    for (const FeeSchedule &schedule : fee_ReadSchedules()) {
        json.append(QJsonObject{ { u"id"_s, schedule.id }, { u"bezeichnung"_s, schedule.bezeichnung } });
        text += u"%1  %2\n"_s.arg(schedule.id, schedule.bezeichnung);
    }
    return { json, json.isEmpty() ? u"(keine Gebührensatzungen)\n"_s : text };
}

CliOutput feeEvents(const CliContext &context)
{
    const QString schedule = scheduleKey(CliArguments(context, {}, {}).positional(1, u"SATZUNG"_s)[0]);
    const QStringList events = fee_ReadEvents(schedule);
    return { QJsonArray::fromStringList(events), events.isEmpty() ? u"(keine Ereignisse)\n"_s : events.join(u'\n') + u'\n' };
}

CliOutput aaoRules(const CliContext &context)
{
    CliArguments(context, {}, {}).positional(0, u"keine Argumente"_s);
    QJsonArray json;
    QString text;
    const auto date = [](const std::optional<QDate> &d) { return d ? QJsonValue(d->toString(Qt::ISODate)) : QJsonValue(); };
    for (const AaoRuleRow &row : dispatch_ReadRules()) {
        const AaoRule &r = row.rule;
        QJsonArray days;
        QString dayText;
        for (int d = 0; d < 7; ++d) {
            if (r.weekdays[d])
                days.append(d + 1);
            dayText += r.weekdays[d] ? u"MDMDFSS"_s.at(d) : u'-';
        }
        json.append(QJsonObject{ { u"id"_s, row.id }, { u"alarmkuerzel"_s, r.alarmkuerzel },
                                 { u"alarmobjekt"_s, cliTextOrNull(r.objekt) }, { u"einsatzort"_s, cliTextOrNull(r.einsatzort) },
                                 { u"extendedsettings"_s, r.restricted }, { u"weekdays"_s, days },
                                 { u"es_fromtime"_s, cliTextOrNull(r.fromTime) }, { u"es_totime"_s, cliTextOrNull(r.toTime) },
                                 { u"es_fromdate"_s, date(r.fromDate) }, { u"es_todate"_s, date(r.toDate) },
                                 { u"bezeichnung"_s, r.bezeichnung } });
        text += u"%1 %2 %3 %4 %5\n"_s.arg(r.alarmkuerzel, -6)
                    .arg(r.objekt.isEmpty() ? u"(jedes Objekt)"_s : r.objekt, -16)
                    .arg(r.einsatzort.isEmpty() ? u"(jeder Ort)"_s : r.einsatzort, -14)
                    .arg(r.restricted ? dayText + u' ' + r.fromTime + u'-' + r.toTime : u"immer"_s, -26)
                    .arg(r.bezeichnung);
    }
    return { json, json.isEmpty() ? u"(keine AAO-Regeln)\n"_s : text };
}

CliOutput splitStreet(const CliContext &context)
{
    const CliArguments args(context, {}, {});
    const TAaoStrasseParts parts = AaoSplitStrasse(args.positional(1, u"TEXT"_s)[0]);
    return { QJsonObject{ { u"Strasse"_s, parts.Strasse },
                          { u"Hausnummer"_s, parts.Hausnummer },
                          { u"HausnummerZusatz"_s, parts.HausnummerZusatz },
                          { u"Zusatz"_s, parts.Zusatz } },
             u"Strasse: %1\nHausnummer: %2\nHausnummerZusatz: %3\nZusatz: %4\n"_s.arg(
                 parts.Strasse, parts.Hausnummer, parts.HausnummerZusatz, parts.Zusatz) };
}

CliOutput splitObject(const CliContext &context)
{
    const CliArguments args(context, {}, {});
    const TAaoObjektNameParts parts = AaoSplitObjektName(args.positional(1, u"TEXT"_s)[0]);
    return { QJsonObject{ { u"Prefix"_s, parts.Prefix }, { u"Name"_s, parts.Name } },
             u"Prefix: %1\nName: %2\n"_s.arg(parts.Prefix, parts.Name) };
}

CliOutput district(const CliContext &context)
{
    const CliArguments args(context, {}, {});
    QStringList p = args.positional();
    if (p.size() == 3)
        p << QString();
    if (p.size() != 4)
        throw CliUsageError{ u"erwartet PLZ ORT STRASSE [HAUSNUMMER]."_s };
    const QString ortsteil = AaoFindOrtsteil(p[0], p[1], p[2], p[3]);
    return { QJsonObject{ { u"ortsteil"_s, cliTextOrNull(ortsteil) } },
             ortsteil.isEmpty() ? u"Kein Ortsteil gefunden.\n"_s : u"Ortsteil: %1\n"_s.arg(ortsteil) };
}

CliOutput settingsName(const CliContext &context)
{
    const CliArguments args(context, {}, {});
    const QString program = args.positional(1, u"fms oder lumiron"_s)[0];
    QString name;
    bool copied = false;
    if (program == u"fms"_s) {
        name = GetFMSMonitorParamValue();
        copied = IsDefaultSettingsAlreadyCopiedForLocalMachine();
    } else if (program == u"lumiron"_s) {
        name = GetLumironParamValue();
        copied = IsLumironDefaultSettingsAlreadyCopiedForLocalMachine();
    } else {
        throw CliUsageError{ u"\"%1\" ist weder fms noch lumiron."_s.arg(program) };
    }
    return { QJsonObject{ { u"name"_s, name }, { u"computer"_s, GetComputerName() }, { u"localCopyExists"_s, copied } },
             u"%1\n"_s.arg(name) };
}

} // namespace

void registerDispatchCommands()
{
    registerCommand({ u"fee init"_s, u"[--sample]"_s,
                      u"Legt die Tabellen der Gebührensatzung an (mit --sample die Beispielsatzung MUSTERSTADT)."_s,
                      feeInit });
    registerCommand({ u"fee"_s, u"SATZUNG EREIGNIS [--days T] [--hours S] [--minutes M] [--quantity MENGE] [--km KM]"_s,
                      u"Berechnet die drei Kostenanteile eines Einsatzes."_s, fee });
    registerCommand({ u"dispatch init"_s, u"[--sample]"_s,
                      u"Legt AAO, AAO_Orte, ORTE und sysparam an (mit --sample Beispielregeln und -straßen)."_s,
                      dispatchInit });
    registerCommand({ u"aao"_s, u"OBJEKT EINSATZORT ALARMKUERZEL [--date DATUM --time ZEIT] [--use-name] [--explain]"_s,
                      u"Sucht die AAO-Regel eines Alarms (mit --explain die Anweisung)."_s, aao });
    CliCommand street{ u"split-street"_s, u"TEXT"_s, u"Zerlegt eine Straßenangabe."_s, splitStreet, false };
    registerCommand(street);
    CliCommand object{ u"split-object"_s, u"TEXT"_s, u"Zerlegt einen Objektnamen in Präfix und Name."_s, splitObject,
                       false };
    registerCommand(object);
    registerCommand({ u"district"_s, u"PLZ ORT STRASSE [HAUSNUMMER]"_s, u"Sucht den Ortsteil einer Anschrift."_s,
                      district });
    registerCommand({ u"settings-name"_s, u"fms|lumiron"_s,
                      u"Zeigt den Namen, unter dem das Programm seine Einstellungen in sysparam liest."_s,
                      settingsName });
    registerCommand({ u"fee schedules"_s, QString(), u"Listet die Gebührensatzungen."_s, feeSchedules });
    registerCommand({ u"fee events"_s, u"SATZUNG"_s, u"Listet die Ereignisse einer Gebührensatzung."_s, feeEvents });
    registerCommand({ u"aao rules"_s, QString(), u"Listet die AAO-Regeln."_s, aaoRules });

    const std::pair<QString, QString> schedules{ u"gSchlussel"_s, u"fee init"_s };
    cliRequire(u"fee"_s, { schedules, { u"gSchlussel_Kosten"_s, u"fee init"_s } });
    cliRequire(u"fee schedules"_s, { schedules });
    cliRequire(u"fee events"_s, { schedules, { u"gSchlussel_Ereignisse"_s, u"fee init"_s } });
    cliRequire(u"aao"_s, { { u"AAO"_s, u"dispatch init"_s }, { u"AAO_Orte"_s, u"dispatch init"_s } });
    cliRequire(u"aao rules"_s, { { u"AAO"_s, u"dispatch init"_s } });
    cliRequire(u"district"_s, { { u"ORTE"_s, u"dispatch init"_s } });
    cliRequire(u"settings-name"_s, { { u"sysparam"_s, u"dispatch init"_s } });
    cliDetails(u"fee"_s, u"  SATZUNG            Schlüssel der Gebührensatzung (kxcommon fee schedules)\n"
                         u"  EREIGNIS           Ereignis der Satzung; ein unbekanntes rechnet nach VORGABE\n"
                         u"  --days T, --hours S, --minutes M   Einsatzdauer (ganze Zahlen, nicht negativ)\n"
                         u"  --quantity MENGE   statt der Dauer abgerechnete Stunden (Zahl, 2,5 oder 2.5)\n"
                         u"  --km KM            gefahrene Kilometer (zweiter und dritter Betrag)\n"_s);
    cliDetails(u"aao"_s, u"  OBJEKT, EINSATZORT  leer erlaubt (nur Regeln ohne Objekt bzw. Ort); mit Datum ist ein\n"
                         u"                      Einsatzort nötig\n"
                         u"  ALARMKUERZEL        Pflicht\n"
                         u"  --date DATUM        TT.MM.JJJJ, TT.MM (dieses Jahr) oder JJJJ-MM-TT; nur mit --time\n"
                         u"  --time ZEIT         hh:mm:ss, als Text mit den Zeitfenstern verglichen\n"
                         u"  --use-name          ein zweites Mal mit dem Objektnamen ohne Präfix (\"Ort - Name\")\n"
                         u"  --explain           die Anweisungen ausgeben\n"_s);
    for (const QString &command : { u"fee init"_s, u"dispatch init"_s })
        cliDetails(command, u"  --sample           zusätzlich die Beispieldaten eintragen (ein zweiter Lauf trägt nichts doppelt ein)\n"_s);
    cliDetails(u"fee events"_s, u"  SATZUNG            Schlüssel der Gebührensatzung (kxcommon fee schedules)\n"_s);
    for (const QString &command : { u"split-street"_s, u"split-object"_s })
        cliDetails(command, u"  TEXT               ein Argument; mit Leerzeichen in Anführungszeichen, beginnt es mit \"-\",\n"
                            u"                     davor --\n"_s);
    cliDetails(u"district"_s,
               u"  PLZ, ORT, STRASSE  die Anschrift wie im Straßenverzeichnis ORTE (Groß- und Kleinschreibung,\n"
               u"                     Umlaute, \"Str.\"/\"Straße\" und Leerzeichen zählen nicht)\n"
               u"  HAUSNUMMER         wählt den Eintrag mit passendem Hausnummernbereich (gerade und ungerade\n"
               u"                     Nummern getrennt; Vorgabe: leer)\n"_s);
    cliDetails(u"settings-name"_s,
               u"  fms                die Einstellungen des Statusmonitors\n"
               u"  lumiron            die Einstellungen der Lagekarte\n"_s);
}
