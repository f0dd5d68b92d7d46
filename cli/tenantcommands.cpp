// SPDX-License-Identifier: LGPL-2.1-or-later
// Sub-commands of the tenants.
#include "command.h"

#include "globals.h"
#include "mandantcommon.h"
#include "tenantdata.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

CliOutput tenantsInit(const CliContext &context)
{
    return cliInitTables(context, tenants_CreateTables, tenants_AddSampleData,
                         u"Mandantentabellen angelegt bzw. angepasst."_s,
                         u"Mandantentabellen angelegt, Beispielmandanten und Benutzer \"demo\" und \"kreis\" eingetragen."_s);
}

CliOutput tenantFilter(const CliContext &context)
{
    const CliArguments arguments(context, { u"user"_s }, { u"unrestricted"_s });
    const QStringList &args = arguments.positional(2, u"TABELLE MANDANTENKÜRZEL"_s);
    if (!arguments.has(u"user"_s) && !arguments.has(u"unrestricted"_s))
        throw CliUsageError{ u"--user BENUTZER-ID oder --unrestricted fehlt."_s };
    User.Id = arguments.value(u"user"_s);
    User.NoMandantRestriction = arguments.has(u"unrestricted"_s);
    const QString fragment = MandantenBuildSubSelect(args.at(0), args.at(1));
    QJsonArray lines;
    for (const QString &line : fragment.split(u"\r\n"_s, Qt::SkipEmptyParts))
        lines.append(line);
    return { QJsonObject{ { u"fragment"_s, fragment }, { u"lines"_s, lines }, { u"restricted"_s, !fragment.isEmpty() } },
             fragment };
}

} // namespace

void registerTenantCommands()
{
    registerCommand({ u"tenants init"_s, u"[--sample]"_s,
                      u"Legt die Mandantentabellen an (--sample: Beispielmandanten und -benutzer)."_s, tenantsInit });
    registerCommand({ u"tenant-filter"_s, u"TABELLE MANDANTENKÜRZEL --user BENUTZER-ID | --unrestricted"_s,
                      u"Gibt die Mandanten-Einschränkung für die WHERE-Klausel aus, genau (Zeilenenden CRLF)."_s,
                      tenantFilter });
    cliRequire(u"tenant-filter"_s, { { u"Mandanten"_s, u"tenants init"_s }, { u"Mandanten_sub"_s, u"tenants init"_s } });
    cliDetails(u"tenants init"_s, u"  --sample           zusätzlich Beispielmandanten und die Benutzer demo und kreis eintragen\n"_s);
    cliDetails(u"tenant-filter"_s,
               u"  TABELLE            Tabelle oder Alias, dessen Mandantenfeld eingeschränkt wird\n"
               u"  MANDANTENKÜRZEL    Name des Mandantenfelds dieser Tabelle\n"
               u"  --user ID          die Mandanten, die dieser Benutzer sehen darf\n"
               u"  --unrestricted     ein Benutzer ohne Mandanten-Einschränkung (leere Ausgabe)\n"_s);
}
