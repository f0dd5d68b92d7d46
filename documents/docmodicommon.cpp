// SPDX-License-Identifier: LGPL-2.1-or-later
#include "docmodicommon.h"

#include "binarydata.h"
#include "dataaccess.h"
#include "docsavecommon.h"
#include "docopencommon.h"
#include "documentdata.h"
#include "globals.h"
#include "inifile.h"
#include "listviewhooks.h"
#include "log.h"
#include "msgdlg.h"
#include "parameter.h"
#include "scanner.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "tcdirectoryselectdlg.h"
#include "tcedit.h"
#include "toolscommon.h"
#include "uierrors.h"
#include "germantexts.h"

#include <QAction>
#include <QCheckBox>
#include <QDate>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QMenu>
#include <QPushButton>
#include <QSet>
#include <QShowEvent>
#include <QTime>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int PairsRole = Qt::UserRole;

} // namespace

TDocModiCommonForm::TDocModiCommonForm(const QString &Table, QWidget *parent)
    : QDialog(parent)
    , DataAccess_Doc(new TCDataAccess(documentTableDef(Table), this))
    , Dokumente(new TCEdit(this))
    , DocBezeichnung(new TCEdit(this))
    , Button1(new QPushButton(u"Speichern unter …"_s, this))
    , ListPanel(new QWidget(this))
    , ToolBar(new QToolBar(ListPanel))
    , ToolButton121(new QAction(u"Öffnen"_s, this))
    , ToolButton3(new QAction(u"Scannen"_s, this))
    , DoAppend(new QAction(u"Neu"_s, this))
    , DoPost(new QAction(u"Übernehmen"_s, this))
    , DoDelete(new QAction(u"Löschen"_s, this))
    , DoClose(new QAction(u"Schließen"_s, this))
    , DoDeleteAll(new QAction(u"Alle löschen"_s, this))
    , DoFirst(new QAction(u"|◀"_s, this))
    , DoPrior(new QAction(u"◀"_s, this))
    , DoNext(new QAction(u"▶"_s, this))
    , DoLast(new QAction(u"▶|"_s, this))
    , DoSave(new QAction(u"Speichern"_s, this))
    , DoOpen(new QAction(u"Neu laden"_s, this))
    , DoPrint(new QAction(u"Drucken"_s, this))
    , DoExport(new QAction(u"Exportieren"_s, this))
    , DoCopy(new QAction(u"Kopieren"_s, this))
    , DokumentList(createReportList(ListPanel, u"DokumentList"_s, { u"Bezeichnung"_s, u"Dokument"_s, u"Ablage"_s },
                                    { 170, 250, 90 }))
    , MAINDOC(new QCheckBox(u"Hauptdokument"_s, this))
    , DokumentPopup(new QMenu(this))
    , Dokumentspeichern1(new QAction(u"Dokument speichern"_s, this))
    , Parameter(new TCParameter(this))
{
    kx::ui::loadGermanQtTexts();
    setObjectName(u"DocModiCommonForm"_s);
    setWindowTitle(u"Dokumente"_s);
    DataAccess_Doc->Connection = compSqlConnection;
    Dokumente->setObjectName(u"Dokumente"_s);
    Dokumente->setCaption(u"Dokument"_s);
    Dokumente->setDataAccess(DataAccess_Doc);
    Dokumente->setDataField(u"Dokument"_s);
    Dokumente->cEditStyle.SetStyle(ceFunction);
    DocBezeichnung->setObjectName(u"DocBezeichnung"_s);
    DocBezeichnung->setCaption(u"Bezeichnung"_s);
    DocBezeichnung->setDataAccess(DataAccess_Doc);
    DocBezeichnung->setDataField(u"Bezeichnung"_s);
    DocBezeichnung->setMenuName(u"DocBezeichnungVip"_s);
    DocBezeichnung->cEditStyle.SetStyle(ceMenu);
    for (const QString &name : { u"Einsatzbericht"_s, u"Fahrzeugbrief"_s, u"Prüfbericht"_s, u"Rechnung"_s, u"Foto"_s })
        DocBezeichnung->PickListAdd(name);
    MAINDOC->setObjectName(u"MAINDOC"_s);
    MAINDOC->setToolTip(u"Hauptdokument"_s);
    MAINDOC->hide();
    Dokumentspeichern1->setObjectName(u"Dokumentspeichern1"_s);
    DokumentPopup->addAction(Dokumentspeichern1);

    const QList<std::pair<QAction *, QString>> hints = {
        { ToolButton121, u"Dokument öffnen"_s }, { ToolButton3, u"Dokument scannen"_s },
        { DoAppend, u"Datensatz anlegen"_s },    { DoPost, u"Datensatz übernehmen"_s },
        { DoDelete, u"Datensatz löschen"_s },    { DoClose, u"Schließen"_s },
        { DoDeleteAll, u"Datensätze löschen"_s }, { DoFirst, u"Erster Datensatz"_s },
        { DoPrior, u"Vorheriger Datensatz"_s },  { DoNext, u"Nächster Datensatz"_s },
        { DoLast, u"Letzter Datensatz"_s },      { DoSave, u"Datensatz speichern"_s },
        { DoOpen, u"Datensatz öffnen"_s },       { DoPrint, u"Drucken"_s },
        { DoExport, u"Exportieren"_s },          { DoCopy, u"Kopieren"_s },
    };
    for (const auto &[action, hint] : hints)
        action->setToolTip(hint);
    ToolBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    ToolBar->addActions({ ToolButton121, ToolButton3 });
    ToolBar->addSeparator();
    ToolBar->addActions({ DoAppend, DoPost, DoDelete });
    ToolBar->addSeparator();
    ToolBar->addActions({ DoFirst, DoPrior, DoNext, DoLast });
    ToolBar->addSeparator();
    ToolBar->addAction(DoDeleteAll);
    // The record's own actions in one menu, so that the tool bar keeps its width.
    auto *recordMenu = new QMenu(this);
    recordMenu->addActions({ DoSave, DoOpen });
    recordMenu->addSeparator();
    recordMenu->addActions({ DoPrint, DoExport, DoCopy });
    auto *recordButton = new QToolButton(ToolBar);
    recordButton->setObjectName(u"RecordButton"_s);
    recordButton->setText(u"Datensatz"_s);
    recordButton->setToolTip(u"Datensatz speichern, öffnen, drucken, exportieren, kopieren"_s);
    recordButton->setMenu(recordMenu);
    recordButton->setPopupMode(QToolButton::InstantPopup);
    ToolBar->addSeparator();
    ToolBar->addWidget(recordButton);
    addActions({ DoSave, DoOpen, DoPrint, DoExport, DoCopy }); // their shortcuts work in the form
    DoSave->setShortcut(QKeySequence::Save);
    DoPrint->setShortcut(QKeySequence::Print);
    DoFirst->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Home));
    DoPrior->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_PageUp));
    DoNext->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_PageDown));
    DoLast->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_End));
    auto *panel = new QVBoxLayout(ListPanel);
    panel->setContentsMargins(0, 0, 0, 0);
    panel->addWidget(ToolBar);
    panel->addWidget(DokumentList, 1);

    auto *path = new QHBoxLayout;
    path->addWidget(Dokumente, 1);
    path->addWidget(Button1);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(MAINDOC);
    buttons->addStretch(1);
    auto *close = new QPushButton(u"Schließen"_s, this);
    buttons->addWidget(close);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(path);
    layout->addWidget(DocBezeichnung);
    layout->addWidget(ListPanel, 1);
    layout->addLayout(buttons);
    resize(680, 420);

    kx::connectHandler(ToolButton121, &QAction::triggered, this, &TDocModiCommonForm::ToolButton121Click);
    kx::connectHandler(ToolButton3, &QAction::triggered, this, &TDocModiCommonForm::ToolButton3Click);
    kx::connectHandler(DoAppend, &QAction::triggered, this, &TDocModiCommonForm::AppendRecord);
    kx::connectHandler(DoPost, &QAction::triggered, this, &TDocModiCommonForm::PostRecord);
    kx::connectHandler(DoDelete, &QAction::triggered, this, &TDocModiCommonForm::DeleteRecord);
    kx::connectHandler(DoClose, &QAction::triggered, this, &TDocModiCommonForm::DoCloseExecute);
    kx::connectHandler(DoDeleteAll, &QAction::triggered, this, &TDocModiCommonForm::DeleteAllRecords);
    connect(DoFirst, &QAction::triggered, this, [this] { MoveTo(0); });
    connect(DoPrior, &QAction::triggered, this, [this] { MoveTo(std::max(0, SelectedRow() - 1)); });
    connect(DoNext, &QAction::triggered, this, [this] { MoveTo(SelectedRow() + 1); });
    connect(DoLast, &QAction::triggered, this, [this] { MoveTo(RowCount() - 1); });
    kx::connectHandler(close, &QPushButton::clicked, this, &TDocModiCommonForm::DoCloseExecute);
    kx::connectHandler(Dokumentspeichern1, &QAction::triggered, this, &TDocModiCommonForm::Dokumentspeichern1Click);
    kx::connectHandler(DoSave, &QAction::triggered, this, &TDocModiCommonForm::SaveRecord);
    kx::connectHandler(DoOpen, &QAction::triggered, this, &TDocModiCommonForm::OpenRecord);
    kx::connectHandler(DoPrint, &QAction::triggered, this, &TDocModiCommonForm::PrintList);
    connect(DoExport, &QAction::triggered, this, [this] { kx::showErrors([this] { ExportList(); }); });
    kx::connectHandler(DoCopy, &QAction::triggered, this, &TDocModiCommonForm::CopyList);
    kx::connectHandler(Button1, &QPushButton::clicked, this, &TDocModiCommonForm::Button1Click);
    kx::connectHandler(DokumentList, &QTreeWidget::itemDoubleClicked, this, &TDocModiCommonForm::DokumentListDblClick);
    kx::connectHandler(DokumentList, &QTreeWidget::itemSelectionChanged, this, &TDocModiCommonForm::rowSelected);
    kx::connectHandler(Dokumente, &TCEdit::OnDropDown, this, &TDocModiCommonForm::DokumenteDropDown);
    FormCreate();
}

