// Sub-commands of fees and dispatch: fee calculation, AAO lookup, street and object splitting,
// district lookup and the settings names.
#include "command.h"

#include "aaocommon.h"
#include "dispatchdata.h"
#include "feedata.h"
#include "gscommon.h"
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
    return { QJsonObject{ { u"schedule"_s, schedule } },
             schedule.isEmpty() ? u"Gebührentabellen angelegt bzw. angepasst.\n"_s
                                : u"Gebührentabellen angelegt; Beispielsatzung %1 eingetragen.\n"_s.arg(schedule) };
}

CliOutput fee(const CliContext &context)
{
    const CliArguments args(context, { u"days"_s, u"hours"_s, u"minutes"_s, u"quantity"_s, u"km"_s }, {});
    const QStringList &p = args.positional(2, u"SATZUNG EREIGNIS"_s);
    const int32_t days = cliWholeNumber(args.value(u"days"_s, u"0"_s), u"Tage"_s);
    const int32_t hours = cliWholeNumber(args.value(u"hours"_s, u"0"_s), u"Stunden"_s);
    const int32_t minutes = cliWholeNumber(args.value(u"minutes"_s, u"0"_s), u"Minuten"_s);
    const double quantity = cliNumber(args.value(u"quantity"_s, u"0"_s), u"Die Menge"_s);
    double a = 0, b = 0, c = 0;
    if (args.has(u"km"_s))
        CalcGebuhren(p[0], p[1], days, hours, minutes, quantity, cliNumber(args.value(u"km"_s), u"Die Kilometerzahl"_s), a,
                     b, c);
    else
        CalcGebuhren(p[0], p[1], days, hours, minutes, quantity, a, b, c);
    return { QJsonObject{ { u"costFwaFw"_s, a }, { u"costFwSvgv"_s, b }, { u"costSvgvKt"_s, c } },
             u"FWA --> FW:    %1\nFW --> SV/GV:  %2\nSV/GV --> KT:  %3\n"_s.arg(kx::formatFloat(a), kx::formatFloat(b),
                                                                             kx::formatFloat(c)) };
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
    const QString date = args.value(u"date"_s), time = args.value(u"time"_s);
    const QString id = dated ? aaoGetID(p[0], p[1], p[2], date, time, useName) : aaoGetID(p[0], p[1], p[2], useName);

    const QString name = dispatch_RuleName(id);
    QJsonObject json{ { u"id"_s, id }, { u"bezeichnung"_s, name } };
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
    return { QJsonObject{ { u"ortsteil"_s, ortsteil } },
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
}
