// SPDX-License-Identifier: LGPL-2.1-or-later
// kxcommon open, merge: opening documents and links, and filling templates with records.
#include "command.h"

#include "binarydata.h"
#include "docmodicommon.h"
#include "documentdata.h"
#include "documentlauncher.h"
#include "scanner.h"
#include "sqlconnection.h"
#include "globals.h"
#include "kxerror.h"
#include "ooxmlword.h"
#include "toolscommon.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

// The documents' search path: the folders of --search-path (separated by ":"), else the
// working folder.
void setSearchPath(const CliArguments &args)
{
    cSearchPathList = args.has(u"search-path"_s) ? args.value(u"search-path"_s).split(u':', Qt::SkipEmptyParts)
                                                 : QStringList{ QDir::currentPath() };
}

// Opens nothing: for scripts that only want the documents made.
class NoLauncher : public TDocumentLauncher
{
public:
    int OpenLink(const QString &) override { return launchSucceeded; }
    int OpenFile(const QString &, const QString &) override { return launchSucceeded; }
};

// The word processor of the merge, telling which documents it made.
class ReportingWord : public TOoxmlWordApplication
{
public:
    explicit ReportingWord(QStringList &made)
        : m_made(made)
    {
    }
    void Release() override
    {
        TOoxmlWordApplication::Release();
        m_made = Documents();
    }

private:
    QStringList &m_made;
};

CliOutput openDocument(const CliContext &context)
{
    const CliArguments args(context, { u"search-path"_s }, { u"show-error"_s });
    const QString name = args.positional(1, u"NAME"_s)[0];
    setSearchPath(args);
    try {
        ShellExecuteAndSearchDokument(name, args.has(u"show-error"_s));
    } catch (const kx::Error &e) {
        throw CliInputError{ e.message() };
    }
    return { QJsonObject{ { u"name"_s, name } }, u"%1: an das Programm übergeben.\n"_s.arg(name) };
}

CliOutput mergeTemplate(const CliContext &context)
{
    const CliArguments args(context, { u"search-path"_s }, { u"no-open"_s });
    const QStringList &p = args.positional(3, u"VORLAGE TABELLE SQL"_s);
    setSearchPath(args);
    if (cWorkPath.isEmpty())
        cWorkPath = QDir::currentPath(); // the documents are made in the working folder
    QStringList made;
    wordApplicationFactory() = [&made] { return std::make_unique<ReportingWord>(made); };
    if (args.has(u"no-open"_s))
        setDocumentLauncher(std::make_unique<NoLauncher>());
    ShellExecuteAndSearchDokument(p[0], p[1], p[2]);
    QString text;
    for (const QString &document : made)
        text += document + u'\n';
    if (made.isEmpty())
        text = u"Kein Dokument erstellt (Vorlage nicht gefunden, nicht füllbar oder keine Datensätze).\n"_s;
    return { QJsonObject{ { u"template"_s, p[0] }, { u"documents"_s, QJsonArray::fromStringList(made) } }, text };
}

// The editor of a record's documents, loaded, as the command line's window onto them.
std::unique_ptr<TDocModiCommonForm> editorOf(const QString &table, const QString &parent)
{
    if (!compSqlConnection->tableExists(table))
        throw CliInputError{ u"Die Dokumenttabelle %1 gibt es nicht (sie entsteht mit \"kxcommon docs add\")."_s.arg(table) };
    auto editor = std::make_unique<TDocModiCommonForm>(table);
    editor->LoadDocuments(parent);
    return editor;
}

CliOutput listDocuments(const CliContext &context)
{
    const QStringList p = CliArguments(context, {}, {}).positional(2, u"TABELLE ELTERN-ID"_s);
    const auto editor = editorOf(p[0], p[1]);
    QJsonArray rows;
    QString text;
    for (int i = 0; i < editor->RowCount(); ++i) {
        const kx::NameValues row = editor->Row(i);
        const bool stored = row.Value(u"_Real_"_s) == u"1"_s;
        rows.append(QJsonObject{ { u"id"_s, row.Value(u"ID"_s) },
                                 { u"bezeichnung"_s, row.Value(u"BEZEICHNUNG"_s) },
                                 { u"dokument"_s, row.Value(u"DOKUMENT"_s) },
                                 { u"maindoc"_s, row.Value(u"MAINDOC"_s) == u"1"_s },
                                 { u"stored"_s, stored } });
        text += u"%1  %2  %3%4\n"_s.arg(row.Value(u"ID"_s), -33).arg(row.Value(u"BEZEICHNUNG"_s), -30)
                    .arg(row.Value(u"DOKUMENT"_s), stored ? u" (in der Datenbank)"_s : QString());
    }
    return { rows, text.isEmpty() ? u"Keine Dokumente.\n"_s : text };
}