void TDocModiCommonForm::FormCreate()
{
    appScaleForm(this);
    MainDocumentSwitch = false;
}

void TDocModiCommonForm::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        FormShow();
}

void TDocModiCommonForm::FormShow()
{
    MAINDOC->setVisible(MainDocumentSwitch);
    if (MainDocumentSwitch)
        ListPanel->setMinimumHeight(235); // the design's height for the list with the check box
}

void TDocModiCommonForm::DoCloseExecute()
{
    close();
}

int TDocModiCommonForm::RowCount() const
{
    return DokumentList->topLevelItemCount();
}

kx::NameValues TDocModiCommonForm::Row(int index) const
{
    return kx::NameValues(DokumentList->topLevelItem(index)->data(0, PairsRole).toStringList());
}

void TDocModiCommonForm::SetRow(int index, const kx::NameValues &pairs)
{
    QTreeWidgetItem *item = DokumentList->topLevelItem(index);
    item->setData(0, PairsRole, pairs.Lines());
    item->setText(0, pairs.Value(u"BEZEICHNUNG"_s));
    item->setText(1, pairs.Value(u"DOKUMENT"_s));
    item->setText(2, pairs.Value(RealMark) == u"1"_s ? u"Datenbank"_s : u"Datei"_s);
}

QTreeWidgetItem *TDocModiCommonForm::addRow(const kx::NameValues &pairs)
{
    auto *item = new QTreeWidgetItem(DokumentList);
    SetRow(DokumentList->indexOfTopLevelItem(item), pairs);
    return item;
}

