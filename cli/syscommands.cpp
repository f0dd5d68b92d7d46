// SPDX-License-Identifier: LGPL-2.1-or-later
// Sub-commands of the system tables.
#include "command.h"

#include "syscommon.h"

#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

CliOutput sysInit(const CliContext &)
{
    Sys_CreateData();
    return { QJsonObject{ { u"done"_s, true } },
             u"Systemtabellen angelegt bzw. angepasst, Datenverknüpfungen geleert, USBRel64Data vorbelegt.\n"_s };
}

CliOutput officeMap(const CliContext &)
{
    CreateTableOfficeDefinition();
    return { QJsonObject{ { u"done"_s, true } }, u"Office-Feldnamen für alle Spalten vergeben.\n"_s };
}

} // namespace

void registerSysCommands()
{
    registerCommand({ u"sys init"_s, QString(),
                      u"Legt die Systemtabellen an (ein zweiter Lauf scheitert an den Startzeilen von USBRel64Data)."_s,
                      sysInit });
    registerCommand({ u"sys office-map"_s, QString(), u"Vergibt jeder Spalte ohne Eintrag ihren Office-Namen."_s,
                      officeMap });
}
