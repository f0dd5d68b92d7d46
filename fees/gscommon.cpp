// SPDX-License-Identifier: LGPL-2.1-or-later
#include "gscommon.h"

#include "kxerror.h"
#include "sqlconnection.h"
#include "sqlquery.h"
#include "sqltool.h"

#include <functional>

using namespace Qt::StringLiterals;

QPointer<TGSCommonForm> GSCommonForm;

namespace {

// A sum of the calculation: every addition is made in extended precision and stored back as a
// double, in the order of the steps, so that results agree to the last bit.
class Leg
{
public:
    void add(long double term) { m_value = double(static_cast<long double>(m_value) + term); }
    double value() const { return m_value; }

private:
    double m_value = 0;
};

void checkOverflow(bool overflowed)
{
    if (overflowed)
        throw kx::OverflowError(u"Arithmetischer Überlauf bei der Berechnung der abzurechnenden Minuten."_s);
}

int32_t add32(int32_t a, int32_t b)
{
    int32_t r = 0;
    checkOverflow(__builtin_add_overflow(a, b, &r));
    return r;
}

int32_t mul32(int32_t a, int32_t b)
{
    int32_t r = 0;
    checkOverflow(__builtin_mul_overflow(a, b, &r));
    return r;
}

// Upper case of the ASCII letters only; umlauts stay as they are.
QString asciiUpper(QString text)
{
    for (QChar &c : text)
        if (c >= u'a' && c <= u'z')
            c = QChar(c.unicode() - 32);
    return text;
}

void openQuery(TCSqlQuery &query, const QStringList &lines)
{
    query.SQL.Assign(lines);
    query.Open();
}

// The surcharge rows of a cost row whose threshold lies strictly below the billed value.
void openSurcharges(TCSqlQuery &query, const QString &table, const QString &costId, bool byQuantity, double billed)
{
    const QString column = byQuantity ? u"Anzahl"_s : u"CalcMinuten"_s;
    openQuery(query, { u"Select * from "_s + table + u" Where idParent='"_s + sqlConvertString(costId) + u"' and "_s + column + u'<'
                       + sqlConvertFloat(billed) + u" order by "_s + column + u" DESC"_s });
}

double fieldValue(const TCSqlQuery &query, const QString &name)
{
    return query.Eof() ? 0 : query.FieldByName(name).AsFloat();
}

// The six columns of a row, each pair to its leg, in the order the schedule lists them;
// each value as Scaled makes it (flat amounts stand as they are).
void addSixColumns(const TCSqlQuery &query, const QString &prefix, Leg &A, Leg &B, Leg &C,
                   const std::function<long double(double)> &scaled)
{
    A.add(scaled(fieldValue(query, prefix + u"FWA_FW"_s)));
    A.add(scaled(fieldValue(query, prefix + u"FWA_FW_SZ"_s)));
    B.add(scaled(fieldValue(query, prefix + u"FW_SVGV"_s)));
    B.add(scaled(fieldValue(query, prefix + u"FW_SVGV_SZ"_s)));
    C.add(scaled(fieldValue(query, prefix + u"SVGV_KT"_s)));
    C.add(scaled(fieldValue(query, prefix + u"SVGV_KT_SZ"_s)));
}

long double flat(double value)
{
    return value;
}

QString lookupEventId(TCSqlQuery &query, const QString &sql)
{
    openQuery(query, { sql });
    const QString id = query.Eof() ? QString() : query.FieldByName(u"Id"_s).AsString();
    query.Close();
    return id;
}

} // namespace

TGSCommonForm::TGSCommonForm(QObject *owner)
    : THolderForm(owner)
    , GSQuery(new TCSqlQuery(this))
    , GSFKZQuery(new TCSqlQuery(this))
    , GSVKNQuery(new TCSqlQuery(this))
    , GSVKZQuery(new TCSqlQuery(this))
{
    GSQuery->setObjectName(u"GSQuery"_s);
    GSFKZQuery->setObjectName(u"GSFKZQuery"_s);
    GSVKNQuery->setObjectName(u"GSVKNQuery"_s);
    GSVKZQuery->setObjectName(u"GSVKZQuery"_s);
    FormCreate();
}

void TGSCommonForm::FormCreate()
{
    for (TCSqlQuery *query : { GSQuery, GSFKZQuery, GSVKNQuery, GSVKZQuery })
        query->Connection = compSqlConnection;
}