int TDocModiCommonForm::SelectedRow() const
{
    const QList<QTreeWidgetItem *> selected = DokumentList->selectedItems();
    return selected.isEmpty() ? -1 : DokumentList->indexOfTopLevelItem(selected.first());
}

void TDocModiCommonForm::SetUseBinaryDatabase(bool Value)
{
    m_binary = Value;
    DokumentList->setContextMenuPolicy(Value ? Qt::ActionsContextMenu : Qt::NoContextMenu);
    if (Value)
        DokumentList->addAction(Dokumentspeichern1);
    else
        DokumentList->removeAction(Dokumentspeichern1);
    DataAccess_Doc->Fields.GetItemFromFieldname(u"DOKUMENT"_s)->SaveBinary = Value;
}

void TDocModiCommonForm::rowSelected()
{
    const int row = SelectedRow();
    if (row < 0)
        return;
    const kx::NameValues pairs = Row(row);
    Dokumente->setText(pairs.Value(u"DOKUMENT"_s));
    DocBezeichnung->setText(pairs.Value(u"BEZEICHNUNG"_s));
    MAINDOC->setChecked(pairs.Value(u"MAINDOC"_s) == u"1"_s);
}

void TDocModiCommonForm::ToolButton121Click()
{
    if (!m_binary || !cEnableBinarySave) {
        ShellExecuteAndSearchDokument(Dokumente->Text(), false);
        return;
    }
    const int row = SelectedRow();
    if (row < 0)
        return;
    const kx::NameValues pairs = Row(row);
    if (pairs.Value(RealMark) != u"1"_s) {
        ShellExecuteAndSearchDokument(Dokumente->Text(), false);
        return;
    }
    const QString path = ExtractBinaryData(pairs.Value(u"ID"_s), DataAccess_Doc->Tablename, u"Dokument"_s, cWorkPath);
    if (!path.isEmpty())
        ShellExecuteAndSearchDokument(path, false);
}

