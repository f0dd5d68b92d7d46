// SPDX-License-Identifier: LGPL-2.1-or-later
#include "dispatchdata.h"

#include "aaocommon.h"

#include "dataaccess.h"
#include "sqlconnection.h"
#include "sqltool.h"

using namespace Qt::StringLiterals;

namespace {

const QString key = u"Varchar(33)"_s;
const QString flag = u"Numeric(10,0)"_s;

QList<TCTableDef> tables()
{
    return {
        { u"AAO"_s,
          { { u"ID"_s, key, fUniqueIndex }, { u"BEZEICHNUNG"_s, u"VarChar(80)"_s },
            { u"ALARMKUERZEL"_s, u"VarChar(30)"_s }, { u"ALARMOBJEKT"_s, u"VarChar(80)"_s },
            { u"EINSATZORT"_s, u"VarChar(80)"_s }, { u"EXTENDEDSETTINGS"_s, flag }, { u"ES_MO"_s, flag },
            { u"ES_DI"_s, flag }, { u"ES_MI"_s, flag }, { u"ES_DO"_s, flag }, { u"ES_FR"_s, flag }, { u"ES_SA"_s, flag },
            { u"ES_SO"_s, flag }, { u"ES_FROMTIME"_s, u"VarChar(10)"_s }, { u"ES_TOTIME"_s, u"VarChar(10)"_s },
            { u"ES_FROMDATE"_s, u"Date"_s }, { u"ES_TODATE"_s, u"Date"_s } },
          // The lookup asks for a keyword and an object or none: both in one index keeps it
          // from reading every rule of a keyword.
          { { u"AAOKuerzelObjektIDX"_s, false, u"ALARMKUERZEL,ALARMOBJEKT"_s } }, standardRights() },
        { u"AAO_Orte"_s,
          { { u"ID"_s, key, fUniqueIndex }, { u"IDPARENT"_s, key, fIndex }, { u"EINSATZORT"_s, u"VarChar(80)"_s, fIndex } },
          {}, standardRights() },
        { u"ORTE"_s,
          { { u"ID"_s, key, fUniqueIndex }, { u"PLZ"_s, u"VarChar(10)"_s }, { u"ORT"_s, u"VarChar(80)"_s },
            { u"ORTSTEIL"_s, u"VarChar(80)"_s }, { u"STRASSE"_s, u"VarChar(80)"_s }, { u"SELECTPLZ"_s, u"VarChar(10)"_s },
            { u"SELECTORT"_s, u"VarChar(80)"_s }, { u"SELECTSTRASSE"_s, u"VarChar(80)"_s }, { u"HNRGVON"_s, flag },
            { u"HNRGBIS"_s, flag }, { u"HNRUVON"_s, flag }, { u"HNRUBIS"_s, flag },
            { u"HAUSNUMMER"_s, u"VarChar(10)"_s } },
          // The address frame's pick lists ask by postcode, and by postcode and town.
          { { u"OrteSelectIDX"_s, false, u"SELECTORT,SELECTSTRASSE"_s }, { u"OrtePlzOrtIDX"_s, false, u"PLZ,ORT"_s } },
          standardRights() },
        { u"sysparam"_s, { { u"ID"_s, key, fUniqueIndex }, { u"P1"_s, u"VarChar(80)"_s, fIndex } }, {}, standardRights() },
    };
}

// The search columns of a street row, in the form the look-ups query them.
kx::SqlValueList &addSelectColumns(kx::SqlValueList &row, const QString &plz, const QString &ort, const QString &strasse)
{
    return row.addText(u"SELECTPLZ"_s, SqlGetSelectFieldValue(plz))
        .addText(u"SELECTORT"_s, SqlGetSelectFieldValue(ort))
        .addText(u"SELECTSTRASSE"_s, SqlGetSelectFieldValue(strasse));
}

QString numberOrNull(const std::optional<int> &value)
{
    return value ? QString::number(*value) : u"NULL"_s;
}

QString dateOrNull(const std::optional<QDate> &date)
{
    return date ? u'\'' + sqlConvertDate(*date) + u'\'' : u"NULL"_s;
}

} // namespace

