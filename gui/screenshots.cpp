// SPDX-License-Identifier: LGPL-2.1-or-later
#include "screenshots.h"

#include "addressmask.h"
#include "demodata.h"
#include "docmodicommon.h"
#include "docopencommon.h"
#include "docsavecommon.h"
#include "docviewcommon.h"
#include "frmplzortstrassecommon.h"
#include "frmselecticoncommon.h"
#include "symbolsview.h"
#include "frmmandantencommon.h"
#include "importcommonform.h"
#include "katscommon.h"
#include "katscommonform.h"
#include "tcdbtreeview.h"
#include "tcedit.h"
#include "tcfiledialog.h"
#include "tcselecttomask.h"
#include "vehiclemask.h"

#include <QApplication>
#include <QTimer>
#include <QFileDialog>
#include <QCompleter>
#include <QLineEdit>
#include <QDir>
#include <QPainter>
#include <QPixmap>
#include <QElapsedTimer>
#include <QTreeView>
#include <QListView>
#include <QTreeWidget>
#include <QTextStream>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// Lets pending layout and paint events run so that a grab shows the finished window.
void settle(QWidget *widget)
{
    widget->show();
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
}

// A window frame with its title around a grabbed window, so that the picture reads as a window.
QPixmap framed(QWidget *window)
{
    const QPixmap content = window->grab();
    const int title = 26;
    QPixmap result(content.width() + 2, content.height() + title + 1);
    result.fill(QColor(0x5A, 0x5A, 0x5A));
    QPainter painter(&result);
    painter.fillRect(1, 1, content.width(), title - 1, QColor(0x3C, 0x4A, 0x5C));
    painter.setPen(Qt::white);
    QFont font = painter.font();
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QRect(10, 1, content.width() - 20, title - 1), Qt::AlignVCenter | Qt::AlignLeft,
                     window->windowTitle());
    painter.drawPixmap(1, title, content);
    return result;
}

bool save(const QPixmap &picture, const QString &folder, const QString &name)
{
    const QString path = QDir(folder).filePath(name + u".png"_s);
    const bool ok = picture.save(path);
    QTextStream(ok ? stdout : stderr) << (ok ? "geschrieben: " : "nicht geschrieben: ") << path << Qt::endl;
    return ok;
}

bool katsForm(const QString &folder)
{
    TKatsCommonForm *form = Kats_Init(demoModule);
    form->KatsTree->BuildTreeComplett();
    form->KatsTree->LoadCheckState(demoVehicle, demoModule);
    settle(form);
    const bool ok = save(framed(form), folder, u"TKatsCommonForm"_s);
    Kats_DeInit(form);
    return ok;
}

bool tenantFrame(const QString &folder)
{
    VehicleMask mask;
    mask.Mandanten->Mandant->setFocus();
    settle(&mask);
    const QPixmap maskPicture = framed(&mask);
    std::unique_ptr<TCSelectDialog> dialog(
        mask.Mandanten->MandantSelect->CreateDialog(&mask, mask.Mandanten->Mandant->Text()));
    settle(dialog.get());
    const QPixmap dialogPicture = framed(dialog.get());
    // The selection opens over the mask, below its tenant field, as it does on the desktop.
    const QPoint at(40, mask.Mandanten->mapTo(&mask, QPoint(0, mask.Mandanten->height())).y() + 34);
    QPixmap picture(qMax(maskPicture.width(), at.x() + dialogPicture.width()) + 8,
                    qMax(maskPicture.height(), at.y() + dialogPicture.height()) + 8);
    picture.fill(QColor(0xE8, 0xE8, 0xE8));
    QPainter painter(&picture);
    painter.drawPixmap(0, 0, maskPicture);
    painter.fillRect(QRect(at + QPoint(5, 5), dialogPicture.size()), QColor(0, 0, 0, 60));
    painter.drawPixmap(at, dialogPicture);
    painter.end();
    return save(picture, folder, u"TfrmMandanten"_s);
}

bool importForm(const QString &folder)
{
    std::unique_ptr<TImportCommonForm> form(createDemoImportForm(nullptr));
    settle(form.get());
    // As the user sees it after pairing: the street field and its column selected.
    form->DatabaseColumnDefinitionList->setCurrentItem(form->DatabaseColumnDefinitionList->topLevelItem(3));
    form->ImportDefinitionList->setCurrentItem(form->ImportDefinitionList->topLevelItem(3));
    settle(form.get());
    return save(framed(form.get()), folder, u"TImportCommonForm"_s);
}

