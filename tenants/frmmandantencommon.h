// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QFrame>

class QGroupBox;
class TCDataAccess;
class TCEdit;
class TCSelectToMask;

// The tenant frame of record masks: the group box "Mandant" with the tenant's name (chosen from
// the tenants the user may see) and, hidden, its key and code. New records start with the
// user's home tenant; only users with right 150 of module 0002 may change it.
class KXCOMMON_EXPORT TfrmMandanten : public QFrame
{
    Q_OBJECT

public:
    explicit TfrmMandanten(QWidget *parent = nullptr);

    QGroupBox *GroupBox;
    TCEdit *Mandant;
    TCEdit *IdMandant;
    TCEdit *MandantId;
    TCSelectToMask *MandantSelect;

    // Binds the three edits to the mask's data access: "MANDANT", "IDMANDANT", "MANDANTID".
    void Bind(TCDataAccess *dataAccess);
    // Runs once the embedding mask has bound the edits: the tenant field becomes mandatory, new
    // records default to the user's home tenant, and the right "[0002:150]" (or "[2:150]")
    // decides whether the tenant may be changed. Reads that fail leave the defaults empty.
    void Loaded();

    void MandantChanged(QObject *sender);
    void MandantSelectBeforeSelect(QObject *sender);
    void MandantSelectAfterSelect(QObject *sender);
    void LoadDefault();
};
