// SPDX-License-Identifier: LGPL-2.1-or-later
// kxcommon import, import-columns: the import run without a window.
#include "command.h"

#include "dataaccess.h"
#include "globals.h"
#include "importcommon.h"
#include "msgdlg.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonObject>
#include <QTextStream>

#include <memory>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// A progress bar on standard error, drawn only on a terminal and at most every 100 ms.
class TerminalProgress
{
public:
    TerminalProgress()
        : m_enabled(isatty(STDERR_FILENO) == 1)
    {
        m_clock.start();
    }
    void hook(TImportProgress &progress)
    {
        if (!m_enabled)
            return;
        progress.SetMaximum = [this](qint64 maximum) { m_maximum = maximum; m_position = 0; };
        progress.SetPosition = [this](qint64 position) { m_position = position; };
        progress.Step = [this] {
            ++m_position;
            if (m_clock.elapsed() >= 100 || m_position >= m_maximum) {
                m_clock.restart();
                draw();
            }
        };
    }
    ~TerminalProgress()
    {
        if (m_drawn)
            QTextStream(stderr) << '\n';
    }

private:
    void draw()
    {
        const qint64 lines = std::max<qint64>(m_maximum - 1, 1);
        const int percent = int(std::min<qint64>(100, m_position * 100 / lines));
        QTextStream(stderr) << '\r' << '[' << QString(percent / 4, u'#') << QString(25 - percent / 4, u' ') << "] "
                            << percent << " % (" << m_position << '/' << lines << " Zeilen)" << Qt::flush;
        m_drawn = true;
    }

    bool m_enabled;
    bool m_drawn = false;
    qint64 m_maximum = 0;
    qint64 m_position = 0;
    QElapsedTimer m_clock;
};

// The run's questions answered by the flags, its warnings on standard error; a warning that
// stops the run before anything is written becomes the command's error.
class ScriptedAnswers
{
public:
    explicit ScriptedAnswers(bool clear)
        : m_previous(setMsgDlgHandler([this, clear](const QString &text, TMsgDlgType type, unsigned, int) {
            if (text == u"Wollen Sie die bisherigen Daten leeren?"_s)
                return clear ? int(mrYes) : int(mrNo);
            if (text == u"Daten wirklich importieren?"_s || text == u"Sind Sie sich wirklich sicher?"_s)
                return int(mrYes);
            if (type == TMsgDlgType::mtWarning)
                m_warnings << QString(text).replace(u"\r\n"_s, u"\n"_s);
            return int(mrOk);
        }))
    {
    }
    ~ScriptedAnswers() { setMsgDlgHandler(m_previous); }
    const QStringList &warnings() const { return m_warnings; }

private:
    QStringList m_warnings;
    MsgDlgHandler m_previous;
};

