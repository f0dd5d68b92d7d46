// SPDX-License-Identifier: LGPL-2.1-or-later
// The AAO rule lookup: one statement that finds the rule for keyword, object, place, weekday,
// time and date.
#include "aaocommon.h"

#include "formatsettings.h"
#include "sqltool.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {

QString condition(const QString &field, const QString &value)
{
    return sqlConvertFormatStringToSQL(QString(), field, u"Varchar"_s, value, false);
}

QString orNever(const QString &condition)
{
    return condition.isEmpty() ? u"1=2"_s : condition;
}

QString weekdayColumn(const QDate &date)
{
    return aaoWeekdayColumns().at(date.dayOfWeek() - 1);
}

QString statement(const QString &objekt, const QString &einsatzort, const QString &alarmkuerzel,
                  const QString &weekday, const QString &time, const QString &date, const QString &placeList)
{
    return u"Select Id from AAO Where "_s + condition(u"ALARMKUERZEL"_s, alarmkuerzel) + u" and "_s + u"("_s
        + orNever(condition(u"AlarmObjekt"_s, objekt)) + u" or AlarmObjekt='' or Alarmobjekt is null) and "_s + u"("_s
        + orNever(condition(u"EINSATZORT"_s, einsatzort))
        + u" or EINSATZORT='' or (EINSATZORT is null) or ( id in (select idparent from AAO_Orte Where "_s + placeList
        + u") )  ) and "_s + u"( "_s + u" ( "_s + u"  EXTENDEDSETTINGS=1 and "_s + weekday + u"=1 "_s
        + u"  and (ES_FROMTIME<='"_s + sqlConvertString(time) + u"' or ES_FROMTIME='' or ES_FROMTIME is Null) "_s
        + u"  and (ES_TOTIME>='"_s + sqlConvertString(time) + u"' or ES_TOTIME='' or ES_TOTIME is Null) "_s
        + u"  and (ES_FromDate<='"_s + date + u"' or ES_FromDate is Null) "_s
        // Deliberate: the to-date test escapes on ES_FromDate, as the rule tables expect.
        + u"  and (ES_ToDate>='"_s + date + u"' or ES_FromDate is Null) "_s + u" ) "_s + u" or "_s + u" ( "_s
        + u"  (EXTENDEDSETTINGS=0 or EXTENDEDSETTINGS is Null) "_s + u" ) "_s + u") "_s
        + u"order by EXTENDEDSETTINGS desc, es_Fromdate,es_fromTime,es_fromTime,es_toTime,AlarmObjekt desc,EINSATZORT desc"_s;
}

QString withObjectName(const QString &objekt, bool useObjektName, const QString &first,
                       const std::function<QString(const QString &)> &lookup)
{
    if (!useObjektName)
        return first;
    const QString name = AaoSplitObjektName(objekt).Name;
    if (name.compare(objekt, Qt::CaseInsensitive) == 0)
        return first;
    return lookup(name); // replaces the first result, also when empty
}

} // namespace

const QStringList &aaoWeekdayColumns()
{
    static const QStringList columns{ u"ES_MO"_s, u"ES_DI"_s, u"ES_Mi"_s, u"ES_DO"_s,
                                      u"ES_Fr"_s, u"ES_Sa"_s, u"ES_So"_s };
    return columns;
}

QString aaoStatement(const QString &Objekt, const QString &Einsatzort, const QString &Alarmkuerzel)
{
    const QDateTime now = QDateTime::currentDateTime();
    // Deliberate: this lookup never matches a rule through its "AAO_Orte" places.
    return statement(Objekt, Einsatzort, Alarmkuerzel, weekdayColumn(now.date()),
                     now.time().toString(FormatSettings().LongTimeFormat), sqlConvertDate(now), u"1=2"_s);
}

QString aaoStatement(const QString &Objekt, const QString &Einsatzort, const QString &Alarmkuerzel, const QString &Datum,
                     const QString &Uhrzeit)
{
    // The date is read as the short date format gives it (a time part or other text makes it
    // unreadable, a missing year is completed); an unreadable date is today's, without a word.
    QDate date = kx::strToDate(Datum);
    if (!date.isValid())
        date = QDate::currentDate();
    return statement(Objekt, Einsatzort, Alarmkuerzel, weekdayColumn(date), Uhrzeit, sqlConvertDate(date),
                     condition(u"EINSATZORT"_s, Einsatzort));
}

QString aaoGetID(QString Objekt, QString Einsatzort, QString Alarmkuerzel)
{
    return sqlGetValue(aaoStatement(Objekt, Einsatzort, Alarmkuerzel));
}

QString aaoGetID(QString Objekt, QString Einsatzort, QString Alarmkuerzel, QString Datum, QString Uhrzeit)
{
    return sqlGetValue(aaoStatement(Objekt, Einsatzort, Alarmkuerzel, Datum, Uhrzeit));
}

QString aaoGetID(QString Objekt, QString Einsatzort, QString Alarmkuerzel, bool UseObjektName)
{
    return withObjectName(Objekt, UseObjektName, aaoGetID(Objekt, Einsatzort, Alarmkuerzel),
                          [&](const QString &name) { return aaoGetID(name, Einsatzort, Alarmkuerzel); });
}

QString aaoGetID(QString Objekt, QString Einsatzort, QString Alarmkuerzel, QString Datum, QString Uhrzeit,
                 bool UseObjektName)
{
    return withObjectName(Objekt, UseObjektName, aaoGetID(Objekt, Einsatzort, Alarmkuerzel, Datum, Uhrzeit),
                          [&](const QString &name) { return aaoGetID(name, Einsatzort, Alarmkuerzel, Datum, Uhrzeit); });
}
