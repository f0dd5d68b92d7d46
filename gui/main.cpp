// SPDX-License-Identifier: LGPL-2.1-or-later
// kxcommon-gui: shows every form and frame of the package on demo data, as the suite's modules
// embed them; with --screenshots it renders them into pictures instead.
#include "demodata.h"
#include "globals.h"
#include "hostwindow.h"
#include "kxerror.h"
#include "screenshots.h"
#include "sqlconnection.h"
#include "widgethooks.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

// The host's own database, outside the current folder: the command line's default database there
// is a user's real one.
QString ownDemoDatabase()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    QDir().mkpath(folder);
    return u"sqlite:"_s + folder + u"/demo.db"_s;
}

enum class DemoData { Add, Leave, Quit };

// A database the user named is written to only when it is new or the user agrees: it may be a
// copy of a working one, and the demo adds thousands of streets, tenants and documents.
DemoData askForDemoData(const QCommandLineParser &parser, bool ownDatabase)
{
    if (parser.isSet(u"no-demo-data"_s))
        return DemoData::Leave;
    if (ownDatabase || parser.isSet(u"demo-data"_s) || hasDemoData() || compSqlConnection->GetTableNames().isEmpty())
        return DemoData::Add;
    const QString question = u"Die Datenbank enthält bereits Tabellen. Sollen die Beispieldaten (Straßenverzeichnis, "
                             u"Mandanten, Kategorien, Dokumente) hineingeschrieben werden?"_s;
    if (parser.isSet(u"screenshots"_s)) {
        QTextStream(stderr) << "kxcommon-gui: " << question
                            << u" Ohne --demo-data oder --no-demo-data wird nichts geschrieben."_s << Qt::endl;
        return DemoData::Quit;
    }
    QMessageBox box(QMessageBox::Question, u"kxCommon"_s, question);
    QPushButton *add = box.addButton(u"Beispieldaten hinzufügen"_s, QMessageBox::AcceptRole);
    QPushButton *leave = box.addButton(u"Ohne Beispieldaten öffnen"_s, QMessageBox::RejectRole);
    box.addButton(u"Abbrechen"_s, QMessageBox::DestructiveRole);
    box.setDefaultButton(leave);
    box.exec();
    if (box.clickedButton() == add)
        return DemoData::Add;
    return box.clickedButton() == leave ? DemoData::Leave : DemoData::Quit;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationDisplayName(u"kxCommon"_s);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Zeigt die Formulare und Rahmen von kxCommon auf Beispieldaten."_s);
    parser.addHelpOption();
    parser.addOption({ u"db"_s,
                       u"Verbindung: sqlite:PFAD, postgres://… oder firebird://… (Vorgabe: eine eigene Beispieldatenbank "
                       u"unter ~/.local/share/kxcommon-gui)"_s,
                       u"VERBINDUNG"_s });
    parser.addOption({ u"demo-data"_s, u"Schreibt die Beispieldaten ohne Rückfrage in die Datenbank."_s });
    parser.addOption({ u"no-demo-data"_s, u"Öffnet die Datenbank, ohne etwas hineinzuschreiben."_s });
    parser.addOption({ u"screenshots"_s, u"Schreibt jedes Formular als ORDNER/KLASSE.png und endet."_s, u"ORDNER"_s });
    parser.process(app);
    installWidgetHooks();
    // The host is a German program: Qt's own formats (a file's size and date in the file
    // dialog) follow. The package's SQL texts and its format settings do not depend on it.
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    // Where the symbol pack is looked for: beside the program in the build, in share/kxcommon
    // when installed.
    cApplicationPath = QCoreApplication::applicationDirPath();
    const QString installedData = cApplicationPath + u"/../share/kxcommon"_s;
    if (!QFileInfo::exists(cApplicationPath + u"/symbols.pak"_s) && QFileInfo::exists(installedData + u"/symbols.pak"_s))
        cApplicationPath = QDir(installedData).absolutePath();

    const bool ownDatabase = !parser.isSet(u"db"_s);
    const QString database = ownDatabase ? ownDemoDatabase() : parser.value(u"db"_s);
    try {
        compSqlConnection->Open(database);
        switch (askForDemoData(parser, ownDatabase)) {
        case DemoData::Add:
            createDemoData();
            break;
        case DemoData::Leave:
            prepareDemoSession();
            break;
        case DemoData::Quit:
            compSqlConnection->Close();
            return 1;
        }
    } catch (const kx::Error &e) {
        QTextStream(stderr) << "kxcommon-gui: " << e.message() << Qt::endl;
        if (!parser.isSet(u"screenshots"_s))
            QMessageBox::critical(nullptr, u"kxCommon"_s, e.message());
        return 1;
    }
    struct CloseConnection
    {
        ~CloseConnection() { compSqlConnection->Close(); }
    } closeConnection;
    if (parser.isSet(u"screenshots"_s))
        return renderScreenshots(parser.value(u"screenshots"_s)) ? 0 : 1;
    HostWindow window(database);
    window.show();
    return app.exec();
}
