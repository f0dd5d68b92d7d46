// SPDX-License-Identifier: LGPL-2.1-or-later
// Sub-commands of the data links and the category registry.
#include "command.h"

#include "datacommon.h"
#include "katscommon.h"
#include "katsdata.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const QString rootCaption = u"Kats-Plan"_s;

CliOutput dataLinks(const CliContext &context)
{
    const CliArguments arguments(context, {}, {});
    if (arguments.positional().size() > 1)
        throw CliUsageError{ u"datalinks erwartet höchstens eine TABELLE."_s };
    const QString table = arguments.positional().value(0);
    QJsonArray json;
    QString text;
    for (const TDataLinkRow &row : DataLink_Read(table)) {
        json.append(QJsonObject{ { u"tablename"_s, row.Tablename },
                                 { u"fieldname"_s, row.Fieldname },
                                 { u"linktablename"_s, row.LinkTablename },
                                 { u"linkfieldname"_s, row.Linkfieldname } });
        text += u"%1.%2  <-  %3.%4\n"_s.arg(row.Tablename, row.Fieldname, row.LinkTablename, row.Linkfieldname);
    }
    if (json.isEmpty())
        text = table.isEmpty() ? u"Keine Datenverknüpfungen.\n"_s
                               : u"Keine Felder anderer Tabellen verweisen auf %1.\n"_s.arg(table.toUpper());
    return { json, text };
}

CliOutput katsInit(const CliContext &context)
{
    return cliInitTables(context, Kats_CreateData, Kats_AddSampleTree,
                         u"\"SYSDef_Kats\" und \"KATS\" angelegt bzw. angepasst."_s,
                         u"\"SYSDef_Kats\" und \"KATS\" angelegt, Beispielkategorien eingetragen."_s);
}

CliOutput katsAdd(const CliContext &context)
{
    const QStringList args = CliArguments(context, {}, {}).positional(5, u"MODULNAME MODULNR HAUPTTABELLE KATSTABELLE FELDER"_s);
    const int number = cliWholeNumber(args.at(1), u"Die Modulnummer"_s);
    Kats_CreateData();
    Kats_AddModul(args.at(0), number, args.at(2), args.at(3), args.at(4));
    return { QJsonObject{ { u"modulName"_s, args.at(0) },
                          { u"modulNr"_s, number },
                          { u"mainTable"_s, args.at(2).toUpper() },
                          { u"katsTable"_s, args.at(3).toUpper() },
                          { u"fields"_s, args.at(4) } },
             u"Modul %1 (%2) mit Kategorietabelle %3 zu %4 registriert.\n"_s.arg(args.at(0), QString::number(number),
                                                                              args.at(3).toUpper(), args.at(2).toUpper()) };
}

QJsonObject nodeJson(const TCTreeData &tree, int node, bool withStates)
{
    static const QString states[] = { u"unchecked"_s, u"partlyChecked"_s, u"checked"_s };
    const TCTreeData::Node &n = tree.nodes().at(node);
    QJsonArray children;
    for (int child : n.Children)
        children.append(nodeJson(tree, child, withStates));
    QJsonObject json{ { u"treeId"_s, n.TreeId }, { u"key"_s, n.KeyText }, { u"caption"_s, n.Caption },
                      { u"children"_s, children } };
    if (withStates)
        json.insert(u"state"_s, states[n.CheckState]);
    return json;
}

CliOutput treeOutput(const TCTreeData &tree, bool withStates)
{
    QJsonArray children;
    for (int node : tree.topLevel())
        children.append(nodeJson(tree, node, withStates));
    return { QJsonObject{ { u"caption"_s, rootCaption }, { u"children"_s, children } }, tree.text(rootCaption, withStates) };
}

CliOutput katsTree(const CliContext &context)
{
    CliArguments(context, {}, {}).positional(0, u"kats tree"_s);
    return treeOutput(Kats_ReadTree(), false);
}

