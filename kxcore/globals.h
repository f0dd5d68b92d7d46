// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>

// The platform's globals: paths, flags and the database kind, set by the host at start.
extern QString cWorkPath;
extern QString cApplicationPath;
extern QStringList cSearchPathList;
// 0 = Firebird, 1 = Microsoft SQL Server, 2 = PostgreSQL and SQLite; set when the connection opens.
extern int cDBSystem;
extern bool cEnableBinarySave;
extern bool cPlzOrtStrasseAsTriple;
// Path of the local INI file with the workstation's settings (symbols, scanner); read it with TCIniFile.
extern QString cDatabaseIni;

// The signed-in user.
struct TCUser
{
    QString Id;
    QString Name;
    QString Rights;                 // tokens such as "[0002:150]"
    bool NoMandantRestriction = false; // lifts every tenant restriction
    // The tenants the user may see, as the codes' list inside an SQL IN clause ("'FFM','FFM-N'").
    QString Mandanten;
};
extern TCUser User;

// The owner of holder objects that are never shown: the running application object, or the
// platform's own owner when there is none (a command-line host, a test).
QObject *applicationOwner();

// Scales a form to the screen; the widgets layer installs the scaler, non-widget holders are left as they are.
void appScaleForm(QObject *form);
void setFormScaler(std::function<void(QObject *)> scaler);
