// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>
#include <QStringList>

// The parts of a street text: "Hauptstraße 12a/Hinterhaus".
struct TAaoStrasseParts
{
    QString Strasse;
    QString Hausnummer;       // the digits of the house number
    QString HausnummerZusatz; // its other characters
    QString Zusatz;           // what followed the first "/"

    void Clear() { *this = TAaoStrasseParts(); }
    QString CompleteHausnummer() const { return Hausnummer + HausnummerZusatz; }
};

// The parts of an object text: "Musterort - Rathaus".
struct TAaoObjektNameParts
{
    QString Prefix;
    QString Name;

    void Clear() { *this = TAaoObjektNameParts(); }
};

// The Id of the AAO rule for an alarm now, or empty. Places listed in "AAO_Orte" are not looked at.
QString aaoGetID(QString Objekt, QString Einsatzort, QString Alarmkuerzel);
// The same for a date (short date text; unreadable means today) and a time text.
QString aaoGetID(QString Objekt, QString Einsatzort, QString Alarmkuerzel, QString Datum, QString Uhrzeit);
// As the three-argument lookup; with UseObjektName, retried with the object's name without its
// prefix when that differs, and the retry's result is returned.
QString aaoGetID(QString Objekt, QString Einsatzort, QString Alarmkuerzel, bool UseObjektName);
QString aaoGetID(QString Objekt, QString Einsatzort, QString Alarmkuerzel, QString Datum, QString Uhrzeit,
                 bool UseObjektName);

// The weekday columns of "AAO", Monday first, spelled as the lookup writes them.
const QStringList &aaoWeekdayColumns();

// The statements the lookups run (for the command line's --explain).
QString aaoStatement(const QString &Objekt, const QString &Einsatzort, const QString &Alarmkuerzel);
QString aaoStatement(const QString &Objekt, const QString &Einsatzort, const QString &Alarmkuerzel, const QString &Datum,
                     const QString &Uhrzeit);

TAaoStrasseParts AaoSplitStrasse(QString Text);
TAaoObjektNameParts AaoSplitObjektName(QString Text);
// The district of an address in the street directory "ORTE", or empty.
QString AaoFindOrtsteil(QString Plz, QString Ort, QString Strasse, QString Hausnummer);

// The machine's network name.
QString GetComputerName();
QString GetFMSMonitorGlobalParamValue();
QString GetFMSMonitorLocalParamValue();
QString GetLumironGlobalParamValue();
QString GetLumironLocalParamValue();
bool IsDefaultSettingsAlreadyCopiedForLocalMachine();
bool IsLumironDefaultSettingsAlreadyCopiedForLocalMachine();
QString GetFMSMonitorParamValue();
QString GetLumironParamValue();
