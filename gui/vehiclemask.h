// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDialog>

class TCDataAccess;
class TCEdit;
class TfrmMandanten;

// A record mask as the vehicle module would build it: its own fields, the tenant frame
// embedded below them, and the button that opens the category dialog for the record.
class VehicleMask : public QDialog
{
    Q_OBJECT

public:
    explicit VehicleMask(QWidget *parent = nullptr);

    TCDataAccess *Data;
    TCEdit *Kennzeichen;
    TCEdit *Typ;
    TfrmMandanten *Mandanten;

};

// Shows the category dialog for the demo vehicle as the vehicle module does, and stores the
// ticks when it closes.
void showVehicleCategories();
