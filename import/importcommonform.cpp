// SPDX-License-Identifier: LGPL-2.1-or-later
#include "importcommonform.h"

#include "dataaccess.h"
#include "globals.h"
#include "kxerror.h"
#include "listviewhooks.h"
#include "msgdlg.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "tcfiledialog.h"
#include "uierrors.h"
#include "germantexts.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShowEvent>
#include <QStyle>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int SubItemsRole = Qt::UserRole;

QPushButton *button(QWidget *parent, const QString &name, const QString &caption, const QString &hint)
{
    auto *b = new QPushButton(caption, parent);
    b->setObjectName(name);
    b->setToolTip(hint);
    return b;
}

QAction *action(QObject *parent, const QString &name, const QString &caption, const QString &hint, QStyle::StandardPixmap icon)
{
    auto *a = new QAction(qApp->style()->standardIcon(icon), caption, parent);
    a->setObjectName(name);
    a->setToolTip(hint);
    return a;
}

QComboBox *keyEdit(QWidget *parent, const QString &name)
{
    auto *combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    return combo;
}

} // namespace

TImportCommonForm::TImportCommonForm(QWidget *owner)
    : QDialog(owner)
    , DatabaseListCaptionLabel(new QLabel(u"Felder Datenbank"_s, this))
    , ImportListCaptionLabel(new QLabel(u"zu Importierende Daten"_s, this))
    , DatabaseColumnDefinitionList(createReportList(this, u"DatabaseColumnDefinitionList"_s,
                                              { u"Datenfeld"_s, u"Zugeordnete Spalte"_s }, { 250, 150 }))
    , ImportDefinitionList(createReportList(this, u"ImportDefinitionList"_s, { u"Spalte"_s, u"Inhalt"_s }, { 60, 280 }))
    , AddRelationButton(button(this, u"AddRelationButton"_s, u"<<"_s, u"Spalte dem Datenfeld zuordnen"_s))
    , RemoveRelationButton(button(this, u"RemoveRelationButton"_s, u">>"_s, u"Zuordnung des Datenfelds entfernen"_s))
    , OpenFileButton(button(this, u"OpenFileButton"_s, u"Datei öffnen"_s, u"Datei öffnen"_s))
    , DatabasePrimaryKeyEdit(keyEdit(this, u"DatabasePrimaryKeyEdit"_s))
    , ImportPrimaryKeyEdit(keyEdit(this, u"ImportPrimaryKeyEdit"_s))
    , StartImportButton(button(this, u"StartImportButton"_s, u"Daten importieren"_s, u"Daten importieren"_s))
    , ProgressBar(new QProgressBar(this))
    , OpenDialog1(new TCFileDialog(TCFileDialog::Open, this))
    , SaveDialog1(new TCFileDialog(TCFileDialog::Save, this))
    , OpenDialog2(new TCFileDialog(TCFileDialog::Open, this))
    , DataQuery(new TCSqlQuery(this))
    , dummyQuery(new TCSqlQuery(this))
    , UpdateQuery(new TCSqlQuery(this))
    , ToolBar(new QToolBar(this))
    , DoNew(action(this, u"DoNew"_s, u"Neu"_s, u"Zurücksetzen"_s, QStyle::SP_FileDialogNewFolder))
    , DoOpen(action(this, u"DoOpen"_s, u"Laden"_s, u"Definition laden"_s, QStyle::SP_DialogOpenButton))
    , DoSave(action(this, u"DoSave"_s, u"Speichern"_s, u"Definition speichern"_s, QStyle::SP_DialogSaveButton))
{
    kx::ui::loadGermanQtTexts();
    setObjectName(u"ImportCommonForm"_s);
    setWindowTitle(u"Importieren"_s);
    ProgressBar->setObjectName(u"ProgressBar"_s);
    // Its text tells the bar from an input field while it is empty.
    ProgressBar->setTextVisible(true);
    ProgressBar->setFormat(u"Fortschritt: %p %"_s);
    ProgressBar->setFocusPolicy(Qt::NoFocus);
    ProgressBar->setValue(0);
    OpenDialog1->DefaultExt = u"CSV"_s;
    OpenDialog1->Filter = u"CSV Datei|*.csv"_s;
    for (TCFileDialog *dialog : { SaveDialog1, OpenDialog2 }) {
        dialog->DefaultExt = u"iDef"_s;
        dialog->Filter = u"Import Definition|*.iDef"_s;
    }
    for (TCFileDialog *dialog : { OpenDialog1, SaveDialog1, OpenDialog2 })
        dialog->SetHandle(this);
    OpenDialog1->setObjectName(u"OpenDialog1"_s);
    SaveDialog1->setObjectName(u"SaveDialog1"_s);
    OpenDialog2->setObjectName(u"OpenDialog2"_s);

    ToolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    ToolBar->addActions({ DoNew, DoOpen, DoSave });

    auto *pairing = new QVBoxLayout;
    pairing->addStretch();
    pairing->addWidget(AddRelationButton);
    pairing->addWidget(RemoveRelationButton);
    pairing->addStretch();
    auto *grid = new QGridLayout;
    grid->addWidget(DatabaseListCaptionLabel, 0, 0, 1, 2);
    grid->addWidget(ImportListCaptionLabel, 0, 3, 1, 2);
    grid->addWidget(DatabaseColumnDefinitionList, 1, 0, 1, 2);
    grid->addLayout(pairing, 1, 2);
    grid->addWidget(ImportDefinitionList, 1, 3, 1, 2);
    auto *databaseKeyLabel = new QLabel(u"Schlüsselfeld"_s, this);
    databaseKeyLabel->setBuddy(DatabasePrimaryKeyEdit);
    auto *importKeyLabel = new QLabel(u"Schlüsselfeld"_s, this);
    importKeyLabel->setBuddy(ImportPrimaryKeyEdit);
    grid->addWidget(databaseKeyLabel, 2, 0);
    grid->addWidget(DatabasePrimaryKeyEdit, 2, 1);
    grid->addWidget(importKeyLabel, 2, 3);
    grid->addWidget(ImportPrimaryKeyEdit, 2, 4);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(4, 1);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(OpenFileButton);
    bottom->addWidget(ProgressBar, 1);
    bottom->addWidget(StartImportButton);
    auto *layout = new QVBoxLayout(this);
    layout->setMenuBar(ToolBar);
    layout->addLayout(grid, 1);
    layout->addLayout(bottom);
    DatabaseColumnDefinitionList->setMinimumWidth(420);
    ImportDefinitionList->setMinimumWidth(360);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(3, 1);
    resize(960, 540);

    connect(AddRelationButton, &QPushButton::clicked, this, [this] { AddRelationButtonClick(); });
    connect(RemoveRelationButton, &QPushButton::clicked, this, [this] { RemoveRelationButtonClick(); });
    connect(ImportDefinitionList, &QTreeWidget::itemDoubleClicked, this, [this] { AddRelationButtonClick(); });
    connect(DatabaseColumnDefinitionList, &QTreeWidget::itemDoubleClicked, this, [this] { RemoveRelationButtonClick(); });
    kx::connectHandler(OpenFileButton, &QPushButton::clicked, this, &TImportCommonForm::OpenFileButtonClick);
    connect(StartImportButton, &QPushButton::clicked, this, [this] { StartImportButtonClick(); });
    connect(DoNew, &QAction::triggered, this, [this] { DoNewExecute(); });
    kx::connectHandler(DoOpen, &QAction::triggered, this, &TImportCommonForm::DoOpenExecute);
    kx::connectHandler(DoSave, &QAction::triggered, this, &TImportCommonForm::DoSaveExecute);
    FormCreate();
}