CliOutput addDocument(const CliContext &context)
{
    const CliArguments args(context, { u"name"_s }, { u"binary"_s });
    const QStringList &p = args.positional(3, u"TABELLE ELTERN-ID DATEI"_s);
    const bool binary = args.has(u"binary"_s);
    if (binary && !QFileInfo(p[2]).isFile())
        throw CliInputError{ u"Die Datei \"%1\" gibt es nicht."_s.arg(p[2]) };
    if (binary && !compSqlConnection->tableExists(u"BinaryData"_s))
        throw CliInputError{ u"Bitte zuerst `kxcommon sys init` ausführen (die Tabelle BinaryData fehlt)."_s };
    if (!compSqlConnection->tableExists(p[0]))
        documents_CreateTable(p[0]);
    const QString name = args.value(u"name"_s, QFileInfo(p[2]).completeBaseName());
    const QString id = documents_Add(p[0], p[1], name, binary ? QFileInfo(p[2]).fileName() : p[2]);
    if (binary)
        SaveBinaryData(id, p[0], u"DOKUMENT"_s, p[2]);
    return { QJsonObject{ { u"id"_s, id }, { u"table"_s, p[0] }, { u"bezeichnung"_s, name }, { u"stored"_s, binary } },
             u"%1: Dokument %2 angelegt%3.\n"_s.arg(p[0], id, binary ? u", Inhalt in der Datenbank"_s : QString()) };
}

CliOutput extractDocument(const CliContext &context)
{
    const QStringList p = CliArguments(context, {}, {}).positional(3, u"TABELLE ID ORDNER"_s);
    if (!QFileInfo(p[2]).isDir())
        throw CliInputError{ u"Den Ordner \"%1\" gibt es nicht."_s.arg(p[2]) };
    if (!compSqlConnection->tableExists(u"BinaryData"_s))
        throw CliInputError{ u"Bitte zuerst `kxcommon sys init` ausführen (die Tabelle BinaryData fehlt)."_s };
    const QString path = ExtractBinaryData(p[1], p[0], u"DOKUMENT"_s, p[2]);
    if (path.isEmpty())
        throw CliInputError{ u"Für das Dokument %1 ist kein Inhalt in der Datenbank gespeichert."_s.arg(p[1]) };
    return { QJsonObject{ { u"id"_s, p[1] }, { u"file"_s, path }, { u"bytes"_s, QFileInfo(path).size() } },
             path + u'\n' };
}

CliOutput cloneDocuments(const CliContext &context)
{
    const QStringList p = CliArguments(context, {}, {}).positional(3, u"TABELLE ELTERN-ID NEUE-ELTERN-ID"_s);
    const auto editor = editorOf(p[0], p[1]);
    editor->CloneDocuments(p[2]);
    return { QJsonObject{ { u"table"_s, p[0] }, { u"from"_s, p[1] }, { u"to"_s, p[2] }, { u"copied"_s, editor->RowCount() } },
             u"%1 von %2 nach %3 kopiert.\n"_s.arg(cliCount(editor->RowCount(), u"Dokument"_s, u"Dokumente"_s), p[1], p[2]) };
}

CliOutput scanPage(const CliContext &context)
{
    const CliArguments args(context, { u"to"_s, u"source"_s }, { u"list"_s });
    args.positional(0, QString());
    TSaneScanner scanner;
    scanner.LoadTwainModule();
    const QStringList sources = scanner.GetSources();
    if (args.has(u"list"_s))
        return { QJsonArray::fromStringList(sources), sources.isEmpty() ? u"Keine Scanner gefunden.\n"_s : sources.join(u'\n') + u'\n' };
    if (!args.has(u"to"_s))
        throw CliUsageError{ u"scan erwartet --list oder --to DATEI.jpg."_s };
    const QString source = args.value(u"source"_s, sources.value(0));
    if (!sources.contains(source))
        throw CliInputError{ source.isEmpty() ? u"Kein Scanner gefunden."_s : u"Den Scanner \"%1\" gibt es nicht."_s.arg(source) };
    scanner.SelectSource(source);
    scanner.OpenSource();
    const QByteArray page = scanner.AcquireJpg(50);
    QFile out(args.value(u"to"_s));
    if (!out.open(QIODevice::WriteOnly) || out.write(page) != page.size())
        throw CliInputError{ u"Die Datei %1 lässt sich nicht schreiben: %2"_s.arg(out.fileName(), out.errorString()) };
    return { QJsonObject{ { u"source"_s, source }, { u"file"_s, out.fileName() }, { u"bytes"_s, page.size() } },
             u"%1: eine Seite von %2, %3 Bytes.\n"_s.arg(out.fileName(), source).arg(page.size()) };
}

} // namespace

