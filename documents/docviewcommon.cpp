// SPDX-License-Identifier: LGPL-2.1-or-later
#include "docviewcommon.h"

#include "globals.h"
#include "listviewhooks.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "toolscommon.h"
#include "germantexts.h"

#include <QAction>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <memory>

using namespace Qt::StringLiterals;

TDocViewCommonForm::TDocViewCommonForm(QWidget *parent)
    : QDialog(parent)
    , DocList(createReportList(this, u"DocList"_s, { u"Bezeichnung"_s, u"Dokument"_s }, { 200, 260 }))
    , ToolBar(new QToolBar(this))
    , DoClose(new QAction(u"Schließen"_s, this))
    , DoOpen(new QAction(u"Öffnen"_s, this))
    , DataQuery(new TCSqlQuery(this))
{
    kx::ui::loadGermanQtTexts();
    setObjectName(u"DocViewCommonForm"_s);
    setWindowTitle(u"Dokumente"_s);
    DoClose->setObjectName(u"DoClose"_s);
    DoOpen->setObjectName(u"DoOpen"_s);
    DoClose->setToolTip(u"Schließen"_s);
    DoOpen->setToolTip(u"Dokument öffnen"_s);
    ToolBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    ToolBar->addAction(DoClose);
    ToolBar->addSeparator();
    ToolBar->addAction(DoOpen);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(ToolBar);
    layout->addWidget(DocList, 1);
    resize(480, 300);
    appScaleForm(this);
    DataQuery->Connection = compSqlConnection;
    connect(DoClose, &QAction::triggered, this, &QDialog::reject);
    connect(DoOpen, &QAction::triggered, this, &TDocViewCommonForm::DoOpenExecute);
    connect(DocList, &QTreeWidget::itemDoubleClicked, this, &TDocViewCommonForm::DoOpenExecute);
}

void TDocViewCommonForm::ShowCommonDokuments(const QString &TableName, const QString &ParentId)
{
    DataQuery->SQL.Clear();
    DataQuery->SQL.Add(u"Select * from "_s + TableName + u" Where idparent='"_s + sqlConvertString(ParentId) + u"'"_s);
    DataQuery->SQL.Add(u"Order by Bezeichnung"_s);
    fillFromQuery();
}

void TDocViewCommonForm::fillFromQuery()
{
    DataQuery->Open();
    for (; !DataQuery->Eof(); DataQuery->Next())
        new QTreeWidgetItem(DocList, { DataQuery->FieldByName(u"Bezeichnung"_s).AsString(),
                                       DataQuery->FieldByName(u"Dokument"_s).AsString() });
    DataQuery->Close();
}

void TDocViewCommonForm::DoOpenExecute()
{
    const QTreeWidgetItem *item = DocList->currentItem();
    if (!item || !item->isSelected())
        return;
    ShellExecuteAndSearchDokument(item->text(1), false);
}

void ShowCommonDokuments(const QString &TableName, const QString &ParentId)
{
    const auto form = std::make_unique<TDocViewCommonForm>();
    form->ShowCommonDokuments(TableName, ParentId);
    form->exec();
}