void TImportCommonForm::FormCreate()
{
    appScaleForm(this);
    for (TCSqlQuery *query : { DataQuery, dummyQuery, UpdateQuery })
        query->Connection = compSqlConnection;
    if (themeColors().Enabled) {
        RedrawHeader(DatabaseColumnDefinitionList);
        RedrawHeader(ImportDefinitionList);
    }
    setProgressBarBackgroundColor(ProgressBar);
}

void TImportCommonForm::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    // Deliberate: the fields are listed once; a host that fills the form before showing it (a
    // definition loaded, keys chosen) keeps what it filled. The tables, which closing the form
    // empties, are listed again at every showing, or the next run would import nothing.
    if (!m_listed)
        FormShow();
    else if (TableList.isEmpty() && sourceDataAccess)
        TableList = importSetup(sourceDataAccess, Tag).TableList;
}

void TImportCommonForm::closeEvent(QCloseEvent *event)
{
    FormClose();
    QDialog::closeEvent(event);
}

void TImportCommonForm::FormShow()
{
    m_listed = true;
    TableList.clear();
    DatabaseColumnDefinitionList->clear();
    DatabasePrimaryKeyEdit->clear();
    if (!sourceDataAccess)
        return;
    AddImportTableFields(sourceDataAccess, true);
    for (int i = 0; i < sourceDataAccess->DataAccessChilds.Count(); ++i)
        if (TCDataAccess *child = sourceDataAccess->DataAccessChilds.GetItem(i).DataAccess)
            AddImportTableFields(child, false);
}

