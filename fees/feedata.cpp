// SPDX-License-Identifier: LGPL-2.1-or-later
#include "feedata.h"

#include "dataaccess.h"
#include "sqlconnection.h"
#include "sqltool.h"

using namespace Qt::StringLiterals;

namespace {

const QString key = u"Varchar(33)"_s;
const QString money = u"Numeric(15,2)"_s;
const QString whole = u"Numeric(10,0)"_s;
const QStringList legs{ u"FWA_FW"_s, u"FWA_FW_SZ"_s, u"FW_SVGV"_s, u"FW_SVGV_SZ"_s, u"SVGV_KT"_s, u"SVGV_KT_SZ"_s };

QList<TCFieldDef> amountColumns(const QString &prefix)
{
    QList<TCFieldDef> fields;
    for (const QString &leg : legs)
        fields << TCFieldDef{ prefix + leg, money };
    return fields;
}

QList<TCTableDef> tables()
{
    QList<TCFieldDef> costs{ { u"ID"_s, key, fUniqueIndex }, { u"IDEREIGNIS"_s, key, fIndex } };
    costs << amountColumns(u"FK_"_s) << amountColumns(u"VK_"_s);
    costs << TCFieldDef{ u"KM_FW_SVGV"_s, money } << TCFieldDef{ u"KM_SVGV_KT"_s, money };
    QList<TCTableDef> result{
        { u"gSchlussel"_s, { { u"ID"_s, key, fUniqueIndex }, { u"BEZEICHNUNG"_s, u"VarChar(80)"_s } }, {}, standardRights() },
        { u"gSchlussel_Ereignisse"_s,
          { { u"ID"_s, key, fUniqueIndex }, { u"IDPARENT"_s, key, fIndex }, { u"EREIGNIS"_s, u"VarChar(80)"_s } },
          {}, standardRights() },
        { u"gSchlussel_Runden"_s,
          { { u"ID"_s, key, fUniqueIndex }, { u"IDPARENT"_s, key, fIndex }, { u"BISMINUTEN"_s, whole },
            { u"MINUTEN"_s, whole }, { u"STUNDEN"_s, whole } },
          {}, standardRights() },
        { u"gSchlussel_Kosten"_s, costs, {}, standardRights() },
    };
    for (const char16_t *table : { FlatSurcharges, HourlyBeyond, RateSurcharges }) {
        QList<TCFieldDef> fields{ { u"ID"_s, key, fUniqueIndex }, { u"IDPARENT"_s, key, fIndex },
                                  { u"ANZAHL"_s, money }, { u"CALCMINUTEN"_s, whole } };
        fields << amountColumns(QString());
        result << TCTableDef{ QString::fromUtf16(table), fields, {}, standardRights() };
    }
    return result;
}

// Adds each listed column with its amount, every other one with 0.
void addAmounts(kx::SqlValueList &row, const QStringList &columns, const QMap<QString, double> &amounts)
{
    for (const QString &column : columns)
        row.add(column, sqlConvertFloat(amounts.value(column, 0)));
}

QString insertRow(const QString &table, kx::SqlValueList &row, QString id = QString())
{
    if (id.isEmpty())
        id = sqlGenIdValue();
    row.set(u"ID"_s, kx::sqlQuoted(id));
    SqlExec(SqlBuildInsertSql(table, row.pairs()));
    return id;
}

} // namespace

QList<TCTableDef> fee_Tables()
{
    return tables();
}

void fee_CreateTables()
{
    for (const TCTableDef &table : tables())
        alterOrCreateTable(table, compSqlConnection);
}

QString fee_AddSchedule(const QString &name, const QString &id)
{
    kx::SqlValueList row;
    row.add(u"ID"_s, QString()).addText(u"BEZEICHNUNG"_s, name);
    return insertRow(u"gSchlussel"_s, row, id);
}

QString fee_AddEvent(const QString &scheduleId, const QString &ereignis)
{
    kx::SqlValueList row;
    row.add(u"ID"_s, QString()).addText(u"IDPARENT"_s, scheduleId).addText(u"EREIGNIS"_s, ereignis);
    return insertRow(u"gSchlussel_Ereignisse"_s, row);
}

void fee_AddRounding(const QString &scheduleId, int bisMinuten, int minuten, int stunden)
{
    kx::SqlValueList row;
    row.add(u"ID"_s, QString())
        .addText(u"IDPARENT"_s, scheduleId)
        .add(u"BISMINUTEN"_s, QString::number(bisMinuten))
        .add(u"MINUTEN"_s, QString::number(minuten))
        .add(u"STUNDEN"_s, QString::number(stunden));
    insertRow(u"gSchlussel_Runden"_s, row);
}