void TDocModiCommonForm::DokumentListDblClick()
{
    ToolButton121Click();
}

void TDocModiCommonForm::Dokumentspeichern1Click()
{
    const int row = SelectedRow();
    if (row < 0 || Row(row).Value(RealMark) != u"1"_s)
        return;
    TCDirectorySelectDlg folder(this);
    folder.SetHandle(this);
    if (!folder.Execute())
        return;
    ExtractBinaryData(Row(row).Value(u"ID"_s), DataAccess_Doc->Tablename, u"Dokument"_s, folder.Directory);
    MsgDlg(u"Datei wurde gespeichert."_s, TMsgDlgType::mtInformation, mbOK);
}

void TDocModiCommonForm::DokumenteDropDown()
{
    QString path;
    if (openCommonDocument(path))
        Dokumente->setText(path);
}

void TDocModiCommonForm::Button1Click()
{
    QString path;
    if (SaveCommonDocument(path))
        Dokumente->setText(path);
}

void TDocModiCommonForm::DataAccess_DoclvBeforePost()
{
    if (!MAINDOC->isChecked())
        return;
    for (int i = 0; i < RowCount(); ++i) {
        kx::NameValues pairs = Row(i);
        if (pairs.Value(u"MAINDOC"_s) != u"1"_s)
            continue;
        pairs.SetValue(u"MAINDOC"_s, u"0"_s);
        pairs.SetValue(ModiMark, u"1"_s);
        SetRow(i, pairs);
    }
}

void TDocModiCommonForm::AppendRecord()
{
    kx::NameValues pairs;
    pairs.SetValue(u"ID"_s, sqlGenIdValue());
    pairs.SetValue(u"IDPARENT"_s, m_parentId);
    pairs.SetValue(u"MAINDOC"_s, u"0"_s);
    pairs.SetValue(RealMark, u"0"_s);
    pairs.SetValue(ModiMark, u"1"_s);
    pairs.SetValue(NewMark, u"1"_s);
    DokumentList->setCurrentItem(addRow(pairs));
    Dokumente->setText(QString());
    DocBezeichnung->setText(QString());
    MAINDOC->setChecked(false);
}

void TDocModiCommonForm::PostRecord()
{
    int row = SelectedRow();
    if (row < 0) {
        AppendRecord();
        row = SelectedRow();
    }
    const QString bezeichnung = DocBezeichnung->Text(), dokument = Dokumente->Text();
    const bool mainDocument = MAINDOC->isChecked();
    DataAccess_DoclvBeforePost();
    kx::NameValues pairs = Row(row);
    pairs.SetValue(u"BEZEICHNUNG"_s, bezeichnung);
    pairs.SetValue(u"DOKUMENT"_s, dokument);
    pairs.SetValue(u"MAINDOC"_s, mainDocument ? u"1"_s : u"0"_s);
    pairs.SetValue(ModiMark, u"1"_s);
    SetRow(row, pairs);
    saveChangedRows();
}

void TDocModiCommonForm::DeleteRecord()
{
    const int row = SelectedRow();
    if (row < 0)
        return;
    const kx::NameValues pairs = Row(row);
    if (pairs.Value(NewMark) != u"1"_s) {
        const QString id = kx::sqlQuoted(pairs.Value(u"ID"_s));
        SqlExec(u"delete from "_s + DataAccess_Doc->Tablename + u" where ID="_s + id);
        if (pairs.Value(RealMark) == u"1"_s)
            SqlExec(u"delete from BinaryData where IDPARENT="_s + id + u" and TABLEPARENT="_s
                    + kx::sqlQuoted(DataAccess_Doc->Tablename.toUpper()));
    }
    delete DokumentList->takeTopLevelItem(row);
}

void TDocModiCommonForm::DeleteAllRecords()
{
    if (RowCount() == 0
        || MsgDlg(u"Alle %1 Dokumente dieses Datensatzes löschen?"_s.arg(RowCount()), TMsgDlgType::mtConfirmation, mbYesNo)
            != mrYes)
        return;
    while (RowCount() > 0) {
        DokumentList->setCurrentItem(DokumentList->topLevelItem(0));
        DeleteRecord();
    }
}

void TDocModiCommonForm::MoveTo(int row)
{
    if (row >= 0 && row < RowCount())
        DokumentList->setCurrentItem(DokumentList->topLevelItem(row));
}