void TImportCommonForm::FormClose()
{
    TableList.clear();
}

void TImportCommonForm::addFieldRow(const TImportField &field)
{
    auto *row = new QTreeWidgetItem(DatabaseColumnDefinitionList, { field.Caption, field.SubItems[0] });
    row->setData(0, SubItemsRole, field.SubItems);
}

void TImportCommonForm::AddImportTableFields(TCDataAccess *DataAccess, bool IsMain)
{
    for (const TImportField &field : importTableFields(DataAccess, IsMain, Tag)) {
        addFieldRow(field);
        if (IsMain)
            DatabasePrimaryKeyEdit->addItem(field.Caption);
    }
    DatabasePrimaryKeyEdit->setCurrentIndex(-1);
    TableList.append({ DataAccess->Tablename, IsMain ? u"TRUE"_s : u"FALSE"_s });
}

QList<TImportField> TImportCommonForm::fields() const
{
    QList<TImportField> list;
    for (int i = 0; i < DatabaseColumnDefinitionList->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *row = DatabaseColumnDefinitionList->topLevelItem(i);
        list.append({ row->text(0), row->data(0, SubItemsRole).toStringList() });
    }
    return list;
}

void TImportCommonForm::setAssignedColumn(QTreeWidgetItem *row, const QString &column)
{
    QStringList subItems = row->data(0, SubItemsRole).toStringList();
    subItems[TImportField::Column] = column;
    row->setData(0, SubItemsRole, subItems);
    row->setText(1, column);
}

void TImportCommonForm::LoadColumnsFromFile(const QString &FileName)
{
    ImportDefinitionList->clear();
    ImportPrimaryKeyEdit->clear();
    if (!importFileExists(FileName)) {
        MsgDlg(importMissingFileMessage(FileName), TMsgDlgType::mtWarning, mbOK);
        return;
    }
    const QStringList columns = importFileColumns(FileName);
    for (qsizetype n = 1; n <= columns.size(); ++n) {
        ImportPrimaryKeyEdit->addItem(importColumnKey(n));
        new QTreeWidgetItem(ImportDefinitionList, { QString::number(n), columns[n - 1] });
    }
    ImportPrimaryKeyEdit->setCurrentIndex(-1);
}

void TImportCommonForm::OpenFileButtonClick()
{
    if (OpenDialog1->Execute())
        LoadColumnsFromFile(OpenDialog1->FileName);
}

void TImportCommonForm::AddRelationButtonClick()
{
    QTreeWidgetItem *field = DatabaseColumnDefinitionList->currentItem();
    const QTreeWidgetItem *column = ImportDefinitionList->currentItem();
    if (field && column && field->isSelected() && column->isSelected())
        setAssignedColumn(field, column->text(0));
}

void TImportCommonForm::RemoveRelationButtonClick()
{
    QTreeWidgetItem *field = DatabaseColumnDefinitionList->currentItem();
    if (field && field->isSelected())
        setAssignedColumn(field, QString());
}

void TImportCommonForm::DoNewExecute()
{
    for (int i = 0; i < DatabaseColumnDefinitionList->topLevelItemCount(); ++i)
        setAssignedColumn(DatabaseColumnDefinitionList->topLevelItem(i), QString());
}