void registerDocumentCommands()
{
    registerCommand({ u"open"_s, u"NAME [--show-error] [--search-path ORDNER:ORDNER]"_s,
                      u"Öffnet einen Verweis oder ein Dokument mit seinem Programm, wie die Dokumentlisten es tun."_s,
                      openDocument, false });
    registerCommand({ u"merge"_s, u"VORLAGE TABELLE SQL [--no-open] [--search-path ORDNER:ORDNER]"_s,
                      u"Füllt eine Word-Vorlage mit jedem Datensatz einer Abfrage (ein Dokument je Datensatz)."_s,
                      mergeTemplate });
    cliDetails(u"open"_s,
               u"  NAME               ein Verweis (enthält http:, ftp:, mailto: oder callto:), eine Lagekarte (.ldmv,\n"
               u"                     an das Hauptprogramm) oder eine Datei, gesucht im Suchpfad\n"
               u"  --show-error       ein Fehler wird gemeldet (Exit 1), sonst bleibt er still\n"
               u"  --search-path ORDNER:ORDNER  die Ordner, in denen Dateien gesucht werden (Vorgabe: der Arbeitsordner)\n"_s);
    cliDetails(u"merge"_s,
               u"  VORLAGE            eine Vorlage (.docx, .dotx, .docm, .dotm) im Suchpfad; binäre .doc/.dot werden\n"
               u"                     nicht gefüllt (eine Zeile im Protokoll)\n"
               u"  TABELLE            die Tabelle, deren Office-Namen (OfficeTableMapping) die Formularfelder nennen\n"
               u"  SQL                die Abfrage; jede Zeile ergibt ein Dokument im Arbeitsordner\n"
               u"  --no-open          die Dokumente nicht öffnen, nur erstellen\n"
               u"  --search-path ORDNER:ORDNER  die Ordner, in denen die Vorlage gesucht wird (Vorgabe: der Arbeitsordner)\n"_s);
    cliRequire(u"merge"_s, { { u"OfficeTableMapping"_s, u"sys init"_s } });
    cliGraphics({ u"open"_s, u"merge"_s });

    registerCommand({ u"docs list"_s, u"TABELLE ELTERN-ID"_s, u"Listet die Dokumente eines Datensatzes."_s, listDocuments });
    registerCommand({ u"docs add"_s, u"TABELLE ELTERN-ID DATEI [--binary] [--name BEZEICHNUNG]"_s,
                      u"Legt ein Dokument eines Datensatzes an, mit --binary mit dem Inhalt in der Datenbank."_s, addDocument });
    registerCommand({ u"docs extract"_s, u"TABELLE ID ORDNER"_s,
                      u"Schreibt den in der Datenbank gespeicherten Inhalt eines Dokuments in einen Ordner."_s, extractDocument });
    registerCommand({ u"docs clone"_s, u"TABELLE ELTERN-ID NEUE-ELTERN-ID"_s,
                      u"Kopiert alle Dokumente eines Datensatzes zu einem anderen."_s, cloneDocuments });
    registerCommand({ u"scan"_s, u"--list | --to DATEI.jpg [--source NAME]"_s,
                      u"Listet die Scanner (SANE) oder scannt eine Seite als JPEG."_s, scanPage, false });
    const QString table = u"  TABELLE            die Dokumenttabelle der Datensatzart (z. B. Fahrzeug_Dokumente, Mat_Dokumente)\n"_s;
    cliDetails(u"docs list"_s, table + u"  ELTERN-ID          der Schlüssel des Datensatzes (IDPARENT)\n"_s);
    cliDetails(u"docs add"_s, table + u"  ELTERN-ID          der Schlüssel des Datensatzes (IDPARENT)\n"
                                      u"  DATEI              die Datei; ohne --binary wird ihr Pfad gespeichert\n"
                                      u"  --binary           den Inhalt der Datei in der Datenbank speichern (BinaryData)\n"
                                      u"  --name BEZEICHNUNG die Bezeichnung (Vorgabe: der Dateiname ohne Endung)\n"_s);
    cliDetails(u"docs extract"_s, table + u"  ID                 der Schlüssel des Dokuments\n"
                                          u"  ORDNER             wohin die Datei geschrieben wird (unter ihrem Namen)\n"_s);
    cliDetails(u"docs clone"_s, table + u"  ELTERN-ID          der Datensatz, dessen Dokumente kopiert werden\n"
                                        u"  NEUE-ELTERN-ID     der Datensatz, der die Kopien erhält\n"_s);
    cliDetails(u"scan"_s, u"  --list             die Scanner, die SANE findet\n"
                          u"  --to DATEI.jpg     eine Seite scannen und als JPEG (Qualität 50) speichern\n"
                          u"  --source NAME      der Scanner (Vorgabe: der erste gefundene)\n"_s);
    cliRequire(u"docs extract"_s, { { u"BinaryData"_s, u"sys init"_s } });
    cliGraphics({ u"docs list"_s, u"docs add"_s, u"docs extract"_s, u"docs clone"_s, u"scan"_s });
}