CliOutput katsShow(const CliContext &context)
{
    const QStringList args = CliArguments(context, {}, {}).positional(2, u"DATENSATZ MODUL"_s);
    return treeOutput(Kats_ReadCheckState(args.at(0), args.at(1)), true);
}

CliOutput katsSet(const CliContext &context)
{
    const QStringList args = CliArguments(context, {}, {}).positional();
    if (args.size() < 2)
        throw CliUsageError{ u"kats set erwartet DATENSATZ MODUL [KATEGORIE...]."_s };
    return treeOutput(Kats_WriteCheckState(args.at(0), args.at(1), args.mid(2)), true);
}

} // namespace

void registerKatsCommands()
{
    registerCommand({ u"datalinks"_s, u"[TABELLE]"_s,
                      u"Listet die Datenverknüpfungen; mit TABELLE die Felder anderer Tabellen, die auf sie verweisen."_s,
                      dataLinks });
    registerCommand({ u"kats init"_s, u"[--sample]"_s,
                      u"Legt \"SYSDef_Kats\" und den Kategoriebaum \"KATS\" an (--sample: Beispielkategorien)."_s, katsInit });
    registerCommand({ u"kats add"_s, u"MODULNAME MODULNR HAUPTTABELLE KATSTABELLE FELDER"_s,
                      u"Registriert ein Modul mit seiner Kategorietabelle."_s, katsAdd });
    registerCommand({ u"kats tree"_s, QString(), u"Zeigt den Kategoriebaum \"KATS\"."_s, katsTree });
    registerCommand({ u"kats show"_s, u"DATENSATZ MODUL"_s, u"Zeigt die angekreuzten Kategorien eines Datensatzes."_s,
                      katsShow });
    registerCommand({ u"kats set"_s, u"DATENSATZ MODUL [KATEGORIE...]"_s,
                      u"Speichert die angekreuzten Kategorien eines Datensatzes (ohne KATEGORIE: keine)."_s, katsSet });
    for (const QString &command : { u"kats tree"_s, u"kats show"_s, u"kats set"_s })
        cliRequire(command, { { u"SYSDef_Kats"_s, u"kats init"_s } });
    // Every table the registration writes, checked before its first row.
    cliRequire(u"kats add"_s, { { u"SYSDef_Kats"_s, u"kats init"_s }, { u"SysDef_DataLink"_s, u"sys init"_s },
                                { u"SYSDef_Module"_s, u"init"_s } });
    cliRequire(u"datalinks"_s, { { u"SysDef_DataLink"_s, u"sys init"_s } });
    cliDetails(u"datalinks"_s, u"  TABELLE            nur die Verweise auf diese Tabelle (Groß- und Kleinschreibung egal)\n"_s);
    cliDetails(u"kats init"_s, u"  --sample           zusätzlich Beispielkategorien eintragen\n"_s);
    cliDetails(u"kats add"_s,
               u"  MODULNAME          Name des Moduls, z. B. Fahrzeuge\n"
               u"  MODULNR            Modulnummer (ganze Zahl)\n"
               u"  HAUPTTABELLE       Tabelle der Datensätze, auf die IDPARENT verweist\n"
               u"  KATSTABELLE        neue Verknüpfungstabelle der Kategorien, z. B. FAHRZEUG_KATS\n"
               u"  FELDER             Text für ModulFields in SYSDef_Kats\n"_s);
    const QString record = u"  DATENSATZ          Schlüssel des Datensatzes (IDPARENT in der Verknüpfungstabelle)\n"
                           u"  MODUL              Modulname aus kxcommon kats add\n"_s;
    cliDetails(u"kats show"_s, record);
    cliDetails(u"kats set"_s, record + u"  KATEGORIE          TREEID einer Kategorie (treeId in kxcommon kats tree --json);\n"
                                       u"                     die übrigen Kategorien sind danach nicht angekreuzt\n"_s);
}