void TImportCommonForm::DoSaveExecute()
{
    if (!SaveDialog1->Execute())
        return;
    importWriteDefinition(SaveDialog1->FileName, fields(), OpenDialog1->FileName, DatabasePrimaryKeyEdit->currentText(),
                          ImportPrimaryKeyEdit->currentText());
    MsgDlg(u"Definition wurde gespeichert."_s, TMsgDlgType::mtInformation, mbOK);
}

void TImportCommonForm::DoOpenExecute()
{
    if (!OpenDialog2->Execute())
        return;
    if (LoadDefinition(OpenDialog2->FileName))
        MsgDlg(u"Definition wurde geladen."_s, TMsgDlgType::mtInformation, mbOK);
}

bool TImportCommonForm::LoadDefinition(const QString &fileName)
{
    // Read and checked before anything changes: a file that cannot be read, or one that names
    // fields or columns that are not there, leaves the pairing as it was.
    const TImportDefinition definition = importReadDefinition(fileName);
    const QString dataFile = definition.value(u"_File_"_s);
    const QStringList problems =
        importDefinitionProblems(fields(), definition, importFileExists(dataFile) ? importFileColumns(dataFile).size() : -1);
    if (!problems.isEmpty()) {
        MsgDlg(u"Die Definition wurde nicht geladen:\r\n"_s + problems.join(u"\r\n"_s), TMsgDlgType::mtWarning, mbOK);
        return false;
    }
    DoNewExecute();
    for (int i = 0; i < DatabaseColumnDefinitionList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = DatabaseColumnDefinitionList->topLevelItem(i);
        setAssignedColumn(row, definition.value(row->text(0)));
    }
    OpenDialog1->FileName = definition.value(u"_File_"_s);
    if (!OpenDialog1->FileName.isEmpty())
        LoadColumnsFromFile(OpenDialog1->FileName);
    DatabasePrimaryKeyEdit->setCurrentText(definition.value(u"_Key1_"_s));
    ImportPrimaryKeyEdit->setCurrentText(definition.value(u"_Key2_"_s));
    return true;
}

void TImportCommonForm::StartImportButtonClick()
{
    TImportRun run;
    run.Sender = this;
    run.Fields = fields();
    run.TableList = TableList;
    run.MainTable = sourceDataAccess ? sourceDataAccess->Tablename : QString();
    run.FileName = OpenDialog1->FileName;
    run.DatabaseKey = DatabasePrimaryKeyEdit->currentText();
    run.ImportKey = ImportPrimaryKeyEdit->currentText();
    for (int i = 0; i < ImportPrimaryKeyEdit->count(); ++i)
        run.ImportKeyItems << ImportPrimaryKeyEdit->itemText(i);
    run.Tag = Tag;
    run.OnBeforeInsert = FOnBeforeInsert;
    run.OnAfterUpdateRecord = FOnAfterUpdateRecord;
    run.Progress.SetMaximum = [this](qint64 maximum) {
        ProgressBar->setRange(0, int(std::min<qint64>(maximum, std::numeric_limits<int>::max())));
    };
    run.Progress.SetPosition = [this](qint64 position) { ProgressBar->setValue(int(position)); };
    run.Progress.Step = [this] { ProgressBar->setValue(std::min(ProgressBar->value() + 1, ProgressBar->maximum())); };
    run.Progress.ProcessMessages = [] { QApplication::processEvents(); };
    run.Progress.BusyCursor = [] { QApplication::setOverrideCursor(Qt::WaitCursor); };
    run.Progress.DefaultCursor = [] { QApplication::restoreOverrideCursor(); };
    // Deliberate: an error outside the run's guarded places ends it with the error's message;
    // what was written stays, the closing message is not shown.
    kx::showErrors([&run] { run.Execute(); });
    m_summary = run.summary();
}

void ImportCommon_Execute(TCDataAccess *source, int tag, QWidget *owner)
{
    TImportCommonForm form(owner);
    form.sourceDataAccess = source;
    form.Tag = tag;
    form.exec();
}
