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
#include <QMessageBox>
#include <QTextStream>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationDisplayName(u"kxCommon"_s);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Zeigt die Formulare und Rahmen von kxCommon auf Beispieldaten."_s);
    parser.addHelpOption();
    parser.addOption({ u"db"_s, u"Verbindung: sqlite:PFAD, postgres://… oder firebird://… (Vorgabe: sqlite:kxcommon.db)"_s,
                       u"VERBINDUNG"_s, u"sqlite:kxcommon.db"_s });
    parser.addOption({ u"screenshots"_s, u"Schreibt jedes Formular als ORDNER/KLASSE.png und endet."_s, u"ORDNER"_s });
    parser.process(app);
    installWidgetHooks();
    cApplicationPath = QCoreApplication::applicationDirPath(); // where the symbol pack is looked for

    const QString database = parser.value(u"db"_s);
    try {
        compSqlConnection->Open(database);
        createDemoData();
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
