// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hostwindow.h"

#include "demodata.h"
#include "globals.h"
#include "importcommonform.h"
#include "vehiclemask.h"
#include "addressmask.h"
#include "docmodicommon.h"
#include "docopencommon.h"
#include "docviewcommon.h"
#include "parameter.h"
#include "frmselecticoncommon.h"
#include "symbolsview.h"
#include "uierrors.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

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
    forms->addAction(u"&Anschrift einer Person (PLZ, Ort, Straße) …"_s, this, [this] {
        AddressMask mask(this);
        mask.exec();
    });
    forms->addSeparator();
    forms->addAction(u"&Dokumente des Fahrzeugs (Liste) …"_s, this,
                     [] { kx::showErrors([] { ShowCommonDokuments(demoDocumentTable, demoVehicle); }); });
    forms->addAction(u"Dokumente des Fahrzeugs &bearbeiten …"_s, this, [this] {
        kx::showErrors([this] {
            TDocModiCommonForm editor(demoDocumentTable, this);
            editor.SetUseBinaryDatabase(true);
            editor.MainDocumentSwitch = true;
            editor.LoadDocuments(demoVehicle);
            editor.exec();
        });
    });
    forms->addAction(u"Dokument &hinzufügen (Suchpfade) …"_s, this, [this] { kx::showErrors([this] { chooseDocument(); }); });
    forms->addSeparator();
    forms->addAction(u"Symbol aus&wählen …"_s, this, [this] { kx::showErrors([this] { chooseSymbol(); }); });
    forms->addAction(u"Symbole der &Lagekarte …"_s, this, [this] { kx::showErrors([this] { showSymbols(); }); });
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

void HostWindow::chooseSymbol()
{
    QString name;
    TEvSymbolType type = evSymIsFromPak;
    QLabel picture;
    if (!TfrmSelectIconForm::SelectSymbol(this, name, type, &picture))
        return;
    // The choice is confirmed by the symbol's name, as the form showed it, not by its identifier.
    QString chosen = u"Gewählt: die Datei %1"_s.arg(name);
    if (type != evSymIsFile) {
        TSymbolsView symbols; // the symbols the selection form showed
        TLumSheetItem *item = symbols.Manager()->ItemByGuid(name);
        chosen = item ? u"Gewählt: das Symbol „%1“ (%2) der Symboldatei"_s.arg(symbols.NameOf(item), symbols.CategoryOf(item))
                      : u"Gewählt: ein Symbol der Symboldatei"_s;
    }
    QMessageBox box(QMessageBox::Information, u"Symbol auswählen"_s, chosen, QMessageBox::Ok, this);
    box.setIconPixmap(picture.pixmap());
    box.exec();
}

void HostWindow::chooseDocument()
{
    // The browser restricted to the search paths, as brigades that keep their documents on a
    // shared folder configure it.
    TCParameter settings;
    const bool before = settings.ReadBool(u"Settings\\Dokuments"_s, u"OnlyUseSearchPath"_s);
    settings.WriteBool(u"Settings\\Dokuments"_s, u"OnlyUseSearchPath"_s, true);
    QString path;
    const bool chosen = openCommonDocument(path);
    settings.WriteBool(u"Settings\\Dokuments"_s, u"OnlyUseSearchPath"_s, before);
    if (chosen)
        QMessageBox::information(this, u"Dokument hinzufügen"_s, u"Gewählt: "_s + path);
}

void HostWindow::showSymbols()
{
    QDialog dialog(this);
    dialog.setWindowTitle(u"Symbole der Lagekarte"_s);
    auto *language = new QComboBox(&dialog);
    language->addItem(u"Deutsch"_s, u"de"_s);
    language->addItem(u"English"_s, u"en"_s);
    auto *view = new TSymbolsView(&dialog);
    view->ApplyFilter(QString());
    connect(language, &QComboBox::currentIndexChanged, view,
            [view, language] { view->SetLanguageCode(language->currentData().toString()); });
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    buttons->button(QDialogButtonBox::Close)->setText(u"Schließen"_s);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto *layout = new QVBoxLayout(&dialog);
    layout->addWidget(language);
    layout->addWidget(view, 1);
    layout->addWidget(buttons);
    dialog.resize(520, 560);
    dialog.exec();
}
