// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

#include "dataaccess.h"

#include <QList>
#include <QMap>
#include <QString>

// The fee schedule tables of the suite's operations module, in the columns the fee calculation
// reads, and the writes that fill a schedule (for the command line, its demo and the tests).

// The three surcharge tables.
inline constexpr char16_t FlatSurcharges[] = u"gSchlussel_FKZulagen";
inline constexpr char16_t HourlyBeyond[] = u"gSchlussel_VKNach";
inline constexpr char16_t RateSurcharges[] = u"gSchlussel_VKZulagen";

// Creates or alters "gSchlussel", "gSchlussel_Ereignisse", "gSchlussel_Runden",
// "gSchlussel_Kosten" and the three surcharge tables.
KXCOMMON_CORE_EXPORT void fee_CreateTables();
// The definitions of the fee schedule's tables.
KXCOMMON_CORE_EXPORT QList<TCTableDef> fee_Tables();

// A schedule head under the given key (a new one when empty); returns its key.
KXCOMMON_CORE_EXPORT QString fee_AddSchedule(const QString &name, const QString &id = QString());
// An event of a schedule ("VORGABE" is the default); returns its key.
KXCOMMON_CORE_EXPORT QString fee_AddEvent(const QString &scheduleId, const QString &ereignis);
KXCOMMON_CORE_EXPORT void fee_AddRounding(const QString &scheduleId, int bisMinuten, int minuten, int stunden);
// The cost row of an event; Amounts maps cost columns ("FK_FWA_FW", "VK_FW_SVGV_SZ", "KM_SVGV_KT",
// ...) to their values, the others are 0. Returns its key.
KXCOMMON_CORE_EXPORT QString fee_AddCosts(const QString &eventId, const QMap<QString, double> &amounts);
// A surcharge row of a cost row in one of the three surcharge tables; Amounts maps "FWA_FW",
// "FW_SVGV_SZ", ... to values, the others are 0.
KXCOMMON_CORE_EXPORT void fee_AddSurcharge(const QString &table, const QString &costId, double anzahl, int calcMinuten,
                      const QMap<QString, double> &amounts);

struct KXCOMMON_CORE_EXPORT FeeSchedule
{
    QString id, bezeichnung;
};
// The schedule heads by key; the event names of one schedule by name.
KXCOMMON_CORE_EXPORT QList<FeeSchedule> fee_ReadSchedules();
KXCOMMON_CORE_EXPORT QStringList fee_ReadEvents(const QString &scheduleId);
KXCOMMON_CORE_EXPORT bool fee_ScheduleExists(const QString &scheduleId);

// A small schedule of the project's own making: events "BRAND", "TH" and "VORGABE", a rounding
// table, hourly and kilometre rates and 20 surcharge rows, under the key "MUSTERSTADT". Nothing is
// added when that schedule exists.
KXCOMMON_CORE_EXPORT QString fee_AddSampleSchedule();
