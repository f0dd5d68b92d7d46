// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "dataaccess.h"

#include <QDate>
#include <QString>
#include <optional>

// The dispatch module's tables in the columns the AAO lookup, the district lookup and the
// settings names read: "AAO", "AAO_Orte", the street directory "ORTE" and "sysparam"; and the
// writes that fill them (for the command line, its demo, the tests and the benchmark).

KXCOMMON_CORE_EXPORT void dispatch_CreateTables();
// The definitions of AAO, AAO_Orte, ORTE and sysparam.
KXCOMMON_CORE_EXPORT QList<TCTableDef> dispatch_Tables();

// A rule of "AAO". Restricted rules carry weekday flags (Monday first) and time and date windows.
struct KXCOMMON_CORE_EXPORT AaoRule
{
    QString alarmkuerzel;
    QString objekt;     // empty: every object
    QString einsatzort; // empty: every place
    bool restricted = false;
    bool weekdays[7] = { true, true, true, true, true, true, true };
    QString fromTime, toTime; // "hh:mm:ss", empty = open
    std::optional<QDate> fromDate, toDate;
    QString bezeichnung;
};
// Returns the rule's Id.
KXCOMMON_CORE_EXPORT QString dispatch_AddRule(const AaoRule &rule);
struct KXCOMMON_CORE_EXPORT AaoRuleRow
{
    QString id;
    AaoRule rule;
};
// Every rule of "AAO", by keyword and name.
KXCOMMON_CORE_EXPORT QList<AaoRuleRow> dispatch_ReadRules();
// The name (BEZEICHNUNG) of a rule; empty for an empty or unknown Id.
KXCOMMON_CORE_EXPORT QString dispatch_RuleName(const QString &ruleId);
// A further place of a rule.
KXCOMMON_CORE_EXPORT void dispatch_AddRulePlace(const QString &ruleId, const QString &einsatzort);

// A street of the directory. The search columns SELECTPLZ, SELECTORT and SELECTSTRASSE are
// filled with SqlGetSelectFieldValue, the same normalisation the look-ups use.
struct KXCOMMON_CORE_EXPORT OrtEntry
{
    QString plz, ort, ortsteil, strasse;
    std::optional<int> geradeVon, geradeBis, ungeradeVon, ungeradeBis;
    QString hausnummer; // a row per house number, where the directory lists them
};
KXCOMMON_CORE_EXPORT void dispatch_AddOrt(const OrtEntry &entry);
// Fills the search columns of a street row written by other means (the import) from its
// PLZ, ORT and STRASSE.
KXCOMMON_CORE_EXPORT void dispatch_UpdateOrtSelect(const QString &id);

// A settings row of that name.
KXCOMMON_CORE_EXPORT void dispatch_AddSysparam(const QString &p1);

// The sample data of the demo, of the project's own making: a few AAO rules and streets. Nothing
// is added when the sample rules are there.
KXCOMMON_CORE_EXPORT void dispatch_AddSampleData();
