// SPDX-License-Identifier: LGPL-2.1-or-later
#include "frmplzortstrassecommon.h"

#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "tcedit.h"
#include "uierrors.h"
#include "germantexts.h"

#include <QGridLayout>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

TCEdit *addressEdit(QWidget *parent, const QString &name, const QString &caption, const QString &dataField)
{
    auto *edit = new TCEdit(parent);
    edit->setObjectName(name);
    edit->setCaption(caption);
    edit->setDataField(dataField);
    edit->setMenuName(name);
    edit->cEditStyle.SetStyle(dataField.isEmpty() ? ceNormal : cePlzOrtStr);
    return edit;
}

} // namespace

TfrmPlzOrtStrasse::TfrmPlzOrtStrasse(QWidget *parent)
    : QFrame(parent)
    , Strasse(addressEdit(this, u"Strasse"_s, u"Straße"_s, u"Strasse"_s))
    , Plz(addressEdit(this, u"Plz"_s, u"PLZ"_s, u"PLZ"_s))
    , Ort(addressEdit(this, u"Ort"_s, u"Ort"_s, u"Ort"_s))
    , Hausnummer(addressEdit(this, u"Hausnummer"_s, u"Hausnummer"_s, QString()))
    , DataQuery(new TCSqlQuery(this))
{
    kx::ui::loadGermanQtTexts();
    setObjectName(u"frmPlzOrtStrasse"_s);
    DataQuery->setObjectName(u"DataQuery"_s);
    DataQuery->Connection = compSqlConnection;
    Strasse->setTitle(u"Straße"_s);
    Strasse->setMenuName(u"Strasse"_s);
    Plz->setMenuName(u"PLZ"_s);
    Ort->setLabelWidth(133);
    Hausnummer->setLabelPosition(clpHide);

    // The handlers run as the application runs an event's handler: an error is shown, not lost.
    const auto connectHandler = [this](TCEdit *edit, void (TCEdit::*signal)(QObject *),
                                       void (TfrmPlzOrtStrasse::*handler)(QObject *)) {
        connect(edit, signal, this, [this, handler](QObject *sender) {
            if (m_active)
                kx::showErrors([&] { (this->*handler)(sender); });
        });
    };
    connectHandler(Strasse, &TCEdit::OnEnter, &TfrmPlzOrtStrasse::StrasseEnter);
    connectHandler(Plz, &TCEdit::OnEnter, &TfrmPlzOrtStrasse::PlzEnter);
    connectHandler(Plz, &TCEdit::OnChanged, &TfrmPlzOrtStrasse::PlzChanged);
    connectHandler(Plz, &TCEdit::OnAfterSelect, &TfrmPlzOrtStrasse::PlzAfterSelect);
    connectHandler(Ort, &TCEdit::OnEnter, &TfrmPlzOrtStrasse::OrtEnter);
    connectHandler(Ort, &TCEdit::OnChanged, &TfrmPlzOrtStrasse::OrtChanged);
    connectHandler(Ort, &TCEdit::OnAfterSelect, &TfrmPlzOrtStrasse::OrtAfterSelect);
    connectHandler(Hausnummer, &TCEdit::OnEnter, &TfrmPlzOrtStrasse::HausnummerEnter);

    // The design's tops 0 and 18 are two rows: postcode and town above, street and house number
    // below (a Qt edit is taller than 18 pixels, so the rows keep their order, not their pixels).
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    grid->addWidget(Plz, 0, 0);
    grid->addWidget(Ort, 0, 1);
    grid->addWidget(Strasse, 1, 0);
    grid->addWidget(Hausnummer, 1, 1);
}

void TfrmPlzOrtStrasse::Loaded()
{
    m_active = true;
    Hausnummer->setLabelPosition(clpLeft);
    Strasse->lineEdit()->setMinimumWidth(162);
    // Town names are the longest of the four; the town's box is not to be the narrowest.
    Ort->lineEdit()->setMinimumWidth(162);
    setTabOrder(Plz->lineEdit(), Ort->lineEdit());
    setTabOrder(Ort->lineEdit(), Strasse->lineEdit());
    setTabOrder(Strasse->lineEdit(), Hausnummer->lineEdit());
    for (TCEdit *edit : { Strasse, Plz, Ort, Hausnummer })
        edit->cEditStyle.SetStyle(ceHandlerList);
}

