// SPDX-License-Identifier: LGPL-2.1-or-later
// Sub-commands of the module registry.
#include "command.h"

#include "modulcommon.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

CliOutput init(const CliContext &)
{
    mdef_CreateData();
    return { QJsonObject{ { u"table"_s, u"SYSDef_Module"_s }, { u"rows"_s, 0 } },
             u"Modulregister \"SYSDef_Module\" angelegt und geleert.\n"_s };
}

CliOutput listModules(const CliContext &)
{
    QJsonArray rows;
    QString text;
    for (const TModulRow &row : mdef_ReadModules()) {
        rows.append(QJsonObject{ { u"id"_s, row.Id },
                                 { u"modulId"_s, row.ModulId },
                                 { u"modulName"_s, row.Modulname },
                                 { u"tableName"_s, row.ModulTablename },
                                 { u"isMainTable"_s, row.ModulIsMainTable == 1 } });
        text += u"%1  %2  %3  %4\n"_s.arg(QString::number(row.ModulId).rightJustified(4, u'0'))
                    .arg(row.Modulname, -30)
                    .arg(row.ModulTablename, -30)
                    .arg(row.ModulIsMainTable == 1 ? u"Haupttabelle"_s : u"Untertabelle"_s);
    }
    if (rows.isEmpty())
        text = u"Keine Module registriert.\n"_s;
    return { rows, text };
}

CliOutput addModule(const CliContext &context)
{
    QStringList args = context.args;
    const bool main = args.removeAll(u"--main"_s) > 0;
    if (args.size() != 3)
        throw CliUsageError{ u"modules add erwartet MODULNUMMER NAME TABELLE."_s };
    bool numeric = false;
    const qint64 modulId = args.at(0).toLongLong(&numeric);
    if (!numeric)
        throw CliUsageError{ u"Die Modulnummer \"%1\" ist keine Dezimalzahl."_s.arg(args.at(0)) };
    mdef_AddModul(args.at(0), args.at(1), args.at(2), main ? 1 : 0);
    return { QJsonObject{ { u"modulId"_s, modulId },
                          { u"modulName"_s, args.at(1) },
                          { u"tableName"_s, args.at(2).toUpper() },
                          { u"isMainTable"_s, main } },
             u"Tabelle %1 für Modul %2 (%3) als %4 registriert.\n"_s.arg(args.at(2).toUpper(), args.at(0), args.at(1),
                                                                          main ? u"Haupttabelle"_s : u"Untertabelle"_s) };
}

} // namespace

void registerRegistryCommands()
{
    registerCommand({ u"init"_s, QString(), u"Legt das Modulregister \"SYSDef_Module\" an und leert es."_s, init });
    registerCommand({ u"modules"_s, QString(), u"Listet die Zeilen des Modulregisters."_s, listModules });
    registerCommand({ u"modules add"_s, u"MODULNUMMER NAME TABELLE [--main]"_s,
                      u"Registriert eine Tabelle für ein Modul (mit --main als Haupttabelle)."_s, addModule });
    cliRequire(u"modules"_s, { { u"SYSDef_Module"_s, u"init"_s } });
    cliRequire(u"modules add"_s, { { u"SYSDef_Module"_s, u"init"_s } });
    cliDetails(u"modules add"_s,
               u"  MODULNUMMER        Dezimalzahl, z. B. 0002\n"
               u"  NAME               Name des Moduls\n"
               u"  TABELLE            Tabelle des Moduls (wird groß geschrieben)\n"
               u"  --main             als Haupttabelle des Moduls; sonst Untertabelle\n"_s);
}