CliOutput runImport(const CliContext &context)
{
    const CliArguments args(context, { u"def"_s }, { u"clear"_s, u"yes"_s });
    const QStringList &p = args.positional(2, u"TABELLE DATEI"_s);
    if (args.value(u"def"_s).isEmpty())
        throw CliUsageError{ u"--def DEFINITION.iDef fehlt: sie ordnet die Spalten der Datei den Feldern zu."_s };
    if (!args.has(u"yes"_s))
        throw CliUsageError{ u"Der Import schreibt in die Datenbank%1; zum Bestätigen --yes angeben."_s.arg(
            args.has(u"clear"_s) ? u" und leert vorher die Tabelle"_s : QString()) };

    const TImportDefinition definition = importReadDefinition(args.value(u"def"_s));
    const std::unique_ptr<TCDataAccess> table(importTableDefinition(p[0], nullptr));
    TImportRun run = importRunFor(table.get(), 0, definition, p[1]);
    run.OnAfterUpdateRecord = importAfterUpdateHook(table->Tablename);
    TerminalProgress progress;
    progress.hook(run.Progress);
    ScriptedAnswers answers(args.has(u"clear"_s));
    run.Execute();

    const TImportSummary &s = run.summary();
    if (!s.Started)
        throw CliInputError{ answers.warnings().value(0, u"Der Import wurde nicht gestartet."_s) };
    QJsonArray errors;
    QString text = u"%1: %2 gelesen, %3 angelegt, %4 geändert, %5.\n"_s.arg(
        table->Tablename, cliCount(s.LinesRead, u"Zeile"_s, u"Zeilen"_s), cliCount(s.RowsInserted, u"Zeile"_s, u"Zeilen"_s),
        cliCount(s.RowsUpdated, u"vorhandene Zeile"_s, u"vorhandene Zeilen"_s),
        cliCount(s.Statements, u"Anweisung"_s, u"Anweisungen"_s));
    for (const TImportColumnError &e : s.ColumnErrors) {
        errors.append(QJsonObject{ { u"line"_s, e.Line }, { u"field"_s, e.Caption }, { u"error"_s, e.Error } });
        text += u"Zeile %1, %2: %3\n"_s.arg(e.Line).arg(e.Caption, e.Error.section(u'\n', 0, 0));
    }
    if (!context.json)
        for (const QString &warning : answers.warnings())
            QTextStream(stderr) << warning << '\n';
    return { QJsonObject{ { u"table"_s, table->Tablename },
                          { u"file"_s, p[1] },
                          { u"cleared"_s, args.has(u"clear"_s) },
                          { u"linesRead"_s, s.LinesRead },
                          { u"rowsInserted"_s, s.RowsInserted },
                          { u"rowsUpdated"_s, s.RowsUpdated },
                          { u"statements"_s, s.Statements },
                          { u"columnErrors"_s, errors } },
             text };
}

CliOutput importColumns(const CliContext &context)
{
    const QString file = CliArguments(context, {}, {}).positional(1, u"DATEI"_s)[0];
    if (!importFileExists(file))
        throw CliInputError{ u"Die Datei \"%1\" gibt es nicht."_s.arg(file) };
    QJsonArray json;
    QString text;
    const QStringList columns = importFileColumns(file);
    for (qsizetype n = 1; n <= columns.size(); ++n) {
        json.append(QJsonObject{ { u"column"_s, qint64(n) }, { u"key"_s, importColumnKey(n) },
                                 { u"content"_s, columns[n - 1] } });
        text += u"%1  %2\n"_s.arg(n, 3).arg(columns[n - 1]);
    }
    return { json, text };
}

} // namespace

void registerImportCommands()
{
    registerCommand({ u"import"_s, u"TABELLE DATEI --def DEFINITION.iDef [--clear] --yes"_s,
                      u"Importiert eine Datei mit Semikolon-getrennten Spalten nach einer Importdefinition."_s,
                      runImport });
    registerCommand({ u"import-columns"_s, u"DATEI"_s,
                      u"Zeigt die Spalten der ersten Zeile einer Importdatei, wie das Importformular sie anbietet."_s,
                      importColumns, false });
    cliDetails(u"import"_s,
               u"  TABELLE            Zieltabelle: eine Tabelle des Pakets (z. B. ORTE, AAO, Artikel) oder jede\n"
               u"                     andere Tabelle der Datenbank (Felder und Typen aus dem Katalog)\n"
               u"  DATEI              Textdatei, Spalten durch \";\" getrennt, UTF-8 oder Windows-1252; auch die\n"
               u"                     erste Zeile wird importiert\n"
               u"  --def DEFINITION.iDef  Zuordnung Feld=Spaltennummer aus dem Importformular; _Key1_ und _Key2_\n"
               u"                     wählen Schlüsselfeld und Schlüsselspalte (vorhandene Zeilen werden geändert)\n"
               u"  --clear            vorher alle Zeilen der Tabelle löschen\n"
               u"  --yes              bestätigt den Import (ohne --yes wird nichts geschrieben)\n"_s);
    cliDetails(u"import-columns"_s, u"  DATEI              die Importdatei\n"_s);
}