QString fee_AddCosts(const QString &eventId, const QMap<QString, double> &amounts)
{
    kx::SqlValueList row;
    row.add(u"ID"_s, QString()).addText(u"IDEREIGNIS"_s, eventId);
    QStringList columns;
    for (const QString &leg : legs)
        columns << u"FK_"_s + leg;
    for (const QString &leg : legs)
        columns << u"VK_"_s + leg;
    columns << u"KM_FW_SVGV"_s << u"KM_SVGV_KT"_s;
    addAmounts(row, columns, amounts);
    return insertRow(u"gSchlussel_Kosten"_s, row);
}

void fee_AddSurcharge(const QString &table, const QString &costId, double anzahl, int calcMinuten,
                      const QMap<QString, double> &amounts)
{
    kx::SqlValueList row;
    row.add(u"ID"_s, QString())
        .addText(u"IDPARENT"_s, costId)
        .add(u"ANZAHL"_s, sqlConvertFloat(anzahl))
        .add(u"CALCMINUTEN"_s, QString::number(calcMinuten));
    addAmounts(row, legs, amounts);
    insertRow(table, row);
}

QList<FeeSchedule> fee_ReadSchedules()
{
    QList<FeeSchedule> schedules;
    for (const QVector<QVariant> &row : compSqlConnection->execute(u"select ID, BEZEICHNUNG from gSchlussel order by ID"_s).rows)
        schedules << FeeSchedule{ row.value(0).toString(), row.value(1).toString() };
    return schedules;
}

QStringList fee_ReadEvents(const QString &scheduleId)
{
    QStringList events;
    for (const QVector<QVariant> &row : compSqlConnection->execute(u"select EREIGNIS from gSchlussel_Ereignisse where IDPARENT="_s
                                                                  + kx::sqlQuoted(scheduleId) + u" order by EREIGNIS"_s)
                                            .rows)
        events << row.value(0).toString();
    return events;
}

bool fee_ScheduleExists(const QString &scheduleId)
{
    return !sqlGetValue(u"select ID from gSchlussel where ID="_s + kx::sqlQuoted(scheduleId)).isEmpty();
}

QString fee_AddSampleSchedule()
{
    if (fee_ScheduleExists(u"MUSTERSTADT"_s)) // the sample is there already: a second run adds nothing
        return u"MUSTERSTADT"_s;
    const QString schedule = fee_AddSchedule(u"Gebührensatzung Musterstadt (Beispiel)"_s, u"MUSTERSTADT"_s);
    fee_AddRounding(schedule, 15, 15, 0);
    fee_AddRounding(schedule, 30, 30, 0);
    fee_AddRounding(schedule, 60, 0, 1);
    const QString brand = fee_AddEvent(schedule, u"BRAND"_s);
    const QString th = fee_AddEvent(schedule, u"TH"_s);
    const QString vorgabe = fee_AddEvent(schedule, u"VORGABE"_s);
    const QString brandCosts = fee_AddCosts(brand, { { u"FK_FWA_FW"_s, 25 }, { u"VK_FWA_FW"_s, 60 },
                                                     { u"VK_FW_SVGV"_s, 45.5 }, { u"VK_SVGV_KT"_s, 12 },
                                                     { u"KM_FW_SVGV"_s, 1.2 }, { u"KM_SVGV_KT"_s, 0.8 } });
    fee_AddCosts(th, { { u"FK_FW_SVGV"_s, 40 }, { u"VK_FW_SVGV"_s, 80 }, { u"KM_FW_SVGV"_s, 1.5 } });
    fee_AddCosts(vorgabe, { { u"VK_FWA_FW"_s, 30 } });
    // Twenty surcharge rows on the fire event: night and weekend flat rates every half hour,
    // graded hourly extras from two hours on, and a second flat list.
    for (int i = 1; i <= 8; ++i)
        fee_AddSurcharge(QString::fromUtf16(FlatSurcharges), brandCosts, i * 0.5, i * 30,
                         { { u"FWA_FW"_s, 5 }, { u"FW_SVGV_SZ"_s, 2.5 } });
    for (int i = 1; i <= 6; ++i)
        fee_AddSurcharge(QString::fromUtf16(HourlyBeyond), brandCosts, 1 + i, 60 + i * 60,
                         { { u"FWA_FW"_s, 10 }, { u"SVGV_KT"_s, 4 } });
    for (int i = 1; i <= 6; ++i)
        fee_AddSurcharge(QString::fromUtf16(RateSurcharges), brandCosts, i, i * 60, { { u"FW_SVGV"_s, 7.5 } });
    return schedule;
}