void TGSCommonForm::CalcGebuhren(QString ScheduleId, QString Event, int32_t Days, int32_t Hours, int32_t Minutes,
                                 double Quantity, double Kilometres)
{
    if (ScheduleId.isEmpty())
        return;
    Event = asciiUpper(Event);
    QString eventId = lookupEventId(*GSQuery, u"Select ID from gSchlussel_Ereignisse where idParent='"_s + sqlConvertString(ScheduleId)
                                                  + u"' and ( Upper(Ereignis)='"_s + sqlConvertString(Event) + u"')"_s);
    const bool byQuantity = Quantity != 0.0;
    if (eventId.isEmpty())
        eventId = lookupEventId(*GSQuery, u"Select ID from gSchlussel_Ereignisse where idParent='"_s + sqlConvertString(ScheduleId)
                                              + u"' and (Upper(Ereignis)='VORGABE')"_s);
    if (eventId.isEmpty()) {
        s1.setAsFloat(0.0);
        s2.setAsFloat(0.0);
        s3.setAsFloat(0.0);
        return;
    }

    double billed = 0;
    double divisor = 1;
    if (byQuantity) {
        billed = Quantity;
    } else {
        if (Minutes != 0) {
            openQuery(*GSQuery, { u"Select * from gSchlussel_Runden where idParent='"_s + sqlConvertString(ScheduleId) + u"'"_s,
                                  u"order by BisMinuten"_s });
            for (; !GSQuery->Eof(); GSQuery->Next()) {
                if (GSQuery->FieldByName(u"bisminuten"_s).AsInteger() >= Minutes) {
                    Minutes = GSQuery->FieldByName(u"Minuten"_s).AsInteger();
                    Hours = add32(Hours, GSQuery->FieldByName(u"Stunden"_s).AsInteger());
                    break;
                }
            }
            GSQuery->Close();
        }
        billed = add32(add32(mul32(mul32(Days, 24), 60), mul32(Hours, 60)), Minutes);
        divisor = 60;
    }

    Leg A, B, C;
    openQuery(*GSQuery, { u"Select * from gSchlussel_Kosten where idEreignis='"_s + sqlConvertString(eventId) + u"'"_s });
    addSixColumns(*GSQuery, u"FK_"_s, A, B, C, flat);
    const QString costId = GSQuery->Eof() ? QString() : GSQuery->FieldByName(u"id"_s).AsString();

    openSurcharges(*GSFKZQuery, u"gSchlussel_FKZulagen"_s, costId, byQuantity, billed);
    for (; !GSFKZQuery->Eof(); GSFKZQuery->Next())
        addSixColumns(*GSFKZQuery, QString(), A, B, C, flat);
    GSFKZQuery->Close();

    const double kmB = double(static_cast<long double>(fieldValue(*GSQuery, u"KM_FW_SVGV"_s)) * Kilometres);
    const double kmC = double(static_cast<long double>(fieldValue(*GSQuery, u"KM_SVGV_KT"_s)) * Kilometres);

    // Rates per hour, charged by the minute with a duration (divisor 60) or per billed hour.
    addSixColumns(*GSQuery, u"VK_"_s, A, B, C,
                  [&](double rate) { return static_cast<long double>(rate) / divisor * billed; });

    openSurcharges(*GSVKNQuery, u"gSchlussel_VKNach"_s, costId, byQuantity, billed);
    for (; !GSVKNQuery->Eof(); GSVKNQuery->Next()) {
        // Each row charges its rate for the time beyond its own threshold, so graded rows add up.
        const double threshold = GSVKNQuery->FieldByName(byQuantity ? u"Anzahl"_s : u"CalcMinuten"_s).AsFloat();
        addSixColumns(*GSVKNQuery, QString(), A, B, C, [&](double rate) {
            return static_cast<long double>(rate) / divisor * (static_cast<long double>(billed) - threshold);
        });
    }

    openSurcharges(*GSVKZQuery, u"gSchlussel_VKZulagen"_s, costId, byQuantity, billed);
    for (; !GSVKZQuery->Eof(); GSVKZQuery->Next())
        addSixColumns(*GSVKZQuery, QString(), A, B, C, flat);
    GSVKNQuery->Close();
    GSQuery->Close();

    s1.setAsFloat(A.value());
    s2.setAsFloat(B.value());
    s3.setAsFloat(C.value());
    s4.setAsFloat(kmB);
    s5.setAsFloat(kmC);
}

bool CalcGebuhren(QString ScheduleId, QString Event, int32_t Days, int32_t Hours, int32_t Minutes, double Quantity,
                  double &CostFwaFw, double &CostFwSvgv, double &CostSvgvKt)
{
    runInHolder(GSCommonForm, [&](TGSCommonForm &form) {
        form.CalcGebuhren(ScheduleId, Event, Days, Hours, Minutes, Quantity, 0.0);
        CostFwaFw = form.s1.AsFloat();
        CostFwSvgv = form.s2.AsFloat();
        CostSvgvKt = form.s3.AsFloat();
    });
    return true;
}

bool CalcGebuhren(QString ScheduleId, QString Event, int32_t Days, int32_t Hours, int32_t Minutes, double Quantity,
                  double Kilometres, double &CostFwaFw, double &CostFwSvgv, double &CostSvgvKt)
{
    runInHolder(GSCommonForm, [&](TGSCommonForm &form) {
        form.CalcGebuhren(ScheduleId, Event, Days, Hours, Minutes, Quantity, Kilometres);
        CostFwaFw = form.s1.AsFloat();
        CostFwSvgv = form.s2.AsFloat();
        CostSvgvKt = form.s3.AsFloat();
        CostFwSvgv = double(static_cast<long double>(CostFwSvgv) + form.s4.AsFloat());
        CostSvgvKt = double(static_cast<long double>(CostSvgvKt) + form.s5.AsFloat());
    });
    return true;
}
