// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDialog>

class TCEdit;
class TfrmPlzOrtStrasse;

// A person's address as the persons module would build the mask: the name, and the address
// frame embedded below it.
class AddressMask : public QDialog
{
    Q_OBJECT

public:
    explicit AddressMask(QWidget *parent = nullptr);

    TCEdit *Name;
    TfrmPlzOrtStrasse *Anschrift;
};
