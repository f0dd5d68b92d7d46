// SPDX-License-Identifier: LGPL-2.1-or-later
// The count updates of one document line: the article (or its storage location) for
// ordinary lines, the article's batch count for batch lines.
#include "lagercommon.h"

#include "lageramount.h"
#include "sqlconnection.h"
#include "sqldialect.h"
#include "sqlquery.h"
#include "sqltool.h"
#include "strtools.h"

#include <cmath>

using namespace Qt::StringLiterals;
using kx::stock::afterMinus;

namespace {

double valueOrZero(const QString &sql)
{
    return StrToFloatDef(sqlGetValue(sql), 0);
}

} // namespace

void TCLagerAction::CalcLagerCount(const QString &LineId, const QString &LagerId)
{
    const double A = DataQuery->FieldByName(u"Anzahl"_s).AsFloat();
    const double C = DataQuery->FieldByName(u"CountLager"_s).AsFloat();
    const QString idnummer = DataQuery->FieldByName(u"idnummer"_s).AsString();

    QString table;
    QString where;
    double oldCount = 0;
    if (fEnableMultiStorage) {
        table = u"Artikel_Lager"_s;
        const QString K = sqlGetValue(u"Select id From Artikel Where idnummer="_s + idnummer);
        oldCount = valueOrZero(u"Select Bestand From Artikel_Lager Where idParent='"_s + sqlConvertString(K) + u"' and LagerId='"_s
                               + sqlConvertString(LagerId) + u"'"_s);
        where = u"WHERE idParent='"_s + sqlConvertString(K) + u"' and LagerId='"_s + sqlConvertString(LagerId) + u"'"_s;
    } else {
        table = u"Artikel"_s;
        oldCount = valueOrZero(u"Select Bestand From Artikel Where idnummer="_s + idnummer);
        where = u"WHERE IDNUMMER="_s + idnummer;
    }

    QString art;
    QString first;
    double Q = 0;
    const QString head = u"UPDATE "_s + table + u" SET COUNTLAGER=COUNTLAGER"_s;
    switch (fAction) {
    case latAdd:
        art = u"ADD"_s;
        Q = A - C;
        first = head + u'+' + sqlConvertFloat(Q);
        break;
    case latSub: {
        art = u"SUB"_s;
        const double d = C - A;
        Q = std::fabs(d);
        first = head + ((std::isnan(d) || d < 0) ? u'-' : u'+') + sqlConvertFloat(Q);
        break;
    }
    case latResetAdd:
        art = u"RESET ADD"_s;
        Q = A;
        first = head + u'-' + afterMinus(A);
        break;
    case latResetSub:
        art = u"RESET SUB"_s;
        Q = A;
        first = head + u'+' + sqlConvertFloat(A);
        break;
    }
    runModi({ first, u", BESTAND=COUNTBESTAND+COUNTLAGER"_s, where });

    // The first statement reads COUNTLAGER before its own change; the total is set again from
    // the new counts. Deliberate: the text names ARTIKEL also when a storage location was booked.
    if (compSqlConnection->dialect().updateReadsOldRow())
        runModi({ u"UPDATE ARTIKEL SET BESTAND=COUNTBESTAND+COUNTLAGER"_s, where });

    fidBestellung = sqlGetValue(u"Select id from Bestellungen Where id in (Select distinct idparent from Bestellungen_artikel Where id='"_s
                                + sqlConvertString(LineId) + u"')"_s);
    const double newCount = valueOrZero(u"Select Bestand From Artikel Where idnummer="_s + idnummer);
    const QString artikelId = sqlGetValue(u"SELECT ID FROM ARTIKEL WHERE IDNUMMER="_s + idnummer);
    const double preis = valueOrZero(u"Select Netto From "_s + fTablename + u" Where id='"_s + sqlConvertString(LineId) + u"'"_s);

    LogAction(fTablename, art, Q, oldCount, newCount, artikelId, preis, LineId);
}

void TCLagerAction::CalcLagerCountBasedOnCharge(const QString &)
{
    const double A = DataQuery->FieldByName(u"Anzahl"_s).AsFloat();
    const double C = DataQuery->FieldByName(u"CountLager"_s).AsFloat();
    const QString idnummer = DataQuery->FieldByName(u"idnummer"_s).AsString();

    // Deliberate: a removal books the signed difference, so a reduced line gives batch stock back.
    const QString change = kx::stock::bookingAssignment(u"CountCharge"_s, fAction, A, C);
    if (change.isEmpty())
        return;
    const QString first = u"Update Artikel set "_s + change;
    const QString where = u"Where Idnummer="_s + idnummer;
    runModi({ first, u", Bestand=CountBestand+CountLager+CountCharge"_s, where });
    // As for ordinary lines: the total is set again from the counts the first statement changed.
    if (compSqlConnection->dialect().updateReadsOldRow())
        runModi({ u"Update Artikel set Bestand=CountBestand+CountLager+CountCharge"_s, where });
}