QList<TCTableDef> dispatch_Tables()
{
    return tables();
}

void dispatch_CreateTables()
{
    for (const TCTableDef &table : tables())
        alterOrCreateTable(table, compSqlConnection);
}

QString dispatch_AddRule(const AaoRule &rule)
{
    const QString id = sqlGenIdValue();
    kx::SqlValueList row;
    row.addText(u"ID"_s, id)
        .addText(u"BEZEICHNUNG"_s, rule.bezeichnung)
        .addText(u"ALARMKUERZEL"_s, rule.alarmkuerzel)
        .addText(u"ALARMOBJEKT"_s, rule.objekt)
        .addText(u"EINSATZORT"_s, rule.einsatzort)
        // Written 0, never null, as the suite's modules write an unrestricted rule.
        .add(u"EXTENDEDSETTINGS"_s, rule.restricted ? u"1"_s : u"0"_s);
    for (int d = 0; d < 7; ++d)
        row.add(aaoWeekdayColumns().at(d), rule.weekdays[d] ? u"1"_s : u"0"_s);
    row.addText(u"ES_FROMTIME"_s, rule.fromTime)
        .addText(u"ES_TOTIME"_s, rule.toTime)
        .add(u"ES_FROMDATE"_s, dateOrNull(rule.fromDate))
        .add(u"ES_TODATE"_s, dateOrNull(rule.toDate));
    SqlExec(SqlBuildInsertSql(u"AAO"_s, row.pairs()));
    return id;
}

QString dispatch_RuleName(const QString &ruleId)
{
    if (ruleId.isEmpty())
        return QString();
    return sqlGetValue(u"select BEZEICHNUNG from AAO where ID="_s + kx::sqlQuoted(ruleId));
}

void dispatch_AddRulePlace(const QString &ruleId, const QString &einsatzort)
{
    kx::SqlValueList row;
    row.addText(u"ID"_s, sqlGenIdValue()).addText(u"IDPARENT"_s, ruleId).addText(u"EINSATZORT"_s, einsatzort);
    SqlExec(SqlBuildInsertSql(u"AAO_Orte"_s, row.pairs()));
}

void dispatch_AddOrt(const OrtEntry &e)
{
    kx::SqlValueList row;
    row.addText(u"ID"_s, sqlGenIdValue())
        .addText(u"PLZ"_s, e.plz)
        .addText(u"ORT"_s, e.ort)
        .addText(u"ORTSTEIL"_s, e.ortsteil)
        .addText(u"STRASSE"_s, e.strasse)
        .addText(u"HAUSNUMMER"_s, e.hausnummer);
    addSelectColumns(row, e.plz, e.ort, e.strasse)
        .add(u"HNRGVON"_s, numberOrNull(e.geradeVon))
        .add(u"HNRGBIS"_s, numberOrNull(e.geradeBis))
        .add(u"HNRUVON"_s, numberOrNull(e.ungeradeVon))
        .add(u"HNRUBIS"_s, numberOrNull(e.ungeradeBis));
    SqlExec(SqlBuildInsertSql(u"ORTE"_s, row.pairs()));
}

void dispatch_UpdateOrtSelect(const QString &id)
{
    const kx::SqlResult row = compSqlConnection->execute(u"select PLZ, ORT, STRASSE from ORTE where ID="_s
                                                         + kx::sqlQuoted(id));
    if (row.rows.empty())
        return;
    const auto &values = row.rows.front();
    kx::SqlValueList select;
    addSelectColumns(select, values.value(0).toString(), values.value(1).toString(), values.value(2).toString());
    SqlExec(SqlBuildUpdateSql(u"ORTE"_s, select.pairs(), u"Where ID="_s + kx::sqlQuoted(id)));
}

void dispatch_AddSysparam(const QString &p1)
{
    SqlExec(u"Insert into sysparam (ID,P1) values ("_s + kx::sqlQuoted(sqlGenIdValue()) + u","_s + kx::sqlQuoted(p1) + u")"_s);
}