void TfrmPlzOrtStrasse::AddItems(TCEdit *Edit, const QString &Field, const QString &Cond1Field,
                                 const QString &Cond1Value, const QString &Cond2Field, const QString &Cond2Value)
{
    Edit->PickListClear();
    Edit->PickListAdd(QString());
    DataQuery->SQL.Clear();
    DataQuery->SQL.Add(u"SELECT DISTINCT "_s + Field + u" from Orte"_s);
    DataQuery->SQL.Add(u"Where 1=1"_s);
    if (!Cond1Value.isEmpty())
        DataQuery->SQL.Add(u"and "_s + Cond1Field + u"='"_s + sqlConvertString(Cond1Value) + u"'"_s);
    if (!Cond2Value.isEmpty())
        DataQuery->SQL.Add(u"and "_s + Cond2Field + u"='"_s + sqlConvertString(Cond2Value) + u"'"_s);
    DataQuery->SQL.Add(u"order by "_s + Field);
    DataQuery->Open();
    for (; !DataQuery->Eof(); DataQuery->Next())
        Edit->PickListAdd(DataQuery->Fields(0).AsString());
    DataQuery->Close();
}

void TfrmPlzOrtStrasse::PlzEnter(QObject *)
{
    AddItems(Plz, u"PLZ"_s, u"ORT"_s, Ort->Text(), QString(), QString());
}

void TfrmPlzOrtStrasse::OrtEnter(QObject *)
{
    AddItems(Ort, u"ORT"_s, u"PLZ"_s, Plz->Text(), QString(), QString());
}

void TfrmPlzOrtStrasse::StrasseEnter(QObject *)
{
    AddItems(Strasse, u"Strasse"_s, u"Ort"_s, Ort->Text(), u"PLZ"_s, Plz->Text());
}

void TfrmPlzOrtStrasse::HausnummerEnter(QObject *)
{
    // Deliberate: the town is no condition here, only street and postcode.
    AddItems(Hausnummer, u"Hausnummer"_s, u"Strasse"_s, Strasse->Text(), u"PLZ"_s, Plz->Text());
}

void TfrmPlzOrtStrasse::PlzAfterSelect(QObject *)
{
    if (!Plz->Text().isEmpty())
        return;
    Ort->setText(QString());
    AddItems(Plz, u"PLZ"_s, u"ORT"_s, Ort->Text(), QString(), QString());
}

void TfrmPlzOrtStrasse::OrtAfterSelect(QObject *)
{
    if (!Ort->Text().isEmpty())
        return;
    Plz->setText(QString());
    AddItems(Ort, u"ORT"_s, u"PLZ"_s, Plz->Text(), QString(), QString());
}

void TfrmPlzOrtStrasse::PlzChanged(QObject *)
{
    // Deliberate: the town is only checked against the directory's first town for the
    // postcode, never filled in from it. (An empty postcode asks nothing.)
    if (Plz->Text().isEmpty()
        || sqlGetValue(u"Select Ort from Orte Where plz='"_s + sqlConvertString(Plz->Text()) + u"'"_s) != Ort->Text()) {
        Ort->setText(QString());
        Strasse->setText(QString());
        Hausnummer->setText(QString());
        return;
    }
    checkStreet();
}

void TfrmPlzOrtStrasse::OrtChanged(QObject *)
{
    if (Ort->Text().isEmpty()) {
        Strasse->setText(QString());
        Hausnummer->setText(QString());
        Plz->setText(QString());
        return;
    }
    checkStreet();
}

void TfrmPlzOrtStrasse::checkStreet()
{
    // Deliberate: compared with the first street the directory returns, in no given order, so a
    // valid street that is not that one is cleared as well.
    const QString street = sqlGetValue(u"Select Strasse from Orte Where plz='"_s + sqlConvertString(Plz->Text()) + u"' and ort='"_s
                                       + sqlConvertString(Ort->Text()) + u"'"_s);
    if (street != Strasse->Text()) {
        Strasse->setText(QString());
        Hausnummer->setText(QString());
    }
}
