// SPDX-License-Identifier: LGPL-2.1-or-later
#include "frmmandantencommon.h"

#include "dataaccess.h"
#include "globals.h"
#include "kxerror.h"
#include "sqltool.h"
#include "tcedit.h"
#include "tcselecttomask.h"
#include "germantexts.h"

#include <QGroupBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

TfrmMandanten::TfrmMandanten(QWidget *parent)
    : QFrame(parent)
    , GroupBox(new QGroupBox(u"Mandant"_s, this))
    , Mandant(new TCEdit(GroupBox))
    , IdMandant(new TCEdit(GroupBox))
    , MandantId(new TCEdit(GroupBox))
    , MandantSelect(new TCSelectToMask(this))
{
    kx::ui::loadGermanQtTexts();
    setObjectName(u"frmMandanten"_s);
    Mandant->setObjectName(u"Mandant"_s);
    Mandant->setCaption(u"Mandant"_s);
    Mandant->cEditStyle.SetStyle(ceFunction);
    Mandant->setSelectLink(MandantSelect);
    Mandant->setSelectKeyEnabled(false);
    IdMandant->setObjectName(u"IdMandant"_s);
    IdMandant->setCaption(u"IdMandant"_s);
    IdMandant->setLabelPosition(clpHide);
    MandantId->setObjectName(u"MandantId"_s);
    MandantId->setCaption(u"MandantId"_s);
    MandantId->setLabelPosition(clpHide);

    MandantSelect->setObjectName(u"MandantSelect"_s);
    MandantSelect->Caption = u"Mandant auswählen"_s;
    MandantSelect->TableName = u"Mandanten"_s;
    MandantSelect->LinkField = u"ID"_s;
    MandantSelect->MultiSelect = true;
    MandantSelect->ExactSelect = true;
    MandantSelect->Columns = { { u"Name1"_s, u"Name 1"_s, u"Varchar"_s, Mandant },
                               { u"Name2"_s, u"Name 2"_s, u"Varchar"_s, nullptr },
                               { u"Name3"_s, u"Name 3"_s, u"Varchar"_s, nullptr },
                               { u"ID"_s, u"ID"_s, u"Numeric"_s, IdMandant },
                               { u"Mandantid"_s, u"Mandantid"_s, u"Varchar"_s, MandantId } };

    auto *box = new QVBoxLayout(GroupBox);
    box->addWidget(Mandant);
    box->addWidget(IdMandant);
    box->addWidget(MandantId);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(GroupBox);

    connect(Mandant, &TCEdit::OnChanged, this, &TfrmMandanten::MandantChanged);
    connect(MandantSelect, &TCSelectToMask::BeforeSelect, this, &TfrmMandanten::MandantSelectBeforeSelect);
    connect(MandantSelect, &TCSelectToMask::AfterSelect, this, &TfrmMandanten::MandantSelectAfterSelect);
}

void TfrmMandanten::Bind(TCDataAccess *dataAccess)
{
    Mandant->setDataAccess(dataAccess);
    Mandant->setDataField(u"MANDANT"_s);
    IdMandant->setDataAccess(dataAccess);
    IdMandant->setDataField(u"IDMANDANT"_s);
    MandantId->setDataAccess(dataAccess);
    MandantId->setDataField(u"MANDANTID"_s);
}

void TfrmMandanten::Loaded()
{
    if (!Mandant->Bound())
        return;
    TCFieldDef *field = Mandant->Field();
    if (!field)
        return;
    // The tenant field is what the masks treat as mandatory.
    field->Required = true;
    Mandant->cEditStyle.SetMandatory(true);
    try {
        field->DefaultValue = sqlGetValue(u"Select HMANDANT from User_User Where Id='"_s + sqlConvertString(User.Id) + u"'"_s);
    } catch (const kx::Error &) {
    }
    try {
        if (TCFieldDef *codeField = MandantId->Field())
            codeField->DefaultValue = sqlGetValue(u"Select HMANDANTID from User_User Where Id='"_s + sqlConvertString(User.Id) + u"'"_s);
    } catch (const kx::Error &) {
    }
    // Right 150 of module 0002, written with or without leading zeros, lets the user change it.
    if (!User.NoMandantRestriction)
        field->Enabled = User.Rights.contains(u"[0002:150]"_s) || User.Rights.contains(u"[2:150]"_s);
    Mandant->ApplyField();
}

void TfrmMandanten::MandantChanged(QObject *)
{
    if (Mandant->Text().isEmpty())
        MandantId->setText(QString());
}

void TfrmMandanten::MandantSelectBeforeSelect(QObject *)
{
    MandantSelect->Filter.clear();
    if (!User.NoMandantRestriction)
        MandantSelect->Filter << u"Where Mandantid in ("_s + User.Mandanten + u")"_s;
}

void TfrmMandanten::MandantSelectAfterSelect(QObject *)
{
}

void TfrmMandanten::LoadDefault()
{
}