QList<AaoRuleRow> dispatch_ReadRules()
{
    QList<AaoRuleRow> rules;
    const QString sql = u"select ID, ALARMKUERZEL, ALARMOBJEKT, EINSATZORT, EXTENDEDSETTINGS, ES_FROMTIME, ES_TOTIME, "
                        u"ES_FROMDATE, ES_TODATE, BEZEICHNUNG, "_s
        + aaoWeekdayColumns().join(u", "_s) + u" from AAO order by ALARMKUERZEL, BEZEICHNUNG"_s;
    for (const QVector<QVariant> &r : compSqlConnection->execute(sql).rows) {
        AaoRuleRow row{ r.value(0).toString(), {} };
        row.rule.alarmkuerzel = r.value(1).toString();
        row.rule.objekt = r.value(2).toString();
        row.rule.einsatzort = r.value(3).toString();
        row.rule.restricted = r.value(4).toInt() == 1;
        row.rule.fromTime = r.value(5).toString();
        row.rule.toTime = r.value(6).toString();
        if (!r.value(7).isNull())
            row.rule.fromDate = r.value(7).toDate();
        if (!r.value(8).isNull())
            row.rule.toDate = r.value(8).toDate();
        row.rule.bezeichnung = r.value(9).toString();
        for (int d = 0; d < 7; ++d)
            row.rule.weekdays[d] = r.value(10 + d).toInt() == 1;
        rules << row;
    }
    return rules;
}

void dispatch_AddSampleData()
{
    // The sample is there already: a second run adds nothing.
    if (sqlGetValueInt(u"select count(*) from AAO where BEZEICHNUNG='Brand mittel: LF, DLK'"_s) > 0)
        return;
    dispatch_AddRule({ u"B2"_s, {}, {}, false, {}, {}, {}, {}, {}, u"Brand mittel: LF, DLK"_s });
    dispatch_AddRule({ u"B2"_s, u"Rathaus"_s, {}, false, {}, {}, {}, {}, {}, u"Brand Rathaus: LF, DLK, ELW"_s });
    const QString night = dispatch_AddRule({ u"B2"_s, {}, u"Musterstadt"_s, true,
                                             { true, true, true, true, true, true, true }, u"00:00:00"_s, u"06:00:00"_s,
                                             {}, {}, u"Brand mittel nachts: LF, DLK, zweites LF"_s });
    dispatch_AddRulePlace(night, u"Neudorf"_s);
    dispatch_AddRule({ u"TH1"_s, {}, {}, false, {}, {}, {}, {}, {}, u"Technische Hilfe klein: HLF"_s });
    dispatch_AddRule({ u"TH1"_s, {}, {}, true, { false, false, false, false, false, true, true }, {}, {}, {}, {},
                       u"Technische Hilfe am Wochenende: HLF, MTW"_s });

    dispatch_AddOrt({ u"64285"_s, u"Musterstadt"_s, u"Altstadt"_s, u"Hauptstraße"_s, 2, 40, 1, 41 });
    dispatch_AddOrt({ u"64285"_s, u"Musterstadt"_s, u"Neustadt"_s, u"Hauptstraße"_s, 42, 120, 43, 121 });
    dispatch_AddOrt({ u"64285"_s, u"Musterstadt"_s, u"Altstadt"_s, u"Am Markt"_s, {}, {}, {}, {} });
    dispatch_AddOrt({ u"64287"_s, u"Musterstadt"_s, u"Oberfeld"_s, u"Nieder-Ramstädter Str."_s, 2, 98, {}, {} });
    dispatch_AddOrt({ u"64287"_s, u"Musterstadt"_s, u"Oberfeld"_s, u"Straße des 17. Juni"_s, {}, {}, {}, {} });
    dispatch_AddOrt({ u"64289"_s, u"Musterstadt"_s, u"Mühltal"_s, u"Mühlweg 7"_s, {}, {}, {}, {} });
}
