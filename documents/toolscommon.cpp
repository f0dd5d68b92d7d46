// SPDX-License-Identifier: LGPL-2.1-or-later
#include "toolscommon.h"

#include "documentlauncher.h"
#include "globals.h"
#include "kxerror.h"
#include "log.h"
#include "ooxmlword.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "strtools.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QWidget>
#include <climits>

using namespace Qt::StringLiterals;

namespace {

const QStringList linkSchemes = { u"HTTP:"_s, u"FTP:"_s, u"MAILTO:"_s, u"CALLTO:"_s };

QWidget *mainWindow()
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return nullptr;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (widget->objectName() == u"MarvexMainForm"_s)
            return widget;
    return nullptr;
}

} // namespace

TWordApplicationFactory &wordApplicationFactory()
{
    static TWordApplicationFactory factory = [] { return std::make_unique<TOoxmlWordApplication>(); };
    return factory;
}

QString ShellExecuteErrorText(int code)
{
    switch (code) {
    case 0: return u"Zu wenig Speicher, ausführbare Datei war zerstört, Relokationswerte waren ungültig."_s;
    case 2: return u"Datei wurde nicht gefunden."_s;
    case 3: return u"Verzeichnis wurde nicht gefunden."_s;
    case 5:
    case 26:
        return u"Fehler beim gemeinsamen Zugriff auf eine Datei im Netz oder Fehler beim Zugriff auf eine gesperrte Datei im Netz."_s;
    case 8: return u"Zu wenig Speicher, um die Anwendung zu starten."_s;
    case 11: return u"Ungültige ausführbare Datei. Entweder keine Windows-Anwendung oder Fehler in der EXE-Datei."_s;
    case 27: return u"Typ der ausführbaren Datei unbekannt."_s;
    case 28: return u"The DDE transaction could not be completed because the request timed out."_s;
    case 29: return u"The DDE transaction failed."_s;
    case 30:
        return u"The Dynamic Data Exchange (DDE) transaction could not be completed because other DDE transactions were being processed."_s;
    case 31:
        return u"There is no application associated with the given file name extension. This error will also be returned if you attempt to print a file that is not printable."_s;
    case 32:
        return u"Ungültige dynamische Linkbibliothek (DLL).\n\rEine der DLLs, die benötigt wurde, um die Anwendung auszuführen, war beschädigt."_s;
    default: return u"Unbekannter Fehler (Fehlercode: %1)"_s.arg(code);
    }
}

void ShellExecuteAndSearchDokument(const QString &FileName, bool ShowError)
{
    int code = INT_MAX;
    const QString upper = FileName.toUpper();
    if (std::any_of(linkSchemes.begin(), linkSchemes.end(), [&](const QString &s) { return upper.contains(s); })) {
        code = documentLauncher().OpenLink(FileName);
    } else if (upper.contains(u".LDMV"_s)) {
        if (QFileInfo::exists(FileName))
            SendOpenRecord(u"10010"_s, u"[LKFILE]"_s + FileName);
        else
            code = 2;
    } else {
        const QString found = GetFileFromSearchPath(FileName);
        if (found.isEmpty()) {
            code = 2;
        } else {
            // Deliberate: what the launch of a found file returns is never reported.
            const QFileInfo file(found);
            documentLauncher().OpenFile(file.fileName(), file.absolutePath());
        }
    }
    if (ShowError && code <= 32)
        throw kx::Error(ShellExecuteErrorText(code));
}

void ShellExecuteAndSearchDokument(const QString &FileName, const QString &TableName, const QString &Sql)
{
    const QString upper = FileName.toUpper();
    if (!upper.contains(u".DOC"_s) && !upper.contains(u".DOT"_s)) {
        ShellExecuteAndSearchDokument(FileName, false);
        return;
    }
    const QString templateFile = GetFileFromSearchPath(FileName);
    if (templateFile.isEmpty())
        return;
    std::unique_ptr<TWordApplication> word = wordApplicationFactory()();
    if (const QString reason = word->CannotFill(templateFile); !reason.isEmpty()) {
        writeLog(kxLogDocuments(), u"Seriendruck: die Vorlage %1 wird nicht gefüllt: %2."_s.arg(templateFile, reason));
        return;
    }
    // The records come from one SELECT: the merge reads data and never changes or makes any.
    static const QRegularExpression select(u"^\\s*select\\s"_s, QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression into(u"\\binto\\b"_s, QRegularExpression::CaseInsensitiveOption);
    if (!select.match(Sql).hasMatch() || into.match(Sql).hasMatch())
        throw kx::DatabaseError(u"Der Seriendruck liest seine Datensätze nur mit einer SELECT-Anweisung (ohne INTO):\n%1"_s.arg(Sql), Sql);
    TCSqlQuery query;
    query.Connection = compSqlConnection;
    query.SQL.Add(Sql);
    query.Open();
    for (; !query.Eof(); query.Next()) {
        word->SetVisible(true);
        word->DocumentsAdd(templateFile);
        for (int f = 0; f < query.FieldCount(); ++f) {
            const TCQueryField field = query.Fields(f);
            const QString officeName = sqlGetValue(u"Select Officename from OfficeTableMapping where Tablename='"_s
                                                   + sqlConvertString(TableName.toUpper()) + u"' and Fieldname='"_s
                                                   + sqlConvertString(field.FieldName().toUpper()) + u"'"_s);
            try {
                TWordDocument *document = word->ActiveDocument();
                for (int i = 1; i <= document->FormFieldsCount(); ++i)
                    if (document->FormFieldName(i).toUpper() == officeName.toUpper())
                        document->SetFormFieldResult(i, field.AsString());
            } catch (const std::exception &) {
                // deliberate: a field the document refuses is passed over, the next one is tried
            }
        }
    }
    query.Close();
    word->Release();
}

void SendOpenRecord(const QString &Modul, const QString &Data)
{
    try {
        QWidget *window = mainWindow();
        if (!window)
            return;
        QFile request(QDir(cWorkPath.isEmpty() ? QDir::currentPath() : cWorkPath).filePath(u"Open.Def"_s));
        if (!request.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
            return;
        request.write((Modul + u'\n' + Data + u'\n').toUtf8());
        request.close();
        TOpenRecordEvent event;
        QCoreApplication::sendEvent(window, &event);
    } catch (const std::exception &) {
        // deliberate: the hand-off is silent in every failure
    }
}
