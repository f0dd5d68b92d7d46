// SPDX-License-Identifier: LGPL-2.1-or-later
#include "katscommonform.h"

#include "dataaccess.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "tcdbtreeview.h"
#include "germantexts.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QToolBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

TKatsCommonForm::TKatsCommonForm(QWidget *owner)
    : QDialog(owner)
    , KatsTree(new TCDBTreeView(this))
    , ToolBar(new QToolBar(this))
    , DoClose(new QAction(u"Schließen"_s, this))
    , DataQuery(new TCSqlQuery(this))
    , KatsLinkDataAccess(new TCDataAccess(katsLinkTable(), this))
{
    kx::ui::loadGermanQtTexts();
    setObjectName(u"KatsCommonForm"_s);
    setWindowTitle(u"Kats"_s);
    KatsLinkDataAccess->setObjectName(u"KatsLinkDataAccess"_s);
    DataQuery->setObjectName(u"DataQuery"_s);
    KatsTree->setObjectName(u"KatsTree"_s);
    KatsTree->TreeName = u"KATS"_s;
    KatsTree->RootCaption = u"Kats-Plan"_s;
    KatsTree->CheckBoxes = true;
    DoClose->setObjectName(u"DoClose"_s);
    DoClose->setShortcut(Qt::Key_Escape);
    DoClose->setToolTip(u"Kategorien schließen"_s);
    DoClose->setIcon(style()->standardIcon(QStyle::SP_DialogCloseButton));
    ToolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    ToolBar->addAction(DoClose);
    auto *hint = new QLabel(u"Kategorien des Datensatzes ankreuzen; übergeordnete Kategorien zeigen, "
                            u"ob alle oder nur einige darunter gewählt sind."_s,
                            this);
    hint->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 0, 6, 6);
    layout->setMenuBar(ToolBar);
    layout->addWidget(hint);
    layout->addWidget(KatsTree);
    resize(380, 480);
    connect(DoClose, &QAction::triggered, this, &QDialog::close);
    FormCreate();
}

void TKatsCommonForm::FormCreate()
{
    appScaleForm(this);
    DataQuery->Connection = compSqlConnection;
}

TKatsCommonForm *Kats_Init(const QString &Modul)
{
    // Owned by the window that is active when the module asks for it (a dialog over that window,
    // gone with it), or top-level when there is none; Kats_DeInit frees it either way.
    auto *form = new TKatsCommonForm(QApplication::activeWindow());
    form->fTreeBuilt = false;
    form->fCheckStateLoaded = false;
    form->fModul = Modul;
    form->KatsTree->Connection = compSqlConnection;
    form->KatsTree->TableName = u"KatS"_s;
    form->KatsTree->TreeName = u"KatS"_s;
    form->KatsTree->Pattern = u"KatsPattern"_s;
    return form;
}

void Kats_ShowKats(TKatsCommonForm *Form, const QString &ID)
{
    const QString id = ID.isEmpty() ? u"-1"_s : ID;
    if (!Form->fTreeBuilt) {
        Form->KatsTree->BuildTreeComplett();
        Form->fTreeBuilt = true;
    }
    if (!Form->fCheckStateLoaded) {
        Form->KatsTree->LoadCheckState(id, Form->fModul);
        Form->fCheckStateLoaded = true;
    }
    Form->exec();
}

void Kats_SaveKats(TKatsCommonForm *Form, const QString &ID)
{
    if (Form->fCheckStateLoaded)
        Form->KatsTree->SaveCheckState(ID, Form->fModul, true);
}

void Kats_ResetKats(TKatsCommonForm *Form)
{
    Form->fCheckStateLoaded = false;
}

void Kats_DeInit(TKatsCommonForm *Form)
{
    delete Form;
}