// The address frame in a person's mask, the postcode field entered and its pick list open.
bool addressFrame(const QString &folder)
{
    AddressMask mask;
    settle(&mask);
    mask.activateWindow();
    mask.Anschrift->Ort->setText(u"Musterstadt"_s);
    mask.Anschrift->Plz->setFocus(); // fills the list: the postcodes of the town
    mask.Anschrift->Plz->setFocus();
    settle(&mask);
    mask.Anschrift->Plz->ShowPickList();
    QWidget *popup = mask.Anschrift->Plz->lineEdit()->completer()->popup();
    settle(popup);
    const QPixmap maskPicture = framed(&mask);
    const QPixmap popupPicture = popup->grab();
    // Below the postcode field, inside the framed picture (26 pixels of title, 1 of border).
    const QPoint at = mask.mapFromGlobal(popup->mapToGlobal(QPoint(0, 0))) + QPoint(1, 26);
    QPixmap picture(qMax(maskPicture.width(), at.x() + popupPicture.width() + 2),
                    qMax(maskPicture.height(), at.y() + popupPicture.height() + 2));
    picture.fill(QColor(0xE8, 0xE8, 0xE8));
    QPainter painter(&picture);
    painter.drawPixmap(0, 0, maskPicture);
    painter.fillRect(QRect(at + QPoint(3, 3), popupPicture.size()), QColor(0, 0, 0, 50));
    painter.drawPixmap(at, popupPicture);
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.drawRect(QRect(at, popupPicture.size()).adjusted(-1, -1, 0, 0));
    painter.end();
    popup->hide();
    return save(picture, folder, u"TfrmPlzOrtStrasse"_s);
}

// The icon selection with the vehicles and the hazards open, one vehicle selected.
bool iconSelection(const QString &folder)
{
    TfrmSelectIconForm form;
    TSymbolsView *view = form.fSymbolsView;
    for (const QString &category : view->Categories())
        view->SetCategoryExpanded(category, category == u"Fahrzeuge"_s || category == u"Gefahren"_s);
    for (int i = 0; i < view->Manager()->Count(); ++i) {
        TLumSheetItem *item = view->Manager()->Item(i);
        if (item->Texts.ByLanguage(u"de"_s)->GetName() == u"HLF"_s)
            view->SetSelectedItem(item);
    }
    settle(&form);
    return save(framed(&form), folder, u"TfrmSelectIconForm"_s);
}

// The document editor of the demo vehicle: three documents, the photo stored in the database.
bool documentEditor(const QString &folder)
{
    TDocModiCommonForm editor(demoDocumentTable);
    editor.SetUseBinaryDatabase(true);
    editor.MainDocumentSwitch = true;
    editor.LoadDocuments(demoVehicle);
    editor.DokumentList->setCurrentItem(editor.DokumentList->topLevelItem(0));
    settle(&editor);
    return save(framed(&editor), folder, u"TDocModiCommonForm"_s);
}

bool documentList(const QString &folder)
{
    TDocViewCommonForm list;
    list.ShowCommonDokuments(demoDocumentTable, demoVehicle);
    list.DocList->setCurrentItem(list.DocList->topLevelItem(1));
    settle(&list);
    return save(framed(&list), folder, u"TDocViewCommonForm"_s);
}

// A browser reads its folder in the background: waits for the entries, at most three seconds.
void waitForEntries(QAbstractItemView *list)
{
    QElapsedTimer clock;
    clock.start();
    while (list->model()->rowCount(list->rootIndex()) == 0 && clock.elapsed() < 3000)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
}

// The save browser on the search path, its folder read, a picture's name taken into the name.
bool saveBrowser(const QString &folder)
{
    TDocSaveCommonForm browser;
    settle(&browser);
    waitForEntries(browser.ShellListView1);
    browser.SaveName->setText(u"Einsatzfoto 2.jpg"_s);
    settle(&browser);
    return save(framed(&browser), folder, u"TDocSaveCommonForm"_s);
}

// The open browser on the search path, its folder read and a document selected.
bool openBrowser(const QString &folder)
{
    TDocOpenCommonForm browser;
    settle(&browser);
    QAbstractItemView *list = browser.ShellListView1;
    waitForEntries(list);
    list->setCurrentIndex(list->model()->index(0, 0, list->rootIndex()));
    settle(&browser);
    return save(framed(&browser), folder, u"TDocOpenCommonForm"_s);
}

// The standard file dialog with the suite's filters: Qt's own texts in German.
bool fileDialog(const QString &folder)
{
    TCFileDialog open(TCFileDialog::Open);
    open.Filter = u"Alle Dateien|*.*|Bilder|*.jpg;*.png"_s;
    open.FileName = demoDocumentFolder().filePath(u"Einsatzfoto.jpg"_s);
    bool written = false;
    QTimer::singleShot(0, [&] {
        QFileDialog *dialog = open.dialog();
        settle(dialog);
        waitForEntries(dialog->findChild<QAbstractItemView *>(u"listView"_s));
        settle(dialog);
        written = save(framed(dialog), folder, u"TCFileDialog"_s);
        dialog->reject();
    });
    open.Execute();
    return written;
}

} // namespace

bool renderScreenshots(const QString &folder)
{
    QDir().mkpath(folder);
    bool written = true;
    for (bool (*render)(const QString &) : { katsForm, tenantFrame, importForm, addressFrame, iconSelection, documentList,
                                                         documentEditor, openBrowser, saveBrowser, fileDialog })
        written = render(folder) && written;
    return written;
}
