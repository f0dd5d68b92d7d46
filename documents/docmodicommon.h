// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include "strtools.h"

#include <QDialog>

class QAction;
class QCheckBox;
class QMenu;
class QPushButton;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;
class QWidget;
class TCDataAccess;
class TCEdit;
class TCParameter;

// "Dokumente": the editor of one record's documents. Each list row carries its field values as
// name=value pairs and two markers: "_Real_" = "1" when its content is stored in the database,
// "_Modi_" = "1" when it was changed and is to be saved. Documents are opened with their
// programs, stored ones saved to a folder, paper scanned into JPEG files, and all rows copied to
// another record.
class KXCOMMON_EXPORT TDocModiCommonForm : public QDialog
{
    Q_OBJECT

public:
    // Table: the document table of the record kind (its definition is the documents' own).
    explicit TDocModiCommonForm(const QString &Table, QWidget *parent = nullptr);

    TCDataAccess *DataAccess_Doc;
    TCEdit *Dokumente;
    TCEdit *DocBezeichnung;
    QPushButton *Button1; // "Speichern unter …": a file name to save to
    QWidget *ListPanel;
    QToolBar *ToolBar;
    QAction *ToolButton121; // open
    QAction *ToolButton3;   // scan
    QAction *DoAppend, *DoPost, *DoDelete, *DoClose;
    QAction *DoDeleteAll, *DoFirst, *DoPrior, *DoNext, *DoLast; // in the list's record menu
    // "Datensatz speichern", "Datensatz öffnen", print, export and copy of the list. Direct
    // print, change log, mask administration and "Sammeländerung" are the embedding module's,
    // which owns the record, its reports and its masks.
    QAction *DoSave, *DoOpen, *DoPrint, *DoExport, *DoCopy;
    QTreeWidget *DokumentList;
    QCheckBox *MAINDOC;
    QMenu *DokumentPopup;
    QAction *Dokumentspeichern1;
    TCParameter *Parameter;
    // The main-document switch, set by the embedding code before the form is shown.
    bool MainDocumentSwitch = false;

    // Lists the documents of a record.
    void LoadDocuments(const QString &ParentId);
    QString ParentId() const { return m_parentId; }
    // Binary storage: the list's pop-up menu and the DOKUMENT field's binary save follow it.
    void SetUseBinaryDatabase(bool Value);
    bool UseBinaryDatabase() const { return m_binary; }
    // Copies every row of the list to the record NewParentId.
    void CloneDocuments(const QString &NewParentId);

    // The markers of a list row: content in the database, changed, not yet in the table.
    static inline const QString RealMark = QStringLiteral("_Real_");
    static inline const QString ModiMark = QStringLiteral("_Modi_");
    static inline const QString NewMark = QStringLiteral("_New_");
    // The list's rows as their pairs, markers included.
    kx::NameValues Row(int index) const;
    void SetRow(int index, const kx::NameValues &pairs);
    int RowCount() const;
    // The selected row, or -1.
    int SelectedRow() const;

    void ToolButton121Click();
    void DokumentListDblClick();
    void Dokumentspeichern1Click();
    void ToolButton3Click();
    void DokumenteDropDown();
    void Button1Click();
    void DataAccess_DoclvBeforePost();
    void FormShow();
    void DoCloseExecute();
    // The record actions of the list: a new row, the edits taken into the selected row and every
    // changed row saved, the selected row deleted.
    void AppendRecord();
    void PostRecord();
    void DeleteRecord();
    // Deletes every document of the record, after asking.
    void DeleteAllRecords();
    // Moves the selection (first, previous, next, last row).
    void MoveTo(int row);
    // Saves every changed row of the record.
    void SaveRecord();
    // Reads the record's documents again; changes not saved are dropped after asking.
    void OpenRecord();
    // The list as text: a header line and one line per row, the columns separated by Separator.
    QString ListText(QChar Separator) const;
    // The list as a PDF file in the temporary folder, opened with the desktop's program to print.
    void PrintList();
    // The list into a semicolon-separated file the user chooses (File given: without asking).
    void ExportList(const QString &File = QString());
    // The list to the clipboard, tab-separated.
    void CopyList();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void FormCreate();
    void rowSelected();
    // The list's header and rows, cell by cell, as shown.
    QList<QStringList> listCells() const;
    void saveChangedRows();
    QTreeWidgetItem *addRow(const kx::NameValues &pairs);
    QString m_parentId;
    bool m_binary = false;
};
