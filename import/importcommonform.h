// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include "importcommon.h"

#include <QDialog>
#include <QPointer>

class QAction;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;
class TCDataAccess;
class TCFileDialog;
class TCSqlQuery;

// The import form "Importieren": the importable fields of a table and its child tables on the
// left, the columns of the chosen file (with the first line as sample content) on the right;
// the user pairs them, keeps the pairing as an ".iDef" file and starts the run.
class KXCOMMON_EXPORT TImportCommonForm : public QDialog
{
    Q_OBJECT

public:
    explicit TImportCommonForm(QWidget *owner = nullptr);

    QLabel *DatabaseListCaptionLabel;
    QLabel *ImportListCaptionLabel;
    QTreeWidget *DatabaseColumnDefinitionList;
    QTreeWidget *ImportDefinitionList;
    QPushButton *AddRelationButton;
    QPushButton *RemoveRelationButton;
    QPushButton *OpenFileButton;
    QComboBox *DatabasePrimaryKeyEdit;
    QComboBox *ImportPrimaryKeyEdit;
    QPushButton *StartImportButton;
    QProgressBar *ProgressBar;
    TCFileDialog *OpenDialog1;
    TCFileDialog *SaveDialog1;
    TCFileDialog *OpenDialog2;
    TCSqlQuery *DataQuery;
    TCSqlQuery *dummyQuery;
    TCSqlQuery *UpdateQuery;
    QToolBar *ToolBar;
    QAction *DoNew;
    QAction *DoOpen;
    QAction *DoSave;

    // The table the form imports into; its child collection names the child tables.
    TCDataAccess *sourceDataAccess = nullptr;
    // -99: unit records (the field EINHEIT is offered, the unit pass runs).
    int Tag = 0;
    QList<std::pair<QString, QString>> TableList;
    TNotifyImportBeforeInsert FOnBeforeInsert;
    TNotifyImportAfterUpdateRecord FOnAfterUpdateRecord;
    void setOnBeforeInsert(TNotifyImportBeforeInsert handler) { FOnBeforeInsert = std::move(handler); }
    void setOnAfterUpdateRecord(TNotifyImportAfterUpdateRecord handler) { FOnAfterUpdateRecord = std::move(handler); }

    void FormShow();
    void FormClose();
    void AddImportTableFields(TCDataAccess *DataAccess, bool IsMain);
    void LoadColumnsFromFile(const QString &FileName);
    void OpenFileButtonClick();
    void AddRelationButtonClick();
    void RemoveRelationButtonClick();
    void DoNewExecute();
    void DoSaveExecute();
    void DoOpenExecute();
    // What DoOpen does with the chosen file: pairs, data file and keys from the definition. A
    // definition that names fields or columns that are not there is refused with a message and
    // changes nothing; false then.
    bool LoadDefinition(const QString &fileName);
    void StartImportButtonClick();

    // The list's rows as the run reads them.
    QList<TImportField> fields() const;
    // What the last run did.
    const TImportSummary &lastSummary() const { return m_summary; }

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void FormCreate();
    void addFieldRow(const TImportField &field);
    void setAssignedColumn(QTreeWidgetItem *row, const QString &column);
    TImportSummary m_summary;
    bool m_listed = false;
};

// Opens the import form for a table (modal) and returns when the user closes it.
KXCOMMON_EXPORT void ImportCommon_Execute(TCDataAccess *source, int tag = 0, QWidget *owner = nullptr);
