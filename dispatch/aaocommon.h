// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include <QString>
#include <QStringList>

// The parts of a street text: "Hauptstraße 12a/Hinterhaus".
struct KXCOMMON_CORE_EXPORT TAaoStrasseParts
{
    QString Strasse;
    QString Hausnummer;       // the digits of the house number
    QString HausnummerZusatz; // its other characters
    QString Zusatz;           // what followed the first "/"

    void Clear() { *this = TAaoStrasseParts(); }
    QString CompleteHausnummer() const { return Hausnummer + HausnummerZusatz; }
};

// The parts of an object text: "Musterort - Rathaus".
struct KXCOMMON_CORE_EXPORT TAaoObjektNameParts
{
    QString Prefix;
    QString Name;

    void Clear() { *this = TAaoObjektNameParts(); }
};

// The Id of the AAO rule for an alarm now, or empty. Places listed in "AAO_Orte" are not looked at.
KXCOMMON_CORE_EXPORT QString aaoGetID(QString Objekt, QString Einsatzort, QString Alarmkuerzel);
// The same for a date (short date text; unreadable means today) and a time text.
KXCOMMON_CORE_EXPORT QString aaoGetID(QString Objekt, QString Einsatzort, QString Alarmkuerzel, QString Datum, QString Uhrzeit);
// As the three-argument lookup; with UseObjektName, retried with the object's name without its
// prefix when that differs, and the retry's result is returned.
KXCOMMON_CORE_EXPORT QString aaoGetID(QString Objekt, QString Einsatzort, QString Alarmkuerzel, bool UseObjektName);
KXCOMMON_CORE_EXPORT QString aaoGetID(QString Objekt, QString Einsatzort, QString Alarmkuerzel, QString Datum, QString Uhrzeit,
                 bool UseObjektName);

// The weekday columns of "AAO", Monday first, spelled as the lookup writes them.
KXCOMMON_CORE_EXPORT const QStringList &aaoWeekdayColumns();

// The statements the lookups run (for the command line's --explain).
KXCOMMON_CORE_EXPORT QString aaoStatement(const QString &Objekt, const QString &Einsatzort, const QString &Alarmkuerzel);
KXCOMMON_CORE_EXPORT QString aaoStatement(const QString &Objekt, const QString &Einsatzort, const QString &Alarmkuerzel, const QString &Datum,
                     const QString &Uhrzeit);

KXCOMMON_CORE_EXPORT TAaoStrasseParts AaoSplitStrasse(QString Text);
KXCOMMON_CORE_EXPORT TAaoObjektNameParts AaoSplitObjektName(QString Text);
// The district of an address in the street directory "ORTE", or empty.
KXCOMMON_CORE_EXPORT QString AaoFindOrtsteil(QString Plz, QString Ort, QString Strasse, QString Hausnummer);

// The machine's network name.
KXCOMMON_CORE_EXPORT QString GetComputerName();
KXCOMMON_CORE_EXPORT QString GetFMSMonitorGlobalParamValue();
KXCOMMON_CORE_EXPORT QString GetFMSMonitorLocalParamValue();
KXCOMMON_CORE_EXPORT QString GetLumironGlobalParamValue();
KXCOMMON_CORE_EXPORT QString GetLumironLocalParamValue();
KXCOMMON_CORE_EXPORT bool IsDefaultSettingsAlreadyCopiedForLocalMachine();
KXCOMMON_CORE_EXPORT bool IsLumironDefaultSettingsAlreadyCopiedForLocalMachine();
KXCOMMON_CORE_EXPORT QString GetFMSMonitorParamValue();
KXCOMMON_CORE_EXPORT QString GetLumironParamValue();
