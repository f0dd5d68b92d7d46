// SPDX-License-Identifier: LGPL-2.1-or-later
#include "addressmask.h"

#include "frmplzortstrassecommon.h"
#include "tcedit.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

AddressMask::AddressMask(QWidget *parent)
    : QDialog(parent)
    , Name(new TCEdit(this))
{
    setWindowTitle(u"Person – Anschrift"_s);
    auto *person = new QGroupBox(u"Person"_s, this);
    auto *personLayout = new QVBoxLayout(person);
    Name->setCaption(u"Name"_s);
    Name->setText(u"Schneider, Katharina"_s);
    personLayout->addWidget(Name);
    auto *address = new QGroupBox(u"Anschrift"_s, this);
    auto *addressLayout = new QVBoxLayout(address);
    Anschrift = new TfrmPlzOrtStrasse(address);
    Anschrift->Loaded();
    addressLayout->addWidget(Anschrift);

    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(QDialogButtonBox::Close)->setText(u"Schließen"_s);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(person);
    layout->addWidget(address);
    layout->addStretch();
    layout->addWidget(buttons);
    resize(640, 260);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}
