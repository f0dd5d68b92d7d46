// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QDialog>

class QAction;
class QToolBar;
class QTreeWidget;
class TCSqlQuery;

// "Dokumente": the documents of one record in a small list (name and document), the chosen
// one opened with its program. The statements paste the table and ids unescaped.
class KXCOMMON_EXPORT TDocViewCommonForm : public QDialog
{
    Q_OBJECT

public:
    explicit TDocViewCommonForm(QWidget *parent = nullptr);

    QTreeWidget *DocList;
    QToolBar *ToolBar;
    QAction *DoClose;
    QAction *DoOpen;
    TCSqlQuery *DataQuery;

    // Lists the rows of TableName whose idparent is ParentId, by name.
    void ShowCommonDokuments(const QString &TableName, const QString &ParentId);
    // Opens the selected entry's document (nothing when none is selected); the list stays.
    void DoOpenExecute();

protected:
    // Lists the rows of the statement DataQuery holds, then closes it.
    void fillFromQuery();
};

// Shows the documents of a record modally.
KXCOMMON_EXPORT void ShowCommonDokuments(const QString &TableName, const QString &ParentId);
