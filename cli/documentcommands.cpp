// kxcommon open, merge: opening documents and links, and filling templates with records.
#include "command.h"

#include "documentlauncher.h"
#include "globals.h"
#include "kxerror.h"
#include "ooxmlword.h"
#include "toolscommon.h"

#include <QDir>
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
}
