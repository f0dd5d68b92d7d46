// SPDX-License-Identifier: LGPL-2.1-or-later
#include "vehiclemask.h"

#include "dataaccess.h"
#include "demodata.h"
#include "frmmandantencommon.h"
#include "katscommon.h"
#include "kxerror.h"
#include "msgdlg.h"
#include "tcedit.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
TCTableDef vehicleTable()
{
    return { u"Fahrzeug"_s,
             { { u"ID"_s, u"Varchar(43)"_s, fIndex },
               { u"KENNZEICHEN"_s, u"Varchar(20)"_s, 0, u"Kennzeichen"_s },
               { u"TYP"_s, u"Varchar(40)"_s, 0, u"Fahrzeugtyp"_s },
               { u"MANDANT"_s, u"Varchar(80)"_s, 0, u"Mandant"_s },
               { u"IDMANDANT"_s, u"Numeric(10,0)"_s },
               { u"MANDANTID"_s, u"Varchar(40)"_s, fIndex } },
             {},
             standardRights() };
}
} // namespace

VehicleMask::VehicleMask(QWidget *parent)
    : QDialog(parent)
    , Data(new TCDataAccess(vehicleTable(), this))
    , Kennzeichen(new TCEdit(this))
    , Typ(new TCEdit(this))
    , Mandanten(new TfrmMandanten(this))
{
    setWindowTitle(u"Fahrzeug – Stammdaten"_s);
    auto *record = new QGroupBox(u"Fahrzeug"_s, this);
    auto *recordLayout = new QVBoxLayout(record);
    for (auto [edit, caption, field, text] : { std::tuple{ Kennzeichen, u"Kennzeichen"_s, u"KENNZEICHEN"_s, u"MS-FW 1201"_s },
                                               std::tuple{ Typ, u"Fahrzeugtyp"_s, u"TYP"_s, u"HLF 20"_s } }) {
        edit->setCaption(caption);
        edit->setDataAccess(Data);
        edit->setDataField(field);
        edit->setText(text);
        recordLayout->addWidget(edit);
    }
    Typ->cEditStyle.SetStyle(ceMenu);
    for (const QString &type : { u"HLF 20"_s, u"LF 10"_s, u"DLK 23/12"_s, u"RW"_s, u"ELW 1"_s })
        Typ->PickListAdd(type);

    // The mask binds the tenant frame to its data, then the frame loads; a new record takes the defaults.
    Mandanten->Bind(Data);
    Mandanten->Loaded();
    Mandanten->Mandant->LoadDefault();
    Mandanten->MandantId->LoadDefault();

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *categories = buttons->addButton(u"Kategorien …"_s, QDialogButtonBox::ActionRole);
    buttons->addButton(QDialogButtonBox::Close)->setText(u"Schließen"_s);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(record);
    layout->addWidget(Mandanten);
    layout->addStretch();
    layout->addWidget(buttons);
    resize(460, 300);
    connect(categories, &QPushButton::clicked, this, &showVehicleCategories);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void showVehicleCategories()
{
    TKatsCommonForm *form = Kats_Init(demoModule);
    try {
        Kats_ShowKats(form, demoVehicle);
        Kats_SaveKats(form, demoVehicle);
    } catch (const kx::Error &e) {
        MsgDlg(e.message(), TMsgDlgType::mtError, mbOK);
    }
    Kats_DeInit(form);
}
