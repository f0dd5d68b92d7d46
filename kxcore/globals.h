// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>

// The platform's globals: paths, flags and the database kind, set by the host at start.
extern KXCOMMON_CORE_EXPORT QString cWorkPath;
extern KXCOMMON_CORE_EXPORT QString cApplicationPath;
extern KXCOMMON_CORE_EXPORT QStringList cSearchPathList;
// 0 = Firebird, 1 = Microsoft SQL Server, 2 = PostgreSQL and SQLite; set when the connection opens.
extern KXCOMMON_CORE_EXPORT int cDBSystem;
extern KXCOMMON_CORE_EXPORT bool cEnableBinarySave;
extern KXCOMMON_CORE_EXPORT bool cPlzOrtStrasseAsTriple;
// Path of the local INI file with the workstation's settings (symbols, scanner); read it with TCIniFile.
extern KXCOMMON_CORE_EXPORT QString cDatabaseIni;

// The signed-in user.
struct KXCOMMON_CORE_EXPORT TCUser
{
    QString Id;
    QString Name;
    QString Rights;                 // tokens such as "[0002:150]"
    bool NoMandantRestriction = false; // lifts every tenant restriction
    // The tenants the user may see, as the codes' list inside an SQL IN clause ("'FFM','FFM-N'").
    QString Mandanten;
};
extern KXCOMMON_CORE_EXPORT TCUser User;

// The owner of holder objects that are never shown: the running application object, or the
// platform's own owner when there is none (a command-line host, a test).
KXCOMMON_CORE_EXPORT QObject *applicationOwner();

// Scales a form to the screen; the widgets layer installs the scaler, non-widget holders are left as they are.
KXCOMMON_CORE_EXPORT void appScaleForm(QObject *form);
KXCOMMON_CORE_EXPORT void setFormScaler(std::function<void(QObject *)> scaler);
