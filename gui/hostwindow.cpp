#include "hostwindow.h"

#include "demodata.h"
#include "globals.h"
#include "importcommonform.h"
#include "vehiclemask.h"

#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <memory>

using namespace Qt::StringLiterals;

HostWindow::HostWindow(const QString &database, QWidget *parent)
    : QMainWindow(parent)
{
    setWindowTitle(u"kxCommon – Formulare und Rahmen"_s);
    QMenu *forms = menuBar()->addMenu(u"&Formulare"_s);
    forms->addAction(u"&Kategorien eines Fahrzeugs (Kats) …"_s, this, showVehicleCategories);
    forms->addAction(u"Fahrzeugmaske mit &Mandantenrahmen …"_s, this, [this] {
        VehicleMask mask(this);
        mask.exec();
    });
    forms->addAction(u"&Straßenverzeichnis importieren (ORTE) …"_s, this, [this] {
        std::unique_ptr<TImportCommonForm> form(createDemoImportForm(this));
        form->exec();
    });
    forms->addSeparator();
    forms->addAction(u"&Beenden"_s, qApp, &QApplication::quit);
    auto *welcome = new QLabel(u"<h3>kxCommon</h3><p>Die Formulare und Rahmen des Pakets auf Beispieldaten.</p>"
                               u"<p>Angemeldet als <b>%1</b> (Mandanten %2).</p>"
                               u"<p>Im Menü <i>Formulare</i> öffnen sie sich so, wie ein Modul der Suite sie einbettet.</p>"_s
                                   .arg(User.Name.toHtmlEscaped(), User.Mandanten.toHtmlEscaped()),
                               this);
    welcome->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    welcome->setMargin(16);
    setCentralWidget(welcome);
    statusBar()->showMessage(u"Datenbank: "_s + database);
    resize(560, 300);
}
